#!/usr/bin/python3
"""Makes the font "Symbol" from the packaged one, whose outlines stand at wrong places.

usage: make_symbol.py symbol.ttf METRICS.afm OUT.ttf

Each outline is put into the box that the published metrics of the face tell. Advances and line
heights, by which formulas are measured, stay as they are. The packaged character map leads from
wrong values to the glyphs; the one that marks a symbol font, with the codes at U+F000, takes its
place, and other programs are told the same line heights. Two runs give the same file.
"""
import array
import re
import sys

from fontTools.ttLib import TTFont
from fontTools.ttLib.tables._c_m_a_p import CmapSubtable
from fontTools.ttLib.tables._g_l_y_f import GlyphCoordinates

# First code, last code, glyph of the first: the glyphs stand in the order of the encoding.
RUNS = ((0x20, 0x7E, 4), (0xA1, 0xFE, 99))
GLYPHS = 193
AFM_EM = 1000


def glyph_names(font):
    order = font.getGlyphOrder()
    if len(order) != GLYPHS:
        sys.exit(f"{len(order)} glyphs, not the {GLYPHS} whose order is known")
    return {code: order[glyph + code - first] for first, last, glyph in RUNS
            for code in range(first, last + 1)}


def published_metrics(path):
    """Advance and box of each code, in thousandths of an em."""
    metrics = {}
    line_form = re.compile(r"C (\d+) ; WX (\d+) ; N \S+ ; B (\S+) (\S+) (\S+) (\S+) ;")
    with open(path, encoding="ascii") as file:
        for line in file:
            if found := line_form.match(line):
                code, *numbers = map(float, found.groups())
                metrics[int(code)] = numbers
    return metrics


def move_into_box(glyph, box):
    """Scales and shifts an outline so that it fills left, bottom, right, top."""
    left, bottom, right, top = box
    scale_x = (right - left) / (glyph.xMax - glyph.xMin)
    scale_y = (top - bottom) / (glyph.yMax - glyph.yMin)
    glyph.coordinates = GlyphCoordinates(
        [(round(left + (x - glyph.xMin) * scale_x), round(bottom + (y - glyph.yMin) * scale_y))
         for x, y in glyph.coordinates])


def begin_on_curves(glyph):
    """Turns each contour until it begins with a point of the curve: not every reader gets another
    beginning right. There are no programs that would know the points by number."""
    start, points, flags = 0, list(glyph.coordinates), list(glyph.flags)
    for end in glyph.endPtsOfContours:
        contour = range(start, end + 1)
        first = next((n for n in contour if flags[n] & 1), start)
        order = [*range(first, end + 1), *range(start, first)]
        points[start:end + 1] = [points[n] for n in order]
        flags[start:end + 1] = [flags[n] for n in order]
        start = end + 1
    glyph.coordinates = GlyphCoordinates(points)
    glyph.flags = array.array("B", flags)


def place_outlines(font, names, metrics):
    glyphs, advances = font["glyf"], font["hmtx"]
    units = font["head"].unitsPerEm / AFM_EM
    for code, name in names.items():
        glyph = glyphs[name]
        if code not in metrics or glyph.numberOfContours == 0:
            continue
        if glyph.isComposite() or glyph.program.getBytecode():
            sys.exit(f"{name}: a composite glyph, or one with a program, cannot be changed alone")
        advance, *box = metrics[code]
        # Where the font's advance is narrower than the published one, the box is as well.
        own = advances[name][0]
        narrower = min(own / (advance * units), 1)
        left, bottom, right, top = (number * units for number in box)
        move_into_box(glyph, (left * narrower, bottom, right * narrower, top))
        begin_on_curves(glyph)
        glyph.recalcBounds(glyphs)
        advances[name] = (own, glyph.xMin)


def agree_on_heights(font):
    """The packaged font tells programs to take line heights that the system's drawing does not."""
    heights = font["OS/2"]
    heights.fsSelection &= ~0x80
    heights.sTypoAscender, heights.sTypoDescender = heights.usWinAscent, -heights.usWinDescent
    heights.sTypoLineGap = 0


def symbol_map(names):
    table = CmapSubtable.newSubtable(4)
    table.platformID, table.platEncID, table.language = 3, 0, 0
    table.cmap = {0xF000 + code: name for code, name in names.items()}
    return table


def main():
    # The bounds of the whole font tell its widest character to programs: they stay as well.
    font = TTFont(sys.argv[1], recalcBBoxes=False, recalcTimestamp=False)
    names = glyph_names(font)
    place_outlines(font, names, published_metrics(sys.argv[2]))
    agree_on_heights(font)
    font["cmap"].tables = [symbol_map(names)]
    for record in font["name"].names:
        if record.nameID == 5:
            font["name"].setName("Version 1.1, outlines placed anew for Mivora", 5,
                                 record.platformID, record.platEncID, record.langID)
    font.save(sys.argv[3])


if __name__ == "__main__":
    main()
