// SPDX-License-Identifier: LGPL-2.1-or-later
// Corners of the vocabulary, of deleting, of menus and cursors, and of where exactly a row draws what.
#include "CenaDaArvore.h"
#include "arvore/TagsXML.h"
#include "plataforma/Exception.h"

#include <QApplication>
#include <QMenu>
#include <QWindow>

#include <functional>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

constexpr QRgb Cinza = 0xFF808080U;

// What the view asks of its frame, to the letter.
class TFrameEspiao : public TVisualizadorInformacoesXML
{
public:
    QStringList Textos;
    void ProcessarXML(const QString &Texto) override { Textos += Texto; }
};

class TVistaAberta : public TTreeViewXML
{
public:
    using TTreeViewXML::IsCustomDrawn;
    std::vector<bool> Respostas;
    std::vector<bool> Imagens;

protected:
    bool CustomDrawItem(TTreeNode &No, const TEstadoDoItem &Estado, TEstagioDoDesenho Estagio,
                        bool &PaintImages) override
    {
        PaintImages = false;
        Respostas.push_back(TTreeViewXML::CustomDrawItem(No, Estado, Estagio, PaintImages));
        Imagens.push_back(PaintImages);
        return Respostas.back();
    }
};

class TNoComItem : public ComClasse<TNoComItem, TTreeNodeXML>
{
public:
    using ComClasse::ComClasse;
    static constexpr const char *NomeDaClasse = "TNoComItem";
    void ConfigurarPopup(QMenu &Menu) override { Menu.addAction(QStringLiteral("De ") + Text()); }
};

QStringList Itens(const QMenu &Menu)
{
    QStringList Textos;
    for (const QAction *Acao : Menu.actions())
        Textos += Acao->text();
    return Textos;
}

// Places of the colour in an area of a picture.
QRegion Pixels(const QImage &Imagem, const QRect &Area, QRgb Cor)
{
    QRegion Achados;
    for (int Y = Area.top(); Y <= Area.bottom(); ++Y)
        for (int X = Area.left(); X <= Area.right(); ++X)
            if (Imagem.valid(X, Y) && Imagem.pixel(X, Y) == Cor)
                Achados += QRect(X, Y, 1, 1);
    return Achados;
}

// First column of an area with red in it, also of the soft edges of letters; -1 when there is none.
int PrimeiroVermelho(const QImage &Imagem, const QRect &Area)
{
    for (int X = Area.left(); X <= Area.right(); ++X)
        for (int Y = Area.top(); Y <= Area.bottom(); ++Y)
            if (const QRgb P = Imagem.pixel(X, Y); qRed(P) > qGreen(P) + 40)
                return X;
    return -1;
}

int Quantos(const QRegion &Regiao)
{
    int Soma = 0;
    for (const QRect &Parte : Regiao)
        Soma += Parte.width() * Parte.height();
    return Soma;
}

QRegion Contorno(const QRect &Caixa)
{
    return QRegion(Caixa) - QRegion(Caixa.adjusted(1, 1, -1, -1));
}

// The signs in the box, as the rule has them: a line ends before its last point.
QRegion Sinais(const QRect &Caixa, bool Aberta)
{
    const int Direita = Caixa.left() + 9;
    const int Base = Caixa.top() + 9;
    const int CX = (Caixa.left() + Direita) / 2;
    const int CY = (Caixa.top() + Base) / 2;
    QRegion Menos(Caixa.left() + 2, CY, Direita - 2 - (Caixa.left() + 2), 1);
    if (Aberta)
        return Menos;
    return Menos + QRegion(CX, Caixa.top() + 2, 1, Base - 2 - (Caixa.top() + 2));
}

} // namespace

