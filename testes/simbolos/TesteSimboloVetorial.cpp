// SPDX-License-Identifier: LGPL-2.1-or-later
// The vector symbol: fitting, colour, moving by Assign, and its record in a symbol library.
#include "Espia.h"
#include "comum/Dados.h"

#include "plataforma/Arquivo.h"
#include "plataforma/Exception.h"
#include "simbolos/Poligono.h"
#include "simbolos/Ponto.h"
#include "simbolos/Setor.h"
#include "simbolos/SimboloComposto.h"
#include "simbolos/SimboloFonte.h"
#include "simbolos/SimboloVetorial.h"
#include "simbolos/TabelaDeSimbolos.h"
#include "simbolos/Texto.h"
#include "simbolos/TratadorDeSimboloVetorial.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <limits>

using namespace Sibrel;
using Sibrel::Testes::TEspia;

namespace
{

QImage Folha(int Lado = 64)
{
    QImage Imagem(Lado, Lado, QImage::Format_RGB32);
    Imagem.fill(Qt::white);
    return Imagem;
}

QImage Desenhado(ISimbolo &Simbolo, const TRect &Rect)
{
    QImage Imagem = Folha();
    TCanvas Canvas(Imagem);
    Simbolo.Desenhar(Canvas, Rect);
    return Imagem;
}

template <class T>
T &Por(TSimboloVetorial &S)
{
    auto E = std::make_unique<T>();
    T &Novo = *E;
    S.ObterElementos().Add(std::move(E));
    return Novo;
}

std::unique_ptr<TSimboloVetorial> Vetorial(TTabelaDeSimbolos &Tabela, int Indice)
{
    // Moves the symbol out of the table, which is about to die.
    auto S = std::make_unique<TSimboloVetorial>();
    S->Assign(*Tabela.Simbolos().ObterSimbolo(Indice));
    return S;
}

QByteArray Registro(TTabelaDeSimbolos *Tabela, TSimboloVetorial &S)
{
    TArquivoDeGravacao Arquivo;
    TTratadorDeSimboloVetorial(Tabela).Gravar(Arquivo, S);
    return Arquivo.Bytes();
}

const QByteArray UmPonto = "<FiguraVet><Ponto X='1' Y='2' Cor='FF'/></FiguraVet>";

} // namespace

class TesteSimboloVetorial : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void UmPontoNoMeio();
    void OCentroEODaFigura();
    void RetanguloEstreitoViraAFigura();
    void FiguraSemAreaNaoSeDesenha();
    void FiguraVaziaNaoSeDesenha();
    void LugaresVaziosSaoPulados();
    void AProporcaoSeMantem();
    void RetangulosNosLimitesNaoDerrubam();

    void ACorEADoPrimeiro();
    void AtribuirCorMudaOFundo();
    void ACorDosTextosVaiParaOPrimeiro();
    void ACorDeUmTextoAtrasDeOutroElemento();

    void AssignMoveAFigura();
    void AssignDeOutroTipoERecusado();
    void AssignASiMesmo();

    void OTipoEstaRegistrado();
    void OModuloPodeIniciarDuasVezes();
    void OPrimeiroRegistroDeUmaLinha();
    void ONomeRelativoAABiblioteca_data();
    void ONomeRelativoAABiblioteca();
    void SemTabelaONomeInteiro();
    void SemNomeDoisBrancos();
    void OComentarioECortado();
    void BibliotecaDeWindowsSeLeAqui();
    void BibliotecaDaquiSeLeDeNovo();
    void GravarComBarrasInvertidas();
    void FiguraAusenteNaBiblioteca();
    void FiguraDanificadaNaBiblioteca();
    void DentroDeUmComposto();
    void ABibliotecaDeAmostra();

private:
    QString Nome(const QString &Arquivo) const { return FPasta.filePath(Arquivo); }
    QTemporaryDir FPasta;
    QString FAntes;
};

void TesteSimboloVetorial::initTestCase()
{
    Testes::CarregarFontes();
    QVERIFY(FPasta.isValid());
    QDir().mkpath(Nome(QStringLiteral("figuras")));
    Testes::EscreverBytes(Nome(QStringLiteral("figuras/alvo.xml")), UmPonto);
    FAntes = QDir::currentPath();
}

void TesteSimboloVetorial::init()
{
    QDir::setCurrent(FAntes);
}

