// SPDX-License-Identifier: LGPL-2.1-or-later
// The example host as a user of the command line meets it: the program itself is run.
#include "comum/Dados.h"
#include "exemplos/Programa.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

using namespace Sibrel::Testes;

namespace
{

const QString VejaAAjuda = QStringLiteral("Veja as opções com --ajuda.\n");

} // namespace

class TesteHospedeiro : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void ListaCadaSimboloEParte();
    void AListaTrocaTabulacoesPorBrancos();
    void ListaABibliotecaDeExemplo();
    void DesenhaAFolha_data();
    void DesenhaAFolha();
    void AFolhaUsaAsFontesAoLadoDaBiblioteca();
    void ABibliotecaVaziaTemUmaFolhaVazia();
    void ExportaOsMesmosBytes();
    void ExportarParaOutraPastaAvisaDasFiguras();
    void TodosOsTrabalhosDeUmaVez();
    void OsAvisosVaoParaASaidaDeErrosComALinha();
    void OErroDaBibliotecaTrazOsAvisosDeAntes();
    void UmaFonteEstragadaEUmAviso();
    void AFolhaGrandeDemaisERecusada();
    void UmaImagemRecusadaNaoTocaNoArquivo();
    void UmaExportacaoRecusadaNaoTocaNoArquivo();
    void ListaEDesenhaUmaFigura();
    void UmaFiguraEstragadaERecusada();
    void AListaDizOsSimbolosVetoriais();
    void ErrosDeUso_data();
    void ErrosDeUso();
    void AAjudaDizOFormatoDaLista();
    void DizAVersao();
    void SemTelaAJanelaERecusada();

private:
    TResultado Rodar(const QStringList &Argumentos) const
    {
        return RodarPrograma(FPasta->path(), Argumentos);
    }
    TResultado RodarComBiblioteca(const QByteArray &Conteudo, const QStringList &Argumentos) const;
    QString NaPasta(const QString &Nome) const { return FPasta->filePath(Nome); }

    std::unique_ptr<QTemporaryDir> FPasta;
};

void TesteHospedeiro::init()
{
    FPasta = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(FPasta->path()).mkdir(QStringLiteral("fontes")));
    QVERIFY(QFile::copy(DadoDeExemplo(QStringLiteral("fontes/SibrelSimbolos.ttf")),
                        NaPasta(QStringLiteral("fontes/SibrelSimbolos.ttf"))));
}

TResultado TesteHospedeiro::RodarComBiblioteca(const QByteArray &Conteudo,
                                               const QStringList &Argumentos) const
{
    EscreverBytes(NaPasta(QStringLiteral("b.txt")), Conteudo);
    return Rodar(QStringList{QStringLiteral("--biblioteca"), QStringLiteral("b.txt")} + Argumentos);
}

void TesteHospedeiro::ListaCadaSimboloEParte()
{
    const TResultado R = RodarComBiblioteca("    3\r\n"
                                            "Fonte      \"A\xE7\xE3o\"  42     2 0.75 Sibrel Simbolos\r\n"
                                            "Grafico    \"Ponte\"  figuras\\ponte.bmp\r\n"
                                            "Composto   \"\"  2\r\n"
                                            "Composto       1\r\n"
                                            "fonte          33     2 1.00 Sibrel Simbolos\r\n"
                                            "Grafico     quadro.bmp\r\n",
                                            {QStringLiteral("--listar")});
    QCOMPARE(R.Codigo, 0);
    QCOMPARE(R.Saida, QStringLiteral("0\tFonte\tAção\tcaracter=42\tcharset=2\tproporcao=0.75\t"
                                     "fonte=Sibrel Simbolos\n"
                                     "1\tGrafico\tPonte\tarquivo=figuras\\ponte.bmp\n"
                                     "2\tComposto\t\tpartes=2\n"
                                     "  2.0\tComposto\t\tpartes=1\n"
                                     "    2.0.0\tFonte\t\tcaracter=33\tcharset=2\tproporcao=1\t"
                                     "fonte=Sibrel Simbolos\n"
                                     "  2.1\tGrafico\t\tarquivo=quadro.bmp\n"));
    QCOMPARE(R.Erros, QStringLiteral("Aviso, linha 3: A figura <figuras\\ponte.bmp> não existe.\n"
                                     "Aviso, linha 7: A figura <quadro.bmp> não existe.\n"));
}

