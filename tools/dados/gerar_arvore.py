# SPDX-License-Identifier: LGPL-2.1-or-later
"""Writes the sample tree documents: an order of battle, three updates to it, and an exercise that starts from it.
Run from the repository's root."""

from pathlib import Path

from atualizacao import Atualizacao
from forca import PRETO, VERMELHO, Forca, Sorte, Unidade, documento, elemento, ligacao, lista

PASTA = Path("exemplos/dados/arvore")
PASSOS = 60
CONTATOS = ("Fogo de morteiro", "Patrulha inimiga", "Blindados a leste", "Mina na estrada", "Atirador isolado")


def hora(minutos):
    return f"2024-05-06T{6 + minutos // 60:02}:{minutos % 60:02}:00-03:00"


def nova(forca, pai, tag, nome, simbolo, codigo):
    """A unit that belongs under `pai` and is not there yet."""
    u = forca.unidade(pai, tag, nome, simbolo, codigo)
    u.retirar()
    return u


def primeira(forca):
    """Inserts a company, changes what is known of some units, deletes a platoon, and links to a unit that is
    only told by the next update: until then that link is a plain node."""
    a = Atualizacao(forca)
    bat = forca.achar("B3.32")
    cia = nova(forca, bat, "Companhia", "Companhia de Reforço", "Infantaria mecanizada", "B3.32.R")
    for i in range(1, 4):
        forca.unidade(cia, "Pelotao", f"{i}º Pelotão", "Infantaria mecanizada", f"B3.32.R.P{i}")
    a.inserir(bat, cia)
    a.mudar(forca.achar("B1.11"), Efetivo="655", Missão="Ocupar a cota 712")
    a.mudar(forca.achar("B1.PC"), Frequência="47,250 MHz", Codinome='"Águia 1"')
    a.excluir(forca.achar("B3.31.C4.P2"))
    futura = Unidade("Pelotao", "Pelotão de Balsas", "Ponte", {"Código": "B3.E.P4"})
    a.inserir(forca.achar("FT.N"), ligacao(futura))
    return a.linhas()


def segunda(forca):
    """Deletes a unit and its links by identification alone, tells the unit that a link waits for, changes colours."""
    perdida = forca.achar("B3.32.C1.P2")
    por_identificacao = [" <Pelotao>"] + lista("Identificadores", "Identificador", perdida.identificacao, "  ")
    por_identificacao.append(" </Pelotao>")
    for u in [u for u in forca.raiz.todas() if u.identificacao == perdida.identificacao]:
        u.retirar()
    a = Atualizacao(forca)
    cia = forca.achar("B3.E")
    a.inserir(cia, nova(forca, cia, "Pelotao", "Pelotão de Balsas", "Ponte", "B3.E.P4"))
    a.mudar(forca.achar("B2.21.C3"), VERMELHO, Contato="Blindados a leste", Prontidão="Em combate")
    repetida = next(u for u in forca.raiz.todas() if u.link and u.identificacao == {"Código": "B3.E.P4"})
    a.mudar(repetida)
    return por_identificacao + a.linhas()


def terceira(forca):
    """Moves a platoon to another company, deletes by the attribute that hides, takes an information away, and
    carries an element that no node is made of."""
    a = Atualizacao(forca)
    a.transferir(forca.achar("B2.22.C1.P3"), forca.achar("B2.22.C2"))
    a.excluir(forca.achar("B2.23.PO"), "N")
    a.excluir(forca.achar("B2.REC.P3"), "n")
    a.mudar(forca.achar("B2.21.C3"), forca.achar("B2.21").cor, Contato="", Prontidão="Pronto")
    historico = [" <Historico>", '  <Pelotao Nome="Pelotão que não existe" Cor="0"/>', " </Historico>"]
    return historico + a.linhas()


