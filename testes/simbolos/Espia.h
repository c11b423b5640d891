// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "simbolos/ElementoGrafico.h"

#include <vector>

namespace Sibrel::Testes
{

/// An element of a host's own: says the area that it is told and notes the rectangles that it is drawn into.
class TEspia : public ComClasse<TEspia, IElementoGrafico>
{
public:
    static constexpr const char *NomeDaClasse = "TEspia";

    TRect Caixa;
    std::vector<TRect> Desenhos;
    int *Destruidos = nullptr;

    TEspia() = default;
    explicit TEspia(const TRect &ACaixa)
        : Caixa(ACaixa)
    {
    }
    ~TEspia() override
    {
        if (Destruidos != nullptr)
            ++*Destruidos;
    }

    TRect Area() const override { return Caixa; }
    QString ObterXML() const override { return QStringLiteral("<Espia/>"); }
    void Desenhar(TCanvas &, const TRect &Rect) override { Desenhos.push_back(Rect); }
    void AtribuirXML(const TCursorXML &) override {}
};

} // namespace Sibrel::Testes
