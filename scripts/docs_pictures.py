#!/usr/bin/env python3
"""Makes the pictures of docs/ from the stored pictures of the demos' scenarios.

Usage: docs_pictures.py FOLDER. Each demo has a picture, and demos.png shows all of them.
"""

import pathlib
import shutil
import sys

from PIL import Image, ImageDraw

from demo_pictures import RAISED

SCENARIOS = pathlib.Path(__file__).resolve().parent.parent / "tests" / "scenarios"
STORED = {
    "welcome": "demo_welcome/expected/menu.png",
    "quiz": "demo_quiz/expected/wrong.png",
    "clock": "demo_clock/expected/start.png",
    "news": "demo_news/expected/headlines.png",
    "story": "demo_news/expected/story.png",
    "paint": "demo_paint/expected/picture.png",
    "gallery": "demo_gallery/expected/wall.png",
}

# The picture of all demos: a large screen and five small ones, on a card with round corners.
LARGE, SMALL = (700, 560), (340, 272)
ACROSS, DOWN, MARGIN = SMALL[0] + 20, SMALL[1] + 16, 28
POSITIONS = {
    "news": (0, 0),
    "welcome": (2, 0),
    "quiz": (2, 1),
    "clock": (0, 2),
    "paint": (1, 2),
    "gallery": (2, 2),
}
CARD, EDGE = "#060B16", RAISED
SCALE = 4  # corners are drawn this many times larger, and then reduced


def round_mask(size, radius):
    mask = Image.new("L", (size[0] * SCALE, size[1] * SCALE))
    box = (0, 0, mask.width - 1, mask.height - 1)
    ImageDraw.Draw(mask).rounded_rectangle(box, radius * SCALE, fill=255)
    return mask.resize(size, Image.LANCZOS)


def all_demos():
    size = (3 * ACROSS - 20 + 2 * MARGIN, 3 * DOWN - 16 + 2 * MARGIN)
    card = Image.new("RGB", size, CARD)
    for demo, (column, row) in POSITIONS.items():
        shown = LARGE if demo == "news" else SMALL
        x, y = MARGIN + column * ACROSS, MARGIN + row * DOWN
        edge = (shown[0] + 4, shown[1] + 4)
        card.paste(EDGE, (x - 2, y - 2), round_mask(edge, 12))
        with Image.open(SCENARIOS / STORED[demo]) as picture:
            screen = picture.convert("RGB").resize(shown, Image.LANCZOS)
        card.paste(screen, (x, y), round_mask(shown, 10))
    card.putalpha(round_mask(size, 24))
    return card


def main():
    folder = pathlib.Path(sys.argv[1])
    for name, stored in STORED.items():
        shutil.copyfile(SCENARIOS / stored, folder / f"{name}.png")
    all_demos().save(folder / "demos.png", optimize=True)


if __name__ == "__main__":
    main()
