"""What a person does with the page of a run, in headless Chromium: finds pictures, walks by keyboard, copies
and saves; and pages of failed, empty, large and strangely named runs."""

import math

import pytest
from selenium.webdriver.common.keys import Keys

from report_browser import downloaded, edited_copy

FOCUSED = "return document.activeElement.id || document.activeElement.textContent"


def sort_by(page, title: str) -> str:
    """Clicks a header; the new order of the column."""
    return page.script(
        "const th = [...document.querySelectorAll('#pictures th')].find((t) => t.textContent.startsWith("
        "arguments[0])); th.querySelector('button').click(); return th.getAttribute('aria-sort')", title)


def test_every_column_sorts_both_ways(hundred, open_page):
    page = open_page(hundred.page)
    natural = sorted(hundred.names, key=lambda name: int(name[5:-4]))
    assert page.names() == hundred.names
    assert sort_by(page, "Name") == "ascending"
    assert page.names() == natural
    assert sort_by(page, "Name") == "descending"
    assert page.names() == natural[::-1]
    assert sort_by(page, "Verdict") == "ascending"
    assert page.names()[:2] == [hundred.names[10], hundred.names[20]]
    assert sort_by(page, "Found") == "descending"
    assert page.names()[:2] == [hundred.names[30], hundred.names[20]]
    assert sort_by(page, "Filled in") == "descending"
    assert page.names()[0] == hundred.names[30]
    assert sort_by(page, "Missing") == "descending"
    assert page.names()[0] == hundred.names[20]
    for order in ["descending", "ascending"]:
        assert sort_by(page, "Worst residual") == order
        worst = page.script("return [...document.querySelectorAll('#pictures tr[data-picture]')]"
                            ".map((row) => row.cells[6].textContent)")
        assert worst[-1] == "\u2013", "what is not known comes last"
        figures = [float(text) for text in worst[:-1]]
        assert figures == sorted(figures, reverse=order == "descending") and len(figures) == 99
    assert sort_by(page, "Picture") == "ascending"
    assert page.names() == hundred.names
    assert len(page.all("#pictures th[aria-sort=ascending], #pictures th[aria-sort=descending]")) == 1


def test_filters_by_text_and_verdict(hundred, open_page):
    page = open_page(hundred.page)
    assert page.text("#shown-count") == "100 pictures"
    page.find("#text-filter").send_keys("BOARD9")
    assert sorted(page.names()) == sorted(name for name in hundred.names if name.startswith("board9"))
    assert page.text("#shown-count") == "11 of 100 pictures"
    page.find("#text-filter").clear()
    for verdict, expected in [("failed", [hundred.names[10]]), ("check", [hundred.names[20]])]:
        page.click(f"#verdict-filter option[value={verdict}]")
        assert page.names() == expected
    page.find("#text-filter").send_keys("nothing like it")
    assert page.names() == []
    assert page.text("#no-rows") == "No picture is like that."
    page.find("#text-filter").clear()
    page.click("#verdict-filter option[value='']")
    assert page.names() == hundred.names


def test_counts_of_a_hundred_pictures(hundred, open_page):
    page = open_page(hundred.page)
    assert page.script("return [...document.querySelectorAll('#counts span')].map((s) => s.textContent)") == [
        "\u2713 98 good", "! 1 to check", "\u2715 1 failed"]


def test_hundred_pictures_open_one_after_the_other(hundred, open_page):
    page = open_page(hundred.page, "#picture=97")
    for index in [98, 99]:
        page.press("]")
        page.until(lambda: page.text("#picture-name") == hundred.names[index])
        page.settle()
        assert len(page.centres()) == 48
    page.press("]")
    assert page.text("#picture-name") == hundred.names[99]
    assert page.script("return document.querySelector('#next-picture').hasAttribute('href')") is False
    page.press("[")
    page.until(lambda: page.text("#picture-name") == hundred.names[98])
    page.browser.back()
    page.until(lambda: page.text("#picture-name") == hundred.names[99])


