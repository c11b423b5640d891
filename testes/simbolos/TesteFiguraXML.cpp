// SPDX-License-Identifier: LGPL-2.1-or-later
// Figure files: what is written, to the byte; what is read, and what a bad one leaves.
#include "comum/Dados.h"

#include "plataforma/CodePage.h"
#include "plataforma/Exception.h"
#include "plataforma/XMLDocument.h"
#include "simbolos/Poligono.h"
#include "simbolos/Ponto.h"
#include "simbolos/Setor.h"
#include "simbolos/SimboloVetorial.h"
#include "simbolos/Texto.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

using namespace Sibrel;

namespace
{

template <class T>
T &Elemento(TSimboloVetorial &S, int Indice)
{
    auto *E = dynamic_cast<T *>(S.ObterElementos().ObterElementoGrafico(Indice));
    if (E == nullptr)
        throw std::runtime_error("outro elemento");
    return *E;
}

QString Figura(const QString &Miolo)
{
    return QStringLiteral("<FiguraVet>%1</FiguraVet>").arg(Miolo);
}

QStringList TextosDe(const TSimboloVetorial &S)
{
    QStringList Textos;
    for (const auto &E : S.ObterElementos())
        Textos += E->ObterXML();
    return Textos;
}

// One of each element with no field at its default.
void Compor(TSimboloVetorial &S)
{
    auto P = std::make_unique<TPonto>();
    P->AtribuirX(3);
    P->AtribuirY(-4);
    P->AtribuirCor(clRed);
    S.ObterElementos().Add(std::move(P));
    auto T = std::make_unique<TTexto>();
    T->AtribuirX(1);
    T->AtribuirY(2);
    T->Fonte().AtribuirName(QStringLiteral("Sibrel Teste"));
    T->Fonte().AtribuirSize(12);
    T->Fonte().AtribuirColor(clHighlight);
    T->AtribuirTexto(QStringLiteral(u"Posição €"));
    T->AtribuirOrientacao(900);
    T->AtribuirAlinhamentoVertical(TAlinhamentoVertical::avAcima);
    T->AtribuirAlinhamentoHorizontal(TAlinhamentoHorizontal::ahEsquerda);
    S.ObterElementos().Add(std::move(T));
    auto R = std::make_unique<TSetor>();
    R->AtribuirX(-1);
    R->AtribuirY(5);
    R->AtribuirFechado(true);
    R->AtribuirRaioMaior(30.5);
    R->AtribuirRaioMenor(0.1);
    R->AtribuirAngI(0);
    R->AtribuirAngF(1.25);
    R->AtribuirCorLinha(0x0A0B0C);
    R->AtribuirCorFundo(clWhite);
    R->AtribuirEstiloLinha(TPenStyle::psInsideFrame);
    R->AtribuirEstiloFundo(TBrushStyle::bsDiagCross);
    S.ObterElementos().Add(std::move(R));
    auto G = std::make_unique<TPoligono>();
    G->AtribuirFechado(true);
    G->AtribuirCorLinha(clBlue);
    G->AtribuirCorFundo(clLime);
    G->AtribuirEstiloLinha(TPenStyle::psSolid);
    G->AtribuirEstiloFundo(TBrushStyle::bsClear);
    G->ObterListaPosicao().Add(TPoint(0, 0));
    G->ObterListaPosicao().Add(TPoint(-7, 8));
    S.ObterElementos().Add(std::move(G));
}

const QByteArray Composta =
    "<FiguraVet>\r\n"
    "<Ponto X=\"3\" Y=\"-4\" Cor=\"0000FF\"/>\r\n"
    "<Texto X=\"1\" Y=\"2\" Cor=\"8000000D\" Fonte=\"Sibrel Teste\" Tamanho=\"12\" "
    "Texto=\"Posi\xE7\xE3o \x80\" Orientacao=\"900\" AlinhamentoVertical=\"1\" "
    "AlinhamentoHorizontal=\"0\"/>\r\n"
    "<Setor X=\"-1\" Y=\"5\" Fechado=\"S\" RaioMaior=\"30.5\" RaioMenor=\"0.1\" "
    "AngI=\"0\" fAngF=\"1.25\" CorLinha=\"0A0B0C\" CorFundo=\"FFFFFF\" "
    "EstiloLinha=\"6\" EstiloFundo=\"7\"/>\r\n"
    "<Poligono Fechado=\"S\" CorLinha=\"FF0000\" CorFundo=\"00FF00\" EstiloLinha=\"0\" "
    "EstiloFundo=\"1\"><Ponto X=\"0\" Y=\"0\"/><Ponto X=\"-7\" Y=\"8\"/></Poligono>\r\n"
    "</FiguraVet>\r\n";

} // namespace

