// SPDX-License-Identifier: LGPL-2.1-or-later
// The XML document and its nodes: read once, never changed, shared by counted handles.
#pragma once

#include "plataforma/Exportacao.h"
#include "plataforma/VetorPlano.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace Sibrel
{

class TConstrutorXML;
class TRegistroXML;
class TXMLDocument;
class IXMLNode;

/// What a document may ask for at most. A document that asks for more is refused with EDOMParseError, before
/// the time or the memory is spent.
struct TLimitesXML {
    /// Elements inside one another, the document element included. The parser's own guard stands at the same
    /// number; real tree documents are some ten deep.
    static constexpr int Profundidade = 256;
    /// Bytes (UTF-8) of one attribute value, text, comment or CDATA section: the parser's own guard.
    static constexpr int Texto = 10'000'000;
    /// Attributes of one element. The parser compares each with each, so that the cost grows with the square.
    static constexpr int Atributos = 1'000;
    /// Parts of the content model of one element of a DTD, and of all its elements together: a model is
    /// turned into an automaton, which costs more than the square of its parts.
    static constexpr int PartesDoModelo = 256;
    static constexpr int PartesDosModelos = 10'000;
    /// Alternatives ("|") in one declaration of a DTD; the parser compares each with each.
    static constexpr int Alternativas = 1'000;
    /// Namespace declarations in force at one place; each prefixed name is searched among them.
    static constexpr int EspacosDeNomes = 1'000;
    /// Bytes that the entities, default attributes and files of a DTD bring into one document together; each
    /// node counts as 64 bytes more. A document that is large itself may have FatorDeExpansao times its size.
    static constexpr int Expansao = 10'000'000;
    static constexpr int FatorDeExpansao = 4;
    /// Bytes of the document, and of each file that it refers to. As UTF-8 it can be three times as many,
    /// which keeps every position below 2^31.
    static constexpr std::int64_t Entrada = 512LL * 1024 * 1024;
};
/// What a node of a document is.
enum class TTipoDeNoXML : std::uint8_t { Elemento, Texto, CDATA, Comentario, Instrucao };

/// The children of a node in document order, for range-based loops. `No` is TCursorXML or IXMLNode.
template <class No>
class TFilhosXML
{
public:
    class iterator
    {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = No;
        using difference_type = std::ptrdiff_t;
        using pointer = const No *;
        using reference = const No &;

        iterator() = default;
        explicit iterator(No Atual)
            : FAtual(std::move(Atual))
        {
        }
        reference operator*() const noexcept { return FAtual; }
        pointer operator->() const noexcept { return &FAtual; }
        iterator &operator++()
        {
            FAtual = FAtual.NextSibling();
            return *this;
        }
        iterator operator++(int)
        {
            iterator Antes = *this;
            ++*this;
            return Antes;
        }
        friend bool operator==(const iterator &A, const iterator &B) noexcept { return A.FAtual == B.FAtual; }

    private:
        No FAtual;
    };

    explicit TFilhosXML(No Primeiro)
        : FPrimeiro(std::move(Primeiro))
    {
    }
    iterator begin() const { return iterator(FPrimeiro); }
    iterator end() const { return {}; }

private:
    No FPrimeiro;
};

/// A place in a document that does not keep the document alive: two words, free to copy, for loops and
/// arguments.
///
/// Whoever uses it must know that the document lives; to keep a node, use IXMLNode (see Guardar), which
/// converts to a cursor by itself. A nil cursor (the default) is allowed everywhere: it has no name, no
/// children, no attributes. Every operation is const, and any number of threads may read one document at the
/// same time.
class SIBREL_EXPORT TCursorXML
{
public:
    constexpr TCursorXML() noexcept = default;

    bool Nulo() const noexcept { return FDocumento == nullptr; }
    explicit operator bool() const noexcept { return FDocumento != nullptr; }

    /// Elemento for a nil cursor.
    TTipoDeNoXML Tipo() const noexcept;
    bool Elemento() const noexcept { return FDocumento && Tipo() == TTipoDeNoXML::Elemento; }
    /// The element's name as written, prefix included; "#text", "#cdata-section", "#comment" for those; the
    /// target of a processing instruction. Shared, nothing is copied.
    QString NodeName() const;
    /// The number of that name in the document, below TXMLDocument::Nomes(): the same for the same name, a
    /// key for tables of a caller's own. 0 for a nil cursor.
    std::uint32_t NumeroDoNome() const noexcept;
    /// Is NodeName() exactly `Nome`, letter case included? Allocates nothing.
    bool NomeE(QStringView Nome) const noexcept;
    /// The line on which the node begins, from 1; what an entity brought in has the line of the element
    /// around it.
    int Linha() const noexcept;

    /// All children: elements, texts (white space too), comments, CDATA sections, processing instructions.
    /// They are counted each time.
    int ChildCount() const noexcept;
    TCursorXML FirstChild() const noexcept;
    TCursorXML NextSibling() const noexcept;
    /// Nil for the document element.
    TCursorXML Parent() const noexcept;
    /// The next node in document order: the first child, else what follows; nil at the end of the document.
    TCursorXML Seguinte() const noexcept;
    TFilhosXML<TCursorXML> Filhos() const noexcept { return TFilhosXML<TCursorXML>(FirstChild()); }
    /// The first child element whose name is exactly `Nome`, nil when there is none.
    TCursorXML FindNode(QStringView Nome) const noexcept;

    /// Attributes count from 0 in the order of the document. An index outside raises EListError. They are
    /// walked from the first one on.
    /// Namespace declarations are attributes like any other; in a document with a DOCTYPE they come first.
    int AttributeCount() const noexcept;
    QString AttributeName(int Indice) const;
    QString AttributeText(int Indice) const;
    /// The same text as UTF-8 inside the document: valid as long as the document lives.
    QByteArrayView AttributeUtf8(int Indice) const;

    /// By name, compared exactly. An attribute that is there with an empty text is there.
    bool HasAttribute(QStringView Nome) const noexcept;
    std::optional<QString> Attribute(QStringView Nome) const;
    std::optional<QByteArrayView> AttributeUtf8(QStringView Nome) const noexcept;

    /// The text of an element is that of all texts and CDATA sections below it, joined; other nodes have
    /// their own.
    QString Text() const;
    /// The node's own text as UTF-8 inside the document; empty for an element.
    QByteArrayView TextUtf8() const noexcept;

    /// A handle to the same node that keeps the document alive.
    IXMLNode Guardar() const;
    const TXMLDocument *Documento() const noexcept { return FDocumento; }
    /// A number that grows in document order, 0 for the document element: a key for tables of a caller's own.
    std::uint32_t Ordem() const noexcept { return FLugar; }

    friend bool operator==(const TCursorXML &A, const TCursorXML &B) noexcept
    {
        return A.FDocumento == B.FDocumento && A.FLugar == B.FLugar;
    }

private:
    friend class TXMLDocument;
    constexpr TCursorXML(const TXMLDocument *Documento, std::uint32_t Lugar) noexcept
        : FDocumento(Documento)
        , FLugar(Lugar)
    {
    }
    TRegistroXML Registro() const noexcept;
    TCursorXML Em(const unsigned char *Onde) const noexcept;

    const TXMLDocument *FDocumento = nullptr;
    std::uint32_t FLugar = 0; // of the node's record in the document's bytes
};

/// A node of a document: a counted handle, nil by default. The document lives as long as a handle to any of
/// its nodes does. It is a cursor too, so that everything a cursor answers it answers, and it can be given
/// where a cursor is asked for. Copying costs one counter, which is atomic: loops over many nodes go by
/// cursor.
class SIBREL_EXPORT IXMLNode : public TCursorXML
{
public:
    IXMLNode() noexcept = default;
    IXMLNode(std::shared_ptr<const TXMLDocument> Documento, TCursorXML No) noexcept;

    IXMLNode FirstChild() const noexcept { return Com(TCursorXML::FirstChild()); }
    IXMLNode NextSibling() const noexcept { return Com(TCursorXML::NextSibling()); }
    IXMLNode Parent() const noexcept { return Com(TCursorXML::Parent()); }
    IXMLNode FindNode(QStringView Nome) const noexcept { return Com(TCursorXML::FindNode(Nome)); }
    TFilhosXML<IXMLNode> Filhos() const noexcept { return TFilhosXML<IXMLNode>(FirstChild()); }

    const std::shared_ptr<const TXMLDocument> &Dono() const noexcept { return FDono; }

private:
    IXMLNode Com(TCursorXML No) const noexcept { return No ? IXMLNode(FDono, No) : IXMLNode(); }

    std::shared_ptr<const TXMLDocument> FDono;
};

/// A document as it was read. Immutable; parsed on any thread, read from any number of threads at once.
///
/// Every way of reading checks the whole document first: what is not well-formed, or breaks a limit of
/// TLimitesXML, raises EDOMParseError with the Message "XML em formato inválido!", the parser's own words in
/// `Detalhe` and the place in `Linha` and `Coluna`. A document with a DOCTYPE must also be valid by its DTD,
/// its entities are replaced by what they stand for and its default attributes are added. Memory that runs
/// out raises the same error or std::bad_alloc. Comments and processing instructions outside the document
/// element are not kept.
class SIBREL_EXPORT TXMLDocument : public std::enable_shared_from_this<TXMLDocument>
{
public:
    using TReferencia = std::shared_ptr<const TXMLDocument>;

    /// From text in memory; an encoding that the text declares is of no concern.
    static TReferencia DeTexto(QStringView Texto);
    /// From UTF-8 in memory, with or without byte order mark; an encoding that it declares is of no concern.
    static TReferencia DeUtf8(QByteArrayView Bytes);
    /// From the bytes of a file: the encoding is that of the byte order mark, else the declared one, else
    /// code page 1252. ISO-8859-1 is read as code page 1252, whose bytes 0x80 to 0x9F are what such files
    /// mean.
    static TReferencia DeBytes(QByteArrayView Bytes);
    /// From a file, as DeBytes; EFOpenError when it cannot be read. Relative names of entities start at its
    /// folder.
    static TReferencia DeArquivo(const QString &Nome);

    /// The folder in which documents with a DOCTYPE may name files (external DTDs and entities); empty, as at
    /// the start, forbids them all. Links that lead out of the folder do not count as inside, and nothing is
    /// ever fetched over the network. For the whole process, from any thread; documents being read keep the
    /// former one.
    static void AtribuirPastaDeEntidades(const QString &Pasta);
    static QString PastaDeEntidades();

    IXMLNode DocumentElement() const;
    /// The document element without a counted handle.
    TCursorXML Raiz() const noexcept { return {this, 0}; }
    /// Nodes of all kinds in the document.
    std::uint32_t Nos() const noexcept { return FQuantos; }
    /// Different names of nodes and attributes in the document, the fixed ones of texts and comments
    /// included.
    std::uint32_t Nomes() const noexcept { return static_cast<std::uint32_t>(FNomes.size()); }
    /// Bytes of memory that the document keeps.
    std::size_t Memoria() const noexcept;

    TXMLDocument(const TXMLDocument &) = delete;
    TXMLDocument &operator=(const TXMLDocument &) = delete;
    ~TXMLDocument() = default;

private:
    friend class TCursorXML;
    friend class TConstrutorXML;
    TXMLDocument() = default;

    TVetorPlano<unsigned char> FRegistros; // the nodes, see TRegistroXML
    std::uint32_t FQuantos = 0;            // of them
    std::vector<QString> FNomes;           // each name once
};

} // namespace Sibrel
