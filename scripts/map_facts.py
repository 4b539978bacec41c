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


class Group:
    """A group of the JSON: its own leaves by name, of several the last one."""

    def __init__(self, field):
        self.name, self.text = field["name"], field.get("text", "")
        self.fields = field["fields"]
        self.leaves = {leaf["name"]: leaf for leaf in self.fields if leaf["kind"] != "group"}

    def value(self, name):
        """None where a meaning such as "not given" takes the number's place."""
        return self.leaves[name].get("value")

    def said(self, name):
        return self.leaves[name].get("text", "")

    def has(self, name):
        return name in self.leaves

    def on(self):
        """Names of the flags that are set."""
        return [leaf["name"] for leaf in self.fields if leaf["kind"] == "flag" and leaf["value"] == 1]


def mode(text):
    """(width, height, rate) of "1920 x 1080i @ 60 Hz", or "1920x1080i 59.94/60 Hz 16:9"; the last rate counts."""
    found = re.match(r"(?:720\()?(\d+)\)? ?x ?(\d+)(i?)p? (?:@ )?(?:[\d.]+/)?([\d.]+) Hz", text)
    return f"{found[1]}x{found[2]}{found[3]} {number(found[4])}" if found else None


def own_date(group):
    week, year = int(group.leaves["Week of manufacture"]["raw"], 16), None
    for name in group.leaves:
        if "year" in name.lower():
            year = group.value(name)
    yield "date", f"model {year}" if week == 255 else f"week {week} of {year}" if week else f"{year}"


def own_chromaticities(group):
    for color in ("Red", "Green", "Blue", "White"):
        yield "chromaticity", f"{color} {group.value(color + ' x'):.4f} {group.value(color + ' y'):.4f}"


def own_input(group):
    size = [group.value(name) for name in ("Horizontal screen size", "Vertical screen size") if group.has(name)]
    if all(size) and size:
        yield "screen-size", f"{size[0]} x {size[1]}"
    power = [name.split(" ")[0].replace("Active", "Off") for name in
             ("Standby mode", "Suspend mode", "Active off, very low power") if group.value(name)]
    yield "power", " ".join(power)
    if group.has("Signal level standard"):
        yield "signal-level", group.said("Signal level standard")
    for name in ("Supported color encoding formats", "Display color type"):
        if group.has(name):
            yield "color-format", plain(group.said(name).replace(" and ", " ").removesuffix(" color"))
    for name in ("sRGB is the default color space", "Continuous frequency"):
        if group.has(name) and group.value(name):
            yield "display-flag", plain(name)


def own_modes(group):
    for name in group.on():
        if mode(name):
            yield "mode", mode(name)


def own_mode(kind):
    def take(group):
        if mode(group.text):
            yield kind, mode(group.text)
    return take


def axis(group, name, blank, sync):
    """Front porch, sync, back porch and polarity of an axis."""
    front, width = group.value(f"{name} front porch"), group.value(f"{name} {sync}")
    polarity = f"{name} sync polarity"
    sign = {"positive": "P", "negative": "N"}.get(group.said(polarity), "-") if group.has(polarity) else "-"
    return f"{front} {width} {group.value(f'{name} {blank}') - front - width} {sign}"


def timing(group, clock, blank, sync):
    size = mode(group.text).split(" ")[0]
    return f"{size} {clock} h {axis(group, 'Horizontal', blank, sync)} v {axis(group, 'Vertical', blank, sync)}"


def own_descriptor(group):
    """A detailed timing of 18 bytes; vertical values are those of a field."""
    if not mode(group.text):
        return
    yield "timing", timing(group, round(group.value("Pixel clock") * 1000), "blanking", "sync pulse width")
    sizes = [group.value(f"{name} addressable video image size")
             for name in ("Horizontal", "Vertical") if group.has(f"{name} addressable video image size")]
    if any(sizes):
        yield "image-size", " x ".join(str(size or 0) for size in sizes)


def own_displayid_timing(group):
    yield "timing", timing(group, group.value("Pixel clock"), "blank", "sync width")


def own_range(group):
    names = ("Minimum vertical rate", "Maximum vertical rate", "Minimum horizontal rate", "Maximum horizontal rate")
    yield "range", " ".join(str(group.value(name)) for name in names)
    if group.leaves["Maximum pixel clock"].get("meaning") is None:
        yield "range-clock", str(int(group.value("Maximum pixel clock")))


def own_codes(group):
    """A CVT code: a mode for each rate that is supported."""
    if mode(group.text):
        size = mode(group.text).split(" ")[0]
        for name in group.on():
            yield "mode", f"{size} {name.split(' ')[0]}"


