"""Every test that a page names, such as `Suite.Test` or `Suite.*`, is one that ctest runs.

check_named_tests.py BUILD_FOLDER PAGE
"""

import fnmatch
import pathlib
import re
import subprocess
import sys

# Suites begin with a capital; names of files have a small ending.
NAMED = re.compile(r"`((?:\w+/)?[A-Z]\w+\.(?:[A-Z][\w/]*|[a-z]\w*(?=`)|\*))`")


def without_parameters(test):
    """Of a test with parameters a page leaves out the group before the suite and the value behind the test."""
    return re.sub(r"^\w+/|(?<=\w)/.*$", "", test)


def named_tests(text):
    return sorted(set(NAMED.findall(text)))


def missing_tests(text, tests):
    """Those that a page's text names and that are not among `tests`, as ctest lists them."""
    known = set(tests) | {without_parameters(test) for test in tests}
    return [name for name in named_tests(text) if not fnmatch.filter(known, name)]


def main():
    build, page = sys.argv[1:]
    listed = subprocess.run(["ctest", "--test-dir", build, "--show-only"], check=True, capture_output=True, text=True)
    text = pathlib.Path(page).read_text(encoding="utf-8")
    missing = missing_tests(text, re.findall(r"Test +#\d+: (\S+)", listed.stdout))
    for name in missing:
        print(f"{page}: there is no test {name}")
    named = named_tests(text)
    if not named:
        print(f"{page} names no test")
    if missing or not named:
        sys.exit(1)
    print(f"{page}: all {len(named)} tests and suites are there")


if __name__ == "__main__":
    main()
