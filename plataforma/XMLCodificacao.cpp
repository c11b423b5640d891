// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/XMLCodificacao.h"

#include "plataforma/CodePage.h"
#include "plataforma/XMLDocument.h"
#include "plataforma/XMLErro.h"

#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>
#include <optional>
#include <string_view>

namespace Sibrel
{

namespace
{

using namespace std::string_view_literals;

constexpr std::string_view Brancos = " \t\r\n"sv;

std::string_view Visao(QByteArrayView Bytes) noexcept
{
    return {Bytes.data(), static_cast<std::size_t>(Bytes.size())};
}

void ExigirTamanho(qsizetype Bytes)
{
    if (Bytes > TLimitesXML::Entrada)
        throw ErroDeXML(QStringLiteral("O documento passa de %1 bytes.").arg(TLimitesXML::Entrada));
}

bool UmDe(QByteArrayView Nome, std::initializer_list<const char *> Nomes) noexcept
{
    return std::any_of(Nomes.begin(), Nomes.end(),
                       [Nome](const char *N) { return Nome.compare(N, Qt::CaseInsensitive) == 0; });
}

QByteArray Utf8De(QStringDecoder &Decodificador, QByteArrayView Bytes)
{
    const QString Texto = Decodificador(Bytes);
    if (Decodificador.hasError())
        throw ErroDeXML(
            QStringLiteral("Os bytes não são texto em <%1>.").arg(QLatin1String(Decodificador.name())));
    return Utf8DeTexto(Texto);
}

QByteArray Utf8De(QStringConverter::Encoding Codificacao, QByteArrayView Bytes)
{
    const bool DeQuatro = Codificacao == QStringConverter::Utf32LE ||
                          Codificacao == QStringConverter::Utf32BE || Codificacao == QStringConverter::Utf32;
    // The decoder waits for the rest of a last character instead of calling it an error.
    if (Codificacao != QStringConverter::Utf8 && Bytes.size() % (DeQuatro ? 4 : 2) != 0)
        throw ErroDeXML(QStringLiteral("O documento termina no meio de um caracter."));
    QStringDecoder Decodificador(Codificacao);
    return Utf8De(Decodificador, Bytes);
}

// Without a mark, the first characters of "<?xml" tell a wide encoding apart.
std::optional<QStringConverter::Encoding> Larga(QByteArrayView Bytes) noexcept
{
    const std::string_view V = Visao(Bytes.first(std::min<qsizetype>(Bytes.size(), 4)));
    if (V == "<\0?\0"sv)
        return QStringConverter::Utf16LE;
    if (V == "\0<\0?"sv)
        return QStringConverter::Utf16BE;
    if (V == "<\0\0\0"sv)
        return QStringConverter::Utf32LE;
    if (V == "\0\0\0<"sv)
        return QStringConverter::Utf32BE;
    return std::nullopt;
}

// Encodings that this library does not know itself: those that the installed Qt knows.
QByteArray Utf8PeloNome(QByteArrayView Nome, QByteArrayView Bytes)
{
    const QByteArray Declarada = Nome.toByteArray();
    QStringDecoder Decodificador(Declarada.constData());
    if (!Decodificador.isValid())
        throw ErroDeXML(
            QStringLiteral("A codificação <%1> não é conhecida.").arg(QString::fromLatin1(Declarada)));
    return Utf8De(Decodificador, Bytes);
}

} // namespace

QByteArray Utf8DeTexto(QStringView Texto)
{
    ExigirTamanho(Texto.size());
    if (Texto.startsWith(QChar::ByteOrderMark))
        Texto = Texto.sliced(1);
    QStringEncoder Codificador(QStringConverter::Utf8);
    QByteArray Bytes = Codificador(Texto);
    // Half of a surrogate pair is no character: it must not become a question mark in silence, nor nothing,
    // as the last one would, whose other half the encoder waits for.
    if (Codificador.hasError() || (!Texto.isEmpty() && Texto.back().isHighSurrogate()))
        throw ErroDeXML(QStringLiteral("O texto tem metade de um caracter."));
    return Bytes;
}

QString TextoDeUtf8(QByteArrayView Bytes)
{
    if (!Bytes.startsWith("\xEF\xBB\xBF"))
        return QString::fromUtf8(Bytes);
    QStringDecoder Decodificador(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
    return Decodificador(Bytes);
}

QByteArray Utf8SemMarca(QByteArrayView Bytes)
{
    ExigirTamanho(Bytes.size());
    return Bytes.sliced(Bytes.startsWith("\xEF\xBB\xBF") ? 3 : 0).toByteArray();
}

QByteArrayView CodificacaoDeclarada(QByteArrayView Bytes) noexcept
{
    // A declaration is ASCII and short; what is longer than this is none.
    const std::string_view Inicio = Visao(Bytes.first(std::min<qsizetype>(Bytes.size(), 1024)));
    if (!Inicio.starts_with("<?xml"sv) || Inicio.size() < 6 || Brancos.find(Inicio[5]) == Brancos.npos)
        return {};
    const std::string_view Declaracao = Inicio.substr(0, Inicio.find("?>"sv));
    std::size_t Posicao = Declaracao.find("encoding"sv);
    if (Posicao == Declaracao.npos)
        return {};
    Posicao = Declaracao.find_first_not_of(Brancos, Posicao + 8);
    if (Posicao == Declaracao.npos || Declaracao[Posicao] != '=')
        return {};
    Posicao = Declaracao.find_first_not_of(Brancos, Posicao + 1);
    if (Posicao == Declaracao.npos || (Declaracao[Posicao] != '"' && Declaracao[Posicao] != '\''))
        return {};
    const std::size_t Fim = Declaracao.find(Declaracao[Posicao], Posicao + 1);
    if (Fim == Declaracao.npos)
        return {};
    return Bytes.sliced(static_cast<qsizetype>(Posicao) + 1,
                        static_cast<qsizetype>(Fim) - static_cast<qsizetype>(Posicao) - 1);
}

QByteArray Utf8DeBytes(QByteArrayView Bytes)
{
    ExigirTamanho(Bytes.size());
    if (Bytes.startsWith("\xEF\xBB\xBF"))
        return Utf8SemMarca(Bytes);
    if (const auto Marca = QStringConverter::encodingForData(Bytes))
        return Utf8De(*Marca, Bytes);
    if (const auto Codificacao = Larga(Bytes))
        return Utf8De(*Codificacao, Bytes);
    const QByteArrayView Nome = CodificacaoDeclarada(Bytes);
    if (UmDe(Nome, {"UTF-8", "UTF8"}))
        return Utf8SemMarca(Bytes);
    // The bytes of these are those of code page 1252, whatever the name says; so are undeclared ones.
    if (Nome.isEmpty() ||
        UmDe(Nome, {"ISO-8859-1", "ISO8859-1", "ISO_8859-1", "ISO-LATIN-1", "LATIN1", "LATIN-1", "L1",
                    "WINDOWS-1252", "CP1252", "CP-1252", "1252", "US-ASCII", "ASCII"}))
        return Utf8De1252(Bytes);
    if (Nome.first(std::min<qsizetype>(Nome.size(), 4)).compare("UTF-", Qt::CaseInsensitive) == 0 ||
        Nome.first(std::min<qsizetype>(Nome.size(), 4)).compare("UCS-", Qt::CaseInsensitive) == 0 ||
        Nome.compare("ISO-10646-UCS-2", Qt::CaseInsensitive) == 0 ||
        Nome.compare("ISO-10646-UCS-4", Qt::CaseInsensitive) == 0)
        throw ErroDeXML(
            QStringLiteral("O documento declara <%1>, mas os seus bytes não são desta codificação.")
                .arg(QString::fromLatin1(Nome)));
    return Utf8PeloNome(Nome, Bytes);
}

} // namespace Sibrel
