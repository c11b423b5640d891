// SPDX-License-Identifier: LGPL-2.1-or-later
#include "comum/Dados.h"

#include <QFile>
#include <QFontDatabase>

#include <stdexcept>

namespace Sibrel::Testes
{

QString DadoDeTeste(const QString &Nome)
{
    return QStringLiteral(SIBREL_PASTA_DE_TESTES "/dados/") + Nome;
}
QString DadoDeExemplo(const QString &Nome)
{
    return QStringLiteral(SIBREL_PASTA_DE_EXEMPLOS "/dados/") + Nome;
}

void CarregarFontes()
{
    for (const QString &Arquivo : {DadoDeTeste(QStringLiteral("fontes/SibrelTeste.ttf")),
                                   DadoDeExemplo(QStringLiteral("fontes/SibrelSimbolos.ttf"))})
        if (QFontDatabase::addApplicationFont(Arquivo) < 0)
            throw std::runtime_error("fonte não carregada: " + Arquivo.toStdString());
}

QByteArray BytesDe(const QString &Arquivo)
{
    QFile F(Arquivo);
    if (!F.open(QIODevice::ReadOnly))
        throw std::runtime_error("arquivo não encontrado: " + Arquivo.toStdString());
    return F.readAll();
}

void EscreverBytes(const QString &Arquivo, const QByteArray &Bytes)
{
    QFile F(Arquivo);
    if (!F.open(QIODevice::WriteOnly) || F.write(Bytes) != Bytes.size())
        throw std::runtime_error("arquivo não gravado: " + Arquivo.toStdString());
}

} // namespace Sibrel::Testes
