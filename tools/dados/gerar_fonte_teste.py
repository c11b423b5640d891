# SPDX-License-Identifier: LGPL-2.1-or-later
"""Writes the text font of the tests: block letters of whole dots, so that pictures of texts depend on no font
of the machine. Run from the repository's root."""

import unicodedata
from pathlib import Path

from contorno import Contorno
from fonte_comum import UNICODE, construir
from matriz import ABAIXO, ACIMA, letras

PASTA = Path("testes/dados/fontes")
PONTO = 80            # side of a dot: seven rows of capital, three of mark above them, two below the line
LINHAS = 7
PANOSE_TEXTO = (2, 11, 6, 3, 0, 0, 0, 0, 0, 0)

# Code pages of the Windows charsets whose letters are drawn when their base and marks are.
PAGINAS = ("cp1252", "cp1250", "cp1251", "cp1253", "cp1254", "cp1255", "cp1256", "cp1257", "cp1258", "cp874",
           "cp850", "mac_roman")
# Bits of the font's code page words: Latin 1 to Vietnamese, Thai, Japanese, Macintosh; and 850 in the second.
BITS = (sum(1 << n for n in range(9)) | 1 << 16 | 1 << 17 | 1 << 29, 1 << 30)


def pontos(linhas, topo=0):
    """The dots of some rows, as (column, row) with row 0 at the top of the capitals."""
    return {(x, y + topo) for y, linha in enumerate(linhas) for x, c in enumerate(linha) if c == "#"}


def largura(linhas):
    return max(len(linha) for linha in linhas)


def com_marca(base, marca):
    """Rows of a letter are dots here: (dots, width). The mark is centred, one row away from the letter."""
    dots, w = base
    if marca in ABAIXO:
        linhas = ABAIXO[marca].split()
        fundo = max(LINHAS, 1 + max(y for _, y in dots))
        topo = min(fundo, LINHAS)
    else:
        linhas = ACIMA[marca].split()
        topo = min(y for _, y in dots) - 3
    desvio = (w - largura(linhas)) // 2
    if desvio < 0:  # a mark wider than its letter: the letter is moved instead
        dots, w, desvio = {(x - desvio, y) for x, y in dots}, largura(linhas), 0
    return dots | {(x + desvio, y) for x, y in pontos(linhas, topo)}, w


def desenho(c, tabela):
    """(dots, width) of a character, composed from its base and marks when it is not drawn itself."""
    if c in tabela:
        return pontos(tabela[c]), largura(tabela[c])
    partes = unicodedata.decomposition(c).split()
    if len(partes) != 2 or partes[0].startswith("<"):
        return None
    base, marca = chr(int(partes[0], 16)), int(partes[1], 16)
    if marca not in ACIMA and marca not in ABAIXO:
        return None
    if marca in ACIMA:
        base = {"i": "ı", "j": "ȷ"}.get(base, base)
    inteira = desenho(base, tabela)
    if inteira is None or (marca in ACIMA and min(y for _, y in inteira[0]) < 0):
        return None  # no room above for a second mark
    return com_marca(inteira, marca)


def retangulos(dots):
    """The dots as few rectangles: each run of a row is carried down as long as the rows below repeat it."""
    restam, saida = set(dots), []
    for x, y in sorted(dots, key=lambda p: (p[1], p[0])):
        if (x, y) not in restam:
            continue
        x1 = x
        while (x1 + 1, y) in restam:
            x1 += 1
        y1 = y
        while all((i, y1 + 1) in restam for i in range(x, x1 + 1)):
            y1 += 1
        restam -= {(i, j) for i in range(x, x1 + 1) for j in range(y, y1 + 1)}
        saida.append((x, y, x1 + 1, y1 + 1))
    return saida


def glifo(dots):
    g = Contorno()
    for x0, y0, x1, y1 in retangulos(dots):
        g.retangulo((x0 + 0.5) * PONTO, (LINHAS - y1) * PONTO, (x1 + 0.5) * PONTO, (LINHAS - y0) * PONTO)
    return g.glifo()


def caracteres():
    todos = set(letras())
    for pagina in PAGINAS:
        todos |= set(bytes(range(32, 256)).decode(pagina, "ignore"))
    return sorted(todos)


def principal():
    tabela = letras()
    glifos = {".notdef": (glifo(pontos(["#####"] + ["#...#"] * 5 + ["#####"])), 6 * PONTO)}
    mapa = {}
    for c in caracteres():
        if c in " \u00a0":
            dots, w = set(), 3
        else:
            letra = desenho(c, tabela)
            if letra is None:
                continue
            dots, w = letra
        nome = f"uni{ord(c):04X}"
        glifos[nome] = (glifo(dots), (w + 1) * PONTO)
        mapa[ord(c)] = nome
    PASTA.mkdir(parents=True, exist_ok=True)
    fonte = construir("Sibrel Teste", glifos, mapa, UNICODE, BITS, PANOSE_TEXTO)
    fonte["OS/2"].recalcUnicodeRanges(fonte)
    fonte.save(PASTA / "SibrelTeste.ttf")


if __name__ == "__main__":
    principal()
