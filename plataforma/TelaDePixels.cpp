// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/TelaDePixels.h"

#include "plataforma/TracoDePixels.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QVarLengthArray>

#include <algorithm>

namespace Sibrel
{

namespace
{

// Outlines may fill a gap one pixel beyond their points.
constexpr std::int32_t Sobra = 2;
// So that no coordinate overflows in 16.16.
constexpr int MaiorCoordenada = 0x3FFF;

QImage *ImagemSob(const QPainter &Pintor)
{
    const QPaintEngine *Motor = Pintor.paintEngine();
    if (Motor == nullptr || Motor->type() != QPaintEngine::Raster)
        return nullptr;
    QPaintDevice *Aparelho = Motor->paintDevice();
    if (Aparelho->devType() != QInternal::Image)
        return nullptr;
    auto *Imagem = static_cast<QImage *>(Aparelho);
    const QImage::Format Formato = Imagem->format();
    const bool De32Bits = Formato == QImage::Format_RGB32 || Formato == QImage::Format_ARGB32_Premultiplied ||
                          Formato == QImage::Format_ARGB32;
    return De32Bits && Imagem->width() <= MaiorCoordenada && Imagem->height() <= MaiorCoordenada ? Imagem
                                                                                                 : nullptr;
}

bool SoPoePixels(const QPainter &Pintor)
{
    return !Pintor.testRenderHint(QPainter::Antialiasing) &&
           Pintor.compositionMode() == QPainter::CompositionMode_SourceOver && Pintor.opacity() >= 1.0;
}

// Where in the image the painter may draw; nothing where that is not one rectangle.
std::optional<QRect> AreaLivre(const QPainter &Pintor, const QImage &Imagem, QPoint Origem)
{
    QRect Livre = Imagem.rect();
    const QRegion DoSistema = Pintor.paintEngine()->systemClip(); // a widget's: the part being repainted
    if (DoSistema.rectCount() > 1)
        return std::nullopt;
    if (!DoSistema.isEmpty())
        Livre &= DoSistema.boundingRect();
    if (Pintor.hasClipping()) {
        const QRegion Corte = Pintor.clipRegion();
        if (Corte.rectCount() > 1)
            return std::nullopt;
        Livre &= Corte.boundingRect().translated(Origem);
    }
    return Livre;
}

// The crossings of a polygon with the rows of pixels: for each row, sorted, the first pixels right of them.
class TCruzamentos
{
public:
    explicit TCruzamentos(std::span<const TPoint> Pontos)
        : FPontos(Pontos)
    {
        const auto [Acima, Abaixo] = std::minmax_element(
            Pontos.begin(), Pontos.end(), [](const TPoint &A, const TPoint &B) { return A.Y < B.Y; });
        FTopo = Acima->Y;
        Contar(Abaixo->Y - FTopo);
        Achar();
    }

    std::int32_t Topo() const noexcept { return FTopo; }
    int Linhas() const noexcept { return static_cast<int>(FInicio.size()) - 1; }
    std::span<std::int32_t> Linha(int L) noexcept
    {
        return {FX.data() + FInicio[L], FX.data() + FInicio[L + 1]};
    }

private:
    template <class Funcao>
    void ParaCadaLado(Funcao &&F) const
    {
        TPoint De = FPontos.back();
        for (const TPoint &Ate : FPontos) {
            if (De.Y < Ate.Y)
                F(De, Ate);
            else if (Ate.Y < De.Y)
                F(Ate, De);
            De = Ate;
        }
    }

    // First how many each row has, so that all of them lie in one array.
    void Contar(int Linhas)
    {
        FInicio.resize(Linhas + 1);
        std::fill(FInicio.begin(), FInicio.end(), 0);
        ParaCadaLado([this](const TPoint &Acima, const TPoint &Abaixo) {
            ++FInicio[Acima.Y - FTopo];
            --FInicio[Abaixo.Y - FTopo];
        });
        int NaLinha = 0;
        int Antes = 0;
        for (int &Inicio : FInicio) {
            NaLinha += Inicio;
            Inicio = Antes;
            Antes += NaLinha;
        }
        FX.resize(Antes);
    }

