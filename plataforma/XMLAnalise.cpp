// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/XMLAnalise.h"

#include "plataforma/XMLAtributos.h"
#include "plataforma/XMLCodificacao.h"
#include "plataforma/XMLComDTD.h"
#include "plataforma/XMLConstrutor.h"
#include "plataforma/XMLContexto.h"
#include "plataforma/XMLErro.h"
#include "plataforma/XMLPedacos.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <span>

namespace Sibrel
{

namespace
{

using namespace std::string_view_literals;

// Reads a document without a DOCTYPE from the parser's events straight into our own.
class TLeitorXML final : public TContextoXML
{
public:
    explicit TLeitorXML(const QByteArray &Utf8);
    TLeitorXML(TPedacosXML &Pedacos, std::size_t Bytes);

    /// Only meaningful after Analisar.
    bool TemDoctype() const noexcept { return FInterrompido; }
    TXMLDocument::TReferencia Terminar() { return FConstrutor.Terminar(); }

private:
    void Tratar();
    static TLeitorXML &Este(void *C) noexcept { return static_cast<TLeitorXML &>(De(C)); }
    static void AoIniciarElemento(void *C, const xmlChar *Nome, const xmlChar *Prefixo, const xmlChar *,
                                  int Espacos, const xmlChar **Declaracoes, int Atributos, int,
                                  const xmlChar **Valores);

    void IniciarElemento(std::uint32_t Nome, std::span<const xmlChar *> Declaracoes,
                         std::span<const xmlChar *> Valores);
    void AtributosEmOrdem(std::span<const xmlChar *> Declaracoes, std::span<const xmlChar *> Valores);
    void Atributo(std::span<const xmlChar *> Valor);
    void Declaracao(std::span<const xmlChar *> Par);
    std::uint32_t Numero(const xmlChar *Nome, const xmlChar *Prefixo);
    std::string_view Etiqueta() const noexcept;
    int LinhaDaEtiqueta() const noexcept;

