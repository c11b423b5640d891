// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/EscritorDeLinhas.h"

#include "arvore/TagsXML.h"
#include "plataforma/ClientDataSet.h"
#include "plataforma/CodePage.h"
#include "plataforma/Exception.h"

#include <algorithm>

namespace Sibrel
{

namespace
{

// The first character that a value between quotation marks cannot hold, -1 when there is none. A tab or a
// line end would come back as a blank.
qsizetype PrimeiroProibido(QStringView Texto)
{
    constexpr char16_t PrimeiroVisivel = u' ';
    const auto *Lugar = std::find_if(Texto.begin(), Texto.end(), [](QChar C) {
        return C < QChar(PrimeiroVisivel) || C == u'<' || C == u'>' || C == u'"';
    });
    const qsizetype Marca = Lugar != Texto.end() ? Lugar - Texto.begin() : -1;
    const qsizetype Estranho = PrimeiroFora1252(Texto);
    return Marca < 0 || (Estranho >= 0 && Estranho < Marca) ? Estranho : Marca;
}

const QString &ExigirValor(const QString &Texto, const QString &Onde)
{
    const qsizetype Lugar = PrimeiroProibido(Texto);
    if (Lugar < 0)
        return Texto;
    throw EConvertError(
        QStringLiteral("O valor <%1> não pode ser escrito no documento!").arg(Texto),
        QStringLiteral("%1, caracter U+%2 na posição %3.")
            .arg(Onde, QString::number(Texto[Lugar].unicode(), 16).toUpper().rightJustified(4, u'0'))
            .arg(Lugar + 1));
}

bool ENome(QStringView Texto)
{
    const auto Inicial = [](QChar C) { return C.isLetter() || C == u'_'; };
    return !Texto.isEmpty() && Inicial(Texto.front()) && PrimeiroFora1252(Texto) < 0 &&
           std::all_of(Texto.begin(), Texto.end(), [&](QChar C) {
               return Inicial(C) || (C >= u'0' && C <= u'9') || C == u'-' || C == u'.';
           });
}

void EscreverAtributo(QString &Saida, QStringView Nome, const QString &Valor)
{
    Saida += u' ';
    Saida += Nome;
    Saida += u"=\"";
    Saida += Valor;
    Saida += u'"';
}

} // namespace

TEscritorDeLinhas::TEscritorDeLinhas(const TMapeamentoXML &Mapeamento, const TClientDataSet &Dados,
                                     const TConversor &Converter)
    : FMapeamento(Mapeamento)
    , FDados(Dados)
    , FConverter(Converter)
    , FTag(Mapeamento.Tag.isEmpty() ? Coluna(Mapeamento.ColunaTag) : nullptr)
    , FNome(Coluna(Mapeamento.ColunaNome))
    , FCor(Coluna(Mapeamento.ColunaCor))
    , FSimbolo(Coluna(Mapeamento.ColunaSimbolo))
    , FLink(Coluna(Mapeamento.ColunaLink))
    , FChave(Coluna(Mapeamento.ColunaChave))
    , FPai(Coluna(Mapeamento.ColunaPai))
    , FIdentificacao(Pares(Mapeamento.Identificacao, _IDENTIFICADOR_))
    , FInformacao(Pares(Mapeamento.Informacao, _INFORMACAO_))
{
}

const TField *TEscritorDeLinhas::Coluna(const QString &Nome) const
{
    return Nome.isEmpty() ? nullptr : &FDados.FieldByName(Nome);
}

std::vector<TEscritorDeLinhas::TParDeColuna>
TEscritorDeLinhas::Pares(const std::vector<TMapeamentoXML::TPar> &Lista, QStringView TagDoItem) const
{
    std::vector<TParDeColuna> Resultado;
    for (const TMapeamentoXML::TPar &Par : Lista) {
        QString Inicio = u'<' + TagDoItem.toString();
        EscreverAtributo(Inicio, _ROTULO_,
                         ExigirValor(Par.Rotulo, QStringLiteral("Rótulo da coluna <%1>").arg(Par.Coluna)));
        Resultado.push_back({Inicio, &FDados.FieldByName(Par.Coluna)});
    }
    return Resultado;
}

QString TEscritorDeLinhas::TagDaLinha()
{
    const QString Tag = FTag != nullptr ? FTag->AsString() : FMapeamento.Tag;
    if (Tag == FUltimaTag && !Tag.isEmpty())
        return FUltimaTag;
    if (!ENome(Tag))
        throw EConvertError(QStringLiteral("<%1> não é um nome de elemento!").arg(Tag),
                            QStringLiteral("Coluna <%1>, linha %2.")
                                .arg(FTag != nullptr ? FTag->FieldName() : QString())
                                .arg(FDados.RecNo()));
    return FUltimaTag = Tag;
}

QString TEscritorDeLinhas::Texto(const TField &Campo) const
{
    QString Valor = Campo.AsString();
    if (FConverter)
        Valor = FConverter(Campo.FieldName(), Valor);
    return ExigirValor(Valor,
                       QStringLiteral("Coluna <%1>, linha %2").arg(Campo.FieldName()).arg(FDados.RecNo()));
}

void TEscritorDeLinhas::EscreverAtributos(QString &Saida) const
{
    if (FNome != nullptr)
        EscreverAtributo(Saida, _NOME_, Texto(*FNome));
    if (FCor != nullptr && !FCor->IsNull())
        EscreverAtributo(Saida, _COR_, QString::number(FCor->AsInteger()));
    if (FSimbolo != nullptr && !FSimbolo->IsNull())
        EscreverAtributo(Saida, _SIMBOLO_, QString::number(FSimbolo->AsInteger()));
    if (FLink != nullptr && !FLink->IsNull())
        EscreverAtributo(Saida, _LINK_, Texto(*FLink));
}

void TEscritorDeLinhas::EscreverLista(QString &Saida, QStringView TagDaLista,
                                      const std::vector<TParDeColuna> &Itens) const
{
    const qsizetype Antes = Saida.size();
    Saida += u'<';
    Saida += TagDaLista;
    Saida += u'>';
    bool Algum = false;
    for (const TParDeColuna &Par : Itens) {
        if (Par.Campo->IsNull())
            continue;
        Algum = true;
        Saida += Par.Inicio;
        EscreverAtributo(Saida, _VALOR_, Texto(*Par.Campo));
        Saida += u"/>";
    }
    if (!Algum) {
        Saida.truncate(Antes);
        return;
    }
    Saida += u"</";
    Saida += TagDaLista;
    Saida += u'>';
}

TElementoDeLinha TEscritorDeLinhas::Escrever()
{
    constexpr qsizetype TamanhoUsual = 256;
    TElementoDeLinha Elemento;
    Elemento.Tag = TagDaLinha();
    Elemento.Abertura.reserve(TamanhoUsual);
    Elemento.Abertura += u'<';
    Elemento.Abertura += Elemento.Tag;
    EscreverAtributos(Elemento.Abertura);
    Elemento.Abertura += u'>';
    EscreverLista(Elemento.Abertura, _IDENTIFICADORES_, FIdentificacao);
    EscreverLista(Elemento.Abertura, _INFORMACOES_, FInformacao);
    if (FChave != nullptr && FPai != nullptr) {
        Elemento.Chave = FChave->AsString();
        Elemento.Pai = FPai->AsString();
    }
    return Elemento;
}

} // namespace Sibrel
