// SPDX-License-Identifier: LGPL-2.1-or-later
// The form editor's plugin: the palette page, what the editor shows of each component, what it writes into a
// form.
#include "plataforma/Component.h"
#include "registro/Componentes.h"
#include "registro/EditorDeFormularios.h"
#include "simbolos/SimboloImagem.h"
#include "simbolos/TabelaDeSimbolos.h"

#include <QBuffer>
#include <QDesignerComponents>
#include <QDesignerFormEditorInterface>
#include <QDesignerFormWindowInterface>
#include <QDesignerPropertyEditorInterface>
#include <QDesignerPropertySheetExtension>
#include <QDesignerWidgetBoxInterface>
#include <QDesignerWidgetDataBaseInterface>
#include <QMetaProperty>
#include <QPluginLoader>
#include <QTest>
#include <QTreeWidget>
#include <QUiLoader>
#include <QXmlStreamReader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <memory>

using namespace Sibrel;
using namespace Sibrel::Testes;

namespace
{

// A form with one component in a layout.
QString Formulario(const QString &Classe, const QString &Propriedades = {})
{
    return QStringLiteral(
               "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ui version=\"4.0\"><class>Form</class>"
               "<widget class=\"QWidget\" name=\"Form\"><layout class=\"QVBoxLayout\" name=\"l\"><item>"
               "<widget class=\"Sibrel::%1\" name=\"componente\">%2</widget></item></layout></widget>"
               "</ui>")
        .arg(Classe, Propriedades);
}

QList<QDesignerCustomWidgetInterface *> DoPlugin()
{
    QPluginLoader Plugin(ArquivoDoPlugin());
    auto *Colecao = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(Plugin.instance());
    return Colecao != nullptr ? Colecao->customWidgets() : QList<QDesignerCustomWidgetInterface *>();
}

void LinhasPorComponente()
{
    QTest::addColumn<int>("Linha");
    int I = 0;
    for (const TComponenteDoPacote &C : ComponentesDoPacote())
        QTest::newRow(C.Classe.data()) << I++;
}

} // namespace

class TesteDesigner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void OsComponentesDaPagina();
    void APaletaDoEditor();
    void FiguraSoDeQuemTem();
    void CadaPropriedadeTemDica_data() { LinhasPorComponente(); }
    void CadaPropriedadeTemDica();
    void OsTiposQueOEditorEdita();
    void OsGruposTemONomeDaClasse();
    void SemFiguraSoMostraOQueESeu();
    void UmaEncerraAOutraNoEditor();
    void OEditorGuardaSempre_data() { LinhasPorComponente(); }
    void OEditorGuardaSempre();
    void ONovoVaiEVoltaSemMudar_data() { LinhasPorComponente(); }
    void ONovoVaiEVoltaSemMudar();
    void NomesDeDocumentoNaoSeTraduzem();
    void OCarregadorDeFormularios();
    void IconeNoEditorNadaNaExecucao();
    void ImagemVaziaTemContornoSoNoEditor();
};

void TesteDesigner::OsComponentesDaPagina()
{
    const auto Componentes = DoPlugin();
    QCOMPARE(Componentes.size(), 5);
    QCOMPARE(ComponentesDoPacote().size(), 5U);
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
}

void TesteDesigner::APaletaDoEditor()
{
    const TEditorDeFormularios Editor;
    const std::unique_ptr<QDesignerWidgetBoxInterface> Paleta(
        QDesignerComponents::createWidgetBox(&Editor.Editor(), nullptr));
    Paleta->setFileName(QStringLiteral(":/qt-project.org/widgetbox/widgetbox.xml"));
    QVERIFY(Paleta->load());
    QStringList Nomes;
    for (int P = 0; P < Paleta->categoryCount(); ++P)
        if (Paleta->category(P).name() == QLatin1String("Simbolos"))
            for (int I = 0; I < Paleta->widgetCount(P); ++I)
                Nomes.append(Paleta->widget(P, I).name());
    Nomes.sort();
    QCOMPARE(Nomes, QStringList({"TSimboloImagem", "TTabelaDeSimbolos", "TTabelaDeSimbolosBD", "TTreeViewXML",
                                 "TTreeViewXMLBD"}));
}

