"""The page of a run in headless Chromium: its table, the view of a picture, copies and downloads. Run with
Debian's python3-pytest, python3-selenium, chromium and chromium-driver; QUORVEX_COMMAND is the command."""

import csv
import io
import math

import pytest
from selenium.webdriver.common.keys import Keys

TOLERANCE = 0.6  # screen px between a ring and where the list says
DARK_STROKE = 110  # grey levels of the rendered boards
BRIGHT_BOARD = 150


def listed(text: bytes, image: str = "") -> dict:
    """(id, row, col, kind) and place of the points of a table."""
    rows = csv.DictReader(io.StringIO(text.decode()))
    return {(int(r["id"]), int(r["row"]), int(r["col"]), r["kind"]): (float(r["x"]), float(r["y"]))
            for r in rows if r.get("image", "") == image and r["kind"] != "failed"}


def check_rings(page, points) -> None:
    """The rings stand where the list says, in the view that the overlay tells of."""
    view = page.view()
    rings = page.centres()
    assert rings.keys() == points.keys()
    for key, (x, y) in points.items():
        expected = (view["left"] + x * view["scale"], view["top"] + y * view["scale"])
        assert math.dist(rings[key], expected) < TOLERANCE, key


def check_marks_under_rings(page, points) -> None:
    """The picture lies under the rings: a mark that was seen is a dark stroke on the bright board."""
    width, height = page.stage_size()
    checked = 0
    for key, (x, y) in page.centres().items():
        if key[3] != "filled" and 80 < x < width - 80 and 80 < y < height - 80:
            darkest, _ = page.canvas_levels(x, y, 1.5)
            assert darkest < DARK_STROKE, key
            _, brightest = page.canvas_levels(x + 12 * page.view()["scale"], y + 12 * page.view()["scale"], 1)
            assert brightest > BRIGHT_BOARD, key
            checked += 1
    assert checked >= 4


def test_table_has_a_row_for_each_picture(several, open_page):
    page = open_page(several.page)
    assert page.names() == several.names
    assert page.text("#counts").split() == ["\u2713", "2", "good!", "1", "to", "check\u2715", "2", "failed"]
    rows = {row["name"]: row["cells"] for row in page.script(
        "return [...document.querySelectorAll('#pictures tr[data-picture]')].map((row) => ({"
        "name: row.querySelector('a').textContent,"
        "cells: [...row.cells].slice(2).map((cell) => cell.textContent)}))")}
    gaps = listed(several.csv, "gaps.png")
    filled = sum(kind == "filled" for *_, kind in gaps)
    assert rows["gaps.png"][0].endswith("good")
    assert rows["gaps.png"][1] == str(len(gaps) - filled)
    assert rows["gaps.png"][3] == str(filled) == "5"
    assert 0 < float(rows["gaps.png"][4]) < 5
    assert rows["tilted.png"][0].endswith("to check")
    assert rows["dark.png"] == ["\u2715 failed", "\u2013", "\u2013", "\u2013", "\u2013"]
    assert "brighter" in page.text('tr[data-picture="3"] .row-message')


def test_thumbnails_are_decoded(several, open_page):
    page = open_page(several.page)
    widths = "return [...document.querySelectorAll('#pictures img')].map((image) => image.naturalWidth)"
    page.until(lambda: page.script(widths) == [160] * 4)
    assert page.text('tr[data-picture="4"] .no-thumbnail') == "no picture"


def test_rings_stand_where_the_list_says(several, open_page):
    for index, name in enumerate(["whole.png", "gaps.png", "tilted.png"]):
        page = open_page(several.page, f"#picture={index}")
        points = listed(several.csv, name)
        assert len(points) > 40
        check_rings(page, points)
        check_marks_under_rings(page, points)


def test_whole_picture_is_in_view_at_first(several, open_page):
    page = open_page(several.page, "#picture=0")
    width, height = page.stage_size()
    view = page.view()
    left, top = view["left"] - view["scale"] / 2, view["top"] - view["scale"] / 2
    right, bottom = left + 1600 * view["scale"], top + 1200 * view["scale"]
    assert left >= 0 and top >= 0 and right <= width and bottom <= height
    assert min(left, top) < 20, "the picture could be larger"
    assert abs(left - (width - right)) < 1 and abs(top - (height - bottom)) < 1


