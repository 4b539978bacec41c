# What zoredid says about images: report, modes, compare, check, timing, and the shape of the JSON.
#   FactsTest.py COMMAND PROJECT WRITE_IMAGES [CORPUS]
# Expected values are written out by hand from the bytes and from the published modes. The images are the example's and
# changed copies of it.

import datetime
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree
from fractions import Fraction

from Checksums import display_id, fix_sums

try:
    import jsonschema
except ImportError:
    jsonschema = None

COMMAND, PROJECT, WRITE_IMAGES, CORPUS = (sys.argv[1:] + ["", ""])[:4]
GOLDEN = os.path.join(PROJECT, "ExternalDeviceLayer/Tests/UnitTests/EdidUtils/golden")
with open(os.path.join(PROJECT, "examples/monitor.bin"), "rb") as file:
    MONITOR = file.read()
SCHEMAS = os.path.join(os.path.dirname(__file__), "schemas")
with open(os.path.join(PROJECT, "docs/zoredid.schema.json"), encoding="utf-8") as file:
    SCHEMA = json.load(file)
THIS_YEAR = datetime.date.today().year


# ---- Images ----

def change(edits, image=MONITOR, fix=True):
    """A copy with bytes written at offsets; the checksums are mended unless the damage is one of them."""
    changed = bytearray(image)
    for offset, text in edits.items():
        new = bytes.fromhex(text)
        changed[offset:offset + len(new)] = new
    return fix_sums(bytes(changed)) if fix else bytes(changed)


def with_blocks(*blocks, announced=None):
    """The example's base block and other extension blocks, given without padding and checksum."""
    changes = {0x7E: "%02x" % (len(blocks) if announced is None else announced)}
    if len(blocks) > 1:  # 1.4, as 1.3 asks for a block map
        changes |= {0x13: "04", 0x18: "2b"}
    base = change(changes, MONITOR[:128])
    return base + b"".join(fix_sums(block.ljust(128, b"\0")) for block in blocks)


# A DisplayID Type I timing: 1920 x 1080, totals 2200 x 1125, 148.5 MHz, all fields minus 1.
TYPE1 = bytes.fromhex("013a00007f0717015700 2b00 3704 2c00 0300 0400".replace(" ", ""))
TILE = bytes.fromhex("120016" "82" "10" "00" "00" "7f07" "3704" + "00" * 5 + "414243" + "00" * 6)
SECOND_TIMING = MONITOR[0xB4:0xC6].hex()  # 1280 x 720 at 60


def run(*arguments, status=None):
    """Standard output and standard error; fails when the exit status is not the one given."""
    done = subprocess.run([COMMAND, *arguments], stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=120)
    out, err = done.stdout.decode(), done.stderr.decode()
    if status is not None and done.returncode != status:
        raise AssertionError(f"{arguments}: exit {done.returncode}, not {status}\n{out}{err}")
    return out, err


def flatten(schema):
    """With the members of the one definition that it builds on, if any."""
    if "allOf" not in schema:
        return schema
    (base,) = (flatten(SCHEMA["definitions"][part["$ref"].split("/")[-1]]) for part in schema["allOf"])
    members = {**base["properties"], **schema["properties"]}
    required = base.get("required", []) + schema.get("required", [])
    return {name: part for name, part in schema.items() if name != "allOf"} | {"properties": members,
                                                                              "required": required}


def close(schema):
    """A copy in which no object has a member that is not named for it; the published one leaves room for later ones."""
    if isinstance(schema, list):
        return [close(part) for part in schema]
    if not isinstance(schema, dict):
        return schema
    schema = flatten(schema)
    closed = {name: close(part) for name, part in schema.items()}
    return {"additionalProperties": False, **closed} if schema.get("type") == "object" else closed


CLOSED = jsonschema.Draft7Validator(close(SCHEMA)) if jsonschema is not None else None


def known_members(schema):
    """Names of all members that the schema describes, anywhere."""
    names = set()
    if isinstance(schema, dict):
        names |= set(schema.get("properties", {}))
        schema = list(schema.values())
    if isinstance(schema, list):
        for part in schema:
            names |= known_members(part)
    return names


def used_members(value):
    names = set()
    if isinstance(value, dict):
        names |= set(value)
        value = [part for name, part in value.items() if name != "fact_ids"]  # whose names are paths
    if isinstance(value, list):
        for part in value:
            names |= used_members(part)
    return names


class ToolTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def save(self, image, name="image.bin"):
        path = os.path.join(self.folder, name)
        with open(path, "wb") as file:
            file.write(image)
        return path

    def load(self, text):
        """JSON that the schema describes, every member of it."""
        value = json.loads(text)
        if jsonschema is not None:
            CLOSED.validate(value)
        self.assertEqual(used_members(value) - known_members(SCHEMA), set())
        return value

    def image(self, image):
        return self.load(run("report", "--jsonl", self.save(image), status=0)[0])


# A CTA-861 block with codes 97, 95, 16 and 118, HDMI 2.1 with FRL, ALLM and variable refresh, and HDR.
TELEVISION = bytes.fromhex("02032300" "44615f1076" "67030c001000383c" "6ad85dc401788063023090" "e6060d01605020")


