#!/usr/bin/python3
"""Makes the small font "MT Extra" from four signs of DejaVu Serif.

usage: make_mtextra.py DejaVuSerif.ttf OUT.ttf

DejaVu's licence allows changed copies under a name of their own. Two runs give
the same file: the dates in it are fixed.
"""
import sys

from fontTools.fontBuilder import FontBuilder
from fontTools.ttLib import TTFont
from fontTools.ttLib.tables._c_m_a_p import CmapSubtable

EM = 2048
ASCENT, DESCENT = 1901, 483
AVERAGE_WIDTH = 1100
FIXED_DATE = 3600000000

# Code in the font, and the sign that it shows: h bar, lambda bar, two arrows.
SIGNS = {"h": 0x210F, "D": 0x019B, "b": 0x2195, "c": 0x21D5}


def take_outlines(source):
    """Glyphs in the order of the new font, without the hinting of the old one."""
    names = source.getBestCmap()
    origin = {".notdef": ".notdef", "space": names[0x20]}
    origin.update({code: names[sign] for code, sign in SIGNS.items()})
    glyphs = {}
    for name, old in origin.items():
        glyph = source["glyf"][old]
        if glyph.isComposite():
            sys.exit(f"{old}: a composite glyph cannot be taken alone")
        if hasattr(glyph, "program"):
            glyph.program.fromBytecode(b"")
        glyphs[name] = glyph
    advances = {name: source["hmtx"][old] for name, old in origin.items()}
    return glyphs, advances


def symbol_map():
    """The (3, 0) map that marks a symbol font: codes lie at U+F000."""
    table = CmapSubtable.newSubtable(4)
    table.platformID, table.platEncID, table.language = 3, 0, 0
    table.cmap = {0xF000 + ord(code): code for code in SIGNS}
    table.cmap[0xF020] = "space"
    return table


def main():
    source = TTFont(sys.argv[1])
    glyphs, advances = take_outlines(source)
    build = FontBuilder(EM, isTTF=True)
    build.setupGlyphOrder(list(glyphs))
    build.setupCharacterMap({})
    build.setupGlyf(glyphs)
    build.setupHorizontalMetrics(advances)
    build.setupHorizontalHeader(ascent=ASCENT, descent=-DESCENT)
    build.setupNameTable(dict(
        familyName="MT Extra", styleName="Regular", uniqueFontIdentifier="Mivora MT Extra",
        fullName="MT Extra", psName="MTExtra", version="Version 1.0",
        copyright="Outlines from DejaVu Serif"))
    # Code page bits: Latin 1 and symbol, so that the face is found under either character set.
    build.setupOS2(
        version=3, sTypoAscender=ASCENT, sTypoDescender=-DESCENT, usWinAscent=ASCENT,
        usWinDescent=DESCENT, xAvgCharWidth=AVERAGE_WIDTH, fsSelection=0x40,
        ulCodePageRange1=0x80000001, usFirstCharIndex=0xF020, usLastCharIndex=0xF068)
    build.setupPost(keepGlyphNames=False)
    build.font["cmap"].tables = [symbol_map()]
    build.font["head"].created = build.font["head"].modified = FIXED_DATE
    build.font.recalcTimestamp = False
    build.save(sys.argv[2])


if __name__ == "__main__":
    main()
