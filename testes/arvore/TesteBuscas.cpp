// SPDX-License-Identifier: LGPL-2.1-or-later
// Searches against the plain walk that defines them, on random trees that change between searches.
#include "arvore/TreeNodeXML.h"
#include "arvore/TreeNodesXML.h"
#include "plataforma/Strings.h"

#include <QElapsedTimer>
#include <QTest>

#include <algorithm>
#include <array>
#include <random>

using namespace Sibrel;

namespace
{

using TAcaso = std::mt19937;

int Ate(TAcaso &Acaso, int Limite)
{
    return static_cast<int>(Acaso() % static_cast<unsigned>(Limite));
}

// The rule itself, on texts.
bool IdentificaPelaRegra(const TStrings &DoNo, const TStrings &Lista)
{
    if (Lista.Count() == 0 || Lista.Count() != DoNo.Count())
        return false;
    for (int I = 0; I < Lista.Count(); ++I) {
        const QString Nome = Lista.Names(I);
        if (DoNo.Values(Nome) != Lista.Values(Nome))
            return false;
    }
    return true;
}

QStringList ListaAoAcaso(TAcaso &Acaso)
{
    static const QStringList Pecas{"a=1", "a=2", "b=1", "B=1", "b=",  "c",  "=x",   "=",
                                   "a=1", "b=2", "ç=1", "Ç=1", "d=9", "a=", "x=y=z"};
    QStringList Lista;
    const int Quantas = Ate(Acaso, 4);
    for (int I = 0; I < Quantas; ++I)
        Lista.append(Pecas[Ate(Acaso, static_cast<int>(Pecas.size()))]);
    return Lista;
}

QString LegendaAoAcaso(TAcaso &Acaso)
{
    static const QStringList Pecas{"A", "B", "a", "A/B", "", "/", "Ção", "ção", "AB", "ÇÃO"};
    return Pecas[Ate(Acaso, static_cast<int>(Pecas.size()))];
}

QString CaminhoDe(const TTreeNode *No, const QString &Separador)
{
    QString Caminho = No->Text();
    for (No = No->Parent(); No != nullptr; No = No->Parent())
        Caminho = No->Text() + Separador + Caminho;
    return Caminho;
}

std::vector<TTreeNode *> Todos(const TTreeNodesXML &Nos)
{
    std::vector<TTreeNode *> Lista;
    for (TTreeNode *No = Nos.GetFirstNode(); No != nullptr; No = No->GetNext())
        Lista.push_back(No);
    return Lista;
}

class TArvoreAoAcaso
{
public:
    explicit TArvoreAoAcaso(unsigned Semente, int Ramos)
        : FAcaso(Semente)
        , FRamos(Ramos)
    {
    }

    void Mexer()
    {
        const std::vector<TTreeNode *> Lista = Todos(Nos);
        TTreeNode *Algum = Lista.empty() ? nullptr : Lista[std::size_t(Ate(FAcaso, int(Lista.size())))];
        switch (Ate(FAcaso, 10)) {
        case 0:
            Nos.Delete(Algum);
            break;
        case 1:
            if (Algum != nullptr)
                Algum->AtribuirText(LegendaAoAcaso(FAcaso));
            break;
        case 2:
            if (auto *XML = dynamic_cast<TTreeNodeXML *>(Algum))
                XML->Identificacao().Assign(TStringList(ListaAoAcaso(FAcaso)));
            break;
        case 3:
            if (auto *XML = dynamic_cast<TTreeNodeXML *>(Algum))
                XML->TransformarEmLink();
            break;
        case 4:
            if (Ate(FAcaso, 60) == 0)
                Nos.Clear();
            break;
        default:
            Crescer(Algum);
        }
    }

    void Crescer(TTreeNode *Algum)
    {
        // Few parents, so that some have many children.
        TTreeNode *Pai = Algum != nullptr && Ate(FAcaso, 3) == 0 && Algum->Index() < FRamos ? Algum : nullptr;
        if (Ate(FAcaso, 8) == 0) {
            Nos.AddChild(Pai, LegendaAoAcaso(FAcaso));
            return;
        }
        auto No = std::make_unique<TTreeNodeXML>(Nos);
        No->AtribuirText(LegendaAoAcaso(FAcaso));
        No->Identificacao().Assign(TStringList(ListaAoAcaso(FAcaso)));
        Nos.AddNode(std::move(No), Pai);
    }

    TTreeNodesXML Nos;
    TAcaso FAcaso;

private:
    int FRamos;
};

} // namespace

