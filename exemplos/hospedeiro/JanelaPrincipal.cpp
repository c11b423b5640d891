// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/JanelaPrincipal.h"

#include "hospedeiro/BotaoDeCor.h"
#include "hospedeiro/DescricaoDeSimbolo.h"
#include "hospedeiro/FolhaDeSimbolos.h"
#include "hospedeiro/FolhaEmImagem.h"
#include "hospedeiro/JanelaDaFigura.h"
#include "hospedeiro/PainelDeAvisos.h"
#include "hospedeiro/PinturaDeSimbolo.h"

#include "plataforma/Exception.h"
#include "simbolos/SimboloVetorial.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QSlider>
#include <QStatusBar>
#include <QToolBar>

namespace Hospedeiro
{

namespace
{

constexpr QSize TamanhoDaJanela(960, 640);
constexpr int PassoDoTamanho = 8;
constexpr int LarguraDoControle = 280; // a slider over the whole window would be clumsy
constexpr int AlturaDosAvisos = 120;

QString FiltroDeBibliotecas()
{
    return TJanelaPrincipal::tr("Bibliotecas de símbolos (*.txt);;Todos os arquivos (*)");
}

QString ArquivoArrastado(const QMimeData &Dados)
{
    const QList<QUrl> Enderecos = Dados.urls();
    return Enderecos.size() == 1 ? Enderecos.constFirst().toLocalFile() : QString();
}

} // namespace

TJanelaPrincipal::TJanelaPrincipal(QWidget *Dono)
    : QMainWindow(Dono)
    , FBiblioteca(std::make_unique<TBiblioteca>())
    , FFolha(new TFolhaDeSimbolos(this))
    , FAvisos(new TPainelDeAvisos(this))
{
    FModelo.AtribuirTabela(&FBiblioteca->Tabela());
    FFolha->setModel(&FModelo);
    setCentralWidget(FFolha);
    addDockWidget(Qt::BottomDockWidgetArea, FAvisos);
    resizeDocks({FAvisos}, {AlturaDosAvisos}, Qt::Vertical);
    FAvisos->hide();
    MontarFerramentas();
    MontarMenus();
    MontarEstado();
    setAcceptDrops(true);
    resize(TamanhoDaJanela);
    FFolha->setFocus();
    MostrarEstado();
}

TJanelaPrincipal::~TJanelaPrincipal()
{
    FFolha->setModel(nullptr);
    FModelo.AtribuirTabela(nullptr);
}

bool TJanelaPrincipal::Abrir(const QString &Arquivo)
{
    auto Nova = std::make_unique<TBiblioteca>();
    try {
        Nova->Abrir(Arquivo, FFontes);
    } catch (const Sibrel::Exception &E) {
        FAvisos->Mostrar(Nova->Avisos(), Arquivo);
        MostrarErro(E.Message, E.Detalhe);
        return false;
    }
    FModelo.AtribuirTabela(&Nova->Tabela());
    FBiblioteca = std::move(Nova);
    FAvisos->Mostrar(FBiblioteca->Avisos(), Arquivo);
    FFolha->IrPara(0);
    MostrarEstado();
    return true;
}

bool TJanelaPrincipal::AbrirFigura(const QString &Arquivo)
{
    Sibrel::TSimboloVetorial Figura;
    try {
        Figura.LerArquivo(Arquivo);
    } catch (const Sibrel::Exception &E) {
        MostrarErro(E.Message, E.Detalhe);
        return false;
    }
    PrepararSimbolo(Figura);
    MostrarFigura(Figura);
    return true;
}

void TJanelaPrincipal::MostrarFigura(Sibrel::TSimboloVetorial &Figura)
{
    TJanelaDaFigura(Figura, this).exec();
}

void TJanelaPrincipal::MostrarFiguraDoSimbolo(int Indice)
{
    Sibrel::ISimbolo *Simbolo = FBiblioteca->Tabela().Simbolos().Item(Indice);
    if (auto *Figura = dynamic_cast<Sibrel::TSimboloVetorial *>(Simbolo))
        MostrarFigura(*Figura);
}

bool TJanelaPrincipal::Exportar(const QString &Arquivo)
{
    try {
        FAvisos->Mostrar(FBiblioteca->Exportar(Arquivo), Arquivo);
    } catch (const Sibrel::Exception &E) {
        MostrarErro(E.Message, E.Detalhe);
        return false;
    }
    MostrarEstado();
    statusBar()->showMessage(tr("Biblioteca gravada em %1").arg(Arquivo), 5000);
    return true;
}

void TJanelaPrincipal::AtribuirTamanho(int Pixels)
{
    FTamanho->setValue(Pixels);
}

void TJanelaPrincipal::MostrarErro(const QString &Mensagem, const QString &Detalhe)
{
    QMessageBox Caixa(QMessageBox::Critical, QGuiApplication::applicationDisplayName(), Mensagem,
                      QMessageBox::Ok, this);
    Caixa.setTextFormat(Qt::PlainText); // names stand in angle brackets
    Caixa.setInformativeText(Detalhe);
    Caixa.exec();
}

void TJanelaPrincipal::MontarMenus()
{
    MontarMenuArquivo();
    MontarMenuLocalizar();
    MontarMenuExibir();
}

void TJanelaPrincipal::MontarMenuArquivo()
{
    QMenu *Menu = menuBar()->addMenu(tr("&Arquivo"));
    QAction *AbrirAcao =
        Menu->addAction(tr("&Abrir biblioteca..."), this, &TJanelaPrincipal::PerguntarEAbrir);
    AbrirAcao->setShortcut(QKeySequence::Open);
    QAction *FiguraAcao =
        Menu->addAction(tr("Abrir f&igura..."), this, &TJanelaPrincipal::PerguntarEAbrirFigura);
    FiguraAcao->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O));
    Menu->addSeparator();
    QAction *ExportarAcao =
        Menu->addAction(tr("&Exportar biblioteca..."), this, &TJanelaPrincipal::PerguntarEExportar);
    ExportarAcao->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
    Menu->addAction(tr("Gravar &folha como imagem..."), this, &TJanelaPrincipal::PerguntarEGravarFolha);
    Menu->addSeparator();
    QAction *Sair = Menu->addAction(tr("&Sair"), this, &QWidget::close);
    Sair->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
}

