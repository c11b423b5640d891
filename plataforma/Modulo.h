// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

namespace Sibrel
{

/// Start and stop of one module, guarded by a counter: however many times it is pulled in, its start runs
/// once, and its stop runs when the last user lets go. A stop without a start does nothing. From one thread
/// only: modules start and stop with the library.
class TModulo
{
public:
    using TRotina = void (*)();

    constexpr TModulo(const char *Nome, TRotina Inicio, TRotina Fim) noexcept
        : FNome(Nome)
        , FInicio(Inicio)
        , FFim(Fim)
    {
    }

    const char *Nome() const noexcept { return FNome; }
    bool Iniciado() const noexcept { return FUsos > 0; }

    void Iniciar()
    {
        if (FUsos == 0 && FInicio != nullptr)
            FInicio();
        ++FUsos; // behind the routine: a start that raises has not started
    }

    void Parar()
    {
        if (FUsos == 0 || --FUsos > 0)
            return;
        if (FFim != nullptr)
            FFim();
    }

private:
    const char *FNome;
    TRotina FInicio;
    TRotina FFim;
    int FUsos = 0;
};

} // namespace Sibrel