void TesteDesigner::FiguraSoDeQuemTem()
{
    const auto Componentes = DoPlugin();
    for (QDesignerCustomWidgetInterface *C : Componentes)
        QCOMPARE(C->icon().isNull(), C->name() != QLatin1String("Sibrel::TTabelaDeSimbolos"));
    QCOMPARE(Componentes[0]->icon().availableSizes().value(0), QSize(24, 24));
}

void TesteDesigner::CadaPropriedadeTemDica()
{
    QFETCH(int, Linha);
    QDesignerCustomWidgetInterface *C = DoPlugin().at(Linha);
    QStringList ComDica;
    QXmlStreamReader Leitor(C->domXml());
    while (!Leitor.atEnd())
        if (Leitor.readNext() == QXmlStreamReader::StartElement &&
            Leitor.name() == QLatin1String("tooltip")) {
            ComDica.append(Leitor.attributes().value(QLatin1String("name")).toString());
            QVERIFY(Leitor.readElementText().size() > 10);
        }
    QVERIFY2(!Leitor.hasError(), qPrintable(Leitor.errorString()));
    // All that the class and its own bases publish and a form's author can edit.
    const std::unique_ptr<QWidget> Novo(C->createWidget(nullptr));
    QStringList Publicadas;
    for (const QMetaObject *M = Novo->metaObject();
         QLatin1String(M->className()).startsWith(QLatin1String("Sibrel::")); M = M->superClass())
        for (int I = M->propertyOffset(); I < M->propertyCount(); ++I)
            if (M->property(I).isDesignable())
                Publicadas.append(QLatin1String(M->property(I).name()));
    ComDica.sort();
    Publicadas.sort();
    QCOMPARE(ComDica, Publicadas);
}

// What the editor takes a property for decides how it is edited: colours with a button, lists of texts in a
// window of their own, pictures from files and resources.
void TesteDesigner::OsTiposQueOEditorEdita()
{
    const TEditorDeFormularios Editor;
    const auto Tipo = [&Editor](const QString &Classe, const char *Propriedade) {
        QDesignerFormWindowInterface *Janela = Editor.Abrir(Formulario(Classe));
        auto *Folha =
            Editor.Folha(Janela->mainContainer()->findChild<QWidget *>(QStringLiteral("componente")));
        const int I = Folha->indexOf(QLatin1String(Propriedade));
        return I >= 0 && Folha->isVisible(I) && Folha->isEnabled(I)
                   ? QByteArray(Folha->property(I).metaType().name())
                   : QByteArray("nenhum");
    };
    QCOMPARE(Tipo("TTabelaDeSimbolos", "CorTransparente"), QByteArray("QColor"));
    QCOMPARE(Tipo("TTabelaDeSimbolos", "Rotulos"),
             QByteArray("qdesigner_internal::PropertySheetStringListValue"));
    QCOMPARE(Tipo("TTabelaDeSimbolos", "Tag"), QByteArray("int"));
    QCOMPARE(Tipo("TTabelaDeSimbolos", "Simbolos"), QByteArray("nenhum"));
    QCOMPARE(Tipo("TSimboloImagem", "Mascara"), QByteArray("qdesigner_internal::PropertySheetPixmapValue"));
    QCOMPARE(Tipo("TSimboloImagem", "Cor"), QByteArray("QColor"));
    QCOMPARE(Tipo("TSimboloImagem", "Esticar"), QByteArray("bool"));
    QCOMPARE(Tipo("TTreeViewXML", "ElementoRaiz"),
             QByteArray("qdesigner_internal::PropertySheetStringValue"));
    QCOMPARE(Tipo("TTreeViewXMLBD", "ConfigurarPopup"), QByteArray("bool"));
    QCOMPARE(Tipo("TTreeViewXMLBD", "DataBase"), QByteArray("nenhum"));
}

