"""What `zoredid explain --json` and `show --jsonl` say of an image, and what edid-decode says, as items to compare.

An Item is a group of the map in a block with its values by word, the last part of the fields' ids. Facts.tsv says which
line of edid-decode gives which word. Timings get words that no field has: size ("1920x1080i"), hz, and back porches.
"""
import collections
import os
import re

BLOCK_SIZE = 128
# Timings have one form in DisplayID, and formulas another; the parameters of both versions are one group.
ALIASES = {"displayid.type1.timing": "displayid.timing", "displayid.type2.timing": "displayid.timing",
           "displayid.type7.timing": "displayid.timing", "displayid.type9.timing": "displayid.formula",
           "displayid.type10.timing": "displayid.formula", "displayid.parameters-2": "displayid.parameters",
           "displayid.timing.dmt-id": "displayid.type8", "displayid.timing.vic": "displayid.type8",
           "displayid.interface-features": "displayid.interface", "displayid.dynamic-range": "displayid.range",
           "cta.hdmi-forum-sink": "cta.hdmi-forum"}
WORDS = {"secondary-timing-formula": "timing-support", "video-timing-support": "timing-support", "model-year": "year",
         "extended-format": "format"}
HEADERS = r"\.data-block\.|^base\.descriptor\.(?!text)"  # fields that edid-decode does not print
LIBRARY = {"library.detailed": "base.detailed", "library.audio": "cta.audio.descriptor", "library.name": "base.name",
           "library.serial": "base.identity"}  # answers of the library, and what has the same words
SPREAD = ("di",)  # groups under several headings of edid-decode
MODE_FLAGS = ("base.established.mode", "base.established-3.mode", "displayid.dmt-modes.mode", "cta.420-map.vic",
              "cta.hdmi.3d-mask.place")
MODE = re.compile(r"(?:.*?, )?(?:720\()?(\d+)\)? ?x ?(\d+)(i?)p? (?:@ )?(?:[\d.]+/)?([\d.]+) Hz")


SHORT = (("EXACT", r"MODE .*? ([\d.]+) MHz"), ("MODE", r"SIZE +([\d.]+) Hz"), ("SIZE", r"(\d+x\d+i?)"))  # in Facts.tsv


class Item:
    """A group in a block, and its values by word. begin: the offset in the image."""

    def __init__(self, block, group, values=None, begin=0):
        self.block, self.group, self.values, self.begin = block, group, values or {}, begin
        self.assumed = False  # the numbers of a mode are those of a formula that the image does not name
        self.choices = []  # other values of a mode
        self.tag = None  # of the data block around it
        self.fields = {}  # of the JSON, by word
        self.is_partly_read = False  # edid-decode has lines under its heading that no row takes

    def __str__(self):
        return f"block {self.block} {self.group}"


def plain(text):
    """A text without case and without what is set differently: "60.0 Hz" and "60.0hz" are the same."""
    return re.sub(r"\band\b|[^a-z0-9]+", "", str(text).lower())


def slug(text):
    return re.sub(r"[^a-z0-9]+", "-", text.lower()).strip("-")


def size_text(width, height, interlaced):
    return f"{width}x{height}{'i' if interlaced else ''}"


class Row:
    """A line of Facts.tsv."""

    def __init__(self, text):
        place, heading, line, *options = text.rstrip("\n").split("\t")
        self.begins = place.startswith("+")
        self.group, words = place.lstrip("+").split("/")
        self.words = words.split(",") if words else []
        self.heading = re.compile(heading)
        for name, expression in SHORT:
            line = line.replace(name, expression)
        self.options = options[0].split(" ") if options else []
        self.line = re.compile((" {4}" if "i4" in self.options else " *") + r"(?=\S)(?:" + line + ")")
        self.translations = dict(option.split(":") for option in self.options if ":" in option)
        self.means = [int(option[1:]) for option in self.options if option.startswith("=")]
        self.hidden = [int(option[1:]) for option in self.options if option.startswith("-")]

    def values(self, match):
        """(word, value) of a line that matches."""
        groups = match.groups()
        if not self.words:
            return
        if not groups:
            yield self.words[0], str(self.means[0] if self.means else 1)
        elif "list" in self.options:
            for name in re.split(r"[ ,]+", re.sub(", Undefined .*", "", groups[0]).strip()):
                yield self.words[0].replace("*", slug(name)), "1"
        elif "*" in self.words[0]:
            name = self.translations.get(plain(groups[0]), slug(groups[0]))
            for word, value in zip(self.words, groups[1:] or ("1",)):
                yield word.replace("*", name), value
        else:
            if len(self.words) == 1:
                groups = (" ".join(group for group in groups if group),)
            for word, value in zip(self.words, groups):
                if value is not None:
                    is_mega = "M" in self.options and word.endswith("clock")
                    yield word, f"{float(value) * 1000:.0f}" if is_mega else value