void TesteSimboloVetorial::UmPontoNoMeio()
{
    TSimboloVetorial S;
    auto &P = Por<TPonto>(S);
    P.AtribuirX(10);
    P.AtribuirY(20);
    P.AtribuirCor(clRed);
    QImage Esperada = Folha();
    {
        TCanvas Canvas(Esperada);
        Canvas.Pen.Color = clRed;
        Canvas.Brush = {clRed, TBrushStyle::bsSolid};
        Canvas.Ellipse({19, 19, 23, 23});
    }
    QCOMPARE(Desenhado(S, {0, 0, 43, 43}), Esperada);
    // Its scale of 10 shows in the rectangle that an element of the same box gets.
    TSimboloVetorial Outro;
    auto &E = Por<TEspia>(Outro);
    E.Caixa = {8, 18, 12, 22};
    Desenhado(Outro, {0, 0, 43, 43});
    QVERIFY(E.Desenhos.at(0) == TRect(1, 1, 41, 41));
}

void TesteSimboloVetorial::OCentroEODaFigura()
{
    TSimboloVetorial S;
    Por<TEspia>(S).Caixa = {0, 0, 30, 21};
    QVERIFY(S.ObterCentro() == TPoint(0, 0));
    Desenhado(S, {0, 0, 40, 40});
    QVERIFY(S.ObterCentro() == TPoint(15, 10));
    Desenhado(S, {10, 10, 20, 60});
    QVERIFY(S.ObterCentro() == TPoint(15, 10));
}

void TesteSimboloVetorial::RetanguloEstreitoViraAFigura()
{
    TSimboloVetorial S;
    auto &E = Por<TEspia>(S);
    E.Caixa = {0, 0, 4, 4};
    Desenhado(S, {0, 0, 3, 40});
    QVERIFY(E.Desenhos.at(0) == TRect(1, 20, 1, 20)); // scale 0
    Desenhado(S, {0, 0, 1, 40});
    QVERIFY(E.Desenhos.at(1) == TRect(1, 21, -1, 19)); // scale -1/2: turned around
}

void TesteSimboloVetorial::FiguraSemAreaNaoSeDesenha()
{
    TSimboloVetorial S;
    auto &E = Por<TEspia>(S);
    for (const TRect &Caixa : {TRect(5, 5, 5, 9), TRect(5, 5, 9, 5), TRect(9, 9, 5, 5)}) {
        E.Caixa = Caixa;
        Desenhado(S, {0, 0, 40, 40});
        QVERIFY(E.Desenhos.empty());
        QVERIFY(S.ObterCentro() == TPoint());
    }
    TSimboloVetorial Linha;
    auto &P = Por<TPoligono>(Linha);
    P.ObterListaPosicao().Add(TPoint(0, 5));
    P.ObterListaPosicao().Add(TPoint(10, 5));
    QCOMPARE(Desenhado(Linha, {0, 0, 40, 40}), Folha());
}

void TesteSimboloVetorial::FiguraVaziaNaoSeDesenha()
{
    TSimboloVetorial S;
    QCOMPARE(Desenhado(S, {0, 0, 40, 40}), Folha());
    QCOMPARE(Desenhado(S, {0, 0, 40, 40}), Folha());
}

void TesteSimboloVetorial::LugaresVaziosSaoPulados()
{
    TSimboloVetorial S;
    S.ObterElementos().Add(std::unique_ptr<IElementoGrafico>());
    Por<TPonto>(S);
    for (int I = 0; I < 3; ++I)
        QVERIFY(Desenhado(S, {0, 0, 40, 40}) != Folha());
    S.AtribuirCor(clRed);
    QVERIFY(S.ObterCor() == clBlack); // the first slot is empty
    TSimboloVetorial So;
    So.ObterElementos().Add(std::unique_ptr<IElementoGrafico>());
    QCOMPARE(Desenhado(So, {0, 0, 40, 40}), Folha());
    QTemporaryDir Pasta;
    S.GravarArquivo(Pasta.filePath(QStringLiteral("x.xml")));
    QCOMPARE(Testes::BytesDe(Pasta.filePath(QStringLiteral("x.xml"))).count("Ponto"), 1);
}

