# SPDX-License-Identifier: LGPL-2.1-or-later
"""Writes the sample symbol libraries. Run from the repository's root."""

from pathlib import Path

from catalogo import MELHORES, SIMBOLOS, VETORIAIS, Composto, Editado, Fonte

PASTA = Path("exemplos/dados")


def linhas_de(simbolo):
    """The kind's own section: the rest of the record's first line, and the lines of the parts."""
    if isinstance(simbolo, Fonte):
        return [f" {simbolo.caracter:5} {simbolo.charset:5} {simbolo.proporcao:.2f} {simbolo.fonte} "]
    if not isinstance(simbolo, Composto):
        return [f" {simbolo.arquivo} "]
    linhas = [f" {len(simbolo.partes):5} "]
    for parte in simbolo.partes:
        primeira, *demais = linhas_de(parte)
        linhas += [f"{type(parte).__name__:10} {primeira}"] + demais
    return linhas


def registro(rotulo, simbolo):
    if isinstance(simbolo, Editado):
        return simbolo.linhas
    citado = '"' + rotulo.replace('"', '""') + '"'
    primeira, *demais = linhas_de(simbolo)
    return [f"{type(simbolo).__name__:10} {citado:20}{primeira}"] + demais


def gravar(nome, simbolos):
    linhas = [f"{len(simbolos):5}"]
    for rotulo, simbolo in simbolos:
        linhas += registro(rotulo, simbolo)
    (PASTA / nome).write_bytes("".join(linha + "\r\n" for linha in linhas).encode("cp1252"))


def principal():
    PASTA.mkdir(parents=True, exist_ok=True)
    gravar("simbolos.txt", SIMBOLOS)
    gravar("simbolos-vetoriais.txt", MELHORES + VETORIAIS)


if __name__ == "__main__":
    principal()
