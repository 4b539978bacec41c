"""The known differences between this library and edid-decode: a name, who is right, and what the values must be.

An excuse looks at both values and at the bytes of the image, so that a wrong value of this library is not excused; only
where the bytes break the standards ("neither"), nobody's value counts. docs/comparison.md explains each.
"""
import itertools
import re

from PeerFacts import BLOCK_SIZE, plain, size_text

CTA, DISPLAYID = 2, 0x70
BASE_HEADER = bytes((0, *[255] * 6, 0))
DEPTHS = (6, 8, 10, 12, 14, 16)
ODD_BYTES = (AttributeError, TypeError, ArithmeticError, LookupError, ValueError, StopIteration)


class Case:
    """A difference: items, either may be None; values of the word, None where a side has none; the image."""

    def __init__(self, own, peer, word, image):
        self.own, self.peer, self.word, self.image = own, peer, word, image.bytes
        self.lines = image.lines  # of edid-decode
        self.begin = own.begin if own else 0  # of the group
        self.item = own or peer
        self.ours, self.theirs = (side and side.values.get(word) for side in (own, peer))
        self.number = self.item.block
        self.block = self.image[self.number * BLOCK_SIZE:(self.number + 1) * BLOCK_SIZE]

    def byte(self, offset):
        """A byte of the group."""
        return self.image[self.begin + offset]

    def word16(self, offset):
        return self.byte(offset) + 256 * self.byte(offset + 1)

    def stored(self, word):
        """The bits of a field as the image has them."""
        value = 0
        for piece in self.own.fields[word]["pieces"]:
            mask = piece["mask"]
            value = (value << bin(mask).count("1")
                     | (self.image[piece["offset"]] & mask) >> (mask & -mask).bit_length() - 1)
        return value

    def is_stored(self):
        """Whether the value is the bits of the image."""
        return self.own.fields[self.word]["value"] == self.stored(self.word)

    def number_of(self, *words):
        """The value of the first of the words that there is."""
        return float(next(self.own.values[word] for word in words if word in self.own.values))

    def is_near(self, value, most=0.001):
        return abs(float(self.ours) - value) < most

    def pair12(self, offset, split):
        """Two numbers of 12 bits with a byte each, and a shared byte of their high bits."""
        return [self.byte(offset + i) | (self.byte(split) >> 4 * (1 - i) & 15) << 8 for i in (0, 1)]

    def descriptors(self):
        """All that may be a descriptor of 18 bytes in the block."""
        return [self.block[i:i + 18] for i in range(BLOCK_SIZE - 18)]


def pq(code):
    """Luminance of a code of 12 bits, in cd/m2 (SMPTE ST 2084)."""
    power = (code / 4095) ** (1 / 78.84375)
    return 10000 * (max(power - 0.8359375, 0) / (18.8515625 - 18.6875 * power)) ** (1 / 0.1593017578125)


def text_of(descriptor):
    return plain(descriptor[5:].split(b"\n")[0].decode("latin-1"))


def is_of_library(case):
    """The library says negative for both where the sync is not digital and separate."""
    words = [word for word in case.own.values if not re.search("size|polarity", word)]
    clock = round(case.number_of("pixel-clock") * 100)
    return (case.own.values["size"] == case.peer.values["size"]
            and all(case.number_of(word) == float(case.peer.values[word]) for word in words)
            and all(case.own.values[f"{way}-sync-polarity"] == "negative" for way in ("horizontal", "vertical"))
            and any(part[0] + 256 * part[1] == clock and part[17] & 0x18 != 0x18 for part in case.descriptors()))


def is_short_features(case):
    stored = {f"{name}-{depth}bpc": "1" for i, name in enumerate(("rgb-444", "ycbcr-444", "ycbcr-422", "ycbcr-420"))
              for bit, depth in enumerate(DEPTHS if i < 2 else DEPTHS[1:]) if case.byte(3 + i) >> bit & 1}
    return case.peer is None and case.byte(2) < 9 and case.own.values == stored


