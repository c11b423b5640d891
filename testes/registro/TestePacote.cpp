// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/Exception.h"
#include "registro/Componentes.h"
#include "registro/InformacoesDoPacote.h"
#include "registro/Sibrel.h"
#include "simbolos/ListaSimbolo.h"

#include <QImage>
#include <QPixmap>
#include <QTest>

using namespace Sibrel;

class TestePacote : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ADescricao();
    void OsPacotesRequeridosNaOrdem();
    void OsModulosContidosNaOrdem();
    void OsModulosComecamNaOrdem();
    void PararEIniciarDeNovo();
    void AsFigurasDaPaleta_data();
    void AsFigurasDaPaleta();
};

void TestePacote::ADescricao()
{
    QCOMPARE(QByteArray(DescricaoDoPacote().data(), qsizetype(DescricaoDoPacote().size())),
             QByteArray("Quenda - Componentes para trabalhar com simbolos"));
}

void TestePacote::OsPacotesRequeridosNaOrdem()
{
    QByteArrayList Nomes;
    for (const TPacoteRequerido &P : PacotesRequeridos())
        Nomes += QByteArray(P.Nome.data(), qsizetype(P.Nome.size()));
    QCOMPARE(Nomes.join(','),
             QByteArray("visualclx70,inet70,Corvane,Lumbrix,dsnap70,xmlrtl70,dbrtl70,vcl70,rtl70"));
}

void TestePacote::OsModulosContidosNaOrdem()
{
    QCOMPARE(ModulosContidos().size(), 11U);
    QVERIFY(ModulosContidos().front() == "Sibrel");
    QVERIFY(ModulosContidos()[6] == "TabelaDeSimbolos");
    QVERIFY(ModulosContidos().back() == "SimboloImagem");
}

void TestePacote::OsModulosComecamNaOrdem()
{
    // The order of the whole package; what is there must be in it, in this order.
    const QStringList Ordem = {QStringLiteral("TabelaDeSimbolos"),
                               QStringLiteral("SimboloImagem"),
                               QStringLiteral("TabelaDeSimbolosBD"),
                               QStringLiteral("SimboloVetorial"),
                               QStringLiteral("TagsXML"),
                               QStringLiteral("TreeNodeXML"),
                               QStringLiteral("PrepararAtualizacao"),
                               QStringLiteral("TreeViewXML"),
                               QStringLiteral("TreeViewXMLBD")};
    qsizetype Ultimo = -1;
    for (const TModulo *M : ModulosDoPacote()) {
        const qsizetype Onde = Ordem.indexOf(QLatin1String(M->Nome()));
        QVERIFY2(Onde > Ultimo, M->Nome());
        QVERIFY2(M->Iniciado(), M->Nome());
        Ultimo = Onde;
    }
    QVERIFY(Ultimo >= 0);
}

void TestePacote::PararEIniciarDeNovo()
{
    // As unloading and loading do, but in this process: the registry empties and fills again.
    const auto Modulos = ModulosDoPacote();
    for (auto M = Modulos.rbegin(); M != Modulos.rend(); ++M) {
        (*M)->Parar();
        QVERIFY2(!(*M)->Iniciado(), (*M)->Nome());
    }
    QVERIFY_EXCEPTION_THROWN(RegistroDeTratadores(), EInvalidOperation);
    for (TModulo *M : Modulos)
        M->Iniciar();
    TRefTratador Tratador;
    TRefSimbolo Simbolo;
    QVERIFY(TListaSimbolo::ObterTratadorDeSimbolo(QStringLiteral("Fonte"), Tratador, Simbolo));
}

void TestePacote::AsFigurasDaPaleta_data()
{
    QTest::addColumn<QString>("Nome");
    for (const char *Nome : {"TTABELADESIMBOLOS", "TBARRADESIMBOLOS", "TSIMBOLOSCOMBOBOX"})
        QTest::newRow(Nome) << QString::fromLatin1(Nome);
}

void TestePacote::AsFigurasDaPaleta()
{
    QFETCH(QString, Nome);
    const QImage Figura(QStringLiteral(":/sibrel/paleta/%1.bmp").arg(Nome));
    QCOMPARE(Figura.size(), QSize(24, 24));
    QCOMPARE(Figura.colorCount(), 16);
}

QTEST_MAIN(TestePacote)
#include "TestePacote.moc"
