// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/TreeNodeXML.h"

#include "arvore/Identificacao.h"
#include "arvore/LinhasNomeValor.h"
#include "arvore/TagsXML.h"
#include "arvore/TreeNodesXML.h"
#include "plataforma/Conversao.h"
#include "plataforma/Exception.h"

#include <array>
#include <charconv>
#include <mutex>
#include <vector>

namespace Sibrel
{

using TGuarda = std::lock_guard<TTravaDeNos>;

namespace
{

constinit TModulo Modulo("TreeNodeXML", nullptr, nullptr);

std::int32_t Inteiro(QByteArrayView Texto)
{
    std::int32_t Valor = 0;
    const auto [Fim, Erro] = std::from_chars(Texto.begin(), Texto.end(), Valor);
    if (Erro == std::errc() && Fim == Texto.end())
        return Valor;
    return StrToInt(QString::fromUtf8(Texto)); // signs, blanks, and the error
}

std::optional<QByteArrayView> PrimeiroTexto(const TCursorXML &No)
{
    if (const auto Nome = No.AttributeUtf8(_NOME_))
        return Nome;
    return No.AttributeCount() > 0 ? std::optional(No.AttributeUtf8(0)) : std::nullopt;
}

// The two lists of an element, found in one walk over its children.
struct TListas {
    explicit TListas(const TCursorXML &No) noexcept
    {
        for (TCursorXML Filho = No.FirstChild(); Filho && !(Identificacao && Informacao);
             Filho = Filho.NextSibling())
            if (!Filho.Elemento())
                continue;
            else if (!Identificacao && Filho.NomeE(_IDENTIFICADORES_))
                Identificacao = Filho;
            else if (!Informacao && Filho.NomeE(_INFORMACOES_))
                Informacao = Filho;
    }
    TCursorXML Identificacao;
    TCursorXML Informacao;
};

} // namespace

TModulo &ModuloTreeNodeXML() noexcept
{
    return Modulo;
}

TListaDeNo::TListaDeNo(TTreeNodeXML &No, TTextosCompactos::TParte Parte) noexcept
    : FNo(No)
    , FParte(Parte)
{
}

TListaDeNo::~TListaDeNo() = default;

void TListaDeNo::Verificar(int Indice, int Limite) const
{
    if (Indice < 0 || Indice >= Limite)
        throw EStringListError(QStringLiteral("Índice de lista fora dos limites (%1)").arg(Indice));
}

int TListaDeNo::Count() const
{
    const TGuarda Guarda(FNo.Owner().Trava());
    return FNo.Textos().Count(FParte);
}

QString TListaDeNo::Linha(int Indice) const
{
    const TGuarda Guarda(FNo.Owner().Trava());
    Verificar(Indice, Count());
    return QString::fromUtf8(FNo.Textos().Linha(FParte, Indice));
}

void TListaDeNo::AtribuirLinha(int Indice, const QString &Texto)
{
    const QByteArray Bytes = Texto.toUtf8();
    const TGuarda Guarda(FNo.Owner().Trava());
    Verificar(Indice, Count());
    const TLinhasUtf8 Antes = LinhasDoNo(FNo.Textos(), FParte);
    std::vector<QByteArrayView> Linhas(Antes.begin(), Antes.end());
    Linhas[static_cast<std::size_t>(Indice)] = Bytes;
    FNo.TrocarTextos(FParte, Linhas);
}

void TListaDeNo::Insert(int Indice, const QString &Texto)
{
    const QByteArray Bytes = Texto.toUtf8();
    const TGuarda Guarda(FNo.Owner().Trava());
    Verificar(Indice, Count() + 1);
    const TLinhasUtf8 Antes = LinhasDoNo(FNo.Textos(), FParte);
    std::vector<QByteArrayView> Linhas(Antes.begin(), Antes.end());
    Linhas.insert(Linhas.begin() + Indice, Bytes);
    FNo.TrocarTextos(FParte, Linhas);
}

void TListaDeNo::Delete(int Indice)
{
    const TGuarda Guarda(FNo.Owner().Trava());
    Verificar(Indice, Count());
    const TLinhasUtf8 Antes = LinhasDoNo(FNo.Textos(), FParte);
    std::vector<QByteArrayView> Linhas(Antes.begin(), Antes.end());
    Linhas.erase(Linhas.begin() + Indice);
    FNo.TrocarTextos(FParte, Linhas);
}

void TListaDeNo::Clear()
{
    const TGuarda Guarda(FNo.Owner().Trava());
    if (Count() > 0)
        FNo.TrocarTextos(FParte, {});
}

void TListaDeNo::Assign(const TStrings &Outra)
{
    const TLinhasDeStrings Textos(Outra);
    FNo.TrocarTextos(FParte, Textos.Linhas());
}

TTreeNodeXML::TTreeNodeXML(TTreeNodes &Owner)
    : TTreeNode(Owner)
{
}

TTreeNodeXML::~TTreeNodeXML() = default;

TTreeNodeXML::RefDeClasse TTreeNodeXML::ObterClasse() const
{
    return RefDeClasse::De<TTreeNodeXML>();
}

TTreeNodesXML *TTreeNodeXML::Nos() const noexcept
{
    return dynamic_cast<TTreeNodesXML *>(&Owner());
}

std::int32_t TTreeNodeXML::Cor() const
{
    const TGuarda Guarda(Owner().Trava());
    return FCor;
}

void TTreeNodeXML::AtribuirCor(std::int32_t Valor)
{
    const TGuarda Guarda(Owner().Trava());
    if (FCor == Valor)
        return;
    FCor = Valor;
    Mudou();
}

TListaDeNo TTreeNodeXML::Identificacao() const
{
    return {const_cast<TTreeNodeXML &>(*this), TTextosCompactos::ListaA};
}

TListaDeNo TTreeNodeXML::Informacao() const
{
    return {const_cast<TTreeNodeXML &>(*this), TTextosCompactos::ListaB};
}

bool TTreeNodeXML::Apagado() const
{
    const TGuarda Guarda(Owner().Trava());
    return Marcado(MarcaApagado);
}

void TTreeNodeXML::AtribuirApagado(bool Valor)
{
    Marcar(MarcaApagado, Valor);
}

bool TTreeNodeXML::Link() const
{
    const TGuarda Guarda(Owner().Trava());
    return Marcado(MarcaLink);
}

void TTreeNodeXML::Marcar(TMarcaXML M, bool Sim)
{
    const TGuarda Guarda(Owner().Trava());
    if (Marcado(M) == Sim)
        return;
    const auto Trocar = [&] { FMarcasDaClasse = static_cast<std::uint8_t>(FMarcasDaClasse ^ M); };
    if (M == MarcaLink)
        return Mudando(MudaMarcas, Trocar);
    Trocar(); // no index knows of it
    Mudou();
}

QString TTreeNodeXML::ObterXMLStrings(const TTagsDeLista &Tags, const TStrings &Lista)
{
    return Sibrel::ObterXMLStrings(Tags, Lista);
}

QString TTreeNodeXML::ObterXMLInformacao() const
{
    return ObterXMLStrings(TagsDeInformacao(), Informacao());
}

QString TTreeNodeXML::ObterXMLIdentificacao() const
{
    return ObterXMLStrings(TagsDeIdentificacao(), Identificacao());
}

void TTreeNodeXML::AtribuirXML(const QString &Texto)
{
    AtribuirNoXML(TXMLDocument::DeTexto(Texto)->DocumentElement());
}

void TTreeNodeXML::AtribuirXMLInformacao(const QString &Texto)
{
    AtribuirNoXML(TXMLDocument::DeTexto(Texto)->DocumentElement());
}

void TTreeNodeXML::AtribuirXMLIdentificacao(const QString &Texto)
{
    AtribuirNoXML(TXMLDocument::DeTexto(Texto)->DocumentElement());
}

bool TTreeNodeXML::ObterApagado() const
{
    return Apagado();
}

QByteArray TTreeNodeXML::LegendaDoElemento(const TCursorXML &No)
{
    const std::optional<QByteArrayView> Texto = PrimeiroTexto(No);
    return Texto ? Texto->toByteArray() : No.NodeName().toUtf8();
}

bool TTreeNodeXML::PedeLink(const TCursorXML &No) noexcept
{
    const auto Elo = No.AttributeUtf8(_LINK_);
    return Elo && Elo->compare("sim", Qt::CaseInsensitive) == 0;
}

void TTreeNodeXML::VerificarNumeros(const TCursorXML &No)
{
    for (const QStringView Nome : {_COR_, _SIMBOLO_})
        if (const auto Texto = No.AttributeUtf8(Nome))
            Inteiro(*Texto);
}

bool TTreeNodeXML::AtribuirNoXML(const IXMLNode &No)
{
    const TGuarda Guarda(Owner().Trava());
    if (const auto DaCor = No.AttributeUtf8(_COR_))
        AtribuirCor(Inteiro(*DaCor));
    Montar(No);
    if (PedeLink(No))
        TransformarEmLink();
    return true;
}

// Caption, symbol and lists in one change of the texts.
void TTreeNodeXML::Montar(const TCursorXML &No)
{
    const std::optional<QByteArrayView> Texto = PrimeiroTexto(No);
    const QByteArray NomeDoElemento = Texto ? QByteArray() : No.NodeName().toUtf8();
    const QByteArrayView Legenda = Texto ? *Texto : QByteArrayView(NomeDoElemento);
    try {
        if (const auto Simbolo = No.AttributeUtf8(_SIMBOLO_))
            AtribuirImageIndex(Inteiro(*Simbolo));
    } catch (...) {
        TrocarTextos(TTextosCompactos::Legenda, {&Legenda, 1}); // which comes before the symbol
        throw;
    }
    AtribuirSelectedIndex(ImageIndex());

    const TListas Listas(No);
    thread_local TFusaoDeLinhas Identificacao;
    thread_local TFusaoDeLinhas Informacao;
    Identificacao.Limpar();
    FundirItensXML(Listas.Identificacao, TagsDeIdentificacao(), Identificacao);
    Informacao.Limpar();
    TTextosCompactos::TLeitor Antes = Textos().Ler(TTextosCompactos::ListaB);
    for (QByteArrayView Linha; Antes.Proxima(Linha);)
        Informacao.Existente(Linha);
    FundirItensXML(Listas.Informacao, TagsDeInformacao(), Informacao);
    TrocarTextos({TTextosCompactos::TLinhas(&Legenda, 1), Identificacao.Linhas(), Informacao.Linhas()});
}

bool TTreeNodeXML::Vazio() const
{
    return Informacao().Count() == 0;
}

void TTreeNodeXML::ConfigurarPopup(QMenu &) {}

void TTreeNodeXML::TratarIdentificadores(const TCursorXML &No)
{
    TListaDeNo Lista = Identificacao();
    AtribuirListaXML(No, TagsDeIdentificacao(), Lista, true);
}

void TTreeNodeXML::TratarInformacoes(const TCursorXML &No)
{
    TListaDeNo Lista = Informacao();
    AtribuirListaXML(No, TagsDeInformacao(), Lista, false);
}

TTreeNodeXML *TTreeNodeXML::ObterNoLink() const
{
    return Alvo(nullptr);
}

TTreeNodeXML *TTreeNodeXML::Alvo(const TTreeNode *Menos) const
{
    const TGuarda Guarda(Owner().Trava());
    const TTreeNodesXML *Todos = Nos();
    return Todos != nullptr ? Todos->ObterNo(TIdentificacao(Textos()), Menos) : nullptr;
}

bool TTreeNodeXML::TransformarEmLink()
{
    const TGuarda Guarda(Owner().Trava());
    if (Link())
        return true;
    const TTreeNodeXML *Outro = Alvo(this);
    if (Outro == nullptr)
        return false;
    Marcar(MarcaLink, true);
    CopiarAparencia(*Outro);
    return true;
}

void TTreeNodeXML::CopiarAparencia(const TTreeNodeXML &Outro)
{
    AtribuirCor(Outro.Cor());
    AtribuirApagado(Outro.ObterApagado());
    const QByteArrayView Legenda = Outro.Textos().ObterLegenda();
    TrocarTextos(TTextosCompactos::Legenda, {&Legenda, 1});
    AtribuirImageIndex(Outro.ImageIndex());
    AtribuirSelectedIndex(Outro.SelectedIndex());
}

bool TTreeNodeXML::Identifica(const TStrings &Lista) const
{
    return Identifica(TIdentificacao(Lista));
}

bool TTreeNodeXML::Identifica(const TIdentificacao &Lista) const
{
    const TGuarda Guarda(Owner().Trava());
    return Lista.Identifica(Textos());
}

} // namespace Sibrel
