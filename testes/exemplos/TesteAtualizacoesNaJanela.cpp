// SPDX-License-Identifier: LGPL-2.1-or-later
// Updates in the example host's window: progress, log, queue, watched folder, exercise, and an early end.
#include "CenaDaArvore.h"

#include "hospedeiro/DescricaoDaArvore.h"
#include "hospedeiro/PainelDeAtualizacoes.h"

#include "plataforma/Exception.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QClipboard>
#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>
#include <QTableView>
#include <QTest>
#include <QToolButton>

using namespace Sibrel;
using namespace Sibrel::Testes;
using namespace Hospedeiro;

class TesteAtualizacoesNaJanela : public TCenaDaArvore
{
    Q_OBJECT

private Q_SLOTS:
    void init() { AbrirJanela(); }
    void cleanup() { FecharJanela(); }
    void OAndamentoEOCancelamento();
    void ORegistroDizODesfecho();
    void UmElementoQueFalhaPergunta();
    void UmDocumentoRuimDeixaAArvore();
    void AbrirEncerraOQueAnda();
    void APastaVigiadaNaOrdemDosNomes();
    void OExercicioInteiro();
    void ExcluirDuranteOExercicio();
    void FecharNoMeioDeUmaAtualizacao();
    void FecharComAPerguntaAberta();
    void ORegistroEsqueceOsMaisVelhos();
};

void TesteAtualizacoesNaJanela::OAndamentoEOCancelamento()
{
    auto *Barra = Painel().findChild<QProgressBar *>();
    QToolButton *Cancelar = nullptr;
    for (QToolButton *Botao : Painel().findChild<TPainelDeAtualizacoes *>()->findChildren<QToolButton *>())
        if (Botao->text() == QStringLiteral("&Cancelar"))
            Cancelar = Botao;
    QVERIFY(Cancelar != nullptr && !Cancelar->isEnabled());
    constexpr int Quantas = 20000;
    int Visto = 0;
    bool Certo = true;
    connect(&Arvore(), &TTreeViewXML::Progresso, this, [&](TPreparaAtualizacao *A) {
        if (A->Etapa() != u"Atualização" || A->Posicao() == 0 || Visto > 0)
            return;
        Visto = A->Posicao();
        Certo = Barra->maximum() == Quantas && Barra->value() == Visto && Cancelar->isEnabled() &&
                Painel().findChild<TPainelDeAtualizacoes *>()->findChild<QLabel *>()->text() ==
                    QStringLiteral("Atualização: %1 de %2").arg(Visto).arg(Quantas);
        QTest::mouseClick(Cancelar, Qt::LeftButton);
    });
    Painel().Abrir(Gravar(QStringLiteral("a.xml"), Unidades(Quantas)));
    QVERIFY(Esperar());
    QVERIFY(Visto > 0 && Certo);
    QVERIFY(Arvore().Items().Count() > 0 && Arvore().Items().Count() < Quantas); // what is done stays done
    QCOMPARE(Painel().Registro().Desfecho(0), TDesfecho::Cancelado);
    QCOMPARE(Celula(0, TRegistroDeAtualizacoes::ColunaResultado), QStringLiteral("Cancelado"));
    QVERIFY(!Cancelar->isEnabled());
    QCOMPARE(Barra->value(), 0);
    // The next one is whole; what waited behind a cancelled one is not forgotten.
    Painel().Abrir(Gravar(QStringLiteral("b.xml"), Unidades(Quantas)));
    QVERIFY(Esperar());
    QCOMPARE(Arvore().Items().Count(), Quantas);
    QCOMPARE(Painel().Registro().Desfecho(1), TDesfecho::Terminado);
    Visto = 0;
    Painel().Abrir(Gravar(QStringLiteral("c.xml"), Unidades(Quantas)));
    Painel().Atualizar(Gravar(QStringLiteral("d.xml"), "<R><Brigada Nome='Depois'/></R>"));
    QVERIFY(Esperar());
    QVERIFY(Visto > 0);
    QCOMPARE(Painel().Registro().Desfecho(2), TDesfecho::Cancelado);
    QCOMPARE(Painel().Registro().Desfecho(3), TDesfecho::Terminado);
    QVERIFY(No(QStringLiteral("Depois")) != nullptr);
}

