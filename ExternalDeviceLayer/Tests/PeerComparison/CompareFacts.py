#!/usr/bin/env python3
"""Compares what this library says of images with what edid-decode says.

    compare-with-edid-decode [--zoredid PROGRAM] [--peer PROGRAM] [--damaged N] [--selftest] [--unknown]
                             FOLDER...

Takes every .bin of the folders. Differences that Excuses.py knows are counted by name; any other is printed, and the
exit status is 1. --selftest falsifies each field of the JSON in turn and expects a difference, also in the images of
Images.txt, which have what few monitors have; exit status 1 where there is none. --unknown lists the lines of
edid-decode that nothing is compared with. A fact of this library that edid-decode may say in words unknown here is
counted as such, as it contradicts nothing.
"""
import argparse
import collections
import glob
import json
import os
import re
import subprocess
import sys
import tempfile

import Damaged
import Excuses
import PeerFacts
from PeerFacts import Item, library_items, library_peers, plain

ROOT = os.path.abspath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../.."))
MADE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "Images.txt")  # images with what few monitors have
MOST_BYTES = 2000000  # of output: several hundred images' worth
SAID_OTHERWISE = "said otherwise", "not compared"
Difference = collections.namedtuple("Difference", "own peer word")  # items, None where there is no partner


# ---- Pairs of items ----


def number(text):
    """The number at the beginning of a text, and its decimals; None for no number."""
    if re.fullmatch(r"0x[0-9a-f]+", str(text)):
        return float(int(text, 16)), 0
    found = re.match(r"-?\d+(?:\.(\d+))?(?:e-?\d+)?(?![\d.]|x\d|-\w)", str(text))
    return (float(found[0]), len(found[1] or "")) if found else None


def is_same(own, peer, rows, word):
    said = plain(peer)
    for row in rows:
        said = row.translations.get(said, said)
    if plain(own) == said or word == "text" and plain(own).startswith(said) and len(peer) <= len(own):
        return True  # edid-decode ends a text at the first character that is not printable
    if said.startswith("unknown") and plain(own) in ("reserved", "unknown"):
        return True
    ours, theirs = number(own), number(peer)
    if ours is None or theirs is None or said != plain(peer):
        return False
    if word == "hz":
        return abs(ours[0] - theirs[0]) <= 1.1  # names of modes round, or cut: 72.8 is 72
    if word in ("rate", "clock"):
        return abs(ours[0] - theirs[0]) <= 2e-5 * ours[0]  # edid-decode rounds the clocks of GTF
    rounding = [0.51 * 10 ** -int(option[1:]) for row in rows for option in row.options if option.startswith("~")]
    return abs(ours[0] - theirs[0]) <= max([1.1 * 10 ** -theirs[1] if theirs[1] else 1e-6, *rounding])


def same_word(values, peer, word):
    first, second, rows = values.get(word), peer.values.get(word), PeerFacts.rows_of(peer.group, word)
    if first is None:
        zero = number(second)
        return any(row.hidden for row in rows) and zero is not None and zero[0] == 0
    if second is None:
        return any("?" in row.options for row in rows)
    return is_same(first, second, rows, word)


def differing(own, peer):
    """Words that differ; of the choices of a mode, with the one that fits best."""
    return min(([word for word in sorted(values.keys() | peer.values.keys()) if not same_word(values, peer, word)]
                for values in own.choices or [own.values]), key=len)


def known_words(own, peer):
    """Words that differ of those that the peer has."""
    return [word for word in differing(own, peer) if word in peer.values or word == "size"]


def pairs(own, peer):
    """Items of a group and a block, each with its partner, or None for what has none."""
    rest, left = list(peer), []
    for item in own:
        partner = next((other for other in rest if not differing(item, other)), None)
        if partner is None:
            left.append(item)
        else:
            rest.remove(partner)
    same_count = len(left) == len(rest)
    for item in left:
        best = min(rest, key=lambda other: len(differing(item, other)), default=None)
        if best and (same_count or len(differing(item, best)) <= len(item.values) / 2
                     or item.assumed and "size" not in differing(item, best)):
            rest.remove(best)
            yield item, best
        else:
            yield item, None
    yield from ((None, item) for item in rest)


def differences(own, peer):
    groups = collections.defaultdict(lambda: ([], []))
    for side, items in enumerate((own, peer)):
        for item in items:
            if item.values:
                groups[item.block, item.group][side].append(item)
    for both in groups.values():
        for first, second in pairs(*both):
            for word in differing(first, second) if first and second else [""]:
                yield Difference(first, second, word)


# ---- An image ----


