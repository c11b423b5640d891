// SPDX-License-Identifier: LGPL-2.1-or-later
#include "guia/Trecho.h"

#include "ui_quadro.h"

#include <Sibrel/TTabelaDeSimbolos>
#include <Sibrel/TTreeViewXML>

#include <QFile>
#include <QUiLoader>

#include <memory>

using namespace Sibrel;
using Sibrel::Guia::Dado;
using Sibrel::Guia::PastaDosPlugins;

TRECHO(Gerado)
{
    //! [gerado]
    QWidget Janela;
    Ui::Quadro Formulario; // made from quadro.ui
    Formulario.setupUi(&Janela);
    Formulario.arvore->ensurePolished();
    Formulario.arvore->AtribuirTabelaDeSimbolos(Formulario.tabela);
    //! [gerado]
    Janela.show();
    EXIGIR(Formulario.arvore->ElementoRaiz == u"Exercicio");
    EXIGIR(Formulario.arvore->TabelaDeSimbolos() == Formulario.tabela);
    EXIGIR(!Formulario.tabela->isVisible());
}

TRECHO(Carregado)
{
    QFile Arquivo(Dado(QStringLiteral("dados/quadro.ui")));
    EXIGIR(Arquivo.open(QIODevice::ReadOnly));
    //! [carregado]
    QUiLoader Carregador;
    Carregador.addPluginPath(PastaDosPlugins()); // not needed where the plugin stands among Qt's own
    const std::unique_ptr<QWidget> Janela(Carregador.load(&Arquivo));
    auto *Arvore = Janela->findChild<TTreeViewXML *>(QStringLiteral("arvore"));
    Arvore->ensurePolished();
    Arvore->AtribuirTabelaDeSimbolos(Janela->findChild<TTabelaDeSimbolos *>());
    //! [carregado]
    EXIGIR(Arvore->ElementoRaiz == u"Exercicio");
    EXIGIR(Arvore->TabelaDeSimbolos() != nullptr);
}
