// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"
#include "plataforma/Font.h"
#include "simbolos/ListaSimbolo.h"
#include "simbolos/Simbolo.h"

#include <memory>

namespace Sibrel
{

/// Several symbols laid on top of each other in one rectangle, the first at the bottom.
class SIBREL_EXPORT TSimboloComposto : public ComClasse<TSimboloComposto, ISimbolo>
{
public:
    static constexpr const char *NomeDaClasse = "TSimboloComposto";

    TSimboloComposto();
    ~TSimboloComposto() override;

    /// The parts; owned.
    TListaSimbolo Lista;

    void Desenhar(TCanvas &Canvas, const TRect &Rect) override;
    /// A deep copy of the source's parts, in place of its own.
    void Assign(ISimbolo &Origem) override;
    bool PedirPintura(TCanvas &Canvas, const TRect &Rect, double Densidade, TPinturaPedida &Pedida) override;

private:
    void DesenharPartes(TCanvas &Canvas, const TRect &Rect) const;

    std::uint64_t FSelo =
        NovoSelo(); // finds this composite's picture; what it depends on are the parts' keys
};

} // namespace Sibrel
