"""Facts that `zoredid explain --json` and the peer edid-decode both print, and the kinds of their differences.

For compare-with-edid-decode. A fact has a kind and a value, and belongs to a block. Both sides write a value in one
form: numbers as Python prints them, names in lower case without what differs in spelling only.

Own facts come from two tables, one for single fields and one for groups whose fields together are a fact. Peer facts
come from a table of headings and lines. What each kind of difference means is in docs/comparison.md.
"""

import collections
import json
import re
import subprocess

Fact = collections.namedtuple("Fact", "kind value block")

BLOCK_SIZE = 128
TEXTS = ("name", "serial-text", "string")  # kinds of facts that may be empty


def number(value):
    return f"{float(value):g}" if float(value) < 1e6 else str(int(float(value)))


def plain(text):
    """A name without case and without the characters that the two sides set differently."""
    return re.sub(r"[^a-z0-9]+", "", text.lower())


# ---- The map ----


def last_word(field):
    return field["id"].rpartition(".")[2]


class Group:
    """A group of the JSON: its own leaves by the last word of their ids, of several the last one."""

    def __init__(self, field):
        self.name, self.text = field["name"], field.get("text", "")
        self.fields = field["fields"]
        self.leaves = {last_word(leaf): leaf for leaf in self.fields if leaf["kind"] != "group"}

    def value(self, word):
        """None where a meaning such as "not given" takes the number's place."""
        return self.leaves[word].get("value")

    def said(self, word):
        return self.leaves[word].get("text", "")

    def has(self, word):
        return word in self.leaves

    def on(self):
        """Names of the flags that are set."""
        return [leaf["name"] for leaf in self.fields if leaf["kind"] == "flag" and leaf["value"] == 1]


def mode(text):
    """(width, height, rate) of "1920 x 1080i @ 60 Hz", or "1920x1080i 59.94/60 Hz 16:9"; the last rate counts."""
    found = re.match(r"(?:720\()?(\d+)\)? ?x ?(\d+)(i?)p? (?:@ )?(?:[\d.]+/)?([\d.]+) Hz", text)
    return f"{found[1]}x{found[2]}{found[3]} {number(found[4])}" if found else None


def own_date(group):
    week, year = int(group.leaves["week"]["raw"], 16), None
    for word in ("year", "model-year"):
        if group.has(word):
            year = group.value(word)
    yield "date", f"model {year}" if week == 255 else f"week {week} of {year}" if week else f"{year}"


def own_chromaticities(group):
    for color in ("Red", "Green", "Blue", "White"):
        yield "chromaticity", f"{color} {group.value(color.lower() + '-x'):.4f} {group.value(color.lower() + '-y'):.4f}"


def own_input(group):
    size = [group.value(word) for word in ("screen-width", "screen-height") if group.has(word)]
    if all(size) and size:
        yield "screen-size", f"{size[0]} x {size[1]}"
    power = [name for word, name in (("standby", "Standby"), ("suspend", "Suspend"), ("active-off", "Off"))
             if group.value(word)]
    yield "power", " ".join(power)
    if group.has("signal-level"):
        yield "signal-level", group.said("signal-level")
    for word in ("color-encodings", "color-type"):
        if group.has(word):
            yield "color-format", plain(group.said(word).replace(" and ", " ").removesuffix(" color"))
    for word in ("srgb-default", "continuous-frequency"):
        if group.has(word) and group.value(word):
            yield "display-flag", plain(group.leaves[word]["name"])


def own_modes(group):
    for name in group.on():
        if mode(name):
            yield "mode", mode(name)


def own_mode(kind):
    def take(group):
        if mode(group.text):
            yield kind, mode(group.text)
    return take


def axis(group, way):
    """Front porch, sync, back porch and polarity of an axis."""
    front, width = group.value(f"{way}-front-porch"), group.value(f"{way}-sync-width")
    polarity = f"{way}-sync-polarity"
    sign = {"positive": "P", "negative": "N"}.get(group.said(polarity), "-") if group.has(polarity) else "-"
    return f"{front} {width} {group.value(f'{way}-blanking') - front - width} {sign}"


def timing(group, clock):
    size = mode(group.text).split(" ")[0]
    return f"{size} {clock} h {axis(group, 'horizontal')} v {axis(group, 'vertical')}"


def own_descriptor(group):
    """A detailed timing of 18 bytes; vertical values are those of a field."""
    if not mode(group.text):
        return
    yield "timing", timing(group, round(group.value("pixel-clock") * 1000))
    sizes = [group.value(word) for word in ("image-width", "image-height") if group.has(word)]
    if any(sizes):
        yield "image-size", " x ".join(str(size or 0) for size in sizes)


def own_displayid_timing(group):
    yield "timing", timing(group, group.value("pixel-clock"))


def own_range(group):
    words = ("min-vertical-rate", "max-vertical-rate", "min-horizontal-rate", "max-horizontal-rate")
    yield "range", " ".join(str(group.value(word)) for word in words)
    if group.leaves["max-pixel-clock"].get("meaning") is None:
        yield "range-clock", str(int(group.value("max-pixel-clock")))


def own_codes(group):
    """A CVT code: a mode for each rate that is supported."""
    if mode(group.text):
        size = mode(group.text).split(" ")[0]
        for name in group.on():
            yield "mode", f"{size} {name.split(' ')[0]}"