class TesteCasosDaArvore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void CadaNomeDoVocabulario_data();
    void CadaNomeDoVocabulario();
    void NomesDoVocabularioVoltamDeUmDocumento();
    void NomeSemAcentoNaoELista();
    void ALegendaEmOutraCaixaNaoEOMesmoNo();
    void ObterNoNuncaDaUmLink();
    void CaminhoAmbiguoDaOPrimeiro();
    void ExcluirTodosSegueDepoisDeUmaRecusa();
    void CarregarNaoPedeConsentimento();
    void OFrameRecebeCabecalhoEInformacao();
    void OApagadoNaoMudaODesenho();
    void SoOEstagioAntesDaPintura();
    void CadaLinhaDesenhaTudoELigaAsImagens();
    void CliqueForaDosNosNaoMudaOMenu();
    void ItensDepoisDaContagemSaem();
    void SemMenuOCliqueDireitoSoSeleciona();
    void CursorDeMaoDeLinkParaLink();
    void DuploCliqueEmQuemNaoELink();
    void LinhasECaixaPelaRegra_data();
    void LinhasECaixaPelaRegra();
    void OUltimoFilhoParaNoMeio();
    void SemSimboloALegendaComecaDepoisDaCaixa_data();
    void SemSimboloALegendaComecaDepoisDaCaixa();
    void OSublinhadoDoLinkTemALarguraDaLegenda();
};

void TesteCasosDaArvore::initTestCase()
{
    CarregarFontes();
}

void TesteCasosDaArvore::CadaNomeDoVocabulario_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QByteArray>("Bytes");
    const auto Linha = [](QStringView Nome, const char *Latin1) {
        QTest::newRow(Latin1) << Nome.toString() << QByteArray(Latin1);
    };
    Linha(_ANGULO_INICIAL_, "AnguloInicial");
    Linha(_ANGULO_FINAL_, "AnguloFinal");
    Linha(_COR_, "Cor");
    Linha(_COR_PREENCHIMENTO_, "CorPreenchimento");
    Linha(_ESTILO_, "Estilo");
    Linha(_ESTILO_PREENCHIMENTO_, "EstiloPreenchimento");
    Linha(_ESPESSURA_, "Espessura");
    Linha(_DATAHORA_, "Datahora");
    Linha(_FORMA_, "Forma");
    Linha(_IDENTIFICADOR_, "Identificador");
    Linha(_IDENTIFICADORES_, "Identificadores");
    Linha(_INFORMACAO_, "Informa\xE7\xE3o");
    Linha(_INFORMACOES_, "Informa\xE7\xF5"
                         "es");
    Linha(_LATITUDE_, "Latitude");
    Linha(_LINK_, "Link");
    Linha(_LONGITUDE_, "Longitude");
    Linha(_LETRA_, "Letra");
    Linha(_NOME_, "Nome");
    Linha(_NOME_FONTE_, "Fonte");
    Linha(_ORIENTACAO_, "Orienta\xE7\xE3o");
    Linha(_PONTO_, "Ponto");
    Linha(_PONTOS_, "Pontos");
    Linha(_POSICAO_, "Posi\xE7\xE3o");
    Linha(_PRONTIFICACAO_, "Prontifica\xE7\xE3o");
    Linha(_RAIO_INTERNO_, "RaioInterno");
    Linha(_RAIO_EXTERNO_, "RaioExterno");
    Linha(_RAIO_INTERNO_Y_, "RaioInternoY");
    Linha(_RAIO_EXTERNO_Y_, "RaioExternoY");
    Linha(_ROTULO_, "R\xF3tulo");
    Linha(_SEQUENCIA_, "Sequ\xEAncia");
    Linha(_SIMBOLO_, "S\xEDmbolo");
    Linha(_TIPO_, "Tipo");
    Linha(_VALOR_, "Valor");
    Linha(_VELOCIDADE_, "Velocidade");
    Linha(_ABSOLUTO_, "Absoluto");
    Linha(_OPERANTE_, "Operante");
    Linha(_RELATIVO_, "Relativo");
}

void TesteCasosDaArvore::CadaNomeDoVocabulario()
{
    QFETCH(QString, Nome);
    QFETCH(QByteArray, Bytes);
    QCOMPARE(Nome.toLatin1(), Bytes);
    // As an element and as an attribute, through a document with the declaration of all of them.
    const QByteArray Documento =
        CABECALHOXML.toLatin1() + '<' + Bytes + ' ' + Bytes + "='v'><" + Bytes + "/></" + Bytes + '>';
    const auto Lido = TXMLDocument::DeBytes(Documento);
    QVERIFY(Lido->Raiz().NomeE(Nome));
    QCOMPARE(Lido->Raiz().Attribute(Nome), QStringLiteral("v"));
    QVERIFY(Lido->Raiz().FindNode(Nome));
}

