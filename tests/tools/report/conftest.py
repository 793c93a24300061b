"""Runs of the command and browsers, made once for all tests of the report page. QUORVEX_COMMAND is the
command."""

import os
import shlex
import subprocess

import pytest

from report_browser import ReportPage, start_browser

HUNDRED = 100


def command(*arguments: str, cwd, expected: int = 0) -> bytes:
    """What a run of the command prints."""
    run = subprocess.run([*shlex.split(os.environ["QUORVEX_COMMAND"]), *arguments], cwd=cwd,
                         stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
    assert run.returncode == expected, run.stderr.decode(errors="replace")
    return run.stdout


class Run:
    """One run with its page and what it printed."""

    def __init__(self, folder, names, *options, expected=0):
        self.folder = folder
        self.names = names
        self.csv = command("detect", *names, "--report", "report", *options, cwd=folder, expected=expected)
        self.page = folder / "report" / "index.html"

    def csv_of(self, name, *options) -> bytes:
        """The list of one picture alone."""
        return command("detect", name, *options, cwd=self.folder)


def render(folder, name, *options) -> str:
    (folder / name).parent.mkdir(parents=True, exist_ok=True)
    command("render", "--output", "board.png", "--truth", "truth.csv", "--quiet", *options, cwd=folder)
    (folder / "board.png").rename(folder / name)
    return name


@pytest.fixture(scope="session")
def pictures(tmp_path_factory):
    """A folder with a board that is found, one with gaps, one that disagrees, a dark one, and no picture."""
    folder = tmp_path_factory.mktemp("pictures")
    render(folder, "whole.png", "--preset", "easy")
    render(folder, "gaps.png", "--preset", "dropped")
    render(folder, "tilted.png", "--missing", "0,0", "--missing", "0,1", "--missing", "1,0", "--tilt-x", "30")
    render(folder, "dark.png", "--preset", "easy", "--board-level", "70")
    (folder / "broken.png").write_text("no picture")
    return folder


@pytest.fixture(scope="session")
def several(pictures, tmp_path_factory):
    return Run(linked(pictures, tmp_path_factory), ["whole.png", "gaps.png", "tilted.png", "dark.png", "broken.png"],
               expected=2)


@pytest.fixture(scope="session")
def precise(pictures, tmp_path_factory):
    return Run(linked(pictures, tmp_path_factory), ["whole.png", "gaps.png", "broken.png"], "--precise", "--predict",
               expected=2)


@pytest.fixture(scope="session")
def single(pictures, tmp_path_factory):
    return Run(linked(pictures, tmp_path_factory), ["gaps.png"])


@pytest.fixture(scope="session")
def hundred(pictures, tmp_path_factory):
    """One hundred pictures of three kinds; the names count backwards."""
    folder = tmp_path_factory.mktemp("hundred")
    names = [f"board{HUNDRED - i}.png" for i in range(HUNDRED)]
    for i, name in enumerate(names):
        source = {10: "dark.png", 20: "tilted.png", 30: "gaps.png"}.get(i, "whole.png")
        (folder / name).symlink_to(pictures / source)
    return Run(folder, names, "-j", "2", expected=1)


@pytest.fixture(scope="session")
def hostile_names(pictures, tmp_path_factory):
    """Pictures whose names are markup, quotes, Chinese, and a folder that ends a script."""
    folder = tmp_path_factory.mktemp("names")
    names = ['<img src=x onerror="window.hacked=1">.png', "a\"b'c, d.png", "棋盘 标定.png",
             "</script><script>window.hacked=1</script>.png"]
    for name in names:
        path = folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.symlink_to(pictures / ("dark.png" if name.startswith("<img") else "whole.png"))
    return Run(folder, names, expected=1)


def linked(pictures, tmp_path_factory):
    folder = tmp_path_factory.mktemp("run")
    for picture in pictures.glob("*.png"):
        (folder / picture.name).symlink_to(picture)
    return folder


@pytest.fixture(scope="session")
def downloads(tmp_path_factory):
    return tmp_path_factory.mktemp("downloads")


@pytest.fixture(scope="session")
def browser(downloads):
    made = start_browser(downloads)
    yield made
    made.quit()


@pytest.fixture
def open_page(browser):
    """Opens pages; a test whose pages complain on the console fails."""
    pages = []

    def opened(path, fragment=""):
        if pages:
            assert pages[-1].severe_log() == []
        pages.append(ReportPage(browser, path, fragment))
        return pages[-1]

    yield opened
    assert not pages or pages[-1].severe_log() == []
