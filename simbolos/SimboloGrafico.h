// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "plataforma/Graphic.h"
#include "simbolos/Simbolo.h"

#include <QString>

#include <memory>

namespace Sibrel
{

/// A picture read from a file, stretched over the whole rectangle without keeping its proportions.
class SIBREL_EXPORT TSimboloGrafico : public ComClasse<TSimboloGrafico, ISimbolo>
{
public:
    static constexpr const char *NomeDaClasse = "TSimboloGrafico";

    TSimboloGrafico();
    ~TSimboloGrafico() override;

    /// The picture; none until a file was read.
    std::unique_ptr<TGraphic> Grafico;
    /// The picture file's name as last given, without the blanks around it.
    QString Arquivo;

    /// Takes the name and, when the file exists, its picture, which then shows through by alpha or by the
    /// colour of its bottom-left pixel. A missing file keeps the picture that was there. EInvalidGraphic for
    /// a file that cannot be read as a picture: only `Arquivo` has changed then. Relative names start at the
    /// current directory.
    void LerArquivo(const QString &Nome);

    void Desenhar(TCanvas &Canvas, const TRect &Rect) override;
    /// Reads the source's file again rather than sharing its picture.
    void Assign(ISimbolo &Origem) override;
    bool PedirPintura(TCanvas &Canvas, const TRect &Rect, double Densidade, TPinturaPedida &Pedida) override;
};

} // namespace Sibrel
