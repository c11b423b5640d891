// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/AplicarDocumento.h"

#include "hospedeiro/ArvoreDoHospedeiro.h"
#include "hospedeiro/DescricaoDaArvore.h"

#include "plataforma/Exception.h"

#include <QCoreApplication>

namespace Hospedeiro
{

namespace
{

struct TAndamento {
    QString Etapa;
    QString Falhas;
    int Operacoes = 0;

    void Notar(const Sibrel::TPreparaAtualizacao &A)
    {
        Etapa = A.Etapa();
        if (Etapa == u"Atualização")
            Operacoes = A.Total();
        Falhas = TextoDasFalhas(A.Falhas());
    }
};

} // namespace

int AplicarDocumento(TArvoreDoHospedeiro &Arvore, const QString &Arquivo)
{
    TAndamento Andamento;
    const auto Ligacao = QObject::connect(
        &Arvore, &Sibrel::TTreeViewXML::Progresso, &Arvore,
        [&Andamento](Sibrel::TPreparaAtualizacao *A) { Andamento.Notar(*A); }, Qt::DirectConnection);
    try {
        Arvore.Ler(Arquivo, true);
    } catch (const Sibrel::Exception &E) {
        QObject::disconnect(Ligacao);
        throw Sibrel::Exception(E.Message, DetalheDoArquivo(E, Arquivo));
    }
    while (!Arvore.Atualizacoes().empty())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QObject::disconnect(Ligacao);
    if (Andamento.Etapa != u"Terminado")
        throw Sibrel::Exception(
            Andamento.Etapa, DetalheDoArquivo(Sibrel::Exception(Andamento.Etapa, Andamento.Falhas), Arquivo));
    return Andamento.Operacoes;
}

} // namespace Hospedeiro
