# The page of zoredid in a browser: chromium, headless, through selenium.
#   PageBrowserTest.py COMMAND PROJECT
# Exits with 77 without a browser. The check of contrast and roles wants axe-core, which scripts/setup check
# fetches: its file axe.min.js, at ZOREDID_AXE or in the user's cache.

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

from Checksums import fix_sums

SKIPPED = 77
try:
    from selenium import webdriver
    from selenium.webdriver.chrome.service import Service
    from selenium.webdriver.common.by import By
    from selenium.webdriver.common.keys import Keys
except ImportError:
    # Debian's selenium belongs to Debian's Python, which need not be the first one of PATH.
    if sys.executable != "/usr/bin/python3" and os.path.exists("/usr/bin/python3"):
        os.execv("/usr/bin/python3", ["/usr/bin/python3", *sys.argv])
    print("skipped: no python3-selenium")
    sys.exit(SKIPPED)

BROWSER, DRIVER = shutil.which("chromium"), shutil.which("chromedriver")
if not BROWSER or not DRIVER:
    print("skipped: no chromium with chromium-driver")
    sys.exit(SKIPPED)

COMMAND, PROJECT = sys.argv[1:3]
with open(os.path.join(PROJECT, "examples/monitor.bin"), "rb") as file:
    MONITOR = file.read()
AXE = os.environ.get("ZOREDID_AXE") or os.path.join(
    os.environ.get("XDG_CACHE_HOME") or os.path.expanduser("~/.cache"), "zoredid/axe-core/axe.min.js")
WIDTHS = (360, 1600)
if not os.path.exists(AXE):
    print(f"skipped: contrast and roles, for there is no axe-core at {AXE}")


def start_browser():
    options = webdriver.ChromeOptions()
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage"):
        options.add_argument(argument)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    options.binary_location = BROWSER
    return webdriver.Chrome(options=options, service=Service(DRIVER))


def hostile():
    """A name that would be markup, another week, and a reserved bit, which is a finding."""
    image = bytearray(MONITOR)
    image[0x71:0x7E], image[0x10], image[0x14] = b"</script><img", 35, 0xC0
    return fix_sums(bytes(image))


def base(image):
    return fix_sums(image[:126] + b"\0\0")


class BrowserTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.pages = {}
        long = fix_sums(MONITOR[:126] + b"\2\0" + MONITOR[128:] * 2)  # offsets of three digits
        nameless = fix_sums(MONITOR[:0x6F] + b"\x10" + MONITOR[0x70:])
        for name, images in {"one": [MONITOR], "cut": [MONITOR[:200]], "long": [long], "n" * 230: [nameless],
                             "two": [MONITOR, hostile()], "bases": [base(MONITOR), base(hostile())]}.items():
            paths = [os.path.join(folder.name, f"{name}{i}.bin") for i in range(len(images))]
            for path, image in zip(paths, images):
                with open(path, "wb") as file:
                    file.write(image)
            cls.pages[name] = os.path.join(folder.name, name + ".html")
            subprocess.run([COMMAND, "page", *paths, "-o", cls.pages[name]], check=True, timeout=60)
        for peak, rates in (("90", "40-60"), ("400", "30-144")):  # their order as texts is another one
            subprocess.run([COMMAND, "edit", os.path.join(folder.name, "one0.bin"), "--add-hdr", f"pq,max={peak}",
                            "--vrr", rates, "-o", os.path.join(folder.name, f"hdr{peak}.bin")], check=True, timeout=60,
                           capture_output=True)
        # An index of these and of a file that is no image, whose name is longer than a small screen is wide.
        with open(os.path.join(folder.name, "z" * 90), "wb"):
            pass
        subprocess.run([COMMAND, "page", folder.name, "-o", os.path.join(folder.name, "out")], capture_output=True)
        cls.pages["index"] = os.path.join(folder.name, "out/index.html")
        cls.browser = start_browser()
        cls.addClassCleanup(cls.browser.quit)

    def open(self, name="one", width=1600, dark=False, media=""):
        scheme = [{"name": "prefers-color-scheme", "value": "dark" if dark else "light"}]
        self.browser.execute_cdp_cmd("Emulation.setEmulatedMedia", {"media": media, "features": scheme})
        self.browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
            "width": width, "height": 900, "deviceScaleFactor": 1, "mobile": False})
        self.browser.get("file://" + self.pages[name])

    def run_script(self, text, *arguments):
        return self.browser.execute_script(text, *arguments)

    def one(self, selector):
        return self.browser.find_element(By.CSS_SELECTOR, selector)

    def marked(self):
        """Numbers of the marked bytes and names of the marked fields."""
        return self.run_script("""return [[...document.querySelectorAll("[role=gridcell].on")].map(e => +e.id.slice(1)),
            [...document.querySelectorAll(".field.on > .name")].map(e => e.textContent)]""")

    def focused(self):
        return self.run_script("""const e = document.activeElement;
            return e.matches(".field") ? e.querySelector(".name").textContent : e.id""")

    def press(self, *keys):
        for key in keys:
            self.browser.switch_to.active_element.send_keys(key)

    def test_loads_in_all_widths_and_lights_without_a_word_or_overflow(self):
        backs = set()
        for name in self.pages:
            for width in WIDTHS:
                for dark in (False, True) if name == "one" else (width == WIDTHS[0],):
                    with self.subTest(name=name, width=width, dark=dark):
                        self.open(name, width, dark)
                        self.assertEqual(self.browser.get_log("browser"), [])
                        self.assertEqual(self.overflow(), [0, width])
                        heads = "return [...document.querySelectorAll('.grid tbody th')].map(e => e.offsetHeight)"
                        self.assertLess(max(self.run_script(heads), default=0), 34)  # on one line, beside its bytes
                        backs.add(self.run_script("return getComputedStyle(document.body).backgroundColor"))
        self.assertEqual(len(backs), 2)
        self.assertEqual(self.run_script("return document.images.length + document.scripts.length"), 1)

    def overflow(self):
        return self.run_script("""const e = document.documentElement;
            return [e.scrollWidth - e.clientWidth, window.innerWidth]""")

    def shown(self, selector):
        """Texts of the elements that can be seen."""
        return self.run_script("""return [...document.querySelectorAll(arguments[0])].filter(e => e.offsetParent)
            .map(e => (e.querySelector(":scope > .name") || e).textContent)""", selector)

    def test_paper_has_all_whatever_the_filters(self):
        for name in ("one", "two"):
            self.open(name, 718, media="print")  # A4 without its margins
            whole = len(self.shown("[role=treeitem]")), len(self.shown("#table tbody tr"))
            self.run_script("""for (const input of document.querySelectorAll(".find input, #filter")) {
                input.value = "gamma";
                input.dispatchEvent(new Event("input", { bubbles: true }));
            }""")
            self.assertEqual((len(self.shown("[role=treeitem]")), len(self.shown("#table tbody tr"))), whole)
            self.assertEqual(self.overflow()[0], 0)

    def test_without_its_script_the_page_has_all(self):
        self.browser.execute_cdp_cmd("Emulation.setScriptExecutionDisabled", {"value": True})
        try:
            self.open()
            for selector in (".tools", ".find", ".said", "#theme", "#table input", "#table button"):
                self.assertEqual(self.shown(selector), [], selector)
            for selector in (".picture", ".picture svg", ".modeline", "#table tbody tr", "[role=treeitem]"):
                whole = self.run_script("return document.querySelectorAll(arguments[0]).length", selector)
                self.assertGreater(whole, 10)
                self.assertEqual(self.run_script("""return [...document.querySelectorAll(arguments[0])]
                    .filter(e => e.getBoundingClientRect().height > 0).length""", selector), whole, selector)
        finally:
            self.browser.execute_cdp_cmd("Emulation.setScriptExecutionDisabled", {"value": False})

    def test_bytes_have_names(self):
        for name, cell, text in [("one", "a56", "0x38: 80, Horizontal addressable video"),
                                 ("two", "b16", "0x10: 23, other image 22, Week of manufacture")]:
            self.open(name)
            self.assertEqual(self.one("#" + cell).get_attribute("aria-label"), text)

    def test_light_turns_by_the_button(self):
        for dark in (False, True):
            self.open(dark=dark)
            seen = []
            for _ in range(3):
                seen.append((self.run_script("return getComputedStyle(document.body).backgroundColor"),
                             self.one("#theme").text))
                self.one("#theme").click()
            self.assertEqual(seen[0], seen[2])
            self.assertNotEqual(seen[0][0], seen[1][0])
            self.assertEqual([text for _, text in seen[:2]], ["Light", "Dark"] if dark else ["Dark", "Light"])

    def test_bytes_mark_their_fields(self):
        self.open()
        self.run_script("document.querySelector('#a0').focus()")
        self.assertEqual(self.marked(), [list(range(8)), ["Header"]])
        self.press(Keys.ARROW_DOWN, Keys.ARROW_DOWN, Keys.ARROW_DOWN, *[Keys.ARROW_RIGHT] * 8)
        self.assertEqual(self.focused(), "a56")
        self.assertEqual(self.marked(), [[56, 58], ["Horizontal addressable video"]])
        said = self.one(".said").text
        for part in ("Byte 0x38: 80", "10000000", "Horizontal addressable video", "1920 pixels"):
            self.assertIn(part, said)
        self.press(Keys.ARROW_RIGHT, Keys.ARROW_RIGHT)  # shared by two fields
        self.assertEqual(self.marked(), [[56, 57, 58], ["Horizontal addressable video", "Horizontal blanking"]])
        self.press(Keys.END)
        self.assertEqual(self.focused(), "a63")
        self.press(Keys.PAGE_DOWN, Keys.HOME, Keys.ARROW_UP)  # over the end of a block
        self.assertEqual(self.focused(), "a160")
        self.press(Keys.CONTROL + Keys.END, Keys.ARROW_DOWN)
        self.assertEqual(self.focused(), "a255")
        self.assertEqual(self.run_script("return document.querySelectorAll('[role=gridcell][tabindex=\"0\"]').length"), 1)

    def test_fields_mark_their_bytes(self):
        self.open()
        self.run_script("document.querySelector('[role=treeitem]').focus()")
        self.assertEqual(self.marked(), [list(range(128)), ["Base block"]])
        self.press(Keys.ARROW_RIGHT)
        self.assertEqual((self.focused(), self.marked()), ("Header", [list(range(8)), ["Header"]]))
        self.press(Keys.ARROW_DOWN, Keys.ARROW_LEFT, Keys.ARROW_DOWN)  # closes a group and passes it
        self.assertEqual(self.focused(), "EDID structure version and revision")
        self.press(Keys.ARROW_UP, Keys.ENTER, Keys.ARROW_DOWN, Keys.ARROW_DOWN)
        self.assertEqual((self.focused(), self.marked()), ("ID manufacturer name", [[8, 9], ["ID manufacturer name"]]))
        self.assertIn("ACI", self.one(".said").text)
        # By the mouse: pointing marks for the moment, and what has the focus comes back.
        cell = self.one("#a16")
        webdriver.ActionChains(self.browser).move_to_element(cell).perform()
        self.assertEqual(self.marked(), [[16], ["Week of manufacture"]])
        webdriver.ActionChains(self.browser).move_to_element(self.one("h1")).perform()
        self.assertEqual(self.marked(), [[8, 9], ["ID manufacturer name"]])
        self.one("#a17").click()
        self.assertEqual((self.focused(), self.marked()), ("a17", [[17], ["Year of manufacture"]]))

    def test_fields_are_found(self):
        self.open()
        groups = ["Base block", "Basic display parameters and features"]
        self.one(".find input").send_keys("gamma")
        gamma = groups + ["Display transfer characteristic (gamma)"]
        self.assertEqual(self.shown("[role=treeitem]"), gamma)
        # A byte whose field the search hides shows it.
        self.run_script("document.querySelector('#a21').focus()")
        self.assertEqual(self.shown("[role=treeitem]"), groups + ["Horizontal screen size", gamma[2]])
        self.assertEqual(self.shown(".field.on"), ["Horizontal screen size"])
        for text, last, none in [("0x17", gamma[2], ""), ("vic 31", "Video identification code", ""),
                                 ("zzzz", None, "No field has this text.")]:
            self.one(".find input").clear()
            self.one(".find input").send_keys(text)
            self.assertEqual((self.shown("[role=treeitem]") or [None])[-1], last)
            self.assertEqual(self.one(".none").text, none)

    def rows(self):
        return self.run_script("""return [...document.querySelectorAll("#table tbody tr")].filter(e => !e.hidden)
            .map(e => [...e.cells].map(c => c.textContent.trim()))""")

    def test_index_sorts_filters_and_leads_to_pages(self):
        self.browser.execute_cdp_cmd("Emulation.setScriptExecutionDisabled", {"value": True})
        self.open("index")
        self.assertEqual([self.shown(selector) for selector in (".tools", "#theme", "#table button")], [[], [], []])
        self.browser.execute_cdp_cmd("Emulation.setScriptExecutionDisabled", {"value": False})
        self.open("index")
        whole = len(self.rows())
        self.assertEqual(self.one("#count").text, f"{whole} of {whole}")
        # By the keyboard alone: the heads sort, the filter and the list choose, a name leads to its page.
        heads = self.browser.find_elements(By.CSS_SELECTOR, "#table thead button")
        images = whole - sum(len(row) == 2 for row in self.rows())  # of the others only a reason is known
        modes = [int(row[4]) for row in self.rows()[:images]]
        heads[4].send_keys(Keys.ENTER)
        self.assertEqual([int(row[4]) for row in self.rows()[:images]], sorted(modes))
        for column, words in ((7, ["none", "note", "warning", "error"]), (5, ["not", "HDR10; peak 90 ", "HDR10; peak 400"]),
                              (6, ["not", "from 40 Hz", "30 to 144 Hz"])):
            for way in (1, -1):
                heads[column].send_keys(Keys.ENTER)
                rows = self.rows()
                found = [re.search("|".join(words[::-1]), row[column])[0] for row in rows[:images]]
                self.assertEqual(found, sorted(found, key=words.index, reverse=way < 0))
                self.assertEqual({len(row) for row in rows[images:]}, {2})
            self.assertLess({words[0], words[-1]}, set(found))
        self.one("#filter").send_keys("one0 1920x1080")
        self.assertEqual([row[0] for row in self.rows()], ["ASUS VE276one0.bin"])
        self.one("#filter").clear()
        self.one("#list").send_keys("refused")
        self.assertEqual([row[0] for row in self.rows()], ["ASUS VE276cut0.bin"])
        self.one("#table a[href*=cut0]").send_keys(Keys.ENTER)
        self.assertEqual(self.one(".file").text, "cut0.bin")
        self.browser.find_element(By.LINK_TEXT, "All monitors").send_keys(Keys.ENTER)
        self.assertTrue(self.browser.current_url.endswith("/out/index.html"))

    def test_timings_sort_filter_and_show(self):
        self.open()
        whole = len(self.rows())
        self.assertEqual(self.rows()[0][:2], ["detailed 0", "1920 \u00d7 1080"])
        heads = self.browser.find_elements(By.CSS_SELECTOR, "#table thead button")
        for column, key in ((3, float), (1, lambda text: [int(part.strip("i")) for part in text.split(" \u00d7 ")])):
            for way in ("ascending", "descending"):
                heads[column].click()
                values = [key(row[column]) for row in self.rows()]
                self.assertEqual(values, sorted(values, reverse=way == "descending"))
                self.assertEqual(heads[column].find_element(By.XPATH, "..").get_attribute("aria-sort"), way)
        self.one("#filter").send_keys("vic 1920x1080i")
        self.assertEqual(self.shown(".picture"), [])  # that of a row that the filter hides
        self.assertEqual({row[1] for row in self.rows()}, {"1920 \u00d7 1080i"})
        self.assertEqual(self.one("#count").text, f"{len(self.rows())} of {whole}")
        for text, cell in [("1920X1080i@60", "1920 \u00d7 1080i"), ("Detailed  0", "detailed 0")]:
            self.one("#filter").clear()
            self.one("#filter").send_keys(text)
            self.assertTrue(self.rows() and all(cell in row for row in self.rows()), (text, self.rows()))
        self.one("#filter").clear()
        self.one("#list option:nth-child(4)").click()
        self.assertEqual({row[0].split()[0] for row in self.rows()}, {"detailed"})
        self.assertEqual(self.one(".picture:not([hidden]) figcaption").text, "1920 \u00d7 1080 at 60 Hz")
        self.one("#table input[value='1']").click()
        pictures = self.browser.find_elements(By.CSS_SELECTOR, ".picture:not([hidden])")
        self.assertEqual(len(pictures), 1)
        self.assertIn("720 \u00d7 480 at 59.94 Hz", pictures[0].text)

    @unittest.skipUnless(os.path.exists(AXE), f"no axe-core at {AXE}")
    def test_axe_finds_nothing_of_weight(self):
        with open(AXE, encoding="utf-8") as file:
            axe = file.read()
        # What passes, megabytes of it, need not be handed over.
        run = "axe.run({ resultTypes: ['violations'], preload: false }).then(result => arguments[0](result.violations))"
        # Byte 35 has more fields than the box above the bytes holds.
        for name, width, dark in (("one", 1600, True), ("one", 360, False), ("cut", 1600, False),
                                  ("bases", 360, True), ("index", 1600, False), ("index", 360, True)):
            with self.subTest(name=name, width=width, dark=dark):
                self.open(name, width, dark)
                self.run_script("document.querySelector('#a35')?.focus()")
                self.run_script(axe)
                found = self.browser.execute_async_script(run)
                self.assertEqual([(one["id"], one["impact"], len(one["nodes"]), one["nodes"][0]["html"][:200],
                                   one["nodes"][0]["failureSummary"]) for one in found], [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
