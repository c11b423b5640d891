// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/DocumentoDeTabelas.h"
#include "arvore/PrepararAtualizacao.h"
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
    void AVersao();
    void OIcone();
    void SoOsCincoSeRegistram();
    void OsModulosComecamNaOrdem();
    void CadaModuloComecaUmaVez();
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
    QByteArrayList Nomes;
    for (const std::string_view M : ModulosContidos())
        Nomes += QByteArray(M.data(), qsizetype(M.size()));
    QCOMPARE(Nomes.join(','),
             QByteArray("Sibrel,PrepararAtualizacao,TagsXML,Partida,TreeViewXML,TreeNodeXML,TabelaDeSimbolos,"
                        "TreeViewXMLBD,SimboloVetorial,TabelaDeSimbolosBD,SimboloImagem"));
}

void TestePacote::AVersao()
{
    const QByteArray Versao(VersaoDoPacote().data(), qsizetype(VersaoDoPacote().size()));
    QCOMPARE(Versao.count('.'), 2);
    for (const QByteArray &Parte : Versao.split('.')) {
        bool Numero = false;
        Parte.toInt(&Numero);
        QVERIFY2(Numero, Versao.constData());
    }
}

void TestePacote::OIcone()
{
    const QIcon Icone = IconeDoPacote();
    QCOMPARE(Icone.availableSizes(), QList<QSize>{QSize(64, 64)});
    const QImage Imagem = Icone.pixmap(64).toImage();
    QCOMPARE(Imagem.pixelColor(0, 0).alpha(), 0);
    QCOMPARE(Imagem.pixelColor(11, 10), QColor(0, 0, 160));
}

void TestePacote::SoOsCincoSeRegistram()
{
    QStringList Classes;
    for (const TComponenteDoPacote &C : ComponentesDoPacote())
        Classes += C.Classe;
    QCOMPARE(Classes, QStringList({"TTabelaDeSimbolos", "TSimboloImagem", "TTabelaDeSimbolosBD",
                                   "TTreeViewXML", "TTreeViewXMLBD"}));
    QCOMPARE(PaginaDaPaleta, QLatin1String("Simbolos"));
}

void TestePacote::OsModulosComecamNaOrdem()
{
    QStringList Nomes;
    for (const TModulo *M : ModulosDoPacote()) {
        QVERIFY2(M->Iniciado(), M->Nome());
        Nomes += QLatin1String(M->Nome());
    }
    QCOMPARE(Nomes,
             QStringList({"TabelaDeSimbolos", "SimboloImagem", "TabelaDeSimbolosBD", "SimboloVetorial",
                          "TagsXML", "TreeNodeXML", "PrepararAtualizacao", "TreeViewXML", "TreeViewXMLBD"}));
    QCOMPARE(SibrelModulosIniciados(), 9);
    QCOMPARE(TPreparaAtualizacao::Instancias(), 0); // the worker's module has set its counter
}

// Pulled in by several users a module starts once, and stops when the last of them lets it go.
void TestePacote::CadaModuloComecaUmaVez()
{
    for (TModulo *M : ModulosDoPacote()) {
        M->Iniciar();
        M->Parar();
        QVERIFY2(M->Iniciado(), M->Nome());
    }
    TRefTratador Tratador;
    TRefSimbolo Simbolo;
    QVERIFY(TListaSimbolo::ObterTratadorDeSimbolo(QStringLiteral("Vetorial"), Tratador, Simbolo));
    QCOMPARE(CABECALHO_XML, QStringLiteral("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>"));
}

void TestePacote::PararEIniciarDeNovo()
{
    // As unloading and loading do, but in this process: the registry empties and fills again.
    const auto Modulos = ModulosDoPacote();
    for (auto M = Modulos.rbegin(); M != Modulos.rend(); ++M) {
        (*M)->Parar();
        QVERIFY2(!(*M)->Iniciado(), (*M)->Nome());
    }
    QCOMPARE(SibrelModulosIniciados(), 0);
    QCOMPARE(CABECALHO_XML, QString());
    QVERIFY_THROWS_EXCEPTION(EInvalidOperation, RegistroDeTratadores());
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
