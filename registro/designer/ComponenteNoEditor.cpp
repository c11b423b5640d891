// SPDX-License-Identifier: LGPL-2.1-or-later
#include "registro/designer/ComponenteNoEditor.h"

#include "plataforma/Component.h"
#include "registro/designer/FolhaDePropriedades.h"

namespace Sibrel
{

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
        SemImagem->AtribuirIcone(FComponente.Icone());
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
    if (!FComponente.SempreGuardadas.empty())
        RegistrarFolhaDePropriedades(*Editor, name(), FComponente.SempreGuardadas);
}

QString TComponenteNoEditor::domXml() const
{
    // The object's name begins like those that the editor itself proposes: small first letter, no prefix.
    QString Nome = QString(FComponente.Classe).sliced(1);
    Nome[0] = Nome[0].toLower();
    return QStringLiteral("<ui language=\"c++\"><widget class=\"%1\" name=\"%2\"/></ui>").arg(name(), Nome);
}

} // namespace Sibrel