def own_text(kind):
    def take(group):
        yield kind, group.said("text").rstrip() if group.has("text") else ""
    return take


def own_audio(group):
    name = next(group.said(word) for word in ("extended-format", "format") if group.has(word))
    yield "audio", AUDIO_NAMES.get(plain(name), plain(name))
    if group.has("channels"):
        yield "audio-channels", str(group.value("channels"))
    rates = [name[:-4] for name in group.on() if name.endswith(" kHz")]
    yield "audio-rates", " ".join(rates)
    sizes = [name[:-4] for name in group.on() if name.endswith(" bit")]
    if sizes:
        yield "audio-sizes", " ".join(sizes)
    if group.has("max-bit-rate"):
        yield "audio-bit-rate", str(group.value("max-bit-rate"))


AUDIO_NAMES = {"lpcm": "linearpcm", "matdolbytruehd": "matmlp", "mpeg2multichannel": "mpeg2multichannel",
               "mpeg1layers1and2": "mpeg1layers12", "mp3": "mpeg1layer3mp3", "dtshd": "dtshd"}


def own_names(kind, names=None):
    """Facts of flags that are set: their names, or those that a list has."""
    def take(group):
        for name in group.on():
            if names is None or name in names:
                yield kind, plain(name.split(" (")[0])
    return take


def own_speakers(group):
    for name in group.on():
        yield "speaker", name.split(" ")[0]


def own_hdmi(group):
    yield "hdmi-address", group.said("physical-address")
    for name in group.on():
        if name.startswith("DC_") or name in ("Supports_AI", "DVI_Dual"):
            yield "hdmi-flag", plain(name)
        if name.startswith("CNC"):
            yield "hdmi-content", re.search(r"\((\w+)\)", name)[1]
    if group.has("max-tmds-clock") and group.value("max-tmds-clock"):
        yield "hdmi-clock", number(group.value("max-tmds-clock"))
    for word in group.leaves:
        if word.endswith("-latency") and group.value(word) is not None:
            yield "latency", f"{plain(word)} {group.value(word)}"


def own_forum(group):
    if group.has("max-tmds-character-rate") and group.value("max-tmds-character-rate"):
        yield "forum-rate", number(group.value("max-tmds-character-rate"))
    if group.has("vrr-min") and group.value("vrr-min"):
        yield "forum-vrr", f"min {group.value('vrr-min')}"
    if group.has("vrr-max") and group.value("vrr-max"):
        yield "forum-vrr", f"max {group.value('vrr-max')}"
    for word in ("max-frl-rate", "dsc-max-frl-rate"):
        if group.has(word) and (found := re.match(r"(\d+) Gbps on (\d)", group.said(word))):
            yield "forum-link", f"{'DSC ' if 'dsc' in word else ''}{found[1]} {found[2]}"
    slices = group.said("dsc-max-slices") if group.has("dsc-max-slices") else ""
    if found := re.match(r"(\d+) slices? of up to (\d+)", slices):
        yield "forum-slices", f"{found[1]} {found[2]}"
    for name in group.on():
        if name in FORUM_FLAGS.values():
            yield "forum-flag", name


FORUM_FLAGS = {  # the peer's words and the standard's
    "SCDC Present": "SCDC_Present", "SCDC Read Request Capable": "RR_Capable",
    "Supports scrambling for <= 340 Mcsc": "LTE_340Mcsc_scramble",
    "Supports 10-bits/component Deep Color 4:2:0 Pixel Encoding": "DC_30bit_420",
    "Supports 12-bits/component Deep Color 4:2:0 Pixel Encoding": "DC_36bit_420",
    "Supports 16-bits/component Deep Color 4:2:0 Pixel Encoding": "DC_48bit_420",
    "Supports UHD VIC": "UHD_VIC", "Supports Auto Low-Latency Mode": "ALLM", "Supports Fast Vactive": "FVA",
    "Supports negative Mvrr values": "CNMVRR", "Supports Cable Status": "CABLE_STATUS",
    "Supports VESA DSC 1.2a compression": "DSC_1p2",
}


def own_video_capability(group):
    for word, kind in (("preferred-scan", "PT"), ("it-scan", "IT"), ("ce-scan", "CE")):
        yield "scan", f"{kind} {plain(group.said(word))}"
    for word, name in (("qy", "YCC"), ("qs", "RGB")):
        yield "quantization", f"{name} {group.said(word)}"


def own_luminances(group):
    yield from own_names("eotf", EOTFS)(group)
    for name in ("max", "max frame-average", "min"):
        leaf = group.leaves.get(f"{name.replace(' ', '-')}-luminance")
        if leaf is not None and ("value" in leaf or name == "min"):  # the peer prints "not indicated" as 0
            yield "luminance", f"{name} {leaf.get('value', 0):.3f}"


EOTFS = ("Hybrid Log-Gamma (ITU-R BT.2100)", "SMPTE ST 2084", "Traditional gamma, HDR luminance range",
         "Traditional gamma, SDR luminance range")


ENDS = ("min", "Minimum"), ("max", "Maximum")  # in ids and in facts


