// SPDX-License-Identifier: LGPL-2.1-or-later
// carregador LIBRARY TIMES: loads and unloads the library that often, in one process. Exit code 0 when each
// round went well, the modules had started inside of it, stopped in the reverse of their order at its unload,
// and the process did not go on growing.
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace
{

long PaginasResidentes()
{
    std::ifstream Estado("/proc/self/statm");
    long Total = 0;
    long Residentes = 0;
    Estado >> Total >> Residentes;
    return Residentes;
}

constexpr const char *NaOrdemDePartida[] = {"TabelaDeSimbolos",    "SimboloImagem", "TabelaDeSimbolosBD",
                                            "SimboloVetorial",     "TagsXML",       "TreeNodeXML",
                                            "PrepararAtualizacao", "TreeViewXML",   "TreeViewXMLBD"};

std::vector<std::string> Paradas;

bool ParadasNaOrdemInversa()
{
    std::vector<std::string> Esperadas(std::rbegin(NaOrdemDePartida), std::rend(NaOrdemDePartida));
    for (std::size_t I = 0; Paradas != Esperadas && I < Paradas.size(); ++I)
        std::fprintf(stderr, "%zu: %s\n", I, Paradas[I].c_str());
    return Paradas == Esperadas;
}

bool Rodada(const char *Biblioteca)
{
    void *Carregada = dlopen(Biblioteca, RTLD_NOW | RTLD_LOCAL);
    if (Carregada == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        return false;
    }
    using TPergunta = int (*)();
    const auto QuantosIniciados = reinterpret_cast<TPergunta>(dlsym(Carregada, "SibrelModulosIniciados"));
    using TAvisar = void (*)(void (*)(const char *));
    const auto AvisarParadas = reinterpret_cast<TAvisar>(dlsym(Carregada, "SibrelAvisarParadas"));
    const bool Certo =
        QuantosIniciados != nullptr && std::size_t(QuantosIniciados()) == std::size(NaOrdemDePartida);
    if (!Certo || AvisarParadas == nullptr)
        return false;
    Paradas.clear();
    AvisarParadas([](const char *Modulo) { Paradas.emplace_back(Modulo); });
    if (dlclose(Carregada) != 0 || !ParadasNaOrdemInversa())
        return false;
    return dlopen(Biblioteca, RTLD_NOW | RTLD_NOLOAD) == nullptr; // it is really gone, its stop has run
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3)
        return 2;
    const int Vezes = std::atoi(argv[2]);
    long Depois = 0;
    for (int I = 0; I < Vezes; ++I) {
        if (!Rodada(argv[1]))
            return 1;
        if (I == Vezes / 2)
            Depois = PaginasResidentes();
    }
    const long Cresceu = PaginasResidentes() - Depois;
    std::printf("%d rodadas, %ld páginas a mais na segunda metade\n", Vezes, Cresceu);
    return Cresceu > 64 ? 1 : 0;
}
