// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/XMLEntidades.h"

#include "plataforma/Arquivo.h"
#include "plataforma/XMLCodificacao.h"
#include "plataforma/XMLErro.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <mutex>

namespace Sibrel
{

namespace
{

struct TEstado {
    std::mutex Trava;
    QString Pasta;
};

TEstado &Estado()
{
    static TEstado Unico;
    return Unico;
}

} // namespace

void TPastaDeEntidades::Atribuir(const QString &Pasta)
{
    const std::scoped_lock Guarda(Estado().Trava);
    Estado().Pasta = Pasta;
}

QString TPastaDeEntidades::Atual()
{
    const std::scoped_lock Guarda(Estado().Trava);
    return Estado().Pasta;
}

TPastaDeEntidades::TPastaDeEntidades(const QString &Base)
{
    const QString Pasta = Atual();
    if (Pasta.isEmpty())
        return;
    FPasta = QFileInfo(Pasta).canonicalFilePath(); // empty for a folder that is not there
    FBase = Base.isEmpty() ? FPasta : Base;
}

QByteArray TPastaDeEntidades::Endereco() const
{
    return FPasta.isEmpty() ? QByteArray() : QUrl::fromLocalFile(FBase + u'/').toEncoded();
}

// The local path of an address; empty for one that is not of this machine.
QString TPastaDeEntidades::Caminho(const QString &Endereco) const
{
    const QUrl Url(Endereco, QUrl::StrictMode);
    if (Url.isValid() && Url.scheme().size() > 1) // one letter is a drive
        return Url.isLocalFile() && Url.host().isEmpty() ? Url.toLocalFile() : QString();
    return ResolverNomeDeArquivo(QDir(FBase).absoluteFilePath(Endereco));
}

QByteArray TPastaDeEntidades::Ler(const QString &Endereco, qsizetype Maximo) const
{
    // One text for all reasons but the size: a document learns nothing about files outside.
    const QString Recusa =
        QStringLiteral("O arquivo <%1>, que o documento cita, não pode ser lido.").arg(Endereco);
    if (FPasta.isEmpty())
        throw ErroDeXML(Recusa);
    const QFileInfo Arquivo(Caminho(Endereco));
    const QString Real = Arquivo.canonicalFilePath();
    const QString Dentro = FPasta.endsWith(u'/') ? FPasta : FPasta + u'/';
    if (Real.isEmpty() || !Real.startsWith(Dentro) || !QFileInfo(Real).isFile())
        throw ErroDeXML(Recusa);
    if (QFileInfo(Real).size() > Maximo)
        throw ErroDeXML(
            QStringLiteral("O arquivo <%1>, que o documento cita, é grande demais.").arg(Endereco));
    QByteArray Texto;
    try {
        Texto = Utf8DeBytes(LerArquivoInteiro(Real));
    } catch (const EFilerError &) {
        throw ErroDeXML(Recusa);
    }
    if (Texto.contains('\0'))
        throw ErroDeXML(Recusa);
    if (Texto.startsWith("<?xml") && Texto.size() > 5 && QChar::isSpace(static_cast<uchar>(Texto[5])))
        if (const qsizetype Fim = Texto.indexOf("?>"); Fim > 0)
            Texto.remove(0, Fim + 2);
    return Texto;
}

} // namespace Sibrel
