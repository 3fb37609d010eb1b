#!/usr/bin/env python3
"""Plays one scenario on the real library and checks what is seen.

A scenario is a folder, named after the behaviour that it shows, with
  carousel/          the broadcast: NAME.mheg is compiled to NAME, other files are copied
  script             what korvel-player does (tools/player/script.h), after remarks that say in a
                     sentence what must be seen; its `shot NAME.png` lines give the pictures
  pixels, expected/, tolerance
                     what must be seen in the pictures (checks.py)
  output             (optional) the lines that the engine prints, in order
  decoder            (optional) the decoder of I-frames that the player has in place of its own:
                     the name of one that tests/windows builds
A scenario without pixels, expected and output, or without the sentence, is an error. To be quick,
wait for a pixel (`until`) rather than for a time, and for the one that comes last: a scene may be
shown piece by piece. A busy machine may be late: a scenario that fails is played again with its
waits 3 and then 8 times as long, and with a wait behind each `until`, before it counts as failed.
Pictures, and for a failure the wrong pixels, stay in the work folder; so does `result.json`, which
says what came of it.
"""

import argparse
import json
import os
import pathlib
import shutil
import subprocess
import sys

import checks

PATIENCE = (1, 3, 8)
LONGER_STILL_MS = 100  # behind an `until`, times the factor
RUN_LIMIT_S = 120


def add_tool_options(parser):
    """What every run needs, for this script and for those that play many scenarios."""
    parser.add_argument("--work", type=pathlib.Path, required=True, help="folder for what is made")
    parser.add_argument("--wine", required=True, help="program that runs Windows programs")
    parser.add_argument("--player", required=True)
    parser.add_argument("--mheg", required=True, help="compiler of textual groups")


def sentence_of(scenario):
    """The remarks before the first step of the script."""
    words = []
    for line in (scenario / "script").read_text().splitlines():
        if not line.startswith("#"):
            break
        words.append(line.lstrip("# ").rstrip())
    return " ".join(words)


def lacks_of(scenario):
    lacks = []
    if not any((scenario / part).exists() for part in ("pixels", "expected", "output")):
        lacks.append("nothing says what must be seen")
    if not sentence_of(scenario):
        lacks.append("the script does not begin with a sentence")
    return lacks


def shots_of(scenario):
    steps = [line.split(maxsplit=1) for line in checks.lines_of(scenario / "script")]
    return list(dict.fromkeys(step[1] for step in steps if step[0] == "shot"))


def prepare_carousel(source, target, compiler):
    """Compiles the texts; what the compiler complains about."""
    shutil.copytree(source, target)
    texts = sorted(target.rglob("*.mheg"))
    complaints = []
    for folder in {text.parent for text in texts}:
        inputs = [text for text in texts if text.parent == folder]
        command = [compiler, "compile", *inputs, "-o", f"{folder}/"]
        run = subprocess.run(command, capture_output=True, text=True)
        if run.returncode != 0:
            complaints += run.stderr.splitlines() or [f"the compiler ended with {run.returncode}"]
    for text in texts:
        text.unlink()
    return complaints


def slowed_script(scenario, factor):
    lines = []
    for line in checks.lines_of(scenario / "script"):
        words = line.split()
        lines.append(f"wait {int(words[1]) * factor}" if words[0] == "wait" else line)
        if words[0] == "until" and factor > 1:
            lines.append(f"wait {LONGER_STILL_MS * factor}")
    return "\n".join(lines) + "\n"


def player_of(scenario, work, player):
    """The player, or a copy that finds the scenario's own decoder of I-frames beside itself."""
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


def play(scenario, work, tools, factor):
    (work / "script").write_text(slowed_script(scenario, factor))
    for picture in work.glob("*.png"):
        picture.unlink()
    player = player_of(scenario, work, tools.player)
    command = [tools.wine, player, "carousel", "--script", "script", "--verbose"]
    limit = dict(os.environ, KORVEL_WINE_LIMIT=str(RUN_LIMIT_S * factor))
    run = subprocess.run(command, cwd=work, capture_output=True, env=limit)
    (work / "output").write_bytes(run.stdout)
    (work / "log").write_bytes(run.stderr)
    if run.returncode == 0:
        return []
    log = run.stderr.decode(errors="replace").splitlines()
    complaints = [line for line in log if line.startswith("korvel-player: ")]
    return complaints or [f"the player ended with {run.returncode}"]


def play_patiently(scenario, work, tools):
    for factor in PATIENCE:
        problems = play(scenario, work, tools, factor) + checks.problems_of(scenario, work)
        if not problems:
            break
        print(f"{scenario.name}, with waits times {factor}:", *problems, sep="\n  ")
    return problems


def run(scenario, work, tools):
    """Compiles, plays and checks; leaves and returns what came of it."""
    shutil.rmtree(work, ignore_errors=True)
    work.mkdir(parents=True)
    problems = lacks_of(scenario)
    problems += prepare_carousel(scenario / "carousel", work / "carousel", tools.mheg)
    if problems:
        print(f"{scenario.name} is not played:", *problems, sep="\n  ")
    else:
        problems = play_patiently(scenario, work, tools)
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
