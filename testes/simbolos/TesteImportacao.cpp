// SPDX-License-Identifier: LGPL-2.1-or-later
// Reading a symbol library: what the reader tolerates, how it fails, what it leaves and what it warns of.
#include "comum/Erros.h"
#include "plataforma/SeparadorDecimal.h"
#include "simbolos/ArquivosDeTeste.h"
#include "simbolos/SimbolosDeTeste.h"
#include "simbolos/TabelaDeSimbolos.h"
#include "simbolos/TratadorDeSimbolo.h"

#include <QTest>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

const QByteArray Exemplo = "    3\r\n"
                           "Fonte      \"Hospital\"              42     2 1.00 Wingdings \r\n"
                           "Grafico    \"Ponte\"              ponte.bmp \r\n"
                           "Composto   \"\"                       2 \r\n"
                           "Fonte          65     0 0.80 Arial \r\n"
                           "Grafico     quadro.bmp \r\n";

constexpr auto Quebrado = "Erro de leitura do arquivo de texto!";

// One table, its only observer and the folder of its library.
struct TCaso {
    TPastaDeTeste Pasta;
    TTabelaDeSimbolos Tabela;
    TContador Contador;

    TCaso() { Tabela.InscreverObserver(Contador); }

    void Importar(const QByteArray &Bytes) { Tabela.Importar(Pasta.Com(Bytes)); }
    template <class E>
    E Falhar(const QByteArray &Bytes)
    {
        const QString Nome = Pasta.Com(Bytes);
        return ErroDe<E>([&] { Tabela.Importar(Nome); });
    }
    TSimboloFonte &Fonte(int Indice)
    {
        return dynamic_cast<TSimboloFonte &>(*Tabela.Simbolos().Item(Indice));
    }
    TSimboloGrafico &Grafico(int Indice)
    {
        return dynamic_cast<TSimboloGrafico &>(*Tabela.Simbolos().Item(Indice));
    }
    TSimboloComposto &Composto(int Indice)
    {
        return dynamic_cast<TSimboloComposto &>(*Tabela.Simbolos().Item(Indice));
    }
    int Simbolos() const { return Tabela.Simbolos().Count(); }
    QStringList Rotulos() const { return Tabela.ListaDeRotulos(); }
};

// A library of one glyph with that label field, as it stands in the file.
QByteArray ComRotulo(const QByteArray &Rotulo)
{
    return "1\r\nFonte      " + Rotulo + " 42 2 1.00 Arial\r\n";
}

template <class Tipo>
const Tipo &Parte(const TSimboloComposto &Composto, int Indice)
{
    return dynamic_cast<const Tipo &>(*Composto.Lista.Item(Indice));
}

class TSimboloSemFabrica : public ComClasse<TSimboloSemFabrica, ISimbolo>
{
public:
    static constexpr const char *NomeDaClasse = "TSimboloSemFabrica";
    void Desenhar(TCanvas &, const TRect &) override = 0;
};

} // namespace

class TesteImportacao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { AtribuirSeparadorDecimal(u'.'); }

    void OExemplo();
    void ABibliotecaDeExemplo();
    void AcrescentaAoQueHa();
    void ContagemZeroOuNegativaAvisaUmaVez_data();
    void ContagemZeroOuNegativaAvisaUmaVez();
    void FinsDeLinhaSoComLf();
    void UltimaLinhaSemFim();
    void LinhasDepoisDaContagemSobram();

    void Rotulos_data();
    void Rotulos();
    void SoOTextoExatoDoRotuloEEscondido();
    void TipoEmOutraCaixaEComBrancosAntes();
    void TipoQuePassaDaColunaDez();
    void NumerosEmOutrasLinhasEComTabulacao();
    void CodigoECharsetFicamComOitoBits();
    void ProporcaoComVirgulaNaoVolta();
    void NomeDaFonteComESemComentario();
    void NomeDaFiguraComESemComentario();
    void RestoDaLinhaDoCompostoNaoConta();
    void ParteDesconhecidaNaoConsomeMaisNada();
    void PartesDemaisConsomemOsRegistrosSeguintes();
    void CompostoSemPartesOuComMenosQueNenhuma();

    void ArquivoAusenteNaoMudaNada();
    void PastaNaoEArquivo();
    void TipoDesconhecido();
    void RegistroSemUmaDasClasses();
    void TipoSemObjeto();
    void NumeroMalFormado_data();
    void NumeroMalFormado();
    void ContagemMalFormadaNaoMudaDePasta();
    void FimAntesDaHora_data();
    void FimAntesDaHora();
    void FiguraDanificada();

    void PastaAtualVoltaNoFim();
    void NomesDeWindows_data();
    void NomesDeWindows();
    void NomeDaBibliotecaDeWindows();
    void AvisosComALinha();
    void AvisosSaoSoDaUltimaImportacao();
    void ImportarDeDentroDeUmAviso();
};

