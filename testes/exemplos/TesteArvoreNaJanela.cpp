// SPDX-License-Identifier: LGPL-2.1-or-later
// The page of the tree in the example host's window, driven by keys, mouse and drops as by its operator.
#include "hospedeiro/Alimentacao.h"
#include "hospedeiro/ArvoreDoHospedeiro.h"
#include "hospedeiro/DescricaoDaArvore.h"
#include "hospedeiro/FilaDeDocumentos.h"
#include "hospedeiro/JanelaPrincipal.h"
#include "hospedeiro/MenuDaArvore.h"
#include "hospedeiro/PainelDaArvore.h"
#include "hospedeiro/PainelDeAtualizacoes.h"
#include "hospedeiro/RegistroDeAtualizacoes.h"

#include "arvore/ComumArvore.h"
#include "comum/Dados.h"
#include "corvane/VisualizadorInformacoesXML.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QClipboard>
#include <QDropEvent>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressBar>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

using namespace Sibrel;
using namespace Sibrel::Testes;
using namespace Hospedeiro;

namespace
{

class TJanelaDeTeste : public TJanelaPrincipal
{
public:
    QStringList Erros;

protected:
    void MostrarErro(const QString &Mensagem, const QString &Detalhe) override
    {
        Erros += Mensagem + u'|' + Detalhe;
    }
};

QByteArray Unidades(int Quantas)
{
    QByteArray Documento = "<R>";
    for (int I = 0; I < Quantas; ++I)
        Documento += "<Brigada Nome='" + QByteArray::number(I) + "' Cor='1'/>";
    return Documento + "</R>";
}

// Presses a button of the next message box, once it is there.
class TResposta : public QObject
{
public:
    explicit TResposta(QMessageBox::StandardButton Qual)
    {
        auto *Relogio = new QTimer(this);
        connect(Relogio, &QTimer::timeout, this, [this, Relogio, Qual] {
            auto *Caixa = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (Caixa == nullptr)
                return;
            Relogio->stop();
            Texto = Caixa->text() + u'|' + Caixa->informativeText();
            QTest::mouseClick(Caixa->button(Qual), Qt::LeftButton);
        });
        Relogio->start(10);
    }
    QString Texto;
};

} // namespace

class TesteArvoreNaJanela : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void AbreEMostraOCaminhoEAsInformacoes();
    void ABuscaPelasOpcoes();
    void ABuscaParaTras();
    void OMenuGanhaEPerdeItens();
    void OMenuDaArvore();
    void OLinkLevaAUnidade();
    void OAndamentoEOCancelamento();
    void ORegistroDizODesfecho();
    void UmElementoQueFalhaPergunta();
    void UmDocumentoRuimDeixaAArvore();
    void AbrirEncerraOQueAnda();
    void AFichaAcompanhaAsAtualizacoes();
    void ExcluirPelaTecla();
    void OsDocumentosSoltos();
    void APastaVigiadaNaOrdemDosNomes();
    void OExercicioInteiro();
    void ExcluirDuranteOExercicio();
    void FecharNoMeioDeUmaAtualizacao();
    void FecharComAPerguntaAberta();
    void ORegistroEsqueceOsMaisVelhos();
    void ATabelaTrocadaChegaAArvore();

private:
    QString Gravar(const QString &Nome, const QByteArray &Bytes);
    static QString DaArvore(const QString &Nome) { return DadoDeExemplo(QStringLiteral("arvore/") + Nome); }
    TPainelDaArvore &Painel() { return FJanela->PainelDaArvore(); }
    TArvoreDoHospedeiro &Arvore() { return Painel().Arvore(); }
    // Not qWaitFor, which sleeps while an update waits for the window.
    bool Esperar()
    {
        return Sibrel::Testes::Esperar([this] { return Painel().Fila().Parada(); });
    }
    bool AbrirExemplo()
    {
        Painel().Abrir(DaArvore(QStringLiteral("ordem_de_batalha.xml")));
        return Esperar();
    }
    TTreeNode *No(const QString &Caminho) { return Arvore().ObterNo(Caminho); }
    QString Selecionado() { return Arvore().CaminhoDoSelecionado(QStringLiteral("/")); }
    QString Celula(int Linha, int Coluna)
    {
        const TRegistroDeAtualizacoes &R = Painel().Registro();
        return R.index(Linha < 0 ? R.rowCount() + Linha : Linha, Coluna).data().toString();
    }
    /// The middle of a node's row, `X` from its left edge, in the window.
    QPoint Lugar(TTreeNode *Qual, int X = 150);
    QList<QAction *> MenuDe(TTreeNode *Qual);
    bool NoEstado(const QString &Texto);
    void Soltar(const QStringList &Arquivos);

    std::unique_ptr<QTemporaryDir> FPasta;
    std::unique_ptr<TJanelaDeTeste> FJanela;
};

