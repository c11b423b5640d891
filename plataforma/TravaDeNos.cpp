// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/TravaDeNos.h"

namespace Sibrel
{

namespace
{

thread_local int Paciencia = 0;

} // namespace

TTravaDeNos::TPaciente::TPaciente() noexcept
{
    ++Paciencia;
}

TTravaDeNos::TPaciente::~TPaciente()
{
    --Paciencia;
}

bool TTravaDeNos::TPaciente::Sou() noexcept
{
    return Paciencia > 0;
}

bool TTravaDeNos::Minha() const noexcept
{
    return FDono.load(std::memory_order_relaxed) == std::this_thread::get_id();
}

void TTravaDeNos::lock()
{
    if (Minha()) {
        ++FProfundidade;
        return;
    }
    if (Paciencia > 0) {
        while (FEsperando.load(std::memory_order_relaxed) > 0)
            std::this_thread::yield();
        FMutex.lock();
    } else if (!FMutex.try_lock()) {
        FEsperando.fetch_add(1, std::memory_order_relaxed);
        FMutex.lock();
        FEsperando.fetch_sub(1, std::memory_order_relaxed);
    }
    FDono.store(std::this_thread::get_id(), std::memory_order_relaxed);
    FProfundidade = 1;
}

void TTravaDeNos::unlock() noexcept
{
    if (--FProfundidade > 0)
        return;
    FDono.store(std::thread::id(), std::memory_order_relaxed);
    FMutex.unlock();
}

} // namespace Sibrel
