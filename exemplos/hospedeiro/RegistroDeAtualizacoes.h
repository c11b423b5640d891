// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "arvore/PrepararAtualizacao.h"

#include <QAbstractTableModel>
#include <QDateTime>
#include <QElapsedTimer>

#include <deque>
#include <unordered_map>

namespace Sibrel
{
class Exception;
class TTreeViewXML;
} // namespace Sibrel

namespace Hospedeiro
{

/// What became of an update.
enum class TDesfecho { Andando, Terminado, Cancelado, Falhou };

/// The updates of a tree view, one row each, oldest first: when each began, what it applied, how long it took
/// and how it ended. The oldest of very many are forgotten. GUI thread only.
class TRegistroDeAtualizacoes : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum TColuna { ColunaInicio, ColunaDocumento, ColunaDuracao, ColunaResultado, Colunas };
    static constexpr std::size_t Maximo = 1000;

    TRegistroDeAtualizacoes(Sibrel::TTreeViewXML &Arvore, QObject *Dono = nullptr);

    /// A row for the update that the caller starts next; those that nobody announces get a name of no file.
    void Anunciar(const QString &Documento);
    /// The announced update did not even start.
    void Recusar(const Sibrel::Exception &Erro);

    /// Updates that have begun and are not over.
    int Andando() const noexcept { return static_cast<int>(FAndando.size()); }
    TDesfecho Desfecho(int Linha) const;

    int rowCount(const QModelIndex &Pai = {}) const override;
    int columnCount(const QModelIndex &Pai = {}) const override;
    QVariant data(const QModelIndex &Indice, int Papel) const override;
    QVariant headerData(int Secao, Qt::Orientation Orientacao, int Papel) const override;

Q_SIGNALS:
    /// An update is over.
    void Acabou(Hospedeiro::TDesfecho Desfecho);

private:
    struct TEntrada {
        QDateTime Inicio;
        QElapsedTimer Relogio;
        qint64 Milissegundos = 0;
        QString Documento;
        TDesfecho Desfecho = TDesfecho::Andando;
        QString Texto;
        QString Detalhe;
    };

    void Progrediu(Sibrel::TPreparaAtualizacao *A);
    std::size_t Acrescentar(const QString &Documento);
    TEntrada &Entrada(std::size_t Numero) { return FEntradas[Numero - FPrimeira]; }
    void Contar(TEntrada &E, const Sibrel::TPreparaAtualizacao &A);
    void Encerrar(std::size_t Numero, TDesfecho Desfecho, const QString &Texto, const QString &Detalhe);
    QVariant Celula(const TEntrada &E, int Coluna) const;

    std::deque<TEntrada> FEntradas;
    std::size_t FPrimeira = 0; // number of the oldest entry
    bool FAnunciada = false;   // the last entry waits for its update
    std::unordered_map<Sibrel::TPreparaAtualizacao *, std::size_t> FAndando;
};

} // namespace Hospedeiro
