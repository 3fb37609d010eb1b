#!/usr/bin/env python3
"""Plays one scenario on the real library and checks its pictures and output.

A scenario is a folder, named after the behaviour that it shows, with
  carousel/          the broadcast as an author writes it (`mheg build`)
  script             the steps of korvel-player (tools/mheg/script.h), after comments that
                     describe the expected result; its `shot` and `catch` steps take pictures
  pixels, expected/, tolerance
                     the checks of the pictures (checks.py)
  output             (optional) the lines that the engine prints, in order
  decoder            (optional) the decoder of I-frames that the player uses instead of its own:
                     the name of a folder of tests/decoders
  status             (optional) the exit status of the player; otherwise 0
A scenario without pixels, expected and output, or without the sentence, is an error. It is played
once, so that a fault that shows only sometimes is not hidden. The player takes pictures when they
are final, so a script waits only for timers of the content.
The pictures, the wrong pixels of a failure, and `result.json` with the result stay in the work
folder.
"""

import argparse
import json
import os
import pathlib
import shutil
import subprocess
import sys

import checks

RUN_LIMIT_S = 120


def add_tool_options(parser):
    """The options of this script and of those that play many scenarios."""
    parser.add_argument("--work", type=pathlib.Path, required=True, help="folder for all output")
    parser.add_argument("--wine", required=True, help="program that runs Windows programs")
    parser.add_argument("--player", required=True)
    parser.add_argument("--mheg", required=True, help="compiler of textual groups")


def sentence_of(scenario):
    """The comments before the first step of the script."""
    words = []
    for line in (scenario / "script").read_text().splitlines():
        if not line.startswith("#"):
            break
        words.append(line.lstrip("# ").rstrip())
    return " ".join(words)


def lacks_of(scenario):
    lacks = []
    if not any((scenario / part).exists() for part in ("pixels", "expected", "output")):
        lacks.append("there is no check of its pictures or output")
    if not sentence_of(scenario):
        lacks.append("the script does not begin with a sentence")
    return lacks


def shots_of(scenario):
    """The files that the script writes, in order: from `shot` and `catch X Y #RRGGBB`."""
    words_before = {"shot": 1, "catch": 4}
    names = []
    for line in checks.lines_of(scenario / "script"):
        count = words_before.get(line.split()[0])
        names += line.split(maxsplit=count)[count:] if count else []
    return list(dict.fromkeys(names))


def make_carousel(source, target, compiler):
    """Builds the carousel, which replaces an old one; returns the compiler's errors."""
    shutil.rmtree(target, ignore_errors=True)
    command = [compiler, "build", source, "-o", target]
    run = subprocess.run(command, capture_output=True, text=True)
    if run.returncode == 0:
        return []
    return run.stderr.splitlines() or [f"no carousel was made: status {run.returncode}"]


def player_of(scenario, work, player):
    """The player, or a copy of it beside the scenario's own decoder of I-frames."""
    if not (scenario / "decoder").exists():
        return player
    programs = pathlib.Path(player).parent
    decoder = (scenario / "decoder").read_text().strip()
    copy = (work / "player").resolve()  # it is not started from here
    copy.mkdir(exist_ok=True)
    shutil.copy(player, copy)
    shutil.copy(programs / "korvel.dll", copy)
    shutil.copy(programs.parent / "tests" / decoder / "MenuAPI.dll", copy)
    return copy / pathlib.Path(player).name


def status_of(scenario):
    file = scenario / "status"
    return int(file.read_text()) if file.exists() else 0


def play(scenario, work, tools):
    shutil.copy(scenario / "script", work)
    player = player_of(scenario, work, tools.player)
    command = [tools.wine, player, "carousel", "--script", "script", "--verbose"]
    limit = dict(os.environ, KORVEL_WINE_LIMIT=str(RUN_LIMIT_S))
    run = subprocess.run(command, cwd=work, capture_output=True, env=limit)
    (work / "output").write_bytes(run.stdout)
    (work / "log").write_bytes(run.stderr)
    if run.returncode == status_of(scenario):
        return []
    log = run.stderr.decode(errors="replace").splitlines()
    complaints = [line for line in log if line.startswith("korvel-player: ")]
    return complaints or [f"the player ended with {run.returncode}"]


def run(scenario, work, tools):
    """Compiles, plays and checks; writes and returns the result."""
    shutil.rmtree(work, ignore_errors=True)
    work.mkdir(parents=True)
    problems = lacks_of(scenario)
    problems += make_carousel(scenario / "carousel", work / "carousel", tools.mheg)
    if not problems:
        problems = play(scenario, work, tools) + checks.problems_of(scenario, work)
    if problems:
        print(f"{scenario.name}:", *problems, sep="\n  ")
    result = {
        "name": scenario.name,
        "sentence": sentence_of(scenario),
        "pictures": [name for name in shots_of(scenario) if (work / name).exists()],
        "problems": problems,
    }
    (work / "result.json").write_text(json.dumps(result, indent=2) + "\n")
    return result


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("scenario", type=pathlib.Path)
    add_tool_options(parser)
    tools = parser.parse_args()
    result = run(tools.scenario, tools.work, tools)
    if result["problems"]:
        sys.exit(f"{tools.scenario.name} failed; what was seen is in {tools.work}")


if __name__ == "__main__":
    main()
