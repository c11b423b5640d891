// SPDX-License-Identifier: LGPL-2.1-or-later
// The example host: shows a symbol library in a window, or works on it from the command line.
#include "hospedeiro/Alimentacao.h"
#include "hospedeiro/ArvoreDoHospedeiro.h"
#include "hospedeiro/JanelaPrincipal.h"
#include "hospedeiro/LinhaDeComando.h"
#include "hospedeiro/PainelDaArvore.h"
#include "hospedeiro/Trabalhos.h"
#include "hospedeiro/Tradutor.h"

#include "plataforma/Exception.h"
#include "registro/InformacoesDoPacote.h"

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QStandardPaths>

#include <cstdlib>

namespace
{

bool TemTela()
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
#else
    return true;
#endif
}

void AbrirArvore(Hospedeiro::TJanelaPrincipal &Janela, const Hospedeiro::TPedido &Pedido)
{
    Hospedeiro::TPainelDaArvore &Painel = Janela.PainelDaArvore();
    Painel.Arvore().ElementoRaiz = Pedido.Raiz;
    if (!Pedido.Arvore && !Pedido.Banco && !Pedido.Vigiar)
        return;
    Janela.MostrarPagina(&Painel);
    if (Pedido.Banco)
        Janela.AbrirBanco(*Pedido.Banco);
    if (Pedido.Arvore)
        Painel.Abrir(*Pedido.Arvore);
    for (const QString &Documento : Pedido.Atualizacoes)
        Painel.Atualizar(Documento);
    if (Pedido.Vigiar)
        Painel.Alimentacao().Vigiar(*Pedido.Vigiar);
}

// Documents of failed updates are kept where the user may write, which the program's own folder seldom is.
void EscolherPastaDeErros()
{
    const QDir Pasta(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
                     QStringLiteral("/erros"));
    if (Pasta.mkpath(QStringLiteral(".")))
        Sibrel::TPreparaAtualizacao::AtribuirPastaDeErros(Pasta.path());
}

// Captions of trees keep their colours when they are selected: these are to be told from what is behind them.
void AclararSelecao()
{
    constexpr QRgb Clara = 0xFFC4DEF6;
    const QPalette Normais = QApplication::palette();
    QPalette Cores = Normais;
    Cores.setColor(QPalette::Highlight, QColor(Clara));
    Cores.setColor(QPalette::HighlightedText, Qt::black);
    QApplication::setPalette(Cores);
    for (const char *Classe : {"QListView", "QProgressBar", "QSlider", "QMenu", "QMenuBar", "QLineEdit"})
        QApplication::setPalette(Normais, Classe);
}

int Mostrar(const Hospedeiro::TPedido &Pedido)
{
    EscolherPastaDeErros();
    AclararSelecao();
    QApplication::setWindowIcon(Sibrel::IconeDoPacote());
    Hospedeiro::TJanelaPrincipal Janela;
    Janela.AtribuirTamanho(Pedido.Tamanho);
    Janela.show();
    if (Pedido.Biblioteca)
        Janela.Abrir(*Pedido.Biblioteca);
    if (Pedido.Figura)
        Janela.AbrirFigura(*Pedido.Figura);
    AbrirArvore(Janela, Pedido);
    return QApplication::exec();
}

int Atender(const Hospedeiro::TPedido &Pedido, bool HaTela)
{
    if (Pedido.SoLinhaDeComando()) {
        Hospedeiro::Executar(Pedido);
        return EXIT_SUCCESS;
    }
    if (!HaTela)
        throw Sibrel::Exception(QStringLiteral("Não há tela onde abrir a janela!"), Hospedeiro::VejaAAjuda());
    return Mostrar(Pedido);
}

} // namespace

int main(int argc, char *argv[])
{
    // What needs no window runs without a display, also where one is named that cannot be reached.
    const bool HaTela = TemTela();
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") &&
        (!HaTela || Hospedeiro::PedeSoLinhaDeComando(argc, argv)))
        qputenv("QT_QPA_PLATFORM", "offscreen");

    const QApplication Aplicacao(argc, argv);
    QApplication::setApplicationName(QStringLiteral("hospedeiro"));
    QApplication::setApplicationDisplayName(QStringLiteral("Hospedeiro Sibrel"));
    QApplication::setApplicationVersion(QStringLiteral(SIBREL_VERSAO));
    Hospedeiro::InstalarTradutores();
    try {
        return Atender(Hospedeiro::LerLinhaDeComando(QApplication::arguments()), HaTela);
    } catch (const Sibrel::Exception &E) {
        Hospedeiro::EscreverErro(E.Message, E.Detalhe);
    } catch (const std::exception &E) {
        Hospedeiro::EscreverErro(QStringLiteral("Erro inesperado!"), QString::fromUtf8(E.what()));
    }
    return EXIT_FAILURE;
}
