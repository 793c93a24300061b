"""Runs every listing of a page as a reader would, and compares what it prints with what the page says.

run_listings.py PAGE...     the sources' folder is in QUORVEX_SOURCES, the build's in QUORVEX_BUILD

A page's blocks run in their order, in one shell, in a folder of the page's own that looks like the folder of the
sources after a build: it has links to what is in there, and build/release is the build. HOME is a folder of the
page, too.

  sh         run by bash -euo pipefail
  python     run by this Python; with a title kept under that name, for later blocks
  cpp, c     with a title: a file, of the sources (then it has to stand in there as printed) or for later blocks;
             without one a whole program, which is compiled and run
  cmake      with a title, as above
  text       what the block before it prints, standard output and standard error as they come; a line "..." stands
             for any lines

A block that cannot run here has <!-- not run: REASON --> before it. All of these are printed."""

import importlib.util
import os
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from markdown_page import Block, read_page

SOURCES = Path(os.environ["QUORVEX_SOURCES"])
BUILD = Path(os.environ["QUORVEX_BUILD"])
COMPILERS = {"cpp": "g++ -std=c++17 -Wall -Wextra -Werror", "c": "cc -std=c99 -pedantic -Wall -Wextra -Werror"}
LIBRARIES = {"cpp": "-lquorvex -lquorvex_precise", "c": "-lquorvex_c"}


def page_folder(folder: Path) -> Path:
    """A folder like that of the sources, with the build in its place."""
    place = folder / "quorvex"
    (place / "build").mkdir(parents=True)
    for entry in SOURCES.iterdir():
        if entry.name not in ("build", "demo-output", ".git"):
            (place / entry.name).symlink_to(entry)
    (place / "build" / "release").symlink_to(BUILD)
    (folder / "home").mkdir()
    return place


def program_lines(block: Block, stem: Path) -> str:
    """Commands that compile a whole program and run it."""
    source = stem.with_suffix("." + block.language)
    source.write_text(block.text, encoding="utf-8")
    compile_line = f"{COMPILERS[block.language]} -I {SOURCES} {source} -o {stem} -L {BUILD} {LIBRARIES[block.language]}"
    return f"{compile_line} -Wl,-rpath,{BUILD}\n{stem}\n"


def file_lines(block: Block, stem: Path, later: str, faults: list) -> str:
    """The command that puts a titled block where later blocks use it."""
    original = SOURCES / block.title
    if original.exists():
        if block.text not in original.read_text(encoding="utf-8"):
            faults.append(f"line {block.line}: {block.title} does not have these lines")
        return ""
    user = Path(block.title).parent if block.title.endswith("CMakeLists.txt") else Path(block.title)
    if user.name not in later:
        faults.append(f"line {block.line}: no later block uses {block.title}")
    stem.write_text(block.text, encoding="utf-8")
    return f"mkdir -p {shlex.quote(os.path.dirname(block.title) or '.')}\ncp {stem} {shlex.quote(block.title)}\n"


def block_lines(block: Block, stem: Path, later: str, faults: list) -> str:
    if block.language == "sh":
        return block.text
    if block.title:
        return file_lines(block, stem, later, faults)
    if block.language == "python":
        stem.write_text(block.text, encoding="utf-8")
        return f"{sys.executable} {stem}\n"
    if block.language in COMPILERS and re.search(r"\bmain\(", block.text):
        return program_lines(block, stem)
    faults.append(f"line {block.line}: a block of the language '{block.language}' is neither run nor marked as not run")
    return ""


def expected_pattern(text: str) -> str:
    lines = [r"(?:.*\n)*?" if line == "..." else re.escape(line) + r"\n" for line in text.splitlines()]
    return "".join(lines)


def compare(said: Block, printed: str, faults: list) -> None:
    if not re.fullmatch(expected_pattern(said.text), printed):
        faults.append(f"line {said.line}: the page says\n{said.text}and what is printed is\n{printed}")


