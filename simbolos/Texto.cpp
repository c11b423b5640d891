// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/Texto.h"

#include "lumbrix/RotacionarFonte.h"
#include "plataforma/FontesInstaladas.h"
#include "simbolos/GeometriaDeElementos.h"
#include "simbolos/XMLDeElementos.h"

#include <QTransform>

#include <array>
#include <cmath>
#include <utility>

namespace Sibrel
{

namespace
{

// The value at `Indice`, nothing for alignments that a file invents.
template <class Enumeracao, std::size_t N>
unsigned Bandeira(const std::array<unsigned, N> &Bandeiras, Enumeracao Indice) noexcept
{
    const auto I = static_cast<std::size_t>(Indice);
    return I < N ? Bandeiras[I] : 0;
}

} // namespace

TTexto::TTexto()
    : FSeloDaFonte(FFonte.Selo())
{
}

TTexto::~TTexto() = default;

std::uint64_t TTexto::Selo() const
{
    // The font is changed in place and has a stamp of its own.
    const std::uint64_t Antes = std::exchange(FSeloDaFonte, FFonte.Selo());
    if (Antes != FSeloDaFonte)
        Mudou();
    return IElementoGrafico::Selo();
}

unsigned TTexto::Alinhamento() const noexcept
{
    static constexpr std::array<unsigned, 3> Verticais = {TA_TOP, TA_BOTTOM, TA_CENTER};
    static constexpr std::array<unsigned, 3> Horizontais = {TA_LEFT, TA_RIGHT, TA_CENTER};
    return TA_BASELINE | Bandeira(Verticais, FVertical) | Bandeira(Horizontais, FHorizontal);
}

// Fonts are in pixels at 96 an inch on every surface, so that a line measures the same for all of them.
const TLinhaDeTexto &TTexto::Linha() const
{
    const std::uint64_t Agora = Selo();
    const std::uint64_t Fontes = GeracaoDasFontes();
    if (FMedida.Selo != Agora || FMedida.Fontes != Fontes)
        FMedida = {Agora, Fontes, TLinhaDeTexto(FFonte, FTexto)};
    return FMedida.Linha;
}

TRect TTexto::Area() const
{
    const std::int64_t L = Linha().Largura();
    const std::int64_t A = L; // deliberately the width: figures were composed with square text boxes
    const auto Lados = [](int Alinhamento, std::int64_t Em, std::int64_t Tamanho) {
        switch (Alinhamento) {
        case 0:
            return std::pair(Saturado(Em), Saturado(Em + Tamanho));
        case 1:
            return std::pair(Saturado(Em - Tamanho), Saturado(Em));
        case 2:
            return std::pair(Saturado(Em - Tamanho / 2), Saturado(Em - Tamanho / 2 + Tamanho));
        default:
            return std::pair(0, 0);
        }
    };
    const auto [Topo, Base] = Lados(static_cast<int>(FVertical), FPosicao.Y, A);
    const auto [Esquerda, Direita] = Lados(static_cast<int>(FHorizontal), FPosicao.X, L);
    return {Esquerda, Topo, Direita, Base};
}

void TTexto::AplicarEstado(TCanvas &Canvas) const
{
    Canvas.Font = FFonte;
    Canvas.TextAlign = Alinhamento();
    Canvas.Brush.Style = TBrushStyle::bsClear;
}

void TTexto::Desenhar(TCanvas &Canvas, const TRect &)
{
    AplicarEstado(Canvas);
    const TLinhaDeTexto ComAFonteDeAntes = Linha();
    // Behind the assignment: the canvas gets the rotation when the text is next drawn.
    RotacionarFonte(FFonte, FOrientacao);
    Canvas.TextOut(FPosicao.X, FPosicao.Y, ComAFonteDeAntes);
}

// The line and, since glyphs may reach beyond it and beyond their advance, a part of its height more.
TRect TTexto::Alcance() const
{
    const int Largura = Linha().Largura();
    const int Altura = Linha().Altura();
    const double Folga = 0.75 * Altura + 2;
    double Inicio = 0;
    if ((Alinhamento() & TA_CENTER) == TA_CENTER)
        Inicio = -Largura / 2.0;
    else if ((Alinhamento() & TA_RIGHT) == TA_RIGHT)
        Inicio = -Largura;
    const QRectF Deitado(Inicio - Folga, -Altura - Folga, Largura + 2 * Folga, 2 * Altura + 2 * Folga);
    const QRectF R = QTransform().rotate(-FFonte.Orientation() / 10.0).mapRect(Deitado);
    return {Arredondar(FPosicao.X + std::floor(R.left())), Arredondar(FPosicao.Y + std::floor(R.top())),
            Arredondar(FPosicao.X + std::ceil(R.right())), Arredondar(FPosicao.Y + std::ceil(R.bottom()))};
}

bool TTexto::DescreverPintura(const TRect &, TPinturaDoElemento &Pintura) const
{
    if (FFonte.Orientation() != FOrientacao)
        return false; // the next drawing turns the font
    Pintura.CorteMuda = false;
    Pintura.Alcance = Alcance();
    if (FTexto.isEmpty())
        Pintura.Alcance = {FPosicao.X, FPosicao.Y, FPosicao.X, FPosicao.Y};
    else
        Pintura.Encaixe = TEncaixe::Fixo;
    Pintura.CorDoSistema = FFonte.Color().DoSistema();
    return true;
}

QString TTexto::ObterXML() const
{
    return TEscritaDeElemento(u"Texto")
        .Atributo(u"X", FPosicao.X)
        .Atributo(u"Y", FPosicao.Y)
        .Atributo(u"Cor", FFonte.Color())
        .Atributo(u"Fonte", FFonte.Name())
        .Atributo(u"Tamanho", FFonte.Size())
        .Atributo(u"Texto", FTexto)
        .Atributo(u"Orientacao", int{FOrientacao})
        .Atributo(u"AlinhamentoVertical", static_cast<int>(FVertical))
        .Atributo(u"AlinhamentoHorizontal", static_cast<int>(FHorizontal))
        .Fechar();
}

void TTexto::AtribuirXML(const TCursorXML &No)
{
    SeHouver(No, u"Cor", [this](QStringView T) { FFonte.AtribuirColor(CorDoTexto(T)); });
    SeHouver(No, u"X", [this](QStringView T) { AtribuirX(StrToInt(T)); });
    SeHouver(No, u"Y", [this](QStringView T) { AtribuirY(StrToInt(T)); });
    SeHouver(No, u"Fonte", [this](QStringView T) { FFonte.AtribuirName(T.toString()); });
    SeHouver(No, u"Tamanho", [this](QStringView T) { FFonte.AtribuirSize(StrToInt(T)); });
    SeHouver(No, u"Texto", [this](QStringView T) { AtribuirTexto(T.toString()); });
    SeHouver(No, u"Orientacao",
             [this](QStringView T) { AtribuirOrientacao(static_cast<std::uint16_t>(StrToInt(T))); });
    SeHouver(No, u"AlinhamentoVertical",
             [this](QStringView T) { AtribuirAlinhamentoVertical(EstiloDoTexto<TAlinhamentoVertical>(T)); });
    SeHouver(No, u"AlinhamentoHorizontal", [this](QStringView T) {
        AtribuirAlinhamentoHorizontal(EstiloDoTexto<TAlinhamentoHorizontal>(T));
    });
}

} // namespace Sibrel
