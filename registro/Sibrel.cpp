// SPDX-License-Identifier: LGPL-2.1-or-later
#include "registro/Sibrel.h"

#include "arvore/PrepararAtualizacao.h"
#include "arvore/TagsXML.h"
#include "arvore/TreeNodeXML.h"
#include "arvore/TreeViewXML.h"
#include "arvore/TreeViewXMLBD.h"
#include "simbolos/SimboloImagem.h"
#include "simbolos/SimboloVetorial.h"
#include "simbolos/TabelaDeSimbolos.h"
#include "simbolos/TabelaDeSimbolosBD.h"

#include <algorithm>
#include <array>

namespace Sibrel
{

std::span<TModulo *const> ModulosDoPacote() noexcept
{
    static const std::array Modulos = {
        &ModuloTabelaDeSimbolos(),    &ModuloSimboloImagem(), &ModuloTabelaDeSimbolosBD(),
        &ModuloSimboloVetorial(),     &ModuloTagsXML(),       &ModuloTreeNodeXML(),
        &ModuloPrepararAtualizacao(), &ModuloTreeViewXML(),   &ModuloTreeViewXMLBD()};
    return Modulos;
}

namespace
{

void (*AvisoDeParada)(const char *Modulo) = nullptr;

// Lives exactly as long as the library is loaded.
struct TPartida {
    TPartida()
    {
        for (TModulo *Modulo : ModulosDoPacote())
            Modulo->Iniciar();
    }
    ~TPartida()
    {
        const auto Modulos = ModulosDoPacote();
        for (auto M = Modulos.rbegin(); M != Modulos.rend(); ++M) {
            (*M)->Parar();
            if (AvisoDeParada != nullptr && !(*M)->Iniciado())
                AvisoDeParada((*M)->Nome());
        }
    }
    TPartida(const TPartida &) = delete;
    TPartida &operator=(const TPartida &) = delete;
};

const TPartida Partida;

} // namespace

} // namespace Sibrel

int SibrelModulosIniciados()
{
    const auto Modulos = Sibrel::ModulosDoPacote();
    return static_cast<int>(std::count_if(Modulos.begin(), Modulos.end(),
                                          [](const Sibrel::TModulo *M) { return M->Iniciado(); }));
}

void SibrelAvisarParadas(void (*Aviso)(const char *Modulo))
{
    Sibrel::AvisoDeParada = Aviso;
}
