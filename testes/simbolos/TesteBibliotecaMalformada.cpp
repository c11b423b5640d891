// SPDX-License-Identifier: LGPL-2.1-or-later
// Damaged libraries: each is read as a slow and literal reader says, or fails as it does; none takes long.
#include "comum/Erros.h"
#include "plataforma/ArquivoTexto.h"
#include "simbolos/ArquivosDeTeste.h"
#include "simbolos/LeitorDeReferencia.h"
#include "simbolos/SimbolosDeTeste.h"
#include "simbolos/TabelaDeSimbolos.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

QStringList Descrever(ISimbolo &Simbolo, const QString &Recuo = {})
{
    if (const auto *Fonte = dynamic_cast<TSimboloFonte *>(&Simbolo))
        return {QStringLiteral("%1Fonte %2 %3 %4 <%5>")
                    .arg(Recuo)
                    .arg(Fonte->Caracter)
                    .arg(Fonte->Fonte.Charset())
                    .arg(Fonte->Proporcao)
                    .arg(Fonte->Fonte.Name())};
    if (const auto *Grafico = dynamic_cast<TSimboloGrafico *>(&Simbolo))
        return {QStringLiteral("%1Grafico <%2>").arg(Recuo, Grafico->Arquivo)};
    QStringList Linhas{Recuo + QLatin1String("Composto")};
    for (const auto &Parte : dynamic_cast<TSimboloComposto &>(Simbolo).Lista)
        Linhas += Descrever(*Parte, Recuo + QLatin1String("  "));
    return Linhas;
}

// A library of every kind and tolerance, whose pictures are not there.
const QByteArray Pequena =
    "    8\r\n"
    "Fonte      \"Hospital\"              42     2 1.00 Wingdings \r\n"
    "Grafico    \"Ponte\"              ponte.bmp // nota\r\n"
    "Composto   \"a \"\"b\"\" c\"            3 sobra\r\n"
    "Fonte          65     0 0.80 Arial // nota\r\n"
    "Mapa      Grafico     quadro.bmp \r\n"
    "fonte      'd = e'   7\r\n258\t.5   Sibrel Simbolos\r\n"
    "Composto   f\t0\r\n"
    "Composto   \"g\"  2\nComposto   1\nGrafico    x\nfonte      1 2 3e-1 y\n"
    "Grafico    \"Divis\xE3o\" z.bmp\r\n"
    "  Fonte   \t\"Posto de Coleta de Extraviados de Divis\xE3o de Ex\xE9rcito\" 9 2 1 Arial";

class TConferidor
{
public:
    // Empty when the library and the reference agree about `Bytes`.
    QString Conferir(const QByteArray &Bytes)
    {
        TTabelaDeSimbolos Tabela;
        TResultadoDeLeitura Obtido;
        const QString Nome = FPasta.Com(Bytes);
        try {
            Tabela.Importar(Nome);
        } catch (const EInOutError &) {
            Obtido.Erro = QStringLiteral("EInOutError");
        } catch (const EInvalidOperation &) {
            Obtido.Erro = QStringLiteral("EInvalidOperation");
        }
        for (const auto &Simbolo : Tabela.Simbolos())
            Obtido.Simbolos += Descrever(*Simbolo);
        Obtido.Rotulos = Tabela.ListaDeRotulos();
        const TResultadoDeLeitura Esperado = TLeitorDeReferencia(Bytes).Ler();
        ++FConferidos;
        FFalhos += Esperado.Erro.isEmpty() ? 0 : 1;
        if (Obtido == Esperado)
            return {};
        return QStringLiteral("%1\nobtido   <%2> %3 | %4\nesperado <%5> %6 | %7")
            .arg(QString::fromLatin1(Bytes), Obtido.Erro, Obtido.Simbolos.join(u';'),
                 Obtido.Rotulos.join(u';'), Esperado.Erro, Esperado.Simbolos.join(u';'),
                 Esperado.Rotulos.join(u';'));
    }
    int Conferidos() const { return FConferidos; }
    int Falhos() const { return FFalhos; }

private:
    TPastaDeTeste FPasta;
    int FConferidos = 0;
    int FFalhos = 0;
};

} // namespace

#define CONFERIR(C, Bytes)                                                                                   \
    do {                                                                                                     \
        const QString Diferenca = (C).Conferir(Bytes);                                                       \
        QVERIFY2(Diferenca.isEmpty(), qPrintable(Diferenca));                                                \
    } while (false)

