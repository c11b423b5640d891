# SPDX-License-Identifier: LGPL-2.1-or-later
"""The pictograms of the symbol font: code -> (name, advance width, drawing).

A drawing receives an empty outline and works around (0, 0); the font moves it to the middle of its advance
and of the line, so that a glyph drawn alone is centred. A unit's frame is 1000 by 660; a line is 1000 high."""

from math import cos, radians, sin

T = 60            # thickness of a frame and of the lines inside it
W, H = 500, 330   # half width and half height of a unit's frame


def _quadro(g):
    g.moldura(-W, -H, W, H, T)


def _dentro(g, x0, y0, x1, y1):
    """A bar that stops in the middle of the frame's own line, so that no corner of it sticks out."""
    g.vao(x0, y0, x1, y1, T, 2 * W - T, 2 * H - T, 0, 0)


def infantaria(g):
    _quadro(g)
    _dentro(g, -W, -H, W, H)
    _dentro(g, -W, H, W, -H)


def blindado(g):
    _quadro(g)
    g.anel(0, 0, 330, 190, T)


def mecanizada(g):
    infantaria(g)
    g.anel(0, 0, 330, 190, T)


def artilharia(g):
    _quadro(g)
    g.disco(0, 0, 115)


def engenharia(g):
    _quadro(g)
    g.traco([(-260, -120), (-260, 120), (260, 120), (260, -120)], T)
    g.linha(0, 120, 0, -120, T)
    for x in (-260, 260):
        g.disco(x, 120, T / 2)


def reconhecimento(g):
    _quadro(g)
    _dentro(g, -W, -H, W, H)


def comunicacoes(g):
    _quadro(g)
    g.traco([(-W + 30, H - 30), (110, -170), (-110, 170), (W - 30, -H + 30)], T)


def saude(g):
    _quadro(g)
    g.retangulo(-T / 2, -H, T / 2, H)
    g.retangulo(-W, -T / 2, W, T / 2)


def hospital(g):
    _quadro(g)
    g.retangulo(-65, -220, 65, 220)
    g.retangulo(-220, -65, 220, 65)


def suprimento(g):
    _quadro(g)
    g.retangulo(-W, -200, W, -200 + T)


def manutencao(g):
    _quadro(g)
    g.retangulo(-230, -T / 2, 230, T / 2)
    g.arco(-320, 0, 120, 120, -80, 80, T)
    g.arco(320, 0, 120, 120, 100, 260, T)


def quartel_general(g):
    g.moldura(-330, 30, 330, 470, T)
    g.retangulo(-330, -470, -330 + T, 60)


def posto_de_observacao(g):
    g.poligono([(0, 440), (500, -400), (-500, -400)])
    g.poligono([(0, 310), (390, -335), (-390, -335)], furo=True)
    g.disco(0, -130, 95)


def ponte(g):
    for s in (1, -1):
        g.traco([(-620, s * 240), (-480, s * 110), (480, s * 110), (620, s * 240)], T)


def mina(g):
    g.disco(0, 0, 300)
    for a in range(0, 360, 45):
        x, y = cos(radians(a)), sin(radians(a))
        g.linha(260 * x, 260 * y, 450 * x, 450 * y, 80)


def obstaculo(g):
    dentes = []
    for i in range(6):
        dentes += [(-750 + i * 250, -60), (-625 + i * 250, 200)]
    g.poligono([(-750, -150)] + dentes + [(750, -60), (750, -150)])


def barreira(g):
    g.linha(-480, -360, 480, 360, 90)
    g.linha(-480, 360, 480, -360, 90)
    g.retangulo(-560, -45, 560, 45)


def anticarro(g):
    _quadro(g)
    _dentro(g, -W, -H, 0, H)
    _dentro(g, W, -H, 0, H)


def defesa_antiaerea(g):
    _quadro(g)
    g.arco(0, -H + T / 2, W - T / 2, 420, 0, 180, T)


def helicoptero(g):
    g.poligono([(-520, 200), (-520, -200), (0, 30), (520, -200), (520, 200), (0, -30)])
    g.retangulo(-35, -260, 35, 260)
    g.retangulo(-170, 230, 170, 290)
    g.retangulo(-170, -290, 170, -230)


def aviao(g):
    metade = [(0, 480), (55, 400), (65, 180), (470, -60), (470, -150), (65, -40), (50, -290), (180, -390), (180, -450)]
    g.poligono(metade + [(0, -400)] + [(-x, y) for x, y in reversed(metade[1:])])


def vant(g):
    g.poligono([(-760, 170), (-760, 80), (0, -170), (760, 80), (760, 170), (0, -50)])
    g.disco(0, -90, 90)


