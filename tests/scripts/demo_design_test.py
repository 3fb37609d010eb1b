"""Tests that the demos follow the design that examples/README.md describes: its colours, and texts
that can be read from far away."""

import pathlib
import re
import unittest

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
SMALLEST_TEXT = 30
# The application's default background, and the shade over the clock's panel, whatever its colour.
TRANSPARENT = {"000000FF", "000000A0"}


def palette():
    table = (EXAMPLES / "README.md").read_text().split("## One design")[1]
    return set(re.findall(r"`([0-9A-F]{6})`", table))


class DemoDesign(unittest.TestCase):
    def setUp(self):
        self.sources = {
            path.relative_to(EXAMPLES): re.sub("//.*", "", path.read_text())
            for path in EXAMPLES.glob("*/*.mheg")
        }
        self.assertGreater(len(self.sources), 15)

    def test_colours_are_those_of_the_palette(self):
        known = palette()
        for path, text in self.sources.items():
            for colour in re.findall(r"(?:'|=1BC=04)((?:=[0-9A-F]{2}){4})", text):
                digits = colour.replace("=", "")
                if digits in TRANSPARENT:
                    continue
                self.assertEqual((digits[6:], digits[:6] in known), ("00", True), (path, colour))

    def test_texts_can_be_read_from_far_away(self):
        for path, text in self.sources.items():
            for size in re.findall(r'"plain\.(\d+)\.', text):
                self.assertGreaterEqual(int(size), SMALLEST_TEXT, path)
            if ":Application" in text:
                self.assertIn(':FontAttributes "plain.', text, path)

    def test_texts_stay_in_the_safe_area(self):
        """A text is drawn inside its box, so the box of a title may begin a pixel higher."""
        area = r":OrigBoxSize (\d+) (\d+)\s+:OrigPosition (\d+) (\d+)"
        for path, text in self.sources.items():
            for words in re.findall(r"\{:(?:Hyper)?Text \d+(.*?)\n    \}", text, re.DOTALL):
                for numbers in re.findall(area, words):
                    width, height, x, y = (int(number) for number in numbers)
                    self.assertTrue(36 <= x and x + width <= 684, (path, numbers))
                    self.assertTrue(y >= 28 and y + height <= 547, (path, numbers))


if __name__ == "__main__":
    unittest.main()
