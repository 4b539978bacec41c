#!/usr/bin/env python3
"""How many images a second the command reads, and how much memory it takes at most, for few images and for many.

    CommandThroughput.py ZOREDID FILE_OR_FOLDER [COUNT]

The image, or all `.bin` images of the folder, are given again and again until there are COUNT of them (100,000 without
the argument), and a tenth of COUNT for the memory of few. Reads the names from a pipe, and writes the results to a pipe
which is emptied at once. Times and memory are those of the command's process alone.
"""
import os
import pathlib
import subprocess
import sys
import threading
import time


def read_peak(process):
    """The most memory that was resident so far, in MiB; 0 when the process has ended.

    VmHWM starts anew at exec. The peak that wait4 gives does not: it is at least that of the process that has forked.
    """
    with open(f"/proc/{process.pid}/status", encoding="ascii") as status:
        return next((int(line.split()[1]) / 1024 for line in status if line.startswith("VmHWM:")), 0)


def run(command, names):
    """Seconds and peak memory."""
    begin = time.perf_counter()
    with subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as child:
        def feed():
            with child.stdin:
                child.stdin.write(names)

        def drain():
            while child.stdout.read(1 << 20):
                pass

        helpers = [threading.Thread(target=feed), threading.Thread(target=drain)]
        for helper in helpers:
            helper.start()
        peak = 0
        while now := read_peak(child):  # until the process is a zombie
            peak = now
            time.sleep(0.001)
        for helper in helpers:
            helper.join()
        child.wait()
        seconds = time.perf_counter() - begin
    if child.returncode not in (0, 1, 3):  # 1: findings of weight; 3: images that do not load
        sys.exit(f"{' '.join(command)}: exit status {child.returncode}")
    return seconds, peak


def main():
    words = sys.argv[1:]
    count = 100_000 if len(words) == 2 else int(words[2]) if len(words) == 3 and words[2].isdecimal() else 0
    if count < 10:
        print("usage: CommandThroughput.py ZOREDID FILE_OR_FOLDER [COUNT]    COUNT is at least 10", file=sys.stderr)
        sys.exit(2)
    zoredid, source = words[0], pathlib.Path(words[1])
    files = sorted(map(str, source.glob("*.bin"))) if source.is_dir() else [str(source)]
    if not files:
        sys.exit(f"{source}: no .bin image in this folder")
    print(f"{'command':24} {'threads':>7} {'images':>8} {'images/s':>10} {'peak MiB':>8}")
    for words in (["report", "--jsonl"], ["check"]):
        for threads in sorted({1, os.cpu_count()}):
            for images in (count // 10, count):
                names = "".join(files[i % len(files)] + "\n" for i in range(images)).encode()
                command = [zoredid, *words, "-j", str(threads), "--files-from", "-"]
                seconds, peak = run(command, names)
                print(f"{' '.join(words):24} {threads:7} {images:8} {images / seconds:10.0f} {peak:8.1f}", flush=True)


main()