class TesteBibliotecaMalformada : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void InteiraConfere();
    void CortadaEmCadaByte_data();
    void CortadaEmCadaByte();
    void CadaAlgarismoTrocadoPorLetra_data();
    void CadaAlgarismoTrocadoPorLetra();
    void CadaContagemErrada();
    void CadaByteTiradoOuTrocado();
    void MuitosEstragosAoAcaso();
    void ContagemEnormeNaoDemora();
    void CompostosFundosDemaisSaoRecusados();
    void UmaLinhaEnormeNaoDemora();

private:
    void BibliotecasInteiras()
    {
        QTest::addColumn<QByteArray>("Inteira");
        QTest::newRow("pequena") << Pequena;
        QTest::newRow("a de exemplo") << BytesDe(DadoDeExemplo(QStringLiteral("simbolos.txt")));
    }
};

void TesteBibliotecaMalformada::InteiraConfere()
{
    TConferidor C;
    CONFERIR(C, Pequena);
    CONFERIR(C, BytesDe(DadoDeExemplo(QStringLiteral("simbolos.txt"))));
    QCOMPARE(C.Falhos(), 0);
}

void TesteBibliotecaMalformada::CortadaEmCadaByte_data()
{
    BibliotecasInteiras();
}

void TesteBibliotecaMalformada::CortadaEmCadaByte()
{
    QFETCH(QByteArray, Inteira);
    TConferidor C;
    for (qsizetype I = 0; I < Inteira.size(); ++I)
        CONFERIR(C, Inteira.first(I));
    QCOMPARE(C.Conferidos(), Inteira.size());
    QVERIFY(C.Falhos() > Inteira.size() * 9 / 10);
}

void TesteBibliotecaMalformada::CadaAlgarismoTrocadoPorLetra_data()
{
    BibliotecasInteiras();
}

void TesteBibliotecaMalformada::CadaAlgarismoTrocadoPorLetra()
{
    QFETCH(QByteArray, Inteira);
    TConferidor C;
    for (qsizetype I = 0; I < Inteira.size(); ++I)
        if (Inteira[I] >= '0' && Inteira[I] <= '9')
            for (const char Letra : {'x', 'e'})
                CONFERIR(C, QByteArray(Inteira).replace(I, 1, QByteArray(1, Letra)));
    QVERIFY(C.Conferidos() > 30);
    QVERIFY(C.Falhos() > C.Conferidos() / 2);
}

void TesteBibliotecaMalformada::CadaContagemErrada()
{
    TConferidor C;
    // The count line and the counts of the composites, by the text in front of them.
    for (const QByteArray &Antes :
         {QByteArray(), QByteArray("\"a \"\"b\"\" c\"            "), QByteArray("\"g\"  "),
          QByteArray("Composto   f\t"), QByteArray("\nComposto   ")}) {
        const qsizetype Onde = Antes.isEmpty() ? 4 : Pequena.lastIndexOf(Antes) + Antes.size();
        QVERIFY(Pequena[Onde] >= '0' && Pequena[Onde] <= '9');
        for (const char *Contagem :
             {"-2147483648", "-1", "-0", "0", "1", "2", "3", "7", "9", "100", "2147483647", "2147483648",
              "-2147483649", "99999999999999999999", "", "+3", "3.0", "0x3"})
            CONFERIR(C, QByteArray(Pequena).replace(Onde, 1, Contagem));
    }
}

void TesteBibliotecaMalformada::CadaByteTiradoOuTrocado()
{
    TConferidor C;
    for (qsizetype I = 0; I < Pequena.size(); ++I) {
        CONFERIR(C, QByteArray(Pequena).remove(I, 1));
        for (const char Byte : {'"', '\'', ' ', '\n', '\r', '/', '\0', '\xFF', '9'})
            CONFERIR(C, QByteArray(Pequena).replace(I, 1, QByteArray(1, Byte)));
    }
}

