// SPDX-License-Identifier: LGPL-2.1-or-later
#include "guia/Trecho.h"

#include <Sibrel/EConvertError>
#include <Sibrel/EInvalidCast>
#include <Sibrel/TCanvas>
#include <Sibrel/TFont>
#include <Sibrel/TRect>
#include <Sibrel/TSimboloFonte>
#include <Sibrel/TSimboloGrafico>
#include <Sibrel/TStringList>
#include <Sibrel/TTabelaDeSimbolos>
#include <plataforma/CodePage.h>
#include <plataforma/SeparadorDecimal.h>

#include <QColor>
#include <QFile>
#include <QFileInfo>
#include <QRect>

using namespace Sibrel;
using Sibrel::Guia::PastaDoTrecho;

TRECHO(Codificacao)
{
    const QString Arquivo = PastaDoTrecho() + QStringLiteral("/biblioteca.txt");
    //! [codificacao]
    const QString Texto = De1252("Posi\xE7\xE3o \x80"); // bytes of an old file: "Posição €"
    const QByteArray Bytes = Exigir1252(Texto);         // raises for what code page 1252 lacks

    TTabelaDeSimbolos Tabela;
    Tabela.Simbolos().Add(std::make_unique<TSimboloFonte>());
    Tabela.ObterRotulos().Add(QStringLiteral("Москва"));
    bool Recusada = false;
    try {
        Tabela.Exportar(Arquivo);
    } catch (const EConvertError &) {
        Recusada = true; // before the file was touched
    }
    //! [codificacao]
    EXIGIR(Texto == u"Posição €");
    EXIGIR(Bytes == "Posi\xE7\xE3o \x80");
    EXIGIR(Recusada && !QFile::exists(Arquivo));
}

TRECHO(Cores)
{
    //! [cores]
    const TColor Vermelho = 0x000000FF;       // low byte red, then green, then blue
    const QColor Qt_ = Vermelho.ParaQColor(); // #ff0000
    const TColor DeVolta = QColor(0, 0, 255); // 0x00FF0000
    const TColor Realce = clHighlight; // negative: a system colour, taken from the palette when asked for
    //! [cores]
    EXIGIR(Qt_ == QColor(Qt::red));
    EXIGIR(DeVolta.Valor() == 0x00FF0000 && DeVolta == clBlue);
    EXIGIR(Realce.DoSistema() && !Vermelho.DoSistema());
}

TRECHO(Fontes)
{
    //! [fontes]
    TFont Fonte;
    Fonte.AtribuirSize(9); // points, always at 96 an inch
    const int Altura = Fonte.Height();
    Fonte.AtribuirHeight(16); // positive: the height of the cell, which makes the size negative
    const int Tamanho = Fonte.Size();
    //! [fontes]
    EXIGIR(Altura == -12);
    EXIGIR(Tamanho == -12);
}

TRECHO(Retangulos)
{
    //! [retangulos]
    const TRect Nosso(10, 10, 20, 20); // right and bottom are outside: 10 x 10 pixels
    const QRect DoQt = Nosso.ParaQRect();
    //! [retangulos]
    EXIGIR(Nosso.Width() == 10 && DoQt.width() == 10 && DoQt.right() == 19);
    EXIGIR(TRect(DoQt) == Nosso);
    EXIGIR(Arredondar(2.5) == 2 && Arredondar(3.5) == 4);
}

TRECHO(Listas)
{
    //! [listas]
    TStringList Lista;
    Lista.Add(QStringLiteral("Código=B1"));
    Lista.Add(QStringLiteral("Efetivo=648"));
    const QString Efetivo = Lista.Values(u"efetivo");                    // names ignore letter case
    Lista.AtribuirValor(QStringLiteral("Código"), QStringLiteral("B2")); // the first line of that name
    Lista.AtribuirValor(QStringLiteral("Efetivo"), QString());           // an empty value removes the line
    //! [listas]
    EXIGIR(Efetivo == u"648");
    EXIGIR(Lista.Text() == u"Código=B2\r\n");
}

TRECHO(Posse)
{
    TTabelaDeSimbolos Tabela;
    //! [posse]
    auto Novo = std::make_unique<TSimboloFonte>();
    TSimboloFonte *Glifo = Novo.get();
    Tabela.Simbolos().Add(std::move(Novo)); // the list owns it now

    const std::unique_ptr<ISimbolo> Retirado = Tabela.Simbolos().Extract(Glifo); // and now the caller

    // A replaced list goes to the caller too. The new one announces its changes when it is told to whom.
    const std::unique_ptr<TListaSimbolo> Antiga = Tabela.AtribuirSimbolos(std::make_unique<TListaSimbolo>());
    Tabela.Simbolos().AoAlterar = [&](TListaSimbolo &Lista) { Tabela.AoMudarSimbolos(Lista); };
    //! [posse]
    EXIGIR(Retirado.get() == Glifo && Antiga->Count() == 0);
    int Vezes = 0;
    QObject::connect(&Tabela, &TSubject::Mudou, &Tabela, [&] { ++Vezes; });
    Tabela.Simbolos().DoChange();
    EXIGIR(Vezes == 1);
}

TRECHO(Classes)
{
    TSimboloFonte Glifo;
    Glifo.Caracter = 42;
    ISimbolo &Qualquer = Glifo;
    //! [classes]
    const RefClasse<ISimbolo> Classe = Qualquer.ObterClasse(); // "class of"
    std::unique_ptr<ISimbolo> Outro = Classe.Criar();          // the virtual constructor
    Outro->Assign(Qualquer);                                   // EInvalidCast for another kind
    //! [classes]
    EXIGIR(QByteArray(Classe.Nome()) == "TSimboloFonte");
    EXIGIR(dynamic_cast<TSimboloFonte &>(*Outro).Caracter == 42);
    bool Recusado = false;
    try {
        TSimboloGrafico().Assign(Qualquer);
    } catch (const EInvalidCast &) {
        Recusado = true;
    }
    EXIGIR(Recusado);
}

TRECHO(Separador)
{
    const QChar Antes = SeparadorDecimal();
    //! [separador]
    AtribuirSeparadorDecimal(u'.'); // before exporting libraries: the reader expects a point
    //! [separador]
    EXIGIR(FormatarDecimal(0.5, 2) == u"0.50");
    AtribuirSeparadorDecimal(u',');
    EXIGIR(FormatarDecimal(0.5, 2) == u"0,50");
    AtribuirSeparadorDecimal(Antes);
}
