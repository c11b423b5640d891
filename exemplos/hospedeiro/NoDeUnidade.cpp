// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/NoDeUnidade.h"

#include "hospedeiro/ArvoreDoHospedeiro.h"

#include "arvore/TreeViewXML.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

namespace Hospedeiro
{

void TNoDeUnidade::ConfigurarPopup(QMenu &Menu)
{
    const auto Antes = Menu.actions().size();
    if (Link())
        if (auto *Arvore = TArvoreDoHospedeiro::DoMenu(Menu))
            Menu.addAction(TArvoreDoHospedeiro::tr("&Ir para a unidade"), Arvore,
                           &TArvoreDoHospedeiro::SeguirLink);
    AcrescentarCopia(Menu, QStringLiteral("Posição"), TArvoreDoHospedeiro::tr("Copiar &posição: %1"));
    AcrescentarCopia(Menu, QStringLiteral("Frequência"), TArvoreDoHospedeiro::tr("Copiar &frequência: %1"));
    if (Menu.actions().size() > Antes)
        Menu.insertSeparator(Menu.actions().at(Antes));
}

void TNoDeUnidade::AcrescentarCopia(QMenu &Menu, const QString &Rotulo, const QString &Comando) const
{
    const QString Valor = Informacao().Values(Rotulo);
    if (Valor.isEmpty())
        return;
    QString Mostrado = Valor;
    Mostrado.replace(u'&', QStringLiteral("&&"));
    Menu.addAction(Comando.arg(Mostrado), &Menu, [Valor] { QGuiApplication::clipboard()->setText(Valor); });
}

void RegistrarClassesDeNos()
{
    const auto Registrar = [](const char *Tag, const Sibrel::TRefNoXML &Classe) {
        Sibrel::TRefNoXML Achada;
        if (!Sibrel::TTreeViewXML::ObterRefClassPeloTag(QLatin1String(Tag), Achada))
            Sibrel::TTreeViewXML::RegistrarClasse(QLatin1String(Tag), Classe);
    };
    for (const char *Tag : {"Divisao", "Brigada", "Batalhao", "Companhia", "Pelotao", "Posto"})
        Registrar(Tag, Sibrel::TRefNoXML::De<TNoDeUnidade>());
    Registrar("Agrupamento", Sibrel::TRefNoXML::De<Sibrel::TTreeNodeXML>());
}

} // namespace Hospedeiro