class TesteFiguraXML : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(FPasta.isValid()); }

    void OEscritorAoByte();
    void OsPadroesEscritos();
    void AElipseSeEscreveSetor();
    void AFiguraVaziaSoTemARaiz();
    void OQueNaoCabeNaPaginaERecusadoAntes();
    void OQueNaoSePodeGravar();

    void PontoSemCorEPreto();
    void CorHexadecimalSemPrefixo();
    void SoSMaiusculoESim();
    void OSetorPerdeOAnguloFinal();
    void OLeitorAceitaOAnguloFinal();
    void OPoligonoAceitaQualquerFilhoComXeY();
    void OPoligonoTrocaOsVertices();
    void ElementosDeOutroNomeSaoPulados();
    void ARaizEmMinusculas();
    void OutraRaizNaoAcrescentaNada();
    void AtualizarAcrescenta();
    void AtributosAusentesFicamComoEstavam();
    void InteirosEmHexadecimal();
    void BitsQueSobramSeguemFora();
    void ATabelaDeSimENao();

    void NumeroRuimDeixaOsAnteriores_data();
    void NumeroRuimDeixaOsAnteriores();
    void OElementoRuimFicaComOQueLeu();
    void XMLMalFormadoNaoCriaNada();
    void TextoComAspasNaoVolta();
    void LerArquivoLimpaAntes();
    void ArquivoAusenteDeixaOSimboloVazio();
    void ADeclaracaoDizACodificacao();

    void CadaAmostraVoltaIgual_data();
    void CadaAmostraVoltaIgual();
    void CadaTruncamentoERecusado();
    void BombaDeEntidades();
    void EntidadeExternaNaoELida();
    void ProfundidadeCemMil();
    void AtributoDeCemMegabytes();

private:
    QString Nome(const char *Arquivo) const { return FPasta.filePath(QLatin1String(Arquivo)); }
    QTemporaryDir FPasta;
};

void TesteFiguraXML::OEscritorAoByte()
{
    TSimboloVetorial S;
    Compor(S);
    S.GravarArquivo(Nome("composta.xml"));
    QCOMPARE(Testes::BytesDe(Nome("composta.xml")), Composta);
    QCOMPARE(S.ObterNomeArquivo(), Nome("composta.xml"));
}

void TesteFiguraXML::OsPadroesEscritos()
{
    QCOMPARE(TPonto().ObterXML(), QStringLiteral("<Ponto X=\"0\" Y=\"0\" Cor=\"000000\"/>"));
    QCOMPARE(
        TSetor().ObterXML(),
        QStringLiteral("<Setor X=\"0\" Y=\"0\" Fechado=\"N\" RaioMaior=\"-1\" RaioMenor=\"-1\" AngI=\"-1\" "
                       "fAngF=\"-1\" CorLinha=\"000000\" CorFundo=\"FFFFFF\" EstiloLinha=\"2\" "
                       "EstiloFundo=\"0\"/>"));
    QCOMPARE(TPoligono().ObterXML(),
             QStringLiteral("<Poligono Fechado=\"N\" CorLinha=\"000000\" CorFundo=\"000000\" "
                            "EstiloLinha=\"2\" EstiloFundo=\"0\"></Poligono>"));
    QCOMPARE(TTexto().ObterXML(),
             QStringLiteral("<Texto X=\"0\" Y=\"0\" Cor=\"80000008\" Fonte=\"MS Sans Serif\" Tamanho=\"8\" "
                            "Texto=\"\" Orientacao=\"0\" AlinhamentoVertical=\"2\" "
                            "AlinhamentoHorizontal=\"2\"/>"));
}

