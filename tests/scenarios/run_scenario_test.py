"""Plays scenarios with a shell script as the player: one play each, errors, results."""

import contextlib
import io
import json
import os
import pathlib
import tempfile
import types
import unittest

import numpy
from PIL import Image

import run_scenario

SCRIPT = "# A red picture\n# is seen.\n\n# Not this.\nwait 10\nshot b.png\nshot a.png\nexit\n"
BUILD = '[ "$1 $3" = "build -o" ] && cp -r "$2" "$4"'
PLAY = 'cp "$(dirname "$0")/red.png" a.png; cp a.png b.png\n'


class RunScenario(unittest.TestCase):
    player = "player"

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.work = self.root / "work"
        self.scenario = self.root / "red"
        (self.scenario / "carousel" / "more").mkdir(parents=True)
        self.write("red/script", SCRIPT)
        self.write("red/pixels", "a.png 0 0 9 9 #FF0000\n")
        self.write("red/carousel/a.mheg", "text")
        self.write("red/carousel/more/b.mheg", "text")
        red = numpy.full((9, 9, 3), (255, 0, 0), numpy.uint8)
        Image.fromarray(red).save(self.root / "red.png")

    def write(self, name, text):
        (self.root / name).write_text(text)
        return self.root / name

    def run_with(self, player, compiler=BUILD):
        mheg = self.write("mheg", f"#!/bin/sh\n{compiler}\n")
        mheg.chmod(0o755)
        player = self.write(self.player, player)
        tools = types.SimpleNamespace(wine="/bin/sh", player=player, mheg=mheg)
        with contextlib.redirect_stdout(io.StringIO()):
            return run_scenario.run(self.scenario, self.work, tools)

    def test_result_says_what_came_of_it(self):
        result = self.run_with(PLAY)
        self.assertEqual(result["name"], "red")
        self.assertEqual(result["sentence"], "A red picture is seen.")
        self.assertEqual(result["pictures"], ["b.png", "a.png"])
        self.assertEqual(result["problems"], [])
        self.assertEqual(json.loads((self.work / "result.json").read_text()), result)

    def test_carousel_is_built_and_replaces_an_old_one(self):
        self.run_with(PLAY)
        carousel = self.work / "carousel"
        (carousel / "old").write_text("bytes")
        self.run_with(PLAY)
        files = {str(path.relative_to(carousel)) for path in carousel.rglob("*") if path.is_file()}
        self.assertEqual(files, {"a.mheg", "more/b.mheg"})

    def test_fault_that_shows_once_in_three_plays_fails(self):
        result = self.run_with('echo >>tries; [ $(wc -l <tries) = 1 ] && exit 0\n' + PLAY)
        self.assertEqual(result["problems"], ["a.png 0 0 9 9 #FF0000: no such picture was taken"])
        self.assertEqual((self.work / "tries").read_text(), "\n")

    def test_script_is_played_as_it_is(self):
        self.run_with("cp script seen\n")
        self.assertEqual((self.work / "seen").read_text(), SCRIPT)

    def test_picture_that_is_caught_is_a_picture(self):
        self.write("red/script", "# Red.\nshot a.png\ncatch 1 2 #FF0000 b.png\nexit\n")
        self.assertEqual(self.run_with(PLAY)["pictures"], ["a.png", "b.png"])

    def test_what_is_never_seen_fails(self):
        result = self.run_with("")
        self.assertEqual(result["problems"], ["a.png 0 0 9 9 #FF0000: no such picture was taken"])
        self.assertEqual(result["pictures"], [])

    def test_complaints_of_the_player_are_problems(self):
        log = 'echo "read a: 5 bytes" >&2; echo "korvel-player: no" >&2; exit 1\n'
        self.assertEqual(self.run_with(PLAY + log)["problems"], ["korvel-player: no"])
        self.assertEqual(self.run_with(PLAY + "exit 5\n")["problems"], ["the player ended with 5"])

    def test_what_the_engine_prints_is_compared(self):
        self.write("red/output", "one\n")
        self.assertEqual(self.run_with(PLAY + "echo one\n")["problems"], [])
        wrong = "the engine printed something else than the file 'output'"
        self.assertEqual(self.run_with(PLAY + "echo two\n")["problems"], [wrong])

    def test_player_finds_the_decoder_that_the_scenario_names(self):
        self.write("red/decoder", "own_decoder\n")
        for name in ("tests/own_decoder", "bin"):
            (self.root / name).mkdir(parents=True)
        self.write("tests/own_decoder/MenuAPI.dll", "decoder")
        self.write("bin/korvel.dll", "library")
        self.player = "bin/player"
        self.work = pathlib.Path(os.path.relpath(self.work))  # as the gallery names it
        listed = PLAY.replace("/red.png", "/../../red.png") + 'cat "$(dirname "$0")"/*.dll >seen\n'
        self.assertEqual(self.run_with(listed)["problems"], [])
        self.assertEqual((self.work / "seen").read_text(), "decoderlibrary")

    def test_pictures_of_an_earlier_run_do_not_count(self):
        self.run_with(PLAY)
        self.assertEqual(len(self.run_with("exit 0\n")["problems"]), 1)

    def test_carousel_that_is_not_compiled_is_not_played(self):
        result = self.run_with("echo >>tries\n", 'echo "a.mheg:1:1: wrong" >&2; exit 1')
        self.assertEqual(set(result["problems"]), {"a.mheg:1:1: wrong"})
        self.assertFalse((self.work / "tries").exists())

    def test_scenario_that_says_nothing_fails(self):
        self.write("red/script", "shot a.png\n")
        (self.scenario / "pixels").unlink()
        result = self.run_with(PLAY)
        nothing_seen, nothing_said = result["problems"]
        self.assertEqual(nothing_seen, "there is no check of its pictures or output")
        self.assertEqual(nothing_said, "the script does not begin with a sentence")
        self.assertEqual(result["pictures"], [])


if __name__ == "__main__":
    unittest.main()
