# zoredid build: what explain --json prints goes back, also of files with several EDIDs, and what is refused.
#   BuildTest.py COMMAND PROJECT WRITE_IMAGES [CORPUS]

import glob
import json
import os
import subprocess
import sys
import threading
import unittest

from ExplainTest import IMAGES, walk
from FactsTest import change, CLOSED, COMMAND, CORPUS, MONITOR, ToolTest

LAST = change({0x7E: "00", 0x0A: "0101"}, MONITOR[:128])


def pipe(data, *arguments):
    """Exit status, standard output, standard error."""
    done = subprocess.run([COMMAND, *arguments], input=data, capture_output=True, timeout=300)
    return done.returncode, done.stdout, done.stderr.decode()


def explain(data, *arguments):
    return pipe(data, "explain", "--json", *arguments, "-")[1]


def build(data, *arguments):
    return pipe(data, "build", "-", "-o", "-", *arguments)


class BuildTest(ToolTest):
    def test_every_image_goes_there_and_back(self):
        several = {"twice": MONITOR * 2, "two": MONITOR + LAST, "among each other": LAST + MONITOR + LAST + MONITOR[:200]}
        for name, image in {**IMAGES, **several}.items():
            with self.subTest(name):
                self.assertEqual((0, image, ""), build(explain(image)))
        for path in glob.glob(os.path.join(CORPUS, "*.bin")) if CORPUS else []:
            with self.subTest(path):
                image = self.read(path)
                self.assertEqual((0, image, ""), build(explain(image)))

    def test_members_in_any_order(self):
        for options in [{"sort_keys": True}, {"separators": (",", ":")}, {"indent": 8, "ensure_ascii": False}]:
            document = json.dumps(json.loads(explain(MONITOR)), **options).encode()
            self.assertEqual((0, MONITOR, ""), build(document))

    def test_several_images(self):
        image = LAST + MONITOR + LAST
        documents = explain(image)
        self.assertEqual(LAST, build(documents, "--image", "1")[1])
        self.assertEqual(MONITOR, build(explain(image, "--image", "2"))[1])
        first, second = self.split(documents.decode())
        self.assertEqual(([0, 384], [128]), (first["offsets"], second["offsets"]))
        for document in first, second:
            if CLOSED is not None:
                CLOSED.validate(document)
        for texts, problem in [
            ([first], "lacks the image at byte 128 of its file"),
            ([first, first], "two images with the same byte"),
            ([first, {**second, "offsets": []}], "images that are not of one file"),
            ([first, {**second, "offsets": [32700]}], "images past 32768 bytes"),
            ([], "is empty"),
        ]:
            status, out, error = build("".join(json.dumps(text) for text in texts).encode())
            self.assertEqual((3, b""), (status, out))
            self.assertIn(problem, error)
        self.assertEqual((3, b""), build(documents, "--image", "4")[:2])

    @staticmethod
    def split(text):
        decoder, documents = json.JSONDecoder(), []
        while text := text.lstrip():
            document, end = decoder.raw_decode(text)
            documents.append(document)
            text = text[end:]
        return documents

    def test_changes_are_said_and_written_whole_or_not_at_all(self):
        document = json.loads(explain(MONITOR))
        gamma = next(field for field, _ in walk(document["fields"]) if field["id"] == "base.display.gamma")
        gamma["value"] = "2.4"
        if CLOSED is not None:
            CLOSED.validate(document)
        changed = self.save(json.dumps(document).encode())
        out = os.path.join(self.folder, "out.bin")
        field = "block 0: Basic display parameters and features > Display transfer characteristic (gamma)"
        note = f"zoredid: {changed}: {field}: 2.20 became 2.40; followed: block 0: Checksum\n"
        self.assertEqual((0, b"colour.gamma: 2.2 | 2.4\n", note), pipe(b"", "build", changed, "--diff", "--dry-run"))
        self.assertEqual((0, b"", note), pipe(b"", "build", changed, "-o", out))
        self.assertEqual(change({0x17: "8c"}), self.read(out))
        status, _, error = pipe(b"", "build", changed, "-o", out)
        self.assertEqual(3, status, error)
        self.assertIn("--force", error)
        gamma["value"] = 0
        refused = self.save(json.dumps(document).encode())
        status, _, error = pipe(b"", "build", refused, "-o", out, "--force")
        self.assertEqual((1, True), (status, error.startswith(f"zoredid: {refused}: {field}: out of range")))
        self.assertEqual(change({0x17: "8c"}), self.read(out))

    def test_refusals_speak_of_members(self):
        document = json.loads(explain(MONITOR))
        header = next(field for field, _ in walk(document["fields"]) if field["id"] == "base.header")
        header["value"] = "00"
        self.assertIn('the standard fixes it; "raw" writes its bytes', build(json.dumps(document).encode())[2])
        document["bytes"] = "00" * 32769
        self.assertIn('"bytes" has more than 32768 bytes', build(json.dumps(document).encode())[2])

    @staticmethod
    def read(path):
        with open(path, "rb") as file:
            return file.read()

    def test_what_is_no_document(self):
        part = explain(MONITOR, "--at", "0x36")
        for data, problem in [(b"", "is empty"), (MONITOR, "is not JSON"), (b"{}", "is not a document"),
                              (part, "a part of an image"), (explain(MONITOR) + b"x", "is not JSON")]:
            status, out, error = build(data)
            self.assertEqual((3, b"", 1), (status, out, error.count("\n")), error)
            self.assertIn(problem, error)
        self.assertEqual(3, pipe(b"", "build", "/nonexistent", "--dry-run")[0])
        self.assertEqual(2, pipe(b"", "build", "-")[0])

    def test_hostile_documents_take_little_memory(self):
        piece = 1 << 20
        endless = {
            "a text": (b'{"format":"', b"x" * piece),
            "escapes": (b'{"fields":[{"value":"', b"\\u0041" * (piece // 6)),
            "a number": (b'{"size":', b"1" * piece),
            "objects": (b"", b'{"a":' * (piece // 5)),
            "fields": (b'{"fields":[', b'{"fields":[]},' * (piece // 14)),
            "blanks": (b"", b" " * piece),
            "members": (b"{", b'"a":1,' * (piece // 6)),
        }
        for name, (head, body) in endless.items():
            with self.subTest(name), subprocess.Popen([COMMAND, "build", "-", "--dry-run"], stdin=subprocess.PIPE,
                                                      stderr=subprocess.PIPE) as process:
                def feed(stream=process.stdin, parts=(head, body)):
                    try:
                        stream.write(parts[0])
                        for _ in range(24):
                            stream.write(parts[1])
                        stream.close()
                    except BrokenPipeError:
                        pass
                feeder = threading.Thread(target=feed)
                feeder.start()
                error = process.stderr.read()
                feeder.join()
                _, status, usage = os.wait4(process.pid, 0)
                process.returncode = os.waitstatus_to_exitcode(status)
                self.assertEqual((3, 1), (process.returncode, error.count(b"\n")), error)
                if not os.environ.get("ASAN_OPTIONS"):
                    self.assertLess(usage.ru_maxrss, 60 << 10)  # KiB; the test itself is counted until exec


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
