// SPDX-License-Identifier: LGPL-2.1-or-later
// Many updates against trees that are shown and worked on, compared with a literal replay.
#include "arvore/ComumArvore.h"
#include "arvore/Replay.h"

#include <QScrollBar>
#include <QTemporaryDir>
#include <QTimer>

#include <random>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

using TAcaso = std::mt19937;

int Ate(TAcaso &Acaso, int Limite)
{
    return static_cast<int>(Acaso() % static_cast<unsigned>(Limite));
}

QString ElementoAoAcaso(TAcaso &Acaso, int Nivel)
{
    const QString Nome = QString(QChar(u'A' + Ate(Acaso, 9)));
    QString Identificadores;
    for (int I = Ate(Acaso, 8) == 0 ? 2 : Ate(Acaso, 6) == 0 ? 0 : 1; I > 0; --I)
        Identificadores += QStringLiteral("<Identificador Rótulo='%1' Valor='%2'/>")
                               .arg(QStringView(u"cCd").mid(Ate(Acaso, 3), 1))
                               .arg(Ate(Acaso, 12) == 0 ? QString() : QString::number(Ate(Acaso, 25)));
    const QString Ids = QStringLiteral("<Identificadores>%1</Identificadores>").arg(Identificadores);
    switch (Ate(Acaso, 14)) {
    case 0:
        return QStringLiteral("<U Nome='%1'>%2</U>").arg(Nome, Ids);
    case 1:
        return QStringLiteral("<U Nome='%1' Link='sim'>%2</U>").arg(Nome, Ids);
    case 2:
        return QStringLiteral("<Outra>%1</Outra> texto").arg(Nome);
    case 3:
        return QStringLiteral("<U Visivel='%1' Nome='%2'>%3</U>").arg(Ate(Acaso, 2) ? "s" : "N", Nome, Ids);
    default:
        break;
    }
    QString Dentro = Ids;
    for (int I = Ate(Acaso, 3); I > 0; --I)
        Dentro += I == 2 ? QStringLiteral("<Informações><Informação Rótulo='p' Valor='%1'/></Informações>")
                               .arg(Ate(Acaso, 5))
                         : QString();
    for (int I = Nivel < 3 ? Ate(Acaso, 4) : 0; I > 0; --I)
        Dentro += ElementoAoAcaso(Acaso, Nivel + 1);
    const QString Elemento =
        QStringLiteral("<U Nome='%1' Cor='%2'>%3</U>").arg(Nome).arg(Ate(Acaso, 9)).arg(Dentro);
    return Ate(Acaso, 10) == 0 ? QStringLiteral("<G>%1</G>").arg(Elemento) : Elemento;
}

QString DocumentoAoAcaso(TAcaso &Acaso)
{
    QString Dentro;
    for (int I = 1 + Ate(Acaso, 6); I > 0; --I)
        Dentro += ElementoAoAcaso(Acaso, 1);
    return Doc(Dentro);
}

QString TextoDe(const TTreeNodes &Nos, const TTreeNode *Pai = nullptr)
{
    QString T;
    for (TTreeNode *F = Nos.PrimeiroFilho(Pai); F != nullptr; F = F->GetNextSibling()) {
        const auto *No = static_cast<TTreeNodeXML *>(F);
        T += QStringLiteral("[%1 %2 {%3} {%4}%5 %6]")
                 .arg(No->Text())
                 .arg(No->Cor())
                 .arg(No->Identificacao().ParaQStringList().join(u';'),
                      No->Informacao().ParaQStringList().join(u';'),
                      No->Link() ? QStringLiteral(" link") : QString(), TextoDe(Nos, No));
    }
    return T;
}

// What an operator may do at any moment without changing the tree.
void Olhar(TTreeViewXML &Vista, TAcaso &Acaso)
{
    TTreeNode *No = Vista.Nos().GetFirstNode();
    for (int I = Ate(Acaso, 12); I > 0 && No != nullptr; --I)
        No = No->GetNext();
    switch (Ate(Acaso, 5)) {
    case 0:
        Vista.AtribuirSelected(No);
        break;
    case 1:
        Vista.verticalScrollBar()->setValue(Ate(Acaso, 400));
        break;
    case 2:
        Vista.setExpanded(Vista.Modelo().IndiceDe(No), Ate(Acaso, 2) == 0);
        break;
    case 3:
        Vista.ObterNo(TStringList(QStringList{QStringLiteral("c=%1").arg(Ate(Acaso, 25))}));
        Vista.ObterPrimeiroNo(QStringLiteral("B"), nullptr, sfPartial);
        break;
    default:
        Vista.viewport()->update();
    }
}

