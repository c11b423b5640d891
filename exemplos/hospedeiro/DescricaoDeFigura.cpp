// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/DescricaoDeFigura.h"

#include "simbolos/Poligono.h"
#include "simbolos/Ponto.h"
#include "simbolos/Setor.h"
#include "simbolos/SimboloVetorial.h"
#include "simbolos/Texto.h"

#include <QStringList>

namespace Hospedeiro
{

using namespace Sibrel;

namespace
{

QString Valor(std::int32_t Numero)
{
    return QString::number(Numero);
}
QString Valor(double Numero)
{
    return Decimal(Numero);
}
QString Valor(TColor Cor)
{
    return TextoDaCor(Cor);
}
QString Valor(bool Ligado)
{
    return Ligado ? QStringLiteral("S") : QStringLiteral("N");
}
template <class Enum>
requires std::is_enum_v<Enum> QString Valor(Enum Ordinal)
{
    return QString::number(static_cast<int>(Ordinal));
}

template <class T>
TCampo Campo(const char *Nome, const T &Conteudo)
{
    return {QString::fromUtf8(Nome), Valor(Conteudo)};
}

std::vector<TCampo> Campos(const TPonto &P)
{
    return {Campo("X", P.X()), Campo("Y", P.Y()), Campo("Cor", P.Cor())};
}

std::vector<TCampo> Campos(const TTexto &T)
{
    return {Campo("X", T.X()),
            Campo("Y", T.Y()),
            Campo("Cor", T.Fonte().Color()),
            {QStringLiteral("Fonte"), T.Fonte().Name()},
            Campo("Tamanho", T.Fonte().Size()),
            {QStringLiteral("Texto"), T.Texto()},
            Campo("Orientacao", std::int32_t{T.Orientacao()}),
            Campo("AlinhamentoVertical", T.AlinhamentoVertical()),
            Campo("AlinhamentoHorizontal", T.AlinhamentoHorizontal())};
}

// Sectors and polygons end with the same four.
template <class T>
void AcrescentarTraco(std::vector<TCampo> &Lista, const T &Elemento)
{
    Lista.push_back(Campo("CorLinha", Elemento.CorLinha()));
    Lista.push_back(Campo("CorFundo", Elemento.CorFundo()));
    Lista.push_back(Campo("EstiloLinha", Elemento.EstiloLinha()));
    Lista.push_back(Campo("EstiloFundo", Elemento.EstiloFundo()));
}

std::vector<TCampo> Campos(const TSetor &S)
{
    std::vector<TCampo> Lista = {Campo("X", S.X()),
                                 Campo("Y", S.Y()),
                                 Campo("Fechado", S.Fechado()),
                                 Campo("RaioMaior", S.RaioMaior()),
                                 Campo("RaioMenor", S.RaioMenor()),
                                 Campo("AngI", S.AngI()),
                                 Campo("AngF", S.AngF())};
    AcrescentarTraco(Lista, S);
    return Lista;
}

std::vector<TCampo> Campos(const TPoligono &P)
{
    std::vector<TCampo> Lista = {Campo("Fechado", P.Fechado())};
    AcrescentarTraco(Lista, P);
    QStringList Pontos;
    for (const TPoint &Vertice : P.ObterListaPosicao().Pontos())
        Pontos += QStringLiteral("%1,%2").arg(Vertice.X).arg(Vertice.Y);
    Lista.push_back({QStringLiteral("Pontos"), Pontos.join(u' ')});
    return Lista;
}

// Calls `Fazer` with the element as what it is; the default result for a class of a host's own.
template <class F>
auto ComOTipo(const IElementoGrafico &Elemento, F Fazer)
{
    if (const auto *Ponto = dynamic_cast<const TPonto *>(&Elemento))
        return Fazer(*Ponto, "Ponto");
    if (const auto *Texto = dynamic_cast<const TTexto *>(&Elemento))
        return Fazer(*Texto, "Texto");
    if (const auto *Setor = dynamic_cast<const TSetor *>(&Elemento))
        return Fazer(*Setor, "Setor");
    if (const auto *Poligono = dynamic_cast<const TPoligono *>(&Elemento))
        return Fazer(*Poligono, "Poligono");
    return decltype(Fazer(std::declval<const TPonto &>(), ""))();
}

} // namespace

QString TipoDoElemento(const IElementoGrafico &Elemento)
{
    return ComOTipo(Elemento, [](const auto &, const char *Tipo) { return QString::fromUtf8(Tipo); });
}

std::vector<TCampo> CamposDoElemento(const IElementoGrafico &Elemento)
{
    return ComOTipo(Elemento, [](const auto &E, const char *) { return Campos(E); });
}

QString ListaDaFigura(const TSimboloVetorial &Figura)
{
    QString Lista;
    int Indice = 0;
    for (const auto &Elemento : Figura.ObterElementos()) {
        Lista += QString::number(Indice++) + u'\t' + TipoDoElemento(*Elemento);
        for (const TCampo &Campo : CamposDoElemento(*Elemento))
            Lista += u'\t' + Campo.Nome + u'=' + EmUmaColuna(Campo.Valor);
        Lista += u'\n';
    }
    return Lista;
}

} // namespace Hospedeiro
