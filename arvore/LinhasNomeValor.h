// SPDX-License-Identifier: LGPL-2.1-or-later
// Lists of "name=value" lines as UTF-8: the rules of TStrings without a QString a line.
#pragma once

#include "plataforma/Exportacao.h"
#include "plataforma/Strings.h"

#include <QByteArray>
#include <QByteArrayView>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace Sibrel
{

/// Lines of a list, owned by somebody else.
using TLinhasUtf8 = std::span<const QByteArrayView>;

/// What stands before the first "=" of a line; nothing for a line without "=", which no name finds.
std::optional<QByteArrayView> NomeDaLinha(QByteArrayView Linha) noexcept;
/// What stands behind the first "=", empty when there is none.
QByteArrayView ValorDaLinha(QByteArrayView Linha) noexcept;
/// Equal but for letter case, accented letters folded too (as MesmoTexto).
bool MesmoNome(QByteArrayView A, QByteArrayView B) noexcept;
/// Equal for names that MesmoNome finds equal.
std::uint64_t HashDoNome(QByteArrayView Nome) noexcept;

/// Finds lines by name: the first one of that name. Short lists are walked, long ones hashed.
class TProcuraPorNome
{
public:
    explicit TProcuraPorNome(TLinhasUtf8 Linhas);
    /// Index of the line, -1 when there is none.
    std::ptrdiff_t Indice(QByteArrayView Nome) const noexcept;
    /// Value of the line, empty when there is none.
    QByteArrayView Valor(QByteArrayView Nome) const noexcept;

private:
    TLinhasUtf8 FLinhas;
    std::unordered_multimap<std::uint64_t, std::size_t> FPorHash;
};

/// Merges pairs into a list: the value of a name that is there is set (an empty value takes its line away),
/// another name is appended, with an empty value too.
class SIBREL_EXPORT TFusaoDeLinhas
{
public:
    /// Forgets everything but its memory.
    void Limpar() noexcept;
    /// A line that the list begins with. The bytes must live until the result has been used.
    void Existente(QByteArrayView Linha);
    void Item(QByteArrayView Nome, QByteArrayView Valor);
    /// The merged lines; valid until the next call of anything else.
    TLinhasUtf8 Linhas();

private:
    struct TLinha {
        QByteArrayView DeFora;
        std::size_t Inicio = 0; // of our own text
        std::size_t Tamanho = 0;
        bool Nossa = false;
        bool Viva = true;
    };
    using TPorHash = std::unordered_multimap<std::uint64_t, std::size_t>;

    QByteArrayView Texto(const TLinha &L) const noexcept;
    void Guardar(TLinha &L, QByteArrayView Nome, QByteArrayView Valor);
    void Acrescentar(TLinha L);
    std::optional<std::size_t> Procurar(QByteArrayView Nome) const noexcept;
    void Apagar(std::size_t Indice);
    void Indexar(std::size_t Indice);

    std::vector<TLinha> FLinhas;
    std::string FTextos;
    TPorHash FPorHash; // of long lists
    std::vector<QByteArrayView> FResultado;
};

/// The lines of a list of texts, as UTF-8 that this object owns.
class TLinhasDeStrings
{
public:
    explicit TLinhasDeStrings(const TStrings &Lista);
    TLinhasUtf8 Linhas() const noexcept { return FLinhas; }

private:
    std::vector<QByteArray> FBytes;
    std::vector<QByteArrayView> FLinhas;
};

} // namespace Sibrel
