"""The transcripts of the README and of docs/, run as a user would. TranscriptsTest.py COMMAND PROJECT [PYTHON PACKAGES]

The console blocks of a page are one session in a folder of its own that holds monitor.bin. A line after "$ " is a
command, those after "> " continue it, and all others are what the command prints, on either output. A page is left
at the first command that needs a tool which is not installed. "python3" is PYTHON with the folder of PACKAGES.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

COMMAND, PROJECT, PYTHON, PACKAGES = (sys.argv[1:] + ["", ""])[:4]
TOOLS = "jq", "sqlite3", "xxd"
MODULES = "zoredid", "distributed"


def read(path):
    with open(os.path.join(PROJECT, path), encoding="utf-8") as file:
        return file.read()


def list_steps(page):
    """Commands and what they print."""
    text = "".join(re.findall(r"^```console\n(.*?)^```$", page, re.DOTALL | re.MULTILINE))
    for step in re.split(r"^\$ ", text, flags=re.MULTILINE)[1:]:
        lines = step.splitlines(keepends=True)
        end = next((i for i in range(1, len(lines)) if not re.match("> |>$", lines[i])), len(lines))
        yield lines[0] + "".join(re.sub("^> ?", "", line) for line in lines[1:end]), "".join(lines[end:])


def find_missing(command):
    """Tools and modules of Python that a command needs and that are not installed."""
    missing = [tool for tool in TOOLS if re.search(rf"\b{tool} ", command) and shutil.which(tool) is None]
    return missing + [module for module in MODULES if re.search(rf"^(import|from) {module}\b", command, re.MULTILINE)
                      and (not PACKAGES or subprocess.run([PYTHON, "-c", "import " + module], capture_output=True,
                                                          env=dict(os.environ, PYTHONPATH=PACKAGES)).returncode)]


class TranscriptsTest(unittest.TestCase):
    def check(self, path):
        environment = {**os.environ, "LC_ALL": "C.UTF-8",
                       "PATH": os.path.dirname(COMMAND) + os.pathsep + os.environ["PATH"]}
        with tempfile.TemporaryDirectory() as folder, tempfile.TemporaryDirectory() as tools:
            if PACKAGES:
                os.symlink(PYTHON, os.path.join(tools, "python3"))
                environment.update(PYTHONPATH=PACKAGES, PATH=tools + os.pathsep + environment["PATH"])
            shutil.copy(os.path.join(PROJECT, "examples/monitor.bin"), folder)
            for command, expected in list_steps(read(path)):
                missing = find_missing(command)
                if missing:
                    self.skipTest("%s is not installed" % missing[0])
                done = subprocess.run(command, shell=True, cwd=folder, env=environment, stdout=subprocess.PIPE,
                                      stderr=subprocess.STDOUT, text=True, timeout=60, check=False)
                self.assertEqual(expected, done.stdout, command)

    def test_pages_have_transcripts(self):
        for path in "README.md", "docs/edits.md", "docs/many.md", "docs/numbering.md":
            self.assertNotEqual([], list(list_steps(read(path))), path)


def add_test(path):
    name = "test_" + re.sub(r"\W", "_", path)
    setattr(TranscriptsTest, name, lambda self: self.check(path))


for document in ["README.md"] + ["docs/" + name for name in sorted(os.listdir(os.path.join(PROJECT, "docs")))]:
    if document.endswith(".md"):
        add_test(document)

if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