void TesteAtualizacoesNaJanela::ORegistroDizODesfecho()
{
    const QAbstractItemModelTester Fiscal(&Painel().Registro());
    QVERIFY(AbrirExemplo());
    Painel().Atualizar(DaArvore(QStringLiteral("atualizacao1.xml")));
    Painel().Atualizar(Gravar(QStringLiteral("nada.xml"), "<R><Desconhecido/></R>"));
    Painel().Atualizar(Gravar(QStringLiteral("ruim.xml"), "<R>\n<Brigada</R>"));
    Painel().Atualizar(FPasta->filePath(QStringLiteral("nao.xml")));
    QVERIFY(Esperar());
    QCOMPARE(Painel().Registro().rowCount(), 5);
    using R = TRegistroDeAtualizacoes;
    QCOMPARE(Celula(0, R::ColunaDocumento), QStringLiteral("ordem_de_batalha.xml"));
    QCOMPARE(Celula(0, R::ColunaResultado), QStringLiteral("Terminado: 293 inclusões"));
    QCOMPARE(Celula(1, R::ColunaResultado),
             QStringLiteral("Terminado: 5 inclusões, 8 alterações, 1 exclusão"));
    QCOMPARE(Celula(2, R::ColunaResultado), QStringLiteral("Terminado: nada a fazer"));
    QCOMPARE(Painel().Registro().Desfecho(3), TDesfecho::Falhou);
    QVERIFY2(Celula(3, R::ColunaResultado).startsWith(QStringLiteral("Arquivo em formato inválido! Linha 2")),
             qPrintable(Celula(3, R::ColunaResultado)));
    QCOMPARE(Painel().Registro().Desfecho(4), TDesfecho::Falhou);
    QVERIFY(Celula(4, R::ColunaResultado).contains(QStringLiteral("nao.xml")));
    QCOMPARE(FJanela->Erros.size(), 2); // whoever asked for them is told
    QTableView *Lista = nullptr;
    for (QTableView *Tabela : Painel().findChildren<QTableView *>())
        if (Tabela->model() == &Painel().Registro())
            Lista = Tabela;
    QVERIFY(Lista != nullptr);
    Lista->setFocus();
    Lista->selectRow(2);
    QTest::keyClick(Lista, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(),
             QStringList({Celula(2, 0), QStringLiteral("nada.xml"), Celula(2, 2), Celula(2, 3)}).join(u'\t'));
    for (int Linha = 0; Linha < 5; ++Linha) {
        QVERIFY(QTime::fromString(Celula(Linha, R::ColunaInicio), QStringLiteral("HH:mm:ss")).isValid());
        QVERIFY(Celula(Linha, R::ColunaDuracao).endsWith(QStringLiteral(" s")));
    }
}

