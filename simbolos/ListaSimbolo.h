// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/ObjectList.h"
#include "simbolos/RegistroDeTratadores.h"
#include "simbolos/Simbolo.h"

#include <functional>

namespace Sibrel
{

/// The owning list of symbols; its class-level operations are the registry of symbol kinds.
///
/// None of the list operations tells anyone: code that changes a table's symbols says so with `DoChange`.
class SIBREL_EXPORT TListaSimbolo : public TObjectList<ISimbolo>
{
public:
    TListaSimbolo();
    ~TListaSimbolo() override;
    TListaSimbolo(TListaSimbolo &&) = delete;
    TListaSimbolo &operator=(TListaSimbolo &&) = delete;

    /// Called by DoChange with this list.
    std::function<void(TListaSimbolo &)> AoAlterar;

    /// Appends and takes ownership; the index. Does not compile for a class that did not declare itself.
    template <class T>
    int Add(std::unique_ptr<T> Simbolo)
    {
        if constexpr (!std::is_same_v<T, ISimbolo>)
            static_cast<void>(&RefClasse<ISimbolo>::De<T>);
        return TObjectList::Add(std::move(Simbolo));
    }
    /// Appends a deep copy of every symbol of `Lista`, which may be this one: the copies then follow the
    /// symbols that were there.
    void Add(TListaSimbolo &Lista);

    ISimbolo *ObterSimbolo(int Indice) const { return Item(Indice); }
    /// The symbol that stood there is freed.
    void AtribuirSimbolo(int Indice, std::unique_ptr<ISimbolo> Simbolo)
    {
        SetItem(Indice, std::move(Simbolo));
    }

    virtual void DoChange();

    /// Registers the kind `Tipo` with its handler and symbol classes, behind those that are there.
    /// EInvalidOperation when the name is taken, whatever its letter case; nothing has changed then.
    static void RegistrarTratadorDeSimbolo(const QString &Tipo, const TRefTratador &Tratador,
                                           const TRefSimbolo &Simbolo);
    /// By kind name, whatever its letter case. Not found: false, `Tratador` none, `Simbolo` as it was.
    static bool ObterTratadorDeSimbolo(const QString &Tipo, TRefTratador &Tratador, TRefSimbolo &Simbolo);
    /// By exactly that symbol class, the first registered. Not found: false, both outputs as they were.
    static bool ObterTratadorDeSimbolo(const TRefSimbolo &Simbolo, QString &Tipo, TRefTratador &Tratador);
    /// An unknown name is ignored.
    static void RemoverRegistroTratadorDeSimbolo(const QString &Tipo);
};

} // namespace Sibrel