class Image:
    """An image with the answers of both programs."""

    def __init__(self, path, options):
        self.name = os.path.basename(path)
        with open(path, "rb") as file:
            self.bytes = file.read()
        self.lines = peer_text(options.peer, path).rstrip("\n").split("\n")
        self.is_read = self.lines[-1].startswith("Checksum: ")  # it refuses some images, and ends within others
        self.items, self.unread, self.opaque = PeerFacts.peer_items(self.lines)
        self.map = run(options.zoredid, "explain", "--json", path)
        self.facts = run(options.zoredid, "show", "--jsonl", path)

    def own(self):
        return list(PeerFacts.own_items(self.map["fields"])) + PeerFacts.mode_items(self.facts.get("modes", []))

    def judge(self):
        """(name, who is right, difference) of each difference; "unexplained" for those without an excuse."""
        for difference in differences(self.own(), self.items):
            found = Excuses.excuse_of(*difference, self) or self.unread_by_peer(*difference)
            yield *(found or ("unexplained", "")), difference
        for item in library_items(self.facts):
            peers = list(library_peers(item, self.items))
            if peers and all(known_words(item, peer) for peer in peers):
                best = Difference(item, min(peers, key=lambda peer: (
                    "size" in known_words(item, peer), len(known_words(item, peer)))), "")
                yield *(Excuses.excuse_of(*best, self) or ("unexplained", "")), best

    def unread_by_peer(self, own, peer, word):
        """Name of a difference where edid-decode has lines that are unknown here, and so may say the same."""
        if own and peer:
            has_words = peer.is_partly_read and word not in peer.values and not Excuses.is_silent(own.group, word)
        else:
            has_words = own and (own.block in (block for (block, _), _ in self.unread)
                                 or (own.block, own.tag) in self.opaque)
        return SAID_OTHERWISE if has_words else None


def default_command():
    """The command that was built last."""
    built = glob.glob(f"{ROOT}/build/*/ExternalDeviceLayer/Utilities/ZorEdidTool/zoredid")
    return max(built, key=os.path.getmtime, default="zoredid")


def run(*command, accepted=(0,)):
    """What the command prints, as JSON; None when it refuses the image."""
    answer = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)
    if answer.returncode < 0:
        sys.exit(f"{' '.join(command)}: ended by signal {-answer.returncode}")
    return json.loads(answer.stdout) if answer.returncode in accepted else None


def peer_text(program, *arguments):
    """Output of edid-decode, cut where it does not come to an end: that of 2022 does not on some damaged images."""
    with subprocess.Popen([program, "--skip-hex-dump", "--skip-sha", *arguments], stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL) as process:
        text = process.stdout.read(MOST_BYTES)
        if len(text) == MOST_BYTES:
            process.kill()
    return text.decode("latin-1")


def read_images(names):
    """(name, bytes) of the .bin files of folders, and of the images of a text file (Images.txt)."""
    for name in names:
        if os.path.isdir(name):
            for path in sorted(glob.glob(os.path.join(name, "*.bin"))):
                with open(path, "rb") as file:
                    yield os.path.basename(path), file.read()
            continue
        with open(name, encoding="utf-8") as file:
            for image, text in (line.split("\t") for line in file if not line.startswith("#")):
                yield image + ".bin", bytes.fromhex(text)


def single_images(names):
    """(name, bytes) of the images. A file with several EDIDs becomes one for each, as zoredid reads it."""
    for name, image in read_images(names):
        begins = [0] + [i for i in range(PeerFacts.BLOCK_SIZE, len(image), PeerFacts.BLOCK_SIZE)
                        if image.startswith(Excuses.BASE_HEADER, i)]
        for begin, end in zip(begins, begins[1:] + [len(image)]):
            yield name if begin == 0 else f"{begin // PeerFacts.BLOCK_SIZE}-{name}", image[begin:end]


def image_paths(options, folder):
    """What the options name, or damaged copies of it, as files in a folder."""
    images = single_images(folders_of(options))
    for name, image in Damaged.damaged(images, options.damaged) if options.damaged else images:
        path = os.path.join(folder, name)
        with open(path, "wb") as file:
            file.write(image)
        yield path


def describe(difference):
    own, peer, word = difference
    if own and peer and not word:
        return f"{own} {own.values} here, {peer.values} in edid-decode"
    if own and peer:
        return f"{own} {word}: {own.values.get(word)} here, {peer.values.get(word)} in edid-decode"
    return f"{own or peer} {(own or peer).values}: {'here' if own else 'edid-decode'} alone"


# ---- Falsified values ----


