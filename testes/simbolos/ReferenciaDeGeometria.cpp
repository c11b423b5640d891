// SPDX-License-Identifier: LGPL-2.1-or-later
#include "ReferenciaDeGeometria.h"

#include <cmath>

namespace Sibrel::Testes::Referencia
{

namespace
{

constexpr long double Pi = 3.14159265358979323846264338327950288L;

int Int(long long Valor)
{
    return static_cast<int>(Valor);
}

} // namespace

long long Arredondado(long double Valor)
{
    const long double Chao = std::floor(Valor);
    const long double Resto = Valor - Chao;
    const auto Inteiro = static_cast<long long>(Chao);
    if (Resto > 0.5L)
        return Inteiro + 1;
    if (Resto < 0.5L)
        return Inteiro;
    return Inteiro % 2 == 0 ? Inteiro : Inteiro + 1;
}

int Metade(long long Soma)
{
    return Int(Soma < 0 ? -(-Soma / 2) : Soma / 2);
}

double Escala(const TRect &Origem, const TRect &Destino)
{
    const double SX = (1.0 * Destino.Right - Destino.Left) / (1.0 * Origem.Right - Origem.Left);
    const double SY = (1.0 * Destino.Bottom - Destino.Top) / (1.0 * Origem.Bottom - Origem.Top);
    if (SX >= SY)
        return SY;
    return SX;
}

TRect AreaDoSetor(const TSetorDeReferencia &S)
{
    return {Int(Arredondado(S.X - S.RaioMaior)), Int(Arredondado(S.Y - S.RaioMaior)),
            Int(Arredondado(S.X + S.RaioMaior)), Int(Arredondado(S.Y + S.RaioMaior))};
}

TPoint PontoDoSetor(const TSetorDeReferencia &S, double Angulo, double Raio, TPoint C)
{
    const long double B = Angulo + Pi / 2;
    const long long Y = C.Y + Arredondado(S.Y + Raio * std::cos(B));
    const long long X = C.X + Arredondado(S.X + Raio * std::sin(B));
    return {Int(X), Int(Y)};
}

std::vector<TPoint> Contorno(const TSetorDeReferencia &S, int N, const TRect &Rect)
{
    std::vector<TPoint> Pontos;
    const TPoint C(Metade(0LL + Rect.Left + Rect.Right), Metade(0LL + Rect.Top + Rect.Bottom));
    const double E = Escala(AreaDoSetor(S), Rect);
    int I = 0;
    if (S.AngI == S.AngF) {
        if (S.RaioMenor > 0) {
            const int H = N / 2;
            const double Passo = static_cast<double>(2 * Pi) / (H - 1);
            double Angulo = S.AngI;
            while (I < H) {
                Pontos.push_back(PontoDoSetor(S, Angulo, E * S.RaioMenor, C));
                I += 1;
                Angulo += Passo;
            }
        }
        const double Passo = static_cast<double>(2 * Pi) / (N - I - 1);
        double Angulo = S.AngF;
        while (I < N) {
            Pontos.push_back(PontoDoSetor(S, Angulo, E * S.RaioMaior, C));
            I += 1;
            Angulo -= Passo;
        }
        return Pontos;
    }
    if (S.RaioMenor == 0 && S.Fechado) {
        Pontos.push_back(C);
        I = 1;
    } else {
        const int H = N / 2;
        const double Passo = (S.AngF - S.AngI) / (H - 1);
        for (int K = 0; K <= H - 1; ++K) {
            Pontos.push_back(PontoDoSetor(S, S.AngI + K * Passo, E * S.RaioMenor, C));
            I += 1;
        }
    }
    const int M = I;
    const double Passo = (S.AngF - S.AngI) / (N - M - 1);
    for (int J = M; J <= N - 1; ++J)
        Pontos.push_back(PontoDoSetor(S, S.AngF - (J - M) * Passo, E * S.RaioMaior, C));
    return Pontos;
}

TRect AreaDoPoligono(const std::vector<TPoint> &Vertices)
{
    TRect A(Vertices[0].X, Vertices[0].Y, Vertices[0].X, Vertices[0].Y);
    for (std::size_t I = 1; I < Vertices.size(); ++I) {
        if (A.Right < Vertices[I].X)
            A.Right = Vertices[I].X;
        else if (Vertices[I].X < A.Left)
            A.Left = Vertices[I].X;
        if (A.Bottom < Vertices[I].Y)
            A.Bottom = Vertices[I].Y;
        else if (Vertices[I].Y < A.Top)
            A.Top = Vertices[I].Y;
    }
    return A;
}

std::vector<TPoint> PoligonoNoDispositivo(const std::vector<TPoint> &Vertices, const TRect &Rect)
{
    const TRect A = AreaDoPoligono(Vertices);
    const TPoint De(Metade(0LL + A.Left + A.Right), Metade(0LL + A.Top + A.Bottom));
    const TPoint Para(Metade(0LL + Rect.Left + Rect.Right), Metade(0LL + Rect.Top + Rect.Bottom));
    const double E = Escala(A, Rect);
    std::vector<TPoint> Pontos;
    for (const TPoint &V : Vertices) {
        const double X = (V.X - De.X) * E + Para.X;
        const double Y = (V.Y - De.Y) * E + Para.Y;
        if (!std::isfinite(X) || !std::isfinite(Y))
            return {};
        Pontos.emplace_back(Int(Arredondado(X)), Int(Arredondado(Y)));
    }
    return Pontos;
}

TRect NoDispositivo(const TRect &Figura, const TRect &Elemento, const TRect &Rect)
{
    const double SX = (1.0 * Rect.Right - Rect.Left - 3) / (1.0 * Figura.Right - Figura.Left);
    const double SY = (1.0 * Rect.Bottom - Rect.Top - 3) / (1.0 * Figura.Bottom - Figura.Top);
    const double S = SX >= SY ? SY : SX;
    const TPoint C(Metade(0LL + Figura.Left + Figura.Right), Metade(0LL + Figura.Top + Figura.Bottom));
    const TPoint R(Metade(0LL + Rect.Left + Rect.Right), Metade(0LL + Rect.Top + Rect.Bottom));
    return {Int(Arredondado((Elemento.Left - C.X) * S + R.X)),
            Int(Arredondado((Elemento.Top - C.Y) * S + R.Y)),
            Int(Arredondado((Elemento.Right - C.X) * S + R.X)),
            Int(Arredondado((Elemento.Bottom - C.Y) * S + R.Y))};
}

} // namespace Sibrel::Testes::Referencia
