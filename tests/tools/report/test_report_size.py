"""How large the page of many pictures is that do not fit into it whole, and whether a browser still shows it."""

import pytest

from conftest import HUNDRED, Run, render

MOST_BYTES = 60_000_000
KINDS = 4


@pytest.fixture(scope="module")
def hundred_large(tmp_path_factory):
    """One hundred pictures of 4 megapixels, of four kinds that differ in their noise, which no JPEG makes small."""
    folder = tmp_path_factory.mktemp("large")
    boards = [render(folder, f"board-{i}.png", "--preset", "fisheye", "--noise", "2", "--seed", str(i))
              for i in range(KINDS)]
    names = [f"picture-{i}.png" for i in range(HUNDRED)]
    for i, name in enumerate(names):
        (folder / name).symlink_to(folder / boards[i % KINDS])
    return Run(folder, names, "-j", "2", "--no-check")


def test_hundred_large_pictures(hundred_large, open_page):
    size = hundred_large.page.stat().st_size
    assert size < MOST_BYTES
    # More would fit a page of half the size: what there is room for is used.
    assert size > MOST_BYTES / 2
    page = open_page(hundred_large.page, "#picture=99")
    assert page.text("#picture-name") == "picture-99.png"
    assert len(page.centres()) == 81
    page.click("#to-table")
    page.until(lambda: len(page.names()) == HUNDRED)
