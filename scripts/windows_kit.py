#!/usr/bin/env python3
"""Collects the Windows tests and the scenarios in a folder that runs them without CTest.

The list of tests, each with its program, name and folder, comes from CTest, so that the kit runs
the same tests as `make test` under Wine. Tests that examine the files of the build, and those of
the two tools' command lines, are shell scripts and are omitted.
"""

import argparse
import json
import pathlib
import shutil
import subprocess
import sys

PROJECT = pathlib.Path(__file__).resolve().parents[1]
BUILD = PROJECT / "build" / "win64"
MHEG = PROJECT / "build" / "native" / "bin" / "mheg"
SCENARIOS = PROJECT / "tests" / "scenarios"
sys.path.insert(0, str(SCENARIOS))

import run_scenario  # noqa: E402


def value_after(words, option):
    return next((word.removeprefix(option) for word in words if word.startswith(option)), None)


def tests_of():
    """Lines of tests.txt: the folder to run in (bin, or any other), the program, the test."""
    command = ["ctest", "--test-dir", BUILD, "--show-only=json-v1"]
    listing = json.loads(subprocess.run(command, check=True, capture_output=True).stdout)
    lines = []
    for test in listing["tests"]:
        words = test.get("command", [])
        name = value_after(words, "--gtest_filter=")
        if name is None:
            continue
        program = next(word for word in words if word.endswith(".exe"))
        properties = {entry["name"]: entry["value"] for entry in test["properties"]}
        if properties.get("DISABLED"):
            continue
        folder = pathlib.Path(properties["WORKING_DIRECTORY"]).name
        lines.append(f"{'bin' if folder == 'bin' else 'work'} {pathlib.Path(program).stem} {name}")
    return lines


def copy_programs(kit):
    (kit / "bin").mkdir(parents=True)
    for name in ("korvel.dll", "MenuAPI.dll", "korvel-player.exe", "mheg.exe"):
        shutil.copy(BUILD / "bin" / name, kit / "bin")
    (kit / "tests").mkdir()
    for program in (BUILD / "tests").glob("windows_*.exe"):
        shutil.copy(program, kit / "tests")
    for decoder in (BUILD / "tests").glob("*_decoder/MenuAPI.dll"):
        (kit / "tests" / decoder.parent.name).mkdir()
        shutil.copy(decoder, kit / "tests" / decoder.parent.name)


def copy_scenario(scenario, kit):
    folder = kit / "scenarios" / scenario.name
    folder.mkdir(parents=True)
    build = [MHEG, "build", scenario / "carousel", "-o", folder / "carousel"]
    subprocess.run(build, check=True)
    shutil.copy(scenario / "script", folder)
    if not (scenario / "decoder").exists():
        return
    decoder = (scenario / "decoder").read_text().strip()
    (folder / "player").mkdir()
    for file in ("bin/korvel-player.exe", "bin/korvel.dll", f"tests/{decoder}/MenuAPI.dll"):
        shutil.copy(kit / file, folder / "player")


def write_lines(path, lines):
    path.write_text("".join(f"{line}\r\n" for line in lines), newline="")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("kit", type=pathlib.Path)
    kit = parser.parse_args().kit
    shutil.rmtree(kit, ignore_errors=True)
    copy_programs(kit)
    tests = tests_of()
    missing = {line.split()[1] for line in tests} - {path.stem for path in kit.glob("tests/*.exe")}
    if not tests or missing:
        raise SystemExit(f"no tests, or programs are missing: {sorted(missing)}")
    scenarios = sorted(script.parent for script in SCENARIOS.glob("*/script"))
    for scenario in scenarios:
        copy_scenario(scenario, kit)
    write_lines(kit / "tests.txt", tests)
    statuses = [f"{scenario.name} {run_scenario.status_of(scenario)}" for scenario in scenarios]
    write_lines(kit / "scenarios.txt", statuses)
    for source, name in (("run-tests.cmd", "run-tests.cmd"), ("run-tests.txt", "README.txt")):
        write_lines(kit / name, (PROJECT / "packaging" / source).read_text().splitlines())
    print(f"{len(tests)} tests, {len(scenarios)} scenarios")


if __name__ == "__main__":
    main()
