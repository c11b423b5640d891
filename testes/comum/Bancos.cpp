// SPDX-License-Identifier: LGPL-2.1-or-later
#include "comum/Bancos.h"

#include "comum/Dados.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QTest>

#include <stdexcept>

namespace Sibrel::Testes
{

QString TComBancos::SubirBancos(const QString &Arquivo)
{
    try {
        FServidor = std::make_unique<TServidorPostgres>();
    } catch (const std::exception &E) {
        return QString::fromUtf8(E.what());
    }
    FArquivo = std::make_unique<TCustomConnection>(Arquivo);
    FNoServidor = std::make_unique<TCustomConnection>(FServidor->Endereco());
    return {};
}

void TComBancos::DescerBancos()
{
    FNoServidor.reset();
    FArquivo.reset();
    FServidor.reset();
}

void TComBancos::CadaBanco()
{
    QTest::addColumn<bool>("DoServidor");
    QTest::newRow("sqlite") << false;
    QTest::newRow("postgresql") << true;
}

TCustomConnection &TComBancos::Conexao() const
{
    QFETCH(bool, DoServidor);
    return DoServidor ? *FNoServidor : *FArquivo;
}

void RodarSQL(TCustomConnection &Onde, const QString &SQL)
{
    Onde.Open();
    QSqlQuery Consulta(Onde.Banco());
    const QStringList Comandos = SQL.split(QStringLiteral(";\n"), Qt::SkipEmptyParts);
    for (const QString &Comando : Comandos)
        if (!Consulta.exec(Comando))
            throw std::runtime_error((Consulta.lastError().text() + u'\n' + Comando).toStdString());
}

QString CriarExercicio(TServidorPostgres &Servidor, const QString &Codificacao)
{
    const QString Nome = QStringLiteral("exercicio");
    Servidor.CriarBanco(Nome, Codificacao);
    TCustomConnection Base(Servidor.Endereco(Nome));
    RodarSQL(Base, QString::fromUtf8(BytesDe(DadoDeExemplo(QStringLiteral("exercicio.sql")))));
    return Servidor.Endereco(Nome);
}

} // namespace Sibrel::Testes
