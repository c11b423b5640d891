// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/Strings.h"

#include "plataforma/Arquivo.h"
#include "plataforma/CodePage.h"
#include "plataforma/Exception.h"

namespace Sibrel
{

bool MesmoTexto(QStringView A, QStringView B) noexcept
{
    return A.size() == B.size() && A.compare(B, Qt::CaseInsensitive) == 0;
}

TStrings::~TStrings() = default;

int TStrings::Add(const QString &Texto)
{
    const int Indice = Count();
    Insert(Indice, Texto);
    return Indice;
}

void TStrings::AddStrings(const TStrings &Outra)
{
    const int Quantas = Outra.Count(); // taken once: a list added to itself ends with twice its lines
    for (int I = 0; I < Quantas; ++I)
        Add(Outra.Linha(I));
}

void TStrings::Assign(const TStrings &Outra)
{
    if (this == &Outra)
        return;
    Clear();
    AddStrings(Outra);
}

int TStrings::IndexOf(const QString &Texto) const
{
    for (int I = 0, N = Count(); I < N; ++I)
        if (MesmoTexto(Linha(I), Texto))
            return I;
    return -1;
}

int TStrings::IndexOfName(QStringView Nome) const
{
    for (int I = 0, N = Count(); I < N; ++I) {
        const QString Texto = Linha(I);
        const qsizetype Igual = Texto.indexOf(u'=');
        if (Igual >= 0 && MesmoTexto(QStringView(Texto).first(Igual), Nome))
            return I;
    }
    return -1;
}

QString TStrings::Names(int Indice) const
{
    const QString Texto = Linha(Indice);
    const qsizetype Igual = Texto.indexOf(u'=');
    return Igual >= 0 ? Texto.first(Igual) : QString();
}

QString TStrings::ValueFromIndex(int Indice) const
{
    const QString Texto = Linha(Indice);
    const qsizetype Igual = Texto.indexOf(u'=');
    return Igual >= 0 ? Texto.sliced(Igual + 1) : QString();
}

QString TStrings::Values(QStringView Nome) const
{
    const int Indice = IndexOfName(Nome);
    return Indice >= 0 ? ValueFromIndex(Indice) : QString();
}

void TStrings::AtribuirValor(const QString &Nome, const QString &Valor)
{
    const int Indice = IndexOfName(Nome);
    if (Valor.isEmpty()) {
        if (Indice >= 0)
            Delete(Indice);
    } else if (Indice >= 0) {
        AtribuirLinha(Indice, Nome + u'=' + Valor);
    } else {
        Add(Nome + u'=' + Valor);
    }
}

QString TStrings::Text() const
{
    QString Texto;
    for (int I = 0, N = Count(); I < N; ++I)
        Texto += Linha(I) + QLatin1String("\r\n");
    return Texto;
}

void TStrings::AtribuirText(QStringView Texto)
{
    QStringList Linhas;
    qsizetype Inicio = 0;
    while (Inicio < Texto.size()) {
        qsizetype Fim = Inicio;
        while (Fim < Texto.size() && Texto[Fim] != u'\r' && Texto[Fim] != u'\n')
            ++Fim;
        Linhas.append(Texto.sliced(Inicio, Fim - Inicio).toString());
        const bool CrLf = Fim + 1 < Texto.size() && Texto[Fim] == u'\r' && Texto[Fim + 1] == u'\n';
        Inicio = Fim + (CrLf ? 2 : 1);
    }
    Assign(TStringList(std::move(Linhas)));
}

QStringList TStrings::ParaQStringList() const
{
    QStringList Linhas;
    Linhas.reserve(Count());
    for (int I = 0, N = Count(); I < N; ++I)
        Linhas.append(Linha(I));
    return Linhas;
}

void TStrings::LoadFromFile(const QString &Arquivo)
{
    AtribuirText(TextoDeArquivo(LerArquivoInteiro(Arquivo)));
}

void TStrings::SaveToFile(const QString &Arquivo) const
{
    GravarArquivoInteiro(Arquivo, Exigir1252(Text()));
}

TStringList::TStringList(QStringList Linhas)
    : FLinhas(std::move(Linhas))
{
}

TStringList::~TStringList() = default;

TStringList::TStringList(const TStringList &Outra)
    : TStrings(Outra)
    , FLinhas(Outra.FLinhas)
{
}

TStringList &TStringList::operator=(const TStringList &Outra)
{
    TStringList::Assign(Outra);
    return *this;
}

QString TStringList::Linha(int Indice) const
{
    return FLinhas[Verificado(Indice, FLinhas.size())];
}

void TStringList::AtribuirLinha(int Indice, const QString &Texto)
{
    FLinhas[Verificado(Indice, FLinhas.size())] = Texto;
    Mudou();
}

void TStringList::Insert(int Indice, const QString &Texto)
{
    FLinhas.insert(Verificado(Indice, FLinhas.size() + 1), Texto);
    Mudou();
}

void TStringList::Delete(int Indice)
{
    FLinhas.removeAt(Verificado(Indice, FLinhas.size()));
    Mudou();
}

void TStringList::Clear()
{
    if (FLinhas.isEmpty())
        return;
    FLinhas.clear();
    Mudou();
}

void TStringList::Assign(const TStrings &Outra)
{
    if (this == &Outra)
        return;
    FLinhas = Outra.ParaQStringList();
    Mudou();
}

void TStringList::Mudou()
{
    if (OnChange)
        OnChange(*this);
}

qsizetype TStringList::Verificado(int Indice, qsizetype Limite) const
{
    if (Indice < 0 || Indice >= Limite)
        throw EStringListError(QStringLiteral("Índice de lista fora dos limites (%1)").arg(Indice));
    return Indice;
}

} // namespace Sibrel
