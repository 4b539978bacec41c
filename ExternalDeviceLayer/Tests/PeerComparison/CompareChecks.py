#!/usr/bin/env python3
"""Sets the failures of `edid-decode --check` and the findings of `zoredid check` side by side, by kind.

    compare-checks [--zoredid PROGRAM] [--peer PROGRAM] [--kinds FILE] [--damaged N] [--selftest] FOLDER...

A kind is a line of FILE, with tabs between: an expression for what is found, a side, and further columns. edid-decode's
failures read "Block's name: failure", and ours "rule.id@field". The first kind that fits counts. The sides are
  both       the third column has our findings with blanks between, each an expression: one of them must be there
  theirs     edid-decode alone says it, and the third column says why we do not
  ours       we alone say it, and the third column says why edid-decode does not
  instead    a failure of a kind of both follows from a cause, which one of our findings in the third column names, in
             the same block; the fourth column says why it is not a finding of its own
  elsewhere  the same, of a cause in any block
A line that begins with # is a comment.

Fails when a failure of a kind of both has none of our findings, when edid-decode fails an image with an unknown line
and we find neither error nor warning, and when a rule of one has no kind. Further unknown lines are counted and listed.
--selftest takes away each of our findings in a kind of both, and each other kind, where the images or those of
Images.txt have them, and fails where nothing complains. Of a file with several EDIDs each is an image of its own.
"""
import collections
import os
import re
import sys
import tempfile

from CompareFacts import image_paths, make_parser, peer_text, run

KINDS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "ChecksKinds.tsv")
WEIGHTY = ("error", "warning")
CAUSES = ("instead", "elsewhere")
SIDES = ("both", "theirs", "ours", *CAUSES)
Failure = collections.namedtuple("Failure", "block text")  # block None: of the whole EDID
Finding = collections.namedtuple("Finding", "block text is_serious")
Image = collections.namedtuple("Image", "name failures findings")
Verdict = collections.namedtuple("Verdict", "pairs unknown wrong")  # (kind, theirs, ours); lines; lines that fail


class Kind:
    """A line of the file of kinds."""

    def __init__(self, line):
        pattern, self.side, *texts = line.rstrip("\n").split("\t")
        if self.side not in SIDES or len(texts) != (2 if self.side in CAUSES else 1):
            raise ValueError(line)
        self.pattern, self.reason = re.compile(pattern), " because ".join(texts)
        rules = texts[0].split() if self.side in ("both", *CAUSES) else ()
        self.ours = [re.compile(rule.replace("@", "@.*") if "@" in rule else f"{rule}@", re.I) for rule in rules]

    def pairs(self, findings, block=None):
        """Our findings of the kind, of a block if one is given."""
        return [finding for finding in findings if block in (None, finding.block)
                and any(rule.match(finding.text) for rule in self.ours)]


def read_kinds(path):
    with open(path, encoding="utf-8") as file:
        lines = [line for line in file if line.strip() and not line.startswith("#")]
    try:
        return [Kind(line) for line in lines]
    except ValueError as error:
        sys.exit(f"compare-checks: {path}: no kind: {error}")


def failures(text):
    """The lines under "Failures:", each after the name of its block and with the lines that continue it."""
    block, name, lines = None, "", []
    for line in text.partition("\nFailures:\n")[2].split("\n"):
        if heading := re.match(r"(?:Block (\d+), )?(\S.*):$", line):
            block, name = heading[1] and int(heading[1]), heading[2]
        elif re.match(r"  \S", line):
            lines.append(Failure(block, f"{name}: {line.strip()}"))
        elif line.startswith("    "):
            lines[-1] = lines[-1]._replace(text=f"{lines[-1].text} {line.strip()}")
    return lines


def findings(program, path):
    answer = run(program, "check", "--json", path, accepted=(0, 1)) or {"checks": []}
    return sorted({Finding(finding.get("block", 0), f"{finding['rule']}@{finding.get('field', '')}",
                           finding["severity"] in WEIGHTY)
                   for check in answer["checks"] for finding in check["findings"]})


def read(options):
    with tempfile.TemporaryDirectory() as folder:
        return [Image(os.path.basename(path), failures(peer_text(options.peer, "--check", path)),
                      findings(options.zoredid, path)) for path in image_paths(options, folder)]


def find(kinds, text, *sides):
    return next((kind for kind in kinds if kind.side in sides and kind.pattern.search(text)), None)


def find_pair(kinds, finding):
    return next((kind for kind in kinds if kind.pairs([finding])), None)


