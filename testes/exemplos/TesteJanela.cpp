// SPDX-License-Identifier: LGPL-2.1-or-later
// The window of the example host, driven by keys and drops as by its user.
#include "hospedeiro/BotaoDeCor.h"
#include "hospedeiro/FolhaDeSimbolos.h"
#include "hospedeiro/JanelaDaFigura.h"
#include "hospedeiro/JanelaPrincipal.h"
#include "hospedeiro/PaginaDeSimbolos.h"
#include "hospedeiro/PainelDeAvisos.h"
#include "hospedeiro/PinturaDeSimbolo.h"

#include "comum/Dados.h"
#include "simbolos/SimboloVetorial.h"

#include <QDropEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QSlider>
#include <QSplitter>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

using namespace Sibrel::Testes;
using namespace Hospedeiro;

namespace
{

class TJanelaDeTeste : public TJanelaPrincipal
{
public:
    QStringList Erros;
    QStringList Figuras;

protected:
    void MostrarErro(const QString &Mensagem, const QString &Detalhe) override
    {
        Erros += Mensagem + u'|' + Detalhe;
    }
    void MostrarFigura(Sibrel::TSimboloVetorial &Figura) override
    {
        Figuras +=
            QStringLiteral("%1 %2").arg(Figura.ObterNomeArquivo()).arg(Figura.ObterElementos().Count());
    }
};

QRegion AreaVermelha(const QImage &Imagem)
{
    QRegion Area;
    for (int Y = 0; Y < Imagem.height(); ++Y)
        for (int X = 0; X < Imagem.width(); ++X) {
            const QColor Cor = Imagem.pixelColor(X, Y);
            if (Cor.red() > 150 && Cor.green() < 80 && Cor.blue() < 80)
                Area += QRect(X, Y, 1, 1);
        }
    return Area;
}

} // namespace

class TesteJanela : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void AbreEMostra();
    void UmErroDeixaABibliotecaQueEstava();
    void APastaAtualFicaComoEstavaTambemDepoisDeUmErro();
    void OsAvisosTemONumeroDaLinha();
    void OPainelSomeQuandoNaoHaAvisos();
    void OTamanhoEACorChegamAFolha();
    void AsTeclasMudamOTamanho();
    void ABuscaPeloTeclado();
    void OArquivoSoltoAbre();
    void OQueNaoEArquivoNaoESolto();
    void ExportaEPassaAoNovoNome();
    void UmErroAoExportarEMostrado();
    void AFiguraAbreNaSuaJanela();
    void OSimboloVetorialAbreComEnter();
    void AJanelaDaFiguraListaOsCampos();
    void AFiguraCresceComOsSeusTextos();
    void CadaComandoTemTeclaDeAcesso();

private:
    QString Gravar(const QString &Nome, const QByteArray &Conteudo);
    TFolhaDeSimbolos &Folha() { return *FJanela->findChild<TFolhaDeSimbolos *>(); }
    void Soltar(const QMimeData &Dados);

    std::unique_ptr<QTemporaryDir> FPasta;
    std::unique_ptr<TJanelaDeTeste> FJanela;
};

void TesteJanela::init()
{
    FPasta = std::make_unique<QTemporaryDir>();
    FJanela = std::make_unique<TJanelaDeTeste>();
    FJanela->show();
    QVERIFY(QTest::qWaitForWindowActive(FJanela.get()));
}

void TesteJanela::cleanup()
{
    FJanela.reset();
}

QString TesteJanela::Gravar(const QString &Nome, const QByteArray &Conteudo)
{
    const QString Arquivo = FPasta->filePath(Nome);
    EscreverBytes(Arquivo, Conteudo);
    return Arquivo;
}

void TesteJanela::AbreEMostra()
{
    QVERIFY(FJanela->Abrir(DadoDeExemplo(QStringLiteral("simbolos.txt"))));
    QCOMPARE(FJanela->Biblioteca().Quantos(), 68);
    QCOMPARE(Folha().model()->rowCount(), 68);
    QCOMPARE(Folha().currentIndex().row(), 0);
    QVERIFY(FJanela->windowTitle().contains(QStringLiteral("simbolos.txt")));
    QCOMPARE(FJanela->Erros, QStringList());
}

