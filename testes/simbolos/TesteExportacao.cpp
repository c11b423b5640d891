// SPDX-License-Identifier: LGPL-2.1-or-later
// Writing a symbol library: to the byte, and what is left on disk when it fails.
#include "comum/Erros.h"
#include "plataforma/SeparadorDecimal.h"
#include "simbolos/ArquivosDeTeste.h"
#include "simbolos/SimbolosDeTeste.h"
#include "simbolos/TabelaDeSimbolos.h"
#include "simbolos/TratadorDeSimbolo.h"

#include <QScopeGuard>
#include <QTest>

#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

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

struct TCaso {
    TPastaDeTeste Pasta;
    TTabelaDeSimbolos Tabela;
    QString Arquivo = Pasta.Nome(QStringLiteral("saida.txt"));

    void Acrescentar(const QString &Rotulo, std::unique_ptr<ISimbolo> Simbolo)
    {
        Tabela.Simbolos().Add(std::move(Simbolo));
        Tabela.ObterRotulos().Add(Rotulo);
    }
    QByteArray Exportada()
    {
        Tabela.Exportar(Arquivo);
        return BytesDe(Arquivo);
    }
};

const QString Wingdings = QStringLiteral("Wingdings");
const QString Arial = QStringLiteral("Arial");

class TTratadorSemFabrica : public ComClasse<TTratadorSemFabrica, TTratadorDeSimbolo>
{
public:
    static constexpr const char *NomeDaClasse = "TTratadorSemFabrica";
    using ComClasse::ComClasse;
    void Ler(TArquivoDeLeitura &, ISimbolo &) override = 0;
};

} // namespace

class TesteExportacao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { AtribuirSeparadorDecimal(u'.'); }

    void OExemploByteAByte();
    void OExemploLidoEEscritoEOMesmo();
    void ABibliotecaDeExemploEscritaDuasVezesEAMesma();
    void TabelaVazia();
    void RotulosEntreAspas();
    void NumerosLargos();
    void ProporcaoComDuasCasas();
    void ProporcaoComOSeparadorDoProcesso();
    void ParteNaoRegistradaEContadaMasNaoEscrita();
    void SubstituiENaoAvisa();
    void ParaOProprioNomeArquivo();
    void ParaOArquivoQueUmNomeDeWindowsDiz();

    void ClasseNaoRegistradaNoComeco();
    void TratadorSemObjeto();
    void ClasseNaoRegistradaDepoisDeOutrasDizOTipoAnterior();
    void RotulosDeMenos();
    void TextoForaDaPaginaNaoTocaNoArquivo_data();
    void TextoForaDaPaginaNaoTocaNoArquivo();
    void QuebraDeLinhaERecusada();

    void PastaInexistente();
    void PastaSomenteDeLeitura();
    void DispositivoCheio();
    void DiscoCheioGuardaOArquivoAnterior();
};

void TesteExportacao::OExemploByteAByte()
{
    TCaso C;
    C.Acrescentar(QStringLiteral("Hospital"), Glifo(42, 1.0, Wingdings));
    auto Ponte = std::make_unique<TSimboloGrafico>();
    Ponte->Arquivo = QStringLiteral("ponte.bmp");
    C.Acrescentar(QStringLiteral("Ponte"), std::move(Ponte));
    auto Quadro = std::make_unique<TSimboloGrafico>();
    Quadro->Arquivo = QStringLiteral("quadro.bmp");
    C.Acrescentar(QString(), Composto(Glifo(65, 0.8, Arial, 0), std::move(Quadro)));
    QCOMPARE(C.Exportada(), Exemplo);
    QCOMPARE(C.Tabela.NomeArquivo, C.Arquivo);
}

void TesteExportacao::OExemploLidoEEscritoEOMesmo()
{
    TCaso C;
    C.Tabela.Importar(C.Pasta.Com(Exemplo));
    QCOMPARE(C.Exportada(), Exemplo);
}