class TesteBuscas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ContraAVarredura_data();
    void ContraAVarredura();
    void LegendasPelasOpcoes_data();
    void LegendasPelasOpcoes();
    void MuitasChavesContraAVarredura();
    void NomesDobradosSeAcham_data();
    void NomesDobradosSeAcham();
    void CaminhoSoDoTopo();
    void CadaAchadoUmaVez();
    void CemMilIrmaosIguais();
    void CemMilLinks();
};

void TesteBuscas::ContraAVarredura_data()
{
    QTest::addColumn<unsigned>("Semente");
    QTest::addColumn<int>("Ramos");
    for (unsigned S = 1; S <= 12; ++S)
        QTest::addRow("%u", S) << S << int(1 + S % 4);
}

void TesteBuscas::ContraAVarredura()
{
    QFETCH(unsigned, Semente);
    QFETCH(int, Ramos);
    TArvoreAoAcaso A(Semente, Ramos);
    int Achados = 0;
    for (int Volta = 0; Volta < 1500; ++Volta) {
        A.Mexer();
        const std::vector<TTreeNode *> Lista = Todos(A.Nos);
        QCOMPARE(A.Nos.Count(), int(Lista.size()));
        const TStringList Procurada(ListaAoAcaso(A.FAcaso));
        const TIdentificacao Identificacao(Procurada);

        std::vector<TTreeNodeXML *> PelaRegra;
        TTreeNodeXML *PrimeiroSemLink = nullptr;
        for (TTreeNode *No : Lista) {
            auto *XML = dynamic_cast<TTreeNodeXML *>(No);
            if (XML == nullptr || !IdentificaPelaRegra(XML->Identificacao(), Procurada))
                continue;
            PelaRegra.push_back(XML);
            if (PrimeiroSemLink == nullptr && !XML->Link())
                PrimeiroSemLink = XML;
        }
        QVERIFY(A.Nos.ObterNos(Identificacao) == PelaRegra);
        QCOMPARE(A.Nos.ObterNo(Identificacao), PrimeiroSemLink);
        Achados += int(PelaRegra.size());

        const QString Legenda = LegendaAoAcaso(A.FAcaso);
        TTreeNode *Pai =
            Lista.empty() || Volta % 2 == 0 ? nullptr : Lista[std::size_t(Ate(A.FAcaso, int(Lista.size())))];
        TTreeNodeXML *Filho = nullptr;
        for (TTreeNode *No = A.Nos.PrimeiroFilho(Pai); No != nullptr && Filho == nullptr;
             No = No->GetNextSibling())
            if (auto *XML = dynamic_cast<TTreeNodeXML *>(No);
                XML != nullptr && XML->Text() == Legenda &&
                (Procurada.Count() == 0 || IdentificaPelaRegra(XML->Identificacao(), Procurada)))
                Filho = XML;
        QCOMPARE(A.Nos.ObterFilho(Pai, Legenda.toUtf8(), Identificacao), Filho);

        const QString Separador = Volta % 5 == 0 ? QString() : QStringLiteral("/");
        const QString Caminho =
            Lista.empty() || Volta % 3 == 0
                ? LegendaAoAcaso(A.FAcaso) + Separador + LegendaAoAcaso(A.FAcaso)
                : CaminhoDe(Lista[std::size_t(Ate(A.FAcaso, int(Lista.size())))], Separador);
        const auto PeloCaminho = std::find_if(Lista.begin(), Lista.end(), [&](const TTreeNode *No) {
            return CaminhoDe(No, Separador) == Caminho;
        });
        QCOMPARE(A.Nos.ObterNoPeloCaminho(Caminho, Separador),
                 PeloCaminho != Lista.end() ? *PeloCaminho : nullptr);
    }
    QVERIFY(Achados > 100); // or the lists would prove nothing
}

// Hundreds of different identifications and captions that come and go, so that the tables of the indexes
// grow, close gaps and lose keys; each search against what is known of the tree.
void TesteBuscas::MuitasChavesContraAVarredura()
{
    constexpr int Codigos = 400;
    TAcaso Acaso(7);
    TTreeNodesXML Nos;
    std::array<std::vector<TTreeNodeXML *>, Codigos> Deste; // in the order of the tree
    const auto Lista = [](int Codigo) {
        return TStringList(QStringList{QStringLiteral("c=%1").arg(Codigo)});
    };
    const auto Legenda = [](int Codigo) { return QStringLiteral("L%1").arg(Codigo); };
    for (int Volta = 0; Volta < 20000; ++Volta) {
        const bool Cresce = Volta / 4000 % 2 == 0;
        auto &Delas = Deste[std::size_t(Ate(Acaso, Codigos))];
        const auto Codigo = int(&Delas - Deste.data());
        if (Delas.empty() || Ate(Acaso, 10) < (Cresce ? 6 : 3)) {
            auto No = std::make_unique<TTreeNodeXML>(Nos);
            No->AtribuirText(Legenda(Codigo));
            No->Identificacao().Assign(Lista(Codigo));
            Delas.push_back(static_cast<TTreeNodeXML *>(Nos.AddNode(std::move(No), nullptr)));
        } else {
            const auto Qual = Delas.begin() + Ate(Acaso, int(Delas.size()));
            Nos.Delete(*Qual);
            Delas.erase(Qual);
        }
        const int Outro = Ate(Acaso, Codigos);
        const auto &Dele = Deste[std::size_t(Outro)];
        const TStringList Procurada = Lista(Outro);
        const TIdentificacao Identificacao(Procurada);
        QVERIFY(Nos.ObterNos(Identificacao) == Dele);
        QCOMPARE(Nos.ObterFilho(nullptr, Legenda(Outro).toUtf8(), Identificacao),
                 Dele.empty() ? nullptr : Dele.front());
    }
}

