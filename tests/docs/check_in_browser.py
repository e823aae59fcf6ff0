"""The HTML documents in a browser: readable on a telephone and on a wide screen, in light and dark; the search answers.

    check_in_browser.py HTML-FOLDER [PICTURE-FOLDER]

Ends with 77 where there is no browser.
"""

import os
import shutil
import sys
from pathlib import Path

SKIPPED = 77
NARROW, WIDE = 360, 1920
# In pixels: what is longer is hard to follow from its end to the next line's beginning.
LONGEST_LINE = 1000
WORST_CONTRAST = 4.5  # of text to its background, as WCAG 2 demands it (AA)

# Texts whose contrast is too small: [text, colour, background, contrast].
CONTRASTS = """
    const numbers = colour => colour.match(/[\\d.]+/g).map(Number);
    const luminance = colour => {
        const [r, g, b] = numbers(colour).map(value => value / 255)
            .map(value => value <= 0.04045 ? value / 12.92 : ((value + 0.055) / 1.055) ** 2.4);
        return 0.2126 * r + 0.7152 * g + 0.0722 * b;
    };
    const backgroundOf = element => {
        for (; element; element = element.parentElement) {
            const colour = getComputedStyle(element).backgroundColor, parts = numbers(colour);
            if (parts.length < 4 || parts[3] > 0.99) return colour;
        }
        return matchMedia('(prefers-color-scheme: dark)').matches ? 'rgb(0, 0, 0)' : 'rgb(255, 255, 255)';
    };
    const bad = [];
    const walker = document.createTreeWalker(document.querySelector('article'), NodeFilter.SHOW_TEXT);
    for (let node; node = walker.nextNode();) {
        const element = node.parentElement, style = getComputedStyle(element);
        if (!node.data.trim() || !element.offsetParent || style.visibility !== 'visible'
            || element.closest('.headerlink, svg, .copybtn')) continue;
        const [a, b] = [luminance(style.color), luminance(backgroundOf(element))].sort((x, y) => y - x);
        const contrast = (a + 0.05) / (b + 0.05);
        if (contrast < arguments[0]) bad.push([node.data.trim().slice(0, 40), style.color, backgroundOf(element), contrast]);
    }
    return bad;
"""
# The elements that stick out at the right and are in nothing that scrolls by itself.
STICKING_OUT = """
    const edge = document.documentElement.clientWidth;
    const scrolls = element => element && !element.matches('.content, body')
        && (['auto', 'scroll'].includes(getComputedStyle(element).overflowX) || scrolls(element.parentElement));
    return [...document.querySelectorAll('article *')]
        .filter(element => element.getBoundingClientRect().right > edge + 1 && !scrolls(element.parentElement))
        .slice(0, 1).map(element => element.outerHTML.slice(0, 60));
"""
LINE = "return Math.max(0, ...[...document.querySelectorAll('article p')].map(p => p.getBoundingClientRect().width));"


def start_browser():
    try:
        from selenium import webdriver
        from selenium.webdriver.chrome.service import Service
    except ImportError:
        print("There is no selenium: apt-get install python3-selenium chromium chromium-driver")
        return None
    browser, driver = shutil.which("chromium") or shutil.which("google-chrome"), shutil.which("chromedriver")
    if not browser or not driver:
        print("There is no browser: apt-get install chromium chromium-driver")
        return None
    options = webdriver.ChromeOptions()
    options.binary_location = browser
    for argument in ("--headless=new", "--disable-gpu", "--disable-dev-shm-usage", "--hide-scrollbars"):
        options.add_argument(argument)
    if hasattr(os, "geteuid") and os.geteuid() == 0:
        options.add_argument("--no-sandbox")
    return webdriver.Chrome(service=Service(driver), options=options)


class Check:
    def __init__(self, browser, folder, pictures):
        self.browser, self.folder, self.pictures = browser, folder, pictures
        self.problems = []

    def look(self, width, scheme):
        self.browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
            "width": width, "height": 900, "deviceScaleFactor": 1, "mobile": False})
        self.browser.execute_cdp_cmd("Emulation.setEmulatedMedia", {
            "features": [{"name": "prefers-color-scheme", "value": scheme}]})

    def pages(self, width, scheme):
        self.look(width, scheme)
        for page in sorted(self.folder.rglob("*.html")):
            name = page.relative_to(self.folder).as_posix()
            self.browser.get(page.resolve().as_uri())
            where = f"{name}, {width} pixels, {scheme}"
            for element in self.browser.execute_script(STICKING_OUT):
                self.problems.append(f"{where}: sticks out: {element}")
            line = self.browser.execute_script(LINE)
            if line > LONGEST_LINE:
                self.problems.append(f"{where}: lines of {line} pixels")
            if width == WIDE and self.browser.execute_script("return document.querySelector('article') !== null"):
                for text, colour, background, contrast in self.browser.execute_script(CONTRASTS, WORST_CONTRAST):
                    self.problems.append(f"{where}: \"{text}\" is {colour} on {background}, {contrast:.1f}")
            if self.pictures and name in ("index.html", "start.html", "reference/ITreeControl.html"):
                picture = self.pictures / f"{page.stem}-{width}-{scheme}.png"
                self.browser.save_screenshot(str(picture))

    def schemes_differ(self):
        colours = []
        for scheme in ("light", "dark"):
            self.look(WIDE, scheme)
            self.browser.get((self.folder / "index.html").resolve().as_uri())
            colours.append(self.browser.execute_script("return getComputedStyle(document.body).backgroundColor"))
        if colours[0] == colours[1]:
            self.problems.append(f"light and dark look alike: {colours[0]}")

    def search(self, word, page):
        from selenium.webdriver.common.by import By
        from selenium.webdriver.support.ui import WebDriverWait
        self.look(WIDE, "light")
        self.browser.get(f"{(self.folder / 'search.html').resolve().as_uri()}?q={word}")

        def found(browser):
            return [link for link in browser.find_elements(By.CSS_SELECTOR, "#search-results li a")
                    if page in link.get_attribute("href")]
        try:
            WebDriverWait(self.browser, 20).until(found)
        except Exception:  # selenium has a kind of its own for "in vain"
            self.problems.append(f"the search for {word} does not lead to {page}")


def main(folder, pictures=""):
    browser = start_browser()
    if browser is None:
        return SKIPPED
    try:
        check = Check(browser, Path(folder), Path(pictures) if pictures else None)
        if pictures:
            check.pictures.mkdir(parents=True, exist_ok=True)
        for width, scheme in ((NARROW, "light"), (WIDE, "light"), (WIDE, "dark")):
            check.pages(width, scheme)
        check.schemes_differ()
        check.search("SelectItemByPath", "reference/ITreeControl.html")
        check.search("locked", "nightly-runs.html")
    finally:
        browser.quit()
    print("\n".join(check.problems) or "readable")
    return 1 if check.problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
