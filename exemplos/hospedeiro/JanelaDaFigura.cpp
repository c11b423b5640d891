// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/JanelaDaFigura.h"

#include "hospedeiro/DescricaoDeFigura.h"
#include "hospedeiro/PinturaDeSimbolo.h"

#include "simbolos/SimboloVetorial.h"

#include <QColor>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QPainter>
#include <QPixmap>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace Hospedeiro
{

namespace
{

constexpr QSize TamanhoDaJanela(760, 440);
constexpr int MenorQuadro = 160;
constexpr int LarguraDoQuadro = 320;

// The figure on paper, as large as fits.
class TQuadro : public QWidget
{
public:
    explicit TQuadro(Sibrel::TSimboloVetorial &Figura)
        : FFigura(Figura)
    {
        setMinimumSize(MenorQuadro, MenorQuadro);
        setAccessibleName(TJanelaDaFigura::tr("Figura"));
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter Pintor(this);
        Pintor.fillRect(rect(), Qt::white);
        PintarSimbolo(Pintor, rect(), FFigura, Qt::black);
    }

private:
    Sibrel::TSimboloVetorial &FFigura;
};

QTreeWidgetItem *ItemDoCampo(const TCampo &Campo)
{
    auto *Item = new QTreeWidgetItem({Campo.Nome, Campo.Valor});
    Item->setToolTip(1, Campo.Valor);
    if (Campo.Nome.startsWith(QLatin1String("Cor")) && QColor::isValidColor(Campo.Valor)) {
        constexpr int Lado = 12;
        QPixmap Amostra(Lado, Lado);
        Amostra.fill(QColor(Campo.Valor));
        Item->setIcon(1, Amostra);
    }
    return Item;
}

} // namespace

TJanelaDaFigura::TJanelaDaFigura(Sibrel::TSimboloVetorial &Figura, QWidget *Dono)
    : QDialog(Dono)
{
    setWindowTitle(tr("Figura %1").arg(QFileInfo(Figura.ObterNomeArquivo()).fileName()));
    auto *Meio = new QSplitter(this);
    Meio->addWidget(new TQuadro(Figura));
    Meio->addWidget(MontarLista(Figura));
    Meio->setSizes({LarguraDoQuadro, TamanhoDaJanela.width() - LarguraDoQuadro});
    auto *Botoes = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(Botoes, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *Coluna = new QVBoxLayout(this);
    Coluna->addWidget(Meio, 1);
    Coluna->addWidget(Botoes);
    resize(TamanhoDaJanela);
}

QTreeWidget *TJanelaDaFigura::MontarLista(const Sibrel::TSimboloVetorial &Figura)
{
    auto *Lista = new QTreeWidget(this);
    Lista->setHeaderLabels({tr("Elemento"), tr("Valor")});
    Lista->setAccessibleName(tr("Elementos da figura"));
    Lista->setUniformRowHeights(true);
    QList<QTreeWidgetItem *> Itens;
    for (const auto &Elemento : Figura.ObterElementos()) {
        auto *Item =
            new QTreeWidgetItem({QStringLiteral("%1: %2").arg(Itens.size()).arg(TipoDoElemento(*Elemento))});
        for (const TCampo &Campo : CamposDoElemento(*Elemento))
            Item->addChild(ItemDoCampo(Campo));
        Itens.append(Item);
    }
    Lista->addTopLevelItems(Itens);
    Lista->expandAll();
    Lista->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    return Lista;
}

} // namespace Hospedeiro
