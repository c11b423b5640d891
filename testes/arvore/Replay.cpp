// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/Replay.h"

#include <algorithm>

namespace Sibrel::Testes
{

namespace
{

void Descer(const TNoDeReplay &No, std::vector<TNoDeReplay *> &Lista)
{
    for (const auto &F : No.Filhos) {
        Lista.push_back(F.get());
        Descer(*F, Lista);
    }
}

void LerLista(const IXMLNode &XML, const QString &Lista, const QString &Item, TStringList &Destino)
{
    for (const IXMLNode &I : XML.FindNode(Lista).Filhos()) {
        if (I.NodeName() != Item)
            continue;
        const QString Nome = I.Attribute(u"Rótulo").value_or(QString());
        const QString Valor = I.Attribute(u"Valor").value_or(QString());
        if (Destino.IndexOfName(Nome) >= 0)
            Destino.AtribuirValor(Nome, Valor);
        else
            Destino.Add(Nome + u'=' + Valor);
    }
}

TStringList IdentificacaoDe(const IXMLNode &XML)
{
    TStringList Lista;
    LerLista(XML, QStringLiteral("Identificadores"), QStringLiteral("Identificador"), Lista);
    return Lista;
}

bool Identifica(const TStrings &DoNo, const TStrings &Lista)
{
    if (Lista.Count() == 0 || Lista.Count() != DoNo.Count())
        return false;
    for (int I = 0; I < Lista.Count(); ++I)
        if (DoNo.Values(Lista.Names(I)) != Lista.Values(Lista.Names(I)))
            return false;
    return true;
}

bool Visivel(const IXMLNode &XML)
{
    if (const auto V = XML.Attribute(u"Visivel"))
        return V->toUpper() == u"S";
    if (XML.AttributeCount() >= 2 || XML.HasAttribute(u"Link") || XML.ChildCount() > 3)
        return true;
    return !XML.FindNode(u"Identificadores");
}

QString TextoDe(const TNoDeReplay &No)
{
    QString T;
    for (const auto &F : No.Filhos)
        T += QStringLiteral("[%1 %2 {%3} {%4}%5 %6]")
                 .arg(F->Legenda)
                 .arg(F->Cor)
                 .arg(F->Identificacao.Linhas().join(u';'), F->Informacao.Linhas().join(u';'),
                      F->Link ? QStringLiteral(" link") : QString(), TextoDe(*F));
    return T;
}

} // namespace

std::vector<TNoDeReplay *> TReplay::Todos() const
{
    std::vector<TNoDeReplay *> Lista;
    Descer(FRaiz, Lista);
    return Lista;
}

bool TReplay::Vive(const TNoDeReplay *No) const
{
    const std::vector<TNoDeReplay *> Lista = Todos();
    return std::find(Lista.begin(), Lista.end(), No) != Lista.end();
}

QString TReplay::Texto() const
{
    return TextoDe(FRaiz);
}

void TReplay::Aplicar(const QString &XML)
{
    const auto Documento = TXMLDocument::DeTexto(XML);
    for (const IXMLNode &Filho : Documento->DocumentElement().Filhos())
        Preparar(nullptr, nullptr, Filho);
    for (TOperacao *O : FFila)
        Realizar(*O);
    FFila.clear();
    FFeitas.clear();
    FMortos.clear();
}

TNoDeReplay *TReplay::ProcurarLegenda(TNoDeReplay *Pai, const QString &Legenda, const TStrings &Identificacao)
{
    for (const auto &No : (Pai != nullptr ? *Pai : FRaiz).Filhos)
        if (No->Legenda == Legenda &&
            (Identificacao.Count() == 0 || Identifica(No->Identificacao, Identificacao)))
            return No.get();
    return nullptr;
}

TNoDeReplay *TReplay::Procurar(TNoDeReplay *Pai, const IXMLNode &XML)
{
    const TStringList Identificacao = IdentificacaoDe(XML);
    const QString Nome = XML.Attribute(u"Nome").value_or(XML.NodeName());
    TNoDeReplay *Achado = Nome.isEmpty() ? nullptr : ProcurarLegenda(Pai, Nome, Identificacao);
    if (Achado != nullptr)
        return Achado;
    TNoDeReplay Provisorio;
    Carregar(Provisorio, XML);
    return Provisorio.Legenda != Nome ? ProcurarLegenda(Pai, Provisorio.Legenda, Identificacao) : nullptr;
}

void TReplay::Carregar(TNoDeReplay &No, const IXMLNode &XML)
{
    if (const auto Cor = XML.Attribute(u"Cor"))
        No.Cor = Cor->toInt();
    No.Legenda = XML.HasAttribute(u"Nome")  ? *XML.Attribute(u"Nome")
                 : XML.AttributeCount() > 0 ? XML.AttributeText(0)
                                            : XML.NodeName();
    No.Identificacao.Clear();
    LerLista(XML, QStringLiteral("Identificadores"), QStringLiteral("Identificador"), No.Identificacao);
    LerLista(XML, QStringLiteral("Informações"), QStringLiteral("Informação"), No.Informacao);
    if (XML.Attribute(u"Link").value_or(QString()).toLower() != u"sim" || No.Link)
        return;
    No.Link = true;
    for (const TNoDeReplay *Alvo : Todos())
        if (!Alvo->Link && Identifica(Alvo->Identificacao, No.Identificacao)) {
            No.Legenda = Alvo->Legenda;
            No.Cor = Alvo->Cor;
            return;
        }
    No.Link = false;
}

void TReplay::Preparar(TOperacao *Acima, TNoDeReplay *NoPai, const IXMLNode &XML)
{
    const QString Tag = XML.NodeName();
    if (Tag != u"U" && Tag != u"G")
        return;
    if (Tag == u"U") {
        FFeitas.push_back(
            std::make_unique<TOperacao>(TOperacao{'i', NoPai, Acima, Procurar(NoPai, XML), XML}));
        TOperacao *O = FFeitas.back().get();
        O->Qual = !Visivel(XML) ? 'e' : O->No == nullptr ? 'i' : 'a';
        if (O->Qual == 'e')
            std::erase_if(FFila, [O](TOperacao *Outra) {
                Outra->Retirada = Outra->Retirada || Outra->No == O->No;
                return Outra->No == O->No;
            });
        FFila.push_back(O);
        Acima = O;
        NoPai = O->No;
    }
    if (Acima != nullptr && Acima->Qual == 'e')
        return;
    for (const IXMLNode &Filho : XML.Filhos())
        Preparar(Acima, NoPai, Filho);
}

void TReplay::Excluir(TNoDeReplay *No)
{
    auto &Irmaos = No->Pai->Filhos;
    const auto Lugar =
        std::find_if(Irmaos.begin(), Irmaos.end(), [No](const auto &F) { return F.get() == No; });
    FMortos.push_back(std::move(*Lugar)); // operations may point at it and below
    Irmaos.erase(Lugar);
}

void TReplay::Realizar(TOperacao &O)
{
    if (O.Qual == 'i') {
        if (O.NoPai == nullptr && O.Acima != nullptr) {
            if (O.Acima->Retirada || O.Acima->No == nullptr)
                return;
            O.NoPai = O.Acima->No;
        }
        if (O.NoPai != nullptr && !Vive(O.NoPai))
            return;
        TNoDeReplay *Pai = O.NoPai != nullptr ? O.NoPai : &FRaiz;
        Pai->Filhos.push_back(std::make_unique<TNoDeReplay>());
        O.No = Pai->Filhos.back().get();
        O.No->Pai = Pai;
        Carregar(*O.No, O.XML);
    } else if (O.Qual == 'a') {
        if (Vive(O.No))
            Carregar(*O.No, O.XML);
    } else if (O.No != nullptr) {
        if (Vive(O.No))
            Excluir(O.No);
        O.No = nullptr;
    } else {
        const TStringList Identificacao = IdentificacaoDe(O.XML);
        std::vector<TNoDeReplay *> Alvos;
        for (TNoDeReplay *No : Todos())
            if (Identifica(No->Identificacao, Identificacao) &&
                std::none_of(FFila.begin(), FFila.end(),
                             [No](const TOperacao *Outra) { return Outra->No == No; }))
                Alvos.push_back(No);
        for (TNoDeReplay *No : Alvos)
            if (Vive(No))
                Excluir(No);
    }
}

} // namespace Sibrel::Testes
