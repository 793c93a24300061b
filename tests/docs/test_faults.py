"""What is wrong on a page is found: each fault stands on a page of its own."""

import os
import sys
import tempfile
from pathlib import Path

from check_links import anchor, page_faults
from check_named_tests import missing_tests
from run_listings import run_page

WRONG_LISTINGS = {
    "a command fails": "```sh\nfalse\n```\n",
    "a command of a pipe fails": "```sh\nfalse | cat\n```\n",
    "a variable is not set": '```sh\necho "$nothing"\n```\n',
    "another number": "```sh\necho 1.5\n```\n\n```text\n1.4\n```\n",
    "a line too many": "```sh\necho 1\necho 2\n```\n\n```text\n1\n```\n",
    "nothing prints the text": "# Title\n\n```text\n1\n```\n",
    "printed under another heading": "```sh\necho 1\n```\n\n# Title\n\n```text\n1\n```\n",
    "an unknown language": "```ruby\nputs 1\n```\n",
    "a listing without fences": "Do\n\n    rm board.bmp\n\nand go on.\n",
    "a mark before no block": "<!-- not run: it takes long -->\n\nText.\n",
    "a block without an end": "```sh\ntrue\n",
    "Python fails": "```python\nraise SystemExit(3)\n```\n",
    "C++ does not compile": "```cpp\nint main() { return nothing; }\n```\n",
    "C++ fails": "```cpp\nint main() { return 1; }\n```\n",
    "C++ that is no program": "```cpp\nint Twice(int x);\n```\n",
    "a file that nothing uses": '```cpp title="host.cpp"\nint main() {}\n```\n',
    "no such lines in the sources": '```cpp title="examples/detect_points.cpp"\nint Twice(int x);\n```\n',
}

RIGHT_LISTINGS = {
    "lines left out": "```sh\nseq 9\n```\n\n```text\n1\n...\n9\n```\n",
    "standard error, too": "```sh\necho 1 >&2\necho 2\n```\n\nprints\n\n```text\n1\n2\n```\n",
    "blocks of one shell": "```sh\nmkdir a && cd a && number=5\n```\n\nThen\n\n```sh\nbasename $PWD$number\n```\n\n```text\na5\n```\n",
    "a program": '```cpp\n#include <cstdio>\nint main() { std::puts("1"); }\n```\n\n```text\n1\n```\n',
    "a file for later": '```c title="host.c"\nint main(void) { return 0; }\n```\n\n```sh\ncc host.c -o host && ./host\n```\n',
    "marked": "<!-- not run: it needs another system -->\n\n```bat\ndir\n```\n",
    "the build": "```sh\nls README.md build/release/quorvex\n```\n\n```text\nREADME.md\nbuild/release/quorvex\n```\n",
}

WRONG_LINKS = ["[a](nothing.md)", "[a](#nothing)", "[a](other.md#nothing)", "![a](nothing.png)", '<img src="nothing.png">']
RIGHT_LINKS = ["[a](other.md)", "[a](#two-words-here)", "[a](other.md#there)", "[a](https://example.org/nothing)"]

TESTS = ["Layout.IncludesRunOneWay", "Files/HostileBmp.IsRefused/ZeroWidth"]
WRONG_TESTS = ["`Layout.Nothing`", "`Nothing.*`", "`HostileBmp.Nothing`"]
RIGHT_TESTS = ["`Layout.IncludesRunOneWay`", "`Layout.*`", "`HostileBmp.IsRefused`", "`HostileBmp.*`", "`page.md`, `std::bad_alloc`"]


def main() -> int:
    faults = []
    with tempfile.TemporaryDirectory() as name:
        page = Path(name) / "page.md"
        for what, text in {**WRONG_LISTINGS, **RIGHT_LISTINGS}.items():
            page.write_text(text, encoding="utf-8")
            if bool(run_page(page)) != (what in WRONG_LISTINGS):
                faults.append(what)
        (Path(name) / "other.md").write_text("# There\n", encoding="utf-8")
        for link in WRONG_LINKS + RIGHT_LINKS:
            page.write_text(f"# Two words, here\n\nText {link}.\n", encoding="utf-8")
            if bool(page_faults(page)) != (link in WRONG_LINKS):
                faults.append(link)
    for text in WRONG_TESTS + RIGHT_TESTS:
        if bool(missing_tests(text, TESTS)) != (text in WRONG_TESTS):
            faults.append(text)
    if anchor("`-j` and C++: 2 words") != "-j-and-c-2-words":
        faults.append("anchor: " + anchor("`-j` and C++: 2 words"))
    for fault in faults:
        print(f"not judged rightly: {fault}", file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    os.umask(0o077)
    sys.exit(main())