void TesteImportacao::OExemplo()
{
    TCaso C;
    C.Pasta.Com(BytesDe(DadoDeExemplo(QStringLiteral("imagens/ponte.bmp"))), QStringLiteral("ponte.bmp"));
    C.Importar(Exemplo);
    QCOMPARE(C.Rotulos(), (QStringList{"Hospital", "Ponte", ""}));
    QCOMPARE(C.Simbolos(), 3);
    QCOMPARE(C.Fonte(0).Caracter, std::uint8_t{42});
    QCOMPARE(C.Fonte(0).Fonte.Charset(), std::uint8_t{2});
    QCOMPARE(C.Fonte(0).Fonte.Name(), QStringLiteral("Wingdings"));
    QCOMPARE(C.Fonte(0).Proporcao, 1.0);
    QCOMPARE(C.Grafico(1).Arquivo, QStringLiteral("ponte.bmp"));
    QVERIFY(C.Grafico(1).Grafico);
    QVERIFY(C.Grafico(1).Grafico->Transparent());
    const TSimboloComposto &Composto = C.Composto(2);
    QCOMPARE(Composto.Lista.Count(), 2);
    QCOMPARE(Parte<TSimboloFonte>(Composto, 0).Caracter, std::uint8_t{65});
    QCOMPARE(Parte<TSimboloFonte>(Composto, 0).Fonte.Charset(), std::uint8_t{0});
    QCOMPARE(Parte<TSimboloFonte>(Composto, 0).Fonte.Name(), QStringLiteral("Arial"));
    QCOMPARE(Parte<TSimboloFonte>(Composto, 0).Proporcao, 0.8);
    QCOMPARE(Parte<TSimboloGrafico>(Composto, 1).Arquivo, QStringLiteral("quadro.bmp"));
    QVERIFY(!Parte<TSimboloGrafico>(Composto, 1).Grafico);
    QCOMPARE(C.Contador.Avisos, 1);
}

void TesteImportacao::ABibliotecaDeExemplo()
{
    TCaso C;
    C.Tabela.Importar(DadoDeExemplo(QStringLiteral("simbolos.txt")));
    QCOMPARE(C.Simbolos(), 68);
    QCOMPARE(C.Rotulos().size(), 68);
    QCOMPARE(C.Rotulos().first(), QStringLiteral("Infantaria"));
    QCOMPARE(C.Rotulos()[15], QString());
    QCOMPARE(C.Rotulos()[17], QStringLiteral("Posto \"\"Alfa\"\" de água"));
    QCOMPARE(C.Rotulos().last(), QStringLiteral("Periscópio"));
    for (int I = 0; I < C.Simbolos(); ++I)
        if (const auto *Grafico = dynamic_cast<TSimboloGrafico *>(C.Tabela.Simbolos().Item(I)))
            QVERIFY2(Grafico->Grafico, qPrintable(Grafico->Arquivo));
    QCOMPARE(C.Contador.Avisos, 1);
}

void TesteImportacao::AcrescentaAoQueHa()
{
    TCaso C;
    C.Importar(ComRotulo("\"a\""));
    C.Importar(ComRotulo("\"b\""));
    QCOMPARE(C.Rotulos(), (QStringList{"a", "b"}));
    QCOMPARE(C.Simbolos(), 2);
    QCOMPARE(C.Contador.Avisos, 2);
}

void TesteImportacao::ContagemZeroOuNegativaAvisaUmaVez_data()
{
    QTest::addColumn<QByteArray>("Bytes");
    QTest::newRow("zero") << QByteArray("    0\r\n");
    QTest::newRow("zero, sem fim de linha") << QByteArray("0");
    QTest::newRow("zero, com registros") << QByteArray("0\r\nFonte \"a\" x\r\n");
    QTest::newRow("negativa") << QByteArray("-7\r\nlixo\r\n");
}

