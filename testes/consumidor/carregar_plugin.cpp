// SPDX-License-Identifier: LGPL-2.1-or-later
// carregar_plugin FILE: loads a form editor's plugin as the editor does. Exit code 0 when it is one.
#include <QApplication>
#include <QPluginLoader>

#include <cstdio>

int main(int argc, char **argv)
{
    const QApplication Aplicacao(argc, argv);
    QPluginLoader Carregador(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString());
    if (Carregador.instance() == nullptr) {
        std::fprintf(stderr, "%s\n", qPrintable(Carregador.errorString()));
        return 1;
    }
    const QString Interface = Carregador.metaData().value(QStringLiteral("IID")).toString();
    return Interface.contains(QStringLiteral("QDesignerCustomWidgetCollection")) ? 0 : 1;
}
