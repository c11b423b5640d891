// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "hospedeiro/Exercicio.h"
#include "hospedeiro/VigiaDePasta.h"

#include <QObject>

class QAction;
class QWidget;

namespace Hospedeiro
{

class TFilaDeDocumentos;

/// Where documents come from by themselves: a folder that is watched and an exercise, each with the command
/// that starts and stops it.
class TAlimentacao : public QObject
{
    Q_OBJECT

public:
    /// `Janela`: over which folders are asked for.
    TAlimentacao(TFilaDeDocumentos &Fila, QWidget *Janela);

    QAction *AcaoVigiar() const noexcept { return FAcaoVigiar; }
    QAction *AcaoSimular() const noexcept { return FAcaoSimular; }
    TExercicio &Exercicio() noexcept { return FExercicio; }

    /// Watches a folder; false and an error told when it cannot be.
    bool Vigiar(const QString &Pasta);
    /// Runs the exercise of a folder from its beginning.
    bool Simular(const QString &Pasta);
    /// The document that the tree was opened from, beside which its exercise is; an exercise was made for the
    /// document as it was, and ends when another one is opened.
    void AtribuirDocumento(const QString &Arquivo);
    /// What is going on, for the status bar; empty when nothing is.
    QString Andamento() const;

Q_SIGNALS:
    void Mudou();
    void Recado(const QString &Texto);
    void Erro(const QString &Mensagem, const QString &Detalhe);

private:
    template <class Fazer>
    bool Tentar(Fazer &&Comecar);
    void MontarAcoes();
    void PedirVigia(bool Ligar);
    void PedirSimulacao(bool Ligar);
    void AbrirDocumentoDoExercicio(const QString &Pasta);
    void Mostrar();

    TFilaDeDocumentos &FFila;
    QWidget *FJanela;
    TVigiaDePasta FVigia;
    TExercicio FExercicio;
    QString FDocumento;
    QString FInicio; // the document that an exercise has opened for itself, until it has come
    QAction *FAcaoVigiar;
    QAction *FAcaoSimular;
};

} // namespace Hospedeiro