void TesteBibliotecaMalformada::MuitosEstragosAoAcaso()
{
    QRandomGenerator Acaso(20240717);
    TConferidor C;
    for (int Vez = 0; Vez < 5000; ++Vez) {
        QByteArray Bytes = Pequena;
        for (int Estragos = Acaso.bounded(1, 6); Estragos > 0; --Estragos) {
            const qsizetype Onde = Acaso.bounded(static_cast<int>(Bytes.size()));
            const qsizetype De = Acaso.bounded(static_cast<int>(Pequena.size()));
            Bytes.replace(Onde, Acaso.bounded(12), Pequena.mid(De, Acaso.bounded(12)));
            if (Bytes.isEmpty())
                Bytes = "1";
        }
        CONFERIR(C, Bytes);
    }
    // Both outcomes must have been seen, else nothing was compared.
    QVERIFY(C.Falhos() > 1000);
    QVERIFY(C.Falhos() < 5000);
}

void TesteBibliotecaMalformada::ContagemEnormeNaoDemora()
{
    const TPastaDeTeste Pasta;
    QElapsedTimer Tempo;
    Tempo.start();
    for (const QByteArray &Bytes :
         {QByteArray("2147483647\r\n"), QByteArray("2147483647\r\nFonte      \"a\" 1 2 1 Arial\r\n"),
          QByteArray("1\r\nComposto   \"a\" 2147483647\r\n"),
          QByteArray("1\r\nComposto   \"a\" 2147483647\r\n\r\n\r\n"),
          QByteArray("2\r\nComposto   \"a\" 2147483647\r\nMapa      \r\nFonte      \"b\" 1 2 1 Arial\r\n")}) {
        TTabelaDeSimbolos Tabela;
        const QString Nome = Pasta.Com(Bytes);
        bool Falhou = false;
        try {
            Tabela.Importar(Nome);
        } catch (const Exception &) {
            Falhou = true;
        }
        QVERIFY(Falhou || Tabela.Simbolos().Count() == 1);
        QVERIFY(Tabela.Simbolos().Capacity() < 1000); // nothing is set aside for a count that no file holds
    }
    QVERIFY2(Tempo.elapsed() < 5000, qPrintable(QString::number(Tempo.elapsed())));
}

void TesteBibliotecaMalformada::CompostosFundosDemaisSaoRecusados()
{
    const TPastaDeTeste Pasta;
    const auto Aninhada = [](int Fundo) {
        return "1\r\nComposto   \"a\" 1\r\n" + QByteArray("Composto   1\r\n").repeated(Fundo - 1) +
               "Fonte      42 2 1 Arial\r\n";
    };
    constexpr int Limite = TArquivoDeLeitura::MaiorProfundidade;
    TTabelaDeSimbolos Cabe;
    Cabe.Importar(Pasta.Com(Aninhada(Limite)));
    QCOMPARE(Descrever(*Cabe.Simbolos().First()).size(), Limite + 1);
    // Drawn and copied as well, by operations that call themselves.
    QImage Imagem(16, 16, QImage::Format_RGB32);
    TCanvas Canvas(Imagem);
    Cabe.Desenhar(0, Canvas, {0, 0, 16, 16});
    QCOMPARE(Descrever(*Copia(*Cabe.Simbolos().First())).size(), Limite + 1);

    for (const int Fundo : {Limite + 1, 200000}) {
        TTabelaDeSimbolos NaoCabe;
        const QString Nome = Pasta.Com(Aninhada(Fundo));
        const auto Erro = ErroDe<EInOutError>([&] { NaoCabe.Importar(Nome); });
        QVERIFY(Erro.Detalhe.contains(QStringLiteral("linha %1.").arg(Limite + 2)));
        QCOMPARE(NaoCabe.Simbolos().Count(), 0);
        QCOMPARE(NaoCabe.ListaDeRotulos(), QStringList{"a"});
    }
}

void TesteBibliotecaMalformada::UmaLinhaEnormeNaoDemora()
{
    // Each unknown part takes ten characters of the one line there is.
    constexpr int Partes = 400000;
    const TPastaDeTeste Pasta;
    const QString Nome =
        Pasta.Com("1\r\nComposto   \"a\" 400000\r\n" + QByteArray("desconhece").repeated(Partes) + "\r\n");
    TTabelaDeSimbolos Tabela;
    QElapsedTimer Tempo;
    Tempo.start();
    Tabela.Importar(Nome);
    QCOMPARE(Tabela.AvisosDaImportacao().size(), std::size_t{Partes});
    QVERIFY2(Tempo.elapsed() < 10000, qPrintable(QString::number(Tempo.elapsed())));
}

QTEST_MAIN(TesteBibliotecaMalformada)
#include "TesteBibliotecaMalformada.moc"
