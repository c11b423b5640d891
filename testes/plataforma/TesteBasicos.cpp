// SPDX-License-Identifier: LGPL-2.1-or-later
// The small values: rectangles, colours, lists of objects, class references, modules, exceptions, components.
#include "plataforma/Color.h"
#include "plataforma/Component.h"
#include "plataforma/Exception.h"
#include "plataforma/Modulo.h"
#include "plataforma/ObjectList.h"
#include "plataforma/Rect.h"
#include "plataforma/RefClasse.h"

#include <QApplication>
#include <QPalette>
#include <QTest>
#include <QVBoxLayout>

#include <limits>

using namespace Sibrel;

namespace
{

class TForma
{
public:
    using RefDeClasse = RefClasse<TForma, int>;
    explicit TForma(int Lados)
        : FLados(Lados)
    {
    }
    virtual ~TForma() = default;
    virtual RefDeClasse ObterClasse() const = 0;
    int FLados;
};
class TQuadrado : public ComClasse<TQuadrado, TForma>
{
public:
    static constexpr const char *NomeDaClasse = "TQuadrado";
    using ComClasse::ComClasse;
};
class TQuadradinho : public ComClasse<TQuadradinho, TQuadrado>
{
public:
    static constexpr const char *NomeDaClasse = "TQuadradinho";
    using ComClasse::ComClasse;
};

struct TContado {
    explicit TContado(int &Conta)
        : FConta(Conta)
    {
        ++FConta;
    }
    ~TContado() { --FConta; }
    TContado(const TContado &) = delete;
    TContado &operator=(const TContado &) = delete;
    int &FConta;
};

int Inicios = 0;
int Fins = 0;

} // namespace

class TesteBasicos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void DireitaEBaseFicamFora();
    void ArredondarMetadesParaOPar();
    void CoresEmBaixoVermelho();
    void CorDoSistemaVemDaPaleta();
    void ListaEDonaDosObjetos();
    void IndiceForaDaListaNaoMudaNada();
    void MoverDeOutraLista();
    void ClassesExatas();
    void ModuloComContador();
    void InicioQueFalhaNaoIniciou();
    void OTextoDaExcecao();
    void ComponenteEscondidoForaDoProjeto();
    void ComponenteEmProjetoMostraOIcone();
};

void TesteBasicos::DireitaEBaseFicamFora()
{
    const TRect R(QRect(2, 3, 10, 20));
    QCOMPARE(R, TRect(2, 3, 12, 23));
    QCOMPARE(R.Width(), 10);
    QCOMPARE(R.ParaQRect(), QRect(2, 3, 10, 20));
    QVERIFY(TRect(5, 5, 5, 9).Vazio());
    QVERIFY(TRect(5, 5, 4, 9).Vazio());
    const TRect Imenso(std::numeric_limits<int>::min(), 0, std::numeric_limits<int>::max(), 1);
    QCOMPARE(Imenso.Width(), 4294967295LL);
}

void TesteBasicos::ArredondarMetadesParaOPar()
{
    QCOMPARE(Arredondar(0.5), 0);
    QCOMPARE(Arredondar(1.5), 2);
    QCOMPARE(Arredondar(2.5), 2);
    QCOMPARE(Arredondar(-0.5), 0);
    QCOMPARE(Arredondar(-1.5), -2);
    QCOMPARE(Arredondar(2.4999), 2);
    QCOMPARE(Arredondar(1e300), std::numeric_limits<int>::max());
    QCOMPARE(Arredondar(-1e300), std::numeric_limits<int>::min());
    QCOMPARE(Arredondar(std::numeric_limits<double>::quiet_NaN()), 0);
}

void TesteBasicos::CoresEmBaixoVermelho()
{
    QCOMPARE(TColor(0x0000FF).ParaQColor(), QColor(255, 0, 0));
    QCOMPARE(TColor(0xFF0000).ParaQColor(), QColor(0, 0, 255));
    QCOMPARE(TColor(QColor(1, 2, 3)).Valor(), 0x030201);
    QCOMPARE(clFuchsia.ParaQColor(), QColor(255, 0, 255));
}

void TesteBasicos::CorDoSistemaVemDaPaleta()
{
    QVERIFY(clHighlight.DoSistema());
    QCOMPARE(clHighlight.ParaQColor(), QApplication::palette().color(QPalette::Highlight));
    QPalette Outra = QApplication::palette();
    const QPalette Antes = Outra;
    Outra.setColor(QPalette::Highlight, QColor(1, 2, 3));
    QApplication::setPalette(Outra);
    QCOMPARE(clHighlight.ParaQColor(), QColor(1, 2, 3));
    QApplication::setPalette(Antes);
    QCOMPARE(TColor(static_cast<std::int32_t>(0x800000FFU)).ParaQColor(), QColor(0, 0, 0)); // no such colour
}

void TesteBasicos::ListaEDonaDosObjetos()
{
    int Vivos = 0;
    {
        TObjectList<TContado> L;
        for (int I = 0; I < 4; ++I)
            QCOMPARE(L.Add(std::make_unique<TContado>(Vivos)), I);
        TContado *Segundo = L[1];
        L.Delete(0);
        QCOMPARE(Vivos, 3);
        QCOMPARE(L.IndexOf(Segundo), 0);
        const std::unique_ptr<TContado> Tirado = L.Extract(Segundo);
        QCOMPARE(Tirado.get(), Segundo);
        QCOMPARE(Vivos, 3);
        QVERIFY(!L.Extract(Segundo));
        QCOMPARE(L.Remove(Segundo), -1);
        QCOMPARE(L.Remove(L.Last()), 1);
        L.SetItem(0, std::make_unique<TContado>(Vivos));
        QCOMPARE(Vivos, 2);
        L.Insert(0, std::make_unique<TContado>(Vivos));
        QCOMPARE(L.Count(), 2);
    }
    QCOMPARE(Vivos, 0);
}