// Names that are the same but for letter case have the same key, whatever their letters.
void TesteBuscas::NomesDobradosSeAcham_data()
{
    QTest::addColumn<QString>("Um");
    QTest::addColumn<QString>("Outro");
    QTest::addColumn<bool>("Iguais");
    QTest::newRow("acento") << "código"
                            << "CÓDIGO" << true;
    QTest::newRow("outro acento") << "código"
                                  << "côdigo" << false;
    QTest::newRow("mais comprido") << "código"
                                   << "códigos" << false;
    QTest::newRow("comeco") << "cód"
                            << "có" << false;
    QTest::newRow("vazio") << ""
                           << "c" << false;
    QTest::newRow("grego") << "ωα"
                           << "ΩΑ" << true;
    QTest::newRow("ohm e kelvin") << QStringLiteral("k\u2126") << QStringLiteral("\u212Aω") << true;
    QTest::newRow("s comprido") << QStringLiteral("a\u017Fé") << "ASÉ" << true;
    QTest::newRow("tres bytes") << "ẽa"
                                << "ẼA" << true;
    QTest::newRow("quatro bytes") << QStringLiteral("x\U00010400z") << QStringLiteral("X\U00010428Z") << true;
    QTest::newRow("outros quatro bytes")
        << QStringLiteral("\U00010400") << QStringLiteral("\U00010429") << false;
}

void TesteBuscas::NomesDobradosSeAcham()
{
    QFETCH(QString, Um);
    QFETCH(QString, Outro);
    QFETCH(bool, Iguais);
    TTreeNodesXML Nos;
    TTreeNode *No = Nos.AddNode(std::make_unique<TTreeNodeXML>(Nos), nullptr);
    static_cast<TTreeNodeXML *>(No)->Identificacao().Add(Um + QStringLiteral("=1"));
    QCOMPARE(MesmoTexto(Um, Outro), Iguais); // the rule
    const TStringList Procurada(QStringList{Outro + QStringLiteral("=1")});
    QCOMPARE(Nos.ObterNo(TIdentificacao(Procurada)) == No, Iguais);
}

void TesteBuscas::LegendasPelasOpcoes_data()
{
    QTest::addColumn<QString>("Legenda");
    QTest::addColumn<QString>("Texto");
    QTest::addColumn<int>("Opcoes");
    QTest::addColumn<bool>("Combina");
    QTest::newRow("igual") << "Abc"
                           << "Abc" << 0 << true;
    QTest::newRow("outra caixa") << "Abc"
                                 << "abc" << 0 << false;
    QTest::newRow("sem caixa") << "Abc"
                               << "aBC" << int(sfCaseInsensitive) << true;
    QTest::newRow("comeco") << "Abcd"
                            << "Abc" << int(sfPartial) << true;
    QTest::newRow("comeco em outra caixa") << "Abcd"
                                           << "abc" << int(sfPartial) << false;
    QTest::newRow("comeco sem caixa") << "Abcd"
                                      << "abc" << int(sfPartial | sfCaseInsensitive) << true;
    QTest::newRow("no meio nao") << "xAbc"
                                 << "Abc" << int(sfPartial) << false;
    QTest::newRow("texto vazio") << "Abc"
                                 << "" << int(sfPartial) << false;
    QTest::newRow("ambos vazios") << ""
                                  << "" << int(sfPartial) << true;
    QTest::newRow("acento nao dobra") << "Águia"
                                      << "águia" << int(sfPartial | sfCaseInsensitive) << false;
    QTest::newRow("acento igual") << "ÁguIa Um"
                                  << "Águia" << int(sfPartial | sfCaseInsensitive) << true;
}

