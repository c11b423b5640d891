// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/Tradutor.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

#include <algorithm>
#include <array>
#include <string_view>

namespace Hospedeiro
{

namespace
{

struct TTraducao {
    std::string_view Contexto;
    std::string_view Texto;
    const char *EmPortugues;
};

constexpr std::string_view Leitor = "QCommandLineParser";
constexpr std::string_view Botoes = "QPlatformTheme";

constexpr std::array Traducoes = {
    TTraducao{Leitor, "Usage: %1", "Uso: %1"},
    TTraducao{Leitor, "[options]", "[opções]"},
    TTraducao{Leitor, "Options:", "Opções:"},
    TTraducao{Leitor, "Missing value after '%1'.", "Falta o valor da opção <%1>!"},
    TTraducao{Leitor, "Unexpected value after '%1'.", "A opção <%1> não leva valor!"},
    TTraducao{Leitor, "Unknown option '%1'.", "A opção <%1> não existe!"},
    TTraducao{Leitor, "Unknown options: %1.", "As opções <%1> não existem!"},
    TTraducao{Botoes, "OK", "OK"},
    TTraducao{Botoes, "&Yes", "&Sim"},
    TTraducao{Botoes, "&No", "&Não"},
    TTraducao{Botoes, "Cancel", "Cancelar"},
    TTraducao{Botoes, "Close", "Fechar"},
};

} // namespace

QString TTradutor::translate(const char *Contexto, const char *Texto, const char *, int) const
{
    const auto Achada = std::find_if(Traducoes.begin(), Traducoes.end(), [=](const TTraducao &T) {
        return Contexto != nullptr && Texto != nullptr && T.Contexto == Contexto && T.Texto == Texto;
    });
    return Achada != Traducoes.end() ? QString::fromUtf8(Achada->EmPortugues) : QString();
}

void InstalarTradutores()
{
    auto *DoQt = new QTranslator(qApp);
    if (DoQt->load(QLocale(QLocale::Portuguese, QLocale::Brazil), QStringLiteral("qtbase"),
                   QStringLiteral("_"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(DoQt);
    QCoreApplication::installTranslator(new TTradutor(qApp));
}

} // namespace Hospedeiro
