// A formula as what is to be seen of it: signs, lines and marks, in pixels of the screen. All
// pictures are made from it, so that they look alike in every format and on every system.
#pragma once

#include <vector>

#include "platform/base/geometry.h"
#include "platform/gdi/glyph_outline.h"

class CBinTree;

// A text in one font.
struct CDrawnText
{
    size_t nFont;  // of CDrawing::fonts
    COLORREF colour;
    CPoint origin;  // of the first glyph, on the base line
    size_t nFirst;  // its part of CDrawing::glyphs
    size_t nCount;
    int nNode;  // the number of its node among those that are shown, parents before their children
};

struct CDrawnGlyph
{
    BYTE nCode;
    int nOffset;  // of its pen from that of the first
};

// One pixel wide, from the middle of one end to the middle of the other.
struct CDrawnLine
{
    double x1;
    double y1;
    double x2;
    double y2;
    COLORREF colour;

    bool IsHorizontal() const { return y1 == y2; }
    bool IsVertical() const { return x1 == x2; }
};

// The background of what is selected, as far as nothing wipes it away; marks do not overlap.
struct CDrawnMark
{
    CRect rect;
    COLORREF colour;
};

struct CDrawnFont
{
    LOGFONTA description;  // in pixels
    CGlyphFont glyphs;
};

// Texts and lines are ink, which nothing covers; marks lie below all of it.
struct CDrawing
{
    CSize size;     // of the formula, whose corner is (0, 0); ink may stand out
    int nAxis = 0;  // from the top
    std::vector<CDrawnFont> fonts;
    std::vector<CDrawnText> texts;
    std::vector<CDrawnGlyph> glyphs;
    std::vector<CDrawnLine> lines;
    std::vector<CDrawnMark> marks;
};

// Paints a tree, with its selection, and keeps what was drawn. Measures and places its nodes.
// Throws CPictureFailure if the system cannot record.
CDrawing RecordDrawing(CBinTree& tree);
