// SPDX-License-Identifier: LGPL-2.1-or-later
// The geometry of figures computed the slow way, step by step in long arithmetic, to hold the library to.
#pragma once

#include "plataforma/Rect.h"

#include <vector>

namespace Sibrel::Testes::Referencia
{

struct TSetorDeReferencia {
    int X = 0;
    int Y = 0;
    bool Fechado = false;
    double RaioMaior = -1;
    double RaioMenor = -1;
    double AngI = -1;
    double AngF = -1;
};

/// Nearest integer, halves to even, written out.
long long Arredondado(long double Valor);
int Metade(long long Soma);
double Escala(const TRect &Origem, const TRect &Destino);
TRect AreaDoSetor(const TSetorDeReferencia &S);
TPoint PontoDoSetor(const TSetorDeReferencia &S, double Angulo, double Raio, TPoint C);
std::vector<TPoint> Contorno(const TSetorDeReferencia &S, int Quantos, const TRect &Rect);
TRect AreaDoPoligono(const std::vector<TPoint> &Vertices);
std::vector<TPoint> PoligonoNoDispositivo(const std::vector<TPoint> &Vertices, const TRect &Rect);
/// The device rectangle of an element's box in a figure's box.
TRect NoDispositivo(const TRect &Figura, const TRect &Elemento, const TRect &Rect);

} // namespace Sibrel::Testes::Referencia
