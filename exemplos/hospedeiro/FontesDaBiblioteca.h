// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace Hospedeiro
{

/// The fonts that come with libraries, in a folder "fontes" beside them.
///
/// Loaded before the import, so that its glyphs are measured and drawn with them; they stay loaded until the
/// program ends, since symbols that are still shown may use them. GUI thread only.
class TFontesDaBiblioteca
{
public:
    /// Loads what the folder of the library file `Biblioteca` offers and was not loaded yet. The files that
    /// could not be loaded.
    QStringList Carregar(const QString &Biblioteca);

private:
    QStringList FCarregadas;
};

} // namespace Hospedeiro
