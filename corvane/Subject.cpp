// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvane/Subject.h"

#include <algorithm>
#include <cstddef>

namespace Sibrel
{

// A round of notices that is under way: whoever leaves meanwhile is struck out of its list.
struct TSubject::TRodada {
    explicit TRodada(TSubject &Dono)
        : Assunto(&Dono)
        , PorAvisar(Dono.FObservers)
        , Anterior(Dono.FRodada)
    {
        Dono.FRodada = this;
    }
    ~TRodada()
    {
        if (Assunto != nullptr)
            Assunto->FRodada = Anterior;
    }
    TRodada(const TRodada &) = delete;
    TRodada &operator=(const TRodada &) = delete;

    TSubject *Assunto; // null once the subject was destroyed from inside the round
    std::vector<TObserver *> PorAvisar;
    TRodada *Anterior;
};

TObserver::~TObserver()
{
    for (const QPointer<TSubject> &Assunto : std::vector<QPointer<TSubject>>(FAssuntos))
        if (Assunto)
            Assunto->RemoverObserver(*this);
}

TSubject::TSubject(QWidget *Dono)
    : TComponent(Dono)
{
}

TSubject::~TSubject()
{
    for (TRodada *R = FRodada; R != nullptr; R = R->Anterior) {
        R->Assunto = nullptr;
        R->PorAvisar.clear();
    }
    for (TObserver *Observer : FObservers)
        std::erase(Observer->FAssuntos, this);
}

void TSubject::InscreverObserver(TObserver &Observer)
{
    if (std::find(FObservers.begin(), FObservers.end(), &Observer) != FObservers.end())
        return;
    FObservers.push_back(&Observer);
    Observer.FAssuntos.emplace_back(this);
}

void TSubject::RemoverObserver(TObserver &Observer) noexcept
{
    std::erase(FObservers, &Observer);
    std::erase(Observer.FAssuntos, this);
    for (TRodada *R = FRodada; R != nullptr; R = R->Anterior)
        std::replace(R->PorAvisar.begin(), R->PorAvisar.end(), &Observer, static_cast<TObserver *>(nullptr));
}

int TSubject::QuantosObservers() const noexcept
{
    return static_cast<int>(FObservers.size());
}

void TSubject::AvisarObservers()
{
    TRodada Rodada(*this);
    for (std::size_t I = 0; I < Rodada.PorAvisar.size(); ++I)
        if (TObserver *Observer = Rodada.PorAvisar[I])
            Observer->Avisado(*this);
    if (Rodada.Assunto != nullptr)
        Q_EMIT Mudou();
}

} // namespace Sibrel
