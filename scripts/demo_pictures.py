#!/usr/bin/env python3
"""Draws the pictures of the demos news and gallery, in the demos' colours.

Usage: demo_pictures.py EXAMPLES_FOLDER. The pictures are PNG files; the frames of the gallery are
also encoded as MPEG-2 I-frames, by ffmpeg. They are stored beside the demos' source files, so that
building a demo needs neither this script nor its libraries. A test draws them again and compares.
"""

import io
import math
import pathlib
import random
import re
import subprocess
import sys

from PIL import Image, ImageDraw

# The palette in the order of its table.
DESIGN = pathlib.Path(__file__).resolve().parent.parent / "examples" / "README.md"
COLOURS = re.findall("`([0-9A-F]{6})`", DESIGN.read_text())
GROUND, PANEL, RAISED, LINE, MUTED, WHITE, GOLD, RED, GREEN, YELLOW, BLUE, PINE, WINE = (
    f"#{colour}" for colour in COLOURS[:13]
)
SCALE = 4  # pictures are drawn this many times larger, and then reduced


class Sheet:
    """A picture whose coordinates are pixels of the result."""

    def __init__(self, width, height, colour):
        self.size = (width, height)
        self.image = Image.new("RGB", (width * SCALE, height * SCALE), colour)
        self.pen = ImageDraw.Draw(self.image)

    @staticmethod
    def _scaled(points):
        return [(x * SCALE, y * SCALE) for x, y in points]

    def shape(self, colour, *points):
        self.pen.polygon(self._scaled(points), fill=colour)

    def box(self, colour, left, top, right, bottom):
        self.pen.rectangle(
            (left * SCALE, top * SCALE, right * SCALE - 1, bottom * SCALE - 1), fill=colour
        )

    def disc(self, colour, x, y, radius, aspect=1.0):
        box = self._scaled([(x - radius, y - radius * aspect), (x + radius, y + radius * aspect)])
        self.pen.ellipse([*box[0], *box[1]], fill=colour)

    def line(self, colour, width, *points):
        self.pen.line(self._scaled(points), fill=colour, width=round(width * SCALE), joint="curve")

    def sky(self, top, bottom, height):
        first, last = (tuple(bytes.fromhex(colour[1:])) for colour in (top, bottom))
        for row in range(height * SCALE):
            share = row / (height * SCALE - 1)
            mixed = tuple(round(a + (b - a) * share) for a, b in zip(first, last))
            self.pen.line([(0, row), (self.image.width, row)], fill=mixed)

    def stars(self, seed, count, height):
        rng = random.Random(seed)
        for _ in range(count):
            x, y = rng.uniform(0, self.size[0]), rng.uniform(0, height)
            self.disc(MUTED, x, y, rng.choice((0.8, 1.0, 1.5)))

    def wave(self, colour, level, height, length, shift=0.0):
        """Fills everything below a wavy line."""
        width, bottom = self.size
        crest = [
            (x, level - height * math.sin((x + shift) * 2 * math.pi / length))
            for x in range(0, width + 2, 2)
        ]
        self.shape(colour, (0, bottom), *crest, (width, bottom))

    def finished(self):
        return self.image.resize(self.size, Image.LANCZOS)


# ---- The stories of the news: 288 x 216 ----


def lighthouse():
    sheet = Sheet(288, 216, GROUND)
    sheet.sky(GROUND, RAISED, 216)
    sheet.stars(1, 40, 130)
    sheet.shape("#8A7A4A", (206, 62), (0, 8), (0, 92))
    sheet.shape(GOLD, (206, 62), (0, 30), (0, 72))
    sheet.shape("#24375C", (120, 190), (168, 168), (288, 158), (288, 216), (120, 216))
    for part, colour in enumerate((WHITE, RED, WHITE, RED)):
        top, bottom = 78 + part * 24, 78 + part * 24 + 24
        above, below = 16 + part * 2.2, 18.2 + part * 2.2  # half of the tower's width
        left = ((206 - above, top), (206 - below, bottom))
        right = ((206 + below, bottom), (206 + above, top))
        sheet.shape(colour, *left, *right)
    sheet.box(PANEL, 186, 72, 226, 79)
    sheet.box(GOLD, 194, 52, 218, 72)
    sheet.shape(RED, (188, 52), (224, 52), (206, 34))
    sheet.wave(BLUE, 184, 4, 72)
    sheet.wave("#3A66B4", 198, 4, 72, 36)
    return sheet


