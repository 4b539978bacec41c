#!/usr/bin/env python3
"""How many images a second the command reads, and how much memory it takes at most, for few images and for many.

    CommandThroughput.py ZOREDID FILE_OR_FOLDER [COUNT]

The image, or all `.bin` images of the folder, are given again and again until there are COUNT of them (100,000 without the
argument), and a tenth of COUNT for the memory of few. Reads the names from a pipe, and writes the results to a pipe
which is emptied at once. Times and memory are those of the command's process alone.
"""
import os
import pathlib
import subprocess
import sys
import threading
import time


def run(command, names):
    """Seconds, and the most memory that was resident, in MB."""
    child = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def feed():
        child.stdin.write(names)
        child.stdin.close()

    begin = time.perf_counter()
    feeder = threading.Thread(target=feed)
    feeder.start()
    while child.stdout.read(1 << 20):
        pass
    feeder.join()
    _, status, usage = os.wait4(child.pid, 0)
    seconds = time.perf_counter() - begin
    child.returncode = os.waitstatus_to_exitcode(status)
    if child.returncode not in (0, 1, 3):  # 1: findings of weight; 3: images that do not load
        sys.exit(f"{' '.join(command)}: exit status {child.returncode}")
    return seconds, usage.ru_maxrss / 1024


def main():
    zoredid, source = sys.argv[1], pathlib.Path(sys.argv[2])
    count = int(sys.argv[3]) if len(sys.argv) > 3 else 100_000
    files = sorted(map(str, source.glob("*.bin"))) if source.is_dir() else [str(source)]
    print(f"{'command':24} {'threads':>7} {'images':>8} {'images/s':>10} {'peak MB':>8}")
    for words in (["report", "--jsonl"], ["check"]):
        for threads in sorted({1, os.cpu_count()}):
            for images in (count // 10, count):
                names = "".join(files[i % len(files)] + "\n" for i in range(images)).encode()
                command = [zoredid, *words, "-j", str(threads), "--files-from", "-"]
                seconds, peak = run(command, names)
                print(f"{' '.join(words):24} {threads:7} {images:8} {images / seconds:10.0f} {peak:8.1f}", flush=True)


main()