def page_script(page, folder: Path, faults: list) -> tuple:
    """The page's script, whose blocks write into files of their own, and which block says what each one prints."""
    script = "set -euo pipefail\n"
    said = {}  # by the number of the block that prints it
    last = None
    for number, block in enumerate(page.blocks):
        if block.reason:
            continue
        if block.language == "text":
            if last is None or page.blocks[last].section != block.section or last in said:
                faults.append(f"line {block.line}: no block before this text prints it")
            else:
                said[last] = block
            continue
        later = "".join(other.text for other in page.blocks[number + 1 :] if not other.reason)
        lines = folder / f"block{number}.sh"
        lines.write_text(block_lines(block, folder / f"listing{number}", later, faults), encoding="utf-8")
        script += f"echo {number} > {folder}/reached\nexec > {folder}/printed{number} 2>&1\n. {lines}\n"
        if not block.title:
            last = number
    return script + f"echo ended > {folder}/reached\n", said


def run_page(path: Path) -> list:
    page = read_page(path)
    faults = list(page.faults)
    with tempfile.TemporaryDirectory(prefix="quorvex-page-") as name:
        folder = Path(name)
        script, said = page_script(page, folder, faults)
        (folder / "page.sh").write_text(script, encoding="utf-8")
        environment = {
            "PATH": f"{BUILD}:/usr/sbin:/usr/bin:/sbin:/bin",
            "PYTHONPATH": f"{BUILD}/python",
            "PYTHONDONTWRITEBYTECODE": "1",
            "HOME": f"{folder}/home",
            "LC_ALL": "C.UTF-8",
        }
        done = subprocess.run(["bash", folder / "page.sh"], cwd=page_folder(folder), env=environment, check=False)
        reached = (folder / "reached").read_text().strip() if (folder / "reached").exists() else "ended"
        for number, block in said.items():
            printed = folder / f"printed{number}"
            if printed.exists() and str(number) != reached:
                compare(block, printed.read_text(encoding="utf-8", errors="replace"), faults)
        if done.returncode != 0:
            printed = (folder / f"printed{reached}").read_text(encoding="utf-8", errors="replace")
            line = page.blocks[int(reached)].line
            faults.append(f"line {line}: the block ends with {done.returncode} and has printed\n{printed}")
    for block in page.blocks:
        if block.reason:
            print(f"{path.name}:{block.line}: not run: {block.reason}")
    print(f"{path.name}: {sum(not block.reason for block in page.blocks)} of {len(page.blocks)} blocks were run or compared")
    return [f"{path}: {fault}" for fault in faults]


def has_module(name: str) -> bool:
    return importlib.util.find_spec(name) is not None


# What a listing uses beyond the build: the text that shows it, what to look for, the Debian package.
NEEDS = [
    ("convert ", lambda: shutil.which("convert"), "imagemagick"),
    ("mrcal-", lambda: shutil.which("mrcal-calibrate-cameras"), "mrcal"),
    ("pkg-config", lambda: shutil.which("pkg-config"), "pkg-config"),
    ("import cv2", lambda: has_module("cv2"), "python3-opencv"),
    ("detect_folder.py", lambda: has_module("distributed") and has_module("cv2"), "python3-distributed"),
    ("examples/calibrate", lambda: (BUILD / "examples" / "calibrate_camera").exists(), "libopencv-dev, for the build,"),
]


def missing_package(path: Path) -> str:
    text = "".join(block.text for block in read_page(path).blocks if not block.reason)
    return next((package for sign, isThere, package in NEEDS if sign in text and not isThere()), "")


def main() -> int:
    for page in sys.argv[1:]:
        missing = missing_package(Path(page))
        if missing:
            print(f"Skipped: {missing} is not installed")
            return 77
    faults = [fault for page in sys.argv[1:] for fault in run_page(Path(page))]
    for fault in faults:
        print(fault, file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
