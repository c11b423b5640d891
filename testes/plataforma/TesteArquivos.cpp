// SPDX-License-Identifier: LGPL-2.1-or-later
// Files by name, text files of records, lists of lines.
#include "comum/Dados.h"
#include "plataforma/Arquivo.h"
#include "plataforma/ArquivoTexto.h"
#include "plataforma/Exception.h"
#include "plataforma/SeparadorDecimal.h"
#include "plataforma/Strings.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <limits>
#include <memory>
#include <vector>

using namespace Sibrel;
using namespace Sibrel::Testes;

class TesteArquivos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void NomesDoWindows_data();
    void NomesDoWindows();
    void OExatoGanhaDoQueSoDifereNaCaixa();
    void PastaNaoEArquivo();
    void NomeComCaracterZeroNaoENenhum();
    void NomesParaGravar();
    void Relativos_data();
    void Relativos();
    void PastaDoNome();
    void LerUmaPastaEErro();
    void LerOQueNaoExisteEErro();
    void GravarComFalhaDeixaOQueHavia();
    void TextoPelaMarcaOuPor1252();

    void InteirosSaltamLinhas();
    void NumerosMalformados_data();
    void NumerosMalformados();
    void FimAntesDoNumero();
    void CaracteresNaoPassamDaLinha();
    void LfECrLfTerminamLinhas();
    void ALinhaDoErro();
    void RegistrosDentroDeRegistrosTemLimite();
    void EscreverRecusaQuebraDeLinhaEForaDaPagina();
    void Colunas();

    void LinhasENomes();
    void NomesSemCaixaComAcentos();
    void ValorVazioRemoveALinha();
    void TextoComQualquerFimDeLinha();
    void IndiceForaDaListaDeTextos();
    void AcrescentarAListaAElaMesma();
    void OnChangeACadaMudanca();
    void GravarRecusaAntesDeTocarNoArquivo();
    void SeparadorDecimalDoProcesso();

private:
    QTemporaryDir Pasta;
};

void TesteArquivos::initTestCase()
{
    QVERIFY(QDir(Pasta.path()).mkpath(QStringLiteral("Figuras/Sub")));
    EscreverBytes(Pasta.filePath(QStringLiteral("Figuras/Sub/Ponte Nova.BMP")), "x");
    EscreverBytes(Pasta.filePath(QStringLiteral("Figuras/Ação.png")), "x");
    QDir::setCurrent(Pasta.path());
}

void TesteArquivos::NomesDoWindows_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Resolvido");
    const QString Real = QStringLiteral("Figuras/Sub/Ponte Nova.BMP");
    QTest::newRow("exato") << Real << Real;
    QTest::newRow("barras invertidas") << QStringLiteral("Figuras\\Sub\\Ponte Nova.BMP") << Real;
    QTest::newRow("outra caixa") << QStringLiteral("figuras\\SUB\\ponte nova.bmp") << Real;
    QTest::newRow("acentos em outra caixa")
        << QStringLiteral("figuras/aÇÃO.PNG") << QStringLiteral("Figuras/Ação.png");
    QTest::newRow("absoluto") << Pasta.filePath(QStringLiteral("FIGURAS\\sub\\PONTE NOVA.BMP"))
                              << Pasta.filePath(Real);
    QTest::newRow("pasta atual e de cima") << QStringLiteral(".\\figuras\\..\\Figuras\\sub\\ponte nova.bmp")
                                           << QStringLiteral("./Figuras/../Figuras/Sub/Ponte Nova.BMP");
    QTest::newRow("inexistente so troca as barras")
        << QStringLiteral("nada\\Aqui.bmp") << QStringLiteral("nada/Aqui.bmp");
    QTest::newRow("vazio") << QString() << QString();
}

void TesteArquivos::NomesDoWindows()
{
    QFETCH(QString, Nome);
    QTEST(ResolverNomeDeArquivo(Nome), "Resolvido");
}

void TesteArquivos::OExatoGanhaDoQueSoDifereNaCaixa()
{
    EscreverBytes(QStringLiteral("igual.txt"), "1");
    EscreverBytes(QStringLiteral("IGUAL.txt"), "2");
    QCOMPARE(ResolverNomeDeArquivo(QStringLiteral("igual.txt")), QStringLiteral("igual.txt"));
    QCOMPARE(ResolverNomeDeArquivo(QStringLiteral("IGUAL.txt")), QStringLiteral("IGUAL.txt"));
}