void TJanelaPrincipal::MontarMenuLocalizar()
{
    QMenu *Menu = menuBar()->addMenu(tr("&Localizar"));
    QAction *Rotulo = Menu->addAction(tr("&Rótulo..."), this, [this] {
        FBusca->setFocus(Qt::ShortcutFocusReason);
        FBusca->selectAll();
    });
    Rotulo->setShortcut(QKeySequence::Find);
    QAction *Proximo = Menu->addAction(tr("&Próximo"), this, [this] { ProcurarOutro(false); });
    Proximo->setShortcut(QKeySequence(Qt::Key_F3));
    QAction *Anterior = Menu->addAction(tr("&Anterior"), this, [this] { ProcurarOutro(true); });
    Anterior->setShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F3));
}

void TJanelaPrincipal::MontarMenuExibir()
{
    QMenu *Menu = menuBar()->addMenu(tr("E&xibir"));
    QAction *Maiores = Menu->addAction(tr("Símbolos &maiores"), this,
                                       [this] { AtribuirTamanho(FTamanho->value() + PassoDoTamanho); });
    Maiores->setShortcut(QKeySequence::ZoomIn);
    QAction *Menores = Menu->addAction(tr("Símbolos m&enores"), this,
                                       [this] { AtribuirTamanho(FTamanho->value() - PassoDoTamanho); });
    Menores->setShortcut(QKeySequence::ZoomOut);
    Menu->addSeparator();
    Menu->addAction(FAvisos->toggleViewAction());
    connect(FFolha, &TFolhaDeSimbolos::PassoDeTamanho, this,
            [this](int Sentido) { AtribuirTamanho(FTamanho->value() + Sentido * PassoDoTamanho); });
}

