#!/usr/bin/env python3
"""Says how well the tests guard the library: changes one place of it at a time, builds, runs the tests, and counts the
changes that no test notices.

  scripts/mutants.py                        100 places of the library and the direct detector, drawn at random
  scripts/mutants.py --count 20 grid crossmark/thinning.cpp    20 places of these folders and files
  scripts/mutants.py --list grid            the places that there are, and what would stand there
  scripts/mutants.py --only 'grid/curve_fit.cpp:57:'           the places whose names begin with that

Works on a copy of the last commit in build/mutants, which is kept for the next run. A change that does not compile does
not count. A change after which a test fails, crashes or runs several times as long is noticed. Changes that leave
every result as it is are listed with their reason in tests/mutants/equivalent.txt and do not count.
"""

import argparse
import concurrent.futures
import os
import pathlib
import queue
import random
import re
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
WORK = ROOT / "build" / "mutants"
EQUIVALENT = ROOT / "tests" / "mutants" / "equivalent.txt"

# What reads or writes beside an array ends the program, as it does in the builds with sanitizers, at less cost. What
# narrows between braces is no C++, though compilers let it pass.
FLAGS = "-O1 -Werror=narrowing -fsanitize=bounds -fsanitize-undefined-trap-on-error -D_GLIBCXX_ASSERTIONS"

# Where changes are planted, and the test programs that may notice one, the nearest first.
_AFTER_LIBRARY = ["interface_tests", "road_tests"]
ROOMS = {
    "base": ["base_tests", "crossmark_tests", "grid_tests", "postprocess_tests"] + _AFTER_LIBRARY,
    "imageio": ["imageio_tests"] + _AFTER_LIBRARY,
    "preprocess": ["preprocess_tests"] + _AFTER_LIBRARY,
    "crossmark": ["crossmark_tests", "grid_tests"] + _AFTER_LIBRARY,
    "grid": ["grid_tests", "postprocess_tests"] + _AFTER_LIBRARY,
    "postprocess": ["postprocess_tests"] + _AFTER_LIBRARY,
    "interface": _AFTER_LIBRARY + ["c_interface_tests", "precise_tests"],
    "platform": ["platform_tests"] + _AFTER_LIBRARY,
    "precise": ["precise_tests", "c_interface_tests", "direct_road_tests"],
}

# No test here runs what is compiled for Windows alone.
ONLY_ON_WINDOWS = ["base/host_allocator.h"]

# A pattern and what takes the place of its match. Operators between spaces, as the formatter sets them: the brackets of
# templates have none.
SWAPS = [
    (r"(?<= )<(?= )", "<="), (r"(?<= )<=(?= )", "<"), (r"(?<= )>(?= )", ">="), (r"(?<= )>=(?= )", ">"),
    (r"(?<= )==(?= )", "!="), (r"(?<= )!=(?= )", "=="),
    (r"(?<= )\+(?= )", "-"), (r"(?<= )-(?= )", "+"), (r"(?<= )\*(?= )", "/"), (r"(?<= )/(?= )", "*"),
    (r"(?<= )\+=(?= )", "-="), (r"(?<= )-=(?= )", "+="),
    (r"(?<= )&&(?= )", "||"), (r"(?<= )\|\|(?= )", "&&"), (r"(?<=[ (])!(?=[\w(])", ""),
    (r"\btrue\b", "false"), (r"\bfalse\b", "true"),
    (r"\bstd::min\b", "std::max"), (r"\bstd::max\b", "std::min"),
    (r"\bstd::floor\b", "std::ceil"), (r"\bstd::ceil\b", "std::floor"),
    (r"\bstatic_cast<float>", "static_cast<double>"), (r"\bfloat(?= \w+ =)", "double"),
    (r"\bdouble(?= \w+ =)", "float"),
    (r"(?<![\w.])\d+(?![\w.'])", lambda text: str(int(text) + 1)),
    (r"(?<![\w.])\d+(?![\w.'])", lambda text: str(int(text) - 1)),
    (r"(?<![\w.])\d+\.\d+(?=f?\b)", lambda text: repr(float(text) * 1.1 if float(text) else 1.0)),
]
# A statement that can go as a whole: a call, an assignment, a jump. Declarations cannot.
STATEMENT = re.compile(r"^( +)((?:break|continue)|[\w.\->\[\]]+(?:\(.*\)| [-+*/|&]?= .*)|(?:\+\+|--)[\w.]+);$")


class Mutant:
    def __init__(self, file, line, column, before, after, text):
        self.file, self.line, self.column = file, line, column
        self.before, self.after = before, after
        self.text = text  # of the line, as it is

    def changed(self):
        return self.text[: self.column] + self.after + self.text[self.column + len(self.before):]

    def key(self):
        """What names it whatever happens to the lines around."""
        return f"{self.file}: {self.text.strip()} => {self.changed().strip()}"

    def is_known(self, keys):
        return self.key() in keys or f"{self.file}: {self.text.strip()} => *" in keys

    def __str__(self):
        return f"{self.file}:{self.line}: {self.text.strip()}  =>  {self.changed().strip()}"


