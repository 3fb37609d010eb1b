#!/usr/bin/python3
"""Times `mheg` on a carousel of 1,000 scenes, and `cat` of the same files for comparison.

Usage: mheg_times.py MHEG RESULTS
Writes the shortest times to RESULTS, in Google Benchmark's JSON format.
"""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

SCENES = 1000
LEAST_RUNS = 3
LEAST_SECONDS = 1


def scene_text(number):
    """A page of a menu: texts, buttons' rectangles, and a link for each of ten keys."""
    lines = [f'{{:Scene ("~/s{number}" 0) :InputEventReg 4 :SceneCS 720 576 :Items (']
    for row in range(1, 11):
        lines.append(f'{{:Text {row} :OrigContent "Page {number}, line {row}" :OrigBoxSize 400 40 '
                     f":OrigPosition 100 {50 * row} :TextColour '=FF=FF=FF'}}")
        lines.append(f"{{:Rectangle {row + 20} :OrigBoxSize 420 44 :OrigPosition 90 {50 * row - 2} "
                     f":OrigRefFillColour '=00=40=80=00'}}")
        lines.append(f"{{:Link {row + 40} :EventSource 0 :EventType UserInput :EventData {row + 4} "
                     f":LinkEffect (:Add(60 {row}) :SetPosition({row} 110 {50 * row}) "
                     f':TransitionTo(("~/s{(number + row * 7) % SCENES}" 0)))}}')
    return "\n".join(lines + ["{:IntegerVar 60 :OrigValue 0}", ")}", ""])


def write_carousel(folder):
    folder.mkdir()
    application = '{:Application ("~/a" 0) :OnStartUp (:TransitionTo(("~/s0" 0)))}'
    (folder / "a.mheg").write_text(application)
    for number in range(SCENES):
        (folder / f"s{number}.mheg").write_text(scene_text(number))
    return sorted(map(str, folder.iterdir()))


def seconds_of(command, prepare=lambda: None):
    """The shortest time of several runs. Ends the program if the command prints an error. Calls
    `prepare` before each run, outside the measured time."""
    best, spent, runs = float("inf"), 0, 0
    while runs < LEAST_RUNS or spent < LEAST_SECONDS:
        prepare()
        start = time.perf_counter()
        done = subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        elapsed = time.perf_counter() - start
        if done.returncode != 0 or done.stderr:
            sys.exit(f"{command[:2]} failed: {done.stderr[:500]}")
        best, spent, runs = min(best, elapsed), spent + elapsed, runs + 1
    return best


def main():
    mheg, results = sys.argv[1:]
    work = pathlib.Path(tempfile.mkdtemp())
    try:
        sources = write_carousel(work / "sources")
        compiled = work / "compiled"
        rows = []

        def measure(name, arguments, cat_of, prepare=lambda: None):
            cat = seconds_of(["cat", *cat_of])
            for label, jobs in (("1_core", 1), (f"{os.cpu_count()}_cores", 0)):
                command = [mheg, arguments[0], "-j", str(jobs), *arguments[1:]]
                rows.append({"name": f"mheg/{name}_{label}", "time_unit": "ms",
                             "real_time": seconds_of(command, prepare) * 1e3, "cat": cat * 1e3})

        measure("compile", ["compile", *sources, "-o", f"{compiled}/"], sources)
        binaries = sorted(map(str, compiled.iterdir()))
        measure("check", ["check", str(compiled)], binaries)
        measure("decompile", ["decompile", *binaries, "-o", f"{work}/decompiled/"], binaries)
        sources_folder, copy, built = work / "sources", work / "copy", work / "built"

        def copy_sources():
            shutil.rmtree(copy, ignore_errors=True)
            shutil.copytree(sources_folder, copy)

        measure("build", ["build", str(sources_folder), "-o", str(built)], sources,
                lambda: shutil.rmtree(built, ignore_errors=True))
        measure("build_again", ["build", str(sources_folder), "-o", str(built)], sources)
        measure("format", ["format", str(copy)], sources, copy_sources)
        pathlib.Path(results).write_text(json.dumps({"benchmarks": rows}, indent=1))
    finally:
        shutil.rmtree(work)


if __name__ == "__main__":
    main()