def own_rates(group):
    for word, end in ENDS:
        if group.has(f"{word}-refresh-rate"):
            yield "refresh-rate", f"{end} {group.value(f'{word}-refresh-rate')}"
    for word, end in (("max", "maximum"), ("min", "minimum"), ("second-max", "maximum"), ("second-min", "minimum")):
        if group.has(word + "-luminance"):
            yield "amd-luminance", f"{end} {group.value(word + '-luminance'):.3f}"


def own_hdr10plus(group):
    yield "hdr10plus", str(group.value("application-version"))


def own_dolby(group):
    yield "dolby-version", str(group.value("version"))
    if group.has("dm-version"):
        yield "dolby-management", str(group.value("dm-version"))
    for end in ("min", "max"):
        if found := re.search(r"PQ (\d+)", group.said(f"target-{end}-luminance")):
            yield "dolby-code", f"{end} {found[1]}"
        yield "dolby-luminance", f"{end} {group.value(f'target-{end}-luminance'):.3f}"
    for color in "RGB":
        word = {"R": "red", "G": "green", "B": "blue"}[color]
        yield "dolby-primary", f"{color} {group.value(word + '-x'):.5f} {group.value(word + '-y'):.5f}"


def own_map_420(group):
    for name in group.on():
        if name.startswith("Video code "):
            yield "map-420", mode(name.split(", ", 1)[1])


def own_section(group):
    yield "displayid-version", f"{group.value('version')}.{group.value('revision')}"
    yield "extension-count", str(group.value("extension-count"))
    for word in ("product-type", "use-case"):
        if group.has(word):
            text = plain(group.said(word))
            yield "product-type", "unknown" if text.startswith("unknown") else PRODUCT_TYPES.get(text, text)


PRODUCT_TYPES = {  # by the map's words
    "sameasthebasesection": "sameprimaryusecaseasthebasesection", "television": "televisiontvdisplay",
    "noneofthelistedgenericdisplay": "noneofthelistedprimaryusecasesgenericdisplay",
    "desktopproductivity": "desktopproductivitydisplay", "desktopgaming": "desktopgamingdisplay",
    "presentation": "presentationdisplay", "headmountedvirtualreality": "headmountedvirtualrealityvrdisplay",
    "headmountedaugmentedreality": "headmountedaugmentedrealityardisplay",
}


def own_parameters(group):
    sizes = [f"{group.value(word) or 0:.1f}" for word in ("image-width", "image-height")]
    yield "parameters", " x ".join(sizes)
    counts = [str(group.value(word) or 0) for word in ("horizontal-pixels", "vertical-pixels")]
    yield "parameters", "x".join(counts)
    for word in ("gamma", "gamma-eotf"):
        if group.has(word):
            yield "gamma", group.said(word)
    yield "native-depth", str(group.said("native-bit-depth").split(" ")[0])
    if group.has("overall-bit-depth"):
        yield "overall-depth", str(group.value("overall-bit-depth"))
    for word, leaf in group.leaves.items():
        if "luminance" in word and "cd/m2" in group.said(word):
            yield "luminance", f"{plain(leaf['name'])} {group.value(word):.6f}"
    for word in ("primary-1", "primary-2", "primary-3", "white-point"):
        if group.has(word + "-x"):
            name = plain(word.replace("primary", "primarycolor"))
            yield "chromaticity", f"{name} {group.value(word + '-x'):.4f} {group.value(word + '-y'):.4f}"
    for word in ("scan-orientation", "technology"):
        if group.has(word):
            yield "device", plain(group.said(word))


def own_product(group):
    yield "vendor-id", group.said("vendor").split()[0]  # without the company
    yield "model", str(group.value("product-code"))
    if group.value("serial-number"):
        yield "serial", str(group.value("serial-number"))
    week = group.value("week")
    yield "date", (f"week {week} of " if week else "") + str(group.value("year"))


def own_vendor(group):
    yield "vendor-id", group.said("id").split()[0]  # without the company


def own_tile(group):
    yield "tile", (f"{group.value('horizontal-tiles')} x {group.value('vertical-tiles')}"
                   f" at {group.value('column')}, {group.value('row')}"
                   f" size {group.value('tile-width')}x{group.value('tile-height')}")
    yield "tile-identity", (f"{group.said('vendor').split()[0]}"
                            f" {group.value('product-code')}"
                            f" {group.value('serial-number')}")


def own_interface(group):
    if group.has("type"):
        yield "interface", plain(group.said("type"))
        yield "links", str(group.value("links"))
        yield "interface-version", (f"{group.value('version')}"
                                    f".{group.value('revision')}")
    depths = collections.defaultdict(list)
    for name in group.on():
        if found := re.match(r"(\S+ 4:\d:\d), (\d+) bits per color", name):
            depths[found[1].replace("RGB 4:4:4", "RGB")].insert(0, found[2])
    for name, values in depths.items():
        yield "interface-depths", f"{name} {', '.join(values)}"


def own_coordinates(kind):
    def take(group):
        yield "chromaticity", f"{kind} {group.value('x'):.4f} {group.value('y'):.4f}"
    return take


def own_dynamic_range(group):
    for name in ("pixel clock", "vertical refresh rate"):
        for word, end in ENDS:
            yield "dynamic-range", f"{end} {name} {group.value(word + '-' + name.replace(' ', '-'))}"


