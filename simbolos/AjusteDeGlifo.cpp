// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/AjusteDeGlifo.h"

#include "plataforma/Bitmap.h"
#include "plataforma/Canvas.h"
#include "plataforma/Exception.h"
#include "plataforma/FontesInstaladas.h"

#include <QCache>

#include <algorithm>

namespace Sibrel
{

namespace
{

constinit TBitmap *Superficie = nullptr; // owned; from module start to module stop

struct TChaveDeAjuste {
    QString Fonte;
    int Largura;
    int Altura;
    std::uint8_t Charset;
    std::uint8_t Estilo;
    std::uint8_t Codigo;

    friend bool operator==(const TChaveDeAjuste &, const TChaveDeAjuste &) noexcept = default;
    friend size_t qHash(const TChaveDeAjuste &C, size_t Semente) noexcept
    {
        return qHashMulti(Semente, C.Fonte, C.Largura, C.Altura, C.Charset, C.Estilo, C.Codigo);
    }
};

std::uint8_t EstiloDe(const TFont &Fonte) noexcept
{
    unsigned Estilo = 0;
    for (const TFontStyle E :
         {TFontStyle::fsBold, TFontStyle::fsItalic, TFontStyle::fsUnderline, TFontStyle::fsStrikeOut})
        Estilo |= Fonte.Tem(E) ? static_cast<unsigned>(E) : 0U;
    return static_cast<std::uint8_t>(Estilo);
}

// Fits one measure (the glyph's width or its line's height) to a limit, on the canvas whose font it changes.
//
// The rule is: while the measure is below the limit the size grows by one point, then while it is above it
// shrinks by one. A measure grows evenly with the size, so the place where the steps would end is estimated
// from the last measure and then closed in on: a handful of measures instead of one a step.
class TAjustador
{
public:
    using TMedir = int (TCanvas::*)(const QString &) const;

    TAjustador(TCanvas &Canvas, TMedir Medir, const QString &Texto, int Limite)
        : FCanvas(Canvas)
        , FMedir(Medir)
        , FTexto(Texto)
        , FLimite(Limite)
    {
    }

    /// The size reached, which the canvas's font then has; 0, and the font as it was, when there is nothing
    /// to fit.
    int Ajustar()
    {
        if ((FCanvas.*FMedir)(FTexto) <= 0)
            return 0;
        const int Inicio = std::abs(FCanvas.Font.Size());
        const int Medida = MedidaEm(Inicio);
        int Tamanho = Inicio;
        if (Medida < FLimite)
            Tamanho = Crescer(Inicio, Medida);
        if (MedidaEm(Tamanho) > FLimite)
            Tamanho = Encolher(Tamanho);
        FCanvas.Font.AtribuirSize(Tamanho);
        return Tamanho;
    }

private:
    int MedidaEm(int Tamanho)
    {
        FCanvas.Font.AtribuirSize(Tamanho);
        return (FCanvas.*FMedir)(FTexto);
    }

    static int Estimar(int Tamanho, int Medida, int Limite)
    {
        return static_cast<int>(static_cast<std::int64_t>(Tamanho) * Limite / std::max(Medida, 1));
    }

    // The smallest size above `Abaixo` that reaches the limit; `Medida` at `Abaixo` is below it.
    int Crescer(int Abaixo, int Medida)
    {
        int Acima = MaiorTamanho;
        bool AcimaMedida = false;
        while (Acima - Abaixo > 1) {
            int Palpite = std::clamp(Estimar(Abaixo, Medida, FLimite), Abaixo + 1, Acima - 1);
            const int M = MedidaEm(Palpite);
            if (M < FLimite) {
                Abaixo = Palpite;
                Medida = M;
            } else {
                Acima = Palpite;
                AcimaMedida = true;
                if (const int Antes = Palpite - 1; Antes > Abaixo) {
                    // The estimate is most often one step from the end: look there before guessing again.
                    if (const int N = MedidaEm(Antes); N < FLimite)
                        return Palpite;
                    Acima = Antes;
                }
            }
        }
        return AcimaMedida || Abaixo < MaiorTamanho ? Acima : MaiorTamanho;
    }

    // The largest size below `Acima` that does not pass the limit, at least 1; at `Acima` it does.
    int Encolher(int Acima)
    {
        int Abaixo = 0; // as if size 0 always fitted
        int Medida = MedidaEm(Acima);
        int Referencia = Acima;
        while (Acima - Abaixo > 1) {
            const int Palpite = std::clamp(Estimar(Referencia, Medida, FLimite), Abaixo + 1, Acima - 1);
            const int M = MedidaEm(Palpite);
            Referencia = Palpite;
            Medida = M;
            if (M > FLimite) {
                Acima = Palpite;
            } else {
                Abaixo = Palpite;
                if (const int Depois = Palpite + 1; Depois < Acima) {
                    if (MedidaEm(Depois) > FLimite)
                        return Palpite;
                    Abaixo = Depois;
                }
            }
        }
        return std::max(Abaixo, 1);
    }

    TCanvas &FCanvas;
    TMedir FMedir;
    const QString &FTexto;
    int FLimite;
};

int Ajustar(const TFont &Fonte, std::uint8_t Codigo, int Largura, int Altura)
{
    TCanvas &Canvas = BitmapDeMedida().Canvas();
    const QString Glifo = Fonte.TextoDoCodigo(Codigo);
    Canvas.Font = Fonte;
    Canvas.Font.AtribuirHeight(Altura);
    const int PelaLargura = TAjustador(Canvas, &TCanvas::TextWidth, Glifo, Largura).Ajustar();
    // From the size that the width left, not from the beginning again.
    const int PelaAltura = TAjustador(Canvas, &TCanvas::TextHeight, Glifo, Altura).Ajustar();
    return PelaLargura > 0 && PelaLargura < PelaAltura ? PelaLargura : Canvas.Font.Size();
}

} // namespace

void CriarBitmapDeMedida()
{
    if (Superficie == nullptr)
        Superficie = std::make_unique<TBitmap>().release();
}

void LiberarBitmapDeMedida() noexcept
{
    std::unique_ptr<TBitmap>(std::exchange(Superficie, nullptr)).reset();
}

TBitmap &BitmapDeMedida()
{
    if (Superficie == nullptr)
        throw EInvalidOperation(QStringLiteral("O módulo TabelaDeSimbolos não foi iniciado!"));
    return *Superficie;
}

int TamanhoQueCabe(const TFont &Fonte, std::uint8_t Codigo, int Largura, int Altura)
{
    static QCache<TChaveDeAjuste, int> Ajustes(AjustesLembrados);
    static std::uint64_t Geracao = 0;
    if (const std::uint64_t Atual = GeracaoDasFontes(); Atual != Geracao) {
        Ajustes.clear();
        Geracao = Atual;
    }
    const TChaveDeAjuste Chave{Fonte.Name(), Largura, Altura, Fonte.Charset(), EstiloDe(Fonte), Codigo};
    if (const int *Lembrado = Ajustes.object(Chave))
        return *Lembrado;
    const int Tamanho = Ajustar(Fonte, Codigo, Largura, Altura);
    Ajustes.insert(Chave, std::make_unique<int>(Tamanho).release());
    return Tamanho;
}

} // namespace Sibrel
