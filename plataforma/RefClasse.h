// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <memory>
#include <type_traits>
#include <typeinfo>

namespace Sibrel
{

/// Reference to a class derived from `Base`: its identity, its name and its virtual constructor.
///
/// A value as cheap to copy as a pointer. Equal references name exactly the same class; a derived class is
/// another one. The arguments `Args` are those of the virtual constructor. The default value refers to no
/// class.
template <class Base, class... Args>
class RefClasse
{
public:
    constexpr RefClasse() noexcept = default;
    constexpr RefClasse(std::nullptr_t) noexcept {}

    /// The reference to `T`. Does not compile for a class that did not say its own class (see ComClasse).
    template <class T>
    static RefClasse De() noexcept
    {
        static_assert(std::is_base_of_v<Base, T>, "T must derive from the base of the reference");
        static_assert(std::is_same_v<typename T::ClasseDeclarada, T>,
                      "this class did not declare itself: derive it through ComClasse<T, Parent>");
        static constexpr Registro Dados{&typeid(T), T::NomeDaClasse, &Fabricar<T>};
        return RefClasse(&Dados);
    }

    /// A new object of exactly this class. The reference must not be empty.
    std::unique_ptr<Base> Criar(Args... Argumentos) const { return FDados->Fabrica(Argumentos...); }

    constexpr explicit operator bool() const noexcept { return FDados != nullptr; }
    /// The class's name, empty text for no class.
    constexpr const char *Nome() const noexcept { return FDados != nullptr ? FDados->Nome : ""; }

    friend bool operator==(const RefClasse &A, const RefClasse &B) noexcept
    {
        // The same class seen from a host and from the library may have two records: its type is what counts.
        return A.FDados == B.FDados ||
               (A.FDados != nullptr && B.FDados != nullptr && *A.FDados->Tipo == *B.FDados->Tipo);
    }

private:
    struct Registro {
        const std::type_info *Tipo;
        const char *Nome;
        std::unique_ptr<Base> (*Fabrica)(Args...);
    };

    explicit constexpr RefClasse(const Registro *Dados) noexcept
        : FDados(Dados)
    {
    }

    template <class T>
    static std::unique_ptr<Base> Fabricar(Args... Argumentos)
    {
        if constexpr (std::is_abstract_v<T>)
            return nullptr;
        else
            return std::make_unique<T>(Argumentos...);
    }

    const Registro *FDados = nullptr;
};

/// Makes `Derivada`, a class below `Mae`, answer its own class reference.
///
///     class TMinha : public ComClasse<TMinha, TSimboloFonte> {
///     public:
///         static constexpr const char *NomeDaClasse = "TMinha";
///     };
///
/// The root of the family declares `using RefDeClasse = RefClasse<Root, ...>` and a pure virtual
/// `RefDeClasse ObterClasse() const`. A class below that forgets ComClasse keeps its parent's
/// `ClasseDeclarada`, and then taking its reference does not compile: a copy can never be made of the wrong
/// class in silence.
template <class Derivada, class Mae>
class ComClasse : public Mae
{
public:
    using Mae::Mae;
    using ClasseDeclarada = Derivada;

    typename Mae::RefDeClasse ObterClasse() const override
    {
        return Mae::RefDeClasse::template De<Derivada>();
    }
};

} // namespace Sibrel
