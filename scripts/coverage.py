#!/usr/bin/env python3
"""Says which branches of the library and the direct detector no test takes.

  scripts/coverage.py              builds in build/coverage, runs tests and corpora, prints a table and what is left
  scripts/coverage.py --no-run     prints them again

Counts the branches that gcov sees without optimisation, but for those that are taken when something throws: which
allocation fails is what tests/faults/ goes through. A branch of a header or a template counts as taken when one of
the sources that hold it takes it. Ends with 1 when less than 95 % are taken.
"""

import argparse
import collections
import json
import os
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "coverage"
ROOMS = ["base", "imageio", "preprocess", "crossmark", "grid", "postprocess", "interface", "platform", "precise"]
PROGRAMS = [room + "_tests" for room in ROOMS] + [
    "c_interface_tests", "faults_tests", "precise_memory_tests", "road_tests", "direct_road_tests"]
# Without optimisation the direct detector takes minutes to lose every kind of memory, and takes no other branches.
LEFT_OUT = "--gtest_filter=-PreciseAllocations.*:CAllocations.*"
CORPORA = ["read_image", "image_stages", "mark_stages", "grid_stages", "point_editing", "detection", "precise"]


def build_and_run():
    subprocess.run(["scripts/setup.sh", "--tests"], cwd=ROOT, check=True)
    subprocess.run(
        ["cmake", "-S", str(ROOT), "-B", str(BUILD), "-G", "Ninja", "-DCMAKE_CXX_COMPILER=g++", "-DCMAKE_BUILD_TYPE=Debug",
         "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -g1 --coverage", "-DQUORVEX_BUILD_TESTS=ON", "-DQUORVEX_TEST_SCENES=OFF"],
        check=True, stdout=subprocess.DEVNULL)
    targets = PROGRAMS + ["fuzz_" + name for name in CORPORA]
    subprocess.run(["cmake", "--build", str(BUILD), "--target"] + targets, check=True, stdout=subprocess.DEVNULL)
    for counts in BUILD.rglob("*.gcda"):
        counts.unlink()
    for program in PROGRAMS:
        print(f"coverage: {program}", flush=True)
        subprocess.run([str(BUILD / "tests" / program), "--gtest_brief=1", LEFT_OUT], cwd=BUILD, check=True,
                       stdout=subprocess.DEVNULL)
    for name in CORPORA:
        print(f"coverage: corpus of {name}", flush=True)
        subprocess.run([str(BUILD / "fuzz" / name), str(ROOT / "fuzz" / "corpus" / name)], cwd=BUILD, check=True,
                       stdout=subprocess.DEVNULL)


def branches_taken():
    """{source: {line: {number of the branch: taken}}}, of the sources of the rooms."""
    taken = collections.defaultdict(lambda: collections.defaultdict(lambda: collections.defaultdict(bool)))
    objects = sorted(str(path) for path in BUILD.rglob("*.gcda") if "_objects.dir" in str(path))
    if not objects:
        sys.exit("coverage: no counts in build/coverage; run it without --no-run")
    for counts in objects:
        run = subprocess.run(["gcov", "--branch-probabilities", "--json-format", "--stdout", counts], cwd=BUILD,
                             check=True, capture_output=True, text=True)
        for source in (entry for text in run.stdout.splitlines() for entry in json.loads(text)["files"]):
            path = pathlib.Path(os.path.normpath(BUILD / source["file"]))
            if not path.is_relative_to(ROOT) or path.relative_to(ROOT).parts[0] not in ROOMS:
                continue
            # The same line of two functions, as of a template for two types, is one place.
            for line in source["lines"]:
                numbers = (branch for branch in line["branches"] if not branch["throw"])
                for number, branch in enumerate(numbers):
                    taken[str(path.relative_to(ROOT))][line["line_number"]][number] |= branch["count"] > 0
    return taken


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--no-run", action="store_true", help="of the last run, without another")
    parser.add_argument("--fail-below", type=float, default=95.0, metavar="PERCENT")
    options = parser.parse_args()
    if not options.no_run:
        build_and_run()

    taken = branches_taken()
    totals = collections.defaultdict(lambda: [0, 0])
    for source in sorted(taken):
        text = (ROOT / source).read_text(encoding="utf-8").splitlines()
        for line, branches in sorted(taken[source].items()):
            for total in (totals[source.split("/")[0]], totals["all"]):
                total[0] += sum(branches.values())
                total[1] += len(branches)
            if not all(branches.values()):
                missing = len(branches) - sum(branches.values())
                print(f"{source}:{line}: {missing} of {len(branches)} not taken: {text[line - 1].strip()}")
    for room in [room for room in ROOMS if room in totals] + ["all"]:
        count, of = totals[room]
        print(f"{room:12} {count:6} of {of:6} branches  {100.0 * count / max(of, 1):5.1f} %")
    if 100.0 * totals["all"][0] < options.fail_below * totals["all"][1]:
        sys.exit(f"coverage: less than {options.fail_below:g} %")


if __name__ == "__main__":
    main()