def test_zooming_and_panning_keep_rings_on_marks(several, open_page):
    page = open_page(several.page, "#picture=0")
    points = listed(several.csv, "whole.png")
    first = page.view()
    page.wheel(300, 200, -240)
    page.wheel(300, 200, -240)
    assert page.view()["scale"] > 1.5 * first["scale"]
    check_rings(page, points)
    page.drag(-90, 60)
    check_rings(page, points)
    check_marks_under_rings(page, points)
    page.click("#zoom-in")
    page.rest()
    check_rings(page, points)
    page.click("#zoom-fit")
    page.rest()
    assert page.view() == pytest.approx(first)


def test_drag_moves_with_the_pointer(several, open_page):
    page = open_page(several.page, "#picture=0")
    page.wheel(500, 300, -800)
    before = page.view()
    page.drag(-70, 45)
    after = page.view()
    assert after["scale"] == before["scale"]
    assert (after["left"] - before["left"], after["top"] - before["top"]) == pytest.approx((-70, 45), abs=0.01)


@pytest.mark.parametrize("amount", [-240, 200])
def test_zoom_keeps_what_is_under_the_pointer(several, open_page, amount):
    page = open_page(several.page, "#picture=0")
    page.wheel(500, 300, -240)
    width, height = page.stage_size()
    key, (x, y) = next((key, place) for key, place in page.centres().items()
                       if place[0] > 0.6 * width and 100 < place[1] < height - 100)
    scale = page.view()["scale"]
    # The pointer stands on a whole pixel, the ring beside it keeps its way from there times the zoom.
    pointer = (round(x - width / 2) + width / 2, round(y - height / 2) + height / 2)
    page.wheel(*pointer, amount)
    zoom = page.view()["scale"] / scale
    assert zoom > 1.3 if amount < 0 else zoom < 0.8
    expected = [p + (c - p) * zoom for p, c in zip(pointer, (x, y))]
    assert math.dist(page.centres()[key], expected) < TOLERANCE


def test_buttons_and_keys_zoom(several, open_page):
    page = open_page(several.page, "#picture=0")
    scales = [page.view()["scale"]]
    for act in [lambda: page.click("#zoom-in"), lambda: page.press("+"), lambda: page.press("-"),
                lambda: page.click("#zoom-out"), lambda: page.press("+"), lambda: page.press("0")]:
        act()
        page.rest()
        scales.append(page.view()["scale"])
    assert scales[0] < scales[1] < scales[2]
    assert scales[3:5] == pytest.approx([scales[1], scales[0]])
    assert scales[5] > scales[0] and scales[6] == pytest.approx(scales[0])


def test_pixels_stay_squares_when_large(several, open_page):
    page = open_page(several.page, "#picture=0")
    key, (x, y) = next((key, place) for key, place in page.centres().items() if key[1:3] == (2, 3))
    page.wheel(x, y, -240)
    for _ in range(9):
        page.wheel(*page.centres()[key], -240)
    scale = page.view()["scale"]
    assert scale > 12
    runs = page.script(
        "const c = document.querySelector('#image'), w = c.width;"
        "const row = c.getContext('2d').getImageData(0, c.height / 2, w, 1).data;"
        "const runs = []; let n = 1;"
        "for (let i = 1; i < w; i++) { if (row[4 * i] === row[4 * i - 4]) n++; else { runs.push(n); n = 1; } }"
        "return runs")
    short = sum(n < math.floor(scale) for n in runs[1:])
    assert len(runs) > 5 and short <= 0.1 * len(runs)


def test_filled_in_points_have_a_shape_of_their_own(several, open_page):
    page = open_page(several.page, "#picture=1")
    shapes = page.script("return [...document.querySelectorAll('#overlay g.point')].map("
                         "(g) => [g.dataset.kind, g.querySelector('.ring').tagName])")
    assert {tuple(shape) for shape in shapes} == {("seen", "circle"), ("filled", "rect")}


