// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/ArquivoTexto.h"

#include "plataforma/Arquivo.h"
#include "plataforma/CodePage.h"
#include "plataforma/Exception.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace Sibrel
{

namespace
{

constexpr bool BrancoDeToken(char C) noexcept
{
    return C == ' ' || C == '\t';
}

// A number token may carry its sign, which from_chars takes only when it is a minus.
QByteArrayView SemMais(QByteArrayView Token) noexcept
{
    return Token.size() > 1 && Token.front() == '+' && Token[1] != '-' ? Token.sliced(1) : Token;
}

template <class Numero>
bool Converter(QByteArrayView Token, Numero &Valor) noexcept
{
    const QByteArrayView Digitos = SemMais(Token);
    const char *Fim = Digitos.data() + Digitos.size();
    const auto [Parada, Falha] = std::from_chars(Digitos.data(), Fim, Valor);
    return Falha == std::errc() && Parada == Fim;
}

} // namespace

TArquivoDeLeitura::TArquivoDeLeitura(const QString &Nome)
    : TArquivoDeLeitura(LerArquivoInteiro(Nome), Nome)
{
}

TArquivoDeLeitura::TArquivoDeLeitura(QByteArray Bytes, QString Nome)
    : FBytes(std::move(Bytes))
    , FNome(std::move(Nome))
{
}

qsizetype TArquivoDeLeitura::FimDestaLinha() const noexcept
{
    // Found once a line: a line read in many small steps must not be searched to its end at each.
    if (FPosicao > FFimDaLinha) {
        const qsizetype Lf = FBytes.indexOf('\n', FPosicao);
        const qsizetype Fim = Lf < 0 ? FBytes.size() : Lf;
        FFimDaLinha = Fim > FPosicao && FBytes[Fim - 1] == '\r' ? Fim - 1 : Fim;
    }
    return FFimDaLinha;
}

bool TArquivoDeLeitura::FimDaLinha() const noexcept
{
    return FimDestaLinha() == FPosicao;
}

QByteArrayView TArquivoDeLeitura::RestoDaLinha() const noexcept
{
    return QByteArrayView(FBytes).sliced(FPosicao, FimDestaLinha() - FPosicao);
}

void TArquivoDeLeitura::Avancar(qsizetype Quantos) noexcept
{
    FPosicao = std::min(FPosicao + std::max<qsizetype>(Quantos, 0), FimDestaLinha());
}

void TArquivoDeLeitura::ProximaLinha() noexcept
{
    const qsizetype Lf = FBytes.indexOf('\n', FPosicao);
    FPosicao = Lf < 0 ? FBytes.size() : Lf + 1;
    if (Lf >= 0)
        ++FLinha;
}

QByteArrayView TArquivoDeLeitura::LerToken()
{
    while (!FimDoArquivo()) {
        const char C = FBytes[FPosicao];
        if (C == '\n')
            ++FLinha;
        else if (!BrancoDeToken(C) && C != '\r')
            break;
        ++FPosicao;
    }
    if (FimDoArquivo())
        Erro(QStringLiteral("O arquivo termina onde se esperava um número."));
    const qsizetype Inicio = FPosicao;
    while (!FimDoArquivo() && !BrancoDeToken(FBytes[FPosicao]) && FBytes[FPosicao] != '\r' &&
           FBytes[FPosicao] != '\n')
        ++FPosicao;
    return QByteArrayView(FBytes).sliced(Inicio, FPosicao - Inicio);
}

std::int32_t TArquivoDeLeitura::LerInteiro()
{
    const QByteArrayView Token = LerToken();
    std::int32_t Valor = 0;
    if (!Converter(Token, Valor))
        Erro(QStringLiteral("<%1> não é um número inteiro.").arg(De1252(Token)));
    return Valor;
}

double TArquivoDeLeitura::LerReal()
{
    const QByteArrayView Token = LerToken();
    double Valor = 0;
    if (!Converter(Token, Valor) || !std::isfinite(Valor))
        Erro(QStringLiteral("<%1> não é um número.").arg(De1252(Token)));
    return Valor;
}

QString TArquivoDeLeitura::LerCaracteres(int Quantos)
{
    const QByteArrayView Resto = RestoDaLinha();
    const QByteArrayView Lidos = Resto.first(std::clamp<qsizetype>(Quantos, 0, Resto.size()));
    FPosicao += Lidos.size();
    return De1252(Lidos);
}

QString TArquivoDeLeitura::LerRestoDaLinha()
{
    const QByteArrayView Resto = RestoDaLinha();
    FPosicao += Resto.size();
    return De1252(Resto);
}

QString TArquivoDeLeitura::Onde(int Linha) const
{
    return QStringLiteral("Arquivo <%1>, linha %2.").arg(FNome).arg(Linha);
}

void TArquivoDeLeitura::Erro(const QString &Motivo) const
{
    throw EInOutError(QStringLiteral("Erro de leitura do arquivo de texto!"), Motivo + u' ' + Onde(FLinha));
}

TArquivoDeLeitura::TNivel::TNivel(TArquivoDeLeitura &Arquivo)
    : FArquivo(Arquivo)
{
    if (Arquivo.FProfundidade >= MaiorProfundidade)
        Arquivo.Erro(QStringLiteral("Há mais de %1 registros uns dentro dos outros.").arg(MaiorProfundidade));
    ++Arquivo.FProfundidade;
}

void TArquivoDeGravacao::Escrever(QStringView Texto)
{
    if (Texto.contains(u'\r') || Texto.contains(u'\n'))
        throw EConvertError(QStringLiteral("O texto <%1> tem uma quebra de linha!").arg(Texto));
    FBytes += Exigir1252(Texto);
}

void TArquivoDeGravacao::Gravar(const QString &Nome) const
{
    GravarArquivoInteiro(Nome, FBytes);
}

QString ADireita(std::int64_t Numero, int Largura)
{
    return QString::number(Numero).rightJustified(Largura, u' ');
}

QString AEsquerda(const QString &Texto, int Largura)
{
    return Texto.leftJustified(Largura, u' ');
}

QString SemBrancos(QStringView Texto)
{
    const auto Branco = [](QChar C) { return C.unicode() <= u' '; };
    while (!Texto.isEmpty() && Branco(Texto.front()))
        Texto = Texto.sliced(1);
    while (!Texto.isEmpty() && Branco(Texto.back()))
        Texto.chop(1);
    return Texto.toString();
}

} // namespace Sibrel
