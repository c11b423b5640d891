// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/TreeNode.h"

#include "plataforma/TreeNodes.h"

namespace Sibrel
{

using TGuarda = std::lock_guard<TTravaDeNos>;

TTreeNode::TTreeNode(TTreeNodes &Owner)
    : FOwner(Owner)
{
}

TTreeNode::~TTreeNode()
{
    const std::unique_ptr<TFilhosDeNo> Morto(FFilhos.load(std::memory_order_relaxed));
}

TFilhosDeNo &TTreeNode::FilhosPorFazer()
{
    TFilhosDeNo *Meus = Filhos();
    if (Meus == nullptr) {
        Meus = std::make_unique<TFilhosDeNo>().release();
        FFilhos.store(Meus, std::memory_order_release);
    }
    return *Meus;
}

QString TTreeNode::Text() const
{
    const TGuarda Guarda(FOwner.Trava());
    return QString::fromUtf8(FTextos.ObterLegenda());
}

void TTreeNode::AtribuirText(const QString &Texto)
{
    const QByteArray Bytes = Texto.toUtf8();
    const QByteArrayView Linha = Bytes;
    const TGuarda Guarda(FOwner.Trava());
    if (FTextos.ObterLegenda() != Linha)
        TrocarTextos(TTextosCompactos::Legenda, {&Linha, 1});
}

int TTreeNode::ImageIndex() const
{
    const TGuarda Guarda(FOwner.Trava());
    return FImageIndex;
}

void TTreeNode::AtribuirImageIndex(int Indice)
{
    const TGuarda Guarda(FOwner.Trava());
    if (FImageIndex == Indice)
        return;
    FImageIndex = Indice;
    Mudou();
}

int TTreeNode::SelectedIndex() const
{
    const TGuarda Guarda(FOwner.Trava());
    return FSelectedIndex;
}

void TTreeNode::AtribuirSelectedIndex(int Indice)
{
    const TGuarda Guarda(FOwner.Trava());
    if (FSelectedIndex == Indice)
        return;
    FSelectedIndex = Indice;
    Mudou();
}

TTreeNode *TTreeNode::Parent() const
{
    const TGuarda Guarda(FOwner.Trava());
    return FPai;
}

TTreeNode *TTreeNode::GetFirstChild() const
{
    const TGuarda Guarda(FOwner.Trava());
    const TFilhosDeNo *Meus = Filhos();
    return Meus != nullptr ? Meus->Primeiro : nullptr;
}

TTreeNode *TTreeNode::GetLastChild() const
{
    const TGuarda Guarda(FOwner.Trava());
    const TFilhosDeNo *Meus = Filhos();
    return Meus != nullptr ? Meus->Ultimo : nullptr;
}

TTreeNode *TTreeNode::GetNextSibling() const
{
    const TGuarda Guarda(FOwner.Trava());
    return FProximo;
}

TTreeNode *TTreeNode::GetPrevSibling() const
{
    const TGuarda Guarda(FOwner.Trava());
    return FAnterior;
}

TTreeNode *TTreeNode::ProximoFora() const noexcept
{
    const TTreeNode *No = this;
    while (No != nullptr && No->FProximo == nullptr)
        No = No->FPai;
    return No != nullptr ? No->FProximo : nullptr;
}

TTreeNode *TTreeNode::GetNext() const
{
    const TGuarda Guarda(FOwner.Trava());
    const TFilhosDeNo *Meus = Filhos();
    return Meus != nullptr && Meus->Primeiro != nullptr ? Meus->Primeiro : ProximoFora();
}

int TTreeNode::Count() const
{
    const TGuarda Guarda(FOwner.Trava());
    const TFilhosDeNo *Meus = Filhos();
    return Meus != nullptr ? Meus->Quantos : 0;
}

int TTreeNode::Level() const
{
    const TGuarda Guarda(FOwner.Trava());
    int Nivel = 0;
    for (const TTreeNode *No = FPai; No != nullptr; No = No->FPai)
        ++Nivel;
    return Nivel;
}

int TTreeNode::Index() const
{
    const TGuarda Guarda(FOwner.Trava());
    int Lugar = 0;
    for (const TTreeNode *No = FAnterior; No != nullptr; No = No->FAnterior)
        ++Lugar;
    return Lugar;
}

bool TTreeNode::Contem(const TTreeNode *No) const
{
    const TGuarda Guarda(FOwner.Trava());
    while (No != nullptr && No != this)
        No = No->FPai;
    return No == this;
}

bool TTreeNode::NaArvore() const
{
    const TGuarda Guarda(FOwner.Trava());
    return Tem(Inserido) && !Tem(Retirado);
}

void TTreeNode::Expand()
{
    const TGuarda Guarda(FOwner.Trava());
    if (Tem(Expandido))
        return;
    Marcar(Expandido);
    FOwner.PedirExpansao(*this);
}

void TTreeNode::Collapse()
{
    const TGuarda Guarda(FOwner.Trava());
    if (!Tem(Expandido))
        return;
    Desmarcar(Expandido);
    FOwner.PedirExpansao(*this);
}

bool TTreeNode::Expanded() const
{
    const TGuarda Guarda(FOwner.Trava());
    return Tem(Expandido);
}

void TTreeNode::Delete()
{
    FOwner.Delete(this);
}

void TTreeNode::TrocarTextos(TTextosCompactos::TParte Parte, TTextosCompactos::TLinhas Linhas)
{
    const TGuarda Guarda(FOwner.Trava());
    if (!FTextos.Iguais(Parte, Linhas))
        Mudando(static_cast<TMudancas>(MudaLegenda << Parte), [&] { FTextos.Atribuir(Parte, Linhas); });
}

void TTreeNode::TrocarTextos(const std::array<TTextosCompactos::TLinhas, TTextosCompactos::Partes> &Todas)
{
    const TGuarda Guarda(FOwner.Trava());
    TMudancas Quais = 0;
    for (const auto Parte : {TTextosCompactos::Legenda, TTextosCompactos::ListaA, TTextosCompactos::ListaB})
        if (!FTextos.Iguais(Parte, Todas[Parte]))
            Quais = static_cast<TMudancas>(Quais | (MudaLegenda << Parte));
    if (Quais != 0)
        Mudando(Quais, [&] { FTextos.Atribuir(Todas); });
}

void TTreeNode::Mudou()
{
    FOwner.NoMudou(*this);
}

} // namespace Sibrel
