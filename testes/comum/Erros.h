// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exception.h"

#include <stdexcept>
#include <typeinfo>

namespace Sibrel::Testes
{

/// The error, of exactly the class `E`, that `Operacao` raises. No error, or one of another class, fails the
/// test function by an exception of its own.
template <class E, class F>
E ErroDe(F &&Operacao)
{
    try {
        Operacao();
    } catch (const Exception &Erro) {
        if (typeid(Erro) == typeid(E))
            return dynamic_cast<const E &>(Erro);
        throw std::runtime_error(std::string("erro de outra classe: ") + typeid(Erro).name() + ": " +
                                 Erro.what());
    }
    throw std::runtime_error("devia dar erro");
}

} // namespace Sibrel::Testes
