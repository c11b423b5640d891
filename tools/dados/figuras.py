# SPDX-License-Identifier: LGPL-2.1-or-later
"""The sample figures, y downward and around (0, 0): sectors and texts do not follow the scale of a figure in the
way polygons do, so only what stands around the origin looks the same at every size. No polygon is a level or
an upright line: a figure's scale is a quotient by the width and the height of each part."""

from math import cos, pi, radians, sin

from elementos import (AMARELO, AREIA, AZUL, AZUL_CLARO, BRANCO, CHEIO, CINZA, CONTRADIAGONAL, CRUZ, CRUZ_DIAGONAL,
                       DIAGONAL, HORIZONTAL, INTERNA, LARANJA, PONTILHADA, PRETO, ROSA, SEM_LINHA, SOLIDA,
                       TEXTO_DO_SISTEMA, TRACEJADA, TRACO_DOIS_PONTOS, TRACO_PONTO, VAZIO, VERDE, VERMELHO, VERTICAL,
                       Figura, Poligono, Ponto, Setor, Texto, linha, retangulo)

DECLARACAO = '<?xml version="1.0" encoding="ISO-8859-1"?>'


def graus(g):
    return radians(g)


def polar(raio, g):
    return round(raio * cos(radians(g))), round(-raio * sin(radians(g)))


def roda(raio, n=24, rx=1.0, ry=1.0, inicio=0):
    """The vertices of a circle or ellipse that, unlike a sector's, follow the scale wherever they stand."""
    return [(round(raio * rx * cos(2 * pi * (i + inicio) / n)), round(raio * ry * sin(2 * pi * (i + inicio) / n)))
            for i in range(n)]


def mover(vertices, dx, dy):
    return [(x + dx, y + dy) for x, y in vertices]


def unidade(*miolo):
    return Figura([retangulo(-48, -32, 48, 32, fundo=AZUL_CLARO), *miolo])


def alvo():
    mira = [retangulo(*lados, fundo=PRETO) for lados in
            ((14, -1, 48, 1), (-48, -1, -14, 1), (-1, 14, 1, 48), (-1, -48, 1, -14))]
    return Figura([Setor(50, 40, fundo=VERMELHO), Setor(30, 22, fundo=VERMELHO), *mira, Setor(8, fundo=PRETO)])


def lanterna():
    feixe = Setor(50, inicio=1 - pi, linha=LARANJA, fundo=AMARELO, fechado="S")
    return Figura([feixe, retangulo(-14, -30, 14, 0, fundo=CINZA),
                   Poligono([(-18, -30), (0, -48), (18, -30)], fundo=VERMELHO)])


def campo_minado():
    minas = [Poligono(mover(roda(7, 12), x, 0), fundo=PRETO) for x in (-28, 0, 28)]
    pontos = [Ponto(x, y, VERMELHO) for x in (-42, -14, 14, 42) for y in (-20, 20)]
    return Figura([retangulo(-48, -28, 48, 28, linha=VERDE, fundo=AREIA, estilo_linha=TRACEJADA), *minas, *pontos])


