"""Run by a Python that has the package installed: finds what the command found.

check_package.py BOARD.bmp POINTS.csv"""

import csv
import importlib.metadata
import pathlib
import sys

import numpy as np
import quorvex

data = pathlib.Path(sys.argv[1]).read_bytes()
offset, width, height = (int.from_bytes(data[at : at + 4], "little") for at in (10, 18, 22))
image = np.frombuffer(data, np.uint8, width * height, offset).reshape(height, width)[::-1]
found = [
    [str(p["id"]), str(p["row"]), str(p["col"]), f"{float(p['x']):.9g}", f"{float(p['y']):.9g}"]
    for p in quorvex.detect(image)
]
with open(sys.argv[2], newline="") as file:
    expected = [row[:5] for row in csv.reader(file)][1:]
assert len(expected) == 48 and found == expected, found

package = pathlib.Path(quorvex.__file__).parent
assert package.is_relative_to(sys.prefix), package
for name in ("py.typed", "_native.pyi"):
    assert (package / name).is_file(), name
assert importlib.metadata.version("quorvex") == quorvex.__version__
