// SPDX-License-Identifier: LGPL-2.1-or-later
#include "lumbrix/DecodeDateTimeXML.h"

#include "plataforma/Exception.h"

#include <QRegularExpression>

#include <optional>

namespace Sibrel
{

namespace
{

// Seconds east of Greenwich; nothing when the zone is none.
std::optional<int> Deslocamento(const QRegularExpressionMatch &Partes)
{
    if (Partes.captured(9) == u"Z")
        return 0;
    const int Horas = Partes.captured(11).toInt();
    const int Minutos = Partes.captured(12).toInt();
    constexpr int MaiorHora = 14;
    constexpr int MinutosPorHora = 60;
    constexpr int SegundosPorMinuto = 60;
    if (Horas > MaiorHora || Minutos >= MinutosPorHora)
        return std::nullopt;
    const int Segundos = (Horas * MinutosPorHora + Minutos) * SegundosPorMinuto;
    return Partes.captured(10) == u"-" ? -Segundos : Segundos;
}

QDateTime Ler(QStringView Texto)
{
    static const QRegularExpression Forma(QStringLiteral(
        R"(^([0-9]{4})-([0-9]{2})-([0-9]{2})[T ]([0-9]{2}):([0-9]{2})(:([0-9]{2})(?:[.,]([0-9]+))?)?(Z|([+-])([0-9]{2})(?::?([0-9]{2}))?)?$)"));
    const QRegularExpressionMatch Partes = Forma.match(Texto.trimmed().toString());
    if (!Partes.hasMatch())
        return {};
    const auto Numero = [&Partes](int Grupo) { return Partes.captured(Grupo).toInt(); };
    const int Milissegundos = (Partes.captured(8) + QStringLiteral("000")).first(3).toInt();
    const QDate Dia(Numero(1), Numero(2), Numero(3));
    const QTime Hora(Numero(4), Numero(5), Numero(7), Milissegundos);
    if (!Dia.isValid() || !Hora.isValid())
        return {};
    if (Partes.captured(9).isEmpty())
        return QDateTime(Dia, Hora, Qt::LocalTime);
    const std::optional<int> Segundos = Deslocamento(Partes);
    return Segundos ? QDateTime(Dia, Hora, Qt::OffsetFromUTC, *Segundos) : QDateTime();
}

} // namespace

QDateTime DecodeDateTimeXML(QStringView Texto)
{
    QDateTime Resultado = Ler(Texto);
    if (!Resultado.isValid())
        throw EConvertError(QStringLiteral("<%1> não é uma data e hora válida!").arg(Texto));
    return Resultado;
}

} // namespace Sibrel
