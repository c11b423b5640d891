// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/JanelaPrincipal.h"

#include "hospedeiro/BancoDoExercicio.h"
#include "hospedeiro/FolhaDeSimbolos.h"
#include "hospedeiro/FolhaEmImagem.h"
#include "hospedeiro/Galeria.h"
#include "hospedeiro/JanelaDaFigura.h"
#include "hospedeiro/PaginaDeSimbolos.h"
#include "hospedeiro/PainelDaArvore.h"
#include "hospedeiro/PainelDeAvisos.h"
#include "hospedeiro/PinturaDeSimbolo.h"

#include "plataforma/Exception.h"
#include "plataforma/XMLDocument.h"
#include "simbolos/SimboloVetorial.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>
#include <QTabWidget>

namespace Hospedeiro
{

namespace
{

constexpr QSize TamanhoDaJanela(1100, 720);
constexpr int TempoDoRecado = 5000; // ms
constexpr int AlturaDosAvisos = 120;

QString FiltroDeBibliotecas()
{
    return TJanelaPrincipal::tr("Bibliotecas de símbolos (*.txt);;Todos os arquivos (*)");
}

QStringList ArquivosArrastados(const QMimeData &Dados)
{
    QStringList Arquivos;
    for (const QUrl &Endereco : Dados.urls())
        if (const QString Arquivo = Endereco.toLocalFile(); !Arquivo.isEmpty())
            Arquivos += Arquivo;
    Arquivos.sort();
    return Arquivos;
}

bool EFigura(const QString &Arquivo)
{
    try {
        return Sibrel::TXMLDocument::DeArquivo(Arquivo)->Raiz().NomeE(u"FiguraVet");
    } catch (const Sibrel::Exception &) {
        return false; // whoever opens it says what is wrong with it
    }
}

} // namespace

TJanelaPrincipal::TJanelaPrincipal(QWidget *Dono)
    : QMainWindow(Dono)
    , FBiblioteca(std::make_unique<TBiblioteca>())
    , FPaginas(new QTabWidget(this))
    , FPaginaDeSimbolos(new TPaginaDeSimbolos)
    , FPainelDaArvore(new TPainelDaArvore)
    , FGaleria(new TGaleria)
    , FAvisos(new TPainelDeAvisos(this))
{
    FPaginas->setDocumentMode(true);
    setCentralWidget(FPaginas);
    addDockWidget(Qt::BottomDockWidgetArea, FAvisos);
    resizeDocks({FAvisos}, {AlturaDosAvisos}, Qt::Vertical);
    FAvisos->hide();
    MontarMenus();
    MontarEstado();
    FPaginaDeSimbolos->AtribuirBiblioteca(FBiblioteca.get());
    FPainelDaArvore->AtribuirTabela(&FBiblioteca->Tabela());
    AcrescentarPagina(FPaginaDeSimbolos);
    FPaginaDeSimbolos->AcrescentarAoMenu(FAvisos->toggleViewAction());
    AcrescentarPagina(FPainelDaArvore);
    AcrescentarPagina(FGaleria);
    connect(FPaginaDeSimbolos, &TPaginaDeSimbolos::SimboloAtivado, this,
            &TJanelaPrincipal::MostrarFiguraDoSimbolo);
    setAcceptDrops(true);
    resize(TamanhoDaJanela);
    MostrarPagina(FPaginaDeSimbolos);
}

TJanelaPrincipal::~TJanelaPrincipal()
{
    // The pages go one by one when most of the window has gone, and have nothing to tell it any more.
    disconnect(FPaginas, nullptr, this, nullptr);
    for (int I = 0; I < FPaginas->count(); ++I)
        disconnect(FPaginas->widget(I), nullptr, this, nullptr);
    FPaginaDeSimbolos->AtribuirBiblioteca(nullptr);
}

void TJanelaPrincipal::AcrescentarPagina(TPagina *Pagina)
{
    FPaginas->addTab(Pagina, Pagina->Titulo());
    Pagina->MontarMenus(*menuBar());
    connect(Pagina, &TPagina::EstadoMudou, this, &TJanelaPrincipal::MostrarEstado);
    connect(Pagina, &TPagina::Recado, this,
            [this](const QString &Texto) { statusBar()->showMessage(Texto, TempoDoRecado); });
    connect(Pagina, &TPagina::Erro, this,
            [this](const QString &Mensagem, const QString &Detalhe) { MostrarErro(Mensagem, Detalhe); });
}

void TJanelaPrincipal::MostrarPagina(TPagina *Pagina)
{
    FPaginas->setCurrentWidget(Pagina);
    Pagina->setFocus();
}

TPagina *TJanelaPrincipal::PaginaAtual() const
{
    return static_cast<TPagina *>(FPaginas->currentWidget());
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
    Trocar(std::move(Nova), Arquivo);
    return true;
}

// `Lugar`: the file beside which pictures may stand.
void TJanelaPrincipal::Trocar(std::unique_ptr<TBiblioteca> Nova, const QString &Lugar)
{
    FPaginaDeSimbolos->AtribuirBiblioteca(Nova.get());
    FPainelDaArvore->AtribuirTabela(&Nova->Tabela());
    FBiblioteca = std::move(Nova);
    FAvisos->Mostrar(FBiblioteca->Avisos(), FBiblioteca->Origem());
    FPaginaDeSimbolos->Folha().IrPara(0);
    FGaleria->AtribuirBiblioteca(Lugar);
    MostrarEstado();
}

void TJanelaPrincipal::AbrirBanco(const QString &Endereco)
{
    auto Nova = std::make_shared<std::unique_ptr<TBiblioteca>>(std::make_unique<TBiblioteca>());
    std::shared_ptr<TBancoDoExercicio> Banco;
    try {
        Banco = std::make_shared<TBancoDoExercicio>(Endereco);
        (*Nova)->AbrirBanco(*Banco, FFontes);
    } catch (const Sibrel::Exception &E) {
        MostrarErro(E.Message, E.Detalhe);
        return;
    }
    const QString Lugar = Banco->LugarDasFontes();
    FPainelDaArvore->AbrirBanco(std::move(Banco), [this, Nova, Lugar] { Trocar(std::move(*Nova), Lugar); });
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
    statusBar()->showMessage(tr("Biblioteca gravada em %1").arg(Arquivo), TempoDoRecado);
    return true;
}

void TJanelaPrincipal::AtribuirTamanho(int Pixels)
{
    FPaginaDeSimbolos->AtribuirTamanho(Pixels);
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
}

void TJanelaPrincipal::MontarMenuArquivo()
{
    QMenu *Menu = menuBar()->addMenu(tr("&Arquivo"));
    QAction *AbrirAcao =
        Menu->addAction(tr("&Abrir biblioteca..."), this, &TJanelaPrincipal::PerguntarEAbrir);
    AbrirAcao->setShortcut(QKeySequence::Open);
    QAction *BancoAcao =
        Menu->addAction(tr("Abrir &banco..."), this, &TJanelaPrincipal::PerguntarEAbrirBanco);
    BancoAcao->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_B));
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
    QAction *Texto = Menu->addAction(tr("&Texto..."), this, [this] { PaginaAtual()->Localizar(); });
    Texto->setShortcut(QKeySequence::Find);
    QAction *Proximo =
        Menu->addAction(tr("&Próximo"), this, [this] { PaginaAtual()->LocalizarOutro(false); });
    Proximo->setShortcut(QKeySequence(Qt::Key_F3));
    QAction *Anterior =
        Menu->addAction(tr("&Anterior"), this, [this] { PaginaAtual()->LocalizarOutro(true); });
    Anterior->setShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F3));
}

