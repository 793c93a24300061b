"""Holds the pictures of the pages to those that were made anew, and to their limits.

compare_pictures.py DOCS MADE: the pages' folder, whose pictures are in pictures/, and the folder of the new ones."""

import re
import sys
from pathlib import Path

import cv2

LARGEST = 25_000  # bytes, of a picture
LARGEST_SUM = 400_000  # bytes, of all
BY_A_BROWSER = {"report.jpg"}  # another one draws other letters, so these are not made anew and may be larger


def main() -> int:
    docs, made = Path(sys.argv[1]), Path(sys.argv[2])
    kept = docs / "pictures"
    faults = []
    compared = [path for path in kept.iterdir() if path.name not in BY_A_BROWSER]
    names = {path.name for path in compared}
    for name in sorted(names ^ {path.name for path in made.iterdir()}):
        faults.append(f"{name} is in one of the two folders only")
    for name in sorted(names):
        old, new = (cv2.imread(str(folder / name), cv2.IMREAD_UNCHANGED) for folder in (kept, made))
        if old is None or new is None or old.shape != new.shape or (old != new).any():
            faults.append(f"{name} is another picture than scripts/make_doc_pictures.sh makes")
    for path in compared:
        if path.stat().st_size >= LARGEST:
            faults.append(f"{path.name} has {path.stat().st_size} bytes; {LARGEST} is too many")
    if sum(path.stat().st_size for path in compared) >= LARGEST_SUM:
        faults.append(f"the pictures have {LARGEST_SUM} bytes together, or more")
    used = set()
    for page in docs.glob("*.md"):
        used.update(re.findall(r"pictures/([\w.-]+)", page.read_text(encoding="utf-8")))
    for name in sorted((names | BY_A_BROWSER) - used - {"icon.png"}):
        faults.append(f"{name} is on no page")
    for fault in faults:
        print(fault, file=sys.stderr)
    return 1 if faults else 0


sys.exit(main())
