// SPDX-License-Identifier: LGPL-2.1-or-later
#include "registro/Componentes.h"

#include "simbolos/TabelaDeSimbolos.h"

#include <QFile>
#include <QPixmap>

#include <array>

namespace Sibrel
{

namespace
{

template <class Componente>
QWidget *Novo(QWidget *Dono)
{
    return new Componente(Dono); // the parent owns it
}

constexpr std::array DaTabela = {QLatin1String("CorTransparente")};

constexpr std::array Componentes = {
    TComponenteDoPacote{QLatin1String("TTabelaDeSimbolos"), QLatin1String("simbolos/TabelaDeSimbolos.h"),
                        u"Tabela de símbolos numerados e rotulados", false, &Novo<TTabelaDeSimbolos>,
                        DaTabela},
};

} // namespace

QIcon TComponenteDoPacote::Icone() const
{
    const QString Recurso = QStringLiteral(":/sibrel/paleta/%1.bmp").arg(QString(Classe).toUpper());
    return QFile::exists(Recurso) ? QIcon(Recurso) : QIcon();
}

std::span<const TComponenteDoPacote> ComponentesDoPacote() noexcept
{
    return Componentes;
}

} // namespace Sibrel