void TJanelaPrincipal::MontarEstado()
{
    FContagem = new QLabel(this);
    FAtual = new QLabel(this);
    FAtual->setTextFormat(Qt::PlainText);
    statusBar()->addWidget(FAtual, 1);
    statusBar()->addPermanentWidget(FContagem);
    connect(FPaginas, &QTabWidget::currentChanged, this, &TJanelaPrincipal::MostrarEstado);
}

void TJanelaPrincipal::PerguntarEAbrir()
{
    const QString Arquivo = QFileDialog::getOpenFileName(
        this, tr("Abrir biblioteca"), QFileInfo(FBiblioteca->Arquivo()).path(), FiltroDeBibliotecas());
    if (!Arquivo.isEmpty())
        Abrir(Arquivo);
}

void TJanelaPrincipal::PerguntarEAbrirBanco()
{
    const QString Arquivo = QFileDialog::getOpenFileName(
        this, tr("Abrir banco"), QFileInfo(FBiblioteca->Arquivo()).path(),
        tr("Bancos de dados SQLite (*.sqlite *.sqlite3 *.db);;Todos os arquivos (*)"));
    if (!Arquivo.isEmpty())
        AbrirBanco(Arquivo);
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
        const TFolhaDeSimbolos &Folha = FPaginaDeSimbolos->Folha();
        GravarImagem(FolhaEmImagem(FBiblioteca->Tabela(), Folha.Tamanho(), Folha.font(), Folha.Cor()),
                     Arquivo);
        statusBar()->showMessage(tr("Folha gravada em %1").arg(Arquivo), TempoDoRecado);
    } catch (const Sibrel::Exception &E) {
        MostrarErro(E.Message, E.Detalhe);
    }
}

void TJanelaPrincipal::MostrarEstado()
{
    const TPagina *Pagina = PaginaAtual();
    if (Pagina == nullptr)
        return;
    const QString Arquivo = Pagina->Arquivo();
    setWindowTitle(Arquivo.isEmpty() ? QString() : QFileInfo(Arquivo).fileName());
    setWindowFilePath(Arquivo);
    FAtual->setText(Pagina->Atual());
    FContagem->setText(Pagina->Contagem());
}

void TJanelaPrincipal::dragEnterEvent(QDragEnterEvent *Evento)
{
    if (!ArquivosArrastados(*Evento->mimeData()).isEmpty())
        Evento->acceptProposedAction();
}

void TJanelaPrincipal::dropEvent(QDropEvent *Evento)
{
    const QStringList Arquivos = ArquivosArrastados(*Evento->mimeData());
    if (!Arquivos.isEmpty())
        Evento->acceptProposedAction();
    for (const QString &Arquivo : Arquivos)
        AbrirSolto(Arquivo);
}

// Figures and trees are both XML: the document element tells them apart.
void TJanelaPrincipal::AbrirSolto(const QString &Arquivo)
{
    if (Arquivo.endsWith(QLatin1String(".sqlite"), Qt::CaseInsensitive)) {
        AbrirBanco(Arquivo);
    } else if (!Arquivo.endsWith(QLatin1String(".xml"), Qt::CaseInsensitive)) {
        Abrir(Arquivo);
    } else if (EFigura(Arquivo)) {
        AbrirFigura(Arquivo);
    } else {
        MostrarPagina(FPainelDaArvore);
        FPainelDaArvore->Receber(Arquivo);
    }
}

} // namespace Hospedeiro
