// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/MenuDaArvore.h"

#include "hospedeiro/ArvoreDoHospedeiro.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPointer>

#include <mutex>
#include <vector>

namespace Hospedeiro
{

namespace
{

// The node and all below it, in tree order.
std::vector<Sibrel::TTreeNode *> Ramo(Sibrel::TTreeNode *Raiz)
{
    std::vector<Sibrel::TTreeNode *> Nos;
    for (Sibrel::TTreeNode *No = Raiz; No != nullptr && Raiz->Contem(No); No = No->GetNext())
        Nos.push_back(No);
    return Nos;
}

// Nodes that are deleted while this lives, by an update too, can still be asked whether they are there.
class TNosSeguros
{
public:
    explicit TNosSeguros(std::shared_ptr<Sibrel::TTreeNodes> Nos)
        : FNos(std::move(Nos))
    {
        FNos->Segurar();
    }
    ~TNosSeguros() { FNos->Soltar(); }
    TNosSeguros(const TNosSeguros &) = delete;
    TNosSeguros &operator=(const TNosSeguros &) = delete;

private:
    std::shared_ptr<Sibrel::TTreeNodes> FNos;
};

} // namespace

TMenuDaArvore::TMenuDaArvore(TArvoreDoHospedeiro &Arvore)
    : QMenu(&Arvore)
    , FArvore(Arvore)
{
    addAction(tr("&Expandir tudo abaixo"), this, [this] { Abrir(true); });
    addAction(tr("&Recolher tudo abaixo"), this, [this] { Abrir(false); });
    addSeparator();
    addAction(tr("&Copiar caminho"), this, [this] {
        QGuiApplication::clipboard()->setText(FArvore.CaminhoDoSelecionado(QStringLiteral("/")));
    });
    QAction *Excluir = addAction(tr("E&xcluir da árvore"), this, &TMenuDaArvore::ExcluirSelecionados);
    Excluir->setShortcut(QKeySequence::Delete);
    Excluir->setShortcutContext(Qt::WidgetShortcut);
    Arvore.addAction(Excluir);
    Arvore.AtribuirPopupMenu(this);
}

void TMenuDaArvore::Abrir(bool Sim)
{
    const Sibrel::TAtualizacaoDeNos Junta(FArvore.Items());
    const std::lock_guard Guarda(FArvore.Items().Trava());
    for (Sibrel::TTreeNode *No : Ramo(FArvore.Selected()))
        if (Sim)
            No->Expand();
        else
            No->Collapse();
}

void TMenuDaArvore::ExcluirSelecionados()
{
    const QPointer<TMenuDaArvore> Vivo(this); // the window may be closed while it asks
    const TNosSeguros Seguros(FArvore.ItemsGuardados());
    std::vector<Sibrel::TTreeNode *> Raizes;
    for (const QModelIndex &Indice : FArvore.selectionModel()->selectedIndexes())
        Raizes.push_back(FArvore.Modelo().NoDe(Indice));
    int Quantos = 0;
    {
        const std::lock_guard Guarda(FArvore.Items().Trava());
        for (Sibrel::TTreeNode *No : Raizes)
            Quantos += static_cast<int>(Ramo(No).size());
    }
    if (Quantos == 0 || (Quantos > 1 && !Confirmar(Quantos)) || !Vivo)
        return;
    const int Antes = FArvore.Items().Count();
    for (Sibrel::TTreeNode *No : Raizes)
        if (No->NaArvore())
            FArvore.Excluir(No);
    Q_EMIT Excluidos(Antes - FArvore.Items().Count());
}

bool TMenuDaArvore::Confirmar(int Quantos)
{
    QPointer<QMessageBox> Caixa = new QMessageBox(
        QMessageBox::Question, QGuiApplication::applicationDisplayName(),
        tr("Excluir %1 nós da árvore?").arg(Quantos), QMessageBox::Yes | QMessageBox::No, &FArvore);
    Caixa->setInformativeText(tr("Só a árvore muda: um documento pode trazê-los de volta."));
    Caixa->setDefaultButton(QMessageBox::No);
    const int Resposta = Caixa->exec();
    delete Caixa;
    return Resposta == QMessageBox::Yes;
}

} // namespace Hospedeiro
