// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/EscritorDeLinhas.h"
#include "plataforma/Exception.h"
#include "plataforma/XMLDocument.h"

#include <QHash>
#include <QStringList>

#include <cstddef>

namespace Sibrel
{

namespace
{

constexpr std::size_t Nenhum = static_cast<std::size_t>(-1);

// Of all that a document may have inside one another, the root and the items of a row's lists take these.
constexpr std::size_t NiveisDoDocumento = 3;
constexpr std::size_t MaiorNivel = TLimitesXML::Profundidade - NiveisDoDocumento;

QString Fechamento(const TElementoDeLinha &Elemento)
{
    return QStringLiteral("</") + Elemento.Tag + u'>';
}

QString NaLinha(std::size_t Indice)
{
    return QStringLiteral("Linha %1.").arg(Indice + 1);
}

// Who stands inside whom, as first child and next sibling in the order of the rows.
struct TParentesco {
    std::vector<std::size_t> PrimeiroFilho;
    std::vector<std::size_t> Proximo;
    std::size_t PrimeiroDoTopo = Nenhum;
};

QHash<QString, std::size_t> IndicePorChave(const std::vector<TElementoDeLinha> &Elementos)
{
    QHash<QString, std::size_t> Indice;
    Indice.reserve(static_cast<qsizetype>(Elementos.size()));
    for (std::size_t I = 0; I < Elementos.size(); ++I) {
        const QString &Chave = Elementos[I].Chave;
        if (Chave.isEmpty())
            continue; // no one's parent
        if (Indice.contains(Chave))
            throw EDatabaseError(QStringLiteral("A chave <%1> se repete!").arg(Chave), NaLinha(I));
        Indice.insert(Chave, I);
    }
    return Indice;
}

TParentesco Parentesco(const std::vector<TElementoDeLinha> &Elementos)
{
    const QHash<QString, std::size_t> Indice = IndicePorChave(Elementos);
    TParentesco P;
    P.PrimeiroFilho.assign(Elementos.size(), Nenhum);
    P.Proximo.assign(Elementos.size(), Nenhum);
    for (std::size_t I = Elementos.size(); I-- > 0;) { // from the last, so that each list grows at its head
        const QString &Pai = Elementos[I].Pai;
        std::size_t *Cabeca = &P.PrimeiroDoTopo;
        if (!Pai.isEmpty()) {
            const auto Lugar = Indice.constFind(Pai);
            if (Lugar == Indice.constEnd())
                throw EDatabaseError(QStringLiteral("A linha pai <%1> não existe!").arg(Pai), NaLinha(I));
            Cabeca = &P.PrimeiroFilho[*Lugar];
        }
        P.Proximo[I] = *Cabeca;
        *Cabeca = I;
    }
    return P;
}

// Rows that the walk from the top does not reach are below themselves.
[[noreturn]] void ErroDeCiclo(const std::vector<TElementoDeLinha> &Elementos, const std::vector<bool> &Vistos)
{
    std::size_t I = 0;
    while (Vistos[I])
        ++I;
    throw EDatabaseError(QStringLiteral("A linha <%1> está abaixo de si mesma!").arg(Elementos[I].Chave),
                         NaLinha(I));
}

} // namespace

QStringList LinhasEmSequencia(const std::vector<TElementoDeLinha> &Elementos)
{
    QStringList Linhas;
    Linhas.reserve(static_cast<qsizetype>(Elementos.size()));
    for (const TElementoDeLinha &Elemento : Elementos)
        Linhas += Elemento.Abertura + Fechamento(Elemento);
    return Linhas;
}

QStringList LinhasAninhadas(const std::vector<TElementoDeLinha> &Elementos)
{
    const TParentesco P = Parentesco(Elementos);
    QStringList Linhas;
    std::vector<bool> Vistos(Elementos.size());
    std::vector<std::size_t> Abertos;
    std::size_t Quantos = 0;
    std::size_t Atual = P.PrimeiroDoTopo;
    while (Atual != Nenhum || !Abertos.empty()) {
        if (Atual == Nenhum) {
            Linhas += Fechamento(Elementos[Abertos.back()]);
            Atual = P.Proximo[Abertos.back()];
            Abertos.pop_back();
            continue;
        }
        if (Abertos.size() >= MaiorNivel)
            throw EDatabaseError(QStringLiteral("As linhas têm mais de %1 níveis!").arg(MaiorNivel),
                                 NaLinha(Atual));
        Vistos[Atual] = true;
        ++Quantos;
        if (P.PrimeiroFilho[Atual] == Nenhum) {
            Linhas += Elementos[Atual].Abertura + Fechamento(Elementos[Atual]);
            Atual = P.Proximo[Atual];
            continue;
        }
        Linhas += Elementos[Atual].Abertura;
        Abertos.push_back(Atual);
        Atual = P.PrimeiroFilho[Atual];
    }
    if (Quantos < Elementos.size())
        ErroDeCiclo(Elementos, Vistos);
    return Linhas;
}

} // namespace Sibrel
