// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "simbolos/AvisoDeImportacao.h"
#include "simbolos/TabelaDeSimbolosBD.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace Hospedeiro
{

class TBancoDoExercicio;
class TFontesDaBiblioteca;

/// Something that a user may want to know about a library that was opened or written.
struct TAviso {
    int Linha = 0; ///< in the library file, from 1; 0 when it is about no line
    QString Texto;
};

/// `Aviso, linha 12: ...`
QString TextoDoAviso(const TAviso &Aviso);

/// One symbol library as the host holds it, from a file or from a database: its table and the warnings of its
/// import.
///
/// A library that fails to open is thrown away as a whole, so that the one on the screen stays as it is.
class TBiblioteca
{
public:
    /// Loads the fonts beside the file, then the file; the current folder is the same afterwards, also after
    /// an error. Raises what the table's Importar raises; Avisos() then holds what was found before.
    void Abrir(const QString &Arquivo, TFontesDaBiblioteca &Fontes);
    /// The same from the symbols of a database, where "beside" is TBancoDoExercicio::LugarDasFontes. Raises
    /// what that raises.
    void AbrirBanco(TBancoDoExercicio &Banco, TFontesDaBiblioteca &Fontes);
    /// Writes the library; raises what the table's Exportar raises. The warnings tell which pictures the new
    /// file will not find, since their names are relative to the folder of the library.
    std::vector<TAviso> Exportar(const QString &Arquivo);

    const Sibrel::TTabelaDeSimbolos &Tabela() const noexcept { return FTabela; }
    Sibrel::TTabelaDeSimbolos &Tabela() noexcept { return FTabela; }
    int Quantos() const noexcept { return FTabela.Simbolos().Count(); }
    /// Name of the file, as last given; empty for a database that was not exported.
    const QString &Arquivo() const noexcept { return FTabela.NomeArquivo; }
    /// Where the symbols come from, for a title: the file, or the database's name.
    QString Origem() const;
    const std::vector<TAviso> &Avisos() const noexcept { return FAvisos; }

private:
    void CarregarFontes(const QString &Lugar, TFontesDaBiblioteca &Fontes);
    void GuardarAvisos();
    void AvisarDasFontes();

    Sibrel::TTabelaDeSimbolosBD FTabela;
    QString FBanco;
    std::vector<TAviso> FAvisos;
};

} // namespace Hospedeiro