def own_adaptive(group):
    yield "adaptive-sync", (f"{group.value('min-refresh-rate')} {group.value('max-refresh-rate')}"
                            f" {group.value('max-duration-increase'):.2f}"
                            f" {group.value('max-duration-decrease'):.2f}")


def own_clocks(group):
    for word, end in ENDS:
        yield "link-clock", f"{end} {group.value(f'{word}-pixel-clock')}"


def own_supported(group):
    for name in group.on():
        if mode(name):
            yield "listed-mode", mode(name)


GROUPS = {
    "base.identity": own_date,
    "base.chromaticity": own_chromaticities,
    "base.display": own_input,
    "base.established": own_modes,
    "base.established-3": own_modes,
    "base.standard": own_mode("mode"),
    "base.cvt-code": own_codes,
    "base.detailed": own_descriptor,
    "displayid.type1.timing": own_displayid_timing,
    "displayid.type2.timing": own_displayid_timing,
    "displayid.type7.timing": own_displayid_timing,
    "displayid.type10.timing": own_mode("formula-timing"),
    "base.range": own_range,
    "base.name": own_text("name"),
    "base.serial": own_text("serial-text"),
    "base.string": own_text("string"),
    "cta.video.descriptor": own_mode("vic"),
    "cta.audio.descriptor": own_audio,
    "cta.speakers": own_speakers,
    "cta.hdmi": own_hdmi,
    "cta.hdmi-forum": own_forum,
    "cta.colorimetry": own_names("colorimetry"),
    "cta.hdr-static": own_luminances,
    "cta.video-capability": own_video_capability,
    "cta.amd": own_rates,
    "cta.hdr10-plus": own_hdr10plus,
    "cta.dolby-vision": own_dolby,
    "cta.420-map": own_map_420,
    "displayid.section": own_section,
    "displayid.parameters": own_parameters,
    "displayid.parameters-2": own_parameters,
    "displayid.product": own_product,
    "displayid.vendor": own_vendor,
    "displayid.tiled": own_tile,
    "displayid.interface": own_interface,
    "displayid.interface-features": own_interface,
    "displayid.color.primary": own_coordinates("primary"),
    "displayid.color.white-point": own_coordinates("white"),
    "displayid.dynamic-range": own_dynamic_range,
    "displayid.adaptive-sync.descriptor": own_adaptive,
    "displayid.dmt-modes": own_supported,
    "di": own_clocks,
}

# Single fields: the id of the field, and what is made of it.
LEAVES = {
    "base.identity.manufacturer": ("maker", lambda leaf: leaf["value"]),
    "base.identity.product-code": ("model", lambda leaf: str(leaf["value"])),
    "base.identity.serial-number": ("serial", lambda leaf: str(leaf["value"]) if leaf.get("value") else None),
    "base.display.signal-interface": ("input", lambda leaf: leaf["meaning"]),
    "base.display.color-bit-depth":
        ("depth", lambda leaf: leaf["text"][:-5] if leaf["text"].endswith(" bits") else None),
    "base.display.gamma":
        ("gamma", lambda leaf: leaf["text"] if leaf["text"][0].isdigit() else None),
    "base.extension-count": ("extensions", lambda leaf: str(leaf["value"]) if leaf.get("value") else None),
    "cta.revision": ("cta-revision", lambda leaf: str(leaf["value"])),
    "cta.native-count": ("cta-native", lambda leaf: str(leaf["value"])),
    "cta.underscan": ("cta-flag", lambda leaf: "underscan" if leaf["value"] else None),
    "cta.basic-audio": ("cta-flag", lambda leaf: "audio" if leaf["value"] else None),
    "cta.ycbcr-444": ("cta-flag", lambda leaf: "444" if leaf["value"] else None),
    "cta.ycbcr-422": ("cta-flag", lambda leaf: "422" if leaf["value"] else None),
    "cta.hdmi.vic": ("hdmi-vic", lambda leaf: mode(leaf["meaning"])),
    "cta.microsoft.container-id": ("container", lambda leaf: leaf.get("text")),
    "displayid.container.id": ("container", lambda leaf: leaf.get("text")),
    "checksum": ("checksum", lambda leaf: leaf["text"][:4]),
    "displayid.section.checksum": ("checksum", lambda leaf: leaf["text"][:4]),
}


def no_facts(_group):
    return ()


def walk(fields, facts):
    for field in fields:
        block = field["offset"] // BLOCK_SIZE
        if field["kind"] != "group":
            kind, take = LEAVES.get(field["id"], (None, None))
            value = take(field) if kind else None
            if value is not None:
                facts.append(Fact(kind, value, block))
            continue
        try:
            facts.extend(Fact(kind, value, block) for kind, value in GROUPS.get(field["id"], no_facts)(Group(field))
                         if value or kind in TEXTS)
        except KeyError:  # a group that is cut lacks fields, and so do facts after them
            pass
        walk(field["fields"], facts)


def own_facts(program, path):
    run = subprocess.run([program, "explain", "--json", path], capture_output=True, check=True)
    facts = []
    walk(json.loads(run.stdout)["fields"], facts)
    return facts


# ---- The peer ----