void TesteHospedeiro::AListaTrocaTabulacoesPorBrancos()
{
    const TResultado R = RodarComBiblioteca("1\nComposto   \"um\tdois\" 0\n", {QStringLiteral("--listar")});
    QCOMPARE(R.Saida, QStringLiteral("0\tComposto\tum dois\tpartes=0\n"));
}

void TesteHospedeiro::ListaABibliotecaDeExemplo()
{
    const TResultado R = Rodar({QStringLiteral("--listar"), QStringLiteral("--biblioteca"),
                                DadoDeExemplo(QStringLiteral("simbolos.txt"))});
    QCOMPARE(R.Codigo, 0);
    QVERIFY(R.Saida.contains(QStringLiteral("\n7\tComposto\tComunicações\tpartes=2\n"
                                            "  7.0\tGrafico\t\tarquivo=imagens\\amigo.png\n")));
    const QStringList Linhas = R.Saida.split(u'\n', Qt::SkipEmptyParts);
    const auto DeSimbolo = [](const QString &Linha) { return !Linha.startsWith(u' '); };
    QCOMPARE(std::count_if(Linhas.begin(), Linhas.end(), DeSimbolo), 68);
}

void TesteHospedeiro::DesenhaAFolha_data()
{
    QTest::addColumn<QStringList>("Mais");
    QTest::addColumn<int>("Tamanho");
    QTest::newRow("sem tamanho") << QStringList() << 48;
    QTest::newRow("menor") << QStringList{QStringLiteral("--tamanho"), QStringLiteral("8")} << 8;
    QTest::newRow("maior") << QStringList{QStringLiteral("--tamanho=256")} << 256;
}

// The quarter of a cell of one symbol that is as high as the symbol: where it stands is dark, the rim is
// white.
void TesteHospedeiro::DesenhaAFolha()
{
    QFETCH(QStringList, Mais);
    QFETCH(int, Tamanho);
    const TResultado R =
        RodarComBiblioteca("1\nFonte      \"\"  35  2 1.0 Sibrel Simbolos\n",
                           Mais + QStringList{QStringLiteral("--folha"), QStringLiteral("f.png")});
    QCOMPARE(R.Codigo, 0);
    QCOMPARE(R.Erros, QString());
    const QImage Folha(NaPasta(QStringLiteral("f.png")));
    QVERIFY(Folha.width() >= Tamanho + 28);
    QVERIFY(Folha.height() > Tamanho + 34 && Folha.height() < Tamanho + 90);
    QRect Escuros;
    for (int Y = 0; Y < Folha.height(); ++Y)
        for (int X = 0; X < Folha.width(); ++X)
            if (qGray(Folha.pixel(X, Y)) < 128)
                Escuros |= QRect(X, Y, 1, 1);
    QVERIFY(Escuros.width() > Tamanho / 2 && Escuros.width() <= Tamanho);
    QVERIFY(Escuros.height() > Tamanho / 2 && Escuros.height() <= Tamanho);
    QVERIFY(std::abs(2 * Escuros.center().x() - Folha.width()) <= 4);
}

void TesteHospedeiro::AFolhaUsaAsFontesAoLadoDaBiblioteca()
{
    const QByteArray Biblioteca = "1\nFonte      \"\"  38  2 1.0 Sibrel Simbolos\n";
    const QStringList ParaA = {QStringLiteral("--folha"), QStringLiteral("a.png")};
    QCOMPARE(RodarComBiblioteca(Biblioteca, ParaA).Erros, QString());
    QVERIFY(QDir(NaPasta(QStringLiteral("fontes"))).removeRecursively());
    QCOMPARE(RodarComBiblioteca(Biblioteca, {QStringLiteral("--folha"), QStringLiteral("b.png")}).Erros,
             QStringLiteral("Aviso, linha 2: A fonte <Sibrel Simbolos> não está instalada.\n"));
    QVERIFY(QImage(NaPasta(QStringLiteral("a.png"))) != QImage(NaPasta(QStringLiteral("b.png"))));
}

void TesteHospedeiro::ABibliotecaVaziaTemUmaFolhaVazia()
{
    const TResultado R = RodarComBiblioteca(
        "    0\r\n", {QStringLiteral("--folha"), QStringLiteral("f.png"), QStringLiteral("--listar")});
    QCOMPARE(R.Codigo, 0);
    QCOMPARE(R.Saida, QString());
    QVERIFY(!QImage(NaPasta(QStringLiteral("f.png"))).isNull());
}

