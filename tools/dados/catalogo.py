# SPDX-License-Identifier: LGPL-2.1-or-later
"""The symbols of the sample libraries. Pictograms go by their name in the symbol font."""

from dataclasses import dataclass, field

from pictogramas import PICTOGRAMAS

FONTE = "Sibrel Simbolos"
CODIGOS = {nome: codigo for codigo, (nome, _, _) in PICTOGRAMAS.items()}


@dataclass
class Fonte:
    caracter: int
    proporcao: float = 1.0
    fonte: str = FONTE
    charset: int = 2


@dataclass
class Grafico:
    arquivo: str


@dataclass
class Vetorial:
    arquivo: str


@dataclass
class Composto:
    partes: list = field(default_factory=list)


@dataclass
class Editado:
    """A record as a person would type it: the lines stand in the file as they are, kind name included."""
    linhas: list


def glifo(nome, proporcao=1.0):
    return Fonte(CODIGOS[nome], proporcao)


def imagem(nome):
    return Grafico("imagens\\" + nome)


def sobre(quadro, nome, proporcao=0.6):
    """A pictogram over a frame's picture."""
    return Composto([imagem(quadro + ".png"), glifo(nome, proporcao)])


def figura(nome):
    return Vetorial("figuras\\" + nome + ".xml")


UNIDADES = [
    ("Infantaria", sobre("amigo", "infantaria", 1)),
    ("Infantaria mecanizada", sobre("amigo", "infantaria_mecanizada", 1)),
    ("Cavalaria blindada", sobre("amigo", "blindado", 1)),
    ("Reconhecimento", sobre("amigo", "reconhecimento", 1)),
    ("Artilharia de campanha", sobre("amigo", "artilharia", 1)),
    ("Defesa antiaérea", sobre("amigo", "defesa_antiaerea", 1)),
    ("Engenharia", sobre("amigo", "engenharia", 1)),
    ("Comunicações", sobre("amigo", "comunicacoes", 1)),
    ("Anticarro", sobre("amigo", "anticarro", 1)),
    ("Saúde", sobre("amigo", "saude", 1)),
    ("Suprimento", sobre("amigo", "suprimento", 1)),
    ("Manutenção", sobre("amigo", "manutencao", 1)),
]

POSTOS = [
    ("Quartel-general", glifo("quartel_general")),
    ("Posto de comando", glifo("posto_de_comando")),
    ("Posto de observação", glifo("posto_de_observacao", 0.9)),
    ("Posto de Coleta de Extraviados de Divisão de Exército", glifo("posto_de_coleta")),
    ("Hospital", glifo("hospital")),
    ("Posto \"Alfa\" de água", glifo("agua", 0.9)),
    ("Combustível", glifo("combustivel", 0.9)),
    ("Paiol de munições", glifo("paiol")),
    ("Recolhimento de prisioneiros", glifo("prisioneiros")),
    ("Aeródromo", glifo("aerodromo")),
    ("Antena", glifo("torre")),
]

MEIOS = [
    ("Helicóptero", glifo("helicoptero")),
    ("Avião", glifo("aviao")),
    ("Aeronave não tripulada", glifo("vant")),
    ("Navio", glifo("navio")),
    ("Submarino", glifo("submarino")),
    ("Comboio", glifo("comboio")),
    ("Radar", glifo("radar")),
    ("Morteiro", glifo("morteiro")),
    ("Metralhadora", glifo("metralhadora")),
    ("Paraquedistas", glifo("paraquedas")),
]

TERRENO = [
    ("Ponte", Grafico("imagens\\ponte.bmp")),
    ("Rio", Grafico("imagens/rio.png")),
    ("Cidade", Grafico("Imagens\\CIDADE.PNG")),
    ("Bandeira", imagem("bandeira.png")),
    ("Floresta", imagem("floresta.ppm")),
    ("Fogo", imagem("fogo.gif")),
    ("Farol", imagem("farol.svg")),
    ("Mina", glifo("mina", 0.9)),
    ("Obstáculo", glifo("obstaculo")),
    ("Barreira", glifo("barreira", 0.9)),
    ("Trincheira", glifo("trincheira")),
]