def hachuras():
    return Figura([retangulo(-48 + 25 * (i % 4), -24 + 25 * (i // 4), -27 + 25 * (i % 4), -3 + 25 * (i // 4),
                             linha=CINZA, fundo=AZUL, estilo_fundo=i) for i in range(CHEIO, CRUZ_DIAGONAL + 1)])


def tracos():
    cores = (PRETO, VERMELHO, VERDE, AZUL, LARANJA, CINZA, PRETO)
    retas = [linha((-44, -30 + 12 * i), (-4, -42 + 12 * i), (44, -30 + 12 * i), linha=cores[i], estilo_linha=i)
             for i in range(INTERNA + 1)]
    return Figura([retangulo(-50, -50, 50, 50, fundo=BRANCO)] + retas)


def alinhamentos():
    elementos = []
    for vertical in range(3):
        for horizontal in range(3):
            x, y = 18 * (horizontal - 1), 16 * (vertical - 1)
            elementos += [Ponto(x, y, VERMELHO), Texto(x, y, "Ág", 6, vertical=vertical, horizontal=horizontal)]
    return Figura([retangulo(-30, -30, 30, 30, linha=CINZA, estilo_fundo=VAZIO)] + elementos)


def rosa_dos_ventos():
    pontas = []
    for i, g in enumerate((45, 135, 225, 315, 0, 90, 180, 270)):
        ponta = polar(14 if i < 4 else 19, g)
        pontas.append(Poligono([(0, 0), polar(5, g - 45), ponta], fundo=PRETO))
        pontas.append(Poligono([(0, 0), polar(5, g + 45), ponta], fundo=BRANCO))
    letras = [Texto(0, -20, "N", 7), Texto(25, 3, "L", 7), Texto(0, 28, "S", 7), Texto(-25, 3, "O", 7)]
    return Figura([Setor(16, 14, linha=CINZA, fundo=AREIA), *pontas, *letras])


def textos_girados():
    cores = (PRETO, VERMELHO, VERDE, AZUL, LARANJA, CINZA)
    textos = [Texto(*polar(6, 60 * i), "Seta", 7, 600 * i, 1, 0, cores[i]) for i in range(6)]
    return Figura([Setor(30, linha=CINZA, fundo=BRANCO, estilo_linha=PONTILHADA), Ponto(0, 0)] + textos)


def constelacao():
    estrelas = ((-40, 30), (-22, 8), (-2, 12), (14, -8), (34, -4), (40, -34), (10, -36))
    cores = (VERMELHO, LARANJA, VERDE, AZUL, PRETO, CINZA, VERMELHO)
    return Figura([linha(*estrelas[:4], estrelas[6], *estrelas[5:3:-1], estrelas[3], linha=CINZA,
                         estilo_linha=PONTILHADA)] + [Ponto(x, y, c) for (x, y), c in zip(estrelas, cores)])


def travessia():
    margens = [linha((-46, 22 * s), (-34, 12 * s), (34, 12 * s), (46, 22 * s)) for s in (1, -1)]
    rio = Poligono([(-16, -48), (20, -48), (14, 0), (22, 48), (-14, 48), (-20, 0)], linha=AZUL, fundo=AZUL,
                   estilo_fundo=HORIZONTAL)
    return Figura([rio, retangulo(-34, -12, 34, 12, estilo_linha=SEM_LINHA), *margens])


def area_de_reuniao():
    return Figura([Poligono(roda(30, 20, 1, 0.75), linha=AZUL, fundo=AZUL, estilo_linha=TRACO_DOIS_PONTOS,
                            estilo_fundo=VERTICAL), retangulo(-20, -8, 20, 8, estilo_linha=SEM_LINHA),
                   Texto(0, 4, "Z Reu", 8, cor=AZUL)])


def zona_de_lancamento():
    return Figura([Poligono([(0, -48), (48, 0), (0, 48), (-48, 0)], linha=VERDE, fundo=VERDE, estilo_fundo=CRUZ),
                   Poligono([(0, -24), (24, 0), (0, 24), (-24, 0)], linha=VERDE, fundo=AMARELO,
                            estilo_fundo=CRUZ_DIAGONAL),
                   *[Ponto(x, y, VERMELHO) for x, y in ((0, -48), (48, 0), (0, 48), (-48, 0))]])


def limite():
    return Figura([linha((-30, 10), (-14, -1), (-10, -1), estilo_linha=TRACO_PONTO),
                   linha((10, -1), (15, -1), (30, -11), estilo_linha=TRACO_PONTO),
                   Texto(0, 3, "XX", 8), Texto(-16, -6, "1ª Bda", 6, 300), Texto(20, 12, "3ª Bda", 6, 300)])


def linha_de_fase():
    return Figura([linha((-30, 6), (-18, 0), (0, 3), (16, -4), (30, -1), linha=VERDE, estilo_linha=TRACEJADA),
                   Texto(-28, -7, "LF Ágata", 7, vertical=1, horizontal=0, cor=VERDE),
                   Texto(29, 16, "às 06:00", 7, vertical=0, horizontal=1, cor=VERDE)])


def eixo_de_ataque():
    seta = [(-48, -12), (14, -12), (14, -30), (48, 0), (14, 30), (14, 12), (-48, 12), (-36, 0)]
    return Figura([Poligono(seta, linha=AZUL, fundo=AZUL_CLARO)])


def ponto_de_controle():
    """Around (32, 32): drawn into a 64 pixel square whose corner is the canvas's own, its texts stand right."""
    return Figura([Poligono([(4, 4), (60, 4), (60, 40), (32, 60), (4, 40)], fundo=AREIA, linha=TEXTO_DO_SISTEMA),
                   Texto(32, 22, "P Ct", 10, cor=TEXTO_DO_SISTEMA),
                   Texto(32, 40, "17", 11, cor=VERMELHO, fonte="Sibrel Teste")])


def leque():
    """No declaration, the root in small letters, attributes in an order of their own."""
    return Figura(linhas=[
        "<figuravet>",
        '  <Setor AngF="2.356194490192345" AngI="0.7853981633974483" Fechado="S" RaioMenor="0" RaioMaior="50"',
        f'         CorFundo="{AMARELO}" EstiloLinha="0" EstiloFundo="0" X="0" Y="0"/>',
        '  <!-- The colour of this line is the default one. -->',
        '  <Ponto Y="0" X="0"/>',
        "</figuravet>"])


def setor_de_tiro():
    banda = Setor(50, 22.5, graus(30), graus(150), VERMELHO, VERMELHO, SOLIDA, CONTRADIAGONAL)
    return Figura(linhas=[
        DECLARACAO, "<!-- Setor de tiro da posição de bateria -->", "<FiguraVet>", "\t" + banda.editado(),
        "\t" + Setor(22.5, 0, graus(30), graus(150), VERMELHO, ROSA, PONTILHADA, DIAGONAL, "S").editado(),
        "\t" + Poligono([(-2, 0), (-2, -46), (-7, -46), (0, -56), (7, -46), (2, -46), (2, 0)], VERMELHO, BRANCO).xml(),
        '\t<Elipse X="0" Y="0" RaioMaior="400"/>', "</FiguraVet>"])


def busca_de_radar():
    feixes = [Setor(48, 0, graus(g), graus(g + 28), VERDE, cor_, SOLIDA, CHEIO, "N")
              for g, cor_ in ((20, "C8FFC8"), (48, "96E696"), (76, "64BE64"))]
    return Figura(linhas=[
        DECLARACAO, "<FiguraVet>", *("  " + f.editado() for f in feixes),
        "  " + Setor(50, 48, linha=VERDE, fundo=VERDE).editado(),
        "  " + Setor(25, 24, linha=VERDE, fundo=VERDE).editado(),
        '  <Ponto X="$0" Y="0" Cor="0000FF"/>', "</FiguraVet>"])


def fatias():
    limites = (0, 55, 130, 205, 270, 360)
    cores = (VERMELHO, AMARELO, VERDE, AZUL, LARANJA)
    estilos = (CHEIO, DIAGONAL, CHEIO, CRUZ_DIAGONAL, VERTICAL)
    partes = [Setor(48, 16 if i % 2 else 0, graus(a), graus(b), PRETO, cores[i], SOLIDA, estilos[i], "S")
              for i, (a, b) in enumerate(zip(limites, limites[1:]))]
    return Figura(linhas=[DECLARACAO, "<FiguraVet><!--cinco fatias, nem todas até o centro-->",
                          *(p.editado() for p in partes), "</FiguraVet>"])


def engenharia():
    """A polygon's corners need not be called points, and a child without both numbers is none."""
    return Figura(linhas=[
        DECLARACAO, "<FiguraVet>",
        f'  <Poligono EstiloFundo="0" EstiloLinha="0" CorFundo="{AZUL_CLARO}" CorLinha="000000" Fechado="S">',
        '    <Ponto X="-48" Y="-32"/><Canto X="48" Y="-32"/>', '    <Canto X="48" Y="32"/><Ponto X="7"/>',
        '    <Ponto Y="32" X="-48"/>', "  </Poligono>",
        '  <Poligono Fechado="s" CorFundo="0" CorLinha="0" EstiloLinha="0"><Ponto X="-24" Y="14"/>'
        '<Ponto X="-24" Y="-14"/><Ponto X="0" Y="-14"/><Ponto X="0" Y="14"/><Ponto X="0" Y="-14"/>'
        '<Ponto X="24" Y="-14"/><Ponto X="24" Y="14"/></Poligono>', "</FiguraVet>"])


FIGURAS = {
    "alvo": alvo(), "disco": Figura([Setor(50, linha=AZUL, fundo=AZUL_CLARO, estilo_linha=INTERNA)]),
    "anel": Figura([Setor(50, 30.5, linha=VERDE, fundo=AMARELO, estilo_linha=PONTILHADA)]),
    "leque": leque(), "setor_de_tiro": setor_de_tiro(), "busca_de_radar": busca_de_radar(),
    "lanterna": lanterna(), "fatias": fatias(),
    "infantaria": unidade(linha((-48, -32), (48, 32)), linha((-48, 32), (48, -32))),
    "blindado": unidade(Poligono(roda(30, 24, 1, 0.6), estilo_fundo=VAZIO)),
    "artilharia": unidade(Setor(10, fundo=PRETO)), "engenharia": engenharia(),
    "campo_minado": campo_minado(), "limite": limite(), "linha_de_fase": linha_de_fase(),
    "eixo_de_ataque": eixo_de_ataque(), "area_de_reuniao": area_de_reuniao(),
    "zona_de_lancamento": zona_de_lancamento(), "travessia": travessia(), "hachuras": hachuras(),
    "tracos": tracos(), "alinhamentos": alinhamentos(), "rosa_dos_ventos": rosa_dos_ventos(),
    "textos_girados": textos_girados(), "constelacao": constelacao(), "ponto_de_controle": ponto_de_controle(),
}