void TesteImportacao::ContagemZeroOuNegativaAvisaUmaVez()
{
    QFETCH(QByteArray, Bytes);
    TCaso C;
    const QString Antes = QDir::currentPath();
    C.Importar(Bytes);
    QCOMPARE(C.Simbolos(), 0);
    QVERIFY(C.Rotulos().isEmpty());
    QCOMPARE(C.Contador.Avisos, 1);
    QCOMPARE(QDir::currentPath(), Antes);
}

void TesteImportacao::FinsDeLinhaSoComLf()
{
    TCaso C;
    C.Importar(QByteArray(Exemplo).replace("\r\n", "\n"));
    QCOMPARE(C.Rotulos(), (QStringList{"Hospital", "Ponte", ""}));
    QCOMPARE(C.Fonte(0).Fonte.Name(), QStringLiteral("Wingdings"));
    QCOMPARE(C.Composto(2).Lista.Count(), 2);
}

void TesteImportacao::UltimaLinhaSemFim()
{
    TCaso C;
    C.Importar("1\r\nFonte      \"a\" 42 2 1.00 Arial");
    QCOMPARE(C.Fonte(0).Fonte.Name(), QStringLiteral("Arial"));
}

void TesteImportacao::LinhasDepoisDaContagemSobram()
{
    TCaso C;
    C.Importar(ComRotulo("\"a\"") + "qualquer coisa\r\n");
    QCOMPARE(C.Simbolos(), 1);
    QCOMPARE(C.Contador.Avisos, 1);
}

void TesteImportacao::Rotulos_data()
{
    QTest::addColumn<QByteArray>("NoArquivo");
    QTest::addColumn<QString>("Lido");
    QTest::newRow("vazio") << QByteArray("\"\"                  ") << QString();
    QTest::newRow("aspas dobradas ficam dobradas")
        << QByteArray("\"a \"\"b\"\" c\"") << QStringLiteral("a \"\"b\"\" c");
    QTest::newRow("longo") << QByteArray("\"Um rotulo com mais de dezoito letras\"")
                           << QStringLiteral("Um rotulo com mais de dezoito letras");
    QTest::newRow("acentos") << QByteArray("\"Sa\xFA"
                                           "de \x80\"")
                             << QStringLiteral("Saúde €");
    QTest::newRow("bytes sem caracter") << QByteArray("\"\x81\x9D\"") << QStringLiteral("\u0081\u009D");
    QTest::newRow("apostrofos") << QByteArray("'a \"b\" c'") << QStringLiteral("a \"b\" c");
    QTest::newRow("sem aspas") << QByteArray("Sul\t") << QStringLiteral("Sul");
    QTest::newRow("separadores antes") << QByteArray("\t = \"a\"") << QStringLiteral("a");
    QTest::newRow("separadores entre aspas") << QByteArray("\"a = \tb\"") << QStringLiteral("a = \tb");
    QTest::newRow("so aspas dobradas") << QByteArray("\"\"\"\"") << QStringLiteral("\"\"");
    QTest::newRow("o que se esconde")
        << QByteArray("\"Posto de Coleta de Extraviados de Divis\xE3o de Ex\xE9rcito\"") << QString();
    QTest::newRow("o que se esconde, apostrofos")
        << QByteArray("'Posto de Coleta de Extraviados de Divis\xE3o de Ex\xE9rcito'") << QString();
}

void TesteImportacao::Rotulos()
{
    QFETCH(QByteArray, NoArquivo);
    QFETCH(QString, Lido);
    TCaso C;
    C.Importar(ComRotulo(NoArquivo));
    QCOMPARE(C.Rotulos(), QStringList{Lido});
    QCOMPARE(C.Fonte(0).Caracter, std::uint8_t{42});
    QCOMPARE(C.Fonte(0).Fonte.Name(), QStringLiteral("Arial"));
}

void TesteImportacao::SoOTextoExatoDoRotuloEEscondido()
{
    for (const QByteArray &Texto :
         {QByteArray("Posto de Coleta de Extraviados de Divisao de Exercito"),
          QByteArray("posto de Coleta de Extraviados de Divis\xE3o de Ex\xE9rcito"),
          QByteArray("Posto de Coleta de Extraviados de Divis\xE3o de Ex\xE9rcito ")}) {
        TCaso C;
        C.Importar(ComRotulo('"' + Texto + '"'));
        QCOMPARE(C.Rotulos(), QStringList{QString::fromLatin1(Texto)});
    }
}