void TesteCasosDaArvore::NomesDoVocabularioVoltamDeUmDocumento()
{
    TTreeViewXML Vista;
    TTreeNodeXML *No = Novo(Vista, nullptr, U("A", "1"));
    No->Informacao().Assign(TStringList(QStringList{"Posição=23K", "Prontidão=Sim"}));
    const QString Texto = CABECALHOXML.toString() + PULALINHA.toString() + QStringLiteral("<U>") +
                          No->ObterXMLIdentificacao() + No->ObterXMLInformacao() + QStringLiteral("</U>");
    const auto Lido = TXMLDocument::DeBytes(Texto.toLatin1());
    const TCursorXML Raiz = Lido->Raiz();
    QVERIFY(Raiz.FindNode(_IDENTIFICADORES_).FindNode(_IDENTIFICADOR_).HasAttribute(_ROTULO_));
    QCOMPARE(Raiz.FindNode(_INFORMACOES_).FindNode(_INFORMACAO_).Attribute(_VALOR_), QStringLiteral("23K"));
}

void TesteCasosDaArvore::NomeSemAcentoNaoELista()
{
    TTreeViewXML Vista;
    TTreeNodeXML *No =
        Novo(Vista, nullptr,
             QStringLiteral("<U Nome='A'>"
                            "<Informacoes><Informação Rótulo='p' Valor='1'/></Informacoes>"
                            "<Informações><Informacao Rótulo='q' Valor='2'/>"
                            "<Informação Rotulo='r' Valor='3'/></Informações>"
                            "<identificadores><Identificador Rótulo='c' Valor='1'/></identificadores>"
                            "</U>"));
    QCOMPARE(No->Identificacao().Count(), 0);
    QCOMPARE(No->Informacao().ParaQStringList(), QStringList{"=3"}); // the item without its name attribute
}

void TesteCasosDaArvore::ALegendaEmOutraCaixaNaoEOMesmoNo()
{
    TTreeViewXML Vista;
    Novo(Vista, nullptr, U("Posto", "1"));
    const auto Elemento = [](const QString &XML) { return TXMLDocument::DeTexto(XML)->DocumentElement(); };
    QVERIFY(Vista.ObterNoPeloXML(nullptr, Elemento(QStringLiteral("<U Nome='Posto'/>")), {}) != nullptr);
    QVERIFY(Vista.ObterNoPeloXML(nullptr, Elemento(QStringLiteral("<U Nome='POSTO'/>")), {}) == nullptr);
    QVERIFY(Vista.ObterNoPeloXML(nullptr, Elemento(QStringLiteral("<U Nome='Posto '/>")), {}) == nullptr);
}

void TesteCasosDaArvore::ObterNoNuncaDaUmLink()
{
    TTreeViewXML Vista;
    TTreeNodeXML *Alvo = Novo(Vista, nullptr, U("A", "1"));
    TTreeNodeXML *Elo = Novo(Vista, nullptr, U("elo", "1", {}, "Link='sim'"));
    QVERIFY(Elo->Link());
    const TStringList Lista(QStringList{"c=1"});
    QCOMPARE(Vista.ObterNo(Lista), Alvo);
    std::vector<TTreeNodeXML *> Todos;
    Vista.ObterNos(Todos, Lista);
    QVERIFY(Todos == (std::vector<TTreeNodeXML *>{Alvo, Elo}));
    Vista.Nos().Delete(Alvo);
    QVERIFY(Vista.ObterNo(Lista) == nullptr); // the link alone is none
    Todos.clear();
    Vista.ObterNos(Todos, Lista);
    QVERIFY(Todos == std::vector<TTreeNodeXML *>{Elo});
}

void TesteCasosDaArvore::CaminhoAmbiguoDaOPrimeiro()
{
    TTreeViewXML Vista;
    TTreeNode *Inteiro = Vista.Nos().AddChild(nullptr, QStringLiteral("A/B"));
    TTreeNode *A = Vista.Nos().AddChild(nullptr, QStringLiteral("A"));
    TTreeNode *B = Vista.Nos().AddChild(A, QStringLiteral("B"));
    QCOMPARE(Vista.ObterNo(QStringLiteral("A/B")), Inteiro);
    QCOMPARE(ObterNoPeloPath(Vista, QStringLiteral("A.B"), QStringLiteral(".")), B);
    Vista.Nos().Delete(Inteiro);
    QCOMPARE(Vista.ObterNo(QStringLiteral("A/B")), B);
    QVERIFY(Vista.ObterNo(QString()) == nullptr);
}

