// SPDX-License-Identifier: LGPL-2.1-or-later
// A form with all five components, in a layout and without one, must come out the same in the three ways in
// which forms live: code generated from it, the run-time loader, the form editor after it was saved.
#include "plataforma/Component.h"
#include "registro/EditorDeFormularios.h"
#include "simbolos/SimboloImagem.h"
#include "ui_ComLayout.h"
#include "ui_SemLayout.h"

#include "comum/Dados.h"

#include <QBuffer>
#include <QDesignerFormWindowInterface>
#include <QFile>
#include <QLayout>
#include <QTest>
#include <QUiLoader>

#include <memory>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

QString ArquivoDe(const QString &Formulario)
{
    return QStringLiteral(SIBREL_RAIZ "/testes/registro/formularios/%1.ui").arg(Formulario);
}

QImage Mascara()
{
    TBitmap Figura(QImage(QStringLiteral(":/formularios/mascara.png")));
    Figura.AtribuirMonochrome(true);
    return Figura.Imagem();
}

struct TEsperado {
    const char *Objeto;
    const char *Propriedade;
    QVariant Valor;
};

// What stands in the form files.
std::vector<TEsperado> Esperados(bool ComLayout)
{
    std::vector<TEsperado> Lista = {
        {"tabela", "CorTransparente", QColor(1, 2, 3)},
        {"tabela", "Rotulos", QStringList({"Posição", "Aço & Cia <1>", ""})},
        {"tabela", "Tag", 7},
        {"imagem", "Cor", QColor(255, 128, 0)},
        {"imagem", "Centralizar", ComLayout},
        {"imagem", "Esticar", !ComLayout},
        {"tabelaBD", "CorTransparente", QColor(0, 255, 0)},
        {"tabelaBD", "Rotulos", QStringList({"Único"})},
        {"tabelaBD", "Tag", -1},
        {"arvore", "indentation", 33},
        {"arvore", "ConfigurarPopup", false},
        {"arvore", "ElementoRaiz", "OrdemDeBatalha"},
        {"arvore", "AtributoNome", "Título"},
        {"arvoreBD", "enabled", false},
        {"arvoreBD", "ConfigurarPopup", true},
        {"arvoreBD", "ElementoRaiz", "Raiz"},
        {"arvoreBD", "AtributoNome", ""},
    };
    if (!ComLayout) {
        Lista.push_back({"tabela", "geometry", QRect(10, 10, 28, 28)});
        Lista.push_back({"imagem", "geometry", QRect(60, 10, 100, 80)});
        Lista.push_back({"tabelaBD", "geometry", QRect(10, 50, 28, 28)});
        Lista.push_back({"arvore", "geometry", QRect(10, 100, 200, 120)});
        Lista.push_back({"arvoreBD", "geometry", QRect(220, 100, 170, 120)});
    }
    return Lista;
}

// Where the form is not what its file says; nothing when all is right.
QStringList Diferencas(const QWidget &Form, bool ComLayout)
{
    QStringList Lista;
    for (const TEsperado &E : Esperados(ComLayout)) {
        const auto *Objeto = Form.findChild<QWidget *>(QLatin1String(E.Objeto));
        const QVariant Valor = Objeto != nullptr ? Objeto->property(E.Propriedade) : QVariant();
        if (Valor != E.Valor)
            Lista.append(
                QStringLiteral("%1.%2: %3")
                    .arg(QLatin1String(E.Objeto), QLatin1String(E.Propriedade), QDebug::toString(Valor)));
    }
    const auto *Imagem = Form.findChild<TSimboloImagem *>(QStringLiteral("imagem"));
    if (Imagem == nullptr || Imagem->FiguraDaMascara().toImage().convertToFormat(QImage::Format_RGB32) !=
                                 Mascara().convertToFormat(QImage::Format_RGB32))
        Lista.append(QStringLiteral("imagem.Mascara"));
    const QLayout *Layout = Form.layout();
    if (ComLayout ? Layout == nullptr || Layout->count() != 5 : Layout != nullptr)
        Lista.append(QStringLiteral("layout"));
    return Lista;
}

// The two that are no picture, on the form as it stands on the screen.
QStringList Aparecem(QWidget &Form)
{
    QStringList Nomes;
    Form.window()->show();
    for (const TComponent *C : Form.findChildren<TComponent *>())
        if (C->isVisible())
            Nomes.append(C->objectName());
    return Nomes;
}

} // namespace

