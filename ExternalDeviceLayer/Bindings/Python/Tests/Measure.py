"""What Python adds, as ratios of one run: Measure.py COMMAND IMAGE..., with the package of a release build in PYTHONPATH.

One image: its facts from bytes in Python and in C alone. Many: read_many against the same loop in C, which keeps
nothing, and against the command's "check --summary", which also judges each image, with as many threads.
"""

import os
import subprocess
import sys
import tempfile
import time

import zoredid
from zoredid._facts import _allocate
from zoredid._many import _join
from zoredid._zoredid import ffi, lib

COMMAND, PATHS = sys.argv[1], sys.argv[2:]
COUNT, ROUNDS, THREADS = 20000, 7, len(os.sched_getaffinity(0))
FACTS = ["identity.manufacturer", "identity.product_code", "identity.name", "link.kind", "link.vrr.max_hz",
         "size.width_mm", "colour.eotfs", "colour.content_luminance.max"]
images = [zoredid.load(path).bytes for path in PATHS]
images = [image for image in images if len(image) >= 128]


def best(run):
    """Seconds of the fastest of some rounds."""
    times = []
    for _ in range(ROUNDS):
        begin = time.perf_counter()
        run()
        times.append(time.perf_counter() - begin)
    return min(times)


def each(run):
    return best(lambda: [run(image) for image in images]) / len(images) * 1e6


facts = ffi.gc(lib.zoredid_facts_create(), lib.zoredid_facts_free)
in_c = each(lambda image: lib.zoredid_facts_read(facts, image, len(image)))
in_python = each(lambda image: zoredid.load(image).facts)
modes = each(lambda image: zoredid.load(image).modes)
print(f"one image: {in_python:.1f} us in Python, {in_c:.1f} in C: {in_python - in_c:.1f} on top; modes {modes:.0f} us")

many = (images * (COUNT // len(images) + 1))[:COUNT]


def compare(kind, sources, threads):
    """Seconds in Python, and in C alone in one thread."""
    python = best(lambda: zoredid.read_many(sources, FACTS, threads=threads))
    inputs, sizes = _join(sources)
    sizes = ffi.from_buffer("uint64_t[]", sizes)
    statuses, errors = _allocate("unsigned char[]", COUNT), _allocate("int[]", COUNT)
    alone = best(lambda: lib.zorpy_read_many(inputs, sizes, COUNT, ffi.NULL, 0, statuses, errors)) / threads
    print(f"{kind}, {threads} threads: {COUNT / python:.0f} a second, {alone / python:.2f} of the rate of C alone", end="")
    return python


compare("bytes", many, 1)
print()
with tempfile.TemporaryDirectory() as folder:
    paths = [os.path.join(folder, f"{number}.bin") for number in range(COUNT)]
    for path, image in zip(paths, many):
        with open(path, "wb") as file:
            file.write(image)
    listed = "\0".join(paths).encode()
    for threads in sorted({1, THREADS}):
        python = compare("files", paths, threads)
        command = best(lambda: subprocess.run([COMMAND, "check", "--summary", "-0", "-j", str(threads), "--files-from", "-"],
                                              input=listed, stdout=subprocess.DEVNULL, check=False))
        print(f", {command / python:.2f} of that of check --summary")