void TesteImportacao::TipoEmOutraCaixaEComBrancosAntes()
{
    TCaso C;
    C.Importar("3\r\nfonte      \"a\" 1 2 1 Arial\r\n  FONTE    \"b\" 2 2 1 Arial\r\n\tFonte\t    \"c\" 3 2 "
               "1 Arial\r\n");
    QCOMPARE(C.Rotulos(), (QStringList{"a", "b", "c"}));
    QCOMPARE(C.Fonte(2).Caracter, std::uint8_t{3});
}

void TesteImportacao::TipoQuePassaDaColunaDez()
{
    TCaso C;
    const auto Erro = C.Falhar<EInvalidOperation>("1\r\n       Fonte \"a\" 1 2 1 Arial\r\n");
    QCOMPARE(Erro.Message, QStringLiteral("O Tratador de Símbolo para o tipo <Fon> não foi registrado!"));
}

void TesteImportacao::NumerosEmOutrasLinhasEComTabulacao()
{
    TCaso C;
    C.Importar("\r\n \t\r\n  2\r\nFonte      \"a\"\r\n\r\n \t42\r\n2\t0.5\tArial\r\nFonte      \"b\" +7 2 "
               "1e-1 Arial\r\n");
    QCOMPARE(C.Simbolos(), 2);
    QCOMPARE(C.Fonte(0).Caracter, std::uint8_t{42});
    QCOMPARE(C.Fonte(0).Proporcao, 0.5);
    QCOMPARE(C.Fonte(0).Fonte.Name(), QStringLiteral("Arial"));
    QCOMPARE(C.Fonte(1).Caracter, std::uint8_t{7});
    QCOMPARE(C.Fonte(1).Proporcao, 0.1);
}

void TesteImportacao::CodigoECharsetFicamComOitoBits()
{
    TCaso C;
    C.Importar("2\r\nFonte      \"a\" 298 258 1 Arial\r\nFonte      \"b\" -1 -254 1 Arial\r\n");
    QCOMPARE(C.Fonte(0).Caracter, std::uint8_t{42});
    QCOMPARE(C.Fonte(0).Fonte.Charset(), std::uint8_t{2});
    QCOMPARE(C.Fonte(1).Caracter, std::uint8_t{255});
    QCOMPARE(C.Fonte(1).Fonte.Charset(), std::uint8_t{2});
}

void TesteImportacao::ProporcaoComVirgulaNaoVolta()
{
    TCaso C;
    const auto Erro = C.Falhar<EInOutError>("1\r\nFonte      \"a\" 42 2 1,00 Arial\r\n");
    QCOMPARE(Erro.Message, QLatin1String(Quebrado));
    QVERIFY2(Erro.Detalhe.contains(QStringLiteral("<1,00>")), qPrintable(Erro.Detalhe));
}

void TesteImportacao::NomeDaFonteComESemComentario()
{
    TCaso C;
    C.Importar("4\r\n"
               "Fonte      \"a\" 1 2 1   Sibrel Simbolos  \t\r\n"
               "Fonte      \"b\" 1 2 1 Sibrel Simbolos // nota // outra\r\n"
               "Fonte      \"c\" 1 2 1 Sibrel Simbolos//nota\r\n"
               "Fonte      \"d\" 1 2 1\r\n");
    QCOMPARE(C.Fonte(0).Fonte.Name(), QStringLiteral("Sibrel Simbolos"));
    QCOMPARE(C.Fonte(1).Fonte.Name(), QStringLiteral(" Sibrel Simbolos "));
    QCOMPARE(C.Fonte(2).Fonte.Name(), QStringLiteral(" Sibrel Simbolos"));
    QCOMPARE(C.Fonte(3).Fonte.Name(), QString());
}

void TesteImportacao::NomeDaFiguraComESemComentario()
{
    TCaso C;
    C.Importar("3\r\n"
               "Grafico    \"a\"  uma figura.bmp \t\r\n"
               "Grafico    \"b\" uma figura.bmp // nota\r\n"
               "Grafico    \"c\"\r\n");
    QCOMPARE(C.Grafico(0).Arquivo, QStringLiteral("uma figura.bmp"));
    QCOMPARE(C.Grafico(1).Arquivo, QStringLiteral("uma figura.bmp"));
    QCOMPARE(C.Grafico(2).Arquivo, QString());
}

void TesteImportacao::RestoDaLinhaDoCompostoNaoConta()
{
    TCaso C;
    C.Importar("1\r\nComposto   \"a\" 1 99 // nota\r\nFonte      42 2 1 Arial\r\n");
    QCOMPARE(C.Composto(0).Lista.Count(), 1);
    QCOMPARE(Parte<TSimboloFonte>(C.Composto(0), 0).Caracter, std::uint8_t{42});
}

