// SPDX-License-Identifier: LGPL-2.1-or-later
// The sheet of the example host, as a picture and on the screen, with the bundled fonts only.
#include "hospedeiro/Biblioteca.h"
#include "hospedeiro/FolhaDeSimbolos.h"
#include "hospedeiro/FolhaEmImagem.h"
#include "hospedeiro/FontesDaBiblioteca.h"
#include "hospedeiro/ModeloDeSimbolos.h"

#include "comum/Controle.h"
#include "comum/Dados.h"
#include "plataforma/Exception.h"

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>

using namespace Sibrel::Testes;
using namespace Hospedeiro;

namespace
{

// A model that counts the rows that a view paints.
class TModeloQueConta : public TModeloDeSimbolos
{
public:
    using TModeloDeSimbolos::TModeloDeSimbolos;
    QVariant data(const QModelIndex &Indice, int Papel) const override
    {
        if (Papel == Qt::DisplayRole)
            ++Pedidos;
        return TModeloDeSimbolos::data(Indice, Papel);
    }
    mutable int Pedidos = 0;
};

} // namespace

class TesteFolha : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void AFiguraDaFolha();
    void OsTextosDasFigurasFicamNasFiguras();
    void AFolhaNaTelaMostraOMesmoQueAImagem();
    void OTamanhoFicaNosLimites();
    void OSimboloAtualFicaAVistaQuandoOTamanhoMuda();
    void SoAsCelulasAVistaSaoPintadas();
    void OModeloObedeceAsRegrasDoQt();
    void OModeloSegueATabela();
    void ProcuraSemAcentosNemMaiusculas_data();
    void ProcuraSemAcentosNemMaiusculas();
    void ABuscaNaListaVazia();

private:
    QString Gravar(const QByteArray &Conteudo);
    static QByteArray Muitos(int Quantos);

    QTemporaryDir FPasta;
    TFontesDaBiblioteca FFontes;
    QFont FFonte;
};

void TesteFolha::initTestCase()
{
    CarregarFontes();
    FFonte.setFamily(FamiliaDeTexto);
    FFonte.setPixelSize(12);
    FFonte.setHintingPreference(QFont::PreferNoHinting);
    FFonte.setStyleStrategy(QFont::NoSubpixelAntialias);
}

QString TesteFolha::Gravar(const QByteArray &Conteudo)
{
    const QString Arquivo = FPasta.filePath(QStringLiteral("b.txt"));
    EscreverBytes(Arquivo, Conteudo);
    return Arquivo;
}

QByteArray TesteFolha::Muitos(int Quantos)
{
    QByteArray Conteudo = QByteArray::number(Quantos) + "\r\n";
    for (int I = 0; I < Quantos; ++I)
        Conteudo += "Fonte      \"Rotulo " + QByteArray::number(I) + "\" " + QByteArray::number(33 + I % 40) +
                    " 2 1.00 Sibrel Simbolos \r\n";
    return Conteudo;
}

void TesteFolha::AFiguraDaFolha()
{
    QVERIFY(QFile::copy(DadoDeExemplo(QStringLiteral("imagens/cruz.bmp")),
                        FPasta.filePath(QStringLiteral("cruz.bmp"))));
    TBiblioteca Biblioteca;
    Biblioteca.Abrir(Gravar("5\n"
                            "Fonte      \"Infantaria\" 37 2 1.0 Sibrel Simbolos\n"
                            "Fonte      \"Opera\xE7\xE3o\" 40 2 0.5 Sibrel Simbolos\n"
                            "Grafico    \"Um nome que nao cabe em duas linhas da folha\" cruz.bmp\n"
                            "Composto   \"\" 2\n"
                            "Grafico    cruz.bmp\n"
                            "Fonte      75 2 0.5 Sibrel Simbolos\n"
                            "Composto   \"Vazio\" 0\n"),
                     FFontes);
    QCOMPARE(CompararComControle(FolhaEmImagem(Biblioteca.Tabela(), 32, FFonte),
                                 QStringLiteral("hospedeiro-folha")),
             QString());
    QCOMPARE(CompararComControle(FolhaEmImagem(Biblioteca.Tabela(), 8, FFonte, Qt::red),
                                 QStringLiteral("hospedeiro-folha-8-vermelha")),
             QString());
}