void TesteHospedeiro::ExportaOsMesmosBytes()
{
    const QByteArray Biblioteca =
        "    2\r\n"
        "Fonte      \"A\xE7\xE3o\"                  42     2 1.00 Sibrel Simbolos \r\n"
        "Composto   \"Nada\"                   0 \r\n";
    const TResultado R =
        RodarComBiblioteca(Biblioteca, {QStringLiteral("--exportar"), QStringLiteral("e.txt")});
    QCOMPARE(R.Codigo, 0);
    QCOMPARE(R.Erros, QString());
    QCOMPARE(BytesDe(NaPasta(QStringLiteral("e.txt"))), Biblioteca);
}

void TesteHospedeiro::ExportarParaOutraPastaAvisaDasFiguras()
{
    QVERIFY(
        QFile::copy(DadoDeExemplo(QStringLiteral("imagens/cruz.bmp")), NaPasta(QStringLiteral("cruz.bmp"))));
    QVERIFY(QDir(FPasta->path()).mkdir(QStringLiteral("outra")));
    const TResultado R = RodarComBiblioteca("2\n"
                                            "Grafico    \"a\" cruz.bmp\n"
                                            "Composto   \"b\" 1\n"
                                            "Grafico    cruz.bmp\n",
                                            {QStringLiteral("--exportar"), QStringLiteral("outra/e.txt")});
    QCOMPARE(R.Codigo, 0);
    QCOMPARE(R.Erros, QStringLiteral("Aviso: A figura <cruz.bmp> não existe na pasta da nova biblioteca; "
                                     "copie-a para lá.\n"));
}

void TesteHospedeiro::TodosOsTrabalhosDeUmaVez()
{
    const TResultado R = RodarComBiblioteca("0\n", {QStringLiteral("--listar"), QStringLiteral("--folha"),
                                                    QStringLiteral("f.png"), QStringLiteral("--exportar"),
                                                    QStringLiteral("e.txt")});
    QCOMPARE(R.Codigo, 0);
    QVERIFY(QFile::exists(NaPasta(QStringLiteral("f.png"))));
    QCOMPARE(BytesDe(NaPasta(QStringLiteral("e.txt"))), QByteArray("    0\r\n"));
}

void TesteHospedeiro::OsAvisosVaoParaASaidaDeErrosComALinha()
{
    const TResultado R = RodarComBiblioteca("2\n"
                                            "Fonte      \"\" 65 0 1.0 Fonte Que Não Há\n"
                                            "Grafico    \"\" falta.png\n",
                                            {QStringLiteral("--listar")});
    QCOMPARE(R.Codigo, 0);
    const QStringList Avisos = R.Erros.split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(Avisos.size(), 2);
    QVERIFY(Avisos[0].startsWith(QStringLiteral("Aviso, linha 2: A fonte <")));
    QCOMPARE(Avisos[1], QStringLiteral("Aviso, linha 3: A figura <falta.png> não existe."));
}

void TesteHospedeiro::OErroDaBibliotecaTrazOsAvisosDeAntes()
{
    const TResultado R = RodarComBiblioteca("2\n"
                                            "Grafico    \"\" falta.png\n"
                                            "Estranho   \"\" 1\n",
                                            {QStringLiteral("--listar")});
    QCOMPARE(R.Codigo, 1);
    QCOMPARE(R.Saida, QString());
    const QStringList Linhas = R.Erros.split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(Linhas.size(), 3);
    QCOMPARE(Linhas[0], QStringLiteral("Aviso, linha 2: A figura <falta.png> não existe."));
    QCOMPARE(Linhas[1], QStringLiteral("O Tratador de Símbolo para o tipo <Estranho> não foi registrado!"));
    QVERIFY2(Linhas[2].contains(u'3') && Linhas[2].contains(QStringLiteral("b.txt")), qPrintable(Linhas[2]));
}

void TesteHospedeiro::UmaFonteEstragadaEUmAviso()
{
    EscreverBytes(NaPasta(QStringLiteral("fontes/ruim.ttf")), "isto nao e uma fonte");
    const TResultado R = RodarComBiblioteca("0\n", {QStringLiteral("--listar")});
    QCOMPARE(R.Codigo, 0);
    QCOMPARE(R.Erros.count(u'\n'), 1);
    QVERIFY(R.Erros.startsWith(QStringLiteral("Aviso: A fonte do arquivo <")));
    QVERIFY(R.Erros.endsWith(QStringLiteral("ruim.ttf> não pode ser carregada.\n")));
}

