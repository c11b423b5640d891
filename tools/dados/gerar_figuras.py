# SPDX-License-Identifier: LGPL-2.1-or-later
"""Writes the sample vector figures. Run from the repository's root."""

from pathlib import Path

from figuras import FIGURAS

PASTA = Path("exemplos/dados/figuras")


def principal():
    PASTA.mkdir(parents=True, exist_ok=True)
    for nome, figura in FIGURAS.items():
        (PASTA / f"{nome}.xml").write_bytes(figura.arquivo())


if __name__ == "__main__":
    principal()
