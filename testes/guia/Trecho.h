// SPDX-License-Identifier: LGPL-2.1-or-later
// How the pieces of the guide become tests: a file of docs/guia/trechos holds functions TRECHO(name) { ... },
// each run as a test of its own. What a page shows stands between marks; what proves it stands around them.
#pragma once

#include <QString>

#include <stdexcept>
#include <string>
#include <vector>

namespace Sibrel::Guia
{

struct TTrecho {
    const char *Arquivo;
    const char *Nome;
    void (*Rodar)();
};

/// All pieces that the program holds.
std::vector<TTrecho> &Trechos();

struct TInscricao {
    TInscricao(const char *Arquivo, const char *Nome, void (*Rodar)());
};

/// An example file of the guide, below docs/guia.
QString Dado(const QString &Nome);
/// The folder that the form editor's plugin was built in.
QString PastaDosPlugins();
/// An existing folder of the running piece's own; empty when it begins.
QString PastaDoTrecho();
/// Runs the event loop until no update is on the way.
void EsperarAtualizacoes();

inline void Exigir(bool Certo, const char *Texto, int Linha)
{
    if (!Certo)
        throw std::runtime_error("linha " + std::to_string(Linha) + ": " + Texto);
}

} // namespace Sibrel::Guia

#define TRECHO(Nome)                                                                                         \
    static void Nome();                                                                                      \
    static const Sibrel::Guia::TInscricao Inscricao_##Nome(__FILE__, #Nome, &Nome);                          \
    static void Nome()

#define EXIGIR(Condicao) Sibrel::Guia::Exigir(static_cast<bool>(Condicao), #Condicao, __LINE__)
