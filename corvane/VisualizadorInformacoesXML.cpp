// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvane/VisualizadorInformacoesXML.h"

#include "plataforma/XMLDocument.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QVBoxLayout>

#include <map>

namespace Sibrel
{

namespace
{

// Opens a cell for selecting, not for changing.
class TTextoSelecionavel final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QWidget *createEditor(QWidget *Pai, const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        auto *Linha = new QLineEdit(Pai);
        Linha->setReadOnly(true);
        Linha->setFrame(false);
        return Linha;
    }
    void setModelData(QWidget *, QAbstractItemModel *, const QModelIndex &) const override {}
};

} // namespace

TVisualizadorInformacoesXML::TVisualizadorInformacoesXML(QWidget *Dono)
    : QFrame(Dono)
    , FTabela(new QTableWidget(0, 2, this))
{
    setFrameStyle(QFrame::NoFrame);
    auto *Disposicao = new QVBoxLayout(this);
    Disposicao->setContentsMargins(0, 0, 0, 0);
    Disposicao->addWidget(FTabela);
    FTabela->setHorizontalHeaderLabels({QStringLiteral("Informação"), QStringLiteral("Valor")});
    FTabela->verticalHeader()->hide();
    FTabela->horizontalHeader()->setStretchLastSection(true);
    FTabela->setSelectionMode(QAbstractItemView::ExtendedSelection);
    FTabela->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    FTabela->setItemDelegate(new TTextoSelecionavel(FTabela));
    FTabela->setAccessibleName(QStringLiteral("Informações"));
    setFocusProxy(FTabela);
    auto *AcaoCopiar = new QAction(QStringLiteral("Copiar"), this);
    AcaoCopiar->setShortcut(QKeySequence::Copy);
    AcaoCopiar->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(AcaoCopiar, &QAction::triggered, this, &TVisualizadorInformacoesXML::Copiar);
    FTabela->addAction(AcaoCopiar);
    FTabela->setContextMenuPolicy(Qt::ActionsContextMenu);
}

TVisualizadorInformacoesXML::~TVisualizadorInformacoesXML() = default;

void TVisualizadorInformacoesXML::ProcessarXML(const QString &Texto)
{
    const TXMLDocument::TReferencia Documento = TXMLDocument::DeTexto(Texto);
    Limpar();
    for (const TCursorXML &Item : Documento->Raiz().Filhos()) {
        if (!Item.Elemento())
            continue;
        const int Linha = FTabela->rowCount();
        FTabela->insertRow(Linha);
        for (int Coluna = 0; Coluna < 2; ++Coluna)
            FTabela->setItem(Linha, Coluna,
                             new QTableWidgetItem(Coluna < Item.AttributeCount() ? Item.AttributeText(Coluna)
                                                                                 : QString()));
    }
    FTabela->resizeColumnToContents(0);
}

void TVisualizadorInformacoesXML::Limpar()
{
    FTabela->setRowCount(0);
}

int TVisualizadorInformacoesXML::Count() const
{
    return FTabela->rowCount();
}

QString TVisualizadorInformacoesXML::Nome(int Indice) const
{
    const QTableWidgetItem *Celula = FTabela->item(Indice, 0);
    return Celula != nullptr ? Celula->text() : QString();
}

QString TVisualizadorInformacoesXML::Valor(int Indice) const
{
    const QTableWidgetItem *Celula = FTabela->item(Indice, 1);
    return Celula != nullptr ? Celula->text() : QString();
}

void TVisualizadorInformacoesXML::Copiar()
{
    std::map<int, QStringList> Linhas; // by row, cells in the order of columns
    for (int Linha = 0; Linha < FTabela->rowCount(); ++Linha)
        for (int Coluna = 0; Coluna < 2; ++Coluna)
            if (const QTableWidgetItem *Celula = FTabela->item(Linha, Coluna);
                Celula != nullptr && Celula->isSelected())
                Linhas[Linha].append(Celula->text());
    QStringList Texto;
    for (const auto &[Linha, Celulas] : Linhas)
        Texto.append(Celulas.join(u'\t'));
    if (!Texto.isEmpty())
        QGuiApplication::clipboard()->setText(Texto.join(u'\n'));
}

} // namespace Sibrel
