"""Tests of what all subcommands of zoredid share: forms of input, files of output, many files, exit statuses.
FrameTest.py COMMAND FOLDER [FOLDER_WITH_A_CORPUS]"""

import base64
import fcntl
import json
import os
import pty
import re
import resource
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import termios
import threading
import time
import unittest

from Checksums import fix_sums

COMMAND, IMAGES, SHARED = sys.argv[1], sys.argv[2], (sys.argv[3:] or [""])[0]
MONITOR = os.path.join(IMAGES, "monitor.bin")
with open(MONITOR, "rb") as image_file:
    IMAGE = image_file.read()
with open(COMMAND, "rb") as command_file:
    SANITIZED = re.search(b"__[at]san_init", command_file.read()) is not None
SUBCOMMANDS = "show", "report", "modes", "compare", "check", "explain", "page", "edit", "build", "make", "timing", \
    "list", "convert"
MARKER = " " * 8 + "_" * 40 + "\n"


def run(*arguments, data=b"", env=None, **more):
    """Exit status, standard output and standard error (as text) of one run."""
    done = subprocess.run([COMMAND, *arguments], input=data, capture_output=True, timeout=120,
                          env=dict(os.environ, **env) if env else None, **more)
    return done.returncode, done.stdout, done.stderr.decode(errors="replace")


def peak_memory(*arguments, data):
    """The most memory of one run that was resident, in KiB.

    VmHWM starts anew at exec. The peak that wait4 gives does not: it is at least that of the process that has forked.
    """
    with subprocess.Popen([COMMAND, *arguments], stdin=subprocess.PIPE, stdout=subprocess.DEVNULL,
                          env=dict(os.environ, ASAN_OPTIONS="quarantine_size_mb=1")) as process:
        feeder = threading.Thread(target=lambda: (process.stdin.write(data), process.stdin.close()))
        feeder.start()
        peak = now = 0
        while now is not None:  # until the process is a zombie, which has none
            peak = now
            time.sleep(0.001)
            with open("/proc/%d/status" % process.pid, encoding="ascii") as status:
                now = next((int(line.split()[1]) for line in status if line.startswith("VmHWM:")), None)
        feeder.join()
    return peak, process.returncode


def od(*options):
    return subprocess.run(["od", *options], input=IMAGE, capture_output=True, check=True).stdout