def own_text(kind):
    def take(group):
        yield kind, group.said("Text").rstrip() if group.has("Text") else ""
    return take


def own_audio(group):
    name = next(group.said(name) for name in ("Audio format extended code", "Audio format code") if group.has(name))
    yield "audio", AUDIO_NAMES.get(plain(name), plain(name))
    if group.has("Maximum number of channels"):
        yield "audio-channels", str(group.value("Maximum number of channels"))
    rates = [name[:-4] for name in group.on() if name.endswith(" kHz")]
    yield "audio-rates", " ".join(rates)
    sizes = [name[:-4] for name in group.on() if name.endswith(" bit")]
    if sizes:
        yield "audio-sizes", " ".join(sizes)
    if group.has("Maximum bit rate"):
        yield "audio-bit-rate", str(group.value("Maximum bit rate"))


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
    yield "hdmi-address", group.said("Source physical address")
    for name in group.on():
        if name.startswith("DC_") or name in ("Supports_AI", "DVI_Dual"):
            yield "hdmi-flag", plain(name)
        if name.startswith("CNC"):
            yield "hdmi-content", re.search(r"\((\w+)\)", name)[1]
    if group.has("Max_TMDS_Clock") and group.value("Max_TMDS_Clock"):
        yield "hdmi-clock", number(group.value("Max_TMDS_Clock"))
    for name in group.leaves:
        if name.endswith("_Latency") and group.value(name) is not None:
            yield "latency", f"{plain(name)} {group.value(name)}"


def own_forum(group):
    if group.has("Max_TMDS_Character_Rate") and group.value("Max_TMDS_Character_Rate"):
        yield "forum-rate", number(group.value("Max_TMDS_Character_Rate"))
    if group.has("VRR_MIN") and group.value("VRR_MIN"):
        yield "forum-vrr", f"min {group.value('VRR_MIN')}"
    if group.has("VRR_MAX") and group.value("VRR_MAX"):
        yield "forum-vrr", f"max {group.value('VRR_MAX')}"
    for name in ("Max_FRL_Rate", "DSC_Max_FRL_Rate"):
        if group.has(name) and (found := re.match(r"(\d+) Gbps on (\d)", group.said(name))):
            yield "forum-link", f"{'DSC ' if 'DSC' in name else ''}{found[1]} {found[2]}"
    slices = group.said("DSC_MaxSlices") if group.has("DSC_MaxSlices") else ""
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
    for name, kind in (("Scan of the preferred video format", "PT"), ("Scan of IT video formats", "IT"),
                       ("Scan of CE video formats", "CE")):
        yield "scan", f"{kind} {plain(group.said(name))}"
    for name in ("YCC", "RGB"):
        yield "quantization", f"{name} {group.said(f'Selectable {name} quantization range')}"


def own_luminances(group):
    yield from own_names("eotf", EOTFS)(group)
    for name in ("max", "max frame-average", "min"):
        leaf = group.leaves.get(f"Desired content {name} luminance")
        if leaf is not None and ("value" in leaf or name == "min"):  # the peer prints "not indicated" as 0
            yield "luminance", f"{name} {leaf.get('value', 0):.3f}"


EOTFS = ("Hybrid Log-Gamma (ITU-R BT.2100)", "SMPTE ST 2084", "Traditional gamma, HDR luminance range",
         "Traditional gamma, SDR luminance range")


def own_rates(group):
    for end in ("Minimum", "Maximum"):
        if group.has(f"{end} refresh rate"):
            yield "refresh-rate", f"{end} {group.value(f'{end} refresh rate')}"
    for name in ("Maximum luminance", "Minimum luminance", "Second maximum luminance", "Second minimum luminance"):
        if group.has(name):
            yield "amd-luminance", f"{name.split(' ')[-2].lower()} {group.value(name):.3f}"


def own_hdr10plus(group):
    yield "hdr10plus", str(group.value("Application version"))


def own_dolby(group):
    yield "dolby-version", str(group.value("VSVDB version"))
    if group.has("Display management version"):
        yield "dolby-management", str(group.value("Display management version"))
    for name in ("minimum", "maximum"):
        text = group.said(f"Target {name} luminance")
        if found := re.search(r"PQ (\d+)", text):
            yield "dolby-code", f"{name[:3]} {found[1]}"
        yield "dolby-luminance", f"{name[:3]} {group.value(f'Target {name} luminance'):.3f}"
    for color in "RGB":
        name = {"R": "Red", "G": "Green", "B": "Blue"}[color]
        yield "dolby-primary", f"{color} {group.value(name + ' x'):.5f} {group.value(name + ' y'):.5f}"


