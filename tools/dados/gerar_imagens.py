# SPDX-License-Identifier: LGPL-2.1-or-later
"""Writes the sample pictures, one drawing each in a format that shows something: alpha, a colour that stands
for transparency in the bottom-left pixel, one bit, paths. Run from the repository's root."""

from math import cos, pi, sin
from pathlib import Path

from quadro import Quadro, bmp, gif, png, ppm, xbm

PASTA = Path("exemplos/dados/imagens")

AGUA, AGUA_CLARA, PEDRA, PEDRA_ESCURA = (70, 130, 190), (150, 195, 230), (150, 145, 135), (95, 90, 85)
PRETO, BRANCO, VERDE, VERDE_ESCURO, MARROM = (20, 20, 20), (255, 255, 255), (80, 150, 70), (45, 100, 50), (120, 80, 45)
VERMELHO, TELHA, AREIA, AMARELO = (200, 40, 40), (180, 85, 55), (235, 215, 170), (250, 220, 70)


def ponte():
    q = Quadro(48)
    q.retangulo(3, 44, 61, 58, AGUA)
    for y, x in ((48, 10), (53, 26), (49, 42)):
        q.linha([(x, y), (x + 5, y - 2), (x + 10, y)], 1.6, AGUA_CLARA)
    q.retangulo(2, 24, 62, 34, PEDRA)
    for x in (7, 29, 51):
        q.retangulo(x, 32, x + 6, 56, PEDRA)
        q.retangulo(x + 4.5, 34, x + 6, 56, PEDRA_ESCURA)
    for x in (13, 35):
        q.poligono([(x, 34)] + [(x + 8 - 8 * cos(i * pi / 12), 44 - 8 * sin(i * pi / 12)) for i in range(13)]
                   + [(x + 16, 34)], PEDRA)
    q.retangulo(2, 23, 62, 26, PEDRA_ESCURA)
    for x in range(4, 62, 8):
        q.retangulo(x, 16, x + 1.5, 24, PEDRA_ESCURA)
    q.retangulo(2, 15, 62, 17, PEDRA_ESCURA)
    return q


def moldura_de_quadro():
    q = Quadro(48)
    barras = ((3, 3, 61, 10, MARROM), (3, 54, 61, 61, MARROM), (3, 3, 10, 61, MARROM), (54, 3, 61, 61, MARROM))
    for barra in barras:
        q.retangulo(*barra)
    for barra in ((8, 8, 56, 10), (8, 54, 56, 56), (8, 8, 10, 56), (54, 8, 56, 56)):
        q.retangulo(*barra, (200, 160, 90))
    for x, y in ((3, 3), (61, 3), (3, 61), (61, 61)):
        q.elipse(min(max(x, 6.5), 57.5), min(max(y, 6.5), 57.5), 3, 3, (215, 180, 110))
    return q  # nothing reaches the corners: the bottom-left pixel tells which colour is transparent


def rio():
    q = Quadro(64)
    curva = [(8 + 40 * t + 9 * sin(7 * t), 2 + 60 * t) for t in (i / 24 for i in range(25))]
    q.linha(curva, 19, (190, 175, 130))
    q.linha(curva, 15, AGUA)
    for desvio in (-3.5, 3.5):
        q.linha([(x + desvio, y) for x, y in curva[4:20]], 1.5, AGUA_CLARA)
    return q


def cidade():
    q = Quadro(64)
    q.elipse(32, 57, 30, 5, (170, 190, 140))
    casas = ((5, 34, 17, 58, AREIA), (17, 22, 31, 58, (205, 200, 195)), (31, 38, 45, 58, AREIA),
             (45, 28, 59, 58, (190, 185, 180)))
    for x0, y0, x1, y1, cor in casas:
        q.retangulo(x0, y0, x1, y1, cor)
        q.retangulo(x1 - 1.5, y0, x1, y1, PEDRA_ESCURA)
        for x in range(int(x0) + 3, int(x1) - 3, 5):
            for y in range(int(y0) + 4, 52, 7):
                q.retangulo(x, y, x + 2.6, y + 3.4, (70, 90, 120))
    q.poligono([(3, 35), (11, 26), (19, 35)], TELHA)
    q.poligono([(29, 39), (38, 30), (47, 39)], TELHA)
    q.poligono([(16, 23), (24, 6), (32, 23)], PEDRA_ESCURA)
    q.linha([(24, 3), (24, 8)], 1.4, PRETO)
    q.linha([(22.4, 4.6), (25.6, 4.6)], 1.4, PRETO)
    return q


def bandeira():
    q = Quadro(48)
    onda = [(x, 8 + 2.5 * sin(x / 6)) for x in range(12, 61, 2)]
    for i, cor in enumerate((VERDE, AMARELO, (50, 80, 170))):
        faixa = [(x, y + 10 * i) for x, y in onda] + [(x, y + 10 * (i + 1)) for x, y in reversed(onda)]
        q.poligono(faixa, cor)
    q.linha([(11, 5), (11, 61)], 3, MARROM)
    q.elipse(11, 4.5, 3, 3, AMARELO)
    return q


