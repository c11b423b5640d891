// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/EstiloDeArvore.h"

#include <QStyleOption>

namespace Sibrel
{

QRect TEstiloDeArvore::subElementRect(SubElement Elemento, const QStyleOption *Opcao,
                                      const QWidget *Controle) const
{
    if (Elemento == SE_TreeViewDisclosureItem && Opcao != nullptr)
        return Caixa(Opcao->rect.left(), Opcao->rect.top(), Opcao->rect.height());
    return QProxyStyle::subElementRect(Elemento, Opcao, Controle);
}

} // namespace Sibrel
