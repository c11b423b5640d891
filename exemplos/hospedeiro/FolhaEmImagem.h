// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QString>

namespace Sibrel
{
class ISimbolo;
class TTabelaDeSimbolos;
} // namespace Sibrel

namespace Hospedeiro
{

/// The sheet of a whole table as a picture on white, about four wide to three high.
///
/// `Tamanho`: side of a symbol in pixels. Raises Sibrel::Exception when the picture would be larger than
/// pictures can be. An empty table gives a sheet of one empty cell.
QImage FolhaEmImagem(const Sibrel::TTabelaDeSimbolos &Tabela, int Tamanho, const QFont &Fonte,
                     const QColor &Cor = Qt::black);

/// Raises Sibrel::Exception with `Mensagem` when a picture of that size would be larger than pictures can be.
void ExigirLado(const QSize &Lado, const QString &Mensagem);

/// A symbol alone as a square picture on white, `Tamanho` pixels a side.
QImage SimboloEmImagem(Sibrel::ISimbolo &Simbolo, int Tamanho, const QColor &Cor = Qt::black);

/// Writes a picture in the format that the ending of the name says. Raises Sibrel::EFCreateError; a file that
/// was there is then as it was.
void GravarImagem(const QImage &Imagem, const QString &Arquivo);

} // namespace Hospedeiro