def train():
    sheet = Sheet(288, 216, GROUND)
    sheet.sky(GROUND, "#2B3F74", 150)
    sheet.stars(5, 46, 110)
    sheet.disc(WHITE, 232, 44, 20)
    ridge = ((60, 96), (112, 140), (168, 84), (240, 146), (288, 120))
    sheet.shape(PANEL, (0, 216), (0, 150), *ridge, (288, 216))
    sheet.box("#131F38", 0, 168, 288, 216)
    sheet.box(LINE, 0, 178, 288, 181)
    for x in range(4, 288, 18):
        sheet.box(RAISED, x, 181, x + 9, 186)
    sheet.shape(RED, (0, 118), (196, 118), (232, 132), (248, 160), (248, 168), (0, 168))
    sheet.box(WHITE, 0, 150, 246, 155)
    for x in range(10, 180, 34):
        sheet.box(GOLD, x, 127, x + 24, 144)
    sheet.shape(GOLD, (196, 127), (210, 127), (228, 138), (231, 144), (196, 144))
    sheet.shape("#5A5A52", (248, 158), (288, 150), (288, 186), (248, 164))
    for x in (22, 52, 108, 138, 194, 222):
        sheet.disc(LINE, x, 172, 8)
        sheet.disc(PANEL, x, 172, 4)
    return sheet


def tide():
    sheet = Sheet(288, 216, RAISED)
    sheet.sky("#16294C", "#4A6AA6", 150)
    sheet.disc("#F8E6B4", 210, 66, 34)
    sheet.disc(GOLD, 210, 66, 29)
    sheet.wave("#5B8AD8", 122, 7, 96)
    sheet.wave(BLUE, 146, 8, 118, 40)
    sheet.wave("#3A66B4", 168, 9, 104, 12)
    sheet.shape(WHITE, (64, 134), (64, 62), (104, 124))
    sheet.shape(MUTED, (58, 132), (58, 76), (34, 126))
    sheet.shape(RED, (26, 138), (112, 138), (96, 160), (42, 160))
    sheet.wave("#3A66B4", 172, 9, 104, 12)
    sheet.wave("#2B4F92", 192, 8, 128, 70)
    return sheet


def comet():
    sheet = Sheet(288, 216, GROUND)
    sheet.sky("#0B1222", "#223A66", 216)
    sheet.stars(12, 80, 180)
    for spread, colour in ((30, "#24406E"), (19, "#3F619C"), (9, "#8FB0E6")):
        sheet.shape(colour, (93, 121), (310, 6 - spread), (310, 6 + spread), (99, 133))
    sheet.disc("#8FB0E6", 96, 127, 15)
    sheet.disc(WHITE, 96, 127, 9)
    ridge = ((0, 186), (80, 160), (150, 184), (220, 166), (288, 190))
    sheet.shape(PANEL, (0, 216), *ridge, (288, 216))
    sheet.box(GROUND, 196, 160, 199, 182)
    sheet.disc(GROUND, 197, 156, 5)
    sheet.line(GROUND, 3, (198, 166), (210, 158))
    sheet.line(GROUND, 4, (206, 160), (222, 148))
    return sheet


def around(x, y, degrees, along, across):
    """The point at this distance along a ray from (x, y), and across it."""
    cosine, sine = math.cos(math.radians(degrees)), math.sin(math.radians(degrees))
    return (x + along * cosine - across * sine, y + along * sine + across * cosine)


def mill():
    sheet = Sheet(288, 216, "#8FB4E6")
    sheet.sky("#5F8FD8", "#C5DAF4", 170)
    for x, y in ((52, 44), (74, 40), (96, 46), (222, 70), (244, 66)):
        sheet.disc(WHITE, x, y, 16, 0.7)
    sheet.wave("#D9AE45", 170, 9, 320, 60)
    sheet.wave(GOLD, 186, 7, 250)
    sheet.shape(WHITE, (124, 92), (164, 92), (176, 184), (112, 184))
    sheet.shape(WINE, (118, 92), (170, 92), (144, 62))
    sheet.box(PANEL, 136, 152, 152, 184)
    sheet.disc(RAISED, 144, 120, 7)
    for degrees in (24, 114, 204, 294):
        corners = ((16, 0), (76, 0), (76, 18), (16, 14))
        sheet.shape("#EAF0FA", *(around(144, 86, degrees, *corner) for corner in corners))
        sheet.line(PANEL, 4, (144, 86), around(144, 86, degrees, 78, 0))
    sheet.disc(PANEL, 144, 86, 6)
    return sheet