def lines(width, form, first="", last="\n", join=" "):
    """The image, so many bytes a line, each as form says; first and last take the offset and the bytes."""
    def edge(text, offset):
        part = IMAGE[offset:offset + width]
        readable = "".join(chr(byte) if 32 <= byte < 127 else "." for byte in part)
        return text.format(offset=offset, block=offset // 128, text=readable)
    return "".join(edge(first, at) + join.join(form % byte for byte in IMAGE[at:at + width]) + edge(last, at)
                   for at in range(0, len(IMAGE), width))


def registry(name="EDID", image=IMAGE):
    text = ",".join("%02x" % byte for byte in image)
    parts = [text[at:at + 75] for at in range(0, len(text), 75)]
    return '[HKEY_LOCAL_MACHINE\\X]\r\n"Other"=hex:01,02\r\n"%s"=hex:' % name + "\\\r\n  ".join(parts) + "\r\n"


XRANDR = "Screen 0: minimum 320 x 200\nHDMI-1 connected primary\n\tEDID: \n" + \
    lines(16, "%02x", "\t\t", join="") + "\tBroadcast RGB: Automatic\n\t\tsupported: 00, 01\n"
OTHER_OUTPUT = "DP-2 connected\n\tEDID:\n\t\t" + bytes(128).hex() + "\n"
XXD = lines(16, "%02x", "{offset:08x}: ", "  {text}\n")
C_ARRAY = "/* { 1, 2 } */ static const uint8_t x[] = {\n// 0x11\n" + lines(8, "0x%02X", "\t", ", /* {text} */\n", ", ") + "};"

X_LOG = "[    18.245] (II) modeset(0): EDID for output HDMI-1\n[    18.246] (II) modeset(0): EDID (in hex):\n" + \
    lines(16, "%02x", "[    18.246] (II) modeset(0): \t", join="") + \
    "[    18.247] (II) modeset(0): Printing probed modes for output HDMI-1\n"
KERNEL_LOG = "Nov 26 12:00:00 host kernel: [    3.14] i915 0000:00:02.0: [drm] [CONNECTOR:95:eDP-1] EDID is invalid:\n" + \
    lines(16, "%02x", "Nov 26 12:00:00 host kernel: [    3.14] #011[{block:02x}] BAD  ")
DDC_DUMP = "Display 1\n   I2C bus:  /dev/i2c-4\n      DRM connector:           card0-DP-1\n   EDID hex dump:\n" + \
    "              +0          +4          +8          +c            0   4   8   c\n" + \
    lines(16, "%02x", "      +{offset:04x}   ", "   {text}\n") + "   VCP version:         2.1\n"
IO_REGISTRY = '    | |   | {\n    | |   |   "IODisplayEDID" = <%s>\n    | |   |   "EDID UUID" = "10ACE1A0"\n    | |   | }\n' % IMAGE.hex()
MODETEST = "95\t94\tconnected\teDP-1          \t310x170\t\t4\t94\n  props:\n\t1 EDID:\n\t\tflags: immutable blob\n" + \
    "\t\tblobs:\n\n\t\tvalue:\n" + lines(16, "%02x", "\t\t\t", join="") + "\t2 DPMS:\n\t\tvalue: 0\n" + \
    "\t5 HDR_OUTPUT_METADATA:\n\t\tvalue:\n\t\t\t0011\n105\t0\tconnected\tHDMI-A-1       \t0x0\t0\t104\n" + \
    "\t1 EDID:\n\t\tvalue:\n\t\t\t" + bytes(128).hex() + "\n"
REG_QUERY = "\r\nHKEY_LOCAL_MACHINE\\X\r\n    Other    REG_BINARY    00\r\n    EDID    REG_BINARY    " + \
    IMAGE.hex().upper() + "\r\n"

FORMS = {  # every form of the image, and what it is taken for
    "raw": (IMAGE, "raw image"),
    "raw, damaged to a byte order mark": (b"\xff\xfe" + IMAGE[2:], "raw image"),
    "table": ("head\n" + MARKER + lines(10, "%02X", "{offset:5d} |  ", "\n", "  ") + "\nnotes\n", "text table"),
    "xxd": (XXD, "xxd dump"),
    "xxd of a shell's transcript": ("$ xxd x.bin\n" + XXD + "$ exit\n", "xxd dump"),
    "hexdump -C": (lines(16, "%02x", "{offset:08x}  ", "  |{text}|\n") + "%08x\n" % len(IMAGE), "dump with addresses"),
    "od -A x -t x1": (od("-A", "x", "-t", "x1"), "dump with addresses"),
    "od -t x1z": (od("-t", "x1z"), "dump with addresses"),
    "od -A d -t x4": (od("-A", "d", "-t", "x4"), "dump with addresses"),
    "od -A x": (od("-A", "x"), "dump with addresses"),
    "od": (od(), "dump with addresses"),
    "od -An -v -t x1": (od("-An", "-v", "-t", "x1"), "hexadecimal digits"),
    "xxd -p": (lines(30, "%02x", join=""), "hexadecimal digits"),
    "one byte a line": (lines(1, "%02x"), "hexadecimal digits"),
    "edid-decode": ("edid-decode (hex):\n\n" + lines(16, "%02x") + "\n----------------\n\nBlock 0, Base EDID:\n",
                    "hexadecimal digits"),
    "bytes with dashes": (lines(999, "%02X", join="-"), "hexadecimal digits"),
    "xrandr --verbose": (XRANDR, "xrandr --verbose"),
    "xrandr, two monitors": (XRANDR + OTHER_OUTPUT, "xrandr --verbose, the first EDID of 2"),
    "xrandr, one monitor twice": (XRANDR + XRANDR, "xrandr --verbose"),
    "log of an X server, twice": (X_LOG + X_LOG, "log"),
    "log of a kernel": (KERNEL_LOG, "log"),
    "ddcutil detect --verbose": (DDC_DUMP, "ddcutil dump"),
    "ioreg": (IO_REGISTRY, "ioreg dump"),
    "modetest -c, two monitors": (MODETEST, "modetest output, the first EDID of 2"),
    "reg query": (REG_QUERY, "reg query output"),
    "registry": ("Windows Registry Editor Version 5.00\r\n" + registry(), "Windows registry export"),
    "registry, an override and two EDIDs": (registry("0") + registry("EDID") + registry("edid", b"x"),
                                            "Windows registry export, the first EDID of 2"),
    "registry, as exported": (("\ufeffWindows Registry Editor Version 5.00\r\n" + registry()).encode("utf-16-le"),
                              "Windows registry export"),
    "registry, an override": ("REGEDIT4\r\n" + registry("0", IMAGE[:128]) + registry("1", IMAGE[128:]),
                              "Windows registry export"),
    "C array": (C_ARRAY, "C array"),
    "C array, decimal": ("int a[2] = {" + lines(20, "%d", "\n", ",", ",") + "}", "C array"),
    "C array of blocks": ("u8 a[2][128] = { {" + ", ".join(map(str, IMAGE[:128])) + "}, /* 1 */ {" +
                          ", ".join(map(str, IMAGE[128:])) + "} };", "C array"),
    "C numbers": (lines(16, "0x%02x"), "C array"),
    "base64": (base64.encodebytes(IMAGE), "base64"),
    "base64, one line, of addresses": (base64.urlsafe_b64encode(IMAGE).rstrip(b"="), "base64"),
    "base64 of a shell's transcript": (b"$ base64 x.bin\n" + base64.encodebytes(IMAGE) + b"exit\n$ \n", "base64"),
    "base64 in a mail": (b"Hello\n\n" + base64.b64encode(IMAGE) + b"\n\nAll the best\n", "base64"),
    "data address": (b"data:application/octet-stream;base64," + base64.b64encode(IMAGE), "base64"),
    "CR LF and a byte order mark": ("\ufeff" + XXD.replace("\n", "\r\n"), "xxd dump"),
}

HINTS = {  # what is said in any case
    "xrandr, two monitors": "zoredid: -: the first EDID of 2 is read, that of HDMI-1; "
                            "--monitor chooses: 1 HDMI-1 (ASUS VE276), 2 DP-2\n",
    "modetest -c, two monitors": "zoredid: -: the first EDID of 2 is read, that of eDP-1; "
                                 "--monitor chooses: 1 eDP-1 (ASUS VE276), 2 HDMI-A-1\n",
    "registry, an override and two EDIDs":
        "zoredid: -: the first EDID of 2 is read, that of [HKEY_LOCAL_MACHINE\\\\X]; "
        "--monitor chooses: 1 [HKEY_LOCAL_MACHINE\\\\X] (ASUS VE276), 2 [HKEY_LOCAL_MACHINE\\\\X]\n",
}

XXD_LINES = XXD.splitlines(keepends=True)
BAD = {  # what cannot be taken, and why
    "empty": (b"", "is empty"),
    "blank": (b" \n\n", "is empty"),
    "words": (b"no such monitor\n", "in no known form"),
    "256 blocks and a byte": (bytes(256 * 128 + 1), "of more than 256 blocks"),
    "a star for too much": (XXD_LINES[0] + "*\nfffffff0: 00\n", "of more than 256 blocks"),
    "a line of the dump is missing": ("".join(XXD_LINES[:3] + XXD_LINES[4:]), "line 4: its address does not follow"),
    "a dump with a letter": (XXD_LINES[0] + XXD_LINES[1].replace(" ", " 0g", 1), "line 2: not hexadecimal"),
    "binary digits": ("".join("%08x: %s\n" % (at, " ".join("{:08b}".format(byte) for byte in IMAGE[at:at + 6]))
                              for at in range(0, 256, 6)), "binary digits are not read (xxd without -b)"),
    "decimal bytes": (od("-t", "u1"), "decimal bytes are not read (od -tx1)"),
    "half a byte": ("00 ff ff ff ff ff ff 00\n00 1\n", "line 2: an odd number of digits"),
    "a letter among digits": ("00 ff ff ff ff ff ff 00\n00 1x\n", "line 2: not hexadecimal bytes"),
    "a star without addresses": ("00 ff ff ff ff ff ff 00\n*\n", "line 2: a star replaces repeated lines"),
    "a table without rows": (MARKER + "\n", "no rows of bytes after the marker line"),
    "a table of 10 bytes": (MARKER + "0 |  00  FF  FF  FF  FF  FF  FF  00  10  AC\n", "10 bytes, not a multiple of 128"),
    "xrandr without digits": ("\tEDID:\n\tnone\n", "without a digit"),
    "xrandr, half a byte": ("\tEDID:\n\t\t00fff\n", "line 2: an odd number of digits"),
    "registry without EDID": ('REGEDIT4\n"Other"=hex:01,02\n', "without a value EDID"),
    "registry, a byte of three digits": ('REGEDIT4\n"EDID"=hex:00,\\\n  0ff\n', "line 3: a byte has two"),
    "a number above 255": ("{ 0x00,\n 256 }", "line 2: a number from 0 to 255"),
    "an open array": ("{ 0x00, 0xff\n", "line 2: a number from 0 to 255"),
    "two arrays": ("a[] = {" + ", ".join(map(str, IMAGE[:128])) + "};\nb[] = {" + ", ".join(map(str, IMAGE[128:])) + "};",
                   "fewer blocks than it announces"),
    "digits in two parts": (IMAGE[:128].hex() + "\nblock 1\n" + IMAGE[128:].hex() + "\n", "line 2: ends the digits with"),
    "swapped words": (" ".join("%02x%02x" % (IMAGE[at + 1], IMAGE[at]) for at in range(0, 256, 2)), "are swapped"),
    "base64, cut": (base64.b64encode(IMAGE)[:-3], "ends in the middle of a byte"),
}


def head(name):
    """The line before each report of several."""
    return (name.replace("\n", "\\n") + ":\n").encode()


class Forms(unittest.TestCase):
    def test_each_form_gives_the_image(self):
        for name, (text, form) in FORMS.items():
            with self.subTest(name):
                data = text if isinstance(text, bytes) else text.encode()
                result = run("convert", "-", "-o", "-", "--form", "bin", "--verbose", data=data)
                expected = data if form == "raw image" else IMAGE
                hint = HINTS.get(name, "")
                self.assertEqual((0, expected, "zoredid: -: taken for %s\n%s" % (form, hint)), result)

    def test_one_of_several_is_told(self):
        for name, hint in HINTS.items():
            data = FORMS[name][0].encode()
            for subcommand in "report", "explain":  # of those with turns, and of those without
                status, _, error = run(subcommand, "-", data=data)
                self.assertEqual((0, hint), (status, error))

    def test_another_of_several_is_taken(self):
        data = (OTHER_OUTPUT + XRANDR).encode()
        for name in "HDMI-1", "2":
            for before, after in ((("--monitor", name), ()), ((), ("--monitor", name))):
                self.assertEqual((0, IMAGE, ""), run(*before, "convert", "-", "-o", "-", *after, data=data))
        self.assertEqual((3, b"", "zoredid: -: xrandr --verbose: no monitor '3'; there are 1 DP-2, 2 HDMI-1 (ASUS VE276)\n"),
                         run("report", "-", "--monitor", "3", data=data))
        self.assertIn("there are 1 DP-2, 2 HDMI-1 (ASUS VE276); did you mean 'all'?\n",
                      run("report", "-", "--monitor", "al", data=data)[2])

    def test_all_of_several_are_taken(self):
        data = (XRANDR + OTHER_OUTPUT).encode()
        alone, bad = run("explain", "-", data=IMAGE)[1], b"\n- (DP-2):\n"
        status, out, error = run("explain", "-", "--monitor", "all", data=data)
        self.assertEqual((0, ""), (status, error))
        self.assertTrue(out.startswith(b"- (HDMI-1):\n" + alone + bad), out)
        status, out, error = run("show", "-", "--json", "--monitor", "all", data=data)
        images = json.loads(out)["images"]
        self.assertEqual([("-", "HDMI-1", True), ("-", "DP-2", False)],
                         [(image["file"], image["monitor"], "error" not in image) for image in images])
        self.assertEqual((3, 1, True), (status, error.count("\n"), error.startswith("zoredid: - (DP-2): no EDID")))
        self.assertEqual((3, b"", "zoredid: -: holds several EDIDs, of which one is taken; --monitor chooses\n"),
                         run("convert", "-", "-o", "-", "--monitor", "all", data=data))

    def test_what_cannot_be_taken_gets_one_line(self):
        for name, (text, reason) in BAD.items():
            with self.subTest(name):
                data = text if isinstance(text, bytes) else text.encode()
                status, out, error = run("report", "-", data=data)
                self.assertEqual((3, b"", 1), (status, out, error.count("\n")))
                self.assertTrue(error.startswith("zoredid: -: "), error)
                self.assertIn(reason, error)

    def test_converting_there_and_back(self):
        for form in ("bin", "xxd", "hex", "c", "base64", "dat"):
            status, text, _ = run("convert", "-", "-o", "-", "--form", form, data=IMAGE)
            self.assertEqual((0, IMAGE), (status, run("convert", "-", "-o", "-", data=text)[1]), form)

    def test_written_forms_are_those_of_other_tools(self):
        expected = {"xxd": lines(16, "%02x", "{offset:08x}: ", "  {text}\n", "").encode(), "hex": lines(16, "%02x").encode(),
                    "base64": base64.encodebytes(IMAGE)}
        for form, text in expected.items():
            status, out, _ = run("convert", MONITOR, "-o", "-", "--form", form)
            out = out.replace(b" ", b"") if form == "xxd" else out
            text = text.replace(b" ", b"") if form == "xxd" else text
            self.assertEqual((0, text), (status, out), form)


class FolderCase(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, data=IMAGE):
        with open(self.path(name), "wb") as file:
            file.write(data)
        return self.path(name)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()


class Files(FolderCase):
    def test_the_name_decides_nothing_about_reading(self):
        for name in ("x.dat", "x.hex", "x", "two words", "line\nfeed"):
            self.assertEqual(0, run("report", self.write(name))[0], name)
        os.mkfifo(self.path("pipe.dat"))
        writer = threading.Thread(target=self.write, args=("pipe.dat",))
        writer.start()
        self.assertEqual(0, run("report", self.path("pipe.dat"))[0])
        writer.join()

    def test_what_is_no_input(self):
        self.write("small", IMAGE[:100])
        self.write("long", b"x" * (5 << 20))
        cases = {self.folder: "is a folder", "/dev/zero": "is a device", self.path("none"): "neither a file nor",
                 self.path("a\nb"): "neither a file nor", self.path("long"): "is longer than 4 MiB"}
        for name, reason in cases.items():
            status, out, error = run("report", name, MONITOR)
            self.assertEqual((3, 1), (status, error.count("\n")), error)
            self.assertIn("%s: %s" % (name.replace("\n", "\\n"), reason), error)
            self.assertEqual(head(MONITOR) + run("report", MONITOR)[1], out)  # the others are still done
        self.assertEqual((3, b"", "zoredid: /dev/null: is empty\n"), run("report", "/dev/null"))
        with open("/dev/zero", "rb") as device:
            done = subprocess.run([COMMAND, "report", "-"], stdin=device, capture_output=True, timeout=60, check=False)
        self.assertEqual((3, b"zoredid: -: is a device\n"), (done.returncode, done.stderr))
        status, _, error = run("convert", self.path("small"), "-o", "-")
        self.assertEqual((3, True), (status, "100 bytes are not a multiple of 128" in error))

    def test_the_ending_chooses_the_form(self):
        edit = "edit", MONITOR, "--serial", "0x5"
        edited = run(*edit, "-o", "-")[1]
        for ending, head in ((".bin", b"\0\xff"), (".xxd", b"00000000: 00ff"), (".hex", b"00 ff"), (".c", b"const"),
                             (".h", b"const"), (".HEX", b"00 ff"), (".base64", b"AP//"), (".b64", b"AP//"),
                             (".dat", MARKER.encode()), (".raw", b"\0\xff"), (".override", b"\0\xff"), ("", b"\0\xff")):
            for command, image in ((("convert", MONITOR), IMAGE), (edit, edited)):
                self.assertEqual((0, b"", ""), run(*command, "-o", self.path("out" + ending), "--force"))
                self.assertTrue(self.read("out" + ending).startswith(head), ending)
                self.assertEqual(image, run("convert", self.path("out" + ending), "-o", "-")[1], ending)

    def test_the_ending_of_another_format_is_refused(self):
        endings = ".bin .xxd .hex .c .h .b64 .base64 .dat"
        for ending in ".json", ".TXT", ".html", ".gz", ".PNG":
            out = self.path("out" + ending)
            reason = "zoredid: %s: no form of an image has the ending %s; those written are %s" % (out, ending.lower(), endings)
            self.assertEqual((3, b"", reason + " (--form writes one under any name)\n"), run("convert", MONITOR, "-o", out))
            for more in (), ("--dry-run",):
                self.assertEqual((3, b"", reason + "\n"), run("edit", MONITOR, "--serial", "5", "-o", out, *more))
            self.assertEqual([], os.listdir(self.folder))
        self.assertEqual((0, b"", ""), run("convert", MONITOR, "-o", self.path("x.txt"), "--form", "bin"))
        self.assertEqual(IMAGE, self.read("x.txt"))

    def test_a_file_is_replaced_whole_or_not_at_all(self):
        target = self.write("out", b"old")
        os.chmod(target, 0o640)
        os.symlink("out", self.path("link"))
        status, _, error = run("convert", MONITOR, "-o", target)
        self.assertEqual((3, "zoredid: %s: exists already (use --force)\n" % target), (status, error))

        limit = (len(IMAGE) // 2,) * 2  # a full disk
        status, _, error = run("convert", MONITOR, "-o", target, "--force",
                               preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, limit))
        self.assertEqual((3, 1, b"old"), (status, error.count("\n"), self.read("out")))
        self.assertIn("cannot be written", error)

        self.assertEqual(0, run("convert", MONITOR, "-o", self.path("link"), "--force")[0])
        self.assertEqual((IMAGE, 0o640), (self.read("out"), os.stat(target).st_mode & 0o7777))
        self.assertTrue(os.path.islink(self.path("link")))
        self.assertEqual(["link", "out"], sorted(os.listdir(self.folder)))  # no temporary file left

        self.assertEqual(0, run("convert", MONITOR, "-o", self.path("new"), preexec_fn=lambda: os.umask(0o027))[0])
        self.assertEqual(0o640, os.stat(self.path("new")).st_mode & 0o7777)
        self.assertEqual(0, run("convert", MONITOR, "-o", "/dev/null")[0])
        self.assertEqual(3, run("convert", MONITOR, "-o", self.path("none/out"))[0])
        self.assertEqual(3, run("convert", MONITOR, "-o", self.folder, "--force")[0])

    def test_a_folder_without_the_right_to_write(self):
        # The mode bits of a folder hold root back only without its capabilities.
        plain_user = ["setpriv", "--bounding-set=-all", "--inh-caps=-all"] if os.geteuid() == 0 else []
        target = self.write("out", b"old")
        os.chmod(self.folder, 0o555)
        self.addCleanup(os.chmod, self.folder, 0o755)

        def run_plainly(*arguments):
            done = subprocess.run([*plain_user, COMMAND, *arguments], capture_output=True, timeout=60, check=False)
            return done.returncode, done.stdout, done.stderr.decode()

        new, inode, in_place = self.path("new"), os.stat(target).st_ino, \
            "written in place, not in one step, as no other file can take its place: Permission denied\n"
        edit = "edit", MONITOR, "--serial", "7"
        for arguments in (("convert", MONITOR), edit, ("page", MONITOR), (*edit, "--dry-run")):
            verb = "would be " if "--dry-run" in arguments else "was "
            self.assertEqual((3, b"", "zoredid: %s: cannot be written: Permission denied\n" % new),
                             run_plainly(*arguments, "-o", new, "--force"))
            self.write("out", b"old" * 100000)  # longer than what comes
            self.assertEqual((3, b"", "zoredid: %s: exists already (use --force)\n" % target),
                             run_plainly(*arguments, "-o", target))
            self.assertEqual((0, b"", "zoredid: %s: %s" % (target, verb + in_place)),
                             run_plainly(*arguments, "-o", target, "--force"))
            whole = run(*arguments, "-o", "-")[1] or b"old" * 100000
            self.assertEqual((["out"], whole, inode), (os.listdir(self.folder), self.read("out"), os.stat(target).st_ino))

    def test_no_raw_bytes_on_a_terminal(self):
        for form, expected in (("bin", 3), ("hex", 0)):
            ours, theirs = pty.openpty()
            done = subprocess.run([COMMAND, "convert", MONITOR, "-o", "-", "--form", form], stdout=theirs,
                                  stderr=subprocess.PIPE, timeout=60, check=False)
            os.close(theirs)
            os.close(ours)
            self.assertEqual((expected, expected != 0), (done.returncode, b"terminal" in done.stderr))


class ManyFiles(FolderCase):
    def test_lists_of_names(self):
        one, two = self.write("one"), self.write("two words\n")
        text = run("report", one)[1]
        for arguments, data in (((one, "--files-from", "-"), one + "\n\n"),
                                (("-0", "--files-from", "-"), one + "\0" + two),
                                (("--files-from", self.write("list", (one + "\n" + one).encode())), "")):
            expected = head(one) + text + head(two if two in data else one) + text
            self.assertEqual((0, expected, ""), run("report", *arguments, data=data.encode()))
        for arguments in (("report",), ("check", "--json"), ("report", "--jsonl")):
            status, out, error = run(*arguments, "--files-from", "-", data=b"one\0two\0")
            self.assertEqual((3, "zoredid: one\\x00two\\x00: a NUL in the name; did you mean -0?\n"), (status, error))
        status, out, error = run("report", "--files-from", self.path("none"))
        self.assertEqual((3, b"", "zoredid: %s: cannot be opened: No such file or directory\n" % self.path("none")),
                         (status, out, error))
        for bad, reason in ((self.folder, "cannot be read: Is a directory"),
                            (self.write("long", b"x" * (2 << 20)), "a name is longer than 1 MiB")):
            for jobs in "12":  # the names before the list are still done
                self.assertEqual((3, head(one) + text, "zoredid: %s: %s\n" % (bad, reason)),
                                 run("report", "-j", jobs, one, "--files-from", bad))

    def test_a_list_that_comes_in_parts(self):
        ours, theirs = pty.openpty()  # on which output does not wait for more of it
        with subprocess.Popen([COMMAND, "report", "-j", "2", "--jsonl", "--files-from", "-"], stdin=subprocess.PIPE,
                              stdout=theirs, stderr=subprocess.DEVNULL) as process:
            for part in (MONITOR[:-3], MONITOR[-3:] + "\n\n"):
                process.stdin.write(part.encode())
                process.stdin.flush()
                time.sleep(0.05)
            answer = b""
            while not answer.endswith(b"\n"):  # before the list ends
                answer += os.read(ours, 1 << 16)
            process.stdin.write((MONITOR + "\n\n" + MONITOR).encode())
            process.stdin.close()
            while answer.count(b"\n") < 3:
                answer += os.read(ours, 1 << 16)
        os.close(theirs)
        os.close(ours)
        lines_of_it = answer.splitlines()
        self.assertEqual((3, 1), (len(lines_of_it), len(set(lines_of_it))))

    def test_a_thousand_files_in_order(self):
        names = []
        for i in range(1000):
            data = b"" if i % 100 == 50 else fix_sums(IMAGE[:12] + i.to_bytes(4, "little") + IMAGE[16:])
            names.append(self.write("%04d" % i, data))
        results = []
        for arguments in (("-j", "1"), ("-j", "4"), ("-j", "4", "--verbose"), ("-j", "1", "--verbose")):
            results.append(run("report", *arguments, "--files-from", "-", data="\n".join(names).encode()))
        self.assertEqual(results[0], results[1])
        self.assertEqual(results[2], results[3])
        self.assertEqual((3, 10), (results[0][0], results[0][2].count("is empty\n")))
        self.assertEqual(results[0], run("report", "-j", "3", *names))

    def test_an_image_that_takes_too_much_memory_has_its_line(self):
        names = self.write("big", b"00 " * (1 << 20)), self.write("small")
        for mebibytes in range(8, 40, 4):  # some of them too few for the first one
            limit = (mebibytes << 20,) * 2
            out = run("report", "--jsonl", *names, preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, limit))[1]
            if b'/small"' in out:
                self.assertEqual(2, out.count(b"\n"), mebibytes)

    def test_threads_change_no_byte(self):
        names = [self.write("%d.bin" % i, IMAGE[:12] + bytes([i]) + IMAGE[13:]) for i in range(40)]
        names[10:10] = [self.path("none"), self.folder]
        for arguments in (("report",), ("report", "--json"), ("report", "--jsonl"), ("check",), ("check", "--json"),
                          ("check", "--sarif"), ("check", "--junit")):
            one, four = (run(*arguments, "-j", jobs, *names) for jobs in "14")
            self.assertEqual(one, four, arguments)
            self.assertEqual((3, 2), (one[0], one[2].count("\n")), arguments)
            self.assertIn(names[-1].encode(), one[1], arguments)  # those after the two are done

    def test_progress_of_a_long_run_on_a_terminal(self):
        def on_a_terminal(*arguments, seconds=0, beside=False):
            ours, theirs = pty.openpty()
            with subprocess.Popen([COMMAND, *arguments], stderr=theirs, stdout=theirs if beside else subprocess.DEVNULL):
                if seconds:
                    time.sleep(seconds)
                    self.write("pipe")
            os.write(theirs, b"end")
            text = b""
            while not text.endswith(b"end"):
                text += os.read(ours, 1 << 16)
            os.close(theirs)
            os.close(ours)
            return text[:-3]

        os.mkfifo(self.path("pipe"))
        names = self.path("pipe"), *[MONITOR] * 5
        for arguments in (("check", "-j", "1"), ("report", "-j", "2"), ("report", "--jsonl", "-j", "1")):
            text = on_a_terminal(*arguments, *names, seconds=1.3)
            self.assertRegex(text, rb"^\r\[[#.]+\] 1/6.*\r\x1b\[K$")  # and gone at the end
            self.assertEqual(1, text.count(b"\x1b"))  # not cleared for output that goes elsewhere
            self.assertEqual(b"", on_a_terminal(*arguments, *names[1:]))
        text = on_a_terminal("report", "-j", "1", *names, self.path("none"), seconds=1.3)
        self.assertRegex(text, rb"\r\x1b\[Kzoredid: ")
        bad = self.write("bad", IMAGE[:-1])
        text = on_a_terminal("check", "-j", "1", *names, bad, seconds=1.3, beside=True)
        self.assertRegex(text, rb"\] 1/7\r\x1b\[K" + re.escape(bad.encode()) + b": block ")

    def test_memory_does_not_grow_with_the_number_of_files(self):
        for arguments in (("report",), ("report", "--jsonl"), ("check",), ("check", "--junit")):
            peaks = []
            for count in (200, 2000):
                peak, status = peak_memory(*arguments, "-j", "2", "--files-from", "-",
                                           data=(MONITOR + "\n").encode() * count)
                self.assertEqual(0, status)
                peaks.append(peak)
            # KiB. A report is about 8 of them, 1,800 reports that stay about 14,000. Sanitizers keep books of their own.
            self.assertLess(peaks[1], peaks[0] + (8192 if SANITIZED else 1024), arguments)

    def test_too_few_threads(self):
        def limit():
            resource.setrlimit(resource.RLIMIT_AS, (100 << 20,) * 2)  # bytes, of which each stack takes some
        names = [MONITOR] * 40
        if run("report", MONITOR, preexec_fn=limit)[0] != 0:
            self.skipTest("a sanitizer needs more address space")
        self.assertEqual(run("report", *names), run("report", "-j", "256", *names, preexec_fn=limit))

    def test_a_pipe_that_closes_early_ends_it_quietly(self):
        os.mkdir(self.path("card0-DP-1"))
        self.write("card0-DP-1/status", b"connected\n")
        self.write("card0-DP-1/edid", IMAGE)
        many = "--files-from", "-"
        for arguments in (("report", "-j", "1", *many), ("report", "-j", "4", *many), ("report", "--json", *many),
                          ("report", "--jsonl", "-j", "4", *many), ("check", "--json", "-j", "4", *many),
                          ("check", "--junit", "-j", "4", *many),
                          ("check", MONITOR, self.write("bad", IMAGE[:-1])), ("modes", MONITOR),
                          ("compare", MONITOR, MONITOR), ("explain", MONITOR), ("page", MONITOR, "-o", "-"),
                          ("edit", MONITOR, "--serial", "7", "-o", "-"), ("timing", "1920x1080@60"),
                          ("list", "--sysfs", self.folder), ("convert", MONITOR, "-o", "-", "--form", "hex")):
            reader, writer = os.pipe()
            os.close(reader)
            done = subprocess.run([COMMAND, *arguments], input=(MONITOR + "\n").encode() * 500, stdout=writer,
                                  stderr=subprocess.PIPE, timeout=60, check=False, restore_signals=False)
            os.close(writer)
            self.assertEqual((-signal.SIGPIPE, b""), (done.returncode, done.stderr), arguments)

    def test_output_that_cannot_be_written(self):
        if os.path.exists("/dev/full"):
            for jobs in ("1", "4"):
                with open("/dev/full", "wb") as full:
                    done = subprocess.run([COMMAND, "report", "-j", jobs, *[MONITOR] * 2000], stdout=full,
                                          stderr=subprocess.PIPE, timeout=60, check=False)
                self.assertEqual((3, b"zoredid: standard output: No space left on device\n"),
                                 (done.returncode, done.stderr))

    def test_messages_of_the_library(self):
        broken = self.write("broken", fix_sums(IMAGE[:126] + b"\1\0" + bytes(128)))
        self.assertEqual("", run("show", broken)[2])
        status, out, error = run("show", broken, "--verbose")
        self.assertEqual((0, run("show", broken)[1]), (status, out))
        self.assertEqual("zoredid: %s: taken for raw image\n" % broken, error)  # and no assertion of the library
        text = MARKER + "0 |  00  FF\n"  # the library's loader would print its size
        self.assertEqual((3, b""), run("report", "-", data=text.encode())[:2])


