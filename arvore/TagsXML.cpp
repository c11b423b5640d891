// SPDX-License-Identifier: LGPL-2.1-or-later
#include "arvore/TagsXML.h"

namespace Sibrel
{

namespace
{

constinit TModulo Modulo("TagsXML", nullptr, nullptr); // the names are constants: nothing to start or stop

} // namespace

TModulo &ModuloTagsXML() noexcept
{
    return Modulo;
}

} // namespace Sibrel
