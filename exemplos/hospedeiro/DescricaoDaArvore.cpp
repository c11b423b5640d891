// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/DescricaoDaArvore.h"

#include "hospedeiro/Campo.h"

#include "arvore/TreeViewXML.h"
#include "plataforma/Exception.h"

#include <QStringList>

#include <mutex>

namespace Hospedeiro
{

using namespace Sibrel;

namespace
{

void DescreverPares(QString &Linha, const QString &Prefixo, const TStrings &Pares)
{
    for (int I = 0; I < Pares.Count(); ++I)
        Linha += u'\t' + Prefixo + EmUmaColuna(Pares.Names(I)) + u'=' + EmUmaColuna(Pares.ValueFromIndex(I));
}

void DescreverNo(QString &Linha, const TTreeNodeXML &No)
{
    Linha += QStringLiteral("\tcor=%1\tsimbolo=%2").arg(TextoDaCor(No.Cor())).arg(No.ImageIndex());
    DescreverPares(Linha, QStringLiteral("id."), No.Identificacao());
    DescreverPares(Linha, QStringLiteral("info."), No.Informacao());
    if (No.Link())
        Linha += QStringLiteral("\tlink");
    if (No.ObterApagado())
        Linha += QStringLiteral("\tapagado");
}

// The update's own last word says no more than that one of its elements failed.
bool SoRepete(const TFalhaDeAtualizacao &Falha)
{
    return Falha.Detalhe.isEmpty() && Falha.Mensagem == u"XML em formato inválido!";
}

QString TextoDaFalha(const TFalhaDeAtualizacao &Falha)
{
    QStringList Onde;
    if (Falha.Linha > 0)
        Onde += QStringLiteral("Linha %1").arg(Falha.Linha);
    if (const QString Elemento = Falha.Caminho.isEmpty() ? Falha.Elemento : Falha.Caminho;
        !Elemento.isEmpty())
        Onde += Elemento;
    const QString Causa = Falha.Detalhe.isEmpty() ? Falha.Mensagem : Falha.Mensagem + u' ' + Falha.Detalhe;
    return Onde.isEmpty() ? Causa : Onde.join(QStringLiteral(", ")) + QStringLiteral(": ") + Causa;
}

} // namespace

QString ListaDaArvore(const TTreeViewXML &Arvore)
{
    const std::lock_guard Guarda(Arvore.Items().Trava());
    QString Lista;
    for (const TTreeNode *No = Arvore.Items().GetFirstNode(); No != nullptr; No = No->GetNext()) {
        Lista += QString(2 * No->Level(), u' ') + EmUmaColuna(No->Text());
        if (const auto *XML = dynamic_cast<const TTreeNodeXML *>(No))
            DescreverNo(Lista, *XML);
        Lista += u'\n';
    }
    return Lista;
}

QString TextoDasFalhas(const std::vector<TFalhaDeAtualizacao> &Falhas)
{
    QStringList Linhas;
    for (const TFalhaDeAtualizacao &Falha : Falhas)
        if (Linhas.isEmpty() || !SoRepete(Falha))
            Linhas += TextoDaFalha(Falha);
    return Linhas.join(u'\n');
}

QString DetalheDaOrigem(const Exception &Erro, const QString &Tipo, const QString &Nome)
{
    const QString EntreAngulos = QStringLiteral("<%1>").arg(Nome);
    if (Erro.Message.contains(EntreAngulos) || Erro.Detalhe.contains(EntreAngulos))
        return Erro.Detalhe;
    return Tipo + u' ' + EntreAngulos +
           (Erro.Detalhe.isEmpty() ? QStringLiteral(".") : QStringLiteral(":\n") + Erro.Detalhe);
}

} // namespace Hospedeiro
