// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/AplicarDocumento.h"

#include "hospedeiro/ArvoreDoHospedeiro.h"
#include "hospedeiro/BancoDoExercicio.h"
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

template <class F>
int Aplicar(TArvoreDoHospedeiro &Arvore, const QString &Tipo, const QString &Nome, const F &Iniciar)
{
    TAndamento Andamento;
    const auto Ligacao = QObject::connect(
        &Arvore, &Sibrel::TTreeViewXML::Progresso, &Arvore,
        [&Andamento](Sibrel::TPreparaAtualizacao *A) { Andamento.Notar(*A); }, Qt::DirectConnection);
    try {
        Iniciar();
    } catch (const Sibrel::Exception &E) {
        QObject::disconnect(Ligacao);
        throw Sibrel::Exception(E.Message, DetalheDaOrigem(E, Tipo, Nome));
    }
    while (!Arvore.Atualizacoes().empty())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QObject::disconnect(Ligacao);
    if (Andamento.Etapa != u"Terminado") {
        const Sibrel::Exception Falha(Andamento.Etapa, Andamento.Falhas);
        throw Sibrel::Exception(Andamento.Etapa, DetalheDaOrigem(Falha, Tipo, Nome));
    }
    return Andamento.Operacoes;
}

} // namespace

int AplicarDocumento(TArvoreDoHospedeiro &Arvore, const QString &Arquivo)
{
    return Aplicar(Arvore, QStringLiteral("Arquivo"), Arquivo, [&] { Arvore.Ler(Arquivo, true); });
}

int AplicarBanco(TArvoreDoHospedeiro &Arvore, TBancoDoExercicio &Banco)
{
    return Aplicar(Arvore, QStringLiteral("Banco"), Banco.Nome(), [&] { Banco.CarregarUnidades(Arvore); });
}

} // namespace Hospedeiro
