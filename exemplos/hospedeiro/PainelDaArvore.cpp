// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/PainelDaArvore.h"

#include "hospedeiro/Alimentacao.h"
#include "hospedeiro/ArvoreDoHospedeiro.h"
#include "hospedeiro/BancoDoExercicio.h"
#include "hospedeiro/BuscaNaArvore.h"
#include "hospedeiro/FichaDoNo.h"
#include "hospedeiro/FilaDeDocumentos.h"
#include "hospedeiro/MenuDaArvore.h"
#include "hospedeiro/PainelDeAtualizacoes.h"
#include "hospedeiro/RegistroDeAtualizacoes.h"

#include "corvane/VisualizadorInformacoesXML.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QSplitter>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>

namespace Hospedeiro
{

namespace
{

QString FiltroDeDocumentos()
{
    return TPainelDaArvore::tr("Documentos de árvore (*.xml);;Todos os arquivos (*)");
}

} // namespace

TPainelDaArvore::TPainelDaArvore(QWidget *Dono)
    : TPagina(Dono)
    , FArvore(new TArvoreDoHospedeiro(this))
    , FRegistro(new TRegistroDeAtualizacoes(*FArvore, this))
    , FFila(new TFilaDeDocumentos(*FArvore, *FRegistro, this))
    , FAlimentacao(new TAlimentacao(*FFila, this))
    , FBusca(new TBuscaNaArvore(*FArvore, this))
    , FFicha(new TFichaDoNo(this))
    , FSemDados(FArvore->DataHora())
{
    FArvore->AtribuirFrameDeInformacoes(&FFicha->Frame());
    FArvore->Convite =
        tr("Nenhum nó.\n\nAbra um documento de árvore com Ctrl+T ou arraste o arquivo para cá.");
    setFocusProxy(FArvore);
    MontarAcoes();
    MontarDisposicao();
    Ligar();
}

TPainelDaArvore::~TPainelDaArvore()
{
    // The tree goes when most of the page has gone, and has nothing to tell it any more.
    disconnect(FArvore->selectionModel(), nullptr, this, nullptr);
    disconnect(&FArvore->Modelo(), nullptr, this, nullptr);
}

void TPainelDaArvore::AtribuirTabela(Sibrel::TTabelaDeSimbolos *Tabela)
{
    FArvore->AtribuirTabelaDeSimbolos(Tabela);
}

void TPainelDaArvore::Abrir(const QString &Arquivo)
{
    FFila->Abrir(Arquivo);
}

void TPainelDaArvore::AbrirBanco(std::shared_ptr<TBancoDoExercicio> Banco, std::function<void()> AoCarregar)
{
    const QString Nome = Banco->Nome();
    FFila->AbrirCom(tr("Banco"), Nome, [this, Banco = std::move(Banco), AoCarregar = std::move(AoCarregar)] {
        Banco->CarregarUnidades(*FArvore);
        FBanco = Banco;
        AoCarregar();
    });
}

void TPainelDaArvore::Atualizar(const QString &Arquivo)
{
    FFila->Acrescentar(Arquivo);
}

void TPainelDaArvore::Receber(const QString &Arquivo)
{
    if (FFila->Parada() && FArvore->Items().Count() == 0)
        Abrir(Arquivo);
    else
        Atualizar(Arquivo);
}

QString TPainelDaArvore::Titulo() const
{
    return tr("Ár&vore");
}

QString TPainelDaArvore::Atual() const
{
    return FArvore->CaminhoDoSelecionado(QStringLiteral(" / "));
}

QString TPainelDaArvore::Contagem() const
{
    const int Quantos = FArvore->Items().Count();
    QString Texto = Quantos == 1 ? tr("1 nó") : tr("%1 nós").arg(Quantos);
    if (const QDateTime Dados = FArvore->DataHora(); Dados != FSemDados)
        Texto += tr(", dados de %1").arg(Dados.toString(QStringLiteral("dd/MM/yyyy HH:mm")));
    if (const QString Andamento = FAlimentacao->Andamento(); !Andamento.isEmpty())
        Texto += QStringLiteral(", ") + Andamento;
    return Texto;
}

void TPainelDaArvore::MontarAcoes()
{
    FAbrir = new QAction(style()->standardIcon(QStyle::SP_DialogOpenButton), tr("&Abrir árvore..."), this);
    FAbrir->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_T));
    connect(FAbrir, &QAction::triggered, this, &TPainelDaArvore::PerguntarEAbrir);
    FAtualizar =
        new QAction(style()->standardIcon(QStyle::SP_BrowserReload), tr("At&ualizar com documento..."), this);
    FAtualizar->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_U));
    connect(FAtualizar, &QAction::triggered, this, &TPainelDaArvore::PerguntarEAtualizar);
}

void TPainelDaArvore::MontarMenus(QMenuBar &Barra)
{
    QMenu *Menu = Barra.addMenu(tr("Á&rvore"));
    Menu->addActions({FAbrir, FAtualizar});
    Menu->addSeparator();
    Menu->addActions({FAlimentacao->AcaoVigiar(), FAlimentacao->AcaoSimular()});
}