def own_map_420(group):
    for name in group.on():
        if name.startswith("Video code "):
            yield "map-420", mode(name.split(", ", 1)[1])


def own_section(group):
    yield "displayid-version", f"{group.value('Structure version')}.{group.value('Structure revision')}"
    yield "extension-count", str(group.value("Extension count"))
    for name in ("Display product type identifier", "Display product primary use case"):
        if group.has(name):
            text = plain(group.said(name))
            yield "product-type", "unknown" if text.startswith("unknown") else PRODUCT_TYPES.get(text, text)


PRODUCT_TYPES = {  # by the map's words
    "sameasthebasesection": "sameprimaryusecaseasthebasesection", "television": "televisiontvdisplay",
    "noneofthelistedgenericdisplay": "noneofthelistedprimaryusecasesgenericdisplay",
    "desktopproductivity": "desktopproductivitydisplay", "desktopgaming": "desktopgamingdisplay",
    "presentation": "presentationdisplay", "headmountedvirtualreality": "headmountedvirtualrealityvrdisplay",
    "headmountedaugmentedreality": "headmountedaugmentedrealityardisplay",
}


def own_parameters(group):
    sizes = [f"{group.value(f'{name} image size') or 0:.1f}" for name in ("Horizontal", "Vertical")]
    yield "parameters", " x ".join(sizes)
    counts = [str(group.value(f"{name} pixel count") or 0) for name in ("Horizontal", "Vertical")]
    yield "parameters", "x".join(counts)
    for name in ("Transfer characteristic gamma", "Gamma EOTF, native"):
        if group.has(name):
            yield "gamma", group.said(name)
    yield "native-depth", str(group.said("Color bit depth, native").split(" ")[0])
    if group.has("Color bit depth, overall"):
        yield "overall-depth", str(group.value("Color bit depth, overall"))
    for name in group.leaves:
        if "luminance" in name and "cd/m2" in group.said(name):
            yield "luminance", f"{plain(name)} {group.value(name):.6f}"
    for name in ("Primary color 1", "Primary color 2", "Primary color 3", "White point"):
        if group.has(name + " x"):
            yield "chromaticity", f"{plain(name)} {group.value(name + ' x'):.4f} {group.value(name + ' y'):.4f}"
    for name in ("Scan orientation", "Display device technology"):
        if group.has(name):
            yield "device", plain(group.said(name))


def own_product(group):
    yield "vendor-id", group.said("Manufacturer/vendor ID").split()[0]  # without the company
    yield "model", str(group.value("Product ID code"))
    if group.value("Serial number"):
        yield "serial", str(group.value("Serial number"))
    week = group.value("Week of manufacture")
    yield "date", (f"week {week} of " if week else "") + str(group.value("Year of manufacture or model year"))


def own_vendor(group):
    yield "vendor-id", group.said("Manufacturer/vendor ID").split()[0]  # without the company


def own_tile(group):
    yield "tile", (f"{group.value('Number of horizontal tiles')} x {group.value('Number of vertical tiles')}"
                   f" at {group.value('Horizontal tile location')}, {group.value('Vertical tile location')}"
                   f" size {group.value('Horizontal tile size')}x{group.value('Vertical tile size')}")
    yield "tile-identity", (f"{group.said('Tiled display manufacturer/vendor ID').split()[0]}"
                            f" {group.value('Tiled display product ID code')}"
                            f" {group.value('Tiled display serial number')}")


def own_interface(group):
    if group.has("Interface type"):
        yield "interface", plain(group.said("Interface type"))
        yield "links", str(group.value("Number of links"))
        yield "interface-version", (f"{group.value('Interface standard version')}"
                                    f".{group.value('Interface standard revision')}")
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
        for end in ("Minimum", "Maximum"):
            yield "dynamic-range", f"{end} {name} {group.value(f'{end} {name}')}"


def own_adaptive(group):
    yield "adaptive-sync", (f"{group.value('Minimum refresh rate')} {group.value('Maximum refresh rate')}"
                            f" {group.value('Maximum single frame duration increase'):.2f}"
                            f" {group.value('Maximum single frame duration decrease'):.2f}")


def own_clocks(group):
    for end in ("Minimum", "Maximum"):
        yield "link-clock", f"{end} {group.value(f'{end} pixel clock per link')}"