void TesteFiguraXML::AElipseSeEscreveSetor()
{
    QCOMPARE(TElipse().ObterXML(), TSetor().ObterXML());
}

void TesteFiguraXML::AFiguraVaziaSoTemARaiz()
{
    TSimboloVetorial S;
    S.GravarArquivo(Nome("vazia.xml"));
    QCOMPARE(Testes::BytesDe(Nome("vazia.xml")), QByteArray("<FiguraVet>\r\n</FiguraVet>\r\n"));
}

void TesteFiguraXML::OQueNaoCabeNaPaginaERecusadoAntes()
{
    Testes::EscreverBytes(Nome("intacta.xml"), "antes");
    TSimboloVetorial S;
    auto T = std::make_unique<TTexto>();
    T->AtribuirTexto(QStringLiteral(u"Ωmega"));
    S.ObterElementos().Add(std::move(T));
    QVERIFY_THROWS_EXCEPTION(EConvertError, S.GravarArquivo(Nome("intacta.xml")));
    QCOMPARE(Testes::BytesDe(Nome("intacta.xml")), QByteArray("antes"));
    QVERIFY_THROWS_EXCEPTION(EConvertError, S.GravarArquivo(Nome("nova.xml")));
    QVERIFY(!QFile::exists(Nome("nova.xml")));
}

void TesteFiguraXML::OQueNaoSePodeGravar()
{
    TSimboloVetorial S;
    QVERIFY_THROWS_EXCEPTION(EFCreateError, S.GravarArquivo(Nome("nenhuma/pasta/x.xml")));
}

void TesteFiguraXML::PontoSemCorEPreto()
{
    TSimboloVetorial S;
    S.Atualizar(Figura(QStringLiteral("<Ponto X='3' Y='4'/>")));
    QCOMPARE(S.ObterElementos().Count(), 1);
    const auto &P = Elemento<TPonto>(S, 0);
    QCOMPARE(P.X(), 3);
    QCOMPARE(P.Y(), 4);
    QVERIFY(P.Cor() == clBlack);
}

void TesteFiguraXML::CorHexadecimalSemPrefixo()
{
    TSimboloVetorial S;
    S.Atualizar(Figura(QStringLiteral("<Ponto Cor='FF'/><Ponto Cor='8000000d'/>")));
    QVERIFY(Elemento<TPonto>(S, 0).Cor() == TColor(255));
    QVERIFY(Elemento<TPonto>(S, 1).Cor() == clHighlight);
    for (const char *Ruim : {"$FF", "-1", "G0", "", "100000000"})
        QVERIFY_THROWS_EXCEPTION(
            EConvertError, S.Atualizar(Figura(QStringLiteral("<Ponto Cor='%1'/>").arg(QLatin1String(Ruim)))));
}

void TesteFiguraXML::SoSMaiusculoESim()
{
    TSimboloVetorial S;
    S.Atualizar(Figura(QStringLiteral("<Setor Fechado='s'/><Setor Fechado='S'/><Setor Fechado='sim'/>"
                                      "<Poligono Fechado='S '/><Poligono Fechado='S'/>")));
    QVERIFY(!Elemento<TSetor>(S, 0).Fechado());
    QVERIFY(Elemento<TSetor>(S, 1).Fechado());
    QVERIFY(!Elemento<TSetor>(S, 2).Fechado());
    QVERIFY(!Elemento<TPoligono>(S, 3).Fechado());
    QVERIFY(Elemento<TPoligono>(S, 4).Fechado());
}

