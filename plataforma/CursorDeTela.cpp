// SPDX-License-Identifier: LGPL-2.1-or-later
#include "plataforma/CursorDeTela.h"

#include <QCursor>
#include <QGuiApplication>

namespace Sibrel
{

void AtribuirCursorDeTela(TCursorDeTela Cursor)
{
    while (QGuiApplication::overrideCursor() != nullptr)
        QGuiApplication::restoreOverrideCursor();
    if (Cursor == TCursorDeTela::Ampulheta)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

} // namespace Sibrel
