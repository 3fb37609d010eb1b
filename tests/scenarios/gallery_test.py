"""The gallery's page shows the results and the pictures of the scenarios."""

import pathlib
import tempfile
import unittest

import gallery


class Gallery(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.page_folder = self.root / "page"

    def write(self, name, content=b""):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
        return path

    def card(self, problems, pictures=("a.png",), name="text_is_red"):
        result = {
            "name": name,
            "sentence": "A < B, in red.",
            "pictures": list(pictures),
            "problems": problems,
        }
        scenario, work = self.root / "scenario", self.root / "work"
        return gallery.card_of(result, scenario, work, self.page_folder)

    def test_passed_scenario_shows_its_pictures(self):
        self.write("work/a.png", b"seen a")
        self.write("work/b.png", b"seen b")
        self.write("scenario/expected/a.png", b"stored a")
        card = self.card([], ["a.png", "b.png"])
        page = gallery.page_of([card], [], 5)
        self.assertIn("<h2>Text is red</h2>", page)
        self.assertIn("A &lt; B, in red.", page)
        self.assertIn('<span class="passed">1 passed</span>', page)
        self.assertNotIn('<span class="failed">', page)
        for name in "ab":
            self.assertIn(f'src="text_is_red/{name}.png"', page)
            copy = self.page_folder / "text_is_red" / f"{name}.png"
            self.assertEqual(copy.read_bytes(), f"seen {name}".encode())
        self.assertNotIn("expected", page)

    def test_failed_scenario_shows_what_is_wrong(self):
        self.write("work/a.png", b"seen")
        self.write("work/difference_a.png", b"wrong")
        self.write("scenario/expected/a.png", b"stored")
        page = gallery.page_of([self.card(["a.png 1 2 #FFFFFF: <no>"])], [], 5)
        self.assertIn("<code>a.png 1 2 #FFFFFF: &lt;no&gt;</code>", page)
        self.assertIn('<span class="failed">1 failed</span>', page)
        self.assertIn('<span class="passed">0 passed</span>', page)
        for address in ("text_is_red/a.png", "text_is_red/difference_a.png"):
            self.assertIn(f'src="{address}"', page)
        self.assertIn('src="text_is_red.expected/a.png"', page)
        stored = self.page_folder / "text_is_red.expected" / "a.png"
        self.assertEqual(stored.read_bytes(), b"stored")

    def test_failed_scenarios_come_first_and_demos_next(self):
        names = ("any", "demo", "demo_one", "failed")
        cards = [self.card(["no"] if name == "failed" else [], [], name) for name in names]
        page = gallery.page_of(cards, [], 5)
        titles = ("Failed", "Demo one", "Any", "Demo")
        places = [page.index(f"<h2>{title}</h2>") for title in titles]
        self.assertEqual(places, sorted(places))

    def test_demo_without_scenario_counts_as_failed(self):
        self.write("examples/shown/a.mheg")
        self.write("examples/forgotten/a.mheg")
        self.write("examples/host/host.c")
        scenario = self.root / "scenarios" / "demo_shown"
        scenario.mkdir(parents=True)
        (scenario / "carousel").symlink_to(self.root / "examples" / "shown")
        missing = gallery.demos_without_scenario(self.root.resolve() / "examples", [scenario])
        self.assertEqual([demo.name for demo in missing], ["forgotten"])
        page = gallery.page_of([], missing, 5)
        self.assertIn("The demo <code>forgotten</code> has no scenario.", page)
        self.assertIn('<span class="failed">1 failed</span>', page)


if __name__ == "__main__":
    unittest.main()