HZ = r"(\d+)x(\d+)(i?) +([\d.]+) Hz"


def hz(width, height, interlaced, rate):
    return f"{width}x{height}{interlaced} {number(rate)}"


def constant(text):
    return lambda: text


def joined(form):
    return lambda *parts: form.format(*(part.strip() if part else "" for part in parts))


# The peer's names of bits that were reserved when it was written; empty for those that still are.
COLORIMETRY = {"Reserved MD0": "md0gamutboundarymetadataprofilep0", "Reserved MD1": "", "Reserved MD2": "",
               "Reserved MD3": "", "Default": "defaultrgb"}

LATENCIES = {"Video": "videolatency", "Audio": "audiolatency", "Interlaced video": "interlacedvideolatency",
             "Interlaced audio": "interlacedaudiolatency"}

# Heading (a part of it), line, kind, value of the line's groups. All rows that match give facts.
LINES = [(re.compile(heading), re.compile(line), kind, take) for heading, line, kind, take in (
    ("Vendor & Product", r"    Manufacturer: (\w+)", "maker", str),
    ("Vendor & Product", r"    Model: (\d+)", "model", str),
    ("Vendor & Product", r"    Serial Number: (\d+)", "serial", str),
    ("Vendor & Product", r"    Made in: (.*)", "date", str),
    ("Vendor & Product", r"    Model year: (\d+)", "date", joined("model {}")),
    ("Basic Display", r"    (Digital|Analog) display", "input", str.lower),
    ("Basic Display", r"    Bits per primary color channel: (.*)", "depth", str),
    ("Basic Display", r"    Maximum image size: (\d+ cm x \d+) cm", "screen-size",
     lambda text: text.replace(" cm", "")),
    ("Basic Display", r"    Gamma: ([\d.]+)", "gamma", str),
    ("Basic Display", r"    DPMS levels: (.*)", "power", str),
    ("Basic Display", r"    Input voltage level: (.*)|    Signal Level Standard: (.*)", "signal-level",
     lambda old, new: (old or new).strip()),
    ("Basic Display", r"    Supported color formats: (.*)", "color-format", plain),
    ("Basic Display", r"    (RGB|Non-RGB|Monochrome or grayscale|Undefined) (?:color )?display", "color-format",
     lambda name: plain(name)),
    ("Basic Display", r"    Default \(sRGB\) color space is primary", "display-flag",
     constant("srgbisthedefaultcolorspace")),
    ("Basic Display", r"    Display is continuous frequency", "display-flag", constant("continuousfrequency")),
    ("Color Characteristics$", r"    (\w+) *: ([\d.]+), ([\d.]+)", "chromaticity", joined("{} {} {}")),
    ("Established Timings I &", r"    .*: +" + HZ, "mode", hz),
    ("Standard Timings", r"    (?!GTF.*EDID 1.3 source).*: +" + HZ, "mode", hz),
    ("Detailed Timing", r"      .*: +" + HZ, "mode", hz),
    ("Detailed Timing", r"      Monitor ranges \(.*\): (\d+)-(\d+) Hz V, (\d+)-(\d+) kHz H", "range",
     joined("{} {} {} {}")),
    ("Detailed Timing", r"      Monitor ranges .* max dotclock (\d+) MHz", "range-clock", str),
    ("", r"    Display Product Name: '(.*)'", "name", lambda text: text.rstrip()),
    ("", r"    Display Product Serial Number: '(.*)'", "serial-text", lambda text: text.rstrip()),
    ("", r"    Alphanumeric Data String: '(.*)'", "string", lambda text: text.rstrip()),
    ("", r"    DTD.*[( ](\d+) mm x (\d+) mm", "image-size", joined("{} x {}")),
    ("", r"  Extension blocks: (\d+)", "extensions", str),
    ("", r" *Checksum: (0x\w\w)", "checksum", str),
    # CTA-861
    ("", r"  Revision: (\d+)", "cta-revision", str),
    ("", r"  Underscans ", "cta-flag", constant("underscan")),
    ("", r"  Basic audio support", "cta-flag", constant("audio")),
    ("", r"  Supports YCbCr 4:(\d):(\d)", "cta-flag", joined("4{}{}")),
    ("", r"  Native detailed modes: (\d+)", "cta-native", str),
    ("/(YCbCr 4:2:0 )?Video Data Block", r"    VIC.*: +" + HZ, "vic", hz),
    (r"\(HDMI\)", r"        HDMI VIC.*: +" + HZ, "hdmi-vic", hz),
    ("/Audio Data Block", r"    (\S.*?)(?: \(0x\w\w\))?:?$", "audio", plain),
    ("/Audio Data Block", r"      Max channels: (\d+)", "audio-channels", str),
    ("/Audio Data Block", r"      Supported sample rates \(kHz\): (.*)", "audio-rates", str),
    ("/Audio Data Block", r"      Supported sample sizes \(bits\): (.*)", "audio-sizes", str),
    ("/Audio Data Block", r"      Maximum bit rate: (\d+) kb/s", "audio-bit-rate", str),
    ("Speaker Allocation", r"    (\S+) - ", "speaker", str),
    (r"\(HDMI\)", r"    Source physical address: (\S+)", "hdmi-address", str),
    (r"\(HDMI\)", r"    (DC_\w+|Supports_AI|DVI_Dual)", "hdmi-flag", plain),
    (r"\(HDMI\)", r"    Maximum TMDS clock: (\d+) MHz", "hdmi-clock", number),
    (r"\(HDMI\)", r"      (Graphics|Photo|Cinema|Game)$", "hdmi-content", str.lower),
    (r"\(HDMI Forum\)", r"    Maximum TMDS Character Rate: (\d+) MHz", "forum-rate", number),
    (r"\(HDMI Forum\)", r"    VRR(min|max): (\d+) Hz", "forum-vrr", joined("{} {}")),
    (r"\(HDMI Forum\)", "    (" + "|".join(map(re.escape, FORUM_FLAGS)) + ")$", "forum-flag", FORUM_FLAGS.get),
    ("Colorimetry Data Block", r"    (\w.*)", "colorimetry",
     lambda text: COLORIMETRY.get(text, plain(text))),
    ("Video Capability", r"    (\w\w) scan behavior: (.*)", "scan",
     lambda name, text: name + " " + plain(text.replace("Supports both", "both"))),
    ("Video Capability", r"    (YCb|RGB)(?:Cr)? quantization: (\w+)", "quantization",
     lambda name, text: f"{name.replace('YCb', 'YCC')} {'yes' if text == 'Selectable' else 'no'}"),
    ("HDR Static", r"      (Trad.*|SMPTE.*|Hybrid.*)", "eotf", plain),
    ("HDR Static", r"    Desired content (.*) luminance: \d+ \(([\d.]+)", "luminance", joined("{} {}")),
    (r"\(HDMI\)", r"    ((?:Interlaced v|V|A|Interlaced a)\w+) latency: (\d+) ms", "latency",
     lambda name, value: f"{LATENCIES[name]} {value}"),
    (r"\(HDMI Forum\)", r"    (DSC )?Max Fixed Rate Link: .*?(\d+) Gbps (?:per lane )?on (\d) lanes$", "forum-link",
     lambda dsc, rate, lanes: f"{dsc or ''}{rate} {lanes}"),
    (r"\(HDMI Forum\)", r"    DSC Max Slices: up to (\d+) slices and up to \((\d+) MHz", "forum-slices",
     joined("{} {}")),
    (r"\(HDR10\+\)", r"    Application Version: (\d+)", "hdr10plus", str),
    (r"Video Data Block \(Dolby\)", r"    Version: (\d)", "dolby-version", str),
    (r"Video Data Block \(Dolby\)", r"    DM Version: (\d)", "dolby-management", str),
    (r"Video Data Block \(Dolby\)", r"    Target (M\w\w) PQ.*: (\d+)", "dolby-code",
     lambda end, code: f"{end.lower()} {code}"),
    (r"Video Data Block \(Dolby\)", r"    Target (M\w\w) (?:Luminance: |PQ.*\()([\d.]+) ?cd", "dolby-luminance",
     lambda end, value: f"{end.lower()} {float(value):.3f}"),
    (r"Video Data Block \(Dolby\)", r"    (?:Unique )?(\w)x, \wy: ([\d.]+), ([\d.]+)", "dolby-primary",
     lambda color, x, y: f"{color} {float(x):.5f} {float(y):.5f}"),
    ("4:2:0 Capability Map", r"    VIC.*: +" + HZ, "map-420", hz),
    (r"\(AMD\)", r"    (M\w+) luminance.*: \d+ \(([\d.]+)", "amd-luminance",
     lambda end, value: f"{end.lower()} {value}"),
    (r"\(AMD\)", r"    (Minimum|Maximum) Refresh Rate: (\d+) Hz", "refresh-rate", joined("{} {}")),
    # DisplayID
    ("^DisplayID", r"  Version: (\d+\.\d+)", "displayid-version", str),
    ("", r"  Extension Count: (\d+)", "extension-count", str),
    ("", r"  Display Product (?:Type|Primary Use Case): (.*)", "product-type",
     lambda text: "unknown" if text.startswith("Unknown") else plain(text)),
    ("/Display Parameters", r"    Image size: ([\d.]+) mm x ([\d.]+) mm", "parameters", joined("{} x {}")),
    ("/Display Parameters", r"    Display native pixel format: (\d+x\d+)", "parameters", str),
    ("/Display Parameters", r"    (?:Native )?Gamma(?: EOTF)?: ([\d.]+)", "gamma", str),
    ("/Display Parameters", r"    (?:Dynamic bpc native|Native Color Depth): (\d+)", "native-depth", str),
    ("/Display Parameters", r"    Dynamic bpc overall: (\d+)", "overall-depth", str),
    ("/Display Parameters", r"    Native (M\w+ Luminance.*): ([\d.]+) cd", "luminance",
     lambda name, value: f"{plain(name)} {float(value):.6f}"),
    ("/Display Parameters", r"      (Primary|White)[ #P]*(\d|oint): +\(([\d.]+), ([\d.]+)\)", "chromaticity",
     lambda name, index, x, y: f"{'whitepoint' if name == 'White' else 'primarycolor' + index}"
                               f" {float(x):.4f} {float(y):.4f}"),
    ("/Display Parameters", r"    (?:Scan Orientation|Display Device Technology): (.*)", "device", plain),
    ("Product Identification Data Block", r"    Product Code: (\d+)", "model", str),
    ("Product Identification Data Block", r"    Serial Number: (\d+)", "serial", str),
    ("Product Identification Data Block", r"    Year of Manufacture: (\d+)(?:, Week (\d+))?", "date",
     lambda year, week: (f"week {week} of " if week else "") + year),
    (r"Video Timing Modes Type [89]|Type 10", r"    \S.*: +" + HZ, "formula-timing", hz),
    ("VESA DMT Timings", r"    DMT.*: +" + HZ, "listed-mode", hz),
    ("Display Interface", r"    Interface Type: (.*)", "interface", plain),
    ("Display Interface", r"    Number of Links: (\d+)", "links", str),
    ("Display Interface", r"    Interface Standard Version: (.*)", "interface-version", str),
    ("Display Interface", r"    Supported bpc for (.*) encoding: (.*)", "interface-depths",
     lambda name, depths: f"{name} {re.sub(', Undefined .*', '', depths)}"),
    ("Color Characteristics Data", r"    (Primary|White)[ point]* #\d+: \(([\d.]+), ([\d.]+)\)", "chromaticity",
     lambda name, x, y: f"{name.lower()} {x} {y}"),
    ("Dynamic Video Timing", r"    (M\w+) (Pixel Clock|Vertical Refresh Rate): (\d+)", "dynamic-range",
     lambda end, name, value: f"{end} {name.lower()} {value}"),
    (r"ContainerID|.*\(Microsoft\)", r"    Container ID: (.*)", "container", str),
    ("Display Information|Digital Interface", r"    (M\w+) Pixel Clock Frequency Per Link: (\d+) MHz", "link-clock",
     joined("{} {}")),
)]
BLOCK = re.compile(r"Block (\d+), (.*):")
HEADING = re.compile(r"  (\S.*?):?$")
VENDOR = re.compile(r"  (?:Vendor-Specific|Product Identification).* Block \(0x(\w\w)\).*, OUI (\S+?):?$")
SIZE = re.compile(r"    DTD(?: +\d+)?: +(\d+x\d+i?) .* ([\d.]+) MHz")
PORCHES = re.compile(r" +[HV]front +(-?\d+) [HV]sync +(\d+) [HV]back +(-?\d+)(?: [HV]pol (\w))?")
TILE = (re.compile(r"    Num horizontal tiles: (\d+) Num vertical tiles: (\d+)"),
        re.compile(r"    Tile location: (\d+), (\d+)"),
        re.compile(r"    Tile resolution: (\d+x\d+)"), re.compile(r"    Tiled Display Manufacturer/Vendor ID: (\S+)"),
        re.compile(r"    Tiled Display Product ID Code: (\d+)"), re.compile(r"    Tiled Display Serial Number: (\d+)"))
