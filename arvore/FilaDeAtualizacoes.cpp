// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/FilaDeAtualizacoes.h"

#include "arvore/PrepararAtualizacao.h"

#include <algorithm>
#include <exception>

namespace Sibrel
{

TFilaDeAtualizacoes &FilaDeAtualizacoes() noexcept
{
    static TFilaDeAtualizacoes Fila;
    return Fila;
}

void TFilaDeAtualizacoes::Registrar(TPreparaAtualizacao &A)
{
    const std::lock_guard Guarda(FMutex);
    FTodas.push_back(&A);
}

void TFilaDeAtualizacoes::Esquecer(TPreparaAtualizacao &A) noexcept
{
    const std::lock_guard Guarda(FMutex);
    std::erase(FTodas, &A);
}

std::vector<TPreparaAtualizacao *> TFilaDeAtualizacoes::Todas() const
{
    const std::lock_guard Guarda(FMutex);
    return FTodas;
}

int TFilaDeAtualizacoes::Quantas() const noexcept
{
    const std::lock_guard Guarda(FMutex);
    return static_cast<int>(FTodas.size());
}

void TFilaDeAtualizacoes::Entrar(TPreparaAtualizacao &A)
{
    const std::lock_guard Guarda(FMutex);
    FEsperando.push_back(&A);
    ComecarProxima();
}

bool TFilaDeAtualizacoes::Desistir(TPreparaAtualizacao &A)
{
    const std::lock_guard Guarda(FMutex);
    return std::erase(FEsperando, &A) > 0;
}

void TFilaDeAtualizacoes::Passar(TPreparaAtualizacao &A)
{
    const std::lock_guard Guarda(FMutex);
    if (FAtual != &A)
        return;
    FAtual = nullptr;
    ComecarProxima();
}

// The thread of the next one is made by whoever frees the place, so that no thread idles in the queue.
void TFilaDeAtualizacoes::ComecarProxima()
{
    while (FAtual == nullptr && !FEsperando.empty()) {
        TPreparaAtualizacao *A = FEsperando.front();
        FEsperando.pop_front();
        try {
            A->FThread = std::thread([A] { A->Execute(); });
            FAtual = A;
        } catch (const std::exception &) { // no thread to be had, or no memory for it
            A->Chamar("FicarSemThread");
        }
    }
}

} // namespace Sibrel
