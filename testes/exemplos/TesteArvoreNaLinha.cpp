// SPDX-License-Identifier: LGPL-2.1-or-later
// Trees on the example host's command line: the program itself is run.
#include "comum/Dados.h"
#include "exemplos/Programa.h"

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

using namespace Sibrel::Testes;

class TesteArvoreNaLinha : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { FPasta = std::make_unique<QTemporaryDir>(); }
    void ListaOExemploDepoisDasAtualizacoes();
    void ListaOExemploDepoisDoExercicio();
    void ListaCadaCampoDoNo();
    void SemAlvoOLinkENoComum();
    void DesenhaAArvoreInteira();
    void ASimbologiaMudaOQuadro();
    void AFolhaEAArvoreDeUmaVez();
    void OutraRaizEUmAviso();
    void UmDocumentoEstragadoERecusado();
    void UmArquivoQueNaoHaERecusado();
    void UmElementoQueFalhaEncerraComOLugar();
    void UmaImagemRecusadaNaoTocaNoArquivo();
    void AArvoreGrandeDemaisERecusada();

private:
    QString NaPasta(const QString &Nome) const { return FPasta->filePath(Nome); }
    static QString DaArvore(const QString &Nome) { return DadoDeExemplo(QStringLiteral("arvore/") + Nome); }
    TResultado Rodar(const QStringList &Argumentos) const
    {
        return RodarPrograma(FPasta->path(), Argumentos);
    }
    TResultado RodarCom(const QByteArray &Documento, const QStringList &Mais) const
    {
        EscreverBytes(NaPasta(QStringLiteral("d.xml")), Documento);
        return Rodar(QStringList{QStringLiteral("--arvore"), QStringLiteral("d.xml")} + Mais);
    }

    std::unique_ptr<QTemporaryDir> FPasta;
};

namespace
{

const QString Listar = QStringLiteral("--listar");
const QString Atualizar = QStringLiteral("--atualizar");

QString ListaGuardada(const QString &Nome)
{
    return QString::fromUtf8(BytesDe(DadoDeTeste(QStringLiteral("exemplos/") + Nome)));
}

} // namespace

void TesteArvoreNaLinha::ListaOExemploDepoisDasAtualizacoes()
{
    QStringList Argumentos = {QStringLiteral("--arvore"),
                              DaArvore(QStringLiteral("ordem_de_batalha.xml")),
                              QStringLiteral("--raiz"),
                              QStringLiteral("OrdemDeBatalha"),
                              QStringLiteral("--biblioteca"),
                              QStringLiteral("b.txt"),
                              Listar};
    EscreverBytes(NaPasta(QStringLiteral("b.txt")), "1\nComposto   \"Nada\" 0\n");
    for (const char *Documento : {"atualizacao1.xml", "atualizacao2.xml", "atualizacao3.xml"})
        Argumentos += {Atualizar, DaArvore(QLatin1String(Documento))};
    const TResultado R = Rodar(Argumentos);
    QCOMPARE(R.Erros, QString());
    QCOMPARE(R.Codigo, 0);
    QCOMPARE(R.Saida.split(u'\n'), ListaGuardada(QStringLiteral("arvore_atualizada.txt")).split(u'\n'));
}

void TesteArvoreNaLinha::ListaOExemploDepoisDoExercicio()
{
    QStringList Argumentos = {QStringLiteral("--arvore"), DaArvore(QStringLiteral("ordem_de_batalha.xml")),
                              Listar};
    const QDir Exercicio(DaArvore(QStringLiteral("exercicio")));
    for (const QString &Documento : Exercicio.entryList(QDir::Files, QDir::Name))
        Argumentos += {Atualizar, Exercicio.filePath(Documento)};
    QCOMPARE(Argumentos.size(), 3 + 2 * 60);
    const TResultado R = Rodar(Argumentos);
    QCOMPARE(R.Erros, QString());
    QCOMPARE(R.Saida.split(u'\n'), ListaGuardada(QStringLiteral("arvore_exercitada.txt")).split(u'\n'));
}

void TesteArvoreNaLinha::ListaCadaCampoDoNo()
{
    const TResultado R = RodarCom("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n"
                                  "<R><Brigada Nome=\"Um&#9;dois&#10;tr\xEAs\" Cor=\"255\" S\xEDmbolo=\"7\">"
                                  "<Identificadores><Identificador R\xF3tulo=\"C\xF3"
                                  "digo\" Valor=\"=1\"/></Identificadores>"
                                  "<Informa\xE7\xF5"
                                  "es><Informa\xE7\xE3o R\xF3tulo=\"A\" Valor=\"\"/></Informa\xE7\xF5"
                                  "es>"
                                  "<Pelotao Nome=\"Dentro\" Cor=\"-2147483640\"/></Brigada>"
                                  "<Brigada Nome=\"Elo\" Link=\"SIM\"><Identificadores>"
                                  "<Identificador R\xF3tulo=\"C\xF3"
                                  "digo\" Valor=\"=1\"/></Identificadores></Brigada></R>",
                                  {Listar});
    QCOMPARE(R.Erros, QString());
    QCOMPARE(R.Saida, QStringLiteral("Um dois três\tcor=#ff0000\tsimbolo=7\tid.Código==1\tinfo.A=\n"
                                     "  Dentro\tcor=sistema 8\tsimbolo=0\n"
                                     "Um dois três\tcor=#ff0000\tsimbolo=7\tid.Código==1\tlink\n"));
}