void TesteImportacao::ParteDesconhecidaNaoConsomeMaisNada()
{
    TCaso C;
    C.Importar("2\r\nComposto   \"a\" 3\r\n"
               "Outro     Fonte      42 2 1 Arial\r\nGrafico    x.bmp\r\n"
               "Fonte      \"b\" 43 2 1 Arial\r\n");
    QCOMPARE(C.Composto(0).Lista.Count(), 2);
    QCOMPARE(Parte<TSimboloFonte>(C.Composto(0), 0).Caracter, std::uint8_t{42});
    QCOMPARE(Parte<TSimboloGrafico>(C.Composto(0), 1).Arquivo, QStringLiteral("x.bmp"));
    QCOMPARE(C.Rotulos(), (QStringList{"a", "b"}));
}

void TesteImportacao::PartesDemaisConsomemOsRegistrosSeguintes()
{
    TCaso C;
    // The count of parts is one too high: the picture's record becomes a part, label and all.
    const auto Erro = C.Falhar<EInOutError>("2\r\nComposto   \"a\" 2\r\nFonte      42 2 1 Arial\r\n"
                                            "Grafico    \"Ponte\"              ponte.bmp \r\n");
    QVERIFY(Erro.Detalhe.contains(QStringLiteral("linha 5")));
    QCOMPARE(C.Rotulos(), QStringList{"a"});
    QCOMPARE(C.Composto(0).Lista.Count(), 2);
    QCOMPARE(Parte<TSimboloGrafico>(C.Composto(0), 1).Arquivo,
             QStringLiteral("\"Ponte\"              ponte.bmp"));
}

void TesteImportacao::CompostoSemPartesOuComMenosQueNenhuma()
{
    TCaso C;
    C.Importar("3\r\nComposto   \"a\" 0\r\nComposto   \"b\" -5\r\nFonte      \"c\" 42 2 1 Arial\r\n");
    QCOMPARE(C.Composto(0).Lista.Count(), 0);
    QCOMPARE(C.Composto(1).Lista.Count(), 0);
    QCOMPARE(C.Rotulos(), (QStringList{"a", "b", "c"}));
}

void TesteImportacao::ArquivoAusenteNaoMudaNada()
{
    TCaso C;
    C.Importar(ComRotulo("\"a\""));
    const QString Antes = C.Tabela.NomeArquivo;
    const QString Pasta = QDir::currentPath();
    for (const QString &Nome : {C.Pasta.Nome(QStringLiteral("nenhum.txt")), QString()}) {
        const auto Erro = ErroDe<EFilerError>([&] { C.Tabela.Importar(Nome); });
        QCOMPARE(Erro.Message, QStringLiteral("O arquivo selecionado não está disponível ou não existe!"));
        QVERIFY(Erro.Detalhe.contains(Nome));
    }
    QCOMPARE(C.Tabela.NomeArquivo, Antes);
    QCOMPARE(C.Rotulos(), QStringList{"a"});
    QCOMPARE(C.Simbolos(), 1);
    QCOMPARE(C.Contador.Avisos, 1);
    QCOMPARE(QDir::currentPath(), Pasta);
}

void TesteImportacao::PastaNaoEArquivo()
{
    TCaso C;
    ErroDe<EFilerError>([&] { C.Tabela.Importar(C.Pasta.Caminho()); });
    QCOMPARE(C.Tabela.NomeArquivo, QString());
}

// What every failure inside the record loop leaves.
#define VERIFICAR_O_QUE_FICA(C, RotulosEsperados, SimbolosEsperados)                                         \
    QCOMPARE(C.Rotulos(), RotulosEsperados);                                                                 \
    QCOMPARE(C.Simbolos(), SimbolosEsperados);                                                               \
    QCOMPARE(C.Contador.Avisos, 0);                                                                          \
    QCOMPARE(QDir::currentPath(), C.Pasta.Caminho());                                                        \
    QCOMPARE(C.Tabela.NomeArquivo, C.Pasta.Nome(QStringLiteral("biblioteca.txt")))

