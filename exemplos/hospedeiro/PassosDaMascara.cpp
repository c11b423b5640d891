// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/PassosDaMascara.h"

#include "plataforma/Bitmap.h"
#include "plataforma/Canvas.h"

#include <QColor>

namespace Hospedeiro
{

using namespace Sibrel;

namespace
{

QString Texto(const char *Portugues)
{
    return QString::fromUtf8(Portugues);
}

// What is on `Tela` after `Figura` was transferred to it.
QImage Transferida(TBitmap &Tela, TCopyMode Modo, const TBitmap &Figura)
{
    Tela.Canvas().CopyMode = Modo;
    Tela.Canvas().Draw(0, 0, Figura);
    return Tela.Imagem().convertToFormat(QImage::Format_RGB32);
}

} // namespace

std::vector<TPassoDaMascara> PassosDaMascara(const TBitmap &Mascara, const QColor &Cor, const QImage &Fundo)
{
    if (Mascara.Empty())
        return {};
    const int Largura = Mascara.Width();
    const int Altura = Mascara.Height();
    std::vector<TPassoDaMascara> Passos;
    Passos.push_back({Texto("Máscara"), Texto("Um bit por pixel: o que aparece é o escuro"),
                      Mascara.Imagem().convertToFormat(QImage::Format_RGB32)});

    TBitmap Invertida(Mascara.Imagem());
    Invertida.AtribuirMonochrome(true);
    Passos.push_back({Texto("DSTINVERT"), Texto("A máscara invertida"),
                      Transferida(Invertida, TCopyMode::cmDstInvert, Mascara)});

    TBitmap Camada;
    Camada.AtribuirTamanho(Largura, Altura);
    Camada.Canvas().Brush = {TColor(Cor), TBrushStyle::bsSolid};
    Camada.Canvas().FillRect({0, 0, Largura, Altura});
    Passos.push_back({Texto("MERGECOPY"), Texto("A camada de cor: a máscara invertida e o pincel"),
                      Transferida(Camada, TCopyMode::cmMergeCopy, Invertida)});

    TBitmap Tela(Fundo.copy(0, 0, Largura, Altura));
    Passos.push_back({Texto("SRCAND"), Texto("O fundo com um furo preto na forma do símbolo"),
                      Transferida(Tela, TCopyMode::cmSrcAnd, Mascara)});
    Passos.push_back({Texto("SRCPAINT"), Texto("O furo preenchido com a camada de cor"),
                      Transferida(Tela, TCopyMode::cmSrcPaint, Camada)});
    return Passos;
}

} // namespace Hospedeiro