def navio(g):
    g.poligono([(-650, -20), (650, -20), (480, -260), (-480, -260)])
    g.poligono([(-300, 20), (-300, 140), (260, 140), (330, 20)])
    g.retangulo(-110, 140, 110, 230)
    g.retangulo(-25, 230, 25, 380)


def radar(g):
    g.arco(60, 130, 340, 340, 120, 330, 80)
    g.linha(60, 130, 250, 320, 60)
    g.disco(270, 340, 65)
    g.poligono([(-40, -190), (60, -190), (190, -450), (-170, -450)])


def morteiro(g):
    g.disco(0, -270, 160)
    g.disco(0, -270, 95, furo=True)
    g.retangulo(-32, -120, 32, 360)
    g.poligono([(0, 480), (150, 270), (-150, 270)])


def metralhadora(g):
    g.retangulo(-35, -320, 35, 360)
    g.poligono([(0, 480), (140, 280), (-140, 280)])
    g.retangulo(-170, -90, 170, -30)
    g.retangulo(-210, -400, 210, -330)


def paraquedas(g):
    g.gomo(0, 60, 440, 400, 0, 180)
    for x in (-400, -140, 140, 400):
        g.linha(x, 70, 0, -330, 34)
    g.retangulo(-90, -460, 90, -310)


def paiol(g):
    g.poligono([(-420, -420), (-420, 120), (0, 430), (420, 120), (420, -420)])
    g.poligono([(-345, -350), (-345, 85), (0, 340), (345, 85), (345, -350)], furo=True)
    for x in (-190, 0, 190):
        g.retangulo(x - 50, -250, x + 50, -20)
        g.gomo(x, -20, 50, 110, 0, 180)


def combustivel(g):
    g.poligono([(-340, 420), (340, 420), (32, 0), (32, -430), (-32, -430), (-32, 0)])
    g.poligono([(-218, 356), (218, 356), (0, 66)], furo=True)


def agua(g):
    g.disco(0, -140, 300)
    g.poligono([(-282, -40), (0, 480), (282, -40)])
    g.gomo(-30, -140, 180, 180, 180, 270, furo=True)


def posto_de_comando(g):
    g.retangulo(-360, -480, -300, 480)
    g.poligono([(-300, 480), (380, 480), (380, 60), (-300, 60)])
    g.poligono([(-250, 430), (330, 430), (330, 110)], furo=True)


def prisioneiros(g):
    g.anel(0, 0, 460, 460, T)
    for x in (-230, 0, 230):
        y = (430 ** 2 - x * x) ** 0.5
        g.retangulo(x - 32, -y, x + 32, y)


def aerodromo(g):
    g.anel(0, 0, 420, 420, T)
    g.linha(-560, -200, 560, 200, 150)


def seta(g, voltas):
    pontos = [(0, 470), (300, 90), (110, 90), (110, -470), (-110, -470), (-110, 90), (-300, 90)]
    for _ in range(voltas):
        pontos = [(y, -x) for x, y in pontos]
    g.poligono(pontos)


def alvo(g):
    g.anel(0, 0, 340, 340, T)
    g.disco(0, 0, 70)
    for dx, dy in ((0, 1), (1, 0), (0, -1), (-1, 0)):
        g.linha(150 * dx, 150 * dy, 480 * dx, 480 * dy, T)


def bandeira(g):
    g.retangulo(-310, -480, -250, 480)
    g.poligono([(-250, 480), (330, 290), (-250, 90)])


def torre(g):
    g.linha(-150, -480, -20, 250, 50)
    g.linha(150, -480, 20, 250, 50)
    g.linha(-110, -270, 110, -270, 40)
    g.linha(-75, -60, 75, -60, 40)
    g.disco(0, 270, 60)
    for r in (150, 230):
        g.arco(0, 270, r, r, -40, 40, 45)
        g.arco(0, 270, r, r, 140, 220, 45)


def submarino(g):
    g.disco(0, -60, 700, 140)
    g.poligono([(-120, 40), (-80, 220), (120, 220), (160, 40)])
    g.retangulo(10, 210, 50, 330)
    g.poligono([(-600, -60), (-760, 90), (-760, -210)])


def comboio(g):
    for x in (-600, 0, 600):
        g.poligono([(x - 260, -90), (x - 260, 150), (x + 90, 150), (x + 90, 90), (x + 190, 90), (x + 250, 0),
                    (x + 250, -90)])
        for dx in (-150, 140):
            g.disco(x + dx, -110, 75)


def pontos(g):
    for x in (-230, 0, 230):
        g.disco(x, 0, 85)