void TesteArvoreNaJanela::init()
{
    FPasta = std::make_unique<QTemporaryDir>();
    TPreparaAtualizacao::AtribuirPastaDeErros(FPasta->path());
    FJanela = std::make_unique<TJanelaDeTeste>();
    FJanela->show();
    FJanela->MostrarPagina(&Painel());
    QVERIFY(QTest::qWaitForWindowActive(FJanela.get()));
}

void TesteArvoreNaJanela::cleanup()
{
    FJanela.reset();
    TPreparaAtualizacao::AtribuirPastaDeErros({});
}

QString TesteArvoreNaJanela::Gravar(const QString &Nome, const QByteArray &Bytes)
{
    EscreverBytes(FPasta->filePath(Nome), Bytes);
    return FPasta->filePath(Nome);
}

QPoint TesteArvoreNaJanela::Lugar(TTreeNode *Qual, int X)
{
    Arvore().scrollTo(Arvore().Modelo().IndiceDe(Qual));
    const TRect Linha = Arvore().DisplayRect(Qual);
    return Arvore().viewport()->mapTo(FJanela.get(), QPoint(X, (Linha.Top + Linha.Bottom) / 2));
}

QList<QAction *> TesteArvoreNaJanela::MenuDe(TTreeNode *Qual)
{
    QTest::mouseClick(FJanela->windowHandle(), Qt::RightButton, {}, Lugar(Qual));
    QMenu *Menu = Arvore().PopupMenu();
    const bool Aberto = QTest::qWaitFor([Menu] { return Menu->isVisible(); });
    Menu->close();
    QCoreApplication::processEvents();
    return Aberto ? Menu->actions() : QList<QAction *>();
}

bool TesteArvoreNaJanela::NoEstado(const QString &Texto)
{
    const auto Rotulos = FJanela->statusBar()->findChildren<QLabel *>();
    return std::any_of(Rotulos.begin(), Rotulos.end(), [&](const QLabel *R) { return R->text() == Texto; });
}

