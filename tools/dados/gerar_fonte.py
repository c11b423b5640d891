# SPDX-License-Identifier: LGPL-2.1-or-later
"""Writes the sample symbol font and the table of its pictograms. Run from the repository's root."""

from pathlib import Path

from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.pens.transformPen import TransformPen

from contorno import Contorno
from fonte_comum import MEIO, SIMBOLO, construir
from pictogramas import PICTOGRAMAS

PASTA = Path("exemplos/dados/fontes")
PAGINA_SIMBOLO = 1 << 31          # a font of pictures, not of letters
BASE = 0xF000                     # symbol fonts keep code n at this code point plus n
PANOSE_PICTORICA = (5, 0, 0, 0, 0, 0, 0, 0, 0, 0)


def glifo(largura, desenho):
    g = Contorno()
    desenho(g)
    pen = TTGlyphPen(None)
    g.glifo().draw(TransformPen(pen, (1, 0, 0, 1, largura // 2, MEIO)), None)
    return pen.glyph()


def ausente():
    g = Contorno()
    g.moldura(60, -100, 540, 700, 50)
    return g.glifo()


def principal():
    glifos = {".notdef": (ausente(), 600), "space": (TTGlyphPen(None).glyph(), 500)}
    mapa = {BASE + 32: "space"}
    for codigo, (nome, largura, desenho) in sorted(PICTOGRAMAS.items()):
        glifos[nome] = (glifo(largura, desenho), largura)
        mapa[BASE + codigo] = nome
    PASTA.mkdir(parents=True, exist_ok=True)
    fonte = construir("Sibrel Simbolos", glifos, mapa, SIMBOLO, (PAGINA_SIMBOLO, 0), PANOSE_PICTORICA)
    fonte.save(PASTA / "SibrelSimbolos.ttf")
    linhas = [f"{codigo:3} {nome} {largura}" for codigo, (nome, largura, _) in sorted(PICTOGRAMAS.items())]
    (PASTA / "glifos.txt").write_bytes("".join(f"{linha}\n" for linha in ["codigo nome largura"] + linhas).encode())


if __name__ == "__main__":
    principal()