// What changes it.
void Mexer(TTreeViewXML &Vista, TAcaso &Acaso)
{
    switch (Ate(Acaso, 12)) {
    case 0:
        Vista.Items().Clear();
        break;
    case 1:
        Vista.AtribuirXML(TStringList(QStringList{DocumentoAoAcaso(Acaso)}));
        break;
    case 2:
        Vista.ExcluirTodosOsNos(TStringList(QStringList{QStringLiteral("c=%1").arg(Ate(Acaso, 25))}));
        break;
    default:
        TTreeNode *No = Vista.Nos().GetFirstNode();
        for (int I = Ate(Acaso, 10); I > 0 && No != nullptr; --I)
            No = No->GetNext();
        Vista.Excluir(No);
    }
}

std::unique_ptr<TTreeViewXML> NovaVista()
{
    auto Vista = std::make_unique<TTreeViewXML>();
    Vista->resize(150, 150);
    Vista->show();
    return Vista;
}

} // namespace

class TesteEsforco : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void UmaDepoisDaOutraComoOReplay_data();
    void UmaDepoisDaOutraComoOReplay();
    void VinteFontesEUmOperador();

private:
    QTemporaryDir FPasta;
};

void TesteEsforco::initTestCase()
{
    TPreparaAtualizacao::AtribuirPastaDeErros(FPasta.path());
    TTreeViewXML::RegistrarClasse(QStringLiteral("U"), TRefNoXML::De<TTreeNodeXML>());
    TTreeViewXML::RegistrarClasse(QStringLiteral("G"), TRefNoXML());
}

void TesteEsforco::UmaDepoisDaOutraComoOReplay_data()
{
    QTest::addColumn<unsigned>("Semente");
    for (unsigned S = 1; S <= 10; ++S)
        QTest::addRow("%u", S) << S;
}

void TesteEsforco::UmaDepoisDaOutraComoOReplay()
{
    QFETCH(unsigned, Semente);
    TAcaso Acaso(Semente);
    TTreeViewXML Vista;
    TReplay Replay;
    for (int I = 0; I < 60; ++I) {
        const QString XML = DocumentoAoAcaso(Acaso);
        Vista.Atualizar(XML);
        QVERIFY(EsperarAtualizacoes());
        Replay.Aplicar(XML);
        QVERIFY2(TextoDe(Vista.Nos()) == Replay.Texto(), qPrintable(XML));
        QCOMPARE(Mostrado(Vista.Modelo()), Texto(Vista.Nos()));
    }
    QVERIFY(Vista.Nos().Count() > 5);
}

void TesteEsforco::VinteFontesEUmOperador()
{
    constexpr int Fontes = 20;
    constexpr int PorFonte = 100;
    constexpr std::size_t Firmes = 3;
    TAcaso Acaso(2024);
    std::unique_ptr<TTreeViewXML> DasFirmes[Firmes];
    std::vector<QString> Aplicados[Firmes];
    std::unique_ptr<TTreeViewXML> Soltas[3]; // cleared, cut and destroyed at any moment
    for (auto &V : DasFirmes)
        V = NovaVista();
    for (auto &V : Soltas)
        V = NovaVista();

    int Faltam = Fontes * PorFonte;
    std::vector<std::unique_ptr<QTimer>> Relogios;
    for (int F = 0; F < Fontes; ++F) {
        Relogios.push_back(std::make_unique<QTimer>());
        Relogios.back()->callOnTimeout([&, Restam = PorFonte, R = Relogios.back().get()]() mutable {
            const QString XML = DocumentoAoAcaso(Acaso);
            const std::size_t Qual = Acaso() % (Firmes + 3);
            if (Qual < Firmes) {
                DasFirmes[Qual]->Atualizar(XML);
                Aplicados[Qual].push_back(XML);
            } else {
                Soltas[Qual - Firmes]->Atualizar(XML);
            }
            --Faltam;
            if (--Restam == 0)
                R->stop();
        });
        Relogios.back()->start(F % 3);
    }
    QTimer Operador;
    Operador.callOnTimeout([&] {
        Olhar(*DasFirmes[Acaso() % Firmes], Acaso);
        std::unique_ptr<TTreeViewXML> &Solta = Soltas[Acaso() % 3];
        Olhar(*Solta, Acaso);
        Mexer(*Solta, Acaso);
        if (Ate(Acaso, 25) == 0)
            Solta = NovaVista();
    });
    Operador.start(0);
    QVERIFY(Esperar([&] { return Faltam == 0 && TPreparaAtualizacao::Instancias() < 5; }, 500000));
    Operador.stop();
    QVERIFY(EsperarAtualizacoes(500000));

    for (std::size_t I = 0; I < Firmes; ++I) {
        TReplay Replay;
        for (const QString &XML : Aplicados[I])
            Replay.Aplicar(XML);
        QVERIFY(Aplicados[I].size() > 200);
        QVERIFY(TextoDe(DasFirmes[I]->Nos()) == Replay.Texto());
        QCOMPARE(Mostrado(DasFirmes[I]->Modelo()), Texto(DasFirmes[I]->Nos()));
    }
    for (auto &V : Soltas)
        QCOMPARE(Mostrado(V->Modelo()), Texto(V->Nos()));
}

QTEST_MAIN(TesteEsforco)
#include "TesteEsforco.moc"
