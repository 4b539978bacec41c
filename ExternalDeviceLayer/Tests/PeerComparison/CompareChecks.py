#!/usr/bin/env python3
"""Sets the failures of `edid-decode --check` and the findings of `zoredid check` side by side, by kind.

    compare-checks [--zoredid PROGRAM] [--peer PROGRAM] [--kinds FILE] FOLDER...

A kind is a line of FILE, with tabs between: an expression for edid-decode's line of failure; "both", "theirs" or
"ours"; and our rules' ids with commas between, or the reason: why we do not say it ("theirs"), or why edid-decode does
not ("ours", where the expression is for the rule's id). A line that begins with # is a comment.

Prints for each kind how often edid-decode says it, and in how many images we do. The exit status is 1 when a failure,
or a rule of weight, has no kind, or when an image that edid-decode fails has no error or warning here and a failure
that is not "theirs". Of a file with several EDIDs each is an image of its own.
"""
import collections
import os
import re
import sys
import tempfile

from Compare import image_paths, make_parser, peer_text, run

KINDS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "ChecksKinds.tsv")
WEIGHTY = ("error", "warning")
Kind = collections.namedtuple("Kind", "pattern side reason")


def read_kinds(path):
    with open(path, encoding="utf-8") as file:
        rows = [line.rstrip("\n").split("\t") for line in file if line.strip() and not line.startswith("#")]
    wrong = [row for row in rows if len(row) != 3 or row[1] not in ("both", "theirs", "ours")]
    if wrong:
        sys.exit(f"compare-checks: {path}: no kind: {wrong[0]}")
    return [Kind(re.compile(pattern), side, reason) for pattern, side, reason in rows]


def failures(text):
    """The lines under "Failures:", those that continue one left out."""
    _, _, rest = text.partition("\nFailures:\n")
    return [line.strip() for line in rest.split("\n") if re.match(r"  \S", line)]


def findings(program, path):
    """(id, severity) of what this library finds."""
    answer = run(program, "check", "--json", path, accepted=(0, 1)) or {"checks": []}
    return {(finding["rule"], finding["severity"])
            for check in answer["checks"] for finding in check["findings"]}


def find(kinds, text, *sides):
    return next((kind for kind in kinds if kind.side in sides and kind.pattern.search(text)), None)


def judged(options):
    """(name, edid-decode's failures, our findings) of each EDID."""
    with tempfile.TemporaryDirectory() as folder:
        for path in image_paths(options.folders, folder):
            yield (os.path.basename(path), failures(peer_text(options.peer, "--check", path)),
                   findings(options.zoredid, path))


def main():
    parser = make_parser(__doc__)
    parser.add_argument("--kinds", default=KINDS, help="the kinds, by default %(default)s")
    options = parser.parse_args()
    kinds = read_kinds(options.kinds)
    known = {rule for kind in kinds if kind.side == "both" for rule in kind.reason.split(",")}
    theirs, ours, counts, wrong = collections.Counter(), collections.Counter(), collections.Counter(), []
    for name, lines, found in judged(options):
        rules = {rule for rule, _ in found}
        weighty = {rule for rule, severity in found if severity in WEIGHTY}
        counts["images"] += 1
        counts["images that edid-decode fails"] += bool(lines)
        counts["images with an error or a warning here"] += bool(weighty)
        for line in lines:
            kind = find(kinds, line, "both", "theirs")
            theirs[kind] += 1
            if kind is None:
                wrong.append(f"{name}: no kind: {line}")
            elif kind.side == "both" and not rules & set(kind.reason.split(",")):
                counts["failures of kinds of both that we do not say of that image"] += 1
                if not weighty:
                    wrong.append(f"{name}: nothing of weight here, and edid-decode: {line}")
        ours.update(kind for kind in kinds if rules & set(kind.reason.split(",")) and kind.side == "both")
        ours.update({find(kinds, rule, "ours") for rule in rules})
        wrong += [f"{name}: no kind: our rule {rule}" for rule in sorted(weighty - known)
                  if not find(kinds, rule, "ours")]
    for text in wrong:
        print(text)
    for name, count in counts.items():
        print(f"{count:7} {name}")
    for kind in kinds:
        print(f"{theirs[kind]:7} {ours[kind]:7} {kind.side}: {kind.pattern.pattern}: {kind.reason}")
    sys.exit(1 if wrong or not counts["images"] else 0)


if __name__ == "__main__":
    main()