class Exercicio:
    """Six hours of manoeuvre in ten-minute steps: companies march, meet the enemy, patrols go out and return,
    platoons change hands, one is lost now and then."""

    def __init__(self, forca):
        self._forca = forca
        self._sorte = Sorte(1865)
        self._em_contato = []  # (unit, step in which it ends)
        self._patrulhas = []   # (patrol, its link, step in which they return)

    def passo(self, n):
        a = Atualizacao(self._forca)
        self._marchar(a, n)
        self._combater(a, n)
        self._patrulhar(a, n)
        if n % 8 == 5:
            self._reforcar(a)
        if n % 12 == 11:
            self._perder(a)
        return a.linhas()

    def _unidades(self, tag):
        return [u for u in self._forca.raiz.todas()
                if u.tag == tag and not u.link and not u.identificacao["Código"].startswith("PAT")]

    def _marchar(self, a, n):
        batalhoes = [u for u in self._unidades("Batalhao") if u.pai.tag == "Brigada"]
        batalhao = batalhoes[n % len(batalhoes)]
        leste, norte = self._sorte.inteiro(2, 8) * 100, self._sorte.inteiro(-4, 4) * 100
        for u in batalhao.todas():
            if u.tag in ("Batalhao", "Companhia"):
                a.mover(u, leste + self._sorte.inteiro(-1, 1) * 50, norte + self._sorte.inteiro(-1, 1) * 50)

    def _combater(self, a, n):
        for u, fim in [c for c in self._em_contato if c[1] == n and c[0].pai is not None]:
            a.mudar(u, u.pai.cor, Contato="", Prontidão="Pronto")
        self._em_contato = [c for c in self._em_contato if c[1] > n]
        u = self._sorte.um_de([u for u in self._unidades("Companhia") if u.pai.tag == "Batalhao"])
        if n % 2 == 0 and "Contato" not in u.informacoes and n + 4 < PASSOS:
            a.mudar(u, VERMELHO, Contato=self._sorte.um_de(CONTATOS), Prontidão="Em combate",
                    Efetivo=str(int(u.informacoes["Efetivo"]) - self._sorte.inteiro(0, 4)))
            self._em_contato.append((u, n + 4))

    def _patrulhar(self, a, n):
        for patrulha, atalho, _ in [p for p in self._patrulhas if p[2] == n]:
            a.excluir(atalho)
            a.excluir(patrulha)
        self._patrulhas = [p for p in self._patrulhas if p[2] > n]
        for patrulha, _, _ in self._patrulhas:
            a.mover(patrulha, self._sorte.inteiro(-3, 3) * 100, self._sorte.inteiro(1, 4) * 100)
        if n % 5 == 1 and n + 7 < PASSOS:
            pai = self._sorte.um_de([u for u in self._unidades("Batalhao") if u.pai.tag == "Brigada"])
            patrulha = nova(self._forca, pai, "Pelotao", f"Patrulha {n:02}", "Reconhecimento", f"PAT.{n:02}")
            patrulha.cor = PRETO
            a.inserir(pai, patrulha)
            atalho = a.inserir(self._forca.achar("FT.S"), ligacao(patrulha))
            self._patrulhas.append((patrulha, atalho, n + 7))

    def _reforcar(self, a):
        """A rifle platoon goes to another company; its name says where it came from, so that no two are alike."""
        u = self._sorte.um_de([u for u in self._unidades("Pelotao") if ".C1.P" in u.identificacao["Código"]
                               and not u.nome.startswith("Reforço")])
        destino = self._sorte.um_de([c for c in self._unidades("Companhia") if c.pai is u.pai.pai and c is not u.pai])
        a.excluir(u)
        u.nome = f"Reforço {u.identificacao['Código']}"
        a.inserir(destino, u)

    def _perder(self, a):
        a.excluir(self._sorte.um_de([u for u in self._unidades("Pelotao") if ".C2.P" in u.identificacao["Código"]]))


def principal():
    (PASTA / "exercicio").mkdir(parents=True, exist_ok=True)
    forca = Forca()
    tudo = [linha for u in forca.raiz.filhos for linha in elemento(u)]
    (PASTA / "ordem_de_batalha.xml").write_bytes(documento(tudo, hora(0)))
    for i, passo in enumerate((primeira, segunda, terceira), 1):
        (PASTA / f"atualizacao{i}.xml").write_bytes(documento(passo(forca), hora(i) if i < 3 else None))
    exercicio = Exercicio(Forca())
    for n in range(PASSOS):
        (PASTA / "exercicio" / f"{n:03}.xml").write_bytes(documento(exercicio.passo(n), hora(10 + 10 * n)))


if __name__ == "__main__":
    principal()