void TesteSimboloVetorial::AProporcaoSeMantem()
{
    TSimboloVetorial S;
    auto &E = Por<TEspia>(S);
    E.Caixa = {0, 0, 20, 10};
    Desenhado(S, {0, 0, 43, 43});
    QVERIFY(E.Desenhos.at(0) == TRect(1, 11, 41, 31));
    Desenhado(S, {0, 0, 43, 13});
    QVERIFY(E.Desenhos.at(1) == TRect(11, 1, 31, 11));
}

void TesteSimboloVetorial::RetangulosNosLimitesNaoDerrubam()
{
    constexpr int Maior = std::numeric_limits<int>::max();
    constexpr int Menor = std::numeric_limits<int>::min();
    TSimboloVetorial S;
    S.LerArquivo(Testes::DadoDeExemplo(QStringLiteral("figuras/rosa_dos_ventos.xml")));
    for (int Vez = 0; Vez < 3; ++Vez)
        for (const TRect &R :
             {TRect(Menor, Menor, Maior, Maior), TRect(Maior, Maior, Menor, Menor), TRect(),
              TRect(Maior - 40, Maior - 40, Maior, Maior), TRect(Menor, Menor, Menor + 40, Menor + 40)})
            Desenhado(S, R);
}

void TesteSimboloVetorial::ACorEADoPrimeiro()
{
    TSimboloVetorial S;
    QVERIFY(S.ObterCor() == TColor(0));
    Por<TPonto>(S).AtribuirCor(clRed);
    Por<TSetor>(S);
    QVERIFY(S.ObterCor() == clRed);
    TSimboloVetorial Setor;
    Por<TElipse>(Setor).AtribuirCorFundo(clLime);
    QVERIFY(Setor.ObterCor() == clLime);
    TSimboloVetorial Poligono;
    Por<TPoligono>(Poligono).AtribuirCorFundo(clBlue);
    QVERIFY(Poligono.ObterCor() == clBlue);
    TSimboloVetorial Texto;
    Por<TTexto>(Texto).Fonte().AtribuirColor(clGray);
    QVERIFY(Texto.ObterCor() == clGray);
    TSimboloVetorial Outro;
    Por<TEspia>(Outro);
    QVERIFY(Outro.ObterCor() == TColor(0));
}

void TesteSimboloVetorial::AtribuirCorMudaOFundo()
{
    TSimboloVetorial S;
    auto &P = Por<TPonto>(S);
    auto &R = Por<TSetor>(S);
    auto &E = Por<TElipse>(S);
    auto &G = Por<TPoligono>(S);
    Por<TEspia>(S);
    R.AtribuirCorLinha(clGray);
    G.AtribuirCorLinha(clGray);
    S.AtribuirCor(clRed);
    QVERIFY(P.Cor() == clRed);
    QVERIFY(R.CorFundo() == clRed);
    QVERIFY(E.CorFundo() == clRed);
    QVERIFY(G.CorFundo() == clRed);
    QVERIFY(R.CorLinha() == clGray);
    QVERIFY(G.CorLinha() == clGray);
}

void TesteSimboloVetorial::ACorDosTextosVaiParaOPrimeiro()
{
    TSimboloVetorial S;
    auto &Um = Por<TTexto>(S);
    auto &Dois = Por<TTexto>(S);
    Dois.Fonte().AtribuirColor(clBlue);
    S.AtribuirCor(clRed);
    QVERIFY(Um.Fonte().Color() == clRed);
    QVERIFY(Dois.Fonte().Color() == clBlue);
}

void TesteSimboloVetorial::ACorDeUmTextoAtrasDeOutroElemento()
{
    TSimboloVetorial S;
    auto &P = Por<TPonto>(S);
    auto &T = Por<TTexto>(S);
    T.Fonte().AtribuirColor(clBlue);
    S.AtribuirCor(clRed);
    QVERIFY(P.Cor() == clRed);
    QVERIFY(T.Fonte().Color() == clBlue);
}

