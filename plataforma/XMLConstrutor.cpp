// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/XMLConstrutor.h"

#include "plataforma/RegistroXML.h"
#include "plataforma/XMLCodificacao.h"
#include "plataforma/XMLErro.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace Sibrel
{

namespace
{

// The names of nodes that are no elements have fixed numbers, those of their kinds.
constexpr std::array<std::string_view, 4> NomesFixos = {"", "#text", "#cdata-section", "#comment"};

constexpr std::size_t MaiorNumero = 10; // bytes of a compact number

void ExigirTamanho(std::size_t Bytes, const char *Onde, int Linha)
{
    if (Bytes > static_cast<std::size_t>(TLimitesXML::Texto))
        throw ErroDeXML(
            QStringLiteral("%1 passa de %2 bytes.").arg(QString::fromUtf8(Onde)).arg(TLimitesXML::Texto),
            Linha);
}

unsigned char *EscreverTexto(unsigned char *Onde, std::string_view Texto) noexcept
{
    Onde = EscreverNumero(Onde, Texto.size());
    return std::copy(Texto.begin(), Texto.end(), Onde);
}

} // namespace

TConstrutorXML::TConstrutorXML(std::size_t BytesDoDocumento)
    : FDocumento(new TXMLDocument)
{
    constexpr std::size_t NomesDeCostume = 32;
    FNumeros.reserve(NomesDeCostume);
    FDocumento->FNomes.reserve(NomesDeCostume);
    for (const std::string_view Fixo : NomesFixos)
        Nome(Fixo);
    // Room for all at once: what is never written costs nothing, and what is left over goes back at the end.
    FDocumento->FRegistros.reserve(BytesDoDocumento + 1);
}

std::uint32_t TConstrutorXML::Nome(std::string_view Texto)
{
    if (const auto Achado = FNumeros.find(Texto); Achado != FNumeros.end())
        return Achado->second;
    const auto Numero = static_cast<std::uint32_t>(FDocumento->FNomes.size());
    FDocumento->FNomes.push_back(TextoDeUtf8({Texto.data(), static_cast<qsizetype>(Texto.size())}));
    FNumeros.emplace(Texto, Numero);
    return Numero;
}

unsigned char *TConstrutorXML::Espaco(std::size_t Bytes)
{
    constexpr std::size_t Limite = std::numeric_limits<std::uint32_t>::max();
    if (FDocumento->FRegistros.size() + Bytes > Limite)
        throw ErroDeXML(QStringLiteral("O documento é grande demais."));
    return FDocumento->FRegistros.room(Bytes);
}

void TConstrutorXML::Encerrar(const unsigned char *Fim) noexcept
{
    FDocumento->FRegistros.take(Fim);
}

std::uint32_t TConstrutorXML::Lugar() const noexcept
{
    return static_cast<std::uint32_t>(FDocumento->FRegistros.size());
}

void TConstrutorXML::Marcar(std::uint32_t Registro, unsigned Marca) noexcept
{
    unsigned char &Cabeca = FDocumento->FRegistros[Registro];
    Cabeca = static_cast<unsigned char>(Cabeca | Marca);
}

// Writes what every record begins with; the caller goes on from there, by `MaisBytes` at most, and ends it.
unsigned char *TConstrutorXML::Novo(TTipoDeNoXML Tipo, std::uint32_t Nome, int Linha, std::size_t MaisBytes)
{
    unsigned char *Aqui = Espaco(TRegistroXML::MaiorCabecalho + MaisBytes);
    TAberto Pai{Lugar(), Lugar(), 0};
    if (!FAbertos.empty()) {
        FAbertos.back().UltimoFilho = Lugar();
        Pai = FAbertos.back();
    }
    *Aqui++ = static_cast<unsigned char>(Tipo);
    if (Tipo == TTipoDeNoXML::Elemento)
        Aqui += sizeof(std::uint32_t); // told when it is closed
    if (Tipo == TTipoDeNoXML::Elemento || Tipo == TTipoDeNoXML::Instrucao)
        Aqui = EscreverNumero(Aqui, Nome);
    Aqui = EscreverNumero(Aqui, Lugar() - Pai.Lugar);
    Aqui = EscreverNumero(Aqui, TRegistroXML::Dobrado(std::int64_t{Linha} - Pai.Linha));
    ++FDocumento->FQuantos;
    return Aqui;
}

void TConstrutorXML::Abrir(std::uint32_t Nome, int Linha)
{
    EncerrarTexto();
    if (FAbertos.size() >= static_cast<std::size_t>(TLimitesXML::Profundidade))
        throw ErroDeXML(QStringLiteral("O documento tem mais de %1 elementos um dentro do outro.")
                            .arg(TLimitesXML::Profundidade),
                        Linha);
    const TAberto Este{Lugar(), Lugar(), Linha};
    Encerrar(EscreverNumero(Novo(TTipoDeNoXML::Elemento, Nome, Linha, 1), 0));
    FAbertos.push_back(Este);
    FAtributos = 0;
}

// In the place of the zero that ends the attributes, which goes behind it.
void TConstrutorXML::Atributo(std::uint32_t Nome, std::string_view Texto)
{
    if (++FAtributos > TLimitesXML::Atributos)
        throw ErroDeXML(QStringLiteral("Um elemento tem mais de %1 atributos.").arg(TLimitesXML::Atributos),
                        FAbertos.back().Linha);
    ExigirTamanho(Texto.size(), "Um atributo", FAbertos.back().Linha);
    unsigned char *Aqui = Espaco(2 * MaiorNumero + Texto.size()) - 1;
    Aqui = EscreverTexto(EscreverNumero(Aqui, Nome), Texto);
    Encerrar(EscreverNumero(Aqui, 0));
}

void TConstrutorXML::Fechar()
{
    EncerrarTexto();
    const TAberto &Este = FAbertos.back();
    const std::uint32_t Tamanho = Lugar() - Este.Lugar;
    std::memcpy(&FDocumento->FRegistros[Este.Lugar + TRegistroXML::LugarDoTamanho], &Tamanho, sizeof Tamanho);
    if (Este.UltimoFilho != Este.Lugar) {
        Marcar(Este.Lugar, TRegistroXML::ComFilhos);
        Marcar(Este.UltimoFilho, TRegistroXML::UltimoFilho);
    }
    if (FAbertos.size() == 1)
        Marcar(Este.Lugar, TRegistroXML::UltimoFilho);
    FAbertos.pop_back();
}

void TConstrutorXML::Texto(std::string_view Parte, int Linha)
{
    if (Parte.empty() || FAbertos.empty())
        return;
    if (FTexto.empty())
        FLinhaDoTexto = Linha;
    ExigirTamanho(FTexto.size() + Parte.size(), "Um texto", FLinhaDoTexto);
    FTexto.append(Parte);
}

void TConstrutorXML::EncerrarTexto()
{
    if (FTexto.empty())
        return;
    Encerrar(EscreverTexto(Novo(TTipoDeNoXML::Texto, 0, FLinhaDoTexto, MaiorNumero + FTexto.size()), FTexto));
    FTexto.clear(); // keeps its memory
}

void TConstrutorXML::Folha(TTipoDeNoXML Tipo, std::string_view Conteudo, int Linha, std::string_view Alvo)
{
    if (FAbertos.empty())
        return; // outside the document element
    EncerrarTexto();
    ExigirTamanho(Conteudo.size(), "Um comentário ou trecho", Linha);
    const std::uint32_t Numero = Tipo == TTipoDeNoXML::Instrucao ? Nome(Alvo) : 0;
    Encerrar(EscreverTexto(Novo(Tipo, Numero, Linha, MaiorNumero + Conteudo.size()), Conteudo));
}

TXMLDocument::TReferencia TConstrutorXML::Terminar()
{
    if (FDocumento->FRegistros.empty() || !FAbertos.empty())
        throw ErroDeXML(QStringLiteral("O documento não tem elemento."));
    FDocumento->FRegistros.shrink_to_fit();
    FDocumento->FNomes.shrink_to_fit();
    return std::exchange(FDocumento, nullptr);
}

} // namespace Sibrel