void TesteHospedeiro::AFolhaGrandeDemaisERecusada()
{
    QByteArray Biblioteca = "30000\n";
    for (int I = 0; I < 30000; ++I)
        Biblioteca += "Composto   \"\" 0\n";
    const TResultado R = RodarComBiblioteca(Biblioteca, {QStringLiteral("--tamanho"), QStringLiteral("256"),
                                                         QStringLiteral("--folha"), QStringLiteral("f.png")});
    QCOMPARE(R.Codigo, 1);
    QVERIFY(R.Erros.startsWith(QStringLiteral("A folha fica grande demais!\nSeriam ")));
    QVERIFY(!QFile::exists(NaPasta(QStringLiteral("f.png"))));
}

void TesteHospedeiro::UmaImagemRecusadaNaoTocaNoArquivo()
{
    EscreverBytes(NaPasta(QStringLiteral("f.nada")), "antes");
    const TResultado R = RodarComBiblioteca("0\n", {QStringLiteral("--folha"), QStringLiteral("f.nada")});
    QCOMPARE(R.Codigo, 1);
    QCOMPARE(R.Erros, QStringLiteral("A imagem <f.nada> não pode ser gravada!\n"
                                     "O nome precisa terminar por um formato de imagem, como .png.\n"));
    QCOMPARE(BytesDe(NaPasta(QStringLiteral("f.nada"))), QByteArray("antes"));

    const TResultado SemPasta =
        RodarComBiblioteca("0\n", {QStringLiteral("--folha"), QStringLiteral("nao/ha/f.png")});
    QCOMPARE(SemPasta.Codigo, 1);
    QVERIFY(SemPasta.Erros.startsWith(QStringLiteral("A imagem <nao/ha/f.png> não pode ser gravada!\n")));
}

void TesteHospedeiro::UmaExportacaoRecusadaNaoTocaNoArquivo()
{
    const TResultado R =
        RodarComBiblioteca("0\n", {QStringLiteral("--exportar"), QStringLiteral("nao/ha/e.txt")});
    QCOMPARE(R.Codigo, 1);
    QVERIFY(!R.Erros.isEmpty());
    QVERIFY(!QFile::exists(NaPasta(QStringLiteral("nao"))));
}

void TesteHospedeiro::ListaEDesenhaUmaFigura()
{
    EscreverBytes(
        NaPasta(QStringLiteral("f.xml")),
        "<FiguraVet>\r\n"
        "<Ponto X=\"-3\" Y=\"4\" Cor=\"0000FF\"/>\r\n"
        "<Setor X=\"1\" Y=\"2\" Fechado=\"S\" RaioMaior=\"20\" RaioMenor=\"0.5\" AngI=\"0\" AngF=\"1.5\" "
        "CorLinha=\"80000008\" CorFundo=\"FF0000\" EstiloLinha=\"0\" EstiloFundo=\"1\"/>\r\n"
        "<Poligono Fechado=\"N\"><Ponto X=\"0\" Y=\"0\"/><Ponto X=\"9\" Y=\"-9\"/></Poligono>\r\n"
        "<Texto X=\"0\" Y=\"1\" Cor=\"1\" Fonte=\"Sibrel Teste\" Tamanho=\"9\" Texto=\"A\xE7\xE3o\" "
        "Orientacao=\"900\" AlinhamentoVertical=\"1\" AlinhamentoHorizontal=\"0\"/>\r\n"
        "</FiguraVet>\r\n");
    const TResultado R =
        Rodar({QStringLiteral("--figura"), QStringLiteral("f.xml"), QStringLiteral("--listar"),
               QStringLiteral("--captura"), QStringLiteral("f.png"), QStringLiteral("--tamanho=100")});
    QCOMPARE(R.Codigo, 0);
    QCOMPARE(R.Erros, QString());
    QCOMPARE(R.Saida,
             QStringLiteral("0\tPonto\tX=-3\tY=4\tCor=#ff0000\n"
                            "1\tSetor\tX=1\tY=2\tFechado=S\tRaioMaior=20\tRaioMenor=0.5\tAngI=0\tAngF=1.5\t"
                            "CorLinha=sistema 8\tCorFundo=#0000ff\tEstiloLinha=0\tEstiloFundo=1\n"
                            "2\tPoligono\tFechado=N\tCorLinha=#000000\tCorFundo=#000000\tEstiloLinha=2\t"
                            "EstiloFundo=0\tPontos=0,0 9,-9\n"
                            "3\tTexto\tX=0\tY=1\tCor=#010000\tFonte=Sibrel Teste\tTamanho=9\tTexto=Ação\t"
                            "Orientacao=900\tAlinhamentoVertical=1\tAlinhamentoHorizontal=0\n"));
    const QImage Imagem(NaPasta(QStringLiteral("f.png")));
    QCOMPARE(Imagem.size(), QSize(100, 100));
    bool Vermelho = false;
    for (int Y = 0; Y < 100; ++Y)
        for (int X = 0; X < 100; ++X)
            Vermelho = Vermelho || Imagem.pixelColor(X, Y) == QColor(Qt::red);
    QVERIFY(Vermelho); // the dot
}

