"""Every relative link and anchor of the pages leads somewhere; nothing is asked of a network.

check_links.py PAGE.md...          pages as they stand in the sources
check_links.py --site FOLDER       the HTML of the built site, which also loads nothing from elsewhere"""

import re
import sys
from html.parser import HTMLParser
from pathlib import Path
from urllib.parse import unquote, urlsplit

from markdown_page import read_page

LINK = re.compile(r"!?\[[^\]]*\]\(([^)\s]+)[^)]*\)|<(?:img|a)\b[^>]*?\b(?:src|href)=\"([^\"]*)\"")
LOADING = {"script": "src", "img": "src", "link": "href", "iframe": "src", "source": "src", "object": "data"}


def anchor(heading: str) -> str:
    """The name that the site gives a heading."""
    words = re.sub(r"[^\w\s-]", "", re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading)).strip().lower()
    return re.sub(r"[-\s]+", "-", words)


def page_faults(page: Path) -> list:
    faults = []
    for line, text in read_page(page).prose:
        for found in LINK.finditer(re.sub(r"`[^`]*`", "``", text)):
            target = found.group(1) or found.group(2)
            parts = urlsplit(target)
            if parts.scheme or parts.netloc:
                continue
            file = page.parent / unquote(parts.path) if parts.path else page
            if not file.exists():
                faults.append(f"{page}:{line}: {target} is not there")
            elif parts.fragment and parts.fragment not in [anchor(h) for h in read_page(file).headings]:
                faults.append(f"{page}:{line}: {target}: no such heading")
    return faults


class HtmlPage(HTMLParser):
    """The links of an HTML page, its names, and what it loads."""

    def __init__(self, path: Path):
        super().__init__()
        self.links, self.names, self.loaded = [], set(), []
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attrs):
        values = dict(attrs)
        self.names.update(values[key] for key in ("id", "name") if values.get(key))
        if tag == "a" and values.get("href"):
            self.links.append(values["href"])
        isCanonical = tag == "link" and values.get("rel") in ("canonical", "next", "prev")
        if tag in LOADING and values.get(LOADING[tag]) and not isCanonical:
            self.loaded.append(values[LOADING[tag]])


def site_faults(site: Path) -> list:
    faults = []
    pages = {path.resolve(): HtmlPage(path) for path in sorted(site.rglob("*.html"))}
    for path, page in pages.items():
        if path.name == "404.html":  # the server shows it anywhere, so that its links begin at the root
            continue
        for target in page.links + page.loaded:
            parts = urlsplit(target)
            if parts.scheme == "data":
                continue
            if parts.scheme or parts.netloc:
                if target in page.loaded:
                    faults.append(f"{path}: {target} is loaded from elsewhere")
                continue
            file = (path.parent / unquote(parts.path)).resolve() if parts.path else path
            file = file / "index.html" if file.is_dir() else file
            if not file.exists():
                faults.append(f"{path}: {target} is not there")
            elif file in pages and parts.fragment and unquote(parts.fragment) not in pages[file].names:
                faults.append(f"{path}: {target}: no such place")
    for path in sorted(site.rglob("*.css")):
        for target in re.findall(r"(?:url\(|@import\s+)[\"']?((?:https?:)?//[^\"')]+)", path.read_text(encoding="utf-8")):
            faults.append(f"{path}: {target} is loaded from elsewhere")
    return faults if pages else [f"{site}: no pages"]


def main() -> int:
    if sys.argv[1] == "--site":
        faults = site_faults(Path(sys.argv[2]))
    else:
        faults = [fault for page in sys.argv[1:] for fault in page_faults(Path(page))]
    for fault in faults:
        print(fault, file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
