#!/usr/bin/env python3
"""Draws the numeric columns of samples as curves relative to their first fifth."""
import csv
import pathlib
import sys

import matplotlib

matplotlib.use("svg")
from matplotlib import pyplot  # noqa: E402


def draw(path):
    with path.open() as file:
        rows = list(csv.DictReader(file))
    figure, axes = pyplot.subplots(figsize=(8, 4.5), layout="constrained")
    for column in rows[0]:
        if not rows[0][column].isdigit():
            continue
        values = [float(row[column]) for row in rows]
        usual = max(values[:len(values) // 5 + 1]) or 1
        axes.plot([value / usual for value in values], label=f"{column} (1 = {usual:.0f})")
    axes.set(title=path.stem, xlabel="sample", ylabel="held, relative to the first fifth")
    axes.grid(True, alpha=0.3)
    axes.legend(fontsize="small")
    figure.savefig(path.with_suffix(".svg"), metadata={"Date": None})


for name in sys.argv[1:]:
    draw(pathlib.Path(name))
