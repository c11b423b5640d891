// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/XMLComDTD.h"

#include "plataforma/XMLAtributos.h"
#include "plataforma/XMLConstrutor.h"
#include "plataforma/XMLContexto.h"
#include "plataforma/XMLEntidades.h"
#include "plataforma/XMLErro.h"

#include <libxml/SAX2.h>
#include <libxml/parserInternals.h>
#include <libxml/uri.h>

#include <algorithm>
#include <deque>

namespace Sibrel
{

namespace
{

// What one element, attribute or text costs beside its bytes, when expansion is counted.
constexpr std::int64_t CustoDoNo = 64;

// What of a stretch from one "<" to the next can be a declaration.
std::string_view ParteDeDeclaracao(std::string_view Trecho) noexcept
{
    if (!Trecho.starts_with("<!--"))
        return Trecho[0] != '<' || (Trecho.starts_with("<!") && !Trecho.starts_with("<![CDATA["))
                   ? Trecho
                   : std::string_view();
    const std::size_t Fim = Trecho.find("-->");
    return Fim != Trecho.npos ? Trecho.substr(Fim) : std::string_view();
}

void ExigirPoucasAlternativas(std::string_view Texto)
{
    for (std::size_t Inicio = 0; Inicio < Texto.size();) {
        const std::size_t Fim = std::min(Texto.find('<', Inicio + 1), Texto.size());
        const std::string_view Trecho = ParteDeDeclaracao(Texto.substr(Inicio, Fim - Inicio));
        if (std::count(Trecho.begin(), Trecho.end(), '|') > TLimitesXML::Alternativas)
            throw ErroDeXML(
                QStringLiteral("Uma declaração tem mais de %1 alternativas.").arg(TLimitesXML::Alternativas));
        Inicio = Fim;
    }
}

// Lets the parser build its own tree, which validation and entities need, and copies that.
class TLeitorComDTD final : public TContextoXML
{
public:
    TLeitorComDTD(const QByteArray &Utf8, const TPastaDeEntidades &Pasta);

    /// After Analisar.
    TXMLDocument::TReferencia Terminar();

private:
    struct TEntidade {
        std::int64_t Tamanho = -1; // -1: being measured, a reference to itself
        bool PelaArvore = false;
    };

    static TLeitorComDTD &Este(void *C) noexcept { return static_cast<TLeitorComDTD &>(De(C)); }
    static void AoIniciarElemento(void *C, const xmlChar *Nome, const xmlChar *Prefixo, const xmlChar *Uri,
                                  int Espacos, const xmlChar **Declaracoes, int Atributos, int Supridos,
                                  const xmlChar **Valores);
    static void AoDeclararAtributo(void *C, const xmlChar *Elemento, const xmlChar *Nome, int Tipo,
                                   int Suprimento, const xmlChar *Valor, xmlEnumerationPtr Arvore);
    static void AoDeclararElemento(void *C, const xmlChar *Nome, int Tipo, xmlElementContentPtr Modelo);
    static xmlEntityPtr AoObterEntidade(void *C, const xmlChar *Nome);
    static xmlEntityPtr AoObterParametro(void *C, const xmlChar *Nome);
    static xmlParserInputPtr AoAbrirExterno(void *C, const xmlChar *Publico, const xmlChar *Sistema);
    void LigarEventosDeTexto(xmlSAXHandler &Sax);
    void AnotarLinha(void *C) noexcept;

    void Cobrar(std::int64_t Bytes);
    void TornarInterna(xmlEntity &Entidade, xmlEntityType Tipo);
    std::int64_t Expandida(xmlEntity &Entidade);
    std::int64_t ExpandidaPeloTexto(std::string_view Texto);
    void Copiar(xmlNode *Raiz);
    void Abrir(const xmlNode &No);
    void Folha(const xmlNode &No);
    std::uint32_t Nome(const xmlNs *Espaco, const xmlChar *Local);
    int LinhaDe(const xmlNode &No) const noexcept;