def code_of(text):
    """The lines with strings and comments blanked, so that places keep their lines and columns."""
    blank = lambda match: re.sub(r".", " ", match.group())
    text = re.sub(r'"(?:[^"\\\n]|\\.)*"|\'(?:[^\'\\\n]|\\.)\'|//.*|/\*[\s\S]*?\*/', blank, text)
    return text.split("\n")


def mutants_of(file, text):
    """All changes of one source, in the order of its lines."""
    found = []
    for number, (line, code) in enumerate(zip(text.split("\n"), code_of(text)), 1):
        if re.match(r"\s*(#|template|using|namespace|static_assert|case )", code):
            continue
        for pattern, replacement in SWAPS:
            for match in re.finditer(pattern, code):
                before = match.group()
                after = replacement(before) if callable(replacement) else replacement
                found.append(Mutant(file, number, match.start(), before, after, line))
        match = STATEMENT.match(code.rstrip())
        if match and line.count("(") == line.count(")"):
            found.append(Mutant(file, number, match.start(2), line[match.start(2):].rstrip(), ";", line))
    return found


def sources(places):
    for room in ROOMS:
        for path in sorted((ROOT / room).rglob("*")):
            file = path.relative_to(ROOT).as_posix()
            if path.suffix not in (".cpp", ".h") or "windows" in file or file in ONLY_ON_WINDOWS:
                continue
            chosen = any(file == place or file.startswith(place.rstrip("/") + "/") for place in places)
            if chosen:
                yield file


def equivalent_keys():
    """Lines 'KEY' and, indented below each, the reason. 'FILE: LINE => *' stands for every change of the line."""
    if not EQUIVALENT.exists():
        return set()
    lines = EQUIVALENT.read_text(encoding="utf-8").splitlines()
    return {line for line in lines if line and not line.startswith(("#", " "))}


