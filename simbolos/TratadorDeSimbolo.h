// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/ArquivoTexto.h"
#include "plataforma/Exception.h"
#include "simbolos/AvisoDeImportacao.h"
#include "simbolos/RegistroDeTratadores.h"
#include "simbolos/Simbolo.h"

#include <memory>
#include <type_traits>

namespace Sibrel
{

/// Reads and writes one symbol kind's own fields of a library record.
///
/// The frame of the record (kind name and label) is the caller's. A handler reads its section and moves past
/// the end of the line, or writes its section and the end of the line. Lives for one record. GUI thread only.
class SIBREL_EXPORT TTratadorDeSimbolo
{
public:
    using RefDeClasse = TRefTratador;

    /// `Tabela`: the table that is read or written, not owned; may be null.
    explicit TTratadorDeSimbolo(TTabelaDeSimbolos *Tabela) noexcept;
    virtual ~TTratadorDeSimbolo();
    TTratadorDeSimbolo(const TTratadorDeSimbolo &) = delete;
    TTratadorDeSimbolo &operator=(const TTratadorDeSimbolo &) = delete;

    virtual RefDeClasse ObterClasse() const = 0;

    /// A handler of the class for one record of the kind `Tipo`. EInvalidOperation, which names the kind, for
    /// a class of which there can be no objects.
    static std::unique_ptr<TTratadorDeSimbolo> Novo(const TRefTratador &Classe, TTabelaDeSimbolos *Tabela,
                                                    const QString &Tipo);
    /// The same for a symbol of that kind.
    static std::unique_ptr<ISimbolo> NovoSimbolo(const TRefSimbolo &Classe, const QString &Tipo);

    /// Reads the rest of a record into the symbol, which is of the kind that this handler was registered
    /// with.
    virtual void Ler(TArquivoDeLeitura &Arquivo, ISimbolo &Simbolo) = 0;
    /// Writes the rest of a record.
    virtual void Gravar(TArquivoDeGravacao &Arquivo, const ISimbolo &Simbolo) = 0;

    TTabelaDeSimbolos *Tabela;

protected:
    /// The symbol as its kind. The registry pairs each handler with its kind, so that only a caller of its
    /// own making gets EInvalidCast.
    template <class Tipo, class Base>
    static auto &Como(Base &Simbolo)
    {
        auto *Deste = dynamic_cast<std::conditional_t<std::is_const_v<Base>, const Tipo, Tipo> *>(&Simbolo);
        if (Deste == nullptr)
            throw EInvalidCast(
                QStringLiteral("O símbolo não é um %1!").arg(QLatin1String(Tipo::NomeDaClasse)));
        return *Deste;
    }

    /// `Texto` before the first "//", which opens a comment; `Texto` itself when there is none.
    static QString SemComentario(const QString &Texto);
    /// Adds a warning to the table's list, when there is a table.
    void Avisar(int Linha, TTipoDeAviso Tipo, const QString &Texto) const;
};

/// Fields: code, charset number, proportion, font name.
class SIBREL_EXPORT TTratadorDeSimboloFonte : public ComClasse<TTratadorDeSimboloFonte, TTratadorDeSimbolo>
{
public:
    static constexpr const char *NomeDaClasse = "TTratadorDeSimboloFonte";
    using ComClasse::ComClasse;
    void Ler(TArquivoDeLeitura &Arquivo, ISimbolo &Simbolo) override;
    void Gravar(TArquivoDeGravacao &Arquivo, const ISimbolo &Simbolo) override;
};

/// Field: picture file name.
class SIBREL_EXPORT TTratadorDeSimboloGrafico
    : public ComClasse<TTratadorDeSimboloGrafico, TTratadorDeSimbolo>
{
public:
    static constexpr const char *NomeDaClasse = "TTratadorDeSimboloGrafico";
    using ComClasse::ComClasse;
    void Ler(TArquivoDeLeitura &Arquivo, ISimbolo &Simbolo) override;
    void Gravar(TArquivoDeGravacao &Arquivo, const ISimbolo &Simbolo) override;
};

/// Field: number of parts; then a line for each part, by the part's own handler.
class SIBREL_EXPORT TTratadorDeSimboloComposto
    : public ComClasse<TTratadorDeSimboloComposto, TTratadorDeSimbolo>
{
public:
    static constexpr const char *NomeDaClasse = "TTratadorDeSimboloComposto";
    using ComClasse::ComClasse;
    void Ler(TArquivoDeLeitura &Arquivo, ISimbolo &Simbolo) override;
    void Gravar(TArquivoDeGravacao &Arquivo, const ISimbolo &Simbolo) override;
};

/// Columns of the kind name in a record.
inline constexpr int ColunasDoTipo = 10;

} // namespace Sibrel
