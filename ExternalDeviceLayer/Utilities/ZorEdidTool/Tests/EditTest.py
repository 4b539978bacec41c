"""Tests of zoredid edit from outside. EditTest.py COMMAND PROJECT. EditEveryTest.cpp does every edit at every number."""

import os
import stat
import subprocess
import sys
import tempfile
import unittest

from Checksums import display_id, fix_sums
from FactsTest import change, COMMAND, MONITOR as IMAGE, PROJECT

MONITOR = os.path.join(PROJECT, "examples/monitor.bin")


def run(*arguments, data=b""):
    done = subprocess.run([COMMAND, "edit", *arguments], input=data, capture_output=True, timeout=60)
    return done.returncode, done.stdout, done.stderr.decode()


def edit(image, *arguments):
    return run("-", "-o", "-", *arguments, data=image)


def changed(offset, new, image=IMAGE):
    new = bytes.fromhex(new)
    return fix_sums(image[:offset] + new + image[offset + len(new):])


def cea(data_blocks, flags=0x71, image=IMAGE):
    """The image with these data blocks in place of its own."""
    area = bytes.fromhex(data_blocks)
    block = bytes([2, 3, 4 + len(area), flags]) + area + IMAGE[128 + 34:128 + 34 + 4 * 18]
    return fix_sums(image[:128] + block.ljust(128, b"\0"))


def detailed(count, *natives):
    """An image with two detailed timings in the base block and one in each CTA-861 block."""
    base = IMAGE[:72] + IMAGE[54:72] + b"".join(b"\0\0\0\x10".ljust(18, b"\0") for _ in "ab")
    timing = IMAGE[54:72]
    blocks = [bytes([2, 3, 4, native]) + timing * count for native in natives]
    return fix_sums(base + bytes([len(blocks), 0]) + b"".join(block.ljust(128, b"\0") for block in blocks))


VIDEO = "4f0102031112130414050e0f1d1e1f10"
AUDIO, SPEAKER, HDMI = "23090701", "83010000", "65030c001000"


def extended(*blocks):
    return fix_sums(IMAGE[:126] + bytes([1 + len(blocks)]) + IMAGE[127:]) + b"".join(blocks)


def section(data_blocks, version=0x12):
    """The image with a DisplayID block of these data blocks."""
    return extended(fix_sums(display_id(bytes.fromhex(data_blocks), version).ljust(128, b"\0")))


# Records of DisplayID, after their clocks: 1600x900, at 120 and 100 MHz 60 and 50 Hz.
TYPE_1 = "043f068f012f801f0083036300028004" "00"
TYPE_2 = "0cc7625383036324"
TYPE_6 = "3f0683038f2f011f630204"
SIZE = "3f068303"  # of those by formula


