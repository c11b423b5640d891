// SPDX-License-Identifier: LGPL-2.1-or-later
// The example host's window with the page of its tree in front, for tests that drive it as an operator does.
#pragma once

#include "hospedeiro/Alimentacao.h"
#include "hospedeiro/ArvoreDoHospedeiro.h"
#include "hospedeiro/FilaDeDocumentos.h"
#include "hospedeiro/JanelaPrincipal.h"
#include "hospedeiro/PainelDaArvore.h"
#include "hospedeiro/RegistroDeAtualizacoes.h"

#include "arvore/ComumArvore.h"
#include "comum/Dados.h"

#include <QMessageBox>
#include <QTemporaryDir>

#include <memory>

namespace Sibrel::Testes
{

/// Keeps errors instead of showing them.
class TJanelaComArvore : public Hospedeiro::TJanelaPrincipal
{
public:
    QStringList Erros;

protected:
    void MostrarErro(const QString &Mensagem, const QString &Detalhe) override
    {
        Erros += Mensagem + u'|' + Detalhe;
    }
};

/// Presses a button of the next message box, once it is there.
class TResposta : public QObject
{
public:
    explicit TResposta(QMessageBox::StandardButton Qual);
    /// What it said.
    QString Texto;
};

/// A document of that many nodes at the top level.
QByteArray Unidades(int Quantas);

/// One window a test.
class TCenaDaArvore : public QObject
{
protected:
    void AbrirJanela();
    void FecharJanela();

    QString Gravar(const QString &Nome, const QByteArray &Bytes) const;
    static QString DaArvore(const QString &Nome) { return DadoDeExemplo(QStringLiteral("arvore/") + Nome); }
    Hospedeiro::TPainelDaArvore &Painel() { return FJanela->PainelDaArvore(); }
    Hospedeiro::TArvoreDoHospedeiro &Arvore() { return Painel().Arvore(); }
    /// Until all documents have been applied. Not qWaitFor, which sleeps while an update waits for the
    /// window.
    bool Esperar()
    {
        return Sibrel::Testes::Esperar([this] { return Painel().Fila().Parada(); });
    }
    bool AbrirExemplo();
    TTreeNode *No(const QString &Caminho) { return Arvore().ObterNo(Caminho); }
    QString Selecionado() { return Arvore().CaminhoDoSelecionado(QStringLiteral("/")); }
    /// Of the log; lines from the end when negative.
    QString Celula(int Linha, int Coluna);
    /// The middle of a node's row, `X` from its left edge, in the window.
    QPoint Lugar(TTreeNode *Qual, int X = 150);
    /// The items of a node's context menu, opened by the mouse; none when it does not open.
    QList<QAction *> MenuDe(TTreeNode *Qual);
    /// Does a label of the status bar say exactly this?
    bool NoEstado(const QString &Texto);
    void Soltar(const QStringList &Arquivos);

    std::unique_ptr<QTemporaryDir> FPasta;
    std::unique_ptr<TJanelaComArvore> FJanela;
};

} // namespace Sibrel::Testes
