"""Tests of zoredid make from outside. MakeTest.py COMMAND PROJECT [CORPUS]."""

import json
import os
import random
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

try:
    import jsonschema
except ImportError:
    jsonschema = None

COMMAND, PROJECT = sys.argv[1:3]
CORPUS = sys.argv[3] if len(sys.argv) > 3 else ""
MONITOR = os.path.join(PROJECT, "examples/monitor.bin")


def run(*arguments, data=b""):
    done = subprocess.run([COMMAND, *arguments], input=data, capture_output=True, timeout=120)
    return done.returncode, done.stdout, done.stderr.decode()


def make(*arguments, data=b""):
    return run("make", "-o", "-", *arguments, data=data)


def ask(*arguments, data=b""):
    return json.loads(run(*arguments, "--json", data=data)[1])


# ---- Wishes ----

SIZES = ((640, 480), (800, 600), (1024, 768), (1280, 720), (1280, 1024), (1360, 768), (1600, 900), (1680, 1050),
         (1920, 1080), (1920, 1200), (2560, 1080), (2560, 1440), (3440, 1440), (3840, 2160), (4096, 2160), (5120, 1440),
         (5120, 2880), (7680, 4320))
RATES = ("24", "30", "50", "59.94", "60", "75", "100", "120", "144", "165", "240", "360")
SOURCES = ("", "", "", "cvt", "cvt-rb", "cvt-rb2", "gtf")
OF_TABLES = ((1920, 1080, "60", "cta"), (1920, 1080, "60", "dmt"), (1280, 720, "50", "cta"), (3840, 2160, "30", "cta"),
             (3840, 2160, "60", "cta"), (1280, 1024, "75", "dmt"), (1680, 1050, "60", "dmt"), (1024, 768, "60", "dmt"), (1366, 768, "60", ""),
             (1920, 1080, "59.94", "cta"), (7680, 4320, "60", "cta"))
INTERLACED = ((1920, "1080i", "60", ""), (1920, "1080i", "50", "cta"), (1920, "1080i", "59.94", ""), (720, "576i", "50", "cta"), (720, "480i", "60", "cta"),
              (1024, "768i", "87", "dmt"), (1600, "900i", "60", "cvt"), (1280, "1024i", "75", "gtf"))
TYPES = {"cta": "cea"}  # as zoredid timing calls them
# Reasons that a wish may be refused for; which of them holds is the business of the refusals below.
REASONS = ("has no such timing", "has such a timing", "DisplayPort carries", "is beyond HDMI's", "DVI takes clocks", "DVI has no", "outside of the variable refresh",
           "needs a mode of that rate", "variable refresh of", "neither a detailed timing", "beside modes that need DisplayID", "YCbCr 4:2:0 needs", "TMDS begins at", "the range limits of HDMI's", "with FRL a display takes")


def guess(chance):
    """A wish as options, with what it says."""
    modes = []
    for _ in range(chance.choice((1, 1, 2, 3, 4, 6, 12))):
        mode = (*chance.choice(SIZES), chance.choice(RATES), chance.choice(SOURCES))
        modes.append(chance.choice((mode, mode, mode, chance.choice(OF_TABLES), chance.choice(OF_TABLES), chance.choice(INTERLACED))))
    wish = {"modes": modes, "interface": chance.choice(("hdmi", "hdmi", "hdmi", "dp", "dp", "dvi"))}
    if chance.random() < 0.3:
        wish["vrr"] = chance.choice(("40-60", "48-120", "48-144", "30-75", "48-240"))
    for name, values in (("audio", ("stereo", "5.1", "7.1")), ("hdr", ("pq", "hlg", "pq,hlg,max=600,frame=350,min=0.05")),
                         ("size", ("600x340mm", "1210x680mm", "150x85mm")), ("color_depth", ("8", "10", "12")),
                         ("name", ("Bench 7", "A name of  13")), ("serial_text", ("0042",)), ("maker", ("ABC",)),
                         ("product", ("1", "0xBEEF", "65535")), ("date", ("2006", "1/2020", "53/2025")), ("ycbcr420", (True,)),
                         ("tmds", ("150", "300", "340", "600")), ("frl", ("3x3", "6x4", "12x4"))):
        of_any = name in ("size", "name", "serial_text", "maker", "product", "date")
        of_hdmi = name in ("ycbcr420", "tmds", "frl")
        if chance.random() < 0.3 and (of_any or wish["interface"] == "hdmi" or not (of_hdmi or wish["interface"] == "dvi")):
            wish[name] = chance.choice(values)
    return wish