def is_assumed(case):
    if case.ours is None:
        return case.own.assumed
    rate = case.byte(1) % 64 + 60
    return (case.own.assumed and all(abs(float(side.values["rate"]) - rate) < 0.6 for side in (case.own, case.peer))
            and abs(float(case.ours) / float(case.theirs) - 1) < 0.1)


def has_panel_texts(case):
    """Of a base block: the last two descriptors are texts. edid-decode then takes the flags of the second timing from
    the first one."""
    return all(case.image[at:at + 2] == b"\0\0" and case.image[at + 3] == 0xFE for at in (90, 108))


def is_scanned_as_first(case):
    """Whether one of two timings is interlaced, and ours is the second one as it is stored."""
    case.begin = 72  # answers of the library have none
    (width, blank_x), (height, blank_y), interlaced = case.pair12(2, 4), case.pair12(5, 7), case.byte(17) >> 7
    rate = case.word16(0) * 10000 / (width + blank_x) / (height + blank_y + interlaced / 2)
    return (has_panel_texts(case) and interlaced != case.image[71] >> 7 and (case.word != "rate" or case.is_near(rate))
            and case.own.values["size"] == size_text(width, height * (1 + interlaced), interlaced))


def is_after_list(case):
    """Whether edid-decode has a text or timing after the end of the list of timings in a CTA-861 block."""
    said = case.peer.values
    parts = [case.block[i:i + 18] for i in range(case.block[2], BLOCK_SIZE - 18, 18)]
    for part in itertools.dropwhile(lambda part: any(part[:2]), parts):
        is_same = (part[:3] == bytes(3) and part[3] > 0xFB and "text" in said
                   and plain(said["text"]) == text_of(part))
        clock = float(said.get("pixel-clock") or said.get("clock") or 0)
        if is_same or clock and part[0] + 256 * part[1] == round(clock * 100):
            return case.own is None and case.block[0] == CTA
    return False


def has_odd_formats(case):
    """Whether the data block around a video format descriptor has no whole number of them."""
    at = case.own.begin % BLOCK_SIZE
    return case.peer is None and any(
        head >> 5 == 6 and at <= i + head % 32 and (head % 32 - 1) % (case.block[i + 1] % 4 + 1)
        for i, head in enumerate(case.block[:at]))


def is_of_type_2(case):
    if case.word:
        return case.own.tag == 4 and case.is_stored()
    others = {word for word in case.own.values if word in case.peer.values and word != "vertical-sync-polarity"}
    return case.block[0] == DISPLAYID and all(
        plain(case.own.values[word])[:1] == plain(case.peer.values[word])[:1] if word.endswith("polarity")
        else case.own.values[word] == case.peer.values[word] for word in others)


def is_short_hdmi(case):
    """Whether an HDMI block announces more codes and 3D fields than it has bytes."""
    for i in range(BLOCK_SIZE - 16):
        length, flags = case.block[i] % 32, case.block[i + 8]
        if case.block[i] >> 5 == 3 and case.block[i + 1:i + 4] == b"\x03\x0c\x00" and flags & 0x20:
            at = i + 10 + (flags >> 7) * (2 + (flags >> 6 & 1) * 2)  # after the latencies and the flags of 3D
            return case.own is None and at + (case.block[at] >> 5) + case.block[at] % 32 > i + length
    return False


# Lengths of data blocks in bytes: their kind (see data_blocks), the groups of what is in them, the usual lengths.
LENGTHS = (
    ("1", "(cta|library).audio", range(0, 32, 3)), ("4", "cta.speakers", (3,)), ("3 1a0000", "cta.amd", range(8, 32)),
    ("3 5c12ca", "cta.microsoft", (21,)), ("3 030c00", "cta.hdmi", range(5, 32)),
    ("3 d85dc4|7 79", "cta.hdmi-forum", (7, 8, 9, 10, *range(13, 32))),
    ("7 05", "cta.colorimetry", (3,)), ("7 06", "cta.hdr-static", range(3, 7)),
    ("7 12", "cta.(hdmi-audio|speakers)", range(3, 32, 4)),
    ("d 20", "displayid.product", range(12, 122)), ("d (01|21)", "displayid.parameters", (12, 29)),
    ("d 07", "(mode:)?displayid.dmt-modes", (10,)),
    ("d 02", "displayid.color", range(4, 122)), ("d 29", "displayid.container", (16,)),
    ("d (09|25)", "displayid.range", (9, 15)), ("d 0f", "displayid.interface", (10,)),
    ("d (12|28)", "displayid.tiled", (22,)), ("d (7e|7f)", "displayid.vendor", range(3, 122)),
)


