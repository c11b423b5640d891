// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/ModeloDeSimbolos.h"

#include "hospedeiro/DescricaoDeSimbolo.h"

#include "simbolos/TabelaDeSimbolos.h"

namespace Hospedeiro
{

namespace
{

QString SemAcentos(const QString &Texto)
{
    QString Decomposto = Texto.normalized(QString::NormalizationForm_D);
    Decomposto.removeIf([](QChar C) { return C.category() == QChar::Mark_NonSpacing; });
    return Decomposto;
}

} // namespace

void TModeloDeSimbolos::AtribuirTabela(const Sibrel::TTabelaDeSimbolos *Tabela)
{
    beginResetModel();
    if (FTabela != nullptr)
        disconnect(FTabela, nullptr, this, nullptr);
    FTabela = Tabela;
    if (FTabela != nullptr)
        connect(FTabela, &Sibrel::TSubject::Mudou, this, [this] {
            beginResetModel();
            endResetModel();
        });
    endResetModel();
}

int TModeloDeSimbolos::Procurar(const QString &Texto, int Linha, bool ParaTras) const
{
    const int Quantas = rowCount();
    const QString Procurado = SemAcentos(Texto);
    if (Procurado.isEmpty() || Quantas == 0)
        return -1;
    const int Passo = ParaTras ? Quantas - 1 : 1;
    // Without a present row a search backwards begins at the last one.
    int Vista = Linha >= 0 ? Linha : (ParaTras ? 0 : Quantas - 1);
    for (int I = 0; I < Quantas; ++I) {
        Vista = (Vista + Passo) % Quantas;
        if (SemAcentos(FTabela->ObterRotulo(Vista)).contains(Procurado, Qt::CaseInsensitive))
            return Vista;
    }
    return -1;
}

int TModeloDeSimbolos::rowCount(const QModelIndex &Pai) const
{
    return FTabela != nullptr && !Pai.isValid() ? FTabela->Simbolos().Count() : 0;
}

QVariant TModeloDeSimbolos::data(const QModelIndex &Indice, int Papel) const
{
    if (!checkIndex(Indice, CheckIndexOption::IndexIsValid))
        return {};
    switch (Papel) {
    case Qt::DisplayRole:
        return FTabela->ObterRotulo(Indice.row());
    case Qt::ToolTipRole:
        return Dica(DicaDoSimbolo(*FTabela, Indice.row()));
    case Qt::AccessibleDescriptionRole:
        return DicaDoSimbolo(*FTabela, Indice.row());
    default:
        return {};
    }
}

} // namespace Hospedeiro