void TesteHospedeiro::UmaFiguraEstragadaERecusada()
{
    EscreverBytes(NaPasta(QStringLiteral("f.xml")), "<FiguraVet><Ponto</FiguraVet>");
    const QStringList Argumentos = {QStringLiteral("--figura"), QStringLiteral("f.xml"),
                                    QStringLiteral("--captura"), QStringLiteral("f.png")};
    const TResultado R = Rodar(Argumentos);
    QCOMPARE(R.Codigo, 1);
    QVERIFY(R.Erros.startsWith(QStringLiteral("XML em formato inválido!\nLinha 1")));
    QVERIFY(!QFile::exists(NaPasta(QStringLiteral("f.png"))));
    // Coordinates at the ends of their type are no reason to fail.
    EscreverBytes(NaPasta(QStringLiteral("f.xml")),
                  "<FiguraVet><Poligono Fechado='S'><Ponto X='2147483647' Y='2147483647'/>"
                  "<Ponto X='2147483000' Y='2147483000'/></Poligono>"
                  "<Texto X='-2147483648' Y='2147483647' Texto='longe'/></FiguraVet>");
    QCOMPARE(Rodar(Argumentos).Codigo, 0);
}

void TesteHospedeiro::AListaDizOsSimbolosVetoriais()
{
    EscreverBytes(NaPasta(QStringLiteral("f.xml")), "<FiguraVet><Ponto X='1' Y='1'/></FiguraVet>");
    const QByteArray Biblioteca = "    1\r\nVetorial   \"Ponto\"              f.xml \r\n";
    const TResultado R = RodarComBiblioteca(
        Biblioteca, {QStringLiteral("--listar"), QStringLiteral("--exportar"), QStringLiteral("e.txt")});
    QCOMPARE(R.Erros, QString());
    QCOMPARE(R.Saida, QStringLiteral("0\tVetorial\tPonto\tarquivo=f.xml\telementos=1\n"));
    QCOMPARE(BytesDe(NaPasta(QStringLiteral("e.txt"))), Biblioteca);
}

