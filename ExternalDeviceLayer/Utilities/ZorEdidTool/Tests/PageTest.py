# The page of zoredid as a file: well-formed, whole in itself, true to the bytes, and nothing of an image in it but text.
#   PageTest.py COMMAND PROJECT [CORPUS]
# PageBrowserTest.py opens it in a browser.

import base64
import glob
import hashlib
import html.parser
import os
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
import urllib.parse

from Checksums import fix_sums

COMMAND, PROJECT, CORPUS = (sys.argv[1:] + [""])[:3]
with open(os.path.join(PROJECT, "examples/monitor.bin"), "rb") as file:
    MONITOR = file.read()
VOID = {"meta", "input", "link", "br", "hr", "img"}


class Page(html.parser.HTMLParser):
    """Elements in their order; fails where tags do not match."""

    def __init__(self, text):
        super().__init__(convert_charrefs=True)
        self.source, self.open, self.elements = text, [], []
        self.feed(text)
        self.close()
        if self.open:
            raise AssertionError(f"not closed: {self.open}")

    def handle_starttag(self, tag, attrs):
        names = [name for name, _ in attrs]
        if len(set(names)) != len(names):
            raise AssertionError(f"{tag}: an attribute twice: {attrs}")
        element = {"tag": tag, "text": "", **dict(attrs)}
        self.elements.append(element)
        if tag not in VOID:
            self.open.append(element)

    def handle_startendtag(self, tag, attrs):  # as SVG has it
        self.handle_starttag(tag, attrs)
        self.open.pop()

    def handle_endtag(self, tag):
        if not self.open or self.open[-1]["tag"] != tag:
            raise AssertionError(f"</{tag}> closes {self.open[-1:]}")
        self.open.pop()

    def handle_data(self, data):
        for element in self.open:
            element["text"] += data

    def all(self, **wanted):
        """The elements with these attributes; an underscore before a name is left out, and one in it is '-'."""
        wanted = {name.lstrip("_").replace("_", "-"): value for name, value in wanted.items()}
        return [element for element in self.elements
                if all(element.get(name) == value for name, value in wanted.items())]


def with_descriptors(*texts):
    """The example with its last three descriptors replaced: serial text, free text and name."""
    image = bytearray(MONITOR)
    for start, tag, text in zip((0x48, 0x5A, 0x6C), (0xFF, 0xFE, 0xFC), texts):
        image[start:start + 18] = bytes([0, 0, 0, tag, 0]) + (text + b"\n").ljust(13, b" ")[:13]
    return fix_sums(bytes(image))


class PageTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def save(self, image, name=b"image.bin"):
        path = os.path.join(os.fsencode(self.folder), name)
        with open(path, "wb") as file:
            file.write(image)
        return path

    def run_page(self, *arguments):
        return subprocess.run([COMMAND, "page", *arguments], capture_output=True, timeout=120)

    def make(self, *paths):
        done = self.run_page(*paths, "-o", "-")
        self.assertEqual(done.returncode, 0)
        self.assertRegex(done.stderr, rb"^(zoredid: \S+: the file holds \w+ EDIDs, .*\n)?$")  # some of a folder do
        page = Page(done.stdout.decode("utf-8"))  # strictly
        self.check_whole(page)
        return page

    def check_whole(self, page):
        """Nothing from elsewhere, the policy knows style and script, and every reference inside leads somewhere."""
        ids = [element["id"] for element in page.elements if "id" in element]
        self.assertEqual(len(set(ids)), len(ids))
        self.assertNotRegex(page.source, r"(?i)https?:|@import|url\((?!#)|<base|<link|<iframe|<img|<object|<embed")
        for element in page.elements:
            for name, value in element.items():
                self.assertFalse(name.startswith("on") or name in ("src", "style", "action", "srcset"), element)
                if name in ("href", "xlink:href"):
                    self.assertIn(value[1:], ids)
                if name in ("aria-labelledby", "aria-describedby"):
                    self.assertLessEqual(set(value.split()), set(ids))
        policy = [element["content"] for element in page.all(tag="meta") if "http-equiv" in element]
        self.assertEqual(len(policy), 1)
        self.assertIn("default-src 'none'", policy[0])
        self.assertNotIn("unsafe", policy[0])
        for tag in ("style", "script"):
            parts = re.findall(rf"<{tag}>(.*?)</{tag}>", page.source, re.DOTALL)
            self.assertEqual(len(parts), 1)
            digest = base64.b64encode(hashlib.sha256(parts[0].encode()).digest()).decode()
            self.assertIn(f"{tag}-src 'sha256-{digest}'", policy[0])

    def test_the_app_is_opened_where_there_is_a_desktop(self):
        program = os.path.join(self.folder, "bin/zoredid")
        app = os.path.join(self.folder, "share/zoredid/zoredid.html")
        opener, opened = os.path.join(self.folder, "bin/xdg-open"), os.path.join(self.folder, "opened")
        for path in program, app:
            os.makedirs(os.path.dirname(path))
        shutil.copy(COMMAND, program)
        with open(opener, "w", encoding="utf-8") as file:
            file.write(f'#!/bin/sh\necho "$1" > {opened}\n')
        os.chmod(opener, 0o755)
        desktop, none = {"DISPLAY": ":0", "PATH": os.path.dirname(opener)}, {"DISPLAY": "", "PATH": "/nowhere"}

        def run(environment):
            done = subprocess.run([program, "page", "--app"], capture_output=True, env=environment, timeout=60)
            return done.returncode, done.stdout.decode()

        self.assertEqual(run(desktop), (3, ""))
        with open(app, "w", encoding="utf-8"):
            pass
        for environment in none, {**none, "DISPLAY": ":0"}:
            self.assertEqual(run(environment), (0, app + "\n"))
        self.assertEqual(run(desktop), (0, ""))
        with open(opened, encoding="utf-8") as file:
            self.assertEqual(file.read(), app + "\n")
        for arguments in ("--app", self.save(MONITOR)), ("--app", "-o", "-"), (), (self.save(MONITOR),):
            self.assertEqual(self.run_page(*arguments).returncode, 2, arguments)

    def cells(self, page, key="a"):
        return [element for element in page.all(role="gridcell") if element["id"][0] == key]

    def test_every_byte_has_its_cell_and_its_field(self):
        page = self.make(self.save(MONITOR))
        cells = self.cells(page)
        self.assertEqual([cell["text"] for cell in cells], ["%02x" % byte for byte in MONITOR])
        self.assertEqual([cell["id"] for cell in cells], ["a%d" % i for i in range(len(MONITOR))])
        covered = set()
        for item in page.all(role="treeitem"):
            runs = [tuple(map(int, run.split("+"))) for run in item["data-p"].split()]
            self.assertTrue(runs and all(start + length <= len(MONITOR) for start, length in runs), item["data-p"])
            if "aria-expanded" not in item:
                covered |= {i for start, length in runs for i in range(start, start + length)}
        self.assertEqual(covered, set(range(len(MONITOR))))

    def test_what_it_says_of_the_example(self):
        page = self.make(self.save(MONITOR))
        text = page.all(tag="main")[0]["text"]
        self.assertEqual(page.all(tag="h1")[0]["text"], "ASUS VE276")
        for part in ["27.0 in, 598 \u00d7 336 mm", "week 34 of 2010", "1920 \u00d7 1080 at 60 Hz", "gamma 2.20",
                     "The check finds nothing.", "Pixel clock 148.50 MHz 36-37",
                     'Modeline "1920x1080_60" 148.50 1920 2008 2052 2200 1080 1084 1089 1125 +hsync +vsync']:
            self.assertIn(part, text)
        row = next(row["text"] for row in page.all(tag="tr") if "detailed 0" in row["text"])
        for part in ["1920 \u00d7 108060148.500", "67.50", "preferred"]:
            self.assertIn(part, row)
        # To scale: active 1920 x 1080 at 44 + 148, 5 + 36 in 2200 x 1125; sync over all of both sides.
        boxes = {(box["class"], box["x"], box["y"], box["width"], box["height"])
                 for box in page.all(tag="rect") if box.get("class") in ("active", "sync")}
        self.assertLessEqual({("active", "192", "41", "1920", "1080"), ("sync", "0", "0", "44", "1125"),
                              ("sync", "0", "0", "2200", "5")}, boxes)
        image = bytearray(MONITOR)
        image[0x45:0x47] = b"\x08\x04"  # borders, which lie between active area and porches
        borders = self.make(self.save(fix_sums(bytes(image)))).all(tag="rect", _class="border")
        self.assertEqual([(box["x"], box["y"], box["width"], box["height"]) for box in borders],
                         [("184", "37", "1936", "1088")])
        # x and y of the triangle as the bytes have them: 500 units a step, from 44 and 460.
        self.assertIn("M367.7 293L186.1 156.3L119.7 424.4Z", [path["d"] for path in page.all(_class="triangle own")])

    def test_words_of_extensions(self):
        # HDMI, HDMI Forum, HDR with 50 * 2 ^ (96 / 32) cd/m2, colorimetry with BT.2020 RGB and YCC.
        data = bytes.fromhex("67030c0010000078" "67d85dc401780000" "e60605016060 12" "e305c000".replace(" ", ""))
        block = bytes([2, 3, 4 + len(data), 0]) + data
        facts = self.facts(fix_sums(MONITOR[:128] + block.ljust(128, b"\0")))
        self.assertEqual(facts["Link"], "HDMI 2.0, TMDS to 600 MHz")
        self.assertEqual((facts["Preferred mode"], facts.get("Native")), ("1920 \u00d7 1080 at 60 Hz", None))
        self.assertEqual(facts["HDR"], "HDR10; peak 400 cd/m\u00b2, frame average 400, minimum 0.02")
        self.assertEqual(facts["Colour"], "RGB 8; BT.2020, gamma 2.20; covers 97 % of sRGB and 76 % of DCI-P3 (area in x, y)")
        # A television of HDMI 2.1: the Forum's block with FRL 6, ALLM and rates from 48 to 120 Hz, and audio.
        data = bytes.fromhex("2309 0707 67030c0010000078 6bd85dc4017880630230 7800".replace(" ", ""))
        block = bytes([2, 3, 4 + len(data), 0x40]) + data
        facts = self.facts(fix_sums(MONITOR[:128] + block.ljust(128, b"\0")))
        self.assertEqual({name: facts[name] for name in ("Link", "Link features", "Variable refresh", "Audio")}, {
            "Link": "HDMI 2.1, FRL 4 \u00d7 12 Gbit/s, TMDS to 600 MHz", "Link features": "ALLM, SCDC",
            "Variable refresh": "48 to 120 Hz (HDMI Forum)", "Audio": "PCM 2ch 48 kHz"})

    def facts(self, image):
        page = self.make(self.save(image))
        return dict(zip([name["text"] for name in page.all(tag="dt")], [text["text"] for text in page.all(tag="dd")]))

    def test_words_of_odd_images(self):
        def change(changes, image=MONITOR):
            image = bytearray(image)
            for offset, text in changes.items():
                image[offset:offset + len(text) // 2] = bytes.fromhex(text)
            return fix_sums(bytes(image))
        self.assertEqual(self.facts(change({0x10: "3c"}))["Made"], "2010")  # week 60
        self.assertEqual(set(self.facts(MONITOR[:20])), {"Image", "Library"})  # no block
        cut = self.facts(MONITOR[:100])  # within the base block: what it still says
        self.assertEqual((cut["Maker"], cut["Preferred mode"]), ("ASUSTek Computer Inc. (ACI)", "1920 \u00d7 1080 at 60 Hz"))
        self.assertEqual(cut["HDR"], "not known: the image ends before block 1")
        self.assertNotIn("Range limits", cut)
        port = {0x13: "04", 0x14: "a5", 0x18: "2b", 0x7E: "00"}  # DisplayPort, continuous frequency
        for more, words in ({}, "50 to 85 Hz (range limits with continuous frequency)"), (
                {0x5D: "10"}, "continuous frequency, no range given"):
            self.assertEqual(self.facts(change(port | more, MONITOR[:128]))["Variable refresh"], words)
        # Two blocks of HDMI do not make one of the Forum; what follows the announced blocks is not part of it.
        forum = b"\x02\x03\x0c\0\x67\xd8\x5d\xc4\1\x78\0\0".ljust(128, b"\0")
        for extra, count, found in [(MONITOR[128:], "02", "HDMI"), (forum, "01", "HDMI"),
                                    (forum, "02", "HDMI 2.0, TMDS to 600 MHz")]:
            self.assertEqual(self.facts(change({0x7E: count}, MONITOR + extra))["Link"], found)
        # Byte 18h of 1.4 calls the preferred timing native.
        self.assertEqual(self.facts(change({0x13: "04", 0x14: "a5", 0x18: "2a"}))["Native"],
                         "1920 \u00d7 1080 pixels, 1920 \u00d7 1080 at 60 Hz")
        # Limits with the offsets of 1.4; codes that CEA-861-F read otherwise.
        page = self.make(self.save(change({0x13: "04", 0x5E: "0a2814180a"})))
        self.assertEqual([rect["class"] for rect in page.all(tag="rect") if "limits" in rect.get("class", "")],
                         ["limits band", "limits"])
        self.assertNotIn("range limits", self.make(self.save(change({0x5D: "10"}))).all(id="modes")[0]["text"])
        text = self.make(self.save(change({0x85: "da"}))).all(id="timings")[0]["text"]
        for part in ["4096 \u00d7 21601001188.000225.00Short video descriptor 0, VIC 218, the list takes byte da for VIC 90",
                     "1 of the modes is not listed by the library"]:
            self.assertIn(part, text)

    def test_texts_of_an_image_stay_texts(self):
        plain = self.make(self.save(with_descriptors(*[b"plain text 13"] * 3), b"plain.bin"))
        hostile = [b"</script><img", b"\"><svg onload", b"' onclick=x//"]
        for texts in (hostile, hostile[1:] + hostile[:1], [b"&lt;&#60;<!--", b"]]>-><s>&amp;", b"${x}`\\u003cb>"]):
            name = b"\"><img src=x onerror=alert(1)>&amp;\xff.bin"
            page = self.make(self.save(with_descriptors(*texts), name))
            self.assertEqual([element["tag"] for element in page.elements],
                             [element["tag"] for element in plain.elements])
            self.assertEqual(page.all(tag="h1")[0]["text"], texts[2].decode())
            for text in texts:
                self.assertIn(text.decode(), page.all(tag="main")[0]["text"])
            self.assertIn("\"><img src=x onerror=alert(1)>&amp;\\xff.bin", page.all(_class="file")[0]["text"])

    def rows(self, page):
        """The cells of the timings, row by row."""
        start = next(i for i, element in enumerate(page.elements) if element.get("id") == "table")
        rows = []
        for element in page.elements[start:]:
            if element["tag"] == "tr":
                rows.append([])
            elif element["tag"] in ("th", "td"):
                rows[-1].append(element["text"].strip())
            elif element["tag"] == "figure":
                break
        return rows[1:]

    def test_what_the_library_refuses_has_a_page(self):
        cut = self.make(self.save(MONITOR[:200]))
        self.assertIn("not a multiple of 128", cut.all(tag="main")[0]["text"])
        rows = [row["text"] for row in cut.all(tag="tr") if "Detailed timing" in row["text"]]
        for part in ["1920 \u00d7 108060", "67.50", "preferred"]:
            self.assertIn(part, rows[0])
        # With a bad header all stays that the bytes say, the maker's name, too; no row has a number.
        sizes = {}
        for name, first in (("good", b"\0"), ("bad", b"\x0c")):
            page = self.make(self.save(first + MONITOR[1:]))
            self.assertIn("ASUSTek Computer Inc. (ACI)", page.all(id="monitor")[0]["text"])
            rows = self.rows(page)
            self.assertEqual({row[0] for row in rows} == {"-"}, name == "bad")
            sizes[name] = sorted(row[1:5] for row in rows)
        self.assertEqual(sizes["good"], sizes["bad"])
        self.assertIn(["832 \u00d7 624", "74.55", "57.284", "49.73"], sizes["bad"])
        source = random.Random(14)
        for size in (1, 54, 127, 128, 256, 500, 1024):
            with self.subTest(size):
                image = bytes(source.randrange(256) for _ in range(size - 1)) + b"\0"  # with a zero it is a raw image
                self.assertEqual(len(self.cells(self.make(self.save(image)))), size)
        for size in (256, 512):  # wild values in blocks that load
            image = bytearray(MONITOR[:8] + bytes(source.randrange(256) for _ in range(size - 8)))
            image[18:20], image[126], image[128:130] = b"\1\4", size // 128 - 1, b"\2\3"
            self.make(self.save(fix_sums(bytes(image))))

    def test_a_page_that_would_be_too_large_says_what_it_leaves_out(self):
        def full(blocks):
            codes = bytes([2, 3, 127, 0]) + b"".join(b"\x5e" + bytes(range(at, at + 30)) for at in (1, 31, 61)) + b"\x5d"
            block = codes + bytes(range(91, 91 + 127 - len(codes))) + b"\0"
            return self.save(fix_sums(MONITOR[:126] + bytes([blocks, 0]) + block * blocks))

        whole, path = self.make(full(4)), full(50)
        self.assertEqual(([], 0), (whole.all(_class="more"), sum("left out" in e["text"] for e in whole.elements)))
        page = self.make(path)
        self.assertLess(len(page.source), 5000000)
        more = [re.match(r"(\d+) more (\w+) .*zoredid (.*) has all", e["text"]).groups() for e in page.all(_class="more")]
        self.assertEqual([("findings", "check"), ("fields", "explain"), ("modes", "modes")], [line[1:] for line in more])
        lines = subprocess.run([COMMAND, "check", path], capture_output=True, text=True).stdout.splitlines()
        found = sum(line.endswith("]") for line in lines)
        self.assertEqual(found, int(more[0][0]) + sum("badge" in e.get("class", "") for e in page.elements))
        # Bytes of a block without its fields are the block's own.
        covered = set()
        for item in page.all(role="treeitem"):
            if "aria-expanded" not in item:
                for run in item["data-p"].split():
                    start, length = map(int, run.split("+"))
                    covered.update(range(start, start + length))
        self.assertEqual(set(range(51 * 128)), covered)

    def test_an_image_is_not_overwritten(self):
        path = self.save(MONITOR)
        self.assertEqual(self.run_page(path, "-o", path, "--force").returncode, 3)
        with open(path, "rb") as file:
            self.assertEqual(file.read(), MONITOR)

    def test_two_images(self):
        other = bytearray(MONITOR)
        other[0x10] = 35              # the week
        other[0x26:0x28] = b"\1\1"    # 1152 x 864 goes
        other = fix_sums(bytes(other))
        page = self.make(self.save(MONITOR), self.save(other, b"other.bin"))
        for key in "ab":
            self.assertEqual([cell["id"] for cell in self.cells(page, key) if "differs" in cell["class"]],
                             [f"{key}{offset}" for offset in (0x10, 0x26, 0x27, 0x7F)])
        lines = [row["text"] for row in page.all(tag="li")]
        self.assertIn("0x10 identity.week A: 34 B: 35", lines)
        self.assertIn("0x26 1152 \u00d7 864 at 75 Hz, 108.000 MHz A: Standard timings B: missing", lines)
        self.assertIn("4 bytes differ. Modes only in A: 1, only in B: 0.", page.all(tag="main")[0]["text"])
        self.assertEqual([row["text"] for row in page.all(_class="differs", tag="tr")][0].split()[:3],
                         ["standard", "0A1152", "\u00d7"])
        # A code that goes and a data block that comes move the others; only these two differ.
        data = MONITOR[0x84:0xA2]
        moved = bytearray(MONITOR[:0x84] + b"\x4e" + data[2:16] + b"\xe2\0\0" + data[16:] + MONITOR[0xA2:0xFD] + b"\0")
        moved[0x82] += 2
        page = self.make(self.save(MONITOR), self.save(fix_sums(bytes(moved)), b"other.bin"))
        rows = [row for part in page.all(_class="differences") for row in part["text"].splitlines() if row]
        self.assertEqual([row.split(" ", 1)[1].split(" A:")[0] for row in rows],
                         ["640 \u00d7 480 at 60 Hz, 25.200 MHz", "640 \u00d7 480 at 59.94 Hz, 25.174825 MHz",
                          "colour.selectable_rgb_range", "colour.selectable_ycc_range", "size.ce_scan", "size.it_scan",
                          "size.preferred_scan"])
        # Timings that are nearly the same, such as those at 1000/1001, find their own.
        same = self.rows(self.make(self.save(MONITOR), self.save(MONITOR)))
        self.assertEqual([row[:2] for row in same if row[0].startswith("A ") or row[1] != "both"], [])
        self.assertIn("Both say the same.", self.make(self.save(MONITOR), self.save(MONITOR)).all(tag="main")[0]["text"])

    def tree(self, root):
        """Every file below a folder with its content and when it was written."""
        files = {}
        for folder, _, names in os.walk(root):
            for name in names:
                path = os.path.join(folder, name)
                with open(path, "rb") as file:
                    files[os.path.relpath(path, root)] = file.read(), os.stat(path).st_mtime_ns
        return files

    def make_folder(self, *options, status=0):
        done = self.run_page(os.path.join(self.folder, "in"), "-o", os.path.join(self.folder, "out"), *options)
        self.assertEqual(done.returncode, status, done.stderr)
        return done

    def fill_folder(self):
        """Two images of one name, names that are hostile or look like one of several EDIDs, a cut image, no image."""
        for name, image in {b"in/monitor.bin": MONITOR, b"in/sub/monitor.bin": MONITOR[:128] + MONITOR[128:255] + b"\0",
                            b"in/a\"><img src=x>&#%\xff.bin": with_descriptors(b"</th>", b"<b>", b"</script><x"),
                            b"in/two.bin": MONITOR + with_descriptors(b"1", b"2", b"Second"),
                            b"in/two.bin (image 1)": MONITOR, b"in/sub/cut.bin": MONITOR[:100],
                            b"in/zero.bin": b"", b"in/.hidden": MONITOR}.items():
            os.makedirs(os.path.dirname(os.path.join(os.fsencode(self.folder), name)), exist_ok=True)
            self.save(image, name)
        os.symlink("..", os.path.join(self.folder, "in/sub/round"))
        os.mkfifo(os.path.join(self.folder, "in/pipe"))

    def test_a_folder_has_an_index_and_a_page_for_each_image(self):
        self.fill_folder()
        done = self.make_folder("-j3", status=3)
        self.assertEqual(done.stderr.count(b"\n"), 1)  # of what cannot be read
        self.assertIn(b"index.html: 7 pages made, 0 unchanged, 1 unreadable", done.stdout)
        out = os.path.join(self.folder, "out")
        with open(os.path.join(out, "index.html"), encoding="utf-8") as file:
            index = Page(file.read())
        rows = [element for element in index.all(tag="tr") if "data-list" in element]
        self.assertEqual(len(rows), 8)
        links = [element["href"] for element in index.all(tag="a")][1:]
        paths = {os.path.join(os.fsencode(out), urllib.parse.unquote_to_bytes(link)) for link in links}
        pages = {os.path.join(os.fsencode(out), os.fsencode(name)) for name in self.tree(out) if name != "index.html"}
        self.assertEqual((len(links), paths), (7, pages))
        for path in pages:  # and back
            with open(path, encoding="utf-8") as file:
                back = Page(file.read()).all(tag="a")[1]["href"]
            self.assertTrue(os.path.samefile(os.path.join(os.path.dirname(path), os.fsencode(back)),
                                             os.path.join(out, "index.html")))
        texts = {row["text"]: row["data-list"] for row in rows}
        for start, choices in {"ASUS VE276monitor.bin": "none", "ASUS VE276sub/monitor.bin": "error",
                               "zero.bin": "unread", "</script><xa\"><img src=x>&#%\\xff.bin": "warning",
                               "Secondtwo.bin (image 2)": "warning", "product 0x27f4sub/cut.bin": "error refused"}.items():
            self.assertEqual([texts[text] for text in texts if text.startswith(start)], [choices], start)
        row = next(text for text in texts if text.startswith("ASUS VE276monitor.bin"))
        self.assertEqual(row, "ASUS VE276monitor.binASUSTek Computer Inc. (ACI)27.0 in, 598 \u00d7 336 mm"
                              "1920 \u00d7 1080 at 60 Hz48not announcednot announcednone")

    def test_a_folder_is_resumed(self):
        self.fill_folder()
        self.make_folder("-j2", status=3)
        out = os.path.join(self.folder, "out")
        first = self.tree(out)
        self.assertIn(b"0 pages made, 7 unchanged", self.make_folder(status=3).stdout)
        kept = {name: one for name, one in self.tree(out).items() if name != "index.html"}
        self.assertEqual(kept, {name: one for name, one in first.items() if name != "index.html"})
        # What has changed, has gone, or was broken off, and nothing else.
        os.remove(os.path.join(out, "pages/two.bin (image 2).html"))
        self.save(with_descriptors(b"1", b"2", b"Other"), b"in/monitor.bin")
        self.assertIn(b"2 pages made, 5 unchanged", self.make_folder(status=3).stdout)
        second = self.tree(out)
        self.assertEqual({name for name in first if first[name] != second[name]},
                         {"index.html", "pages/monitor.bin.html", "pages/two.bin (image 2).html"})
        self.assertIn(b"Other", second["index.html"][0])
        self.assertIn(b"7 pages made, 0 unchanged", self.make_folder("--force", status=3).stdout)

    def test_a_folder_replaces_nothing_of_others(self):
        os.makedirs(os.path.join(self.folder, "in"))
        os.makedirs(os.path.join(self.folder, "out/pages"))
        for name in (b"in/a", b"in/b"):
            self.save(MONITOR, name)
        self.save(b"mine", b"out/pages/a.html")
        done = self.make_folder(status=3)
        self.assertIn(b"1 page made", done.stdout)
        self.assertRegex(done.stderr, rb"pages/a.html: exists already")
        out = self.tree(os.path.join(self.folder, "out"))
        self.assertEqual(out["pages/a.html"][0], b"mine")
        self.assertNotIn(b"pages/a.html", out["index.html"][0])  # no link, but a row
        self.assertEqual(out["index.html"][0].count(b"<tr data-list"), 2)
        self.save(b"mine", b"out/index.html")
        self.assertIn(b"index.html: exists already", self.make_folder(status=3).stderr)
        self.assertIn(b"2 pages made", self.make_folder("--force").stdout)
        folder = os.path.join(self.folder, "in")
        for arguments, status in [([folder, "-o", "-"], 2), ([folder, folder + "/a", "-o", folder + "x"], 2),
                                  ([folder, "-o", folder], 3), ([folder, "-o", folder + "/a"], 3)]:
            self.assertEqual(self.run_page(*arguments).returncode, status, arguments)

    def test_a_folder_that_breaks_off_leaves_whole_pages(self):
        os.makedirs(os.path.join(self.folder, "in"))
        for i in range(300):
            os.link(self.save(MONITOR) if i == 0 else os.path.join(self.folder, "image.bin"),
                    os.path.join(self.folder, "in", f"{i}.bin"))
        command = [COMMAND, "page", os.path.join(self.folder, "in"), "-o", os.path.join(self.folder, "out"), "-j4"]
        run = subprocess.Popen(command, stdout=subprocess.PIPE)
        while len(glob.glob(os.path.join(self.folder, "out/pages/*.html"))) < 20 and run.poll() is None:
            time.sleep(0.01)
        run.terminate()
        run.communicate()
        left = self.tree(os.path.join(self.folder, "out"))
        self.assertEqual([name for name in left if ".zoredid." in name], [])
        done = subprocess.run(command, capture_output=True, timeout=120)
        made, kept = map(int, re.search(rb"(\d+) pages? made, (\d+) unchanged", done.stdout).groups())
        self.assertEqual(made + kept, 300)
        self.assertGreaterEqual(kept, len(left))
        self.assertTrue(all(data.endswith(b"</html>\n") for data, _ in self.tree(self.folder + "/out").values()))

    def test_output(self):
        image, out = self.save(MONITOR), os.path.join(self.folder, "page.html")
        self.assertEqual(self.run_page(image, "-o", out).returncode, 0)
        with open(out, "wb") as file:
            file.write(b"mine")
        done = self.run_page(image, "-o", out)
        self.assertEqual((done.returncode, done.stdout), (3, b""))
        self.assertIn(b"exists already (use --force)", done.stderr)
        with open(out, "rb") as file:
            self.assertEqual(file.read(), b"mine")
        self.assertEqual(self.run_page(image, "-o", out, "--force").returncode, 0)
        self.assertGreater(os.path.getsize(out), 10000)
        for arguments, status in [([image], 2), ([image, self.folder + "/none", "-o", "-"], 3), (["", "-o", "-"], 3),
                                  (["", image, "-o", "-"], 3), ([image, "", "-o", "-"], 3)]:
            done = self.run_page(*arguments)
            self.assertEqual((done.returncode, done.stdout), (status, b""))

    @unittest.skipUnless(CORPUS, "no folder of further images")
    def test_images_of_a_folder(self):
        files = sorted(name for name in os.listdir(CORPUS) if name.endswith(".bin"))
        for name in files[::max(1, len(files) // 20)]:  # parsing is slow
            with self.subTest(name):
                self.make(os.path.join(CORPUS, name))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