void TesteFiguraXML::OSetorPerdeOAnguloFinal()
{
    TSimboloVetorial Antes;
    Compor(Antes);
    TSimboloVetorial S;
    S.Atualizar(Figura(Elemento<TSetor>(Antes, 2).ObterXML()));
    const auto &R = Elemento<TSetor>(S, 0);
    QCOMPARE(R.AngF(), -1.0);
    QCOMPARE(R.X(), -1);
    QCOMPARE(R.Y(), 5);
    QVERIFY(R.Fechado());
    QCOMPARE(R.RaioMaior(), 30.5);
    QCOMPARE(R.RaioMenor(), 0.1);
    QCOMPARE(R.AngI(), 0.0);
    QVERIFY(R.CorLinha() == TColor(0x0A0B0C));
    QVERIFY(R.CorFundo() == clWhite);
    QCOMPARE(int(R.EstiloLinha()), 6);
    QCOMPARE(int(R.EstiloFundo()), 7);
}

void TesteFiguraXML::OLeitorAceitaOAnguloFinal()
{
    TSimboloVetorial S;
    S.Atualizar(Figura(QStringLiteral("<Setor AngI='0.5' AngF='2,25'/>")));
    QCOMPARE(Elemento<TSetor>(S, 0).AngI(), 0.5);
    QCOMPARE(Elemento<TSetor>(S, 0).AngF(), 2.25);
}

void TesteFiguraXML::OPoligonoAceitaQualquerFilhoComXeY()
{
    TSimboloVetorial S;
    S.Atualizar(
        Figura(QStringLiteral("<Poligono>texto<Ponto X='0' Y='0'/><!-- nada --><Outro X='1' Y='1' Z='9'/>"
                              "<Ponto X='2'/></Poligono>")));
    const auto &L = Elemento<TPoligono>(S, 0).ObterListaPosicao();
    QCOMPARE(L.Count(), 2);
    QVERIFY(L.ObterPosicao(0) == TPoint(0, 0));
    QVERIFY(L.ObterPosicao(1) == TPoint(1, 1));
}

void TesteFiguraXML::OPoligonoTrocaOsVertices()
{
    TPoligono P;
    P.ObterListaPosicao().Add(TPoint(9, 9));
    P.AtribuirXML(TXMLDocument::DeTexto(u"<Poligono><Ponto X='5' Y='6'/></Poligono>")->DocumentElement());
    QCOMPARE(P.ObterListaPosicao().Count(), 1);
    QVERIFY(P.ObterListaPosicao().First() == TPoint(5, 6));
    P.AtribuirXML(TXMLDocument::DeTexto(u"<Poligono/>")->DocumentElement());
    QCOMPARE(P.ObterListaPosicao().Count(), 0);
}

void TesteFiguraXML::ElementosDeOutroNomeSaoPulados()
{
    TSimboloVetorial S;
    S.Atualizar(
        Figura(QStringLiteral("<Elipse RaioMaior='3'/><ponto X='1'/><PONTO/>texto<!--Ponto--><?Ponto?>"
                              "<g><Ponto/></g><Ponto X='7'/>")));
    QCOMPARE(S.ObterElementos().Count(), 1);
    QCOMPARE(Elemento<TPonto>(S, 0).X(), 7);
}

void TesteFiguraXML::ARaizEmMinusculas()
{
    TSimboloVetorial S;
    S.Atualizar(QStringLiteral("<figuravet><Ponto/></figuravet>"));
    S.Atualizar(QStringLiteral("<FIGURAVET><Ponto/></FIGURAVET>"));
    QCOMPARE(S.ObterElementos().Count(), 2);
}

void TesteFiguraXML::OutraRaizNaoAcrescentaNada()
{
    TSimboloVetorial S;
    S.Atualizar(QStringLiteral("<Figura><Ponto/></Figura>"));
    S.Atualizar(QStringLiteral("<Ponto/>"));
    QCOMPARE(S.ObterElementos().Count(), 0);
}

void TesteFiguraXML::AtualizarAcrescenta()
{
    TSimboloVetorial S;
    S.Atualizar(Figura(QStringLiteral("<Ponto X='1'/>")));
    S.Atualizar(Figura(QStringLiteral("<Ponto X='2'/>")));
    QCOMPARE(S.ObterElementos().Count(), 2);
    QCOMPARE(Elemento<TPonto>(S, 1).X(), 2);
}