class CommandLine(unittest.TestCase):
    def test_what_is_wrong_is_told_in_one_line(self):
        for arguments in ((), ("nonsense",), ("report", "--nonsense", "x"), ("report",), ("report", "-j", "0", "x"),
                          ("convert", MONITOR), ("convert", MONITOR, "-o", "-", "--form", "gif")):
            status, out, error = run(*arguments)
            self.assertEqual((2, b"", 1), (status, out, error.count("\n")), arguments)
            self.assertTrue(error.startswith("zoredid: "), error)
        for arguments in (("report", "--\x1b[2J", "x"), ("timing", "\x1b[2J"), ("explain", MONITOR, "--at", "\x1b[2J"),
                          ("edit", MONITOR, "-o", "-", "--speakers", "\x1b[2J"), ("edit", MONITOR, "\x1b[2J")):
            error = run(*arguments)[2]
            self.assertEqual((True, 1), ("\\x1b[2J" in error, error.count("\n")), error)
            self.assertNotIn("\x1b", error)
        self.assertIn("(see zoredid check --help)", run("check")[2])
        self.assertEqual((2, b"", "zoredid: unexpected argument: x (see zoredid --help)\n"), run("help", "edit", "x"))
        for arguments, what in (((), "no subcommand is given"), (("x", MONITOR), "unknown subcommand: x"),
                                (("help", "x"), "unknown subcommand: x"),
                                (("-v", "a\nb"), "unknown subcommand: a\\nb"), (("--json",), "unknown option: --json")):
            self.assertRegex(run(*arguments)[2],
                             "^zoredid: " + re.escape(what) + "; expected one of show report .*convert")

    def test_what_was_meant(self):
        for arguments, meant in ((("reprt", MONITOR), "report"), (("shwo", MONITOR), "show"), (("help", "tim"), "timing"), (("-v", "lisst"), "list"),
                                 (("--verson",), "--version"), (("report", MONITOR, "--frmat=plain"), "--format"),
                                 (("compare", MONITOR, MONITOR, MONITOR, "--verbos"), "--verbose"),
                                 (("report", MONITOR, "--format", "plian"), "plain"),
                                 (("convert", MONITOR, "-o", "-", "--form", "base46"), "base64"),
                                 (("explain", MONITOR, "--at", "base.display.gama"), "base.display.gamma"),
                                 (("edit", MONITOR, "--audio-add", "pcn,2ch"), "pcm"), (("edit", "--remov"), "--remove"),
                                 (("timing", "--vci", "4"), "--vic"), (("make", "--audio", "sterio"), "stereo"),
                                 (("edit", MONITOR, "--colorimetry", "bt2020rbg"), "bt2020rgb"),
                                 (("edit", MONITOR, "--deep-color", "non"), "none"),
                                 (("edit", MONITOR, "--add-mode", "800x600@60,cvtrb"), "cvt-rb"),
                                 (("edit", MONITOR, "--set", "base.nam=x"), "base.name")):
            status, out, error = run(*arguments)
            self.assertEqual((2, b""), (status, out), error)
            self.assertRegex(error, "^zoredid: .*; did you mean '%s'\\? \\(see zoredid .*\\)\n$" % meant)
        for arguments, what in ((("show", "--foo", MONITOR, "-x"), "unknown option: --foo, unknown option: -x"),
                                (("modes", "a", "b", "c", "--", "--d"), "unexpected argument: b, unexpected argument: c, "
                                                                       "unexpected argument: --d"),
                                (("report", "--frmat", "a", MONITOR), "unknown option: --frmat; did you mean '--format'?"),
                                (("report", MONITOR, "--format"), "--format needs a value; expected one of plain, extended, modes"),
                                (("check", MONITOR, "-j"), "--jobs needs a value; expected 1 to 256"),
                                (("check", MONITOR, "-j", "257"), "--jobs: 257 is not a number of 1 to 256"),
                                (("check", MONITOR, "--json=yes"), "--json takes no value"),
                                (("show", MONITOR, "--json", "--jsonl"), "--json cannot be combined with --jsonl")):
            self.assertEqual((2, b"", "zoredid: %s (see zoredid %s --help)\n" % (what, arguments[0])), run(*arguments))
        self.assertEqual("zoredid: --monitor needs a value (see zoredid --help)\n", run("--monitor")[2])
        for options in ("--json",), ("-j", "2"), ("-v", "--jsonl"):  # of show, before its files
            self.assertEqual(run("show", MONITOR, *options), run(*options, MONITOR))
        for arguments in (("quit",), ("report", MONITOR, "--nonsense"), ("report", MONITOR, "--" + "x" * 5000),
                          ("convert", MONITOR, "-o", "-", "--form", "gif")):
            self.assertNotIn("did you mean", run(*arguments)[2])

    def test_words_behind_the_end_of_the_options(self):
        with tempfile.TemporaryDirectory() as folder:
            for name in ("a", "-b", "report"):
                shutil.copy(MONITOR, os.path.join(folder, name))
            for arguments in (("a", "--", "-b"), ("--", "-b", "report"), ("a", "-j", "02", "--", "report")):
                status, out, error = run("check", *arguments, cwd=folder)
                self.assertEqual((0, b"2 images: 2 clean", ""), (status, out[:17], error))
            self.assertEqual((0, b"same\n", ""), run("compare", "a", "--", "-b", cwd=folder))
            self.assertEqual((2, b"", "zoredid: unexpected argument: -b (see zoredid modes --help)\n"),
                             run("modes", "a", "--", "-b", cwd=folder))
            for arguments in (("--prefix=",), ("--prefix", "")):
                self.assertEqual(run("report", "a", cwd=folder), run("report", "a", *arguments, cwd=folder))

    def test_help_and_version(self):
        self.assertRegex(run("--version")[1].decode(), r"^zoredid \d+\.\d+\.\d+\n$")
        for command in ((), *((name,) for name in SUBCOMMANDS)):
            status, out, error = run(*command, "--help")
            self.assertEqual((0, ""), (status, error))
            self.assertIn(b"--help", out)
            self.assertRegex(out.decode(), r"\nExamples?:(.*\n)*.*zoredid %s.*\n( {6}.*\n)*$" % "".join(command))
            self.assertEqual(run(*command, "--help"), run("help", *command))
            self.assertEqual(run(*command, "--help"), run("--sysfs", "/tmp", "-v", "help", *command))
        self.assertIn(b"\n  NO_COLOR  ", run("--help")[1])
        names = re.findall(r"^  ([a-z]+) +(.*)", run("--help")[1].decode().split("Subcommands:")[1], re.MULTILINE)
        self.assertEqual(list(SUBCOMMANDS), [name for name, _ in names])
        self.assertLess(max(len(text) for _, text in names), 80)  # a short phrase each


    def test_help_is_as_wide_as_the_terminal(self):
        def widest(text):  # of the lines that are wrapped
            options = text.split("\nExample")[0].replace("\r", "")
            return max(len(line) for line in options.splitlines() if not line.startswith(" " * 2 + "zoredid"))

        widths = {"39": 40, "60": 60, "500": 120, "": 80, "0": 80, "8x": 80}
        for columns, width in widths.items():
            text = run("help", "timing", env={"COLUMNS": columns})[1].decode()
            self.assertTrue(width - 15 < widest(text) <= width, (columns, text))
            words = re.sub(r"\s+", " ", text)
            self.assertIn("gtf-list; not with --dmt, --hdmi-vic, --vic", words)
        for command in SUBCOMMANDS:  # with formats and examples, which still are commands
            for width in 40, 80:
                text = run("help", command, env={"COLUMNS": str(width)})[1].decode()
                self.assertLessEqual(max(map(len, text.splitlines())), width, text)
        self.assertIn("  zoredid edit monitor.bin --remove-detailed 1 --audio-add ac3,6ch,48,640kbps \\\n      -o new.bin\n",
                      run("help", "edit", env={"COLUMNS": "80"})[1].decode())
        ours, theirs = pty.openpty()
        fcntl.ioctl(theirs, termios.TIOCSWINSZ, struct.pack("HHHH", 24, 50, 0, 0))
        subprocess.run([COMMAND, "help"], stdout=theirs, timeout=60, check=True)
        os.close(theirs)
        text = os.read(ours, 1 << 16).decode()
        os.close(ours)
        self.assertTrue(35 < widest(text) <= 50, text)


