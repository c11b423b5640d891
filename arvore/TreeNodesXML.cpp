// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/TreeNodesXML.h"

#include "arvore/TreeNodeXML.h"

#include <QHash>

#include <algorithm>
#include <mutex>
#include <new>
#include <utility>

namespace Sibrel
{

using TGuarda = std::lock_guard<TTravaDeNos>;

namespace
{

// Fewer siblings than this are walked.
constexpr int MuitosIrmaos = 16;

// What the index of identifications goes by.
constexpr TTreeNode::TMudancas DaIdentificacao = TTreeNode::MudaListaA | TTreeNode::MudaMarcas;

bool ComecaCom(QByteArrayView Texto, QByteArrayView Comeco) noexcept
{
    return Texto.size() >= Comeco.size() && Texto.first(Comeco.size()) == Comeco;
}

constexpr char Minuscula(char C) noexcept
{
    return C >= 'A' && C <= 'Z' ? static_cast<char>(C - 'A' + 'a') : C;
}

// One caption against the searched text, byte by byte: UTF-8 keeps the letters A to Z to themselves.
bool Combina(QByteArrayView Legenda, QByteArrayView Texto, TSearchFlags Opcoes) noexcept
{
    const bool Comeco = (Opcoes & sfPartial) != 0 && !Texto.isEmpty() && Legenda.size() > Texto.size();
    if (!Comeco && Legenda.size() != Texto.size())
        return false;
    if ((Opcoes & sfCaseInsensitive) == 0)
        return ComecaCom(Legenda, Texto);
    return std::equal(Texto.begin(), Texto.end(), Legenda.begin(),
                      [](char A, char B) { return Minuscula(A) == Minuscula(B); });
}

} // namespace

TTreeNodesXML::TTreeNodesXML() = default;
TTreeNodesXML::~TTreeNodesXML() = default;

std::uint64_t TTreeNodesXML::ChaveDaLegenda(QByteArrayView Legenda) noexcept
{
    return qHashBits(Legenda.data(), static_cast<std::size_t>(Legenda.size()));
}

// Links apart: a target with a hundred thousand links is still found at once.
std::uint64_t TTreeNodesXML::ComLink(std::uint64_t Chave, bool Link) noexcept
{
    constexpr std::uint64_t DeLink = 0xA5A5A5A5A5A5A5A5U;
    return Link ? Chave ^ DeLink : Chave;
}

const TIndiceDeNos &TTreeNodesXML::Identificacoes() const
{
    if (!FIdentificacoes) {
        FIdentificacoes = std::make_unique<TIndiceDeNos>();
        try {
            FIdentificacoes->Reservar(static_cast<std::size_t>(Count()));
            for (TTreeNode *No = GetFirstNode(); No != nullptr; No = No->GetNext())
                IndexarIdentificacao(*No);
        } catch (...) {
            EsquecerIndices();
            throw;
        }
    }
    return *FIdentificacoes;
}

const TIndiceDeNos *TTreeNodesXML::Legendas(const TTreeNode *Pai) const
{
    if (const auto Ja = FLegendas.find(Pai); Ja != FLegendas.end())
        return &Ja->second;
    if (QuantosFilhos(Pai) <= MuitosIrmaos)
        return nullptr;
    try {
        TIndiceDeNos &Indice = FLegendas[Pai];
        Indice.Reservar(static_cast<std::size_t>(QuantosFilhos(Pai)));
        for (TTreeNode *No = PrimeiroFilho(Pai); No != nullptr; No = No->GetNextSibling())
            EntradaDe(*No, PorLegenda) =
                Indice.Acrescentar(ChaveDaLegenda(TextosDe(*No).ObterLegenda()), Serie(*No), No);
        return &Indice;
    } catch (...) {
        EsquecerIndices();
        throw;
    }
}

// An index that lacks a node finds wrongly; without one there is a new one at the next search.
void TTreeNodesXML::EsquecerIndices() const noexcept
{
    FIdentificacoes.reset();
    FLegendas.clear();
    for (TTreeNode *No = GetFirstNode(); No != nullptr; No = No->GetNext()) {
        EntradaDe(*No, PorIdentificacao) = TIndiceDeNos::Nenhuma;
        EntradaDe(*No, PorLegenda) = TIndiceDeNos::Nenhuma;
    }
}

void TTreeNodesXML::IndexarIdentificacao(TTreeNode &No) const
{
    const auto *XML = dynamic_cast<const TTreeNodeXML *>(&No);
    if (XML == nullptr)
        return;
    const auto Chave = ChaveDeIdentificacao(LinhasDoNo(TextosDe(No), TTextosCompactos::ListaA));
    if (Chave)
        EntradaDe(No, PorIdentificacao) = FIdentificacoes->Acrescentar(
            ComLink(*Chave, XML->Marcado(TTreeNodeXML::MarcaLink)), Serie(No), &No);
}

// The node is in the tree already: nothing may be raised any more.
void TTreeNodesXML::Indexar(TTreeNode &No, TTreeNode::TMudancas Quais) const noexcept
try {
    if (FIdentificacoes && (Quais & DaIdentificacao) != 0)
        IndexarIdentificacao(No);
    if (FLegendas.empty() || (Quais & TTreeNode::MudaLegenda) == 0)
        return;
    if (const auto Irmaos = FLegendas.find(No.Parent()); Irmaos != FLegendas.end())
        EntradaDe(No, PorLegenda) =
            Irmaos->second.Acrescentar(ChaveDaLegenda(TextosDe(No).ObterLegenda()), Serie(No), &No);
} catch (const std::bad_alloc &) {
    EsquecerIndices();
}

void TTreeNodesXML::Desindexar(TTreeNode &No, TTreeNode::TMudancas Quais) const
{
    std::uint32_t &Identificada = EntradaDe(No, PorIdentificacao);
    if ((Quais & DaIdentificacao) != 0 && Identificada != TIndiceDeNos::Nenhuma)
        FIdentificacoes->Retirar(std::exchange(Identificada, TIndiceDeNos::Nenhuma));
    std::uint32_t &ComLegenda = EntradaDe(No, PorLegenda);
    if ((Quais & TTreeNode::MudaLegenda) != 0 && ComLegenda != TIndiceDeNos::Nenhuma)
        FLegendas.at(No.Parent()).Retirar(std::exchange(ComLegenda, TIndiceDeNos::Nenhuma));
}

void TTreeNodesXML::DepoisDeInserir(TTreeNode &No)
{
    Indexar(No, TTreeNode::MudaTudo);
}

void TTreeNodesXML::AntesDeMudar(TTreeNode &No, TTreeNode::TMudancas Quais)
{
    Desindexar(No, Quais);
}

void TTreeNodesXML::DepoisDeMudar(TTreeNode &No, TTreeNode::TMudancas Quais)
{
    Indexar(No, Quais);
}

void TTreeNodesXML::AntesDeRetirar(TTreeNode &No)
{
    // Parents leave before their children: these have nothing to be taken out of any more.
    std::uint32_t &DaLegenda = EntradaDe(No, PorLegenda);
    if (DaLegenda != TIndiceDeNos::Nenhuma && !FLegendas.contains(No.Parent()))
        DaLegenda = TIndiceDeNos::Nenhuma;
    Desindexar(No, TTreeNode::MudaTudo);
    if (!FLegendas.empty())
        FLegendas.erase(&No);
}

void TTreeNodesXML::AntesDeLimpar()
{
    FIdentificacoes.reset();
    FLegendas.clear();
}

TTreeNodeXML *TTreeNodesXML::ObterNo(const TIdentificacao &Lista, const TTreeNode *Menos) const
{
    const TGuarda Guarda(Trava());
    if (Lista.Vazia())
        return nullptr;
    if (!Lista.Chave()) {
        for (TTreeNode *No = GetFirstNode(); No != nullptr; No = No->GetNext())
            if (auto *XML = dynamic_cast<TTreeNodeXML *>(No);
                XML != nullptr && XML != Menos && !XML->Link() && XML->Identifica(Lista))
                return XML;
        return nullptr;
    }
    const TIndiceDeNos &Indice = Identificacoes();
    TTreeNode *Primeiro = nullptr;
    for (auto E = Indice.Primeira(ComLink(*Lista.Chave(), false)); E != TIndiceDeNos::Nenhuma;
         E = Indice.Proxima(E)) {
        TTreeNode *No = Indice.No(E);
        if (No != Menos && Lista.Identifica(TextosDe(*No)) && (Primeiro == nullptr || Antes(No, Primeiro)))
            Primeiro = No;
    }
    return static_cast<TTreeNodeXML *>(Primeiro);
}

std::optional<QByteArray> TTreeNodesXML::ObterLegenda(const TIdentificacao &Lista) const
{
    const TGuarda Guarda(Trava());
    const TTreeNode *No = ObterNo(Lista);
    return No != nullptr ? std::optional(TextosDe(*No).ObterLegenda().toByteArray()) : std::nullopt;
}

std::vector<TTreeNodeXML *> TTreeNodesXML::ObterNos(const TIdentificacao &Lista) const
{
    const TGuarda Guarda(Trava());
    std::vector<TTreeNodeXML *> Achados;
    if (Lista.Vazia())
        return Achados;
    if (!Lista.Chave()) {
        for (TTreeNode *No = GetFirstNode(); No != nullptr; No = No->GetNext())
            if (auto *XML = dynamic_cast<TTreeNodeXML *>(No); XML != nullptr && XML->Identifica(Lista))
                Achados.push_back(XML);
        return Achados;
    }
    const TIndiceDeNos &Indice = Identificacoes();
    for (const bool Link : {false, true})
        for (auto E = Indice.Primeira(ComLink(*Lista.Chave(), Link)); E != TIndiceDeNos::Nenhuma;
             E = Indice.Proxima(E))
            if (Lista.Identifica(TextosDe(*Indice.No(E))))
                Achados.push_back(static_cast<TTreeNodeXML *>(Indice.No(E)));
    std::sort(Achados.begin(), Achados.end(),
              [this](const TTreeNode *A, const TTreeNode *B) { return Antes(A, B); });
    return Achados;
}

TTreeNodeXML *TTreeNodesXML::ObterFilho(const TTreeNode *Pai, QByteArrayView Legenda,
                                        const TIdentificacao &Lista) const
{
    const TGuarda Guarda(Trava());
    const auto Serve = [&](TTreeNode *No) -> TTreeNodeXML * {
        if (TextosDe(*No).ObterLegenda() != Legenda)
            return nullptr;
        auto *XML = dynamic_cast<TTreeNodeXML *>(No);
        return XML != nullptr && (Lista.Vazia() || Lista.Identifica(TextosDe(*No))) ? XML : nullptr;
    };
    const TIndiceDeNos *Irmaos = Legendas(Pai);
    if (Irmaos == nullptr) {
        for (TTreeNode *No = PrimeiroFilho(Pai); No != nullptr; No = No->GetNextSibling())
            if (TTreeNodeXML *XML = Serve(No))
                return XML;
        return nullptr;
    }
    // Both chains are in sibling order and hold every node that can match, so that the first match, or the
    // end, of either is the answer: they are walked side by side once the captions alone take long.
    constexpr int Poucos = 8;
    auto PelaLegenda = Irmaos->Primeira(ChaveDaLegenda(Legenda));
    for (int I = 0; PelaLegenda != TIndiceDeNos::Nenhuma; ++I) {
        if (I >= Poucos && Lista.Chave())
            break;
        if (TTreeNodeXML *XML = Serve(Irmaos->No(PelaLegenda)))
            return XML;
        PelaLegenda = Irmaos->Proxima(PelaLegenda);
    }
    if (PelaLegenda == TIndiceDeNos::Nenhuma)
        return nullptr;
    const TIndiceDeNos &Todos = Identificacoes();
    auto SemLink = Todos.Primeira(ComLink(*Lista.Chave(), false));
    auto ComoLink = Todos.Primeira(ComLink(*Lista.Chave(), true));
    while (PelaLegenda != TIndiceDeNos::Nenhuma) {
        if (TTreeNodeXML *XML = Serve(Irmaos->No(PelaLegenda)))
            return XML;
        PelaLegenda = Irmaos->Proxima(PelaLegenda);
        // The two chains of the identification are one, in the order of the serial numbers.
        auto &Proxima =
            ComoLink == TIndiceDeNos::Nenhuma || (SemLink != TIndiceDeNos::Nenhuma &&
                                                  Serie(*Todos.No(SemLink)) < Serie(*Todos.No(ComoLink)))
                ? SemLink
                : ComoLink;
        if (Proxima == TIndiceDeNos::Nenhuma)
            return nullptr;
        if (Todos.No(Proxima)->Parent() == Pai)
            if (TTreeNodeXML *XML = Serve(Todos.No(Proxima)))
                return XML;
        Proxima = Todos.Proxima(Proxima);
    }
    return nullptr;
}

std::vector<TTreeNode *> TTreeNodesXML::FilhosNoCaminho(const TTreeNode *Pai, QByteArrayView Resto,
                                                        QByteArrayView Separador) const
{
    std::vector<TTreeNode *> Achados;
    const TIndiceDeNos *Irmaos = Separador.isEmpty() ? nullptr : Legendas(Pai);
    if (Irmaos == nullptr) {
        for (TTreeNode *No = PrimeiroFilho(Pai); No != nullptr; No = No->GetNextSibling())
            if (ComecaCom(Resto, TextosDe(*No).ObterLegenda()))
                Achados.push_back(No);
        return Achados;
    }
    // A caption on the way ends where a separator begins, or where the path ends.
    qsizetype Fim = -1;
    do {
        Fim = Resto.indexOf(Separador, Fim + 1);
        const QByteArrayView Legenda = Fim < 0 ? Resto : Resto.first(Fim);
        for (auto E = Irmaos->Primeira(ChaveDaLegenda(Legenda)); E != TIndiceDeNos::Nenhuma;
             E = Irmaos->Proxima(E))
            if (TextosDe(*Irmaos->No(E)).ObterLegenda() == Legenda)
                Achados.push_back(Irmaos->No(E));
    } while (Fim >= 0);
    std::sort(Achados.begin(), Achados.end(),
              [](const TTreeNode *A, const TTreeNode *B) { return Serie(*A) < Serie(*B); });
    return Achados;
}

// Goes down only where the captions so far begin the path, which is where the node must be.
TTreeNode *TTreeNodesXML::NoCaminho(const TTreeNode *Pai, QByteArrayView Resto,
                                    QByteArrayView Separador) const
{
    for (TTreeNode *No : FilhosNoCaminho(Pai, Resto, Separador)) {
        const QByteArrayView Depois = Resto.sliced(TextosDe(*No).ObterLegenda().size());
        if (Depois.isEmpty())
            return No;
        if (!ComecaCom(Depois, Separador) || !No->HasChildren())
            continue;
        if (TTreeNode *Achado = NoCaminho(No, Depois.sliced(Separador.size()), Separador))
            return Achado;
    }
    return nullptr;
}

TTreeNode *TTreeNodesXML::ObterNoPeloCaminho(const QString &Caminho, const QString &Separador) const
{
    const QByteArray Resto = Caminho.toUtf8();
    const QByteArray Entre = Separador.toUtf8();
    const TGuarda Guarda(Trava());
    return NoCaminho(nullptr, Resto, Entre);
}

TTreeNode *TTreeNodesXML::ObterPrimeiroNo(const QString &Texto, TTreeNode *Inicio, TSearchFlags Opcoes) const
{
    const QByteArray Procurado = Texto.toUtf8();
    const TGuarda Guarda(Trava());
    for (TTreeNode *No = Inicio != nullptr ? Inicio->GetNext() : GetFirstNode(); No != nullptr;
         No = No->GetNext())
        if (Combina(TextosDe(*No).ObterLegenda(), Procurado, Opcoes))
            return No;
    return nullptr;
}

} // namespace Sibrel
