// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/XMLDocument.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Sibrel
{

/// Fills a document, node by node in document order. Texts are UTF-8. A limit of TLimitesXML that would be
/// broken raises EDOMParseError.
class TConstrutorXML
{
public:
    explicit TConstrutorXML(std::size_t BytesDoDocumento);

    /// The number of a name, the same for the same name.
    std::uint32_t Nome(std::string_view Texto);

    void Abrir(std::uint32_t Nome, int Linha);
    /// Of the element that was opened last, before anything else is added.
    void Atributo(std::uint32_t Nome, std::string_view Texto);
    void Fechar();
    /// Text, a part of it at a time: parts in a row make one node.
    void Texto(std::string_view Parte, int Linha);
    void Folha(TTipoDeNoXML Tipo, std::string_view Conteudo, int Linha, std::string_view Alvo = {});

    /// Open elements.
    std::size_t Profundidade() const noexcept { return FAbertos.size(); }
    /// The document; raises when it has no element. Nothing may be added any more.
    TXMLDocument::TReferencia Terminar();

private:
    struct TAberto {
        std::uint32_t Lugar;
        std::uint32_t UltimoFilho; // its own place while it has none
        int Linha;
    };
    // Looks a name up without making a string of it.
    struct THash {
        using is_transparent = void;
        std::size_t operator()(std::string_view V) const noexcept { return std::hash<std::string_view>()(V); }
    };

    unsigned char *Novo(TTipoDeNoXML Tipo, std::uint32_t Nome, int Linha, std::size_t MaisBytes);
    void Encerrar(const unsigned char *Fim) noexcept;
    unsigned char *Espaco(std::size_t Bytes);
    std::uint32_t Lugar() const noexcept;
    void Marcar(std::uint32_t Registro, unsigned Marca) noexcept;
    void EncerrarTexto();

    std::shared_ptr<TXMLDocument> FDocumento;
    std::unordered_map<std::string, std::uint32_t, THash, std::equal_to<>> FNumeros;
    std::vector<TAberto> FAbertos;
    int FAtributos = 0; // of the element opened last
    std::string FTexto; // the parts so far; empty when there is no text
    int FLinhaDoTexto = 0;
};

} // namespace Sibrel