void TesteArquivos::PastaNaoEArquivo()
{
    QVERIFY(!ArquivoExiste(QStringLiteral("Figuras")));
    QVERIFY(!ArquivoExiste(QString()));
    QVERIFY(ArquivoExiste(QStringLiteral("figuras\\sub\\ponte nova.bmp")));
}

void TesteArquivos::NomeComCaracterZeroNaoENenhum()
{
    QString Nome = QStringLiteral("igual.txt");
    QVERIFY(ArquivoExiste(Nome));
    Nome.insert(5, QChar(u'\0'));
    QVERIFY(!ArquivoExiste(Nome));
    QCOMPARE(ResolverNomeDeArquivo(Nome), Nome);
}

void TesteArquivos::NomesParaGravar()
{
    const auto Resolvido = [](const char *Nome) { return ResolverNomeParaGravar(QString::fromUtf8(Nome)); };
    QCOMPARE(Resolvido("FIGURAS\\sub\\ponte nova.bmp"), QStringLiteral("Figuras/Sub/Ponte Nova.BMP"));
    QCOMPARE(Resolvido("figuras\\SUB\\Outra.txt"), QStringLiteral("Figuras/Sub/Outra.txt"));
    QCOMPARE(Resolvido("Nova.txt"), QStringLiteral("Nova.txt"));
    QCOMPARE(Resolvido("nenhuma\\nova.txt"), QStringLiteral("nenhuma/nova.txt"));
    QCOMPARE(Resolvido("/nova.txt"), QStringLiteral("/nova.txt"));
    QCOMPARE(Resolvido(""), QString());
    GravarArquivoInteiro(QStringLiteral("figuras\\sub\\gravada.txt"), "x");
    QCOMPARE(BytesDe(QStringLiteral("Figuras/Sub/gravada.txt")), QByteArray("x"));
}

void TesteArquivos::Relativos_data()
{
    QTest::addColumn<QString>("PastaBase");
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Relativo");
    const auto Caso = [](const char *Titulo, const char *Base, const char *Nome, const char *Relativo) {
        QTest::newRow(Titulo) << QString::fromUtf8(Base) << QString::fromUtf8(Nome)
                              << QString::fromUtf8(Relativo);
    };
    Caso("abaixo", "C:\\simbolos", "C:\\simbolos\\figuras\\alvo.xml", "figuras\\alvo.xml");
    Caso("ao lado", "C:\\simbolos", "C:\\outros\\alvo.xml", "..\\outros\\alvo.xml");
    Caso("caixa da unidade e da pasta nao contam", "c:\\Simbolos", "C:\\SIMBOLOS\\a.xml", "a.xml");
    Caso("outra unidade", "C:\\simbolos", "D:\\simbolos\\a.xml", "D:\\simbolos\\a.xml");
    Caso("barras", "/dados/simbolos", "/dados/simbolos/figuras/alvo.xml", "figuras/alvo.xml");
    Caso("caixa conta fora do Windows", "/dados/Simbolos", "/dados/simbolos/a.xml", "../simbolos/a.xml");
    Caso("ja relativo", "/dados", "figuras/alvo.xml", "figuras/alvo.xml");
    Caso("na propria pasta", "/dados/", "/dados/a.xml", "a.xml");
}

void TesteArquivos::Relativos()
{
    QFETCH(QString, PastaBase);
    QFETCH(QString, Nome);
    QTEST(CaminhoRelativo(PastaBase, Nome), "Relativo");
}

void TesteArquivos::PastaDoNome()
{
    QCOMPARE(PastaDe(QStringLiteral("C:\\simbolos\\lib.txt")), QStringLiteral("C:\\simbolos"));
    QCOMPARE(PastaDe(QStringLiteral("C:\\lib.txt")), QStringLiteral("C:\\"));
    QCOMPARE(PastaDe(QStringLiteral("/lib.txt")), QStringLiteral("/"));
    QCOMPARE(PastaDe(QStringLiteral("a/b.txt")), QStringLiteral("a"));
    QCOMPARE(PastaDe(QStringLiteral("lib.txt")), QString());
}

void TesteArquivos::LerUmaPastaEErro()
{
    QVERIFY_THROWS_EXCEPTION(EFOpenError, LerArquivoInteiro(QStringLiteral("Figuras")));
}