def falsify(leaf):
    """Makes a field of the JSON wrong in all that it says."""
    value = leaf.get("value")
    if leaf.get("kind") == "flag":
        leaf["value"] = 1 - value
    for key in ("value", "meaning", "text", "width", "pixel_clock_hz", "name", "serial_number", "sync", "channels"):
        part = leaf.get(key)
        if isinstance(part, str):
            wrong = re.sub(r"\d+", lambda found: str(int(found[0]) * 2 + 100), part)
            leaf[key] = wrong if wrong != part else "false " + part
        elif isinstance(part, (int, float)) and leaf.get("kind") != "flag" and key != "name":
            leaf[key] = part * 2 + 100


def falsifiable(image):
    """(kind of fact, object of the JSON) of what is compared; and of what is excused, under the excuse's name."""
    for item in PeerFacts.own_items(image.map["fields"]):
        for word, leaf in item.fields.items():
            if PeerFacts.is_compared(item, word):
                yield f"{item.group}/{word}", leaf
    for name, right, (own, _, word) in list(image.judge()):
        if own and right in ("here", "both", "edid-decode") and word in own.values and word in own.fields:
            yield f"{name}: {own.group}/{word}", own.fields[word]
    for mode in image.facts.get("modes", []):
        if "rate" in mode:
            yield "mode:" + mode["id"], mode
    yield "library", image.facts
    for mode in image.facts.get("detailed", []):
        yield "library.detailed", mode
    for block in image.facts.get("extensions", []):
        yield from (("library.audio", audio) for audio in block.get("audio", []))


def selftest(images):
    """Falsifies each kind of fact in one image after the other until that makes a difference. The kinds that do, and
    the others with an image."""
    found, missed = set(), {}
    for image in images:
        before = sum(name == "unexplained" for name, *_ in image.judge())
        for kind, leaf in falsifiable(image):
            if kind in found:
                continue
            good = dict(leaf)
            falsify(leaf)
            if sum(name == "unexplained" for name, *_ in image.judge()) > before:
                found.add(kind)
            else:
                missed.setdefault(kind, image.name)
            leaf.clear()
            leaf.update(good)
    return found, {kind: name for kind, name in missed.items() if kind not in found}


def make_parser(text):
    """What both comparisons are asked with."""
    parser = argparse.ArgumentParser(description=text.partition("\n")[0])
    parser.add_argument("--zoredid", default=default_command(), help="the built command")
    parser.add_argument("--peer", default="edid-decode", help="the edid-decode to compare with")
    parser.add_argument("--damaged", type=int, metavar="N", help="take N damaged copies of the images, always the same")
    parser.add_argument("--selftest", action="store_true", help="make what is compared wrong, and expect a difference")
    parser.add_argument("folders", nargs="*", metavar="FOLDER", help="a folder of .bin images, or a file of images")
    return parser


def folders_of(options):
    """What to read: the self-test needs images with what few monitors have."""
    return options.folders + [MADE] * options.selftest


def main():
    parser = make_parser(__doc__)
    parser.add_argument("--unknown", action="store_true", help="list the lines that nothing is compared with")
    options = parser.parse_args()
    counts, unread, right, images = collections.Counter(), collections.Counter(), {}, []
    with tempfile.TemporaryDirectory() as folder:
        read = [Image(path, options) for path in image_paths(options, folder)]
    counts["images"] = len(read)
    for image in read:
        if image.map is None or image.facts is None or not image.is_read:
            counts["images that one side does not read to the end"] += 1
            continue
        images.append(image)
        counts["facts of edid-decode"] += sum(len(item.values) for item in image.items)
        unread.update(re.sub(r"\d+", "N", line) for _, line in image.unread)
        for name, side, difference in image.judge():
            counts["difference: " + name] += 1
            right[name] = side
            if name == "unexplained":
                print(f"{image.name}: {describe(difference)}")
    counts["unknown lines"] = sum(unread.values())
    for name, count in counts.items():
        side = right.get(name.partition(": ")[2])
        print(f"{count:7} {name}" + (f" (right: {side})" if side else ""))
    if options.unknown:
        for line, count in unread.most_common():
            print(f"{count:7} unknown line: {line}")
    failed = counts["difference: unexplained"] > 0 or not images
    if options.selftest:
        found, missed = selftest(images)
        print(f"{len(found):7} kinds of facts that fail when falsified")
        for kind, name in sorted(missed.items()):
            print(f"falsified and not found: {kind} in {name}")
        failed = failed or bool(missed)
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    try:
        main()
    except OSError as error:
        sys.exit(f"compare-with-edid-decode: {error}")