class Images(FolderCase):
    """Files with several EDIDs."""

    HOLDS = "the file holds two EDIDs, the second begins at block 2"

    def setUp(self):
        super().setUp()
        self.second = fix_sums(IMAGE[:12] + b"\x01\x02\x03\x04" + IMAGE[16:])
        self.alone = self.write("alone.bin", self.second)
        self.two = self.write("two.bin", IMAGE + self.second)
        self.line = "zoredid: %s: %s\n" % (self.two, self.HOLDS)

    def test_each_is_an_input(self):
        first, second = "%s (image 1)" % self.two, "%s (image 2)" % self.two
        for subcommand in (("show",), ("explain",), ("modes",), ("report",)):
            status, out, error = run(*subcommand, self.two)
            self.assertEqual((0, self.line), (status, error))
            texts = [run(*subcommand, name)[1] for name in (MONITOR, self.alone)]
            between = b"" if subcommand == ("report",) else b"\n"
            self.assertEqual(head(first) + texts[0] + between + head(second) + texts[1], out)
            self.assertEqual((0, texts[1], ""), run(*subcommand, self.two, "--image", "2"))
        status, out, error = run("check", self.two)
        self.assertEqual((0, "", "%s: block 2 offset 0x00: note: %s [input.several-edids]" % (first, self.HOLDS)),
                         (status, error, out.decode().splitlines()[0]))
        self.assertIn(b"\n2 images: 2 clean", out)
        self.assertNotIn(b"[input.several-edids]", run("check", self.alone)[1])
        (result,) = json.loads(run("check", "--sarif", self.two)[1])["runs"][0]["results"]
        self.assertEqual({"byteOffset": 256, "byteLength": 128}, result["locations"][0]["physicalLocation"]["region"])
        documents = [json.loads(line) for line in run("show", "--jsonl", self.two, self.alone)[1].splitlines()]
        self.assertEqual([(self.two, 1), (self.two, 2), (self.alone, None)],
                         [(document.pop("file"), document.pop("image", None)) for document in documents])
        self.assertEqual(["raw image, image 2 of 2", "raw image"], [document.pop("form") for document in documents[1:]])
        self.assertTrue(documents[1] == documents[2])

    def test_images_of_the_corpus_one_behind_the_other(self):
        folder = os.path.join(SHARED, "corpus")
        if not SHARED or not os.path.isdir(folder):
            self.skipTest("no corpus")
        names = sorted(os.path.join(folder, name) for name in os.listdir(folder) if name.endswith(".bin"))
        documents = {}  # of those that hold one EDID
        for line in run("show", "--jsonl", *names)[1].splitlines():
            document = json.loads(line)
            document.pop("form")
            name = document.pop("file")
            if "image" not in document and document.get("bytes", "").startswith("00ffffffffffff00"):
                documents[name] = document
            else:
                documents.pop(name, None)
        names = list(documents)
        pairs = {}
        for first, second in zip(names, names[1:]):
            with open(first, "rb") as one, open(second, "rb") as other:
                data = one.read()
                if 128 * (1 + data[126]) <= len(data):
                    pairs[self.write("%d.bin" % len(pairs), data + other.read())] = [documents[first], documents[second]]
        self.assertGreater(len(pairs), 80)
        found = {}
        for line in run("show", "--jsonl", *pairs)[1].splitlines():
            document = json.loads(line)
            document.pop("form")
            self.assertEqual(document.pop("image"), len(found.setdefault(document["file"], [])) + 1)
            found[document.pop("file")].append(document)
        self.assertEqual([], [name for name in pairs if pairs[name] != found.get(name)])

    def test_what_is_written_is_the_chosen_one(self):
        out = self.path("out.bin")
        for arguments in ("edit", self.two, "--serial", "7", "-o", out), ("convert", self.two, "-o", out):
            self.assertEqual((3, b"", self.line[:-1] + "; choose one with --image\n"), run(*arguments))
            self.assertFalse(os.path.exists(out))
            self.assertEqual((0, b"", ""), run(*arguments, "--image", "2"))
            written = self.read("out.bin")
            os.remove(out)
            self.assertEqual((0, b"", ""), run(*(self.alone if name == self.two else name for name in arguments)))
            self.assertEqual(written, self.read("out.bin"))
            os.remove(out)
        twice = self.write("twice.bin", IMAGE + IMAGE)  # there is nothing to choose
        self.assertEqual((0, IMAGE, "zoredid: %s: %s (the same as the first)\n" % (twice, self.HOLDS)),
                         run("convert", twice, "-o", "-"))
        self.assertEqual((3, b"", "zoredid: %s: no image 2; the file holds one EDID\n" % MONITOR),
                         run("show", MONITOR, "--image", "2"))

    def test_two_that_are_compared(self):
        status, out, error = run("page", self.two, "-o", "-")
        self.assertEqual((0, self.line), (status, error))
        self.assertIn(("<p class=\"file\">%s</p>" % self.HOLDS).encode(), out)
        self.assertIn(b"<span>two.bin (image 1)</span> and <span>two.bin (image 2)</span>", out)
        self.assertIn(b"What differs", out)
        first = self.line[:-1] + "; the first is read, --image chooses\n"
        for arguments in ("page", self.two, self.alone, "-o", "-"), ("compare", self.two, self.alone):
            self.assertEqual((0, first), run(*arguments)[::2])
        self.assertEqual((0, b"same\n", ""), run("compare", "--bytes", "--image", "2", self.two, self.two))


