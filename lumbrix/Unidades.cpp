// SPDX-License-Identifier: LGPL-2.1-or-later
#include "lumbrix/Unidades.h"

#include "plataforma/Conversao.h"
#include "plataforma/SeparadorDecimal.h"

#include <numbers>

namespace Sibrel
{

namespace
{

constexpr int CasasAoMostrar = 2;
constexpr double GrausDaMeiaVolta = 180.0;

} // namespace

QString DistanciaToStr(double Distancia, bool ParaMostrar)
{
    return ParaMostrar ? FormatarDecimal(Distancia, CasasAoMostrar) : MenorFormaDecimal(Distancia);
}

double StrToDistancia(QStringView Texto)
{
    return StrToReal(Texto);
}

QString AnguloToStr(double Radianos, bool ParaMostrar)
{
    if (!ParaMostrar)
        return MenorFormaDecimal(Radianos);
    return FormatarDecimal(Radianos * GrausDaMeiaVolta / std::numbers::pi, CasasAoMostrar) + u'°';
}

double StrToAngulo(QStringView Texto)
{
    return StrToReal(Texto);
}

} // namespace Sibrel
