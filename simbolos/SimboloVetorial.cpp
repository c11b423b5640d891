// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/SimboloVetorial.h"

#include "plataforma/Arquivo.h"
#include "plataforma/ArquivoTexto.h"
#include "plataforma/CodePage.h"
#include "plataforma/Exception.h"
#include "plataforma/XMLDocument.h"
#include "simbolos/ListaSimbolo.h"
#include "simbolos/PinturaDeFigura.h"
#include "simbolos/Poligono.h"
#include "simbolos/Ponto.h"
#include "simbolos/Setor.h"
#include "simbolos/Texto.h"
#include "simbolos/TratadorDeSimboloVetorial.h"

namespace Sibrel
{

namespace
{

struct TTipoDeElemento {
    QStringView Nome;
    RefClasse<IElementoGrafico> (*Classe)() noexcept;
};

constexpr TTipoDeElemento TiposDeElemento[] = {
    {u"Ponto", &RefClasse<IElementoGrafico>::De<TPonto>},
    {u"Setor", &RefClasse<IElementoGrafico>::De<TSetor>},
    {u"Poligono", &RefClasse<IElementoGrafico>::De<TPoligono>},
    {u"Texto", &RefClasse<IElementoGrafico>::De<TTexto>},
};

const QString &TipoVetorial()
{
    static const QString Nome = QStringLiteral("Vetorial");
    return Nome;
}

void Iniciar()
{
    TListaSimbolo::RegistrarTratadorDeSimbolo(TipoVetorial(), TRefTratador::De<TTratadorDeSimboloVetorial>(),
                                              TRefSimbolo::De<TSimboloVetorial>());
}

void Parar()
{
    TListaSimbolo::RemoverRegistroTratadorDeSimbolo(TipoVetorial());
}

constinit TModulo Modulo("SimboloVetorial", &Iniciar, &Parar);

} // namespace

TModulo &ModuloSimboloVetorial() noexcept
{
    return Modulo;
}

TSimboloVetorial::TSimboloVetorial()
    : FPintura(std::make_unique<TPinturaDeFigura>())
{
}

TSimboloVetorial::~TSimboloVetorial() = default;

bool TSimboloVetorial::PedirPintura(TCanvas &Canvas, const TRect &Rect, double Densidade,
                                    TPinturaPedida &Pedida)
{
    return FPintura->Pedir(FElementos, FPintura->Selo(FElementos), Canvas, Rect, Densidade, Pedida, FCentro);
}

bool TSimboloVetorial::DesenharDeMemoria(TCanvas &Canvas, const TRect &Rect, std::uint64_t Selo)
{
    const std::optional<double> Densidade = Canvas.DensidadeDePixels();
    if (!Densidade)
        return false;
    const TPen Pen = Canvas.Pen;
    TPinturaPedida Pedida;
    if (FPintura->Pedir(FElementos, Selo, Canvas, Rect, *Densidade, Pedida, FCentro) &&
        DesenharLembrada(Canvas, Rect, Pedida, Pen, [&](TCanvas &C) { DesenharDireto(C, Rect); }))
        return true;
    Canvas.Pen = Pen; // of the state that was left already, drawing directly depends on the pen alone
    return false;
}

void TSimboloVetorial::Desenhar(TCanvas &Canvas, const TRect &Rect)
{
    const std::uint64_t Selo = FPintura->Selo(FElementos);
    if (FPintura->JaDesenhadaAssim(Selo) && DesenharDeMemoria(Canvas, Rect, Selo))
        return;
    DesenharDireto(Canvas, Rect);
    FPintura->DesenhadaAssim(FPintura->Selo(FElementos)); // anew: drawing turns texts
}

void TSimboloVetorial::DesenharDireto(TCanvas &Canvas, const TRect &Rect)
{
    const TRect Area = FElementos.ObterArea();
    if (Area.Width() < 1 || Area.Height() < 1)
        return;
    const TEnquadramento Enquadramento(Area, Rect);
    FCentro = Enquadramento.CentroDaFigura();
    for (const auto &Elemento : FElementos)
        if (Elemento)
            Elemento->Desenhar(Canvas, Enquadramento.NoDispositivo(Elemento->Area()));
}

void TSimboloVetorial::Assign(ISimbolo &Origem)
{
    auto *De = dynamic_cast<TSimboloVetorial *>(&Origem);
    if (De == nullptr)
        throw EInvalidCast(QStringLiteral("O símbolo de origem não é um TSimboloVetorial!"));
    if (De == this)
        return;
    FCentro = De->FCentro;
    FNomeArquivo = De->FNomeArquivo;
    FElementos.Clear();
    FElementos.Add(De->FElementos);
}

TColor TSimboloVetorial::ObterCor() const
{
    const IElementoGrafico *Primeiro = FElementos.Vazia() ? nullptr : FElementos.First();
    if (const auto *Ponto = dynamic_cast<const TPonto *>(Primeiro))
        return Ponto->Cor();
    if (const auto *Setor = dynamic_cast<const TSetor *>(Primeiro))
        return Setor->CorFundo();
    if (const auto *Poligono = dynamic_cast<const TPoligono *>(Primeiro))
        return Poligono->CorFundo();
    if (const auto *Texto = dynamic_cast<const TTexto *>(Primeiro))
        return Texto->Fonte().Color();
    return clBlack;
}

void TSimboloVetorial::AtribuirCor(TColor Cor)
{
    for (const auto &Elemento : FElementos) {
        if (auto *Ponto = dynamic_cast<TPonto *>(Elemento.get()))
            Ponto->AtribuirCor(Cor);
        else if (auto *Setor = dynamic_cast<TSetor *>(Elemento.get()))
            Setor->AtribuirCorFundo(Cor);
        else if (auto *Poligono = dynamic_cast<TPoligono *>(Elemento.get()))
            Poligono->AtribuirCorFundo(Cor);
        else if (dynamic_cast<TTexto *>(Elemento.get()) != nullptr) {
            // The first element's font: hosts colour figures whose one text comes first.
            if (auto *Primeiro = dynamic_cast<TTexto *>(FElementos.First()))
                Primeiro->Fonte().AtribuirColor(Cor);
        }
    }
}

void TSimboloVetorial::LerArquivo(const QString &Nome)
{
    FNomeArquivo = SemBrancos(Nome);
    FElementos.Clear();
    try {
        AcrescentarDe(TXMLDocument::DeArquivo(FNomeArquivo)->Raiz());
    } catch (EFOpenError &) {
        throw; // names the file already
    } catch (Exception &E) {
        E.AcrescentarDetalhe(QStringLiteral("Arquivo <%1>.").arg(FNomeArquivo));
        throw;
    }
}

void TSimboloVetorial::GravarArquivo(const QString &Nome)
{
    FNomeArquivo = Nome;
    QString Texto = QStringLiteral("<FiguraVet>\r\n");
    for (const auto &Elemento : FElementos)
        if (Elemento)
            Texto.append(Elemento->ObterXML()).append(QStringView(u"\r\n"));
    Texto += QStringView(u"</FiguraVet>\r\n");
    GravarArquivoInteiro(ResolverNomeDeArquivo(FNomeArquivo), Exigir1252(Texto));
}

void TSimboloVetorial::Atualizar(const QString &Texto)
{
    AcrescentarDe(TXMLDocument::DeTexto(Texto)->Raiz());
}

void TSimboloVetorial::AcrescentarDe(const TCursorXML &Raiz)
{
    if (Raiz.NodeName().compare(QStringView(u"FiguraVet"), Qt::CaseInsensitive) != 0)
        return;
    for (const TCursorXML &No : Raiz.Filhos())
        Criar(No);
}

void TSimboloVetorial::Criar(const TCursorXML &No)
{
    for (const TTipoDeElemento &Tipo : TiposDeElemento) {
        if (!No.Elemento() || !No.NomeE(Tipo.Nome))
            continue;
        std::unique_ptr<IElementoGrafico> Elemento = Tipo.Classe().Criar();
        Elemento->AtribuirXML(No);
        FElementos.Add(std::move(Elemento));
        return;
    }
}

} // namespace Sibrel
