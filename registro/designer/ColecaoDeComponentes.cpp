// SPDX-License-Identifier: LGPL-2.1-or-later
#include "registro/designer/ColecaoDeComponentes.h"

#include "registro/Componentes.h"
#include "registro/designer/ComponenteNoEditor.h"

namespace Sibrel
{

TColecaoDeComponentes::TColecaoDeComponentes(QObject *Dono)
    : QObject(Dono)
{
    for (const TComponenteDoPacote &Componente : ComponentesDoPacote())
        FComponentes.append(new TComponenteNoEditor(Componente, this));
}

} // namespace Sibrel
