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

// Every node is met once, in document order, and knows its parent. `Vez` is the node whose turn it is; how
// many there are is returned.
std::uint32_t Conferir(TCursorXML No, TCursorXML &Vez)
{
    Exigir(No == Vez);
    Vez = Vez.Seguinte();
    Exigir(!Vez || Vez.Ordem() > No.Ordem());
    Exigir(!No.NodeName().isNull() && No.Linha() >= 0);
    for (int A = 0; A < No.AttributeCount(); ++A)
        Exigir(No.HasAttribute(No.AttributeName(A)) && No.AttributeText(A).toUtf8() == No.AttributeUtf8(A));
    Exigir(No.Elemento() || (No.Text().toUtf8() == No.TextUtf8() && No.ChildCount() == 0));
    int Filhos = 0;
    std::uint32_t Nos = 1;
    for (const TCursorXML Filho : No.Filhos()) {
        Exigir(Filho.Parent() == No);
        Nos += Conferir(Filho, Vez);
        ++Filhos;
    }
    Exigir(Filhos == No.ChildCount());
    return Nos;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *Dados, std::size_t Tamanho)
{
    const QByteArrayView Bytes(Dados, static_cast<qsizetype>(Tamanho));
    try {
        const auto Documento = TXMLDocument::DeBytes(Bytes);
        TCursorXML Vez = Documento->Raiz();
        Exigir(Conferir(Documento->Raiz(), Vez) == Documento->Nos() && !Vez);
    } catch (const EDOMParseError &E) {
        Exigir(!E.Detalhe.isEmpty());
    }
    return 0;
}
