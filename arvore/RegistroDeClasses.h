// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "arvore/TreeNodeXML.h"
#include "plataforma/Exportacao.h"

#include <QString>
#include <QStringView>

#include <optional>
#include <shared_mutex>
#include <vector>

namespace Sibrel
{

/// Classes of nodes by tag; letter case plays no part. A tag may stand without a class: its elements only
/// group others. Read by updates on their threads, hence with a lock of its own.
class SIBREL_EXPORT TRegistroDeClasses
{
public:
    /// EInvalidOperation when the tag is registered already.
    void Registrar(const QString &Tag, const TRefNoXML &Classe);
    /// EInvalidOperation when it is not.
    void Remover(const QString &Tag);
    /// Nothing for an unknown tag; an empty reference for one without a class.
    std::optional<TRefNoXML> Obter(QStringView Tag) const;

private:
    struct TRegistro {
        QString Tag;
        TRefNoXML Classe;
    };
    std::vector<TRegistro>::const_iterator Procurar(QStringView Tag) const;

    mutable std::shared_mutex FMutex;
    std::vector<TRegistro> FRegistros;
};

/// The registry of the process, from the start of the module `TreeViewXML` to its stop; EInvalidOperation
/// outside.
SIBREL_EXPORT TRegistroDeClasses &RegistroDeClasses();
void CriarRegistroDeClasses();
void LiberarRegistroDeClasses() noexcept;

} // namespace Sibrel
