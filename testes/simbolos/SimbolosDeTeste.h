// SPDX-License-Identifier: LGPL-2.1-or-later
// Symbols made in one line, and a kind of the test's own.
#pragma once

#include "comum/Dados.h"
#include "plataforma/Canvas.h"
#include "simbolos/SimboloComposto.h"
#include "simbolos/SimboloFonte.h"
#include "simbolos/SimboloGrafico.h"

#include <memory>

namespace Sibrel::Testes
{

inline std::unique_ptr<TSimboloFonte> Glifo(std::uint8_t Codigo, double Proporcao = 1.0,
                                            const QString &Familia = FamiliaDeSimbolos,
                                            std::uint8_t Charset = TFont::CharsetSimbolo)
{
    auto Simbolo = std::make_unique<TSimboloFonte>();
    Simbolo->Caracter = Codigo;
    Simbolo->Proporcao = Proporcao;
    Simbolo->Fonte.AtribuirName(Familia);
    Simbolo->Fonte.AtribuirCharset(Charset);
    return Simbolo;
}

inline std::unique_ptr<TSimboloGrafico> Figura(const QString &Arquivo)
{
    auto Simbolo = std::make_unique<TSimboloGrafico>();
    Simbolo->LerArquivo(Arquivo);
    return Simbolo;
}

/// A composite of the parts in order.
template <class... Partes>
std::unique_ptr<TSimboloComposto> Composto(std::unique_ptr<Partes>... Parte)
{
    auto Simbolo = std::make_unique<TSimboloComposto>();
    (Simbolo->Lista.Add(std::move(Parte)), ...);
    return Simbolo;
}

/// A kind that a host could write: fills the left half of its rectangle with the pen's colour, does not know
/// how to be remembered, leaves the canvas changed, and counts how many of its objects live and how often
/// they drew.
class TSimboloDoHospedeiro : public ComClasse<TSimboloDoHospedeiro, ISimbolo>
{
public:
    static constexpr const char *NomeDaClasse = "TSimboloDoHospedeiro";
    static inline int Vivos = 0;
    static inline int Desenhados = 0;

    TSimboloDoHospedeiro() { ++Vivos; }
    ~TSimboloDoHospedeiro() override { --Vivos; }

    int Valor = 0;

    void Desenhar(TCanvas &Canvas, const TRect &Rect) override
    {
        ++Desenhados;
        Canvas.Brush = {Canvas.Pen.Color, TBrushStyle::bsSolid};
        Canvas.FillRect({Rect.Left, Rect.Top, (Rect.Left + Rect.Right) / 2, Rect.Bottom});
        Canvas.Pen.Color = clRed;
    }
    void Assign(ISimbolo &Origem) override { Valor = dynamic_cast<TSimboloDoHospedeiro &>(Origem).Valor; }
};

} // namespace Sibrel::Testes
