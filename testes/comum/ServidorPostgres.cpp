// SPDX-License-Identifier: LGPL-2.1-or-later
#include "comum/ServidorPostgres.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QStandardPaths>
#include <QThread>

#include <csignal>
#include <pwd.h>
#include <stdexcept>
#include <unistd.h>

namespace Sibrel::Testes
{

namespace
{

constexpr int PrazoEmMs = 60'000;

[[noreturn]] void Falha(const QString &Texto)
{
    throw std::runtime_error(Texto.toStdString());
}

// The server refuses to be run by root: there it runs as the user that its package made.
const passwd *OutroUsuario()
{
    if (geteuid() != 0)
        return nullptr;
    for (const char *Nome : {"postgres", "nobody"})
        if (const passwd *Usuario = getpwnam(Nome))
            return Usuario;
    Falha(QStringLiteral("nenhum usuário sem privilégios para o servidor PostgreSQL"));
}

} // namespace

QString TServidorPostgres::Programa(const QString &Nome)
{
    QStringList Pastas;
    const QDir Base(QStringLiteral("/usr/lib/postgresql"));
    for (const QString &Versao :
         Base.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::Reversed))
        Pastas += Base.filePath(Versao + QStringLiteral("/bin"));
    QString Achado = QStandardPaths::findExecutable(Nome, Pastas);
    if (Achado.isEmpty())
        Achado = QStandardPaths::findExecutable(Nome);
    if (Achado.isEmpty())
        Falha(QStringLiteral("falta o programa %1 do PostgreSQL: instale com tools/dependencias --testes")
                  .arg(Nome));
    return Achado;
}

void TServidorPostgres::Rodar(QProcess &Processo, const QString &Nome, const QStringList &Argumentos) const
{
    QStringList Todos = {QStringLiteral("--pdeathsig"), QStringLiteral("SIGQUIT")};
    if (const passwd *Usuario = OutroUsuario())
        Todos += {QStringLiteral("--reuid=%1").arg(Usuario->pw_uid),
                  QStringLiteral("--regid=%1").arg(Usuario->pw_gid), QStringLiteral("--clear-groups")};
    Todos += Programa(Nome);
    Processo.setWorkingDirectory(FPasta.path());
    Processo.setProcessChannelMode(QProcess::MergedChannels);
    Processo.start(QStringLiteral("setpriv"), Todos + Argumentos);
    if (!Processo.waitForStarted())
        Falha(QStringLiteral("setpriv não iniciou: %1").arg(Processo.errorString()));
}

void TServidorPostgres::Executar(const QString &Nome, const QStringList &Argumentos) const
{
    QProcess Processo;
    Rodar(Processo, Nome, Argumentos);
    if (!Processo.waitForFinished(PrazoEmMs) || Processo.exitCode() != 0)
        Falha(QStringLiteral("%1: %2").arg(Nome, QString::fromUtf8(Processo.readAll())));
}

TServidorPostgres::TServidorPostgres()
{
    if (const passwd *Usuario = OutroUsuario())
        if (chown(FPasta.path().toLocal8Bit().constData(), Usuario->pw_uid, Usuario->pw_gid) != 0)
            Falha(QStringLiteral("a pasta do servidor não muda de dono"));
    Executar(QStringLiteral("initdb"),
             {QStringLiteral("-D"), FPasta.filePath(QStringLiteral("dados")), QStringLiteral("-U"),
              QStringLiteral("sibrel"), QStringLiteral("--auth=trust"), QStringLiteral("--encoding=UTF8"),
              QStringLiteral("--locale=C"), QStringLiteral("--no-sync")});
    Subir();
}

TServidorPostgres::~TServidorPostgres()
{
    Derrubar();
}

QString TServidorPostgres::Endereco(const QString &Banco) const
{
    return QStringLiteral("postgresql:///%1?host=%2&user=sibrel&connect_timeout=10")
        .arg(Banco, FPasta.path());
}

void TServidorPostgres::CriarBanco(const QString &Nome, const QString &Codificacao)
{
    Executar(QStringLiteral("createdb"),
             {QStringLiteral("-h"), FPasta.path(), QStringLiteral("-U"), QStringLiteral("sibrel"),
              QStringLiteral("-T"), QStringLiteral("template0"), QStringLiteral("--locale=C"),
              QStringLiteral("-E"), Codificacao, Nome});
}

bool TServidorPostgres::Atende() const
{
    QProcess Pergunta;
    Rodar(Pergunta, QStringLiteral("pg_isready"),
          {QStringLiteral("-q"), QStringLiteral("-h"), FPasta.path()});
    return Pergunta.waitForFinished(PrazoEmMs) && Pergunta.exitCode() == 0;
}

void TServidorPostgres::Subir()
{
    Rodar(FServidor, QStringLiteral("postgres"),
          {QStringLiteral("-D"), FPasta.filePath(QStringLiteral("dados")), QStringLiteral("-k"),
           FPasta.path(), QStringLiteral("-c"), QStringLiteral("listen_addresses="), QStringLiteral("-c"),
           QStringLiteral("fsync=off")});
    const QDeadlineTimer Prazo(PrazoEmMs);
    while (!Atende()) {
        if (FServidor.state() == QProcess::NotRunning || Prazo.hasExpired())
            Falha(QStringLiteral("o servidor não subiu: %1").arg(QString::fromUtf8(FServidor.readAll())));
        QThread::msleep(20);
    }
}

void TServidorPostgres::Derrubar()
{
    if (FServidor.state() == QProcess::NotRunning)
        return;
    ::kill(static_cast<pid_t>(FServidor.processId()), SIGQUIT);
    if (!FServidor.waitForFinished(PrazoEmMs))
        FServidor.kill();
}

} // namespace Sibrel::Testes
