// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/XMLConstrutor.h"

#include "plataforma/XMLCodificacao.h"
#include "plataforma/XMLErro.h"

#include <cstring>

namespace Sibrel
{

namespace
{

// The names of nodes that are no elements have fixed numbers, those of their kinds.
constexpr std::array<std::string_view, 4> NomesFixos = {"", "#text", "#cdata-section", "#comment"};

} // namespace

TConstrutorXML::TConstrutorXML(std::size_t BytesDoDocumento)
    : FDocumento(new TXMLDocument)
{
    FCurtos.fill(TXMLDocument::Nenhum);
    constexpr std::size_t NomesDeCostume = 32;
    FNumeros.reserve(NomesDeCostume);
    FDocumento->FNomes.reserve(NomesDeCostume);
    for (const std::string_view Fixo : NomesFixos)
        Nome(Fixo);
    // A small document is stored without growing; a large one grows a few times.
    const std::size_t Previsto = std::min<std::size_t>(BytesDoDocumento, 1U << 20U);
    FDocumento->FNos.reserve(Previsto / 24 + 1);
    FDocumento->FAtributos.reserve(Previsto / 24 + 1);
    FDocumento->FTextos.reserve(Previsto / 2 + 1);
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

TXMLDocument::TNo &TConstrutorXML::Novo(TTipoDeNoXML Tipo, std::uint32_t Nome, int Linha)
{
    auto &Nos = FDocumento->FNos;
    const auto Indice = static_cast<std::uint32_t>(Nos.size());
    if (Indice == TXMLDocument::Nenhum)
        throw ErroDeXML(QStringLiteral("O documento tem nós demais."), Linha);
    std::uint32_t Pai = TXMLDocument::Nenhum;
    if (!FAbertos.empty()) {
        TAberto &Dentro = FAbertos.back();
        Pai = Dentro.Indice;
        ++Nos[Pai].Filhos;
        if (Dentro.UltimoFilho != TXMLDocument::Nenhum)
            Nos[Dentro.UltimoFilho].Proximo = Indice;
        Dentro.UltimoFilho = Indice;
    }
    return Nos.push_back({.Tipo = static_cast<std::uint32_t>(Tipo) & 7U,
                          .Nome = Nome & 0x1FFFFFFFU,
                          .Pai = Pai,
                          .Proximo = TXMLDocument::Nenhum,
                          .Filhos = 0,
                          .Inicio = 0,
                          .Tamanho = 0,
                          .Linha = static_cast<std::uint32_t>(Linha)});
}

std::uint32_t TConstrutorXML::Guardar(std::string_view Texto, const char *Onde)
{
    auto &Textos = FDocumento->FTextos;
    if (Texto.size() > static_cast<std::size_t>(TLimitesXML::Texto))
        throw ErroDeXML(
            QStringLiteral("%1 passa de %2 bytes.").arg(QString::fromUtf8(Onde)).arg(TLimitesXML::Texto));
    const std::size_t Inicio = Textos.size();
    if (Inicio + Texto.size() >= TXMLDocument::Nenhum)
        throw ErroDeXML(QStringLiteral("O documento tem texto demais."));
    Textos.append(Texto.data(), Texto.size());
    return static_cast<std::uint32_t>(Inicio);
}

void TConstrutorXML::Abrir(std::uint32_t Nome, int Linha)
{
    EncerrarTexto();
    if (FAbertos.size() >= static_cast<std::size_t>(TLimitesXML::Profundidade))
        throw ErroDeXML(QStringLiteral("O documento tem mais de %1 elementos um dentro do outro.")
                            .arg(TLimitesXML::Profundidade),
                        Linha);
    const auto Indice = static_cast<std::uint32_t>(FDocumento->FNos.size());
    Novo(TTipoDeNoXML::Elemento, Nome, Linha).Inicio =
        static_cast<std::uint32_t>(FDocumento->FAtributos.size());
    FAbertos.push_back({Indice, TXMLDocument::Nenhum});
}

void TConstrutorXML::Atributo(std::uint32_t Nome, std::string_view Texto)
{
    auto &No = FDocumento->FNos.back();
    if (No.Tamanho >= static_cast<std::uint32_t>(TLimitesXML::Atributos))
        throw ErroDeXML(QStringLiteral("Um elemento tem mais de %1 atributos.").arg(TLimitesXML::Atributos),
                        static_cast<int>(No.Linha));
    FDocumento->FAtributos.push_back({.Nome = Nome,
                                      .Inicio = Guardar(Texto, "Um atributo"),
                                      .Tamanho = static_cast<std::uint32_t>(Texto.size())});
    ++No.Tamanho;
}

void TConstrutorXML::Fechar()
{
    EncerrarTexto();
    FAbertos.pop_back();
}

void TConstrutorXML::Texto(std::string_view Parte, int Linha)
{
    if (Parte.empty() || FAbertos.empty())
        return;
    if (!FTextoAberto) {
        const std::uint32_t Inicio = Guardar({}, "");
        Novo(TTipoDeNoXML::Texto, static_cast<std::uint32_t>(TTipoDeNoXML::Texto), Linha).Inicio = Inicio;
        FTextoAberto = true;
    }
    Guardar(Parte, "Um texto");
    auto &No = FDocumento->FNos.back();
    No.Tamanho += static_cast<std::uint32_t>(Parte.size());
    if (No.Tamanho > static_cast<std::uint32_t>(TLimitesXML::Texto))
        throw ErroDeXML(QStringLiteral("Um texto passa de %1 bytes.").arg(TLimitesXML::Texto),
                        static_cast<int>(No.Linha));
}

// A short text that was just stored before is shared instead.
void TConstrutorXML::EncerrarTexto()
{
    if (!FTextoAberto)
        return;
    FTextoAberto = false;
    auto &No = FDocumento->FNos.back();
    if (No.Tamanho >= FCurtos.size())
        return;
    std::uint32_t &Anterior = FCurtos[No.Tamanho];
    const auto &Textos = FDocumento->FTextos;
    if (Anterior != TXMLDocument::Nenhum &&
        std::memcmp(Textos.data() + Anterior, Textos.data() + No.Inicio, No.Tamanho) == 0) {
        FDocumento->FTextos.truncate(No.Inicio);
        No.Inicio = Anterior;
    } else {
        Anterior = No.Inicio;
    }
}

void TConstrutorXML::Folha(TTipoDeNoXML Tipo, std::string_view Conteudo, int Linha, std::string_view Alvo)
{
    if (FAbertos.empty())
        return; // outside the document element
    EncerrarTexto();
    const std::uint32_t Numero =
        Tipo == TTipoDeNoXML::Instrucao ? Nome(Alvo) : static_cast<std::uint32_t>(Tipo);
    const std::uint32_t Inicio = Guardar(Conteudo, "Um comentário ou trecho");
    auto &No = Novo(Tipo, Numero, Linha);
    No.Inicio = Inicio;
    No.Tamanho = static_cast<std::uint32_t>(Conteudo.size());
}

TXMLDocument::TReferencia TConstrutorXML::Terminar()
{
    if (FDocumento->FNos.empty() || !FAbertos.empty())
        throw ErroDeXML(QStringLiteral("O documento não tem elemento."));
    FDocumento->FNos.shrink_to_fit();
    FDocumento->FAtributos.shrink_to_fit();
    FDocumento->FNomes.shrink_to_fit();
    FDocumento->FTextos.shrink_to_fit();
    return std::exchange(FDocumento, nullptr);
}

} // namespace Sibrel
