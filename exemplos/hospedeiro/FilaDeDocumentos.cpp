// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/FilaDeDocumentos.h"

#include "hospedeiro/ArvoreDoHospedeiro.h"
#include "hospedeiro/DescricaoDaArvore.h"
#include "hospedeiro/RegistroDeAtualizacoes.h"

#include "plataforma/Exception.h"

#include <QFileInfo>

#include <utility>

namespace Hospedeiro
{

namespace
{

QString TipoArquivo()
{
    return TFilaDeDocumentos::tr("Arquivo");
}

} // namespace

TFilaDeDocumentos::TFilaDeDocumentos(TArvoreDoHospedeiro &Arvore, TRegistroDeAtualizacoes &Registro,
                                     QObject *Dono)
    : QObject(Dono)
    , FArvore(Arvore)
    , FRegistro(Registro)
{
    // Queued: the end of an update is told while it still waits for the window.
    connect(&Registro, &TRegistroDeAtualizacoes::Acabou, this, &TFilaDeDocumentos::Proximo,
            Qt::QueuedConnection);
}

void TFilaDeDocumentos::Abrir(const QString &Arquivo)
{
    FEsperando.clear();
    Cancelar();
    FEsperando.push_back({TipoArquivo(), Arquivo, true, true, {}});
    Proximo();
}

void TFilaDeDocumentos::AbrirCom(const QString &Tipo, const QString &Nome, std::function<void()> Carregar)
{
    Cancelar();
    FEsperando.push_back({Tipo, Nome, true, true, std::move(Carregar)});
    Proximo();
}

void TFilaDeDocumentos::Acrescentar(const QString &Arquivo, bool Avisar)
{
    FEsperando.push_back({TipoArquivo(), Arquivo, false, Avisar, {}});
    Proximo();
}

void TFilaDeDocumentos::Cancelar()
{
    for (Sibrel::TPreparaAtualizacao *A : FArvore.Atualizacoes())
        A->Cancelar();
}

bool TFilaDeDocumentos::Parada() const
{
    return FEsperando.empty() && FRegistro.Andando() == 0;
}

void TFilaDeDocumentos::Proximo()
{
    if (FEsperando.empty() || FRegistro.Andando() > 0)
        return;
    const TDocumento Documento = FEsperando.front();
    FEsperando.pop_front();
    Ler(Documento);
}

void TFilaDeDocumentos::Ler(const TDocumento &Documento)
{
    FRegistro.Anunciar(QFileInfo(Documento.Arquivo).fileName());
    try {
        if (Documento.Carregar)
            Documento.Carregar();
        else
            FArvore.Ler(Documento.Arquivo, true);
    } catch (const Sibrel::Exception &E) {
        FRegistro.Recusar(E);
        if (Documento.Avisar)
            Q_EMIT Recusado(E.Message, DetalheDaOrigem(E, Documento.Tipo, Documento.Arquivo));
        return;
    }
    // Only now that there is something to take their place; the update begins with the next event.
    if (Documento.EmLugarDeTudo)
        FArvore.Items().Clear();
    Q_EMIT Comecou(Documento.Arquivo, Documento.EmLugarDeTudo);
}

} // namespace Hospedeiro
