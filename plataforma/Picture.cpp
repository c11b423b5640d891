// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/Picture.h"

#include "plataforma/Arquivo.h"
#include "plataforma/Bitmap.h"
#include "plataforma/Exception.h"

#include <QImageReader>

namespace Sibrel
{

std::unique_ptr<TGraphic> LerGrafico(const QString &Arquivo)
{
    QImageReader Leitor(ResolverNomeDeArquivo(Arquivo));
    // The content decides where it speaks for itself: old collections hold files with the extension of
    // another format.
    Leitor.setDecideFormatFromContent(true);
    Leitor.setAutoTransform(true);
    const QImage Imagem = Leitor.read();
    if (Imagem.isNull())
        throw EInvalidGraphic(QStringLiteral("Não foi possível ler a figura <%1>!").arg(Arquivo),
                              Leitor.errorString() + u'.');
    return std::make_unique<TBitmap>(Imagem);
}

} // namespace Sibrel
