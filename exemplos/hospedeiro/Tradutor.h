// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QTranslator>

namespace Hospedeiro
{

/// Portuguese for the few texts of Qt itself that this host shows, so that none of them depends on what
/// translations a machine happens to have.
class TTradutor : public QTranslator
{
    Q_OBJECT

public:
    using QTranslator::QTranslator;

    QString translate(const char *Contexto, const char *Texto, const char *Comentario = nullptr,
                      int Numero = -1) const override;
    bool isEmpty() const override { return false; }
};

/// Installs Qt's own Portuguese, where the machine has it, and TTradutor over it.
void InstalarTradutores();

} // namespace Hospedeiro