def test_run_of_one_picture(single, open_page, downloads):
    page = open_page(single.page)
    assert page.names() == ["gaps.png"]
    assert downloaded(page, downloads, "#download-run-csv") == single.csv
    page.click("#pictures tr[data-picture='0']")
    page.until(lambda: page.text("#picture-name") == "gaps.png")
    page.settle()
    assert len(page.centres()) == 81
    assert downloaded(page, downloads, "#download-picture-csv") == single.csv


def test_downloads_are_what_the_command_writes(several, open_page, downloads):
    page = open_page(several.page)
    assert several.csv.endswith(b"broken.png,,,,,,failed\n")
    assert downloaded(page, downloads, "#download-run-csv") == several.csv
    for index in [0, 2]:
        page = open_page(several.page, f"#picture={index}")
        assert downloaded(page, downloads, "#download-picture-csv") == several.csv_of(several.names[index], "-q")


def test_downloads_of_the_direct_detection(precise, open_page, downloads):
    page = open_page(precise.page)
    assert b"predicted" in precise.csv and precise.csv.endswith(b"broken.png,,,,,,failed,,,\n")
    assert downloaded(page, downloads, "#download-run-csv") == precise.csv
    page = open_page(precise.page, "#picture=1")
    assert downloaded(page, downloads, "#download-picture-csv") == precise.csv_of("gaps.png", "--precise", "--predict")


def test_numbers_are_rounded_as_the_command_does(single, open_page, downloads, tmp_path):
    # Half way between two texts of nine digits, and numbers that need an exponent.
    numbers = [1234.015625, 1234.046875, 123.0078125, -0.0, 0.5, 1e-5, 123456789.5, 1234567890.0, 999999999.5,
               -12.25, 1e-300, 100.0]

    def edit(run, pictures):
        run["columns"] += ["cxx", "cxy", "cyy"]
        for point, number in zip(pictures[0]["points"], numbers):
            point.update(x=number, y=-number, covariance=[number, 1.0000005, 3.5])
        del pictures[0]["points"][len(numbers):]

    page = open_page(edited_copy(single.page, tmp_path, edit))
    rows = downloaded(page, downloads, "#download-run-csv").decode().split("\n")
    for row, number in zip(rows[1:], numbers):
        assert row.split(",")[3:5] == [f"{number:.9g}", f"{-number:.9g}"]
        assert row.split(",")[6:] == [f"{number:.6g}", "1", "3.5"]


def test_selected_point_is_copied_as_the_list_has_it(several, open_page):
    page = open_page(several.page, "#picture=1")
    lines = several.csv_of("gaps.png", "-q").decode().split("\n")
    assert not page.find("#copy-point").is_enabled()
    (key, (x, y)) = list(page.centres().items())[41]
    box = page.script("const b = document.querySelector('#stage').getBoundingClientRect(); return [b.x, b.y]")
    page.script("document.elementFromPoint(arguments[0], arguments[1]).focus()", box[0] + x, box[1] + y)
    page.wheel(x, y, -100)
    page.browser.execute_cdp_cmd("Input.dispatchMouseEvent", {
        "type": "mousePressed", "x": box[0] + x, "y": box[1] + y, "button": "left", "clickCount": 1})
    page.browser.execute_cdp_cmd("Input.dispatchMouseEvent", {
        "type": "mouseReleased", "x": box[0] + x, "y": box[1] + y, "button": "left", "clickCount": 1})
    assert page.script("return document.querySelector('#overlay .selected').dataset.id") == str(key[0])
    page.click("#copy-point")
    expected = lines[42].rsplit(",", 1)[0]
    page.until(lambda: page.text("#copy-report") == f"copied {expected}")
    page.click("#to-table")
    page.find("#text-filter").send_keys(Keys.CONTROL, "v")
    assert page.find("#text-filter").get_property("value") == expected


