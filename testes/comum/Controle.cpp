// SPDX-License-Identifier: LGPL-2.1-or-later
#include "comum/Controle.h"

#include <QDir>

namespace Sibrel::Testes
{

namespace
{

// The golden picture, the present one and their differences in red, side by side.
QString GravarDiferenca(const QImage &Controle, const QImage &Imagem, const QString &Nome)
{
    const QSize Maior = Controle.size().expandedTo(Imagem.size());
    QImage Diferenca(Maior.width() * 3, Maior.height(), QImage::Format_RGB32);
    Diferenca.fill(Qt::lightGray);
    for (int Y = 0; Y < Maior.height(); ++Y)
        for (int X = 0; X < Maior.width(); ++X) {
            const bool NoControle = Controle.valid(X, Y);
            const bool NaImagem = Imagem.valid(X, Y);
            if (NoControle)
                Diferenca.setPixel(X, Y, Controle.pixel(X, Y));
            if (NaImagem)
                Diferenca.setPixel(X + Maior.width(), Y, Imagem.pixel(X, Y));
            const bool Igual = NoControle && NaImagem && Controle.pixel(X, Y) == Imagem.pixel(X, Y);
            Diferenca.setPixel(X + 2 * Maior.width(), Y, Igual ? 0xFFFFFFFFU : 0xFFFF0000U);
        }
    QDir().mkpath(QStringLiteral(SIBREL_PASTA_DE_DIFERENCAS));
    const QString Arquivo = QStringLiteral(SIBREL_PASTA_DE_DIFERENCAS "/%1.png").arg(Nome);
    Diferenca.save(Arquivo);
    return Arquivo;
}

} // namespace

QString CompararComControle(const QImage &Imagem, const QString &Nome)
{
    const QString Arquivo = QStringLiteral(SIBREL_PASTA_DE_TESTES "/controle/%1.png").arg(Nome);
    QImage Presente = Imagem.convertToFormat(QImage::Format_ARGB32);
    Presente.setDevicePixelRatio(1);
    if (qEnvironmentVariableIsSet("SIBREL_REGRAVAR_CONTROLE")) {
        Presente.save(Arquivo);
        return {};
    }
    const QImage Controle = QImage(Arquivo).convertToFormat(QImage::Format_ARGB32);
    if (Controle.isNull())
        return QStringLiteral("falta a figura de controle %1").arg(Arquivo);
    if (Controle == Presente)
        return {};
    return QStringLiteral("difere da figura de controle: %1").arg(GravarDiferenca(Controle, Presente, Nome));
}

} // namespace Sibrel::Testes
