"""CompareChecks.py with programs that say what a test wants: when it fails, and when not."""
import os
import subprocess
import sys
import tempfile

SCRIPT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "CompareChecks.py")
KINDS = "Duplicate VIC\tboth\tcta.twice,cta.other\nMissing VCDB\ttheirs\ta hint\n^our\\.\tours\tnobody else looks\n"
# What it is, edid-decode's failures, our findings, what must be said; nothing for success.
CASES = (
    ("neither", (), (), ""),
    ("both", ("Video: Duplicate VIC 4.",), (("cta.twice", "warning"),), ""),
    ("both, ours a note", ("Video: Duplicate VIC 4.",), (("cta.other", "note"),), ""),
    ("theirs", ("Missing VCDB, needed.",), (), ""),
    ("ours", (), (("our.rule", "error"),), ""),
    ("theirs without a kind", ("Another fault.",), (("our.rule", "error"),), "no kind: Another fault."),
    ("ours without a kind", (), (("strange.rule", "warning"),), "no kind: our rule strange.rule"),
    ("a note without a kind", (), (("strange.rule", "note"),), ""),
    ("nothing of weight", ("Duplicate VIC 4.",), (("strange.rule", "note"),), "nothing of weight"),
    ("another rule of weight", ("Duplicate VIC 4.",), (("our.rule", "error"),), ""),
)


def write(path, text):
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    os.chmod(path, 0o755)


BASE = bytes.fromhex("00ffffffffffff00") + bytes(120)
failed = 0
for name, failures, findings, expected in CASES:
    with tempfile.TemporaryDirectory() as folder:
        # The second EDID of the file is the one that the case is about; both programs are silent about the first.
        with open(f"{folder}/image.bin", "wb") as file:
            file.write(BASE + BASE[:-1] + b"2")
        write(f"{folder}/kinds", KINDS)
        lines = "\n".join(("Warnings:", "", "Failures:", "", "Block 1, CTA:", *("  " + line for line in failures), ""))
        rules = ",".join(f'{{"rule":"{rule}","severity":"{severity}"}}' for rule, severity in findings)
        for program, silent, said in (("peer", "", f"{lines}\nEDID conformity: FAIL"),
                                      ("zoredid", '{"checks":[]}', f'{{"checks":[{{"findings":[{rules}]}}]}}')):
            write(f"{folder}/{program}", f"""#!/bin/sh
for image; do :; done
if [ "$(tail -c 1 "$image")" = 2 ]; then echo '{said}'; else echo '{silent}'; fi
""")
        run = subprocess.run([sys.executable, SCRIPT, "--zoredid", f"{folder}/zoredid", "--peer", f"{folder}/peer",
                              "--kinds", f"{folder}/kinds", folder], capture_output=True, text=True, check=False)
        if run.returncode != bool(expected) or expected not in run.stdout or "2 images" not in run.stdout:
            print(f"{name}: ended with {run.returncode}\n{run.stdout}{run.stderr}")
            failed = 1
sys.exit(failed)