void TesteImportacao::TipoDesconhecido()
{
    TCaso C;
    const auto Erro =
        C.Falhar<EInvalidOperation>("2\r\nFonte      \"a\" 42 2 1 Arial\r\nMapa       \"b\" 1 2 3\r\n");
    QCOMPARE(Erro.Message, QStringLiteral("O Tratador de Símbolo para o tipo <Mapa> não foi registrado!"));
    QCOMPARE(Erro.Detalhe, QStringLiteral("Arquivo <%1>, linha 3.").arg(C.Tabela.NomeArquivo));
    VERIFICAR_O_QUE_FICA(C, QStringList{"a"}, 1);
}

void TesteImportacao::RegistroSemUmaDasClasses()
{
    const auto Verificar = [](const TRefTratador &Tratador, const TRefSimbolo &Simbolo) {
        TListaSimbolo::RegistrarTratadorDeSimbolo(QStringLiteral("Meio"), Tratador, Simbolo);
        TCaso C;
        const auto Erro = C.Falhar<EInvalidOperation>("1\r\nMeio       \"b\" 1 2 3\r\n");
        TListaSimbolo::RemoverRegistroTratadorDeSimbolo(QStringLiteral("Meio"));
        QCOMPARE(Erro.Message,
                 QStringLiteral("O Tratador de Símbolo para o tipo <Meio> não foi registrado!"));
        VERIFICAR_O_QUE_FICA(C, QStringList{}, 0);
    };
    Verificar(nullptr, TRefSimbolo::De<TSimboloFonte>());
    Verificar(TRefTratador::De<TTratadorDeSimboloFonte>(), nullptr);
}

void TesteImportacao::TipoSemObjeto()
{
    TListaSimbolo::RegistrarTratadorDeSimbolo(QStringLiteral("Abstrato"),
                                              TRefTratador::De<TTratadorDeSimboloFonte>(),
                                              TRefSimbolo::De<TSimboloSemFabrica>());
    {
        TCaso C;
        const auto Erro = C.Falhar<EInvalidOperation>("1\r\nabstrato   \"b\" 1 2 3\r\n");
        QCOMPARE(Erro.Message, QStringLiteral("O tipo de Símbolo <abstrato> não é suportado!"));
        QCOMPARE(Erro.Detalhe, QStringLiteral("Arquivo <%1>, linha 2.").arg(C.Tabela.NomeArquivo));
        VERIFICAR_O_QUE_FICA(C, QStringList{}, 0);
    }
    {
        TCaso C;
        const auto Erro = C.Falhar<EInvalidOperation>("1\r\nComposto   \"b\" 1\r\nabstrato   1 2 3\r\n");
        QCOMPARE(Erro.Message, QStringLiteral("O tipo de Símbolo <abstrato> não é suportado!"));
        VERIFICAR_O_QUE_FICA(C, QStringList{"b"}, 0);
    }
    TListaSimbolo::RemoverRegistroTratadorDeSimbolo(QStringLiteral("Abstrato"));
}

void TesteImportacao::NumeroMalFormado_data()
{
    QTest::addColumn<QByteArray>("Campos");
    QTest::newRow("codigo") << QByteArray("4x 2 1 Arial");
    QTest::newRow("codigo real") << QByteArray("4.5 2 1 Arial");
    QTest::newRow("codigo enorme") << QByteArray("4294967296 2 1 Arial");
    QTest::newRow("charset") << QByteArray("42 dois 1 Arial");
    QTest::newRow("proporcao") << QByteArray("42 2 um Arial");
    QTest::newRow("proporcao infinita") << QByteArray("42 2 inf Arial");
    QTest::newRow("proporcao sem valor") << QByteArray("42 2 nan Arial");
    QTest::newRow("proporcao enorme") << QByteArray("42 2 1e999 Arial");
    QTest::newRow("so o sinal") << QByteArray("- 2 1 Arial");
    QTest::newRow("dois sinais") << QByteArray("+-4 2 1 Arial");
}

void TesteImportacao::NumeroMalFormado()
{
    QFETCH(QByteArray, Campos);
    TCaso C;
    const auto Erro =
        C.Falhar<EInOutError>("2\r\nFonte      \"a\" 42 2 1 Arial\r\nFonte      \"b\" " + Campos);
    QCOMPARE(Erro.Message, QLatin1String(Quebrado));
    QVERIFY(Erro.Detalhe.endsWith(QStringLiteral("Arquivo <%1>, linha 3.").arg(C.Tabela.NomeArquivo)));
    VERIFICAR_O_QUE_FICA(C, (QStringList{"a", "b"}), 1);
}