def explain(failure, image, kinds):
    """The kind of a failure, None for an unknown one, and our findings of it: none where we do not say it."""
    kind = find(kinds, failure.text, "both", "theirs")
    pairs = kind.pairs(image.findings) if kind else []
    if kind is None or kind.side == "theirs" or pairs:
        return kind, pairs
    for other in kinds:
        if other.side in CAUSES and other.pattern.search(failure.text) and (
                causes := other.pairs(image.findings, failure.block if other.side == "instead" else None)):
            return other, causes
    return kind, []


def judge(image, kinds):
    verdict, said = Verdict([], [], []), set()
    serious = [finding for finding in image.findings if finding.is_serious]
    for failure in image.failures:
        kind, pairs = explain(failure, image, kinds)
        said.update(pairs)
        verdict.pairs.append((kind, 1, bool(pairs)))
        if kind is None:
            verdict.unknown.append(failure.text)
            verdict.wrong.extend([] if serious else [f"no error or warning here: {failure.text}"])
        elif kind.side == "both" and not pairs:
            verdict.wrong.append(f"not said here: {failure.text}")
    for finding in set(serious) - said:
        kind = find(kinds, finding.text, "ours") or find_pair(kinds, finding)
        verdict.pairs.append((kind, 0, 1))
        verdict.wrong.extend([] if kind else [f"no kind: our {finding.text}"])
    return verdict


def complains(image, left_findings, kinds, left_kinds):
    """Whether more is wrong of an image without some of our findings or of the kinds."""
    before, after = judge(image, kinds), judge(image._replace(findings=left_findings), left_kinds)
    return len(after.wrong + after.unknown) > len(before.wrong + before.unknown)


def selftest(images, kinds):
    """(what is taken away, whether an image complains then) of what occurs in the images."""
    explained = [(image, explain(failure, image, kinds)[0]) for image in images for failure in image.failures]
    for kind in kinds:
        others = [other for other in kinds if other is not kind]
        having = [image for image, other in explained if other is kind]
        if kind.side == "ours":
            having = [image for image in images for finding in image.findings if finding.is_serious
                      and find(kinds, finding.text, "ours") is kind and not find_pair(others, finding)]
        if kind.side != "both" and having:
            yield f"{kind.side}: {kind.pattern.pattern}", any(
                complains(image, image.findings, kinds, others) for image in having)
        for rule in kind.ours if kind.side == "both" else ():
            tried = [(image, left) for image in having if (left := [
                finding for finding in image.findings if not rule.match(finding.text)]) != image.findings]
            if tried:
                yield f"{kind.pattern.pattern}: {rule.pattern}", any(
                    complains(image, left, kinds, kinds) for image, left in tried)


def main():
    parser = make_parser(__doc__)
    parser.add_argument("--kinds", default=KINDS, help="the kinds, by default %(default)s")
    options = parser.parse_args()
    kinds, images = read_kinds(options.kinds), read(options)
    counts, unknown, failed = collections.Counter(), collections.Counter(), not images
    silent = 0  # images with a failure that has neither our finding nor a reason
    for image in images:
        verdict = judge(image, kinds)
        said = {(kind, *(any(pair[side] for pair in verdict.pairs if pair[0] is kind) for side in (1, 2)))
                for kind, *_ in verdict.pairs}
        counts.update(said)
        unknown.update(re.sub(r"(0x)?\d+", "N", line) for line in verdict.unknown)
        for line in verdict.wrong:
            print(f"{image.name}: {line}")
        failed = failed or bool(verdict.wrong)
        silent += any(not line.startswith("no kind: ") for line in verdict.wrong)
    print("   both  theirs    ours  images where it is said, by kind")
    for kind in kinds:
        numbers = [counts[kind, *sides] for sides in ((True, True), (True, False), (False, True))]
        print("".join(f"{number:7} " for number in numbers), f"{kind.side}: {kind.pattern.pattern}: {kind.reason}")
    for line, number in unknown.most_common():
        print(f"{number:7} unknown line: {line}")
    failing = [image for image in images if image.failures]
    serious = sum(any(finding.is_serious for finding in image.findings) for image in failing)
    print(f"{len(images)} images, {len(failing)} that edid-decode fails: {serious} with an error or a warning here, "
          f"{silent} with a failure that has neither a finding here nor a reason; "
          f"{sum(unknown.values())} unknown lines")
    if options.selftest:
        parts = list(selftest(images, kinds))
        print(f"{len(parts):7} parts of kinds taken away")
        missed = [part for part, is_noticed in parts if not is_noticed]
        print("".join(f"taken away and not noticed: {part}\n" for part in missed), end="")
        failed = failed or bool(missed) or not parts
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