ADAPTIVE = tuple(re.compile(rf"      {name}: ([\d.]+)") for name in
                 ("Max Duration Increase", "Max Duration Decrease", "Min Refresh Rate", "Max Refresh Rate"))


class Parts:
    """Lines that together are facts, in their order."""

    def __init__(self, patterns, facts):
        self.patterns, self.facts, self.found = patterns, facts, []

    def read(self, line):
        match = self.patterns[len(self.found)].match(line)
        if match:
            self.found.append(match.groups())
        if len(self.found) < len(self.patterns):
            return
        found, self.found = self.found, []
        yield from self.facts(found)


def tile_facts(found):
    (columns, rows), (column, row), (size,), (vendor,), (product,), (serial,) = found
    yield "tile", f"{columns} x {rows} at {column}, {row} size {size}"
    yield "tile-identity", f"{vendor} {product} {serial}"


def adaptive_facts(found):
    (increase,), (decrease,), (least,), (most,) = found
    yield "adaptive-sync", f"{least} {most} {increase} {decrease}"


def peer_facts(lines):
    """The facts, and how many indented lines gave none."""
    facts, block, name, heading, timing, unread = [], 0, "", "", [], 0
    parts = (Parts(TILE, tile_facts), Parts(ADAPTIVE, adaptive_facts))
    for line in lines:
        known = len(facts) + len(timing) + sum(len(reader.found) for reader in parts)
        if match := BLOCK.match(line):
            block, name, heading = int(match[1]), match[2], match[2]
            continue
        if match := HEADING.match(line):
            heading = f"{name}/{match[1]}"
        if match := VENDOR.match(line):
            facts.append(Fact("vendor-id", match[2], block))
        if match := SIZE.match(line):
            timing = [match[1], str(round(float(match[2]) * 1000))]
        elif (match := PORCHES.match(line)) and timing:
            timing += ["v" if "h" in timing else "h"] + [part or "-" for part in match.groups()]
            if "v" in timing:
                facts.append(Fact("timing", " ".join(timing), block))
                timing = []
        for reader in parts:
            facts += [Fact(kind, value, block) for kind, value in reader.read(line)]
        for where, pattern, kind, take in LINES:
            if where.search(heading) and (match := pattern.match(line)):
                facts.append(Fact(kind, take(*match.groups()), block))
        now = len(facts) + len(timing) + sum(len(reader.found) for reader in parts)
        unread += line.startswith("    ") and now == known
    return [fact for fact in facts if fact.value or fact.kind in TEXTS], unread