void TesteArvoreNaJanela::Soltar(const QStringList &Arquivos)
{
    QMimeData Dados;
    QList<QUrl> Enderecos;
    for (const QString &Arquivo : Arquivos)
        Enderecos += QUrl::fromLocalFile(Arquivo);
    Dados.setUrls(Enderecos);
    QDragEnterEvent Entrada(QPoint(5, 5), Qt::CopyAction, &Dados, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(FJanela.get(), &Entrada);
    QVERIFY(Entrada.isAccepted());
    QDropEvent Solta(QPointF(5, 5), Qt::CopyAction, &Dados, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(FJanela.get(), &Solta);
}

void TesteArvoreNaJanela::AbreEMostraOCaminhoEAsInformacoes()
{
    QVERIFY(AbrirExemplo());
    QCOMPARE(Arvore().Items().Count(), 293);
    QVERIFY(NoEstado(QStringLiteral("293 nós, dados de 06/05/2024 06:00")));
    QVERIFY(FJanela->windowTitle().contains(QStringLiteral("ordem_de_batalha.xml")));
    TTreeNode *Batalhao = No(QStringLiteral("1ª Brigada de Infantaria/11º Batalhão"));
    QVERIFY(Batalhao != nullptr);
    QTest::mouseClick(FJanela->windowHandle(), Qt::LeftButton, {}, Lugar(Batalhao));
    QCOMPARE(Arvore().Selected(), Batalhao);
    QVERIFY(NoEstado(QStringLiteral("1ª Brigada de Infantaria / 11º Batalhão")));
    const auto *Frame = FJanela->findChild<TVisualizadorInformacoesXML *>();
    QCOMPARE(Frame->Count(), 4);
    QCOMPARE(Frame->Nome(1), QStringLiteral("Comandante"));
    QCOMPARE(Frame->Valor(1), QStringLiteral("Ten Cel Inácio"));
    QTest::keyClick(&Arvore(), Qt::Key_Down);
    QVERIFY(NoEstado(QStringLiteral("1ª Brigada de Infantaria / 11º Batalhão / Posto de Observação")));
    QCOMPARE(Frame->Valor(1), QStringLiteral("Sgt Inácio"));
    // Another tree: nothing is selected, and nothing is left of what was.
    Painel().Abrir(Gravar(QStringLiteral("a.xml"), Unidades(1)));
    QVERIFY(Esperar());
    QCOMPARE(Frame->Count(), 0);
    QVERIFY(NoEstado(QStringLiteral("1 nó, dados de 06/05/2024 06:00")));
    QVERIFY(!NoEstado(QStringLiteral("1ª Brigada de Infantaria / 11º Batalhão / Posto de Observação")));
}

void TesteArvoreNaJanela::ABuscaPelasOpcoes()
{
    Painel().Abrir(Gravar(QStringLiteral("a.xml"),
                          "<R><Brigada Nome='Alfa'><Pelotao Nome='alfa dois'/></Brigada>"
                          "<Brigada Nome='ALFA'/><Brigada Nome='\xC1gua'/>"
                          "<Brigada Nome='Beta Alfa'/></R>"));
    QVERIFY(Esperar());
    QTest::keyClick(FJanela.get(), Qt::Key_F, Qt::ControlModifier);
    auto *Busca = Painel().findChild<QLineEdit *>();
    QVERIFY(Busca->hasFocus());
    const auto Caixa = [this](const char *Nome) {
        for (QCheckBox *C : Painel().findChildren<QCheckBox *>())
            if (C->text() == QString::fromUtf8(Nome))
                return C;
        return static_cast<QCheckBox *>(nullptr);
    };
    QCheckBox *PeloComeco = Caixa("&Pelo começo");
    QCheckBox *SemMaiusculas = Caixa("&Ignorar maiúsculas");
    QVERIFY(PeloComeco && SemMaiusculas && PeloComeco->isChecked() && SemMaiusculas->isChecked());
    const auto Achados = [&] { // going round once
        QStringList Caminhos;
        Arvore().AtribuirSelected(nullptr);
        for (QTest::keyClick(Busca, Qt::Key_Return);
             !Selecionado().isEmpty() && !Caminhos.contains(Selecionado()) && Caminhos.size() < 9;
             QTest::keyClick(Busca, Qt::Key_Return))
            Caminhos += Selecionado();
        return Caminhos;
    };
    QTest::keyClicks(Busca, QStringLiteral("alfa"));
    QCOMPARE(Selecionado(), QStringLiteral("Alfa")); // while it is typed
    QCOMPARE(Achados(),
             QStringList({QStringLiteral("Alfa"), QStringLiteral("Alfa/alfa dois"), QStringLiteral("ALFA")}));
    QTest::mouseClick(PeloComeco, Qt::LeftButton, {}, QPoint(8, PeloComeco->height() / 2));
    QVERIFY(!PeloComeco->isChecked());
    QCOMPARE(Achados(), QStringList({QStringLiteral("Alfa"), QStringLiteral("ALFA")}));
    QTest::mouseClick(SemMaiusculas, Qt::LeftButton, {}, QPoint(8, SemMaiusculas->height() / 2));
    QCOMPARE(Achados(), QStringList()); // no caption is "alfa"
    QCOMPARE(FJanela->statusBar()->currentMessage(),
             QStringLiteral("Nenhuma legenda corresponde a \"alfa\""));
    QTest::mouseClick(PeloComeco, Qt::LeftButton, {}, QPoint(8, PeloComeco->height() / 2));
    QCOMPARE(Achados(), QStringList(QStringLiteral("Alfa/alfa dois")));
    // Accented letters are not folded, by the tree's own rule.
    QTest::mouseClick(SemMaiusculas, Qt::LeftButton, {}, QPoint(8, SemMaiusculas->height() / 2));
    Busca->setText(QStringLiteral("água"));
    QCOMPARE(Achados(), QStringList());
    Busca->setText(QStringLiteral("ÁGUA"));
    QCOMPARE(Achados(), QStringList(QStringLiteral("Água")));
}

void TesteArvoreNaJanela::ABuscaParaTras()
{
    QVERIFY(AbrirExemplo());
    QTest::keyClick(FJanela.get(), Qt::Key_F, Qt::ControlModifier);
    auto *Busca = Painel().findChild<QLineEdit *>();
    QTest::keyClicks(Busca, QStringLiteral("posto"));
    std::vector<TTreeNode *> Todos;
    Arvore().ObterNos(Todos, QStringLiteral("Posto"), sfPartial);
    QVERIFY(Todos.size() > 3);
    QCOMPARE(Arvore().Selected(), Todos[0]);
    QTest::keyClick(FJanela.get(), Qt::Key_F3);
    QCOMPARE(Arvore().Selected(), Todos[1]);
    QTest::keyClick(FJanela.get(), Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(Arvore().Selected(), Todos[0]);
    QTest::keyClick(FJanela.get(), Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(Arvore().Selected(), Todos.back());
    QTest::keyClick(FJanela.get(), Qt::Key_F3);
    QCOMPARE(Arvore().Selected(), Todos[0]);
    // From a node that does not match, the one before it in the order of the tree.
    Arvore().AtribuirSelected(Todos[2]->Parent());
    QTest::keyClick(FJanela.get(), Qt::Key_F3, Qt::ShiftModifier);
    QVERIFY(Arvore().Items().Antes(Arvore().Selected(), Todos[2]));
    for (const auto &Botao : Painel().findChildren<QToolButton *>())
        if (Botao->accessibleName() == QStringLiteral("Próximo"))
            QTest::mouseClick(Botao, Qt::LeftButton);
    QVERIFY(!Arvore().Items().Antes(Arvore().Selected(), Todos[2]->Parent()));
}

void TesteArvoreNaJanela::OMenuGanhaEPerdeItens()
{
    QVERIFY(AbrirExemplo());
    TTreeNode *Unidade = No(QStringLiteral("1ª Brigada de Infantaria/11º Batalhão"));
    TTreeNode *Grupo = No(QStringLiteral("Força-Tarefa Norte"));
    QVERIFY(Unidade != nullptr && Grupo != nullptr);
    const auto Proprios = Arvore().PopupMenu()->actions().size();
    const QList<QAction *> DaUnidade = MenuDe(Unidade);
    QCOMPARE(DaUnidade.size(), Proprios + 2);
    QVERIFY(DaUnidade[Proprios]->isSeparator());
    QCOMPARE(DaUnidade.back()->text(), QStringLiteral("Copiar &posição: 23K 567700 7507800"));
    DaUnidade.back()->trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("23K 567700 7507800"));
    QCOMPARE(MenuDe(Grupo).size(), Proprios);
    QCOMPARE(Arvore().Selected(), Grupo);
    QCOMPARE(MenuDe(Unidade).size(), Proprios + 2);
    const QList<QAction *> DoLink = MenuDe(Grupo->GetFirstChild());
    QCOMPARE(DoLink.size(), Proprios + 2);
    QCOMPARE(DoLink.back()->text(), QStringLiteral("&Ir para a unidade"));
    DoLink.back()->trigger();
    QCOMPARE(Selecionado(), QStringLiteral("1ª Brigada de Infantaria/11º Batalhão/1ª Companhia, 11º"));
}

void TesteArvoreNaJanela::OMenuDaArvore()
{
    QVERIFY(AbrirExemplo());
    TTreeNode *Brigada = No(QStringLiteral("1ª Brigada de Infantaria"));
    const QList<QAction *> Acoes = MenuDe(Brigada);
    QVERIFY(Acoes.size() >= 5);
    TTreeNode *Batalhao = No(QStringLiteral("1ª Brigada de Infantaria/11º Batalhão"));
    QVERIFY(Brigada->Expanded() && Batalhao->Expanded());
    Acoes[1]->trigger(); // collapse
    QVERIFY(!Brigada->Expanded() && !Batalhao->Expanded());
    QVERIFY(!Arvore().isExpanded(Arvore().Modelo().IndiceDe(Brigada)));
    QVERIFY(No(QStringLiteral("2ª Brigada Mecanizada"))->Expanded());
    Acoes[0]->trigger(); // expand
    QVERIFY(Brigada->Expanded() && Batalhao->Expanded());
    Arvore().AtribuirSelected(Batalhao);
    Acoes[3]->trigger(); // copy the path
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("1ª Brigada de Infantaria/11º Batalhão"));
    QCOMPARE(No(QGuiApplication::clipboard()->text()), Batalhao);
}

void TesteArvoreNaJanela::OLinkLevaAUnidade()
{
    QVERIFY(AbrirExemplo());
    TTreeNode *Elo = No(QStringLiteral("Força-Tarefa Norte"))->GetFirstChild();
    QTest::mouseDClick(FJanela->windowHandle(), Qt::LeftButton, {}, Lugar(Elo));
    QCOMPARE(Selecionado(), QStringLiteral("1ª Brigada de Infantaria/11º Batalhão/1ª Companhia, 11º"));
    QVERIFY(NoEstado(QStringLiteral("1ª Brigada de Infantaria / 11º Batalhão / 1ª Companhia, 11º")));
    QTest::keyClick(&Arvore(), Qt::Key_Return); // no link: stays
    QCOMPARE(Selecionado(), QStringLiteral("1ª Brigada de Infantaria/11º Batalhão/1ª Companhia, 11º"));
    Arvore().AtribuirSelected(Elo->GetNextSibling());
    QTest::keyClick(&Arvore(), Qt::Key_Return);
    QCOMPARE(Selecionado(), QStringLiteral("1ª Brigada de Infantaria/12º Batalhão/2ª Companhia, 12º"));
}

void TesteArvoreNaJanela::OAndamentoEOCancelamento()
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

void TesteArvoreNaJanela::ORegistroDizODesfecho()
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
    for (int Linha = 0; Linha < 5; ++Linha) {
        QVERIFY(QTime::fromString(Celula(Linha, R::ColunaInicio), QStringLiteral("HH:mm:ss")).isValid());
        QVERIFY(Celula(Linha, R::ColunaDuracao).endsWith(QStringLiteral(" s")));
    }
}

void TesteArvoreNaJanela::UmElementoQueFalhaPergunta()
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

void TesteArvoreNaJanela::UmDocumentoRuimDeixaAArvore()
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

void TesteArvoreNaJanela::AbrirEncerraOQueAnda()
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

void TesteArvoreNaJanela::AFichaAcompanhaAsAtualizacoes()
{
    const auto *Frame = FJanela->findChild<TVisualizadorInformacoesXML *>();
    QVERIFY(AbrirExemplo());
    Arvore().AtribuirSelected(No(QStringLiteral("1ª Brigada de Infantaria/11º Batalhão")));
    QCOMPARE(Frame->Count(), 4);
    QCOMPARE(Frame->Valor(2), QStringLiteral("648"));
    Painel().Atualizar(DaArvore(QStringLiteral("atualizacao1.xml")));
    QVERIFY(Esperar());
    QCOMPARE(Frame->Count(), 5);
    QCOMPARE(Frame->Valor(2), QStringLiteral("655"));
}

void TesteArvoreNaJanela::ExcluirPelaTecla()
{
    QVERIFY(AbrirExemplo());
    TTreeNode *Posto = No(QStringLiteral("1ª Brigada de Infantaria/PC 1ª Bda"));
    QTest::mouseClick(FJanela->windowHandle(), Qt::LeftButton, {}, Lugar(Posto));
    QTest::keyClick(&Arvore(), Qt::Key_Delete); // one node: at once
    QCOMPARE(Arvore().Items().Count(), 292);
    QCOMPARE(FJanela->statusBar()->currentMessage(), QStringLiteral("1 nó excluído da árvore"));
    TTreeNode *Brigada = No(QStringLiteral("1ª Brigada de Infantaria"));
    const auto Abaixo = [&] {
        int Quantos = 0;
        for (TTreeNode *N = Brigada; N != nullptr && Brigada->Contem(N); N = N->GetNext())
            ++Quantos;
        return Quantos;
    };
    const int Quantos = Abaixo();
    Arvore().AtribuirSelected(Brigada);
    {
        TResposta Nao(QMessageBox::No);
        QTest::keyClick(&Arvore(), Qt::Key_Delete);
        QVERIFY(Nao.Texto.startsWith(QStringLiteral("Excluir %1 nós da árvore?|").arg(Quantos)));
    }
    QCOMPARE(Arvore().Items().Count(), 292);
    FJanela->activateWindow(); // as a window manager does
    QVERIFY(QTest::qWaitForWindowActive(FJanela.get()));
    TResposta Sim(QMessageBox::Yes);
    QTest::keyClick(&Arvore(), Qt::Key_Delete);
    QCOMPARE(Arvore().Items().Count(), 292 - Quantos);
    QVERIFY(No(QStringLiteral("1ª Brigada de Infantaria")) == nullptr);
}

void TesteArvoreNaJanela::OsDocumentosSoltos()
{
    const QString A = Gravar(QStringLiteral("a.xml"), "<R><Brigada Nome='Um'/></R>");
    const QString B = Gravar(QStringLiteral("b.xml"), "<R><Brigada Nome='Dois'/></R>");
    Soltar({B, A}); // in the order of names; the first opens, the others update
    QVERIFY(Esperar());
    QCOMPARE(ListaDaArvore(Arvore()),
             QStringLiteral("Um\tcor=#000000\tsimbolo=0\nDois\tcor=#000000\tsimbolo=0\n"));
    QVERIFY(FJanela->windowTitle().contains(QStringLiteral("a.xml")));
    Soltar({Gravar(QStringLiteral("c.xml"), "<R><Brigada Nome='Um' Cor='255'/></R>")});
    QVERIFY(Esperar());
    QCOMPARE(Arvore().Items().Count(), 2);
    QVERIFY(ListaDaArvore(Arvore()).startsWith(QStringLiteral("Um\tcor=#ff0000")));
    QCOMPARE(FJanela->Erros, QStringList());
}

void TesteArvoreNaJanela::APastaVigiadaNaOrdemDosNomes()
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

void TesteArvoreNaJanela::OExercicioInteiro()
{
    TAlimentacao &Fontes = Painel().Alimentacao();
    Fontes.Exercicio().AtribuirPasso(5);
    // Without a tree it opens the document that it begins with.
    QVERIFY(Fontes.Simular(DaArvore(QStringLiteral("exercicio"))));
    QVERIFY(Fontes.AcaoSimular()->isChecked());
    QVERIFY(
        Sibrel::Testes::Esperar([&] { return !Fontes.Exercicio().Andando() && Painel().Fila().Parada(); }));
    QCOMPARE(ListaDaArvore(Arvore()).split(u'\n'),
             QString::fromUtf8(BytesDe(DadoDeTeste(QStringLiteral("exemplos/arvore_exercitada.txt"))))
                 .split(u'\n'));
    QCOMPARE(Painel().Registro().rowCount(), 61);
    QVERIFY(!Fontes.AcaoSimular()->isChecked());
    QCOMPARE(FJanela->statusBar()->currentMessage(), QStringLiteral("Exercício terminado: 60 documentos"));
    // By its command, beside the document that is open; and stopped.
    Fontes.AcaoSimular()->trigger();
    QVERIFY(Fontes.Exercicio().Andando());
    QVERIFY(Painel().Contagem().contains(QStringLiteral("exercício: ")));
    Fontes.AcaoSimular()->trigger();
    QVERIFY(!Fontes.Exercicio().Andando() && !Fontes.AcaoSimular()->isChecked());
    QVERIFY(Esperar());
    QCOMPARE(FJanela->Erros, QStringList());
}

void TesteArvoreNaJanela::ExcluirDuranteOExercicio()
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

void TesteArvoreNaJanela::FecharNoMeioDeUmaAtualizacao()
{
    const QString Grande = Gravar(QStringLiteral("g.xml"), Unidades(20000));
    Painel().Abrir(Grande);
    Painel().Atualizar(Grande);
    QVERIFY(QTest::qWaitFor([this] { return Arvore().Items().Count() > 100; }));
    FJanela.reset();
    QVERIFY(EsperarAtualizacoes());
}

void TesteArvoreNaJanela::FecharComAPerguntaAberta()
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

void TesteArvoreNaJanela::ORegistroEsqueceOsMaisVelhos()
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

void TesteArvoreNaJanela::ATabelaTrocadaChegaAArvore()
{
    QVERIFY(FJanela->Abrir(Gravar(QStringLiteral("a.txt"), "1\nComposto   \"Um\" 0\n")));
    QCOMPARE(Arvore().TabelaDeSimbolos(), &FJanela->Biblioteca().Tabela());
    QVERIFY(
        FJanela->Abrir(Gravar(QStringLiteral("b.txt"), "2\nComposto   \"Um\" 0\nComposto   \"Dois\" 0\n")));
    QCOMPARE(Arvore().TabelaDeSimbolos(), &FJanela->Biblioteca().Tabela());
    QCOMPARE(Arvore().TabelaDeSimbolos()->Simbolos().Count(), 2);
}

QTEST_MAIN(TesteArvoreNaJanela)
#include "TesteArvoreNaJanela.moc"
