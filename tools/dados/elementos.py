# SPDX-License-Identifier: LGPL-2.1-or-later
"""The elements of a vector figure and the text that a figure file holds for each of them."""

from dataclasses import dataclass, field

SOLIDA, TRACEJADA, PONTILHADA, TRACO_PONTO, TRACO_DOIS_PONTOS, SEM_LINHA, INTERNA = range(7)
CHEIO, VAZIO, HORIZONTAL, VERTICAL, DIAGONAL, CONTRADIAGONAL, CRUZ, CRUZ_DIAGONAL = range(8)

# An end angle is not found again under the name that it is saved by: it comes back as this one. A disc or a ring
# saved by the system is therefore whole only if both of its angles are this one.
ANGULO_PADRAO = -1.0


def cor(r, g, b):
    return f"{b:02X}{g:02X}{r:02X}"


PRETO, BRANCO, AZUL_CLARO = cor(0, 0, 0), cor(255, 255, 255), cor(128, 224, 255)
VERMELHO, VERDE, AZUL, AMARELO = cor(200, 30, 30), cor(30, 140, 60), cor(40, 80, 200), cor(255, 220, 60)
CINZA, ROSA, LARANJA, AREIA = cor(120, 120, 120), cor(255, 160, 160), cor(240, 130, 30), cor(240, 225, 180)
TEXTO_DO_SISTEMA = "80000008"  # the window text colour: negative, so eight digits


def decimal(valor):
    """The shortest text that reads back as the same number."""
    texto = repr(float(valor))
    return texto[:-2] if texto.endswith(".0") else texto


def marca(nome, atributos, fim="/>"):
    return "<" + nome + "".join(f' {a}="{v}"' for a, v in atributos) + fim


@dataclass
class Ponto:
    x: int
    y: int
    cor: str = PRETO

    def xml(self):
        return marca("Ponto", [("X", self.x), ("Y", self.y), ("Cor", self.cor)])


@dataclass
class Texto:
    x: int
    y: int
    texto: str
    tamanho: int = 9
    orientacao: int = 0  # tenths of a degree, counter-clockwise
    vertical: int = 2
    horizontal: int = 2
    cor: str = PRETO
    fonte: str = "Arial"

    def xml(self):
        return marca("Texto", [
            ("X", self.x), ("Y", self.y), ("Cor", self.cor), ("Fonte", self.fonte), ("Tamanho", self.tamanho),
            ("Texto", self.texto), ("Orientacao", self.orientacao), ("AlinhamentoVertical", self.vertical),
            ("AlinhamentoHorizontal", self.horizontal)])


@dataclass
class Setor:
    maior: float
    menor: float = 0
    inicio: float = ANGULO_PADRAO
    fim: float = ANGULO_PADRAO
    linha: str = PRETO
    fundo: str = BRANCO
    estilo_linha: int = SOLIDA
    estilo_fundo: int = CHEIO
    fechado: str = "N"
    x: int = 0
    y: int = 0

    def atributos(self, nome_do_fim):
        return [("X", self.x), ("Y", self.y), ("Fechado", self.fechado), ("RaioMaior", decimal(self.maior)),
                ("RaioMenor", decimal(self.menor)), ("AngI", decimal(self.inicio)),
                (nome_do_fim, decimal(self.fim)), ("CorLinha", self.linha), ("CorFundo", self.fundo),
                ("EstiloLinha", self.estilo_linha), ("EstiloFundo", self.estilo_fundo)]

    def xml(self):
        return marca("Setor", self.atributos("fAngF"))

    def editado(self):
        """As a person writes it who wants the end angle to be read."""
        return marca("Setor", self.atributos("AngF"))


@dataclass
class Poligono:
    vertices: list
    linha: str = PRETO
    fundo: str = BRANCO
    estilo_linha: int = SOLIDA
    estilo_fundo: int = CHEIO
    fechado: str = "S"

    def xml(self):
        abre = marca("Poligono", [
            ("Fechado", self.fechado), ("CorLinha", self.linha), ("CorFundo", self.fundo),
            ("EstiloLinha", self.estilo_linha), ("EstiloFundo", self.estilo_fundo)], ">")
        return abre + "".join(marca("Ponto", [("X", x), ("Y", y)]) for x, y in self.vertices) + "</Poligono>"


def retangulo(x0, y0, x1, y1, **estilo):
    return Poligono([(x0, y0), (x1, y0), (x1, y1), (x0, y1)], **estilo)


def linha(*vertices, **estilo):
    return Poligono(list(vertices), fechado="N", **estilo)


@dataclass
class Figura:
    """Saved by the system, or typed by hand when `linhas` are given: the file then is these lines."""
    elementos: list = field(default_factory=list)
    linhas: list = field(default_factory=list)

    def arquivo(self):
        linhas = self.linhas or ["<FiguraVet>"] + [e.xml() for e in self.elementos] + ["</FiguraVet>"]
        return "".join(texto + "\r\n" for texto in linhas).encode("cp1252")