def data_blocks(block):
    """(kind, length) of an extension block's data blocks, and ("end", bytes that they leave or lack). A kind is the
    tag of CTA-861 with the maker's three bytes or the extended tag after it, or d and the tag of DisplayID."""
    def walk(at, end, head):
        while at + head <= min(end, BLOCK_SIZE - 1) and (head == 1 or any(block[at:end])):
            length, tag = (block[at] % 32, str(block[at] >> 5)) if head == 1 else (block[at + 2], f"d {block[at]:02x}")
            more = {"3": 3, "7": 1}.get(tag, 0)
            yield f"{tag} {block[at + 1:at + 1 + more].hex()}".strip(), length if at + head + length <= end else -1
            if tag == "d 81":
                yield from list(walk(at + 3, at + 3 + length, 1))[:-1]
            at += head + length
        yield "end", end - at if head == 1 or at > end or any(block[at:end]) else 0

    return list(walk(4, block[2], 1) if block[0] == CTA else walk(5, block[2] + 5, 3))


def has_odd_length(case):
    """Whether the block has a data block of the group with another length than the standards give it."""
    return any(re.match(groups, case.item.group) and re.fullmatch(kinds, kind) and length not in usual
               for kind, length in data_blocks(case.block) for kinds, groups, usual in LENGTHS)


def is_malformed(case):
    """Whether programs may differ over the walk of the data blocks."""
    block = case.block
    if block[0] not in (CTA, DISPLAYID) or block[0] == CTA and block[2] == 0 < block[1]:
        return False
    bounds = block[1] >= 3 and 4 <= block[2] <= 127 if block[0] == CTA else block[2] <= 121
    # edid-decode takes a product block that is too short, tag 00h, for filler.
    return not bounds or any(kind == "end" and rest or kind == "d 00" and rest < 12
                             for kind, rest in data_blocks(block))