def read_rows():
    with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), "Facts.tsv"), encoding="utf-8") as file:
        return [Row(line) for line in file if line.strip() and not line.startswith("#")]


ROWS = read_rows()
BY_WORD = collections.defaultdict(list)
for _row in ROWS:
    for _word in _row.words:
        BY_WORD[_row.group, _word].append(_row)
PATTERNS = [(row.group, re.compile(re.escape(word).replace(r"\*", ".*") + "$"), row)
            for row in ROWS for word in row.words if "*" in word]


def rows_of(group, word):
    """The rows that give a word."""
    group = LIBRARY.get(group, group)
    return BY_WORD.get((group, word)) or [row for name, pattern, row in PATTERNS
                                          if name == group and pattern.match(word)]


def is_compared(item, word):
    """Whether a wrong value of a field must be found. What edid-decode prints in some cases only need not be."""
    rows = rows_of(item.group, WORDS.get(word, word))
    if all("*" in row.words[0] and row.line.groups == 1 for row in rows) and item.fields[word]["kind"] != "flag":
        rows = []
    if item.fields[word]["kind"] in ("reserved", "unknown", "bytes"):
        return False
    if item.group == "base.cvt-code":
        return word in ("vertical-active", "preferred-rate") or "-hz-" in word
    return any("?" not in row.options for row in rows) or item.group in MODE_FLAGS + ("end",) or re.match(
        "(horizontal|vertical)-(active|blanking)$|interlaced|horizontal-pixels|refresh-rate", word) is not None


# ---- This library ----


def own_value(leaf, rows):
    """What edid-decode prints for a field by its rows, as text; None where it prints nothing."""
    value, said = leaf.get("value"), leaf.get("meaning", leaf.get("text"))
    means = [mean for row in rows for mean in row.means]
    with_values = [row for row in rows if row.line.groups and not (row.line.groups == 1 and "*" in row.words[0])]
    if value in means:
        return str(value)
    if not with_values:
        return "1" if value and not means and leaf["kind"] == "flag" else None
    row = with_values[0]
    if value in row.hidden or row.means:
        return None
    if "text" in row.options:
        return leaf.get("text", "").split(" ")[0]
    if "v" in row.options or leaf["kind"] == "number" and not re.match(r"\w\.\w\.\w\.\w$", str(said)):
        return None if value is None else str(value)
    return said


def add_timing(values, raw):
    """The words of a timing that edid-decode has, and no field: size and back porches."""
    fields = 2 if raw.get("interlaced") else 1
    try:
        height = raw["vertical-active"] * (fields if "image-width" in raw else 1)  # descriptors count lines of a field
        values["size"] = size_text(raw["horizontal-active"], height, fields == 2)
        for way in ("horizontal", "vertical"):
            values[f"{way}-back-porch"] = str(raw[f"{way}-blanking"] - raw[f"{way}-front-porch"]
                                              - raw[f"{way}-sync-width"] - 2 * raw.get(f"{way}-border", 0))
    except KeyError:  # cut, or given by a formula
        pass


