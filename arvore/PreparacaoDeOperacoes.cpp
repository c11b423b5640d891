// SPDX-License-Identifier: LGPL-2.1-or-later
// The first stage of an update: from the elements of its document to the operations that they ask for.
#include "arvore/Correspondencia.h"
#include "arvore/FalhaDeAtualizacao.h"
#include "arvore/PrepararAtualizacao.h"
#include "arvore/TagsXML.h"
#include "arvore/TreeViewXML.h"
#include "lumbrix/DecodeDateTimeXML.h"
#include "plataforma/Exception.h"

#include <new>

namespace Sibrel
{

namespace
{

constexpr QStringView AtributoDataHora = u"DataHora";
constexpr QStringView AtributoVisivel = u"Visivel";

} // namespace

bool TPreparaAtualizacao::PrepararAtualizacao()
{
    try {
        return PrepararTudo();
    } catch (const TCancelado &) {
        throw;
    } catch (...) {
        const TFalhaDeAtualizacao Falha = FalhaDe(std::current_exception());
        throw Exception(XMLInvalido(),
                        Falha.Detalhe.isEmpty() ? Falha.Mensagem : Falha.Mensagem + u' ' + Falha.Detalhe);
    }
}

bool TPreparaAtualizacao::PrepararTudo()
{
    const IXMLNode Raiz = FDocumento->DocumentElement();
    if (!Raiz || (!FElementoRaiz.isEmpty() && !Raiz.NomeE(FElementoRaiz)))
        return true;
    if (const auto DataHora = Raiz.Attribute(AtributoDataHora)) {
        FElementoAtual = FDocumento->Raiz();
        const QDateTime Quando = DecodeDateTimeXML(*DataHora);
        FElementoAtual = {};
        ComVista([&](TTreeViewXML &Vista) { Vista.AtribuirDataHora(Quando); });
    }
    FClasses.resize(FDocumento->Nomes());
    for (const TCursorXML &Filho : FDocumento->Raiz().Filhos())
        if (!PrepararTratamento(nullptr, nullptr, Filho))
            return false;
    return true;
}

bool TPreparaAtualizacao::PrepararTratamento(TAtualizacao *AtualizacaoPai, TTreeNode *NoPai,
                                             const TCursorXML &NoXML)
{
    try {
        return TratarElemento(AtualizacaoPai, NoPai, NoXML);
    } catch (const TCancelado &) {
        throw;
    } catch (const std::bad_alloc &) {
        if (FReserva == nullptr)
            throw; // nothing is left to ask with
        FReserva.reset();
        return Perguntar(NoXML, std::current_exception());
    } catch (...) {
        return Perguntar(NoXML, std::current_exception());
    }
}

bool TPreparaAtualizacao::TratarElemento(TAtualizacao *AtualizacaoPai, TTreeNode *NoPai,
                                         const TCursorXML &NoXML)
{
    const std::optional<TRefNoXML> &Classe = ClasseDe(NoXML);
    if (!Classe)
        return true;
    VerificarCancelamento();
    if (*Classe) {
        AtualizacaoPai = &NovaOperacao(AtualizacaoPai, NoPai, NoXML, *Classe);
        NoPai = AtualizacaoPai->No;
    }
    if (AtualizacaoPai != nullptr && AtualizacaoPai->Operacao == TOperacoes::exclusao)
        return true;
    for (const TCursorXML &Filho : NoXML.Filhos())
        if (!SemClasse(Filho) && !PrepararTratamento(AtualizacaoPai, NoPai, Filho))
            return false;
    return true;
}

TAtualizacao &TPreparaAtualizacao::NovaOperacao(TAtualizacao *AtualizacaoPai, TTreeNode *NoPai,
                                                const TCursorXML &NoXML, const TRefNoXML &Classe)
{
    TAtualizacao &A = FDeposito.Novo();
    try {
        A.NoPai = NoPai;
        A.AtualizacaoPai = AtualizacaoPai;
        A.NoXML = IXMLNode(FDocumento, NoXML);
        A.ClasseNo = Classe;
        A.No = ProcurarNoPeloXML(*FNos, FAtributoNome, NoPai, A.NoXML, Classe);
        if (!Visivel(NoXML))
            A.Operacao = TOperacoes::exclusao;
        else
            A.Operacao = A.No == nullptr ? TOperacoes::inclusao : TOperacoes::alteracao;
        DoConfiguraOperacao(A);
        Enfileirar(A);
    } catch (...) {
        FDeposito.Desfazer();
        throw;
    }
    return A;
}

bool TPreparaAtualizacao::Perguntar(const TCursorXML &NoXML, const std::exception_ptr &Erro)
{
    TFalhaDeAtualizacao Falha = FalhaDe(Erro);
    FElementoAtual = NoXML;
    Situar(Falha);
    FFalhas.push_back(std::move(Falha));
    Entregar(TPedido::Pergunta);
    if (FResposta) {
        FElementoAtual = {}; // what fails from here on is not this one's fault
        Reservar();
    }
    return FResposta;
}

const std::optional<TRefNoXML> &TPreparaAtualizacao::ClasseDe(const TCursorXML &NoXML)
{
    TClasse &C = FClasses[NoXML.NumeroDoNome()];
    if (!C.Procurada) {
        C.Classe = RegistroDeClasses().Obter(NoXML.NodeName());
        C.Procurada = true;
    }
    return C.Classe;
}

// Nearly all nodes of a document are texts and items of lists: known to be none of ours, they are passed by.
bool TPreparaAtualizacao::SemClasse(const TCursorXML &NoXML) const noexcept
{
    const TClasse &C = FClasses[NoXML.NumeroDoNome()];
    return C.Procurada && !C.Classe;
}

bool TPreparaAtualizacao::Visivel(const TCursorXML &NoXML)
{
    if (const auto Texto = NoXML.Attribute(AtributoVisivel))
        return Texto->toUpper() == u"S";
    constexpr int FilhosDeQuemSoSeIdentifica = 3;
    return NoXML.AttributeCount() >= 2 || NoXML.HasAttribute(_LINK_) ||
           NoXML.ChildCount() > FilhosDeQuemSoSeIdentifica || !NoXML.FindNode(_IDENTIFICADORES_);
}

void TPreparaAtualizacao::DoConfiguraOperacao(TAtualizacao &A)
{
    if (FAoConfigurarOperacao)
        ComVista([&](TTreeViewXML &) { FAoConfigurarOperacao(*this, A); });
}

void TPreparaAtualizacao::Enfileirar(TAtualizacao &A)
{
    if (A.Operacao == TOperacoes::exclusao)
        RetirarOperacoes(A.No);
    FAlvos.push_back(A.No);
    try {
        FOperacoes.push_back(&A);
    } catch (...) {
        FAlvos.pop_back(); // the next operation takes that place
        throw;
    }
}

// Also for no node: a deletion that found none withdraws all insertions so far.
void TPreparaAtualizacao::RetirarOperacoes(TTreeNode *No)
{
    if (No == nullptr) {
        for (; FSemNo < FAlvos.size(); ++FSemNo)
            if (FAlvos[FSemNo] == nullptr)
                RetirarOperacao(FSemNo);
        return;
    }
    const auto Chave = [](const TTreeNode *Alvo) { return reinterpret_cast<std::uintptr_t>(Alvo); };
    for (; FIndexados < FAlvos.size(); ++FIndexados)
        if (TTreeNode *Alvo = FAlvos[FIndexados]; Alvo != nullptr)
            FPorAlvo.Acrescentar(Chave(Alvo), static_cast<std::uint32_t>(FIndexados), Alvo);
    for (auto E = FPorAlvo.Primeira(Chave(No)); E != TIndiceDeNos::Nenhuma;) {
        const auto Seguinte = FPorAlvo.Proxima(E);
        RetirarOperacao(FPorAlvo.Serie(E));
        FPorAlvo.Retirar(E);
        E = Seguinte;
    }
}

void TPreparaAtualizacao::RetirarOperacao(std::size_t Lugar) noexcept
{
    FOperacoes[Lugar]->Retirada = true; // it lives on: operations below it point at it
    FOperacoes[Lugar] = nullptr;
}

} // namespace Sibrel