# Name, who is right, groups, words (empty for an item that one side has alone), what must hold.
EXCUSES = (
    ("further-section", "both", "displayid.section", ".*",
     lambda case: DISPLAYID in case.image[BLOCK_SIZE:case.number * BLOCK_SIZE:BLOCK_SIZE]
     and case.theirs is None and case.is_stored()),
    ("amd-not-valid", "here", "cta.amd", ".*luminance",
     lambda case: case.ours is None and case.stored("luminances-valid") == 0),
    ("amd-second", "here", "cta.amd", "second-.*",
     lambda case: case.theirs is None and case.is_near(
         50 * 2 ** (case.stored("second-max-luminance") / 32)
         * (1 if "max" in case.word else (case.stored("second-min-luminance") / 255) ** 2 / 100))),
    ("amd-rate", "here", "cta.amd", "max-refresh-rate",
     lambda case: case.number_of("version") >= 3 and int(case.ours) == case.stored("max-refresh-rate")),
    ("polarity", "here", "base.detailed", ".*sync-polarity",
     lambda case: case.ours is None and case.theirs == "N" and case.byte(17) & 0x18 != 0x18),
    ("polarity", "both", "library.detailed", "", is_of_library),
    ("standard-of-256", "here", "(mode:)?base.standard", "",
     lambda case: case.peer is None and case.own.values["size"].startswith("256x")
     and case.byte(0) == 1 != case.byte(1)),
    ("panel-flags", "here", "base.detailed", "sync-type|stereo",
     lambda case: case.own.begin == 72 and case.theirs is None and case.is_stored() and has_panel_texts(case)),
    ("panel-flags", "here", "(mode:)?base.detailed|library.detailed", "size|rate|", is_scanned_as_first),
    ("panel-texts", "here", "base.string", "",
     lambda case: case.peer is None and plain(case.own.values["text"]) in [
         text_of(case.image[at:at + 18]) for at in (90, 108)]),
    ("vendor-id-order", "here", "displayid.vendor", "id",
     lambda case: case.ours.split("-") == [f"{case.byte(i):02X}" for i in (3, 4, 5)] == case.theirs.split("-")[::-1]),
    ("hdr10plus-byte", "here", "cta.hdr10-plus", "application-version",
     lambda case: int(case.theirs) & 3 == int(case.ours) == case.byte(5) & 3),
    ("type-x", "here", ".*displayid.formula", "",
     lambda case: case.peer is None and abs(case.number_of("hz", "rate") - case.byte(5) - 1) < 1
     and case.own.values["size"] == f"{case.word16(1) + 1}x{case.word16(3) + 1}"),
    ("short-features", "both", "displayid.interface", "", is_short_features),
    ("dolby-curve", "here", "cta.dolby-vision", "target-.*-luminance",
     lambda case: case.is_near(pq(int(case.peer.values[case.word + "-pq"])))
     and case.is_near(float(case.theirs), 0.05 * float(case.ours))),
    ("native-depth", "here", "displayid.parameters", "native-bit-depth",
     lambda case: DEPTHS.index(int(case.theirs)) == DEPTHS.index(int(case.ours.split(" ")[0])) + 1),
    ("no-code", "both", "cta.video.descriptor|cta.video-reference", "",
     lambda case: case.peer is None and case.own.values == {"vic": str(case.byte(0))}
     and (case.byte(0) in (0, 128) or case.byte(0) > 219)),
    ("no-code", "both", "displayid.code", "", lambda case: case.peer is None and case.byte(0) not in range(1, 89)
     and case.own.values == {"dmt-id": str(case.byte(0))}),
    ("latency-formula", "here", "cta.hdmi", ".*latency", lambda case: int(case.theirs) == int(case.ours) + 3),
    ("past-end", "here", "(mode:)?cta.hdmi.(3d-.*|vic)", "", is_short_hdmi),
    ("one-size", "both", "base.display", "screen-.*",
     lambda case: 0 in case.image[21:23] and case.theirs is None and int(case.ours) == sum(case.image[21:23])),
    ("audio-without-channels", "here", "cta.audio.descriptor", "channels",
     lambda case: case.ours is None and case.byte(0) >> 3 & 15 == 15),
    ("speaker-of-hdmi", "here", "cta.speakers.*", "lsd-rsd|rlc-rrc", lambda case: case.ours is None),
    ("no-active", "both", "(mode:)?base.*", "",
     lambda case: "0" in case.item.values["size"].rstrip("i").split("x") and any(
         0 in (part[2] | (part[4] & 0xF0) << 4, part[5] | (part[7] & 0xF0) << 4) for part in case.descriptors())),
    ("assumed-formula", "both", "mode:.*", "rate|clock", is_assumed),
    ("week-54", "both", "base.identity", "week",
     lambda case: case.ours is None and int(case.theirs) == case.image[16] > 54),
    ("week-54", "both", "displayid.product", "week",
     lambda case: case.theirs is None and case.is_stored() and int(case.ours) > 54),
    ("short-hdmi", "neither", "cta.hdmi", "image-size|.*latency",
     lambda case: case.ours is None and case.byte(0) % 32 < 8 + 2 * (case.byte(8) >> 5).bit_count()),
    ("detailed-as-bytes", "both", ".*detailed", "",
     lambda case: any(int(high + low, 16) == round(case.number_of("pixel-clock", "clock") * 100)
                      for low, high in re.findall("mode: ([0-9a-f]{2}) ([0-9a-f]{2}) ", "\n".join(case.lines)))),
    ("clock-wraps", "edid-decode", "library.detailed", "",
     lambda case: (theirs := float(case.peer.values["pixel-clock"])) > 4294
     and abs((theirs * 1e6) % 2 ** 32 / 1e6 - case.number_of("pixel-clock")) < 0.001),
    ("dynamic-length", "both", "cta.hdr-dynamic.metadata", "",
     lambda case: case.peer is None and int(case.own.values["type"]) == case.word16(1)),
    ("interlaced-field", "both", "displayid.timing|library.detailed", "vertical-.*|",
     lambda case: case.own.values["size"].endswith("i") and all(
         int(case.own.values[word]) // 2 == int(case.peer.values[word])
         for word in ("vertical-front-porch", "vertical-sync-width") if word in case.own.values)),
    ("type-2-polarity", "here", "displayid.timing|library.detailed", "vertical-sync-polarity|", is_of_type_2),
    ("interlaced-border", "here", "mode:base.detailed", "rate",
     lambda case: case.byte(16) and case.byte(17) & 0x80 and case.is_near(
         case.word16(0) * 10000 / sum(case.pair12(2, 4)) / (sum(case.pair12(5, 7)) + 0.5))),
    ("preferred-420", "here", "displayid.timing", "preferred",
     lambda case: case.theirs is None and case.byte(3) & 0x88 == 0x88),
    ("further-infoframes", "both", "cta.infoframe", "vendor-specific-at-once",
     lambda case: int(case.ours) == int(case.theirs) + 1),
    ("not-announced", "both", "mode:.*", "",
     lambda case: case.own is None and case.number > case.image[126]),
    ("cvt-version", "neither", "(mode:)?base.cvt-code", "",
     lambda case: case.peer is None and case.number == 0
     and case.image[case.own.begin - (case.own.begin - 54) % 18 + 5] != 1),
    ("unknown-version", "neither", "(mode:)?base.(display|identity|standard|range)", ".*",
     lambda case: case.image[18] != 1),
    ("range-before-1.4", "neither", "base.range", ".*",
     lambda case: case.ours is None and case.image[19] < 4 and case.image[case.own.begin + 10] > 2),
    ("displayid-version", "neither", "end|(mode:)?(cta|displayid).*", ".*",
     lambda case: case.ours is None and case.block[0] == DISPLAYID and case.block[1] >> 4 not in (1, 2)),
    ("no-luminance", "here", "cta.hdr-static", ".*luminance",
     lambda case: case.ours is None and 0 in (case.stored(case.word), case.stored("max-luminance"))),
    ("square-before-1.3", "here", "(mode:)?base.standard", "size|clock",
     lambda case: case.image[19] < 3 and case.byte(1) < 0x40
     and case.own.values["size"] == f"{case.byte(0) * 8 + 248}x{case.byte(0) * 8 + 248}"),
    ("no-data-blocks", "both", "cta", "native-count",
     lambda case: case.theirs is None and case.block[2] == 0 and case.is_stored()),
    ("after-list", "both", "(mode:)?base.(detailed|name|serial|string)", "", is_after_list),
    ("dmt-120", "here", "mode:displayid.*", "rate",
     lambda case: (case.own.values["size"], case.ours) in (("1856x1392", "119.969686"), ("1920x1440", "119.955864"))),
    ("no-formula", "both", "mode:displayid.formula", "",
     lambda case: set(case.own.values) == {"size"} if case.own else max(
         map(int, case.peer.values["size"].split("x"))) > 16384),
    ("color-version", "neither", "base.color-management", ".*", lambda case: case.ours is None and case.byte(5) != 3),
    ("odd-length", "neither", "(mode:)?cta.video-format.descriptor", "", has_odd_formats),
    ("odd-length", "neither", "(mode:)?(cta|displayid).*|library.audio", ".*", has_odd_length),
    ("malformed-block", "neither", "(mode:)?(base.detailed|cta|displayid).*|library.*|end", ".*", is_malformed),
)
# Where edid-decode is known to be silent, and not to have other words for the value.
SILENT = ("further-section", "amd-second", "panel-flags", "one-size")
PATTERNS = [(name, right, re.compile(groups + "$"), re.compile(f"({words})$"), check)
            for name, right, groups, words, check in EXCUSES]


def is_silent(group, word):
    return any(name in SILENT and groups.match(group) and words.match(word) for name, _, groups, words, _ in PATTERNS)


def excuse_of(own, peer, word, image):
    """Name of an excuse and who is right; None for none."""
    for name, right, groups, words, check in PATTERNS:
        if groups.match((own or peer).group) and words.match(word):
            try:
                if check(Case(own, peer, word, image)):
                    return name, right
            except ODD_BYTES:  # a side without what the excuse compares
                pass
    return None
