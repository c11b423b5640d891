// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/XMLContexto.h"

#include "plataforma/XMLErro.h"
#include "plataforma/XMLPedacos.h"

#include <libxml/parserInternals.h>

#include <array>
#include <cstdarg>
#include <cstdio>
#include <limits>
#include <new>

namespace Sibrel
{

void TContextoXML::TLiberar::operator()(xmlParserCtxt *C) const noexcept
{
    if (C->myDoc)
        xmlFreeDoc(C->myDoc);
    xmlFreeParserCtxt(C);
}

TContextoXML::TContextoXML(int Opcoes)
{
    // Safe to call again and from several threads; the parser's tables are made once.
    static const bool Iniciado = (xmlInitParser(), true);
    Q_UNUSED(Iniciado)
    FContexto.reset(xmlNewParserCtxt());
    if (!FContexto)
        throw std::bad_alloc();
    FContexto->_private = this;
    xmlCtxtUseOptions(FContexto.get(), Opcoes | XML_PARSE_NONET | XML_PARSE_IGNORE_ENC | XML_PARSE_BIG_LINES);
    FContexto->sax->serror = &TContextoXML::AoErrar;
    FContexto->vctxt.userData = FContexto.get();
    FContexto->vctxt.error = &TContextoXML::AoInvalidar;
    FContexto->vctxt.warning = nullptr;
}

// As a text in memory, which the parser reads where it is; a buffer of its own would be a copy of the
// document. It looks for the end itself: a zero, which QByteArray has there and the document nowhere before.
TContextoXML::TContextoXML(const QByteArray &Utf8, int Opcoes, const QByteArray &Endereco)
    : TContextoXML(Opcoes)
{
    if (Utf8.isEmpty())
        throw ErroDeXML(QStringLiteral("O documento está vazio."));
    if (Utf8.size() > std::numeric_limits<int>::max() - 1)
        throw ErroDeXML(QStringLiteral("O documento é grande demais."));
    Ligar(xmlNewStringInputStream(FContexto.get(), reinterpret_cast<const xmlChar *>(Utf8.constData())));
    if (!Endereco.isEmpty())
        FContexto->input->filename =
            reinterpret_cast<char *>(xmlStrdup(reinterpret_cast<const xmlChar *>(Endereco.constData())));
}

TContextoXML::TContextoXML(TPedacosXML &Pedacos, int Opcoes)
    : TContextoXML(Opcoes)
{
    const auto Ler = [](void *P, char *Para, int Bytes) {
        return static_cast<TPedacosXML *>(P)->Ler(Para, Bytes);
    };
    std::unique_ptr<xmlParserInputBuffer, decltype(&xmlFreeParserInputBuffer)> Buffer(
        xmlParserInputBufferCreateIO(Ler, nullptr, &Pedacos, XML_CHAR_ENCODING_NONE),
        &xmlFreeParserInputBuffer);
    if (!Buffer)
        throw std::bad_alloc();
    const xmlParserInputPtr Entrada =
        xmlNewIOInputStream(FContexto.get(), Buffer.get(), XML_CHAR_ENCODING_NONE);
    if (Entrada)
        static_cast<void>(Buffer.release()); // the input's now
    Ligar(Entrada);
}

TContextoXML::~TContextoXML() = default;

void TContextoXML::Ligar(xmlParserInputPtr Entrada)
{
    if (!Entrada)
        throw std::bad_alloc();
    if (inputPush(FContexto.get(), Entrada) < 0) {
        xmlFreeInputStream(Entrada);
        throw std::bad_alloc();
    }
}

void TContextoXML::Analisar()
{
    // The text is UTF-8 already, whatever it declares.
    xmlSwitchEncoding(FContexto.get(), XML_CHAR_ENCODING_UTF8);
    xmlParseDocument(FContexto.get());
    if (FFalha)
        std::rethrow_exception(FFalha);
    if (!FInterrompido && !FContexto->wellFormed)
        throw ErroDeXML(QStringLiteral("O documento não é bem formado."));
    if (!FInterrompido && FContexto->validate && !FContexto->valid)
        throw ErroDeXML(QStringLiteral("O documento não é válido pela sua DTD."));
}

void TContextoXML::Falhar(std::exception_ptr Falha) noexcept
{
    if (!FFalha)
        FFalha = std::move(Falha);
}

void TContextoXML::AoErrar(void *Dados, xmlErrorPtr Erro)
{
    // Names are taken as they are written, name spaces mean nothing here: of their rules only those are kept
    // whose breach makes the parser drop a declaration.
    const bool SoEspacoDeNomes = Erro->domain == XML_FROM_NAMESPACE && Erro->code != XML_NS_ERR_XML_NAMESPACE;
    if (!Dados || Erro->level < XML_ERR_ERROR || SoEspacoDeNomes)
        return;
    De(Dados).Anotar(Erro->message, Erro->line, Erro->int2);
}

// References between elements are checked when all has been read; that check knows this older way only.
void TContextoXML::AoInvalidar(void *Dados, const char *Formato, ...)
{
    std::array<char, 1024> Texto{};
    va_list Argumentos;
    va_start(Argumentos, Formato);
    std::vsnprintf(Texto.data(), Texto.size(), Formato, Argumentos);
    va_end(Argumentos);
    De(Dados).Anotar(Texto.data(), 0, 0);
}

void TContextoXML::Anotar(const char *Motivo, int Linha, int Coluna) noexcept
{
    if (FFalha || FInterrompido)
        return;
    try {
        Falhar(std::make_exception_ptr(ErroDeXML(QString::fromUtf8(Motivo).trimmed(), Linha, Coluna)));
    } catch (...) {
        Falhar(std::current_exception());
    }
}

} // namespace Sibrel
