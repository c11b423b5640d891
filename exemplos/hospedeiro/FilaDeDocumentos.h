// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>
#include <QString>

#include <deque>
#include <functional>

namespace Hospedeiro
{

class TArvoreDoHospedeiro;
class TRegistroDeAtualizacoes;

/// Documents on their way into a tree: each is read when the one before it is over, so that they are applied
/// in the order in which they came however many come at once. GUI thread only.
class TFilaDeDocumentos : public QObject
{
    Q_OBJECT

public:
    TFilaDeDocumentos(TArvoreDoHospedeiro &Arvore, TRegistroDeAtualizacoes &Registro,
                      QObject *Dono = nullptr);

    /// In place of all nodes and of all that is on its way. A file that holds no document leaves the nodes as
    /// they are.
    void Abrir(const QString &Arquivo);
    /// The same for what is no file: `Carregar` gives the tree its document in place of all nodes, or raises
    /// Sibrel::Exception and leaves them as they are. `Tipo` and
    /// `Nome` are what it is and is called for the user.
    void AbrirCom(const QString &Tipo, const QString &Nome, std::function<void()> Carregar);
    /// Behind all that is on its way. `Avisar`: somebody waits for it and wants to know when it is refused.
    void Acrescentar(const QString &Arquivo, bool Avisar = true);
    /// Ends what runs; what waits comes next.
    void Cancelar();

    /// Nothing runs and nothing waits.
    bool Parada() const;
    int Esperando() const noexcept { return static_cast<int>(FEsperando.size()); }

Q_SIGNALS:
    /// A document was accepted: its nodes come, in place of all others if it was opened.
    void Comecou(const QString &Arquivo, bool EmLugarDeTudo);
    /// A file that somebody waits for could not be read or holds no document.
    void Recusado(const QString &Mensagem, const QString &Detalhe);

private:
    struct TDocumento {
        QString Tipo; // file, or what else it is
        QString Arquivo;
        bool EmLugarDeTudo;
        bool Avisar;
        std::function<void()> Carregar; // empty for a file
    };
    void Proximo();
    void Ler(const TDocumento &Documento);

    TArvoreDoHospedeiro &FArvore;
    TRegistroDeAtualizacoes &FRegistro;
    std::deque<TDocumento> FEsperando;
};

} // namespace Hospedeiro
