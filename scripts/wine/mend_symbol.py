#!/usr/bin/python3
"""Gives the packaged Symbol font a character map that GDI can use: mend_symbol.py IN.ttf OUT.ttf

The packaged map leads from wrong Unicode values to the glyphs, so that GDI finds none of them.
The glyphs themselves stand in the order of the Symbol encoding; nothing but the map is changed.
"""
import sys

from fontTools.ttLib import TTFont
from fontTools.ttLib.tables._c_m_a_p import CmapSubtable

# First code, last code, glyph of the first.
RUNS = ((0x20, 0x7E, 4), (0xA1, 0xFE, 99))
GLYPHS = 193

font = TTFont(sys.argv[1], recalcBBoxes=False, recalcTimestamp=False)
order = font.getGlyphOrder()
if len(order) != GLYPHS:
    sys.exit(f"{sys.argv[1]}: {len(order)} glyphs, not the {GLYPHS} whose order is known")

symbol_map = CmapSubtable.newSubtable(4)
symbol_map.platformID, symbol_map.platEncID, symbol_map.language = 3, 0, 0
symbol_map.cmap = {
    0xF000 + code: order[glyph + code - first]
    for first, last, glyph in RUNS
    for code in range(first, last + 1)
}
font["cmap"].tables = [symbol_map]
font.save(sys.argv[2])
