# SPDX-License-Identifier: LGPL-2.1-or-later
"""An invented force: its units, what is known of them, and the elements that tell it to a tree."""

from dataclasses import dataclass, field
from random import Random
from xml.sax.saxutils import escape

from catalogo import SIMBOLOS

INDICE = {rotulo: i for i, (rotulo, _) in reversed(list(enumerate(SIMBOLOS)))}
AZUL, VERDE, MARROM, ROXO, PRETO, VERMELHO = 0xA00000, 0x206000, 0x204080, 0x800060, 0x000000, 0x0000C8
SOBRENOMES = ("Araújo", "Brandão", "Conceição", "D'Ávila", "Estêvão", "Falcão", "Gonçalves", "Guimarães", "Inácio",
              "Junqueira", "Lüders", "Magalhães", "Nóbrega", "Otávio", "Paixão", "Quintão", "Romão", "Simões")


class Sorte:
    """Numbers that look drawn by lot and are the same at every run and in every version of Python."""

    def __init__(self, semente):
        self._fonte = Random(semente)

    def inteiro(self, de, ate):
        return de + int(self._fonte.random() * (ate - de + 1))

    def um_de(self, itens):
        return itens[self.inteiro(0, len(itens) - 1)]


@dataclass(eq=False)
class Unidade:
    tag: str
    nome: str
    simbolo: str
    identificacao: dict
    cor: int = AZUL
    informacoes: dict = field(default_factory=dict)
    filhos: list = field(default_factory=list)
    leste: int = 556000
    norte: int = 7512000
    link: bool = False
    pai: "Unidade | None" = None

    def juntar(self, filho):
        filho.pai = self
        self.filhos.append(filho)
        return filho

    def retirar(self):
        self.pai.filhos.remove(self)
        self.pai = None

    def mover(self, leste, norte):
        self.leste += leste
        self.norte += norte
        self.informacoes["Posição"] = f"23K {self.leste} {self.norte}"

    def todas(self):
        yield self
        for filho in self.filhos:
            yield from filho.todas()


def ligacao(alvo):
    """A unit seen from another place: only its name and its identification, by which the tree finds the rest."""
    return Unidade(alvo.tag, alvo.nome, alvo.simbolo, dict(alvo.identificacao), link=True)


