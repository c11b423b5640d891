// SPDX-License-Identifier: LGPL-2.1-or-later
#include "guia/Trecho.h"

#include <Sibrel/TCanvas>
#include <Sibrel/TPoligono>
#include <Sibrel/TPonto>
#include <Sibrel/TSetor>
#include <Sibrel/TSimboloVetorial>
#include <Sibrel/TTexto>

#include <QImage>
#include <QPainter>

#include <numbers>

using namespace Sibrel;
using Sibrel::Guia::Dado;
using Sibrel::Guia::PastaDoTrecho;

TRECHO(Ler)
{
    QImage Imagem(100, 100, QImage::Format_RGB32);
    Imagem.fill(Qt::white);
    TSimboloVetorial Alvo;
    {
        QPainter Pintor(&Imagem);
        const QString Arquivo = Dado(QStringLiteral("dados/figuras/alvo.xml"));
        //! [ler]
        Alvo.LerArquivo(Arquivo);
        TCanvas Canvas(Pintor);
        Alvo.Desenhar(Canvas, TRect(0, 0, 100, 100)); // scaled, centred, proportions kept
        //! [ler]
    }
    EXIGIR(Alvo.ObterElementos().Count() == 4);
    EXIGIR(Imagem.pixelColor(50 + 10, 50 + 5) == QColor(Qt::red));
    EXIGIR(Imagem.pixelColor(2, 2) == QColor(Qt::white));
}

TRECHO(Montar)
{
    const QString Arquivo = PastaDoTrecho() + QStringLiteral("/setor.xml");
    //! [montar]
    TSimboloVetorial Figura;

    auto Setor = std::make_unique<TSetor>(); // at (0, 0), as every sector should be: see below
    Setor->AtribuirRaioMaior(50);
    Setor->AtribuirRaioMenor(0);
    Setor->AtribuirAngI(std::numbers::pi / 6); // radians, 0 to the right, counter-clockwise
    Setor->AtribuirAngF(std::numbers::pi * 5 / 6);
    Setor->AtribuirFechado(true);
    Setor->AtribuirCorFundo(TColor(0x00A0A0FF)); // 0x00BBGGRR
    Setor->AtribuirEstiloLinha(TPenStyle::psSolid);
    Figura.ObterElementos().Add(std::move(Setor));

    auto Eixo = std::make_unique<TPoligono>();
    Eixo->AtribuirEstiloLinha(TPenStyle::psDash); // an open line: Fechado is false in a new polygon
    Eixo->ObterListaPosicao().Add(TPoint(0, 0));
    Eixo->ObterListaPosicao().Add(TPoint(0, -60)); // y grows downwards
    Figura.ObterElementos().Add(std::move(Eixo));

    Figura.GravarArquivo(Arquivo);
    //! [montar]
    const double Fim = dynamic_cast<TSetor *>(Figura.ObterElementos().First())->AngF();
    Figura.LerArquivo(Arquivo);
    EXIGIR(Figura.ObterElementos().Count() == 2);
    const auto *Lido = dynamic_cast<TSetor *>(Figura.ObterElementos().First());
    EXIGIR(Lido->AngI() == std::numbers::pi / 6); // the shortest text that reads back to the same number
    EXIGIR(Fim > 2 && Lido->AngF() == -1.0);      // written under a name that is not read
    EXIGIR(Figura.ObterElementos().ObterArea() == TRect(-50, -60, 50, 50));
}

TRECHO(Cor)
{
    TSimboloVetorial Figura;
    Figura.LerArquivo(Dado(QStringLiteral("dados/figuras/alvo.xml")));
    //! [cor]
    const TColor Antes = Figura.ObterCor(); // that of the first element
    Figura.AtribuirCor(clBlue);             // fillings and dots; outlines stay as they are
    //! [cor]
    EXIGIR(Antes == clWhite);
    EXIGIR(Figura.ObterCor() == clBlue);
    const auto *Linha = dynamic_cast<TPoligono *>(Figura.ObterElementos().Item(2));
    EXIGIR(Linha->CorLinha() == clBlack && Linha->CorFundo() == clBlue);
}

TRECHO(Mover)
{
    TSimboloVetorial Origem;
    Origem.LerArquivo(Dado(QStringLiteral("dados/figuras/alvo.xml")));
    //! [mover]
    TSimboloVetorial Destino;
    Destino.Assign(Origem); // moves the figure: the source is empty afterwards
    //! [mover]
    EXIGIR(Destino.ObterElementos().Count() == 4);
    EXIGIR(Origem.ObterElementos().Count() == 0);
}

TRECHO(Atualizar)
{
    TSimboloVetorial Figura;
    //! [atualizar]
    Figura.Atualizar(QStringLiteral("<FiguraVet><Ponto X='3' Y='4'/></FiguraVet>")); // appends
    Figura.Atualizar(QStringLiteral("<Outra><Ponto X='3' Y='4'/></Outra>")); // adds nothing, says nothing
    //! [atualizar]
    EXIGIR(Figura.ObterElementos().Count() == 1);
    const auto *Ponto = dynamic_cast<TPonto *>(Figura.ObterElementos().First());
    EXIGIR(Ponto->X() == 3 && Ponto->Y() == 4 && Ponto->Cor() == clBlack);
}
