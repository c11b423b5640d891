// SPDX-License-Identifier: LGPL-2.1-or-later
// Draws one symbol with the installed package: exit code 0 when pixels of the asked colour were drawn.
#include <Sibrel/TSimboloFonte>
#include <Sibrel/TTabelaDeSimbolos>

#include <QApplication>
#include <QFontDatabase>
#include <QImage>
#include <QPainter>

#include <memory>

int main(int argc, char **argv)
{
    const QApplication Aplicacao(argc, argv);
    if (argc < 2 || QFontDatabase::addApplicationFont(QString::fromLocal8Bit(argv[1])) < 0)
        return 2;

    Sibrel::TTabelaDeSimbolos Tabela;
    auto Simbolo = std::make_unique<Sibrel::TSimboloFonte>();
    Simbolo->Caracter = 33;
    Simbolo->Fonte.AtribuirName(QStringLiteral("Sibrel Simbolos"));
    Simbolo->Fonte.AtribuirCharset(Sibrel::TFont::CharsetSimbolo);
    Tabela.Simbolos().Add(std::move(Simbolo));

    QImage Imagem(64, 64, QImage::Format_RGB32);
    Imagem.fill(Qt::white);
    {
        QPainter Pintor(&Imagem);
        Tabela.Desenhar(0, Pintor, Imagem.rect(), Qt::red);
    }
    int Vermelhos = 0;
    for (int Y = 0; Y < Imagem.height(); ++Y)
        for (int X = 0; X < Imagem.width(); ++X)
            Vermelhos += Imagem.pixelColor(X, Y) == Qt::red ? 1 : 0;
    return Vermelhos > 100 ? 0 : 1;
}
