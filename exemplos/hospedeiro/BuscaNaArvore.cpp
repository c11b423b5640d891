// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/BuscaNaArvore.h"

#include "arvore/TreeViewXML.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>

#include <mutex>

namespace Hospedeiro
{

namespace
{

// The node before this one in tree order.
Sibrel::TTreeNode *NoAntes(const Sibrel::TTreeNode *No)
{
    if (No == nullptr)
        return nullptr;
    Sibrel::TTreeNode *Antes = No->GetPrevSibling();
    if (Antes == nullptr)
        return No->Parent();
    while (Sibrel::TTreeNode *Filho = Antes->GetLastChild())
        Antes = Filho;
    return Antes;
}

} // namespace

TBuscaNaArvore::TBuscaNaArvore(Sibrel::TTreeViewXML &Arvore, QWidget *Dono)
    : QWidget(Dono)
    , FArvore(Arvore)
    , FTexto(new QLineEdit(this))
    , FPeloComeco(new QCheckBox(tr("&Pelo começo"), this))
    , FSemMaiusculas(new QCheckBox(tr("&Ignorar maiúsculas"), this))
{
    FTexto->setPlaceholderText(tr("Localizar legenda"));
    FTexto->setAccessibleName(tr("Localizar legenda"));
    FTexto->setToolTip(tr("Enter ou F3: a próxima; Shift+F3: a anterior"));
    FTexto->setClearButtonEnabled(true);
    FPeloComeco->setToolTip(tr("Basta que a legenda comece pelo texto; senão precisa ser igual a ele"));
    FPeloComeco->setChecked(true);
    FSemMaiusculas->setToolTip(tr("Letras de A a Z valem o mesmo que as minúsculas; as acentuadas, não"));
    FSemMaiusculas->setChecked(true);
    auto *Disposicao = new QHBoxLayout(this);
    Disposicao->setContentsMargins(4, 4, 4, 4);
    Disposicao->addWidget(FTexto, 1);
    const auto Seta = [&](Qt::ArrowType Tipo, const QString &Nome, bool ParaTras) {
        auto *Botao = new QToolButton(this);
        Botao->setArrowType(Tipo);
        Botao->setAutoRaise(true);
        Botao->setToolTip(Nome);
        Botao->setAccessibleName(Nome);
        connect(Botao, &QToolButton::clicked, this, [this, ParaTras] { ProcurarOutro(ParaTras); });
        Disposicao->addWidget(Botao);
    };
    Seta(Qt::UpArrow, tr("Anterior"), true);
    Seta(Qt::DownArrow, tr("Próximo"), false);
    Disposicao->addWidget(FPeloComeco);
    Disposicao->addWidget(FSemMaiusculas);
    connect(FTexto, &QLineEdit::textEdited, this, &TBuscaNaArvore::ProcurarDaqui);
    connect(FTexto, &QLineEdit::returnPressed, this, [this] { ProcurarOutro(false); });
    connect(FPeloComeco, &QCheckBox::clicked, this, &TBuscaNaArvore::ProcurarDaqui);
    connect(FSemMaiusculas, &QCheckBox::clicked, this, &TBuscaNaArvore::ProcurarDaqui);
}

void TBuscaNaArvore::Comecar()
{
    FTexto->setFocus(Qt::ShortcutFocusReason);
    FTexto->selectAll();
}

void TBuscaNaArvore::ProcurarOutro(bool ParaTras)
{
    // An update may be at work: what is found stays while it is being selected.
    const std::lock_guard Guarda(FArvore.Items().Trava());
    Sibrel::TTreeNode *Daqui = FArvore.Selected();
    Selecionar(ParaTras ? Anterior(Daqui) : Proximo(Daqui));
}

Sibrel::TSearchFlags TBuscaNaArvore::Opcoes() const
{
    Sibrel::TSearchFlags Todas = 0;
    if (FPeloComeco->isChecked())
        Todas |= Sibrel::sfPartial;
    if (FSemMaiusculas->isChecked())
        Todas |= Sibrel::sfCaseInsensitive;
    return Todas;
}

void TBuscaNaArvore::ProcurarDaqui()
{
    const std::lock_guard Guarda(FArvore.Items().Trava());
    Selecionar(Proximo(NoAntes(FArvore.Selected())));
}

Sibrel::TTreeNode *TBuscaNaArvore::Proximo(Sibrel::TTreeNode *Inicio) const
{
    Sibrel::TTreeNode *No = FArvore.ObterPrimeiroNo(FTexto->text(), Inicio, Opcoes());
    return No != nullptr || Inicio == nullptr ? No
                                              : FArvore.ObterPrimeiroNo(FTexto->text(), nullptr, Opcoes());
}

Sibrel::TTreeNode *TBuscaNaArvore::Anterior(const Sibrel::TTreeNode *Inicio) const
{
    std::vector<Sibrel::TTreeNode *> Todos;
    FArvore.ObterNos(Todos, FTexto->text(), Opcoes());
    if (Todos.empty())
        return nullptr;
    const auto Depois = std::find_if(Todos.begin(), Todos.end(), [&](const Sibrel::TTreeNode *No) {
        return Inicio == nullptr || No == Inicio || FArvore.Items().Antes(Inicio, No);
    });
    return Depois == Todos.begin() ? Todos.back() : *(Depois - 1);
}

void TBuscaNaArvore::Selecionar(Sibrel::TTreeNode *No)
{
    if (FTexto->text().isEmpty())
        return;
    if (No == nullptr) {
        Q_EMIT NadaAchado(FTexto->text());
        return;
    }
    const QModelIndex Indice = FArvore.Modelo().IndiceDe(No);
    if (!Indice.isValid())
        return; // it is being made and has no row yet
    const bool Avista = FArvore.viewport()->rect().contains(FArvore.visualRect(Indice));
    FArvore.AtribuirSelected(No);
    if (!Avista) // with what stands around it
        FArvore.scrollTo(Indice, QAbstractItemView::PositionAtCenter);
}

} // namespace Hospedeiro