// Wherever the cell is, and in the first drawing as in the second: the texts among the shapes, turned.
void TesteFolha::OsTextosDasFigurasFicamNasFiguras()
{
    EscreverBytes(
        FPasta.filePath(QStringLiteral("f.xml")),
        "<FiguraVet><Poligono Fechado='S' CorFundo='B4E1F0' EstiloLinha='0'><Ponto X='4' Y='4'/>"
        "<Ponto X='60' Y='4'/><Ponto X='60' Y='40'/><Ponto X='32' Y='60'/><Ponto X='4' Y='40'/></Poligono>"
        "<Texto X='32' Y='22' Fonte='Sibrel Teste' Tamanho='10' Texto='P Ct' Orientacao='300'/>"
        "</FiguraVet>");
    TBiblioteca Biblioteca;
    Biblioteca.Abrir(Gravar("3\nVetorial   \"Um\" f.xml\nVetorial   \"Outro\" f.xml\n"
                            "Composto   \"Parte\" 1\nVetorial   f.xml\n"),
                     FFontes);
    const QImage Primeira = FolhaEmImagem(Biblioteca.Tabela(), 64, FFonte);
    QCOMPARE(CompararComControle(Primeira, QStringLiteral("hospedeiro-vetorial")), QString());
    QCOMPARE(FolhaEmImagem(Biblioteca.Tabela(), 64, FFonte), Primeira);
}

void TesteFolha::AFolhaNaTelaMostraOMesmoQueAImagem()
{
    TBiblioteca Biblioteca;
    Biblioteca.Abrir(Gravar("1\nFonte      \"Radar\" 60 2 1.0 Sibrel Simbolos\n"), FFontes);
    TModeloDeSimbolos Modelo;
    Modelo.AtribuirTabela(&Biblioteca.Tabela());
    TFolhaDeSimbolos Folha;
    Folha.setFont(FFonte);
    Folha.setModel(&Modelo);
    Folha.AtribuirCor(Qt::blue);
    Folha.resize(300, 200);
    Folha.show();
    QVERIFY(QTest::qWaitForWindowExposed(&Folha));
    const QRect Celula = Folha.visualRect(Modelo.index(0, 0));
    const QImage NaTela = Folha.viewport()->grab(Celula).toImage().convertToFormat(QImage::Format_RGB32);
    const QImage Imagem = FolhaEmImagem(Biblioteca.Tabela(), TamanhoInicial, FFonte, Qt::blue);
    QCOMPARE(NaTela, Imagem.copy(QRect(QPoint(8, 8), Celula.size())));
    QVERIFY(NaTela.pixelColor(NaTela.rect().center()) != QColor(Qt::black));
}

void TesteFolha::OTamanhoFicaNosLimites()
{
    TFolhaDeSimbolos Folha;
    Folha.AtribuirTamanho(1);
    QCOMPARE(Folha.Tamanho(), 8);
    Folha.AtribuirTamanho(100000);
    QCOMPARE(Folha.Tamanho(), 256);
}

void TesteFolha::OSimboloAtualFicaAVistaQuandoOTamanhoMuda()
{
    TBiblioteca Biblioteca;
    Biblioteca.Abrir(Gravar(Muitos(500)), FFontes);
    TModeloDeSimbolos Modelo;
    Modelo.AtribuirTabela(&Biblioteca.Tabela());
    TFolhaDeSimbolos Folha;
    Folha.setModel(&Modelo);
    Folha.resize(600, 400);
    Folha.show();
    QVERIFY(QTest::qWaitForWindowExposed(&Folha));
    Folha.IrPara(300);
    for (const int Tamanho : {200, 8, 64}) {
        Folha.AtribuirTamanho(Tamanho);
        QVERIFY(Folha.viewport()->rect().contains(Folha.visualRect(Modelo.index(300, 0)).center()));
    }
}

void TesteFolha::SoAsCelulasAVistaSaoPintadas()
{
    TBiblioteca Biblioteca;
    Biblioteca.Abrir(Gravar(Muitos(100000)), FFontes);
    TModeloQueConta Modelo;
    Modelo.AtribuirTabela(&Biblioteca.Tabela());
    TFolhaDeSimbolos Folha;
    Folha.setModel(&Modelo);
    Folha.resize(600, 400);
    Folha.show();
    QVERIFY(QTest::qWaitForWindowExposed(&Folha));
    QElapsedTimer Relogio;
    Relogio.start();
    Folha.IrPara(99999);
    const QImage Fim = Folha.viewport()->grab().toImage();
    qInfo() << "cem mil simbolos: ir ao fim e pintar" << Relogio.restart() << "ms";
    Folha.AtribuirTamanho(32);
    Folha.viewport()->grab();
    qInfo() << "cem mil simbolos: outro tamanho" << Relogio.restart() << "ms";
    QVERIFY(Modelo.Pedidos < 1000);
    QVERIFY(Fim.pixelColor(Fim.width() - 1, 0) == QColor(Qt::white));
}