void TJanelaPrincipal::MontarFerramentas()
{
    QToolBar *Barra = addToolBar(tr("Ferramentas"));
    Barra->setObjectName(QStringLiteral("Ferramentas"));
    Barra->setMovable(false);
    MontarTamanho(*Barra);
    auto *Cor = new TBotaoDeCor(Barra);
    connect(Cor, &TBotaoDeCor::CorMudou, FFolha, &TFolhaDeSimbolos::AtribuirCor);
    Barra->addWidget(Cor);
    Barra->addSeparator();
    MontarBusca(*Barra);
}

void TJanelaPrincipal::MontarTamanho(QToolBar &Barra)
{
    FTamanho = new QSlider(Qt::Horizontal, &Barra);
    FTamanho->setRange(MenorTamanho, MaiorTamanho);
    FTamanho->setPageStep(PassoDoTamanho);
    FTamanho->setMaximumWidth(LarguraDoControle);
    FTamanho->setToolTip(tr("Lado dos símbolos, em pixels"));
    auto *Nome = new QLabel(tr("&Tamanho: "), &Barra);
    Nome->setBuddy(FTamanho);
    auto *Valor = new QLabel(&Barra);
    // Wide enough for every size, so that the tools beside it stand still.
    Valor->setMinimumWidth(Valor->fontMetrics().horizontalAdvance(tr(" %1 px ").arg(MaiorTamanho)));
    connect(FTamanho, &QSlider::valueChanged, this, [this, Valor](int Pixels) {
        Valor->setText(tr(" %1 px ").arg(Pixels));
        FFolha->AtribuirTamanho(Pixels);
    });
    FTamanho->setValue(TamanhoInicial);
    Barra.addWidget(Nome);
    Barra.addWidget(FTamanho);
    Barra.addWidget(Valor);
}

void TJanelaPrincipal::MontarBusca(QToolBar &Barra)
{
    FBusca = new QLineEdit(&Barra);
    FBusca->setPlaceholderText(tr("Localizar rótulo"));
    FBusca->setToolTip(tr("Parte de um rótulo; maiúsculas e acentos não contam. Enter ou F3: o próximo"));
    FBusca->setAccessibleName(tr("Localizar rótulo"));
    FBusca->setClearButtonEnabled(true);
    // While the text grows the symbol that was found stays, as long as it still fits.
    connect(FBusca, &QLineEdit::textEdited, this,
            [this] { Procurar(FFolha->currentIndex().row() - 1, false); });
    connect(FBusca, &QLineEdit::returnPressed, this, [this] { ProcurarOutro(false); });
    Barra.addWidget(FBusca);
    QAction *Proximo = Barra.addAction(tr("Próximo"), this, [this] { ProcurarOutro(false); });
    Proximo->setToolTip(tr("Próximo rótulo com o texto (F3)"));
}

void TJanelaPrincipal::MontarEstado()
{
    FContagem = new QLabel(this);
    FAtual = new QLabel(this);
    FAtual->setTextFormat(Qt::PlainText);
    statusBar()->addWidget(FAtual, 1);
    statusBar()->addPermanentWidget(FContagem);
    connect(FFolha->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &TJanelaPrincipal::MostrarAtual);
    connect(FFolha, &QAbstractItemView::activated, this,
            [this](const QModelIndex &Indice) { MostrarFiguraDoSimbolo(Indice.row()); });
    connect(&FModelo, &QAbstractItemModel::modelReset, this, &TJanelaPrincipal::MostrarAtual);
}

void TJanelaPrincipal::PerguntarEAbrir()
{
    const QString Arquivo = QFileDialog::getOpenFileName(
        this, tr("Abrir biblioteca"), QFileInfo(FBiblioteca->Arquivo()).path(), FiltroDeBibliotecas());
    if (!Arquivo.isEmpty())
        Abrir(Arquivo);
}