def name_mode(mode):
    width, height, rate, source = mode
    return f"{width}x{height}@{rate}" + ("," + source if source else "")


def to_options(wish):
    options = []
    for key, value in wish.items():
        if key == "modes":
            for mode in value:
                options += ["--mode", name_mode(mode)]
        else:
            options.append("--" + key.replace("_", "-") + ("" if value is True else "=" + value))
    return options


class CTimings:
    """What zoredid timing says of a mode, asked once."""

    def __init__(self):
        self.asked = {}

    def get(self, mode):
        if mode not in self.asked:
            width, height, rate, source = mode
            answer = ask("timing", f"{width}x{height}@{rate}", "--type", TYPES.get(source, source or "all"))
            self.asked[mode] = answer["timings"]
        return self.asked[mode]


def is_same(one, other):
    """To 10 kHz, the steps of detailed timings."""
    return abs(one["pixel_clock_hz"] - other["pixel_clock_hz"]) <= 5000 and all(
        one[key] == other[key] for key in ("width", "height", "interlaced", "horizontal", "vertical"))


class Wishes(unittest.TestCase):
    timings = CTimings()

    def is_meant(self, found, mode):
        """Whether a mode of the image is a wish: at the rate of its code, or at 1000/1001, where it is one."""
        width, height, rate, source = mode
        interlaced = "i" in str(height)
        widths = (720, 1440) if interlaced and width == 720 else (width,)  # a code and a detailed timing have pixels as sent
        if (found["height"], found["interlaced"]) != (int(str(height).strip("i")), interlaced) or found["width"] not in widths:
            return False
        if found["id"] == "cta.video.descriptor":
            return abs(found["rate_hz"] / float(rate) - 1) < 0.0015
        if source in ("", "dmt", "cta"):  # a table's rate may be one in name
            return abs(found["rate_hz"] - float(rate)) < 0.6
        return any(is_same(found, timing) for timing in self.timings.get(mode))

    def check_modes(self, wish, image, notes):
        fallbacks = [line.split(": ")[1] for line in notes.splitlines() if "fallback" in line]
        self.assertLessEqual(set(fallbacks), {"640x480@60", "1920x1080@60"})
        names = [tuple(map(int, name.replace("@", "x").split("x"))) for name in fallbacks]
        expected = wish["modes"] + [(width, height, str(rate), "") for width, height, rate in names] + [
            (640, 480, "60", "")]
        for mode in expected:
            self.assertTrue(any(self.is_meant(found, mode) for found in image["modes"]), name_mode(mode))
        for found in image["modes"]:
            self.assertTrue(any(self.is_meant(found, mode) for mode in expected), found)
        preferred = [found for found in image["modes"] if "preference" in found]
        self.assertTrue(any(self.is_meant(found, wish["modes"][0]) for found in preferred))

    def check_facts(self, wish, facts):
        identity, link, colour = facts["identity"], facts["link"], facts["colour"]
        self.assertEqual(wish.get("name", "Virtual"), identity["name"])
        self.assertEqual(wish.get("maker", "ZVD"), identity["manufacturer"])
        self.assertEqual(wish.get("serial_text"), identity.get("serial_text"))
        self.assertEqual(int(wish.get("product", "1"), 0), identity["product_code"])
        week, _, year = wish.get("date", "2025").rpartition("/")
        self.assertEqual((int(week or 0), int(year)), (identity.get("week", 0), identity["year"]))
        if "frl" in wish:
            self.assertEqual(wish["frl"], f"{link['frl']['gbps_per_lane']}x{link['frl']['lanes']}")
        if "tmds" in wish or "frl" in wish:
            self.assertEqual(int(wish.get("tmds", "600")) * 1000000, link["max_tmds_clock_hz"])
        self.assertEqual({"hdmi": "hdmi", "dp": "displayport", "dvi": "dvi"}[wish["interface"]], link["kind"])
        if "size" in wish:
            self.assertEqual(wish["size"], "%gx%gmm" % (facts["size"]["width_mm"], facts["size"]["height_mm"]))
        eotfs = [word for word in wish.get("hdr", "").split(",") if word in ("pq", "hlg")]
        self.assertEqual(["sdr", *eotfs] if eotfs else [], colour.get("eotfs", []))
        channels = {None: [], "stereo": [2], "5.1": [6], "7.1": [8]}[wish.get("audio")]
        self.assertEqual(channels, [audio["channels"] for audio in facts.get("audio", {}).get("formats", [])])
        if "vrr" in wish and wish["interface"] == "hdmi":
            self.assertEqual(int(wish["vrr"].split("-")[0]), link["vrr"]["min_hz"])
        if "vrr" in wish and wish["interface"] == "dp":
            rates = link["vertical_rates"]
            self.assertEqual(wish["vrr"], f"{rates['min_hz']}-{rates['max_hz']}")

    def test_images_of_wishes(self):
        """What is made says what was asked, and neither this command nor a peer finds anything."""
        chance = random.Random(22)
        peer = shutil.which("edid-decode")
        refused = 0
        with tempfile.TemporaryDirectory() as folder:
            made = []
            while len(made) < 200:
                wish = guess(chance)
                status, image, notes = make(*to_options(wish))
                if status != 0:
                    refused += 1
                    self.assertEqual(1, status, notes)
                    self.assertTrue(any(reason in notes for reason in REASONS), notes)
                    continue
                made.append((wish, notes, os.path.join(folder, f"{len(made):03}.bin")))
                with open(made[-1][2], "wb") as file:
                    file.write(image)
            self.assertLess(refused, 400)
            paths = [path for _, _, path in made]
            checks = ask("check", *paths)["checks"]
            images = ask("show", *paths)["images"]
            for (wish, notes, path), check, image in zip(made, checks, images):
                with self.subTest(" ".join(to_options(wish))):
                    rules = {finding["rule"] for finding in check["findings"]}
                    # Range limits past 255, which variable refresh of DisplayPort needs.
                    allowed = {"library.range-offsets"} if wish["interface"] == "dp" and "vrr" in wish else set()
                    self.assertLessEqual(rules, allowed)
                    self.check_modes(wish, image, notes)
                    self.check_facts(wish, image["facts"])
                    if peer:
                        done = subprocess.run([peer, "--check", path], capture_output=True, text=True, timeout=60)
                        self.assertIn("EDID conformity: PASS", done.stdout.split("Failures:")[-1])

    def test_a_headless_server(self):
        """The first thing that people make: in one command, with every place and choice said."""
        status, image, notes = make("--mode", "1920x1080@60", "--mode", "2560x1440@144")
        self.assertEqual((0, 256), (status, len(image)))
        self.assertEqual(["1920x1080@60: preferred, detailed timing, VIC 16", "2560x1440@144: at 143.97 Hz, detailed timing",
                          "640x480@60: fallback, VIC 1, established timing", "HDMI: TMDS to 600 MHz, FRL of 3 lanes of 6 Gbps",
                          "maker ZVD, which no maker has"],
                         [line.removeprefix("zoredid: ") for line in notes.splitlines()])
        self.assertEqual((0, image, ""), make("-q", "--mode=1920X1080@60Hz", "--mode=2560x1440@144,cvt-rb"))

    def test_the_rate_that_is_asked_for_is_preferred(self):
        """Codes mean both rates: the detailed timing beside them is at the one of the wish, to 10 kHz of its clock."""
        for mode, rate in (("1920x1080@59.94", 59.94), ("1920x1080@60000/1001", 59.94), ("1920x1080@60", 60),
                           ("1920x1080@23.976", 23.976), ("640x480@59.94", 59.94),
                           ("3840x2160@23.976", 23.976), ("3840x2160@24", 24)):  # of DisplayID: 5500 pixels a line
            with self.subTest(mode):
                image = make("--mode", mode)[1]
                preferred = ask("show", "-", data=image)["images"][0]["modes"]
                width, height = map(int, mode.split("@")[0].split("x"))
                rates = [found["rate_hz"] for found in preferred if "preference" in found
                         and (found["width"], found["height"]) == (width, height)]
                self.assertTrue(rates and all(abs(found - rate) < 0.015 for found in rates), rates)
                self.assertNotIn("lane", run("show", "-", data=image))
                self.assertEqual([], ask("check", "-", data=image)["checks"][0]["findings"])
        self.assertIn("TMDS to 345 MHz", make("--mode", "1920x1080@60", "--tmds", "341")[2])

    def test_the_nearest_rate(self):
        """Of the tables and the formula, which keeps to steps of 250 kHz; the table's where both are equally near."""
        between = 60 * 1526 * 790 + 72250000  # half of 60 Hz and of the formula's 59.93 Hz
        for mode, megahertz in (("1366x768@60.02", 72), ("1366x768@59.95", 72.25), ("1920x1080@60.02", 148.5),
                                ("1920x1080@59.95", 148.35), ("1920x1080@59.936", 148.35),
                                ("1920x1080@59.934", 138.5), ("1680x1050@59.95", 146.25), ("1680x1050@60", 119),
                                ("1680x1050@59.997", 119), ("800x600@60.001", 40), ("1280x768@59.95", 68.25),
                                ("1920x1080@61", 141), ("2560x1440@59.95", 241.5),
                                (f"1366x768@{between}/{2 * 1526 * 790}", 72),
                                (f"1366x768@{between - 1}/{2 * 1526 * 790}", 72.25)):
            images = {interface: make("--mode", mode, "--interface", interface)[1] for interface in ("hdmi", "dp")}
            with open(MONITOR, "rb") as file:
                images["edit"] = run("edit", "-", "-o", "-", f"--add-mode={mode},preferred", data=file.read())[1]
            for name, image in images.items():
                with self.subTest(mode, of=name):
                    self.assertEqual(megahertz, int.from_bytes(image[54:56], "little") / 100)
        for name in "720x480i@60", "1440x480i@60,cta":  # each pixel is sent twice
            self.assertIn("x480i@60: VIC 6\n", make("--mode=1280x720@60", "--mode=" + name)[2])
        self.assertIn("1920x1080@60.02: at 60.00 Hz, VIC 16", make("--mode=1280x720@60", "--mode=1920x1080@60.02")[2])

    def test_refusals(self):
        for arguments, status, reason in (
                ("--mode 1920x1080", 2, "'1920x1080' is not a mode"),
                ("--mode 1920x1080@60,cvt-rb4", 2, "did you mean 'cvt-rb'?"),
                ("", 2, "no mode is given"),
                ("--profile hdmi-4k --vrr 48", 2, "'48' is not a range"),
                ("--profile vrr --vrr 144-48", 2, "144-48 is not a range"),
                ("--profile headless --tmds 700", 2, "700 is not a TMDS clock from 25 to 600"),
                ("--profile headless --product 99999", 2, "99999 is not a product code"),
                ("--profile headless --color-depth 9", 2, "9 is not a colour depth"),
                ("--profile headless --vrr 48-144", 1, "up to 144 Hz needs a mode of that rate"),
                ("--mode 1920x1080@120 --vrr 60-120", 1, "begins at 48 Hz"),
                ("--mode 1920x1080@120 --mode 1920x1080@24 --vrr 48-120 --interface dp", 1, "1920x1080@24 is outside"),
                ("--mode 1920x1080@60,gtf --mode 1600x901@60,dmt", 1, "1600x901@60: the table or formula"),
                ("--mode 3840x2160@60 --tmds 300", 1, "3840x2160@60 needs 594 MHz, which is beyond HDMI's TMDS of 300"),
                ("--mode 3840x2160@120 --frl 3x3", 1, "beyond HDMI's FRL, also compressed"),
                ("--mode 7680x4320@120", 1, "needs 4752 MHz, and the range limits of HDMI's displays"),
                ("--mode 4096x4096@1000 --interface dp", 1, "DisplayPort carries 9675 MHz at most"),
                ("--mode 1x1@60", 1, "no table and no formula has such a timing"),
                ("--mode 1024x768i@86.96 --mode 1280x720@60", 1, "cannot be the first mode"),
                ("--mode 1920x1080@60 --ycbcr420", 1, "YCbCr 4:2:0 needs a mode of 3840 pixels"),
                ("--mode 640x480@24", 1, "TMDS begins at 25 MHz"),
                ("--mode 2560x1440@120 --interface dvi", 1, "DVI takes clocks up to 330 MHz"),
                ("--profile headless --interface dvi --audio stereo", 1, "DVI has no audio"),
                ("--profile dp-1440p144 --tmds 600", 1, "are HDMI's"),
                ("--mode 65536x65536@50,cvt --interface dp", 1, "DisplayPort carries 9675 MHz at most"),
                ("--mode 1920x1080i@60 --mode 5120x2880@60", 1, "beside modes that need DisplayID"),
                ("--profile headless --name ABCDEFGHIJKLMN", 1, "up to 13 printable characters"),
                ("--profile headless --maker Abc", 2, "'Abc' is not three capital letters"),
                ("--profile headless --size 5000x100mm", 2, "5000x100 is not a size of 10 to 2550 mm"),
                ("--profile headless --size 5000", 2, "600x340mm"),
                ("--profile headless --hdr max=20000", 1, "max=20000: a maximum luminance is 50 to 12500"),
                ("--profile headless --hdr max=600,frame=700", 1, "frame=700: the luminance of a frame"),
                ("--profile headless --hdr max=600,min=9", 1, "min=9: a minimum luminance"),
                ("--profile headless --hdr pq,min=0.1", 1, "need a maximum"),
                ("--profile headless --hdr max=600,max=700", 2, "has max twice"),
                ("--profile headless --hdr pq --hdr hlg", 2, "--hdr is given twice"),
                ("--profile headless --date 2005", 2, "2005 is not a year from 2006"),
                ("--profile headless --date 54/2020", 2, "54 is not a week from 1 to 53"),
                ("--profile headless --date 2245", 1, "is in the future"),
                ("--profile headless --date 0/2026", 2, "is not WEEK/YEAR"),
                ("--mode 1920x1080@1 --interface dp", 1, "range limits begin at 1 Hz"),
                ("--profile headless --hdr sdr", 2, "'sdr' is not one of pq"),
                ("--profile headless --like /dev/null", 3, "is empty")):
            with self.subTest(arguments):
                done = make(*arguments.split())
                self.assertEqual((status, b""), done[:2])
                self.assertIn(reason, done[2])
        modes = [f"--mode={800 + 8 * i}x{600 + k}@60,cvt-rb" for i in range(40) for k in range(21)]
        self.assertIn("need 140 extension blocks or more, and an EDID has at most 127", make("--interface=dp", *modes)[2])

    def test_what_goes_over_what(self):
        """A profile, over it the JSON, over it the options; of modes the list."""
        document = {"$schema": "a.json", "profile": "hdmi-4k", "modes": ["1920x1080@60"], "name": "From JSON", "product": 7, "ycbcr420": False}
        text = json.dumps(document).encode()
        expected = make("--mode=1920x1080@60", "--name=From JSON", "--product=7", "--audio=stereo")
        self.assertEqual(0, expected[0])
        self.assertEqual(expected[1], make("--from", "-", data=text)[1])
        expected = make("--mode=1280x720@60", "--name=Option", "--product=7", "--audio=stereo")[1]
        self.assertEqual(expected, make("--from", "-", "--name", "Option", "--mode", "1280x720@60", data=text)[1])
        for text, reason in (('{"mode": 1}', "mode: is unknown"), ('{"modes": "1x1@1"}', "expected a list"),
                             ('{"modes": ["1920x1080@60"], "modes": []}', "modes: is there twice"),
                             ('{"name": {}}', "name: an object"), ('{"name": ["a"]}', "name: a list"), ("[]", "a list"),
                             ('{"name": null}', "expected a text"), ('{"name": 7}', "name: expected a text"),
                             ('{"product": "7"}', "product: expected a number"), ('{"ycbcr420": "no"}', "expected true or false"),
                             ('{"modes": [1]}', "modes: expected a text"),
                             ('{"name": "a\\u0000b"}', "name: has a character"),
                             ('{"size": "big"}', "--size: 'big' is not a size"),
                             ('{"profile": "none"}', "unknown profile 'none'"), ("{} {}", "more than one document"),
                             ("", "is empty"), ('{"modes": [', "")):
            with self.subTest(text):
                status, image, error = make("--from", "-", data=text.encode())
                self.assertEqual((b"", True), (image, status > 1))
                self.assertIn(reason, error)

    def test_the_schema(self):
        """It has the options and profiles that there are, and its examples make images."""
        with open(os.path.join(PROJECT, "docs/zoredid-make.schema.json"), encoding="utf-8") as file:
            schema = json.load(file)
        options = re.findall(r"^--([a-z0-9-]+)", run("make", "--list-options")[1].decode(), re.MULTILINE)
        others = {"help", "from", "like", "quiet", "output", "force", "dry-run", "version", "verbose", "monitor", "image"}
        expected = {name.replace("-", "_") for name in options if name not in others}
        self.assertEqual(expected, {"mode" if key == "modes" else key for key in schema["properties"] if key != "$schema"})
        profiles = make("--profile", "?")[2].split("one of ")[1].split(" (")[0].split(", ")
        self.assertEqual(profiles, schema["properties"]["profile"]["enum"])
        for example in schema["examples"]:
            self.assertEqual(0, make("--from", "-", data=json.dumps(example).encode())[0])
            if jsonschema:
                jsonschema.validate(example, schema)

    def test_every_profile(self):
        for name in make("--profile", "?")[2].split("one of ")[1].split(" (")[0].split(", "):
            with self.subTest(name):
                status, image, _ = make("--profile", name)
                self.assertEqual(0, status)
                self.assertEqual([], ask("check", "-", data=image)["checks"][0]["findings"])

    def test_a_donor(self):
        """Identity, size, colors and audio of another image, but for what an option says."""
        _, image, notes = make("--mode=2560x1440@60", "--like", MONITOR)
        self.assertNotIn("ZVD", notes)
        donor, made = (ask("show", "-", data=data)["images"][0]["facts"] for data in (open(MONITOR, "rb").read(), image))
        for key in ("manufacturer", "product_code", "serial_number", "name", "serial_text", "week", "year"):
            self.assertEqual(donor["identity"].get(key), made["identity"].get(key), key)
        self.assertEqual(donor["size"].get("width_mm"), made["size"].get("width_mm"))
        for key in ("primaries", "white", "gamma", "srgb_default"):
            self.assertEqual(donor["colour"].get(key), made["colour"].get(key), key)
        self.assertEqual(donor["audio"], made["audio"])
        self.assertEqual([], ask("check", "-", data=image)["checks"][0]["findings"])
        made = ask("show", "-", data=make("--mode=2560x1440@60", "--like", MONITOR, "--name=Mine", "--audio=7.1")[1])
        self.assertEqual("Mine", made["images"][0]["facts"]["identity"]["name"])
        self.assertEqual(8, made["images"][0]["facts"]["audio"]["formats"][0]["channels"])

    def test_unsound_donors(self):
        """What a donor has wrong is left out or replaced, and said; what is made is sound."""
        with open(MONITOR, "rb") as file:
            monitor = file.read()
        srgb = bytes.fromhex("ee91a3544c99260f5054")
        for interface, changes, note in (
                ("dp", {24: bytes([monitor[24] ^ 4])}, "its flag of sRGB is left out"),
                ("dp", {24: bytes([monitor[24] & ~4]), 23: b"\x78", 25: srgb}, "sRGB is the default"),
                ("hdmi", {23: b"\x8c", 25: srgb}, "its gamma is replaced by 2.20"),
                ("hdmi", {16: b"\xff"}, "its year is that of the model"), ("dp", {16: b"\x37"}, "its week is left out"),
                ("dp", {17: b"\x05"}, "its year 1995 is replaced"), ("dp", {17: b"\xff"}, "its year 2245 is replaced"),
                ("dp", {10: b"\0\0"}, "its product code 0 is replaced by 1")):
            with self.subTest(note), tempfile.TemporaryDirectory() as folder:
                donor = bytearray(monitor)
                for offset, data in changes.items():
                    donor[offset:offset + len(data)] = data
                path = os.path.join(folder, "donor.bin")
                with open(path, "wb") as file:
                    file.write(donor)
                status, image, notes = make("--mode=1920x1080@60", "--interface", interface, "--like", path)
                self.assertEqual(0, status, notes)
                self.assertIn("donor: " + note, notes)
                self.check_sound(image)

    def test_donors_of_the_corpus(self):
        """Whatever a donor is like, what is made of it is sound, or it has no base block."""
        names = sorted(name for name in os.listdir(CORPUS) if name.endswith(".bin")) if CORPUS else []
        for name in names:
            for interface in ("hdmi", "dp"):
                with self.subTest(name, interface=interface), open(os.path.join(CORPUS, name), "rb") as file:
                    status, image, notes = make("--mode=1920x1080@60", "--interface", interface, "--like", file.name)
                    self.assertIn(status, (0, 2, 3), notes)
                    self.assertNotIn("internal", notes)
                    if status == 0:
                        self.check_sound(image)

    def check_sound(self, image):
        self.assertEqual([], ask("check", "-", data=image)["checks"][0]["findings"])
        peer = shutil.which("edid-decode")
        if peer:
            done = subprocess.run([peer, "--check", "-"], input=image, capture_output=True, timeout=60)
            self.assertIn(b"EDID conformity: PASS", done.stdout.split(b"Failures:")[-1])

    def test_what_is_said_of_rounded_numbers(self):
        """Luminances and rates that are not what was asked, no rate that nobody asked for, and the date."""
        for arguments, note, shown in (
                ("--mode=1920x1080@60 --hdr=pq,max=600,frame=400", "HDR: max 600 became 603.666 cd/m2, the nearest\n", "peak 604 cd/m²"),
                ("--mode=720x480i@60", "VIC 6", "720x480i   60 59.94\n"),
                ("--mode=720x480i@60", "preferred, detailed timing of 1440 pixels, as each is sent 2 times", "prefers 1440 x 480i"),
                ("--mode=720x480@60", "720x480@60: at 59.94 Hz, preferred, detailed timing, VIC 2", "720x480    60 59.94\n"),
                ("--mode=720x480@60 --interface=dp", "720x480@60: at 60.01 Hz", "720x480    60.01\n"),
                ("--mode=1920x1080@240 --mode=1920x1080@60 --interface=dp --vrr=48-240", "have offsets", "VRR       48 to 240 Hz (range limits"),
                ("--mode=5120x2880@60,cvt-rb2 --interface=dp", "DisplayID timing", "60 Hz, by DisplayID 5120 x 2880 at 60 Hz"),
                ("--mode=1920x1080@60 --date=12/2026", "", "made in week 12 of 2026")):
            with self.subTest(arguments):
                status, image, notes = make(*arguments.split())
                self.assertEqual(0, status, notes)
                self.assertIn(note, notes)
                self.assertIn(shown, run("show", "-", data=image)[1].decode())

    def test_interlaced_first(self):
        """No progressive mode is native beside it, so that it is not native either."""
        for arguments in ("--mode=1920x1080i@60", "--mode=1920x1080i@50 --interface=dp", "--mode=1920x1080i@60 --mode=1280x720@60"):
            with self.subTest(arguments):
                status, image, notes = make(*arguments.split())
                self.assertEqual(0, status, notes)
                self.check_sound(image)

    def test_the_link_follows_the_clocks(self):
        for arguments, expected in (
                ("--mode 1920x1080@60", (165, 0, False)), ("--mode 1920x1080@120", (300, 0, False)),
                ("--mode 3840x2160@60", (600, 0, False)), ("--mode 3840x2160@120", (600, 10, False)),
                ("--mode 3840x2160@60 --frl 6x3", (600, 6, False)), ("--mode 7680x4320@60", (600, 12, True)),
                ("--mode 7680x4320@60 --ycbcr420", (600, 12, False)),
                ("--mode 3840x2160@60 --tmds 300 --ycbcr420", (300, 0, False))):
            with self.subTest(arguments):
                link = ask("show", "-", data=make(*arguments.split())[1])["images"][0]["facts"]["link"]
                self.assertEqual(expected, (link["max_tmds_clock_hz"] // 1000000,
                                            link.get("frl", {}).get("gbps_per_lane", 0), "dsc" in link))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