def test_copy_works_where_the_clipboard_is_refused(several, open_page):
    page = open_page(several.page, "#picture=0")
    page.script("navigator.clipboard.writeText = () => Promise.reject(new Error('refused'))")
    page.press("n")
    page.press("c")
    page.until(lambda: page.text("#copy-report").startswith("copied 1,"))
    page.click("#to-table")
    page.find("#text-filter").send_keys(Keys.CONTROL, "v")
    assert page.find("#text-filter").get_property("value") == several.csv.decode().split("\n")[1].split(
        ",", 1)[1].rsplit(",", 1)[0]


def test_largest_residuals_lead_to_their_points(several, open_page):
    page = open_page(several.page, "#picture=0")
    buttons = page.all("#worst-points button")
    assert len(buttons) == 10
    buttons[0].click()
    page.rest()
    selected = page.script("return document.querySelector('#overlay .selected').dataset.id")
    assert f" {selected}:" in " " + buttons[0].text.split("px")[1].strip()
    worst = page.text("#picture-figures").split("worst residual ")[1].split(" ")[0]
    assert f"{worst} px" in page.text("#point-numbers")
    centre = next(place for key, place in page.centres().items() if key[0] == int(selected))
    width, height = page.stage_size()
    assert math.dist(centre, (width / 2, height / 2)) < 1


def test_walk_by_keyboard_alone(several, open_page):
    page = open_page(several.page)
    for _ in range(40):
        page.press(Keys.TAB)
        if page.script(FOCUSED) == "whole.png":
            break
    assert page.script(FOCUSED) == "whole.png"
    page.press(Keys.ARROW_DOWN)
    assert page.script(FOCUSED) == "gaps.png"
    outline = "return getComputedStyle(document.activeElement).outlineStyle"
    assert page.script(outline) != "none"
    page.press(Keys.ENTER)
    page.until(lambda: page.text("#picture-name") == "gaps.png")
    page.settle()
    assert page.script(FOCUSED) == "stage" and page.script(outline) != "none"
    page.press("n", "n", "n", "p")
    assert page.script("return document.querySelector('#overlay .selected').dataset.id") == "2"
    assert page.text("#announcement").startswith("Point 2, row 0, column 1")
    before = page.view()
    page.press(Keys.ARROW_RIGHT, Keys.ARROW_DOWN)
    page.rest()
    assert page.view()["left"] < before["left"] and page.view()["top"] < before["top"]
    page.press("?")
    assert page.script("return document.querySelector('#help').open")
    page.press("n")
    page.press(Keys.ESCAPE)
    assert not page.script("return document.querySelector('#help').open")
    assert page.text("#announcement").startswith("Point 2,"), "keys belong to the help while it is open"
    page.press(Keys.ESCAPE)
    assert page.text("#announcement") == ""
    page.press(Keys.ESCAPE)
    page.until(lambda: page.find("#table-screen").is_displayed())
    assert page.script(FOCUSED) == "gaps.png"
    page.press("/")
    page.press("n", "p")
    assert page.find("#text-filter").get_property("value") == "np"


def test_diagnostic_pictures_are_a_strip(several, open_page):
    page = open_page(several.page, "#picture=0")
    assert len(page.all("#stages li")) == 14
    widths = "return [...document.querySelectorAll('#stages img')].map((image) => image.naturalWidth)"
    page.script("document.querySelectorAll('#stages img').forEach((image) => { image.loading = 'eager'; })")
    page.until(lambda: len(page.script(widths)) == 14 and min(page.script(widths)) > 0)
    captions = page.script("return [...document.querySelectorAll('#stages .caption')].map((c) => c.textContent)")
    assert captions[7] == ("8 Sobel.bmp" "edges" "healthy: the strokes and the board's border, "
                           "few specks between them")
    page.all("#stages button")[7].click()
    assert page.text("#stage-title") == "8 Sobel.bmp"
    assert page.script("return document.querySelector('#stage-picture').naturalWidth") > 100
    page.press(Keys.ARROW_RIGHT)
    assert page.text("#stage-title") == "9 Eliminate.bmp"
    page.press(Keys.ESCAPE)
    assert not page.script("return document.querySelector('#stage-dialog').open")


