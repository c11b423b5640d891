// SPDX-License-Identifier: LGPL-2.1-or-later
// Any bytes as an XML document: they are read or refused, and what was read holds together.
#include "plataforma/Exception.h"
#include "plataforma/XMLDocument.h"

#include <cstdlib>

using namespace Sibrel;

namespace
{

void Exigir(bool Condicao)
{
    if (!Condicao)
        std::abort();
}

// Every node is met once, in document order, and knows its parent.
std::uint32_t Conferir(TCursorXML No, std::uint32_t Ordem)
{
    Exigir(No.Ordem() == Ordem);
    Exigir(!No.NodeName().isNull() && No.Linha() >= 0);
    for (int A = 0; A < No.AttributeCount(); ++A)
        Exigir(No.HasAttribute(No.AttributeName(A)) && No.AttributeText(A).toUtf8() == No.AttributeUtf8(A));
    Exigir(No.Elemento() || (No.Text().toUtf8() == No.TextUtf8() && No.ChildCount() == 0));
    int Filhos = 0;
    for (const TCursorXML Filho : No.Filhos()) {
        Exigir(Filho.Parent() == No);
        Ordem = Conferir(Filho, Ordem + 1);
        ++Filhos;
    }
    Exigir(Filhos == No.ChildCount());
    return Ordem;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *Dados, std::size_t Tamanho)
{
    const QByteArrayView Bytes(Dados, static_cast<qsizetype>(Tamanho));
    try {
        const auto Documento = TXMLDocument::DeBytes(Bytes);
        Exigir(Conferir(Documento->Raiz(), 0) + 1 == Documento->Nos());
    } catch (const EDOMParseError &E) {
        Exigir(!E.Detalhe.isEmpty());
    }
    return 0;
}