void TesteFiguraXML::AtributosAusentesFicamComoEstavam()
{
    TSimboloVetorial S;
    Compor(S);
    const QStringList Antes = TextosDe(S);
    for (const auto &E : S.ObterElementos())
        if (dynamic_cast<TPoligono *>(E.get()) == nullptr)
            E->AtribuirXML(TXMLDocument::DeTexto(u"<x outro='1'/>")->DocumentElement());
    QCOMPARE(TextosDe(S), Antes);
}

void TesteFiguraXML::InteirosEmHexadecimal()
{
    TSimboloVetorial S;
    S.Atualizar(Figura(QStringLiteral("<Ponto X='$10' Y=' -$A'/><Setor EstiloLinha='$3'/>")));
    QCOMPARE(Elemento<TPonto>(S, 0).X(), 16);
    QCOMPARE(Elemento<TPonto>(S, 0).Y(), -10);
    QCOMPARE(int(Elemento<TSetor>(S, 1).EstiloLinha()), 3);
}

void TesteFiguraXML::BitsQueSobramSeguemFora()
{
    TSimboloVetorial S;
    S.Atualizar(Figura(QStringLiteral("<Texto Orientacao='66436' AlinhamentoVertical='257' "
                                      "AlinhamentoHorizontal='-1'/><Poligono EstiloLinha='259'/>")));
    QCOMPARE(Elemento<TTexto>(S, 0).Orientacao(), 900);
    QCOMPARE(int(Elemento<TTexto>(S, 0).AlinhamentoVertical()), 1);
    QCOMPARE(int(Elemento<TTexto>(S, 0).AlinhamentoHorizontal()), 255);
    QCOMPARE(int(Elemento<TPoligono>(S, 1).EstiloLinha()), 3);
}

void TesteFiguraXML::ATabelaDeSimENao()
{
    QCOMPARE(BooleanStr[false].toString(), QStringLiteral("N"));
    QCOMPARE(BooleanStr[true].toString(), QStringLiteral("S"));
}

void TesteFiguraXML::NumeroRuimDeixaOsAnteriores_data()
{
    QTest::addColumn<QString>("Ruim");
    for (const char *R :
         {"<Ponto X='a'/>", "<Ponto Y=''/>", "<Texto Tamanho='1.5'/>", "<Texto Orientacao='x'/>",
          "<Texto AlinhamentoVertical='c'/>", "<Texto AlinhamentoHorizontal=' '/>", "<Setor RaioMaior='r'/>",
          "<Setor AngI=''/>", "<Setor CorFundo='azul'/>", "<Setor EstiloLinha='solida'/>",
          "<Poligono EstiloFundo='x'/>", "<Poligono><Ponto X='1' Y='q'/></Poligono>"})
        QTest::newRow(R) << QString::fromLatin1(R);
}

void TesteFiguraXML::NumeroRuimDeixaOsAnteriores()
{
    QFETCH(QString, Ruim);
    TSimboloVetorial S;
    QVERIFY_THROWS_EXCEPTION(EConvertError,
                             S.Atualizar(Figura(QStringLiteral("<Ponto X='1'/>%1<Ponto/>").arg(Ruim))));
    QCOMPARE(S.ObterElementos().Count(), 1);
    QCOMPARE(Elemento<TPonto>(S, 0).X(), 1);
}

void TesteFiguraXML::OElementoRuimFicaComOQueLeu()
{
    TPonto P;
    QVERIFY_THROWS_EXCEPTION(
        EConvertError,
        P.AtribuirXML(TXMLDocument::DeTexto(u"<Ponto Y='2' X='ruim' Cor='FF'/>")->DocumentElement()));
    QVERIFY(P.Cor() == clRed); // read before X
    QCOMPARE(P.Y(), 0);        // read behind it
}

void TesteFiguraXML::XMLMalFormadoNaoCriaNada()
{
    TSimboloVetorial S;
    S.Atualizar(Figura(QStringLiteral("<Ponto/>")));
    for (const char *Ruim : {"", "   ", "<FiguraVet>", "<FiguraVet><Ponto/></Figura>",
                             "<FiguraVet><Ponto X=1/></FiguraVet>", "<FiguraVet/><FiguraVet/>", "nada"})
        QVERIFY_THROWS_EXCEPTION(EDOMParseError, S.Atualizar(QLatin1String(Ruim)));
    QCOMPARE(S.ObterElementos().Count(), 1);
}