void TJanelaPrincipal::PerguntarEAbrirFigura()
{
    const QString Arquivo =
        QFileDialog::getOpenFileName(this, tr("Abrir figura"), QFileInfo(FBiblioteca->Arquivo()).path(),
                                     tr("Figuras vetoriais (*.xml);;Todos os arquivos (*)"));
    if (!Arquivo.isEmpty())
        AbrirFigura(Arquivo);
}

void TJanelaPrincipal::PerguntarEExportar()
{
    const QString Arquivo = QFileDialog::getSaveFileName(this, tr("Exportar biblioteca"),
                                                         FBiblioteca->Arquivo(), FiltroDeBibliotecas());
    if (!Arquivo.isEmpty())
        Exportar(Arquivo);
}

void TJanelaPrincipal::PerguntarEGravarFolha()
{
    const QString Arquivo = QFileDialog::getSaveFileName(this, tr("Gravar folha como imagem"),
                                                         QStringLiteral("folha.png"), tr("Imagens (*.png)"));
    if (Arquivo.isEmpty())
        return;
    try {
        GravarImagem(FolhaEmImagem(FBiblioteca->Tabela(), FFolha->Tamanho(), FFolha->font(), FFolha->Cor()),
                     Arquivo);
        statusBar()->showMessage(tr("Folha gravada em %1").arg(Arquivo), 5000);
    } catch (const Sibrel::Exception &E) {
        MostrarErro(E.Message, E.Detalhe);
    }
}

void TJanelaPrincipal::Procurar(int APartirDe, bool ParaTras)
{
    const int Achada = FModelo.Procurar(FBusca->text(), APartirDe, ParaTras);
    if (Achada >= 0)
        FFolha->IrPara(Achada);
    else if (!FBusca->text().isEmpty())
        statusBar()->showMessage(tr("Nenhum rótulo contém \"%1\"").arg(FBusca->text()), 5000);
}

void TJanelaPrincipal::ProcurarOutro(bool ParaTras)
{
    Procurar(FFolha->currentIndex().row(), ParaTras);
}

void TJanelaPrincipal::MostrarEstado()
{
    const QString Arquivo = FBiblioteca->Arquivo();
    setWindowTitle(Arquivo.isEmpty() ? QString() : QFileInfo(Arquivo).fileName());
    setWindowFilePath(Arquivo);
    const qsizetype Avisos = qsizetype(FBiblioteca->Avisos().size());
    QString Texto =
        FBiblioteca->Quantos() == 1 ? tr("1 símbolo") : tr("%1 símbolos").arg(FBiblioteca->Quantos());
    if (Avisos > 0)
        Texto += Avisos == 1 ? tr(", 1 aviso") : tr(", %1 avisos").arg(Avisos);
    FContagem->setText(Texto);
}

void TJanelaPrincipal::MostrarAtual()
{
    const QModelIndex Atual = FFolha->currentIndex();
    if (!Atual.isValid()) {
        FAtual->clear();
        return;
    }
    const Sibrel::ISimbolo &Simbolo = *FBiblioteca->Tabela().Simbolos().Item(Atual.row());
    FAtual->setText(QStringLiteral("%1: %2 (%3)")
                        .arg(QString::number(Atual.row()), Atual.data().toString(), TipoDoSimbolo(Simbolo)));
}

void TJanelaPrincipal::dragEnterEvent(QDragEnterEvent *Evento)
{
    if (!ArquivoArrastado(*Evento->mimeData()).isEmpty())
        Evento->acceptProposedAction();
}

void TJanelaPrincipal::dropEvent(QDropEvent *Evento)
{
    if (const QString Arquivo = ArquivoArrastado(*Evento->mimeData()); !Arquivo.isEmpty()) {
        Evento->acceptProposedAction();
        if (Arquivo.endsWith(QLatin1String(".xml"), Qt::CaseInsensitive))
            AbrirFigura(Arquivo);
        else
            Abrir(Arquivo);
    }
}

} // namespace Hospedeiro
