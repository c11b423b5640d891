# SPDX-License-Identifier: LGPL-2.1-or-later
"""Filled outlines for the sample fonts: shapes are added to a drawing, holes are wound the other way."""

from math import cos, hypot, pi, radians, sin

from fontTools.pens.ttGlyphPen import TTGlyphPen


def _area(points):
    return sum(x0 * y1 - x1 * y0 for (x0, y0), (x1, y1) in zip(points, points[1:] + points[:1])) / 2


class Contorno:
    """One glyph's outline in font units, y upward. Filled by the non-zero rule, as TrueType fonts are:
    solid shapes run clockwise and may overlap, holes run counter-clockwise."""

    def __init__(self):
        self._pen = TTGlyphPen(None)

    def glifo(self):
        return self._pen.glyph()

    def poligono(self, points, furo=False):
        points = [(round(x), round(y)) for x, y in points]
        if (_area(points) > 0) != furo:
            points.reverse()
        self._pen.moveTo(points[0])
        for point in points[1:]:
            self._pen.lineTo(point)
        self._pen.closePath()

    def retangulo(self, x0, y0, x1, y1, furo=False):
        self.poligono([(x0, y0), (x0, y1), (x1, y1), (x1, y0)], furo)

    def moldura(self, x0, y0, x1, y1, t):
        self.retangulo(x0, y0, x1, y1)
        self.retangulo(x0 + t, y0 + t, x1 - t, y1 - t, furo=True)

    def disco(self, cx, cy, rx, ry=None, furo=False):
        """An ellipse of eight quadratic arcs: off-curve points only, the on-curve ones are implied."""
        ry = rx if ry is None else ry
        k = 1 / cos(pi / 8)
        angles = [pi / 8 + i * pi / 4 for i in range(8)]
        if not furo:
            angles.reverse()
        self._pen.qCurveTo(*[(round(cx + rx * k * cos(a)), round(cy + ry * k * sin(a))) for a in angles], None)
        self._pen.closePath()

    def anel(self, cx, cy, rx, ry, t):
        self.disco(cx, cy, rx, ry)
        self.disco(cx, cy, rx - t, ry - t, furo=True)

    def linha(self, x0, y0, x1, y1, t):
        """A straight bar of thickness t with flat ends."""
        d = hypot(x1 - x0, y1 - y0)
        nx, ny = (y0 - y1) / d * t / 2, (x1 - x0) / d * t / 2
        self.poligono([(x0 + nx, y0 + ny), (x1 + nx, y1 + ny), (x1 - nx, y1 - ny), (x0 - nx, y0 - ny)])

    def traco(self, points, t):
        """A bar along several points, its joints rounded."""
        for (x0, y0), (x1, y1) in zip(points, points[1:]):
            self.linha(x0, y0, x1, y1, t)
        for x, y in points[1:-1]:
            self.disco(x, y, t / 2)

    def vao(self, x0, y0, x1, y1, t, w, h, cx, cy):
        """A diagonal bar cut off by the box of w by h around (cx, cy), so that it ends inside a frame."""
        d = hypot(x1 - x0, y1 - y0)
        nx, ny = (y0 - y1) / d * t / 2, (x1 - x0) / d * t / 2
        quad = [(x0 + nx, y0 + ny), (x1 + nx, y1 + ny), (x1 - nx, y1 - ny), (x0 - nx, y0 - ny)]
        self.poligono(_recorte(quad, cx - w / 2, cy - h / 2, cx + w / 2, cy + h / 2))

    def arco(self, cx, cy, rx, ry, a0, a1, t, n=24):
        """A band of thickness t along an ellipse from a0 to a1 (degrees, counter-clockwise)."""
        angles = [radians(a0 + (a1 - a0) * i / n) for i in range(n + 1)]
        fora = [(cx + rx * cos(a), cy + ry * sin(a)) for a in angles]
        dentro = [(cx + (rx - t) * cos(a), cy + (ry - t) * sin(a)) for a in reversed(angles)]
        self.poligono(fora + dentro)

    def gomo(self, cx, cy, rx, ry, a0, a1, n=24, furo=False):
        """The filled part of an ellipse between an arc and its chord."""
        angles = [radians(a0 + (a1 - a0) * i / n) for i in range(n + 1)]
        self.poligono([(cx + rx * cos(a), cy + ry * sin(a)) for a in angles], furo)

    def estrela(self, cx, cy, r, r2, pontas, inicio=90):
        angles = [radians(inicio + i * 180 / pontas) for i in range(2 * pontas)]
        self.poligono([(cx + (r2 if i % 2 else r) * cos(a), cy + (r2 if i % 2 else r) * sin(a))
                       for i, a in enumerate(angles)])


def _recorte(points, x0, y0, x1, y1):
    """The part of a convex polygon that lies inside a box, one side of the box after the other."""
    sides = [(lambda p: p[0] >= x0, 0, x0), (lambda p: p[0] <= x1, 0, x1),
             (lambda p: p[1] >= y0, 1, y0), (lambda p: p[1] <= y1, 1, y1)]
    for dentro, eixo, limite in sides:
        saida = []
        for p, q in zip(points, points[1:] + points[:1]):
            if dentro(p):
                saida.append(p)
            if dentro(p) != dentro(q):
                k = (limite - p[eixo]) / (q[eixo] - p[eixo])
                saida.append((p[0] + k * (q[0] - p[0]), p[1] + k * (q[1] - p[1])))
        points = saida
    return points
