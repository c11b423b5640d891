# SPDX-License-Identifier: LGPL-2.1-or-later
"""Writes the sample database: the order of battle and a symbol table, as a file and as statements for a server.
Run from the repository's root."""

import sqlite3
from pathlib import Path

from catalogo import CODIGOS, FONTE, SIMBOLOS, Composto, Fonte
from forca import INDICE, Forca

BANCO = Path("exemplos/dados/exercicio.sqlite")
COMANDOS = Path("exemplos/dados/exercicio.sql")

ESQUEMA = """\
-- The sample exercise: its units, each below another one, and the glyphs of their symbols.
CREATE TABLE UNIDADES (
    ID INTEGER PRIMARY KEY,
    PAI INTEGER REFERENCES UNIDADES (ID),
    TAG VARCHAR(20) NOT NULL,
    NOME VARCHAR(80) NOT NULL,
    COR INTEGER,
    SIMBOLO INTEGER,
    LINK VARCHAR(3),
    CODIGO VARCHAR(20) NOT NULL,
    GUARNICAO VARCHAR(40),
    POSICAO VARCHAR(40),
    COMANDANTE VARCHAR(40),
    EFETIVO INTEGER,
    PRONTIDAO VARCHAR(20),
    CODINOME VARCHAR(40)
);
CREATE TABLE SIMBOLOS (
    ORDEM INTEGER PRIMARY KEY,
    IDTIPOBJ VARCHAR(8) NOT NULL,
    ROTULO VARCHAR(80) NOT NULL,
    CARACTER INTEGER NOT NULL,
    PROPORCAO DOUBLE PRECISION NOT NULL,
    FONTE VARCHAR(40) NOT NULL
);
"""

# What a tree document made from a table cannot carry in a value, and what stands for it here.
SEM_MARCAS = str.maketrans({'"': "'", "<": "(", ">": ")"})


def texto(valor):
    return valor.translate(SEM_MARCAS) if valor is not None else None


def exercito():
    """The order of battle with the reserve that only the database knows."""
    forca = Forca()
    forca.batalhao(forca.achar("DE"), "51º Batalhão de Reserva", "Infantaria", "DE.51")
    return forca


def unidades(forca):
    """Rows of UNIDADES, parents before their children."""
    numeros = {id(u): n for n, u in enumerate(forca.raiz.todas())}
    for u in forca.raiz.todas():
        if u is forca.raiz:
            continue
        efetivo = u.informacoes.get("Efetivo")
        yield (numeros[id(u)], numeros[id(u.pai)] or None, u.tag, texto(u.nome), None if u.link else u.cor,
               None if u.link else INDICE[u.simbolo], "sim" if u.link else None, u.identificacao["Código"],
               texto(u.identificacao.get("Guarnição")), u.informacoes.get("Posição"), u.informacoes.get("Comandante"),
               int(efetivo) if efetivo else None, u.informacoes.get("Prontidão"), texto(u.informacoes.get("Codinome")))


def glifos(simbolo):
    """A symbol as glyphs alone: a frame stands for its picture, a square for a symbol without any glyph."""
    if isinstance(simbolo, Fonte) and simbolo.fonte == FONTE:
        return [simbolo]
    partes = [p for p in simbolo.partes if isinstance(p, Fonte)] if isinstance(simbolo, Composto) else []
    return [Fonte(CODIGOS["moldura"])] + partes if partes else [Fonte(CODIGOS["quadrado"])]


def simbolos():
    """Rows of SIMBOLOS: entry N of the table that they make is entry N of the sample library."""
    ordem = 0
    for numero, (rotulo, simbolo) in enumerate(SIMBOLOS):
        for glifo in glifos(simbolo):
            ordem += 1
            yield ordem, f"T{numero:03}", texto(rotulo), glifo.caracter, glifo.proporcao, FONTE


def literal(valor):
    if valor is None:
        return "NULL"
    return str(valor) if isinstance(valor, (int, float)) else "'" + valor.replace("'", "''") + "'"


def insercoes(tabela, linhas):
    return [f"INSERT INTO {tabela} VALUES ({', '.join(map(literal, linha))});" for linha in linhas]


def main():
    inserir = insercoes("UNIDADES", unidades(exercito())) + insercoes("SIMBOLOS", simbolos())
    comandos = ESQUEMA + "\n".join(inserir) + "\n"
    COMANDOS.write_text(comandos, encoding="utf-8", newline="\n")
    BANCO.unlink(missing_ok=True)
    banco = sqlite3.connect(BANCO)
    banco.executescript("BEGIN;\n" + comandos + "COMMIT;")
    banco.execute("VACUUM")
    banco.close()


if __name__ == "__main__":
    main()
