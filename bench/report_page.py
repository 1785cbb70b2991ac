"""How fast a page of tavkit report with 1,000 sounds opens and scrolls: report_page.py TAVKIT."""

import os
import pathlib
import random
import statistics
import struct
import subprocess
import sys
import tempfile

from selenium import webdriver

TAVKIT = os.path.abspath(sys.argv[1])
SOUNDS = 1000
SPEED = 10_000  # pixels a second

# Sets `opened` to the time at which all that is in view has been drawn, from the navigation on.
WATCH = """
  const isMissing = (asset) => {
    const { top, bottom } = asset.getBoundingClientRect();
    return bottom > 0 && top < innerHeight && !asset.querySelector('canvas');
  };
  const watch = () => {
    const assets = [...document.querySelectorAll('article')];
    if (document.readyState !== 'complete' || assets.length === 0 || assets.some(isMissing)) {
      requestAnimationFrame(watch);
    } else {
      requestAnimationFrame(() => setTimeout(() => { window.opened = performance.now(); }));
    }
  };
  requestAnimationFrame(watch);
"""

# Scrolls through the whole page and returns the times of all frames, in milliseconds.
SCROLL = """
  const [speed, done] = arguments;
  const times = [];
  const step = (time) => {
    times.push(time);
    scrollTo({ top: (speed * (time - times[0])) / 1000, behavior: 'instant' });
    if (scrollY + innerHeight < document.documentElement.scrollHeight - 1) {
      requestAnimationFrame(step);
    } else {
      done(times);
    }
  };
  requestAnimationFrame(step);
"""


def write_bank(path):
    """Writes a bank of compressed noise: half a second to two and a half at 22,050 Hz."""
    chance = random.Random(1)
    table, blobs = struct.pack("<I", SOUNDS), bytearray()
    for _ in range(SOUNDS):
        blob = chance.randbytes(4 * chance.randrange(1400, 6900))
        offset = 4 + 44 * SOUNDS + len(blobs)
        table += struct.pack("<III8i", 1, offset, len(blob), 22050, 0, 4, 0, 0, 0, 0, 0)
        blobs += blob
    path.write_bytes(table + blobs + bytes(-(len(table) + len(blobs)) % 32))


def start_browser():
    options = webdriver.ChromeOptions()
    for argument in ("headless=new", "no-sandbox", "disable-gpu", "window-size=1280,900"):
        options.add_argument(f"--{argument}")
    browser = webdriver.Chrome(options=options)
    browser.set_script_timeout(600)
    browser.execute_cdp_cmd("Page.addScriptToEvaluateOnNewDocument", {"source": WATCH})
    return browser


def opening_time(browser, page):
    browser.get("about:blank")
    browser.get(page.as_uri())
    return browser.execute_async_script("""
      const [done] = arguments;
      const wait = () => (window.opened ? done(window.opened) : setTimeout(wait, 10));
      wait();""")


def print_row(what, value, unit, bar, holds):
    verdict = "holds" if holds else "MISSED"
    print(f"{what:<52} {value:>9.1f} {unit:<24} {bar:<8} {verdict}")


def main():
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        write_bank(folder / "sounds.tvb")
        subprocess.run([TAVKIT, "report", "sounds.tvb"], cwd=folder, check=True)
        page = folder / "sounds.html"
        browser = start_browser()
        opening = statistics.median(opening_time(browser, page) for _ in range(5))
        times = browser.execute_async_script(SCROLL, SPEED)
        browser.quit()
        megabytes = page.stat().st_size / 1e6
    frames = [later - time for time, later in zip(times, times[1:])]
    rate = 1000 * len(frames) / (times[-1] - times[0])
    slow = sum(frame > 1000 / 50 for frame in frames)
    print_row(f"page of {SOUNDS} sounds, {megabytes:.0f} MB: opening", opening, "ms", "< 2000",
              opening < 2000)
    print_row("  scrolling through all", rate, "frames a second", ">= 50", rate >= 50)
    print(f"    median frame {statistics.median(frames):.1f} ms, longest {max(frames):.1f} ms, "
          f"{100 * slow / len(frames):.1f} % over 20 ms")


if __name__ == "__main__":
    main()
