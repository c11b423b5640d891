// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/ObjectList.h"
#include "simbolos/ElementoGrafico.h"

#include <functional>
#include <memory>
#include <type_traits>

namespace Sibrel
{

/// The elements of one figure in drawing order; owned. Nothing here calls AoAlterar: code that changes a
/// figure announces it with DoChange.
class SIBREL_EXPORT TListaElementosGraficos : public TObjectList<IElementoGrafico>
{
public:
    TListaElementosGraficos();
    ~TListaElementosGraficos() override;
    TListaElementosGraficos(TListaElementosGraficos &&) = delete;
    TListaElementosGraficos &operator=(TListaElementosGraficos &&) = delete;

    /// Called by DoChange with this list.
    std::function<void(TListaElementosGraficos &)> AoAlterar;

    /// Appends and takes ownership; the index. Does not compile for a class that did not declare itself.
    template <class T>
    int Add(std::unique_ptr<T> Elemento)
    {
        if constexpr (!std::is_same_v<T, IElementoGrafico>)
            static_cast<void>(&RefClasse<IElementoGrafico>::De<T>);
        return TObjectList::Add(std::move(Elemento));
    }
    /// Moves all elements of `Lista` to the end of this one and leaves it empty.
    void Add(TListaElementosGraficos &Lista) { MoverDe(Lista); }

    IElementoGrafico *ObterElementoGrafico(int Indice) const { return Item(Indice); }
    /// The element that stood there is freed.
    void AtribuirElementoGrafico(int Indice, std::unique_ptr<IElementoGrafico> Elemento)
    {
        SetItem(Indice, std::move(Elemento));
    }

    /// The union of all elements' Area, empty slots skipped; (0, 0, 0, 0) without elements.
    TRect ObterArea() const;

    virtual void DoChange();
};

} // namespace Sibrel
