// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/XMLDocument.h"

#include "plataforma/Arquivo.h"
#include "plataforma/Exception.h"
#include "plataforma/RegistroXML.h"
#include "plataforma/XMLAnalise.h"
#include "plataforma/XMLCodificacao.h"
#include "plataforma/XMLEntidades.h"

#include <QFileInfo>

namespace Sibrel
{

namespace
{

// The attribute for which `Serve` is true, the first one.
template <class F>
std::optional<TRegistroXML::TAtributo> Achar(const TRegistroXML &Elemento, F Serve) noexcept
{
    const unsigned char *Aqui = Elemento.Conteudo();
    for (TRegistroXML::TAtributo A; TRegistroXML::ProximoAtributo(Aqui, A);)
        if (Serve(A))
            return A;
    return std::nullopt;
}

std::optional<TRegistroXML::TAtributo> Atributo(const TRegistroXML &Elemento, int Indice) noexcept
{
    return Achar(Elemento, [&Indice](const auto &) { return Indice-- == 0; });
}

const TRegistroXML::TAtributo &Verificado(const std::optional<TRegistroXML::TAtributo> &A, int Indice)
{
    if (!A)
        throw EListError(QStringLiteral("Índice fora dos limites (%1)").arg(Indice));
    return *A;
}

} // namespace

TRegistroXML TCursorXML::Registro() const noexcept
{
    return TRegistroXML(FDocumento->FRegistros.data() + FLugar);
}

TCursorXML TCursorXML::Em(const unsigned char *Onde) const noexcept
{
    return {FDocumento, static_cast<std::uint32_t>(Onde - FDocumento->FRegistros.data())};
}

TTipoDeNoXML TCursorXML::Tipo() const noexcept
{
    return FDocumento ? Registro().Tipo() : TTipoDeNoXML::Elemento;
}

std::uint32_t TCursorXML::NumeroDoNome() const noexcept
{
    return FDocumento ? Registro().Nome() : 0;
}

QString TCursorXML::NodeName() const
{
    return FDocumento ? FDocumento->FNomes[NumeroDoNome()] : QString();
}

bool TCursorXML::NomeE(QStringView Nome) const noexcept
{
    return FDocumento && FDocumento->FNomes[NumeroDoNome()] == Nome;
}

int TCursorXML::Linha() const noexcept
{
    std::int64_t Linha = 0;
    for (TCursorXML No = *this; No; No = No.Parent())
        Linha += No.Registro().LinhasDesdeOPai();
    return static_cast<int>(Linha);
}

int TCursorXML::ChildCount() const noexcept
{
    int Quantos = 0;
    for (TCursorXML Filho = FirstChild(); Filho; Filho = Filho.NextSibling())
        ++Quantos;
    return Quantos;
}

TCursorXML TCursorXML::FirstChild() const noexcept
{
    if (!FDocumento || !Registro().Tem(TRegistroXML::ComFilhos))
        return {};
    return Em(Registro().DepoisDoConteudo());
}

TCursorXML TCursorXML::NextSibling() const noexcept
{
    if (!FDocumento || Registro().Tem(TRegistroXML::UltimoFilho))
        return {};
    return Em(Registro().Fim());
}

TCursorXML TCursorXML::Parent() const noexcept
{
    const std::uint32_t Distancia = FDocumento ? Registro().AtePai() : 0;
    return Distancia > 0 ? TCursorXML(FDocumento, FLugar - Distancia) : TCursorXML();
}

TCursorXML TCursorXML::Seguinte() const noexcept
{
    if (!FDocumento)
        return {};
    const TCursorXML Depois = Em(Registro().DepoisDoConteudo());
    return Depois.FLugar < FDocumento->FRegistros.size() ? Depois : TCursorXML();
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
    int Quantos = 0;
    if (Elemento())
        Achar(Registro(), [&Quantos](const auto &) {
            ++Quantos;
            return false;
        });
    return Quantos;
}

QString TCursorXML::AttributeName(int Indice) const
{
    const std::uint32_t Nome =
        Verificado(Elemento() ? Atributo(Registro(), Indice) : std::nullopt, Indice).Nome;
    return FDocumento->FNomes[Nome];
}

QString TCursorXML::AttributeText(int Indice) const
{
    return TextoDeUtf8(AttributeUtf8(Indice));
}

QByteArrayView TCursorXML::AttributeUtf8(int Indice) const
{
    return Verificado(Elemento() ? Atributo(Registro(), Indice) : std::nullopt, Indice).Texto;
}

bool TCursorXML::HasAttribute(QStringView Nome) const noexcept
{
    return AttributeUtf8(Nome).has_value();
}

std::optional<QByteArrayView> TCursorXML::AttributeUtf8(QStringView Nome) const noexcept
{
    if (!Elemento())
        return std::nullopt;
    const auto A = Achar(Registro(), [&](const auto &Este) { return FDocumento->FNomes[Este.Nome] == Nome; });
    return A ? std::optional(A->Texto) : std::nullopt;
}

std::optional<QString> TCursorXML::Attribute(QStringView Nome) const
{
    const auto Bytes = AttributeUtf8(Nome);
    return Bytes ? std::optional(TextoDeUtf8(*Bytes)) : std::nullopt;
}

QByteArrayView TCursorXML::TextUtf8() const noexcept
{
    return FDocumento && !Elemento() ? Registro().Texto() : QByteArrayView();
}

QString TCursorXML::Text() const
{
    if (!Elemento())
        return TextoDeUtf8(TextUtf8());
    QByteArray Bytes;
    const TCursorXML Depois = Em(Registro().Fim());
    for (TCursorXML No = Seguinte(); No && No.FLugar < Depois.FLugar; No = No.Seguinte())
        if (No.Tipo() == TTipoDeNoXML::Texto || No.Tipo() == TTipoDeNoXML::CDATA)
            Bytes += No.TextUtf8();
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
    std::size_t Bytes = sizeof *this + FRegistros.capacity() + FNomes.capacity() * sizeof(QString);
    for (const QString &Nome : FNomes)
        Bytes += static_cast<std::size_t>(Nome.capacity()) * sizeof(QChar);
    return Bytes;
}

} // namespace Sibrel