def bridge():
    sheet = Sheet(288, 216, BLUE)
    sheet.sky("#F0B98A", "#F8E2BE", 140)
    sheet.disc("#FFF4D6", 70, 92, 26)
    for x, top in ((8, 96), (34, 108), (56, 84), (196, 98), (224, 80), (252, 104)):
        sheet.box("#C98F78", x, top, x + 24, 140)
    sheet.box(BLUE, 0, 138, 288, 216)
    sheet.wave("#3A66B4", 184, 4, 96)
    for x in (84, 204):
        sheet.box(PANEL, x - 5, 40, x + 5, 190)
    for side in (-1, 1):
        for x in (84, 204):
            for step in range(1, 6):
                sheet.line(PANEL, 1.5, (x, 44 + step * 4), (x + side * step * 16, 136))
    sheet.box(PANEL, 0, 134, 288, 144)
    for wheel in (128, 162):
        sheet.disc(GROUND, wheel, 122, 13)
        sheet.disc("#F8E2BE", wheel, 122, 10)
    sheet.line(RED, 3.5, (128, 122), (140, 102), (158, 102), (146, 122), (128, 122))
    sheet.line(RED, 3.5, (140, 102), (146, 122))
    sheet.line(RED, 3.5, (162, 122), (156, 94), (162, 92))
    sheet.line(GROUND, 4, (134, 98), (144, 98))
    return sheet


def books():
    sheet = Sheet(288, 216, "#22345A")
    colours = (RED, GOLD, BLUE, WHITE, GREEN, WINE, MUTED, PINE, LINE)
    rng = random.Random(7)
    for shelf in (68, 134, 200):
        x = 14
        while x < 262:
            width, height = rng.choice((12, 15, 18, 22)), rng.choice((36, 42, 46, 50))
            colour = rng.choice(colours)
            if x + width > 274:
                break
            if rng.random() < 0.12 and x + 36 < 274:
                top = ((x + 14, shelf - 46), (x + 27, shelf - 42))
                sheet.shape(colour, *top, (x + 13, shelf), (x, shelf))
                x += 30
                continue
            sheet.box(colour, x, shelf - height, x + width, shelf)
            sheet.box("#22345A", x, shelf - height + 7, x + width, shelf - height + 9)
            x += width + 2
        sheet.box("#6B4A34", 6, shelf, 282, shelf + 8)
    sheet.box("#6B4A34", 0, 0, 8, 216)
    sheet.box("#6B4A34", 280, 0, 288, 216)
    return sheet


def pass_in_snow():
    sheet = Sheet(288, 216, BLUE)
    sheet.sky("#4B7BD1", "#C5DAF4", 170)
    sheet.shape("#7F97C4", (-20, 180), (62, 60), (140, 180))
    sheet.shape(WHITE, (62, 60), (34, 101), (50, 94), (60, 106), (72, 92), (92, 106))
    sheet.shape("#5B78AC", (70, 190), (186, 30), (310, 190))
    sheet.shape(WHITE, (186, 30), (146, 85), (164, 80), (178, 98), (194, 78), (210, 94), (230, 86))
    sheet.wave(WHITE, 176, 12, 330, 40)
    sheet.wave("#DCE6F5", 198, 6, 260, 160)
    for x, foot in ((26, 190), (48, 200), (262, 196), (240, 204)):
        for part in range(3):
            top = foot - 50 + part * 13
            sheet.shape(PINE, (x, top), (x - 9 - part * 4, top + 22), (x + 9 + part * 4, top + 22))
    sheet.line(PANEL, 2, (0, 96), (288, 148))
    for x in (70, 150):
        y = 96 + x * 52 / 288
        sheet.line(PANEL, 2, (x, y), (x, y + 12))
        sheet.box(RED, x - 12, y + 12, x + 12, y + 30)
        sheet.box(GOLD, x - 8, y + 16, x + 8, y + 23)
    return sheet


STORIES = (lighthouse, train, tide, comet, mill, bridge, books, pass_in_snow)

# ---- The exhibits of the gallery ----


def leaves():
    sheet = Sheet(48, 48, "#1C4632")
    for x, y, colour in ((12, 12, GREEN), (36, 36, GREEN), (36, 12, PINE), (12, 36, PINE)):
        side = 1 if colour == GREEN else -1
        tip, root = (x + 9, y - 9 * side), (x - 9, y + 9 * side)
        sheet.shape(colour, tip, (x + 2, y + 8 * side), root, (x - 2, y - 8 * side))
        sheet.line("#1C4632", 1.5, root, tip)
    return sheet