def own_supported(group):
    for name in group.on():
        if mode(name):
            yield "listed-mode", mode(name)


GROUPS = {
    "Vendor and product identification": own_date,
    "Display x, y chromaticity coordinates": own_chromaticities,
    "Basic display parameters and features": own_input,
    "Established timings": own_modes,
    "Established timings III": own_modes,
    "Standard timing": own_mode("mode"),
    "CVT 3 byte timing code": own_codes,
    "Detailed timing": own_descriptor,
    "Type I timing": own_displayid_timing,
    "Type II timing": own_displayid_timing,
    "Type VII timing": own_displayid_timing,
    "Type X timing": own_mode("formula-timing"),
    "Display range limits": own_range,
    "Display product name": own_text("name"),
    "Display product serial number": own_text("serial-text"),
    "Alphanumeric data string": own_text("string"),
    "Short video descriptor": own_mode("vic"),
    "Short audio descriptor": own_audio,
    "Speaker allocation data block": own_speakers,
    "HDMI vendor-specific data block": own_hdmi,
    "HDMI Forum vendor-specific data block": own_forum,
    "Colorimetry data block": own_names("colorimetry"),
    "HDR static metadata data block": own_luminances,
    "Video capability data block": own_video_capability,
    "AMD vendor-specific data block": own_rates,
    "HDR10+ vendor-specific video data block": own_hdr10plus,
    "Dolby Vision vendor-specific video data block": own_dolby,
    "YCbCr 4:2:0 capability map data block": own_map_420,
    "DisplayID section": own_section,
    "Display parameters data block": own_parameters,
    "Product identification data block": own_product,
    "Vendor-specific data block": own_vendor,
    "Tiled display topology data block": own_tile,
    "Display interface data block": own_interface,
    "Display interface features data block": own_interface,
    "Primary": own_coordinates("primary"),
    "White point": own_coordinates("white"),
    "Dynamic video timing range limits data block": own_dynamic_range,
    "Adaptive sync descriptor": own_adaptive,
    "VESA timing standard data block": own_supported,
    "Display information extension block": own_clocks,
}

# Single fields: the name of the field, and what is made of it.
LEAVES = {
    "ID manufacturer name": ("maker", lambda leaf: leaf["value"]),
    "ID product code": ("model", lambda leaf: str(leaf["value"])),
    "ID serial number": ("serial", lambda leaf: str(leaf["value"]) if leaf.get("value") else None),
    "Video signal interface": ("input", lambda leaf: leaf["meaning"]),
    "Color bit depth": ("depth", lambda leaf: leaf["text"][:-5] if leaf["text"].endswith(" bits") else None),
    "Display transfer characteristic (gamma)":
        ("gamma", lambda leaf: leaf["text"] if leaf["text"][0].isdigit() else None),
    "Extension block count": ("extensions", lambda leaf: str(leaf["value"]) if leaf.get("value") else None),
    "Revision number": ("cta-revision", lambda leaf: str(leaf["value"]) if leaf["offset"] >= BLOCK_SIZE else None),
    "Total number of native formats in the detailed timing descriptors":
        ("cta-native", lambda leaf: str(leaf["value"])),
    "Underscan": ("cta-flag", lambda leaf: "underscan" if leaf["value"] else None),
    "Basic audio": ("cta-flag", lambda leaf: "audio" if leaf["value"] else None),
    "YCbCr 4:4:4": ("cta-flag", lambda leaf: "444" if leaf["value"] else None),
    "YCbCr 4:2:2": ("cta-flag", lambda leaf: "422" if leaf["value"] else None),
    "HDMI_VIC": ("hdmi-vic", lambda leaf: mode(leaf["meaning"])),
    "Container ID": ("container", lambda leaf: leaf.get("text")),
    "Checksum": ("checksum", lambda leaf: leaf["text"][:4]),
    "Section checksum": ("checksum", lambda leaf: leaf["text"][:4]),
}


def no_facts(_group):
    return ()


def walk(fields, facts):
    for field in fields:
        block = field["offset"] // BLOCK_SIZE
        if field["kind"] != "group":
            kind, take = LEAVES.get(field["name"], (None, None))
            value = take(field) if kind else None
            if value is not None:
                facts.append(Fact(kind, value, block))
            continue
        try:
            facts.extend(Fact(kind, value, block) for kind, value in GROUPS.get(field["name"], no_facts)(Group(field))
                         if value or kind in TEXTS)
        except KeyError:  # a group that is cut lacks fields, and so do facts behind them
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
    """Of two values behind the same word."""
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
