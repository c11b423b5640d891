# SPDX-License-Identifier: LGPL-2.1-or-later
"""What the sample fonts share: their metrics and tables, and a file that is the same at every run."""

from fontTools.fontBuilder import FontBuilder
from fontTools.ttLib import newTable
from fontTools.ttLib.tables._c_m_a_p import CmapSubtable
from fontTools.ttLib.tables.O_S_2f_2 import Panose

UPEM, ASCENDENTE, DESCENDENTE = 1000, 800, 200
MEIO = (ASCENDENTE - DESCENDENTE) // 2  # height at which a line of text is centred

# A clock would make every run another file: seconds since 1904, at 2024-01-01.
DATA_FIXA = 3786912000

SIMBOLO, UNICODE = 0, 1  # encodings of the Windows platform


def construir(familia, glifos, mapa, codificacao, paginas, panose):
    """glifos: name -> (glyph, advance), in glyph order. mapa: code point -> name. paginas: the two words
    of code page bits that tell which Windows charsets the font serves. Returns the font, ready to save."""
    fb = FontBuilder(UPEM, isTTF=True)
    fb.setupGlyphOrder(list(glifos))
    fb.setupGlyf({nome: glifo for nome, (glifo, _) in glifos.items()})
    glyf = fb.font["glyf"]
    fb.setupHorizontalMetrics({nome: (largura, getattr(glyf[nome], "xMin", 0))
                               for nome, (_, largura) in glifos.items()})
    fb.setupHorizontalHeader(ascent=ASCENDENTE, descent=-DESCENDENTE, lineGap=0)
    fb.setupHead(unitsPerEm=UPEM, created=DATA_FIXA, modified=DATA_FIXA, lowestRecPPEM=6)
    _cmap(fb.font, mapa, codificacao)
    fb.setupOS2(version=4, sTypoAscender=ASCENDENTE, sTypoDescender=-DESCENDENTE, sTypoLineGap=0,
                usWinAscent=ASCENDENTE, usWinDescent=DESCENDENTE, achVendID="SBRL", fsType=0,
                sxHeight=500, sCapHeight=700, fsSelection=0x40, usWeightClass=400, panose=_panose(panose),
                usFirstCharIndex=min(mapa), usLastCharIndex=min(max(mapa), 0xFFFF),
                ulCodePageRange1=paginas[0], ulCodePageRange2=paginas[1])
    fb.setupPost(keepGlyphNames=True)
    _nomes(fb.font, familia, codificacao)
    return fb.font


def _panose(valores):
    panose = Panose()
    campos = ("bFamilyType", "bSerifStyle", "bWeight", "bProportion", "bContrast", "bStrokeVariation",
              "bArmStyle", "bLetterForm", "bMidline", "bXHeight")
    for campo, valor in zip(campos, valores):
        setattr(panose, campo, valor)
    return panose


def _cmap(font, mapa, codificacao):
    sub = CmapSubtable.newSubtable(4)
    sub.platformID, sub.platEncID, sub.language = 3, codificacao, 0
    sub.cmap = dict(mapa)
    font["cmap"] = newTable("cmap")
    font["cmap"].tableVersion = 0
    font["cmap"].tables = [sub]


def _nomes(font, familia, codificacao):
    nome = newTable("name")
    nome.names = []
    font["name"] = nome
    textos = {0: "Sibrel sample data, LGPL-2.1-or-later", 1: familia, 2: "Regular",
              3: f"Sibrel: {familia}: 1.000", 4: familia, 5: "Version 1.000", 6: familia.replace(" ", "")}
    for numero, texto in textos.items():
        nome.setName(texto, numero, 3, codificacao, 0x409)