void TesteArquivos::LerOQueNaoExisteEErro()
{
    try {
        LerArquivoInteiro(QStringLiteral("nada.txt"));
        QFAIL("devia falhar");
    } catch (const EFOpenError &E) {
        QCOMPARE(E.Message, QStringLiteral("Não foi possível abrir o arquivo <nada.txt>!"));
        QVERIFY(!E.Detalhe.isEmpty());
    }
}

void TesteArquivos::GravarComFalhaDeixaOQueHavia()
{
    EscreverBytes(QStringLiteral("antes.txt"), "antes");
    GravarArquivoInteiro(QStringLiteral("antes.txt"), "depois");
    QCOMPARE(BytesDe(QStringLiteral("antes.txt")), QByteArray("depois"));
    // A folder in the way: nothing can be written by that name.
    QVERIFY_THROWS_EXCEPTION(EFCreateError, GravarArquivoInteiro(QStringLiteral("Figuras"), "x"));
    QVERIFY(QDir(QStringLiteral("Figuras")).exists());
    QVERIFY_THROWS_EXCEPTION(EFCreateError, GravarArquivoInteiro(QStringLiteral("sem/pasta.txt"), "x"));
    QVERIFY_THROWS_EXCEPTION(EFCreateError, GravarArquivoInteiro(QStringLiteral("/dev/full"), "x"));
}

void TesteArquivos::TextoPelaMarcaOuPor1252()
{
    QCOMPARE(TextoDeArquivo("\xE7\x80"), QStringLiteral("ç€"));
    QCOMPARE(TextoDeArquivo("\xEF\xBB\xBF\xC3\xA7"), QStringLiteral("ç"));
    QCOMPARE(TextoDeArquivo(QByteArray("\xFF\xFE\xE7\x00", 4)), QStringLiteral("ç"));
    QCOMPARE(TextoDeArquivo(""), QString());
}

void TesteArquivos::InteirosSaltamLinhas()
{
    TArquivoDeLeitura A("  \t12\r\n\r\n -7 +3\n2147483647 -2147483648", QStringLiteral("x"));
    QCOMPARE(A.LerInteiro(), 12);
    QCOMPARE(A.Linha(), 1);
    QCOMPARE(A.LerInteiro(), -7);
    QCOMPARE(A.Linha(), 3);
    QCOMPARE(A.LerInteiro(), 3);
    QCOMPARE(A.LerInteiro(), std::numeric_limits<std::int32_t>::max());
    QCOMPARE(A.LerInteiro(), std::numeric_limits<std::int32_t>::min());
}

void TesteArquivos::NumerosMalformados_data()
{
    QTest::addColumn<QByteArray>("Texto");
    QTest::addColumn<bool>("Inteiro");
    for (const char *T : {"a", "1a", "1.0", "--1", "+-1", "+", "2147483648", "0x1F", "1,0", "\"1\""})
        QTest::addRow("inteiro %s", T) << QByteArray(T) << true;
    for (const char *T : {"a", "1,00", "1.0.0", "nan", "inf", "1e999", "--1", ".", "+"})
        QTest::addRow("real %s", T) << QByteArray(T) << false;
}

void TesteArquivos::NumerosMalformados()
{
    QFETCH(QByteArray, Texto);
    QFETCH(bool, Inteiro);
    TArquivoDeLeitura A(Texto, QStringLiteral("x"));
    if (Inteiro)
        QVERIFY_THROWS_EXCEPTION(EInOutError, A.LerInteiro());
    else
        QVERIFY_THROWS_EXCEPTION(EInOutError, A.LerReal());
}

void TesteArquivos::FimAntesDoNumero()
{
    TArquivoDeLeitura A(" \r\n ", QStringLiteral("x"));
    QVERIFY_THROWS_EXCEPTION(EInOutError, A.LerInteiro());
}

void TesteArquivos::CaracteresNaoPassamDaLinha()
{
    TArquivoDeLeitura A("abc\r\ndefghijklmnop", QStringLiteral("x"));
    QCOMPARE(A.LerCaracteres(10), QStringLiteral("abc"));
    QVERIFY(A.FimDaLinha());
    QCOMPARE(A.LerCaracteres(10), QString());
    A.ProximaLinha();
    QCOMPARE(A.LerCaracteres(10), QStringLiteral("defghijklm"));
    QCOMPARE(A.LerCaracteres(-1), QString());
    QCOMPARE(A.LerRestoDaLinha(), QStringLiteral("nop"));
    QVERIFY(A.FimDoArquivo());
    A.ProximaLinha();
    QVERIFY(A.FimDoArquivo());
}

