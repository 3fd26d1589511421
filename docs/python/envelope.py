#!/usr/bin/env python3
"""Draws the envelope of the responses of a file: envelope.py PROJECT RESPONSES PICTURE

RESPONSES is CSV as `mrl-lc envelope` reads it: the response's name, a column `set`, then a column for each load case.
"""
import csv
import sys

import matplotlib
import mrl
import numpy as np

matplotlib.use("Agg")  # no display is needed
from matplotlib import pyplot

# %% The responses: a row for each, a column for each load case.
project_file, responses_file, picture = sys.argv[1:]
with open(responses_file, newline="") as table:
    head, *rows = csv.reader(table)
numbers = [int(number) for number in head[2:]]
names = [row[0] for row in rows]
matrix = np.array([[float(value) for value in row[2:]] for row in rows])

# %% Their extremes over all combinations, in two situations.
with mrl.open(project_file) as project:
    envelopes = {name: project.envelope(matrix, name, numbers) for name in ("persistent", "characteristic")}

for situation, envelope in envelopes.items():
    print(situation)
    for row, name in enumerate(names):
        print(f"  {name}: {envelope.min[row]:.1f} to {envelope.max[row]:.1f}")
        print(f"    greatest by {envelope.governing_max(row).key}")

# %% A bar from the least to the greatest value of each response, in parts of its largest one.
figure, axes = pyplot.subplots(figsize=(8, 4), layout="constrained")
places = np.arange(len(names))
largest = np.maximum(np.abs(envelopes["persistent"].max), np.abs(envelopes["persistent"].min))
for offset, (situation, envelope) in zip((-0.2, 0.2), envelopes.items()):
    bottom, top = envelope.min / largest, envelope.max / largest
    axes.barh(places + offset, top - bottom, height=0.35, left=bottom, label=situation)
axes.axvline(0, color="black", linewidth=0.8)
axes.set_yticks(places, names)
axes.invert_yaxis()
axes.set_xlabel("part of the largest persistent value")
axes.legend()
figure.savefig(picture)