void TesteAtualizacoesNaJanela::UmElementoQueFalhaPergunta()
{
    const QString Ruim =
        Gravar(QStringLiteral("r.xml"), "<R>\n<Brigada Nome='A'/>\n<Brigada Nome='B' Cor='azul'/>\n"
                                        "<Brigada Nome='C'/></R>");
    {
        TResposta Nao(QMessageBox::No);
        Painel().Abrir(Ruim);
        QVERIFY(Esperar());
        QCOMPARE(Nao.Texto,
                 QStringLiteral("Erro ao tratar o xml de resposta\r\nDeseja continuar?|"
                                "Linha 3, elemento R/Brigada: <azul> não é um número inteiro válido!"));
    }
    QCOMPARE(Arvore().Items().Count(), 0);
    QCOMPARE(Painel().Registro().Desfecho(0), TDesfecho::Falhou);
    const QString Resultado = Celula(0, TRegistroDeAtualizacoes::ColunaResultado);
    QVERIFY2(
        Resultado.startsWith(QStringLiteral("XML em formato inválido! Linha 3, R/Brigada: <azul> não é um "
                                            "número inteiro válido! | O documento foi guardado em ") +
                             FPasta->filePath(QStringLiteral("Erro"))),
        qPrintable(Resultado));
    {
        TResposta Sim(QMessageBox::Yes);
        Painel().Abrir(Ruim);
        QVERIFY(Esperar());
    }
    QCOMPARE(Arvore().Items().Count(), 2);
    QCOMPARE(
        Celula(1, TRegistroDeAtualizacoes::ColunaResultado),
        QStringLiteral("Terminado: 2 inclusões Linha 3, R/Brigada: <azul> não é um número inteiro válido!"));
}

void TesteAtualizacoesNaJanela::UmDocumentoRuimDeixaAArvore()
{
    QVERIFY(AbrirExemplo());
    Painel().Abrir(Gravar(QStringLiteral("ruim.xml"), "isto nao e xml"));
    QVERIFY(Esperar());
    QCOMPARE(Arvore().Items().Count(), 293);
    QVERIFY(FJanela->windowTitle().contains(QStringLiteral("ordem_de_batalha.xml")));
    QCOMPARE(FJanela->Erros.size(), 1);
    QVERIFY(FJanela->Erros[0].startsWith(QStringLiteral("Arquivo em formato inválido!|Arquivo <%1>:\nLinha 1")
                                             .arg(FPasta->filePath(QStringLiteral("ruim.xml")))));
}

void TesteAtualizacoesNaJanela::AbrirEncerraOQueAnda()
{
    const QString Grande = Gravar(QStringLiteral("g.xml"), Unidades(20000));
    const QString Outro = Gravar(QStringLiteral("o.xml"), "<R><Brigada Nome='Outro'/></R>");
    bool Aberto = false;
    connect(&Arvore(), &TTreeViewXML::Progresso, this, [&](const TPreparaAtualizacao *A) {
        if (Aberto || A->Etapa() != u"Atualização" || A->Posicao() == 0)
            return;
        Aberto = true;
        Painel().Abrir(Outro);
    });
    Painel().Abrir(Grande);
    Painel().Atualizar(Grande); // waits, and is forgotten
    QVERIFY(Sibrel::Testes::Esperar([&] { return Aberto && Painel().Fila().Parada(); }));
    QCOMPARE(ListaDaArvore(Arvore()), QStringLiteral("Outro\tcor=#000000\tsimbolo=0\n"));
    QCOMPARE(Painel().Registro().rowCount(), 2);
    QCOMPARE(Painel().Registro().Desfecho(0), TDesfecho::Cancelado);
    QCOMPARE(Painel().Registro().Desfecho(1), TDesfecho::Terminado);
}

