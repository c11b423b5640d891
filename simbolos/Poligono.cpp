// SPDX-License-Identifier: LGPL-2.1-or-later
#include "simbolos/Poligono.h"

#include "lumbrix/Geometria.h"
#include "simbolos/GeometriaDeElementos.h"
#include "simbolos/XMLDeElementos.h"

#include <QVarLengthArray>

#include <cmath>
#include <utility>

namespace Sibrel
{

namespace
{

/// From figure units to device pixels: around the centre of the polygon's box, onto that of `Rect`.
class TProjecao
{
public:
    TProjecao(const TRect &Area, const TRect &Rect) noexcept
        : FDe(Centro(Area))
        , FPara(Centro(Rect))
        , FEscala(ObterEscala(Area, Rect))
    {
    }
    double RelativoX(const TPoint &P) const noexcept { return (static_cast<double>(P.X) - FDe.X) * FEscala; }
    double RelativoY(const TPoint &P) const noexcept { return (static_cast<double>(P.Y) - FDe.Y) * FEscala; }
    double X(const TPoint &P) const noexcept { return RelativoX(P) + FPara.X; }
    double Y(const TPoint &P) const noexcept { return RelativoY(P) + FPara.Y; }

private:
    TPoint FDe;
    TPoint FPara;
    double FEscala;
};

} // namespace

TPoligono::TPoligono()
    : ComClasse(clBlack)
    , FVertices(std::make_unique<TListaPosicoes>())
{
}

TPoligono::~TPoligono() = default;

std::unique_ptr<TListaPosicoes> TPoligono::AtribuirListaPosicao(std::unique_ptr<TListaPosicoes> Lista)
{
    return std::exchange(FVertices, Lista ? std::move(Lista) : std::make_unique<TListaPosicoes>());
}

std::uint64_t TPoligono::Selo() const
{
    // The vertices are changed in their own list, which has a stamp of its own.
    const std::uint64_t Antes = std::exchange(FSeloDosVertices, FVertices->Selo());
    if (Antes != FSeloDosVertices)
        Mudou();
    return IElementoGrafico::Selo();
}

TRect TPoligono::Area() const
{
    if (FVertices->Count() == 0)
        return {};
    const TPoint Primeiro = FVertices->First();
    TRect Area(Primeiro.X, Primeiro.Y, Primeiro.X, Primeiro.Y);
    for (const TPoint &P : FVertices->Pontos())
        Area = Uniao(Area, {P.X, P.Y, P.X, P.Y});
    return Area;
}

void TPoligono::Desenhar(TCanvas &Canvas, const TRect &Rect)
{
    AplicarEstado(Canvas);
    const TProjecao Projecao(Area(), Rect);
    QVarLengthArray<TPoint, 64> Pontos;
    for (const TPoint &P : FVertices->Pontos()) {
        const double X = Projecao.X(P);
        const double Y = Projecao.Y(P);
        if (!std::isfinite(X) || !std::isfinite(Y))
            return;
        Pontos.append({Arredondar(X), Arredondar(Y)});
    }
    const std::span<const TPoint> Todos(Pontos.constData(), static_cast<std::size_t>(Pontos.size()));
    if (Fechado())
        Canvas.Polygon(Todos);
    else
        Canvas.Polyline(Todos);
}

bool TPoligono::DescreverPintura(const TRect &Rect, TPinturaDoElemento &Pintura) const
{
    const TRect A = Area();
    const TProjecao Projecao(A, Rect);
    for (const TPoint &P : FVertices->Pontos()) {
        Observar(Pintura, Projecao.RelativoX(P));
        Observar(Pintura, Projecao.RelativoY(P));
    }
    const TPoint Cantos[] = {{A.Left, A.Top}, {A.Right, A.Bottom}};
    const auto [Esquerda, Direita] = std::minmax({Projecao.X(Cantos[0]), Projecao.X(Cantos[1])});
    const auto [Topo, Base] = std::minmax({Projecao.Y(Cantos[0]), Projecao.Y(Cantos[1])});
    Pintura.Alcance = {Arredondar(Esquerda), Arredondar(Topo), Arredondar(std::nearbyint(Direita) + 1),
                       Arredondar(std::nearbyint(Base) + 1)};
    DescreverTraco(Fechado(), Pintura);
    return true;
}

QString TPoligono::ObterXML() const
{
    TEscritaDeElemento Escrita(u"Poligono");
    Escrita.Atributo(u"Fechado", Fechado());
    QString Texto = EscreverTraco(Escrita).Fechar(u">");
    for (const TPoint &P : FVertices->Pontos())
        Texto += TEscritaDeElemento(u"Ponto").Atributo(u"X", P.X).Atributo(u"Y", P.Y).Fechar();
    return Texto += QStringView(u"</Poligono>");
}

void TPoligono::AtribuirXML(const TCursorXML &No)
{
    LerFechado(No);
    LerTraco(No);
    FVertices->Clear();
    for (const TCursorXML &Filho : No.Filhos()) {
        if (!Filho.HasAttribute(u"X") || !Filho.HasAttribute(u"Y"))
            continue;
        TPoint P;
        SeHouver(Filho, u"X", [&P](QStringView T) { P.X = StrToInt(T); });
        SeHouver(Filho, u"Y", [&P](QStringView T) { P.Y = StrToInt(T); });
        FVertices->Add(P);
    }
}

} // namespace Sibrel