    const TPastaDeEntidades &FPasta;
    TConstrutorXML FConstrutor;
    std::int64_t FSaldo;
    std::unordered_map<const xmlEntity *, TEntidade> FEntidades;
    std::unordered_map<std::string, int> FAtributosDeclarados;
    std::deque<QByteArray> FArquivos; // the parser reads external subsets in place
    int FPartes = 0;
    int FLinha = 1;
};

TLeitorComDTD::TLeitorComDTD(const QByteArray &Utf8, const TPastaDeEntidades &Pasta)
    : TContextoXML(Utf8, XML_PARSE_DTDVALID | XML_PARSE_NOENT | XML_PARSE_DTDLOAD | XML_PARSE_DTDATTR,
                   Pasta.Endereco())
    , FPasta(Pasta)
    , FConstrutor(static_cast<std::size_t>(Utf8.size()))
    , FSaldo(std::max<std::int64_t>(TLimitesXML::Expansao,
                                    std::int64_t{TLimitesXML::FatorDeExpansao} * Utf8.size()))
{
    xmlSAXHandler &Sax = *Contexto().sax;
    Sax.startElementNs = &TLeitorComDTD::AoIniciarElemento;
    Sax.attributeDecl = &TLeitorComDTD::AoDeclararAtributo;
    Sax.elementDecl = &TLeitorComDTD::AoDeclararElemento;
    Sax.getEntity = &TLeitorComDTD::AoObterEntidade;
    Sax.getParameterEntity = &TLeitorComDTD::AoObterParametro;
    Sax.resolveEntity = &TLeitorComDTD::AoAbrirExterno;
    LigarEventosDeTexto(Sax);
}

void TLeitorComDTD::LigarEventosDeTexto(xmlSAXHandler &Sax)
{
    Sax.endElementNs = [](void *C, const xmlChar *Nome, const xmlChar *Prefixo, const xmlChar *Uri) {
        xmlSAX2EndElementNs(C, Nome, Prefixo, Uri);
        Este(C).FLinha = Este(C).Linha();
    };
    Sax.characters = Sax.ignorableWhitespace = [](void *C, const xmlChar *Texto, int Bytes) {
        xmlSAX2Characters(C, Texto, Bytes);
        Este(C).AnotarLinha(C);
    };
    Sax.cdataBlock = [](void *C, const xmlChar *Texto, int Bytes) {
        xmlSAX2CDataBlock(C, Texto, Bytes);
        Este(C).AnotarLinha(C);
    };
    Sax.comment = [](void *C, const xmlChar *Texto) {
        xmlSAX2Comment(C, Texto);
        Este(C).AnotarLinha(C);
    };
    Sax.processingInstruction = [](void *C, const xmlChar *Alvo, const xmlChar *Texto) {
        xmlSAX2ProcessingInstruction(C, Alvo, Texto);
        Este(C).AnotarLinha(C);
    };
}

void *ComoMarca(int Linha) noexcept
{
    return reinterpret_cast<void *>(static_cast<std::intptr_t>(Linha));
}

// The parser's own line numbers are those of a node's end, and end at 65535 for some kinds.
void TLeitorComDTD::AnotarLinha(void *C) noexcept
{
    if (C != &Contexto())
        return; // lines inside an entity are of no use
    if (xmlNode *No = Contexto().node ? Contexto().node->last : nullptr; No && !No->_private)
        No->_private = ComoMarca(FLinha);
    FLinha = Linha();
}

void TLeitorComDTD::Cobrar(std::int64_t Bytes)
{
    FSaldo -= Bytes;
    if (FSaldo < 0)
        throw ErroDeXML(QStringLiteral("As entidades e os atributos supridos passam de %1 bytes.")
                            .arg(TLimitesXML::Expansao),
                        Linha());
}

void TLeitorComDTD::AoIniciarElemento(void *C, const xmlChar *Nome, const xmlChar *Prefixo,
                                      const xmlChar *Uri, int Espacos, const xmlChar **Declaracoes,
                                      int Atributos, int Supridos, const xmlChar **Valores)
{
    TLeitorComDTD &L = Este(C);
    auto *Contexto = static_cast<xmlParserCtxt *>(C);
    bool Pode = false;
    L.Proteger(C, [&] {
        if (Contexto->nodeNr > TLimitesXML::Profundidade || Contexto->nsNr / 2 > TLimitesXML::EspacosDeNomes)
            throw ErroDeXML(QStringLiteral("Elementos ou espaços de nomes demais um dentro do outro."),
                            L.Linha());
        for (int I = Atributos - Supridos; I < Atributos; ++I)
            L.Cobrar(Valores[I * 5 + 4] - Valores[I * 5 + 3] + CustoDoNo);
        Pode = true;
    });
    if (!Pode)
        return;
    xmlSAX2StartElementNs(C, Nome, Prefixo, Uri, Espacos, Declaracoes, Atributos, Supridos, Valores);
    if (C == &L.Contexto() && Contexto->node) {
        // Only white space before the document element makes no event; the tag itself tells its first line.
        const xmlChar *P = Contexto->input->cur;
        int Inicio = L.Linha();
        for (; P > Contexto->input->base && *P != '<'; --P)
            Inicio -= *P == '\n';
        Contexto->node->_private = ComoMarca(Inicio);
        L.FLinha = L.Linha();
    }
}

// Default attributes are compared with each other at each element, like written ones.
void TLeitorComDTD::AoDeclararAtributo(void *C, const xmlChar *Elemento, const xmlChar *Nome, int Tipo,
                                       int Suprimento, const xmlChar *Valor, xmlEnumerationPtr Arvore)
{
    TLeitorComDTD &L = Este(C);
    L.Proteger(C, [&] {
        if (++L.FAtributosDeclarados[std::string(Visao(Elemento))] > TLimitesXML::Atributos)
            throw ErroDeXML(QStringLiteral("A DTD declara mais de %1 atributos de um elemento.")
                                .arg(TLimitesXML::Atributos),
                            L.Linha());
    });
    xmlSAX2AttributeDecl(C, Elemento, Nome, Tipo, Suprimento, Valor, Arvore);
}

void TLeitorComDTD::AoDeclararElemento(void *C, const xmlChar *Nome, int Tipo, xmlElementContentPtr Modelo)
{
    TLeitorComDTD &L = Este(C);
    L.Proteger(C, [&] {
        int Partes = 0;
        std::vector<const xmlElementContent *> Ver{Modelo};
        while (!Ver.empty()) {
            const xmlElementContent *Parte = Ver.back();
            Ver.pop_back();
            if (!Parte)
                continue;
            Partes += Parte->type == XML_ELEMENT_CONTENT_ELEMENT;
            Ver.insert(Ver.end(), {Parte->c1, Parte->c2});
        }
        L.FPartes += Partes;
        // A mixed content is a list, not an automaton, and is bounded by its alternatives.
        if ((Tipo == XML_ELEMENT_TYPE_ELEMENT && Partes > TLimitesXML::PartesDoModelo) ||
            L.FPartes > TLimitesXML::PartesDosModelos)
            throw ErroDeXML(QStringLiteral("O modelo de um elemento da DTD tem partes demais."), L.Linha());
    });
    xmlSAX2ElementDecl(C, Nome, Tipo, Modelo);
}

// The text of a file takes the place of the reference to it before the parser goes and opens the file itself,
// which it would do by means that are common to the whole process.
void TLeitorComDTD::TornarInterna(xmlEntity &Entidade, xmlEntityType Tipo)
{
    const xmlChar *Endereco = Entidade.URI ? Entidade.URI : Entidade.SystemID;
    const std::string_view V = Visao(Endereco);
    const QByteArray Texto = FPasta.Ler(QString::fromUtf8(V.data(), static_cast<qsizetype>(V.size())),
                                        static_cast<qsizetype>(FSaldo));
    Cobrar(Texto.size());
    Entidade.content =
        xmlStrndup(reinterpret_cast<const xmlChar *>(Texto.constData()), static_cast<int>(Texto.size()));
    if (!Entidade.content)
        throw std::bad_alloc();
    Entidade.length = static_cast<int>(Texto.size());
    Entidade.etype = Tipo;
}

xmlEntityPtr TLeitorComDTD::AoObterEntidade(void *C, const xmlChar *Nome)
{
    TLeitorComDTD &L = Este(C);
    xmlEntityPtr Entidade = xmlSAX2GetEntity(C, Nome);
    if (!Entidade || Entidade->etype == XML_INTERNAL_PREDEFINED_ENTITY)
        return Entidade;
    const auto *Contexto = static_cast<xmlParserCtxt *>(C);
    bool Pode = false;
    L.Proteger(C, [&] {
        // In an attribute the parser itself refuses a file.
        if (Entidade->etype == XML_EXTERNAL_GENERAL_PARSED_ENTITY &&
            Contexto->instate != XML_PARSER_ATTRIBUTE_VALUE)
            L.TornarInterna(*Entidade, XML_INTERNAL_GENERAL_ENTITY);
        const std::int64_t Tamanho = L.Expandida(*Entidade);
        if (Contexto->depth == 0) // inside an entity its own size holds this one's
            L.Cobrar(Tamanho);
        Pode = true;
    });
    return Pode ? Entidade : nullptr;
}

xmlEntityPtr TLeitorComDTD::AoObterParametro(void *C, const xmlChar *Nome)
{
    TLeitorComDTD &L = Este(C);
    xmlEntityPtr Entidade = xmlSAX2GetParameterEntity(C, Nome);
    if (!Entidade)
        return nullptr;
    bool Pode = false;
    L.Proteger(C, [&] {
        if (Entidade->etype == XML_EXTERNAL_PARAMETER_ENTITY)
            L.TornarInterna(*Entidade, XML_INTERNAL_PARAMETER_ENTITY);
        ExigirPoucasAlternativas(Visao(Entidade->content));
        L.Cobrar(static_cast<std::int64_t>(Visao(Entidade->content).size()) + CustoDoNo);
        Pode = true;
    });
    return Pode ? Entidade : nullptr;
}

xmlParserInputPtr TLeitorComDTD::AoAbrirExterno(void *C, const xmlChar *, const xmlChar *Sistema)
{
    TLeitorComDTD &L = Este(C);
    auto *Contexto = static_cast<xmlParserCtxt *>(C);
    xmlParserInputPtr Entrada = nullptr;
    L.Proteger(C, [&] {
        const auto *Base =
            reinterpret_cast<const xmlChar *>(Contexto->input ? Contexto->input->filename : nullptr);
        const std::unique_ptr<xmlChar, xmlFreeFunc> Endereco(xmlBuildURI(Sistema, Base), xmlFree);
        const std::string_view V = Visao(Endereco ? Endereco.get() : Sistema);
        L.FArquivos.push_back(L.FPasta.Ler(QString::fromUtf8(V.data(), static_cast<qsizetype>(V.size())),
                                           static_cast<qsizetype>(L.FSaldo)));
        L.Cobrar(L.FArquivos.back().size());
        ExigirPoucasAlternativas(L.FArquivos.back().toStdString());
        Entrada = xmlNewStringInputStream(Contexto,
                                          reinterpret_cast<const xmlChar *>(L.FArquivos.back().constData()));
        if (!Entrada)
            throw std::bad_alloc();
        if (Endereco)
            Entrada->filename = reinterpret_cast<char *>(xmlStrdup(Endereco.get()));
    });
    return Entrada;
}

// What one reference to the entity brings in. Once the parser has made nodes of it, they are what it copies.
std::int64_t TLeitorComDTD::Expandida(xmlEntity &Entidade)
{
    const bool PelaArvore = Entidade.children != nullptr;
    const auto [Lugar, Nova] = FEntidades.try_emplace(&Entidade);
    if (!Nova && (Lugar->second.PelaArvore || !PelaArvore))
        return std::max<std::int64_t>(Lugar->second.Tamanho, 0); // the parser finds the loop itself
    std::int64_t Tamanho = CustoDoNo;
    if (PelaArvore) {
        for (const xmlNode *No = Entidade.children; No;) {
            Tamanho +=
                CustoDoNo +
                (No->type != XML_ELEMENT_NODE ? static_cast<std::int64_t>(Visao(No->content).size()) : 0);
            for (const xmlAttr *A = No->type == XML_ELEMENT_NODE ? No->properties : nullptr; A; A = A->next)
                Tamanho += CustoDoNo +
                           (A->children ? static_cast<std::int64_t>(Visao(A->children->content).size()) : 0);
            if (No->type == XML_ELEMENT_NODE && No->children) {
                No = No->children;
                continue;
            }
            while (No && !No->next && No != Entidade.last)
                No = No->parent == reinterpret_cast<const xmlNode *>(&Entidade) ? nullptr : No->parent;
            No = !No || No == Entidade.last ? nullptr : No->next;
        }
    } else {
        const std::string_view Texto = Visao(Entidade.content);
        if (AtributosDemais(Texto))
            throw ErroDeXML(
                QStringLiteral("Um elemento tem mais de %1 atributos.").arg(TLimitesXML::Atributos));
        Tamanho += ExpandidaPeloTexto(Texto);
    }
    FEntidades[&Entidade] = {Tamanho, PelaArvore};
    return Tamanho;
}

std::int64_t TLeitorComDTD::ExpandidaPeloTexto(std::string_view Texto)
{
    std::int64_t Tamanho = static_cast<std::int64_t>(Texto.size());
    for (std::size_t I = Texto.find_first_of("<&"); I < Texto.size(); I = Texto.find_first_of("<&", I + 1)) {
        const std::size_t Fim = Texto.find(';', I);
        Tamanho += CustoDoNo;
        if (Texto[I] != '&' || Fim == Texto.npos || I + 1 >= Texto.size() || Texto[I + 1] == '#')
            continue;
        const std::string Nome(Texto.substr(I + 1, Fim - I - 1));
        const auto *Bytes = reinterpret_cast<const xmlChar *>(Nome.c_str());
        if (xmlEntityPtr Dentro = xmlGetDocEntity(Contexto().myDoc, Bytes);
            Dentro && Dentro->etype == XML_INTERNAL_GENERAL_ENTITY)
            Tamanho += Expandida(*Dentro);
        if (Tamanho > FSaldo)
            return Tamanho; // enough to refuse
    }
    return Tamanho;
}

TXMLDocument::TReferencia TLeitorComDTD::Terminar()
{
    if (xmlNode *Raiz = Contexto().myDoc ? xmlDocGetRootElement(Contexto().myDoc) : nullptr)
        Copiar(Raiz);
    return FConstrutor.Terminar();
}

// Without recursion: entities inside entities can be deep.
void TLeitorComDTD::Copiar(xmlNode *Raiz)
{
    for (xmlNode *No = Raiz; No;) {
        if (No->type == XML_ELEMENT_NODE) {
            Abrir(*No);
            if (No->children) {
                No = No->children;
                continue;
            }
            FConstrutor.Fechar();
        } else {
            Folha(*No);
        }
        while (No != Raiz && !No->next) {
            No = No->parent;
            FConstrutor.Fechar();
        }
        No = No == Raiz ? nullptr : No->next;
    }
}

int TLeitorComDTD::LinhaDe(const xmlNode &No) const noexcept
{
    const xmlNode *Conhecido = &No;
    while (Conhecido && Conhecido->type != XML_DOCUMENT_NODE && !Conhecido->_private)
        Conhecido = Conhecido->parent;
    return Conhecido && Conhecido->type != XML_DOCUMENT_NODE
               ? static_cast<int>(reinterpret_cast<std::intptr_t>(Conhecido->_private))
               : 0;
}

std::uint32_t TLeitorComDTD::Nome(const xmlNs *Espaco, const xmlChar *Local)
{
    const std::string_view Prefixo = Espaco ? Visao(Espaco->prefix) : std::string_view();
    if (Prefixo.empty())
        return FConstrutor.Nome(Visao(Local));
    return FConstrutor.Nome(std::string(Prefixo) + ':' + std::string(Visao(Local)));
}

void TLeitorComDTD::Abrir(const xmlNode &No)
{
    FConstrutor.Abrir(Nome(No.ns, No.name), LinhaDe(No));
    for (const xmlNs *E = No.nsDef; E; E = E->next)
        FConstrutor.Atributo(FConstrutor.Nome(E->prefix ? "xmlns:" + std::string(Visao(E->prefix)) : "xmlns"),
                             Visao(E->href));
    for (const xmlAttr *A = No.properties; A; A = A->next) {
        const std::uint32_t Numero = Nome(A->ns, A->name);
        if (!A->children || !A->children->next) {
            FConstrutor.Atributo(Numero, A->children ? Visao(A->children->content) : std::string_view());
            continue;
        }
        const std::unique_ptr<xmlChar, xmlFreeFunc> Texto(
            xmlNodeListGetString(Contexto().myDoc, A->children, 1), xmlFree);
        FConstrutor.Atributo(Numero, Visao(Texto.get()));
    }
}

void TLeitorComDTD::Folha(const xmlNode &No)
{
    const std::string_view Texto = Visao(No.content);
    switch (No.type) {
    case XML_TEXT_NODE:
        return FConstrutor.Texto(Texto, LinhaDe(No));
    case XML_CDATA_SECTION_NODE:
        return FConstrutor.Folha(TTipoDeNoXML::CDATA, Texto, LinhaDe(No));
    case XML_COMMENT_NODE:
        return FConstrutor.Folha(TTipoDeNoXML::Comentario, Texto, LinhaDe(No));
    case XML_PI_NODE:
        return FConstrutor.Folha(TTipoDeNoXML::Instrucao, Texto, LinhaDe(No), Visao(No.name));
    default:
        return;
    }
}

} // namespace

TXMLDocument::TReferencia AnalisarXMLComDTD(const QByteArray &Utf8, const QString &Base)
{
    ExigirPoucasAlternativas({Utf8.constData(), static_cast<std::size_t>(Utf8.size())});
    const TPastaDeEntidades Pasta(Base);
    TLeitorComDTD Leitor(Utf8, Pasta);
    Leitor.Analisar();
    return Leitor.Terminar();
}

} // namespace Sibrel