def barras(g, n):
    for i in range(n):
        x = (2 * i - n + 1) * 95
        g.retangulo(x - 40, -350, x + 40, 350)


def xis(g):
    g.linha(-280, -350, 280, 350, 90)
    g.linha(-280, 350, 280, -350, 90)


def losango(g):
    g.poligono([(0, 480), (480, 0), (0, -480), (-480, 0)])
    g.poligono([(0, 395), (395, 0), (0, -395), (-395, 0)], furo=True)


def trevo(g):
    """Four lobes around a square: each lobe is three quarters of a ring."""
    for a, x, y in ((45, 160, 160), (135, -160, 160), (225, -160, -160), (315, 160, -160)):
        g.arco(x * 1.02, y * 1.02, 305, 305, a - 92, a + 92, T)


def trincheira(g):
    g.traco([(-780, -110), (-520, -110), (-520, 110), (-260, 110), (-260, -110), (0, -110), (0, 110), (260, 110),
             (260, -110), (520, -110), (520, 110), (780, 110)], 70)


def coleta(g):
    g.anel(0, 130, 330, 330, T)
    g.poligono([(-70, -180), (70, -180), (0, -480)])
    g.retangulo(-150, 100, 150, 160)
    g.retangulo(-30, -20, 30, 280)


def nada(g):
    """A glyph that occupies nothing and shows nothing: fitting it must not divide by its width."""


UNIDADE = 2 * W + 60
PICTOGRAMAS = {
    33: ("moldura", UNIDADE, _quadro), 34: ("losango", 1000, losango),
    35: ("quadrado", 960, lambda g: g.moldura(-440, -440, 440, 440, T)), 36: ("trevo", 1000, trevo),
    37: ("infantaria", UNIDADE, infantaria), 38: ("blindado", UNIDADE, blindado),
    39: ("infantaria_mecanizada", UNIDADE, mecanizada), 40: ("artilharia", UNIDADE, artilharia),
    41: ("engenharia", UNIDADE, engenharia), 42: ("reconhecimento", UNIDADE, reconhecimento),
    43: ("comunicacoes", UNIDADE, comunicacoes), 44: ("saude", UNIDADE, saude), 45: ("hospital", UNIDADE, hospital),
    46: ("suprimento", UNIDADE, suprimento), 47: ("manutencao", UNIDADE, manutencao),
    48: ("quartel_general", 720, quartel_general), 49: ("posto_de_observacao", 1060, posto_de_observacao),
    50: ("ponte", 1360, ponte), 51: ("mina", 980, mina), 52: ("obstaculo", 1560, obstaculo),
    53: ("barreira", 1180, barreira), 54: ("anticarro", UNIDADE, anticarro),
    55: ("defesa_antiaerea", UNIDADE, defesa_antiaerea), 56: ("helicoptero", 1100, helicoptero),
    57: ("aviao", 1000, aviao), 58: ("vant", 1580, vant), 59: ("navio", 1360, navio), 60: ("radar", 820, radar),
    61: ("morteiro", 400, morteiro), 62: ("metralhadora", 480, metralhadora), 63: ("paraquedas", 940, paraquedas),
    64: ("paiol", 900, paiol), 65: ("combustivel", 740, combustivel), 66: ("agua", 660, agua),
    67: ("posto_de_comando", 820, posto_de_comando), 68: ("prisioneiros", 980, prisioneiros),
    69: ("aerodromo", 1200, aerodromo), 70: ("seta_norte", 660, lambda g: seta(g, 0)),
    71: ("seta_leste", 1000, lambda g: seta(g, 1)), 72: ("seta_sul", 660, lambda g: seta(g, 2)),
    73: ("seta_oeste", 1000, lambda g: seta(g, 3)), 74: ("alvo", 1020, alvo),
    75: ("estrela", 1000, lambda g: g.estrela(0, -40, 490, 190, 5)),
    76: ("explosao", 1000, lambda g: g.estrela(0, 0, 480, 230, 11)), 77: ("bandeira", 740, bandeira),
    78: ("torre", 540, torre), 79: ("submarino", 1580, submarino), 80: ("comboio", 1780, comboio),
    81: ("pelotao", 700, pontos), 82: ("companhia", 140, lambda g: barras(g, 1)),
    83: ("batalhao", 330, lambda g: barras(g, 2)), 84: ("regimento", 520, lambda g: barras(g, 3)),
    85: ("brigada", 740, xis), 86: ("vazio", 0, nada), 199: ("posto_de_coleta", 760, coleta),
    227: ("trincheira", 1660, trincheira), 255: ("estrela_de_quatro", 980, lambda g: g.estrela(0, 0, 480, 150, 4)),
}