void TesteJanela::UmErroDeixaABibliotecaQueEstava()
{
    QVERIFY(FJanela->Abrir(Gravar(QStringLiteral("boa.txt"), "1\nComposto   \"Fica\" 0\n")));
    QVERIFY(
        !FJanela->Abrir(Gravar(QStringLiteral("ruim.txt"), "2\nComposto   \"Some\" 0\nEstranho   \"\"\n")));
    QCOMPARE(FJanela->Erros.size(), 1);
    QVERIFY(FJanela->Erros[0].startsWith(
        QStringLiteral("O Tratador de Símbolo para o tipo <Estranho> não foi registrado!|")));
    QCOMPARE(Folha().model()->rowCount(), 1);
    QCOMPARE(Folha().model()->index(0, 0).data().toString(), QStringLiteral("Fica"));
}

void TesteJanela::APastaAtualFicaComoEstavaTambemDepoisDeUmErro()
{
    const QString Antes = QDir::currentPath();
    QVERIFY(!FJanela->Abrir(Gravar(QStringLiteral("ruim.txt"), "1\nEstranho   \"\"\n")));
    QCOMPARE(QDir::currentPath(), Antes);
}

void TesteJanela::OsAvisosTemONumeroDaLinha()
{
    QVERIFY(FJanela->Abrir(Gravar(QStringLiteral("b.txt"), "1\nGrafico    \"\" falta.png\n")));
    const auto *Painel = FJanela->findChild<TPainelDeAvisos *>();
    QVERIFY(Painel->isVisible());
    QCOMPARE(Painel->windowTitle(), QStringLiteral("Avisos de b.txt"));
    const auto *Lista = Painel->findChild<QTreeWidget *>();
    QCOMPARE(Lista->topLevelItemCount(), 1);
    QCOMPARE(Lista->topLevelItem(0)->text(0), QStringLiteral("2"));
    QCOMPARE(Lista->topLevelItem(0)->text(1), QStringLiteral("A figura <falta.png> não existe."));
}

void TesteJanela::OPainelSomeQuandoNaoHaAvisos()
{
    QVERIFY(FJanela->Abrir(Gravar(QStringLiteral("b.txt"), "1\nGrafico    \"\" falta.png\n")));
    QVERIFY(FJanela->Abrir(Gravar(QStringLiteral("c.txt"), "0\n")));
    auto *Painel = FJanela->findChild<TPainelDeAvisos *>();
    QVERIFY(!Painel->isVisible());
    // It can be looked for again, from the menu.
    for (const QAction *Menu : FJanela->menuBar()->actions())
        if (Menu->text() == QStringLiteral("E&xibir"))
            Menu->menu()->actions().constLast()->trigger();
    QVERIFY(Painel->isVisible());
}

void TesteJanela::OTamanhoEACorChegamAFolha()
{
    FJanela->findChild<QSlider *>()->setValue(100);
    QCOMPARE(Folha().Tamanho(), 100);
    FJanela->findChild<TPaginaDeSimbolos *>()->findChild<TBotaoDeCor *>()->AtribuirCor(Qt::red);
    QCOMPARE(Folha().Cor(), QColor(Qt::red));
}

