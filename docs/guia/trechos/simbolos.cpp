// SPDX-License-Identifier: LGPL-2.1-or-later
#include "guia/Trecho.h"

#include <Sibrel/EInvalidOperation>
#include <Sibrel/TArquivoDeGravacao>
#include <Sibrel/TArquivoDeLeitura>
#include <Sibrel/TCanvas>
#include <Sibrel/TObserver>
#include <Sibrel/TSimboloComposto>
#include <Sibrel/TSimboloFonte>
#include <Sibrel/TSimboloGrafico>
#include <Sibrel/TTabelaDeSimbolos>
#include <Sibrel/TTratadorDeSimbolo>

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QWidget>

#include <numbers>

using namespace Sibrel;
using Sibrel::Guia::Dado;
using Sibrel::Guia::PastaDoTrecho;

namespace
{

int PixelsDaCor(const QImage &Imagem, const QColor &Cor)
{
    int Quantos = 0;
    for (int Y = 0; Y < Imagem.height(); ++Y)
        for (int X = 0; X < Imagem.width(); ++X)
            Quantos += Imagem.pixelColor(X, Y) == Cor ? 1 : 0;
    return Quantos;
}

//! [quadro]
class TQuadro : public QWidget
{
public:
    explicit TQuadro(const QString &Biblioteca) { FTabela->Importar(Biblioteca); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter Pintor(this);
        FTabela->Desenhar(0, Pintor, QRect(8, 8, 48, 48), Qt::darkBlue);
    }

private:
    TTabelaDeSimbolos *FTabela = new TTabelaDeSimbolos(this); // a component: its owner deletes it
};
//! [quadro]

//! [especie]
class TSimboloBarra : public ComClasse<TSimboloBarra, ISimbolo>
{
public:
    static constexpr const char *NomeDaClasse = "TSimboloBarra";

    int Parte = 50; // percent that is filled

    void Desenhar(TCanvas &Canvas, const TRect &Rect) override
    {
        Canvas.Brush = TBrush{Canvas.Pen.Color, TBrushStyle::bsSolid};
        const auto Largura = static_cast<std::int32_t>(Rect.Width() * Parte / 100);
        Canvas.FillRect({Rect.Left, Rect.Top, Rect.Left + Largura, Rect.Bottom});
    }
    void Assign(ISimbolo &Origem) override
    {
        const auto *Outra = dynamic_cast<TSimboloBarra *>(&Origem);
        if (Outra == nullptr)
            throw EInvalidCast(QStringLiteral("O símbolo não é uma barra!"));
        Parte = Outra->Parte;
    }
};

class TTratadorDeSimboloBarra : public ComClasse<TTratadorDeSimboloBarra, TTratadorDeSimbolo>
{
public:
    static constexpr const char *NomeDaClasse = "TTratadorDeSimboloBarra";
    using ComClasse::ComClasse;

    void Ler(TArquivoDeLeitura &Arquivo, ISimbolo &Simbolo) override
    {
        Como<TSimboloBarra>(Simbolo).Parte = Arquivo.LerInteiro();
        Arquivo.ProximaLinha();
    }
    void Gravar(TArquivoDeGravacao &Arquivo, const ISimbolo &Simbolo) override
    {
        Arquivo.Escrever(u' ' + ADireita(Como<TSimboloBarra>(Simbolo).Parte, 5) + u' ');
        Arquivo.ProximaLinha();
    }
};
//! [especie]

} // namespace

TRECHO(Quadro)
{
    TQuadro Quadro(Dado(QStringLiteral("dados/biblioteca.txt")));
    Quadro.resize(64, 64);
    EXIGIR(PixelsDaCor(Quadro.grab().toImage(), QColor(Qt::darkBlue)) > 100);
}

