// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <libxml/parser.h>

#include <exception>
#include <memory>
#include <string_view>

namespace Sibrel
{

class TPedacosXML;

/// One run of the parser over one document in memory: owns the parser's context and whatever it built, keeps
/// the first failure. Everything of the parser that is set is set in this context, nothing for the whole
/// process.
class TContextoXML
{
public:
    /// `Utf8` is read in place and has to live as long as the object; `Endereco` names the document for
    /// relative references.
    TContextoXML(const QByteArray &Utf8, int Opcoes, const QByteArray &Endereco = {});
    /// Reads on in `Pedacos` as far as it needs. The parser refuses more here than in a text that is there as
    /// a whole, e.g. a tag of 10 MB.
    TContextoXML(TPedacosXML &Pedacos, int Opcoes);
    virtual ~TContextoXML();
    TContextoXML(const TContextoXML &) = delete;
    TContextoXML &operator=(const TContextoXML &) = delete;

    /// Runs the parser; raises the first failure, if any.
    void Analisar();

protected:
    /// The object behind the pointer that the parser hands to its handlers; entities have contexts of their
    /// own.
    static TContextoXML &De(void *Contexto) noexcept
    {
        return *static_cast<TContextoXML *>(static_cast<xmlParserCtxt *>(Contexto)->_private);
    }
    xmlParserCtxt &Contexto() const noexcept { return *FContexto; }
    int Linha() const noexcept { return FContexto->input ? FContexto->input->line : 0; }

    /// Keeps a failure, the first one only.
    void Falhar(std::exception_ptr Falha) noexcept;
    bool Falhou() const noexcept { return FFalha != nullptr; }
    /// Runs a part of a handler that the parser called with `C`: no exception may cross the parser, so it is
    /// kept and this context stopped. After a failure nothing is run any more.
    template <class F>
    void Proteger(void *C, F Parte) noexcept
    {
        try {
            if (!FFalha)
                Parte();
        } catch (...) {
            Falhar(std::current_exception());
        }
        if (FFalha)
            xmlStopParser(static_cast<xmlParserCtxt *>(C));
    }
    /// True to end quietly what was not finished, e.g. to start over in another way.
    bool FInterrompido = false;

private:
    explicit TContextoXML(int Opcoes);
    void Ligar(xmlParserInputPtr Entrada);
    static void AoErrar(void *Dados, xmlErrorPtr Erro);
    [[gnu::format(printf, 2, 3)]] static void AoInvalidar(void *Dados, const char *Formato, ...);
    void Anotar(const char *Motivo, int Linha, int Coluna) noexcept;

    struct TLiberar {
        void operator()(xmlParserCtxt *C) const noexcept;
    };
    std::unique_ptr<xmlParserCtxt, TLiberar> FContexto;
    std::exception_ptr FFalha;
};

inline std::string_view Visao(const xmlChar *Texto) noexcept
{
    return Texto ? std::string_view(reinterpret_cast<const char *>(Texto)) : std::string_view();
}

} // namespace Sibrel