void TesteDesigner::OsGruposTemONomeDaClasse()
{
    const TEditorDeFormularios Editor;
    QDesignerFormWindowInterface *Janela = Editor.Abrir(Formulario(QStringLiteral("TTreeViewXMLBD")));
    auto *Folha = Editor.Folha(Janela->mainContainer()->findChild<QWidget *>(QStringLiteral("componente")));
    QCOMPARE(Folha->propertyGroup(Folha->indexOf(QStringLiteral("ElementoRaiz"))),
             QStringLiteral("TTreeViewXML"));
    QCOMPARE(Folha->propertyGroup(Folha->indexOf(QStringLiteral("enabled"))), QStringLiteral("QWidget"));
}

void TesteDesigner::SemFiguraSoMostraOQueESeu()
{
    const TEditorDeFormularios Editor;
    QDesignerFormWindowInterface *Janela = Editor.Abrir(Formulario(QStringLiteral("TTabelaDeSimbolosBD")));
    auto *Folha = Editor.Folha(Janela->mainContainer()->findChild<QWidget *>(QStringLiteral("componente")));
    QStringList Vistas;
    for (int I = 0; I < Folha->count(); ++I)
        if (Folha->isVisible(I))
            Vistas.append(Folha->propertyName(I));
    QCOMPARE(Vistas, QStringList({"objectName", "geometry", "Tag", "CorTransparente", "Rotulos"}));
    Janela = Editor.Abrir(Formulario(QStringLiteral("TSimboloImagem")));
    Folha = Editor.Folha(Janela->mainContainer()->findChild<QWidget *>(QStringLiteral("componente")));
    QVERIFY(Folha->isVisible(Folha->indexOf(QStringLiteral("cursor"))));
}

void TesteDesigner::UmaEncerraAOutraNoEditor()
{
    const TEditorDeFormularios Editor;
    QDesignerFormWindowInterface *Janela = Editor.Abrir(Formulario(QStringLiteral("TSimboloImagem")));
    auto *Imagem = Janela->mainContainer()->findChild<TSimboloImagem *>();
    auto *Folha = Editor.Folha(Imagem);
    QDesignerPropertyEditorInterface *Mostrador = Editor.Editor().propertyEditor();
    Mostrador->setObject(Imagem);
    const auto *Linhas = Mostrador->findChild<QTreeWidget *>();
    QVERIFY(Linhas != nullptr);
    const auto Marca = [Linhas](const QString &Nome) { // the picture of a ticked or an empty box
        const auto Achadas = Linhas->findItems(Nome, Qt::MatchExactly | Qt::MatchRecursive);
        return Achadas.isEmpty() ? QImage() : Achadas[0]->icon(1).pixmap(16).toImage();
    };
    const QImage Vazia = Marca(QStringLiteral("Esticar"));
    QVERIFY(!Vazia.isNull());
    Folha->setProperty(Folha->indexOf(QStringLiteral("Centralizar")), true);
    QVERIFY(Marca(QStringLiteral("Centralizar")) != Vazia);
    Folha->setProperty(Folha->indexOf(QStringLiteral("Esticar")), true);
    QVERIFY(Marca(QStringLiteral("Esticar")) != Vazia);
    QCOMPARE(Marca(QStringLiteral("Centralizar")), Vazia);
    QVERIFY(Imagem->Esticar() && !Imagem->Centralizar());
    const QString Salvo = Janela->contents().simplified().remove(u' ');
    QVERIFY(Salvo.contains(QStringLiteral("\"Centralizar\"stdset=\"0\"><bool>false")));
    QVERIFY(Salvo.contains(QStringLiteral("\"Esticar\"stdset=\"0\"><bool>true")));
    Mostrador->setObject(nullptr);
}