// What a link is to show may be told later: it turns into one when it is told again, and not before.
void TesteArvoreNaLinha::SemAlvoOLinkENoComum()
{
    const QByteArray Elo = "<Pelotao Nome='P' Link='sim'><Identificadores><Identificador R\xF3tulo='C' "
                           "Valor='1'/></Identificadores></Pelotao>";
    const QByteArray Alvo = "<Brigada Nome='B' Cor='1'><Identificadores><Identificador R\xF3tulo='C' "
                            "Valor='1'/></Identificadores></Brigada>";
    QCOMPARE(RodarCom("<R>" + Elo + Alvo + "</R>", {Listar}).Saida,
             QStringLiteral("P\tcor=#000000\tsimbolo=0\tid.C=1\n"
                            "B\tcor=#010000\tsimbolo=0\tid.C=1\n"));
    EscreverBytes(NaPasta(QStringLiteral("e.xml")), "<R>" + Alvo + Elo + "</R>");
    QCOMPARE(RodarCom("<R>" + Elo + "</R>", {Listar, Atualizar, QStringLiteral("e.xml")}).Saida,
             QStringLiteral("B\tcor=#010000\tsimbolo=0\tid.C=1\tlink\n"
                            "B\tcor=#010000\tsimbolo=0\tid.C=1\n"));
}

void TesteArvoreNaLinha::DesenhaAArvoreInteira()
{
    const QByteArray Documento =
        "<R><Brigada Nome='Primeira' Cor='255'><Pelotao Nome='Segunda, bem mais comprida'"
        " Cor='255'/></Brigada><Brigada Nome='Terceira' Cor='16711680'/></R>";
    const TResultado R = RodarCom(Documento, {QStringLiteral("--captura"), QStringLiteral("a.png")});
    QCOMPARE(R.Erros, QString());
    QCOMPARE(R.Saida, QString());
    const QImage Quadro(NaPasta(QStringLiteral("a.png")));
    QVERIFY(!Quadro.isNull());
    QCOMPARE(Quadro.height() % 3, 0);
    const int Linha = Quadro.height() / 3;
    const auto Largura = [&](int Qual, const QColor &Cor) { // of what has the colour in a row
        QRect Area;
        for (int Y = Qual * Linha; Y < (Qual + 1) * Linha; ++Y)
            for (int X = 0; X < Quadro.width(); ++X)
                if (Quadro.pixelColor(X, Y) == Cor)
                    Area |= QRect(X, Y, 1, 1);
        return Area;
    };
    QVERIFY(Largura(0, Qt::red).width() > 20);
    QVERIFY(Largura(1, Qt::red).width() > 2 * Largura(0, Qt::red).width());
    QVERIFY(Largura(1, Qt::red).left() > Largura(0, Qt::red).left()); // one level further in
    QVERIFY(Largura(2, Qt::red).isEmpty());
    QVERIFY(Largura(2, Qt::blue).width() > 20);
    // The longest caption is whole: the picture ends behind it, not in it.
    QVERIFY(Largura(1, Qt::red).right() < Quadro.width() - 4);
    QVERIFY(Largura(1, Qt::red).right() > Quadro.width() - 20);
    QCOMPARE(Quadro.pixelColor(Quadro.width() - 1, 0), QColor(Qt::white));
}

void TesteArvoreNaLinha::ASimbologiaMudaOQuadro()
{
    const QByteArray Documento = "<R><Brigada Nome='B' Cor='255'/></R>";
    QCOMPARE(RodarCom(Documento, {QStringLiteral("--captura"), QStringLiteral("a.png")}).Codigo, 0);
    QCOMPARE(
        RodarCom(Documento, {QStringLiteral("--captura"), QStringLiteral("b.png"),
                             QStringLiteral("--biblioteca"), DadoDeExemplo(QStringLiteral("simbolos.txt"))})
            .Codigo,
        0);
    const QImage Sem(NaPasta(QStringLiteral("a.png")));
    const QImage Com(NaPasta(QStringLiteral("b.png")));
    // The symbol is as wide as the row is high, and moves the caption to the right.
    QCOMPARE(Com.width(), Sem.width() + Sem.height());
}