class Edits(unittest.TestCase):
    def test_the_image_is_what_the_tests_take_it_for(self):
        self.assertEqual(IMAGE, cea(VIDEO + AUDIO + SPEAKER + HDMI))

    def test_each_edit(self):
        for arguments, expected in (
                ("--serial 0x01020304", changed(12, "04030201")),
                ("--serial=7", changed(12, "07000000")),
                ("--remove-established 1", changed(35, "%02x" % (IMAGE[35] & ~0x20))),
                ("--remove-standard 7", cea("4e" + VIDEO[4:] + AUDIO + SPEAKER + HDMI)),
                ("--audio-set 0=dts,6ch,44.1+96,1536kbps", changed(128 + 21, "3d12c0")),
                ("--audio-add ac3,6ch,48,640kbps",
                 cea(VIDEO + "26090701150450" + SPEAKER + HDMI)),
                ("--audio-remove 0", cea(VIDEO + SPEAKER + HDMI)),
                ("--speakers FL/FR+lfe+FC+RL/RR+FLH/FRH", changed(128 + 25, "0f0100")),
                ("--speakers none", cea(VIDEO + AUDIO + HDMI)),
                ("--audio-remove 0 --speakers none", cea(VIDEO + HDMI, 0x31)),
                # The order decides where the new descriptor goes.
                ("--audio-add ac3,6ch,48,640kbps --audio-remove 0",
                 cea(VIDEO + "23150450" + SPEAKER + HDMI)),
                ("--audio-remove 0 --audio-add ac3,6ch,48,640kbps",
                 cea(VIDEO + SPEAKER + HDMI + "23150450")),
                # Numbers mean the image as it was read; 8 is the 1000/1001 variant of 7 and goes with it.
                ("--remove-standard 7 --remove-standard 8 --remove-standard 9",
                 cea("4d" + VIDEO[6:] + AUDIO + SPEAKER + HDMI)),
                ("--remove-standard 9 --remove-standard 7",
                 cea("4d" + VIDEO[6:] + AUDIO + SPEAKER + HDMI))):
            with self.subTest(arguments):
                status, out, error = edit(IMAGE, *arguments.split())
                self.assertEqual((0, ""), (status, error))
                self.assertEqual(expected.hex(), out.hex())

    def test_what_an_edit_does_not_name_stays(self):
        hdmi = "030c001000002d20"  # up to the 3D fields
        digital = IMAGE[:19] + bytes([4, 0x8F]) + IMAGE[21:]
        reserved = "23890701"
        for image, arguments, expected in (
                (fix_sums(digital), "--color-depth 10", fix_sums(digital[:20] + b"\xbf" + digital[21:])),
                (cea(VIDEO + "68030c0010008f2d00"), "--deep-color 30,48", cea(VIDEO + "68030c001000df2d00")),
                (cea(VIDEO + "66030c00100088" "65030c001000"), "--deep-color 36", cea(VIDEO + "66030c001000a8" "65030c001000")),
                (cea(VIDEO + "68030c001000ff2d00" * 2), "--deep-color none", cea(VIDEO + "68030c0010008f2d00" * 2)),
                # Speakers of later editions of the standard, bytes after the mask, and a second data block.
                (cea(VIDEO + "8501f0409911" + "83020000"), "--speakers LFE+FLH/FRH",
                 cea(VIDEO + "8502f1409911" + "83020000")),
                (cea(VIDEO + reserved), "--audio-add pcm,2ch,32+44.1+48,16 --audio-remove 0", cea(VIDEO + "23090701")),
                # Timing 15 is code 5 in YCbCr 4:2:0, which the map says of code 16, too.
                (cea("43900405" "e20f05"), "--remove-standard 15", cea("429004" "e20f01")),
                # 3D formats name video codes by their places.
                (cea("449004051f" "74" + hdmi + "c0280301408005061800" "2677"), "--remove-standard 9",
                 cea("4390051f" "72" + hdmi + "c0260301404003061677"))):
            with self.subTest(arguments):
                status, out, error = edit(image, *arguments.split())
                self.assertEqual((0, "", expected.hex()), (status, error, out.hex()))

    def test_modes_and_codes_go_from_every_place(self):
        def base(descriptor):
            return changed(90, descriptor)

        pairs, bits, cvt = "000000fa00%s814f01010101010101010a", "000000f7000a00%s%s", "000000f80001%s202020202020202020"
        hdmi = "6%c030c001000000020" "00%s"
        listed_as_91 = cea("435bdb04" "e20f02")
        for image, arguments, expected in (
                # With the code goes the map that marks nothing else.
                (listed_as_91, "--remove-vic 219", cea("425b04")),
                (listed_as_91, "--remove 4096x2160@119.88", cea("425b04")),
                (listed_as_91, "--remove-vic 91", cea("42db04" "e20f01")),
                (listed_as_91, "--remove-standard 7", cea("42db04" "e20f01")),
                (listed_as_91, "--remove-standard 8 --as-listed", cea("4104")),
                (cea("4110" "e30e6160"), "--remove-vic 97", cea("4110" "e20e60")),
                (cea("4110" "e20e60" "e20f01"), "--remove 3840x2160@50", cea("4110" "e20f01")),
                (cea("43905f04" + hdmi % ("c", "400102")), "--remove-vic 95", cea("429004" + hdmi % ("b", "2002"))),
                (cea("42e604"), "--remove-vic 230", cea("4104")),  # not published
                # Codes at every place and numbers of the list in one call.
                (cea("43900405"), "--remove-vic 4 --remove-standard 9 --remove-vic 4 --remove-standard 11", cea("4190")),
                (base(pairs % "8199"), "--remove 1280x1024@85", base(pairs % "0101")),
                (base(bits % ("e0", "00" * 10)), "--remove 1280x768@60", base(bits % ("20", "00" * 10))),
                (base(cvt % "ff1038"), "--remove 1360x1024@50", base(cvt % "ff1028")),
                (base(cvt % "ff1038"), "--remove 1360x1024@50 --remove 1360x1024@60", base(cvt % "000000"))):
            with self.subTest(arguments):
                status, out, error = edit(image, *arguments.split())
                notes = [line for line in error.splitlines() if " stays: " not in line and " goes with it" not in line]
                self.assertEqual((0, [], expected.hex()), (status, notes, out.hex()))
        preference = cea("4210df" "e20d10" "e20edf")
        for image, arguments, reason in (
                (listed_as_91, "--remove-standard 8", "byte db for VIC 91, by CTA-861-H it is VIC 219, which --remove-vic "
                 "219 removes; --as-listed removes it as the list has it"),
                (cea("41dd"), "--remove-standard 7", "byte dd for VIC 93; CTA-861-H has no code 221; --remove-vic 221 or "
                 "--as-listed removes the byte"),
                (base(cvt % "ff1038"), "--remove 1360x1024@60", "CVT 3 byte timing code 0 prefers this rate and has others"),
                (preference, "--remove-vic 16", "native resolution data block refers to its video code"),
                (IMAGE, "--remove-vic 219", "the image has no VIC 219"),
                (IMAGE, "--remove-vic 76", "the image has no VIC 76; it has its mode in block 0: Standard timing 6, block "
                 "0: Detailed timing, block 1: Video data block > Short video descriptor 14, which do not name this code: --remove 1920x1080@60 removes "
                 "the mode"),
                (cea("421061" "e20f06"), "--add cta.video=1f",
                 "meaning of other parts, such as YCbCr 4:2:0 capability map data block > Place without a video code"),
                (cea("421061" "e20f02"), "--remove-part cta.video.descriptor[0]",
                 "meaning of other parts, such as YCbCr 4:2:0 capability map data block > Video code 97, 3840x2160p 59.94/60 Hz 16:9"),
                (cea("429004" "6e030c001000004420c00400018002"), "--remove-part cta.video.descriptor[1]",
                 "meaning of other parts, such as 3D_MASK > Video code 4, 1280x720p 59.94/60 Hz 16:9"),
                (cea("421061" "e20f02"), "--set cta.video.vic[1]=31",
                 "meaning of other fields, such as YCbCr 4:2:0 capability map data block > Video code 97, 3840x2160p 59.94/60 Hz 16:9; raw: writes it nonetheless"),
                (IMAGE, "--remove 1680x1050@75", "of this size it has 1680x1050@59.95"),
                (IMAGE, "--remove 1280x720@59.9", "no 1280x720@59.9; of this size it has 1280x720@60, 1280x720@50, "
                 "1280x720@59.94"),
                (IMAGE, "--preferred 1280x720@60 --remove 1280x720@60",
                 "block 0: Detailed timing: the preferred timing can only be replaced, by --preferred"),
                (change({19: "03", 24: "08"}, IMAGE), "--remove-part base.detailed[0]",
                 "--remove-part base.detailed[0]: the preferred timing can only be replaced, by --preferred"),
                (section("810002" "4161", 0x20), "--remove 3840x2160@60 --serial 1",
                 ": only --set reaches CTA-861 data blocks in a DisplayID block"),
                (section("81001b" "f62202" "bfd401" + TYPE_1 + "23090707", 0x20), "--remove 1600x900@60",
                 ": only --set reaches CTA-861 data blocks in a DisplayID block"),
                (section("13001f" "bfd401" + TYPE_6 + "9f8641" + TYPE_6 + "000000"), "--remove 1600x900@60 --serial 1",
                 "have different lengths, and only --remove-part removes them, together"),
                (extended(fix_sums(bytes([0x10, 1, 1, 0, 0]) + IMAGE[162:180] + bytes(105))),
                 "--remove 720x480@59.94 --serial 1",
                 "edits do not reach video timing blocks")):
            with self.subTest(arguments):
                status, out, error = edit(image, *arguments.split())
                self.assertEqual((1, b"", True), (status, out, reason + "\n" in error), error)
        both = edit(IMAGE, "--remove", "1280X720 @ 59.94 hz")
        self.assertEqual(0, both[0], both[2])
        self.assertIn("VIC 4 also declares 1280x720@60, which goes with it\n", both[2])
        self.assertIn("--remove-vic 4: 1280x720@60 stays: block 0: Standard timing 1, block 1: Detailed timing 1\n",
                      edit(IMAGE, "--remove-vic", "4")[2])
        self.assertEqual((0, "zoredid: -: --remove 720x480@60: 720x480@59.94 stays: block 1: Detailed timing 0\n"),
                         edit(IMAGE, "--remove", "720x480@60")[::2])

    def test_modes_go_from_displayid(self):
        for version, data_blocks, arguments, expected in (
                (0x12, "030128" "df2e00" + TYPE_1 + "0f2700" + TYPE_1, "--remove 1600x900@60", "030114" "0f2700" + TYPE_1),
                (0x12, "130014" + "00" * 20 + "040016" "df2e00" + TYPE_2 + "0f2700" + TYPE_2, "--remove 1600x900@50",
                 "130014" + "00" * 20 + "04000b" "df2e00" + TYPE_2),
                (0x12, "050006" "04c73b" "04c731", "--remove 1600x900@60", "050003" "04c731"),
                # The same mode as a code, in another list of bits, and by formula: data blocks go with their last one.
                (0x12, "060101" "53" "060102" "5351" "11000e" "0000" + SIZE + "3b" "0000" + SIZE + "31",
                 "--remove 1600x900@60", "060101" "51" "110007" "0000" + SIZE + "31"),
                (0x12, "07000a" + "00" * 9 + "30", "--remove 2560x1600@60", "07000a" + "00" * 9 + "20"),
                (0x12, "080008" + "00" * 7 + "88", "--remove-vic 60", "080008" + "00" * 7 + "80"),
                (0x12, "13001c" "bfd401" + TYPE_6 + "9f8601" + TYPE_6, "--remove 1600x900@60 --remove 1600x900@50", ""),
                (0x20, "221015" "bfd401" + TYPE_1 + "ee" "220014" "9f8601" + TYPE_1, "--remove 1600x900@60",
                 "220014" "9f8601" + TYPE_1),
                (0x20, "234804" "61007600", "--remove-vic 97", "234802" "7600"),
                (0x20, "24000c" "01" + SIZE + "3b" "01" + SIZE + "31", "--remove 1600x900@50", "240006" "01" + SIZE + "3b"),
                # A formula with 1000/1001 of the rate: alone, or with it.
                (0x20, "2a0006" "12" + SIZE + "3b", "--remove 1600x900@59.94", "2a0006" "02" + SIZE + "3b"),
                (0x20, "2a0006" "12" + SIZE + "3b", "--remove 1600x900@60", "")):
            with self.subTest(arguments, data_blocks=data_blocks):
                status, out, error = edit(section(data_blocks, version), *arguments.split())
                self.assertEqual((0, section(expected, version).hex()), (status, out.hex()), error)
                self.assertIn("; followed: block 2: ", error)
        # By number, which means the image as it was read, whatever else goes.
        three = section("03013c" + ("df2e00" + TYPE_1) * 2 + "0f2700" + TYPE_1)
        for numbers, expected in (("5 7 5", "030114" "df2e00" + TYPE_1), ("7 5", "030114" "df2e00" + TYPE_1)):
            words = (word for number in numbers.split() for word in ("--remove-detailed", number))
            status, out, error = edit(three, *words)
            self.assertEqual((0, section(expected).hex()), (status, out.hex()), error)
        status, out, error = edit(three, "--remove-detailed", "6", "--remove", "1600x900@60")
        self.assertEqual((0, section("030114" "0f2700" + TYPE_1).hex()), (status, out.hex()), error)
        # In data blocks of CTA-861, where short video references count them.
        type_7 = "f62202" "bfd401" + TYPE_1
        type_10 = "ee2a00" "10" + SIZE + "3b" "00" + SIZE + "31"
        for data_blocks, arguments, expected in (
                (type_7 + type_10, "--remove 1600x900@60", "e82a00" "00" + SIZE + "31"),
                (type_7 + type_10 + "e20d91", "--remove 1600x900@50", type_7 + "e82a00" "10" + SIZE + "3b" "e20d91"),
                (type_7, "--remove 1600x900@60", ""),
                ("e42340" "6176", "--remove-vic 97", "e32340" "76"),
                ("e62348" "61007600", "--remove-vic 97", "e42348" "7600")):
            with self.subTest(arguments, data_blocks=data_blocks):
                status, out, error = edit(cea("4104" + data_blocks), *arguments.split())
                self.assertEqual((0, cea("4104" + expected).hex()), (status, out.hex()), error)
        for data_blocks, arguments in ((type_7 + type_10 + "e20d91", "--remove 1600x900@60"),
                                       ("e42340" "6176" "e20dfe", "--remove-vic 97")):
            status, out, error = edit(cea("4104" + data_blocks), *arguments.split())
            self.assertEqual((1, b""), (status, out))
            self.assertIn("native resolution data block refers by position to a timing that would be another one\n", error)
        # Parts by their ids, too, but not in a block whose checksum is wrong.
        position, sum_wrong = "timing that would be another one\n", ", which --repair-checksums in a call of its own makes right\n"
        natives = cea("4104", 0x72)
        wrong = cea("4104" + type_7)
        wrong = wrong[:-1] + bytes([wrong[-1] ^ 1])
        for image, arguments, reason in (
                (cea("e20d83"), "--remove-part base.detailed[1]", position),
                (cea("e20d83"), "--move-part base.detailed[1]=1", position),
                (cea(type_7 + type_7.replace("2202", "2203") + "e20d92"), "--remove-part cta.type7[0]", position),
                (natives, "--move-part base.detailed[2]=0", "another timing would be one of them; --set "
                 "cta.native-count changes their number\n"),
                (wrong, "--remove 1600x900@60", sum_wrong), (wrong, "--remove-part cta.type7", sum_wrong)):
            with self.subTest(arguments):
                status, out, error = edit(image, *arguments.split())
                self.assertEqual((1, b"", True), (status, out, reason in error), error)
        two = section("030128" "df2e00" + TYPE_1 + "0f2700" + TYPE_1)
        # A mode is one line, wherever it was, and how its data block was written does not count.
        for image, arguments, mode in ((two, "--remove 1600x900@60", "1600 x +900p"),
                                       (cea("4104" + type_7), "--remove 1600x900@60", "1600 x +900p"),
                                       (cea("420461" "e3234061"), "--remove-vic 97", "3840 x 2160p")):
            self.assertRegex(run("-", "--dry-run", "--diff", *arguments.split(), data=image)[1].decode(),
                             r"\Aremoved: " + mode + r" @ +60\.000 Hz .*\n\Z")
        # From the other blocks by the same edit.
        status, out, error = edit(section("080008" "000004" "0000000000"), "--remove", "1280x720@50")
        self.assertEqual((0, edit(IMAGE, "--remove", "1280x720@50")[1][128:].hex(), section("080008" + "00" * 8)[256:].hex()),
                         (status, out[128:256].hex(), out[256:].hex()), error)
        self.assertIn("was marked as preferred\n",
                      edit(section("030114" "df2e0084" + TYPE_1[2:]), "--remove", "1600x900@60")[2])

    def test_many_blocks_of_one_code(self):
        """In time: 255 blocks of 90 times VIC 1, of a code and another one in turn, of flags."""
        block = bytes([2, 3, 4 + 93, 0]) + (b"\x5e" + b"\1" * 30) * 3 + bytes(31)
        image = extended(*[fix_sums(block)] * 254)
        image = fix_sums(image[:128] + block + image[256:])
        for arguments in "--remove-vic 1", "--remove 640x480@59.94":
            status, out, error = edit(image, *arguments.split())
            self.assertEqual((0, bytes([2, 3, 4]) + bytes(124)), (status, out[-128:-1]), error)
        for data_blocks, arguments, expected in (
                ("060174" + "5352" * 58, "--remove 1600x900@60", "06013a" + "52" * 58),
                ("2a0072" + ("12" + SIZE + "3b") * 19, "--remove 1600x900@59.94",
                 "2a0072" + ("02" + SIZE + "3b") * 19)):
            one, left = (section(part, 0x20)[256:] for part in (data_blocks, expected))
            image = fix_sums(IMAGE[:126] + bytes([254]) + IMAGE[127:128]) + one * 254
            status, out, error = edit(image, *arguments.split())
            self.assertEqual((0, image[:128] + left * 254), (status, out), error)

    def test_timings_close_up_when_one_is_removed(self):
        timing = [IMAGE[54:72][:5] + bytes([i]) + IMAGE[54:72][6:] for i in range(3)]
        name, empty = b"\0\0\0\xfc\0a\n".ljust(18), b"\0\0\0\x10".ljust(18, b"\0")
        for slots, numbers, expected in ((timing + [name], "1", timing[::2] + [empty, name]),
                                         ([timing[0], timing[1], name, timing[2]], "1", timing[::2] + [name, empty]),
                                         (timing + [name], "1 2", timing[:1] + [empty] * 2 + [name]),
                                         (timing + [name], "2", timing[:2] + [empty, name])):
            edits = [word for number in numbers.split() for word in ("--remove-detailed", number)]
            image = fix_sums(IMAGE[:54] + b"".join(slots) + IMAGE[126:])
            status, out, error = edit(image, *edits)
            self.assertEqual((0, "", b"".join(expected).hex()), (status, error, out[54:126].hex()))

    def test_the_number_of_native_timings_follows(self):
        for natives, number, expected in (((3, 4), 1, (2, 3)), ((3, 4), 2, (2, 3)), ((3, 4), 3, (3, 3)),
                                          ((1, 0), 1, (1, 0)), ((0, 15), 2, (0, 14))):
            for extra in [], ["--remove-detailed", str(number)]:  # done already
                status, out, error = edit(detailed(1, *natives), "--remove-detailed", str(number), *extra)
                self.assertEqual((0, "", expected), (status, error, (out[128 + 3], out[256 + 3])), (natives, number))
        lines = edit(detailed(1, 3, 4), "--remove-detailed", "2", "--dry-run", "--diff")[1].decode()
        self.assertRegex(lines, r"^removed, still announced elsewhere: .*  native\n"
                                r"cta.native-count .*: 3 \| 2\ncta.native-count .*: 4 \| 3\n$")

    def test_timings_behind_other_descriptors(self):
        one, two, three = IMAGE[54:72], IMAGE[162:180], IMAGE[180:198]
        dummy, text = b"\0\0\0\x10".ljust(18, b"\0"), b"\0\0\0\xfe\0behind\n".ljust(18)

        def behind(*slots, natives=0, data_blocks=b""):
            head = bytes([2, 3, 4 + len(data_blocks), natives]) + data_blocks
            return fix_sums(IMAGE[:126] + b"\1\0" + (head + b"".join(slots)).ljust(128, b"\0"))

        slots, mode, preference = (one, dummy, two, text, three), "--remove 720x480@59.94", b"\xe2\x0d\x83"
        for arguments, expected in (
                ("--remove-detailed 1", (two, three, dummy, text)), (mode, (one, three, dummy, text)),
                (mode + " --remove-detailed 1 " + mode, (three, dummy, text)),
                ("--remove-detailed 1 " + mode + " --remove 1280x720@60", (dummy, text))):
            status, out, error = edit(behind(*slots, natives=1), *arguments.split())
            self.assertEqual((0, behind(*expected, natives=1)[128:].hex()), (status, out[128:].hex()), arguments)
            self.assertRegex(error, r"\A.*: block 1: the timings that followed another descriptor are now before it\n\Z")
        self.assertEqual((0, behind(two, dummy), ""), edit(behind(one, two, dummy), "--remove-detailed", "1"))
        counted = "block 1 has timings that follow another descriptor, and native timings or those of a video format " \
                  "preference are counted past them\n"
        for image, reason in ((behind(*slots, natives=3), counted), (behind(*slots, data_blocks=preference), counted),
                              (behind(one, bytes(18), two), "look like timings, and that would move\n")):
            self.assertEqual((1, b"", True), (lambda s, o, e: (s, o, e.endswith(reason)))(*edit(image, "--remove-detailed", "1")))

    def test_damaged_and_named_elsewhere(self):
        def byte_2(value, data=b""):
            return fix_sums(IMAGE[:128] + bytes([2, 3, value, 0]) + data.ljust(124, b"\0"))

        damaged = "block 1 is damaged: "
        ends = damaged + "its data blocks do not end where its descriptors begin"
        cut = damaged + "an audio data block is cut within a descriptor"
        formats = "block 1 has 3D formats for all of its first 16 video codes, or damaged ones"
        all_3d = "6c030c0010000000" + "20a0020140"
        disputed = "block 1 has HDMI codes at different places for different readers; " \
                   "--set cta.hdmi.i-latency-fields-present=no makes it one"
        interlaced = cea("4110" + "6e030c001000002d60050600400102")
        code, counted = (" refers to its video code", " refers by position to a timing that would be another one")
        preference = cea("420405e40d058310")
        for image, arguments, reason in (
                (cea(VIDEO + AUDIO + "2409070155"), "--audio-remove 0", cut),
                (cea(VIDEO + AUDIO + "2409070155"), "--audio-add pcm,2ch,48,16", cut),
                (byte_2(1), "--remove-detailed 1", ends), (byte_2(3), "--speakers FL/FR", ends),
                (byte_2(3), "--audio-add pcm,2ch,48,16", ends),
                (byte_2(0), "--audio-add pcm,2ch,48,16", "block 1 says that it holds no data blocks (byte 2 is 0)"),
                (byte_2(0), "--speakers FL/FR", "block 1 says that it holds no data blocks (byte 2 is 0)"),
                (cea("51" + "".join("%02x" % i for i in range(1, 18)) + all_3d), "--remove-standard 7", formats),
                (cea("4410040502" + "6b030c001000000020800118"), "--remove-standard 7", formats),
                (interlaced, "--remove-vic 95", disputed), (interlaced, "--remove 3840x2160@30", disputed),
                (preference, "--remove-detailed 2", counted), (preference, "--remove-detailed 1", counted),
                (preference, "--remove-standard 9", code), (cea("420405e20804"), "--remove-standard 8", code)):
            with self.subTest(arguments):
                status, out, error = edit(image, *arguments.split())
                self.assertEqual((1, b"", True), (status, out, error.endswith(reason + "\n")), error)
        self.assertEqual((0, ""), edit(preference, "--remove-detailed", "3")[::2])
        self.assertEqual((0, ""), edit(byte_2(4), "--speakers", "FL/FR")[::2])

    def test_preferred(self):
        status, out, error = edit(IMAGE, "--preferred", "1280x720@60")
        native = ": the timing is no longer called native, as its picture differs\n"
        expected = changed(54, "011d007251d01e206e285500" + IMAGE[66:69].hex() + "00001e", changed(131, "70"))
        self.assertEqual((0, expected, "zoredid: -: --preferred 1280x720@60" + native), (status, out, error))
        for mode in ("1280x720@60,cea", "1280x720@60,dmt"):
            self.assertEqual((0, out, "zoredid: -: --preferred " + mode + native), edit(IMAGE, "--preferred", mode))
        other = fix_sums(out[:38] + bytes.fromhex("0101") * 8 + out[54:126] + bytes(2))
        for image, mode, marks in ((IMAGE, "1280x720@60", ("stays, no longer preferred", "was there, not preferred")),
                                   (other, "1680x1050@60", ("removed", "added"))):
            lines = edit(image, "--preferred", mode, "--dry-run", "--diff")[1].decode().splitlines()
            for line, when, mark in zip(lines, ("before", "after"), marks):  # then the native size
                self.assertRegex(line, f"^preferred {when}: .*  {mark}$")

    def test_preferred_takes_the_images_own_timing(self):
        """Beside the preferred one of 148.5 MHz two of its size, at 56.97 and 59.39 Hz. Clocks in units of 10 kHz."""
        def timing(clock):
            return clock.to_bytes(2, "little").hex() + "801871382d40582c4500" + "00" * 5 + "1e"

        base = change({18: "0104", 24: "2a", 72: timing(14100), 90: timing(14700)}, IMAGE)
        for image, mode, clock, notes in (
                (base, "1920x1080@57", 14100, []),
                (base, "1920x1080@57,cvt-rb", 13150, []),
                (base, "1920x1080@59", 14700, []),
                (base, "1920x1080@60", 14850, []),
                (base, "1920x1080@58", 13375, ["the image has no timing of this mode; this one is by cvt-rb"])):
            with self.subTest(mode):
                status, out, error = edit(image, "--preferred", mode)
                notes = ["zoredid: -: --preferred %s: %s" % (mode, note) for note in notes]
                self.assertEqual((0, notes, clock),
                                 (status, error.splitlines(), int.from_bytes(out[54:56], "little")), error)
                self.assertEqual((0x2A, 0x71), (out[24], out[131]))  # the native size stays

    def test_preferred_is_native_no_more(self):
        """Byte 24 from EDID 1.4 on, and the number of native timings where it is 1."""
        note = "zoredid: -: --preferred 1280x720@60: "
        gone = note + "the timing is no longer called native, as its picture differs\n"
        for revision, natives, expected, text in (
                (3, 0x70, (0x2A, 0x70), ""), (3, 0x71, (0x2A, 0x70), gone), (4, 0x70, (0x28, 0x70), gone),
                (4, 0x72, (0x28, 0x72), note + "block 1 still counts the timing among 2 native ones\n" + gone)):
            with self.subTest(revision=revision, natives=natives):
                image = change({19: "%02x" % revision, 24: "2a", 131: "%02x" % natives}, IMAGE)
                status, out, error = edit(image, "--preferred", "1280x720@60")
                self.assertEqual((0, expected, text), (status, (out[24], out[131]), error))

    def test_preferred_with_range_limits_and_stereo(self):
        """Bytes 4 to 12 of the limits, the flags of the timing, and the line about it."""
        def image(revision, limits, stereo):
            return change({19: "%02x" % revision, 72: "000000fd" + limits, 71: "%02x" % (0x1E | stereo),
                           131: "70"}, IMAGE)

        def note(mode, text):
            return "zoredid: -: --preferred %s: %s\n" % (mode, text)

        wide, were = "the range limits become %s; they were %s", "50 to 75 Hz, 30 to 83 kHz, 150 MHz"
        outside = "the timing exceeds the range limits, which cannot be widened so far: " + were
        cleared = "the stereo viewing of the old timing is cleared, as the picture is another one"
        plain, blanks = "00324b1e530f", "000a202020202020"
        for revision, limits, stereo, mode, expected, kept, text in (
                (3, plain + blanks, 0x20, "1920x1080@60", plain + blanks, 0x20, ""),
                (3, plain + blanks, 0x61, "1280x720@60", plain + blanks, 0, cleared),
                (3, plain + blanks, 0x01, "1280x720@60", plain + blanks, 0x01, ""),  # none, whatever bit 0 says
                (3, plain + blanks, 0, "1920x1080@120,cea", "0032781e871e" + blanks, 0,
                 wide % ("50 to 120 Hz, 30 to 135 kHz, 300 MHz", were)),
                (3, plain + blanks, 0, "1920x1080@24,cea", "00184b1b530f" + blanks, 0,
                 wide % ("24 to 75 Hz, 27 to 83 kHz, 150 MHz", were)),
                (3, plain + blanks, 0, "1920x1080@240,cvt-rb", plain + blanks, 0, outside),
                (4, plain + blanks, 0, "1920x1080@240,cvt-rb", "0832f01e253d" + blanks, 0,
                 wide % ("50 to 240 Hz, 30 to 292 kHz, 610 MHz", were)),
                # CVT takes a quarter of a megahertz off for each step of byte 12.
                (4, plain + "0411" "f8" "0000000000", 0, "1920x1080@60", plain[:10] + "0f" "0411" "00" "0000000000", 0,
                 wide % (were, were.replace("150", "134.5")))):
            with self.subTest(mode, limits=limits):
                status, out, error = edit(image(revision, limits, stereo), "--preferred", mode)
                error, _, finding = error.partition("zoredid: -: check then finds: ")
                self.assertEqual("240" in mode, "base.range-limits.pixel-clock" in finding or "library.range-offsets" in finding)
                self.assertEqual((0, note(mode, text) if text else ""), (status, error))
                self.assertEqual((expected, kept), (out[76:90].hex(), out[71] & 0x61))
        # Of another version the revision says nothing: byte 4 of the limits has no offsets.
        other = fix_sums(image(4, plain + blanks, 0)[:18] + b"\2" + image(4, plain + blanks, 0)[19:])
        status, out, error = edit(other, "--preferred", "1920x1080@120,cea")
        self.assertEqual((0, "0032781e871e" + blanks), (status, out[76:90].hex()), error)

    def test_refusals_have_a_reason_and_write_nothing(self):
        with tempfile.TemporaryDirectory() as folder:
            out = os.path.join(folder, "out.bin")
            for arguments, reason in (
                    ("--remove-detailed 0", "the preferred timing can only be replaced, by --preferred"),
                    ("--remove-detailed 9", "the image has detailed timings 0 to "),
                    ("--remove-standard 99", "the image has standard timings 0 to "),
                    ("--remove-established 17", "the image has established timings 0 to "),
                    ("--audio-remove 1", "the image has only number 0 of audio descriptors"),
                    ("--audio-set 1=ac3,2ch,48", "the image has only number 0 of audio descriptors"),
                    ("--audio-add pcm,1ch,48,16", "the library takes 2 to 8 channels"),
                    ("--color-depth 10", "only a digital input of EDID 1.4 or later has a colour depth"),
                    ("--deep-color 30", "the image has no HDMI data block with deep colour flags"),
                    ("--deep-color none", "the image has no HDMI data block with deep colour flags"),
                    ("--preferred 8192x4320@60", "the timing does not fit into a detailed descriptor")):
                for order in ("--serial 5 " + arguments, arguments + " --serial 5"):
                    status, text, error = run(MONITOR, "-o", out, "--diff", *order.split())
                    self.assertEqual((1, b""), (status, text), order)
                    self.assertTrue(error.startswith("zoredid: %s: %s: %s" % (MONITOR, arguments, reason)), error)
            status, _, error = run(MONITOR, "-o", out, "--audio-remove", "0", "--audio-set", "0=ac3,2ch,48")
            self.assertEqual((1, True), (status, error.endswith(": an earlier edit has removed it\n")))
            self.assertEqual([], os.listdir(folder))

    def test_wrong_command_lines(self):
        for arguments in ("", "--serial 4294967296", "--serial 1x", "--remove-standard -1", "--preferred 1920x1080",
                          "--preferred 1920x1080@59.94", "--preferred 1921x1080@60,cea", "--preferred 1x1@60,vesa",
                          "--color-depth 9", "--deep-color 24", "--audio-add pcm,2ch,48", "--audio-add pcm,9ch,48,16",
                          "--audio-add ac3,6ch,48,641kbps", "--audio-add ac4,6ch,48", "--audio-add mat,6ch,48,640kbps",
                          "--audio-set ac3,6ch,48", "--speakers FL", "--remove-standard 1 2", "--serial 5 --diff",
                          "--repair-checksums=false", "--serial 5 --force=false", "--serial 5 --dry-run=false",
                          "--serial 5 --diff -o /dev/stdout"):
            status, out, error = edit(IMAGE, *arguments.split())
            self.assertEqual((2, b"", 1), (status, out, error.count("\n")), arguments)
        self.assertEqual(2, run(MONITOR, "--serial", "5")[0])  # no -o

    def test_blocks_that_the_library_does_not_read(self):
        unread = bytes([0x10]) + bytes(range(1, 128))
        displayid = bytes([0x70, 0x12, 0, 0, 0, 0x55]).ljust(128, b"\1")
        image = extended(unread, displayid, IMAGE[128:])
        status, out, error = edit(image, "--remove-standard", "7", "--audio-remove", "0", "--serial", "1")
        self.assertEqual((0, image[256:512], ""), (status, out[256:512], error))
        self.assertEqual(image[512:], out[512:])
        self.assertNotEqual(image[128:256], out[128:256])
        section = bytes([0x70, 0x12, 0, 0, 0, 0xEE]).ljust(128, b"\1")
        self.assertEqual((0, fix_sums(extended(unread, section, IMAGE[128:])), ""),
                         edit(image[:127] + b"\0" + image[128:], "--repair-checksums"))

    def test_a_repaired_block_gets_no_numbers(self):
        image = IMAGE[:255] + bytes([IMAGE[255] ^ 1])
        self.assertEqual((0, IMAGE, ""), edit(image, "--repair-checksums"))
        status, _, error = edit(image, "--repair-checksums", "--remove-standard", "7")
        self.assertEqual((1, 2), (status, error.count("\n")))
        self.assertRegex(error, "the image has standard timings 0 to 6\n.*: block 1 .* its checksum is wrong")