void TPainelDaArvore::MontarDisposicao()
{
    auto *Ferramentas = new QToolBar(tr("Ferramentas da árvore"), this);
    Ferramentas->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    Ferramentas->setIconSize({16, 16});
    Ferramentas->addActions({FAbrir, FAtualizar});
    Ferramentas->addSeparator();
    Ferramentas->addActions({FAlimentacao->AcaoVigiar(), FAlimentacao->AcaoSimular()});
    auto *Esquerda = new QWidget(this);
    auto *Coluna = new QVBoxLayout(Esquerda);
    Coluna->setContentsMargins(0, 0, 0, 0);
    Coluna->setSpacing(0);
    Coluna->addWidget(FBusca);
    Coluna->addWidget(FArvore, 1);
    auto *Lados = new QSplitter(Qt::Horizontal, this);
    Lados->addWidget(Esquerda);
    Lados->addWidget(FFicha);
    Lados->setStretchFactor(0, 3);
    Lados->setStretchFactor(1, 2);
    auto *Atualizacoes = new TPainelDeAtualizacoes(*FArvore, *FRegistro, this);
    connect(Atualizacoes, &TPainelDeAtualizacoes::CancelarPedido, FFila, &TFilaDeDocumentos::Cancelar);
    auto *Andares = new QSplitter(Qt::Vertical, this);
    Andares->addWidget(Lados);
    Andares->addWidget(Atualizacoes);
    Andares->setStretchFactor(0, 3);
    Andares->setStretchFactor(1, 1);
    auto *Disposicao = new QVBoxLayout(this);
    Disposicao->setContentsMargins(0, 0, 0, 0);
    Disposicao->setSpacing(0);
    Disposicao->addWidget(Ferramentas);
    Disposicao->addWidget(Andares, 1);
}

void TPainelDaArvore::Ligar()
{
    FArvore->AoPerguntar = [this](const Sibrel::TFalhaDeAtualizacao &Falha) {
        return PerguntarSeContinua(Falha);
    };
    connect(FArvore->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &TPainelDaArvore::MostrarSelecao);
    connect(&FArvore->Modelo(), &QAbstractItemModel::modelReset, this, &TPainelDaArvore::MostrarSelecao);
    connect(FRegistro, &TRegistroDeAtualizacoes::Acabou, this, &TPainelDaArvore::RenovarSelecao);
    connect(FFila, &TFilaDeDocumentos::Recusado, this, &TPagina::Erro);
    connect(FFila, &TFilaDeDocumentos::Comecou, this, [this](const QString &Arquivo, bool EmLugarDeTudo) {
        if (EmLugarDeTudo) {
            FArquivo = Arquivo;
            FAlimentacao->AtribuirDocumento(Arquivo);
        }
        Q_EMIT EstadoMudou();
    });
    connect(FAlimentacao, &TAlimentacao::Mudou, this, &TPagina::EstadoMudou);
    connect(FAlimentacao, &TAlimentacao::Recado, this, &TPagina::Recado);
    connect(FAlimentacao, &TAlimentacao::Erro, this, &TPagina::Erro);
    auto *Menu = new TMenuDaArvore(*FArvore);
    connect(Menu, &TMenuDaArvore::Excluidos, this, [this](int Quantos) {
        Q_EMIT Recado(Quantos == 1 ? tr("1 nó excluído da árvore")
                                   : tr("%1 nós excluídos da árvore").arg(Quantos));
    });
    connect(FBusca, &TBuscaNaArvore::NadaAchado, this, [this](const QString &Texto) {
        Q_EMIT Recado(tr("Nenhuma legenda corresponde a \"%1\"").arg(Texto));
    });
}

void TPainelDaArvore::Localizar()
{
    FBusca->Comecar();
}

void TPainelDaArvore::LocalizarOutro(bool ParaTras)
{
    FBusca->ProcurarOutro(ParaTras);
}

bool TPainelDaArvore::PerguntarSeContinua(const Sibrel::TFalhaDeAtualizacao &Falha)
{
    QPointer<QMessageBox> Caixa = new QMessageBox(
        QMessageBox::Critical, QGuiApplication::applicationDisplayName(),
        Sibrel::TPreparaAtualizacao::TextoDaPergunta(), QMessageBox::Yes | QMessageBox::No, this);
    Caixa->setTextFormat(Qt::PlainText);
    Caixa->setInformativeText(
        tr("Linha %1, elemento %2: %3 %4")
            .arg(QString::number(Falha.Linha), Falha.Caminho, Falha.Mensagem, Falha.Detalhe)
            .trimmed());
    const int Resposta = Caixa->exec();
    delete Caixa; // gone already when the window was closed meanwhile
    return Resposta == QMessageBox::Yes;
}

void TPainelDaArvore::PerguntarEAbrir()
{
    const QString Nome = QFileDialog::getOpenFileName(this, tr("Abrir árvore"), QFileInfo(FArquivo).path(),
                                                      FiltroDeDocumentos());
    if (!Nome.isEmpty())
        Abrir(Nome);
}

void TPainelDaArvore::PerguntarEAtualizar()
{
    QStringList Nomes = QFileDialog::getOpenFileNames(this, tr("Atualizar com documento"),
                                                      QFileInfo(FArquivo).path(), FiltroDeDocumentos());
    Nomes.sort();
    for (const QString &Nome : Nomes)
        Atualizar(Nome);
}

void TPainelDaArvore::MostrarSelecao()
{
    FFicha->Mostrar(dynamic_cast<const Sibrel::TTreeNodeXML *>(FArvore->Selected()));
    Q_EMIT EstadoMudou();
}

// The tree fills the frame when a node is selected; what an update changes in it is for the host to show.
void TPainelDaArvore::RenovarSelecao()
{
    FFicha->Renovar(dynamic_cast<const Sibrel::TTreeNodeXML *>(FArvore->Selected()));
    Q_EMIT EstadoMudou();
}

} // namespace Hospedeiro
