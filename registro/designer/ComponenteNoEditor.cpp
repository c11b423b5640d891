// SPDX-License-Identifier: LGPL-2.1-or-later
#include "registro/designer/ComponenteNoEditor.h"

#include "plataforma/Component.h"
#include "registro/designer/FolhaDePropriedades.h"

#include <QFile>

#include <memory>

namespace Sibrel
{

namespace
{

// Without a picture of its own a component has the one that the editor's palette shows for it.
QIcon IconeNoFormulario(const TComponenteDoPacote &Componente)
{
    const QIcon Proprio = Componente.Icone();
    const QString DoEditor = QStringLiteral(":/qt-project.org/formeditor/images/qtlogo24x24.png");
    return Proprio.isNull() && QFile::exists(DoEditor) ? QIcon(DoEditor) : Proprio;
}

} // namespace

TComponenteNoEditor::TComponenteNoEditor(const TComponenteDoPacote &Componente, QObject *Dono)
    : QObject(Dono)
    , FComponente(Componente)
{
}

QString TComponenteNoEditor::name() const
{
    return QStringLiteral("Sibrel::") + FComponente.Classe;
}

QString TComponenteNoEditor::group() const
{
    return PaginaDaPaleta;
}

QString TComponenteNoEditor::toolTip() const
{
    return QString::fromUtf16(FComponente.Dica);
}

QString TComponenteNoEditor::whatsThis() const
{
    return toolTip();
}

QString TComponenteNoEditor::includeFile() const
{
    return FComponente.Cabecalho;
}

QIcon TComponenteNoEditor::icon() const
{
    return FComponente.Icone();
}

bool TComponenteNoEditor::isContainer() const
{
    return false;
}

QWidget *TComponenteNoEditor::createWidget(QWidget *Pai)
{
    QWidget *Novo = FComponente.Criar(Pai);
    if (auto *SemImagem = qobject_cast<TComponent *>(Novo))
        SemImagem->AtribuirIcone(IconeNoFormulario(FComponente));
    return Novo;
}

bool TComponenteNoEditor::isInitialized() const
{
    return FIniciado;
}

void TComponenteNoEditor::initialize(QDesignerFormEditorInterface *Editor)
{
    if (FIniciado)
        return;
    FIniciado = true;
    TComponent::AtribuirEmProjeto(true);
    RegistrarFolhaDePropriedades(*Editor, name(), FComponente);
}

// What the editor is told of a property beyond its type.
QString TComponenteNoEditor::Especificacoes() const
{
    QString Texto;
    for (const TPropriedadePublicada &P : FComponente.Propriedades) {
        Texto += QStringLiteral("<tooltip name=\"%1\">%2</tooltip>")
                     .arg(P.Nome, QString::fromUtf16(P.Dica).toHtmlEscaped());
        if (P.NomeNoDocumento)
            Texto +=
                QStringLiteral("<stringpropertyspecification name=\"%1\" type=\"singleline\" notr=\"true\"/>")
                    .arg(P.Nome);
    }
    return Texto;
}

// A text that the editor was never given counts as one to be translated: names in documents are given from
// the beginning.
QString TComponenteNoEditor::ValoresIniciais() const
{
    QString Texto;
    std::unique_ptr<QWidget> Novo;
    for (const TPropriedadePublicada &P : FComponente.Propriedades) {
        if (!P.NomeNoDocumento)
            continue;
        if (!Novo)
            Novo.reset(FComponente.Criar(nullptr));
        Texto +=
            QStringLiteral("<property name=\"%1\" stdset=\"0\"><string notr=\"true\">%2</string></property>")
                .arg(P.Nome, Novo->property(P.Nome.data()).toString().toHtmlEscaped());
    }
    return Texto;
}

QString TComponenteNoEditor::domXml() const
{
    // The object's name begins like those that the editor itself proposes: small first letter, no prefix.
    QString Nome = QString(FComponente.Classe).sliced(1);
    Nome[0] = Nome[0].toLower();
    return QStringLiteral(
               "<ui language=\"c++\" displayname=\"%3\"><widget class=\"%1\" name=\"%2\">%5</widget>"
               "<customwidgets><customwidget><class>%1</class><propertyspecifications>%4"
               "</propertyspecifications></customwidget></customwidgets></ui>")
        .arg(name(), Nome, FComponente.Classe, Especificacoes(), ValoresIniciais());
}

} // namespace Sibrel
