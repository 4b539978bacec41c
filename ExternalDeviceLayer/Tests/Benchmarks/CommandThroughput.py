#!/usr/bin/env python3
"""How many images a second the command reads, and how much memory it takes at most, for few images and for many.

    CommandThroughput.py ZOREDID FILE_OR_FOLDER [COUNT]

The image, or all `.bin` images of the folder, are given again and again until there are COUNT of them (100,000 without
the argument), and a tenth of COUNT for the memory of few. Reads the names from a pipe, and writes the results to a pipe
which is emptied at once. Memory and processor time (that of all threads and of the system for them) are those of the
command's process alone. On a machine with other work only the processor time says something.
"""
import os
import pathlib
import resource
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
    """Seconds, seconds of processor time, and peak memory."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
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
    if child.returncode not in (0, 1, 3):  # 1: warnings or errors; 3: images that do not load
        sys.exit(f"{' '.join(command)}: exit status {child.returncode}")
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return seconds, after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime, peak


def main():
    given = sys.argv[1:]
    count = 100_000 if len(given) == 2 else int(given[2]) if len(given) == 3 and given[2].isdecimal() else 0
    if count < 10:
        print("usage: CommandThroughput.py ZOREDID FILE_OR_FOLDER [COUNT]    COUNT is at least 10", file=sys.stderr)
        sys.exit(2)
    zoredid, source = given[0], pathlib.Path(given[1])
    files = sorted(map(str, source.glob("*.bin"))) if source.is_dir() else [str(source)]
    if not files:
        sys.exit(f"{source}: no .bin image in this folder")
    print(f"{'command':24} {'threads':>7} {'images':>8} {'images/s':>10} {'us/image':>8} {'peak MiB':>8}")
    for words in (["report", "--jsonl"], ["check"]):
        for threads in sorted({1, os.cpu_count()}):
            for images in (count // 10, count):
                names = "".join(files[i % len(files)] + "\n" for i in range(images)).encode()
                command = [zoredid, *words, "-j", str(threads), "--files-from", "-"]
                seconds, processor, peak = run(command, names)
                print(f"{' '.join(words):24} {threads:7} {images:8} {images / seconds:10.0f} "
                      f"{processor / images * 1e6:8.0f} {peak:8.1f}", flush=True)


main()
