"""The recipe for a cluster of docs/many.md, as it is there, over 20,000 images, with a worker that is killed."""

import os
import re
import subprocess
import sys

import zoredid

PROJECT = os.environ["ZOREDID_PROJECT"]
COUNT = 20000
DEATH = '''
import os, signal, sys
from fleet import FACTS, facts, read
import fleet, zoredid
from distributed import Client, LocalCluster

def read_and_die(images):
    if images[0] == paths[-2000] and not os.path.exists("dead"):
        open("dead", "w").close()
        os.kill(os.getpid(), signal.SIGKILL)
    return read(images)

paths = open("paths.txt").read().split()
if __name__ == "__main__":
    fleet.read = read_and_die
    with LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None) as cluster, Client(cluster):
        table = facts(paths, 500)
    alone = zoredid.read_many(paths, FACTS)
    assert os.path.exists("dead") and table.rows == len(paths) and dict(table) == dict(alone)
    assert {row: str(error) for row, error in table.errors.items()} == {
        row: str(error) for row, error in alone.errors.items()}
    print("the same", table.rows, len(table.errors), len(set(table["identity.serial_number"])))
'''


def test_a_worker_that_is_killed_loses_nothing(tmp_path):
    with open(os.path.join(PROJECT, "docs/many.md"), encoding="utf-8") as page:
        recipe = re.search(r"^\$ cat > fleet.py << 'END'\n((?:> .*\n|>\n)+?)> END$", page.read(), re.MULTILINE)[1]
    (tmp_path / "fleet.py").write_text(re.sub(r"^> ?", "", recipe, flags=re.MULTILINE), encoding="utf-8")
    (tmp_path / "death.py").write_text(DEATH, encoding="utf-8")
    paths = []
    for number in range(100):
        image = zoredid.load(os.path.join(PROJECT, "examples/monitor.bin"))
        with image.edit() as edit:
            edit.serial_number = number + 1  # 0 is "not given"
        path = tmp_path / f"{number}.bin"
        path.write_bytes(edit.bytes[:100] if number == 50 else edit.bytes)
        paths.append(str(path))
    (tmp_path / "paths.txt").write_text("\n".join(paths * (COUNT // len(paths))), encoding="utf-8")
    done = subprocess.run([sys.executable, "death.py"], cwd=tmp_path, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          text=True, timeout=250, check=False)
    assert done.returncode == 0, done.stderr
    assert done.stdout == f"the same {COUNT} 200 100\n", done.stderr
