// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <functional>

namespace Hospedeiro
{

/// An exercise: the documents of a folder, in the order of their names, one at each tick of the clock.
class TExercicio : public QObject
{
    Q_OBJECT

public:
    static constexpr int Passo = 1000; ///< milliseconds from document to document

    explicit TExercicio(QObject *Dono = nullptr);

    /// The exercise that goes with a tree document: the folder "exercicio" beside it or, without a document,
    /// among the sample data that was installed with the program. Empty when there is none.
    static QString PastaPara(const QString &Documento);

    /// From the first document of the folder; one follows at once, the others at their time. Raises
    /// Sibrel::EInOutError when there is none.
    void Comecar(const QString &Pasta);
    void Parar();
    bool Andando() const noexcept { return FRelogio.isActive(); }
    int Feitos() const noexcept { return FFeitos; }
    int Quantos() const noexcept { return static_cast<int>(FDocumentos.size()); }
    /// Asked at each tick: may the next document come? A no lets the tick pass without one.
    std::function<bool()> PodeSeguir;
    /// Milliseconds from document to document, in place of Passo.
    void AtribuirPasso(int Milissegundos) { FRelogio.setInterval(Milissegundos); }

Q_SIGNALS:
    void Documento(const QString &Arquivo);
    /// The last one was told, or it was stopped.
    void Parou();

private:
    void Proximo();

    QStringList FDocumentos;
    int FFeitos = 0;
    QTimer FRelogio;
};

} // namespace Hospedeiro
