"""A report page in a headless Chromium: the browser, and a page's parts as the tests name them."""

import json
import time
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.actions.wheel_input import ScrollOrigin
from selenium.webdriver.common.by import By

WAIT = 20  # seconds that a busy machine may take
SETTLED = """
const o = document.querySelector("#overlay").dataset;
return [o.scale, o.left, o.top].join();
"""
# Centres of the points' rings, from the top left corner of the overlay.
CENTRES = """
const box = document.querySelector("#overlay").getBoundingClientRect();
return [...document.querySelectorAll("#overlay g.point")].map((g) => {
  const ring = g.querySelector(".ring").getBoundingClientRect();
  return [Number(g.dataset.id), Number(g.dataset.row), Number(g.dataset.col), g.dataset.kind,
          ring.x + ring.width / 2 - box.x, ring.y + ring.height / 2 - box.y];
});
"""
# Grey level of the canvas around a place of the overlay, the least and the largest.
LEVELS = """
const [x, y, reach] = arguments;
const canvas = document.querySelector("#image");
const d = canvas.width / canvas.clientWidth;
const side = Math.max(1, Math.round(2 * reach * d));
const data = canvas.getContext("2d").getImageData((x - reach) * d, (y - reach) * d, side, side).data;
const levels = data.filter((_, i) => i % 4 === 0);
return [Math.min(...levels), Math.max(...levels)];
"""


