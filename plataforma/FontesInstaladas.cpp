// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/FontesInstaladas.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QPointer>
#include <QSet>

namespace Sibrel
{

namespace
{

struct TFontesInstaladas {
    QPointer<QGuiApplication> Aplicacao;
    std::uint64_t Geracao = 1;
    std::uint64_t GeracaoDasFamilias = 0;
    QString Ultima; // the family last asked for: a library names the same font record after record
    bool UltimaInstalada = false;
    QSet<QString> Familias; // folded; read whole, since asking for one family at a time costs a walk over all
};

TFontesInstaladas &Estado()
{
    static TFontesInstaladas Unico;
    return Unico;
}

void LerFamilias(TFontesInstaladas &E)
{
    E.Familias.clear();
    for (const QString &Familia : QFontDatabase::families()) {
        E.Familias.insert(Familia.toCaseFolded());
        // Families that several foundries offer are listed as "Name [Foundry]".
        if (const qsizetype Fundicao = Familia.lastIndexOf(QLatin1String(" [")); Fundicao > 0)
            E.Familias.insert(Familia.first(Fundicao).toCaseFolded());
    }
    E.GeracaoDasFamilias = E.Geracao;
}

} // namespace

std::uint64_t GeracaoDasFontes()
{
    TFontesInstaladas &E = Estado();
    if (E.Aplicacao != qGuiApp && qGuiApp != nullptr) {
        E.Aplicacao = qGuiApp;
        ++E.Geracao;
        QObject::connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, qGuiApp, [] { ++Estado().Geracao; });
    }
    return E.Geracao;
}

bool FonteInstalada(const QString &Nome)
{
    if (qGuiApp == nullptr)
        return true;
    const std::uint64_t Geracao = GeracaoDasFontes();
    TFontesInstaladas &E = Estado();
    if (E.GeracaoDasFamilias != Geracao)
        LerFamilias(E);
    else if (E.Ultima == Nome)
        return E.UltimaInstalada;
    E.Ultima = Nome;
    E.UltimaInstalada = E.Familias.contains(Nome.toCaseFolded()) || QFontDatabase::hasFamily(Nome);
    return E.UltimaInstalada;
}

} // namespace Sibrel
