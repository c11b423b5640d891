// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/XMLDocument.h"

#include "plataforma/Arquivo.h"
#include "plataforma/Exception.h"
#include "plataforma/XMLAnalise.h"
#include "plataforma/XMLCodificacao.h"
#include "plataforma/XMLEntidades.h"

#include <QFileInfo>

namespace Sibrel
{

TCursorXML TCursorXML::Em(std::uint32_t Indice) const noexcept
{
    return Indice != TXMLDocument::Nenhum ? TCursorXML(FDocumento, Indice) : TCursorXML();
}

TTipoDeNoXML TCursorXML::Tipo() const noexcept
{
    return FDocumento ? static_cast<TTipoDeNoXML>(FDocumento->FNos[FIndice].Tipo) : TTipoDeNoXML::Elemento;
}

QString TCursorXML::NodeName() const
{
    return FDocumento ? FDocumento->FNomes[FDocumento->FNos[FIndice].Nome] : QString();
}

std::uint32_t TCursorXML::NumeroDoNome() const noexcept
{
    return FDocumento ? FDocumento->FNos[FIndice].Nome : 0;
}

bool TCursorXML::NomeE(QStringView Nome) const noexcept
{
    return FDocumento && FDocumento->FNomes[FDocumento->FNos[FIndice].Nome] == Nome;
}

int TCursorXML::Linha() const noexcept
{
    return FDocumento ? static_cast<int>(FDocumento->FNos[FIndice].Linha) : 0;
}

int TCursorXML::ChildCount() const noexcept
{
    return FDocumento ? static_cast<int>(FDocumento->FNos[FIndice].Filhos) : 0;
}

TCursorXML TCursorXML::FirstChild() const noexcept
{
    return ChildCount() > 0 ? TCursorXML(FDocumento, FIndice + 1) : TCursorXML();
}

TCursorXML TCursorXML::NextSibling() const noexcept
{
    return FDocumento ? Em(FDocumento->FNos[FIndice].Proximo) : TCursorXML();
}

TCursorXML TCursorXML::Parent() const noexcept
{
    return FDocumento ? Em(FDocumento->FNos[FIndice].Pai) : TCursorXML();
}

TCursorXML TCursorXML::FindNode(QStringView Nome) const noexcept
{
    for (TCursorXML Filho = FirstChild(); Filho; Filho = Filho.NextSibling())
        if (Filho.Elemento() && Filho.NomeE(Nome))
            return Filho;
    return {};
}

int TCursorXML::AttributeCount() const noexcept
{
    return Elemento() ? static_cast<int>(FDocumento->FNos[FIndice].Tamanho) : 0;
}

std::uint32_t TCursorXML::AtributoVerificado(int Indice) const
{
    if (Indice < 0 || Indice >= AttributeCount())
        throw EListError(QStringLiteral("Índice fora dos limites (%1)").arg(Indice));
    return FDocumento->FNos[FIndice].Inicio + static_cast<std::uint32_t>(Indice);
}

QString TCursorXML::AttributeName(int Indice) const
{
    const std::uint32_t A = AtributoVerificado(Indice);
    return FDocumento->FNomes[FDocumento->FAtributos[A].Nome];
}

QString TCursorXML::AttributeText(int Indice) const
{
    return TextoDeUtf8(AttributeUtf8(Indice));
}

QByteArrayView TCursorXML::AttributeUtf8(int Indice) const
{
    const std::uint32_t Numero = AtributoVerificado(Indice);
    const auto &A = FDocumento->FAtributos[Numero];
    return FDocumento->Trecho(A.Inicio, A.Tamanho);
}

// The number of the attribute in the document's list.
std::uint32_t TCursorXML::Procurar(QStringView Nome) const noexcept
{
    if (!Elemento())
        return TXMLDocument::Nenhum;
    const auto &No = FDocumento->FNos[FIndice];
    for (std::uint32_t A = No.Inicio; A < No.Inicio + No.Tamanho; ++A)
        if (FDocumento->FNomes[FDocumento->FAtributos[A].Nome] == Nome)
            return A;
    return TXMLDocument::Nenhum;
}

bool TCursorXML::HasAttribute(QStringView Nome) const noexcept
{
    return Procurar(Nome) != TXMLDocument::Nenhum;
}

std::optional<QByteArrayView> TCursorXML::AttributeUtf8(QStringView Nome) const noexcept
{
    const std::uint32_t A = Procurar(Nome);
    if (A == TXMLDocument::Nenhum)
        return std::nullopt;
    return FDocumento->Trecho(FDocumento->FAtributos[A].Inicio, FDocumento->FAtributos[A].Tamanho);
}

std::optional<QString> TCursorXML::Attribute(QStringView Nome) const
{
    const auto Bytes = AttributeUtf8(Nome);
    return Bytes ? std::optional(TextoDeUtf8(*Bytes)) : std::nullopt;
}

QByteArrayView TCursorXML::TextUtf8() const noexcept
{
    if (!FDocumento || Elemento())
        return {};
    const auto &No = FDocumento->FNos[FIndice];
    return FDocumento->Trecho(No.Inicio, No.Tamanho);
}

QString TCursorXML::Text() const
{
    if (!Elemento())
        return TextoDeUtf8(TextUtf8());
    // What is below a node stands right behind it, up to the first node that is not below it.
    QByteArray Bytes;
    const auto &Nos = FDocumento->FNos;
    for (std::uint32_t I = FIndice + 1;
         I < Nos.size() && Nos[I].Pai >= FIndice && Nos[I].Pai != TXMLDocument::Nenhum; ++I) {
        const auto Tipo = static_cast<TTipoDeNoXML>(Nos[I].Tipo);
        if (Tipo == TTipoDeNoXML::Texto || Tipo == TTipoDeNoXML::CDATA)
            Bytes += FDocumento->Trecho(Nos[I].Inicio, Nos[I].Tamanho);
    }
    return TextoDeUtf8(Bytes);
}

IXMLNode TCursorXML::Guardar() const
{
    return FDocumento ? IXMLNode(FDocumento->shared_from_this(), *this) : IXMLNode();
}

IXMLNode::IXMLNode(std::shared_ptr<const TXMLDocument> Documento, TCursorXML No) noexcept
    : TCursorXML(No)
    , FDono(std::move(Documento))
{
}

TXMLDocument::TReferencia TXMLDocument::DeTexto(QStringView Texto)
{
    return AnalisarTextoXML(Texto);
}

TXMLDocument::TReferencia TXMLDocument::DeUtf8(QByteArrayView Bytes)
{
    return AnalisarXML(Utf8SemMarca(Bytes), {});
}

TXMLDocument::TReferencia TXMLDocument::DeBytes(QByteArrayView Bytes)
{
    return AnalisarXML(Utf8DeBytes(Bytes), {});
}

TXMLDocument::TReferencia TXMLDocument::DeArquivo(const QString &Nome)
{
    const QByteArray Utf8 = Utf8DeBytes(LerArquivoInteiro(Nome));
    // Only a DTD names other files: the disk is asked for the folder when there may be one.
    const QString Pasta =
        Utf8.contains("<!DOCTYPE") ? QFileInfo(ResolverNomeDeArquivo(Nome)).absolutePath() : QString();
    return AnalisarXML(Utf8, Pasta);
}

void TXMLDocument::AtribuirPastaDeEntidades(const QString &Pasta)
{
    TPastaDeEntidades::Atribuir(Pasta);
}

QString TXMLDocument::PastaDeEntidades()
{
    return TPastaDeEntidades::Atual();
}

IXMLNode TXMLDocument::DocumentElement() const
{
    return {shared_from_this(), Raiz()};
}

std::size_t TXMLDocument::Memoria() const noexcept
{
    std::size_t Bytes = sizeof *this + FNos.capacity() * sizeof(TNo) +
                        FAtributos.capacity() * sizeof(TAtributo) + FTextos.capacity() +
                        FNomes.capacity() * sizeof(QString);
    for (const QString &Nome : FNomes)
        Bytes += static_cast<std::size_t>(Nome.capacity()) * sizeof(QChar);
    return Bytes;
}

} // namespace Sibrel