class ShowTest(ToolTest):
    def test_facts_of_a_television(self):
        image = self.image(with_blocks(TELEVISION))
        facts = image["facts"]
        for path, expected in {
            "link.kind": "hdmi", "link.hdmi_version": 2.1, "link.max_tmds_clock_hz": 600000000, "link.allm": True,
            "link.frl": {"lanes": 4, "gbps_per_lane": 12}, "link.scdc": True, "link.physical_address": "1.0.0.0",
            "link.vrr": {"min_hz": 48, "max_hz": 144,
                         "ranges": [{"source": "hdmi-forum", "min_hz": 48, "max_hz": 144}]},
            "colour.hdr10": True, "colour.eotfs": ["sdr", "pq", "hlg"], "colour.gamma": 2.2,
            "colour.content_luminance": {"max": 400, "max_frame_average": 282.8427, "min": 0.063},
            "size.diagonal_in": 27, "identity.serial_number": 0x2397F,
        }.items():
            section, name = path.split(".")
            self.assertEqual(facts[section][name], expected, path)
        self.assertNotIn("dsc", facts["link"])
        self.assertEqual(image["fact_ids"]["link.allm"], "cta.hdmi-forum.allm")
        self.assertEqual(image["fact_ids"]["colour.hdmi_deep.bits_ycbcr420"],
                         [f"cta.hdmi-forum.dc-{bits}bit-420" for bits in (30, 36, 48)])
        self.assertEqual([(mode["vic"], mode["rate_hz"]) for mode in image["modes"] if mode["width"] == 3840],
                         [(97, 60), (97, 59.94), (95, 30), (95, 29.97), (118, 120), (118, 119.88)])
        lines = run("show", self.save(with_blocks(TELEVISION)), status=0)[0].splitlines()
        for line in ["Link      HDMI 2.1, FRL 4 x 12 Gbit/s, TMDS to 600 MHz, ALLM, SCDC",
                     "          3840x2160  120 119.88 60 59.94 30 29.97", "VRR       48 to 144 Hz (HDMI Forum)",
                     "HDR       HDR10, HLG; peak 400 cd/m\u00b2, frame average 283, minimum 0.06"]:
            self.assertIn(line, lines)

    def check(self, out, name):
        lines = out.splitlines()
        self.assertLessEqual(len(lines), 25, name)
        self.assertLessEqual(max(map(len, lines)), 80, out)
        self.assertNotRegex(out.replace("\n", ""), r"[\x00-\x1f\x7f-\x9f]")

    def test_any_image_fits_a_terminal(self):
        many = bytes([2, 3, 4 + 1 + 31, 0, 0x5F]) + bytes(range(1, 32))
        odd = change({0x71: "1b5b324a9b07"})
        for name, image, status in [
            ("the example", MONITOR, 0), ("cut", MONITOR[:200], 3), ("a damaged header", change({0: "01"}), 3),
            ("noise", bytes(i * i % 251 for i in range(640)), 3), ("controls in a name", odd, 0),
            ("a name without blanks, of DisplayID", with_blocks(display_id(b"\x00\x00\x50ACI" + bytes(9) + b"\x44" +
                                                                            b"W" * 68)), 0),
            ("all codes", with_blocks(many, TELEVISION, TELEVISION), 0), ("zeros", bytes(128), 3),
        ]:
            with self.subTest(name):
                out, error = run("show", self.save(image), status=status)
                self.check(out, name)
                self.assertEqual("refuses the image" in out, status == 3)
                self.assertEqual(len(error.splitlines()), 1 if status == 3 else 0)
        for path in sorted(os.listdir(CORPUS)) if CORPUS else []:
            if path.endswith(".bin"):
                self.check(run("show", os.path.join(CORPUS, path), "--image", "1")[0], path)

    def test_a_cut_base_block_says_what_is_whole(self):
        def flatten(value, path=""):
            return [pair for name, part in value.items() for pair in flatten(part, f"{path}.{name}")] if isinstance(
                value, dict) else [(path, json.dumps(value))]

        whole = self.image(change({0x7E: "00"}, MONITOR[:128]))
        facts = set(flatten(whole["facts"]))

        def get_modes(image):
            return [(mode["id"], mode["offset"], mode["width"], mode["rate_hz"]) for mode in image.get("modes", [])]

        paths = [self.save(MONITOR[:size], f"{size}.bin") for size in range(8, 128)]
        for size, line in enumerate(run("show", "--jsonl", *paths, status=3)[0].splitlines(), 8):
            cut = self.load(line)
            self.assertEqual("facts" in cut, size >= 25, size)
            wrong = [path for path, value in set(flatten(cut.get("facts", {}))) - facts
                     if not path.startswith((".size", ".unread"))]
            self.assertEqual(([], []), (wrong, [mode for mode in get_modes(cut) if mode not in get_modes(whole)]), size)
        self.assertEqual(get_modes(whole), get_modes(cut))
        for path in paths[::7]:
            self.check(run("show", path, status=3)[0], path)
        self.assertEqual(run("show", paths[36 - 8], status=3)[0].splitlines(), [
            "Monitor   ASUSTek Computer Inc. (ACI) product 0x27f4",
            "          27.2 in, 600 x 340 mm, made in week 34 of 2010, serial 145791", "Link      digital",
            "Modes     the preferred one is not known", "          800x600    60.32 56.25",
            "          640x480    75 66.67 59.94", "          720x400    70.08",
            "HDR       not known: the image ends before block 1", "VRR       not known: the image ends before block 1",
            "Colour    RGB, gamma 2.20", "Audio     not known: the image ends before block 1", "Image     36 bytes: Base block; cut short", "Findings  1 error: see zoredid check",
            "          error: cut short: a block has 128 bytes: found 36 bytes (block 0,",
            "            Base block)",
            "Library   refuses the image: no EDID: 36 bytes, not a multiple of 128"])

    def test_what_a_damaged_block_may_say_is_not_denied(self):
        block = bytes.fromhex("02030e00" "65030c001000" "23090707")  # HDMI and audio
        image = with_blocks(block)
        reason = "not known: byte 2 of block 1, where its data blocks end, is wrong"
        for changes, hdr, audio, unread in [
            ({}, "not announced", "PCM 2ch 48 kHz", None),
            ({0x82: "f7"}, reason, reason, {"block": 1, "reason": "offset"}),
            ({0x7E: "02"}, "not known: the image ends before block 2", "PCM 2ch 48 kHz", {"block": 2, "reason": "missing"}),
        ]:
            with self.subTest(changes):
                path = self.save(change(changes, image))
                lines = dict((line[:10].strip(), line[10:]) for line in run("show", path)[0].splitlines())
                self.assertEqual((hdr, hdr, audio), (lines["HDR"], lines["VRR"], lines["Audio"]))
                facts = self.image(change(changes, image))["facts"]
                self.assertEqual((unread, audio != reason or None), (facts.get("unread"), facts["audio"].get("supported")))
                page = run("page", path, "-o", "-")[0]
                self.assertIn(f"<dt>HDR</dt><dd>{hdr}</dd>", page)
        good, bad = self.save(image, "A.bin"), self.save(change({0x82: "f7"}, image), "B.bin")
        self.assertIn("\nlink.hdmi_version: 1.0 | not known\n", run("compare", "--all", good, bad, status=1)[0])

    def test_reports_pass_no_controls(self):
        out = run("report", self.save(change({0x71: "1b5b324a9b07"})), status=0)[0]
        self.assertNotRegex(out.replace("\n", ""), r"[\x00-\x1f\x7f-\x9f]")


