#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Draws the palette pictures, 24 x 24 in 16 colours, from the letters below, and the package's icon, 64 x 64. Run from
the root of the repository."""
import pathlib
import struct
import zlib

LADO = 24
CORES = {  # letter: index and colour; index order is that of the file
    ".": (0xC0, 0xC0, 0xC0), "k": (0, 0, 0), "w": (255, 255, 255), "b": (0, 0, 160), "r": (192, 0, 0),
    "g": (0, 128, 0), "y": (255, 200, 0), "c": (128, 208, 255), "d": (96, 96, 96), "l": (224, 224, 224),
    "m": (160, 0, 160), "o": (224, 112, 0), "t": (0, 128, 128), "n": (112, 64, 16), "v": (128, 160, 96),
    "p": (255, 128, 128),
}
LETRAS = list(CORES)


class Quadro:
    """A canvas of letters."""

    def __init__(self):
        self.linhas = [["."] * LADO for _ in range(LADO)]

    def caixa(self, x0, y0, x1, y1, borda, fundo=None):
        for y in range(y0, y1):
            for x in range(x0, x1):
                na_borda = x in (x0, x1 - 1) or y in (y0, y1 - 1)
                if na_borda or fundo:
                    self.linhas[y][x] = borda if na_borda else fundo

    def linha(self, x0, y0, x1, y1, cor):
        passos = max(abs(x1 - x0), abs(y1 - y0), 1)
        for i in range(passos + 1):
            self.linhas[round(y0 + (y1 - y0) * i / passos)][round(x0 + (x1 - x0) * i / passos)] = cor

    def disco(self, cx, cy, raio, cor):
        for y in range(LADO):
            for x in range(LADO):
                if (x - cx) ** 2 + (y - cy) ** 2 <= raio * raio:
                    self.linhas[y][x] = cor

    def bmp(self) -> bytes:
        """4 bits a pixel, bottom row first."""
        pixels = b"".join(
            bytes(LETRAS.index(l[x]) << 4 | LETRAS.index(l[x + 1]) for x in range(0, LADO, 2))
            for l in reversed(self.linhas))
        paleta = b"".join(bytes((az, vd, vm, 0)) for vm, vd, az in CORES.values())
        inicio = 14 + 40 + len(paleta)
        return (struct.pack("<2sIHHI", b"BM", inicio + len(pixels), 0, 0, inicio)
                + struct.pack("<IiiHHIIiiII", 40, LADO, LADO, 1, 4, 0, len(pixels), 2835, 2835, 16, 0)
                + paleta + pixels)


def reconhecimento(q, x, y, largura, altura, cor, fundo):
    """A unit's box with one diagonal: all that so few pixels can show."""
    q.caixa(x, y, x + largura, y + altura, cor, fundo)
    q.linha(x, y + altura - 1, x + largura - 1, y, cor)


def tabela():
    q = Quadro()
    q.caixa(1, 1, 23, 23, "k", "w")
    q.linha(12, 1, 12, 22, "l")
    q.linha(1, 12, 22, 12, "l")
    reconhecimento(q, 2, 3, 10, 7, "b", "c")
    for raio, cor in ((4, "r"), (3, "p"), (1, "r")):
        q.disco(17, 6, raio, cor)
    for i in range(5):
        q.linha(6 - i, 15 + i, 6 + i, 15 + i, "g")
    q.caixa(14, 15, 21, 21, "k", "y")
    q.disco(17, 18, 1, "k")
    return q


def barra():
    q = Quadro()
    q.caixa(0, 7, 24, 17, "d", "l")
    reconhecimento(q, 1, 9, 8, 6, "b", "c")
    q.disco(12, 12, 3, "r")
    for i in range(5):
        q.linha(19 - i // 2, 10 + i, 19 + i // 2, 10 + i, "g")
    return q


def combo():
    q = Quadro()
    q.caixa(1, 3, 23, 11, "k", "w")
    reconhecimento(q, 3, 4, 9, 6, "b", "c")
    q.caixa(16, 4, 22, 10, "d", "l")
    for i in range(3):
        q.linha(17 + i, 6 + i, 20 - i, 6 + i, "k")
    q.caixa(1, 11, 23, 22, "d", "w")
    q.disco(6, 16, 3, "r")
    q.linha(11, 14, 20, 14, "d")
    q.linha(11, 18, 18, 18, "d")
    return q


def icone() -> bytes:
    """A unit above the two that belong to it: symbol and tree. PNG, transparent around."""
    lado = 64
    nada, preto, azul, agua, cinza = (0, 0, 0, 0), (0, 0, 0, 255), (0, 0, 160, 255), (160, 216, 255, 255), (96, 96, 96, 255)
    pixels = [[nada] * lado for _ in range(lado)]

    def caixa(x0, y0, x1, y1, cor):
        for y in range(y0, y1):
            for x in range(x0, x1):
                pixels[y][x] = cor

    def unidade(x, y, largura, altura, traco):
        caixa(x, y, x + largura, y + altura, azul)
        caixa(x + traco, y + traco, x + largura - traco, y + altura - traco, agua)
        for i in range(largura):
            j = i * (altura - 1) // (largura - 1)
            for t in range(traco):
                k = min(max(i + t - traco // 2, 0), largura - 1)
                pixels[y + j][x + k] = azul
                pixels[y + altura - 1 - j][x + k] = azul

    caixa(31, 30, 33, 40, cinza)
    caixa(15, 38, 49, 40, cinza)
    caixa(14, 38, 16, 46, cinza)
    caixa(48, 38, 50, 46, cinza)
    unidade(11, 4, 42, 27, 3)
    for x in (26, 32, 38):  # three bars: a regiment
        caixa(x - 1, 0, x + 1, 4, preto)
    unidade(2, 45, 26, 17, 2)
    unidade(36, 45, 26, 17, 2)
    linhas = b"".join(b"\0" + bytes(v for ponto in linha for v in ponto) for linha in pixels)

    def trecho(tipo, dados):
        return struct.pack(">I", len(dados)) + tipo + dados + struct.pack(">I", zlib.crc32(tipo + dados))

    return (b"\x89PNG\r\n\x1a\n" + trecho(b"IHDR", struct.pack(">IIBBBBB", lado, lado, 8, 6, 0, 0, 0))
            + trecho(b"IDAT", zlib.compress(linhas, 9)) + trecho(b"IEND", b""))


if __name__ == "__main__":
    pasta = pathlib.Path("registro/recursos")
    for nome, quadro in (("TTABELADESIMBOLOS", tabela()), ("TBARRADESIMBOLOS", barra()),
                         ("TSIMBOLOSCOMBOBOX", combo())):
        (pasta / f"{nome}.bmp").write_bytes(quadro.bmp())
    (pasta / "MAINICON.png").write_bytes(icone())
