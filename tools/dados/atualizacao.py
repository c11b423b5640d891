# SPDX-License-Identifier: LGPL-2.1-or-later
"""Update documents: changes are made to the force and remembered, then told in one document."""

from forca import atributo, elemento, lista


class Atualizacao:
    """An element finds its node among its parent's children only, so each change is told inside its ancestors,
    and these carry their whole identification: a tree replaces it by what the element says."""

    def __init__(self, forca):
        self._raiz = forca.raiz
        self._mudadas = {}    # unit -> information to tell
        self._inseridas = set()
        self._excluidas = {}  # former parent -> element lines

    def mudar(self, u, cor=None, **informacoes):
        """An empty value takes the information away, as it does in the tree; it must be there."""
        if cor is not None:
            u.cor = cor
        for rotulo, valor in informacoes.items():
            if valor:
                u.informacoes[rotulo] = valor
            else:
                del u.informacoes[rotulo]
        self._mudadas.setdefault(u, {}).update(informacoes)

    def mover(self, u, leste, norte):
        u.mover(leste, norte)
        self.mudar(u, Posição=u.informacoes["Posição"])

    def inserir(self, pai, u):
        self._inseridas.add(pai.juntar(u))
        return u

    def excluir(self, u, visivel=None):
        """By name and identification alone, or with the attribute that says it plainly."""
        pai = u.pai
        nome = atributo("Nome", u.nome) + (atributo("Visivel", visivel) if visivel else "")
        dentro = lista("Identificadores", "Identificador", u.identificacao, " ")
        self._excluidas.setdefault(pai, []).extend([f"<{u.tag}{nome}>", *dentro, f"</{u.tag}>"])
        u.retirar()

    def transferir(self, u, pai):
        """A unit goes under another one with all that it holds."""
        self.excluir(u)
        self.inserir(pai, u)

    def linhas(self):
        """Deletions first: one that finds nothing would withdraw the insertions told before it."""
        return self._filhos(self._raiz, " ")

    def _filhos(self, u, recuo):
        saida = [recuo + linha for linha in self._excluidas.get(u, [])]
        for filho in u.filhos:
            saida += self._unidade(filho, recuo)
        return saida

    def _unidade(self, u, recuo):
        if u in self._inseridas:
            return elemento(u, recuo)
        dentro = self._filhos(u, recuo + " ")
        if not dentro and u not in self._mudadas:
            return []
        return elemento(u, recuo, self._mudadas.get(u, {}), dentro)
