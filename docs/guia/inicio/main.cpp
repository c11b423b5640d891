// SPDX-License-Identifier: LGPL-2.1-or-later
// quadro FOLDER [PICTURE]: shows the tree of the folder; with a picture's name, photographs it and ends.
#include <Sibrel/Exception>
#include <Sibrel/TPreparaAtualizacao>
#include <Sibrel/TTabelaDeSimbolos>
#include <Sibrel/TTreeViewXML>
#include <Sibrel/TVisualizadorInformacoesXML>

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QSplitter>
#include <QTimer>

using namespace Sibrel;

int main(int argc, char **argv)
{
    const QApplication Aplicacao(argc, argv);
    const QStringList Argumentos = QApplication::arguments();
    const QDir Pasta(Argumentos.value(1));

    // Each of these tags makes a node of the class that knows captions, colours, symbols and links.
    for (const char *Tag : {"Brigada", "Batalhao", "Posto"})
        TTreeViewXML::RegistrarClasse(QString::fromLatin1(Tag), TRefNoXML::De<TTreeNodeXML>());

    QSplitter Janela;
    TTabelaDeSimbolos Tabela;
    auto *Arvore = new TTreeViewXML(&Janela); // the splitter owns both
    auto *Informacoes = new TVisualizadorInformacoesXML(&Janela);

    // The view drops its references when it gets its window: let it get one first.
    Arvore->ensurePolished();
    Arvore->AtribuirTabelaDeSimbolos(&Tabela);
    Arvore->AtribuirFrameDeInformacoes(Informacoes);
    Arvore->ElementoRaiz = QStringLiteral("OrdemDeBatalha");

    try {
        Tabela.Importar(Pasta.filePath(QStringLiteral("simbolos.txt")));
        Arvore->Ler(Pasta.filePath(QStringLiteral("ordem.xml")), false);
        Arvore->Ler(Pasta.filePath(QStringLiteral("atualizacao.xml")), true);
    } catch (const Exception &Erro) {
        if (Argumentos.size() < 3)
            QMessageBox::critical(nullptr, QString(), Erro.Message + u'\n' + Erro.Detalhe);
        qWarning("%s", Erro.what());
        return 1;
    }

    Arvore->AtribuirItemHeight(28);
    Janela.resize(560, 240);
    Janela.show();

    if (Argumentos.size() > 2)
        QObject::connect(Arvore, &TTreeViewXML::Progresso, &Janela, [&](TPreparaAtualizacao *Atualizacao) {
            if (Atualizacao->Etapa() != u"Terminado" || Arvore->Atualizacoes().size() > 1)
                return; // the second of the two documents is the last
            TTreeNode *Batalhao = Arvore->ObterNo(QStringLiteral("1ª Brigada/11º Batalhão"));
            Arvore->AtribuirSelected(Batalhao);
            const bool Certo = Batalhao != nullptr && Janela.grab().save(Argumentos.at(2));
            QTimer::singleShot(0, [Certo] { QApplication::exit(Certo ? 0 : 1); });
        });
    return QApplication::exec();
}
