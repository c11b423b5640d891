// SPDX-License-Identifier: LGPL-2.1-or-later
// The form editor's plugin: the palette page, forms written by the editor and read by the run-time loader.
#include "plataforma/Component.h"
#include "registro/Componentes.h"
#include "simbolos/TabelaDeSimbolos.h"

#include <QBuffer>
#include <QDesignerComponents>
#include <QDesignerFormEditorInterface>
#include <QDesignerFormWindowInterface>
#include <QDesignerFormWindowManagerInterface>
#include <QDesignerIntegration>
#include <QDesignerPropertySheetExtension>
#include <QDesignerWidgetDataBaseInterface>
#include <QDesignerWidgetFactoryInterface>
#include <QDir>
#include <QExtensionManager>
#include <QPluginLoader>
#include <QTest>
#include <QUiLoader>
#include <QVBoxLayout>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <memory>

using namespace Sibrel;

namespace
{

const QString PastaDosPlugins = QStringLiteral(SIBREL_PASTA_DE_PLUGINS);

QString ArquivoDoPlugin()
{
    const QDir Pasta(PastaDosPlugins + QStringLiteral("/designer"));
    return Pasta.filePath(Pasta.entryList({QStringLiteral("*sibrel_designer*")}).value(0));
}

QByteArray Formulario(const QByteArray &Propriedades)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ui version=\"4.0\"><class>Form</class>"
           "<widget class=\"QWidget\" name=\"Form\"><layout class=\"QVBoxLayout\" name=\"l\"><item>"
           "<widget class=\"Sibrel::TTabelaDeSimbolos\" name=\"tabela\">" +
           Propriedades + "</widget></item></layout></widget></ui>";
}

} // namespace

class TesteDesigner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void OsComponentesDaPagina();
    void OCarregadorDeFormularios();
    void OEditorGuardaSempre();
};

void TesteDesigner::OsComponentesDaPagina()
{
    QPluginLoader Plugin(ArquivoDoPlugin());
    auto *Colecao = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(Plugin.instance());
    QVERIFY2(Colecao != nullptr, qPrintable(Plugin.errorString()));
    const auto Componentes = Colecao->customWidgets();
    QCOMPARE(Componentes.size(), qsizetype(ComponentesDoPacote().size()));
    for (qsizetype I = 0; I < Componentes.size(); ++I) {
        QDesignerCustomWidgetInterface *C = Componentes[I];
        const TComponenteDoPacote &Linha = ComponentesDoPacote()[std::size_t(I)];
        QCOMPARE(C->group(), QStringLiteral("Simbolos"));
        QCOMPARE(C->name(), QStringLiteral("Sibrel::") + Linha.Classe);
        QVERIFY(!C->toolTip().isEmpty());
        const std::unique_ptr<QWidget> Novo(C->createWidget(nullptr));
        QCOMPARE(QLatin1String(Novo->metaObject()->className()), C->name());
        QCOMPARE(qobject_cast<TComponent *>(Novo.get()) == nullptr, Linha.Visual);
        QVERIFY(QFile::exists(QStringLiteral(SIBREL_RAIZ "/") + C->includeFile()));
    }
    QVERIFY(!Componentes[0]->icon().isNull());
}

void TesteDesigner::OCarregadorDeFormularios()
{
    QUiLoader Carregador;
    Carregador.clearPluginPaths();
    Carregador.addPluginPath(PastaDosPlugins + QStringLiteral("/designer"));
    QVERIFY(Carregador.availableWidgets().contains(QStringLiteral("Sibrel::TTabelaDeSimbolos")));
    QByteArray Texto =
        Formulario("<property name=\"CorTransparente\"><color><red>1</red><green>2</green><blue>3</blue>"
                   "</color></property><property name=\"Rotulos\"><stringlist><string>Posição</string>"
                   "</stringlist></property>");
    QBuffer Origem(&Texto);
    const std::unique_ptr<QWidget> Form(Carregador.load(&Origem));
    QVERIFY2(Form != nullptr, qPrintable(Carregador.errorString()));
    auto *Tabela = Form->findChild<TTabelaDeSimbolos *>(QStringLiteral("tabela"));
    QVERIFY(Tabela != nullptr);
    QVERIFY(Tabela->CorTransparente == TColor(QColor(1, 2, 3)));
    QCOMPARE(Tabela->ObterRotulo(0), QStringLiteral("Posição"));
    Form->show();
    QVERIFY(!Tabela->isVisible()); // at run time it shows nothing
}

void TesteDesigner::OEditorGuardaSempre()
{
    QCoreApplication::addLibraryPath(PastaDosPlugins);
    const std::unique_ptr<QDesignerFormEditorInterface> Editor(
        QDesignerComponents::createFormEditor(nullptr));
    QDesignerComponents::initializePlugins(Editor.get());
    new QDesignerIntegration(Editor.get(), Editor.get()); // the editor looks there for what it may offer
    QVERIFY(Editor->widgetDataBase()->indexOfClassName(QStringLiteral("Sibrel::TTabelaDeSimbolos")) >= 0);
    QVERIFY(TComponent::EmProjeto());
    QDesignerFormWindowInterface *Janela = Editor->formWindowManager()->createFormWindow();
    QVERIFY(Janela->setContents(QString::fromUtf8(Formulario({}))));
    auto *Tabela = Janela->mainContainer()->findChild<TTabelaDeSimbolos *>();
    QVERIFY(Tabela != nullptr);
    auto *Folha = qt_extension<QDesignerPropertySheetExtension *>(Editor->extensionManager(), Tabela);
    QVERIFY(Folha != nullptr);
    const int Cor = Folha->indexOf(QStringLiteral("CorTransparente"));
    QVERIFY(Cor >= 0);
    QVERIFY(Folha->isChanged(Cor));
    QVERIFY(!Folha->isChanged(Folha->indexOf(QStringLiteral("Tag"))));
    QVERIFY(Janela->contents().contains(QStringLiteral("CorTransparente")));
    Folha->setProperty(Cor, QColor(1, 2, 3));
    Folha->reset(Cor);
    QVERIFY(Janela->contents().contains(QStringLiteral("CorTransparente")));
    TComponent::AtribuirEmProjeto(false);
}

QTEST_MAIN(TesteDesigner)
#include "TesteDesigner.moc"