void TesteExportacao::ABibliotecaDeExemploEscritaDuasVezesEAMesma()
{
    TCaso C;
    C.Tabela.Importar(DadoDeExemplo(QStringLiteral("simbolos.txt")));
    const QByteArray Primeira = C.Exportada();
    QVERIFY(Primeira.startsWith(
        "   68\r\nComposto   \"Infantaria\"             2 \r\nGrafico     imagens\\amigo.png \r\n"));
    TCaso Outro;
    Outro.Tabela.Importar(C.Arquivo);
    // Quotes are doubled anew at each writing, which is all that may differ.
    const QByteArray Segunda = Outro.Exportada();
    const QList<QByteArray> Linhas = Primeira.split('\n');
    const QList<QByteArray> DeNovo = Segunda.split('\n');
    QCOMPARE(DeNovo.size(), Linhas.size());
    int Diferentes = 0;
    for (qsizetype I = 0; I < Linhas.size(); ++I)
        if (Linhas[I] != DeNovo[I]) {
            ++Diferentes;
            QVERIFY2(DeNovo[I].contains("\"\"\"\""), DeNovo[I].constData());
        }
    QVERIFY(Diferentes < 5);
}

void TesteExportacao::TabelaVazia()
{
    TCaso C;
    QCOMPARE(C.Exportada(), QByteArray("    0\r\n"));
}

void TesteExportacao::RotulosEntreAspas()
{
    TCaso C;
    C.Acrescentar(QStringLiteral("a \"b\""), Glifo(1, 1, Arial, 0));
    C.Acrescentar(QStringLiteral("Saúde € com mais de vinte"), Glifo(1, 1, Arial, 0));
    QCOMPARE(C.Exportada(), QByteArray("    2\r\n"
                                       "Fonte      \"a \"\"b\"\"\"                1     0 1.00 Arial \r\n"
                                       "Fonte      \"Sa\xFA"
                                       "de \x80 com mais de vinte\"     1     0 1.00 Arial \r\n"));
}

void TesteExportacao::NumerosLargos()
{
    TCaso C;
    for (int I = 0; I < 100000; ++I)
        C.Acrescentar(QString(), std::make_unique<TSimboloComposto>());
    const QByteArray Bytes = C.Exportada();
    QVERIFY(Bytes.startsWith("100000\r\nComposto   \"\"                       0 \r\n"));
    QCOMPARE(Bytes.count('\n'), 100001);
}

void TesteExportacao::ProporcaoComDuasCasas()
{
    for (const auto &[Valor, Texto] :
         {std::pair(0.125, "0.13"), std::pair(1.0 / 3, "0.33"), std::pair(12.0, "12.00"),
          std::pair(-0.5, "-0.50"), std::pair(0.0, "0.00")}) {
        TCaso C;
        C.Acrescentar(QString(), Glifo(1, Valor, Arial, 0));
        QVERIFY2(C.Exportada().endsWith(QByteArray("    1     0 ") + Texto + " Arial \r\n"), Texto);
    }
}

void TesteExportacao::ProporcaoComOSeparadorDoProcesso()
{
    TCaso C;
    C.Acrescentar(QString(), Glifo(1, 1, Arial, 0));
    AtribuirSeparadorDecimal(u',');
    const QByteArray Bytes = C.Exportada();
    AtribuirSeparadorDecimal(u'.');
    QVERIFY(Bytes.endsWith(" 1,00 Arial \r\n"));
    TTabelaDeSimbolos Outra;
    ErroDe<EInOutError>([&] { Outra.Importar(C.Arquivo); });
}