TRECHO(Importar)
{
    const QString Biblioteca = Dado(QStringLiteral("dados/tolerada.txt"));
    QStringList Mostrados;
    const auto Mostrar = [&](const QString &Texto) { Mostrados += Texto; };
    //! [importar]
    TTabelaDeSimbolos Tabela;
    try {
        Tabela.Importar(Biblioteca); // appends; Limpar() first for a fresh table
    } catch (const Exception &Erro) {
        Mostrar(Erro.Message + u'\n' + Erro.Detalhe); // what was read before the error stays in the table
        throw;
    }
    for (const TAvisoDeImportacao &Aviso : Tabela.AvisosDaImportacao())
        Mostrar(QStringLiteral("Linha %1: %2").arg(Aviso.Linha).arg(Aviso.Texto));
    //! [importar]
    EXIGIR(Tabela.Simbolos().Count() == 2);
    EXIGIR(Tabela.ObterRotulo(0) == u"Sem aspas duplas");
    // The name of a font keeps its blanks before a comment, the search for it does not.
    EXIGIR(dynamic_cast<TSimboloFonte *>(Tabela.Simbolos().Item(0))->Fonte.Name() == u" Sibrel Simbolos   ");
    EXIGIR(Mostrados == QStringList{QStringLiteral("Linha 3: A figura <IMAGENS/NaoExiste.PNG> não existe.")});
}

TRECHO(Montar)
{
    const QString Biblioteca = PastaDoTrecho() + QStringLiteral("/biblioteca.txt");
    const QString Moldura = Dado(QStringLiteral("dados/imagens/amigo.png"));
    //! [montar]
    TTabelaDeSimbolos Tabela;

    auto Cruz = std::make_unique<TSimboloFonte>();
    Cruz->Caracter = 37;
    Cruz->Fonte.AtribuirName(QStringLiteral("Sibrel Simbolos"));
    Cruz->Fonte.AtribuirCharset(TFont::CharsetSimbolo);
    Cruz->Proporcao = 0.8; // leaves a margin

    auto Quadro = std::make_unique<TSimboloGrafico>();
    Quadro->LerArquivo(Moldura);

    auto Infantaria = std::make_unique<TSimboloComposto>();
    Infantaria->Lista.Add(std::move(Quadro)); // the first part lies at the bottom
    Infantaria->Lista.Add(std::move(Cruz));

    Tabela.Simbolos().Add(std::move(Infantaria));
    Tabela.ObterRotulos().Add(
        QStringLiteral("Infantaria")); // label i belongs to symbol i: keep them parallel
    Tabela.Simbolos().DoChange();      // tells the observers
    Tabela.Exportar(Biblioteca);
    //! [montar]
    TTabelaDeSimbolos Outra;
    Outra.Importar(Biblioteca);
    EXIGIR(Outra.Simbolos().Count() == 1);
    EXIGIR(Outra.ObterRotulo(0) == u"Infantaria");
    const auto *Lido = dynamic_cast<TSimboloComposto *>(Outra.Simbolos().First());
    EXIGIR(Lido != nullptr && Lido->Lista.Count() == 2);
}

TRECHO(Tela)
{
    TTabelaDeSimbolos Tabela;
    Tabela.Importar(Dado(QStringLiteral("dados/biblioteca.txt")));
    QImage Imagem(64, 64, QImage::Format_RGB32);
    Imagem.fill(Qt::white);
    {
        QPainter Pintor(&Imagem);
        //! [tela]
        TCanvas Canvas(Pintor);
        Canvas.Pen.Color = clRed; // the colour of glyphs
        Tabela.Desenhar(0, Canvas, TRect(0, 0, 64, 64));
        //! [tela]
    }
    EXIGIR(PixelsDaCor(Imagem, Qt::red) > 100);
}

TRECHO(Observar)
{
    TTabelaDeSimbolos Tabela;
    int Repintadas = 0;
    const auto Repintar = [&] { ++Repintadas; };
    //! [observar]
    class TQuemQuerSaber : public TObserver
    {
    public:
        void Avisado(TSubject &) override { ++Vezes; }
        int Vezes = 0;
    };
    TQuemQuerSaber Observador;
    Tabela.InscreverObserver(Observador);
    QObject::connect(&Tabela, &TSubject::Mudou, &Tabela, Repintar); // the same notice, as a signal

    Tabela.AtribuirRotulos(TStringList({QStringLiteral("Ponte")})); // tells
    Tabela.ObterRotulos().Add(QStringLiteral("Rio"));               // does not
    Tabela.Limpar();                                                // does not
    //! [observar]
    EXIGIR(Observador.Vezes == 1);
    EXIGIR(Repintadas == 1);
}

