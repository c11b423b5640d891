// SPDX-License-Identifier: LGPL-2.1-or-later
// The second stage of an update: the operations are carried out on the nodes.
#include "arvore/Correspondencia.h"
#include "arvore/PrepararAtualizacao.h"
#include "arvore/TreeViewXML.h"
#include "plataforma/SeparadorDecimal.h"

#include <algorithm>
#include <mutex>
#include <typeinfo>

namespace Sibrel
{

namespace
{

bool DaArvore(const TTreeNode *No) noexcept
{
    return No != nullptr && typeid(*No) == typeid(TTreeNodeXML);
}

// Done in no time: the clock need not be asked after each. What a host's class does may take any time, and
// so may a deletion.
bool Ligeira(const TAtualizacao &A) noexcept
{
    return A.Operacao != TOperacoes::exclusao && DaArvore(A.No);
}

constexpr unsigned OperacoesPorOlhada = 16;

// A node of the tree's own class, not in the tree yet.
std::exception_ptr Carregar(TTreeNodeXML &No, const IXMLNode &NoXML) noexcept
{
    try {
        No.AtribuirNoXML(NoXML);
        No.Expand();
        return nullptr;
    } catch (...) {
        return std::current_exception();
    }
}

} // namespace

void TPreparaAtualizacao::Atualizar()
{
    if (SeparadorDecimal() != u'.')
        AtribuirSeparadorDecimal(u'.');
    FReservar = std::any_of(FOperacoes.begin(), FOperacoes.end(), [](const TAtualizacao *A) {
        return A->Operacao == TOperacoes::exclusao && A->No == nullptr;
    });
    if (FReservar)
        for (const TAtualizacao *A : FOperacoes)
            if (A->No != nullptr)
                FNos->Reservar(*A->No, true);
    FUltimaEntrega = TRelogio::now();
    unsigned SemOlharORelogio = 0;
    for (TAtualizacao *A : FOperacoes) {
        VerificarCancelamento();
        FElementoAtual = static_cast<const TCursorXML &>(A->NoXML);
        if (Realizar(*A))
            ++FUltimoPasso;
        if (!Ligeira(*A) || ++SemOlharORelogio % OperacoesPorOlhada == 0)
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
    const bool Propria = A.ClasseNo == TRefNoXML::De<TTreeNodeXML>();
    {
        // The tree's own class loads in no time and comes into the tree ready, indexed but once; a host's
        // class may take as long as it likes, and the window goes on working meanwhile.
        const std::lock_guard Guarda(FNos->Trava());
        if (A.NoPai != nullptr && !A.NoPai->NaArvore())
            return false; // deleted meanwhile
        const std::exception_ptr Erro = Propria ? Carregar(*No, A.NoXML) : nullptr;
        FNos->AddNode(std::move(Novo), A.NoPai);
        A.No = No;
        if (FReservar)
            FNos->Reservar(*No, true);
        if (Erro)
            std::rethrow_exception(Erro); // what came before it in the element is there to be seen
    }
    if (Propria)
        return true;
    if (No->AtribuirNoXML(A.NoXML))
        No->Expand();
    else
        FNos->Delete(No);
    return true;
}

bool TPreparaAtualizacao::Alterar(TAtualizacao &A)
{
    auto *No = dynamic_cast<TTreeNodeXML *>(A.No);
    std::unique_lock Guarda(FNos->Trava(), std::defer_lock);
    if (DaArvore(No))
        Guarda.lock(); // once: a host's class loads without it
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
        for (const TAtualizacao *A : FOperacoes)
            if (A != nullptr && A->No != nullptr)
                FNos->Reservar(*A->No, false);
    }
    FOperacoes = std::vector<TAtualizacao *>();
    FAlvos = std::vector<TTreeNode *>();
    FPorAlvo = TIndiceDeNos();
    FDeposito.Limpar();
}

} // namespace Sibrel