void TesteArquivos::LfECrLfTerminamLinhas()
{
    TArquivoDeLeitura A("a\nb\r\nc\rd\n", QStringLiteral("x"));
    for (const char *Linha : {"a", "b", "c\rd"}) {
        QCOMPARE(A.LerRestoDaLinha(), QString::fromLatin1(Linha));
        A.ProximaLinha();
    }
    QVERIFY(A.FimDoArquivo());
}

void TesteArquivos::ALinhaDoErro()
{
    TArquivoDeLeitura A("1\r\n2\r\nx\r\n", QStringLiteral("lib.txt"));
    A.LerInteiro();
    A.LerInteiro();
    try {
        A.LerInteiro();
        QFAIL("devia falhar");
    } catch (const EInOutError &E) {
        QCOMPARE(E.Detalhe, QStringLiteral("<x> não é um número inteiro. Arquivo <lib.txt>, linha 3."));
    }
}

void TesteArquivos::RegistrosDentroDeRegistrosTemLimite()
{
    TArquivoDeLeitura A("1\r\n", QStringLiteral("lib.txt"));
    std::vector<std::unique_ptr<TArquivoDeLeitura::TNivel>> Niveis;
    for (int Vez = 0; Vez < 2; ++Vez) { // what was left counts no more
        for (int I = 0; I < TArquivoDeLeitura::MaiorProfundidade; ++I)
            Niveis.push_back(std::make_unique<TArquivoDeLeitura::TNivel>(A));
        QVERIFY_THROWS_EXCEPTION(EInOutError, TArquivoDeLeitura::TNivel{A});
        QVERIFY_THROWS_EXCEPTION(EInOutError, TArquivoDeLeitura::TNivel{A});
        Niveis.clear();
    }
}

void TesteArquivos::EscreverRecusaQuebraDeLinhaEForaDaPagina()
{
    TArquivoDeGravacao A;
    A.Escrever(u"ação ");
    QVERIFY_THROWS_EXCEPTION(EConvertError, A.Escrever(u"a\nb"));
    QVERIFY_THROWS_EXCEPTION(EConvertError, A.Escrever(u"a\rb"));
    QVERIFY_THROWS_EXCEPTION(EConvertError, A.Escrever(u"Ω"));
    A.ProximaLinha();
    QCOMPARE(A.Bytes(), QByteArray("a\xE7\xE3o \r\n"));
}

void TesteArquivos::Colunas()
{
    QCOMPARE(ADireita(3, 5), QStringLiteral("    3"));
    QCOMPARE(ADireita(-123456, 5), QStringLiteral("-123456"));
    QCOMPARE(AEsquerda(QStringLiteral("Fonte"), 10), QStringLiteral("Fonte     "));
    QCOMPARE(AEsquerda(QStringLiteral("Comprido demais"), 10), QStringLiteral("Comprido demais"));
    QCOMPARE(SemBrancos(u"\t a b \r\n"), QStringLiteral("a b"));
    QCOMPARE(SemBrancos(u" \t "), QString());
}

void TesteArquivos::LinhasENomes()
{
    TStringList L({QStringLiteral("a=1"), QStringLiteral("sem igual"), QStringLiteral("=sem nome"),
                   QStringLiteral("a=2"), QStringLiteral("b=x=y")});
    QCOMPARE(L.Names(0), QStringLiteral("a"));
    QCOMPARE(L.Names(1), QString());
    QCOMPARE(L.Values(u"a"), QStringLiteral("1"));
    QCOMPARE(L.Values(u"b"), QStringLiteral("x=y"));
    QCOMPARE(L.IndexOfName(u"a"), 0);
    QCOMPARE(L.IndexOfName(u""), 2); // the line without "=" has no name at all
    QCOMPARE(L.IndexOfName(u"sem igual"), -1);
    QCOMPARE(L.Values(u"nada"), QString());
    QCOMPARE(L.IndexOf(QStringLiteral("A=2")), 3);
}

void TesteArquivos::NomesSemCaixaComAcentos()
{
    const TStringList L({QStringLiteral("Posição=1")});
    QCOMPARE(L.IndexOfName(u"POSIÇÃO"), 0);
    QCOMPARE(L.IndexOfName(u"POSICAO"), -1);
}