void TesteFiguraXML::TextoComAspasNaoVolta()
{
    for (const char *Texto : {"diz \"alto\"", "a < b", "a & b"}) {
        TSimboloVetorial S;
        auto T = std::make_unique<TTexto>();
        T->AtribuirTexto(QLatin1String(Texto));
        S.ObterElementos().Add(std::move(T));
        S.GravarArquivo(Nome("aspas.xml"));
        QVERIFY(Testes::BytesDe(Nome("aspas.xml")).contains(Texto));
        TSimboloVetorial Lido;
        QVERIFY_THROWS_EXCEPTION(EDOMParseError, Lido.LerArquivo(Nome("aspas.xml")));
    }
}

void TesteFiguraXML::LerArquivoLimpaAntes()
{
    Testes::EscreverBytes(Nome("um.xml"), "<FiguraVet><Ponto X='1'/></FiguraVet>");
    TSimboloVetorial S;
    Compor(S);
    S.LerArquivo(QStringLiteral(" \t%1\r\n ").arg(Nome("um.xml")));
    QCOMPARE(S.ObterNomeArquivo(), Nome("um.xml"));
    QCOMPARE(S.ObterElementos().Count(), 1);
}

void TesteFiguraXML::ArquivoAusenteDeixaOSimboloVazio()
{
    TSimboloVetorial S;
    Compor(S);
    QVERIFY_THROWS_EXCEPTION(EFOpenError, S.LerArquivo(Nome("nada.xml")));
    QCOMPARE(S.ObterElementos().Count(), 0);
    QCOMPARE(S.ObterNomeArquivo(), Nome("nada.xml"));
    QVERIFY_THROWS_EXCEPTION(EFOpenError, S.LerArquivo(FPasta.path()));
    Testes::EscreverBytes(Nome("ruim.xml"), "<FiguraVet>");
    try {
        S.LerArquivo(Nome("ruim.xml"));
        QFAIL("devia recusar");
    } catch (const EDOMParseError &E) {
        QVERIFY(E.Detalhe.contains(Nome("ruim.xml")));
    }
}

void TesteFiguraXML::ADeclaracaoDizACodificacao()
{
    const QByteArray Miolo = "<FiguraVet><Texto Texto='%1'/></FiguraVet>";
    const auto Lido = [&](const QByteArray &Bytes) {
        Testes::EscreverBytes(Nome("cod.xml"), Bytes);
        TSimboloVetorial S;
        S.LerArquivo(Nome("cod.xml"));
        return Elemento<TTexto>(S, 0).Texto();
    };
    const QString Esperado = QStringLiteral(u"ação €");
    const QByteArray Em1252 = QByteArray(Miolo).replace("%1", "a\xE7\xE3o \x80");
    const QByteArray EmUtf8 = QByteArray(Miolo).replace("%1", Esperado.toUtf8());
    QCOMPARE(Lido(Em1252), Esperado);
    QCOMPARE(Lido("<?xml version='1.0' encoding='ISO-8859-1'?>" + Em1252), Esperado);
    QCOMPARE(Lido("<?xml version='1.0' encoding='UTF-8'?>" + EmUtf8), Esperado);
    QCOMPARE(Lido("\xEF\xBB\xBF" + EmUtf8), Esperado);
}

void TesteFiguraXML::CadaAmostraVoltaIgual_data()
{
    QTest::addColumn<QString>("Arquivo");
    const QDir Pasta(Testes::DadoDeExemplo(QStringLiteral("figuras")));
    const QStringList Arquivos = Pasta.entryList({QStringLiteral("*.xml")});
    QVERIFY(Arquivos.size() >= 20);
    for (const QString &A : Arquivos)
        QTest::newRow(qPrintable(A)) << Pasta.filePath(A);
}

