// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/Arquivo.h"

#include "plataforma/CodePage.h"
#include "plataforma/Exception.h"
#include "plataforma/Strings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringDecoder>

#include <algorithm>
#include <new>

namespace Sibrel
{

namespace
{

bool Separador(QChar C) noexcept
{
    return C == u'/' || C == u'\\';
}

QString ComBarras(QString Nome)
{
    return Nome.replace(u'\\', u'/');
}

// The entry of `Pasta` that is `Nome` in other letter case, empty when there is none.
QString EntradaSemCaixa(const QString &Pasta, const QString &Nome)
{
    const QStringList Entradas = QDir(Pasta).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    const auto Achada = std::find_if(Entradas.begin(), Entradas.end(),
                                     [&Nome](const QString &E) { return MesmoTexto(E, Nome); });
    return Achada != Entradas.end() ? *Achada : QString();
}

bool ComUnidade(QStringView Nome) noexcept
{
    return Nome.size() >= 2 && Nome[1] == u':' && Nome[0].isLetter();
}

bool Absoluto(QStringView Nome) noexcept
{
    return (!Nome.isEmpty() && Separador(Nome[0])) || ComUnidade(Nome);
}

QStringList Componentes(const QString &Nome)
{
    QStringList Resultado;
    for (const QString &Parte : ComBarras(Nome).split(u'/', Qt::SkipEmptyParts)) {
        if (Parte == QLatin1String("."))
            continue;
        if (Parte == QLatin1String("..") && !Resultado.isEmpty() && Resultado.last() != QLatin1String(".."))
            Resultado.removeLast();
        else
            Resultado.append(Parte);
    }
    return Resultado;
}

} // namespace

QString ResolverNomeDeArquivo(const QString &Nome)
{
    if (Nome.contains(u'\0'))
        return Nome; // from a damaged record: no system has such a file, and asking would only be a warning
    if (QFileInfo::exists(Nome))
        return Nome; // also a name that holds a backslash on a system that allows it
    QString Direto = ComBarras(Nome);
    if (Direto.isEmpty() || QFileInfo::exists(Direto))
        return Direto;

    // Component by component: only where the exact one is not there is the folder read.
    QString Caminho = Direto.startsWith(u'/') ? QStringLiteral("/") : QString();
    for (const QString &Parte : Direto.split(u'/', Qt::SkipEmptyParts)) {
        const QString Exato = Caminho + Parte;
        QString Achado = Parte;
        if (!QFileInfo::exists(Exato)) {
            Achado = EntradaSemCaixa(Caminho.isEmpty() ? QStringLiteral(".") : Caminho, Parte);
            if (Achado.isEmpty())
                return Direto;
        }
        Caminho += Achado + u'/';
    }
    Caminho.chop(1);
    return Caminho;
}

bool ArquivoExiste(const QString &Nome)
{
    return !Nome.isEmpty() && !Nome.contains(u'\0') && QFileInfo(ResolverNomeDeArquivo(Nome)).isFile();
}

QString PastaDe(const QString &Nome)
{
    for (qsizetype I = Nome.size() - 1; I >= 0; --I) {
        if (Separador(Nome[I])) {
            const bool Raiz = I == 0 || (I == 2 && ComUnidade(Nome));
            return Nome.first(Raiz ? I + 1 : I);
        }
    }
    return {};
}

QString CaminhoRelativo(const QString &Pasta, const QString &Nome)
{
    if (!Absoluto(Nome) || !Absoluto(Pasta))
        return Nome;
    const QStringList De = Componentes(Pasta);
    const QStringList Ate = Componentes(Nome);
    const bool DeWindows = ComUnidade(Nome) || ComUnidade(Pasta);
    const auto Iguais = [DeWindows](const QString &A, const QString &B) {
        return DeWindows ? MesmoTexto(A, B) : A == B;
    };
    const auto [FimDe, FimAte] = std::mismatch(De.begin(), De.end(), Ate.begin(), Ate.end(), Iguais);
    if (DeWindows && (FimDe == De.begin() || ComUnidade(Nome) != ComUnidade(Pasta)))
        return Nome; // another drive
    QStringList Resultado;
    for (auto I = FimDe; I != De.end(); ++I)
        Resultado.append(QStringLiteral(".."));
    Resultado.append(QStringList(FimAte, Ate.end()));
    return Resultado.join(Nome.contains(u'\\') ? u'\\' : u'/');
}

QString ResolverNomeParaGravar(const QString &Nome)
{
    QString Existente = ResolverNomeDeArquivo(Nome);
    if (QFileInfo::exists(Existente))
        return Existente;
    const QString Pasta = PastaDe(Nome);
    if (Pasta.isEmpty())
        return Existente;
    const QString PastaExistente = ResolverNomeDeArquivo(Pasta);
    return (PastaExistente.endsWith(u'/') ? PastaExistente : PastaExistente + u'/') +
           Existente.sliced(Existente.lastIndexOf(u'/') + 1);
}

QByteArray LerArquivoInteiro(const QString &Nome)
{
    const auto Mensagem = [&Nome] {
        return QStringLiteral("Não foi possível abrir o arquivo <%1>!").arg(Nome);
    };
    QFile Arquivo(Nome);
    if (!Arquivo.open(QIODevice::ReadOnly)) {
        // The name as it stands is nearly always right: only where it is not is the disk asked more.
        Arquivo.setFileName(ResolverNomeDeArquivo(Nome));
        if (QFileInfo(Arquivo).isDir())
            throw EFOpenError(Mensagem(), QStringLiteral("É uma pasta."));
        if (!Arquivo.open(QIODevice::ReadOnly))
            throw EFOpenError(Mensagem(), Arquivo.errorString() + u'.');
    }
    try {
        QByteArray Bytes = Arquivo.readAll();
        if (Arquivo.error() != QFileDevice::NoError)
            throw EFOpenError(Mensagem(), Arquivo.errorString() + u'.');
        return Bytes;
    } catch (const std::bad_alloc &) {
        throw EFOpenError(Mensagem(), QStringLiteral("Não há memória para o arquivo."));
    }
}

void GravarArquivoInteiro(const QString &Nome, QByteArrayView Bytes)
{
    const auto Falhou = [&Nome](const QFileDevice &Arquivo) {
        return EFCreateError(QStringLiteral("Não foi possível gravar o arquivo <%1>!").arg(Nome),
                             Arquivo.errorString() + u'.');
    };
    const auto Escreve = [Bytes](QFileDevice &Arquivo) {
        return Arquivo.open(QIODevice::WriteOnly) &&
               Arquivo.write(Bytes.data(), Bytes.size()) == Bytes.size() && Arquivo.flush();
    };
    const QString Verdadeiro = ResolverNomeParaGravar(Nome);
    if (const QFileInfo Alvo(Verdadeiro); Alvo.exists() && !Alvo.isFile()) {
        QFile Direto(Verdadeiro); // a device or a pipe is written to, not replaced by a file
        if (!Escreve(Direto))
            throw Falhou(Direto);
        return;
    }
    QSaveFile Arquivo(Verdadeiro);
    Arquivo.setDirectWriteFallback(true); // a folder that forbids new files may still allow this one
    if (!Escreve(Arquivo) || !Arquivo.commit())
        throw Falhou(Arquivo);
}

QString TextoDeArquivo(QByteArrayView Bytes)
{
    if (const auto Marca = QStringDecoder::encodingForData(Bytes)) {
        QStringDecoder Decodificador(*Marca); // skips the mark
        return Decodificador(Bytes);
    }
    return De1252(Bytes);
}

} // namespace Sibrel
