// SPDX-License-Identifier: LGPL-2.1-or-later
// What every test needs: where its data stands, the fonts that are bundled with it.
#pragma once

#include <QByteArray>
#include <QString>

namespace Sibrel::Testes
{

/// A file below testes/dados.
QString DadoDeTeste(const QString &Nome);
/// A file below exemplos/dados.
QString DadoDeExemplo(const QString &Nome);

/// Loads the bundled fonts into the application; their family names. Raises when one cannot be loaded.
void CarregarFontes();
inline const QString FamiliaDeTexto = QStringLiteral("Sibrel Teste");
inline const QString FamiliaDeSimbolos = QStringLiteral("Sibrel Simbolos");

/// All bytes of a file; raises when it is not there.
QByteArray BytesDe(const QString &Arquivo);
/// Writes a file for a test; raises on failure.
void EscreverBytes(const QString &Arquivo, const QByteArray &Bytes);

} // namespace Sibrel::Testes