def start_browser(downloads: Path, width: int = 1600, height: int = 1000) -> webdriver.Chrome:
    options = webdriver.ChromeOptions()
    for flag in ["--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                 f"--window-size={width},{height}"]:
        options.add_argument(flag)
    options.add_experimental_option("prefs", {
        "download.default_directory": str(downloads),
        "download.prompt_for_download": False,
    })
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    return webdriver.Chrome(options=options, service=Service("/usr/bin/chromedriver"))


class ReportPage:
    """One page, opened anew."""

    def __init__(self, browser: webdriver.Chrome, path: Path, fragment: str = ""):
        self.browser = browser
        self.path = path
        browser.get("about:blank")
        browser.get(path.as_uri() + fragment)
        self.until(lambda: self.script("return document.documentElement.dataset.theme"))
        if self.find("#picture-screen").is_displayed():
            self.settle()

    def script(self, text: str, *arguments):
        return self.browser.execute_script(text, *arguments)

    def find(self, selector: str):
        return self.browser.find_element(By.CSS_SELECTOR, selector)

    def all(self, selector: str):
        return self.browser.find_elements(By.CSS_SELECTOR, selector)

    def text(self, selector: str) -> str:
        return self.script("return document.querySelector(arguments[0]).textContent", selector)

    def click(self, selector: str) -> None:
        self.find(selector).click()

    def press(self, *keys: str) -> None:
        ActionChains(self.browser).send_keys(*keys).perform()

    def until(self, condition):
        """The condition's first true value."""
        end = time.monotonic() + WAIT
        while True:
            value = condition()
            if value:
                return value
            assert time.monotonic() < end, "waited in vain"
            time.sleep(0.02)

    def settle(self) -> None:
        """Waits until the view rests and its picture, if there is one, is drawn."""
        drawn = ("const c = document.querySelector('#image'), t = document.querySelector('#stage-message');"
                 "return !t.hidden || (c.width > 1 && c.getContext('2d').getImageData("
                 "c.width / 2, c.height / 2, 1, 1).data[3] > 0)")
        self.until(lambda: self.script(drawn))
        self.rest()

    def rest(self) -> None:
        """Waits until the view does not move any more."""
        last, since = None, time.monotonic()
        end = since + WAIT
        while time.monotonic() - since < 0.3:
            now = self.script(SETTLED)
            if now != last:
                last, since = now, time.monotonic()
            assert time.monotonic() < end, "the view does not come to rest"
            time.sleep(0.03)

    def view(self) -> dict:
        return {name: float(value) for name, value in
                self.script("return {...document.querySelector('#overlay').dataset}").items()}

    def centres(self) -> dict:
        """(id, row, col, kind) of each point, and where its ring is."""
        return {(i, row, col, kind): (x, y) for i, row, col, kind, x, y in self.script(CENTRES)}

    def canvas_levels(self, x: float, y: float, reach: float) -> list:
        return self.script(LEVELS, x, y, reach)

    def stage_size(self) -> tuple:
        return tuple(self.script("const s = document.querySelector('#stage');"
                                 "return [s.clientWidth, s.clientHeight]"))

    def wheel(self, x: float, y: float, amount: int) -> None:
        """Turns the wheel at a place of the view; a negative amount zooms in."""
        width, height = self.stage_size()
        origin = ScrollOrigin.from_element(self.find("#stage"), round(x - width / 2), round(y - height / 2))
        ActionChains(self.browser).scroll_from_origin(origin, 0, amount).perform()
        self.rest()

    def point_at(self, x: float, y: float) -> None:
        """Moves the pointer to a place of the view, to the nearest whole pixel."""
        width, height = self.stage_size()
        ActionChains(self.browser).move_to_element_with_offset(
            self.find("#stage"), round(x - width / 2), round(y - height / 2)).perform()

    def drag(self, dx: int, dy: int) -> None:
        stage = self.find("#stage")
        ActionChains(self.browser).move_to_element(stage).click_and_hold().move_by_offset(dx, dy).release().perform()
        self.rest()

    def double_click(self, x: float, y: float) -> None:
        self.point_at(x, y)
        ActionChains(self.browser).double_click().perform()
        self.rest()

    def touch(self, kind: str, places: list) -> None:
        """Fingers at places of the view."""
        left, top = self.script("const b = document.querySelector('#stage').getBoundingClientRect();"
                                "return [b.x, b.y]")
        self.browser.execute_cdp_cmd("Input.dispatchTouchEvent", {
            "type": kind, "touchPoints": [{"x": left + x, "y": top + y, "id": i} for i, (x, y) in enumerate(places)]})

    def names(self) -> list:
        """The names in the rows that are shown, in their order."""
        return self.script("return [...document.querySelectorAll('#pictures tr[data-picture]')]"
                           ".filter((row) => row.checkVisibility())"
                           ".map((row) => row.querySelector('a').textContent)")

    def severe_log(self) -> list:
        return [entry for entry in self.browser.get_log("browser") if entry["level"] == "SEVERE"]


def downloaded(page: ReportPage, folder: Path, button: str) -> bytes:
    """What the button saves."""
    before = set(folder.iterdir())
    page.click(button)

    def saved():
        new = [f for f in folder.iterdir() if f not in before]
        return [f for f in new if f.suffix == ".csv"] if new and not any(
            f.suffix == ".crdownload" for f in new) else []

    return page.until(saved)[0].read_bytes()


def edited_copy(page: Path, folder: Path, edit) -> Path:
    """A page with other data: `edit` gets the run and the list of pictures and changes them in place. The
    images of the pictures go where the pictures' key "images" says, the number of one of the page."""
    head, pictures, images, run, tail = [], [], {}, None, []
    for line in page.read_text(encoding="utf-8").split("\n"):
        contents = line[line.find(">") + 1:line.rfind("</script>")]
        if line.startswith('<script type="application/json" id="run">'):
            run = json.loads(contents)
        elif line.startswith('<script type="application/json" data-picture='):
            pictures.append(json.loads(contents))
            pictures[-1]["images"] = len(pictures) - 1
        elif line.startswith('<script type="text/plain" data-picture='):
            index, rest = line.split('data-picture="')[1].split('"', 1)
            images.setdefault(int(index), []).append(rest)
        else:
            (head if run is None else tail).append(line)
    edit(run, pictures)
    blocks = [f'<script type="application/json" id="run">{as_block(run)}</script>']
    for i, picture in enumerate(pictures):
        source = picture.pop("images")
        blocks.append(f'<script type="application/json" data-picture="{i}">{as_block(picture)}</script>')
        blocks += [f'<script type="text/plain" data-picture="{i}"{rest}' for rest in images.get(source, [])]
    folder.mkdir(parents=True, exist_ok=True)
    copy = folder / "index.html"
    copy.write_text("\n".join(head + blocks + tail), encoding="utf-8")
    return copy


def as_block(value) -> str:
    return json.dumps(value, ensure_ascii=False).replace("<", "\\u003c")
