# What zoredid explain says: lines, single bytes, searches, and the tree as JSON.
#   ExplainTest.py COMMAND PROJECT WRITE_IMAGES [CORPUS]
# Expected lines are written out by hand from the bytes of the example.

import json
import os
import pty
import re
import statistics
import subprocess
import sys
import time
import unittest

from Checksums import display_id, fix_sums
from FactsTest import COMMAND, CORPUS, MONITOR, change, run, ToolTest, TYPE1, with_blocks

# Everything that reads differently when it is damaged.
IMAGES = {
    "the example": MONITOR,
    "one byte": MONITOR[:1],
    "a cut base block": MONITOR[:100],
    "a cut extension block": MONITOR[:200],
    "a bad header": change({0: "01"}),
    "wrong sums": change({0x7F: "13", 0xFF: "00"}, fix=False),
    "ones": b"\xff" * 255 + b"\0",
    "zeros": bytes(384),
    "a data block over the end": with_blocks(b"\x02\x03\x7e\x00" + (b"\x1f" + bytes(31)) * 3 + b"\x1f"),
    "DisplayID and unknown blocks": with_blocks(display_id(b"\x03\x00\x14" + TYPE1), b"\x99", b"\xf0\x02\x70"),
    "counting bytes": fix_sums(MONITOR[:126] + b"\x03\0" + bytes(range(256)) + b"\x70\x20" + bytes(range(126))),
}


def walk(fields, groups=()):
    """Each field with its groups."""
    for field in fields:
        yield field, groups
        yield from walk(field.get("fields", []), (*groups, field))


