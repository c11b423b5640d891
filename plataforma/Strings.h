// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <functional>

namespace Sibrel
{

/// True when two texts are equal but for letter case; accented letters are folded too.
SIBREL_EXPORT bool MesmoTexto(QStringView A, QStringView B) noexcept;

/// A list of lines, some of which may be "name=value" pairs.
///
/// The abstract base: what holds the lines is the derived class's business. Names are everything before the
/// first
/// "=" of a line and are compared without regard to letter case; a line without "=" has an empty name and is
/// never found by name. Index errors raise EStringListError. Not synchronised.
class SIBREL_EXPORT TStrings
{
public:
    TStrings() = default;
    virtual ~TStrings();
    TStrings(const TStrings &) = default;
    TStrings &operator=(const TStrings &) = default;

    virtual int Count() const = 0;
    /// Line `Indice`.
    virtual QString Linha(int Indice) const = 0;
    /// Replaces line `Indice`.
    virtual void AtribuirLinha(int Indice, const QString &Texto) = 0;
    /// `Indice` may be Count(), which appends.
    virtual void Insert(int Indice, const QString &Texto) = 0;
    virtual void Delete(int Indice) = 0;
    virtual void Clear() = 0;

    QString operator[](int Indice) const { return Linha(Indice); }
    /// Appends; the index of the new line.
    int Add(const QString &Texto);
    /// Appends all lines of `Outra`.
    void AddStrings(const TStrings &Outra);
    /// Replaces all lines by those of `Outra`.
    virtual void Assign(const TStrings &Outra);

    /// First line equal to `Texto` but for letter case, -1 when there is none.
    virtual int IndexOf(const QString &Texto) const;
    /// First line whose name is `Nome`, -1 when there is none.
    int IndexOfName(QStringView Nome) const;
    /// Name of line `Indice`, empty when it has none.
    QString Names(int Indice) const;
    /// What stands behind the "=" of line `Indice`, empty when there is none.
    QString ValueFromIndex(int Indice) const;
    /// Value of the first line of that name, empty when there is none.
    QString Values(QStringView Nome) const;
    /// Sets the value of the first line of that name, or appends a line; an empty value removes the line.
    void AtribuirValor(const QString &Nome, const QString &Valor);

    /// All lines, each ended by CR LF.
    QString Text() const;
    /// Replaces all lines; CR LF, LF and CR end a line.
    void AtribuirText(QStringView Texto);

    QStringList ParaQStringList() const;

    /// Reads a whole file as lines: by its byte order mark when it has one, else in code page 1252.
    /// EFOpenError when it cannot be read; the lines are unchanged then.
    void LoadFromFile(const QString &Arquivo);
    /// Writes the lines in code page 1252. EConvertError for a character that it lacks, before the file is
    /// touched; EFCreateError when the file cannot be written, which then keeps its former content.
    void SaveToFile(const QString &Arquivo) const;
};

/// The plain list of lines. Unsorted; duplicates are kept.
class SIBREL_EXPORT TStringList : public TStrings
{
public:
    TStringList() = default;
    explicit TStringList(QStringList Linhas);
    ~TStringList() override;

    int Count() const override { return static_cast<int>(FLinhas.size()); }
    QString Linha(int Indice) const override;
    void AtribuirLinha(int Indice, const QString &Texto) override;
    void Insert(int Indice, const QString &Texto) override;
    void Delete(int Indice) override;
    void Clear() override;
    void Assign(const TStrings &Outra) override;

    const QStringList &Linhas() const noexcept { return FLinhas; }

    /// Called after each change, with this list. Copying a list copies its lines only.
    std::function<void(TStringList &)> OnChange;

    TStringList(const TStringList &Outra);
    TStringList &operator=(const TStringList &Outra);

    friend bool operator==(const TStringList &A, const TStringList &B) { return A.FLinhas == B.FLinhas; }

private:
    void Mudou();
    qsizetype Verificado(int Indice, qsizetype Limite) const;

    QStringList FLinhas;
};

} // namespace Sibrel
