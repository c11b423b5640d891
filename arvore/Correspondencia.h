// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "arvore/TreeNodeXML.h"
#include "plataforma/XMLDocument.h"

#include <QStringView>

#include <memory>

namespace Sibrel
{

class TTreeNodesXML;

/// The child of `Pai` (top level when null) that already stands for an element, null when there is none.
///
/// Looked for by the element's name (attribute `AtributoNome`, else the element's own) and then, if that
/// fails and there is a class, by the caption that a node of the class would take from the element; among
/// nodes of that caption the first that the element's identification identifies, or simply the first when
/// the element has none. What the class raises while it loads the element reaches the caller.
TTreeNode *ProcurarNoPeloXML(TTreeNodesXML &Nos, QStringView AtributoNome, const TTreeNode *Pai,
                             const IXMLNode &No, const TRefNoXML &Classe);

/// A node of the class, not in the tree yet. EAbstractError for a class of which there can be none.
std::unique_ptr<TTreeNodeXML> NovoNoXML(TTreeNodesXML &Nos, const TRefNoXML &Classe);

} // namespace Sibrel
