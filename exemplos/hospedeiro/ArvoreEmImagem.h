// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QImage>

namespace Hospedeiro
{

class TArvoreDoHospedeiro;

/// A picture of all rows of a tree that are not hidden by a collapsed node, as wide as the widest. Changes
/// the view's size. Raises Sibrel::Exception when the picture would be larger than pictures can be.
QImage ArvoreEmImagem(TArvoreDoHospedeiro &Arvore);

} // namespace Hospedeiro
