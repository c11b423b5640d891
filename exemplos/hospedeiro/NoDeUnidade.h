// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "arvore/TreeNodeXML.h"

namespace Hospedeiro
{

/// A military unit in the tree: the host's own class of nodes, which adds to the context menu what makes
/// sense for the unit under the mouse.
class TNoDeUnidade : public Sibrel::ComClasse<TNoDeUnidade, Sibrel::TTreeNodeXML>
{
public:
    using ComClasse::ComClasse;
    static constexpr const char *NomeDaClasse = "TNoDeUnidade";

    /// Copying of what is known of the unit's place and frequency; for a link, going to the unit itself.
    void ConfigurarPopup(QMenu &Menu) override;

private:
    void AcrescentarCopia(QMenu &Menu, const QString &Rotulo, const QString &Comando) const;
};

/// Registers the tags of the sample documents, once: units with TNoDeUnidade, and "Agrupamento", which only
/// gathers others, with the library's class.
void RegistrarClassesDeNos();

} // namespace Hospedeiro
