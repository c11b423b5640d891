// SPDX-License-Identifier: LGPL-2.1-or-later
// The second stage of an update: the operations are carried out on the nodes.
#include "arvore/Correspondencia.h"
#include "arvore/PrepararAtualizacao.h"
#include "arvore/TreeViewXML.h"
#include "plataforma/SeparadorDecimal.h"

#include <algorithm>

namespace Sibrel
{

void TPreparaAtualizacao::Atualizar()
{
    if (SeparadorDecimal() != u'.')
        AtribuirSeparadorDecimal(u'.');
    FReservar = std::any_of(FOperacoes.begin(), FOperacoes.end(), [](const auto &A) {
        return A->Operacao == TOperacoes::exclusao && A->No == nullptr;
    });
    if (FReservar)
        for (const auto &A : FOperacoes)
            if (A->No != nullptr)
                FNos->Reservar(*A->No, true);
    FUltimaEntrega = TRelogio::now();
    for (const auto &A : FOperacoes) {
        VerificarCancelamento();
        FElementoAtual = static_cast<const TCursorXML &>(A->NoXML);
        if (Realizar(*A))
            ++FUltimoPasso;
        TalvezEntregar();
    }
    FElementoAtual = {};
}

// True when the operation counts as a step.
bool TPreparaAtualizacao::Realizar(TAtualizacao &A)
{
    switch (A.Operacao) {
    case TOperacoes::inclusao:
        return Incluir(A);
    case TOperacoes::alteracao:
        return Alterar(A);
    case TOperacoes::exclusao:
        break;
    }
    Excluir(A);
    return false;
}

bool TPreparaAtualizacao::Incluir(TAtualizacao &A)
{
    if (A.NoPai == nullptr && A.AtualizacaoPai != nullptr) {
        if (A.AtualizacaoPai->Retirada || A.AtualizacaoPai->No == nullptr)
            return false; // what it was to lie under was never made
        A.NoPai = A.AtualizacaoPai->No;
    }
    if (!A.ClasseNo)
        return false;
    std::unique_ptr<TTreeNodeXML> Novo = NovoNoXML(*FNos, A.ClasseNo);
    TTreeNodeXML *No = Novo.get();
    {
        // The tree's own class loads in no time and is seen only when it is ready; a host's class may take
        // as long as it likes, and the window goes on working meanwhile.
        const std::lock_guard Guarda(FNos->Trava());
        if (A.NoPai != nullptr && !A.NoPai->NaArvore())
            return false; // deleted meanwhile
        FNos->AddNode(std::move(Novo), A.NoPai);
        A.No = No;
        if (FReservar)
            FNos->Reservar(*No, true);
        if (A.ClasseNo == TRefNoXML::De<TTreeNodeXML>()) {
            No->AtribuirNoXML(A.NoXML);
            No->Expand();
            return true;
        }
    }
    if (No->AtribuirNoXML(A.NoXML))
        No->Expand();
    else
        FNos->Delete(No);
    return true;
}

bool TPreparaAtualizacao::Alterar(TAtualizacao &A)
{
    auto *No = dynamic_cast<TTreeNodeXML *>(A.No);
    if (No == nullptr || !No->NaArvore())
        return false;
    if (!No->AtribuirNoXML(A.NoXML))
        A.Operacao = TOperacoes::exclusao; // a mark: the node stays
    return true;
}

void TPreparaAtualizacao::Excluir(TAtualizacao &A)
{
    if (A.No != nullptr) {
        FNos->Delete(A.No);
        A.No = nullptr;
    } else {
        ExcluirTodosOsNos(A.NoXML);
    }
}

void TPreparaAtualizacao::ExcluirTodosOsNos(const IXMLNode &NoXML)
{
    for (TTreeNodeXML *No : FNos->ObterNos(TIdentificacao(NoXML)))
        if (!FNos->Reservado(*No) && No->NaArvore())
            ComVista([No](TTreeViewXML &Vista) { Vista.Excluir(No); });
}

void TPreparaAtualizacao::LiberarOperacoes()
{
    if (FReservar) {
        const std::lock_guard Guarda(FNos->Trava());
        for (const auto &A : FOperacoes)
            if (A && A->No != nullptr)
                FNos->Reservar(*A->No, false);
    }
    FOperacoes.clear();
    FOperacoes.shrink_to_fit();
    FRetiradas.clear();
    FPorNo.clear();
    FSemNo = std::vector<std::size_t>();
}

} // namespace Sibrel