void TesteImportacao::ContagemMalFormadaNaoMudaDePasta()
{
    for (const QByteArray &Bytes : {QByteArray("tres\r\n"), QByteArray(""), QByteArray("\r\n \t"),
                                    QByteArray("3.0\r\n"), QByteArray("99999999999\r\n")}) {
        TCaso C;
        const QString Antes = QDir::currentPath();
        QCOMPARE(C.Falhar<EInOutError>(Bytes).Message, QLatin1String(Quebrado));
        QCOMPARE(QDir::currentPath(), Antes);
        QCOMPARE(C.Tabela.NomeArquivo, C.Pasta.Nome(QStringLiteral("biblioteca.txt")));
        QCOMPARE(C.Contador.Avisos, 0);
    }
}

void TesteImportacao::FimAntesDaHora_data()
{
    QTest::addColumn<QByteArray>("Bytes");
    QTest::addColumn<QStringList>("Rotulos");
    QTest::addColumn<int>("Simbolos");
    QTest::newRow("onde se espera o tipo")
        << QByteArray("2\r\nFonte      \"a\" 1 2 1 Arial\r\n") << QStringList{"a"} << 1;
    QTest::newRow("depois do tipo") << QByteArray("1\r\nFonte") << QStringList{""} << 0;
    QTest::newRow("depois do rotulo") << QByteArray("1\r\nFonte      \"a\"") << QStringList{"a"} << 0;
    QTest::newRow("depois do codigo") << QByteArray("1\r\nFonte      \"a\" 1\r\n") << QStringList{"a"} << 0;
    QTest::newRow("antes das partes") << QByteArray("1\r\nComposto   \"a\" 1\r\n") << QStringList{"a"} << 0;
    QTest::newRow("entre as partes") << QByteArray("1\r\nComposto   \"a\" 2\r\nGrafico    x\r\n")
                                     << QStringList{"a"} << 0;
}

void TesteImportacao::FimAntesDaHora()
{
    QFETCH(QByteArray, Bytes);
    QFETCH(QStringList, Rotulos);
    QFETCH(int, Simbolos);
    TCaso C;
    QCOMPARE(C.Falhar<EInOutError>(Bytes).Message, QLatin1String(Quebrado));
    VERIFICAR_O_QUE_FICA(C, Rotulos, Simbolos);
}

void TesteImportacao::FiguraDanificada()
{
    TCaso C;
    C.Pasta.Com("isto não é uma figura", QStringLiteral("ruim.png"));
    const auto Erro =
        C.Falhar<EInvalidGraphic>("2\r\nFonte      \"a\" 42 2 1 Arial\r\nGrafico    \"b\" ruim.png\r\n");
    QCOMPARE(Erro.Message, QStringLiteral("Não foi possível ler a figura <ruim.png>!"));
    QVERIFY(Erro.Detalhe.contains(QStringLiteral("linha 3.")));
    VERIFICAR_O_QUE_FICA(C, (QStringList{"a", "b"}), 1);
    QCOMPARE(C.Tabela.AvisosDaImportacao().back().Tipo, TTipoDeAviso::FiguraIlegivel);
    QCOMPARE(C.Tabela.AvisosDaImportacao().back().Linha, 3);
}

void TesteImportacao::PastaAtualVoltaNoFim()
{
    TCaso C;
    const TPastaDeTeste Outra;
    QVERIFY(QDir::setCurrent(Outra.Caminho()));
    C.Importar(Exemplo);
    QCOMPARE(QDir::currentPath(), Outra.Caminho());
    // By a name without a folder too.
    QVERIFY(QDir::setCurrent(C.Pasta.Caminho()));
    C.Tabela.Importar(QStringLiteral("biblioteca.txt"));
    QCOMPARE(QDir::currentPath(), C.Pasta.Caminho());
    QCOMPARE(C.Simbolos(), 6);
}

void TesteImportacao::NomesDeWindows_data()
{
    QTest::addColumn<QString>("Nome");
    for (const char *Nome : {"figuras\\ponte.bmp", "figuras/ponte.bmp", "FIGURAS\\Ponte.BMP",
                             ".\\figuras\\ponte.bmp", "figuras\\..\\Figuras\\PONTE.bmp"})
        QTest::newRow(Nome) << QString::fromLatin1(Nome);
}

