// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/FolhaEmImagem.h"

#include "hospedeiro/CelulaDaFolha.h"
#include "hospedeiro/PinturaDeSimbolo.h"

#include "plataforma/Exception.h"
#include "simbolos/TabelaDeSimbolos.h"

#include <QFileInfo>
#include <QImageWriter>
#include <QPainter>
#include <QSaveFile>

#include <algorithm>
#include <cmath>

namespace Hospedeiro
{

namespace
{

constexpr int Borda = 8;
constexpr int MaiorLado = 32767; // the painter's coordinates reach no further

int ColunasDaFolha(int Quantos, const QSize &Celula)
{
    constexpr double LarguraPorAltura = 4.0 / 3.0;
    constexpr int MenosColunas = 8;
    const double Ideal = std::sqrt(LarguraPorAltura * Quantos * Celula.height() / Celula.width());
    return std::clamp(static_cast<int>(std::lround(Ideal)), std::min(MenosColunas, std::max(Quantos, 1)),
                      std::max(Quantos, 1));
}

[[noreturn]] void Recusar(const QSize &Lado, const QString &Mensagem)
{
    throw Sibrel::Exception(Mensagem,
                            QStringLiteral("Seriam %1 x %2 pixels.").arg(Lado.width()).arg(Lado.height()));
}

QImage FolhaEmBranco(const QSize &Lado)
{
    const QString GrandeDemais = QStringLiteral("A folha fica grande demais!");
    ExigirLado(Lado, GrandeDemais);
    QImage Folha(Lado, QImage::Format_RGB32);
    if (Folha.isNull())
        Recusar(Lado, GrandeDemais);
    Folha.fill(Qt::white);
    return Folha;
}

} // namespace

void ExigirLado(const QSize &Lado, const QString &Mensagem)
{
    if (Lado.width() > MaiorLado || Lado.height() > MaiorLado)
        Recusar(Lado, Mensagem);
}

QImage FolhaEmImagem(const Sibrel::TTabelaDeSimbolos &Tabela, int Tamanho, const QFont &Fonte,
                     const QColor &Cor)
{
    const TCelulaDaFolha Celula(Tamanho, Fonte);
    const QSize Lado = Celula.Lado();
    const int Quantos = Tabela.Simbolos().Count();
    const int Colunas = ColunasDaFolha(Quantos, Lado);
    const int Linhas = std::max((Quantos + Colunas - 1) / Colunas, 1);
    QImage Folha = FolhaEmBranco({Colunas * Lado.width() + 2 * Borda, Linhas * Lado.height() + 2 * Borda});
    QPainter Pintor(&Folha);
    for (int I = 0; I < Quantos; ++I) {
        const QPoint Canto(Borda + I % Colunas * Lado.width(), Borda + I / Colunas * Lado.height());
        Celula.Pintar(Pintor, QRect(Canto, Lado), Tabela, I, Cor, Qt::black);
    }
    return Folha;
}

QImage SimboloEmImagem(Sibrel::ISimbolo &Simbolo, int Tamanho, const QColor &Cor)
{
    QImage Imagem = FolhaEmBranco({Tamanho, Tamanho});
    QPainter Pintor(&Imagem);
    PintarSimbolo(Pintor, Imagem.rect(), Simbolo, Cor);
    return Imagem;
}

void GravarImagem(const QImage &Imagem, const QString &Arquivo)
{
    const auto Recusar = [&Arquivo](const QString &Motivo) {
        throw Sibrel::EFCreateError(QStringLiteral("A imagem <%1> não pode ser gravada!").arg(Arquivo),
                                    Motivo);
    };
    const QByteArray Formato = QFileInfo(Arquivo).suffix().toLower().toLatin1();
    if (!QImageWriter::supportedImageFormats().contains(Formato))
        Recusar(QStringLiteral("O nome precisa terminar por um formato de imagem, como .png."));
    QSaveFile Destino(Arquivo);
    if (!Destino.open(QIODevice::WriteOnly))
        Recusar(Destino.errorString());
    QImageWriter Escritor(&Destino, Formato);
    if (!Escritor.write(Imagem))
        Recusar(Escritor.errorString());
    if (!Destino.commit())
        Recusar(Destino.errorString());
}

} // namespace Hospedeiro
