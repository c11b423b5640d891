// SPDX-License-Identifier: LGPL-2.1-or-later
// The first stage of an update: from the elements of its document to the operations that they ask for.
#include "arvore/Correspondencia.h"
#include "arvore/FalhaDeAtualizacao.h"
#include "arvore/PrepararAtualizacao.h"
#include "arvore/TagsXML.h"
#include "arvore/TreeViewXML.h"
#include "lumbrix/DecodeDateTimeXML.h"
#include "plataforma/Exception.h"

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
    for (const TCursorXML &Filho : Raiz.TCursorXML::Filhos())
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
        auto Nova = std::make_unique<TAtualizacao>();
        TAtualizacao &A = *Nova;
        A.NoPai = NoPai;
        A.AtualizacaoPai = AtualizacaoPai;
        A.NoXML = NoXML.Guardar();
        A.ClasseNo = *Classe;
        A.No = ProcurarNoPeloXML(*FNos, FAtributoNome, NoPai, A.NoXML, *Classe);
        if (!Visivel(NoXML))
            A.Operacao = TOperacoes::exclusao;
        else
            A.Operacao = A.No == nullptr ? TOperacoes::inclusao : TOperacoes::alteracao;
        DoConfiguraOperacao(A);
        Enfileirar(std::move(Nova));
        AtualizacaoPai = &A;
        NoPai = A.No;
    }
    if (AtualizacaoPai != nullptr && AtualizacaoPai->Operacao == TOperacoes::exclusao)
        return true;
    for (const TCursorXML &Filho : NoXML.Filhos())
        if (!PrepararTratamento(AtualizacaoPai, NoPai, Filho))
            return false;
    return true;
}

bool TPreparaAtualizacao::Perguntar(const TCursorXML &NoXML, const std::exception_ptr &Erro)
{
    TFalhaDeAtualizacao Falha = FalhaDe(Erro);
    FElementoAtual = NoXML;
    Situar(Falha);
    FFalhas.push_back(std::move(Falha));
    Entregar(TPedido::Pergunta);
    if (FResposta)
        FElementoAtual = {}; // what fails from here on is not this one's fault
    return FResposta;
}

// Names are shared inside a document, so that one address is one name.
const std::optional<TRefNoXML> &TPreparaAtualizacao::ClasseDe(const TCursorXML &NoXML)
{
    const QString Nome = NoXML.NodeName();
    const auto [Lugar, Nova] = FClasses.try_emplace(Nome.constData());
    if (Nova)
        Lugar->second = {Nome, RegistroDeClasses().Obter(Nome)};
    return Lugar->second.second;
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

void TPreparaAtualizacao::Enfileirar(std::unique_ptr<TAtualizacao> A)
{
    if (A->Operacao == TOperacoes::exclusao)
        RetirarOperacoes(A->No);
    std::vector<std::size_t> &Lugares = A->No != nullptr ? FPorNo[A->No] : FSemNo;
    Lugares.push_back(FOperacoes.size());
    try {
        FOperacoes.push_back(std::move(A));
    } catch (...) {
        Lugares.pop_back(); // the next operation takes that place
        throw;
    }
}

// Also for no node: a deletion that found none withdraws all insertions so far.
void TPreparaAtualizacao::RetirarOperacoes(TTreeNode *No)
{
    std::vector<std::size_t> &Lugares = No != nullptr ? FPorNo[No] : FSemNo;
    for (const std::size_t Lugar : Lugares) {
        // Kept apart: operations below it still point at it. Gone already when memory ended here before.
        if (TAtualizacao *A = FOperacoes[Lugar].get(); A != nullptr) {
            FRetiradas.push_back(std::move(FOperacoes[Lugar]));
            A->Retirada = true;
        }
    }
    Lugares.clear();
}

} // namespace Sibrel
