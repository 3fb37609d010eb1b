#!/usr/bin/env python3
"""Plays one scenario on the real library and compares what is seen with what must be seen.

A scenario is a folder with
  carousel/          the broadcast: NAME.mheg is compiled to NAME, other files are copied
  script             what korvel-player does; its `shot NAME.png` lines give the pictures
  pixels             (optional) what follows from the rules: "NAME.png X Y [WIDTH HEIGHT] #RRGGBB",
                     every pixel of the area has this colour; "!#RRGGBB", at least one has another
  expected/NAME.png  (optional) stored pictures, compared exactly but for the areas in
  tolerance          (optional) "NAME.png|* X Y WIDTH HEIGHT glyphs COUNT", up to COUNT pixels may
                     differ there, or "... within D", each channel may differ by up to D
  output             (optional) the lines that the engine prints, in order
A scenario without pixels, expected and output is an error. A busy machine may be late: a scenario
that fails is played again with its waits 3 and then 8 times as long before it counts as failed.
Pictures, and for a failure the differing pixels in white on black, stay in the work folder.
"""

import argparse
import pathlib
import shutil
import subprocess
import sys

import numpy
from PIL import Image

PATIENCE = (1, 3, 8)
RUN_LIMIT_S = 120


def lines_of(path):
    if not path.exists():
        return []
    lines = (line.strip() for line in path.read_text().splitlines())
    return [line for line in lines if line and not line.startswith("# ")]


def prepare_carousel(source, target, compiler):
    shutil.rmtree(target, ignore_errors=True)
    shutil.copytree(source, target)
    for text in sorted(target.rglob("*.mheg")):
        subprocess.run([compiler, "compile", text, "-o", text.with_suffix("")], check=True)
        text.unlink()


def slowed_script(scenario, factor):
    lines = []
    for line in lines_of(scenario / "script"):
        words = line.split()
        lines.append(f"wait {int(words[1]) * factor}" if words[0] == "wait" else line)
    return "\n".join(lines) + "\n"


def play(options, work, factor):
    (work / "script").write_text(slowed_script(options.scenario, factor))
    for picture in work.glob("*.png"):
        picture.unlink()
    command = [options.wine, options.player, "carousel", "--script", "script", "--verbose"]
    run = subprocess.run(command, cwd=work, capture_output=True, timeout=RUN_LIMIT_S * factor)
    (work / "output").write_bytes(run.stdout)
    (work / "log").write_bytes(run.stderr)
    if run.returncode == 0:
        return []
    return [f"the player ended with {run.returncode}: {run.stderr.decode(errors='replace')}"]


def load(path):
    return numpy.asarray(Image.open(path).convert("RGB")).astype(int)


def area_of(image, numbers):
    x, y, width, height = numbers
    return image[y : y + height, x : x + width]


def wrong_pixels(scenario, work):
    problems = []
    for line in lines_of(scenario / "pixels"):
        name, *numbers, colour = line.split()
        numbers = [int(number) for number in numbers]
        area = area_of(load(work / name), numbers if len(numbers) == 4 else numbers + [1, 1])
        wanted = [int(colour.lstrip("!#")[at : at + 2], 16) for at in (0, 2, 4)]
        differs = (area != wanted).any(axis=2)
        if differs.size == 0 or (not differs.any() if colour[0] == "!" else differs.any()):
            problems.append(f"{line}: not so, {int(differs.sum())} of {differs.size} pixels differ")
    return problems


def excuse(differences, scenario, name):
    """Takes out of `differences` (a channel's distance each) what the tolerance permits."""
    problems = []
    for line in lines_of(scenario / "tolerance"):
        picture, *numbers, kind, limit = line.split()
        if picture not in (name, "*"):
            continue
        area = area_of(differences, [int(number) for number in numbers])
        if kind == "glyphs":
            count = int((area > 0).any(axis=2).sum())
            if count > int(limit):
                problems.append(f"{name}: {count} pixels differ in the area of '{line}'")
            area[...] = 0
        else:
            area[area <= int(limit)] = 0
    return problems


def wrong_pictures(scenario, work):
    problems = []
    for stored in sorted((scenario / "expected").glob("*.png")):
        wanted, seen = load(stored), load(work / stored.name)
        if wanted.shape != seen.shape:
            problems.append(f"{stored.name}: the size is {seen.shape[1]} x {seen.shape[0]}")
            continue
        differences = abs(wanted - seen)
        unexcused = differences.any(axis=2)
        found = excuse(differences, scenario, stored.name)
        count = int(differences.any(axis=2).sum())
        if count > 0:
            found.append(f"{stored.name}: {count} pixels differ")
        if found:
            white = numpy.where(unexcused, 255, 0).astype(numpy.uint8)
            Image.fromarray(white).save(work / f"difference_{stored.name}")
        problems += found
    return problems


def wrong_output(scenario, work):
    expected = scenario / "output"
    if not expected.exists() or expected.read_bytes() == (work / "output").read_bytes():
        return []
    return [f"the engine printed something else than {expected}"]


def check(scenario, work):
    missing = [
        f"{name}: no such picture was taken"
        for name in {line.split()[0] for line in lines_of(scenario / "pixels")}
        | {stored.name for stored in (scenario / "expected").glob("*.png")}
        if not (work / name).exists()
    ]
    if missing:
        return missing
    return wrong_pixels(scenario, work) + wrong_pictures(scenario, work) + wrong_output(scenario, work)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("scenario", type=pathlib.Path)
    parser.add_argument("--work", type=pathlib.Path, required=True, help="folder for what is made")
    parser.add_argument("--wine", required=True, help="program that runs Windows programs")
    parser.add_argument("--player", required=True)
    parser.add_argument("--mheg", required=True, help="compiler of textual groups")
    options = parser.parse_args()
    scenario = options.scenario
    if not any((scenario / part).exists() for part in ("pixels", "expected", "output")):
        sys.exit(f"{scenario} does not say what must be seen")
    options.work.mkdir(parents=True, exist_ok=True)
    prepare_carousel(scenario / "carousel", options.work / "carousel", options.mheg)
    for factor in PATIENCE:
        problems = play(options, options.work, factor) or check(scenario, options.work)
        if not problems:
            return
        print(f"With waits times {factor}:", *problems, sep="\n  ")
    sys.exit(f"{scenario.name} failed; what was seen is in {options.work}")


if __name__ == "__main__":
    main()
