// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include "corvane/Subject.h"
#include "plataforma/Bitmap.h"
#include "plataforma/Color.h"
#include "plataforma/Modulo.h"
#include "plataforma/Rect.h"
#include "plataforma/Strings.h"
#include "simbolos/AvisoDeImportacao.h"
#include "simbolos/ListaSimbolo.h"

#include <QColor>
#include <QStringList>

#include <memory>
#include <vector>

class QPainter;

namespace Sibrel
{

class TArquivoDeLeitura;
class TArquivoDeGravacao;
class TCanvas;

/// A table of labelled symbols: reads and writes a text library, draws symbol N, tells its observers.
///
/// Symbol i has label i; the operations keep the two lists parallel, nothing checks it. Observers are told
/// after AtribuirRotulos, at the end of a successful Importar and by Simbolos.DoChange(); not by Limpar, by
/// Exportar or by changes made directly to the lists. GUI thread only.
class SIBREL_EXPORT TTabelaDeSimbolos : public TSubject
{
    Q_OBJECT
    Q_PROPERTY(Sibrel::TListaSimbolo *Simbolos READ ObterSimbolos DESIGNABLE false STORED false)
    Q_PROPERTY(QColor CorTransparente READ ObterCorTransparente WRITE AtribuirCorTransparente)
    Q_PROPERTY(QStringList Rotulos READ ListaDeRotulos WRITE AtribuirListaDeRotulos)

public:
    explicit TTabelaDeSimbolos(QWidget *Dono = nullptr);
    ~TTabelaDeSimbolos() override;

    /// The symbols; owned.
    TListaSimbolo &Simbolos() const noexcept { return *FSimbolos; }
    /// Replaces the list and hands the old one back. The old one goes on announcing its changes to this table
    /// and the new one does not begin to: attach AoMudarSimbolos to its AoAlterar for that.
    [[nodiscard]] std::unique_ptr<TListaSimbolo> AtribuirSimbolos(std::unique_ptr<TListaSimbolo> Lista);
    TListaSimbolo *ObterSimbolos() const noexcept { return FSimbolos.get(); }

    /// The labels themselves: who changes them here tells the observers if they are to know.
    TStringList &ObterRotulos() noexcept { return FRotulos; }
    const TStringList &ObterRotulos() const noexcept { return FRotulos; }
    /// Copies all lines, then tells the observers.
    void AtribuirRotulos(const TStrings &Valor);
    /// Label `Indice`; empty when there is none. Never raises.
    QString ObterRotulo(int Indice) const;

    /// The picture that DesenharBuffer paints; empty until the host prepares it.
    TBitmap Buffer;
    /// The colour of the Buffer that is see-through: pure magenta in a new table.
    TColor CorTransparente = clFuchsia;
    /// Name of the last library that was exported or imported.
    QString NomeArquivo;

    /// Empties symbols and labels. Tells no one.
    void Limpar();

    /// Appends the symbols and labels of a library file; the table is not emptied first.
    ///
    /// EFilerError when there is no such file; EInvalidOperation for an unknown kind; EInOutError for a
    /// malformed number or an early end; `Detalhe` holds file and line. Symbols and labels read before the
    /// error stay, the label of the failing record too, and the process's current folder is then the
    /// library's. On success the current folder is what it was and the observers are told once.
    void Importar(const QString &NomeArquivo);
    /// What the last Importar found worth telling, in file order; empty when all was well.
    const std::vector<TAvisoDeImportacao> &AvisosDaImportacao() const noexcept { return FAvisos; }
    /// For handlers of kinds: adds to the list above.
    void AcrescentarAviso(TAvisoDeImportacao Aviso);

    /// Writes the table as a library file, replacing it.
    ///
    /// EConvertError when a text cannot be written in code page 1252 or holds a line end, EFCreateError when
    /// the file cannot be written: the file and `NomeArquivo` are then as they were. EInvalidOperation for a
    /// symbol of an unregistered class, EStringListError for a symbol without a label: the file then holds
    /// the records before it.
    void Exportar(const QString &NomeArquivo);

    /// Draws symbol `Indice` into `Rect`. EListError for an index outside the table.
    void Desenhar(int Indice, TCanvas &Canvas, const TRect &Rect) const;
    /// The same in one line of a paint event: on the host's painter, glyphs in `Cor`.
    void Desenhar(int Indice, QPainter &Pintor, const QRect &Area, const QColor &Cor = Qt::black) const;
    /// Draws like Desenhar when `Indice` is below the number of symbols, else nothing; `Angulo` is not
    /// applied.
    void DesenharRotacionado(int Indice, TCanvas &Canvas, const TRect &Rect, double Angulo) const;
    /// Paints `Buffer`, turned clockwise by `Angulo` (radians) around its centre, into `Rect`, one buffer
    /// pixel a canvas pixel, picked by the nearest; pixels of CorTransparente leave the canvas as it is.
    void DesenharBuffer(TCanvas &Canvas, const TRect &Rect, double Angulo) const;

    /// Tells the observers; attached to the symbol list's AoAlterar.
    void AoMudarSimbolos(TListaSimbolo &Lista);

    QColor ObterCorTransparente() const { return CorTransparente.ParaQColor(); }
    void AtribuirCorTransparente(const QColor &Cor) { CorTransparente = TColor(Cor); }
    QStringList ListaDeRotulos() const { return FRotulos.Linhas(); }
    void AtribuirListaDeRotulos(const QStringList &Rotulos) { AtribuirRotulos(TStringList(Rotulos)); }

private:
    void LerRegistro(TArquivoDeLeitura &Arquivo);
    void LerRegistros(TArquivoDeLeitura &Arquivo);
    void GravarRegistros(TArquivoDeGravacao &Arquivo);

    std::unique_ptr<TListaSimbolo> FSimbolos;
    TStringList FRotulos;
    std::vector<TAvisoDeImportacao> FAvisos;
};

/// The module that makes the registry of symbol kinds and registers "Fonte", "Grafico" and "Composto".
SIBREL_EXPORT TModulo &ModuloTabelaDeSimbolos() noexcept;

} // namespace Sibrel