# ---- What is the same, and what a difference is called ----
RATE_TOLERANCE = 1.1  # names of modes round to whole hertz, or down: 72.8 is "72"
ROUNDING = {"chromaticity": 0.00011, "luminance": 0.0011, "amd-luminance": 0.0011, "dolby-luminance": 0.0011,
            "dolby-primary": 0.00011}


def same(kind, own, peer):
    if own == peer:
        return True
    own_words, peer_words = own.split(" "), peer.split(" ")
    if kind in ("mode", "vic", "hdmi-vic", "listed-mode", "formula-timing"):
        return own_words[0] == peer_words[0] and abs(float(own_words[1]) - float(peer_words[1])) <= RATE_TOLERANCE
    if kind in TEXTS:  # the map prints other characters than ASCII as dots
        return own.startswith(peer) and own[len(peer):].lstrip(" ")[:1] == "."
    if kind in ROUNDING and len(own_words) == len(peer_words):
        return all(first == second or is_near(first, second, ROUNDING[kind])
                   for first, second in zip(own_words, peer_words))
    return False


def is_near(first, second, tolerance):
    try:
        return abs(float(first) - float(second)) <= tolerance
    except ValueError:
        return False


def is_near_by_part(first, second, part):
    """Of two values after the same word."""
    (word, value), (other_word, other) = first.split(" "), second.split(" ")
    return word == other_word and is_near(float(value), float(other), part * float(value))


