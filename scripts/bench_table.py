#!/usr/bin/python3
"""Prints the results of benchmarks as one table, with the goals that are met.

Usage: bench_table.py [--curves FOLDER] GOALS RESULT...
A RESULT is in Google Benchmark's JSON format. The references of a benchmark, to which it is
compared, are its counters (in its unit of time) and the benchmarks named BENCHMARK#REFERENCE.
With --curves, writes an SVG picture per subject: the time by size of its workloads.
"""
import argparse
import collections
import fnmatch
import json
import pathlib
import re
import sys

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
FIELDS = {"real_time", "cpu_time", "iterations", "repetitions", "repetition_index", "threads",
          "family_index", "per_family_instance_index"}


class Result:
    """One size of a workload. `size` is 0 if it has none; times are in nanoseconds."""

    def __init__(self, row):
        name = re.sub(r"/(iterations:\d+|manual_time|real_time)", "", row["name"])
        name, _, self.reference = name.partition("#")
        parts = re.fullmatch(r"(.*)/(\d+)", name)
        self.workload, self.size = (parts[1], int(parts[2])) if parts else (name, 0)
        self.is_time = "value" not in row
        unit = NANOSECONDS[row.get("time_unit", "ns")] if self.is_time else 1
        self.value = None
        if not row.get("error_occurred"):
            self.value = row["real_time"] * unit if self.is_time else row["value"]
        self.references = {key: value * unit for key, value in row.items()
                           if isinstance(value, (int, float)) and not isinstance(value, bool)
                           and key not in FIELDS | {"value"}}

    def shown(self, value):
        return time_text(value) if self.is_time else f"{value:.4g}"


def time_text(nanoseconds):
    for unit in ("ns", "us", "ms"):
        if nanoseconds < 999.5 * NANOSECONDS[unit]:
            break
    else:
        unit = "s"
    return f"{nanoseconds / NANOSECONDS[unit]:.3g} {unit}"


def read_results(paths):
    """The results by workload, in the order of the files, sizes ascending."""
    found = [Result(row) for path in paths for row in json.loads(path.read_text())["benchmarks"]]
    workloads = collections.defaultdict(list)
    for result in found:
        if not result.reference:
            workloads[result.workload].append(result)
    for result in found:
        for measured in workloads.get(result.workload, []) if result.reference else []:
            if measured.size == result.size:
                measured.references[result.reference] = result.value
    for results in workloads.values():
        results.sort(key=lambda result: result.size)
    return workloads


def read_goals(path):
    """(pattern, measure, limit, sizes or none) for each row."""
    rows = [line.split() for line in path.read_text().splitlines()]
    return [(row[0], row[1], float(row[2]), {int(size) for size in row[3:]})
            for row in rows if row and not row[0].startswith("#")]


def compare(result, smallest, measure):
    """The value to divide by, and the text that shows it; none if it was not measured."""
    if measure == "same":
        return smallest.value, result.shown(smallest.value)
    if measure == "linear":
        fair = smallest.value * result.size / smallest.size
        return fair, result.shown(fair)
    reference = result.references.get(measure)
    return reference, "" if reference is None else result.shown(reference)


def goal_cells(result, smallest, measure, limit):
    """The last cells of a row: reference, its value, ratio, goal, outcome."""
    goal = f"<= {limit:g}"
    if result.value is None:
        return [measure, "", "", goal, "not met: too slow to measure"]
    if measure == "absolute":
        met = "met" if result.value <= limit else "not met"
        return ["", "", "", f"<= {result.shown(limit)}", met]
    other, text = compare(result, smallest, measure)
    if other is None:
        return [measure, "", "", goal, f"not measured: {measure} takes too long"]
    ratio = result.value / other
    return [measure, text, f"{ratio:.2f}", goal, "met" if ratio <= limit else "not met"]


def table_of(workloads, goals):
    yield ["workload", "size", "result", "compared with", "its value", "ratio", "goal", ""]
    for workload, results in workloads.items():
        smallest = results[0]
        for result in results:
            first = [workload, str(result.size or ""),
                     "" if result.value is None else result.shown(result.value)]
            rows = [goal_cells(result, smallest, measure, limit)
                    for pattern, measure, limit, sizes in goals
                    if fnmatch.fnmatch(workload, pattern) and (not sizes or result.size in sizes)
                    and not (result is smallest and measure in ("same", "linear"))]
            if not rows:
                rows = [[name, result.shown(value), f"{result.value / value:.2f}", "", ""]
                        for name, value in result.references.items() if value]
            for row in rows or [[""] * 5]:
                yield first + row


def print_table(rows):
    rows = list(rows)
    widths = [max(len(row[i]) for row in rows) for i in range(len(rows[0]))]
    for number, row in enumerate(rows):
        print("| " + " | ".join(cell.ljust(width) for cell, width in zip(row, widths)) + " |")
        if number == 0:
            print("|" + "|".join("-" * (width + 2) for width in widths) + "|")
    outcomes = collections.Counter(row[-1].partition(":")[0] for row in rows)
    print("\nGoals: " + ", ".join(f"{outcomes[outcome]} {outcome}"
                                 for outcome in ("met", "not met", "not measured")))


def draw_curves(workloads, folder):
    import matplotlib
    matplotlib.use("svg")
    matplotlib.rcParams["svg.hashsalt"] = "bench"
    matplotlib.rcParams["svg.fonttype"] = "none"
    from matplotlib import pyplot
    folder.mkdir(parents=True, exist_ok=True)
    subjects = collections.defaultdict(list)
    for workload, results in workloads.items():
        measured = [result for result in results if result.value and result.is_time]
        if len(measured) > 1:
            subjects[workload.split("/")[0]].append((workload.split("/", 1)[1], measured))
    for subject, curves in subjects.items():
        figure, axes = pyplot.subplots(figsize=(7, 4.5), layout="constrained")
        for name, results in curves:
            sizes = [result.size for result in results]
            line, = axes.loglog(sizes, [result.value / 1e3 for result in results], "o-", label=name)
            if all("lua" in result.references for result in results):
                axes.loglog(sizes, [result.references["lua"] / 1e3 for result in results], ":",
                            color=line.get_color())
        axes.set(title=subject, xlabel="size", ylabel="microseconds")
        axes.grid(True, alpha=0.3)
        axes.legend(fontsize="small")
        figure.savefig(folder / f"{subject}.svg", metadata={"Date": None})
        pyplot.close(figure)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--curves", type=pathlib.Path)
    parser.add_argument("goals", type=pathlib.Path)
    parser.add_argument("results", type=pathlib.Path, nargs="+")
    options = parser.parse_args()
    workloads = read_results(options.results)
    print_table(table_of(workloads, read_goals(options.goals)))
    if options.curves:
        draw_curves(workloads, options.curves)


if __name__ == "__main__":
    sys.exit(main())
