#!/usr/bin/python3
"""Counts the instructions of workloads with callgrind and compares them with the stored counts.

Usage: compare.py BUILD_FOLDER [--accept]
Fails if a count has grown by more than 5 %, or grows with the size faster than its row allows.
With --accept, stores the new counts instead of comparing them.
"""
import argparse
import pathlib
import platform
import re
import subprocess
import sys
import tempfile

STORED = pathlib.Path(__file__).resolve().parent / "instructions.txt"
MOST_CHANGE = 0.05
MOST_GROWTH = 1.1  # beyond the growth that the row allows


class Row:
    """A workload: how its count may grow with the size, and the counts by size (or none)."""

    def __init__(self, line):
        self.workload, self.growth, *counts = line.split()
        if self.growth not in ("same", "linear"):
            sys.exit(f"{self.workload}: growth must be same or linear")
        pairs = [count.split(":") for count in counts]
        self.counts = {int(size): int(count) if count != "?" else None for size, count in pairs}

    def text(self, counts):
        cells = "  ".join(f"{size}:{counts[self.workload, size]}" for size in self.counts)
        return f"{self.workload:<24} {self.growth:<7} {cells}"

    def count_faults(self, counts):
        for size, stored in self.counts.items():
            count = counts[self.workload, size]
            if stored is None:
                yield True, f"{self.workload}/{size}: no count is stored"
                continue
            change = count / stored - 1
            if abs(change) > MOST_CHANGE:
                yield change > 0, (f"{self.workload}/{size}: {count} instructions, "
                                   f"{change:+.1%} of the stored {stored}")

    def growth_faults(self, counts):
        sizes = sorted(self.counts)
        for small, large in zip(sizes, sizes[1:]):
            most = MOST_GROWTH * (large / small if self.growth == "linear" else 1)
            growth = counts[self.workload, large] / counts[self.workload, small]
            if growth > most:
                yield (f"{self.workload}: {growth:.2f} times the instructions from size {small} "
                       f"to {large}, at most {most:.4g}")


def count_instructions(program, rows):
    """The instructions of one run, by workload and size.

    Each has its own process: memory that another workload has released would have to be cleared
    again, which takes instructions, while memory from the system is already cleared.
    """
    names = [f"{row.workload}/{size}" for row in rows for size in row.counts]
    with tempfile.TemporaryDirectory() as folder:
        for index, name in enumerate(names):
            subprocess.run(["valgrind", "-q", "--tool=callgrind", "--instr-atstart=no",
                            f"--callgrind-out-file={folder}/{index}", program, name], check=True)
        texts = [path.read_text() for path in pathlib.Path(folder).iterdir()]
    counts = {}
    for text in texts:
        name = re.search(r"^desc: Trigger: Client Request: (.*)/(\d+)$", text, re.MULTILINE)
        if name:
            total = re.search(r"^totals: (\d+)$", text, re.MULTILINE)
            counts[name[1], int(name[2])] = int(total[1])
    return counts


def is_row(line):
    return line and not line.startswith("#")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--accept", action="store_true")
    options = parser.parse_args()
    compiler = (options.build / "bench/compiler").read_text()
    system = f"{compiler}, {' '.join(platform.libc_ver())}, {platform.machine()}"

    lines = STORED.read_text().splitlines()
    rows = [Row(line) for line in lines if is_row(line)]
    counts = count_instructions(options.build / "bench/bench_check", rows)
    failures = [fault for row in rows for fault in row.growth_faults(counts)]

    stored_system = lines[0].removeprefix("# ")
    if options.accept:
        lines[0] = f"# {system}"
        lines = [Row(line).text(counts) if is_row(line) else line for line in lines]
        STORED.write_text("\n".join(lines) + "\n")
    elif system != stored_system:
        print(f"The stored counts are those of {stored_system}. This is {system}: only the growth "
              "is checked.")
    else:
        faults = [fault for row in rows for fault in row.count_faults(counts)]
        failures += [text for is_failure, text in faults if is_failure]
        for text in [text for is_failure, text in faults if not is_failure]:
            print(f"{text}: store it with `make bench-check ACCEPT=1`")
    for text in failures:
        print(text)
    print(f"{len(counts)} counts, {len(failures)} faults")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
