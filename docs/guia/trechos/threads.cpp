// SPDX-License-Identifier: LGPL-2.1-or-later
#include "guia/Trecho.h"

#include <Sibrel/TModeloDeNos>
#include <Sibrel/TTravaDeNos>
#include <Sibrel/TTreeViewXML>

#include <QCoreApplication>
#include <QTest>

#include <mutex>
#include <thread>

using namespace Sibrel;
using Sibrel::Guia::EsperarAtualizacoes;

TRECHO(Trava)
{
    TTreeViewXML Arvore;
    for (int I = 0; I < 3; ++I)
        Arvore.Nos().AddChild(nullptr, QString::number(I));
    QStringList Legendas;
    //! [trava]
    {
        // One call is safe by itself. Around several that belong together: the lock, for a short while.
        const std::lock_guard Guarda(Arvore.Nos().Trava());
        for (TTreeNode *No = Arvore.Nos().GetFirstNode(); No != nullptr; No = No->GetNext())
            Legendas += No->Text();
    }
    //! [trava]
    EXIGIR(Legendas.join(u' ') == u"0 1 2");
}

TRECHO(DoHospedeiro)
{
    TTreeViewXML Arvore;
    Arvore.ensurePolished();
    TTreeNodesXML &Nos = Arvore.Nos();
    //! [do_hospedeiro]
    TModeloDeNos &Modelo = Arvore.Modelo();
    std::thread Trabalho([&Nos, &Modelo] {     // nodes are data: any thread may make them
        const TTravaDeNos::TPaciente Paciente; // the user interface gets the lock first
        for (int I = 0; I < 1000; ++I)
            Nos.AddNode(TRefNoXML::De<TTreeNodeXML>().Criar(Nos), nullptr)->AtribuirText(QString::number(I));
        // A patient thread says itself when its nodes are to be shown.
        QMetaObject::invokeMethod(&Modelo, &TModeloDeNos::Publicar, Qt::QueuedConnection);
    });
    //! [do_hospedeiro]
    Trabalho.join();
    EXIGIR(Nos.Count() == 1000);
    // The rows come when the event loop runs.
    for (int I = 0; I < 1000 && Arvore.Modelo().rowCount() < 1000; ++I)
        QTest::qWait(1);
    EXIGIR(Arvore.Modelo().rowCount() == 1000);
}

TRECHO(Segurar)
{
    TTreeViewXML Arvore;
    TTreeNode *No = Arvore.Nos().AddChild(nullptr, QStringLiteral("A"));
    //! [segurar]
    Arvore.Nos().Segurar(); // a node that is deleted meanwhile is not destroyed yet
    Arvore.Nos().Delete(No);
    const bool Conta = No->NaArvore(); // false: it is out, but the pointer is still good
    Arvore.Nos().Soltar();             // from here on it is not
    //! [segurar]
    EXIGIR(!Conta && Arvore.Nos().Count() == 0);
}

TRECHO(VistaQueMorre)
{
    TTreeViewXML::RegistrarClasse(QStringLiteral("U"), TRefNoXML::De<TTreeNodeXML>());
    QString Grande = QStringLiteral("<R>");
    for (int I = 0; I < 5000; ++I)
        Grande += QStringLiteral("<U Nome='%1' Cor='0'/>").arg(I);
    Grande += QStringLiteral("</R>");
    //! [vista]
    {
        TTreeViewXML Arvore;
        Arvore.Atualizar(Grande);
        QCoreApplication::processEvents();
    } // the update on the way ends early, in silence
    //! [vista]
    EsperarAtualizacoes();
    TTreeViewXML::RemoverRegistroClasse(QStringLiteral("U"));
}
