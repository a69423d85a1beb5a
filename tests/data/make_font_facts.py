#!/usr/bin/python3
"""Works out font metrics and advances from the font files, for font_metrics_test.cpp.

    make_font_facts.py FONT_FOLDER > font_facts.txt

A second way to the numbers: tables are read by fontTools and all arithmetic is done in whole
numbers and fractions. Made with fonts-liberation 1.07.4, fonts-wine 8.0 and our mtextra.ttf.
A row: face | weight | italic | lfHeight | lfWidth | ascent descent internal external average
maximum | sum of the advances of the bytes 20 to FF | the same, each times its byte.
"""
import math
import random
import sys
from fractions import Fraction

from fontTools.ttLib import TTFont

HALF = Fraction(1, 2)


def nearest(x):  # halves away from zero
    return math.floor(x + HALF) if x >= 0 else -math.floor(-x + HALF)


def fixed(a, b):  # a times b, b in units of 1/65536
    return nearest(Fraction(a * b, 65536))


def upwards(x):  # halves up
    return math.floor(Fraction(x) + HALF)


class Face:
    def __init__(self, path):
        font = TTFont(path)
        os2, hhea, head = font["OS/2"], font["hhea"], font["head"]
        self.em = head.unitsPerEm
        self.up, self.down = os2.usWinAscent, os2.usWinDescent
        self.gap = hhea.lineGap - ((self.up + self.down) - (hhea.ascent - hhea.descent))
        self.average = os2.xAvgCharWidth
        self.widest = head.xMax - head.xMin
        order = font.getGlyphOrder()
        self.units = [font["hmtx"][name][0] for name in order]
        self.index = {name: i for i, name in enumerate(order)}
        self.map = font.getBestCmap() or {}

    def text_glyph(self, byte):
        if byte == 0x7F or byte in (0x81, 0x8D, 0x8F, 0x90, 0x9D):
            return 0
        code = ord(bytes([byte]).decode("cp1252"))
        return self.index[self.map[code]] if code in self.map else 0


def symbol_glyph(byte):
    if 0x20 <= byte <= 0x7E:
        return byte - 0x1C
    return byte - 62 if 0xA1 <= byte <= 0xFE else 0


def extra_glyph(byte):
    return {" ": 1, "h": 2, "D": 3, "b": 4, "c": 5}.get(chr(byte), 0)


def facts(face, glyph, bold_by_hand, height, width):
    cell = face.up + face.down
    if height < 0:
        ppem = -height
    else:
        h = height or 16
        ppem = nearest(Fraction(face.em * h, cell))
        if ppem > 1 and nearest(Fraction(cell * ppem, face.em)) > h:
            ppem -= 1
    scale = nearest(Fraction(ppem * 65536, face.em))
    ascent, descent = fixed(face.up, scale), fixed(face.down, scale)
    average = max(1, fixed(face.average, scale))
    asked = abs(width) if height else 0
    if -(-asked // (ascent + descent)) > 100:
        asked = 0
    stretch = int(asked / average * 65536.0) if asked else None
    ratio = asked / average if asked else 1.0
    extra = 1 if bold_by_hand else 0

    total = weighted = 0
    for byte in range(0x20, 0x100):
        a = fixed(face.units[glyph(byte)], nearest(Fraction(ppem * 64 * 65536, face.em)))
        pixels = math.floor(Fraction(a, 64) + HALF)
        if stretch is not None:
            pixels = math.ceil(Fraction(fixed(pixels * 64, stretch), 64))
        pixels += extra
        total += pixels
        weighted += pixels * byte
    return (ascent, descent, fixed(cell - face.em, scale), max(0, fixed(face.gap, scale)),
            upwards((average + extra) * ratio), upwards((fixed(face.widest, scale) + extra) * ratio),
            total, weighted)


def main():
    folder = sys.argv[1]
    rows = []
    for name, stem in (("Times New Roman", "LiberationSerif"), ("Arial", "LiberationSans")):
        for weight, italic, style in ((400, 0, "Regular"), (400, 1, "Italic"),
                                      (700, 0, "Bold"), (700, 1, "BoldItalic")):
            face = Face(f"{folder}/{stem}-{style}.ttf")
            rows.append((name, weight, italic, face, face.text_glyph, False))
    for name, file, glyph in (("Symbol", "symbol.ttf", symbol_glyph),
                              ("MT Extra", "mtextra.ttf", extra_glyph)):
        for weight in (400, 700):
            rows.append((name, weight, 0, Face(f"{folder}/{file}"), glyph, weight == 700))

    sizes = [(h, 0) for h in (-1, -2, -7, -10, -11, -13, -16, -17, -21, -24, -100, -399, -5000,
                              0, 1, 2, 15, 16, 40, 299)]
    draw = random.Random(2)
    sizes += [(-draw.randint(2, 280), draw.randint(3, 300)) for _ in range(12)]
    sizes += [(40, 21), (-30, -9), (0, 50), (-9, 2000), (-250, 31)]
    for name, weight, italic, face, glyph, bold in rows:
        for height, width in sizes:
            f = facts(face, glyph, bold, height, width)
            print(name, weight, italic, height, width, " ".join(map(str, f[:6])), f[6], f[7],
                  sep="|")


if __name__ == "__main__":
    main()