class ExplainTest(ToolTest):
    def lines(self, *arguments, image=MONITOR, status=0):
        return run("explain", *arguments, self.save(image), status=status)[0].splitlines()

    def tree(self, path, *arguments, status=0):
        return self.load(run("explain", "--json", *arguments, path, status=status)[0])

    def test_lines_of_the_example(self):
        lines = self.lines()
        start = lines.index("block 1                                CTA-861 extension block")
        self.assertEqual((lines[0], lines[start - 1]), ("block 0                                Base block", ""))
        for expected in [
            # Bits of a byte; a timing; bits of three bytes; more bytes than fit into a line; many of one value.
            """
08-11                                    Vendor and product identification
08.7          04                           Reserved
08.6-0 09     04 69                        ID manufacturer name: ACI
0a-0b         f4 27                        ID product code: 10228
""", """
36-47                                    Detailed timing: 1920 x 1080 @ 60 Hz  (detailed 0)
36-37         02 3a                        Pixel clock: 148.50 MHz
38 3a.7-4     80 71                        Horizontal addressable video: 1920 pixels
39 3a.3-0     18 71                        Horizontal blanking: 280 pixels
""", """
3f 41.5-4     2c 00                        Horizontal sync pulse width: 44 pixels
40.7-4 41.3-2 45 00                        Vertical front porch: 4 lines
40.3-0 41.1-0 45 00                        Vertical sync pulse width: 5 lines
""", """
4d-58         41 38 4c 4d 54 46 31 34      Text: A8LMTF145791
              35 37 39 31
59            0a                           Line feed
""", """
15-17                                        Short audio descriptor: L-PCM, 2 channels
15.7          09                               Reserved
15.6-3        09                               Audio format code: L-PCM
15.2-0        09                               Maximum number of channels: 2 channels
""", """
6a-7e         00 21 times                Padding
7f            73                         Checksum: 0x73
"""]:
            self.assertIn(expected, "\n".join(["", *lines, ""]))
        self.assertEqual(self.lines("--block", "1"), lines[start:])
        cut = self.lines(image=MONITOR[:220])[-4:]  # four bytes into a timing
        self.assertTrue(cut[0].endswith("Detailed timing 3  ! error: cut short: a detailed timing has 18 bytes"), cut)
        self.assertEqual([line.split()[0] for line in cut], ["58-5b", "58-59", "5a", "5b"])
        noted = self.lines(image=change({0x10: "3c", 0x7F: "00"}, fix=False))
        self.assertIn("10            3c" + " " * 27 + "Week of manufacture: reserved  ! warning: reserved value", noted)
        self.assertIn("! error: not the header of a base block", self.lines(image=change({0: "01"}))[1])
        self.assertIn("! error: the checksum is wrong", [line for line in noted if line.startswith("7f")][0])

    def test_one_byte(self):
        head = ["block 1                                CTA-861 extension block",
                "22-33                                    Detailed timing 0: 720 x 480 @ 59.94 Hz  (detailed 1)",
                "2c.7-4 2d.3-2 96 00                        Vertical front porch: 9 lines",
                "2c.3-0 2d.1-0 96 00                        Vertical sync pulse width: 6 lines"]
        for arguments in [["--block", "1", "--at", "0x2c"], ["--block", "1", "--at", "44"], ["--at", "0xAC"]]:
            self.assertEqual(self.lines(*arguments), head)
        fields = [field["name"] for field, _ in walk(self.tree(self.save(MONITOR), "--at", "172")["fields"])]
        self.assertEqual(fields, ["CTA-861 extension block", "Detailed timing", "Vertical front porch",
                                  "Vertical sync pulse width"])

    def test_ids(self):
        clock = self.lines("--at", "base.detailed.pixel-clock", "--block", "0")
        self.assertEqual([line.strip().split("  ")[-1].strip() for line in clock],
                         ["Base block", "(detailed 0)", "Pixel clock: 148.50 MHz"])
        self.assertEqual([line.split(" > ")[-1] for line in self.lines("--find", "base.EDID")][1:],
                         ["Version number: 1", "Revision number: 3"])
        self.assertEqual(self.lines("--at", "vtb.version", status=1), [])
        self.assertIn("Video identification code: 17, ", self.lines("--at", "cta.video.vic[3]")[-1])
        self.assertIn("has no field cta.video.vic[99]\n",
                      run("explain", "--at", "cta.video.vic[99]", self.save(MONITOR), status=1)[1])
        # Names that an edit would refuse are left out: those of a code that a map for YCbCr 4:2:0 marks.
        marked = fix_sums(MONITOR.replace(bytes.fromhex("83010000"), bytes.fromhex("e30f0100")))
        for image, count in ((MONITOR, 127), (marked, 1)):
            self.assertEqual(count, len(self.lines("--at", "cta.video.vic[0]", "--values", image=image)))
        self.assertEqual(("", True), (lambda out, error: (out, error.endswith(": no field there takes names\n")))(
            *run("explain", "--at", "base.identity.product-code", "--values", self.save(MONITOR), status=1)))
        self.assertIn("unknown offset or id vtb", run("explain", "--at", "vtb.none", self.save(MONITOR), status=2)[1])
        for arguments in [[], ["--ids", "--json"], ["--ids", "--at", "1"], ["--ids", "--find", "x"],
                          ["--ids", "--block", "0"]]:
            run("explain", *arguments, status=2)
        listed = dict(line.split()[:2] for line in run("explain", "--ids", status=0)[0].splitlines())
        for image in IMAGES.values():
            for field, _ in walk(self.tree(self.save(image))["fields"]):
                self.assertIn(field["id"], listed)

    def test_find(self):
        gamma = ("block 0 17            78                       Basic display parameters and features > Display "
                 "transfer characteristic (gamma): 2.20")
        self.assertEqual(self.lines("--find", "GAMMA"), [gamma])
        self.assertEqual(self.lines("--find", "2.20", "--block", "0"), [gamma])
        self.assertEqual(self.lines("--find", "gamma", "--block", "1", status=1), [])
        self.assertEqual([line.split()[:3] for line in self.lines("--find", "L-PCM")],
                         [["block", "1", "15-17"], ["block", "1", "15.6-3"]])
        for text, image, found in [("Pixel clock: 148.50 MHz", MONITOR, "Pixel clock"), ("detailed 1", MONITOR, "Detailed timing 0"), ("vic 31", MONITOR, "identification code"),
                                   ("reserved value", change({0x10: "3c"}), "Week of manufacture: reserved")]:
            self.assertEqual([found in line for line in self.lines("--find", text, image=image)], [True])
        for text in ["standard 7", "standard 8"]:
            found = [line for line in self.lines("--find", text) if "(" in line.split(": ")[-1]]
            self.assertEqual([line.split("  ")[-1] for line in found], ["(standard 7, 8)"])
        for text in ["1920x1080", "1920 X 1080", "1920 x 1080"]:
            found = "\n".join(self.lines("--find", text))
            self.assertIn("Detailed timing: 1920 x 1080 @ 60 Hz", found)
            self.assertIn("Short video descriptor 13: 1920x1080p 50 Hz", found)
        # In the order of the tree: bits from 7 down, and what is left of a structure at its place.
        tree = [line[:14].strip() for line in self.lines("--block", "0") if "Established" not in line]
        found = [line.split()[2] for line in self.lines("--block", "0", "--find", "Hz")]
        self.assertEqual(found, [place for place in tree if place in found])
        codes = with_blocks(display_id(bytes.fromhex("23 40 02 04 10"), version=0x20))
        self.assertEqual([line.split(" > ")[-1] for line in self.lines("--find", "VIC 16", "--block", "1", image=codes)],
                         ["VIC #1: 16, 1920x1080p 59.94/60 Hz 16:9"])
        twice = with_blocks(bytes.fromhex("02030a00 42 1010 e2 0f03"))  # one code at two places
        self.assertEqual([line.split(" > ")[-1].split(": ")[0] for line in self.lines("--find", "also in", image=twice)],
                         [f"Video code 16, 1920x1080p 59.94/60 Hz 16:9 #{place}" for place in (1, 0)])
        container = with_blocks(bytes.fromhex("02031a00 75 5c12ca 0107") + bytes(range(16)))
        self.assertIn("Container ID: 00010203-0405-", self.lines("--find", "03-0405-0607-08", image=container)[0])
        self.assertEqual(self.lines("--find", "standard timing 3"),
                         ["block 0 2c-2d                                  Standard timing 3: 1280 x 1024 @ 60 Hz  "
                          "(standard 3)"])

    def test_every_word_of_a_line_finds_it(self):
        """Of places, bytes and blocks as well; every eighth word, as each is a process, of images that differ in them."""
        step = 8
        images = {name: IMAGES[name] for name in ("the example", "DisplayID and unknown blocks")}
        for name in ("ed_acer-xv273k-dp1-tile0.bin",) if CORPUS else ():
            with open(os.path.join(CORPUS, name), "rb") as file:
                images[name] = file.read()
        for name, image in images.items():
            path = self.save(image)
            places = {}  # of each word the places of its lines
            for line in run("explain", path, status=0)[0].splitlines():
                if line.startswith("block "):
                    block = place = " ".join(line.split()[:2])
                elif line[:1].strip():
                    place = block + " " + line[:14].strip()
                for word in line.split() + ([place] if line.startswith("block ") else []):
                    places.setdefault(word, set()).add(re.sub(" +", " ", place))
            for word, expected in sorted(places.items())[::step]:
                lines = run("explain", "--find=" + word, path, status=0)[0].splitlines()
                found = [re.sub(" +", " ", line) + " " for line in lines]
                missing = [place for place in expected if not any(line.startswith(place + " ") for line in found)]
                self.assertEqual([], missing, (name, word))
            tree = run("explain", path, status=0)[0].splitlines()
            for line in [line for line in tree if line[:1].strip() and line[41:].strip()][::4 * step]:
                for text in (line, re.sub(" +", " ", line)):
                    lines = run("explain", "--find=" + text, path, status=0)[0].splitlines()
                    self.assertIn(re.sub("^block . ", "", lines[0]).split()[0], line, (name, text))
        self.assertEqual([line.split()[2] for line in self.lines("--find", "00 21 times")], ["6a-7e"])
        self.assertEqual([line.split()[2] for line in self.lines("--find", "02 3A")], ["36-37"])
        self.assertEqual([line.split()[2] for line in self.lines("--find", "40.7-4")], ["40.7-4"])
        self.assertEqual(len(self.lines("--find", "block 1")), 1)
        # From one column into another: pairs of digits with one blank between them are bytes.
        for text, count in (("block 0 17", 1), ("17  78", 1), ("17 78", 0), ("78 Basic display", 1), ("14.7 80", 1)):
            self.assertEqual(count, len(self.lines("--find", text, status=0 if count else 1)), text)
        hdmi = with_blocks(bytes.fromhex("02031000 6b 030c00 0000 00 00 20 00 20 02"))  # one code of HDMI
        self.assertEqual([line.split(" > ")[-1] for line in self.lines("--find", "HDMI VIC 2", image=hdmi)],
                         ["HDMI_VIC: 2, 3840x2160p 25 Hz 16:9  (standard 7)"])

    def test_every_bit_has_one_leaf_whatever_the_image(self):
        images = dict(IMAGES)
        for name in sorted(os.listdir(CORPUS))[::7] if CORPUS else []:
            if name.endswith(".bin"):
                with open(os.path.join(CORPUS, name), "rb") as file:
                    image = file.read()
                    images[name] = image[:128 + 128 * image[0x7E]]  # without another EDID after it
        for name, image in images.items():
            with self.subTest(name):
                path = self.save(image)
                document = self.tree(path)
                self.assertEqual((document["file"], document["form"], document["size"]),
                                 (path, "raw image", len(image)))
                self.check_tree(image, document["fields"])
                text = run("explain", path, status=0)[0]
                self.assertNotRegex(text, r"[^\n -~]")
                blocks = [line.split()[1] for line in text.splitlines() if line.startswith("block ")]
                self.assertEqual(blocks, [str(i) for i in range((len(image) + 127) // 128)])

    def check_tree(self, image, fields):
        bits = [0] * len(image)
        for field, groups in walk(fields):
            end = field["offset"] + field["length"]
            for group in groups:
                self.assertLessEqual(group["offset"], field["offset"])
                self.assertLessEqual(end, group["offset"] + group["length"])
            touched = set()
            for piece in field.get("pieces", []):
                for offset in range(piece["offset"], piece["offset"] + piece["length"]):
                    self.assertEqual(bits[offset] & piece["mask"], 0, (offset, field))
                    bits[offset] |= piece["mask"]
                    touched.add(offset)
            if touched:
                self.assertEqual((min(touched), max(touched) + 1), (field["offset"], end))
                self.assertEqual(field["raw"], bytes(image[offset] for offset in sorted(touched)).hex())
        self.assertEqual(bits, [0xFF] * len(image))

    def test_timings_have_the_numbers_that_edits_take(self):
        path = self.save(MONITOR)
        modes = json.loads(run("modes", "--json", path, status=0)[0])
        listed = {(name, timing["index"]) for name in ["established", "standard", "detailed"] for timing in modes[name]}
        timings = [field["timing"] for field, _ in walk(self.tree(path)["fields"]) if "timing" in field]
        self.assertEqual({(timing["list"], timing["index"]) for timing in timings} - listed, set())
        self.assertIn({"list": "detailed", "index": 1}, timings)

    # Also of bytes that the list takes for other codes, of HDMI's code 4, which it has at 23.98 Hz too, and in 4:2:0.
    def test_every_number_of_the_lists_has_its_bytes(self):
        def numbers(text):
            found = re.findall(r"(established|standard|detailed) (\d+(?:, \d+)*)", text)
            return {(name, int(number)) for name, several in found for number in several.split(", ")}

        for blocks in ["", "42 10dd 41 c2", "42 db1f e2 0f01", "6c 030c00 1000000020 0040 0304", "42 1310 e2 0f02 e2 0e61",
                       "45 0302031310 e1 0f e2 0e44", "41 13 ec 01 030c00 1000000020 002003 e2 0e61", "43 10df10 e2 0edd"]:
            data = bytes.fromhex(blocks)
            image = with_blocks(bytes([2, 3, 4 + len(data), 0]) + data) if blocks else MONITOR
            with self.subTest(blocks):
                path = self.save(image)
                modes = json.loads(run("modes", "--json", path, status=0)[0])
                listed = {(name, timing["index"]) for name in ["established", "standard", "detailed"]
                          for timing in modes[name]}
                self.assertEqual(numbers(run("modes", path, status=0)[0]), listed)
                self.assertEqual(numbers(run("explain", path, status=0)[0]), listed)
                fields = [field for field, _ in walk(self.tree(path)["fields"])]
                found = {(part["list"], number) for field in fields for part in [field.get("timing"),
                         field.get("listed_otherwise")] if part for number in part.get("indexes", [part.get("index")])}
                self.assertEqual(found, listed)
        out = run("modes", self.save(with_blocks(bytes.fromhex("02030600 41dd"))), status=0)[0]
        self.assertIn("Only in the library's lists\n"
                      "  standard 7      3840 x 2160p @  24.000 Hz     297.000 MHz  "
                      "block 1 byte 0x05: the list takes byte dd for VIC 93\n"
                      "  standard 8      3840 x 2160p @  23.976 Hz  296.703297 MHz  ", out)

    def test_what_there_is_not(self):
        for arguments, reason in [
            (["--at", "256"], "has no byte at 0x100: the image ends at 0xff"),
            (["--block", "1", "--at", "0x80"], "has no byte at 0x80: the block ends at 0x7f"),
            (["--block", "2"], "has no block 2: its last one is 1"),
            (["--block", "2", "--at", "0"], "has no block 2: its last one is 1"),
            (["--find", "no such\n\x1b[31mwords"], "has no field with this text: no such\\n\\x1b[31mwords"),
        ]:
            with self.subTest(arguments):
                path = self.save(MONITOR)
                self.assertEqual(run("explain", *arguments, path, status=1), ("", f"zoredid: {path}: {reason}\n"))
                self.assertEqual(self.tree(path, *arguments, status=1)["fields"], [])
        for arguments in [["--at", "-1"], ["--at", "1f"], ["--at", "0x"], ["--at", "0x8000"], ["--block", "256"],
                          ["--find", ""], ["--at", "1", "--find", "x"], []]:
            with self.subTest(arguments):
                path = [self.save(MONITOR)] if arguments else []
                out, err = run("explain", *arguments, *path, status=2)
                self.assertEqual((out, err.count("\n")), ("", 1))
        out, err = run("explain", "--json", self.folder + "/missing", status=3)
        self.assertEqual(self.load(out)["error"], "neither a file nor a connector of this machine")
        self.assertEqual(err.count("\n"), 1)

    def test_colours_on_a_terminal_only(self):
        path = self.save(MONITOR)
        plain = run("explain", path, status=0)[0]
        for variables, coloured in [({}, True), ({"NO_COLOR": ""}, True), ({"NO_COLOR": "0"}, False), ({"TERM": "dumb"}, False)]:
            with self.subTest(variables):
                out = self.run_on_terminal([COMMAND, "explain", path], variables)
                self.assertEqual("\x1b[" in out, coloured)
                if not coloured:
                    self.assertEqual(out, plain)

    @staticmethod
    def run_on_terminal(command, variables):
        environment = {name: value for name, value in os.environ.items() if name != "NO_COLOR"}
        near, far = pty.openpty()
        with subprocess.Popen(command, stdout=far, env={**environment, "TERM": "xterm", **variables}) as process:
            os.close(far)
            out = b""
            try:
                while piece := os.read(near, 65536):
                    out += piece
            except OSError:  # the far side is closed
                pass
            os.close(near)
            process.wait(60)
        return out.decode().replace("\r\n", "\n")

    def test_time(self):
        path = self.save(MONITOR)
        times = []
        for _ in range(50):
            start = time.perf_counter()
            run("explain", path, status=0)
            times.append(time.perf_counter() - start)
        print(f"explain of {len(MONITOR)} bytes: {1000 * statistics.median(times):.2f} ms a process, with its start")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
