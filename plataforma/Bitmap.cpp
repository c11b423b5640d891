// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/Bitmap.h"

#include "plataforma/Canvas.h"
#include "plataforma/Exception.h"
#include "plataforma/Transparencia.h"

#include <QPainter>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace Sibrel
{

namespace
{

QRgb *LinhaDe(QImage &Imagem, int Y)
{
    return reinterpret_cast<QRgb *>(Imagem.scanLine(Y));
}
const QRgb *LinhaDe(const QImage &Imagem, int Y)
{
    return reinterpret_cast<const QRgb *>(Imagem.constScanLine(Y));
}

constexpr QRgb Opaco = 0xFF000000U;

// The picture as it looks on paper: what it lets through is light.
QImage SobreBranco(const QImage &Imagem)
{
    if (!Imagem.hasAlphaChannel())
        return Imagem.convertToFormat(QImage::Format_RGB32);
    QImage Papel(Imagem.size(), QImage::Format_RGB32);
    Papel.fill(Qt::white);
    QPainter(&Papel).drawImage(0, 0, Imagem);
    return Papel;
}

// For each target place, the source place under its centre.
std::vector<int> LugaresEscolhidos(int Destino, int Origem)
{
    std::vector<int> Escolhidos(static_cast<std::size_t>(Destino));
    for (int I = 0; I < Destino; ++I)
        Escolhidos[static_cast<std::size_t>(I)] = static_cast<int>((2LL * I + 1) * Origem / (2LL * Destino));
    return Escolhidos;
}

QImage EsticadaSemSuavizar(const QImage &Origem, QSize Tamanho)
{
    QImage Destino(Tamanho, Origem.format());
    const std::vector<int> Colunas = LugaresEscolhidos(Tamanho.width(), Origem.width());
    const std::vector<int> Linhas = LugaresEscolhidos(Tamanho.height(), Origem.height());
    for (int Y = 0; Y < Tamanho.height(); ++Y) {
        const QRgb *De = LinhaDe(Origem, Linhas[static_cast<std::size_t>(Y)]);
        std::transform(Colunas.begin(), Colunas.end(), LinhaDe(Destino, Y), [De](int X) { return De[X]; });
    }
    return Destino;
}

} // namespace

TBitmap::TBitmap() = default;

TBitmap::TBitmap(const QImage &Imagem)
{
    AtribuirImagem(Imagem);
}

TBitmap::~TBitmap()
{
    SoltarPintor();
}

int TBitmap::Width() const noexcept
{
    return FImagem.width();
}
int TBitmap::Height() const noexcept
{
    return FImagem.height();
}

void TBitmap::AtribuirTamanho(int Largura, int Altura)
{
    const QSize Novo(std::max(Largura, 0), std::max(Altura, 0));
    if (Novo == FImagem.size())
        return;
    SoltarPintor();
    if (Novo.isEmpty()) {
        // value.
        FImagem = QImage();
    } else {
        const int Antiga = FImagem.height();
        const int Larga = FImagem.width();
        QImage Nova(Novo, QImage::Format_RGB32);
        Nova.fill(Qt::white);
        const QImage Velha = FImagem.convertToFormat(QImage::Format_RGB32);
        for (int Y = 0; Y < std::min(Antiga, Novo.height()); ++Y)
            std::copy_n(LinhaDe(Velha, Y), std::min(Larga, Novo.width()), LinhaDe(Nova, Y));
        FImagem = std::move(Nova);
    }
    Mudou();
}

void TBitmap::AtribuirMonochrome(bool Valor)
{
    FMonochrome = Valor;
    if (!Valor)
        return;
    SoltarPintor(); // the next drawing finds it reduced
    FPorReduzir = true;
    Mudou();
}

const QImage &TBitmap::Imagem() const
{
    SoltarPintor();
    Reduzir();
    return FImagem;
}

void TBitmap::AtribuirImagem(const QImage &Imagem)
{
    SoltarPintor();
    FImagem = Imagem.convertToFormat(Imagem.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                              : QImage::Format_RGB32);
    FImagem.setDevicePixelRatio(1);
    FPorReduzir = FMonochrome;
    Mudou();
}

TColor TBitmap::Pixel(int X, int Y) const
{
    const QImage &Pixels = Imagem();
    return Pixels.valid(X, Y) ? TColor(QColor::fromRgb(Pixels.pixel(X, Y))) : clWhite;
}

void TBitmap::Assign(const TGraphic &Outra)
{
    if (this == &Outra)
        return;
    if (const auto *Bitmap = dynamic_cast<const TBitmap *>(&Outra))
        AtribuirImagem(Bitmap->Imagem());
    else
        AtribuirImagem(Outra.Preparada({Outra.Width(), Outra.Height()}));
    AtribuirTransparent(Outra.Transparent());
}

QImage TBitmap::Preparada(QSize Tamanho) const
{
    if (Empty() || Tamanho.isEmpty())
        return {};
    QImage Pronta = Imagem();
    if (!Pronta.hasAlphaChannel() && Transparent())
        Pronta = SemACor(Pronta, Pronta.pixel(0, Pronta.height() - 1) | Opaco); // the bottom-left pixel's
    return Pronta.size() == Tamanho ? Pronta : EsticadaSemSuavizar(Pronta, Tamanho);
}

TCanvas &TBitmap::Canvas()
{
    if (!FCanvas)
        FCanvas.reset(new TCanvas(*this)); // the constructor is the bitmap's alone
    return *FCanvas;
}

QPainter &TBitmap::Pintor()
{
    if (!FPintor) {
        Reduzir(); // what was to be of one bit is drawn on as such
        FPintor = std::make_unique<QPainter>(&FImagem);
    }
    FPorReduzir = FMonochrome;
    Mudou();
    return *FPintor;
}

void TBitmap::SoltarPintor() const
{
    if (!FPintor)
        return;
    if (FCanvas)
        FCanvas->EsquecerPintor();
    FPintor.reset();
}

void TBitmap::Reduzir() const
{
    if (!FPorReduzir)
        return;
    FPorReduzir = false;
    constexpr int Limiar = 128;
    FImagem = SobreBranco(FImagem);
    for (int Y = 0; Y < FImagem.height(); ++Y) {
        QRgb *Linha = LinhaDe(FImagem, Y);
        std::transform(Linha, Linha + FImagem.width(), Linha,
                       [](QRgb P) { return qGray(P) < Limiar ? 0xFF000000U : 0xFFFFFFFFU; });
    }
}

} // namespace Sibrel