void TesteDesigner::OEditorGuardaSempre()
{
    QFETCH(int, Linha);
    const TComponenteDoPacote &Componente = ComponentesDoPacote()[std::size_t(Linha)];
    const TEditorDeFormularios Editor;
    QDesignerFormWindowInterface *Janela = Editor.Abrir(Formulario(Componente.Classe));
    QVERIFY(Janela != nullptr);
    auto *Folha = Editor.Folha(Janela->mainContainer()->findChild<QWidget *>(QStringLiteral("componente")));
    int Sempre = 0;
    for (const TPropriedadePublicada &P : Componente.Propriedades) {
        const QString Guardada = QStringLiteral("<property name=\"%1\"").arg(P.Nome);
        const int Indice = Folha->indexOf(P.Nome);
        QVERIFY2(Indice >= 0, P.Nome.data());
        QCOMPARE(Folha->isChanged(Indice), P.SempreGuardada);
        QCOMPARE(Janela->contents().contains(Guardada), P.SempreGuardada);
        Folha->setChanged(Indice, true);
        QVERIFY2(Janela->contents().contains(Guardada), P.Nome.data());
        Folha->reset(Indice);
        Folha->setChanged(Indice, false);
        QCOMPARE(Janela->contents().contains(Guardada), P.SempreGuardada);
        Sempre += P.SempreGuardada ? 1 : 0;
    }
    QCOMPARE(Sempre, QList<int>({1, 4, 1, 1, 1}).at(Linha));
}

// Also what is always stored and empty, as a new control's mask, must be understood by every reader.
void TesteDesigner::ONovoVaiEVoltaSemMudar()
{
    QFETCH(int, Linha);
    const TComponenteDoPacote &Componente = ComponentesDoPacote()[std::size_t(Linha)];
    const std::unique_ptr<QWidget> Novo(Componente.Criar(nullptr));
    QByteArray Salvo;
    {
        const TEditorDeFormularios Editor;
        Salvo = Editor.Abrir(Formulario(Componente.Classe))->contents().toUtf8();
        QCOMPARE(Editor.Abrir(QString::fromUtf8(Salvo))->contents().toUtf8(), Salvo);
    }
    QUiLoader Carregador;
    UsarPlugin(Carregador);
    QBuffer Origem(&Salvo);
    const std::unique_ptr<QWidget> Form(Carregador.load(&Origem));
    QVERIFY2(Form != nullptr, qPrintable(Carregador.errorString()));
    const auto *Lido = Form->findChild<QWidget *>(QStringLiteral("componente"));
    QVERIFY(Lido != nullptr);
    for (const TPropriedadePublicada &P : Componente.Propriedades) {
        const QVariant Valor = Lido->property(P.Nome.data());
        if (Valor.typeId() == QMetaType::QPixmap)
            QVERIFY(Valor.value<QPixmap>().isNull());
        else
            QCOMPARE(Valor, Novo->property(P.Nome.data()));
    }
}

// As the palette hands a new view to the form.
void TesteDesigner::NomesDeDocumentoNaoSeTraduzem()
{
    const QString Dom = DoPlugin().at(3)->domXml();
    const qsizetype Inicio = Dom.indexOf(QStringLiteral("<widget "));
    const qsizetype Fim = Dom.indexOf(QStringLiteral("</widget>"));
    QVERIFY(Inicio >= 0 && Fim > Inicio);
    const TEditorDeFormularios Editor;
    QDesignerFormWindowInterface *Janela = Editor.Abrir(
        QStringLiteral(
            "<ui version=\"4.0\"><class>Form</class><widget class=\"QWidget\" name=\"Form\">%1</widget>"
            "</widget></ui>")
            .arg(Dom.mid(Inicio, Fim - Inicio)));
    QVERIFY(Janela != nullptr);
    const QString Salvo = Janela->contents();
    QVERIFY(Salvo.contains(QStringLiteral("<string notr=\"true\">Nome</string>")));
    QVERIFY(Salvo.contains(QStringLiteral("<string notr=\"true\"/>"))); // ElementoRaiz
    auto *Arvore = Janela->mainContainer()->findChild<QWidget *>(QStringLiteral("treeViewXML"));
    auto *Folha = Editor.Folha(Arvore);
    Folha->reset(Folha->indexOf(QStringLiteral("AtributoNome")));
    Folha->setChanged(Folha->indexOf(QStringLiteral("AtributoNome")), false);
    QVERIFY(!Janela->contents().contains(QStringLiteral("AtributoNome")));
    QCOMPARE(Arvore->property("AtributoNome").toString(), QStringLiteral("Nome"));
}