def amigo():
    q = Quadro(64)
    q.retangulo(2, 12, 62, 52, PRETO)
    q.retangulo(4.5, 14.5, 59.5, 49.5, (128, 224, 255))
    return q


def hostil():
    q = Quadro(64)
    q.poligono([(32, 1), (63, 32), (32, 63), (1, 32)], PRETO)
    q.poligono([(32, 4.6), (59.4, 32), (32, 59.4), (4.6, 32)], (255, 128, 128))
    return q


def neutro():
    q = Quadro(64)
    q.retangulo(7, 7, 57, 57, PRETO)
    q.retangulo(9.5, 9.5, 54.5, 54.5, (170, 255, 170))
    return q


def desconhecido():
    q = Quadro(64)
    lobos = ((32, 19), (45, 32), (32, 45), (19, 32))
    for raio, cor in ((16.5, PRETO), (14, (255, 255, 128))):
        for x, y in lobos:
            q.elipse(x, y, raio, raio, cor)
    q.retangulo(20, 20, 44, 44, (255, 255, 128))
    return q


def floresta():
    q = Quadro(64)
    for x, y, s in ((16, 44, 0.9), (48, 42, 0.95), (32, 56, 1.2)):
        q.retangulo(x - 2 * s, y - 4, x + 2 * s, y + 3, MARROM)
        for k, cor in enumerate((VERDE_ESCURO, VERDE, (110, 175, 85))):
            topo, largo = y - (16 + 10 * k) * s, (14 - 3.5 * k) * s
            q.poligono([(x - largo, topo + 13 * s), (x, topo - 3 * s), (x + largo, topo + 13 * s)], cor)
    return q


def fogo():
    q = Quadro(32)
    for k, cor in enumerate((VERMELHO, (240, 130, 30), AMARELO)):
        e = 1 - 0.28 * k
        pontos = [(0, -58), (10, -40), (16, -46), (24, -22), (20, -4), (0, 0), (-20, -4), (-24, -20),
                  (-12, -38), (-8, -30)]
        q.poligono([(32 + x * e, 60 + y * e) for x, y in pontos], cor)
    return q


def cruz():
    q = Quadro(32)
    q.elipse(32, 32, 30, 30, VERMELHO)
    q.elipse(32, 32, 26, 26, BRANCO)
    q.retangulo(26, 13, 38, 51, VERMELHO)
    q.retangulo(13, 26, 51, 38, VERMELHO)
    return q


def periscopio():
    """A mask: only where it is drawn counts, its colour is given by whoever shows it."""
    q = Quadro(32)
    angulos = [i * pi / 24 for i in range(49)]
    q.linha([(32 + 24 * cos(a), 32 + 24 * sin(a)) for a in angulos], 4, PRETO)
    for dx, dy in ((1, 0), (-1, 0), (0, 1), (0, -1)):
        q.linha([(32 + 9 * dx, 32 + 9 * dy), (32 + 29 * dx, 32 + 29 * dy)], 4, PRETO)
    return q


FAROL = """<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" width="64" height="64" viewBox="0 0 64 64">
  <path d="M2 58 Q10 50 20 54 T40 52 T62 57 L62 62 L2 62 Z" fill="#4682be"/>
  <path d="M24 54 L28 22 L36 22 L40 54 Z" fill="#ffffff" stroke="#303030" stroke-width="1.5"/>
  <path d="M26.6 33 L37.4 33 L38.4 41 L25.6 41 Z" fill="#c82828"/>
  <rect x="27" y="13" width="10" height="9" fill="#fadc46" stroke="#303030" stroke-width="1.5"/>
  <path d="M25 13 L32 5 L39 13 Z" fill="#c82828" stroke="#303030" stroke-width="1.5"/>
  <path d="M40 15 L60 8 L60 26 L40 20 Z M24 15 L4 8 L4 26 L24 20 Z" fill="#fadc46" fill-opacity="0.6"/>
</svg>
"""


def principal():
    PASTA.mkdir(parents=True, exist_ok=True)
    arquivos = {
        "ponte.bmp": bmp(ponte().opacos()), "quadro.bmp": bmp(moldura_de_quadro().opacos()),
        "rio.png": png(rio().pixels()), "cidade.png": png(cidade().pixels()),
        "bandeira.png": png(bandeira().pixels()), "amigo.png": png(amigo().pixels()),
        "hostil.png": png(hostil().pixels()), "neutro.png": png(neutro().pixels()),
        "desconhecido.png": png(desconhecido().pixels()), "floresta.ppm": ppm(floresta().opacos()),
        "fogo.gif": gif(fogo().opacos()), "cruz.bmp": bmp(cruz().opacos()),
        "periscopio.xbm": xbm("periscopio", periscopio().mascara()), "farol.svg": FAROL.encode(),
    }
    for nome, dados in arquivos.items():
        (PASTA / nome).write_bytes(dados)


if __name__ == "__main__":
    principal()
