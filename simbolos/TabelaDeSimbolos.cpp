// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/TabelaDeSimbolos.h"

#include "plataforma/Canvas.h"
#include "simbolos/AjusteDeGlifo.h"
#include "simbolos/CacheDePinturas.h"
#include "simbolos/RotacaoDeBitmap.h"
#include "simbolos/SimboloComposto.h"
#include "simbolos/SimboloFonte.h"
#include "simbolos/SimboloGrafico.h"
#include "simbolos/TratadorDeSimbolo.h"

#include <QPainter>

#include <utility>

namespace Sibrel
{

namespace
{

struct TTipoBasico {
    const char *Tipo;
    TRefTratador (*Tratador)() noexcept;
    TRefSimbolo (*Simbolo)() noexcept;
};

constexpr TTipoBasico TiposBasicos[] = {
    {"Fonte", &TRefTratador::De<TTratadorDeSimboloFonte>, &TRefSimbolo::De<TSimboloFonte>},
    {"Grafico", &TRefTratador::De<TTratadorDeSimboloGrafico>, &TRefSimbolo::De<TSimboloGrafico>},
    {"Composto", &TRefTratador::De<TTratadorDeSimboloComposto>, &TRefSimbolo::De<TSimboloComposto>},
};

void Iniciar()
{
    CriarBitmapDeMedida();
    CriarCacheDePinturas();
    CriarRegistroDeTratadores();
    for (const TTipoBasico &T : TiposBasicos)
        TListaSimbolo::RegistrarTratadorDeSimbolo(QLatin1String(T.Tipo), T.Tratador(), T.Simbolo());
}

void Parar()
{
    for (const TTipoBasico &T : TiposBasicos)
        TListaSimbolo::RemoverRegistroTratadorDeSimbolo(QLatin1String(T.Tipo));
    LiberarBitmapDeMedida();
    LiberarRegistroDeTratadores();
    LiberarCacheDePinturas();
}

constinit TModulo Modulo("TabelaDeSimbolos", &Iniciar, &Parar);

} // namespace

TModulo &ModuloTabelaDeSimbolos() noexcept
{
    return Modulo;
}

TTabelaDeSimbolos::TTabelaDeSimbolos(QWidget *Dono)
    : TSubject(Dono)
    , FSimbolos(std::make_unique<TListaSimbolo>())
{
    FSimbolos->AoAlterar = [this](TListaSimbolo &Lista) { AoMudarSimbolos(Lista); };
}

TTabelaDeSimbolos::~TTabelaDeSimbolos() = default;

std::unique_ptr<TListaSimbolo> TTabelaDeSimbolos::AtribuirSimbolos(std::unique_ptr<TListaSimbolo> Lista)
{
    return std::exchange(FSimbolos, std::move(Lista));
}

void TTabelaDeSimbolos::AtribuirRotulos(const TStrings &Valor)
{
    FRotulos.Assign(Valor);
    AvisarObservers();
}

QString TTabelaDeSimbolos::ObterRotulo(int Indice) const
{
    return Indice >= 0 && Indice < FRotulos.Count() ? FRotulos.Linha(Indice) : QString();
}

void TTabelaDeSimbolos::Limpar()
{
    FSimbolos->Clear();
    FRotulos.Clear();
}

void TTabelaDeSimbolos::AcrescentarAviso(TAvisoDeImportacao Aviso)
{
    FAvisos.push_back(std::move(Aviso));
}

void TTabelaDeSimbolos::AoMudarSimbolos(TListaSimbolo &)
{
    AvisarObservers();
}

void TTabelaDeSimbolos::Desenhar(int Indice, TCanvas &Canvas, const TRect &Rect) const
{
    FSimbolos->Item(Indice)->Desenhar(Canvas, Rect);
}

void TTabelaDeSimbolos::Desenhar(int Indice, QPainter &Pintor, const QRect &Area, const QColor &Cor) const
{
    TCanvas Canvas(Pintor);
    Canvas.Pen.Color = TColor(Cor);
    Desenhar(Indice, Canvas, TRect(Area));
}

void TTabelaDeSimbolos::DesenharRotacionado(int Indice, TCanvas &Canvas, const TRect &Rect, double) const
{
    if (Indice < FSimbolos->Count())
        Desenhar(Indice, Canvas, Rect);
}

void TTabelaDeSimbolos::DesenharBuffer(TCanvas &Canvas, const TRect &Rect, double Angulo) const
{
    DesenharRotacionada(Canvas, Rect, Buffer.Imagem(), CorTransparente, Angulo);
}

} // namespace Sibrel