void TesteHospedeiro::ErrosDeUso_data()
{
    const QString NaoHa = QStringLiteral("O arquivo selecionado não está disponível ou não existe!\n"
                                         "Arquivo <nao.txt>.\n");
    QTest::addColumn<QStringList>("Argumentos");
    QTest::addColumn<QString>("Erros");
    const auto Caso = [](const char *Nome, const char *Argumentos, const QString &Erros) {
        QTest::newRow(Nome) << QString::fromUtf8(Argumentos).split(u' ') << Erros;
    };
    const auto DeUso = [&Caso](const char *Nome, const char *Argumentos, const QString &Mensagem) {
        Caso(Nome, Argumentos, Mensagem + u'\n' + VejaAAjuda);
    };
    DeUso("opcao desconhecida", "--listra", QStringLiteral("A opção <listra> não existe!"));
    DeUso("duas desconhecidas", "--um --dois", QStringLiteral("As opções <um, dois> não existem!"));
    DeUso("falta o valor", "--biblioteca", QStringLiteral("Falta o valor da opção <--biblioteca>!"));
    DeUso("valor a mais", "--listar=sim", QStringLiteral("A opção <--listar> não leva valor!"));
    DeUso("argumento solto", "solto", QStringLiteral("O argumento <solto> não pertence a nenhuma opção!"));
    DeUso("lista sem arquivo", "--listar",
          QStringLiteral("Falta a opção --biblioteca, --figura, --arvore ou --banco!"));
    DeUso("folha sem biblioteca", "--folha f.png", QStringLiteral("Falta a opção --biblioteca ou --banco!"));
    DeUso("folha de figura", "--figura f.xml --folha f.png",
          QStringLiteral("Falta a opção --biblioteca ou --banco!"));
    DeUso("atualizacao sem arvore", "--biblioteca b --atualizar a.xml --listar",
          QStringLiteral("Falta a opção --arvore ou --banco!"));
    DeUso("arvore e figura", "--arvore a --figura f --listar",
          QStringLiteral("As opções --arvore e --figura não vão juntas!"));
    DeUso("vigia sem janela", "--arvore a --vigiar p --listar",
          QStringLiteral("A opção --vigiar precisa da janela!"));
    DeUso("captura sem figura", "--captura f.png",
          QStringLiteral("Falta a opção --figura, --arvore ou --banco!"));
    DeUso("os dois", "--biblioteca b --figura f --listar",
          QStringLiteral("As opções --biblioteca e --figura não vão juntas!"));
    DeUso("banco e biblioteca", "--banco b --biblioteca b --listar",
          QStringLiteral("As opções --banco e --biblioteca não vão juntas!"));
    DeUso("banco e arvore", "--banco b --arvore a",
          QStringLiteral("As opções --banco e --arvore não vão juntas!"));
    DeUso("banco e figura", "--figura f --banco b",
          QStringLiteral("As opções --banco e --figura não vão juntas!"));
    DeUso("biblioteca sem nome", "--biblioteca= --listar",
          QStringLiteral("A opção --biblioteca precisa de um nome de arquivo!"));
    DeUso("duas folhas", "--folha a.png --folha b.png",
          QStringLiteral("A opção --folha foi dada mais de uma vez!"));
    for (const char *Tamanho : {"7", "257", "abc", "-3", "1e2", "99999999999"})
        DeUso(Tamanho, qPrintable(QStringLiteral("--listar --tamanho=%1").arg(QLatin1String(Tamanho))),
              QStringLiteral("O tamanho <%1> não é um número de 8 a 256!").arg(QLatin1String(Tamanho)));
    Caso("biblioteca que nao ha", "--biblioteca nao.txt --listar", NaoHa);
}

void TesteHospedeiro::ErrosDeUso()
{
    QFETCH(QStringList, Argumentos);
    QFETCH(QString, Erros);
    const TResultado R = Rodar(Argumentos);
    QCOMPARE(R.Erros, Erros);
    QCOMPARE(R.Saida, QString());
    QCOMPARE(R.Codigo, 1);
}

void TesteHospedeiro::AAjudaDizOFormatoDaLista()
{
    for (const char *Opcao : {"--ajuda", "--help", "-h"}) {
        const TResultado R = Rodar({QLatin1String(Opcao)});
        QCOMPARE(R.Codigo, 0);
        QCOMPARE(R.Erros, QString());
        QVERIFY(R.Saida.startsWith(QStringLiteral("Uso: ")));
        for (const char *Parte :
             {"--biblioteca", "--folha", "--tamanho", "--listar", "--exportar", "--figura", "--captura",
              "--banco", "--arvore", "--raiz", "--atualizar", "--vigiar", "índice, tipo, rótulo", "Opções:"})
            QVERIFY2(R.Saida.contains(QString::fromUtf8(Parte)), Parte);
    }
}

void TesteHospedeiro::DizAVersao()
{
    const TResultado R = Rodar({QStringLiteral("--versao")});
    QCOMPARE(R.Codigo, 0);
    QVERIFY(R.Saida.startsWith(QStringLiteral("hospedeiro ")));
}

void TesteHospedeiro::SemTelaAJanelaERecusada()
{
    const TResultado R = RodarComBiblioteca("0\n", {});
    QCOMPARE(R.Codigo, 1);
    QCOMPARE(R.Erros, QStringLiteral("Não há tela onde abrir a janela!\n") + VejaAAjuda);
}

QTEST_GUILESS_MAIN(TesteHospedeiro)
#include "TesteHospedeiro.moc"
