// SPDX-License-Identifier: LGPL-2.1-or-later
// From rows to elements: the steps behind TParseTableXMLMapeada.
#pragma once

#include "arvore/ParseTableXMLMapeada.h"

#include <QString>

#include <vector>

namespace Sibrel
{

class TClientDataSet;
class TField;

/// One row as its element, without the closing tag, and its place among the others.
struct TElementoDeLinha {
    QString Tag;
    QString Abertura; // opening tag and lists
    QString Chave;
    QString Pai;
};

/// Writes each row of a dataset by a mapping; the columns are found once.
class TEscritorDeLinhas
{
public:
    using TConversor = std::function<QString(const QString &Coluna, const QString &Valor)>;

    TEscritorDeLinhas(const TMapeamentoXML &Mapeamento, const TClientDataSet &Dados,
                      const TConversor &Converter);

    /// The dataset's current row.
    TElementoDeLinha Escrever();

private:
    struct TParDeColuna {
        QString Inicio; // of the item, up to the value
        const TField *Campo;
    };
    std::vector<TParDeColuna> Pares(const std::vector<TMapeamentoXML::TPar> &Lista,
                                    QStringView TagDoItem) const;
    const TField *Coluna(const QString &Nome) const;
    QString TagDaLinha();
    QString Texto(const TField &Campo) const;
    void EscreverAtributos(QString &Saida) const;
    void EscreverLista(QString &Saida, QStringView TagDaLista, const std::vector<TParDeColuna> &Itens) const;

    const TMapeamentoXML &FMapeamento;
    const TClientDataSet &FDados;
    const TConversor &FConverter;
    const TField *FTag;
    const TField *FNome;
    const TField *FCor;
    const TField *FSimbolo;
    const TField *FLink;
    const TField *FChave;
    const TField *FPai;
    std::vector<TParDeColuna> FIdentificacao;
    std::vector<TParDeColuna> FInformacao;
    QString FUltimaTag; // known to be a name
};

/// The lines of elements that stand beside each other.
QStringList LinhasEmSequencia(const std::vector<TElementoDeLinha> &Elementos);
/// The lines of elements of which some stand inside others, by key and parent. EDatabaseError when they do
/// not make trees.
QStringList LinhasAninhadas(const std::vector<TElementoDeLinha> &Elementos);

} // namespace Sibrel