def alone(own, peer):
    """Facts of each side without a partner of the same block and kind."""
    rest = collections.defaultdict(list)
    for fact in peer:
        rest[fact.block, fact.kind].append(fact)
    own_alone = []
    for fact in own:
        others = rest[fact.block, fact.kind]
        partner = next((other for other in others if same(fact.kind, fact.value, other.value)), None)
        if partner is None:
            own_alone.append(fact)
        else:
            others.remove(partner)
    return own_alone, [fact for others in rest.values() for fact in others]


SIZE_WORD, H_BACK, H_POLARITY, V_FRONT, V_SYNC, V_BACK, V_POLARITY = 0, 5, 6, 8, 9, 10, 11  # words of a timing


def explain_timing(own, peer):
    """The kind of two timings that differ in little; None when they differ in more."""
    pairs = list(zip(own.split(" "), peer.split(" ")))
    differing = {i for i, (first, second) in enumerate(pairs) if first != second}
    missing = {i for i in (H_POLARITY, V_POLARITY) if "-" in pairs[i]}
    if not differing - missing:
        return "polarity"
    if pairs[SIZE_WORD][0].endswith("i") and differing <= {V_FRONT, V_SYNC, V_BACK}:
        return "interlaced-field"
    return "back-porch" if differing - missing <= {H_BACK, V_BACK} else None


def explain(is_own, fact, others, has_raw, is_first_section):
    """Name of a difference; "unexplained" for none.

    fact: alone on its side. others: those of the same kind and block that are alone on the other side. has_raw:
    whether the peer prints a descriptor of the block as bytes.
    """
    kind = fact.kind
    if kind == "timing":
        pairs = [(fact.value, other.value) if is_own else (other.value, fact.value) for other in others]
        names = [name for pair in pairs if (name := explain_timing(*pair))]
        if names:
            return names[0]
        if "0" in fact.value.split(" ")[SIZE_WORD].rstrip("i").split("x"):
            return "no-active"
        if is_own and has_raw:
            return "detailed-as-bytes"
    rules = {
        "image-size": is_own and ("aspect-as-size" if fact.value in ("160 x 90", "16 x 9", "40 x 30", "4 x 3")
                                  else "detailed-as-bytes" if has_raw else ""),
        "interface-depths": is_own and not others and "short-features",
        "formula-timing": is_own and not others and "type-x",
        "product-type": is_own and not is_first_section and "further-section",
        "vendor-id": any("-".join(reversed(other.value.split("-"))) == fact.value for other in others)
                     and "vendor-id-order",
        "native-depth": bool(others) and "native-depth",
        "hdr10plus": kind == "hdr10plus" and any(int(other.value) % 4 == int(fact.value) % 4 for other in others)
                     and "hdr10plus-byte",
        "dolby-luminance": kind == "dolby-luminance" and any(is_near_by_part(fact.value, other.value, 0.04)
                                                             for other in others) and "dolby-curve",
        "latency": bool(others) and "latency-formula",
        "amd-luminance": "amd-second" if is_own else "amd-not-valid",
        "color-format": bool(others) and "unknown-version",
        "refresh-rate": bool(others) and fact.value.startswith("Maximum") and "amd-rate",
        "maker": is_own and not fact.value.isalpha() and "no-letters",
        "tile-identity": any("." in text.value for text in (fact, *others)) and "no-letters",
        "mode": is_own and fact.value.startswith("256x") and "standard-of-256",
        "string": is_own and "panel-texts",
        "speaker": not is_own and fact.value == "LSd/RSd" and "speaker-of-hdmi",
        "audio-channels": not is_own and fact.value == "1" and "audio-without-channels",
    }
    return rules.get(kind) or "unexplained"
