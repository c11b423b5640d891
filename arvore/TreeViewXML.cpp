// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/TreeViewXML.h"

#include "arvore/Correspondencia.h"
#include "arvore/EstiloDeArvore.h"
#include "arvore/TagsXML.h"
#include "plataforma/Arquivo.h"
#include "plataforma/CursorDeTela.h"
#include "plataforma/Exception.h"
#include "plataforma/XMLCodificacao.h"

#include <QGuiApplication>
#include <QMessageBox>
#include <QPixmap>
#include <QStringDecoder>

#include <mutex>

namespace Sibrel
{

namespace
{

constinit TModulo Modulo("TreeViewXML", &CriarRegistroDeClasses, &LiberarRegistroDeClasses);

constexpr int LadoDoBitmap = 20;

// A declaration that lies about the encoding is an error: nothing is read as something else in silence.
QString TextoDeDocumento(QByteArrayView Bytes)
{
    QStringDecoder Decodificador(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString Texto = Decodificador(Utf8DeBytes(Bytes));
    if (Decodificador.hasError())
        throw EDOMParseError(QStringLiteral("XML em formato inválido!"),
                             QStringLiteral("Os bytes não são da codificação declarada."));
    return Texto;
}

} // namespace

TModulo &ModuloTreeViewXML() noexcept
{
    return Modulo;
}

TTreeViewXML::TTreeViewXML(QWidget *Dono)
    : TTreeView(std::make_shared<TTreeNodesXML>(), Dono)
    , AtributoNome(_NOME_.toString())
    , FCursorGuardado(cursor())
    , FDataHora(QDateTime::currentDateTime())
{
    auto *Estilo = new TEstiloDeArvore;
    Estilo->setParent(this);
    setStyle(Estilo);
    setMouseTracking(true); // for the hand over links
    viewport()->setMouseTracking(true);
}

TTreeViewXML::~TTreeViewXML()
{
    TPreparaAtualizacao::SoltarVista(*this);
}

void TTreeViewXML::CreateWnd()
{
    TTreeView::CreateWnd();
    AtribuirTabelaDeSimbolos(nullptr);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    FFrameDeInformacoes = nullptr;
    FBitmap = std::make_unique<TBitmap>();
    FBitmap->AtribuirTamanho(LadoDoBitmap, LadoDoBitmap);
    FImagens.assign(1, QIcon(QPixmap::fromImage(FBitmap->Imagem())));
}

void TTreeViewXML::Repaint()
{
    if (FTabelaDeSimbolos && FBitmap && FBitmap->Width() != FBitmap->Height()) {
        FBitmap->AtribuirTamanho(FBitmap->Height(), FBitmap->Height());
        FImagens.assign(1, QIcon(QPixmap::fromImage(FBitmap->Imagem())));
        setIconSize({FBitmap->Width(), FBitmap->Height()});
    }
    viewport()->update();
}

void TTreeViewXML::AtribuirTabelaDeSimbolos(TTabelaDeSimbolos *Tabela)
{
    if (FTabelaDeSimbolos == Tabela)
        return;
    disconnect(FMudancaDaTabela);
    FTabelaDeSimbolos = Tabela;
    if (Tabela != nullptr)
        FMudancaDaTabela = connect(Tabela, &TSubject::Mudou, viewport(), qOverload<>(&QWidget::update));
    viewport()->update();
}

void TTreeViewXML::AtribuirFonte(const TFont &Fonte)
{
    if (FFonte == Fonte)
        return;
    FFonte = Fonte;
    viewport()->update();
}

void TTreeViewXML::RegistrarClasse(const QString &Tag, const TRefNoXML &Classe)
{
    RegistroDeClasses().Registrar(Tag, Classe);
}

void TTreeViewXML::RemoverRegistroClasse(const QString &Tag)
{
    RegistroDeClasses().Remover(Tag);
}

bool TTreeViewXML::ObterRefClassPeloTag(const QString &Tag, TRefNoXML &Classe)
{
    const std::optional<TRefNoXML> Achada = RegistroDeClasses().Obter(Tag);
    Classe = Achada.value_or(TRefNoXML());
    return Achada.has_value();
}

void TTreeViewXML::Atualizar(const QString &Texto, QObject *Contexto)
{
    try {
        TPreparaAtualizacao::Iniciar(
            *this, Texto, ElementoRaiz, [this](TPreparaAtualizacao &A) { DoProgresso(&A); },
            ConfigurarOperacao, Contexto);
    } catch (const Exception &E) {
        throw Exception(QStringLiteral("XML em formato inválido!"), E.Detalhe);
    } catch (const std::exception &E) {
        throw Exception(QStringLiteral("XML em formato inválido!"), QString::fromLocal8Bit(E.what()));
    } catch (...) { // a handler of the host's may throw anything
        throw Exception(QStringLiteral("XML em formato inválido!"));
    }
}

void TTreeViewXML::Ler(const QString &Arquivo, bool Acrescentar)
{
    if (!Acrescentar)
        Items().Clear();
    const QByteArray Bytes = LerArquivoInteiro(Arquivo);
    try {
        Atualizar(TextoDeDocumento(Bytes), nullptr);
    } catch (const Exception &E) {
        throw Exception(QStringLiteral("Arquivo em formato inválido!"), E.Detalhe);
    } catch (const std::exception &E) { // a text that does not fit into memory
        throw Exception(QStringLiteral("Arquivo em formato inválido!"), QString::fromLocal8Bit(E.what()));
    }
}

void TTreeViewXML::AtribuirXML(const TStrings &Lista, QObject *Contexto)
{
    AtribuirCursorDeTela(TCursorDeTela::Ampulheta);
    Items().Clear();
    Atualizar(Lista.Text(), Contexto);
    AtribuirCursorDeTela(TCursorDeTela::Padrao);
}

std::vector<TPreparaAtualizacao *> TTreeViewXML::Atualizacoes() const
{
    return TPreparaAtualizacao::DaVista(*this);
}

QDateTime TTreeViewXML::DataHora() const
{
    const std::lock_guard Guarda(Items().Trava());
    return FDataHora;
}

void TTreeViewXML::AtribuirDataHora(const QDateTime &Valor)
{
    const std::lock_guard Guarda(Items().Trava());
    FDataHora = Valor;
}

void TTreeViewXML::DoProgresso(QObject *Sender)
{
    auto *Atualizacao = qobject_cast<TPreparaAtualizacao *>(Sender);
    if (Atualizacao == nullptr)
        throw EInvalidCast(QStringLiteral("O objeto não é uma TPreparaAtualizacao!"));
    const QPointer<TTreeViewXML> Viva(this); // the handler may destroy the view
    if (OnProgresso) {
        const auto Manipulador = OnProgresso;
        Manipulador(*this, *Atualizacao);
    }
    if (Viva)
        Q_EMIT Progresso(Atualizacao);
}

bool TTreeViewXML::DesejaContinuar(const TFalhaDeAtualizacao &)
{
    QPointer<QMessageBox> Caixa =
        new QMessageBox(QMessageBox::Critical, QGuiApplication::applicationDisplayName(),
                        TPreparaAtualizacao::TextoDaPergunta(), QMessageBox::Yes | QMessageBox::No, this);
    const int Resposta = Caixa->exec();
    delete Caixa; // gone already when the view was destroyed meanwhile
    return Resposta == QMessageBox::Yes;
}

TTreeNode *TTreeViewXML::ObterNoPeloXML(TTreeNode *Pai, const IXMLNode &No, const TRefNoXML &Classe)
{
    return ProcurarNoPeloXML(Nos(), AtributoNome, Pai, No, Classe);
}

TTreeNode *TTreeViewXML::ObterNo(const QString &Caminho) const
{
    return Nos().ObterNoPeloCaminho(Caminho, QStringLiteral("/"));
}

TTreeNodeXML *TTreeViewXML::ObterNo(const TStrings &Lista) const
{
    return Nos().ObterNo(TIdentificacao(Lista));
}

void TTreeViewXML::ObterNos(std::vector<TTreeNodeXML *> &Achados, const TStrings &Lista) const
{
    const std::vector<TTreeNodeXML *> Novos = Nos().ObterNos(TIdentificacao(Lista));
    Achados.insert(Achados.end(), Novos.begin(), Novos.end());
}

TTreeNode *TTreeViewXML::ObterPrimeiroNo(const QString &Texto, TTreeNode *Inicio, TSearchFlags Opcoes) const
{
    return Nos().ObterPrimeiroNo(Texto, Inicio, Opcoes);
}

void TTreeViewXML::ObterNos(std::vector<TTreeNode *> &Achados, const QString &Texto,
                            TSearchFlags Opcoes) const
{
    const std::lock_guard Guarda(Items().Trava());
    Achados.clear();
    for (TTreeNode *No = ObterPrimeiroNo(Texto, nullptr, Opcoes); No != nullptr;
         No = ObterPrimeiroNo(Texto, No, Opcoes))
        Achados.push_back(No);
}

bool TTreeViewXML::DoExcluirNo(TTreeNode &No)
{
    bool PodeExcluir = true;
    if (AoExcluirNo)
        AoExcluirNo(*this, No, PodeExcluir);
    return PodeExcluir;
}

void TTreeViewXML::Excluir(TTreeNode *No)
{
    if (No != nullptr && DoExcluirNo(*No))
        Items().Delete(No);
}

void TTreeViewXML::ExcluirTodosOsNos(const TStrings &Lista)
{
    // Held, so that a node that leaves with an ancestor can still be asked whether it is there.
    const std::shared_ptr<TTreeNodes> Guardados = ItemsGuardados();
    Guardados->Segurar();
    try {
        const TAtualizacaoDeNos Junta(*Guardados);
        for (TTreeNodeXML *No : Nos().ObterNos(TIdentificacao(Lista)))
            if (No->NaArvore())
                Excluir(No);
    } catch (...) {
        Guardados->Soltar();
        throw;
    }
    Guardados->Soltar();
}

QString ObterCaminho(const TTreeNode *No, const QString &Separador)
{
    if (No == nullptr)
        return {};
    const std::lock_guard Guarda(No->Owner().Trava());
    QStringList Legendas;
    for (; No != nullptr; No = No->Parent())
        Legendas.prepend(No->Text());
    return Legendas.join(Separador);
}

TTreeNode *ObterNoPeloPath(const TTreeView &Arvore, const QString &Caminho, const QString &Separador)
{
    if (const auto *Nos = dynamic_cast<const TTreeNodesXML *>(&Arvore.Items()))
        return Nos->ObterNoPeloCaminho(Caminho, Separador);
    const std::lock_guard Guarda(Arvore.Items().Trava());
    TTreeNode *No = Arvore.Items().GetFirstNode();
    while (No != nullptr && ObterCaminho(No, Separador) != Caminho)
        No = No->GetNext();
    return No;
}

} // namespace Sibrel