void TesteImportacao::NomesDeWindows()
{
    QFETCH(QString, Nome);
    TCaso C;
    QVERIFY(QDir(C.Pasta.Caminho()).mkdir(QStringLiteral("figuras")));
    C.Pasta.Com(BytesDe(DadoDeExemplo(QStringLiteral("imagens/ponte.bmp"))),
                QStringLiteral("figuras/ponte.bmp"));
    C.Importar("1\r\nGrafico    \"a\" " + Nome.toLatin1() + "\r\n");
    QVERIFY(C.Grafico(0).Grafico);
    QCOMPARE(C.Grafico(0).Arquivo, Nome); // as given, so that it is written as it was read
    QVERIFY(C.Tabela.AvisosDaImportacao().empty());
}

void TesteImportacao::NomeDaBibliotecaDeWindows()
{
    TCaso C;
    QVERIFY(QDir(C.Pasta.Caminho()).mkdir(QStringLiteral("Bib")));
    C.Pasta.Com(BytesDe(DadoDeExemplo(QStringLiteral("imagens/ponte.bmp"))), QStringLiteral("Bib/ponte.bmp"));
    C.Pasta.Com("1\r\nGrafico    \"a\" ponte.bmp\r\n", QStringLiteral("Bib/Lib.txt"));
    const QString Nome = C.Pasta.Nome(QStringLiteral("bib\\LIB.TXT"));
    C.Tabela.Importar(Nome);
    QCOMPARE(C.Tabela.NomeArquivo, Nome);
    QVERIFY(C.Grafico(0).Grafico);
}

void TesteImportacao::AvisosComALinha()
{
    CarregarFontes();
    TCaso C;
    C.Importar("4\r\nFonte      \"a\" 42\r\n2 1 Fonte Que Ninguem Tem\r\n"
               "Fonte      \"b\" 42 2 1 sibrel SIMBOLOS\r\n"
               "Composto   \"c\" 3\r\nGrafico    nenhuma.bmp\r\nMapa      Grafico    terceira.bmp\r\n"
               "Grafico    \"d\" .\\nenhuma outra.bmp // nota\r\n");
    const auto &Avisos = C.Tabela.AvisosDaImportacao();
    QCOMPARE(Avisos.size(), std::size_t{5});
    QCOMPARE(Avisos[0].Linha, 3);
    QCOMPARE(Avisos[0].Tipo, TTipoDeAviso::FonteNaoInstalada);
    QCOMPARE(Avisos[0].Texto, QStringLiteral("A fonte <Fonte Que Ninguem Tem> não está instalada."));
    QCOMPARE(Avisos[1].Linha, 6);
    QCOMPARE(Avisos[1].Tipo, TTipoDeAviso::FiguraAusente);
    QCOMPARE(Avisos[1].Texto, QStringLiteral("A figura <nenhuma.bmp> não existe."));
    QCOMPARE(Avisos[2].Linha, 7);
    QCOMPARE(Avisos[2].Tipo, TTipoDeAviso::TipoDesconhecido);
    QCOMPARE(Avisos[2].Texto, QStringLiteral("A parte do tipo <Mapa> não é conhecida."));
    QCOMPARE(Avisos[3].Linha, 7);
    QCOMPARE(Avisos[3].Texto, QStringLiteral("A figura <terceira.bmp> não existe."));
    QCOMPARE(Avisos[4].Linha, 8);
    QCOMPARE(Avisos[4].Texto, QStringLiteral("A figura <.\\nenhuma outra.bmp> não existe."));
}

void TesteImportacao::AvisosSaoSoDaUltimaImportacao()
{
    TCaso C;
    C.Importar("1\r\nGrafico    \"a\" nenhuma.bmp\r\n");
    QCOMPARE(C.Tabela.AvisosDaImportacao().size(), std::size_t{1});
    C.Importar("0\r\n");
    QVERIFY(C.Tabela.AvisosDaImportacao().empty());
}

void TesteImportacao::ImportarDeDentroDeUmAviso()
{
    class TOutraVez : public TObserver
    {
    public:
        int Vezes = 0;
        void Avisado(TSubject &Assunto) override
        {
            auto &Tabela = dynamic_cast<TTabelaDeSimbolos &>(Assunto);
            if (++Vezes == 1)
                Tabela.Importar(QString(Tabela.NomeArquivo));
        }
    };
    TCaso C;
    TOutraVez OutraVez;
    C.Tabela.InscreverObserver(OutraVez);
    C.Importar(ComRotulo("\"a\""));
    QCOMPARE(OutraVez.Vezes, 2);
    QCOMPARE(C.Simbolos(), 2);
}

QTEST_MAIN(TesteImportacao)
#include "TesteImportacao.moc"
