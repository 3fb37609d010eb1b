"""The checks of a scenario's pictures, and the reports of what is wrong with them.

The file `pixels` has the checks that follow from the rules, one per line. Areas are X Y WIDTH
HEIGHT in pixels of the picture; RANGE is A..B, both included, or one number.

  NAME.png X Y [WIDTH HEIGHT] #RRGGBB [within D]
      Every pixel of the area has this colour; each channel may differ by up to D.
  NAME.png X Y [WIDTH HEIGHT] !#RRGGBB
      At least one pixel has another colour.
  frame NAME.png X Y WIDTH HEIGHT THICKNESS #RRGGBB
      The area's border, that thick and inside the area, has this colour; the pixels inside the
      border are not checked.
  same NAME.png X Y WIDTH HEIGHT OTHER.png [X Y]
      The area looks exactly like the area of the other picture, or of the same one elsewhere.
  changed NAME.png X Y WIDTH HEIGHT OTHER.png
      At least one pixel of the area differs from the other picture.
  ink NAME.png X Y WIDTH HEIGHT #BACKGROUND [left|right|top|bottom|width|height|lines RANGE] ...
      [colour #RRGGBB]
      Ink is every pixel that differs from the background; there must be some. The positions of its
      outermost columns and rows, and its width and height, lie in these ranges. Lines are runs of
      rows with ink, so use letters without accents, dots and descenders to count them.
      With a colour, each pixel of the ink lies between the background and that colour, and one is
      at least halfway there.

`expected/NAME.png` are stored pictures, compared exactly but for the areas in `tolerance`:

  NAMES X Y WIDTH HEIGHT glyphs COUNT    up to COUNT pixels may differ there
  NAMES X Y WIDTH HEIGHT within D        each channel may differ there by up to D

NAMES are one or more pictures, NAME.png,OTHER.png, or * for all.

Lines that begin with "# " are comments. For each wrong picture the work folder then contains
difference_NAME.png: the wrong pixels in white on black.
"""

import numpy
from PIL import Image


def lines_of(path):
    if not path.exists():
        return []
    lines = (line.strip() for line in path.read_text().splitlines())
    return [line for line in lines if line and not line.startswith("# ")]


def load(path):
    return numpy.asarray(Image.open(path).convert("RGB")).astype(int)


class Mistake(ValueError):
    """A check that cannot be carried out as it is written."""


class Area:
    """A part of a picture, which marks the wrong pixels."""

    def __init__(self, taken, name, numbers):
        x, y, width, height = numbers
        picture = taken.picture(name)
        rows, columns = picture.shape[:2]
        if min(x, y) < 0 or min(width, height) < 1 or x + width > columns or y + height > rows:
            raise Mistake(f"the area is not within the picture of {columns} x {rows}")
        self.x, self.y = x, y
        part = (slice(y, y + height), slice(x, x + width))
        self.pixels = picture[part]
        self.wrong = taken.wrong[name][part]


class Taken:
    """The pictures of a run, and which of their pixels are wrong."""

    def __init__(self, folder):
        self.folder = folder
        self.pictures = {}
        self.wrong = {}

    def picture(self, name):
        if name not in self.pictures:
            if not (self.folder / name).exists():
                raise Mistake("no such picture was taken")
            self.pictures[name] = load(self.folder / name)
            self.wrong[name] = numpy.zeros(self.pictures[name].shape[:2], bool)
        return self.pictures[name]

    def area(self, name, words):
        return Area(self, name, [number_in(word) for word in words])

    def write_differences(self):
        for name, wrong in self.wrong.items():
            if wrong.any():
                white = numpy.where(wrong, 255, 0).astype(numpy.uint8)
                Image.fromarray(white).save(self.folder / f"difference_{name}")


def number_in(word):
    if not word.isdecimal():
        raise Mistake(f"'{word}' is no number")
    return int(word)


def range_in(word):
    first, _, last = word.partition("..")
    return number_in(first), number_in(last or first)


def colour_in(word):
    try:
        if word[0] == "#" and len(word) == 7:
            return numpy.array([int(word[at : at + 2], 16) for at in (1, 3, 5)])
    except ValueError:
        pass
    raise Mistake(f"'{word}' is no colour")


def pairs_in(words):
    if len(words) % 2 != 0:
        raise Mistake(f"'{words[-1]}' has no value")
    return zip(words[::2], words[1::2])


def check_colour(taken, words):
    name, *numbers = words
    allowed = number_in(numbers[-1]) if numbers[-2:-1] == ["within"] else None
    *numbers, colour = numbers if allowed is None else numbers[:-2]
    area = taken.area(name, numbers if len(numbers) == 4 else numbers + ["1", "1"])
    differs = (abs(area.pixels - colour_in(colour.lstrip("!"))) > (allowed or 0)).any(axis=2)
    if colour[0] == "!":
        differs = numpy.full(differs.shape, not differs.any())
    area.wrong[...] |= differs
    return [f"{differs.sum()} of {differs.size} pixels are wrong"] if differs.any() else []


def check_frame(taken, words):
    name, *numbers, thickness, colour = words
    area, thick = taken.area(name, numbers), number_in(thickness)
    differs = (area.pixels != colour_in(colour)).any(axis=2)
    if 2 * thick < min(differs.shape):
        differs[thick:-thick, thick:-thick] = False
    area.wrong[...] |= differs
    return [f"{differs.sum()} pixels of the border are wrong"] if differs.any() else []