void TesteCasosDaArvore::ExcluirTodosSegueDepoisDeUmaRecusa()
{
    TTreeViewXML Vista;
    for (const char *Nome : {"A", "B", "C"})
        Novo(Vista, nullptr, U(QString::fromLatin1(Nome), "1"));
    TTreeNodeXML *D = Novo(Vista, nullptr, U("D", "2"));
    Novo(Vista, D, U("E", "1", {}, "Link='sim'"));
    QStringList Perguntas;
    Vista.AoExcluirNo = [&](TTreeViewXML &, TTreeNode &No, bool &Pode) {
        Perguntas += No.Text();
        Pode = No.Text() != u"B";
    };
    Vista.ExcluirTodosOsNos(TStringList(QStringList{"c=1"}));
    QCOMPARE(Perguntas, QStringList({"A", "B", "C", "A"})); // the last is the link, by its target's caption
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("B D"));
}

void TesteCasosDaArvore::CarregarNaoPedeConsentimento()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Novo(Vista, nullptr, U("A", "1", U("B", "2")));
    int Perguntas = 0;
    Vista.AoExcluirNo = [&](TTreeViewXML &, TTreeNode &, bool &Pode) {
        ++Perguntas;
        Pode = false;
    };
    Vista.AtribuirXML(TStringList(QStringList{Doc(U("C", "3"))}));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("C"));
    QCOMPARE(Perguntas, 0);
}

void TesteCasosDaArvore::OFrameRecebeCabecalhoEInformacao()
{
    TCena Cena;
    TFrameEspiao Frame;
    Cena.Vista.AtribuirFrameDeInformacoes(&Frame);
    Cena.B->Informacao().Assign(TStringList(QStringList{"p=1 & 2"}));
    Cena.Vista.AtribuirSelected(Cena.B);
    QCOMPARE(Frame.Textos, QStringList("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<Informações>\r\n"
                                       "<Informação Rótulo=\"p\" Valor=\"1 &amp; 2\"/>\r\n</Informações>"));
    Cena.Vista.AtribuirSelected(Cena.Elo->GetNextSibling()); // no XML node
    Cena.Vista.AtribuirSelected(nullptr);
    QCOMPARE(Frame.Textos.size(), 1);
    Cena.Vista.AtribuirSelected(Cena.C); // has none: still told
    QCOMPARE(Frame.Textos.last(), QStringLiteral("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n"
                                                 "<Informações>\r\n</Informações>"));
}

void TesteCasosDaArvore::OApagadoNaoMudaODesenho()
{
    TCena Cena;
    const QImage Antes = Cena.Imagem();
    Cena.B->AtribuirApagado(true);
    Cena.Elo->AtribuirApagado(true);
    QVERIFY(Cena.B->ObterApagado());
    QCOMPARE(Cena.Imagem(), Antes);
}

void TesteCasosDaArvore::SoOEstagioAntesDaPintura()
{
    TVistaAberta Vista;
    QVERIFY(Vista.IsCustomDrawn(TAlvoDoDesenho::Controle, TEstagioDoDesenho::PrePintura));
    QVERIFY(Vista.IsCustomDrawn(TAlvoDoDesenho::Item, TEstagioDoDesenho::PrePintura));
    QVERIFY(!Vista.IsCustomDrawn(TAlvoDoDesenho::SubItem, TEstagioDoDesenho::PrePintura));
    for (const auto Alvo : {TAlvoDoDesenho::Controle, TAlvoDoDesenho::Item, TAlvoDoDesenho::SubItem})
        QVERIFY(!Vista.IsCustomDrawn(Alvo, TEstagioDoDesenho::PosPintura));
}

void TesteCasosDaArvore::CadaLinhaDesenhaTudoELigaAsImagens()
{
    TVistaAberta Vista;
    Novo(Vista, nullptr, U("A", "1"));
    Vista.Nos().AddChild(nullptr, QStringLiteral("não é XML"));
    Vista.resize(200, 100);
    Vista.show();
    QVERIFY(QTest::qWaitForWindowExposed(&Vista));
    Vista.Respostas.clear();
    Vista.Imagens.clear();
    Vista.grab();
    QVERIFY(Vista.Respostas == std::vector<bool>({false, false})); // nothing is left to the control
    QVERIFY(Vista.Imagens == std::vector<bool>({true, true}));
}

