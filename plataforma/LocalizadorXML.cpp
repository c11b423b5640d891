// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/LocalizadorXML.h"

#include <array>

namespace Sibrel
{

namespace
{

struct TPar {
    QStringView Abre;
    QStringView Fecha;
};

// What may hold a "<" that opens no tag.
constexpr std::array<TPar, 3> Passagens = {{{u"<!--", u"-->"}, {u"<![CDATA[", u"]]>"}, {u"<?", u"?>"}}};

constexpr QChar MarcaDeOrdem(0xFEFF);

} // namespace

TLocalizadorXML::TLocalizadorXML(QString Texto)
    : FTexto(std::move(Texto))
{
}

void TLocalizadorXML::Recomecar() noexcept
{
    FEtiqueta = -1;
    FElemento = {};
}

// The next start tag at or behind `De`; the text is well-formed, so that each "<" opens something. The end of
// the text when there is none, or when a DTD makes the text and the document two things.
qsizetype TLocalizadorXML::ProximaEtiqueta(qsizetype De) const noexcept
{
    const QStringView Texto = FTexto;
    qsizetype Lugar = Texto.indexOf(u'<', De);
    while (Lugar >= 0) {
        const QStringView Resto = Texto.sliced(Lugar);
        qsizetype Depois = Lugar + 1;
        bool Etiqueta = !Resto.startsWith(u"</");
        for (const TPar &P : Passagens)
            if (Resto.startsWith(P.Abre)) {
                Etiqueta = false;
                const qsizetype Fim = Texto.indexOf(P.Fecha, Lugar + P.Abre.size());
                Depois = Fim >= 0 ? Fim + P.Fecha.size() : Texto.size();
            }
        if (Etiqueta)
            return Resto.startsWith(u"<!") ? Texto.size() : Lugar;
        Lugar = Texto.indexOf(u'<', Depois);
    }
    return Texto.size();
}

// From an element to the next one, in the text and in the document.
bool TLocalizadorXML::Avancar() noexcept
{
    FEtiqueta = ProximaEtiqueta(FEtiqueta + 1);
    FElemento = FElemento ? FElemento.Seguinte() : FDocumento->Raiz();
    while (FElemento && !FElemento.Elemento())
        FElemento = FElemento.Seguinte();
    if (FEtiqueta >= FTexto.size())
        FElemento = {};
    return !FElemento.Nulo();
}

int TLocalizadorXML::Coluna(const TCursorXML &Elemento)
{
    if (!Elemento.Elemento())
        return 0;
    if (FDocumento != Elemento.Documento() || !FElemento || Elemento.Ordem() < FElemento.Ordem())
        Recomecar();
    FDocumento = Elemento.Documento();
    while (!FElemento || FElemento.Ordem() < Elemento.Ordem())
        if (!Avancar())
            return 0;
    const qsizetype QuebraAntes = FEtiqueta > 0 ? QStringView(FTexto).lastIndexOf(u'\n', FEtiqueta - 1) : -1;
    const bool AtrasDaMarca = QuebraAntes < 0 && FTexto.startsWith(MarcaDeOrdem);
    return static_cast<int>(FEtiqueta - QuebraAntes) - (AtrasDaMarca ? 1 : 0);
}

} // namespace Sibrel
