// SPDX-License-Identifier: LGPL-2.1-or-later
// The library sections of the kinds "Fonte", "Grafico" and "Composto".
#include "plataforma/Exception.h"
#include "plataforma/FontesInstaladas.h"
#include "plataforma/SeparadorDecimal.h"
#include "simbolos/ListaSimbolo.h"
#include "simbolos/SimboloComposto.h"
#include "simbolos/SimboloFonte.h"
#include "simbolos/SimboloGrafico.h"
#include "simbolos/TabelaDeSimbolos.h"
#include "simbolos/TratadorDeSimbolo.h"

namespace Sibrel
{

namespace
{

constexpr int ColunasDoNumero = 5;

QString Campo(std::int64_t Numero)
{
    return u' ' + ADireita(Numero, ColunasDoNumero);
}

} // namespace

void TTratadorDeSimboloFonte::Gravar(TArquivoDeGravacao &Arquivo, const ISimbolo &Simbolo)
{
    const auto &Fonte = Como<TSimboloFonte>(Simbolo);
    constexpr int CasasDaProporcao = 2;
    Arquivo.Escrever(Campo(Fonte.Caracter) + Campo(Fonte.Fonte.Charset()) + u' ' +
                     FormatarDecimal(Fonte.Proporcao, CasasDaProporcao) + u' ' + Fonte.Fonte.Name() + u' ');
    Arquivo.ProximaLinha();
}

void TTratadorDeSimboloFonte::Ler(TArquivoDeLeitura &Arquivo, ISimbolo &Simbolo)
{
    auto &Fonte = Como<TSimboloFonte>(Simbolo);
    Fonte.Caracter = static_cast<std::uint8_t>(Arquivo.LerInteiro());
    Fonte.Fonte.AtribuirCharset(static_cast<std::uint8_t>(Arquivo.LerInteiro()));
    Fonte.Proporcao = Arquivo.LerReal();
    const int Linha = Arquivo.Linha();
    const QString Resto = Arquivo.LerRestoDaLinha();
    const QString SemEle = SemComentario(Resto);
    // Before a comment the name keeps its blanks: old libraries were written against that.
    Fonte.Fonte.AtribuirName(SemEle.size() < Resto.size() ? SemEle : SemBrancos(Resto));
    Arquivo.ProximaLinha();
    if (const QString Nome = Fonte.Fonte.Name().trimmed(); !FonteInstalada(Nome))
        Avisar(Linha, TTipoDeAviso::FonteNaoInstalada,
               QStringLiteral("A fonte <%1> não está instalada.").arg(Nome));
}

void TTratadorDeSimboloGrafico::Gravar(TArquivoDeGravacao &Arquivo, const ISimbolo &Simbolo)
{
    Arquivo.Escrever(u' ' + Como<TSimboloGrafico>(Simbolo).Arquivo + u' ');
    Arquivo.ProximaLinha();
}

void TTratadorDeSimboloGrafico::Ler(TArquivoDeLeitura &Arquivo, ISimbolo &Simbolo)
{
    auto &Grafico = Como<TSimboloGrafico>(Simbolo);
    const int Linha = Arquivo.Linha();
    const QString Nome = SemComentario(Arquivo.LerRestoDaLinha());
    Arquivo.ProximaLinha();
    try {
        Grafico.LerArquivo(Nome);
    } catch (Exception &E) {
        E.AcrescentarDetalhe(Arquivo.Onde(Linha));
        Avisar(Linha, TTipoDeAviso::FiguraIlegivel,
               QStringLiteral("A figura <%1> não pode ser lida.").arg(Grafico.Arquivo));
        throw;
    }
    if (!Grafico.Grafico)
        Avisar(Linha, TTipoDeAviso::FiguraAusente,
               QStringLiteral("A figura <%1> não existe.").arg(Grafico.Arquivo));
}

void TTratadorDeSimboloComposto::Gravar(TArquivoDeGravacao &Arquivo, const ISimbolo &Simbolo)
{
    const auto &Composto = Como<TSimboloComposto>(Simbolo);
    Arquivo.Escrever(Campo(Composto.Lista.Count()) + u' ');
    Arquivo.ProximaLinha();
    for (const auto &Parte : Composto.Lista) {
        QString Tipo;
        TRefTratador Tratador;
        // A part of an unknown kind was counted all the same: the count has always meant the parts, not the
        // lines.
        if (!Parte || !TListaSimbolo::ObterTratadorDeSimbolo(Parte->ObterClasse(), Tipo, Tratador) ||
            !Tratador)
            continue;
        const std::unique_ptr<TTratadorDeSimbolo> Escritor = Novo(Tratador, Tabela, Tipo);
        Arquivo.Escrever(AEsquerda(Tipo, ColunasDoTipo) + u' ');
        Escritor->Gravar(Arquivo, *Parte);
    }
}

void TTratadorDeSimboloComposto::Ler(TArquivoDeLeitura &Arquivo, ISimbolo &Simbolo)
{
    auto &Composto = Como<TSimboloComposto>(Simbolo);
    const TArquivoDeLeitura::TNivel Nivel(Arquivo);
    const std::int32_t Quantas = Arquivo.LerInteiro();
    Arquivo.ProximaLinha();
    for (std::int32_t I = 0; I < Quantas; ++I) {
        if (Arquivo.FimDoArquivo())
            Arquivo.Erro(QStringLiteral("O arquivo termina onde se esperava uma parte de símbolo composto."));
        const int Linha = Arquivo.Linha();
        const bool SemTipo = Arquivo.FimDaLinha();
        const QString Tipo = SemBrancos(Arquivo.LerCaracteres(ColunasDoTipo));
        TRefTratador Tratador;
        TRefSimbolo Classe;
        if (!TListaSimbolo::ObterTratadorDeSimbolo(Tipo, Tratador, Classe) || !Tratador || !Classe) {
            Avisar(Linha, TTipoDeAviso::TipoDesconhecido,
                   QStringLiteral("A parte do tipo <%1> não é conhecida.").arg(Tipo));
            if (SemTipo)
                return; // nothing is consumed at a line's end: every further part would find the same
            continue;
        }
        std::unique_ptr<ISimbolo> Parte = NovoSimbolo(Classe, Tipo);
        Novo(Tratador, Tabela, Tipo)->Ler(Arquivo, *Parte);
        Composto.Lista.Add(std::move(Parte));
    }
}

} // namespace Sibrel