void TesteCasosDaArvore::CliqueForaDosNosNaoMudaOMenu()
{
    TCena Cena;
    Focar(Cena.Vista);
    TTreeNodeXML *ComItem = Novo(Cena.Vista, nullptr, U("M", "m"), TRefNoXML::De<TNoComItem>());
    QMenu Menu;
    Menu.addAction(QStringLiteral("Fixo"));
    Cena.Vista.AtribuirPopupMenu(&Menu);
    const auto Clicar = [&](int Y) {
        QTest::mouseClick(Cena.Vista.windowHandle(), Qt::RightButton, {}, NaJanela(Cena.Vista, {80, Y}));
        const bool Aberto = Menu.isVisible();
        Menu.close();
        QCoreApplication::processEvents();
        return Aberto;
    };
    const TRect Linha = Cena.Vista.DisplayRect(ComItem);
    QVERIFY(Clicar((Linha.Top + Linha.Bottom) / 2));
    QCOMPARE(Itens(Menu), QStringList({"Fixo", "De M"}));
    QVERIFY(Cena.Vista.GetNodeAt(80, Linha.Bottom + 4) == nullptr);
    QVERIFY(Clicar(Linha.Bottom + 4)); // shown all the same, as the last node left it
    QCOMPARE(Itens(Menu), QStringList({"Fixo", "De M"}));
    QCOMPARE(Cena.Vista.Selected(), ComItem);
}

// The menu's own items are counted once: what the host adds afterwards counts as a node's.
void TesteCasosDaArvore::ItensDepoisDaContagemSaem()
{
    TCena Cena;
    Focar(Cena.Vista);
    QMenu Menu;
    Menu.addAction(QStringLiteral("Fixo"));
    Cena.Vista.AtribuirPopupMenu(&Menu);
    const TRect Linha = Cena.Vista.DisplayRect(Cena.A);
    const auto Clicar = [&] {
        QTest::mouseClick(Cena.Vista.windowHandle(), Qt::RightButton, {},
                          NaJanela(Cena.Vista, {80, (Linha.Top + Linha.Bottom) / 2}));
        Menu.close();
        QCoreApplication::processEvents();
    };
    Clicar();
    Menu.addAction(QStringLiteral("Depois"));
    Clicar();
    QCOMPARE(Itens(Menu), QStringList{"Fixo"});
}

void TesteCasosDaArvore::SemMenuOCliqueDireitoSoSeleciona()
{
    TCena Cena;
    Focar(Cena.Vista);
    const TRect Linha = Cena.Vista.DisplayRect(Cena.C);
    QTest::mouseClick(Cena.Vista.windowHandle(), Qt::RightButton, {},
                      NaJanela(Cena.Vista, {80, (Linha.Top + Linha.Bottom) / 2}));
    QCOMPARE(Cena.Vista.Selected(), Cena.C);
    QVERIFY(QApplication::activePopupWidget() == nullptr);
}

void TesteCasosDaArvore::CursorDeMaoDeLinkParaLink()
{
    TCena Cena;
    TTreeNodeXML *Outro = Novo(Cena.Vista, nullptr, U("outro", "2", {}, "Link='sim'"));
    QVERIFY(Outro->Link());
    QVERIFY(QTest::qWaitForWindowExposed(&Cena.Vista));
    Cena.Vista.setCursor(Qt::CrossCursor);
    const auto Mover = [&](int Y) {
        QTest::mouseMove(Cena.Vista.windowHandle(), NaJanela(Cena.Vista, {80, Y}));
        QCoreApplication::processEvents();
        return Cena.Vista.cursor().shape();
    };
    const auto Meio = [&](const TTreeNode *No) {
        const TRect Linha = Cena.Vista.DisplayRect(No);
        return (Linha.Top + Linha.Bottom) / 2;
    };
    QCOMPARE(Mover(Meio(Cena.Elo)), Qt::PointingHandCursor);
    QCOMPARE(Mover(Meio(Outro)), Qt::PointingHandCursor); // the hand is not what is remembered
    QCOMPARE(Mover(Meio(Outro) + 20), Qt::CrossCursor);   // below all rows
    QCOMPARE(Mover(Meio(Cena.Elo)), Qt::PointingHandCursor);
    QCOMPARE(Mover(Meio(Cena.Elo->GetNextSibling())), Qt::CrossCursor);
}