def check_same(taken, words):
    name, x, y, width, height, other, *place = words
    area = taken.area(name, [x, y, width, height])
    model = taken.area(other, [*(place or [x, y]), width, height])
    differs = (area.pixels != model.pixels).any(axis=2)
    area.wrong[...] |= differs
    return [f"{differs.sum()} pixels are not the same"] if differs.any() else []


def check_changed(taken, words):
    name, x, y, width, height, other = words
    area = taken.area(name, [x, y, width, height])
    model = taken.area(other, [x, y, width, height])
    if (area.pixels != model.pixels).any():
        return []
    area.wrong[...] = True
    return ["nothing has changed"]


def runs_of(flags):
    """The number of runs of true values."""
    return int(flags[0]) + int((flags[1:] & ~flags[:-1]).sum())


def is_mixed_of(ink, background, colour):
    """Whether each pixel is a blend of background and colour, and at least one is mostly colour."""
    rounding = 3
    way = colour - background
    share = ((ink - background) @ way) / max(way @ way, 1)
    expected = background + numpy.outer(share.clip(0, 1), way)
    return bool((abs(ink - expected) <= rounding).all() and share.max() >= 0.5)


def check_ink(taken, words):
    name, x, y, width, height, background, *demands = words
    area, background = taken.area(name, [x, y, width, height]), colour_in(background)
    has_ink = (area.pixels != background).any(axis=2)
    if not has_ink.any():
        area.wrong[...] = True
        return ["there is no ink"]
    rows, columns = numpy.flatnonzero(has_ink.any(axis=1)), numpy.flatnonzero(has_ink.any(axis=0))
    found = {
        "left": area.x + columns[0],
        "right": area.x + columns[-1],
        "top": area.y + rows[0],
        "bottom": area.y + rows[-1],
        "width": columns[-1] - columns[0] + 1,
        "height": rows[-1] - rows[0] + 1,
        "lines": runs_of(has_ink.any(axis=1)),
    }
    problems = []
    for demand, value in pairs_in(demands):
        if demand == "colour":
            if not is_mixed_of(area.pixels[has_ink], background, colour_in(value)):
                problems.append(f"the ink is not {value}")
            continue
        if demand not in found:
            raise Mistake(f"nothing is known about '{demand}'")
        first, last = range_in(value)
        if not first <= found[demand] <= last:
            problems.append(f"{demand} is {found[demand]}")
    if problems:
        area.wrong[...] |= has_ink
    return problems


KINDS = {"frame": check_frame, "same": check_same, "changed": check_changed, "ink": check_ink}


def wrong_pixels(scenario, taken):
    problems = []
    for line in lines_of(scenario / "pixels"):
        words = line.split()
        check = KINDS.get(words[0])
        try:
            found = check(taken, words[1:]) if check else check_colour(taken, words)
        except Mistake as mistake:
            found = [str(mistake)]
        except ValueError:
            found = ["words are missing, or there are too many"]
        problems += [f"{line}: {problem}" for problem in found]
    return problems


def excuse(differences, scenario, name):
    """Removes the differences (distances of each channel) that the tolerance permits."""
    problems = []
    for line in lines_of(scenario / "tolerance"):
        picture, *numbers, kind, limit = line.split()
        if picture != "*" and name not in picture.split(","):
            continue
        x, y, width, height = (int(number) for number in numbers)
        area = differences[y : y + height, x : x + width]
        if kind == "glyphs":
            count = int((area > 0).any(axis=2).sum())
            if count > int(limit):
                problems.append(f"{name}: {count} pixels differ in the area of '{line}'")
            area[...] = 0
        else:
            area[area <= int(limit)] = 0
    return problems


def wrong_picture(scenario, name, taken):
    """The differences of a picture from the stored one of the same name."""
    try:
        seen = taken.picture(name)
    except Mistake as mistake:
        return [f"{name}: {mistake}"]
    wanted = load(scenario / "expected" / name)
    if wanted.shape != seen.shape:
        return [f"{name}: the size is {seen.shape[1]} x {seen.shape[0]}"]
    differences = abs(wanted - seen)
    unexcused = differences.any(axis=2)
    problems = excuse(differences, scenario, name)
    count = int(differences.any(axis=2).sum())
    if count > 0:
        problems.append(f"{name}: {count} pixels differ")
    if problems:
        taken.wrong[name] |= unexcused
    return problems


def wrong_pictures(scenario, taken):
    stored = sorted(path.name for path in (scenario / "expected").glob("*.png"))
    return [problem for name in stored for problem in wrong_picture(scenario, name, taken)]


def wrong_output(scenario, work):
    expected = scenario / "output"
    if not expected.exists() or expected.read_bytes() == (work / "output").read_bytes():
        return []
    return ["the engine printed something else than the file 'output'"]


def problems_of(scenario, work):
    """All failed checks, one line each; writes difference pictures."""
    taken = Taken(work)
    problems = wrong_pixels(scenario, taken) + wrong_pictures(scenario, taken)
    taken.write_differences()
    return problems + wrong_output(scenario, work)
