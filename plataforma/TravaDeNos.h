// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"

#include <atomic>
#include <mutex>
#include <thread>

namespace Sibrel
{

/// The lock of a tree's data: recursive, and fair to the user interface.
///
/// A thread that works through many nodes calls itself patient (TPaciente): it then never takes the lock
/// while somebody else waits for it, which a plain mutex would let it do for seconds on end.
class SIBREL_EXPORT TTravaDeNos
{
public:
    void lock();
    void unlock() noexcept;
    /// Does the calling thread hold it?
    bool Minha() const noexcept;

    /// Makes the calling thread patient for as long as the object lives.
    class SIBREL_EXPORT TPaciente
    {
    public:
        TPaciente() noexcept;
        ~TPaciente();
        /// Is the calling thread patient?
        static bool Sou() noexcept;
        TPaciente(const TPaciente &) = delete;
        TPaciente &operator=(const TPaciente &) = delete;
    };

private:
    std::mutex FMutex;
    std::atomic<std::thread::id> FDono;
    std::atomic<int> FEsperando = 0;
    int FProfundidade = 0; // of the owner
};

} // namespace Sibrel