def test_disagreements_are_marked_and_listed(several, open_page):
    page = open_page(several.page, "#picture=2")
    marks = page.script("return [...document.querySelectorAll('#overlay .disagreement')].map("
                        "(g) => [g.dataset.what, g.querySelector('text').textContent])")
    assert ["lost", "lost"] in marks and ["label", "wrong label"] in marks
    buttons = page.all("#disagreements button")
    assert len(buttons) == len(marks)
    before = page.view()
    buttons[0].click()
    page.rest()
    assert page.view()["scale"] > before["scale"]
    width, height = page.stage_size()
    box = page.script("const b = document.querySelector('#overlay .disagreement .ink:not([d^=M0])')"
                      ".getBoundingClientRect(), s = document.querySelector('#stage').getBoundingClientRect();"
                      "return [b.x + b.width / 2 - s.x, b.y + b.height / 2 - s.y]")
    assert math.dist(box, (width / 2, height / 2)) < 40


def test_arrows_have_the_chosen_magnification(several, open_page):
    page = open_page(several.page, "#picture=0")
    length = ("const shafts = document.querySelector('#overlay .arrows .ink').getAttribute('d')"
              ".matchAll(/M(\\S+) (\\S+)L(\\S+) ([^ML]+)M/g);"
              "return Math.max(...[...shafts].map(([, x, y, tipX, tipY]) => Math.hypot(tipX - x, tipY - y)))")
    worst = float(page.text("#picture-figures").split("worst residual ")[1].split(" ")[0])
    chosen = int(page.text("#arrow-size ~ output").rstrip("\u00d7"))
    assert page.script(length) == pytest.approx(worst * chosen * page.view()["scale"], rel=0.02)
    page.find("#arrow-size").send_keys(Keys.ARROW_LEFT)
    fewer = int(page.text("#arrow-size ~ output").rstrip("\u00d7"))
    assert fewer < chosen
    assert page.script(length) == pytest.approx(worst * fewer * page.view()["scale"], rel=0.02)


def test_colour_by_covariance_has_ellipses_and_a_legend(precise, open_page):
    page = open_page(precise.page, "#picture=0")
    colours = "return [...document.querySelectorAll('#overlay .ring')].map((r) => getComputedStyle(r).stroke)"
    shown = "return document.querySelector('#overlay .ellipses').checkVisibility({checkOpacity: true})"
    by_residual = page.script(colours)
    assert len(set(by_residual)) > 5
    assert not page.script("return !!document.querySelector('#ellipse-size')")
    page.click("#settings input[value=covariance]")
    assert page.script(colours) != by_residual
    assert "standard deviation" in page.text(".colour-legend figcaption")
    assert "px" in page.text(".ticks")
    row = next(csv.DictReader(io.StringIO(precise.csv.decode())))
    xx, xy, yy = (float(row[name]) for name in ("cxx", "cxy", "cyy"))
    longer = math.sqrt((xx + yy) / 2 + math.hypot((xx - yy) / 2, xy))
    times = int(page.text("#ellipse-size ~ output").rstrip("\u00d7"))
    radius = float(page.script("return /a(\\S+) /.exec("
                               "document.querySelector('#overlay .ellipses .ink').getAttribute('d'))[1]"))
    assert radius == pytest.approx(longer * times * page.view()["scale"], rel=0.01)
    assert page.script(shown)
    page.click("#settings input[value=residual]")
    assert page.script(colours) == by_residual


def test_layers_can_be_hidden(several, open_page):
    page = open_page(several.page, "#picture=2")
    shown = ("return [...document.querySelectorAll('#overlay > g > g')]"
             ".filter((g) => getComputedStyle(g).display !== 'none').length")
    count = page.script(shown)
    boxes = page.all("#settings input[type=checkbox]")
    assert len(boxes) == count == 5
    for n, box in enumerate(boxes, start=1):
        box.click()
        assert page.script(shown) == count - n


def test_labels_can_be_chosen(several, open_page):
    page = open_page(several.page, "#picture=0")
    labels = "return [...document.querySelectorAll('#overlay .point .label')].map((label) => label.textContent)"
    points = listed(several.csv, "whole.png")
    assert page.script(labels) == [str(key[0]) for key in points]
    page.click("#settings input[value=place]")
    assert page.script(labels) == [f"{key[1]},{key[2]}" for key in points]


