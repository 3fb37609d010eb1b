#!/usr/bin/env python3
"""Reads the report of the Windows test kit, and checks the pictures of its scenarios.

Prints the failed tests, whose output is in output.txt of the report, and for each scenario the
differences from the rules and the stored pictures, exactly as `make test` does under Wine; a
picture of the wrong pixels, difference_NAME.png, is then beside the picture. Ends with 1 if
anything failed or is missing.
Usage: windows_report.py FOLDER
"""

import pathlib
import re
import sys

SCENARIOS = pathlib.Path(__file__).resolve().parents[1] / "tests" / "scenarios"
sys.path.insert(0, str(SCENARIOS))

import checks  # noqa: E402


def main():
    if len(sys.argv) != 2:
        raise SystemExit(f"usage: {sys.argv[0]} FOLDER")
    report = pathlib.Path(sys.argv[1])
    if not (report / "results.txt").exists():
        raise SystemExit(f"{report} has no results.txt")
    print((report / "system.txt").read_text(errors="replace").strip())
    results = [line.split() for line in (report / "results.txt").read_text().splitlines()]
    programs = [result for result in results if result[1] != "scenario"]
    played = {name for _, program, name in results if program == "scenario"}
    # A status of 0 is not enough: a program that did not run must not count as passed.
    output = (report / "output.txt").read_text(errors="replace")
    ended = set(re.findall(r"^\[ +(?:OK|SKIPPED) \] (\S+)", output, re.MULTILINE))
    failed = 0
    for result, program, name in programs:
        if result != "passed" or name not in ended:
            failed += 1
            print(f"failed: {program} {name}")
    wrong = 0
    scenarios = sorted(script.parent for script in SCENARIOS.glob("*/script"))
    for scenario in scenarios:
        problems = ["it was not played"]
        if scenario.name in played:
            problems = checks.problems_of(scenario, report / "scenarios" / scenario.name)
        if ["FAILED", "scenario", scenario.name] in results:
            problems.insert(0, "the player failed")
        if problems:
            wrong += 1
            print(f"scenario {scenario.name}:", *problems, sep="\n  ")
    print(f"tests: {len(programs) - failed} passed, {failed} failed")
    print(f"scenarios: {len(scenarios) - wrong} passed, {wrong} failed")
    return 1 if failed or wrong or not programs else 0


if __name__ == "__main__":
    sys.exit(main())
