#!/usr/bin/python3
"""Runs the native tests of the portable folders and prints how much of each folder they execute.

Usage: coverage.py
Needs the programs of the preset `coverage`. Writes the sources with their counts to
build/coverage/html. Exits with 1 if a test fails or if a goal is missed.
"""
import collections
import json
import os
import pathlib
import shutil
import subprocess
import sys

GOALS = {"lines": 99.5, "branches": 95.0}
FOLDERS = ["objects", "objects/ber", "platform", "appearance", "engine", "actions", "textual",
           "dump"]
# The tests of the other tools execute no code of the portable folders.
PROGRAMS = ["objects", "appearance", "engine", "actions", "textual", "dump", "demos", "mheg",
            "reference"]
ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build/coverage"


def run_tests(programs):
    """Runs each program once. True if all tests pass."""
    profiles = BUILD / "profiles"
    shutil.rmtree(profiles, ignore_errors=True)
    # %m identifies the program: repeated runs, as of the tool in its tests, are merged in one file.
    environment = dict(os.environ, LLVM_PROFILE_FILE=str(profiles / "%m.profraw"))
    passed = True
    for program in programs:
        finished = subprocess.run([program, "--gtest_brief=1"], env=environment, cwd=BUILD,
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        if finished.returncode != 0:
            passed = False
            sys.stdout.buffer.write(finished.stdout)
    subprocess.run(["llvm-profdata", "merge", "-sparse", *sorted(profiles.iterdir()),
                    "-o", BUILD / "merged.profdata"], check=True)
    return passed


def llvm_cov(command, programs, *options):
    objects = [argument for program in programs[1:] for argument in ("-object", program)]
    return subprocess.run(["llvm-cov", command, programs[0], *objects, *options,
                           f"-instr-profile={BUILD / 'merged.profdata'}",
                           "-ignore-filename-regex=^/usr/|/tests/|/tools/"],
                          check=True, stdout=subprocess.PIPE).stdout


def counts_by_folder(summary):
    """{folder: {"lines": [covered, count], "branches": [covered, count]}}, with a row for all."""
    rows = collections.defaultdict(lambda: {measure: [0, 0] for measure in GOALS})
    for file in summary["data"][0]["files"]:
        folder = str((BUILD / file["filename"]).resolve().parent.relative_to(ROOT / "src"))
        if folder not in FOLDERS:  # a source of the presentation, which the tools use as well
            continue
        for measure in GOALS:
            counts = file["summary"][measure]
            for row in (folder, "all"):
                rows[row][measure][0] += counts["covered"]
                rows[row][measure][1] += counts["count"]
    return rows


def percent(covered, count):
    return 100 * covered / count if count else 100.0


def main():
    programs = [BUILD / "tests" / f"unit_{name}" for name in PROGRAMS]
    passed = run_tests(programs)
    programs.append(BUILD / "bin/mheg")
    llvm_cov("show", programs, "-format=html", "-show-branches=count",
             "-show-line-counts-or-regions", f"-output-dir={BUILD / 'html'}")
    rows = counts_by_folder(json.loads(llvm_cov("export", programs, "-summary-only")))
    print(f"{'folder':<12} {'lines':>11} {'':>8} {'branches':>11}")
    for folder in [*(folder for folder in FOLDERS if folder in rows), "all"]:
        cells = [f"{covered:>5}/{count:<5} {percent(covered, count):>6.2f} %"
                 for covered, count in rows[folder].values()]
        print(f"{folder:<12} {'  '.join(cells)}")
    missed = [f"{measure}: the goal is {goal} %" for measure, goal in GOALS.items()
              if percent(*rows["all"][measure]) < goal]
    print(*missed, f"Each line: {BUILD / 'html/index.html'}", sep="\n")
    return 0 if passed and not missed else 1


if __name__ == "__main__":
    sys.exit(main())