void TesteBuscas::LegendasPelasOpcoes()
{
    QFETCH(QString, Legenda);
    QFETCH(QString, Texto);
    QFETCH(int, Opcoes);
    QFETCH(bool, Combina);
    TTreeNodesXML Nos;
    Nos.AddChild(nullptr, Legenda);
    QCOMPARE(Nos.ObterPrimeiroNo(Texto, nullptr, TSearchFlags(Opcoes)) != nullptr, Combina);
}

void TesteBuscas::CaminhoSoDoTopo()
{
    TTreeNodesXML Nos;
    TTreeNode *A = Nos.AddChild(nullptr, QStringLiteral("A"));
    TTreeNode *B = Nos.AddChild(A, QStringLiteral("B"));
    const QString Barra = QStringLiteral("/");
    QCOMPARE(Nos.ObterNoPeloCaminho(QStringLiteral("A/B"), Barra), B);
    QVERIFY(Nos.ObterNoPeloCaminho(QStringLiteral("B"), Barra) == nullptr);
    QVERIFY(Nos.ObterNoPeloCaminho(QStringLiteral("a/B"), Barra) == nullptr);
    TTreeNode *Ambiguo = Nos.AddChild(nullptr, QStringLiteral("A/B"));
    QCOMPARE(Nos.ObterNoPeloCaminho(QStringLiteral("A/B"), Barra), B);
    Nos.Delete(A);
    QCOMPARE(Nos.ObterNoPeloCaminho(QStringLiteral("A/B"), Barra), Ambiguo);
}

void TesteBuscas::CadaAchadoUmaVez()
{
    TTreeNodesXML Nos;
    std::vector<TTreeNode *> Esperados;
    for (int I = 0; I < 30; ++I) {
        TTreeNode *No = Nos.AddChild(I % 3 == 0 ? nullptr : Nos.GetFirstNode(),
                                     I % 2 ? QStringLiteral("x") : QStringLiteral("y"));
        Q_UNUSED(No);
    }
    for (TTreeNode *No : Todos(Nos))
        if (No->Text() == u"x")
            Esperados.push_back(No);
    std::vector<TTreeNode *> Vistos;
    for (TTreeNode *No = Nos.ObterPrimeiroNo(QStringLiteral("x"), nullptr, 0); No != nullptr;
         No = Nos.ObterPrimeiroNo(QStringLiteral("x"), No, 0))
        Vistos.push_back(No);
    QVERIFY(!Vistos.empty());
    QVERIFY(Vistos == Esperados);
    QVERIFY(Nos.ObterPrimeiroNo(QStringLiteral("x"), Todos(Nos).back(), 0) == nullptr);
}

// The same caption a hundred thousand times, told apart by identification: linear in all, not each time.
void TesteBuscas::CemMilIrmaosIguais()
{
    TTreeNodesXML Nos;
    constexpr int Quantos = 100000;
    std::vector<TTreeNodeXML *> Lista;
    for (int I = 0; I < Quantos; ++I) {
        auto No = std::make_unique<TTreeNodeXML>(Nos);
        No->AtribuirText(QStringLiteral("Posto"));
        No->Identificacao().Add(QStringLiteral("c=%1").arg(I));
        Lista.push_back(static_cast<TTreeNodeXML *>(Nos.AddNode(std::move(No), nullptr)));
    }
    QElapsedTimer Relogio;
    Relogio.start();
    for (int I = 0; I < Quantos; ++I) {
        const TStringList Identificacao(QStringList{QStringLiteral("c=%1").arg(I)});
        QCOMPARE(Nos.ObterFilho(nullptr, "Posto", TIdentificacao(Identificacao)), Lista[std::size_t(I)]);
    }
    QVERIFY2(Relogio.elapsed() < 5000, qPrintable(QString::number(Relogio.elapsed())));
}

void TesteBuscas::CemMilLinks()
{
    TTreeNodesXML Nos;
    auto *Alvo = static_cast<TTreeNodeXML *>(Nos.AddNode(std::make_unique<TTreeNodeXML>(Nos), nullptr));
    Alvo->Identificacao().Add(QStringLiteral("c=1"));
    QElapsedTimer Relogio;
    Relogio.start();
    for (int I = 0; I < 100000; ++I) {
        auto *No = static_cast<TTreeNodeXML *>(Nos.AddNode(std::make_unique<TTreeNodeXML>(Nos), nullptr));
        No->Identificacao().Add(QStringLiteral("c=1"));
        QVERIFY(No->TransformarEmLink());
    }
    QVERIFY2(Relogio.elapsed() < 5000, qPrintable(QString::number(Relogio.elapsed())));
}

QTEST_MAIN(TesteBuscas)
#include "TesteBuscas.moc"
