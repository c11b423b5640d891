// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <deque>
#include <mutex>
#include <vector>

namespace Sibrel
{

class TPreparaAtualizacao;

/// The updates of the process: all that exist, and those that wait for their turn. One runs at a time; it
/// passes the turn on when it is through. Any thread.
class TFilaDeAtualizacoes
{
public:
    void Registrar(TPreparaAtualizacao &A);
    void Esquecer(TPreparaAtualizacao &A) noexcept;
    std::vector<TPreparaAtualizacao *> Todas() const;
    int Quantas() const noexcept;

    /// Waits its turn: its thread starts then.
    void Entrar(TPreparaAtualizacao &A);
    /// Out of those that wait; false when it did not wait (any more).
    bool Desistir(TPreparaAtualizacao &A);
    /// The running one is through.
    void Passar(TPreparaAtualizacao &A);
    /// Ends all updates and waits for them. GUI thread.
    static void Encerrar();

private:
    void ComecarProxima();

    mutable std::mutex FMutex;
    std::vector<TPreparaAtualizacao *> FTodas;
    std::deque<TPreparaAtualizacao *> FEsperando;
    TPreparaAtualizacao *FAtual = nullptr;
};

/// The queue of the process.
TFilaDeAtualizacoes &FilaDeAtualizacoes() noexcept;

} // namespace Sibrel
