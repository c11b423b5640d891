// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/XMLContexto.h"

#include "plataforma/XMLErro.h"

#include <libxml/parserInternals.h>

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

TContextoXML::TContextoXML(QByteArrayView Utf8, int Opcoes, const QByteArray &Endereco)
{
    // Safe to call again and from several threads; the parser's tables are made once.
    static const bool Iniciado = (xmlInitParser(), true);
    Q_UNUSED(Iniciado)
    if (Utf8.isEmpty())
        throw ErroDeXML(QStringLiteral("O documento está vazio."));
    if (Utf8.size() > std::numeric_limits<int>::max() - 1)
        throw ErroDeXML(QStringLiteral("O documento é grande demais."));
    FContexto.reset(xmlCreateMemoryParserCtxt(Utf8.data(), static_cast<int>(Utf8.size())));
    if (!FContexto)
        throw std::bad_alloc();
    FContexto->_private = this;
    xmlCtxtUseOptions(FContexto.get(), Opcoes | XML_PARSE_NONET | XML_PARSE_IGNORE_ENC | XML_PARSE_BIG_LINES);
    if (!Endereco.isEmpty())
        FContexto->input->filename =
            reinterpret_cast<char *>(xmlStrdup(reinterpret_cast<const xmlChar *>(Endereco.constData())));
    FContexto->sax->serror = &TContextoXML::AoErrar;
}

TContextoXML::~TContextoXML() = default;

void TContextoXML::Analisar()
{
    // The text is UTF-8 already, whatever it declares.
    xmlSwitchEncoding(FContexto.get(), XML_CHAR_ENCODING_UTF8);
    xmlParseDocument(FContexto.get());
    if (FFalha)
        std::rethrow_exception(FFalha);
    if (!FInterrompido && !FContexto->wellFormed)
        throw ErroDeXML(QStringLiteral("O documento não é bem formado."));
}

void TContextoXML::Falhar(std::exception_ptr Falha) noexcept
{
    if (!FFalha)
        FFalha = std::move(Falha);
}

void TContextoXML::AoErrar(void *Dados, xmlErrorPtr Erro)
{
    // An undeclared prefix is tolerated: names are taken as they are written, name spaces mean nothing here.
    if (!Dados || Erro->level < XML_ERR_ERROR || Erro->code == XML_NS_ERR_UNDEFINED_NAMESPACE)
        return;
    TContextoXML &Este = De(Dados);
    if (Este.FFalha || Este.FInterrompido)
        return;
    try {
        const QString Motivo = QString::fromUtf8(Erro->message).trimmed();
        Este.Falhar(std::make_exception_ptr(ErroDeXML(Motivo, Erro->line, Erro->int2)));
    } catch (...) {
        Este.Falhar(std::current_exception());
    }
}

} // namespace Sibrel