void TesteFolha::OModeloObedeceAsRegrasDoQt()
{
    TBiblioteca Biblioteca;
    Biblioteca.Abrir(Gravar(Muitos(3)), FFontes);
    TModeloDeSimbolos Modelo;
    const QAbstractItemModelTester Verificador(&Modelo,
                                               QAbstractItemModelTester::FailureReportingMode::QtTest);
    Modelo.AtribuirTabela(&Biblioteca.Tabela());
    QCOMPARE(Modelo.rowCount(), 3);
    Modelo.AtribuirTabela(nullptr);
    QCOMPARE(Modelo.rowCount(), 0);
}

void TesteFolha::OModeloSegueATabela()
{
    const QString Arquivo = Gravar(Muitos(2));
    Sibrel::TTabelaDeSimbolos Tabela;
    TModeloDeSimbolos Modelo;
    Modelo.AtribuirTabela(&Tabela);
    QCOMPARE(Modelo.rowCount(), 0);
    int Refeito = 0;
    connect(&Modelo, &QAbstractItemModel::modelReset, this, [&Refeito] { ++Refeito; });
    Tabela.Importar(Arquivo);
    QCOMPARE(Refeito, 1);
    QCOMPARE(Modelo.rowCount(), 2);
    QCOMPARE(Modelo.index(1, 0).data().toString(), QStringLiteral("Rotulo 1"));
    QCOMPARE(Modelo.index(1, 0).data(Qt::AccessibleDescriptionRole).toString(),
             QStringLiteral("1: Rotulo 1\ntipo: Fonte\ncaracter: 34\ncharset: 2\nproporcao: 1\n"
                            "fonte: Sibrel Simbolos"));
    Tabela.ObterRotulos().AtribuirLinha(1, QStringLiteral("<b>"));
    QVERIFY(
        Modelo.index(1, 0).data(Qt::ToolTipRole).toString().contains(QStringLiteral("1: &lt;b&gt;\ntipo")));
}

void TesteFolha::ProcuraSemAcentosNemMaiusculas_data()
{
    QTest::addColumn<QString>("Texto");
    QTest::addColumn<int>("Linha");
    QTest::addColumn<bool>("ParaTras");
    QTest::addColumn<int>("Achada");
    QTest::newRow("do começo") << QStringLiteral("acao") << -1 << false << 0;
    QTest::newRow("a proxima") << QStringLiteral("acao") << 0 << false << 2;
    QTest::newRow("da a volta") << QStringLiteral("acao") << 2 << false << 0;
    QTest::newRow("a mesma, se é a unica") << QStringLiteral("PONTE") << 1 << false << 1;
    QTest::newRow("com acentos") << QStringLiteral("Ação") << 0 << false << 2;
    QTest::newRow("para tras") << QStringLiteral("acao") << 2 << true << 0;
    QTest::newRow("para tras, a vizinha") << QStringLiteral("o") << 2 << true << 1;
    QTest::newRow("para tras dá a volta") << QStringLiteral("acao") << 0 << true << 2;
    QTest::newRow("para tras do começo") << QStringLiteral("acao") << -1 << true << 2;
    QTest::newRow("nao ha") << QStringLiteral("xyz") << 0 << false << -1;
    QTest::newRow("vazio") << QString() << 0 << false << -1;
}

void TesteFolha::ProcuraSemAcentosNemMaiusculas()
{
    QFETCH(QString, Texto);
    QFETCH(int, Linha);
    QFETCH(bool, ParaTras);
    QFETCH(int, Achada);
    TBiblioteca Biblioteca;
    Biblioteca.Abrir(Gravar("3\n"
                            "Composto   \"A\xE7\xE3o\" 0\n"
                            "Composto   \"Ponte\" 0\n"
                            "Composto   \"Na\xE7\xE3o em A\xC7\xC3O\" 0\n"),
                     FFontes);
    TModeloDeSimbolos Modelo;
    Modelo.AtribuirTabela(&Biblioteca.Tabela());
    QCOMPARE(Modelo.Procurar(Texto, Linha, ParaTras), Achada);
}

void TesteFolha::ABuscaNaListaVazia()
{
    QCOMPARE(TModeloDeSimbolos().Procurar(QStringLiteral("a"), -1), -1);
}

QTEST_MAIN(TesteFolha)
#include "TesteFolha.moc"