def own_group(field, block):
    """The item of a group, with all its leaves."""
    group = ALIASES.get(field["id"], field["id"])
    item = Item(block, group, begin=field["offset"])
    leaves = [leaf for leaf in field["fields"] if leaf["kind"] != "group" and not re.search(HEADERS, leaf["id"])]
    for text in (field.get("text", ""), *(leaf.get("meaning", "") for leaf in leaves)):
        if rows_of(group, "size") and (found := MODE.match(text)):
            item.values.update(size=f"{found[1]}x{found[2]}{found[3]}", hz=found[4])
            break
    if BY_WORD.get((group, "text")):
        item.values["text"] = ""
    raw = {}
    for leaf in leaves:
        word = leaf["id"].rpartition(".")[2]
        raw[word] = leaf.get("value")
        item.fields[word] = leaf
        word = WORDS.get(word, word)
        rows = rows_of(group, word)
        value = own_value(leaf, rows) if rows else None
        if value is not None:
            item.values[word] = value
        if found := re.search(r"PQ (\d+)", leaf.get("text", "")):
            item.values[word + "-pq"] = found[1]
    if "horizontal-active" in raw:
        add_timing(item.values, raw)
    if "horizontal-blanking" in raw:
        item.values.pop("hz", None)
    if "refresh-rate" in raw and "hz" in item.values:
        item.values["hz"] = str(raw["refresh-rate"])
    if "horizontal-pixels" in raw and "size" in item.values:
        item.values["size"] = f"{raw['horizontal-pixels']}x{item.values['size'].partition('x')[2]}"
    if raw.get("pixel-clock-precision"):  # edid-decode gives what is left
        item.values["pixel-clock-precision"] = str(raw["max-pixel-clock"] - raw["pixel-clock-precision"])
    return item


def own_codes(field, block):
    """A CVT code: a mode for each rate."""
    fields = {leaf["id"].rpartition(".")[2]: leaf for leaf in field["fields"]}
    for word, leaf in fields.items():
        found, size = re.match(r"(\d+)-hz-(standard|reduced)", word), MODE.match(field["text"])
        if found and size:
            item = Item(block, "base.cvt-code", begin=field["offset"])
            item.fields = fields
            reduced_too = word == "60-hz-standard" and fields["60-hz-reduced"]["value"]  # then that one is preferred
            if leaf["value"]:
                item.values = {"size": f"{size[1]}x{fields['vertical-active']['value']}"}
                item.values.update({"reduced": "1"} if found[2] == "reduced" else {})
                if fields["preferred-rate"]["meaning"] == f"{found[1]} Hz" and not reduced_too:
                    item.values["preferred"] = "1"
            yield item


def own_items(fields, tag=None):
    """Items of the JSON of `explain`. tag: of the data block around them."""
    for field in fields:
        block = field["offset"] // BLOCK_SIZE
        if field["kind"] == "group":
            tags = [leaf["value"] for leaf in field["fields"] if leaf["id"].endswith((".tag", ".extended-tag"))]
            inner = tags[-1] if tags else tag  # an extended tag follows the tag
            for item in own_codes(field, block) if field["id"] == "base.cvt-code" else [own_group(field, block)]:
                item.tag = inner
                yield item
            yield from own_items(field["fields"], inner)
            continue
        word, item = field["id"].rpartition(".")[2], Item(block, field["id"], begin=field["offset"])
        item.fields, item.tag = {word: field}, tag
        found = MODE.match(field["name"] if field["kind"] == "flag" else field.get("meaning", ""))
        if field["kind"] == "checksum":
            item.group, item.values = "end", {"checksum": field["text"][:4]}
        elif field["id"] in ("displayid.timing.vic", "displayid.timing.dmt-id"):
            item.group, item.values = "displayid.code", {word: str(field["value"])}
        elif field["id"] == "cta.hdmi.vic":
            item.values = {"vic": str(field["value"])}
        elif field["id"] not in MODE_FLAGS or not found:
            continue
        if found and field["value"] and item.group != "displayid.code":
            item.values.update(size=f"{found[1]}x{found[2]}{found[3]}", hz=found[4])
        yield item