void TesteJanela::AsTeclasMudamOTamanho()
{
    const int Antes = Folha().Tamanho();
    QTest::keyClick(FJanela.get(), Qt::Key_Plus, Qt::ControlModifier);
    QVERIFY(Folha().Tamanho() > Antes);
    QTest::keyClick(FJanela.get(), Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(Folha().Tamanho(), Antes);
}

void TesteJanela::ABuscaPeloTeclado()
{
    QVERIFY(FJanela->Abrir(Gravar(QStringLiteral("b.txt"), "3\nComposto   \"Opera\xE7\xE3o\" 0\n"
                                                           "Composto   \"Ponte\" 0\n"
                                                           "Composto   \"Opera\xE7\xF5"
                                                           "es\" 0\n")));
    QTest::keyClick(FJanela.get(), Qt::Key_F, Qt::ControlModifier);
    auto *Busca = FJanela->findChild<TPaginaDeSimbolos *>()->findChild<QLineEdit *>();
    QVERIFY(Busca->hasFocus());
    QTest::keyClicks(Busca, QStringLiteral("operac"));
    QCOMPARE(Folha().currentIndex().row(), 0); // still fits while the text grows
    QTest::keyClick(Busca, Qt::Key_Return);
    QCOMPARE(Folha().currentIndex().row(), 2);
    QTest::keyClick(Busca, Qt::Key_F3);
    QCOMPARE(Folha().currentIndex().row(), 0);
    QTest::keyClick(Busca, Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(Folha().currentIndex().row(), 2);
    QTest::keyClicks(Busca, QStringLiteral("xyz"));
    QCOMPARE(Folha().currentIndex().row(), 2);
}

void TesteJanela::Soltar(const QMimeData &Dados)
{
    QDragEnterEvent Entrada(QPoint(5, 5), Qt::CopyAction, &Dados, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(FJanela.get(), &Entrada);
    if (!Entrada.isAccepted())
        return;
    QDropEvent Solta(QPointF(5, 5), Qt::CopyAction, &Dados, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(FJanela.get(), &Solta);
}

void TesteJanela::OArquivoSoltoAbre()
{
    QMimeData Dados;
    Dados.setUrls({QUrl::fromLocalFile(Gravar(QStringLiteral("b.txt"), "1\nComposto   \"Solto\" 0\n"))});
    Soltar(Dados);
    QCOMPARE(FJanela->Biblioteca().Quantos(), 1);
}

void TesteJanela::OQueNaoEArquivoNaoESolto()
{
    QMimeData Dados;
    Dados.setUrls({QUrl(QStringLiteral("https://exemplo.invalid/b.txt"))});
    Soltar(Dados);
    QCOMPARE(FJanela->Erros, QStringList());
    QCOMPARE(FJanela->Biblioteca().Quantos(), 0);
}

void TesteJanela::ExportaEPassaAoNovoNome()
{
    QVERIFY(FJanela->Abrir(Gravar(QStringLiteral("b.txt"), "1\nComposto   \"Um\" 0\n")));
    const QString Nova = FPasta->filePath(QStringLiteral("nova.txt"));
    QVERIFY(FJanela->Exportar(Nova));
    QCOMPARE(BytesDe(Nova), QByteArray("    1\r\nComposto   \"Um\"                     0 \r\n"));
    QVERIFY(FJanela->windowTitle().contains(QStringLiteral("nova.txt")));
}

void TesteJanela::UmErroAoExportarEMostrado()
{
    QVERIFY(!FJanela->Exportar(FPasta->filePath(QStringLiteral("nao/ha/b.txt"))));
    QCOMPARE(FJanela->Erros.size(), 1);
}

void TesteJanela::AFiguraAbreNaSuaJanela()
{
    const QString Figura = DadoDeExemplo(QStringLiteral("figuras/alvo.xml"));
    QVERIFY(FJanela->AbrirFigura(Figura));
    QMimeData Dados;
    Dados.setUrls({QUrl::fromLocalFile(Figura)});
    Soltar(Dados);
    QCOMPARE(FJanela->Figuras, QStringList({Figura + QStringLiteral(" 7"), Figura + QStringLiteral(" 7")}));
    QVERIFY(!FJanela->AbrirFigura(Gravar(QStringLiteral("ruim.xml"), "nada")));
    QCOMPARE(FJanela->Erros.size(), 1);
    QCOMPARE(FJanela->Figuras.size(), 2);
}

void TesteJanela::OSimboloVetorialAbreComEnter()
{
    Gravar(QStringLiteral("f.xml"), "<FiguraVet><Ponto X='1' Y='1'/></FiguraVet>");
    QVERIFY(FJanela->Abrir(
        Gravar(QStringLiteral("b.txt"), "2\nVetorial   \"Ponto\" f.xml\nComposto   \"Nada\" 0\n")));
    QTest::keyClick(&Folha(), Qt::Key_Return);
    QCOMPARE(FJanela->Figuras, QStringList(QStringLiteral("f.xml 1")));
    Folha().IrPara(1);
    QTest::keyClick(&Folha(), Qt::Key_Return);
    QCOMPARE(FJanela->Figuras.size(), 1);
}

void TesteJanela::AJanelaDaFiguraListaOsCampos()
{
    Sibrel::TSimboloVetorial Figura;
    Figura.LerArquivo(DadoDeExemplo(QStringLiteral("figuras/textos_girados.xml")));
    PrepararSimbolo(Figura);
    TJanelaDaFigura Janela(Figura);
    QCOMPARE(Janela.windowTitle(), QStringLiteral("Figura textos_girados.xml"));
    const auto *Lista = Janela.findChild<QTreeWidget *>();
    QCOMPARE(Lista->topLevelItemCount(), 8);
    const QTreeWidgetItem *Texto = Lista->topLevelItem(3);
    QCOMPARE(Texto->text(0), QStringLiteral("3: Texto"));
    QCOMPARE(Texto->childCount(), 9);
    QCOMPARE(Texto->child(2)->text(0), QStringLiteral("Cor"));
    QCOMPARE(Texto->child(2)->text(1), QStringLiteral("#c81e1e"));
    QVERIFY(!Texto->child(2)->icon(1).isNull());
    QVERIFY(Texto->isExpanded());
}

void TesteJanela::AFiguraCresceComOsSeusTextos()
{
    CarregarFontes();
    Sibrel::TSimboloVetorial Figura;
    Figura.Atualizar(QStringLiteral(
        "<FiguraVet><Setor RaioMaior='40' RaioMenor='39' CorFundo='FFFFFF'/>"
        "<Texto X='20' Y='-10' Cor='0000FF' Fonte='Sibrel Teste' Tamanho='8' Texto='HH'/></FiguraVet>"));
    TJanelaDaFigura Janela(Figura);
    const auto Vermelhos = [&Janela](int Lado) {
        Janela.findChild<QSplitter *>()->setSizes({Lado, Lado});
        Janela.resize(2 * Lado + 30, Lado + 70);
        const QImage Quadro = Janela.findChild<QSplitter *>()->widget(0)->grab().toImage();
        return AreaVermelha(Quadro).boundingRect();
    };
    Janela.show();
    QVERIFY(QTest::qWaitForWindowExposed(&Janela));
    const QRect Pequena = Vermelhos(200);
    const QRect Grande = Vermelhos(400);
    QVERIFY(Pequena.width() > 20);
    QVERIFY(Grande.width() > 17 * Pequena.width() / 10);
    // To the right of the middle and above it, as in the figure.
    const QPoint Meio = Janela.findChild<QSplitter *>()->widget(0)->rect().center();
    QVERIFY(Grande.left() > Meio.x() && Grande.bottom() < Meio.y());
}

void TesteJanela::CadaComandoTemTeclaDeAcesso()
{
    for (const QAction *Menu : FJanela->menuBar()->actions()) {
        QVERIFY2(Menu->text().contains(u'&'), qPrintable(Menu->text()));
        QStringList Letras;
        for (const QAction *Acao : Menu->menu()->actions()) {
            const qsizetype Onde = Acao->text().indexOf(u'&');
            if (Acao->isSeparator() || Onde < 0)
                continue;
            const QString Letra = Acao->text().mid(Onde + 1, 1).toLower();
            QVERIFY2(!Letras.contains(Letra), qPrintable(Acao->text()));
            Letras += Letra;
        }
        QVERIFY(Letras.size() >= 2);
    }
}

QTEST_MAIN(TesteJanela)
#include "TesteJanela.moc"
