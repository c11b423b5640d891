// SPDX-License-Identifier: LGPL-2.1-or-later
// The rules of an update, read out one by one on plain texts: slow, single-threaded, without an index.
#pragma once

#include "plataforma/Strings.h"
#include "plataforma/XMLDocument.h"

#include <QString>

#include <memory>
#include <vector>

namespace Sibrel::Testes
{

struct TNoDeReplay {
    QString Legenda;
    int Cor = 0;
    TStringList Identificacao;
    TStringList Informacao;
    bool Link = false;
    TNoDeReplay *Pai = nullptr;
    std::vector<std::unique_ptr<TNoDeReplay>> Filhos;
};

/// A tree to which documents are applied. Tag "U" has nodes, tag "G" groups, others are unknown.
class TReplay
{
public:
    void Aplicar(const QString &XML);
    /// The whole tree as text: captions, colours, lists, links.
    QString Texto() const;

private:
    struct TOperacao {
        char Qual; // i, a, e
        TNoDeReplay *NoPai;
        TOperacao *Acima;
        TNoDeReplay *No;
        IXMLNode XML;
        bool Retirada = false;
    };

    void Preparar(TOperacao *Acima, TNoDeReplay *NoPai, const IXMLNode &XML);
    TNoDeReplay *Procurar(TNoDeReplay *Pai, const IXMLNode &XML);
    TNoDeReplay *ProcurarLegenda(TNoDeReplay *Pai, const QString &Legenda, const TStrings &Identificacao);
    void Carregar(TNoDeReplay &No, const IXMLNode &XML);
    void Realizar(TOperacao &O);
    void Excluir(TNoDeReplay *No);
    bool Vive(const TNoDeReplay *No) const;
    std::vector<TNoDeReplay *> Todos() const;

    TNoDeReplay FRaiz;
    std::vector<std::unique_ptr<TOperacao>> FFeitas;
    std::vector<TOperacao *> FFila;
    std::vector<std::unique_ptr<TNoDeReplay>> FMortos;
};

} // namespace Sibrel::Testes
