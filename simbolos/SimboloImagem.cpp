// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/SimboloImagem.h"

#include "plataforma/Canvas.h"
#include "simbolos/SimboloImagemAcessivel.h"

namespace Sibrel
{

namespace
{

constinit TModulo Modulo("SimboloImagem", nullptr, nullptr);

} // namespace

TModulo &ModuloSimboloImagem() noexcept
{
    return Modulo;
}

TSimboloImagem::TSimboloImagem(QWidget *Dono)
    : TGraphicControl(Dono)
{
    RegistrarAcessibilidadeDeSimboloImagem();
    FMascara.AtribuirMonochrome(true);
}

TSimboloImagem::~TSimboloImagem() = default;

void TSimboloImagem::AtribuirMascara(const TGraphic *Valor)
{
    if (Valor != nullptr) {
        FMascara.Assign(*Valor);
        FMascara.AtribuirTransparent(false); // a mask has one notion of what is see-through: its light pixels
        FMascara.AtribuirMonochrome(true);
    } else {
        FMascara.AtribuirTamanho(0, 0);
    }
    updateGeometry();
    update();
}

void TSimboloImagem::AtribuirCor(TColor Valor)
{
    if (FCor == Valor)
        return;
    FCor = Valor;
    update();
}

void TSimboloImagem::AtribuirCentralizar(bool Valor)
{
    if (FCentralizar == Valor)
        return;
    FCentralizar = Valor;
    if (Valor)
        FEsticar = false;
    updateGeometry();
    update();
}

void TSimboloImagem::AtribuirEsticar(bool Valor)
{
    if (FEsticar == Valor)
        return;
    FEsticar = Valor;
    if (Valor)
        FCentralizar = false;
    updateGeometry();
    update();
}

QSize TSimboloImagem::sizeHint() const
{
    return FMascara.Empty() ? QSize(LadoSemMascara, LadoSemMascara)
                            : QSize(FMascara.Width(), FMascara.Height());
}

QSize TSimboloImagem::minimumSizeHint() const
{
    return FEsticar || FMascara.Empty() ? QSize(0, 0) : sizeHint();
}

TRect TSimboloImagem::AreaDaMascara() const noexcept
{
    const int Largura = FMascara.Width();
    const int Altura = FMascara.Height();
    if (FCentralizar) {
        const int Left = (width() - Largura) / 2;
        const int Top = (height() - Altura) / 2;
        return {Left, Top, Left + Largura, Top + Altura};
    }
    if (FEsticar)
        return {0, 0, width(), height()};
    return {0, 0, Largura, Altura};
}

QPixmap TSimboloImagem::FiguraDaMascara() const
{
    return QPixmap::fromImage(FMascara.Imagem());
}

void TSimboloImagem::AtribuirFiguraDaMascara(const QPixmap &Figura)
{
    if (Figura.isNull()) {
        AtribuirMascara(nullptr);
        return;
    }
    const TBitmap Copia(Figura.toImage());
    AtribuirMascara(&Copia);
}

void TSimboloImagem::Paint()
{
    Desenhar();
}

// The mask's colour where it is dark, black where it is light.
void TSimboloImagem::PrepararBufferDeCor()
{
    FBufferDeCor.AtribuirTamanho(FMascara.Width(), FMascara.Height());
    FMascara.Canvas().CopyMode = TCopyMode::cmDstInvert;
    FMascara.Canvas().Draw(0, 0, FMascara);
    TCanvas &Camada = FBufferDeCor.Canvas();
    Camada.CopyMode = TCopyMode::cmMergeCopy;
    Camada.Brush = {FCor, TBrushStyle::bsSolid};
    Camada.FillRect({0, 0, FMascara.Width(), FMascara.Height()});
    Camada.Draw(0, 0, FMascara);
    FMascara.Canvas().Draw(0, 0, FMascara); // inverts it back
}

void TSimboloImagem::Mostrar(TCopyMode Modo, const TBitmap &Figura)
{
    Canvas().CopyMode = Modo;
    Canvas().StretchDraw(AreaDaMascara(), Figura);
}

void TSimboloImagem::Desenhar()
{
    if (FMascara.Empty())
        return;
    PrepararBufferDeCor();
    Mostrar(TCopyMode::cmSrcAnd, FMascara);       // a black hole in the shape of the symbol
    Mostrar(TCopyMode::cmSrcPaint, FBufferDeCor); // filled with the colour
}

} // namespace Sibrel
