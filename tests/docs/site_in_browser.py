"""Opens the site's pages from their folder, without a server: no page complains, none asks for anything but files, and
the search finds what stands on them.

site_in_browser.py SITE"""

import shutil
import sys
import time
from pathlib import Path

try:
    from selenium import webdriver
    from selenium.webdriver.chrome.options import Options
    from selenium.webdriver.chrome.service import Service
    from selenium.webdriver.common.by import By
    from selenium.webdriver.support.ui import WebDriverWait
except ImportError:
    print("Skipped: python3-selenium is not installed")
    sys.exit(77)

LONGEST = 30  # seconds, until the search answers


def start_browser():
    options = Options()
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--window-size=1400,1000"):
        options.add_argument(argument)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    return webdriver.Chrome(service=Service(shutil.which("chromedriver")), options=options)


def page_faults(browser, page: Path) -> list:
    browser.get(page.as_uri())
    faults = [f"{page.name}: {entry['message']}" for entry in browser.get_log("browser")]
    loaded = browser.execute_script("return performance.getEntriesByType('resource').map(entry => entry.name)")
    faults += [f"{page.name}: {name} is loaded" for name in loaded if not name.startswith(("file:", "data:"))]
    missing = browser.execute_script("return [...document.images].filter(i => !i.naturalWidth).map(i => i.src)")
    return faults + [f"{page.name}: {name} is no picture" for name in missing]


def search_faults(browser, site: Path) -> list:
    browser.get((site / "index.html").as_uri())
    field = browser.find_element(By.CSS_SELECTOR, "input.md-search__input")
    field.click()
    time.sleep(0.5)  # until the field is open
    field.send_keys("covariance")

    def links(opened):
        return [link.get_attribute("href") for link in opened.find_elements(By.CSS_SELECTOR, ".md-search-result__link")]

    WebDriverWait(browser, LONGEST).until(links)
    found = links(browser)
    return [] if any("/precision.html" in link for link in found) else [f"search: covariance gives {found}"]


def main() -> int:
    for program in ("chromium", "chromedriver"):
        if not shutil.which(program):
            print(f"Skipped: {program} is not installed")
            return 77
    site = Path(sys.argv[1])
    browser = start_browser()
    try:
        faults = [fault for page in sorted(site.glob("*.html")) if page.name != "404.html" for fault in page_faults(browser, page)]
        faults += search_faults(browser, site)
    finally:
        browser.quit()
    for fault in faults:
        print(fault, file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