def mode_items(modes):
    """Items of the modes of `show`: what has one place has one item, with 1000/1001 of the rate as another choice."""
    places = {}
    for i, mode in enumerate(modes):
        group = "mode:" + ALIASES.get(mode["id"], mode["id"])
        place = (mode["block"], group, mode["offset"] if re.match("mode:(cta|displayid.type8)", group) else -i)
        item = places.setdefault(place, Item(mode["block"], group, begin=mode["offset"]))
        size = {"size": size_text(mode.get("width"), mode.get("height"), mode.get("interlaced"))}
        item.choices += [size] if "rate" not in mode else [
            {**size, "rate": f"{mode['rate']['dividend'] / mode['rate']['divisor'] * part:.6f}",
             "clock": f"{mode['pixel_clock_hz'] * part / 1e6:.6f}"}
            for part in (1, 1000 / 1001)[:1 + ("rate_1000_1001" in mode)]]
        item.values, item.assumed = item.choices[0], mode["numbers"] in ("assumed", "none")
    return list(places.values())


def library_items(facts):
    """Items of the library's answers in `show`."""
    if facts.get("name"):
        yield Item(0, "library.name", {"text": facts["name"]})
    if facts.get("serial_number"):
        yield Item(0, "library.serial", {"serial-number": str(facts["serial_number"])})
    for mode in facts.get("detailed", []):
        item = Item(mode["block"], "library.detailed", {
            "size": size_text(mode["width"], mode["height"], mode["interlaced"]),
            "pixel-clock": str(mode["pixel_clock_hz"] / 1e6)})
        for way in ("horizontal", "vertical"):
            words = mode[way]
            item.values.update({
                f"{way}-front-porch": str(words["front_porch"]), f"{way}-sync-width": str(words["sync"]),
                f"{way}-sync-polarity": "positive" if words["positive"] else "negative"})
        yield item
    for block in facts.get("extensions", []):
        for audio in filter(lambda audio: audio["format_code"], block.get("audio", [])):
            yield Item(block["block"], "library.audio", {
                **({"channels": str(audio["channels"])} if "channels" in audio else {}),
                **{slug(f"{rate / 1000:g}") + "-khz": "1" for rate in audio.get("sampling_rates_hz", [])}})


def library_peers(item, items):
    """What edid-decode says in place of an answer of the library."""
    groups = (LIBRARY[item.group], "displayid.timing" if item.group == "library.detailed" else "")
    for other in items:
        if other.block == item.block and other.group in groups:
            values = {word: value for word, value in other.values.items() if word in item.values}
            if other.group == "displayid.timing":
                values["pixel-clock"] = str(int(values["pixel-clock"]) / 1000)
            yield Item(other.block, item.group, values)


# ---- edid-decode ----
BLOCK = re.compile(r"Block (\d+), (.*):")


def peer_items(lines):
    """Items of edid-decode's lines, ((block, heading), line) of lines that no row takes, and (block, tag) of data
    blocks that it does not know.
    """
    items, unread, opaque = [], [], set()
    block, name, heading, part, current = 0, "", "", "", {}
    for line in lines:
        is_heading = re.match(r"  \S.*(:|, OUI \S+)$", line)
        if match := BLOCK.match(line):
            block, name, heading, part, current = int(match[1]), match[2], "", "", {}
            continue
        if is_heading:
            heading, part, current = line.strip(), "", {key: current[key] for key in SPREAD if key in current}
            opaque.update((block, int(tag, 16)) for tag in re.findall(r"Unknown .*0x(\w\w)", line))
        elif re.match(r"    +\S.*:$", line):
            part = line.strip()
        where = f"{name}/{heading}/{part}"
        matches = [(row, match) for row in ROWS if not is_heading or "h" in row.options
                   if (match := row.line.match(line)) and row.heading.search(where)]
        for row, match in matches:
            if row.group != "none":
                if row.begins or row.group not in current:
                    current[row.group] = Item(block, row.group)
                    current[row.group].heading = block, heading
                    items.append(current[row.group])
                current[row.group].values.update(row.values(match))
        if not matches and re.match(r" +\S.*[^:]$", line):
            unread.append(((block, heading), f"{where}: {line.strip()}"))
    headings = {place for place, _ in unread}
    for item in items:
        item.is_partly_read = item.heading in headings
    return items, unread, opaque
