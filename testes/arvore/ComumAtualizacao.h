// SPDX-License-Identifier: LGPL-2.1-or-later
// What the tests of updates share: a view whose operator answers, a diary of what was told.
#pragma once

#include "arvore/ComumArvore.h"

#include <QThread>

#include <vector>

namespace Sibrel::Testes
{

class TVistaQueResponde : public TTreeViewXML
{
public:
    bool Resposta = true;
    std::vector<TFalhaDeAtualizacao> Perguntas;
    bool NaGui = true;

protected:
    bool DesejaContinuar(const TFalhaDeAtualizacao &Falha) override
    {
        Perguntas.push_back(Falha);
        NaGui = NaGui && QThread::currentThread() == thread();
        return Resposta;
    }
};

// What a handler saw: "stage position/total".
class TDiario
{
public:
    explicit TDiario(TTreeViewXML &Vista)
    {
        Vista.OnProgresso = [this](TTreeViewXML &V, TPreparaAtualizacao &A) {
            Linhas.append(QStringLiteral("%1 %2/%3").arg(A.Etapa()).arg(A.Posicao()).arg(A.Total()));
            NaGui = NaGui && QThread::currentThread() == V.thread();
            Falhas = A.Falhas();
            ArquivoDeErro = A.ArquivoDeErro();
        };
    }
    QStringList Linhas;
    bool NaGui = true;
    std::vector<TFalhaDeAtualizacao> Falhas;
    QString ArquivoDeErro;
};

} // namespace Sibrel::Testes
