// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/Alimentacao.h"

#include "hospedeiro/FilaDeDocumentos.h"

#include "plataforma/Exception.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStyle>
#include <QWidget>

#include <utility>

namespace Hospedeiro
{

TAlimentacao::TAlimentacao(TFilaDeDocumentos &Fila, QWidget *Janela)
    : QObject(Janela)
    , FFila(Fila)
    , FJanela(Janela)
    , FAcaoVigiar(new QAction(tr("&Vigiar pasta..."), this))
    , FAcaoSimular(new QAction(tr("&Simular exercício"), this))
{
    MontarAcoes();
    const auto Entregar = [this](const QString &Arquivo) {
        FFila.Acrescentar(Arquivo, false);
        Mostrar();
    };
    connect(&FVigia, &TVigiaDePasta::Documento, this, Entregar);
    connect(&FExercicio, &TExercicio::Documento, this, Entregar);
    connect(&FExercicio, &TExercicio::Parou, this, [this] {
        Q_EMIT Recado(FExercicio.Feitos() < FExercicio.Quantos()
                          ? tr("Exercício interrompido")
                          : tr("Exercício terminado: %1 documentos").arg(FExercicio.Quantos()));
        Mostrar();
    });
    FExercicio.PodeSeguir = [this] { return FFila.Parada(); };
}

void TAlimentacao::MontarAcoes()
{
    FAcaoVigiar->setIcon(FJanela->style()->standardIcon(QStyle::SP_DirOpenIcon));
    FAcaoVigiar->setCheckable(true);
    FAcaoVigiar->setToolTip(tr("Atualiza a árvore com cada documento novo de uma pasta, na ordem dos nomes"));
    connect(FAcaoVigiar, &QAction::triggered, this, &TAlimentacao::PedirVigia);
    FAcaoSimular->setIcon(FJanela->style()->standardIcon(QStyle::SP_MediaPlay));
    FAcaoSimular->setCheckable(true);
    FAcaoSimular->setToolTip(tr("Atualiza a árvore uma vez por segundo com os documentos do exercício"));
    connect(FAcaoSimular, &QAction::triggered, this, &TAlimentacao::PedirSimulacao);
}

// What starts is shown, and so is what could not start.
template <class Fazer>
bool TAlimentacao::Tentar(Fazer &&Comecar)
{
    try {
        Comecar();
    } catch (const Sibrel::Exception &E) {
        Mostrar();
        Q_EMIT Erro(E.Message, E.Detalhe);
        return false;
    }
    Mostrar();
    return true;
}

bool TAlimentacao::Vigiar(const QString &Pasta)
{
    return Tentar([&] { FVigia.Comecar(Pasta); });
}

bool TAlimentacao::Simular(const QString &Pasta)
{
    return Tentar([&] {
        if (FDocumento.isEmpty())
            AbrirDocumentoDoExercicio(Pasta);
        FExercicio.Comecar(Pasta);
    });
}

void TAlimentacao::AtribuirDocumento(const QString &Arquivo)
{
    FDocumento = Arquivo;
    if (Arquivo != std::exchange(FInicio, QString()))
        FExercicio.Parar();
}

QString TAlimentacao::Andamento() const
{
    QStringList Partes;
    if (FExercicio.Andando())
        Partes += tr("exercício: %1 de %2").arg(FExercicio.Feitos()).arg(FExercicio.Quantos());
    if (FVigia.Vigiando())
        Partes += tr("vigiando %1").arg(QDir::toNativeSeparators(FVigia.Pasta()));
    return Partes.join(QStringLiteral(", "));
}

void TAlimentacao::PedirVigia(bool Ligar)
{
    if (!Ligar) {
        FVigia.Parar();
    } else if (const QString Pasta = QFileDialog::getExistingDirectory(FJanela, tr("Vigiar pasta"),
                                                                       QFileInfo(FDocumento).path());
               !Pasta.isEmpty()) {
        Vigiar(Pasta);
    }
    Mostrar();
}

void TAlimentacao::PedirSimulacao(bool Ligar)
{
    if (!Ligar) {
        FExercicio.Parar();
        return;
    }
    QString Pasta = TExercicio::PastaPara(FDocumento);
    if (Pasta.isEmpty())
        Pasta = QFileDialog::getExistingDirectory(FJanela, tr("Pasta do exercício"),
                                                  QFileInfo(FDocumento).path());
    if (!Pasta.isEmpty())
        Simular(Pasta);
    Mostrar();
}

// An exercise changes what is there: without a tree it begins with the one document beside its folder that
// is no update of it.
void TAlimentacao::AbrirDocumentoDoExercicio(const QString &Pasta)
{
    const QString Inicio = QFileInfo(Pasta).dir().filePath(QStringLiteral("ordem_de_batalha.xml"));
    if (!QFileInfo::exists(Inicio))
        return;
    FInicio = Inicio;
    FFila.Abrir(Inicio);
}

void TAlimentacao::Mostrar()
{
    FAcaoVigiar->setChecked(FVigia.Vigiando());
    FAcaoSimular->setChecked(FExercicio.Andando());
    Q_EMIT Mudou();
}

} // namespace Hospedeiro