void TesteArquivos::ValorVazioRemoveALinha()
{
    TStringList L({QStringLiteral("a=1"), QStringLiteral("b=2")});
    L.AtribuirValor(QStringLiteral("A"), QString());
    QCOMPARE(L.Linhas(), QStringList{QStringLiteral("b=2")});
    L.AtribuirValor(QStringLiteral("nada"), QString());
    QCOMPARE(L.Count(), 1);
    L.AtribuirValor(QStringLiteral("c"), QStringLiteral("3"));
    L.AtribuirValor(QStringLiteral("b"), QStringLiteral("4"));
    QCOMPARE(L.Linhas(), QStringList({QStringLiteral("b=4"), QStringLiteral("c=3")}));
}

void TesteArquivos::TextoComQualquerFimDeLinha()
{
    TStringList L;
    L.AtribuirText(u"a\r\nb\nc\rd\r\n\r\ne");
    QCOMPARE(L.Linhas().join(u'|'), QStringLiteral("a|b|c|d||e"));
    QCOMPARE(L.Text(), QStringLiteral("a\r\nb\r\nc\r\nd\r\n\r\ne\r\n"));
    L.AtribuirText(u"");
    QCOMPARE(L.Count(), 0);
}

void TesteArquivos::IndiceForaDaListaDeTextos()
{
    TStringList L({QStringLiteral("a")});
    QVERIFY_THROWS_EXCEPTION(EStringListError, L.Linha(1));
    QVERIFY_THROWS_EXCEPTION(EStringListError, L.Linha(-1));
    QVERIFY_THROWS_EXCEPTION(EStringListError, L.Delete(1));
    QVERIFY_THROWS_EXCEPTION(EStringListError, L.Insert(2, QString()));
    QVERIFY_THROWS_EXCEPTION(EStringListError, L.AtribuirLinha(1, QString()));
    QCOMPARE(L.Linhas(), QStringList{QStringLiteral("a")});
}

void TesteArquivos::AcrescentarAListaAElaMesma()
{
    TStringList L({QStringLiteral("a"), QStringLiteral("b")});
    L.AddStrings(L);
    QCOMPARE(L.Linhas().join(QString()), QStringLiteral("abab"));
    L.Assign(L);
    QCOMPARE(L.Count(), 4);
}

void TesteArquivos::OnChangeACadaMudanca()
{
    TStringList L;
    int Vezes = 0;
    L.OnChange = [&](TStringList &Quem) { Vezes += &Quem == &L ? 1 : 100; };
    L.Add(QStringLiteral("a"));
    L.AtribuirLinha(0, QStringLiteral("b"));
    L.Delete(0);
    L.Clear(); // empty already: nothing changes
    L.AtribuirText(u"x\ny");
    QCOMPARE(Vezes, 4);
    const TStringList Copia = L;
    QVERIFY(!Copia.OnChange);
}

void TesteArquivos::GravarRecusaAntesDeTocarNoArquivo()
{
    EscreverBytes(QStringLiteral("linhas.txt"), "antes");
    const TStringList L({QStringLiteral("Ω")});
    QVERIFY_THROWS_EXCEPTION(EConvertError, L.SaveToFile(QStringLiteral("linhas.txt")));
    QCOMPARE(BytesDe(QStringLiteral("linhas.txt")), QByteArray("antes"));
    TStringList M({QStringLiteral("ação"), QStringLiteral("€")});
    M.SaveToFile(QStringLiteral("linhas.txt"));
    QCOMPARE(BytesDe(QStringLiteral("linhas.txt")), QByteArray("a\xE7\xE3o\r\n\x80\r\n"));
    TStringList Lida;
    Lida.LoadFromFile(QStringLiteral("LINHAS.TXT"));
    QCOMPARE(Lida.Linhas(), M.Linhas());
}

void TesteArquivos::SeparadorDecimalDoProcesso()
{
    const QChar Antes = SeparadorDecimal();
    AtribuirSeparadorDecimal(u',');
    QCOMPARE(FormatarDecimal(1, 2), QStringLiteral("1,00"));
    AtribuirSeparadorDecimal(u'.');
    QCOMPARE(FormatarDecimal(0.125, 2), QStringLiteral("0.13"));
    QCOMPARE(FormatarDecimal(-0.125, 2), QStringLiteral("-0.13"));
    QCOMPARE(FormatarDecimal(0.8, 2), QStringLiteral("0.80"));
    QCOMPARE(FormatarDecimal(0.145, 2), QStringLiteral("0.14")); // the double below it
    QCOMPARE(FormatarDecimal(123456.789, 2), QStringLiteral("123456.79"));
    AtribuirSeparadorDecimal(Antes);
}

QTEST_MAIN(TesteArquivos)
#include "TesteArquivos.moc"
