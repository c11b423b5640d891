// SPDX-License-Identifier: LGPL-2.1-or-later
#include "guia/Trecho.h"

#include <Sibrel/TBitmap>
#include <Sibrel/TSimboloImagem>
#include <Sibrel/TTabelaDeSimbolos>
#include <plataforma/Picture.h>

#include <QImage>
#include <QPainter>

using namespace Sibrel;
using Sibrel::Guia::Dado;

TRECHO(Mascara)
{
    QWidget Janela;
    Janela.resize(40, 40);
    Janela.setPalette(QPalette(Qt::white));
    const QString Arquivo = Dado(QStringLiteral("dados/imagens/amigo.png"));
    //! [mascara]
    auto *Imagem = new TSimboloImagem(&Janela);
    Imagem->AtribuirMascara(LerGrafico(Arquivo).get()); // any picture; reduced to one bit a pixel
    Imagem->AtribuirCor(clRed);
    Imagem->AtribuirEsticar(true); // ends Centralizar
    Imagem->setAccessibleName(QStringLiteral("Moldura"));
    //! [mascara]
    Imagem->setGeometry(0, 0, 40, 40);
    EXIGIR(!Imagem->Centralizar() && Imagem->ObterMascara().Monochrome());
    EXIGIR(!Imagem->ObterMascara().Empty());
}

TRECHO(DaTabela)
{
    TTabelaDeSimbolos Tabela;
    Tabela.Importar(Dado(QStringLiteral("dados/biblioteca.txt")));
    QWidget Janela;
    Janela.setAutoFillBackground(true);
    Janela.setPalette(QPalette(Qt::white));
    TSimboloImagem Imagem(&Janela);
    //! [da_tabela]
    QImage Figura(32, 32, QImage::Format_RGB32);
    Figura.fill(Qt::white);
    {
        QPainter Pintor(&Figura);
        Tabela.Desenhar(0, Pintor, Figura.rect(), Qt::black);
    }
    const TBitmap Mascara(Figura);
    Imagem.AtribuirMascara(&Mascara);
    //! [da_tabela]
    Imagem.setGeometry(0, 0, 32, 32);
    Janela.resize(32, 32);
    const QImage Tela = Janela.grab().toImage();
    int Azuis = 0;
    for (int Y = 0; Y < 32; ++Y)
        for (int X = 0; X < 32; ++X)
            Azuis += Tela.pixelColor(X, Y) == QColor(Qt::blue) ? 1 : 0;
    EXIGIR(Azuis > 50);
    EXIGIR(Imagem.sizeHint() == QSize(32, 32));
}