class Tree:
    """A copy of the sources with a build of its own."""

    def __init__(self, name):
        self.source = WORK / name / "tree"
        self.build = WORK / name / "build"
        self.limits = {}  # seconds, per test program

    def prepare(self):
        self.source.mkdir(parents=True, exist_ok=True)
        archive = subprocess.run(["git", "archive", "HEAD"], cwd=ROOT, check=True, capture_output=True).stdout
        listed = subprocess.run(["git", "ls-files"], cwd=ROOT, check=True, capture_output=True, text=True).stdout
        # Only what changed is written, so that only that is compiled again.
        subprocess.run(["rm", "-rf", str(self.source) + ".new"], check=True)
        fresh = pathlib.Path(str(self.source) + ".new")
        fresh.mkdir()
        subprocess.run(["tar", "-x", "-C", str(fresh)], input=archive, check=True)
        for file in listed.split("\n"):
            if file and (fresh / file).is_file():
                target = self.source / file
                content = (fresh / file).read_bytes()
                if not target.exists() or target.read_bytes() != content:
                    target.parent.mkdir(parents=True, exist_ok=True)
                    target.write_bytes(content)
                    target.chmod((fresh / file).stat().st_mode)
        subprocess.run(["rm", "-rf", str(fresh)], check=True)
        subprocess.run(
            ["cmake", "-S", str(self.source), "-B", str(self.build), "-G", "Ninja", "-DCMAKE_CXX_COMPILER=g++",
             "-DCMAKE_BUILD_TYPE=Release", f"-DCMAKE_CXX_FLAGS_RELEASE={FLAGS}", "-DQUORVEX_BUILD_TESTS=ON",
             "-DQUORVEX_TEST_SCENES=OFF"],
            check=True, stdout=subprocess.DEVNULL)

    def compile(self, target):
        run = subprocess.run(["ninja", "-C", str(self.build), "-j", "1", target], capture_output=True, text=True)
        return run.returncode == 0, run.stdout

    def run(self, program, limit):
        """Whether all its tests pass within that many seconds; and the name of one that did not."""
        command = [str(self.build / "tests" / program), "--gtest_brief=1", "--gtest_fail_fast"]
        # What lies outside of the sources is no business of a change: no shared places.
        scratch = self.build / "scratch"
        scratch.mkdir(exist_ok=True)
        environment = dict(os.environ, TMPDIR=str(scratch))
        try:
            run = subprocess.run(command, cwd=self.build, capture_output=True, text=True, errors="replace",
                                 timeout=limit, env=environment)
        except subprocess.TimeoutExpired:
            return False, "ran on"
        failed = re.search(r"\[  FAILED  \] ([\w./]+)", run.stdout)
        return run.returncode == 0, failed.group(1) if failed else f"exit code {run.returncode}"

    def measure(self, programs):
        """Builds and runs the unchanged tests: what passes now, and how long it takes."""
        for program in programs:
            compiled, output = self.compile(program)
            if not compiled:
                sys.exit(f"mutants: {program} does not build:\n{output[-3000:]}")
            began = time.monotonic()
            passed, failed = self.run(program, 900)
            if not passed:
                sys.exit(f"mutants: {program} fails without any change: {failed}")
            self.limits[program] = 20 + 6 * (time.monotonic() - began)

    def judge(self, mutant):
        """'killed', 'survived' or 'invalid', and by what."""
        path = self.source / mutant.file
        original = path.read_text(encoding="utf-8")
        lines = original.split("\n")
        lines[mutant.line - 1] = mutant.changed()
        path.write_text("\n".join(lines), encoding="utf-8")
        try:
            for program in ROOMS[mutant.file.split("/")[0]]:
                compiled, _ = self.compile(program)
                if not compiled:
                    return "invalid", "does not compile"
                passed, by = self.run(program, self.limits[program])
                if not passed:
                    return "killed", by
            return "survived", ""
        finally:
            path.write_text(original, encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("places", nargs="*", default=list(ROOMS), metavar="PLACE", help="folders and files")
    parser.add_argument("--count", type=int, default=100, help="changes to try (default 100)")
    parser.add_argument("--seed", type=int, default=1, help="of the choice of places (default 1)")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="copies that are worked on side by side")
    parser.add_argument("--only", metavar="START", help="only the changes whose FILE:LINE: begins with that")
    parser.add_argument("--list", action="store_true", help="print the changes instead of trying them")
    parser.add_argument("--fail-above", type=float, default=5.0, metavar="PERCENT",
                        help="exit with 1 when more than that many of the changes survive (default 5)")
    options = parser.parse_args()

    known = equivalent_keys()
    places = []
    for file in sources(options.places):
        places += mutants_of(file, (ROOT / file).read_text(encoding="utf-8"))
    if options.only:
        places = [mutant for mutant in places if f"{mutant.file}:{mutant.line}:".startswith(options.only)]
    if not places:
        sys.exit("mutants: nothing to change there")
    if options.list:
        for mutant in places:
            print(mutant)
        return
    if subprocess.run(["git", "diff", "--quiet", "HEAD", "--"] + sorted({m.file for m in places}), cwd=ROOT).returncode:
        sys.exit("mutants: commit first; the last commit is what is tried")
    random.Random(options.seed).shuffle(places)
    chosen = [mutant for mutant in places if not mutant.is_known(known)]
    skipped = 0 if options.only else len(places) - len(chosen)

    trees = queue.Queue()
    rooms = {mutant.file.split("/")[0] for mutant in chosen}
    programs = list(dict.fromkeys(program for room in ROOMS if room in rooms for program in ROOMS[room]))
    for number in range(max(1, options.jobs)):
        tree = Tree(f"copy{number + 1}")
        tree.prepare()
        trees.put(tree)
    print(f"mutants: building and running {' '.join(programs)} as they are", flush=True)
    with concurrent.futures.ThreadPoolExecutor(trees.qsize()) as pool:
        list(pool.map(lambda tree: tree.measure(programs), list(trees.queue)))

    counts = {"killed": 0, "survived": 0, "invalid": 0}
    survivors = []

    def try_one(mutant):
        tree = trees.get()
        try:
            return mutant, tree.judge(mutant)
        finally:
            trees.put(tree)

    with concurrent.futures.ThreadPoolExecutor(trees.qsize()) as pool:
        waiting = iter(chosen)
        running = {pool.submit(try_one, mutant) for mutant, _ in zip(waiting, range(trees.qsize()))}
        while running:
            done, running = concurrent.futures.wait(running, return_when=concurrent.futures.FIRST_COMPLETED)
            for future in done:
                mutant, (verdict, by) = future.result()
                counts[verdict] += 1
                print(f"{verdict:8}  {mutant}{'  by ' + by if verdict == 'killed' else ''}", flush=True)
                if verdict == "survived":
                    survivors.append(mutant)
                judged = counts["killed"] + counts["survived"] + len(running)
                if judged < options.count:
                    following = next(waiting, None)
                    if following:
                        running.add(pool.submit(try_one, following))

    judged = counts["killed"] + counts["survived"]
    if not judged:
        sys.exit("mutants: none of the changes compiled")
    share = 100.0 * counts["survived"] / judged
    print(f"\nmutants: {judged} changes, {counts['killed']} noticed, {counts['survived']} survived ({share:.1f} %); "
          f"{counts['invalid']} did not compile, {skipped} places of {len(places)} are known to change nothing")
    for mutant in survivors:
        print(f"  {mutant.key()}")
    if share > options.fail_above:
        sys.exit(1)


if __name__ == "__main__":
    main()
