// SPDX-License-Identifier: LGPL-2.1-or-later
#include "guia/Trecho.h"

#include <Sibrel/TComponenteDoPacote>
#include <registro/InformacoesDoPacote.h>
#include <registro/Sibrel.h>

#include <QWidget>

using namespace Sibrel;

TRECHO(Informacoes)
{
    const auto Texto = [](std::string_view S) { return QString::fromUtf8(S.data(), qsizetype(S.size())); };
    //! [informacoes]
    QString Sobre = Texto(DescricaoDoPacote()) + u' ' + Texto(VersaoDoPacote());
    for (const TPacoteRequerido &Requerido : PacotesRequeridos())
        Sobre += u'\n' + Texto(Requerido.Nome) + QStringLiteral(": ") + Texto(Requerido.Equivalente);
    //! [informacoes]
    EXIGIR(Sobre.startsWith(QStringLiteral("Quenda - Componentes para trabalhar com simbolos 0.")));
    EXIGIR(Sobre.contains(QStringLiteral("dsnap70: Qt6::Sql")));
    EXIGIR(ModulosContidos().size() == 11);
}

TRECHO(Modulos)
{
    QStringList Iniciados;
    //! [modulos]
    for (const TModulo *Modulo : ModulosDoPacote())
        if (Modulo->Iniciado())
            Iniciados += QString::fromLatin1(Modulo->Nome());
    //! [modulos]
    EXIGIR(Iniciados.size() == SibrelModulosIniciados());
    EXIGIR(Iniciados.join(u' ') ==
           u"TabelaDeSimbolos SimboloImagem TabelaDeSimbolosBD SimboloVetorial TagsXML "
           u"TreeNodeXML PrepararAtualizacao TreeViewXML TreeViewXMLBD");
}

TRECHO(Componentes)
{
    QWidget Formulario;
    QStringList Classes;
    //! [componentes]
    for (const TComponenteDoPacote &Componente : ComponentesDoPacote()) {
        QWidget *Novo = Componente.Criar(&Formulario); // the form owns it
        Novo->setObjectName(Componente.Classe);
        Classes += Componente.Classe;
    }
    //! [componentes]
    EXIGIR(Classes.join(u' ') ==
           u"TTabelaDeSimbolos TSimboloImagem TTabelaDeSimbolosBD TTreeViewXML TTreeViewXMLBD");
    EXIGIR(Formulario.children().size() == 5);
}