def test_pointer_tells_its_place_and_the_point_under_it(several, open_page):
    page = open_page(several.page, "#picture=0")
    key, (x, y) = next(iter(page.centres().items()))
    page.point_at(x, y)
    place = page.text("#pointer-place")
    px, py = listed(several.csv, "whole.png")[key]
    shown = place.split()
    pixel = 1 / page.view()["scale"]
    assert abs(float(shown[1]) - px) < pixel and abs(float(shown[3]) - py) < pixel
    assert f"point {key[0]}, row {key[1]}, column {key[2]}" in place
    page.press(Keys.ARROW_RIGHT)
    page.rest()
    moved = page.text("#pointer-place")
    assert float(moved.split()[1]) == pytest.approx(float(shown[1]) + 60 * pixel, abs=0.2)
    page.point_at(x + 30, y + 30)
    assert "point" not in page.text("#pointer-place")
    page.browser.execute_cdp_cmd("Input.dispatchMouseEvent", {"type": "mouseMoved", "x": 2, "y": 2})
    page.until(lambda: page.text("#pointer-place") == "")


@pytest.mark.parametrize("theme", ["light", "dark"])
@pytest.mark.parametrize("width", [400, 1600])
def test_nothing_is_wider_than_the_window(several, open_page, browser, theme, width):
    browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                            {"width": width, "height": 800, "deviceScaleFactor": 1, "mobile": width < 500})
    browser.execute_cdp_cmd("Emulation.setEmulatedMedia",
                            {"features": [{"name": "prefers-color-scheme", "value": theme}]})
    try:
        for fragment in ["", "#picture=0", "#picture=2", "#picture=3"]:
            page = open_page(several.page, fragment)
            root = "const r = document.documentElement; return "
            assert page.script(root + "r.dataset.theme") == theme
            assert page.script("return innerWidth") == width
            assert page.script(root + "r.scrollWidth <= r.clientWidth"), fragment
            outside = page.script(
                "return [...document.querySelectorAll('button, a, h2, h3, p, dd, td, label')].filter((e) => {"
                "const b = e.getBoundingClientRect();"
                "return b.width && !e.closest('.strip, .visually-hidden')"
                "  && (b.left < -0.5 || b.right > innerWidth + 0.5); }).map((e) => e.outerHTML)")
            assert outside == []
    finally:
        browser.execute_cdp_cmd("Emulation.clearDeviceMetricsOverride", {})
        browser.execute_cdp_cmd("Emulation.setEmulatedMedia", {"features": []})


def test_theme_can_be_chosen(several, open_page):
    page = open_page(several.page)
    ground = "return getComputedStyle(document.body).backgroundColor"
    seen = []
    for _ in range(3):
        seen.append((page.text("#theme"), page.script(ground)))
        page.click("#theme")
    assert [text for text, _ in seen] == ["Theme: system", "Theme: light", "Theme: dark"]
    assert seen[1][1] != seen[2][1]


def test_keys_zoom_about_the_selected_point(several, open_page):
    page = open_page(several.page, "#picture=0")
    page.press("n")
    first = page.centres()[(1, 0, 0, "seen")]
    page.press("+")
    page.rest()
    assert math.dist(page.centres()[(1, 0, 0, "seen")], first) < TOLERANCE


def test_double_click_zooms_at_the_pointer(several, open_page):
    page = open_page(several.page, "#picture=0")
    scale = page.view()["scale"]
    x, y = page.centres()[(1, 0, 0, "seen")]
    page.double_click(x, y)
    assert page.view()["scale"] == pytest.approx(2.5 * scale)
    assert math.dist(page.centres()[(1, 0, 0, "seen")], (x, y)) < 2 * 2.5  # the pointer is up to a pixel beside it


def test_two_fingers_zoom_and_move(several, open_page):
    page = open_page(several.page, "#picture=0")
    scale = page.view()["scale"]
    x, y = page.centres()[(20, 2, 3, "seen")]
    for step in range(6):
        reach = 40 + 16 * step
        page.touch("touchStart" if step == 0 else "touchMove", [(x - reach, y + 5 * step), (x + reach, y + 5 * step)])
    page.touch("touchEnd", [])
    page.rest()
    assert page.view()["scale"] == pytest.approx(3 * scale, rel=0.02)
    assert math.dist(page.centres()[(20, 2, 3, "seen")], (x, y + 25)) < 4
    assert page.find("#copy-point").is_enabled() is False, "a pinch is no click"