void TesteBasicos::IndiceForaDaListaNaoMudaNada()
{
    int Vivos = 0;
    TObjectList<TContado> L;
    QVERIFY_THROWS_EXCEPTION(EListError, L.First());
    QVERIFY_THROWS_EXCEPTION(EListError, L.Last());
    L.Add(std::make_unique<TContado>(Vivos));
    QVERIFY_THROWS_EXCEPTION(EListError, L.Item(1));
    QVERIFY_THROWS_EXCEPTION(EListError, L.Item(-1));
    QVERIFY_THROWS_EXCEPTION(EListError, L.Delete(1));
    QVERIFY_THROWS_EXCEPTION(EListError, L.Insert(2, nullptr));
    QVERIFY_THROWS_EXCEPTION(EListError, L.SetItem(1, nullptr));
    QCOMPARE(L.Count(), 1);
    QCOMPARE(Vivos, 1);
}

void TesteBasicos::MoverDeOutraLista()
{
    int Vivos = 0;
    TObjectList<TContado> A;
    TObjectList<TContado> B;
    A.Add(std::make_unique<TContado>(Vivos));
    B.Add(std::make_unique<TContado>(Vivos));
    B.Add(std::make_unique<TContado>(Vivos));
    const TContado *Primeiro = B.First();
    A.MoverDe(B);
    A.MoverDe(A);
    QCOMPARE(A.Count(), 3);
    QCOMPARE(A.IndexOf(Primeiro), 1);
    QVERIFY(B.Vazia());
    QCOMPARE(Vivos, 3);
}

void TesteBasicos::ClassesExatas()
{
    const auto Quadrado = RefClasse<TForma, int>::De<TQuadrado>();
    const auto Quadradinho = RefClasse<TForma, int>::De<TQuadradinho>();
    QVERIFY(Quadrado == (RefClasse<TForma, int>::De<TQuadrado>()));
    QVERIFY(!(Quadrado == Quadradinho));
    QVERIFY(!(Quadrado == RefClasse<TForma, int>()));
    const std::unique_ptr<TForma> Forma = Quadradinho.Criar(4);
    QCOMPARE(Forma->FLados, 4);
    QVERIFY(Forma->ObterClasse() == Quadradinho);
    QCOMPARE(Quadradinho.Nome(), "TQuadradinho");
    QVERIFY(!(RefClasse<TForma, int>()));
    QCOMPARE((RefClasse<TForma, int>().Nome()), "");
}

void TesteBasicos::ModuloComContador()
{
    Inicios = Fins = 0;
    TModulo Modulo(
        "teste", [] { ++Inicios; }, [] { ++Fins; });
    Modulo.Parar(); // never started: nothing
    QCOMPARE(Fins, 0);
    Modulo.Iniciar();
    Modulo.Iniciar();
    QCOMPARE(Inicios, 1);
    Modulo.Parar();
    QCOMPARE(Fins, 0);
    QVERIFY(Modulo.Iniciado());
    Modulo.Parar();
    Modulo.Parar();
    QCOMPARE(Fins, 1);
    Modulo.Iniciar();
    QCOMPARE(Inicios, 2);
}

void TesteBasicos::InicioQueFalhaNaoIniciou()
{
    TModulo Modulo(
        "teste", [] { throw EInvalidOperation(QStringLiteral("falha")); }, nullptr);
    QVERIFY_THROWS_EXCEPTION(EInvalidOperation, Modulo.Iniciar());
    QVERIFY(!Modulo.Iniciado());
}

void TesteBasicos::OTextoDaExcecao()
{
    EInOutError E(QStringLiteral("não"), QStringLiteral("Um."));
    QCOMPARE(QString::fromUtf8(E.what()), QStringLiteral("não\nUm."));
    E.AcrescentarDetalhe(QStringLiteral("Dois."));
    QCOMPARE(E.Detalhe, QStringLiteral("Um. Dois."));
    QCOMPARE(QString::fromUtf8(Exception(QStringLiteral("só")).what()), QStringLiteral("só"));
}

void TesteBasicos::ComponenteEscondidoForaDoProjeto()
{
    QWidget Form;
    auto *Componente = new TComponent(&Form);
    auto *Disposicao = new QVBoxLayout(&Form);
    Disposicao->addWidget(Componente);
    Form.show();
    Componente->show();
    Componente->setVisible(true);
    QVERIFY(!Componente->isVisible());
    QCOMPARE(Componente->sizeHint(), QSize(0, 0));
    QCOMPARE(Componente->parentWidget(), &Form);
    QVERIFY(Componente->setProperty("Tag", 7));
    QCOMPARE(Componente->Tag(), 7);
}

void TesteBasicos::ComponenteEmProjetoMostraOIcone()
{
    TComponent::AtribuirEmProjeto(true);
    QWidget Form;
    TComponent Componente(&Form);
    QPixmap Figura(24, 24);
    Figura.fill(Qt::red);
    Componente.AtribuirIcone(QIcon(Figura));
    Componente.resize(Componente.sizeHint());
    Form.show();
    Componente.show();
    QVERIFY(Componente.isVisible());
    QCOMPARE(Componente.size(), QSize(28, 28));
    QCOMPARE(Componente.grab().toImage().pixelColor(14, 14), QColor(Qt::red));
    TComponent::AtribuirEmProjeto(false);
}

QTEST_MAIN(TesteBasicos)
#include "TesteBasicos.moc"
