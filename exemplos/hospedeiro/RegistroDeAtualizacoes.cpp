// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/RegistroDeAtualizacoes.h"

#include "hospedeiro/Campo.h"
#include "hospedeiro/DescricaoDaArvore.h"

#include "arvore/TreeViewXML.h"
#include "plataforma/Exception.h"

#include <QApplication>
#include <QStringList>
#include <QStyle>

#include <array>

namespace Hospedeiro
{

namespace
{

QString Quantas(int Numero, const QString &Uma, const QString &Varias)
{
    return Numero == 1 ? Uma : Varias.arg(Numero);
}

QStyle::StandardPixmap Figura(TDesfecho Desfecho)
{
    constexpr std::array Figuras = {QStyle::SP_BrowserReload, QStyle::SP_DialogApplyButton,
                                    QStyle::SP_DialogCancelButton, QStyle::SP_MessageBoxCritical};
    return Figuras[static_cast<std::size_t>(Desfecho)];
}

} // namespace

TRegistroDeAtualizacoes::TRegistroDeAtualizacoes(Sibrel::TTreeViewXML &Arvore, QObject *Dono)
    : QAbstractTableModel(Dono)
{
    connect(&Arvore, &Sibrel::TTreeViewXML::Progresso, this, &TRegistroDeAtualizacoes::Progrediu);
}

void TRegistroDeAtualizacoes::Anunciar(const QString &Documento)
{
    Acrescentar(Documento);
    FAnunciada = true;
}

void TRegistroDeAtualizacoes::Recusar(const Sibrel::Exception &Erro)
{
    if (FEntradas.empty())
        return;
    FAnunciada = false;
    const std::size_t Numero = FPrimeira + FEntradas.size() - 1;
    std::erase_if(FAndando, [Numero](const auto &Par) { return Par.second == Numero; });
    Encerrar(Numero, TDesfecho::Falhou, Erro.Message, Erro.Detalhe);
}

TDesfecho TRegistroDeAtualizacoes::Desfecho(int Linha) const
{
    return FEntradas.at(static_cast<std::size_t>(Linha)).Desfecho;
}

std::size_t TRegistroDeAtualizacoes::Acrescentar(const QString &Documento)
{
    if (FEntradas.size() >= Maximo && FEntradas.front().Desfecho != TDesfecho::Andando) {
        beginRemoveRows({}, 0, 0);
        FEntradas.pop_front();
        ++FPrimeira;
        endRemoveRows();
    }
    const int Linha = rowCount();
    beginInsertRows({}, Linha, Linha);
    TEntrada &Nova = FEntradas.emplace_back();
    Nova.Inicio = QDateTime::currentDateTime();
    Nova.Relogio.start();
    Nova.Documento = Documento;
    endInsertRows();
    return FPrimeira + FEntradas.size() - 1;
}

void TRegistroDeAtualizacoes::Progrediu(Sibrel::TPreparaAtualizacao *A)
{
    auto Lugar = FAndando.find(A);
    if (Lugar == FAndando.end()) {
        const std::size_t Numero = std::exchange(FAnunciada, false) ? FPrimeira + FEntradas.size() - 1
                                                                    : Acrescentar(tr("Atualização"));
        Lugar = FAndando.emplace(A, Numero).first;
    }
    TEntrada &E = Entrada(Lugar->second);
    const QString Etapa = A->Etapa();
    if (Etapa == u"Abertura" || Etapa == u"Preparação")
        return;
    if (Etapa == u"Atualização") {
        if (A->Posicao() == 0)
            Contar(E, *A);
        return;
    }
    const std::size_t Numero = Lugar->second;
    const QString Falhas = TextoDasFalhas(A->Falhas());
    const QString Guardado = A->ArquivoDeErro();
    FAndando.erase(Lugar);
    if (Etapa == u"Terminado")
        Encerrar(Numero, TDesfecho::Terminado, E.Texto, Falhas);
    else if (Etapa == u"Cancelado")
        Encerrar(Numero, TDesfecho::Cancelado, Etapa, Falhas);
    else
        Encerrar(Numero, TDesfecho::Falhou, Etapa,
                 Guardado.isEmpty() ? Falhas : Falhas + tr("\nO documento foi guardado em %1").arg(Guardado));
}

void TRegistroDeAtualizacoes::Contar(TEntrada &E, const Sibrel::TPreparaAtualizacao &A)
{
    std::array<int, 3> Numeros{};
    for (const auto &Operacao : A.Operacoes())
        if (Operacao)
            ++Numeros[static_cast<std::size_t>(Operacao->Operacao)];
    QStringList Partes;
    if (Numeros[0] > 0)
        Partes += Quantas(Numeros[0], tr("1 inclusão"), tr("%1 inclusões"));
    if (Numeros[1] > 0)
        Partes += Quantas(Numeros[1], tr("1 alteração"), tr("%1 alterações"));
    if (Numeros[2] > 0)
        Partes += Quantas(Numeros[2], tr("1 exclusão"), tr("%1 exclusões"));
    E.Texto = Partes.isEmpty() ? tr("Terminado: nada a fazer") : tr("Terminado: %1").arg(Partes.join(u", "));
}

void TRegistroDeAtualizacoes::Encerrar(std::size_t Numero, TDesfecho Desfecho, const QString &Texto,
                                       const QString &Detalhe)
{
    TEntrada &E = Entrada(Numero);
    E.Milissegundos = E.Relogio.elapsed();
    E.Desfecho = Desfecho;
    E.Texto = Texto;
    E.Detalhe = Detalhe;
    const int Linha = static_cast<int>(Numero - FPrimeira);
    Q_EMIT dataChanged(index(Linha, 0), index(Linha, Colunas - 1));
    Q_EMIT Acabou(Desfecho);
}

int TRegistroDeAtualizacoes::rowCount(const QModelIndex &Pai) const
{
    return Pai.isValid() ? 0 : static_cast<int>(FEntradas.size());
}

int TRegistroDeAtualizacoes::columnCount(const QModelIndex &Pai) const
{
    return Pai.isValid() ? 0 : Colunas;
}

QVariant TRegistroDeAtualizacoes::Celula(const TEntrada &E, int Coluna) const
{
    switch (Coluna) {
    case ColunaInicio:
        return E.Inicio.toString(QStringLiteral("HH:mm:ss"));
    case ColunaDocumento:
        return E.Documento;
    case ColunaDuracao:
        return E.Desfecho == TDesfecho::Andando
                   ? QString()
                   : tr("%1 s").arg(QLocale(QLocale::Portuguese, QLocale::Brazil)
                                        .toString(double(E.Milissegundos) / 1000, 'f', 3));
    case ColunaResultado:
        if (E.Desfecho == TDesfecho::Andando)
            return tr("Em andamento");
        return E.Detalhe.isEmpty()
                   ? E.Texto
                   : E.Texto + u' ' + QString(E.Detalhe).replace(u'\n', QStringLiteral(" | "));
    default:
        return {};
    }
}

QVariant TRegistroDeAtualizacoes::data(const QModelIndex &Indice, int Papel) const
{
    if (!checkIndex(Indice, CheckIndexOption::IndexIsValid))
        return {};
    const TEntrada &E = FEntradas[static_cast<std::size_t>(Indice.row())];
    switch (Papel) {
    case Qt::DisplayRole:
        return Celula(E, Indice.column());
    case Qt::ToolTipRole:
        return Dica(E.Detalhe.isEmpty() ? Celula(E, Indice.column()).toString()
                                        : E.Texto + u'\n' + E.Detalhe);
    case Qt::DecorationRole:
        return Indice.column() == ColunaResultado ? QApplication::style()->standardIcon(Figura(E.Desfecho))
                                                  : QVariant();
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Indice.column() == ColunaDuracao ? Qt::AlignRight | Qt::AlignVCenter
                                                                    : Qt::AlignLeft | Qt::AlignVCenter);
    default:
        return {};
    }
}

QVariant TRegistroDeAtualizacoes::headerData(int Secao, Qt::Orientation Orientacao, int Papel) const
{
    const QStringList Nomes = {tr("Início"), tr("Documento"), tr("Duração"), tr("Resultado")};
    return Orientacao == Qt::Horizontal && Papel == Qt::DisplayRole ? Nomes.value(Secao) : QVariant();
}

} // namespace Hospedeiro
