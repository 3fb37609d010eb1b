#!/usr/bin/env python3
"""Makes the pictures of this scenario, the scene that shows them, and the checks of its appearance.

Every picture has 32 x 32 pixels in four quarters: red, green, blue and white, or four greys from
black to white where there are no colours, or two where there are no more. PNG and BMP files are
written here byte by byte, because no encoder writes all of their kinds; GIF and JPEG files are
Pillow's."""

import pathlib
import struct
import zlib

from PIL import Image

SIDE = 32
COLUMNS = 14
GROUND = (64, 64, 128)
QUARTERS = [(255, 0, 0), (0, 255, 0), (0, 0, 255), (255, 255, 255)]
GREYS = [(level, level, level) for level in (0, 85, 170, 255)]


def quarter(x, y):
    return (x >= SIDE // 2) + 2 * (y >= SIDE // 2)


def packed(values, bits):
    """Values one after another, the first in the highest bits, padded to a whole byte."""
    text = "".join(format(value, f"0{bits}b") for value in values)
    text += "0" * (-len(text) % 8)
    return int(text, 2).to_bytes(len(text) // 8, "big")


# PNG: kinds of pixels, bits of a sample, interlaced or not. The lower quarters of those with an
# alpha are wholly transparent.

GREY, RGB, PALETTE, GREY_ALPHA, RGB_ALPHA = 0, 2, 3, 4, 6
PASSES = [(0, 0, 8, 8), (4, 0, 8, 8), (0, 4, 4, 8), (2, 0, 4, 4), (0, 2, 2, 4), (1, 0, 2, 2),
          (0, 1, 1, 2)]


def chunk(name, data):
    check = zlib.crc32(name + data)
    return struct.pack(">I", len(data)) + name + data + struct.pack(">I", check)


def samples(kind, bits, x, y):
    most = (1 << bits) - 1
    alpha = [most if y < SIDE // 2 else 0]
    number = quarter(x, y)
    if kind == PALETTE:
        return [number & most]
    if kind in (GREY, GREY_ALPHA):
        level = number & 1 if bits == 1 else most * number // 3
        return [level] + (alpha if kind == GREY_ALPHA else [])
    colour = [most * channel // 255 for channel in QUARTERS[number]]
    return colour + (alpha if kind == RGB_ALPHA else [])


def png(kind, bits, is_interlaced, transparent=None):
    header = struct.pack(">IIBBBBB", SIDE, SIDE, bits, kind, 0, 0, is_interlaced)
    rows = b""
    for left, top, step_x, step_y in PASSES if is_interlaced else [(0, 0, 1, 1)]:
        for y in range(top, SIDE, step_y):
            values = [v for x in range(left, SIDE, step_x) for v in samples(kind, bits, x, y)]
            rows += b"\0" + packed(values, bits)
    file = b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header)
    if kind == PALETTE:
        file += chunk(b"PLTE", b"".join(bytes(colour) for colour in QUARTERS[: 1 << bits]))
    if transparent is not None:
        file += chunk(b"tRNS", transparent)
    return file + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b"")


# BMP: headers of several ages, rows from the bottom or from the top.

OLDEST = 12


def bmp(bits, pixels, palette=b"", header=40, compression=0, masks=b"", is_from_top=False):
    if header == OLDEST:
        head = struct.pack("<IHHHH", header, SIDE, SIDE, 1, bits)
    else:
        height = -SIDE if is_from_top else SIDE
        head = struct.pack("<IiiHHIIiiII", header, SIDE, height, 1, bits, compression,
                           len(pixels), 2835, 2835, len(palette) // 4, 0)
        head += b"\0" * (header - 40) + masks
    start = 14 + len(head) + len(palette)
    return b"BM" + struct.pack("<IHHI", start + len(pixels), 0, 0, start) + head + palette + pixels


def bmp_rows(row, is_from_top=False):
    rows = range(SIDE) if is_from_top else reversed(range(SIDE))
    return b"".join(row(y) + b"\0" * (-len(row(y)) % 4) for y in rows)


def indices(bits):
    return bmp_rows(lambda y: packed([quarter(x, y) % (1 << bits) for x in range(SIDE)], bits))


def words(red, green, blue):
    """Rows of 16-bit pixels with these numbers of bits for the channels."""
    def pixel(x, y):
        r, g, b = QUARTERS[quarter(x, y)]
        word = r >> 8 - red
        word = word << green | g >> 8 - green
        return struct.pack("<H", word << blue | b >> 8 - blue)
    return bmp_rows(lambda y: b"".join(pixel(x, y) for x in range(SIDE)))


def bytes_of(count, is_from_top=False):
    """Rows of blue, green and red bytes, and zeros up to `count` bytes for each pixel."""
    def row(y):
        return b"".join(bytes(reversed(QUARTERS[quarter(x, y)])).ljust(count, b"\0")
                        for x in range(SIDE))
    return bmp_rows(row, is_from_top)


def runs(factor):
    """Two runs a row, the end of each row, and the end of the picture."""
    half = SIDE // 2
    rows = [bytes((half, quarter(0, y) * factor, half, quarter(half, y) * factor, 0, 0))
            for y in reversed(range(SIDE))]
    return b"".join(rows) + b"\0\1"


def bmps():
    palette = b"".join(bytes(reversed(colour)) + b"\0" for colour in QUARTERS)
    oldest_palette = b"".join(bytes(reversed(colour)) for colour in QUARTERS)
    masks_565 = struct.pack("<III", 0xF800, 0x07E0, 0x001F)
    masks_888 = struct.pack("<III", 0xFF0000, 0x00FF00, 0x0000FF)
    two = [QUARTERS[0], QUARTERS[1]] * 2
    return [
        ("1_bit.bmp", bmp(1, indices(1), palette[:8]), two),
        ("4_bits.bmp", bmp(4, indices(4), palette), QUARTERS),
        ("8_bits.bmp", bmp(8, indices(8), palette), QUARTERS),
        ("4_bits_in_runs.bmp", bmp(4, runs(17), palette, compression=2), QUARTERS),
        ("8_bits_in_runs.bmp", bmp(8, runs(1), palette, compression=1), QUARTERS),
        ("16_bits.bmp", bmp(16, words(5, 5, 5)), QUARTERS),
        ("16_bits_masks.bmp",
         bmp(16, words(5, 6, 5), compression=3, masks=masks_565), QUARTERS),
        ("24_bits.bmp", bmp(24, bytes_of(3)), QUARTERS),
        ("24_bits_from_top.bmp", bmp(24, bytes_of(3, True), is_from_top=True), QUARTERS),
        ("32_bits.bmp", bmp(32, bytes_of(4)), QUARTERS),
        ("32_bits_masks.bmp", bmp(32, bytes_of(4), compression=3, masks=masks_888), QUARTERS),
        ("header_64.bmp", bmp(24, bytes_of(3), header=64), QUARTERS),
        ("header_108.bmp", bmp(24, bytes_of(3), header=108), QUARTERS),
        ("header_124.bmp", bmp(24, bytes_of(3), header=124), QUARTERS),
        ("oldest_1_bit.bmp", bmp(1, indices(1), oldest_palette[:6], OLDEST), two),
        ("oldest_4_bits.bmp",
         bmp(4, indices(4), oldest_palette.ljust(16 * 3, b"\0"), OLDEST), QUARTERS),
        ("oldest_8_bits.bmp",
         bmp(8, indices(8), oldest_palette.ljust(256 * 3, b"\0"), OLDEST), QUARTERS),
        ("oldest_24_bits.bmp", bmp(24, bytes_of(3), header=OLDEST), QUARTERS),
    ]


def pngs():
    for kind, name, depths in ((GREY, "grey", (1, 2, 4, 8, 16)), (RGB, "rgb", (8, 16)),
                               (PALETTE, "palette", (1, 2, 4, 8)),
                               (GREY_ALPHA, "grey_alpha", (8, 16)),
                               (RGB_ALPHA, "rgb_alpha", (8, 16))):
        for bits in depths:
            looks = GREYS if kind in (GREY, GREY_ALPHA) else QUARTERS
            if bits == 1:
                looks = [looks[0], GREYS[3] if kind == GREY else looks[1]] * 2
            if kind in (GREY_ALPHA, RGB_ALPHA):
                looks = looks[:2] + [GROUND] * 2
            for is_interlaced, ending in ((0, ""), (1, "_interlaced")):
                yield f"{name}_{bits}{ending}.png", png(kind, bits, is_interlaced), looks
    second = struct.pack(">H", 85)
    yield "grey_transparent.png", png(GREY, 8, 0, second), [GREYS[0], GROUND] + GREYS[2:]
    second = struct.pack(">HHH", 0, 255, 0)
    yield "rgb_transparent.png", png(RGB, 8, 0, second), [QUARTERS[0], GROUND] + QUARTERS[2:]
    second = bytes((255, 0))
    yield ("palette_transparent.png", png(PALETTE, 2, 0, second),
           [QUARTERS[0], GROUND] + QUARTERS[2:])


def quartered():
    picture = Image.new("RGB", (SIDE, SIDE))
    picture.putdata([QUARTERS[quarter(x, y)] for y in range(SIDE) for x in range(SIDE)])
    return picture


def gifs(folder):
    picture = quartered()
    few = picture.quantize(4)
    few.save(folder / "plain.gif", interlace=0)
    few.save(folder / "interlaced.gif", interlace=1)
    picture.save(folder / "animated.gif", save_all=True, duration=100, loop=0,
                 append_images=[Image.new("RGB", (SIDE, SIDE), (255, 255, 0))])
    index = few.getpixel((SIDE - 1, 0))
    few.save(folder / "transparent.gif", transparency=index)
    return [("plain.gif", QUARTERS), ("interlaced.gif", QUARTERS), ("animated.gif", QUARTERS),
            ("transparent.gif", [QUARTERS[0], GROUND] + QUARTERS[2:])]


def jpegs(folder):
    for kind in ("L", "RGB", "CMYK"):
        looks = QUARTERS
        if kind == "L":
            levels = [quartered().convert("L").getpixel((x, y)) for y in (0, 31) for x in (0, 31)]
            looks = [(level, level, level) for level in levels]
        for is_progressive, ending in ((False, ""), (True, "_progressive")):
            name = f"{kind.lower()}{ending}.jpg"
            quartered().convert(kind).save(folder / name, quality=95, progressive=is_progressive)
            yield name, looks


def main():
    scenario = pathlib.Path(__file__).parent
    folder = scenario / "carousel"
    shown = []
    for name, file, looks in [*pngs(), *bmps()]:
        (folder / name).write_bytes(file)
        shown.append((name, looks))
    shown += [*gifs(folder), *jpegs(folder)]

    scene = "// Pictures of every kind, in rows.\n"
    scene += '{:Scene ("~/scene" 0)\n  :Items (\n'
    scene += "    {:Rectangle 1 :OrigBoxSize 720 576 :OrigLineWidth 0"
    scene += " :OrigRefFillColour '=40=40=80=00'}\n"
    expected = Image.new("RGB", (720, 576), GROUND)
    for count, (name, looks) in enumerate(shown):
        left, top = 10 + count % COLUMNS * 50, 10 + count // COLUMNS * 50
        scene += f"    // {name}\n"
        scene += f'    {{:Bitmap {count + 2} :CHook 4 :OrigContent :ContentRef ("~/{name}")\n'
        scene += f"      :OrigBoxSize {SIDE} {SIDE} :OrigPosition {left} {top}}}\n"
        for number, colour in enumerate(looks):
            half = SIDE // 2
            expected.paste(colour, (left + number % 2 * half, top + number // 2 * half,
                                    left + number % 2 * half + half,
                                    top + number // 2 * half + half))
    scene += "  )\n  :SceneCS 720 576\n}\n"
    (folder / "scene.mheg").write_text(scene)
    expected.save(scenario / "expected" / "shown.png", optimize=True)


if __name__ == "__main__":
    main()
