// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QDateTime>
#include <QElapsedTimer>
#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

#include <map>

namespace Hospedeiro
{

/// Looks after a folder: tells of each document that is put there, in the order of their names.
///
/// What is there when the watch begins is known and not told; what replaces a known file is told again. A
/// document is told when it has stopped growing: neither size nor time have changed for a moment. One that
/// is still being written holds back those behind it in the order of names. Empty files are nobody's
/// document. GUI thread only.
class TVigiaDePasta : public QObject
{
    Q_OBJECT

public:
    /// Milliseconds without a change after which a file counts as written.
    static constexpr int Sossego = 300;

    explicit TVigiaDePasta(QObject *Dono = nullptr);

    /// Begins with a folder in place of the former one. Raises Sibrel::EInOutError for what is no folder that
    /// can be read; the former watch goes on then.
    void Comecar(const QString &Pasta);
    void Parar();
    bool Vigiando() const noexcept { return !FPasta.isEmpty(); }
    const QString &Pasta() const noexcept { return FPasta; }

Q_SIGNALS:
    /// A new document, complete.
    void Documento(const QString &Arquivo);

private:
    struct TArquivo {
        qint64 Tamanho = 0;
        QDateTime Mudado;
        QElapsedTimer Parado; // since it was first seen like this
        bool Contado = false;
    };
    using TArquivos = std::map<QString, TArquivo>;

    TArquivos Listar(const QString &Pasta) const;
    void Olhar();

    QString FPasta;
    TArquivos FArquivos;
    QFileSystemWatcher FAvisos;
    QTimer FRelogio;
};

} // namespace Hospedeiro
