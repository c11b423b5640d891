// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/CustomConnection.h"

#include "plataforma/Arquivo.h"
#include "plataforma/Exception.h"

#include <QSqlError>
#include <QStringList>
#include <QUrl>
#include <QUrlQuery>

#include <atomic>
#include <utility>

namespace Sibrel
{

namespace
{

const QString EmMemoria = QStringLiteral(":memory:");

QString NomeNovo()
{
    static std::atomic<unsigned> Ultimo{0};
    return QStringLiteral("Sibrel.%1").arg(++Ultimo);
}

bool DeServidor(const QString &Endereco)
{
    return Endereco.startsWith(u"postgresql://") || Endereco.startsWith(u"postgres://");
}

// A value of a connection option, as the client library reads it.
QString EntreAspas(QString Valor)
{
    return u'\'' + Valor.replace(u'\\', QStringLiteral("\\\\")).replace(u'\'', QStringLiteral("\\'")) + u'\'';
}

void ConfigurarServidor(QSqlDatabase &Banco, const QUrl &Endereco)
{
    Banco.setHostName(Endereco.host());
    Banco.setPort(Endereco.port());
    Banco.setUserName(Endereco.userName(QUrl::FullyDecoded));
    Banco.setPassword(Endereco.password(QUrl::FullyDecoded));
    Banco.setDatabaseName(Endereco.path(QUrl::FullyDecoded).mid(1));
    QStringList Opcoes;
    const auto Itens = QUrlQuery(Endereco).queryItems(QUrl::FullyDecoded);
    for (const auto &[Nome, Valor] : Itens) {
        if (Nome == u"host")
            Banco.setHostName(Valor);
        else if (Nome == u"port")
            Banco.setPort(Valor.toInt());
        else if (Nome == u"user")
            Banco.setUserName(Valor);
        else if (Nome == u"password")
            Banco.setPassword(Valor);
        else
            Opcoes += Nome + u'=' + EntreAspas(Valor);
    }
    Banco.setConnectOptions(Opcoes.join(u';'));
}

const QString DriverDeServidor = QStringLiteral("QPSQL");

// True for the states in which the server ends a session, and for failures without a state: those come from
// the client library, which found no one there. The driver itself may only notice that later.
bool SessaoPerdida(const QSqlDatabase &Banco, const QSqlError &Erro)
{
    const QString Estado = Erro.nativeErrorCode();
    return !Banco.isOpen() || (Banco.driverName() == DriverDeServidor &&
                               (Estado.isEmpty() || Estado.startsWith(u"08") || Estado.startsWith(u"57P")));
}

QSqlDatabase NovoBanco(const QString &Driver)
{
    if (!QSqlDatabase::isDriverAvailable(Driver))
        throw EDatabaseError(
            QStringLiteral("O driver de banco de dados <%1> não está instalado!").arg(Driver));
    return QSqlDatabase::addDatabase(Driver, NomeNovo());
}

} // namespace

TCustomConnection::TCustomConnection(QObject *Dono)
    : QObject(Dono)
{
}

TCustomConnection::TCustomConnection(const QString &Endereco, QObject *Dono)
    : QObject(Dono)
    , FEndereco(Endereco)
{
}

TCustomConnection::TCustomConnection(const QSqlDatabase &Banco, QObject *Dono)
    : QObject(Dono)
    , FBanco(Banco)
    , FPropria(false)
{
}

TCustomConnection::~TCustomConnection()
{
    Descartar();
}

void TCustomConnection::Descartar()
{
    const QString Nome = FBanco.connectionName();
    if (FPropria)
        FBanco.close();
    FBanco = QSqlDatabase(); // a connection is only removed when no one holds it
    if (FPropria && !Nome.isEmpty())
        QSqlDatabase::removeDatabase(Nome);
}

void TCustomConnection::AtribuirEndereco(const QString &Endereco)
{
    Descartar();
    FPropria = true;
    FEndereco = Endereco;
}

void TCustomConnection::Preparar()
{
    if (FEndereco.isEmpty())
        throw EDatabaseError(QStringLiteral("A conexão não tem endereço!"));
    if (DeServidor(FEndereco)) {
        FBanco = NovoBanco(DriverDeServidor);
        ConfigurarServidor(FBanco, QUrl(FEndereco));
        return;
    }
    // The driver would make an empty database of a name that was only misspelt.
    if (FEndereco != EmMemoria && !ArquivoExiste(FEndereco))
        throw EDatabaseError(QStringLiteral("O arquivo de banco de dados <%1> não existe!").arg(FEndereco));
    FBanco = NovoBanco(QStringLiteral("QSQLITE"));
    FBanco.setDatabaseName(FEndereco == EmMemoria ? FEndereco : ResolverNomeDeArquivo(FEndereco));
}

void TCustomConnection::Open()
{
    if (Connected())
        return;
    if (FPropria) {
        Descartar(); // what a lost connection left behind
        Preparar();
    }
    if (!FBanco.open())
        throw EDatabaseError(QStringLiteral("Não foi possível conectar ao banco de dados!"),
                             FBanco.lastError().text().trimmed());
}

void TCustomConnection::Close()
{
    FBanco.close();
}

bool TCustomConnection::Connected() const
{
    return FBanco.isOpen();
}

void TCustomConnection::AtribuirConnected(bool Valor)
{
    if (Valor)
        Open();
    else
        Close();
}

QSqlQuery TCustomConnection::Executada(const QString &SQL, const QVariantList &Valores)
{
    QSqlQuery Consulta(FBanco);
    Consulta.setForwardOnly(true);
    if (Valores.isEmpty()) {
        Consulta.exec(SQL);
        return Consulta;
    }
    if (Consulta.prepare(SQL)) {
        for (const QVariant &Valor : Valores)
            Consulta.addBindValue(Valor);
        Consulta.exec();
    }
    return Consulta;
}

QSqlQuery TCustomConnection::Consultar(const QString &SQL, const QVariantList &Valores)
{
    const bool JaEstavaAberta = Connected();
    Open();
    QSqlQuery Consulta = Executada(SQL, Valores);
    if (JaEstavaAberta && !Consulta.isActive() && SessaoPerdida(FBanco, Consulta.lastError())) {
        Consulta = QSqlQuery();
        Close();
        Open();
        Consulta = Executada(SQL, Valores);
    }
    if (!Consulta.isActive()) {
        EDatabaseError Erro(QStringLiteral("Não foi possível consultar o banco de dados!"),
                            Consulta.lastError().text().trimmed());
        Erro.AcrescentarDetalhe(QStringLiteral("Consulta: %1").arg(SQL));
        throw Erro;
    }
    return Consulta;
}

} // namespace Sibrel
