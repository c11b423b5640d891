// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Exportacao.h"

#include <QFrame>
#include <QString>

class QTableWidget;

namespace Sibrel
{

/// A frame that shows an information list as a table of names and values.
///
/// Cells are selected with mouse and keyboard and copied as tab-separated lines (the system's copy key); a
/// double click opens a cell's text for selecting a part of it. Nothing can be changed. GUI thread only.
class SIBREL_EXPORT TVisualizadorInformacoesXML : public QFrame
{
    Q_OBJECT

public:
    explicit TVisualizadorInformacoesXML(QWidget *Dono = nullptr);
    ~TVisualizadorInformacoesXML() override;

    /// Shows a list element: of each item the first attribute is the name, the second the value.
    /// EDOMParseError for a text that is no document: what was shown stays.
    virtual void ProcessarXML(const QString &Texto);
    /// Shows nothing.
    void Limpar();

    /// How many pairs are shown, and their texts.
    int Count() const;
    QString Nome(int Indice) const;
    QString Valor(int Indice) const;

public Q_SLOTS:
    /// Puts the selected cells on the clipboard.
    void Copiar();

private:
    QTableWidget *FTabela;
};

} // namespace Sibrel
