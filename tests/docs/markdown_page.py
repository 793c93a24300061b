"""The parts of a Markdown page that the tests of the pages look at: fenced blocks, links, headings."""

import re
from dataclasses import dataclass, field
from pathlib import Path

FENCE = re.compile(r"^(```+)\s*([\w+-]*)\s*(.*)$")
NOT_RUN = re.compile(r"^<!-- not run: (.+) -->$")
TITLE = re.compile(r'title="([^"]*)"')
HEADING = re.compile(r"^(#+)\s+(.*?)\s*$")


@dataclass
class Block:
    line: int  # of the opening fence, from 1
    language: str
    text: str
    title: str = ""  # the file's name
    reason: str = ""  # why it is not run
    section: int = 0  # how many headings stand above


@dataclass
class Page:
    blocks: list = field(default_factory=list)
    prose: list = field(default_factory=list)  # (line, text) outside of blocks and comments
    headings: list = field(default_factory=list)
    faults: list = field(default_factory=list)


def is_listing_by_indent(before: list, line: str) -> bool:
    """Four blanks after an empty line begin a code block, unless they go on with an entry of a list."""
    if not line.startswith("    ") or not line.strip() or (before and before[-1].strip()):
        return False
    above = next((old for old in reversed(before) if old.strip()), "")
    return not re.match(r"\s*([-*]|\d+\.)\s|\s+\S", above)


def read_page(path: Path) -> Page:
    page = Page()
    block = None
    reason = ""
    before = []  # lines outside of blocks
    lines = path.read_text(encoding="utf-8").split("\n")
    for number, line in enumerate(lines, 1):
        fence = FENCE.match(line.strip()) if block is None or line.strip() == "```" else None
        if block is not None:
            if fence:
                page.blocks.append(block)
                block = None
                before = []
            else:
                block.text += line + "\n"
        elif fence:
            title = TITLE.search(fence.group(3))
            block = Block(number, fence.group(2), "", title.group(1) if title else "", reason, len(page.headings))
            reason = ""
        else:
            marked = NOT_RUN.match(line.strip())
            if reason and line.strip():
                page.faults.append(f"line {number}: 'not run' stands before no block")
                reason = ""
            if marked:
                reason = marked.group(1)
            elif is_listing_by_indent(before, line):
                page.faults.append(f"line {number}: a listing without fences, which no test runs")
            else:
                page.prose.append((number, line))
                heading = HEADING.match(line)
                if heading:
                    page.headings.append(heading.group(2))
            before.append(line)
    if block is not None:
        page.faults.append(f"line {block.line}: the block does not end")
    if reason:
        page.faults.append("'not run' stands before no block")
    return page