void TesteArvoreNaLinha::AFolhaEAArvoreDeUmaVez()
{
    EscreverBytes(NaPasta(QStringLiteral("b.txt")), "1\nComposto   \"Nada\" 0\n");
    const TResultado R =
        RodarCom("<R><Brigada Nome='B'/></R>",
                 {Listar, QStringLiteral("--biblioteca"), QStringLiteral("b.txt"), QStringLiteral("--folha"),
                  QStringLiteral("f.png"), QStringLiteral("--captura"), QStringLiteral("a.png")});
    QCOMPARE(R.Erros, QString());
    QCOMPARE(R.Saida, QStringLiteral("B\tcor=#000000\tsimbolo=0\n")); // the list is the tree's
    QVERIFY(QFile::exists(NaPasta(QStringLiteral("f.png"))) &&
            QFile::exists(NaPasta(QStringLiteral("a.png"))));
}

void TesteArvoreNaLinha::OutraRaizEUmAviso()
{
    const QByteArray Documento = "<R><Brigada Nome='B'/></R>";
    const TResultado R = RodarCom(Documento, {Listar, QStringLiteral("--raiz"), QStringLiteral("r")});
    QCOMPARE(R.Codigo, 0);
    QCOMPARE(R.Saida, QString());
    QCOMPARE(R.Erros, QStringLiteral("Aviso: O documento <d.xml> não diz nada à árvore.\n"));
    QCOMPARE(RodarCom(Documento, {Listar, QStringLiteral("--raiz"), QStringLiteral("R")}).Erros, QString());
}

void TesteArvoreNaLinha::UmDocumentoEstragadoERecusado()
{
    EscreverBytes(NaPasta(QStringLiteral("e.xml")), "<R>\n<Brigada</R>");
    const TResultado R = RodarCom("<R><Brigada Nome='B'/></R>", {Listar, Atualizar, QStringLiteral("e.xml")});
    QCOMPARE(R.Codigo, 1);
    QCOMPARE(R.Saida, QString());
    QVERIFY2(R.Erros.startsWith(QStringLiteral("Arquivo em formato inválido!\nArquivo <e.xml>:\nLinha 2")),
             qPrintable(R.Erros));
}

void TesteArvoreNaLinha::UmArquivoQueNaoHaERecusado()
{
    const TResultado R = Rodar({QStringLiteral("--arvore"), QStringLiteral("nao.xml"), Listar});
    QCOMPARE(R.Codigo, 1);
    QCOMPARE(R.Saida, QString());
    QCOMPARE(R.Erros.count(QStringLiteral("<nao.xml>")), 1);
}

void TesteArvoreNaLinha::UmElementoQueFalhaEncerraComOLugar()
{
    const TResultado R = RodarCom("<R>\n<Brigada Nome='A'/>\n<Brigada Nome='B'><Pelotao Cor='azul' Nome='P'/>"
                                  "</Brigada></R>",
                                  {Listar});
    QCOMPARE(R.Codigo, 1);
    QCOMPARE(R.Saida, QString());
    QCOMPARE(R.Erros, QStringLiteral("XML em formato inválido!\nArquivo <d.xml>:\n"
                                     "Linha 3, R/Brigada/Pelotao: <azul> não é um número inteiro válido!\n"));
    // The document is where it was: no copy of it is left anywhere.
    QCOMPARE(QDir(FPasta->path()).entryList(QDir::Files), QStringList(QStringLiteral("d.xml")));
}

void TesteArvoreNaLinha::UmaImagemRecusadaNaoTocaNoArquivo()
{
    EscreverBytes(NaPasta(QStringLiteral("a.nada")), "antes");
    const TResultado R =
        RodarCom("<R><Brigada Nome='B'/></R>", {QStringLiteral("--captura"), QStringLiteral("a.nada")});
    QCOMPARE(R.Codigo, 1);
    QVERIFY(R.Erros.startsWith(QStringLiteral("A imagem <a.nada> não pode ser gravada!\n")));
    QCOMPARE(BytesDe(NaPasta(QStringLiteral("a.nada"))), QByteArray("antes"));
}

void TesteArvoreNaLinha::AArvoreGrandeDemaisERecusada()
{
    QByteArray Documento = "<R>";
    for (int I = 0; I < 5000; ++I)
        Documento += "<Brigada Nome='" + QByteArray::number(I) + "'/>";
    const TResultado R = RodarCom(Documento + "</R>", {QStringLiteral("--captura"), QStringLiteral("a.png")});
    QCOMPARE(R.Codigo, 1);
    QVERIFY2(R.Erros.startsWith(QStringLiteral("A árvore fica grande demais!\nSeriam ")),
             qPrintable(R.Erros));
    QVERIFY(!QFile::exists(NaPasta(QStringLiteral("a.png"))));
}

QTEST_GUILESS_MAIN(TesteArvoreNaLinha)
#include "TesteArvoreNaLinha.moc"
