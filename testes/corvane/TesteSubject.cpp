// SPDX-License-Identifier: LGPL-2.1-or-later
#include "corvane/Subject.h"

#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <memory>
#include <stdexcept>

using namespace Sibrel;

namespace
{

// Writes its name into a record each time it is told, then does what the test wants of it.
class TAnotador : public TObserver
{
public:
    TAnotador(QString &Registro, QChar Nome)
        : FRegistro(Registro)
        , FNome(Nome)
    {
    }
    void Avisado(TSubject &) override
    {
        FRegistro += FNome;
        if (Fazer)
            Fazer();
    }
    std::function<void()> Fazer;

private:
    QString &FRegistro;
    QChar FNome;
};

} // namespace

class TesteSubject : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Registro.clear(); }
    void AvisaNaOrdemDaInscricao();
    void InscreverDuasVezesAvisaUma();
    void QuemSaiNaoEAvisado();
    void QuemSeRemoveDentroDoAvisoNaoAtrapalha();
    void QuemERemovidoDentroDoAvisoNaoEAvisado();
    void QuemSeInscreveDentroDoAvisoEsperaAProximaVez();
    void ObservadorDestruidoEEsquecido();
    void ObservadorDestruidoDentroDoAvisoEEsquecido();
    void AssuntoDestruidoDentroDoAviso();
    void AssuntoDestruidoAntesDoObservador();
    void AvisoDentroDoAviso();
    void OQueUmObservadorLancaChegaAQuemAvisou();
    void OSinalDizOMesmo();

private:
    QString Registro;
};

void TesteSubject::AvisaNaOrdemDaInscricao()
{
    TSubject Assunto;
    TAnotador A(Registro, u'a');
    TAnotador B(Registro, u'b');
    Assunto.InscreverObserver(B);
    Assunto.InscreverObserver(A);
    Assunto.AvisarObservers();
    QCOMPARE(Registro, QStringLiteral("ba"));
}

void TesteSubject::InscreverDuasVezesAvisaUma()
{
    TSubject Assunto;
    TAnotador A(Registro, u'a');
    Assunto.InscreverObserver(A);
    Assunto.InscreverObserver(A);
    QCOMPARE(Assunto.QuantosObservers(), 1);
    Assunto.AvisarObservers();
    QCOMPARE(Registro, QStringLiteral("a"));
}

void TesteSubject::QuemSaiNaoEAvisado()
{
    TSubject Assunto;
    TAnotador A(Registro, u'a');
    TAnotador B(Registro, u'b');
    Assunto.InscreverObserver(A);
    Assunto.InscreverObserver(B);
    Assunto.RemoverObserver(A);
    Assunto.RemoverObserver(A); // not there any more: ignored
    Assunto.AvisarObservers();
    QCOMPARE(Registro, QStringLiteral("b"));
}

void TesteSubject::QuemSeRemoveDentroDoAvisoNaoAtrapalha()
{
    TSubject Assunto;
    TAnotador A(Registro, u'a');
    TAnotador B(Registro, u'b');
    A.Fazer = [&] { Assunto.RemoverObserver(A); };
    Assunto.InscreverObserver(A);
    Assunto.InscreverObserver(B);
    Assunto.AvisarObservers();
    Assunto.AvisarObservers();
    QCOMPARE(Registro, QStringLiteral("abb"));
}

void TesteSubject::QuemERemovidoDentroDoAvisoNaoEAvisado()
{
    TSubject Assunto;
    TAnotador A(Registro, u'a');
    TAnotador B(Registro, u'b');
    A.Fazer = [&] { Assunto.RemoverObserver(B); };
    Assunto.InscreverObserver(A);
    Assunto.InscreverObserver(B);
    Assunto.AvisarObservers();
    QCOMPARE(Registro, QStringLiteral("a"));
}

void TesteSubject::QuemSeInscreveDentroDoAvisoEsperaAProximaVez()
{
    TSubject Assunto;
    TAnotador A(Registro, u'a');
    TAnotador B(Registro, u'b');
    A.Fazer = [&] { Assunto.InscreverObserver(B); };
    Assunto.InscreverObserver(A);
    Assunto.AvisarObservers();
    QCOMPARE(Registro, QStringLiteral("a"));
    Assunto.AvisarObservers();
    QCOMPARE(Registro, QStringLiteral("aab"));
}

void TesteSubject::ObservadorDestruidoEEsquecido()
{
    TSubject Assunto;
    {
        TAnotador A(Registro, u'a');
        Assunto.InscreverObserver(A);
    }
    QCOMPARE(Assunto.QuantosObservers(), 0);
    Assunto.AvisarObservers();
    QCOMPARE(Registro, QString());
}

void TesteSubject::ObservadorDestruidoDentroDoAvisoEEsquecido()
{
    TSubject Assunto;
    TAnotador A(Registro, u'a');
    auto B = std::make_unique<TAnotador>(Registro, u'b');
    A.Fazer = [&] { B.reset(); };
    Assunto.InscreverObserver(A);
    Assunto.InscreverObserver(*B);
    Assunto.AvisarObservers();
    QCOMPARE(Registro, QStringLiteral("a"));
}

void TesteSubject::AssuntoDestruidoDentroDoAviso()
{
    auto Assunto = std::make_unique<TSubject>();
    TAnotador A(Registro, u'a');
    TAnotador B(Registro, u'b');
    A.Fazer = [&] { Assunto.reset(); };
    Assunto->InscreverObserver(A);
    Assunto->InscreverObserver(B);
    Assunto->AvisarObservers();
    QCOMPARE(Registro, QStringLiteral("a"));
}

void TesteSubject::AssuntoDestruidoAntesDoObservador()
{
    TAnotador A(Registro, u'a');
    {
        TSubject Assunto;
        Assunto.InscreverObserver(A);
    }
    TSubject Outro;
    Outro.InscreverObserver(A);
    Outro.AvisarObservers();
    QCOMPARE(Registro, QStringLiteral("a"));
}

void TesteSubject::AvisoDentroDoAviso()
{
    TSubject Assunto;
    TAnotador A(Registro, u'a');
    TAnotador B(Registro, u'b');
    bool Primeiro = true;
    A.Fazer = [&] {
        if (std::exchange(Primeiro, false)) {
            Assunto.AvisarObservers();
            Assunto.RemoverObserver(B); // leaves the outer round too
        }
    };
    Assunto.InscreverObserver(A);
    Assunto.InscreverObserver(B);
    Assunto.AvisarObservers();
    QCOMPARE(Registro, QStringLiteral("aab"));
}

void TesteSubject::OQueUmObservadorLancaChegaAQuemAvisou()
{
    TSubject Assunto;
    TAnotador A(Registro, u'a');
    TAnotador B(Registro, u'b');
    A.Fazer = [] { throw std::runtime_error("falha"); };
    Assunto.InscreverObserver(A);
    Assunto.InscreverObserver(B);
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, Assunto.AvisarObservers());
    A.Fazer = nullptr;
    Assunto.AvisarObservers(); // the subject is whole
    QCOMPARE(Registro, QStringLiteral("aab"));
}

void TesteSubject::OSinalDizOMesmo()
{
    TSubject Assunto;
    QSignalSpy Espia(&Assunto, &TSubject::Mudou);
    Assunto.AvisarObservers();
    QCOMPARE(Espia.count(), 1);
}

QTEST_MAIN(TesteSubject)
#include "TesteSubject.moc"
