// SPDX-License-Identifier: LGPL-2.1-or-later
// Which operations an update queues and withdraws, and what of a tree it tells to have changed.
#include "arvore/ComumAtualizacao.h"

#include <QTemporaryDir>

#include <map>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

// The queue as it is when it begins to be carried out: kind and name of each.
class TFila
{
public:
    explicit TFila(TTreeViewXML &Vista)
    {
        Vista.OnProgresso = [this](TTreeViewXML &, TPreparaAtualizacao &A) {
            if (A.Etapa() != u"Atualização" || A.Posicao() != 0)
                return;
            QStringList Partes;
            for (const auto &O : A.Operacoes())
                Partes.append(QStringLiteral("+~-").at(int(O->Operacao)) +
                              O->NoXML.Attribute(u"Nome").value_or(QString()));
            Texto = Partes.join(u' ');
        };
    }
    QString Texto;
};

} // namespace

class TesteOperacoesDaAtualizacao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Filas_data();
    void Filas();
    void VariasVezesOMesmoNo();
    void ValeONoDeQuandoEntrouNaFila();
    void DeMuitosNos();
    void NumeroErradoFicaAteAli();
    void SoSeDizOQueMuda_data();
    void SoSeDizOQueMuda();
};

void TesteOperacoesDaAtualizacao::Filas_data()
{
    QTest::addColumn<QString>("XML");
    QTest::addColumn<QString>("Fila");
    QTest::addColumn<QString>("Arvore");
    const QString A = U("A", "1", {}, "Cor='1'");
    const QString B = U("B", "2", {}, "Cor='2'");
    QTest::newRow("cada mudança do mesmo nó fica") << A + A + B + A << "~A ~A ~B ~A"
                                                   << "A B";
    QTest::newRow("a exclusão retira todas as de antes") << A + B + A + Fora("A", "1") + B << "~B -A ~B"
                                                         << "B";
    QTest::newRow("e não as de depois") << A + Fora("A", "1") + A << "-A ~A"
                                        << "B";
    QTest::newRow("a segunda retira a primeira") << Fora("A", "1") + A + B + Fora("A", "1") << "~B -A"
                                                 << "B";
    QTest::newRow("de dois nós") << A + B + Fora("B", "2") + A + Fora("A", "1") + B << "-B -A ~B"
                                 << "";
    QTest::newRow("sem nó, as inclusões") << U("X", "7") + A + Fora("N", "8") + U("Y", "9") << "~A -N +Y"
                                          << "A B Y";
    QTest::newRow("sem nó, também a exclusão sem nó")
        << U("X", "7") + Fora("N", "8") + U("Y", "9") + Fora("M", "8") + U("Z", "6") << "-M +Z"
        << "A B Z";
    QTest::newRow("das duas espécies")
        << U("X", "7") + A + Fora("A", "1") + Fora("N", "8") + U("Y", "9") << "-A -N +Y"
        << "B Y";
}

void TesteOperacoesDaAtualizacao::Filas()
{
    QFETCH(QString, XML);
    QFETCH(QString, Fila);
    QFETCH(QString, Arvore);
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Vista.Atualizar(Doc(U("A", "1") + U("B", "2")));
    QVERIFY(EsperarAtualizacoes());
    const TFila Vista2(Vista);
    Vista.Atualizar(Doc(XML));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Vista2.Texto, Fila);
    QCOMPARE(Texto(Vista.Nos()), Arvore);
}

// What lies below withdrawn changes still finds its parent: the operations live on.
void TesteOperacoesDaAtualizacao::VariasVezesOMesmoNo()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Vista.Atualizar(Doc(U("A", "1") + U("B", "2")));
    QVERIFY(EsperarAtualizacoes());
    const TFila Fila(Vista);
    QString Mudancas;
    for (int I = 0; I < 3; ++I)
        Mudancas += U("A", "1", U(QStringLiteral("N%1").arg(I), QStringLiteral("n%1").arg(I)));
    Vista.Atualizar(Doc(Mudancas + Fora("A", "1")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Fila.Texto, QStringLiteral("+N0 +N1 +N2 -A"));
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("B"));
}

// A hook that gives an earlier operation another node does not change whose operation it was.
void TesteOperacoesDaAtualizacao::ValeONoDeQuandoEntrouNaFila()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Vista.Atualizar(Doc(U("A", "1") + U("B", "2")));
    QVERIFY(EsperarAtualizacoes());
    const TFila Fila(Vista);
    TAtualizacao *Primeira = nullptr;
    Vista.ConfigurarOperacao = [&](TPreparaAtualizacao &Dela, TAtualizacao &O) {
        if (Primeira == nullptr)
            Primeira = &O;
        else if (O.NoXML.Attribute(u"Nome") == QStringLiteral("B"))
            Dela.Operacoes().front()->No = O.No;
    };
    Vista.Atualizar(Doc(U("A", "1") + U("B", "2") + Fora("A", "1")));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Fila.Texto, QStringLiteral("~B -A"));
}