def scales():
    sheet = Sheet(48, 48, RAISED)
    for row in range(-1, 4):
        for column in range(-1, 3):
            x, y = column * 24 + (12 if row % 2 else 0), row * 12 + 6
            for radius, colour in ((12, LINE), (9, BLUE), (6, MUTED), (3, RAISED)):
                sheet.disc(colour, x, y, radius)
    return sheet


def stars():
    sheet = Sheet(48, 48, "#54203A")
    for x, y, radius in ((12, 13, 10), (36, 40, 7)):
        reach = (radius, radius * 0.4)
        sheet.shape(GOLD, *(around(x, y, 36 * at - 90, reach[at % 2], 0) for at in range(10)))
    return sheet


def landscape(width, height, top, bottom, sun, sun_height, tones):
    sheet = Sheet(width, height, top)
    sheet.sky(top, bottom, height)
    unit = width / 288
    sheet.disc(sun, 200 * unit, sun_height * unit, 18 * unit)
    far, middle, near, tree = tones
    sheet.wave(far, 84 * unit, 14 * unit, 190 * unit, 30 * unit)
    sheet.wave(middle, 98 * unit, 10 * unit, 150 * unit, 90 * unit)
    sheet.wave(near, 114 * unit, 6 * unit, 240 * unit)
    for x, foot, size in ((40, 112, 1.0), (58, 116, 0.8), (250, 116, 1.0), (236, 119, 0.7)):
        for step in range(3):
            y = (foot - 34 * size + step * 9 * size) * unit
            half = (6 + step * 3) * size * unit
            sheet.shape(
                tree,
                (x * unit, y),
                (x * unit - half, y + 15 * size * unit),
                (x * unit + half, y + 15 * size * unit),
            )
    return sheet


def day(width, height):
    tones = ("#7FA8B8", GREEN, PINE, "#1C4632")
    sheet = landscape(width, height, "#5F8FD8", "#DCE9F8", "#FFF4D6", 34, tones)
    # A balloon, placed so that it stays visible when the picture is clipped.
    sheet.disc(RED, 150, 62, 44)
    sheet.shape(RED, (111, 82), (189, 82), (160, 122), (140, 122))
    sheet.disc(GOLD, 150, 62, 16, 44 / 16)
    sheet.shape(GOLD, (135, 82), (165, 82), (154, 122), (146, 122))
    sheet.line(PANEL, 1, (142, 120), (143, 134), (157, 134), (158, 120))
    sheet.box("#6B4A34", 141, 133, 159, 146)
    return sheet


def dawn(width, height):
    tones = ("#B9758A", "#8A5078", "#54305E", "#2A1A3A")
    return landscape(width, height, "#6A78C0", "#F8C890", "#FFF0C0", 62, tones)


def night(width, height):
    tones = ("#24406E", PANEL, "#131F38", "#0B1222")
    return landscape(width, height, "#0B1222", RAISED, "#E8EDF6", 36, tones)


def write_frame(picture, path):
    """Encodes a picture as one MPEG-2 I-frame."""
    command = "ffmpeg -v error -threads 1 -f image2pipe -c:v png -i - -frames:v 1 -pix_fmt yuv420p"
    command += " -c:v mpeg2video -g 1 -bf 0 -qmin 1 -qscale:v 2 -fflags +bitexact -flags +bitexact"
    # The same bytes on every processor.
    command += " -dct int -idct simple -f mpeg2video -y"
    png = io.BytesIO()
    picture.save(png, "png")
    subprocess.run([*command.split(), path], input=png.getvalue(), check=True)


def main():
    examples = pathlib.Path(sys.argv[1])
    for folder in ("news", "gallery"):
        (examples / folder).mkdir(parents=True, exist_ok=True)
    for number, draw in enumerate(STORIES, 1):
        draw().finished().save(examples / "news" / f"{number}.png", optimize=True)
    for draw in (leaves, scales, stars):
        draw().finished().save(examples / "gallery" / f"{draw.__name__}.png", optimize=True)
    day(576, 256).finished().save(examples / "gallery" / "day.png", optimize=True)
    for draw in (dawn, night):
        write_frame(draw(288, 128).finished(), examples / "gallery" / f"{draw.__name__}.m2v")


if __name__ == "__main__":
    main()
