// SPDX-License-Identifier: LGPL-2.1-or-later
#include "hospedeiro/DescricaoDeSimbolo.h"

#include "simbolos/SimboloComposto.h"
#include "simbolos/SimboloFonte.h"
#include "simbolos/SimboloGrafico.h"
#include "simbolos/SimboloVetorial.h"
#include "simbolos/TabelaDeSimbolos.h"

#include <QSet>

namespace Hospedeiro
{

using namespace Sibrel;

namespace
{

void EscreverSimbolo(QString &Lista, const ISimbolo &Simbolo, const QString &Indice, const QString &Rotulo,
                     int Nivel)
{
    constexpr int BrancosPorNivel = 2;
    Lista += QString(Nivel * BrancosPorNivel, u' ') + Indice + u'\t' + TipoDoSimbolo(Simbolo) + u'\t' +
             EmUmaColuna(Rotulo);
    for (const TCampo &Campo : CamposDoSimbolo(Simbolo))
        Lista += u'\t' + Campo.Nome + u'=' + EmUmaColuna(Campo.Valor);
    Lista += u'\n';
    if (const TListaSimbolo *Partes = PartesDoSimbolo(Simbolo))
        for (int I = 0; I < Partes->Count(); ++I)
            EscreverSimbolo(Lista, *Partes->Item(I), Indice + u'.' + QString::number(I), {}, Nivel + 1);
}

void DescreverCampos(QStringList &Linhas, const ISimbolo &Simbolo, const QString &Recuo)
{
    for (const TCampo &Campo : CamposDoSimbolo(Simbolo))
        Linhas += Recuo + Campo.Nome + QStringLiteral(": ") + Campo.Valor;
    if (const TListaSimbolo *Partes = PartesDoSimbolo(Simbolo))
        for (const auto &Parte : *Partes) {
            Linhas += Recuo + QStringLiteral("• ") + TipoDoSimbolo(*Parte);
            DescreverCampos(Linhas, *Parte, Recuo + QStringLiteral("    "));
        }
}

QString ArquivoDoSimbolo(const ISimbolo &Simbolo)
{
    if (const auto *Grafico = dynamic_cast<const TSimboloGrafico *>(&Simbolo))
        return Grafico->Arquivo;
    if (const auto *Vetorial = dynamic_cast<const TSimboloVetorial *>(&Simbolo))
        return Vetorial->ObterNomeArquivo();
    return {};
}

QString FonteDoSimbolo(const ISimbolo &Simbolo)
{
    const auto *Fonte = dynamic_cast<const TSimboloFonte *>(&Simbolo);
    return Fonte != nullptr ? Fonte->Fonte.Name() : QString();
}

// What `NomeDe` says of each symbol and part, each name once.
template <class F>
void JuntarNomes(const TListaSimbolo &Simbolos, const F &NomeDe, QStringList &Nomes, QSet<QString> &Vistos)
{
    for (const auto &Simbolo : Simbolos) {
        const QString Nome = NomeDe(*Simbolo);
        if (!Nome.isEmpty() && !Vistos.contains(Nome)) {
            Vistos.insert(Nome);
            Nomes.append(Nome);
        }
        if (const TListaSimbolo *Partes = PartesDoSimbolo(*Simbolo))
            JuntarNomes(*Partes, NomeDe, Nomes, Vistos);
    }
}

template <class F>
QStringList NomesDosSimbolos(const TListaSimbolo &Simbolos, const F &NomeDe)
{
    QStringList Nomes;
    QSet<QString> Vistos;
    JuntarNomes(Simbolos, NomeDe, Nomes, Vistos);
    return Nomes;
}

} // namespace

QString TipoDoSimbolo(const ISimbolo &Simbolo)
{
    QString Tipo;
    TRefTratador Tratador;
    TListaSimbolo::ObterTratadorDeSimbolo(Simbolo.ObterClasse(), Tipo, Tratador);
    return Tipo;
}

std::vector<TCampo> CamposDoSimbolo(const ISimbolo &Simbolo)
{
    if (const auto *Fonte = dynamic_cast<const TSimboloFonte *>(&Simbolo))
        return {{QStringLiteral("caracter"), QString::number(Fonte->Caracter)},
                {QStringLiteral("charset"), QString::number(Fonte->Fonte.Charset())},
                {QStringLiteral("proporcao"), Decimal(Fonte->Proporcao)},
                {QStringLiteral("fonte"), Fonte->Fonte.Name()}};
    if (const auto *Grafico = dynamic_cast<const TSimboloGrafico *>(&Simbolo))
        return {{QStringLiteral("arquivo"), Grafico->Arquivo}};
    if (const auto *Vetorial = dynamic_cast<const TSimboloVetorial *>(&Simbolo))
        return {{QStringLiteral("arquivo"), Vetorial->ObterNomeArquivo()},
                {QStringLiteral("elementos"), QString::number(Vetorial->ObterElementos().Count())}};
    if (const TListaSimbolo *Partes = PartesDoSimbolo(Simbolo))
        return {{QStringLiteral("partes"), QString::number(Partes->Count())}};
    return {};
}

const TListaSimbolo *PartesDoSimbolo(const ISimbolo &Simbolo)
{
    const auto *Composto = dynamic_cast<const TSimboloComposto *>(&Simbolo);
    return Composto != nullptr ? &Composto->Lista : nullptr;
}

QStringList ArquivosDosSimbolos(const TListaSimbolo &Simbolos)
{
    return NomesDosSimbolos(Simbolos, &ArquivoDoSimbolo);
}

QStringList FontesDosSimbolos(const TListaSimbolo &Simbolos)
{
    return NomesDosSimbolos(Simbolos, &FonteDoSimbolo);
}

QString ListaDaTabela(const TTabelaDeSimbolos &Tabela)
{
    QString Lista;
    for (int I = 0; I < Tabela.Simbolos().Count(); ++I)
        EscreverSimbolo(Lista, *Tabela.Simbolos().Item(I), QString::number(I), Tabela.ObterRotulo(I), 0);
    return Lista;
}

QString DicaDoSimbolo(const TTabelaDeSimbolos &Tabela, int Indice)
{
    const ISimbolo &Simbolo = *Tabela.Simbolos().Item(Indice);
    QStringList Linhas = {QStringLiteral("%1: %2").arg(Indice).arg(Tabela.ObterRotulo(Indice)),
                          QStringLiteral("tipo: %1").arg(TipoDoSimbolo(Simbolo))};
    DescreverCampos(Linhas, Simbolo, {});
    constexpr int MaisLinhas = 24; // a tooltip is to fit on a screen
    if (Linhas.size() > MaisLinhas) {
        Linhas.resize(MaisLinhas);
        Linhas += QStringLiteral("…");
    }
    return Linhas.join(u'\n');
}

} // namespace Hospedeiro