// Against the rule itself, with more operations than one piece of memory holds.
void TesteOperacoesDaAtualizacao::DeMuitosNos()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    constexpr int Nos = 700;
    constexpr int Operacoes = 6000;
    const auto Nome = [](int I) { return QStringLiteral("N%1").arg(I); };
    QString XML;
    for (int I = 0; I < Nos; ++I)
        XML += U(Nome(I), QString::number(I));
    TTreeViewXML Vista;
    Vista.Atualizar(Doc(XML));
    QVERIFY(EsperarAtualizacoes());
    const TFila Fila(Vista);
    XML.clear();
    std::vector<QString> Esperada;
    std::map<int, std::vector<std::size_t>> Deste;
    for (int I = 0; I < Operacoes; ++I) {
        const int No = I * 7919 % Nos;
        const bool Sai = I % 13 == 5;
        XML += Sai ? Fora(Nome(No), QString::number(No)) : U(Nome(No), QString::number(No));
        if (Sai)
            for (const std::size_t Lugar : std::exchange(Deste[No], {}))
                Esperada[Lugar].clear();
        Deste[No].push_back(Esperada.size());
        Esperada.push_back((Sai ? u'-' : u'~') + Nome(No));
    }
    std::erase(Esperada, QString());
    Vista.Atualizar(Doc(XML));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Fila.Texto, QStringList(Esperada.begin(), Esperada.end()).join(u' '));
}

// A new node whose element fails while it loads is in the tree, with what comes before the mistake.
void TesteOperacoesDaAtualizacao::NumeroErradoFicaAteAli()
{
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    // Preparing has looked at B's numbers when the hook gives it another element.
    Vista.ConfigurarOperacao = [](TPreparaAtualizacao &, TAtualizacao &O) {
        if (O.NoXML.Attribute(u"Nome") == QStringLiteral("B"))
            O.NoXML = TXMLDocument::DeTexto(U("B", "2", {}, "Cor='7' Símbolo='x'"))->DocumentElement();
    };
    QString Ultima;
    Vista.OnProgresso = [&](TTreeViewXML &, TPreparaAtualizacao &A) { Ultima = A.Etapa(); };
    QTemporaryDir Pasta;
    TPreparaAtualizacao::AtribuirPastaDeErros(Pasta.path());
    Vista.Atualizar(Doc(U("A", "1") + U("B", "2") + U("C", "3")));
    QVERIFY(EsperarAtualizacoes());
    TPreparaAtualizacao::AtribuirPastaDeErros({});
    QCOMPARE(Ultima, QStringLiteral("XML em formato inválido!"));
    QCOMPARE(Texto(Vista.Nos()), QStringLiteral("A B"));
    QCOMPARE(Mostrado(Vista.Modelo()), QStringLiteral("A B"));
    const auto *B = dynamic_cast<TTreeNodeXML *>(Vista.ObterNo(QStringLiteral("B")));
    QCOMPARE(B->Cor(), 7);
    QCOMPARE(B->Identificacao().Count(), 0); // which comes after the picture
}

void TesteOperacoesDaAtualizacao::SoSeDizOQueMuda_data()
{
    QTest::addColumn<QString>("XML");
    QTest::addColumn<QString>("Mudados");
    const QString Info = QStringLiteral("<Informações><Informação Rótulo='r' Valor='%1'/></Informações>");
    QTest::newRow("nada") << U("A", "1") + U("B", "2", Info.arg(1)) << "";
    QTest::newRow("cor") << U("A", "1") + U("B", "2", {}, "Cor='5'") << "B";
    QTest::newRow("figura") << U("A", "1", {}, "Cor='0' Símbolo='3'") + U("B", "2") << "A";
    QTest::newRow("informação") << U("A", "1") + U("B", "2", Info.arg(2)) << "B";
    QTest::newRow("identificação que se acrescenta")
        << "<U Nome='A' Cor='0'><Identificadores><Identificador Rótulo='c' Valor='1'/>"
           "<Identificador Rótulo='d' Valor='1'/></Identificadores></U>"
        << "";
    QTest::newRow("link sem alvo") << U("A", "1", {}, "Cor='0' Link='sim'") + U("B", "2") << "";
    QTest::newRow("link que só acha a si mesmo")
        << U("B", "2") + "<U Nome='C' Link='sim'><Identificadores><Identificador Rótulo='c' Valor='1'/>"
                         "</Identificadores></U>"
        << "C";
}

void TesteOperacoesDaAtualizacao::SoSeDizOQueMuda()
{
    QFETCH(QString, XML);
    QFETCH(QString, Mudados);
    const TTagsRegistradas Tags{{"U", TRefNoXML::De<TTreeNodeXML>()}};
    TTreeViewXML Vista;
    Vista.Atualizar(
        Doc(U("A", "1") + U("B", "2", "<Informações><Informação Rótulo='r' Valor='1'/></Informações>")));
    QVERIFY(EsperarAtualizacoes());
    QStringList Ditos;
    connect(&Vista.Modelo(), &QAbstractItemModel::dataChanged, this,
            [&](const QModelIndex &De, const QModelIndex &Para) {
                for (int L = De.row(); L <= Para.row(); ++L)
                    Ditos.append(De.siblingAtRow(L).data().toString());
            });
    Vista.Atualizar(Doc(XML));
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Ditos.join(u' '), Mudados);
}

QTEST_MAIN(TesteOperacoesDaAtualizacao)
#include "TesteOperacoesDaAtualizacao.moc"
