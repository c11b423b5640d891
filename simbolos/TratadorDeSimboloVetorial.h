// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "simbolos/TratadorDeSimbolo.h"

namespace Sibrel
{

/// Field: figure file name, relative to the library's folder when it stands in or below it.
class SIBREL_EXPORT TTratadorDeSimboloVetorial
    : public ComClasse<TTratadorDeSimboloVetorial, TTratadorDeSimbolo>
{
public:
    static constexpr const char *NomeDaClasse = "TTratadorDeSimboloVetorial";
    using ComClasse::ComClasse;
    void Ler(TArquivoDeLeitura &Arquivo, ISimbolo &Simbolo) override;
    void Gravar(TArquivoDeGravacao &Arquivo, const ISimbolo &Simbolo) override;
};

} // namespace Sibrel