void TesteFiguraXML::CadaAmostraVoltaIgual()
{
    QFETCH(QString, Arquivo);
    TSimboloVetorial S;
    S.LerArquivo(Arquivo);
    QVERIFY(!S.ObterElementos().Vazia());
    const QStringList Antes = TextosDe(S);
    std::vector<double> Finais;
    for (const auto &E : S.ObterElementos())
        if (const auto *R = dynamic_cast<TSetor *>(E.get()))
            Finais.push_back(R->AngF());
    S.GravarArquivo(Nome("amostra.xml"));
    TSimboloVetorial Lido;
    Lido.LerArquivo(Nome("amostra.xml"));
    // The end angle is the one thing that does not come back.
    std::size_t Setores = 0;
    for (const auto &E : Lido.ObterElementos())
        if (auto *R = dynamic_cast<TSetor *>(E.get())) {
            QCOMPARE(R->AngF(), -1.0);
            R->AtribuirAngF(Finais.at(Setores++));
        }
    QCOMPARE(TextosDe(Lido), Antes);
}

void TesteFiguraXML::CadaTruncamentoERecusado()
{
    const QByteArray Inteira =
        Testes::BytesDe(Testes::DadoDeExemplo(QStringLiteral("figuras/fatias.xml"))).trimmed();
    QVERIFY(Inteira.size() > 500);
    for (qsizetype N = 0; N < Inteira.size(); ++N) {
        Testes::EscreverBytes(Nome("curta.xml"), Inteira.first(N));
        TSimboloVetorial S;
        QVERIFY_THROWS_EXCEPTION(EDOMParseError, S.LerArquivo(Nome("curta.xml")));
        QCOMPARE(S.ObterElementos().Count(), 0);
    }
}

void TesteFiguraXML::BombaDeEntidades()
{
    QString DTD = QStringLiteral("<!DOCTYPE FiguraVet [<!ENTITY e0 'bum'>");
    for (int I = 1; I < 12; ++I)
        DTD += QStringLiteral("<!ENTITY e%1 '").arg(I) + QStringLiteral("&e%1;").arg(I - 1).repeated(10) +
               QStringLiteral("'>");
    TSimboloVetorial S;
    QElapsedTimer Relogio;
    Relogio.start();
    QVERIFY_THROWS_EXCEPTION(
        EDOMParseError, S.Atualizar(DTD + QStringLiteral("]><FiguraVet><Texto Texto='&e11;'/></FiguraVet>")));
    QVERIFY(Relogio.elapsed() < 5000);
}

void TesteFiguraXML::EntidadeExternaNaoELida()
{
    Testes::EscreverBytes(Nome("segredo.txt"), "77");
    Testes::EscreverBytes(Nome("externa.xml"),
                          "<!DOCTYPE FiguraVet [<!ELEMENT FiguraVet ANY><!ENTITY s SYSTEM 'segredo.txt'>]>"
                          "<FiguraVet>&s;</FiguraVet>");
    TSimboloVetorial S;
    QVERIFY_THROWS_EXCEPTION(EDOMParseError, S.LerArquivo(Nome("externa.xml")));
}

void TesteFiguraXML::ProfundidadeCemMil()
{
    constexpr int Fundo = 100'000;
    TSimboloVetorial S;
    QElapsedTimer Relogio;
    Relogio.start();
    QVERIFY_THROWS_EXCEPTION(EDOMParseError, S.Atualizar(Figura(QStringLiteral("<a>").repeated(Fundo) +
                                                                QStringLiteral("</a>").repeated(Fundo))));
    QVERIFY(Relogio.elapsed() < 5000);
}

void TesteFiguraXML::AtributoDeCemMegabytes()
{
    Testes::EscreverBytes(Nome("grande.xml"),
                          "<FiguraVet><Texto Texto='" + QByteArray(100'000'000, 'x') + "'/></FiguraVet>");
    TSimboloVetorial S;
    QElapsedTimer Relogio;
    Relogio.start();
    QVERIFY_THROWS_EXCEPTION(EDOMParseError, S.LerArquivo(Nome("grande.xml")));
    QVERIFY(Relogio.elapsed() < 20'000);
    QFile::remove(Nome("grande.xml"));
}

QTEST_MAIN(TesteFiguraXML)
#include "TesteFiguraXML.moc"
