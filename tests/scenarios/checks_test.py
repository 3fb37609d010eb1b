"""Each kind of check holds on a made-up picture and fails when the picture breaks its rule."""

import pathlib
import tempfile
import unittest

import numpy
from PIL import Image

import checks

GROUND = (16, 32, 96)
INK = (255, 0, 0)


class Checks(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.scenario = pathlib.Path(folder.name) / "scenario"
        self.work = pathlib.Path(folder.name) / "work"
        (self.scenario / "expected").mkdir(parents=True)
        self.work.mkdir()
        self.picture = numpy.full((60, 80, 3), GROUND, numpy.uint8)

    def fill(self, x, y, width, height, colour):
        self.picture[y : y + height, x : x + width] = colour

    def save(self, folder=None, name="a.png"):
        Image.fromarray(self.picture).save((folder or self.work) / name)

    def problems(self, *lines):
        self.save()
        (self.scenario / "pixels").write_text("\n".join(lines))
        return checks.problems_of(self.scenario, self.work)

    def assert_right(self, line):
        self.assertEqual(self.problems("# a remark", "", line), [])
        self.assertFalse((self.work / "difference_a.png").exists())

    def assert_wrong(self, line, problem):
        self.assertEqual(self.problems(line), [f"{line}: {problem}"])

    def difference(self, name="a.png"):
        with Image.open(self.work / f"difference_{name}") as picture:
            return numpy.asarray(picture) == 255

    # Colours of areas

    def test_area_of_one_colour(self):
        self.fill(10, 20, 3, 2, INK)
        self.assert_right("a.png 10 20 3 2 #FF0000")
        self.assert_right("a.png 12 21 #ff0000")
        self.assert_wrong("a.png 10 20 4 2 #FF0000", "2 of 8 pixels are wrong")
        self.assertEqual(self.difference().nonzero()[0].tolist(), [20, 21])
        self.assertEqual(self.difference().nonzero()[1].tolist(), [13, 13])

    def test_one_pixel(self):
        self.assert_wrong("a.png 0 0 #FF0000", "1 of 1 pixels are wrong")

    def test_colour_within_a_distance(self):
        self.fill(0, 0, 2, 1, (18, 30, 96))
        self.assert_right("a.png 0 0 2 1 #102060 within 2")
        self.assert_wrong("a.png 0 0 2 1 #102060 within 1", "2 of 2 pixels are wrong")

    def test_another_colour_somewhere(self):
        self.fill(5, 5, 1, 1, INK)
        self.assert_right("a.png 0 0 80 60 !#102060")
        self.assert_wrong("a.png 20 0 2 2 !#102060", "4 of 4 pixels are wrong")

    def test_area_outside_of_the_picture(self):
        outside = "the area is not within the picture of 80 x 60"
        self.assert_wrong("a.png 0 0 81 1 #102060", outside)
        self.assert_wrong("a.png 0 60 #102060", outside)
        self.assert_wrong("a.png 0 0 0 5 #102060", outside)

    # Frames

    def test_frame(self):
        self.fill(10, 10, 20, 16, INK)
        self.fill(12, 12, 16, 12, GROUND)
        self.assert_right("frame a.png 10 10 20 16 2 #FF0000")
        self.assert_right("frame a.png 10 10 20 16 1 #FF0000")
        self.assert_wrong("frame a.png 10 10 20 16 3 #FF0000", "52 pixels of the border are wrong")
        self.assert_wrong("frame a.png 9 10 20 16 1 #FF0000", "16 pixels of the border are wrong")

    def test_frame_that_fills_its_area(self):
        self.fill(10, 10, 4, 2, INK)
        self.assert_right("frame a.png 10 10 4 2 1 #FF0000")
        self.fill(11, 10, 1, 1, GROUND)
        self.assert_wrong("frame a.png 10 10 4 2 1 #FF0000", "1 pixels of the border are wrong")

    # Areas that look the same

    def test_same_elsewhere(self):
        self.fill(10, 10, 5, 5, INK)
        self.fill(40, 30, 5, 5, INK)
        self.assert_right("same a.png 8 8 9 9 a.png 38 28")
        self.fill(42, 32, 1, 1, GROUND)
        self.assert_wrong("same a.png 8 8 9 9 a.png 38 28", "1 pixels are not the same")

    def test_same_in_another_picture(self):
        self.save(name="b.png")
        self.assert_right("same a.png 0 0 80 60 b.png")
        self.fill(0, 0, 3, 1, INK)
        self.assert_wrong("same a.png 0 0 80 60 b.png", "3 pixels are not the same")

    def test_changed_from_another_picture(self):
        self.save(name="b.png")
        self.fill(7, 5, 1, 1, INK)
        self.assert_right("changed a.png 0 0 8 6 b.png")
        self.assert_wrong("changed a.png 0 0 7 6 b.png", "nothing has changed")

    # Ink

    def test_ink_where_it_lies(self):
        self.fill(21, 12, 10, 5, INK)
        self.fill(25, 20, 20, 4, INK)
        area = "ink a.png 5 5 60 40 #102060"
        self.assert_right(f"{area} left 21 right 40..44 top 10..12 bottom 23..30 lines 2")
        self.assert_right(f"{area} width 24 height 12")
        self.assert_wrong(f"{area} left 22..30", "left is 21")
        self.assert_wrong(f"{area} right 45..50", "right is 44")
        self.assert_wrong(f"{area} top 0..11", "top is 12")
        self.assert_wrong(f"{area} bottom 24", "bottom is 23")
        self.assert_wrong(f"{area} width 25..99", "width is 24")
        self.assert_wrong(f"{area} height 0..11", "height is 12")
        self.assert_wrong(f"{area} lines 1", "lines is 2")

    def test_ink_at_the_edges_of_the_area(self):
        self.fill(5, 5, 3, 1, INK)
        self.fill(5, 9, 3, 1, INK)
        self.assert_right("ink a.png 5 5 3 5 #102060 left 5 right 7 top 5 bottom 9 lines 2")

    def test_no_ink(self):
        self.assert_wrong("ink a.png 5 5 60 40 #102060", "there is no ink")
        self.assertEqual(int(self.difference().sum()), 60 * 40)

    def test_ink_of_a_colour(self):
        self.fill(10, 10, 1, 1, INK)
        self.fill(11, 10, 1, 1, (136, 16, 48))  # half of it over the background
        self.assert_right("ink a.png 5 5 60 40 #102060 colour #FF0000")
        self.assert_wrong("ink a.png 5 5 60 40 #102060 colour #00FF00", "the ink is not #00FF00")
        self.fill(12, 10, 1, 1, (255, 255, 0))
        self.assert_wrong("ink a.png 5 5 60 40 #102060 colour #FF0000", "the ink is not #FF0000")

    def test_ink_too_faint_for_its_colour(self):
        self.fill(10, 10, 1, 1, (112, 19, 58))  # two fifths
        self.assert_wrong("ink a.png 5 5 60 40 #102060 colour #FF0000", "the ink is not #FF0000")

    # Checks that cannot be made

    def test_picture_that_was_not_taken(self):
        self.assert_wrong("b.png 0 0 #102060", "no such picture was taken")
        Image.fromarray(self.picture).save(self.scenario / "expected" / "c.png")
        self.assertEqual(self.problems(), ["c.png: no such picture was taken"])

    def test_check_that_is_badly_written(self):
        self.fill(0, 0, 1, 1, INK)
        unknown = "nothing is known about 'colum'"
        self.assert_wrong("ink a.png 0 0 9 9 #102060 colum 5", unknown)
        self.assert_wrong("ink a.png 0 0 9 9 #102060 left", "'left' has no value")
        self.assert_wrong("a.png 0 zero #102060", "'zero' is no number")
        self.assert_wrong("a.png 0 0 #10206", "'#10206' is no colour")
        self.assert_wrong("a.png 0 0 #10206G", "'#10206G' is no colour")
        self.assert_wrong("same a.png", "words are missing, or there are too many")
        self.assert_wrong("a.png 0 0 5 #102060", "words are missing, or there are too many")

    # Stored pictures

    def stored_problems(self, *tolerance):
        (self.scenario / "tolerance").write_text("\n".join(tolerance))
        return self.problems()

    def test_stored_picture(self):
        self.save(self.scenario / "expected")
        self.assertEqual(self.stored_problems(), [])
        self.fill(30, 30, 2, 2, INK)
        self.assertEqual(self.stored_problems(), ["a.png: 4 pixels differ"])
        self.assertEqual(int(self.difference().sum()), 4)

    def test_stored_picture_of_another_size(self):
        self.save(self.scenario / "expected")
        self.picture = self.picture[:50]
        self.assertEqual(self.stored_problems(), ["a.png: the size is 80 x 50"])

    def test_glyphs_may_differ_in_number(self):
        self.save(self.scenario / "expected")
        self.fill(30, 30, 2, 2, INK)
        self.assertEqual(self.stored_problems("a.png 30 30 10 10 glyphs 4"), [])
        line = "* 30 30 10 10 glyphs 3"
        problem = f"a.png: 4 pixels differ in the area of '{line}'"
        self.assertEqual(self.stored_problems(line), [problem])
        self.assertEqual(self.stored_problems("b.png,a.png 30 30 10 10 glyphs 4"), [])
        others = self.stored_problems("b.png,aa.png 30 30 10 10 glyphs 4")
        self.assertEqual(others, ["a.png: 4 pixels differ"])

    def test_channels_may_differ_in_value(self):
        self.save(self.scenario / "expected")
        self.fill(30, 30, 2, 2, (16, 35, 96))
        self.assertEqual(self.stored_problems("a.png 30 30 2 2 within 3"), [])
        for line, count in (("a.png 30 30 2 2 within 2", 4), ("a.png 30 30 1 2 within 3", 2)):
            self.assertEqual(self.stored_problems(line), [f"a.png: {count} pixels differ"])

    # The output of the engine

    def test_output(self):
        (self.work / "output").write_bytes(b"one\n")
        (self.scenario / "output").write_bytes(b"one\n")
        self.assertEqual(self.problems(), [])
        (self.scenario / "output").write_bytes(b"two\n")
        wrong = "the engine printed something else than the file 'output'"
        self.assertEqual(self.problems(), [wrong])


if __name__ == "__main__":
    unittest.main()
