// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/PainelDeAtualizacoes.h"

#include "hospedeiro/RegistroDeAtualizacoes.h"

#include "arvore/TreeViewXML.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QScrollBar>
#include <QTableView>
#include <QToolButton>

namespace Hospedeiro
{

TPainelDeAtualizacoes::TPainelDeAtualizacoes(Sibrel::TTreeViewXML &Arvore, TRegistroDeAtualizacoes &Registro,
                                             QWidget *Dono)
    : QWidget(Dono)
    , FEtapa(new QLabel(this))
    , FBarra(new QProgressBar(this))
    , FCancelar(new QToolButton(this))
    , FLista(new QTableView(this))
{
    auto *Disposicao = new QVBoxLayout(this);
    Disposicao->setContentsMargins(0, 0, 0, 0);
    Disposicao->setSpacing(0);
    Disposicao->addWidget(MontarAndamento());
    Disposicao->addWidget(FLista, 1);
    MontarLista(Registro);
    connect(&Arvore, &Sibrel::TTreeViewXML::Progresso, this,
            [this, &Registro](Sibrel::TPreparaAtualizacao *Atualizacao) {
                MostrarProgresso(*Atualizacao);
                if (Registro.Andando() == 0)
                    Descansar();
            });
    // Also what is refused before it gets anywhere.
    connect(&Registro, &TRegistroDeAtualizacoes::Acabou, this, [this, &Registro](TDesfecho Desfecho) {
        if (Desfecho == TDesfecho::Falhou)
            FEtapa->setText(tr("Recusado"));
        if (Registro.Andando() == 0)
            Descansar();
    });
    Descansar();
}

QWidget *TPainelDeAtualizacoes::MontarAndamento()
{
    auto *Faixa = new QWidget(this);
    auto *Linha = new QHBoxLayout(Faixa);
    Linha->setContentsMargins(4, 4, 4, 4);
    // Wide enough for every stage, so that the bar stands still.
    FEtapa->setMinimumWidth(FEtapa->fontMetrics().horizontalAdvance(tr("Atualização 000000 de 000000")));
    FBarra->setTextVisible(false);
    FBarra->setAccessibleName(tr("Andamento da atualização"));
    FCancelar->setText(tr("&Cancelar"));
    FCancelar->setToolTip(tr("Encerra a atualização; o que ela já fez fica feito"));
    connect(FCancelar, &QToolButton::clicked, this, &TPainelDeAtualizacoes::CancelarPedido);
    Linha->addWidget(FEtapa);
    Linha->addWidget(FBarra, 1);
    Linha->addWidget(FCancelar);
    return Faixa;
}

void TPainelDeAtualizacoes::MontarLista(TRegistroDeAtualizacoes &Registro)
{
    FLista->setModel(&Registro);
    FLista->setAccessibleName(tr("Registro das atualizações"));
    FLista->setSelectionBehavior(QAbstractItemView::SelectRows);
    FLista->setWordWrap(false);
    FLista->setShowGrid(false);
    FLista->setTabKeyNavigation(false);
    FLista->verticalHeader()->hide();
    FLista->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    QHeaderView *Cabecalho = FLista->horizontalHeader();
    Cabecalho->setHighlightSections(false);
    Cabecalho->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Cabecalho->setStretchLastSection(true);
    const auto Largura = [this](const char *Exemplo) {
        return fontMetrics().horizontalAdvance(QString::fromUtf8(Exemplo));
    };
    Cabecalho->resizeSection(TRegistroDeAtualizacoes::ColunaInicio, Largura("00:00:00 MM"));
    Cabecalho->resizeSection(TRegistroDeAtualizacoes::ColunaDocumento, Largura("ordem_de_batalha.xml MMM"));
    Cabecalho->resizeSection(TRegistroDeAtualizacoes::ColunaDuracao, Largura("0000,000 s MM"));
    // The newest stays in sight unless the operator is reading further up.
    connect(&Registro, &QAbstractItemModel::rowsAboutToBeInserted, FLista, [this] {
        const QScrollBar *Barra = FLista->verticalScrollBar();
        if (Barra->value() == Barra->maximum())
            QMetaObject::invokeMethod(FLista, &QTableView::scrollToBottom, Qt::QueuedConnection);
    });
}

void TPainelDeAtualizacoes::MostrarProgresso(const Sibrel::TPreparaAtualizacao &A)
{
    const int Total = A.Total();
    const QString Etapa = A.Etapa();
    FEtapa->setText(Total > 0 && Etapa == u"Atualização"
                        ? tr("%1: %2 de %3").arg(Etapa).arg(A.Posicao()).arg(Total)
                        : Etapa);
    FBarra->setRange(0, Total); // without a total it only tells that something is going on
    FBarra->setValue(A.Posicao());
    FCancelar->setEnabled(true);
}

void TPainelDeAtualizacoes::Descansar()
{
    FBarra->setRange(0, 1);
    FBarra->setValue(0);
    FCancelar->setEnabled(false);
}

} // namespace Hospedeiro
