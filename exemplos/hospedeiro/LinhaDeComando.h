// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace Hospedeiro
{

/// Sides of a symbol in the sheet, in logical pixels.
inline constexpr int MenorTamanho = 8;
inline constexpr int MaiorTamanho = 256;
inline constexpr int TamanhoInicial = 48;

/// What the command line asks for.
struct TPedido {
    std::optional<QString> Biblioteca; ///< library file to open
    std::optional<QString> Folha;      ///< picture file for the sheet of the library
    std::optional<QString> Exportar;   ///< library file to write
    std::optional<QString> Figura;     ///< figure file to open
    std::optional<QString> Captura;    ///< picture file for that figure or for the tree
    std::optional<QString> Banco;      ///< database to take symbols and tree from
    std::optional<QString> Arvore;     ///< tree document to open
    std::optional<QString> Vigiar;     ///< folder whose new documents update the tree
    QStringList Atualizacoes;          ///< documents to update the tree with, in this order
    QString Raiz;                      ///< name of the documents' root element; empty accepts any
    std::optional<QString> Texto;      ///< the help or the version, to be printed in place of any work
    int Tamanho = TamanhoInicial;      ///< side of a symbol, logical pixels
    bool Listar = false;

    /// True when the work needs no window.
    bool SoLinhaDeComando() const { return Texto || Listar || Folha || Exportar || Captura; }
};

/// Reads the arguments, the first of which is the program. Raises Sibrel::Exception with a text in Portuguese
/// for anything that it does not understand. Needs the application object.
TPedido LerLinhaDeComando(const QStringList &Argumentos);

/// A first look at the arguments, before there is an application object to choose the platform for.
bool PedeSoLinhaDeComando(int Quantos, const char *const *Argumentos);

/// The sentence that sends a user to the help.
QString VejaAAjuda();

} // namespace Hospedeiro
