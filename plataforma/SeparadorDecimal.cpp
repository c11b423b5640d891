// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/SeparadorDecimal.h"

#include <QLocale>

#include <atomic>
#include <cmath>

namespace Sibrel
{

namespace
{

std::atomic<char16_t> &Separador() noexcept
{
    static std::atomic<char16_t> Valor = [] {
        const QString DoSistema = QLocale::system().decimalPoint();
        return DoSistema.isEmpty() ? u'.' : DoSistema[0].unicode();
    }();
    return Valor;
}

} // namespace

QChar SeparadorDecimal() noexcept
{
    return Separador().load(std::memory_order_relaxed);
}

void AtribuirSeparadorDecimal(QChar Valor) noexcept
{
    Separador().store(Valor.unicode(), std::memory_order_relaxed);
}

QString FormatarDecimal(double Valor, int Casas)
{
    // The conversion rounds an exact half to even; a reader of reports expects 0.125 as 0.13.
    const double Escala = std::pow(10.0, Casas);
    const double Escalado = Valor * Escala;
    const bool MeioExato =
        std::abs(Escalado - std::trunc(Escalado)) == 0.5 && std::fma(Valor, Escala, -Escalado) == 0.0;
    QString Texto = QString::number(MeioExato ? std::round(Escalado) / Escala : Valor, 'f', Casas);
    return Texto.replace(u'.', SeparadorDecimal());
}

} // namespace Sibrel
