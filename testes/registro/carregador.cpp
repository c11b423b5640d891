// SPDX-License-Identifier: LGPL-2.1-or-later
// carregador LIBRARY TIMES: loads and unloads the library that often, in one process. Exit code 0 when each
// round went well, the modules had started inside of it and the process did not go on growing.
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

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

bool Rodada(const char *Biblioteca)
{
    void *Carregada = dlopen(Biblioteca, RTLD_NOW | RTLD_LOCAL);
    if (Carregada == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        return false;
    }
    using TPergunta = int (*)();
    const auto QuantosIniciados = reinterpret_cast<TPergunta>(dlsym(Carregada, "SibrelModulosIniciados"));
    const bool Certo = QuantosIniciados != nullptr && QuantosIniciados() > 0;
    if (dlclose(Carregada) != 0 || !Certo)
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
