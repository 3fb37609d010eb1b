#!/usr/bin/python3
"""Plays the scripts of a demo in the window of the player and in `mheg run`, and compares the two.

The engine must read the same files with the same sizes in the same order, and the window must show
the words that the script expects. At each of these steps the player takes a picture, and
tesseract reads the words in the box that the object has in `mheg run`:
  expect text    the expected text
  expect scene   the first text on the display stack, usually the title of the scene
Texts that depend on time are listed and not compared, because the player has the real time.
The pictures stay in the work folder.

Usage: played_test.py FOLDER WORK WINE korvel-player.exe mheg
"""

import difflib
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
from typing import NamedTuple

from PIL import Image, ImageOps

FOLDER, WORK = (pathlib.Path(path).resolve() for path in sys.argv[1:3])
WINE, PLAYER, MHEG = sys.argv[3:]
# Options for a second run, which waits and has another date and time of day. A text that differs
# in it depends on time.
LATER = ("--date", "2031-10-18T07:45:10", "--keys", "wait:10s")

# Tesseract sometimes misreads a letter, or reads part of another object in the box. Two texts of a
# demo may also differ by one letter only, so the words must be more similar to the expected ones
# than to all others that the demo expects or shows.
LEAST_SIMILARITY = 0.8
LOOK_ALIKES = str.maketrans("oil|", "0111")


class Run:
    """What `mheg run` reports. `texts` has the words and the box of each text that is shown, by
    group and number, from bottom to top; `groups` has the last application and scene."""

    def __init__(self, script, *options):
        command = [MHEG, "run", FOLDER, "--script", script, "--trace=json", "--scene-graph"]
        run = subprocess.run([*command, *options], capture_output=True, encoding="utf-8")
        self.differences = run.stderr.splitlines()
        self.files, self.groups, self.texts = [], {}, {}
        for line in map(json.loads, run.stdout.splitlines()):
            if line["what"] == "file":
                size = f"{line['bytes']} bytes" if line["found"] else "no such file"
                self.files.append(f"{line['path']}: {size}")
            elif line["what"] == "group start":
                self.groups[line["class"]] = line["group"]
            elif line["what"] == "visible" and line["running"] and line.get("text"):
                x, y = line["x"], line["y"]
                box = (x, y, x + line["width"], y + line["height"])
                self.texts[line["group"], line["number"]] = (line["text"], box)

    def texts_of(self, group, number):
        groups = [group] if group else [self.groups.get("Scene"), self.groups.get("Application")]
        return [key for key in ((group, int(number)) for group in groups) if key in self.texts][:1]


def play(steps, name):
    """Plays the steps in the player. Returns the files that the engine reads."""
    (WORK / name).write_text("\n".join(steps) + "\n")
    command = [WINE, PLAYER, FOLDER, "--script", name, "--verbose", "--limit", "60"]
    # Not through a pipe: Wine may start a service that keeps it open.
    with open(WORK / "log", "wb") as output:
        run = subprocess.run(command, cwd=WORK, stdout=subprocess.DEVNULL, stderr=output)
    log = (WORK / "log").read_text()
    if run.returncode != 0:
        sys.exit(f"{name}: the player ends with {run.returncode}\n{log}")
    return re.findall(r"^read (.*: (?:\d+ bytes|no such file))$", log, re.MULTILINE)


def write_crop(picture, box, crop):
    """Writes the box, enlarged, with dark letters on a light background and a margin."""
    part = Image.open(WORK / picture).convert("L").crop(box)
    shades = part.histogram()
    if shades.index(max(shades)) < 128:
        part = ImageOps.invert(part)
    enlarged = ImageOps.scale(ImageOps.autocontrast(part), 4)
    ImageOps.expand(enlarged, 40, "white").save(WORK / crop)


def words_in(pictures):
    (WORK / "crops").write_text("\n".join(pictures) + "\n")
    one_block = "6"
    run = subprocess.run(["tesseract", "crops", "words", "--psm", one_block], cwd=WORK,
                         capture_output=True, env=dict(os.environ, OMP_THREAD_LIMIT="1"))
    if run.returncode != 0:
        sys.exit(f"tesseract failed: {run.stderr.decode()}")
    pages = (WORK / "words.txt").read_text(encoding="utf-8").split("\f")
    return [" ".join(page.split()) for page in pages]


def similarity(one, other):
    plain = ("".join(words.lower().split()).translate(LOOK_ALIKES) for words in (one, other))
    return difflib.SequenceMatcher(None, *plain, autojunk=False).ratio()


class Expected(NamedTuple):
    """Words that a picture must show in a box."""

    step: str
    words: str
    box: tuple
    picture: str


class Expectations:
    """What the scripts of the demo expect of the window. `left_out` has the steps whose words
    cannot be compared, with the reason; `words` has the words of all texts that are shown then."""

    def __init__(self):
        self.all = []
        self.left_out = []
        self.words = set()

    def add(self, script):
        """Returns the script with a `shot` for each state whose words are compared."""
        steps, run = [], None
        lines = script.read_text().splitlines()
        for line_number, line in enumerate(lines, 1):
            steps.append(line)
            if not line.startswith("expect "):
                run = None
            form = re.fullmatch(r"expect (?:scene .*|text (?:(\D\S*) )?(\d+) (.*))", line)
            if not form:
                continue
            if run is None:
                begin, picture = WORK / "begin.script", f"{script.stem}-{line_number}.png"
                begin.write_text("\n".join(lines[:line_number]))
                run, later = Run(begin), Run(begin, *LATER)
                self.words.update(words for words, _ in run.texts.values())
                steps.append(f"shot {picture}")
            group, number, words = form.groups()
            keys = run.texts_of(group, number) if number else run.texts
            lasting = [run.texts[key] for key in keys if run.texts[key] == later.texts.get(key)]
            step = f"{script.name}:{line_number}"
            if lasting:
                shown, box = lasting[0]
                self.all.append(Expected(step, words.strip('"') if words else shown, box, picture))
            else:
                self.left_out.append(f"{step}: {'depends on time' if keys else 'shows no words'}")
        return steps

    def differences(self):
        if not self.all:
            return ["no text was compared"]
        crops = [f"crop-{number}.png" for number in range(len(self.all))]
        for expected, crop in zip(self.all, crops):
            write_crop(expected.picture, expected.box, crop)
        words = self.words.union(expected.words for expected in self.all)
        problems = []
        for expected, crop, read in zip(self.all, crops, words_in(crops), strict=True):
            own = similarity(expected.words, read)
            others = words - {expected.words}
            if own < LEAST_SIMILARITY or any(similarity(other, read) >= own for other in others):
                shown = f'expected "{expected.words}", the window shows "{read}"'
                problems.append(f"{expected.step}: {shown} ({WORK / crop})")
        return problems


def main():
    shutil.rmtree(WORK, ignore_errors=True)
    (WORK / "build" / "play" / FOLDER.name).mkdir(parents=True)  # for the pictures of play.script
    problems, expectations = [], Expectations()
    for script in sorted(FOLDER.glob("*.script")):
        steps = expectations.add(script)
        run = Run(script)
        problems += run.differences
        files = play(steps, script.name)
        problems += difflib.unified_diff(run.files, files, f"{script.name}: mheg run reads",
                                         "the player reads", n=1, lineterm="")
    problems += expectations.differences()
    print(f"{len(expectations.all)} texts compared, {len(expectations.left_out)} left out",
          *expectations.left_out, sep="\n")
    if problems:
        sys.exit("\n".join(problems))


if __name__ == "__main__":
    main()
