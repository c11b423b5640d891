// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/ArquivoDeErro.h"

#include "arvore/TextosXML.h"
#include "plataforma/CodePage.h"
#include "plataforma/Exception.h"

#include <QDir>
#include <QFile>

namespace Sibrel
{

namespace
{

// In pieces, so that a large document is not held a second time.
QByteArray Codificar(QStringView Texto)
{
    if (auto Bytes = Para1252(Texto))
        return *Bytes;
    QByteArray Resultado;
    for (qsizetype I = 0; I < Texto.size(); ++I) {
        if (const auto Byte = Para1252(Texto.sliced(I, 1))) {
            Resultado += *Byte;
            continue;
        }
        char32_t C = Texto[I].unicode();
        if (Texto[I].isHighSurrogate() && I + 1 < Texto.size() && Texto[I + 1].isLowSurrogate()) {
            C = QChar::surrogateToUcs4(Texto[I], Texto[I + 1]);
            ++I;
        }
        Resultado += "&#" + QByteArray::number(static_cast<uint>(C)) + ';';
    }
    return Resultado;
}

bool Escrever(QFile &Arquivo, QStringView Texto)
{
    constexpr qsizetype Pedaco = 1 << 16;
    while (!Texto.isEmpty()) {
        qsizetype Quantos = qMin(Pedaco, Texto.size());
        if (Quantos < Texto.size() && Texto[Quantos - 1].isHighSurrogate())
            ++Quantos;
        const QByteArray Bytes = Codificar(Texto.first(Quantos));
        if (Arquivo.write(Bytes) != Bytes.size())
            return false;
        Texto = Texto.sliced(Quantos);
    }
    return true;
}

} // namespace

QString GravarArquivoDeErro(const QString &Pasta, const QDateTime &Quando, const QString &Mensagem,
                            const QString &XML)
{
    const QString Nome =
        QDir(Pasta).filePath(QStringLiteral("Erro") + Quando.toString(QStringLiteral("yyyyMMdd_HHmmss")));
    constexpr int MaisNomes = 10000;
    QFile Arquivo;
    for (int I = 1; I < MaisNomes; ++I) {
        Arquivo.setFileName(Nome + (I > 1 ? QStringLiteral("_%1.xml").arg(I) : QStringLiteral(".xml")));
        if (Arquivo.open(QIODevice::WriteOnly | QIODevice::NewOnly) || !Arquivo.exists())
            break;
    }
    if (!Arquivo.isOpen())
        throw EFCreateError(QStringLiteral("Não foi possível gravar <%1>!").arg(Arquivo.fileName()),
                            Arquivo.errorString());
    // What is there by half goes: closing it may fail once more, which removing it by its name ignores.
    const auto Desistir = [&Arquivo] {
        Arquivo.close();
        QFile::remove(Arquivo.fileName());
    };
    try {
        if (Escrever(Arquivo, QString(QStringLiteral("<!--Erro gerado:") + Mensagem + QStringLiteral(" -->") +
                                      PULALINHA.toString())) &&
            Escrever(Arquivo, XML) && Escrever(Arquivo, PULALINHA) && Arquivo.flush())
            return Arquivo.fileName();
    } catch (...) { // no memory to encode it
        Desistir();
        throw;
    }
    const QString Motivo = Arquivo.errorString();
    Desistir();
    throw EFCreateError(QStringLiteral("Não foi possível gravar <%1>!").arg(Arquivo.fileName()), Motivo);
}

} // namespace Sibrel