void TesteSimboloVetorial::AssignMoveAFigura()
{
    TSimboloVetorial A;
    A.LerArquivo(Nome(QStringLiteral("figuras/alvo.xml")));
    Desenhado(A, {0, 0, 40, 40});
    const IElementoGrafico *Elemento = A.ObterElementos().First();
    TSimboloVetorial B;
    int Mortos = 0;
    Por<TEspia>(B).Destruidos = &Mortos;
    B.Assign(A);
    QCOMPARE(Mortos, 1);
    QCOMPARE(B.ObterElementos().Count(), 1);
    QCOMPARE(B.ObterElementos().First(), Elemento);
    QCOMPARE(B.ObterNomeArquivo(), A.ObterNomeArquivo());
    QVERIFY(B.ObterCentro() == TPoint(1, 2));
    QVERIFY(A.ObterElementos().Vazia());
    QCOMPARE(Desenhado(A, {0, 0, 40, 40}), Folha());
    QVERIFY(Desenhado(B, {0, 0, 40, 40}) != Folha());
}

void TesteSimboloVetorial::AssignDeOutroTipoERecusado()
{
    TSimboloVetorial S;
    Por<TPonto>(S);
    TSimboloFonte Outro;
    QVERIFY_THROWS_EXCEPTION(EInvalidCast, S.Assign(Outro));
    QCOMPARE(S.ObterElementos().Count(), 1);
}

void TesteSimboloVetorial::AssignASiMesmo()
{
    TSimboloVetorial S;
    Por<TPonto>(S);
    S.Assign(S);
    QCOMPARE(S.ObterElementos().Count(), 1);
}

void TesteSimboloVetorial::OTipoEstaRegistrado()
{
    TRefTratador Tratador;
    TRefSimbolo Simbolo;
    QVERIFY(TListaSimbolo::ObterTratadorDeSimbolo(QStringLiteral("vetorial"), Tratador, Simbolo));
    QCOMPARE(Simbolo.Nome(), "TSimboloVetorial");
    QCOMPARE(Tratador.Nome(), "TTratadorDeSimboloVetorial");
    QString Tipo;
    QVERIFY(TListaSimbolo::ObterTratadorDeSimbolo(Simbolo, Tipo, Tratador));
    QCOMPARE(Tipo, QStringLiteral("Vetorial"));
}

void TesteSimboloVetorial::OModuloPodeIniciarDuasVezes()
{
    // The package has started it once, when it was loaded.
    ModuloSimboloVetorial().Iniciar();
    ModuloSimboloVetorial().Parar();
    OTipoEstaRegistrado();
    int Usos = 0; // the loaded package is a user of its own
    for (; ModuloSimboloVetorial().Iniciado(); ++Usos)
        ModuloSimboloVetorial().Parar();
    TRefTratador Tratador;
    TRefSimbolo Simbolo;
    QVERIFY(!TListaSimbolo::ObterTratadorDeSimbolo(QStringLiteral("Vetorial"), Tratador, Simbolo));
    for (; Usos > 0; --Usos)
        ModuloSimboloVetorial().Iniciar();
    OTipoEstaRegistrado();
}

void TesteSimboloVetorial::OPrimeiroRegistroDeUmaLinha()
{
    TTabelaDeSimbolos Tabela;
    auto S = std::make_unique<TSimboloVetorial>();
    S->LerArquivo(Nome(QStringLiteral("figuras/alvo.xml")));
    Tabela.Simbolos().Add(std::move(S));
    TStringList Rotulos;
    Rotulos.Add(QStringLiteral("Alvo"));
    Tabela.AtribuirRotulos(Rotulos);
    Tabela.Exportar(Nome(QStringLiteral("uma.txt")));
    QCOMPARE(Testes::BytesDe(Nome(QStringLiteral("uma.txt"))),
             QByteArray("    1\r\nVetorial   \"Alvo\"               figuras/alvo.xml \r\n"));
}

