// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/FichaDoNo.h"

#include "arvore/TextosXML.h"
#include "arvore/TreeNodeXML.h"
#include "corvane/VisualizadorInformacoesXML.h"

#include <QLabel>
#include <QVBoxLayout>

namespace Hospedeiro
{

namespace
{

constexpr int Margem = 6;
constexpr double FatorDaLegenda = 1.2;

QString TextoDosPares(const Sibrel::TStrings &Lista)
{
    QStringList Pares;
    for (int I = 0; I < Lista.Count(); ++I)
        Pares += Lista.Names(I) + QStringLiteral(": ") + Lista.ValueFromIndex(I);
    return Pares.join(u'\n');
}

} // namespace

TFichaDoNo::TFichaDoNo(QWidget *Dono)
    : QWidget(Dono)
    , FLegenda(new QLabel(this))
    , FIdentificacao(new QLabel(this))
    , FFrame(new Sibrel::TVisualizadorInformacoesXML(this))
{
    QFont Fonte = font();
    Fonte.setBold(true);
    Fonte.setPointSizeF(Fonte.pointSizeF() * FatorDaLegenda);
    FLegenda->setFont(Fonte);
    for (QLabel *Rotulo : {FLegenda, FIdentificacao}) {
        Rotulo->setTextFormat(Qt::PlainText);
        Rotulo->setWordWrap(true);
        Rotulo->setTextInteractionFlags(Qt::TextSelectableByMouse);
        Rotulo->setContentsMargins(Margem, 0, Margem, 0);
    }
    auto *Disposicao = new QVBoxLayout(this);
    Disposicao->setContentsMargins(0, Margem, 0, 0);
    Disposicao->addWidget(FLegenda);
    Disposicao->addWidget(FIdentificacao);
    Disposicao->addWidget(FFrame, 1);
    Mostrar(nullptr);
}

QString TFichaDoNo::Informacoes(const Sibrel::TTreeNodeXML &No)
{
    return Sibrel::CABECALHOXML.toString() + Sibrel::PULALINHA.toString() + No.ObterXMLInformacao();
}

void TFichaDoNo::Mostrar(const Sibrel::TTreeNodeXML *No)
{
    if (No == nullptr) {
        FLegenda->setText(tr("Nenhum nó selecionado"));
        FIdentificacao->clear();
        FInformacoes.clear();
        FFrame->Limpar(); // the tree leaves there what it was
        return;
    }
    FLegenda->setText(No->Text());
    QString Identificacao = TextoDosPares(No->Identificacao());
    if (No->Link())
        Identificacao += tr("\nLink: clique duplo vai para a unidade");
    FIdentificacao->setText(Identificacao);
    FInformacoes = Informacoes(*No);
}

void TFichaDoNo::Renovar(const Sibrel::TTreeNodeXML *No)
{
    const QString Antes = FInformacoes;
    Mostrar(No);
    if (No != nullptr && FInformacoes != Antes)
        FFrame->ProcessarXML(FInformacoes);
}

} // namespace Hospedeiro