class TesteFormularios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void CodigoGeradoComLayout() { CodigoGerado<Ui::ComLayout>(true); }
    void CodigoGeradoSemLayout() { CodigoGerado<Ui::SemLayout>(false); }
    void CarregadorComLayout() { Carregador(QStringLiteral("ComLayout"), true); }
    void CarregadorSemLayout() { Carregador(QStringLiteral("SemLayout"), false); }
    void EditorComLayout() { Editor(QStringLiteral("ComLayout"), true); }
    void EditorSemLayout() { Editor(QStringLiteral("SemLayout"), false); }
    void OSalvoServeAoCarregador_data();
    void OSalvoServeAoCarregador();

private:
    template <class Gerado>
    void CodigoGerado(bool ComLayout);
    void Carregador(const QString &Formulario, bool ComLayout);
    void Editor(const QString &Formulario, bool ComLayout);
};

template <class Gerado>
void TesteFormularios::CodigoGerado(bool ComLayout)
{
    QWidget Form;
    Gerado Ui;
    Ui.setupUi(&Form);
    QCOMPARE(Diferencas(Form, ComLayout), QStringList());
    QCOMPARE(Aparecem(Form), QStringList());
    QCOMPARE(Ui.tabela->ObterRotulo(1), QStringLiteral("Aço & Cia <1>")); // typed members
    QVERIFY(Ui.imagem->isVisible() && Ui.arvore->isVisible() && Ui.arvoreBD->isVisible());
}

void TesteFormularios::Carregador(const QString &Formulario, bool ComLayout)
{
    QUiLoader Carregador;
    UsarPlugin(Carregador);
    QFile Arquivo(ArquivoDe(Formulario));
    QVERIFY(Arquivo.open(QIODevice::ReadOnly));
    const std::unique_ptr<QWidget> Form(Carregador.load(&Arquivo));
    QVERIFY2(Form != nullptr, qPrintable(Carregador.errorString()));
    QCOMPARE(Diferencas(*Form, ComLayout), QStringList());
    QCOMPARE(Aparecem(*Form), QStringList());
}

void TesteFormularios::Editor(const QString &Formulario, bool ComLayout)
{
    const TEditorDeFormularios Editor;
    const QString Arquivo = ArquivoDe(Formulario);
    QDesignerFormWindowInterface *Janela = Editor.Abrir(QString::fromUtf8(BytesDe(Arquivo)), Arquivo);
    QVERIFY(Janela != nullptr);
    QCOMPARE(Diferencas(*Janela->mainContainer(), ComLayout), QStringList());
    const QString Salvo = Janela->contents();
    QDesignerFormWindowInterface *DeNovo = Editor.Abrir(Salvo, Arquivo);
    QVERIFY(DeNovo != nullptr);
    QCOMPARE(Diferencas(*DeNovo->mainContainer(), ComLayout), QStringList());
    QCOMPARE(DeNovo->contents(), Salvo);
    // The files are as the editor saves them, so that what is tested is what an author would have.
    QCOMPARE(Salvo, QString::fromUtf8(BytesDe(Arquivo)));
}

void TesteFormularios::OSalvoServeAoCarregador_data()
{
    QTest::addColumn<QString>("Formulario");
    QTest::addColumn<bool>("ComLayout");
    QTest::newRow("com layout") << "ComLayout" << true;
    QTest::newRow("sem layout") << "SemLayout" << false;
}

void TesteFormularios::OSalvoServeAoCarregador()
{
    QFETCH(QString, Formulario);
    QFETCH(bool, ComLayout);
    QByteArray Salvo;
    {
        const TEditorDeFormularios Editor;
        const QString Arquivo = ArquivoDe(Formulario);
        QDesignerFormWindowInterface *Janela = Editor.Abrir(QString::fromUtf8(BytesDe(Arquivo)), Arquivo);
        QVERIFY(Janela != nullptr);
        QCOMPARE(Aparecem(*Janela->mainContainer()), QStringList({"tabela", "tabelaBD"})); // icons
        Salvo = Janela->contents().toUtf8();
    }
    QUiLoader Carregador;
    UsarPlugin(Carregador);
    QBuffer Origem(&Salvo);
    const std::unique_ptr<QWidget> Form(Carregador.load(&Origem));
    QVERIFY2(Form != nullptr, qPrintable(Carregador.errorString()));
    QCOMPARE(Diferencas(*Form, ComLayout), QStringList());
    QCOMPARE(Aparecem(*Form), QStringList());
}

QTEST_MAIN(TesteFormularios)
#include "TesteFormularios.moc"