void TesteCasosDaArvore::DuploCliqueEmQuemNaoELink()
{
    TCena Cena;
    Focar(Cena.Vista);
    const TRect Linha = Cena.Vista.DisplayRect(Cena.C);
    QTest::mouseDClick(Cena.Vista.windowHandle(), Qt::LeftButton, {},
                       NaJanela(Cena.Vista, {120, (Linha.Top + Linha.Bottom) / 2}));
    QCOMPARE(Cena.Vista.Selected(), Cena.C);
    QTest::mouseDClick(Cena.Vista.windowHandle(), Qt::LeftButton, {},
                       NaJanela(Cena.Vista, {120, Cena.Vista.viewport()->height() - 2})); // no row there
    QCOMPARE(Cena.Vista.Selected(), Cena.C);
}

void TesteCasosDaArvore::LinhasECaixaPelaRegra_data()
{
    QTest::addColumn<int>("Altura");
    for (const int Altura : {9, 10, 15, 16, 17, 23, 24, 31, 40})
        QTest::addRow("%d", Altura) << Altura;
}

// Every grey pixel of a row up to its symbol is where the arithmetic puts it; solid strokes are whole, dotted
// ones have a good part of their places.
void TesteCasosDaArvore::LinhasECaixaPelaRegra()
{
    QFETCH(int, Altura);
    constexpr int Recuo = 19;
    TCena Cena(Altura);
    QVERIFY(QTest::qWaitForWindowExposed(&Cena.Vista));
    const QImage Imagem = Cena.Imagem();
    for (TTreeNodeXML *No : {Cena.A, Cena.B, Cena.C, Cena.Elo, Cena.Fechado, Cena.Ultimo}) {
        const TRect R = Cena.Vista.DisplayRect(No);
        const int H = R.Bottom - R.Top;
        QCOMPARE(H, Altura);
        const int Meio = (R.Top + R.Bottom) / 2;
        const int D = (H - 9) / 2;
        const QRect Caixa(No->Level() * Recuo + 5 + D, R.Top + D, 9, 9);
        const QRect Antes(0, R.Top, Caixa.left() + 9 + 2, H); // what lies before the symbol
        const bool UltimoFilho = No->Parent() != nullptr && No->GetNextSibling() == nullptr;
        QRegion Pontilhado;
        int X = 5 + H / 2;
        for (int Nivel = 1; Nivel < No->Level(); ++Nivel, X += Recuo)
            Pontilhado += QRect(X, R.Top, 1, H);
        Pontilhado += QRect(X, R.Top, 1, (UltimoFilho ? Meio : R.Bottom) - R.Top);
        Pontilhado += QRect(X, Meio, Antes.right() + 1 - X, 1);
        Pontilhado &= Antes;
        QRegion Cheio;
        if (No->HasChildren()) {
            Cheio = Contorno(Caixa) + Sinais(Caixa, No->Expanded());
            Pontilhado -= Caixa; // the box is opaque
        }
        const QRegion Cinzas = Pixels(Imagem, Antes, Cinza);
        const QByteArray Qual = No->Text().toUtf8();
        QVERIFY2((Cinzas - Cheio - Pontilhado).isEmpty(), Qual.constData());
        QVERIFY2((Cheio - Cinzas).isEmpty(), Qual.constData());
        QVERIFY2(3 * Quantos(Cinzas & Pontilhado) + 3 >= Quantos(Pontilhado), Qual.constData());
    }
}

void TesteCasosDaArvore::OUltimoFilhoParaNoMeio()
{
    TCena Cena;
    QVERIFY(QTest::qWaitForWindowExposed(&Cena.Vista));
    const QImage Imagem = Cena.Imagem();
    const auto AbaixoDoMeio = [&](const TTreeNode *No) {
        const TRect R = Cena.Vista.DisplayRect(No);
        const int X = 5 + 8 + 19 * std::max(No->Level() - 1, 0);
        return Quantos(Pixels(Imagem, QRect(X, (R.Top + R.Bottom) / 2 + 1, 1, 7), Cinza));
    };
    QCOMPARE(AbaixoDoMeio(Cena.Fechado), 0); // the last child
    QVERIFY(AbaixoDoMeio(Cena.B) > 0);       // has siblings below
    QVERIFY(AbaixoDoMeio(Cena.Ultimo) > 0);  // a top-level node always has the whole line
    QCOMPARE(AbaixoDoMeio(Cena.C->GetNextSibling()->GetNextSibling()), 0);
}

