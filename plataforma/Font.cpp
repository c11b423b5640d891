// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/Font.h"

#include "plataforma/CodePage.h"

#include <QFontMetricsF>
#include <QRawFont>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdlib>

namespace Sibrel
{

namespace
{

constexpr int PontosPorPolegada = 72;
constexpr int PixelsPorPolegada = 96;
// Beyond this the font engine's own numbers overflow.
constexpr int MaiorEm = 32767;
constexpr long long MaiorMedida = 1 << 20;

// a * b / c, halves away from zero; what no font can have goes to the limit.
int Proporcao(int A, int B, int C) noexcept
{
    const long long Produto = std::llabs(static_cast<long long>(A)) * B;
    const auto Modulo = static_cast<int>(std::min((2 * Produto + C) / (2LL * C), MaiorMedida));
    return A < 0 ? -Modulo : Modulo;
}

const QString &NomePadrao()
{
    static const QString Nome = QStringLiteral("MS Sans Serif");
    return Nome;
}

// The height of the em at which ascent plus descent come closest to `Celula` pixels without passing it.
int EmDaCelula(QFont Fonte, int Celula)
{
    constexpr int Referencia = 1000;
    Fonte.setPixelSize(Referencia);
    const double CelulaDaReferencia = QFontMetricsF(Fonte).height();
    if (!(CelulaDaReferencia > 0))
        return Celula;
    const double Em = std::floor(static_cast<double>(Celula) * Referencia / CelulaDaReferencia);
    return static_cast<int>(std::min(Em, static_cast<double>(MaiorEm)));
}

} // namespace

std::uint64_t NovoSelo() noexcept
{
    static std::atomic<std::uint64_t> Ultimo{0};
    return ++Ultimo;
}

TFont::TFont()
    : FName(NomePadrao())
    , FHeight(HeightDeSize(8))
    , FColor(clWindowText)
{
    static const std::uint64_t SeloDoPadrao = NovoSelo();
    FSelo = SeloDoPadrao;
}

template <class Campo, class Valor>
void TFont::Mudar(Campo &Onde, const Valor &Novo)
{
    if (Onde == Novo)
        return;
    Onde = Novo;
    FSelo = NovoSelo();
}

void TFont::AtribuirName(const QString &Nome)
{
    Mudar(FName, Nome);
}
void TFont::AtribuirCharset(std::uint8_t Charset)
{
    Mudar(FCharset, Charset);
}
void TFont::AtribuirHeight(int Pixels)
{
    Mudar(FHeight, Pixels);
}
void TFont::AtribuirSize(int Pontos)
{
    AtribuirHeight(HeightDeSize(Pontos));
}
void TFont::AtribuirColor(TColor Cor)
{
    Mudar(FColor, Cor);
}
void TFont::AtribuirOrientation(int Decimos)
{
    Mudar(FOrientation, Decimos);
}

void TFont::AtribuirStyle(TFontStyle Estilo, bool Ligado)
{
    const auto Bit = static_cast<unsigned>(Estilo);
    Mudar(FStyle, static_cast<std::uint8_t>(Ligado ? (FStyle | Bit) : (FStyle & ~Bit)));
}

int TFont::SizeDeHeight(int Pixels) noexcept
{
    return -Proporcao(Pixels, PontosPorPolegada, PixelsPorPolegada);
}
int TFont::HeightDeSize(int Pontos) noexcept
{
    return -Proporcao(Pontos, PixelsPorPolegada, PontosPorPolegada);
}

QFont TFont::ParaQFont() const
{
    // Names of old libraries may carry the blanks that stood around them in the record.
    QFont Fonte(FName.trimmed());
    Fonte.setHintingPreference(QFont::PreferNoHinting);
    int Estrategia = QFont::PreferAntialias | QFont::NoSubpixelAntialias;
    if (FCharset == CharsetSimbolo)
        Estrategia |= QFont::NoFontMerging; // a code that the font lacks must not become another font's glyph
    Fonte.setStyleStrategy(static_cast<QFont::StyleStrategy>(Estrategia));
    Fonte.setBold(Tem(TFontStyle::fsBold));
    Fonte.setItalic(Tem(TFontStyle::fsItalic));
    Fonte.setUnderline(Tem(TFontStyle::fsUnderline));
    Fonte.setStrikeOut(Tem(TFontStyle::fsStrikeOut));
    const int Em = FHeight < 0 ? -FHeight : EmDaCelula(Fonte, FHeight > 0 ? FHeight : -HeightDeSize(8));
    Fonte.setPixelSize(std::clamp(Em, 1, MaiorEm));
    return Fonte;
}

QString TFont::TextoDoCodigo(std::uint8_t Codigo) const
{
    if (FCharset != CharsetSimbolo)
        return QString(QChar(CaracterDoCharset(FCharset, Codigo)));
    const char16_t DeSimbolo = CaracterDeSimbolo(Codigo);
    const bool Tem = QRawFont::fromFont(ParaQFont()).supportsCharacter(QChar(DeSimbolo));
    return QString(QChar(Tem ? DeSimbolo : char16_t{Codigo}));
}

QString TFont::TextoParaDesenhar(const QString &Texto) const
{
    if (FCharset != CharsetSimbolo)
        return Texto;
    QString Resultado;
    for (const QChar C : Texto)
        Resultado += C.unicode() < 0x100 ? TextoDoCodigo(static_cast<std::uint8_t>(C.unicode())) : QString(C);
    return Resultado;
}

bool operator==(const TFont &A, const TFont &B) noexcept
{
    return A.FSelo == B.FSelo ||
           (A.FName == B.FName && A.FHeight == B.FHeight && A.FColor == B.FColor &&
            A.FCharset == B.FCharset && A.FStyle == B.FStyle && A.FOrientation == B.FOrientation);
}

} // namespace Sibrel
