"""Takes a picture of a page of tavkit report: screenshot.py PAGE PICTURE."""

import pathlib
import sys
import time

from selenium import webdriver

PAGE, PICTURE = (pathlib.Path(path).resolve() for path in sys.argv[1:3])

options = webdriver.ChromeOptions()
for argument in ("headless=new", "no-sandbox", "disable-gpu", "hide-scrollbars"):
    options.add_argument(f"--{argument}")
browser = webdriver.Chrome(options=options)
metrics = {"width": 1100, "height": 1540, "deviceScaleFactor": 1, "mobile": False}
browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", metrics)
browser.get(PAGE.as_uri())
time.sleep(1)  # until everything is drawn
# This list is long, and the waveforms are what the picture is for.
browser.execute_script("document.querySelector('.largest').closest('section').remove()")
browser.save_screenshot(str(PICTURE))
browser.quit()
