// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Component.h"
#include "plataforma/Exportacao.h"

#include <QPointer>

#include <vector>

namespace Sibrel
{

class TSubject;

/// Who wants to be told when a subject changes. Forgotten by its subjects when it is destroyed.
class SIBREL_EXPORT TObserver
{
public:
    TObserver() = default;
    virtual ~TObserver();
    TObserver(const TObserver &) = delete;
    TObserver &operator=(const TObserver &) = delete;

    /// Called by `AvisarObservers` of a subject, on its thread. May subscribe and unsubscribe anyone, itself
    /// too.
    virtual void Avisado(TSubject &Assunto) = 0;

private:
    friend class TSubject;
    std::vector<QPointer<TSubject>> FAssuntos;
};

/// A component that tells its observers when its content changes. GUI thread only.
class SIBREL_EXPORT TSubject : public TComponent
{
    Q_OBJECT

public:
    explicit TSubject(QWidget *Dono = nullptr);
    ~TSubject() override;

    /// Subscribes; a second time does nothing. The observer stays its owner's.
    void InscreverObserver(TObserver &Observer);
    /// Unsubscribes; one that is not subscribed is ignored.
    void RemoverObserver(TObserver &Observer) noexcept;
    int QuantosObservers() const noexcept;

    /// Calls every observer that is subscribed now, in the order of subscription, and emits Mudou(). An
    /// observer that unsubscribes (or dies) during the round is not called any more; one that subscribes
    /// waits for the next round. What an observer raises reaches the caller; the observers behind it are then
    /// not called.
    void AvisarObservers();

Q_SIGNALS:
    /// The same notice, for connections.
    void Mudou();

private:
    struct TRodada;

    std::vector<TObserver *> FObservers;
    TRodada *FRodada = nullptr;
};

} // namespace Sibrel
