// SPDX-License-Identifier: LGPL-2.1-or-later
// Any bytes as a figure file: it is read or refused; what was read draws the same directly and from memory,
// and what can be written and read again is written the same.
#include "plataforma/Canvas.h"
#include "plataforma/CodePage.h"
#include "plataforma/Exception.h"
#include "simbolos/SimboloVetorial.h"
#include "simbolos/TabelaDeSimbolos.h"
#include "simbolos/Texto.h"

#include <QApplication>
#include <QImage>

#include <algorithm>
#include <cstdlib>
#include <memory>

using namespace Sibrel;

namespace
{

void Exigir(bool Condicao)
{
    if (!Condicao)
        std::abort();
}

bool Ler(TSimboloVetorial &Simbolo, const QString &Texto)
{
    try {
        Simbolo.Atualizar(Texto);
        return true;
    } catch (const Exception &) {
        return false; // the elements before the bad one stay
    }
}

QImage Desenhado(TSimboloVetorial &Simbolo, const TRect &Rect)
{
    constexpr int Lado = 48;
    QImage Imagem(Lado, Lado, QImage::Format_RGB32);
    Imagem.fill(Qt::white);
    TCanvas Canvas(Imagem);
    Simbolo.Desenhar(Canvas, Rect);
    return Imagem;
}

// Texts are smoothed: blended twice they may be off by a level.
bool QuaseIguais(const QImage &A, const QImage &B)
{
    const auto *P = A.constBits();
    const auto *Q = B.constBits();
    return std::equal(P, P + A.sizeInBytes(), Q, [](int X, int Y) { return std::abs(X - Y) <= 1; });
}

QString Escrito(const TSimboloVetorial &Simbolo)
{
    QString Texto = QStringLiteral("<FiguraVet>");
    for (const auto &Elemento : Simbolo.ObterElementos())
        Texto += Elemento->ObterXML();
    return Texto + QStringLiteral("</FiguraVet>");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *Quantos, char ***Argumentos)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never destroyed: at the end of the process Qt's own static objects go first.
    static const QApplication *const Aplicacao =
        std::make_unique<QApplication>(*Quantos, *Argumentos).release();
    Exigir(Aplicacao != nullptr);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *Dados, std::size_t Tamanho)
{
    TSimboloVetorial Simbolo;
    const bool Inteira = Ler(Simbolo, De1252(QByteArrayView(Dados, static_cast<qsizetype>(Tamanho))));
    for (const TRect &Rect : {TRect(8, 8, 40, 40), TRect(0, 0, 2, 48), TRect(40, 40, 8, 8)}) {
        Desenhado(Simbolo, Rect); // texts turn
        const QImage Direto = Desenhado(Simbolo, Rect);
        for (int Vez = 0; Vez < 2; ++Vez)
            Exigir(QuaseIguais(Desenhado(Simbolo, Rect), Direto));
    }
    if (!Inteira)
        return 0;
    TSimboloVetorial Outro;
    if (Ler(Outro, Escrito(Simbolo))) { // unescaped texts may break it
        TSimboloVetorial Terceiro;
        Exigir(Ler(Terceiro, Escrito(Outro)));
        Exigir(Outro.ObterElementos().Count() == Terceiro.ObterElementos().Count());
    }
    return 0;
}