class ReportTest(ToolTest):
    def test_text_reports_are_those_of_the_library(self):
        # The images of the suites, whole reports of which the library's tests have stored.
        subprocess.run([WRITE_IMAGES, self.folder], check=True, timeout=60)
        stored = [name for name in os.listdir(GOLDEN) if re.fullmatch(r"\w+\.(plain|extended|modes)\.txt", name)]
        self.assertEqual(len(stored), 8 * 3)
        for name in stored:
            stem, kind, _ = name.split(".")
            with self.subTest(name), open(os.path.join(GOLDEN, name), encoding="utf-8") as file:
                text = file.read() + "\n"
                image = os.path.join(self.folder, stem + ".bin")
                self.assertEqual(run("report", "--format", kind, image, status=0)[0], text)
                lines = run("report", "--format", kind, "--prefix", "> ", image, status=0)[0].splitlines()
                for line, expected in zip(lines, text.splitlines(), strict=True):  # some empty lines go without
                    self.assertIn(line, {"> " + expected} if expected else {"> ", ""})

    def test_facts_of_the_example(self):
        image = self.image(MONITOR)
        for member, expected in {
            "form": "raw image", "manufacturer": "ACI", "product_code": 0x27F4, "serial_number": 0x2397F,
            "name": "ASUS VE276", "serial_text": "A8LMTF145791", "week": 34, "year": 2010,
            "edid_version": 1, "edid_revision": 3, "digital": True, "width_cm": 60, "height_cm": 34,
            "range_limits": {"min_vertical_rate_hz": 50, "max_vertical_rate_hz": 85, "min_horizontal_rate_hz": 24000,
                             "max_horizontal_rate_hz": 92000, "max_pixel_clock_hz": 170000000},
            "checksum": "12", "checksum_valid": True, "extensions_announced": 1, "bytes": MONITOR.hex(),
        }.items():
            self.assertEqual(image[member], expected, member)
        for member in ["text", "model_year", "bits_per_color", "interface", "tile"]:
            self.assertNotIn(member, image)
        self.assertEqual(image["preferred"], {
            "width": 1920, "height": 1080, "interlaced": False, "vertical_rate_hz": 60, "horizontal_rate_hz": 67500,
            "pixel_clock_hz": 148500000,
            "horizontal": {"front_porch": 88, "sync": 44, "back_porch": 148, "total": 2200, "positive": True},
            "vertical": {"front_porch": 4, "sync": 5, "back_porch": 36, "total": 1125, "positive": True},
            "type": "detailed", "vics": [16, 76]})
        self.assertEqual(image["extensions"], [{
            "block": 1, "tag": 2, "kind": "cea-861", "revision": 3, "checksum": "73", "checksum_valid": True,
            "loaded": True, "ycbcr": True,
            "audio": [{"format_code": 1, "format_name": "PCM", "channels": 2,
                       "sampling_rates_hz": [32000, 44100, 48000], "sample_bits": [16], "extra": "01"}],
            "speakers": [{"mask": 1, "positions": ["FL/FR"]}], "free_bytes": 20}])

    def test_facts_of_changed_images(self):
        deep = bytes.fromhex("02031700" "29" "090707 150750 3e1e00" "68" "030c001000782d00".replace(" ", ""))
        for name, image, expected in [
            ("revision 4: depth and interface", change({0x13: "04b5"}), {"bits_per_color": 10,
                                                                        "interface": "displayport"}),
            ("depth and interface not defined", change({0x13: "0480"}), {"bits_per_color": None, "interface": None}),
            ("an analog input", change({0x14: "0e"}), {"digital": False}),
            ("week 255 makes a model year", change({0x13: "04", 0x10: "ff1e"}), {"week": None, "year": None,
                                                                                "model_year": 2020}),
            ("not before 1.4", change({0x10: "ff1e"}), {"week": None, "year": 2020, "model_year": None}),
            ("no week", change({0x10: "00"}), {"week": None, "year": 2010}),
            ("a size of one number is none", change({0x15: "3c00"}), {"width_cm": None, "height_cm": None}),
            ("no UTF-8", change({0x71: "e9"}), {"name": "\ufffdSUS VE276"}),
            ("free text", change({0x4B: "fe"}), {"text": "A8LMTF145791", "serial_text": None}),
            ("offsets of the rates", change({0x13: "04", 0x5E: "0e"}), {"range_limits": {
                "min_vertical_rate_hz": 50, "max_vertical_rate_hz": 340, "min_horizontal_rate_hz": 279000,
                "max_horizontal_rate_hz": 347000, "max_pixel_clock_hz": 170000000}}),
            ("reserved offsets of the rates", change({0x13: "04", 0x5E: "01"}), {"range_limits": {
                "min_vertical_rate_hz": 50, "max_vertical_rate_hz": 85, "min_horizontal_rate_hz": 24000,
                "max_horizontal_rate_hz": 92000, "max_pixel_clock_hz": 170000000}}),
            ("no clock limit", change({0x63: "00"}), {"range_limits": {
                "min_vertical_rate_hz": 50, "max_vertical_rate_hz": 85, "min_horizontal_rate_hz": 24000,
                "max_horizontal_rate_hz": 92000}}),
            ("a tile", with_blocks(display_id(TILE)), {"tile": {
                "column": 0, "row": 0, "columns": 2, "rows": 1, "width": 1920, "height": 1080,
                "single_enclosure": True, "bezel_information": False, "several_at_location": False,
                "single_at_location": False, "single_scaled": True, "single_cloned": False}}),
            ("blocks that the library drops", with_blocks(b"\xf0\x02", b"\x02\x03", display_id(b"", 0x20)), {
                "extensions_announced": 3, "extensions": [
                    {"block": 1, "tag": 240, "kind": "block-map", "revision": 2, "checksum": "0e",
                     "checksum_valid": True, "loaded": False},
                    {"block": 2, "tag": 2, "kind": "cea-861", "revision": 3, "checksum": "fb", "checksum_valid": True,
                     "loaded": True, "ycbcr": False, "audio": [], "speakers": [], "free_bytes": 126},
                    {"block": 3, "tag": 112, "kind": "displayid", "revision": 32, "checksum": "90",
                     "checksum_valid": True, "loaded": False}]}),
            ("no preferred mode", change({0x13: "02", 0x18: "28"}), {"preferred": None}),
        ]:
            with self.subTest(name):
                found = self.image(image)
                self.assertEqual({member: found.get(member) for member in expected}, expected)
        with self.subTest("audio formats and deep colour"):
            block = self.image(with_blocks(deep))["extensions"][0]
            self.assertEqual(block["warnings"], ["Audio descriptor without speaker descriptor"])
            self.assertIn("HDMI CTS warning : " + block["warnings"][0],
                          run("report", "--format", "extended", self.save(with_blocks(deep)), status=0)[0])
            self.assertEqual(block["deep_color_bits"], [30, 36, 48])
            self.assertEqual(block["audio"], [
                {"format_code": 1, "format_name": "PCM", "channels": 2,
                 "sampling_rates_hz": [32000, 44100, 48000], "sample_bits": [16, 20, 24], "extra": "07"},
                {"format_code": 2, "format_name": "AC-3", "channels": 6, "sampling_rates_hz": [32000, 44100, 48000],
                 "max_bit_rate_bps": 640000, "extra": "50"},
                {"format_code": 7, "format_name": "DTS", "channels": 7,
                 "sampling_rates_hz": [44100, 48000, 88200, 96000], "max_bit_rate_bps": 0, "extra": "00"}])

    def test_many_images_and_failures(self):
        good, bad, missing = self.save(MONITOR), self.save(b"\0" * 128, "bad.bin"), self.folder + "/missing"
        out, err = run("report", "--json", missing, good, bad, status=3)
        images = self.load(out)["images"]
        self.assertEqual([image["file"] for image in images], [missing, good, bad])
        self.assertEqual(["error" in image for image in images], [True, False, True])
        self.assertEqual([line.split(": ")[:2] for line in err.splitlines()], [["zoredid", missing], ["zoredid", bad]])
        lines = run("report", "--jsonl", missing, good, bad, status=3)[0].splitlines()
        self.assertEqual([self.load(line) for line in lines], images)
        self.assertEqual(self.load(run("report", "--json", missing, status=3)[0])["images"][0]["file"], missing)
        text = run("report", good, good, status=0)[0]
        self.assertEqual(text.count(f"{good}:\n"), 2)

    def test_text_needs_a_preferred_mode(self):
        out, err = run("report", self.save(change({0x13: "02", 0x18: "28"})), status=3)
        self.assertEqual(out, "")
        self.assertIn("names no preferred mode", err)