def test_direct_detection_says_that_it_leaves_none(precise, open_page):
    page = open_page(precise.page, "#picture=0")
    assert page.text("#stages p") == "The direct detection leaves no diagnostic pictures."


def test_failed_picture_says_what_to_change(several, open_page):
    page = open_page(several.page, "#picture=3")
    notice = page.text("#failure")
    assert "brighter than 80" in notice and "expose longer" in notice
    terms = page.script("return [...document.querySelectorAll('#failure dt')].map((t) => t.textContent)")
    assert terms == ["stage", "reason", "what to change"]
    darkest, brightest = page.canvas_levels(*(side / 2 for side in page.stage_size()), 40)
    assert darkest < brightest, "the picture is shown"
    assert not page.find("#download-picture-csv").is_enabled()
    page.all("#failure button")[0].click()
    assert page.text("#stage-title") == "1 ProImage.bmp"


def test_picture_that_cannot_be_read(several, open_page):
    page = open_page(several.page, "#picture=4")
    assert "none of the files that are read" in page.text("#failure")
    assert "nothing to show" in page.text("#stage-message") and page.find("#stage-message").is_displayed()
    page.press("n", "p", "c", "+")
    page.rest()
    assert page.text("#point-hint") == "This picture has no points."


def test_names_are_text(hostile_names, open_page, downloads):
    page = open_page(hostile_names.page)
    assert page.names() == hostile_names.names
    assert downloaded(page, downloads, "#download-run-csv") == hostile_names.csv
    for index, name in enumerate(hostile_names.names):
        page = open_page(hostile_names.page, f"#picture={index}")
        assert page.text("#picture-name") == name
        assert page.script("return document.title").startswith(" ".join(name.split()))
        assert page.script("return window.hacked === undefined")
        assert page.script("return document.querySelectorAll('img[onerror]').length") == 0


@pytest.mark.parametrize("field", ["message", "notes", "facts", "failure"])
def test_messages_are_text(several, open_page, tmp_path, field):
    markup = "<img src=x onerror='window.hacked=1'></script><script>window.hacked=1</script>"

    def edit(_, pictures):
        pictures[0][field] = {"message": markup, "notes": [markup], "facts": [[markup, markup]],
                              "failure": {"stage": markup, "reason": markup, "advice": markup}}[field]
        if field == "failure":
            pictures[0].update(verdict="failed", points=[])

    page = open_page(edited_copy(several.page, tmp_path, edit), "#picture=0")
    assert markup in page.text("#picture-screen")
    assert page.script("return window.hacked === undefined")


def test_run_without_pictures(several, open_page, tmp_path):
    page = open_page(edited_copy(several.page, tmp_path, lambda _, pictures: pictures.clear()))
    assert page.text("#no-rows") == "This run has no pictures."
    assert not page.find("#download-run-csv").is_enabled()


def test_run_in_which_all_failed(several, open_page, tmp_path):
    page = open_page(edited_copy(several.page, tmp_path, lambda _, pictures: pictures.__delitem__(slice(0, 3))))
    assert "No points were found in any picture" in page.text("#page-fault")
    assert len(page.names()) == 2
    assert not page.find("#download-run-csv").is_enabled()


def test_thousand_pictures(single, open_page, tmp_path):
    def edit(_, pictures):
        pictures[:] = [dict(pictures[0], name=f"{i}.png") for i in range(1000)]

    page = open_page(edited_copy(single.page, tmp_path, edit))
    assert len(page.names()) == 1000
    loaded = page.script("return [...document.querySelectorAll('#pictures img')].filter((i) => i.src).length")
    assert 0 < loaded < 200, "thumbnails are loaded as they come into view"
    page.find("#text-filter").send_keys("99.png")
    assert page.names() == [f"{i}99.png" for i in ["", *range(1, 10)]]


def test_unknown_address_shows_the_table(several, open_page):
    page = open_page(several.page, "#picture=5")
    assert page.names() == several.names