COMPOSTOS = [
    ("Alvo hostil", sobre("hostil", "alvo", 0.5)),
    ("Blindado hostil", Composto([imagem("hostil.png"), glifo("blindado", 0.62)])),
    ("Morteiro hostil", sobre("hostil", "morteiro")),
    ("Navio neutro", sobre("neutro", "navio", 0.7)),
    ("Aeronave desconhecida", sobre("desconhecido", "aviao")),
    ("Estrela no losango", Composto([glifo("losango"), glifo("estrela", 0.5)])),
    ("Batalhão", Composto([glifo("moldura"), glifo("batalhao", 0.45)])),
    ("Hospital de brigada", Composto([
        Composto([imagem("neutro.png"), glifo("hospital", 0.8)]), glifo("brigada", 0.25)])),
    ("Ponte emoldurada", Composto([imagem("ponte.bmp"), imagem("quadro.bmp")])),
    ("Pelotão hostil \"B\"", Composto([imagem("hostil.png"), glifo("explosao", 0.5), glifo("pelotao", 0.25)])),
    ("Sem partes", Composto([])),
]

DIVERSOS = [
    ("", glifo("estrela", 0.8)),
    ("Estrela de quatro pontas", glifo("estrela_de_quatro", 0.5)),
    ("Glifo transbordante", glifo("alvo", 1.5)),
    ("Glifo sem largura", glifo("vazio")),
    ("Letra Ç", Fonte(199, 0.8, "Arial", 0)),
    ("Norte", glifo("seta_norte")),
    ("Leste", glifo("seta_leste")),
]

# Records typed by hand: every freedom that the reader grants.
EDITADOS = [
    ("Socorro", Editado(['grafico    "Socorro" imagens\\cruz.bmp // bandeira do posto de socorro'])),
    ("Rádio \"base\"", Editado(["fonte      'Rádio \"base\"'   78    2   0.9   Sibrel Simbolos"])),
    ("Explosão", Editado(['  FONTE    "Explosão"', "    76", "\t2", '    0.75 Sibrel Simbolos'])),
    ("Sul", Editado(["Fonte      Sul\t72 2 1 Sibrel Simbolos"])),
    ("Bússola", Editado(['Composto   "Bússola"  2   // a seta fica por cima', 'GRAFICO    Imagens/Neutro.png // fundo',
                         'fonte      70 2 0.6 Sibrel Simbolos'])),
    ("Periscópio", Editado(['Grafico    "Periscópio"    imagens\\periscopio.xbm   '])),
]

FIGURAS = [
    ("Alvo", "alvo"), ("Disco", "disco"), ("Anel", "anel"), ("Leque", "leque"), ("Setor de tiro", "setor_de_tiro"),
    ("Busca de radar", "busca_de_radar"), ("Lanterna", "lanterna"), ("Fatias", "fatias"),
    ("Unidade de infantaria", "infantaria"), ("Unidade blindada", "blindado"), ("Unidade de artilharia", "artilharia"),
    ("Unidade de engenharia", "engenharia"), ("Campo minado", "campo_minado"), ("Limite", "limite"),
    ("Linha de fase", "linha_de_fase"), ("Eixo de ataque", "eixo_de_ataque"), ("Área de reunião", "area_de_reuniao"),
    ("Zona de lançamento", "zona_de_lancamento"), ("Travessia", "travessia"), ("Hachuras", "hachuras"),
    ("Traços", "tracos"), ("Alinhamentos", "alinhamentos"), ("Rosa dos ventos", "rosa_dos_ventos"),
    ("Textos girados", "textos_girados"), ("Constelação", "constelacao"), ("Ponto de controle", "ponto_de_controle"),
]

VETORIAIS = [(rotulo, figura(nome)) for rotulo, nome in FIGURAS] + [
    ("Alvo em quadro", Composto([imagem("quadro.bmp"), figura("alvo")])),
    ("Ataque de infantaria", Composto([figura("eixo_de_ataque"), glifo("infantaria", 0.4)])),
    ("Rosa", Editado(['vetorial   "Rosa"   Figuras/Rosa_dos_ventos.XML   // a mesma rosa, por outro nome'])),
]

SIMBOLOS = UNIDADES + POSTOS + MEIOS + TERRENO + COMPOSTOS + DIVERSOS + EDITADOS
MELHORES = UNIDADES + POSTOS + MEIOS + TERRENO + COMPOSTOS[:-1]
