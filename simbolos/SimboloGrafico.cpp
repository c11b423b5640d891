// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/SimboloGrafico.h"

#include "plataforma/Arquivo.h"
#include "plataforma/ArquivoTexto.h"
#include "plataforma/Canvas.h"
#include "plataforma/Exception.h"
#include "plataforma/Picture.h"
#include "simbolos/CacheDePinturas.h"

namespace Sibrel
{

TSimboloGrafico::TSimboloGrafico() = default;
TSimboloGrafico::~TSimboloGrafico() = default;

void TSimboloGrafico::LerArquivo(const QString &Nome)
{
    Arquivo = SemBrancos(Nome);
    if (!ArquivoExiste(Arquivo))
        return;
    std::unique_ptr<TGraphic> Lido = LerGrafico(Arquivo);
    Lido->AtribuirTransparent(true);
    Grafico = std::move(Lido);
}

void TSimboloGrafico::Assign(ISimbolo &Origem)
{
    auto *De = dynamic_cast<TSimboloGrafico *>(&Origem);
    if (De == nullptr)
        throw EInvalidCast(QStringLiteral("O símbolo de origem não é um TSimboloGrafico!"));
    LerArquivo(QString(De->Arquivo));
}

bool TSimboloGrafico::PedirPintura(TCanvas &Canvas, const TRect &Rect, double Densidade,
                                   TPinturaPedida &Pedida)
{
    if (Canvas.CopyMode != TCopyMode::cmSrcCopy || Rect.Vazio())
        return false;
    Pedida.Alcance = Rect;
    Pedida.Chaves.append({Grafico ? Grafico->Selo() : 0, 0, static_cast<std::int32_t>(Rect.Width()),
                          static_cast<std::int32_t>(Rect.Height()), 0, 0, Densidade});
    return true;
}

void TSimboloGrafico::Desenhar(TCanvas &Canvas, const TRect &Rect)
{
    if (!Grafico)
        return;
    const auto Direto = [this, &Rect](TCanvas &C) { C.StretchDraw(Rect, *Grafico); };
    if (const std::optional<double> Densidade = Canvas.DensidadeDePixels()) {
        TPinturaPedida Pedida;
        if (PedirPintura(Canvas, Rect, *Densidade, Pedida) &&
            DesenharLembrada(Canvas, Rect, Pedida, Canvas.Pen, Direto))
            return;
    }
    Direto(Canvas);
}

} // namespace Sibrel