class ModesTest(ToolTest):
    def test_numbers_sources_and_marks(self):
        lines = run("modes", self.save(MONITOR), status=0)[0].splitlines()
        self.assertEqual([line for line in lines if not line.startswith("  ")],
                         ["Established timings", "Standard timings", "Detailed timings", "Video codes, block 1",
                          "Detailed timings, block 1"])
        self.assertEqual(len(lines), 5 + 13 + 30 + 5)
        for line in [
            "  established 1    640 x  480p @  59.940 Hz      25.175 MHz",
            "  established 2    640 x  480p @  66.667 Hz      30.240 MHz  the list has 27.300 MHz",
            "  standard 7       640 x  480p @  60.000 Hz      25.200 MHz  VIC 1",
            "  standard 20     1920 x 1080i @  59.940 Hz   74.175824 MHz  VIC 5",
            "  detailed 0      1920 x 1080p @  60.000 Hz     148.500 MHz  as VIC 16/76, preferred, native",
            "  detailed 4       720 x  576p @  50.000 Hz      27.000 MHz  as VIC 17/18",
        ]:
            self.assertIn(line, lines)
        image = self.load(run("modes", "--json", self.save(MONITOR), status=0)[0])
        full = self.image(MONITOR)
        for name in ["established", "standard", "detailed", "modes"]:
            self.assertEqual(image[name], full[name])
        for name in ["established", "standard", "detailed"]:
            self.assertEqual([timing["index"] for timing in image[name]], list(range(len(image[name]))))
            self.assertEqual(sorted(mode["index"] for mode in image["modes"] if mode.get("list") == name),
                             list(range(len(image[name]))))
        self.assertEqual([timing["index"] for timing in image["established"] if timing["vesa"]],
                         [1, 3, 4, 5, 6, 7, 9, 10, 11, 12])

    def test_blocks_that_are_not_read_are_named(self):
        section = display_id(b"")
        image = with_blocks(bytes([2, 4, 4]), display_id(b"", version=0x20), display_id(b"", length=122),
                            section[:5] + b"\1", b"\x10", bytes([2, 3, 4]))
        image = image[:-1] + bytes([image[-1] ^ 1])
        path = self.save(image)
        reasons = ["1 (cea-861) is not read: its revision is 4, above 3",
                   "2 (displayid) is not read: its DisplayID version is 2.0, above 1.2",
                   "3 (displayid) is not read: its DisplayID section runs past its end",
                   "4 (displayid) is not read: its section's checksum is wrong%s",
                   "5 (video-timing) is not read: the library keeps no model of its kind",
                   "6 (cea-861) is not read: its checksum is wrong%s"]
        lines = "".join("zoredid: %s: block %s; check and explain say more\n" % (path, reason) for reason in reasons)
        for arguments in [], ["--json"], ["--modeline"]:
            self.assertEqual(lines % ("", ""), run("modes", path, *arguments, status=0)[1])
        past = self.save(MONITOR + bytes(256), "past.bin")
        self.assertEqual("zoredid: %s: blocks 2 to 3 are not read: the base block does not count them\n" % past,
                         run("modes", past, status=0)[1])
        repair = ", which --repair-checksums in a call of its own makes right"
        refusal = "zoredid: %s: --audio-remove 0: the image has no audio descriptors\n" % path
        self.assertEqual(("", refusal + lines % (repair, repair)),
                         run("edit", path, "--dry-run", "--audio-remove", "0", status=1))
        self.assertEqual(("", ""), run("edit", path, "--dry-run", "--serial", "1", status=0))

    def test_hdmi_vic_4_has_one_number(self):
        path = self.save(with_blocks(bytes.fromhex("02031100 6c 030c00 1000000020 0040 0304")))
        explained = run("explain", "--find", "cta.hdmi.vic", path, status=0)[0]
        numbers = [line.partition("(standard ")[2].partition(";")[0].rstrip(")") for line in explained.splitlines()]
        self.assertIn("4096x2160p 24 Hz 256:135  (standard 9; the list has the code at 1000/1001, too: standard 10)",
                      explained)
        listed = [mode["index"] for mode in json.loads(run("modes", "--json", path, status=0)[0])["modes"]
                  if mode["id"] == "cta.hdmi.vic"]
        self.assertEqual(", ".join(numbers), ", ".join(map(str, listed)))
        self.assertEqual(len(listed), 3)  # 24 and 23.98 Hz of VIC 3, 24 Hz of VIC 4

    def test_modes_without_a_number(self):
        other = ", the list takes byte c2 for VIC 66 (standard 7)"
        vic194 = ["7680 x 4320p @  24.000 Hz    1188.000 MHz  VIC 194" + other,
                  "7680 x 4320p @  23.976 Hz 1186.813187 MHz  VIC 194" + other]
        past = ["3840 x 2160p @  %s MHz  HDMI VIC 1, the list leaves it out, as HDMI_VIC_LEN runs past the data block" %
                numbers for numbers in ("30.000 Hz     297.000", "29.970 Hz  296.703297")]
        block = bytes.fromhex("02031200 4110 6b030c001000802d20006001")
        out, error = run("modes", self.save(with_blocks(block)), status=0)
        self.assertEqual((["  -               " + line for line in past], ""),
                         ([line for line in out.splitlines() if line.startswith("  - ")], error))
        for codes, lines in [("75", ["3840 x 2160p @ 100.000 Hz    1188.000 MHz  VIC 117"]), ("c2", vic194), ("10", [])]:
            cea = bytes.fromhex("0203%02x00%02x%s" % (5 + len(codes) // 2, 0x40 + len(codes) // 2, codes))
            out, error = run("modes", self.save(with_blocks(cea)), status=0)
            self.assertEqual("", error, codes)
            self.assertEqual(["  -               " + line for line in lines],
                             [line for line in out.splitlines() if line.startswith("  - ")], codes)
        (mode,) = [mode for mode in self.image(with_blocks(cea[:5] + b"\xc2"))["modes"] if mode["rate_hz"] == 23.976]
        self.assertEqual((mode["vic"], mode["rate"], mode.get("index")), (194, {"dividend": 24000, "divisor": 1001}, None))

    def test_marks_of_made_images(self):
        cea = bytes.fromhex("02030e00" "42" "9003" "42" "0f01" "e3" "0e6107")
        for name, image, expected in [
            ("native, and codes in YCbCr 4:2:0 of their own or by a map", with_blocks(cea), [
                "  standard 7      1920 x 1080p @  60.000 Hz     148.500 MHz  VIC 16, native\n",
                "  standard 10      720 x  480p @  59.940 Hz      27.000 MHz  VIC 3\n",
                "  standard 15     3840 x 2160p @  60.000 Hz     594.000 MHz  VIC 97, 4:2:0 only",
            ]),
            ("a map of all codes", with_blocks(bytes.fromhex("02031000" "45" "0302031310" "e2" "0f03" "e2" "0e44")), [
                "  standard 8       720 x  480p @  59.940 Hz      27.000 MHz  VIC 3, 4:2:0 also, in 4:2:0 standard 15",
                "  standard 9       720 x  480p @  60.000 Hz      27.027 MHz  VIC 2, 4:2:0 also, in 4:2:0 standard 16",
                "  standard 18     1280 x  720p @  50.000 Hz      74.250 MHz  VIC 68, 4:2:0 only",
            ]),
            ("numbers run on after a dropped block", with_blocks(b"\xf0", display_id(b"\x03\x00\x14" + TYPE1)), [
                "DisplayID Type I timings, block 2\n"
                "  detailed 1      1920 x 1080p @  60.000 Hz     148.500 MHz\n",
            ]),
        ]:
            with self.subTest(name):
                out = run("modes", self.save(image), status=0)[0]
                for line in expected:
                    self.assertIn(line, out)

    def test_an_image_that_the_library_refuses_has_modes_without_numbers(self):
        out, error = run("modes", self.save(change({0: "01"})), status=3)
        self.assertIn("  -               1920 x 1080p @  60.000 Hz     148.500 MHz  as VIC 16/76, preferred", out)
        self.assertIn("it does not begin with 00 ff ff ff ff ff ff 00; its modes have no numbers", error)

    MODELINE = re.compile(r'Modeline "(\d+)x(\d+)(i?)_([\d.]+)[^"]*" (\d+\.\d{2,6})((?: \d+){8}) [+-]hsync [+-]vsync'
                          r"( Interlace)?")

    def test_modelines_have_names_of_their_own_and_the_right_rate(self):
        files = [self.save(MONITOR)]
        if CORPUS:
            files += [os.path.join(CORPUS, name) for name in sorted(os.listdir(CORPUS)) if name.endswith(".bin")][:40]
        for path in files:
            lines = run("modes", "--modeline", path, status=0)[0].splitlines()
            names = [line.split('"')[1] for line in lines if not line.startswith("# ")]
            self.assertEqual(len(names), len(set(names)), path)
            for line in lines:
                match = self.MODELINE.fullmatch(line)
                if line.startswith("# "):
                    continue
                numbers = [int(text) for text in match[6].split()]
                rate = float(match[5]) * 1e6 / numbers[3] / numbers[7] * (2 if match[7] else 1)
                self.assertAlmostEqual(float(match[4]), rate, delta=0.006, msg=line)
                self.assertEqual((int(match[1]), int(match[2]), bool(match[3])),
                                 (numbers[0], numbers[4], bool(match[7])), line)

    def compare(self, first, second, options, status):
        first, second = self.save(first, "A.bin"), self.save(second, "B.bin")
        return run("compare", *options, first, second, status=status)[0].replace(first, "A").replace(second, "B")

    def test_pairs(self):
        two = change({0x48: SECOND_TIMING})
        swapped = change({0x36: SECOND_TIMING, 0x48: MONITOR[0x36:0x48].hex()})
        other_code = change({0x8A: "22"})  # 1280 x 720 at 50 becomes 1920 x 1080 at 30
        fewer = change({0x23: "b4"})       # without 800 x 600 at 56 and 800 x 600 at 60
        native = with_blocks(bytes.fromhex("02030700" "42" "9093"))  # 1920 x 1080 at 60, 1280 x 720 at 50
        plain = with_blocks(bytes.fromhex("02030700" "42" "1013"))
        other = with_blocks(bytes.fromhex("02030700" "42" "909f"))   # 1920 x 1080 at 50
        unpreferred, preferred = change({0x13: "02", 0x18: "28"}), change({0x13: "02", 0x18: "2a"})
        def line(image, text, axes, rest="", what="only"):
            return f"{what} in {image}: {text} MHz  {axes}{rest}\n"

        for name, second, options, status, expected in [
            ("itself", MONITOR, [], 0, "same\n"),
            ("another serial number", change({0x0C: "01"}), ["--established"], 0, "same modes\n"),
            ("established timings are left out", fewer, [], 0, "same modes\n"),
            ("established timings take part", fewer, ["--established"], 1, "different\n" +
             line("A", "800 x  600p @  56.250 Hz      36.000", "horizontal 24+72+128 +  vertical 1+2+22 +") +
             line("A", "800 x  600p @  60.317 Hz      40.000", "horizontal 40+128+88 +  vertical 1+4+23 +")),
            ("another code, with its partner in the same line", other_code, [], 1, "different\n" +
             line("B", "1920 x 1080p @  30.000 Hz      74.250", "horizontal 88+44+148 +  vertical 4+5+36 +",
                  "  VIC 34, and at 29.97 Hz") +
             line("A", "1280 x  720p @  50.000 Hz      74.250", "horizontal 440+40+220 +  vertical 5+5+20 +", "  VIC 19",
                  "announced once more")),
            ("each mode as often", two, [], 1, "different\n" +
             line("B", "1280 x  720p @  60.000 Hz      74.250", "horizontal 110+40+220 +  vertical 5+5+20 +",
                  "  as VIC 4/69", "announced once more")),
        ]:
            with self.subTest(name):
                self.assertEqual(self.compare(MONITOR, second, options, status), expected)
        for name, first, second, options, status, expected in [
            ("native modes are modes", native, plain, [], 0, ["same modes"]),
            ("other native modes", native, other, [], 1, ["different", "only in A: 1280 x  720p", "only in B: 1920 x 1080p"]),
            ("no preferred mode", unpreferred, unpreferred, [], 0, ["same"]),
            ("one preferred mode", unpreferred, preferred, [], 1, ["different", "preferred by A: none",
                                                                 "preferred by B: 1920 x 1080p"]),
            ("one preferred mode, ignored", unpreferred, preferred, ["--ignore-preferred"], 0, ["same modes"]),
        ]:
            with self.subTest(name):
                out = self.compare(first, second, options, status)
                self.assertEqual([re.sub("p @.*", "p", line) for line in out.splitlines()], expected)
        stereo, flat = (with_blocks(bytes.fromhex("02031200" "42" "0413" "6a030c001000000020" + last)) for last in ("8000", "0000"))
        self.assertEqual(self.compare(flat, stereo, [], 1),
                         "different\n3D: no | yes (2 modes: 1280 x 720 @ 60 Hz, 1280 x 720 @ 50 Hz)\n")
        modes = self.load(run("compare", "--json", *(self.save(image, name) for image, name in
                                                     ((flat, "A.bin"), (stereo, "B.bin"))), status=1)[0])["modes"]
        self.assertEqual(([], [], [(False, True)] * 3),
                         (modes["only_in_first"], modes["only_in_second"],
                          [("stereo" in pair["first"], "stereo" in pair["second"]) for pair in modes["stereo"]]))
        # The same of 4:2:0; a code that is in 3D as well differs in both.
        plain, also, only = (with_blocks(bytes.fromhex(block)) for block in
                             ("02030800" "43" "1f1012", "02030b00" "43" "1f1012" "e20f03", "02030a00" "41" "12" "e30e1f10"))
        for second, line in ((also, "4:2:0: no | also (2 modes: 1920 x 1080 @ 50 Hz, 1920 x 1080 @ 60 Hz)"),
                             (only, "4:2:0: no | only (2 modes: 1920 x 1080 @ 50 Hz, 1920 x 1080 @ 60 Hz)")):
            self.assertEqual(self.compare(plain, second, [], 1), "different\n" + line + "\n")
        both = bytes.fromhex("02031600" "42" "0413" "6a030c001000000020" + "8000" + "e20f01")
        self.assertEqual(self.compare(flat, with_blocks(both), [], 1),
                         "different\n4:2:0: no | also (1 mode: 1280 x 720 @ 60 Hz)\n"
                         "3D: no | yes (2 modes: 1280 x 720 @ 60 Hz, 1280 x 720 @ 50 Hz)\n")
        modes = self.load(run("compare", "--json", *(self.save(image, name) for image, name in
                                                     ((flat, "A.bin"), (with_blocks(both), "B.bin"))), status=1)[0])["modes"]
        self.assertEqual(([(4, 60), (4, 59.94)], [19]),
                         ([(pair["second"]["vic"], pair["second"]["rate_hz"]) for pair in modes["ycbcr420"]],
                          [pair["first"]["vic"] for pair in modes["stereo"]]))
        first, other = self.save(two, "A.bin"), self.save(swapped, "B.bin")
        self.assertEqual(run("compare", "--ignore-preferred", first, other, status=0)[0], "same modes\n")
        out = run("compare", first, other, status=1)[0]
        self.assertIn(f"preferred by {first}: 1920 x 1080p", out)
        self.assertIn(f"preferred by {other}: 1280 x  720p", out)
        self.assertNotIn("only in", out)

    # Modes, facts and fields, each said once; what moves or follows from the rest is not said.
    def test_all_that_differs(self):
        block = MONITOR[128:255]
        no_code = fix_sums(MONITOR[:128] + block[:2] + b"\x21\x71\x4e" + block[5:0x13] + block[0x14:] + b"\0\0")
        for name, second, expected in [
            ("a code less, with its partner", no_code, 2),
            ("serial number and year", change({0x0C: "01", 0x11: "15"}), 2),
            ("a wrong checksum", change({0x7F: "13"}, fix=False), 1),
            ("the width of the first timing", change({0x42: "55"}), 1),
            ("a speaker", change({0x99: "05"}), 1),
            ("a native bit", change({0x85: "81"}), 1),
            ("the count of native timings", change({0x83: "72"}), 1),
            ("a mode that another field announces", change({0x8A: "04", 0x8B: "13"}), 0),
            ("established timings", change({0x23: "b4"}), 2),
            ("maximum rates", change({0x60: "56", 0x62: "5d"}), 2),
            ("y of green", change({0x1E: "9c"}), 1),
            ("two codes exchanged", change({0x85: "11", 0x88: "01"}), 0),
            ("a length beyond the collection", change({0x9C: "66"}), 1),
            ("a descriptor of which a fact says all", change({0x6C: "00000010" + "00" * 14}), 1),
            ("another preferred mode", change({0x36: SECOND_TIMING[:24]}), 2),
        ]:
            with self.subTest(name):
                first, other = self.save(MONITOR, "A.bin"), self.save(second, "B.bin")
                out = run("compare", "--all", first, other, status=1 if expected else 0)[0]
                self.assertEqual(len(out.splitlines()) - 1, expected, out)
                document = self.load(run("compare", "--all", "--json", first, other, status=1 if expected else 0)[0])
                self.assertEqual(document["same"], not expected)

    # Pairs of which each change is named once.
    def test_what_is_named_of_a_difference(self):
        small = bytes.fromhex("001d0000 ff04 7101 6d00 2700 cf02 1d00 0400 0400")  # 1280 x 720 at 60, as TYPE1
        preferred = [timing[:3] + b"\x80" + timing[4:] for timing in (TYPE1, small)]
        section = [with_blocks(display_id(b"\x03\x00\x28" + timings))
                   for timings in (preferred[0] + small, preferred[1] + TYPE1)]
        shallow = with_blocks(TELEVISION.replace(b"\x38\x3c", b"\x08\x3c"))
        ranges = change({0x5D: "fe"})
        # 1024 x 768 at 60, which byte 0x24 announces, too.
        old = change({0x36: "6419004041002630188836" + "00" + MONITOR[0x42:0x48].hex()})
        for name, first, second, expected in [
            ("preferred DisplayID timing, which comes first", *section,
             ["displayid.timing.preferred (Type I timing - detailed data block > Type I timing 0 > Preferred timing, 1920 x "
              "1080 @ 60 Hz): yes | no", "displayid.timing.preferred"]),
            ("deep colours, of a flag each", with_blocks(TELEVISION), shallow,
             ["colour.bits.rgb: 8, 10, 12 | 8", "colour.hdmi_deep.bits: 10, 12 | none"]),
            ("a right checksum in a block with a finding", ranges, change({0x0C: "01"}, ranges),
             ["identity.serial_number: 145791 | 145665"]),
            ("a wrong checksum beside a right one", MONITOR, change({0x7F: "13"}, fix=False),
             ["checksum (Checksum): 0x12 | 0x13, should be 0x12"]),
            ("extension blocks, of which the count says nothing new", with_blocks(TELEVISION, display_id(b"")),
             with_blocks(TELEVISION, display_id(b""), display_id(b"")),
             ["displayid (DisplayID extension block, block 3): missing | present"]),
            ("preferred mode, announced twice", old, change({0x24: "%02x" % (MONITOR[0x24] & ~8)}, MONITOR),
             ["preferred by A: 1024 x  768p @  60.004 Hz", "preferred by B: 1920 x 1080p", "only in A: 1024 x  768p"]),
        ]:
            with self.subTest(name):
                lines = self.compare(first, second, ["--all"], 1).splitlines()[1:]
                self.assertEqual([line[:len(start)] for line, start in zip(lines, expected)], expected)
                self.assertEqual(len(lines), len(expected), lines)
                self.assertFalse([line for line in lines if line.startswith("only in") and "preferred" in line])

    def test_what_cannot_be_compared(self):
        good = self.save(MONITOR)
        for first, second, reasons in [
            (good, self.folder + "/missing", 1), (self.folder + "/a", self.folder + "/b", 2),
            (good, self.save(b"\0" * 127, "bad.bin"), 1),
        ]:
            out, err = run("compare", "--ignore-preferred", first, second, status=3)
            self.assertEqual((out, len(err.splitlines())), ("", reasons))


MISSING = [f"block 1 offset 0x01 (DisplayID section): warning: no {what}" for what in (
    "product identification data block", "display parameters data block, which a display must have",
    "display interface data block, which a display must have")]


class CheckTest(ToolTest):
    def test_each_finding_has_its_line(self):
        identity = "Vendor and product identification"
        standalone = 3  # product type
        for name, image, lines in [
            ("nothing", MONITOR, []),
            ("two good sections", with_blocks(display_id(b"\x03\x00\x14" + TYPE1, product=standalone, extensions=1),
                                              display_id(TILE)), MISSING),
            ("no descriptors and no data blocks", with_blocks(b"\x02\x03"), []),
            ("header", change({0: "01", 8: "0000"}), [
                "block 0 offset 0x00 (Header): error: not the header of a base block: found 01 ff ff ff ff ff ff 00, "
                "expected 00 ff ff ff ff ff ff 00",
                f"block 0 offset 0x08 ({identity} > ID manufacturer name): warning: not three letters: found 0000"]),
            ("checksum of an extension block", change({0xFF: "74"}, fix=False), [
                "block 1 offset 0x7f (Checksum): error: the checksum is wrong: found 0x74, should be 0x73",
                "block 1 offset 0x00 (CTA-861 extension block): note: the block is not read: its checksum is wrong"]),
            ("a part of a block", MONITOR[:200], [
                "block 0 offset 0x7e (Extension block count): error: fewer extension blocks follow: found 0 blocks, "
                "expected 1 block",
                "block 1 offset 0x00 (CTA-861 extension block): error: cut short: a block has 128 bytes: found 72 bytes",
                "block 1 offset 0x46 (Detailed timing 2): error: cut short: a detailed timing has 18 bytes: "
                "found 2 bytes"]),
            ("week and year", change({0x10: "3cff"}), [
                f"block 0 offset 0x10 ({identity} > Week of manufacture): warning: reserved value: found 60",
                f"block 0 offset 0x11 ({identity} > Year of manufacture): warning: the year is in the future: found "
                f"2245, expected at most {THIS_YEAR}"]),
            ("next year's model", change({0x10: "ff%02x" % (THIS_YEAR + 1 - 1990), 0x13: "04", 0x18: "2b"}), []),
            ("no width", change({0x38: "00", 0x3A: "01"}), [
                "block 0 offset 0x36 (Detailed timing): warning: the line rate is outside of the display range limits",
                "block 0 offset 0x38 (Detailed timing > Horizontal addressable video): warning: 0 is not a size: found 0 "
                "pixels",
                "block 0 offset 0x36 (Detailed timing): note: the text reports need a preferred mode: found none "
                "that the library reads",
                "block 0 offset 0x36 (Detailed timing): note: the library does not list this timing"]),
            ("a data block over the end", with_blocks(b"\x02\x03\x7e\0" + (b"\x7f\1\1\1" + bytes(28)) * 3 + b"\x7f"), [
                "block 1 offset 0x64 (Vendor-specific data block 3): error: runs past the end of its data block "
                "collection: found 31 bytes, expected at most 25 bytes"]),
            ("a later DisplayID", with_blocks(display_id(b"", 0x20, product=standalone)), MISSING + [
                "block 1 offset 0x00 (DisplayID extension block): note: the block is not read: its DisplayID version "
                "is 2.0, above 1.2"]),
        ]:
            with self.subTest(name):
                path = self.save(image)
                weighty = any(": note: " not in line for line in lines)
                out, err = run("check", path, status=1 if weighty else 0)
                self.assertEqual([re.sub(r" \[[a-z0-9.-]+\]$", "", line) for line in out.splitlines()],
                                 [f"{path}: {line}" for line in lines])
                self.assertEqual(err, "")

    def test_many(self):
        clean, noted = self.save(MONITOR), self.save(with_blocks(b"\x60"), "noted.bin")
        bad, missing = self.save(change({0x7F: "13"}, fix=False), "bad.bin"), self.folder + "/missing"
        out, err = run("check", clean, noted, bad, missing, status=3)
        self.assertEqual(out.splitlines()[-1], "4 images: 2 clean, 1 with errors or warnings, 1 unreadable; errors 1, "
                         "warnings 0, notes 1")
        self.assertTrue(err.startswith(f"zoredid: {missing}: "))
        run("check", clean, bad, status=1)
        odd = self.save(change({0x7F: "13"}, fix=False), "a b\n\\n\x01\x9b\u009b\u00e9.bin")
        self.assertIn("/a b\\n\\\\n\\x01\\xc2\\x9b\\xc2\\x9b\u00e9.bin: block 0 offset 0x7f (Checksum)", run("check", odd, status=1)[0])
        checks = self.load(run("check", "--json", clean, bad, missing, status=3)[0])["checks"]
        self.assertEqual(checks[:2], [{"file": clean, "findings": []}, {"file": bad, "findings": [
            {"rule": "checksum", "block": 0, "offset": 127, "field": "Checksum", "severity": "error", "what": "the checksum is wrong",
             "found": "0x13, should be 0x12", "expected": ""}]}])
        self.assertEqual(checks[2]["file"], missing)

    def damaged(self):
        """A clean image, one with an error, a warning and a note, the same as a dump, and none."""
        image = change({0x12: "02"}, with_blocks(b"\x60"), fix=False)
        text = " ".join("%02x" % byte for byte in image).encode()
        return [self.save(MONITOR), self.save(image, 'a <&"> %\u00e9.bin'), self.save(text, "b.txt"), self.folder + "/missing"]

    def test_rules_are_those_of_the_page(self):
        rules = self.load(run("check", "--rules", "--json", status=0)[0])["rules"]
        ids = [rule["rule"] for rule in rules]
        self.assertEqual(len(ids), len(set(ids)))
        text = run("check", "--rules", status=0)[0].splitlines()
        self.assertEqual([line.split()[0] for line in text[::2]], ids)
        self.assertEqual([line.strip() for line in text[1::2]], [rule["why"] for rule in rules])
        with open(os.path.join(PROJECT, "docs/checks.md"), encoding="utf-8") as page:
            self.assertTrue(page.read().endswith("\n\n" + run("check", "--rules", "--markdown", status=0)[0]),
                            "docs/checks.md is not that of the rules; it says how it is made")
        for arguments in (("--rules", "x"), ("--markdown", "x"), ("--ignore", "resrved.bits", "x"), ("--ignore", "", "x"),
                          ("--ignore", "reserved.bit", "x"), ("--rules", "--sarif"), ("--junit", "--sarif", "x")):
            self.assertEqual(run("check", *arguments, status=2)[0], "")
        self.assertIn("did you mean 'reserved.bits'?", run("check", "--ignore", "resrved.bits", "x")[1])

    def test_what_fails_and_what_is_ignored(self):
        bad = self.damaged()[1]
        lines = run("check", bad, status=1)[0].splitlines()
        rules = [re.search(r" \[(.*)\]$", line)[1] for line in lines]
        self.assertEqual(sorted(rules), ["base.version", "checksum", "library.unread-block"])
        self.assertEqual(rules, [finding["rule"] for finding in
                                 self.load(run("check", "--json", bad)[0])["checks"][0]["findings"]])
        note = self.save(with_blocks(b"\x60"), "note.bin")
        for file, options, status, count in [
            (bad, "", 1, 3), (bad, "--fail-on note", 1, 3), (bad, "--fail-on error", 1, 3),
            (bad, "--fail-on error --ignore checksum", 0, 2), (bad, "--ignore checksum --ignore base.*", 0, 1),
            (bad, "--ignore base,library", 1, 1), (bad, "--ignore base.,checksum", 2, 0), (bad, "--ignore bas", 2, 0), (note, "", 0, 1), (note, "--fail-on note", 0, 1),
        ]:
            self.assertEqual(len(run("check", file, *options.split(), status=status)[0].splitlines()), count, options)

    def test_a_copy_is_repaired(self):
        bad = bytearray(MONITOR)
        bad[126] = 0
        bad = self.save(bytes(bad), "bad.bin")
        out = os.path.join(self.folder, "out.bin")
        self.assertRegex(run("check", "--fix", out, bad, status=0)[0],
                         r"^.*bad\.bin: block 0 offset 0x7e \(Extension block count\): repaired: .*: 0x00 is now 0x01 "
                         r"\[block\.not-counted\]\n$")
        with open(out, "rb") as file:
            self.assertEqual(file.read(), MONITOR)
        self.assertIn("exists already", run("check", "--fix", out, bad, status=3)[1])
        # The checksum shows that the count is wrong, and goes on to show it.
        ignored = run("check", "--force", "--ignore", "block.not-counted", "--fix", out, bad, status=1)[0]
        self.assertNotIn("block.not-counted", ignored)
        self.assertIn(": nothing repaired\n", ignored)
        self.assertIn("not repaired: the checksum is wrong: a new one would hide that", ignored)
        with open(out, "rb") as file, open(bad, "rb") as before:
            self.assertEqual(file.read(), before.read())
        damaged = self.save(b"\0\1" + MONITOR[2:9] + b"\0" + MONITOR[10:], "damaged.bin")
        self.assertIn("not repaired: not the header of a base block: the checksum does not confirm the right one [base.",
                      run("check", "--force", "--fix", out, damaged, status=1)[0])
        # Of a longer field the bytes that were not right, and the copy of two equal EDIDs is of one.
        padded = self.save(change({0xFC: "050006"}), "padded.bin")
        self.assertIn("offset 0x7c (Padding): repaired: padding is not 0: 0x05 is now 0x00, the first of 2 bytes [cta.",
                      run("check", "--force", "--fix", out, padded, status=0)[0])
        twice = self.save(2 * MONITOR, "twice.bin")
        self.assertEqual(run("check", "--force", "--fix", out, twice, status=0)[0],
                         f"{twice}: the copy holds the first EDID alone\n{twice}: nothing to repair\n")
        # Of a file with two EDIDs the one that is chosen, and a copy of what needs no repair.
        two = self.save(MONITOR + MONITOR[:-1] + b"\0", "two.bin")
        for image, repairs in (("1", "nothing to repair"), ("2", "0x00 is now 0x73")):
            text = run("check", "--force", "--fix", out, "--image", image, two, status=0)[0]
            self.assertIn(repairs, text)
            with open(out, "rb") as file:
                self.assertEqual(file.read(), MONITOR)
        for arguments in (("--fix", out), ("--fix", out, bad, bad), ("--force", bad), ("--fix", out, "--json", bad)):
            self.assertEqual(run("check", *arguments, status=2)[0], "")

    def test_counts_by_rule(self):
        clean, bad, dump, missing = self.damaged()
        self.assertEqual(run("check", "--summary", "--ignore", "checksum", clean, bad, dump, missing, status=3)[0],
                         "  images findings rule\n"
                         "       2        2 base.version\n"
                         "       2        2 library.unread-block\n"
                         "4 images: 1 clean, 2 with errors or warnings, 1 unreadable; errors 0, warnings 2, notes 2\n")
        self.assertEqual(run("check", "--summary", clean, status=0)[0],
                         "1 images: 1 clean, 0 with errors or warnings, 0 unreadable; errors 0, warnings 0, notes 0\n")

    def test_sarif(self):
        files = self.damaged()
        log = json.loads(run("check", "--sarif", "--fail-on", "error", *files, status=3)[0])
        if jsonschema is not None:
            with open(os.path.join(SCHEMAS, "sarif-2.1.0.json"), encoding="utf-8") as file:
                jsonschema.Draft4Validator(json.load(file), format_checker=jsonschema.FormatChecker()).validate(log)
        (one,) = log["runs"]
        rules = {rule["id"]: rule for rule in one["tool"]["driver"]["rules"]}
        found = [(result["ruleId"], result["level"]) for result in one["results"]]
        self.assertEqual(found[:3], found[3:6])  # of the dump, which has no places
        self.assertIn(("checksum", "error"), found)
        self.assertEqual(found[6:], [("input.unreadable", "error")])
        self.assertEqual({rule for rule, _ in found} - set(rules), set())
        places = [result["locations"][0]["physicalLocation"] for result in one["results"]]
        self.assertEqual({place["artifactLocation"]["uri"] for place in places[:3]},
                         {"file://" + self.folder + "/a%20%3C%26%22%3E%20%25%C3%A9.bin"})
        self.assertIn({"byteOffset": 127, "byteLength": 1}, [place["region"] for place in places[:3]])
        self.assertTrue(all("region" not in place for place in places[3:]))
        self.assertEqual(json.loads(run("check", "--sarif", files[0], status=0)[0])["runs"][0]["results"], [])

    def test_junit(self):
        files = self.damaged()
        text = run("check", "--junit", *files, status=3)[0]
        path = self.save(text.encode(), "junit.xml")
        if shutil.which("xmllint") is not None:
            subprocess.run(["xmllint", "--noout", "--schema", os.path.join(SCHEMAS, "junit-4.xsd"), path], check=True,
                           stderr=subprocess.DEVNULL)
        suite = xml.etree.ElementTree.fromstring(text)
        self.assertEqual([suite.get(name) for name in ("tests", "failures", "errors")], ["4", "2", "1"])
        self.assertEqual([case.get("name") for case in suite], files)
        self.assertEqual([[part.tag for part in case] for case in suite], [[], ["failure"], ["failure"], ["error"]])
        self.assertEqual(suite[1][0].text, run("check", files[1])[0])
        suite = xml.etree.ElementTree.fromstring(run("check", "--junit", "--fail-on", "error", "--ignore", "checksum",
                                                     *files, status=3)[0])
        self.assertEqual([len(case) for case in suite], [0, 0, 0, 1])


class TimingTest(ToolTest):
    # Published modelines: CVT of VESA's spreadsheet, DMT and CTA-861 of their tables.
    def test_published_modes(self):
        for arguments, expected in [
            ("1920x1080@60 --type cvt", ["173.00 1920 2048 2248 2576 1080 1083 1088 1120 -hsync +vsync"]),
            ("1920x1080@60 --type CVT-RB", ["138.50 1920 1968 2000 2080 1080 1083 1088 1111 +hsync -vsync"]),
            ("1024x768@60 --type dmt", ["65.00 1024 1048 1184 1344 768 771 777 806 -hsync -vsync"]),
            ("1280x768@60 --type dmt-rb", ["68.25 1280 1328 1360 1440 768 771 778 790 +hsync -vsync"]),
            ("1920x1080i@60 --type cea", ["74.25 1920 2008 2052 2200 1080 1084 1094 1125 +hsync +vsync Interlace"]),
            ("1920x1080@60 --type gtf", ["172.79808 1920 2040 2248 2576 1080 1081 1084 1118 -hsync +vsync"]),
            ("1920x1080@60 --type gtf-list", ["172.77 1920 2048 2248 2576 1080 1081 1084 1118 -hsync +vsync"]),
            ("4096x2160@59.94 --type cvt-rb2", ["556.188 4096 4104 4136 4176 2160 2208 2216 2222 +hsync -vsync"]),
            ("1366x768@60000/1001 --type cvt-rb3", ["68.188 1360 1368 1400 1440 768 776 784 790 +hsync -vsync"]),
            ("1920x1080@24 --type ovt", ["70.752 1920 2080 2112 2144 1080 1361 1369 1375 +hsync +vsync"]),
            ("--dmt 0x58", ["556.188 4096 4104 4136 4176 2160 2208 2216 2222 +hsync -vsync"]),
            ("--hdmi-vic 4", ["297.00 4096 5116 5204 5500 2160 2168 2178 2250 +hsync +vsync"]),
            ("--vic 4", ["74.25 1280 1390 1430 1650 720 725 730 750 +hsync +vsync",
                         "74.175824 1280 1390 1430 1650 720 725 730 750 +hsync +vsync"]),
            ("--vic 39", ["72.00 1920 1952 2120 2304 1080 1126 1136 1250 +hsync -vsync Interlace"]),
            ("--vic 019", ["74.25 1280 1720 1760 1980 720 725 730 750 +hsync +vsync"]),
        ]:
            with self.subTest(arguments):
                lines = run("timing", "--modeline", *arguments.split(), status=0)[0].splitlines()
                self.assertEqual([line.split('" ')[1] for line in lines], expected)

    def test_all_sources(self):
        types = ["dmt", "cvt", "cvt-rb", "cvt-rb2", "cvt-rb3", "gtf", "ovt", "cea"]
        lines = run("timing", "1280x720@60", status=0)[0].splitlines()
        self.assertEqual([line.split()[0] for line in lines], types)
        self.assertEqual(lines[-1], "cea     1280 x  720p @  60.000 Hz      74.250 MHz  horizontal 110+40+220 +  vertical "
                         "5+5+20 +  VIC 4/69")
        timings = self.load(run("timing", "--json", "1280x720@60", status=0)[0])["timings"]
        self.assertEqual([timing["type"] for timing in timings], types)
        self.assertEqual((timings[-1]["vics"], timings[-1]["pixel_clock_hz"]), ([4, 69], 74250000))
        lines = run("timing", "--modeline", "1280x720@60", status=0)[0].splitlines()
        self.assertEqual(len({line.split('"')[1] for line in lines}), len(types))
        timing = self.load(run("timing", "--json", "2048x1080@24", "--type", "smpte", status=0)[0])["timings"][0]
        self.assertEqual((timing["horizontal"]["total"], timing["vertical"]["total"]), (2750, 1125))

    # Every code of the standard, with its partner at 1000/1001 for rates that are multiples of 6.
    def test_every_code(self):
        for code in [*range(1, 128), *range(193, 220)]:
            timings = self.load(run("timing", "--json", "--vic", str(code), status=0)[0])["timings"]
            rates = [Fraction(timing["rate"]["dividend"], timing["rate"]["divisor"]) for timing in timings]
            self.assertIn([rate / rates[0] for rate in rates], ([1], [1, Fraction(1000, 1001)]), code)
            self.assertTrue(all(code in timing["vics"] for timing in timings), code)
        self.assertEqual(timings[1]["rate"], {"dividend": 120000, "divisor": 1001})
        self.assertIn("each pixel sent 2 times", run("timing", "--vic", "6", status=0)[0])

    def test_what_there_is_not(self):
        for arguments in ["--vic 130", "--hdmi-vic 5", "--dmt 0x59", "1234x567@89 --type dmt", "1920x1080@61 --type cea",
                          "1920x1080i@60 --type ovt", "70000x5000@60", "1920x1080@59.94 --type gtf-list"]:
            out, err = run("timing", *arguments.split(), status=1)
            self.assertEqual(out, "")
            self.assertRegex(err, "^zoredid: .*: no .*timing\n$")
        self.assertEqual(self.load(run("timing", "--json", "--vic", "130", status=1)[0])["timings"], [])

    def test_an_edit_takes_the_same_modes(self):
        path = self.save(MONITOR)
        for mode, reason in [
            ("4000x4000@190,gtf", "'4000x4000@190' has no timing with a pixel clock of at most 4294967295 Hz"),
            ("4000x4000@240", "'4000x4000@240' has no timing"), ("1234x567@89,dmt", "dmt has no mode '1234x567@89'"),
            ("640x480@60,vesa", "unknown value 'vesa'; expected one of dmt, dmt-rb, cvt, cvt-rb, gtf, cea, smpte"),
        ]:
            out, err = run("edit", path, "-o", "-", "--preferred", mode, status=2)
            self.assertEqual((out, err.count("\n"), reason in err), ("", 1, True), err)
        run("edit", path, "-o", path, "--force", "--preferred", "1920x1080@30", status=0)  # the tables have 1080i, too
        self.assertIn("1920 x 1080p @  30.000 Hz      74.250 MHz", run("modes", path, status=0)[0])


class CommandLineTest(ToolTest):
    def test_wrong_ones(self):
        path = self.save(MONITOR)
        for arguments in [
            ["report", "--format", "nice", path], ["report", "--json", "--jsonl", path],
            ["report", "--json", "--format", "plain", path], ["modes"], ["modes", "--json", "--modeline", path],
            ["compare", path], ["timing"], ["timing", "1920x1080"], ["timing", "0x1080@60"],
            ["timing", "1920x1080@60x"], ["timing", "-1x2@3"], ["timing", "99999999999x1@1"],
            ["timing", "1x1@1", "--type", "vesa"], ["timing", "1x1@1", "--vic", "1"], ["timing", "--vic", "0"],
            ["timing", "--vic", "256"], ["timing", "--vic", "0x10"], ["timing", "1x1@60/0"], ["timing", "1x1@0.0"],
            ["timing", "1x1@1.5x"], ["timing", "1ix1@60"], ["timing", "--dmt", "0"],
        ]:
            with self.subTest(arguments):
                out, err = run(*arguments, status=2)
                self.assertEqual(out, "")
                self.assertNotEqual(err, "")


@unittest.skipUnless(CORPUS, "no folder of further images")
class CorpusTest(ToolTest):
    def test_every_image_has_its_line_and_its_findings(self):
        files = [os.path.join(CORPUS, name) for name in sorted(os.listdir(CORPUS)) if name.endswith(".bin")]
        lines = run("report", "--jsonl", *files)[0].splitlines()
        checks = self.load(run("check", "--json", *files, status=1)[0])["checks"]
        self.assertEqual(len(lines), len(checks))
        self.assertEqual(files, list(dict.fromkeys(check["file"] for check in checks)))  # some hold several EDIDs
        for line, check in zip(lines, checks):
            with self.subTest(check["file"]):
                image = self.load(line)
                self.assertEqual(*((part["file"], part.get("image")) for part in (image, check)))
                # Each block that the library drops has a finding that says why, but for a block map, which has nothing.
                found = {finding["block"] for finding in check["findings"]}
                if "error" in image:
                    self.assertIn(0, found)
                self.assertLessEqual({block["block"] for block in image.get("extensions", [])
                                      if not block["loaded"] and block["kind"] != "block-map"}, found)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