class Forca:
    """The order of battle. `raiz` is the document's root element, its children are the top-level units."""

    def __init__(self):
        self.sorte = Sorte(1822)
        self.raiz = Unidade("OrdemDeBatalha", "", "", {})
        for numero, (nome, cor, arma, base) in enumerate((
                ("1ª Brigada de Infantaria", AZUL, "Infantaria", 11),
                ("2ª Brigada Mecanizada", VERDE, "Infantaria mecanizada", 21),
                ("3ª Brigada Blindada", MARROM, "Cavalaria blindada", 31)), 1):
            self._brigada(numero, nome, cor, arma, base)
        self._tropas_divisionarias()
        self._forcas_tarefa()

    def unidade(self, pai, tag, nome, simbolo, codigo, **outros):
        u = Unidade(tag, nome, simbolo, {"Código": codigo}, **({"cor": pai.cor} | outros))
        efetivo = {"Brigada": 3200, "Divisao": 900, "Batalhao": 680, "Companhia": 140, "Pelotao": 36}.get(tag, 8)
        posto = {"Brigada": "Gen", "Batalhao": "Ten Cel", "Companhia": "Cap", "Pelotao": "Ten"}.get(tag, "Sgt")
        u.leste = pai.leste + self.sorte.inteiro(-9, 9) * 100
        u.norte = pai.norte + self.sorte.inteiro(-9, 9) * 100
        u.mover(0, 0)
        u.informacoes["Comandante"] = f"{posto} {self.sorte.um_de(SOBRENOMES)}"
        u.informacoes["Efetivo"] = str(efetivo - self.sorte.inteiro(0, efetivo // 10))
        u.informacoes["Prontidão"] = self.sorte.um_de(("Pronto", "Pronto", "Pronto", "Em preparo", "Parcial"))
        return pai.juntar(u)

    def _brigada(self, numero, nome, cor, arma, base):
        c = f"B{numero}"
        b = self.unidade(self.raiz, "Brigada", nome, "Quartel-general", c, cor=cor)
        b.mover(12000 * numero, -3000 * numero)
        b.identificacao["Guarnição"] = ("Serra Azul", "Vale do Rio", "Campo Grande")[numero - 1]
        b.informacoes["Codinome"] = ('"Águia" & "Falcão"', "Jacaré <rio>", "Tatu-bola")[numero - 1]
        self.unidade(b, "Posto", f"PC {nome[:2]} Bda", "Posto de comando", f"{c}.PC")
        for i in range(3):
            self.batalhao(b, f"{base + i}º Batalhão", arma, f"{c}.{base + i}")
        g = self.unidade(b, "Batalhao", f"{base + 5}º Grupo de Artilharia", "Artilharia de campanha", f"{c}.GA")
        for i in range(1, 4):
            self.unidade(g, "Companhia", f"{i}ª Bateria de Obuses", "Artilharia de campanha", f"{c}.GA.{i}")
        for nome_cia, simbolo, sigla in (("Companhia de Engenharia", "Engenharia", "E"),
                                         ("Companhia de Comunicações", "Comunicações", "COM"),
                                         ("Esquadrão de Reconhecimento", "Reconhecimento", "REC")):
            cia = self.unidade(b, "Companhia", nome_cia, simbolo, f"{c}.{sigla}")
            for i in range(1, 4):
                self.unidade(cia, "Pelotao", f"{i}º Pelotão", simbolo, f"{c}.{sigla}.P{i}")
        self._logistica(b, c, base)

    def batalhao(self, b, nome, arma, c):
        bat = self.unidade(b, "Batalhao", nome, arma, c)
        self.unidade(bat, "Posto", "Posto de Observação", "Posto de observação", f"{c}.PO")
        for i in range(1, 5):
            apoio = i == 4
            cia = self.unidade(bat, "Companhia", "Companhia de Apoio" if apoio else f"{i}ª Companhia, {nome[:2]}º",
                               "Anticarro" if apoio else arma, f"{c}.C{i}")
            pelotoes = (("Pelotão de Morteiros", "Morteiro"), ("Pelotão Anticarro", "Anticarro"),
                        ("Pelotão de Comunicações", "Comunicações")) if apoio else (
                ("1º Pelotão", arma), ("2º Pelotão", arma), ("3º Pelotão", arma),
                ("Seção de Metralhadoras", "Metralhadora"))
            for k, (nome_pel, simbolo) in enumerate(pelotoes, 1):
                self.unidade(cia, "Pelotao", nome_pel, simbolo, f"{c}.C{i}.P{k}")

    def _logistica(self, b, c, base):
        log = self.unidade(b, "Batalhao", f"{base + 7}º Batalhão Logístico", "Suprimento", f"{c}.LOG")
        for i, (nome, simbolo) in enumerate((("Companhia de Suprimento", "Suprimento"), ("Companhia de Saúde", "Saúde"),
                                             ("Companhia de Manutenção", "Manutenção")), 1):
            self.unidade(log, "Companhia", nome, simbolo, f"{c}.LOG.{i}")
        self.unidade(log, "Posto", "Posto de Combustível", "Combustível", f"{c}.LOG.COMB")
        self.unidade(log, "Posto", "Posto de Água", "Posto \"Alfa\" de água", f"{c}.LOG.AG")
        self.unidade(log, "Posto", "Hospital de Campanha", "Hospital de brigada", f"{c}.LOG.H")

    def _tropas_divisionarias(self):
        d = self.unidade(self.raiz, "Divisao", "Tropas Divisionárias", "Quartel-general", "DE", cor=ROXO)
        d.mover(24000, 8000)
        aaa = self.unidade(d, "Batalhao", "41º Grupo de Artilharia Antiaérea", "Defesa antiaérea", "DE.AAA")
        for i in range(1, 4):
            self.unidade(aaa, "Companhia", f"{i}ª Bateria Antiaérea", "Defesa antiaérea", f"DE.AAA.{i}")
        self.unidade(aaa, "Posto", "Radar de Vigilância", "Radar", "DE.AAA.R")
        av = self.unidade(d, "Batalhao", "42º Batalhão de Aviação", "Helicóptero", "DE.AV")
        for i, (nome, simbolo) in enumerate((
                ("Esquadrilha de Ataque", "Helicóptero"), ("Esquadrilha de Emprego", "Helicóptero"),
                ("Esquadrilha de Ligação", "Avião"), ("Seção Não Tripulada", "Aeronave não tripulada")), 1):
            self.unidade(av, "Companhia", nome, simbolo, f"DE.AV.{i}")
        for nome, simbolo, sigla in (
                ("Aeródromo de Campanha", "Aeródromo", "AER"), ("Paiol Central", "Paiol de munições", "PAI"),
                ("Antena do Morro Alto", "Antena", "ANT"),
                ("Posto de Prisioneiros", "Recolhimento de prisioneiros", "PRI")):
            self.unidade(d, "Posto", nome, simbolo, f"DE.{sigla}")
        self.unidade(d, "Companhia", "Companhia de Paraquedistas", "Paraquedistas", "DE.PQD")
        self.unidade(d, "Companhia", "Flotilha Fluvial", "Navio", "DE.FLU")

    def _forcas_tarefa(self):
        """Last in the document: a link finds only what stands before it."""
        for nome, letra, codigos in (
                ("Força-Tarefa Norte", "N", ("B1.11.C1", "B1.12.C2", "B3.31", "DE.AV.1", "B1.GA.1")),
                ("Força-Tarefa Sul", "S", ("B2.21.C3", "B2.REC", "B3.32.C1.P2", "DE.AAA.2", "DE.FLU"))):
            ft = self.unidade(self.raiz, "Agrupamento", nome, "Bandeira", f"FT.{letra}", cor=PRETO)
            for codigo in codigos:
                ft.juntar(ligacao(self.achar(codigo)))

    def achar(self, codigo):
        return next(u for u in self.raiz.todas() if u.identificacao.get("Código") == codigo and not u.link)


def atributo(nome, valor):
    return f' {nome}="{escape(str(valor), {chr(34): "&quot;"})}"'


def lista(tag, item, pares, recuo):
    linhas = [f"{recuo}<{tag}>"]
    linhas += [f"{recuo} <{item}{atributo('Rótulo', r)}{atributo('Valor', v)}/>" for r, v in pares.items()]
    return linhas + [f"{recuo}</{tag}>"]


def abertura(u):
    if u.link:
        return f"<{u.tag}{atributo('Nome', u.nome)}{atributo('Link', 'sim')}>"
    return f"<{u.tag}{atributo('Nome', u.nome)}{atributo('Cor', u.cor)}{atributo('Símbolo', INDICE[u.simbolo])}>"


def elemento(u, recuo=" ", informacoes=None, filhos=None):
    """A unit's element: all that is known of it, or only the information and the child lines that are given."""
    dentro = recuo + " "
    linhas = [recuo + abertura(u)] + lista("Identificadores", "Identificador", u.identificacao, dentro)
    informacoes = u.informacoes if informacoes is None else informacoes
    if informacoes:
        linhas += lista("Informações", "Informação", informacoes, dentro)
    if filhos is None:
        filhos = [linha for filho in u.filhos for linha in elemento(filho, dentro)]
    return linhas + filhos + [f"{recuo}</{u.tag}>"]


def documento(linhas, data_hora=None):
    raiz = "<OrdemDeBatalha" + (atributo("DataHora", data_hora) if data_hora else "") + ">"
    texto = ['<?xml version="1.0" encoding="ISO-8859-1"?>', raiz] + linhas + ["</OrdemDeBatalha>"]
    return "".join(linha + "\r\n" for linha in texto).encode("latin-1")
