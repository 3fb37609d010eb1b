#!/usr/bin/env python3
"""Opens the gallery's page in headless Chromium, as wide as a telephone and as a desktop, and
reports what a visitor would stumble over: pictures that do not load or have no words, content
that is wider than the window, links that the keyboard does not reach or that do not show its
focus, and errors that the browser reports. Ends with 1 if there is any.

Usage: gallery_check.py PAGE.
"""

import pathlib
import sys
import urllib.parse

from selenium import webdriver
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.keys import Keys

WIDTHS = (400, 1400)

# Pictures further down are loaded only when they are needed, so each is requested.
LOAD_PICTURES = """
const done = arguments[0];
const pictures = [...document.images];
for (const picture of pictures) picture.loading = "eager";
Promise.allSettled(pictures.map(picture => picture.decode())).then(() => done());
"""

PICTURES = """
return [...document.images].flatMap(picture => {
  const name = picture.getAttribute("src");
  const found = [];
  if (!picture.complete || picture.naturalWidth === 0) found.push(`${name} does not load`);
  if (picture.getBoundingClientRect().width < 40) found.push(`${name} is too small to be seen`);
  if (!picture.alt.trim()) found.push(`${name} has no words`);
  return found;
});
"""

OVERFLOW = """
const limit = document.documentElement.clientWidth;
const found = [];
const wide = document.documentElement.scrollWidth;
if (wide > limit) found.push(`the page is ${wide} pixels wide`);
for (const one of document.body.querySelectorAll("*")) {
  const box = one.getBoundingClientRect();
  if (box.left < -0.5 || box.right > limit + 0.5) {
    found.push(`${one.tagName.toLowerCase()} reaches from ${box.left} to ${box.right}`);
  }
}
return found;
"""

LINKS = "return [...document.querySelectorAll('a[href]')].map(link => link.getAttribute('href'));"

FOCUS = """
const one = document.activeElement;
if (one === null || one === document.body) return null;
const style = getComputedStyle(one);
const seen = style.outlineStyle !== "none" && parseFloat(style.outlineWidth) >= 2;
const box = one.getBoundingClientRect();
const inside = box.bottom > 0 && box.top < innerHeight && box.width >= 40 && box.height >= 20;
return [one.getAttribute("href"), seen && inside];
"""


def browser():
    options = webdriver.ChromeOptions()
    for word in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                 "--allow-file-access-from-files"):
        options.add_argument(word)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    driver = webdriver.Chrome(options=options)
    driver.set_script_timeout(120)
    return driver


def set_width(driver, width):
    metrics = {"width": width, "height": 900, "deviceScaleFactor": 1, "mobile": False}
    driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", metrics)


def keyboard_problems(driver):
    """Presses Tab until the focus leaves the page, then Enter on the first link."""
    links = driver.execute_script(LINKS)
    if not links:
        return ["there are no links"]
    problems = []
    for link in links:
        ActionChains(driver).send_keys(Keys.TAB).perform()
        focus = driver.execute_script(FOCUS)
        if focus is None or focus[0] != link:
            return problems + [f"the Tab key does not reach {link}"]
        if not focus[1]:
            problems.append(f"{link} does not show the focus")
    page = driver.current_url
    driver.execute_script("document.querySelector('a[href]').focus();")
    ActionChains(driver).send_keys(Keys.ENTER).perform()
    if driver.current_url != urllib.parse.urljoin(page, links[0]):
        problems.append(f"the Enter key does not open {links[0]}")
    return problems


def open_page(driver, page, width):
    """Opens the page with all its pictures in a window of this width."""
    set_width(driver, width)
    driver.get(page.resolve().as_uri())
    driver.execute_async_script(LOAD_PICTURES)


def problems_of(driver, page, width):
    open_page(driver, page, width)
    if not driver.title:
        return ["the page has no title"]
    problems = driver.execute_script(PICTURES) + driver.execute_script(OVERFLOW)
    problems += [entry["message"] for entry in driver.get_log("browser")]
    return problems + keyboard_problems(driver)


def main():
    page = pathlib.Path(sys.argv[1])
    driver = browser()
    failed = False
    try:
        for width in WIDTHS:
            problems = problems_of(driver, page, width)
            failed = failed or bool(problems)
            print(f"{page}: {width} pixels wide: {len(problems)} problems", *problems, sep="\n  ")
            open_page(driver, page, width)
            driver.save_screenshot(str(page.parent / f"browser_{width}.png"))
    finally:
        driver.quit()
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