void TesteSimboloVetorial::ONomeRelativoAABiblioteca_data()
{
    QTest::addColumn<QString>("Biblioteca");
    QTest::addColumn<QString>("Figura");
    QTest::addColumn<QByteArray>("Linha");
    QTest::newRow("abaixo, Windows") << "C:\\simbolos\\lib.txt"
                                     << "C:\\simbolos\\figuras\\alvo.xml"
                                     << QByteArray(" figuras\\alvo.xml \r\n");
    QTest::newRow("ao lado, Windows") << "C:\\simbolos\\lib.txt"
                                      << "C:\\outros\\alvo.xml" << QByteArray(" C:\\outros\\alvo.xml \r\n");
    QTest::newRow("outra unidade") << "C:\\simbolos\\lib.txt"
                                   << "D:\\alvo.xml" << QByteArray(" D:\\alvo.xml \r\n");
    QTest::newRow("outra caixa") << "c:\\Simbolos\\lib.txt"
                                 << "C:\\SIMBOLOS\\alvo.xml" << QByteArray(" alvo.xml \r\n");
    QTest::newRow("abaixo") << "/s/lib.txt"
                            << "/s/figuras/alvo.xml" << QByteArray(" figuras/alvo.xml \r\n");
    QTest::newRow("ao lado") << "/s/lib.txt"
                             << "/outros/alvo.xml" << QByteArray(" /outros/alvo.xml \r\n");
    QTest::newRow("ja relativo") << "/s/lib.txt"
                                 << "figuras\\alvo.xml" << QByteArray(" figuras\\alvo.xml \r\n");
    QTest::newRow("relativo que sobe") << "/s/lib.txt"
                                       << "..\\alvo.xml" << QByteArray(" ..\\alvo.xml \r\n");
    QTest::newRow("tabela sem nome") << ""
                                     << "/s/alvo.xml" << QByteArray(" /s/alvo.xml \r\n");
}

void TesteSimboloVetorial::ONomeRelativoAABiblioteca()
{
    QFETCH(QString, Biblioteca);
    QFETCH(QString, Figura);
    QFETCH(QByteArray, Linha);
    TTabelaDeSimbolos Tabela;
    Tabela.NomeArquivo = Biblioteca;
    TSimboloVetorial S;
    QVERIFY_THROWS_EXCEPTION(EFOpenError, S.LerArquivo(Figura)); // keeps the name all the same
    QCOMPARE(Registro(&Tabela, S), Linha);
}

void TesteSimboloVetorial::SemTabelaONomeInteiro()
{
    TSimboloVetorial S;
    S.LerArquivo(Nome(QStringLiteral("figuras/alvo.xml")));
    QCOMPARE(Registro(nullptr, S),
             (u' ' + Nome(QStringLiteral("figuras/alvo.xml")) + u' ').toLatin1() + "\r\n");
}

void TesteSimboloVetorial::SemNomeDoisBrancos()
{
    TSimboloVetorial S;
    TTabelaDeSimbolos Tabela;
    Tabela.NomeArquivo = QStringLiteral("/s/lib.txt");
    QCOMPARE(Registro(nullptr, S), QByteArray("  \r\n"));
    QCOMPARE(Registro(&Tabela, S), QByteArray("  \r\n"));
}

void TesteSimboloVetorial::OComentarioECortado()
{
    QDir::setCurrent(FPasta.path());
    TArquivoDeLeitura Arquivo(" figuras\\alvo.xml  // o alvo // de sempre\r\nresto\r\n",
                              QStringLiteral("lib.txt"));
    TSimboloVetorial S;
    TTratadorDeSimboloVetorial(nullptr).Ler(Arquivo, S);
    QCOMPARE(S.ObterNomeArquivo(), QStringLiteral("figuras\\alvo.xml"));
    QCOMPARE(S.ObterElementos().Count(), 1);
    QCOMPARE(Arquivo.LerRestoDaLinha(), QStringLiteral("resto"));
}

void TesteSimboloVetorial::BibliotecaDeWindowsSeLeAqui()
{
    Testes::EscreverBytes(Nome(QStringLiteral("windows.txt")),
                          "    2\r\nVetorial   \"Alvo\"               FIGURAS\\Alvo.XML \r\n"
                          "vetorial   \"De novo\"            figuras/alvo.xml // outra vez\r\n");
    TTabelaDeSimbolos Tabela;
    Tabela.Importar(Nome(QStringLiteral("windows.txt")));
    QCOMPARE(Tabela.Simbolos().Count(), 2);
    const auto S = Vetorial(Tabela, 0);
    QCOMPARE(S->ObterElementos().Count(), 1);
    QCOMPARE(S->ObterNomeArquivo(), QStringLiteral("FIGURAS\\Alvo.XML"));
    QCOMPARE(Registro(&Tabela, *S), QByteArray(" FIGURAS\\Alvo.XML \r\n")); // written as it was read
}