class Settings(unittest.TestCase):
    def test_a_field_by_id_number_and_place(self):
        for arguments, expected, note in (
                ("--set base.display.gamma=2.404", changed(23, "8c"), r"gamma\): .* became 2\.40, the nearest; followed"),
                ("--set base.identity.serial-number=0x01020304", changed(12, "04030201"), "16909060; followed: block 0"),
                ("--set base.standard[1]=1", None, "it is a group"),
                ("--set base.standard=1", None, r"several of this field, base.standard\[0\] to base.standard\[7\]"),
                ("--set cta.audio=1", None, "it is a group; its fields are set one by one, such as cta.audio.format\n"),
                ("--set base.standard[8]=1", None, r"the image has base.standard\[0\]"),
                ("--set 0x17=raw:0x8c", changed(23, "8c"), "became 2.40"),
                ("--set 0x18=1", None, "a bit from 7 to 0"),
                ("--set 0x18.7=yes", changed(24, "%02x" % (IMAGE[24] | 0x80)), "became supported"),
                ("--set 4096=1", None, "the image ends at 0x"),
                ("--set base.display.gamma=4", None, "out of range; it takes 1.00 to 3.54"),
                # Numbers mean the image as it was read: fields are set last.
                ("--set base.identity.serial-number=9 --serial 8", changed(12, "09000000"), "8 became 9")):
            status, out, error = edit(IMAGE, *arguments.split())
            self.assertEqual((1, b"") if expected is None else (0, expected), (status, out), arguments + error)
            self.assertRegex(error, note)

    def test_images_that_no_class_takes(self):
        cut = IMAGE[:100]
        self.assertEqual(cut[:23] + b"\x8c" + cut[24:], edit(cut, "--set", "base.display.gamma=2.4")[1])

    def test_wrong_settings(self):
        for value, reason in (("base.display.gama=2", "did you mean 'base.display.gamma'"), ("2.4", "is not ID=VALUE"),
                              ("0x18.8=1", "is not a place"), ("base.standard[x]=1", "is not an id such as")):
            status, out, error = edit(IMAGE, "--set", value)
            self.assertEqual((2, b""), (status, out))
            self.assertIn(reason, error)