class Connectors(FolderCase):
    def setUp(self):
        super().setUp()
        for name, state, edid in (("card0", None, None), ("card0-HDMI-A-1", "connected", IMAGE), ("version", None, None),
                                  ("card0-DP-1", "disconnected", b""), ("card1-DP-1", "disconnected", b"")):
            os.mkdir(self.path(name))
            if state is not None:
                self.write(name + "/status", state.encode() + b"\n")
                self.write(name + "/edid", edid)

    def test_list(self):
        status, out, error = run("list", "--sysfs", self.folder)
        rows = [row.split("  ") for row in out.decode().splitlines()]
        rows = [[cell.strip() for cell in row if cell.strip()] for row in rows]
        self.assertEqual((0, ""), (status, error))
        self.assertEqual([["card0-DP-1", "disconnected"],
                          ["card0-HDMI-A-1", "connected", "ASUS VE276", "ASUSTek Computer Inc.", "60 x 34 cm",
                           "1920 x 1080p @ 60 Hz"], ["card1-DP-1", "disconnected"]], rows)
        self.assertEqual(3, run("list", "--sysfs", self.path("none"))[0])
        self.write("card0-HDMI-A-1/edid", IMAGE.replace(b"ASUS VE276", b"ASUS\x1b[2J76"))
        self.assertIn(b"  ASUS\\x1b[2J76  ASUSTek", run("list", "--sysfs", self.folder)[1])

    def test_what_cannot_be_read_has_its_reason(self):
        self.write("card1-DP-1/edid", b"no such monitor\n")
        reason = "in no known form"
        status, out, error = run("list", "--sysfs", self.folder)
        self.assertEqual((3, 3, 1), (status, out.count(b"\n"), error.count("\n")))
        self.assertRegex(error, "^zoredid: card1-DP-1: .*" + reason)
        self.write("card0-DP-1/edid", IMAGE[:50])
        self.assertIn("zoredid: card0-DP-1: no EDID: 50 bytes, not a multiple of 128\n",
                      run("list", "--sysfs", self.folder)[2])
        self.assertRegex(run("report", "card1-DP-1", "--sysfs", self.folder)[2],
                         r"^zoredid: card1-DP-1: connector card1-DP-1 \(disconnected\): .*" + reason)

    def test_a_mode_is_preferred_where_the_image_says_so(self):
        plain = bytearray(IMAGE)
        plain[19], plain[24] = 2, 0x28
        self.write("card0-HDMI-A-1/edid", fix_sums(bytes(plain)))
        out = run("list", "--sysfs", self.folder)[1].decode()
        self.assertRegex(out, "60 x 34 cm\n")

    def test_a_name_stands_for_a_file(self):
        for name in ("HDMI-A-1", "card0-HDMI-A-1"):
            status, out, error = run("convert", name, "-o", "-", "-v", "--sysfs", self.folder)
            self.assertEqual((0, IMAGE, "zoredid: %s: taken for connector card0-HDMI-A-1\n" % name),
                             (status, out, error))
        for name, reason in (("card0-DP-1", "connector card0-DP-1 (disconnected) has no EDID"),
                             ("DP-1", "several connectors have this name: card0-DP-1, card1-DP-1"),
                             ("VGA-1", "neither a file nor a connector of this machine")):
            self.assertEqual((3, b"", "zoredid: %s: %s\n" % (name, reason)),
                             run("report", name, "--sysfs", self.folder))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
