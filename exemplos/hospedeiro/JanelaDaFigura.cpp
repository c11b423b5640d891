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
constexpr std::int64_t MaiorLado = 1 << 24; // of a figure; beyond it nobody sees a difference
constexpr std::int64_t MargemDoDesenho = 3; // that a figure is drawn with, left out of its scale

// The figure on paper, as large as fits. It is drawn at its own size under a painter that enlarges it: texts,
// which do not grow with the rectangle of a symbol, stay what they are among the shapes.
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
        Pintor.setRenderHint(QPainter::Antialiasing);
        const QRect Tamanho = TamanhoProprio();
        const double Escala =
            std::min(double(width()) / Tamanho.width(), double(height()) / Tamanho.height());
        Pintor.translate(QRectF(rect()).center());
        Pintor.scale(Escala, Escala);
        PintarSimbolo(Pintor, Tamanho, FFigura, Qt::black);
    }

private:
    // The rectangle around (0, 0) into which the figure is drawn one unit a pixel.
    QRect TamanhoProprio() const
    {
        const Sibrel::TRect Area = FFigura.ObterElementos().ObterArea();
        const auto Lado = [](std::int64_t Unidades) {
            return static_cast<int>(std::clamp(Unidades, std::int64_t{1}, MaiorLado) + MargemDoDesenho);
        };
        const QSize Inteiro(Lado(Area.Width()), Lado(Area.Height()));
        return {QPoint(-(Inteiro.width() / 2), -(Inteiro.height() / 2)), Inteiro};
    }

    Sibrel::TSimboloVetorial &FFigura;
};

QTreeWidgetItem *ItemDoCampo(const TCampo &Campo)
{
    auto *Item = new QTreeWidgetItem({Campo.Nome, Campo.Valor});
    Item->setToolTip(1, Dica(Campo.Valor));
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