    void Achar()
    {
        QVarLengthArray<int, 128> Proximo(FInicio.begin(), FInicio.end());
        ParaCadaLado([&](const TPoint &Acima, const TPoint &Abaixo) {
            constexpr std::int64_t Um = 1 << 16;
            const std::int64_t Passo = (std::int64_t{Abaixo.X} - Acima.X) * Um / (Abaixo.Y - Acima.Y);
            // Rows are crossed at the middle of their pixels, and counts a pixel whose middle is not left of
            // it.
            std::int64_t X = Acima.X * Um + Um / 2 + (Passo >> 1);
            for (int L = Acima.Y - FTopo; L < Abaixo.Y - FTopo; ++L, X += Passo)
                FX[Proximo[L]++] = static_cast<std::int32_t>(X >> 16);
        });
    }

    std::span<const TPoint> FPontos;
    std::int32_t FTopo = 0;
    QVarLengthArray<int, 128> FInicio;
    QVarLengthArray<std::int32_t, 256> FX;
};

} // namespace

TTelaDePixels::TTelaDePixels(std::uint32_t *Pixels, std::ptrdiff_t PorLinha, TPoint Origem,
                             const TRect &Limites) noexcept
    : FPixels(Pixels + Origem.Y * PorLinha + Origem.X)
    , FPorLinha(PorLinha)
    , FLimites(Limites)
{
}

std::optional<TTelaDePixels> TTelaDePixels::Sob(const QPainter &Pintor)
{
    const QImage *Imagem = ImagemSob(Pintor);
    if (Imagem == nullptr || !SoPoePixels(Pintor))
        return std::nullopt;
    const QTransform &T = Pintor.deviceTransform();
    const QPoint Origem(static_cast<int>(T.dx()), static_cast<int>(T.dy()));
    if (T.type() > QTransform::TxTranslate || Origem.x() != T.dx() || Origem.y() != T.dy())
        return std::nullopt;
    const std::optional<QRect> Livre = AreaLivre(Pintor, *Imagem, Origem);
    if (!Livre || Livre->isEmpty())
        return std::nullopt;
    // An image being painted on shares its pixels with no other: these are the painter's.
    auto *Pixels = reinterpret_cast<std::uint32_t *>(const_cast<uchar *>(Imagem->constBits()));
    return TTelaDePixels(Pixels, Imagem->bytesPerLine() / 4, Origem, Livre->translated(-Origem));
}

bool TTelaDePixels::Contem(std::span<const TPoint> Pontos) const noexcept
{
    // 64 bits: figures may stand anywhere.
    return std::all_of(Pontos.begin(), Pontos.end(), [this](const TPoint &P) {
        return std::int64_t{P.X} - Sobra >= FLimites.Left && std::int64_t{P.Y} - Sobra >= FLimites.Top &&
               std::int64_t{P.X} + Sobra < FLimites.Right && std::int64_t{P.Y} + Sobra < FLimites.Bottom;
    });
}

void TTelaDePixels::Preencher(std::span<const TPoint> Pontos, QRgb Cor) const
{
    if (Pontos.size() < 3)
        return;
    TCruzamentos Cruzamentos(Pontos);
    std::uint32_t *Pixels = FPixels + Cruzamentos.Topo() * FPorLinha;
    for (int L = 0; L < Cruzamentos.Linhas(); ++L, Pixels += FPorLinha) {
        const std::span<std::int32_t> X = Cruzamentos.Linha(L);
        if (X.size() == 2) { // as in most rows of most figures
            if (X[1] < X[0])
                std::swap(X[0], X[1]);
        } else {
            std::sort(X.begin(), X.end());
        }
        for (std::size_t I = 0; I + 1 < X.size(); I += 2)
            std::fill(Pixels + X[I], Pixels + X[I + 1], Cor);
    }
}

void TTelaDePixels::Tracar(std::span<const TPoint> Pontos, bool Fechado, QRgb Cor, TPenStyle Estilo) const
{
    TTracoDePixels(FPixels, FPorLinha, Cor, Estilo).Tracar(Pontos, Fechado);
}

} // namespace Sibrel
