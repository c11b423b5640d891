// SPDX-License-Identifier: LGPL-2.1-or-later
#include "CenaDaArvore.h"

#include <QAbstractButton>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QStatusBar>
#include <QTest>

namespace Sibrel::Testes
{

using namespace Hospedeiro;

TResposta::TResposta(QMessageBox::StandardButton Qual)
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

QByteArray Unidades(int Quantas)
{
    QByteArray Documento = "<R>";
    for (int I = 0; I < Quantas; ++I)
        Documento += "<Brigada Nome='" + QByteArray::number(I) + "' Cor='1'/>";
    return Documento + "</R>";
}

void TCenaDaArvore::AbrirJanela()
{
    FPasta = std::make_unique<QTemporaryDir>();
    TPreparaAtualizacao::AtribuirPastaDeErros(FPasta->path());
    FJanela = std::make_unique<TJanelaComArvore>();
    FJanela->show();
    FJanela->MostrarPagina(&Painel());
    QVERIFY(QTest::qWaitForWindowActive(FJanela.get()));
}

void TCenaDaArvore::FecharJanela()
{
    FJanela.reset();
    TPreparaAtualizacao::AtribuirPastaDeErros({});
}

QString TCenaDaArvore::Gravar(const QString &Nome, const QByteArray &Bytes) const
{
    EscreverBytes(FPasta->filePath(Nome), Bytes);
    return FPasta->filePath(Nome);
}

QPoint TCenaDaArvore::Lugar(TTreeNode *Qual, int X)
{
    Arvore().scrollTo(Arvore().Modelo().IndiceDe(Qual));
    const TRect Linha = Arvore().DisplayRect(Qual);
    return Arvore().viewport()->mapTo(FJanela.get(), QPoint(X, (Linha.Top + Linha.Bottom) / 2));
}

QList<QAction *> TCenaDaArvore::MenuDe(TTreeNode *Qual)
{
    QTest::mouseClick(FJanela->windowHandle(), Qt::RightButton, {}, Lugar(Qual));
    QMenu *Menu = Arvore().PopupMenu();
    const bool Aberto = QTest::qWaitFor([Menu] { return Menu->isVisible(); });
    Menu->close();
    QCoreApplication::processEvents();
    return Aberto ? Menu->actions() : QList<QAction *>();
}

bool TCenaDaArvore::NoEstado(const QString &Texto)
{
    const auto Rotulos = FJanela->statusBar()->findChildren<QLabel *>();
    return std::any_of(Rotulos.begin(), Rotulos.end(), [&](const QLabel *R) { return R->text() == Texto; });
}

void TCenaDaArvore::Soltar(const QStringList &Arquivos)
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

bool TCenaDaArvore::AbrirExemplo()
{
    Painel().Abrir(DaArvore(QStringLiteral("ordem_de_batalha.xml")));
    return Esperar();
}

QString TCenaDaArvore::Celula(int Linha, int Coluna)
{
    const TRegistroDeAtualizacoes &R = Painel().Registro();
    return R.index(Linha < 0 ? R.rowCount() + Linha : Linha, Coluna).data().toString();
}

} // namespace Sibrel::Testes
