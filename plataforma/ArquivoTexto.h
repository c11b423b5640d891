// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <cstdint>

namespace Sibrel
{

/// Reads a text file of records the way the library files are meant: number tokens, fixed columns, rests of
/// lines.
///
/// The whole file is held in memory as bytes of code page 1252. Lines end in CR LF or LF. A number that is
/// not one and an early end of the file raise EInOutError, whose `Detalhe` names the file and the line.
/// Move-only value.
class SIBREL_EXPORT TArquivoDeLeitura
{
public:
    /// Opens `Nome`; EFOpenError when it cannot be read.
    explicit TArquivoDeLeitura(const QString &Nome);
    /// Reads from bytes in memory; `Nome` only serves messages.
    TArquivoDeLeitura(QByteArray Bytes, QString Nome);

    const QString &Nome() const noexcept { return FNome; }
    /// Number of the current line, from 1.
    int Linha() const noexcept { return FLinha; }
    bool FimDoArquivo() const noexcept { return FPosicao >= FBytes.size(); }
    bool FimDaLinha() const noexcept;
    /// The file and a line of it, for `Detalhe`.
    QString Onde(int Linha) const;

    /// The next integer token; blanks, tabs and line ends before it are skipped. The token ends at a blank, a
    /// tab or a line end, and the position is left right behind it.
    std::int32_t LerInteiro();
    /// The next real-number token, decimal point ".".
    double LerReal();
    /// The next `Quantos` characters of the line, fewer if the line ends first.
    QString LerCaracteres(int Quantos);
    /// The rest of the line, without its end; the position is left at the line's end.
    QString LerRestoDaLinha();
    /// Moves past the end of the current line. At the end of the file it stays there.
    void ProximaLinha() noexcept;

    /// The bytes from the position to the end of the line, for readers of their own; see Avancar.
    QByteArrayView RestoDaLinha() const noexcept;
    /// Moves `Quantos` bytes ahead, at most to the end of the line.
    void Avancar(qsizetype Quantos) noexcept;

    /// How deep records may stand inside records: readers and drawers of such records call themselves.
    static constexpr int MaiorProfundidade = 256;
    /// Counts one record inside another while it is read; EInOutError beyond MaiorProfundidade.
    class SIBREL_EXPORT TNivel
    {
    public:
        explicit TNivel(TArquivoDeLeitura &Arquivo);
        ~TNivel() { --FArquivo.FProfundidade; }
        TNivel(const TNivel &) = delete;
        TNivel &operator=(const TNivel &) = delete;

    private:
        TArquivoDeLeitura &FArquivo;
    };

    /// Raises EInOutError with the place in `Detalhe`.
    [[noreturn]] void Erro(const QString &Motivo) const;

private:
    QByteArrayView LerToken();
    qsizetype FimDestaLinha() const noexcept;

    QByteArray FBytes;
    QString FNome;
    qsizetype FPosicao = 0;
    mutable qsizetype FFimDaLinha = -1; // of the line of FPosicao, while it is not before it
    int FLinha = 1;
    int FProfundidade = 0;
};

/// Writes a text file of records: into memory first, to disk as one step at the end.
///
/// Texts are kept in code page 1252; a character that it lacks raises EConvertError at once, so that a writer
/// that fails has not touched the file yet. Lines end in CR LF.
class SIBREL_EXPORT TArquivoDeGravacao
{
public:
    /// Appends `Texto` as it is. A line end inside it raises EConvertError too: it would break the record in
    /// two.
    void Escrever(QStringView Texto);
    /// Ends the line.
    void ProximaLinha() { FBytes += "\r\n"; }

    const QByteArray &Bytes() const noexcept { return FBytes; }
    /// Replaces the file `Nome` by what was written; EFCreateError on failure, the former file is still
    /// there.
    void Gravar(const QString &Nome) const;

private:
    QByteArray FBytes;
};

/// A number right-aligned in `Largura` columns; wider numbers take more.
SIBREL_EXPORT QString ADireita(std::int64_t Numero, int Largura);
/// A text left-aligned and padded with blanks to `Largura` columns; longer texts take more.
SIBREL_EXPORT QString AEsquerda(const QString &Texto, int Largura);
/// Blanks, tabs and control characters taken off both ends.
SIBREL_EXPORT QString SemBrancos(QStringView Texto);

} // namespace Sibrel