void TesteDesigner::OCarregadorDeFormularios()
{
    QUiLoader Carregador;
    UsarPlugin(Carregador);
    QVERIFY(Carregador.availableWidgets().contains(QStringLiteral("Sibrel::TTabelaDeSimbolos")));
    QByteArray Texto =
        Formulario(
            QStringLiteral("TTabelaDeSimbolos"),
            QStringLiteral("<property name=\"CorTransparente\"><color><red>1</red><green>2</green><blue>3"
                           "</blue></color></property><property name=\"Rotulos\"><stringlist><string>Posição"
                           "</string></stringlist></property>"))
            .toUtf8();
    QBuffer Origem(&Texto);
    const std::unique_ptr<QWidget> Form(Carregador.load(&Origem));
    QVERIFY2(Form != nullptr, qPrintable(Carregador.errorString()));
    auto *Tabela = Form->findChild<TTabelaDeSimbolos *>(QStringLiteral("componente"));
    QVERIFY(Tabela != nullptr);
    QVERIFY(Tabela->CorTransparente == TColor(QColor(1, 2, 3)));
    QCOMPARE(Tabela->ObterRotulo(0), QStringLiteral("Posição"));
}

void TesteDesigner::IconeNoEditorNadaNaExecucao()
{
    const QString Texto = Formulario(QStringLiteral("TTabelaDeSimbolos"));
    {
        const TEditorDeFormularios Editor;
        QWidget *Form = Editor.Abrir(Texto)->mainContainer();
        auto *Tabela = Form->findChild<TTabelaDeSimbolos *>();
        Form->window()->show();
        QVERIFY(Tabela->isVisible());
        QCOMPARE(Tabela->size(), QSize(28, 28));
        const QImage Icone(QStringLiteral(":/sibrel/paleta/TTABELADESIMBOLOS.bmp"));
        const QImage Visto = Tabela->grab().toImage();
        int Iguais = 0;
        for (int Y = 0; Y < 24; ++Y)
            for (int X = 0; X < 24; ++X)
                Iguais += Visto.pixelColor(X + 2, Y + 2) == Icone.pixelColor(X, Y) ? 1 : 0;
        QVERIFY2(Iguais > 24 * 24 * 9 / 10, qPrintable(QString::number(Iguais)));
        // One without a picture of its own has the editor's, as on the palette.
        QWidget *Outro = Editor.Abrir(Formulario(QStringLiteral("TTabelaDeSimbolosBD")))->mainContainer();
        Outro->window()->show();
        const QImage DoEditor = Outro->findChild<TTabelaDeSimbolos *>()->grab().toImage();
        QVERIFY(DoEditor.copy(2, 2, 24, 24) != Visto.copy(2, 2, 24, 24));
        QVERIFY(DoEditor.pixelColor(14, 14) != DoEditor.pixelColor(2, 2));
    }
    QUiLoader Carregador;
    UsarPlugin(Carregador);
    QByteArray Bytes = Texto.toUtf8();
    QBuffer Origem(&Bytes);
    const std::unique_ptr<QWidget> Form(Carregador.load(&Origem));
    auto *Tabela = Form->findChild<TTabelaDeSimbolos *>();
    Form->show();
    QVERIFY(!Tabela->isVisible());
    Tabela->show(); // whatever is asked of it
    QVERIFY(!Tabela->isVisible());
    QCOMPARE(Tabela->sizeHint(), QSize(0, 0));
}

void TesteDesigner::ImagemVaziaTemContornoSoNoEditor()
{
    const auto DuasCores = [](QWidget &Imagem) {
        QWidget *Form = Imagem.window();
        Form->show();
        const QImage Vista = Form->grab(QRect(Imagem.mapTo(Form, QPoint()), Imagem.size())).toImage();
        for (int Y = 0; Y < Vista.height(); ++Y)
            for (int X = 0; X < Vista.width(); ++X)
                if (Vista.pixel(X, Y) != Vista.pixel(Vista.width() / 2, Vista.height() / 2))
                    return true;
        return false;
    };
    QWidget Janela;
    Janela.resize(60, 60);
    TSimboloImagem Imagem(&Janela);
    Imagem.setGeometry(10, 10, 30, 30);
    QVERIFY(!DuasCores(Imagem));
    const TEditorDeFormularios Editor;
    QVERIFY(DuasCores(Imagem));
}

QTEST_MAIN(TesteDesigner)
#include "TesteDesigner.moc"