    TConstrutorXML FConstrutor;
    struct TNumerado {
        const xmlChar *Nome = nullptr;
        std::uint32_t Numero = 0;
    };
    std::array<TNumerado, 128> FNumeros; // by address, since the parser keeps each name once
    int FLinha = 1;                      // where the event before ended
};

// Without this option the parser hands "&amp;" in an attribute on as "&#38;". There are no other entities
// here.
constexpr int OpcoesDoLeitor = XML_PARSE_NOENT;

TLeitorXML::TLeitorXML(const QByteArray &Utf8)
    : TContextoXML(Utf8, OpcoesDoLeitor)
    , FConstrutor(static_cast<std::size_t>(Utf8.size()))
{
    Tratar();
}

TLeitorXML::TLeitorXML(TPedacosXML &Pedacos, std::size_t Bytes)
    : TContextoXML(Pedacos, OpcoesDoLeitor)
    , FConstrutor(Bytes)
{
    Tratar();
}

void TLeitorXML::Tratar()
{
    xmlSAXHandler &Sax = *Contexto().sax;
    const auto AoErrar = Sax.serror;
    Sax = {};
    Sax.initialized = XML_SAX2_MAGIC;
    Sax.serror = AoErrar;
    Sax.internalSubset = [](void *C, const xmlChar *, const xmlChar *, const xmlChar *) {
        Este(C).FInterrompido = true;
        xmlStopParser(static_cast<xmlParserCtxt *>(C));
    };
    Sax.startElementNs = &TLeitorXML::AoIniciarElemento;
    Sax.endElementNs = [](void *C, const xmlChar *, const xmlChar *, const xmlChar *) {
        TLeitorXML &L = Este(C);
        L.Proteger(C, [&L] { L.FConstrutor.Fechar(); });
        L.FLinha = L.Linha();
    };
    Sax.characters = Sax.ignorableWhitespace = [](void *C, const xmlChar *Texto, int Bytes) {
        TLeitorXML &L = Este(C);
        L.Proteger(C, [&] {
            L.FConstrutor.Texto({reinterpret_cast<const char *>(Texto), static_cast<std::size_t>(Bytes)},
                                L.FLinha);
        });
        L.FLinha = L.Linha();
    };
    Sax.cdataBlock = [](void *C, const xmlChar *Texto, int Bytes) {
        TLeitorXML &L = Este(C);
        L.Proteger(C, [&] {
            L.FConstrutor.Folha(TTipoDeNoXML::CDATA,
                                {reinterpret_cast<const char *>(Texto), static_cast<std::size_t>(Bytes)},
                                L.FLinha);
        });
        L.FLinha = L.Linha();
    };
    Sax.comment = [](void *C, const xmlChar *Texto) {
        TLeitorXML &L = Este(C);
        L.Proteger(C, [&] { L.FConstrutor.Folha(TTipoDeNoXML::Comentario, Visao(Texto), L.FLinha); });
        L.FLinha = L.Linha();
    };
    Sax.processingInstruction = [](void *C, const xmlChar *Alvo, const xmlChar *Texto) {
        TLeitorXML &L = Este(C);
        L.Proteger(
            C, [&] { L.FConstrutor.Folha(TTipoDeNoXML::Instrucao, Visao(Texto), L.FLinha, Visao(Alvo)); });
        L.FLinha = L.Linha();
    };
}

void TLeitorXML::AoIniciarElemento(void *C, const xmlChar *Nome, const xmlChar *Prefixo, const xmlChar *,
                                   int Espacos, const xmlChar **Declaracoes, int Atributos, int,
                                   const xmlChar **Valores)
{
    TLeitorXML &L = Este(C);
    L.Proteger(C, [&] {
        L.IniciarElemento(L.Numero(Nome, Prefixo), {Declaracoes, static_cast<std::size_t>(Espacos) * 2},
                          {Valores, static_cast<std::size_t>(Atributos) * 5});
    });
    L.FLinha = L.Linha();
}

void TLeitorXML::IniciarElemento(std::uint32_t Nome, std::span<const xmlChar *> Declaracoes,
                                 std::span<const xmlChar *> Valores)
{
    // White space between the prologue and the document element makes no event.
    FConstrutor.Abrir(Nome, FConstrutor.Profundidade() == 0 ? LinhaDaEtiqueta() : FLinha);
    if (Contexto().nsNr / 2 > TLimitesXML::EspacosDeNomes)
        throw ErroDeXML(
            QStringLiteral("Mais de %1 espaços de nomes em vigor.").arg(TLimitesXML::EspacosDeNomes), FLinha);
    if (!Declaracoes.empty())
        return AtributosEmOrdem(Declaracoes, Valores);
    for (std::size_t I = 0; I < Valores.size(); I += 5)
        Atributo(Valores.subspan(I, 5));
}

// The parser tells declarations and attributes apart; their common order stands in the tag itself, which it
// has found to be well-formed.
void TLeitorXML::AtributosEmOrdem(std::span<const xmlChar *> Declaracoes, std::span<const xmlChar *> Valores)
{
    const std::string_view Tag = Etiqueta();
    constexpr std::string_view Brancos = " \t\r\n"sv;
    std::size_t Posicao = Tag.find_first_of(Brancos);
    while (Posicao != Tag.npos && (Posicao = Tag.find_first_not_of(Brancos, Posicao)) != Tag.npos) {
        const std::string_view Resto = Tag.substr(Posicao);
        const std::size_t Igual = Resto.find('=');
        const std::size_t Aspa = Resto.find_first_of("\"'"sv);
        if (Igual == Resto.npos || Aspa == Resto.npos)
            break;
        const bool Espaco = Resto.starts_with("xmlns"sv) &&
                            (Resto[5] == ':' || Igual == 5 || Brancos.find(Resto[5]) != Brancos.npos);
        if (Espaco && !Declaracoes.empty()) {
            Declaracao(Declaracoes.first(2));
            Declaracoes = Declaracoes.subspan(2);
        } else if (!Espaco && !Valores.empty()) {
            Atributo(Valores.first(5));
            Valores = Valores.subspan(5);
        }
        Posicao = Resto.find(Resto[Aspa], Aspa + 1);
        Posicao = Posicao == Resto.npos ? Tag.npos
                                        : static_cast<std::size_t>(Resto.data() - Tag.data()) + Posicao + 1;
    }
}

void TLeitorXML::Atributo(std::span<const xmlChar *> Valor)
{
    const auto *Inicio = reinterpret_cast<const char *>(Valor[3]);
    const auto *Fim = reinterpret_cast<const char *>(Valor[4]);
    FConstrutor.Atributo(Numero(Valor[0], Valor[1]), {Inicio, static_cast<std::size_t>(Fim - Inicio)});
}

void TLeitorXML::Declaracao(std::span<const xmlChar *> Par)
{
    const std::string Nome = Par[0] ? "xmlns:" + std::string(Visao(Par[0])) : "xmlns";
    FConstrutor.Atributo(FConstrutor.Nome(Nome), Visao(Par[1]));
}

std::uint32_t TLeitorXML::Numero(const xmlChar *Nome, const xmlChar *Prefixo)
{
    const xmlChar *Chave = Prefixo ? xmlDictQLookup(Contexto().dict, Prefixo, Nome) : Nome;
    if (!Chave)
        throw std::bad_alloc();
    const auto Endereco = reinterpret_cast<std::uintptr_t>(Chave);
    TNumerado &Lembrado = FNumeros[(Endereco ^ (Endereco >> 7)) % FNumeros.size()];
    if (Lembrado.Nome != Chave)
        Lembrado = {Chave, FConstrutor.Nome(Visao(Chave))};
    return Lembrado.Numero;
}

// The start tag that was just read, from its "<". An attribute value cannot hold that character.
std::string_view TLeitorXML::Etiqueta() const noexcept
{
    const xmlParserInput &Entrada = *Contexto().input;
    const xmlChar *Inicio = Entrada.cur;
    while (Inicio > Entrada.base && *Inicio != '<')
        --Inicio;
    return {reinterpret_cast<const char *>(Inicio), static_cast<std::size_t>(Entrada.cur - Inicio)};
}

int TLeitorXML::LinhaDaEtiqueta() const noexcept
{
    const std::string_view Tag = Etiqueta();
    return Linha() - static_cast<int>(std::count(Tag.begin(), Tag.end(), '\n'));
}

// Null for what has to be read as a whole: a document with a DOCTYPE, and all that is refused, so that what
// is told about it, and whether it is refused at all, does not depend on the pieces.
TXMLDocument::TReferencia AnalisarEmPedacos(QStringView Texto)
{
    try {
        TPedacosXML Pedacos(Texto);
        TLeitorXML Leitor(Pedacos, static_cast<std::size_t>(Texto.size()));
        Leitor.Analisar();
        return !Leitor.TemDoctype() && Pedacos.Terminou() ? Leitor.Terminar() : nullptr;
    } catch (const EDOMParseError &) {
        return nullptr;
    }
}

} // namespace

TXMLDocument::TReferencia AnalisarXML(const QByteArray &Utf8, const QString &Base)
{
    // The parser takes a character zero behind the document element for the end.
    if (const qsizetype Zero = Utf8.indexOf('\0'); Zero >= 0)
        throw ErroDeXML(QStringLiteral("O byte %1 do documento é zero.").arg(Zero + 1));
    if (AtributosDemais({Utf8.constData(), static_cast<std::size_t>(Utf8.size())}))
        throw ErroDeXML(QStringLiteral("Um elemento tem mais de %1 atributos.").arg(TLimitesXML::Atributos));
    TLeitorXML Leitor(Utf8);
    Leitor.Analisar();
    return Leitor.TemDoctype() ? AnalisarXMLComDTD(Utf8, Base) : Leitor.Terminar();
}

TXMLDocument::TReferencia AnalisarTextoXML(QStringView Texto)
{
    // The bytes of a short text stay in the cache, where nothing is gained by pieces.
    constexpr qsizetype Curto = 65536;
    if (Texto.size() > Curto)
        if (auto Documento = AnalisarEmPedacos(Texto))
            return Documento;
    return AnalisarXML(Utf8DeTexto(Texto), {});
}

} // namespace Sibrel