void TesteAtualizacoesNaJanela::APastaVigiadaNaOrdemDosNomes()
{
    QTemporaryDir Vigiada;
    EscreverBytes(Vigiada.filePath(QStringLiteral("000.xml")), "<R><Brigada Nome='velho'/></R>");
    QVERIFY(Painel().Alimentacao().Vigiar(Vigiada.path()));
    QVERIFY(Painel().Alimentacao().AcaoVigiar()->isChecked());
    QVERIFY(Painel().Contagem().contains(QStringLiteral("vigiando ") + Vigiada.path()));
    EscreverBytes(Vigiada.filePath(QStringLiteral("003.xml")), "<R><Brigada Nome='B' Cor='3'/></R>");
    EscreverBytes(Vigiada.filePath(QStringLiteral("001.xml")),
                  "<R><Brigada Nome='A'/><Brigada Nome='B' Cor='1'/></R>");
    EscreverBytes(Vigiada.filePath(QStringLiteral("002.xml")), "estragado");
    QTRY_COMPARE_WITH_TIMEOUT(Painel().Registro().rowCount(), 3, 10000);
    QVERIFY(Esperar());
    for (int I = 0; I < 3; ++I)
        QCOMPARE(Celula(I, TRegistroDeAtualizacoes::ColunaDocumento), QStringLiteral("00%1.xml").arg(I + 1));
    QCOMPARE(ListaDaArvore(Arvore()),
             QStringLiteral("A\tcor=#000000\tsimbolo=0\nB\tcor=#030000\tsimbolo=0\n"));
    QCOMPARE(Painel().Registro().Desfecho(1), TDesfecho::Falhou);
    QCOMPARE(FJanela->Erros, QStringList()); // nobody waits for it: the log is enough
    QVERIFY(!Painel().Alimentacao().Vigiar(Vigiada.filePath(QStringLiteral("nenhuma"))));
    QCOMPARE(FJanela->Erros.size(), 1);
    Painel().Alimentacao().AcaoVigiar()->trigger();
    QVERIFY(!Painel().Contagem().contains(QStringLiteral("vigiando")));
}

void TesteAtualizacoesNaJanela::OExercicioInteiro()
{
    TAlimentacao &Fontes = Painel().Alimentacao();
    Fontes.Exercicio().AtribuirPasso(5);
    // Without a tree document it opens the one that it begins with, when what runs is over.
    Painel().Atualizar(Gravar(QStringLiteral("antes.xml"), Unidades(3)));
    QVERIFY(Fontes.Simular(DaArvore(QStringLiteral("exercicio"))));
    QVERIFY(Fontes.AcaoSimular()->isChecked());
    QVERIFY(
        Sibrel::Testes::Esperar([&] { return !Fontes.Exercicio().Andando() && Painel().Fila().Parada(); }));
    QCOMPARE(ListaDaArvore(Arvore()).split(u'\n'),
             QString::fromUtf8(BytesDe(DadoDeTeste(QStringLiteral("exemplos/arvore_exercitada.txt"))))
                 .split(u'\n'));
    QCOMPARE(Painel().Registro().rowCount(), 62);
    QVERIFY(!Fontes.AcaoSimular()->isChecked());
    QCOMPARE(FJanela->statusBar()->currentMessage(), QStringLiteral("Exercício terminado: 60 documentos"));
    // By its command, beside the document that is open; and stopped.
    Fontes.AcaoSimular()->trigger();
    QVERIFY(Fontes.Exercicio().Andando());
    QVERIFY(Painel().Contagem().contains(QStringLiteral("exercício: ")));
    Fontes.AcaoSimular()->trigger();
    QVERIFY(!Fontes.Exercicio().Andando() && !Fontes.AcaoSimular()->isChecked());
    QVERIFY(Esperar());
    // It goes with its tree: another one ends it, also while it waits with its first document.
    Painel().Atualizar(DaArvore(QStringLiteral("atualizacao1.xml")));
    Fontes.AcaoSimular()->trigger();
    QCOMPARE(Fontes.Exercicio().Feitos(), 0);
    Painel().Abrir(Gravar(QStringLiteral("o.xml"), "<R><Brigada Nome='Outro'/></R>"));
    QVERIFY(Esperar());
    QVERIFY(!Fontes.Exercicio().Andando());
    QCOMPARE(Arvore().Items().Count(), 1);
    QVERIFY(Esperar());
    QCOMPARE(FJanela->Erros, QStringList());
}