class Files(unittest.TestCase):
    def test_what_is_written_where(self):
        with tempfile.TemporaryDirectory() as folder:
            out = os.path.join(folder, "out.bin")
            serial = changed(12, "05000000")

            def read():
                with open(out, "rb") as file:
                    return file.read()

            self.assertEqual(0, run(MONITOR, "-o", out, "--serial", "5", "--dry-run")[0])
            self.assertEqual([], os.listdir(folder))
            status, text, error = run(MONITOR, "-o", out, "--serial", "5", "--diff")
            self.assertEqual((0, "", serial), (status, error, read()))
            self.assertEqual(b"identity.serial_number: 145791 | 5\n", text)
            self.assertEqual((3, b"", "zoredid: %s: exists already (use --force)\n" % out),
                             run(MONITOR, "-o", out, "--serial", "6", "--diff"))
            self.assertEqual(serial, read())
            self.assertEqual((0, b"", ""), run(out, "-o", out, "--serial", "6", "--force"))
            self.assertEqual(changed(12, "06000000"), read())
            self.assertEqual(["out.bin"], os.listdir(folder))
            for target in (folder, os.path.join(folder, "none", "x"), "/proc/x"):
                written, planned = (run(MONITOR, "-o", target, "--serial", "5", "--force", *extra)
                                    for extra in ([], ["--dry-run"]))
                self.assertEqual((3, b"", 1), (*written[:2], written[2].count("\n")), target)
                self.assertEqual(written, planned) if target != "/proc/x" else None
            self.assertEqual((3, b"", "zoredid: %s: exists already (use --force)\n" % out),
                             run(MONITOR, "-o", out, "--serial", "6", "--dry-run", "--diff"))
            self.assertEqual(["out.bin"], os.listdir(folder))

    def test_names_links_and_devices(self):
        with tempfile.TemporaryDirectory() as folder:
            longest = os.path.join(folder, "x" * 255)
            self.assertEqual((0, b"", ""), run(MONITOR, "-o", longest, "--serial", "5"))
            os.mkdir(os.path.join(folder, "in"))
            link, target = os.path.join(folder, "link"), os.path.join(folder, "in", "new")
            os.symlink("in/new", link)
            exists = (3, b"", "zoredid: %s: exists already (use --force)\n" % link)
            self.assertEqual(exists, run(MONITOR, "-o", link, "--serial", "5"))
            self.assertEqual(exists, run(MONITOR, "-o", link, "--serial", "5", "--dry-run"))
            self.assertEqual([], os.listdir(os.path.join(folder, "in")))
            self.assertEqual((0, b"", ""), run(MONITOR, "-o", link, "--serial", "5", "--force"))
            with open(target, "rb") as file:
                self.assertEqual((changed(12, "05000000"), True), (file.read(), os.path.islink(link)))
            device = os.path.join(folder, "device")
            try:
                os.mknod(device, 0o600 | stat.S_IFBLK, os.makedev(7, 250))
            except PermissionError:
                self.skipTest("block devices are made by root")
            self.assertEqual((3, b"", "zoredid: %s: is a block device\n" % device),
                             run(MONITOR, "-o", device, "--serial", "5", "--force"))

    # What has only moved does not differ by meaning; by bytes each has both names.
    def test_differences_by_meaning_and_by_bytes(self):
        with tempfile.TemporaryDirectory() as folder:
            out = os.path.join(folder, "out.bin")
            text = run(MONITOR, "-o", out, "--audio-remove", "0", "--diff")[1].decode()
            self.assertEqual(1, text.count("\n"), text)
            self.assertRegex(text, r'^audio\.formats: code 1; name PCM; .* \| not said\n')
            done = subprocess.run([COMMAND, "compare", "--bytes", MONITOR, out], stdout=subprocess.PIPE, timeout=60)
        lines = done.stdout.decode().splitlines()
        self.assertEqual(1, done.returncode)
        self.assertIn("block 1 offset 0x02: 22 -> 1e  Offset of the detailed timing descriptors", lines)
        # The tag is in the upper bits, in the lower ones the length, which is 3 again.
        self.assertIn("block 1 offset 0x14: 23 -> 83  Speaker allocation data block > Tag code; was Audio data block > "
                      "Tag code", lines)
        self.assertIn("block 1 offset 0x18: 83 -> 65  HDMI vendor-specific data block > Tag code, Length; was Speaker "
                      "allocation data block > Tag code, Length", lines)

    def test_input_that_is_none(self):
        self.assertEqual(3, edit(b"\0" * 128, "--serial", "1")[0])
        self.assertEqual(3, run("/nonexistent", "-o", "-", "--serial", "1")[0])
        self.assertEqual((0, changed(12, "01000000")), edit(IMAGE.hex().encode(), "--serial", "1")[:2])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
