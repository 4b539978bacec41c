#!/usr/bin/env python3
"""What a short run of the command takes, a process each.

    CommandStart.py IMAGE ZOREDID [ANOTHER ZOREDID...] [--rounds COUNT]

The calls, those of each program given and one that does nothing, in turn, COUNT rounds (300 without the argument):
processor time with the system's share, the smallest and the median, and the median less that of nothing.
"""
import argparse
import os
import statistics

CALLS = (["--version"], ["show"], ["report"], ["check"], ["explain", "--at", "0x36"], ["explain"], ["explain", "--json"])


def measure(arguments):
    """Milliseconds of processor time."""
    devnull = [(os.POSIX_SPAWN_OPEN, 1, "/dev/null", os.O_WRONLY, 0)]
    child = os.posix_spawn(arguments[0], arguments, {}, file_actions=devnull)
    usage = os.wait4(child, 0)[2]
    return 1000 * (usage.ru_utime + usage.ru_stime)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("image")
    parser.add_argument("programs", nargs="+")
    parser.add_argument("--rounds", type=int, default=300)
    options = parser.parse_args()
    calls = {"nothing": ["/bin/true"]}
    for program in options.programs:
        for call in CALLS:
            image = [] if call == ["--version"] else [options.image]
            calls[" ".join([program, *call])] = [program, *call, *image]
    times = {name: [] for name in calls}
    for _ in range(options.rounds):
        for name, arguments in calls.items():
            times[name].append(measure(arguments))
    nothing = statistics.median(times["nothing"])
    for name, taken in times.items():
        median = statistics.median(taken)
        print(f"{min(taken):7.2f} {median:7.2f} {median - nothing:7.2f} ms  {name}")


if __name__ == "__main__":
    main()
