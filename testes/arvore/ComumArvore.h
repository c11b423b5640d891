// SPDX-License-Identifier: LGPL-2.1-or-later
// What the tests of trees share: documents in few letters, waiting for updates, a tree as text.
#pragma once

#include "arvore/PrepararAtualizacao.h"
#include "arvore/TreeViewXML.h"

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

#include <initializer_list>
#include <utility>

namespace Sibrel::Testes
{

/// Registers tags for the life of an object.
class TTagsRegistradas
{
public:
    TTagsRegistradas(std::initializer_list<std::pair<const char *, TRefNoXML>> Tags)
    {
        for (const auto &[Tag, Classe] : Tags) {
            FTags.append(QString::fromUtf8(Tag));
            TTreeViewXML::RegistrarClasse(FTags.back(), Classe);
        }
    }
    ~TTagsRegistradas()
    {
        for (const QString &Tag : FTags)
            TTreeViewXML::RemoverRegistroClasse(Tag);
    }
    TTagsRegistradas(const TTagsRegistradas &) = delete;
    TTagsRegistradas &operator=(const TTagsRegistradas &) = delete;

private:
    QStringList FTags;
};

/// Runs the event loop until `Pronto`; false when that takes too long.
template <class Condicao>
bool Esperar(Condicao &&Pronto, int Milissegundos = 60000)
{
    QElapsedTimer Relogio;
    Relogio.start();
    QTimer Despertador; // so that the loop looks at the clock now and then
    Despertador.start(50);
    while (!Pronto() && Relogio.elapsed() < Milissegundos)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return Pronto();
}

/// Runs the event loop until no update exists.
inline bool EsperarAtualizacoes(int Milissegundos = 60000)
{
    return Esperar([] { return TPreparaAtualizacao::Instancias() == 0; }, Milissegundos);
}

/// An element U with name and code; the rest inside.
inline QString U(const QString &Nome, const QString &Codigo, const QString &Dentro = {},
                 const QString &Atributos = QStringLiteral("Cor='0'"))
{
    return QStringLiteral("<U Nome='%1' %4><Identificadores><Identificador Rótulo='c' Valor='%2'/>"
                          "</Identificadores>%3</U>")
        .arg(Nome, Codigo, Dentro, Atributos);
}

/// The element that only identifies: its node is to go.
inline QString Fora(const QString &Nome, const QString &Codigo)
{
    return QStringLiteral("<U Nome='%1'><Identificadores><Identificador Rótulo='c' Valor='%2'/>"
                          "</Identificadores></U>")
        .arg(Nome, Codigo);
}

inline QString Doc(const QString &Dentro)
{
    return QStringLiteral("<R>%1</R>").arg(Dentro);
}

/// The tree in one line: A(B C(D)) E.
inline QString Texto(const TTreeNodes &Nos, const TTreeNode *Pai = nullptr)
{
    QStringList Partes;
    for (const TTreeNode *No = Nos.PrimeiroFilho(Pai); No != nullptr; No = No->GetNextSibling())
        Partes.append(No->Text() + (No->HasChildren() ? u'(' + Texto(Nos, No) + u')' : QString()));
    return Partes.join(u' ');
}

/// The same of what the model shows.
inline QString Mostrado(const QAbstractItemModel &Modelo, const QModelIndex &Pai = {})
{
    QStringList Partes;
    for (int L = 0; L < Modelo.rowCount(Pai); ++L) {
        const QModelIndex I = Modelo.index(L, 0, Pai);
        Partes.append(I.data().toString() +
                      (Modelo.hasChildren(I) ? u'(' + Mostrado(Modelo, I) + u')' : QString()));
    }
    return Partes.join(u' ');
}

} // namespace Sibrel::Testes