void TesteAtualizacoesNaJanela::ExcluirDuranteOExercicio()
{
    QVERIFY(AbrirExemplo());
    TAlimentacao &Fontes = Painel().Alimentacao();
    Fontes.Exercicio().AtribuirPasso(1);
    QVERIFY(Fontes.Simular(DaArvore(QStringLiteral("exercicio"))));
    int Excluidos = 0;
    while (Fontes.Exercicio().Andando() || !Painel().Fila().Parada()) {
        if (TTreeNode *Ultimo = Arvore().Items().GetFirstNode(); Ultimo != nullptr && Excluidos < 40) {
            while (Ultimo->HasChildren())
                Ultimo = Ultimo->GetLastChild();
            Arvore().AtribuirSelected(Ultimo);
            QTest::keyClick(&Arvore(), Qt::Key_Delete);
            ++Excluidos;
        }
        QTest::qWait(1);
    }
    QVERIFY(Excluidos > 10);
    QCOMPARE(Painel().Registro().rowCount(), 61);
    for (int I = 0; I < 61; ++I)
        QCOMPARE(Painel().Registro().Desfecho(I), TDesfecho::Terminado);
}

void TesteAtualizacoesNaJanela::FecharNoMeioDeUmaAtualizacao()
{
    const QString Grande = Gravar(QStringLiteral("g.xml"), Unidades(20000));
    Painel().Abrir(Grande);
    Painel().Atualizar(Grande);
    QVERIFY(QTest::qWaitFor([this] { return Arvore().Items().Count() > 100; }));
    FJanela.reset();
    QVERIFY(EsperarAtualizacoes());
}

void TesteAtualizacoesNaJanela::FecharComAPerguntaAberta()
{
    Painel().Abrir(Gravar(QStringLiteral("r.xml"), "<R><Brigada Nome='B' Cor='azul'/></R>"));
    // From inside the question's own event loop.
    QTimer Relogio;
    connect(&Relogio, &QTimer::timeout, this, [this, &Relogio] {
        if (QApplication::activeModalWidget() == nullptr)
            return;
        Relogio.stop();
        FJanela.reset();
    });
    Relogio.start(10);
    QVERIFY(QTest::qWaitFor([this] { return FJanela == nullptr; }));
    QVERIFY(EsperarAtualizacoes());
}

void TesteAtualizacoesNaJanela::ORegistroEsqueceOsMaisVelhos()
{
    TRegistroDeAtualizacoes &R = Painel().Registro();
    const QAbstractItemModelTester Fiscal(&R);
    const QString Nenhum = FPasta->filePath(QStringLiteral("nao.xml"));
    for (std::size_t I = 0; I < TRegistroDeAtualizacoes::Maximo + 5; ++I)
        Painel().Fila().Acrescentar(Nenhum, false);
    QVERIFY(Esperar());
    QCOMPARE(R.rowCount(), int(TRegistroDeAtualizacoes::Maximo));
    Painel().Atualizar(Gravar(QStringLiteral("a.xml"), Unidades(2)));
    QVERIFY(Esperar());
    QCOMPARE(R.rowCount(), int(TRegistroDeAtualizacoes::Maximo));
    QCOMPARE(Celula(-1, TRegistroDeAtualizacoes::ColunaResultado), QStringLiteral("Terminado: 2 inclusões"));
    QCOMPARE(R.Desfecho(0), TDesfecho::Falhou);
    // Rows move while an update is on its way: what becomes of it still stands in its own.
    Arvore().Atualizar(QStringLiteral("<R><Brigada Nome='x'/></R>"));
    for (int I = 0; I < 3; ++I) {
        R.Anunciar(QStringLiteral("outro"));
        R.Recusar(Exception(QStringLiteral("Nada!")));
    }
    QVERIFY(EsperarAtualizacoes());
    QCOMPARE(Celula(-4, TRegistroDeAtualizacoes::ColunaDocumento), QStringLiteral("Atualização"));
    QCOMPARE(Celula(-4, TRegistroDeAtualizacoes::ColunaResultado), QStringLiteral("Terminado: 1 inclusão"));
    QCOMPARE(Celula(-1, TRegistroDeAtualizacoes::ColunaResultado), QStringLiteral("Nada!"));
}

QTEST_MAIN(TesteAtualizacoesNaJanela)
#include "TesteAtualizacoesNaJanela.moc"
