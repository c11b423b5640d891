# SPDX-License-Identifier: LGPL-2.1-or-later
"""Small pictures from a few flat shapes, and the files they are kept in. A picture is drawn on a field of
64 by 64 units, y downward, whatever its size in pixels; each pixel is the mean of 16 samples."""

import struct
import zlib
from math import hypot

CAMPO, AMOSTRAS = 64, 4
CHAVE = (255, 0, 255)  # stands for "transparent" in formats without an alpha channel


class Quadro:
    def __init__(self, lado):
        self.lado = lado
        self._formas = []  # (box, inside test, colour), the last one lies on top

    def _forma(self, x0, y0, x1, y1, dentro, cor):
        self._formas.append(((x0, y0, x1, y1), dentro, cor))

    def retangulo(self, x0, y0, x1, y1, cor):
        self._forma(x0, y0, x1, y1, lambda x, y: True, cor)

    def elipse(self, cx, cy, rx, ry, cor):
        self._forma(cx - rx, cy - ry, cx + rx, cy + ry,
                    lambda x, y: ((x - cx) / rx) ** 2 + ((y - cy) / ry) ** 2 <= 1, cor)

    def poligono(self, pontos, cor):
        lados = list(zip(pontos, pontos[1:] + pontos[:1]))

        def dentro(x, y):
            cruza = False
            for (ax, ay), (bx, by) in lados:
                if (ay > y) != (by > y) and x < ax + (y - ay) * (bx - ax) / (by - ay):
                    cruza = not cruza
            return cruza

        xs, ys = [p[0] for p in pontos], [p[1] for p in pontos]
        self._forma(min(xs), min(ys), max(xs), max(ys), dentro, cor)

    def linha(self, pontos, largura, cor):
        """A line along the points, its ends and joints rounded."""
        for (ax, ay), (bx, by) in zip(pontos, pontos[1:]):
            self._segmento(ax, ay, bx, by, largura / 2, cor)

    def _segmento(self, ax, ay, bx, by, r, cor):
        dx, dy = bx - ax, by - ay
        d2 = dx * dx + dy * dy

        def dentro(x, y):
            k = min(1, max(0, ((x - ax) * dx + (y - ay) * dy) / d2))
            return hypot(x - ax - k * dx, y - ay - k * dy) <= r

        self._forma(min(ax, bx) - r, min(ay, by) - r, max(ax, bx) + r, max(ay, by) + r, dentro, cor)

    def pixels(self):
        """Rows of (r, g, b, a). Colours are means of the samples that hit a shape, so edges do not darken."""
        return [[self._pixel(x, y) for x in range(self.lado)] for y in range(self.lado)]

    def _pixel(self, px, py):
        passo = CAMPO / self.lado
        formas = [f for f in self._formas if f[0][0] <= (px + 1) * passo and f[0][2] >= px * passo
                  and f[0][1] <= (py + 1) * passo and f[0][3] >= py * passo]
        formas.reverse()
        soma, n = [0, 0, 0], 0
        for j in range(AMOSTRAS):
            y = (py + (j + 0.5) / AMOSTRAS) * passo
            for i in range(AMOSTRAS):
                cor = self._cor((px + (i + 0.5) / AMOSTRAS) * passo, y, formas)
                if cor is not None:
                    soma = [s + c for s, c in zip(soma, cor)]
                    n += 1
        if n == 0:
            return (0, 0, 0, 0)
        return (*(round(s / n) for s in soma), round(255 * n / AMOSTRAS ** 2))

    @staticmethod
    def _cor(x, y, formas):
        for (x0, y0, x1, y1), dentro, cor in formas:
            if x0 <= x <= x1 and y0 <= y <= y1 and dentro(x, y):
                return cor
        return None

    def opacos(self):
        """Rows of (r, g, b): what is less than half covered takes the colour of transparency."""
        return [[p[:3] if p[3] >= 128 else CHAVE for p in linha] for linha in self.pixels()]

    def mascara(self):
        """Rows of 1 where something is drawn, else 0."""
        return [[int(p[3] >= 128) for p in linha] for linha in self.pixels()]


def png(linhas):
    def bloco(tipo, dados):
        return struct.pack(">I", len(dados)) + tipo + dados + struct.pack(">I", zlib.crc32(tipo + dados))

    alto, largo = len(linhas), len(linhas[0])
    cru = b"".join(b"\0" + bytes(v for p in linha for v in p) for linha in linhas)
    return (b"\x89PNG\r\n\x1a\n" + bloco(b"IHDR", struct.pack(">IIBBBBB", largo, alto, 8, 6, 0, 0, 0))
            + bloco(b"IDAT", zlib.compress(cru, 9)) + bloco(b"IEND", b""))


def bmp(linhas):
    alto, largo = len(linhas), len(linhas[0])
    enche = b"\0" * (-3 * largo % 4)
    dados = b"".join(bytes(v for r, g, b in linha for v in (b, g, r)) + enche for linha in reversed(linhas))
    return (b"BM" + struct.pack("<IHHI", 54 + len(dados), 0, 0, 54)
            + struct.pack("<IiiHHIIiiII", 40, largo, alto, 1, 24, 0, len(dados), 2835, 2835, 0, 0) + dados)


def ppm(linhas):
    return f"P6\n{len(linhas[0])} {len(linhas)}\n255\n".encode() + bytes(v for l in linhas for p in l for v in p)


def xbm(nome, linhas):
    alto, largo = len(linhas), len(linhas[0])
    octetos = [sum(bit << i for i, bit in enumerate(linha[x:x + 8])) for linha in linhas for x in range(0, largo, 8)]
    texto = [", ".join(f"0x{o:02x}" for o in octetos[i:i + 12]) for i in range(0, len(octetos), 12)]
    return (f"#define {nome}_width {largo}\n#define {nome}_height {alto}\n"
            f"static unsigned char {nome}_bits[] = {{\n   " + ",\n   ".join(texto) + " };\n").encode()


def gif(linhas):
    """At most 127 colours; the codes stay 8 bits wide because the table is cleared before it would grow."""
    cores = [CHAVE] + sorted({p for linha in linhas for p in linha} - {CHAVE})
    indice = {cor: i for i, cor in enumerate(cores)}
    assert len(cores) <= 128, "too many colours"
    alto, largo = len(linhas), len(linhas[0])
    tabela = bytes(v for cor in cores for v in cor).ljust(3 * 128, b"\0")
    codigos = bytearray()
    for n, p in enumerate(p for linha in linhas for p in linha):
        if n % 120 == 0:
            codigos.append(128)
        codigos.append(indice[p])
    codigos.append(129)
    blocos = b"".join(bytes([len(codigos[i:i + 255])]) + codigos[i:i + 255] for i in range(0, len(codigos), 255))
    return (b"GIF89a" + struct.pack("<HHBBB", largo, alto, 0xF6, 0, 0) + tabela
            + b"\x21\xf9\x04\x01\0\0\0\0" + b"\x2c" + struct.pack("<HHHHB", 0, 0, largo, alto, 0)
            + b"\x07" + blocos + b"\0\x3b")