void TesteCasosDaArvore::SemSimboloALegendaComecaDepoisDaCaixa_data()
{
    QTest::addColumn<int>("Indice");
    QTest::addColumn<bool>("ComSimbolo");
    QTest::newRow("o primeiro") << 0 << true;
    QTest::newRow("o ultimo da tabela") << 2 << true;
    QTest::newRow("um a mais") << 3 << false;
    QTest::newRow("negativo") << -1 << false;
    QTest::newRow("maior inteiro") << INT_MAX << false;
    QTest::newRow("menor inteiro") << INT_MIN << false;
}

void TesteCasosDaArvore::SemSimboloALegendaComecaDepoisDaCaixa()
{
    QFETCH(int, Indice);
    QFETCH(bool, ComSimbolo);
    TCena Cena;
    QVERIFY(QTest::qWaitForWindowExposed(&Cena.Vista));
    Cena.Ultimo->AtribuirText(QStringLiteral("HHH")); // begins with an upright stroke
    Cena.Ultimo->AtribuirCor(0xFF);                   // red
    Cena.Ultimo->AtribuirImageIndex(Indice);
    Cena.Vista.AtribuirTabelaDeSimbolos(nullptr);
    const TRect R = Cena.Vista.DisplayRect(Cena.Ultimo);
    const int SemTabela = PrimeiroVermelho(Cena.Imagem(), QRect(0, R.Top, 260, 16));
    const int Comeco = 5 + 3 + 9 + 2; // margin, (16 - 9) / 2, box, gap
    QVERIFY2(SemTabela >= Comeco && SemTabela < Comeco + 4, qPrintable(QString::number(SemTabela)));
    Cena.Vista.AtribuirTabelaDeSimbolos(Cena.Simbolos.get());
    for (const auto &Simbolo : Cena.Simbolos->Simbolos())
        dynamic_cast<TSimboloFonte &>(*Simbolo).Proporcao = 0; // takes its place and draws nothing
    const int ComTabela = PrimeiroVermelho(Cena.Imagem(), QRect(0, R.Top, 260, 16));
    QCOMPARE(ComTabela,
             ComSimbolo ? SemTabela + 16 : SemTabela); // a symbol's place is as wide as the row is high
}

void TesteCasosDaArvore::OSublinhadoDoLinkTemALarguraDaLegenda()
{
    TCena Cena;
    QVERIFY(QTest::qWaitForWindowExposed(&Cena.Vista));
    const TRect R = Cena.Vista.DisplayRect(Cena.Elo);
    const QRgb Vermelho = 0xFFFF0000U;
    const int Inicio = 19 + 5 + 3 + 9 + 2 + 16; // level 1, margin, (16 - 9) / 2, box, gap, symbol
    const QRegion Linha = Pixels(Cena.Imagem(), QRect(Inicio, R.Bottom - 3, 206 - Inicio, 1), Vermelho);
    const QFontMetrics Medidas = [] {
        QFont Letra(FamiliaDeTexto);
        Letra.setPixelSize(11);
        return QFontMetrics(Letra);
    }();
    const int Largura = Medidas.horizontalAdvance(Cena.Elo->Text());
    QVERIFY(Linha.boundingRect().left() >= Inicio && Linha.boundingRect().left() <= Inicio + 2);
    QVERIFY2(
        std::abs(Linha.boundingRect().right() + 1 - (Inicio + Largura)) <= 2,
        qPrintable(
            QStringLiteral("%1 em vez de %2").arg(Linha.boundingRect().right() + 1).arg(Inicio + Largura)));
    // Dotted: between a third and two thirds of its places.
    QVERIFY(3 * Quantos(Linha) >= Largura && 3 * Quantos(Linha) <= 2 * Largura + 3);
}

QTEST_MAIN(TesteCasosDaArvore)
#include "TesteCasosDaArvore.moc"