void TesteExportacao::ParteNaoRegistradaEContadaMasNaoEscrita()
{
    TCaso C;
    C.Acrescentar(QStringLiteral("a"),
                  Composto(std::make_unique<TSimboloDoHospedeiro>(), Glifo(42, 1, Arial, 0)));
    C.Acrescentar(QStringLiteral("b"), Composto());
    QCOMPARE(C.Exportada(), QByteArray("    2\r\n"
                                       "Composto   \"a\"                      2 \r\n"
                                       "Fonte          42     0 1.00 Arial \r\n"
                                       "Composto   \"b\"                      0 \r\n"));
    // Read back, the next record is taken for the part that is not there.
    TTabelaDeSimbolos Outra;
    ErroDe<EInOutError>([&] { Outra.Importar(C.Arquivo); });
    QCOMPARE(Outra.Simbolos().Count(), 0);
    QCOMPARE(Outra.ListaDeRotulos(), QStringList{"a"});
}

void TesteExportacao::SubstituiENaoAvisa()
{
    TCaso C;
    TContador Contador;
    C.Tabela.InscreverObserver(Contador);
    EscreverBytes(C.Arquivo, QByteArray(10000, 'x'));
    QCOMPARE(C.Exportada(), QByteArray("    0\r\n"));
    QCOMPARE(Contador.Avisos, 0);
}

void TesteExportacao::ParaOProprioNomeArquivo()
{
    TCaso C;
    C.Tabela.Importar(C.Pasta.Com(Exemplo));
    const QString Nome = C.Tabela.NomeArquivo;
    EscreverBytes(Nome, "antigo");
    C.Tabela.Exportar(C.Tabela.NomeArquivo);
    QCOMPARE(C.Tabela.NomeArquivo, Nome);
    QCOMPARE(BytesDe(Nome), Exemplo);
}