void TesteSimboloVetorial::BibliotecaDaquiSeLeDeNovo()
{
    TTabelaDeSimbolos Tabela;
    auto S = std::make_unique<TSimboloVetorial>();
    S->LerArquivo(Nome(QStringLiteral("figuras/alvo.xml")));
    Tabela.Simbolos().Add(std::move(S));
    TStringList Rotulos;
    Rotulos.Add(QStringLiteral("Alvo"));
    Tabela.AtribuirRotulos(Rotulos);
    Tabela.Exportar(Nome(QStringLiteral("volta.txt")));
    TTabelaDeSimbolos Outra;
    Outra.Importar(Nome(QStringLiteral("volta.txt")));
    QCOMPARE(Vetorial(Outra, 0)->ObterElementos().Count(), 1);
    QCOMPARE(Outra.ObterRotulo(0), QStringLiteral("Alvo"));
}

void TesteSimboloVetorial::GravarComBarrasInvertidas()
{
    QDir::setCurrent(FPasta.path());
    TSimboloVetorial S;
    Por<TPonto>(S);
    S.GravarArquivo(QStringLiteral("figuras\\nova.xml"));
    QVERIFY(QFile::exists(Nome(QStringLiteral("figuras/nova.xml"))));
    QCOMPARE(S.ObterNomeArquivo(), QStringLiteral("figuras\\nova.xml"));
}

void TesteSimboloVetorial::FiguraAusenteNaBiblioteca()
{
    Testes::EscreverBytes(Nome(QStringLiteral("ausente.txt")),
                          "    2\r\nVetorial   \"Um\" figuras\\alvo.xml\r\nVetorial   \"Dois\" nada.xml\r\n");
    TTabelaDeSimbolos Tabela;
    try {
        Tabela.Importar(Nome(QStringLiteral("ausente.txt")));
        QFAIL("devia recusar");
    } catch (const EFOpenError &E) {
        QVERIFY(E.Detalhe.contains(QStringLiteral("ausente.txt")));
    }
    QCOMPARE(Tabela.Simbolos().Count(), 1);
    QCOMPARE(int(Tabela.AvisosDaImportacao().size()), 1);
    QCOMPARE(Tabela.AvisosDaImportacao()[0].Linha, 3);
    QVERIFY(Tabela.AvisosDaImportacao()[0].Tipo == TTipoDeAviso::FiguraAusente);
}

void TesteSimboloVetorial::FiguraDanificadaNaBiblioteca()
{
    Testes::EscreverBytes(Nome(QStringLiteral("figuras/ruim.xml")), "<FiguraVet><Ponto");
    Testes::EscreverBytes(Nome(QStringLiteral("danificada.txt")),
                          "    1\r\nVetorial   \"Um\" figuras\\ruim.xml\r\n");
    TTabelaDeSimbolos Tabela;
    QVERIFY_THROWS_EXCEPTION(EDOMParseError, Tabela.Importar(Nome(QStringLiteral("danificada.txt"))));
    QVERIFY(Tabela.AvisosDaImportacao()[0].Tipo == TTipoDeAviso::FiguraIlegivel);
}

void TesteSimboloVetorial::DentroDeUmComposto()
{
    Testes::EscreverBytes(
        Nome(QStringLiteral("composto.txt")),
        "    1\r\nComposto   \"Dois\"                   2 \r\nVetorial    figuras\\alvo.xml \r\n"
        "Vetorial    figuras\\alvo.xml \r\n");
    TTabelaDeSimbolos Tabela;
    Tabela.Importar(Nome(QStringLiteral("composto.txt")));
    auto &C = dynamic_cast<TSimboloComposto &>(*Tabela.Simbolos().ObterSimbolo(0));
    QCOMPARE(C.Lista.Count(), 2);
    QVERIFY(Desenhado(C, {0, 0, 40, 40}) != Folha());
}

void TesteSimboloVetorial::ABibliotecaDeAmostra()
{
    TTabelaDeSimbolos Tabela;
    Tabela.Importar(Testes::DadoDeExemplo(QStringLiteral("simbolos-vetoriais.txt")));
    QVERIFY(Tabela.AvisosDaImportacao().empty());
    int Vetoriais = 0;
    for (const auto &S : Tabela.Simbolos())
        if (dynamic_cast<TSimboloVetorial *>(S.get()) != nullptr) {
            ++Vetoriais;
            QVERIFY(Desenhado(*S, {0, 0, 64, 64}) != Folha());
        }
    QVERIFY(Vetoriais >= 20);
}

QTEST_MAIN(TesteSimboloVetorial)
#include "TesteSimboloVetorial.moc"
