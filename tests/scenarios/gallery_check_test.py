"""The check of the gallery's page finds each kind of fault in a page that has only this one. It
needs Chromium, so `make gallery-check` runs it."""

import pathlib
import tempfile
import unittest

from PIL import Image

import gallery_check

GOOD = '<a href="a.png"><img src="a.png" alt="one" width="200"></a>'
PAGE = """<!DOCTYPE html><html lang="en"><head><meta charset="utf-8"><title>Pictures</title>
<style>a:focus-visible {{ display: block; outline: 3px solid blue; }}</style></head>
<body>{}</body></html>"""


class GalleryCheck(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.driver = gallery_check.browser()
        cls.addClassCleanup(cls.driver.quit)

    def problems(self, body):
        with tempfile.TemporaryDirectory() as folder:
            page = pathlib.Path(folder) / "page.html"
            page.write_text(PAGE.format(body))
            Image.new("RGB", (200, 160), "green").save(page.parent / "a.png")
            return gallery_check.problems_of(self.driver, page, 400)

    def assert_one(self, words, body):
        problems = self.problems(body)
        self.assertTrue(any(words in problem for problem in problems), problems)

    def test_good_page(self):
        self.assertEqual(self.problems(GOOD), [])

    def test_picture_that_does_not_load(self):
        self.assert_one("b.png does not load", GOOD + '<img src="b.png" alt="two" width="200">')

    def test_picture_without_words(self):
        self.assert_one("a.png has no words", GOOD + '<img src="a.png" width="200">')

    def test_picture_that_is_too_small(self):
        self.assert_one("a.png is too small", GOOD + '<img src="a.png" alt="two" width="20">')

    def test_content_that_is_too_wide(self):
        self.assert_one("the page is 600 pixels wide", GOOD + '<p style="width: 592px">wide</p>')
        self.assert_one("p reaches from", GOOD + '<div style="overflow: hidden">'
                        '<p style="width: 592px">wide</p></div>')

    def test_link_that_the_keyboard_does_not_reach(self):
        self.assert_one("does not reach", '<a href="a.png" tabindex="-1">one</a>' + GOOD)

    def test_link_that_does_not_show_the_focus(self):
        self.assert_one("does not show the focus", GOOD.replace("<a ", '<a style="outline: none" '))

    def test_link_that_enter_does_not_open(self):
        link = '<a href="a.png" onclick="return false"><img src="a.png" alt="one" width="200"></a>'
        self.assert_one("the Enter key does not open", link)

    def test_page_without_links(self):
        self.assert_one("there are no links", '<img src="a.png" alt="one" width="200">')


if __name__ == "__main__":
    unittest.main()