void TesteExportacao::ParaOArquivoQueUmNomeDeWindowsDiz()
{
    TCaso C;
    QVERIFY(QDir(C.Pasta.Caminho()).mkdir(QStringLiteral("Bib")));
    const QString Verdadeiro = C.Pasta.Com(Exemplo, QStringLiteral("Bib/Lib.txt"));
    C.Tabela.Importar(C.Pasta.Nome(QStringLiteral("bib\\LIB.TXT")));
    C.Tabela.Limpar();
    C.Tabela.Exportar(C.Tabela.NomeArquivo);
    QCOMPARE(BytesDe(Verdadeiro), QByteArray("    0\r\n"));
    C.Tabela.Exportar(C.Pasta.Nome(QStringLiteral("BIB\\nova.txt")));
    QCOMPARE(BytesDe(C.Pasta.Nome(QStringLiteral("Bib/nova.txt"))), QByteArray("    0\r\n"));
    QCOMPARE(QDir(C.Pasta.Caminho()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{"Bib"});
}

void TesteExportacao::ClasseNaoRegistradaNoComeco()
{
    TCaso C;
    C.Acrescentar(QStringLiteral("a"), std::make_unique<TSimboloDoHospedeiro>());
    const auto Erro = ErroDe<EInvalidOperation>([&] { C.Tabela.Exportar(C.Arquivo); });
    QCOMPARE(Erro.Message, QStringLiteral("O Tratador de Símbolo para o tipo <> não foi registrado!"));
    QCOMPARE(BytesDe(C.Arquivo), QByteArray("    1\r\n"));
    QCOMPARE(C.Tabela.NomeArquivo, C.Arquivo);
}

void TesteExportacao::TratadorSemObjeto()
{
    TListaSimbolo::RegistrarTratadorDeSimbolo(QStringLiteral("Abstrato"),
                                              TRefTratador::De<TTratadorSemFabrica>(),
                                              TRefSimbolo::De<TSimboloDoHospedeiro>());
    for (const bool DentroDeComposto : {false, true}) {
        TCaso C;
        auto Simbolo = std::make_unique<TSimboloDoHospedeiro>();
        if (DentroDeComposto)
            C.Acrescentar(QStringLiteral("a"), Composto(std::move(Simbolo)));
        else
            C.Acrescentar(QStringLiteral("a"), std::move(Simbolo));
        const auto Erro = ErroDe<EInvalidOperation>([&] { C.Tabela.Exportar(C.Arquivo); });
        QCOMPARE(Erro.Message, QStringLiteral("O tipo de Símbolo <Abstrato> não é suportado!"));
    }
    TListaSimbolo::RemoverRegistroTratadorDeSimbolo(QStringLiteral("Abstrato"));
}

void TesteExportacao::ClasseNaoRegistradaDepoisDeOutrasDizOTipoAnterior()
{
    TCaso C;
    C.Acrescentar(QStringLiteral("a"), Glifo(1, 1, Arial, 0));
    C.Acrescentar(QStringLiteral("b"), Composto());
    C.Acrescentar(QStringLiteral("c"), std::make_unique<TSimboloDoHospedeiro>());
    const auto Erro = ErroDe<EInvalidOperation>([&] { C.Tabela.Exportar(C.Arquivo); });
    QCOMPARE(Erro.Message,
             QStringLiteral("O Tratador de Símbolo para o tipo <Composto> não foi registrado!"));
    QCOMPARE(BytesDe(C.Arquivo), QByteArray("    3\r\n"
                                            "Fonte      \"a\"                      1     0 1.00 Arial \r\n"
                                            "Composto   \"b\"                      0 \r\n"));
}

void TesteExportacao::RotulosDeMenos()
{
    TCaso C;
    C.Acrescentar(QStringLiteral("a"), Composto());
    C.Tabela.Simbolos().Add(Composto());
    const auto Erro = ErroDe<EStringListError>([&] { C.Tabela.Exportar(C.Arquivo); });
    QCOMPARE(Erro.Message, QStringLiteral("Índice de lista fora dos limites (1)"));
    QCOMPARE(BytesDe(C.Arquivo), QByteArray("    2\r\nComposto   \"a\"                      0 \r\n"));
    // The class is looked up before the label.
    C.Tabela.Simbolos().AtribuirSimbolo(1, std::make_unique<TSimboloDoHospedeiro>());
    ErroDe<EInvalidOperation>([&] { C.Tabela.Exportar(C.Arquivo); });
}

void TesteExportacao::TextoForaDaPaginaNaoTocaNoArquivo_data()
{
    QTest::addColumn<int>("Onde");
    QTest::newRow("rotulo") << 0;
    QTest::newRow("fonte") << 1;
    QTest::newRow("figura") << 2;
    QTest::newRow("fonte de uma parte") << 3;
}

void TesteExportacao::TextoForaDaPaginaNaoTocaNoArquivo()
{
    QFETCH(int, Onde);
    const QString Ruim = QStringLiteral("Ωmega");
    TCaso C;
    C.Acrescentar(QStringLiteral("a"), Composto());
    auto Grafico = std::make_unique<TSimboloGrafico>();
    Grafico->Arquivo = Onde == 2 ? Ruim : Arial;
    C.Acrescentar(Onde == 0 ? Ruim : Arial, Composto(Glifo(1, 1, Onde == 3 ? Ruim : Arial, 0)));
    C.Acrescentar(QStringLiteral("c"), Glifo(1, 1, Onde == 1 ? Ruim : Arial, 0));
    C.Acrescentar(QStringLiteral("d"), std::move(Grafico));
    C.Tabela.NomeArquivo = QStringLiteral("antes");
    for (const bool Existe : {true, false}) {
        if (Existe)
            EscreverBytes(C.Arquivo, "antigo");
        else
            QVERIFY(QFile::remove(C.Arquivo));
        const auto Erro = ErroDe<EConvertError>([&] { C.Tabela.Exportar(C.Arquivo); });
        QVERIFY2(Erro.Message.contains(Ruim), qPrintable(Erro.Message));
        QCOMPARE(C.Tabela.NomeArquivo, QStringLiteral("antes"));
        QCOMPARE(QFile::exists(C.Arquivo), Existe);
        if (Existe)
            QCOMPARE(BytesDe(C.Arquivo), QByteArray("antigo"));
    }
}

void TesteExportacao::QuebraDeLinhaERecusada()
{
    TCaso C;
    EscreverBytes(C.Arquivo, "antigo");
    C.Acrescentar(QStringLiteral("uma\nduas"), Composto());
    ErroDe<EConvertError>([&] { C.Tabela.Exportar(C.Arquivo); });
    QCOMPARE(BytesDe(C.Arquivo), QByteArray("antigo"));
}

void TesteExportacao::PastaInexistente()
{
    TCaso C;
    C.Tabela.NomeArquivo = QStringLiteral("antes");
    const QString Nome = C.Pasta.Nome(QStringLiteral("nenhuma/saida.txt"));
    const auto Erro = ErroDe<EFCreateError>([&] { C.Tabela.Exportar(Nome); });
    QCOMPARE(Erro.Message, QStringLiteral("Não foi possível gravar o arquivo <%1>!").arg(Nome));
    QVERIFY(!Erro.Detalhe.isEmpty());
    QCOMPARE(C.Tabela.NomeArquivo, QStringLiteral("antes"));
}

void TesteExportacao::PastaSomenteDeLeitura()
{
    if (geteuid() == 0)
        QSKIP("o superusuário escreve em qualquer pasta");
    TCaso C;
    QVERIFY(QFile::setPermissions(C.Pasta.Caminho(), QFile::ReadOwner | QFile::ExeOwner));
    ErroDe<EFCreateError>([&] { C.Tabela.Exportar(C.Arquivo); });
    QVERIFY(QFile::setPermissions(C.Pasta.Caminho(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QVERIFY(!QFile::exists(C.Arquivo));
}

void TesteExportacao::DispositivoCheio()
{
    TCaso C;
    QString Cheio = QStringLiteral("/dev/full");
    if (geteuid() == 0) { // a superuser's mistake must not cost the machine its device
        Cheio = C.Pasta.Nome(QStringLiteral("cheio"));
        if (mknod(qPrintable(Cheio), S_IFCHR | 0666, makedev(1, 7)) != 0)
            QSKIP("sem permissão para criar um dispositivo");
    }
    if (!QFile(Cheio).open(QIODevice::WriteOnly))
        QSKIP("sem um dispositivo cheio");
    C.Tabela.NomeArquivo = QStringLiteral("antes");
    const auto Erro = ErroDe<EFCreateError>([&] { C.Tabela.Exportar(Cheio); });
    QVERIFY(!Erro.Detalhe.isEmpty());
    QCOMPARE(C.Tabela.NomeArquivo, QStringLiteral("antes"));
    QVERIFY(!QFileInfo(Cheio).isFile()); // still a device
}

void TesteExportacao::DiscoCheioGuardaOArquivoAnterior()
{
    TCaso C;
    const QString Disco = C.Pasta.Nome(QStringLiteral("disco"));
    QVERIFY(QDir().mkdir(Disco));
    if (mount("tmpfs", qPrintable(Disco), "tmpfs", 0, "size=64k") != 0)
        QSKIP("sem permissão para montar um disco pequeno");
    const auto Desmontar = qScopeGuard([&Disco] { umount2(qPrintable(Disco), MNT_DETACH); });
    const QString Arquivo = Disco + QStringLiteral("/saida.txt");
    EscreverBytes(Arquivo, "antigo");
    for (int I = 0; I < 10000; ++I)
        C.Acrescentar(QString(), Composto());
    C.Tabela.NomeArquivo = QStringLiteral("antes");
    ErroDe<EFCreateError>([&] { C.Tabela.Exportar(Arquivo); });
    QCOMPARE(BytesDe(Arquivo), QByteArray("antigo"));
    QCOMPARE(C.Tabela.NomeArquivo, QStringLiteral("antes"));
    QCOMPARE(QDir(Disco).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{"saida.txt"});
}

QTEST_MAIN(TesteExportacao)
#include "TesteExportacao.moc"
