// SPDX-License-Identifier: LGPL-2.1-or-later
// A form with the five components, drawn in the form editor and filled with the sample data:
//   formulario FOLDER-OF-THE-SAMPLE-DATA
#include "ui_Painel.h"

#include "arvore/ParseTableXMLMapeada.h"
#include "plataforma/ClientDataSet.h"
#include "plataforma/CustomConnection.h"
#include "plataforma/Exception.h"

#include <QApplication>
#include <QDir>
#include <QFontDatabase>

#include <cstdio>
#include <memory>

using namespace Sibrel;

namespace
{

TMapeamentoXML DasUnidades()
{
    TMapeamentoXML M;
    M.ColunaTag = QStringLiteral("TAG");
    M.ColunaNome = QStringLiteral("NOME");
    M.ColunaCor = QStringLiteral("COR");
    M.ColunaSimbolo = QStringLiteral("SIMBOLO");
    M.ColunaLink = QStringLiteral("LINK");
    M.Identificacao = {{QStringLiteral("Código"), QStringLiteral("CODIGO")}};
    M.ColunaChave = QStringLiteral("ID");
    M.ColunaPai = QStringLiteral("PAI");
    return M;
}

void RegistrarTags()
{
    for (const char *Tag : {"Divisao", "Brigada", "Batalhao", "Companhia", "Pelotao", "Posto", "Agrupamento"})
        TTreeViewXML::RegistrarClasse(QString::fromLatin1(Tag), TRefNoXML::De<TTreeNodeXML>());
}

void Preencher(const Ui::Painel &Form, const QDir &Dados, TCustomConnection &Banco)
{
    QFontDatabase::addApplicationFont(Dados.filePath(QStringLiteral("fontes/SibrelSimbolos.ttf")));
    Form.tabela->Importar(Dados.filePath(QStringLiteral("simbolos.txt")));
    TClientDataSet Glifos;
    Glifos.Open(Banco, QStringLiteral("SELECT * FROM SIMBOLOS ORDER BY ORDEM"));
    Form.tabelaBD->ImportarBD(Glifos);

    // A view forgets its table when it gets its window: first the window, then the table.
    Form.arvore->ensurePolished();
    Form.arvore->AtribuirTabelaDeSimbolos(Form.tabela);
    Form.arvore->Ler(Dados.filePath(QStringLiteral("arvore/ordem_de_batalha.xml")), false);
    Form.arvoreBD->ensurePolished();
    Form.arvoreBD->AtribuirTabelaDeSimbolos(Form.tabelaBD);
    Form.arvoreBD->AtribuirDataBase(&Banco);
    Form.arvoreBD->Parses().Add(std::make_unique<TParseTableXMLMapeada>(
        DasUnidades(), QStringLiteral("SELECT * FROM UNIDADES ORDER BY ID")));
    Form.arvoreBD->Executar();
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication Aplicacao(argc, argv);
    const QDir Dados(QApplication::arguments().value(1, QStringLiteral("exemplos/dados")));
    RegistrarTags();
    QWidget Janela;
    const auto Form = std::make_unique<Ui::Painel>();
    Form->setupUi(&Janela);
    try {
        TCustomConnection Banco(Dados.filePath(QStringLiteral("exercicio.sqlite")));
        Preencher(*Form, Dados, Banco);
        Janela.show();
        return QApplication::exec();
    } catch (const Exception &E) {
        std::fprintf(stderr, "%s\n%s\n", qUtf8Printable(E.Message), qUtf8Printable(E.Detalhe));
    }
    return 1;
}