TRECHO(Girar)
{
    TTabelaDeSimbolos Tabela;
    Tabela.Importar(Dado(QStringLiteral("dados/biblioteca.txt")));
    QImage Imagem(48, 48, QImage::Format_RGB32);
    Imagem.fill(Qt::white);
    {
        TCanvas Canvas(Imagem);
        //! [girar]
        const TRect Area(0, 0, 48, 48);
        Tabela.Buffer.AtribuirTamanho(48, 48); // one pixel of the buffer is one of the canvas
        TCanvas &NoBuffer = Tabela.Buffer.Canvas();
        NoBuffer.Brush = TBrush{Tabela.CorTransparente, TBrushStyle::bsSolid};
        NoBuffer.FillRect(Area);
        NoBuffer.Pen.Color = clBlue;
        Tabela.Desenhar(0, NoBuffer, Area);
        Tabela.DesenharBuffer(Canvas, Area, std::numbers::pi / 2); // radians, clockwise
        //! [girar]
    }
    EXIGIR(PixelsDaCor(Imagem, Qt::blue) > 100);
    EXIGIR(PixelsDaCor(Imagem, QColor(255, 0, 255)) == 0);
}

TRECHO(Especie)
{
    const QString Biblioteca = PastaDoTrecho() + QStringLiteral("/barras.txt");
    //! [registrar]
    TListaSimbolo::RegistrarTratadorDeSimbolo(QStringLiteral("Barra"),
                                              TRefTratador::De<TTratadorDeSimboloBarra>(),
                                              TRefSimbolo::De<TSimboloBarra>());
    //! [registrar]
    TTabelaDeSimbolos Tabela;
    auto Barra = std::make_unique<TSimboloBarra>();
    Barra->Parte = 75;
    Tabela.Simbolos().Add(std::move(Barra));
    Tabela.ObterRotulos().Add(QStringLiteral("Combustível"));
    Tabela.Exportar(Biblioteca);
    Tabela.Limpar();
    Tabela.Importar(Biblioteca);
    const auto *Lida = dynamic_cast<TSimboloBarra *>(Tabela.Simbolos().First());
    EXIGIR(Lida != nullptr && Lida->Parte == 75);
    QImage Imagem(40, 10, QImage::Format_RGB32);
    Imagem.fill(Qt::white);
    {
        QPainter Pintor(&Imagem);
        Tabela.Desenhar(0, Pintor, Imagem.rect(), Qt::green);
    }
    EXIGIR(PixelsDaCor(Imagem, Qt::green) == 300);
    bool Recusada = false;
    try {
        TListaSimbolo::RegistrarTratadorDeSimbolo(QStringLiteral("BARRA"), {}, {});
    } catch (const EInvalidOperation &) {
        Recusada = true;
    }
    EXIGIR(Recusada);
    //! [remover]
    TListaSimbolo::RemoverRegistroTratadorDeSimbolo(QStringLiteral("Barra"));
    //! [remover]
}

TRECHO(OFormatoDaBiblioteca)
{
    const QString Copia = PastaDoTrecho() + QStringLiteral("/copia.txt");
    TTabelaDeSimbolos Tabela;
    Tabela.Importar(Dado(QStringLiteral("dados/biblioteca.txt")));
    EXIGIR(Tabela.AvisosDaImportacao().empty());
    Tabela.Exportar(Copia);
    QFile Lida(Dado(QStringLiteral("dados/biblioteca.txt")));
    QFile Escrita(Copia);
    EXIGIR(Lida.open(QIODevice::ReadOnly) && Escrita.open(QIODevice::ReadOnly));
    EXIGIR(Lida.readAll() == Escrita.readAll()); // what was read is written byte for byte
}
