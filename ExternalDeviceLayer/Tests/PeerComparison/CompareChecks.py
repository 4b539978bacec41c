#!/usr/bin/env python3
"""Sets the failures of `edid-decode --check` and the findings of `zoredid check` side by side, by kind.

    compare-checks [--zoredid PROGRAM] [--peer PROGRAM] [--kinds FILE] FOLDER...

A kind is a line of FILE, with tabs between: an expression for edid-decode's line of failure, "both", "theirs" or "ours",
and our rule's id, or the reason: why we do not say it ("theirs"), or why edid-decode does not ("ours", where the
expression is for the rule's id). A line that begins with # is a comment.

Prints for each kind how often each side says it. The exit status is 1 when a failure, or a rule of weight, has no
kind, or when an image that edid-decode fails has no error or warning here and a failure that is not "theirs".
"""
import argparse
import collections
import glob
import json
import os
import re
import sys

from Compare import ROOT, default_command, peer_text, run

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
    answer = json.loads(run(program, "check", "--json", path, accepted=(0, 1)))
    return [(finding.get("id", finding.get("field")), finding["severity"])
            for check in answer["checks"] for finding in check["findings"]]


def find(kinds, text, *sides):
    return next((kind for kind in kinds if kind.side in sides and kind.pattern.search(text)), None)


def main():
    parser = argparse.ArgumentParser(description=__doc__.partition("\n")[0])
    parser.add_argument("--zoredid", default=default_command(), help="the built command")
    parser.add_argument("--peer", default="edid-decode", help="the edid-decode to compare with")
    parser.add_argument("--kinds", default=KINDS, help="the kinds, by default %(default)s")
    parser.add_argument("folders", nargs="+", metavar="FOLDER")
    options = parser.parse_args()
    kinds = read_kinds(options.kinds)
    theirs, ours, counts, wrong = collections.Counter(), collections.Counter(), collections.Counter(), []
    for path in sorted(path for folder in options.folders for path in glob.glob(os.path.join(folder, "*.bin"))):
        name, lines = os.path.basename(path), failures(peer_text(options.peer, "--check", path))
        found = findings(options.zoredid, path)
        has_weight = any(severity in WEIGHTY for _, severity in found)
        counts["images"] += 1
        counts["edid-decode fails"] += bool(lines)
        counts["errors or warnings here"] += has_weight
        for line in lines:
            kind = find(kinds, line, "both", "theirs")
            theirs[kind] += 1
            if kind is None:
                wrong.append(f"{name}: no kind: {line}")
            elif kind.side == "both" and kind.reason not in (rule for rule, _ in found):
                counts["kinds of both that only edid-decode says of an image"] += 1
                if not has_weight:
                    wrong.append(f"{name}: nothing of weight here, and edid-decode: {line}")
        known = {kind.reason for kind in kinds if kind.side == "both"}
        for rule in {rule for rule, severity in found if severity in WEIGHTY}:
            kind = None if rule in known else find(kinds, rule, "ours")
            ours[rule if rule in known else kind] += 1
            if rule not in known and kind is None:
                wrong.append(f"{name}: no kind: our rule {rule}")
    print(*wrong, sep="\n")
    for name, count in counts.items():
        print(f"{count:7} {name}")
    for kind in kinds:
        count = theirs[kind] if kind.side != "ours" else 0
        own = ours[kind.reason] if kind.side == "both" else ours[kind]
        print(f"{count:7} {own:7} {kind.side}: {kind.pattern.pattern}: {kind.reason}")
    sys.exit(1 if wrong or not counts["images"] else 0)


if __name__ == "__main__":
    main()
