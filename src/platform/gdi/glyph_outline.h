// Glyphs as curves, and how a font draws them: for pictures that have no pixels of a device, or
// more of them than the device that a formula was measured on.
#pragma once

#include "platform/gdi/gdi.h"

#include <vector>

// A font at a size. What is not in font units is in pixels of the screen.
struct CGlyphFont
{
    int m_nFace = 0;      // its number, the same for all sizes; valid in this process
    double m_fUnitX = 0;  // pixels in a font unit
    double m_fUnitY = 0;
    double m_fSlant = 0;  // x grows by this times y, for a face without a slanted file
    double m_fThicken =
        0;              // font units that outlines are thickened by, for one without a bold file
    int m_nAscent = 0;  // from the top of a line to the base line
    int m_nHeight = 0;  // of a line
};

// What lfHeight and lfWidth of a description in pixels make of its face. Never fails: where there
// is no face, glyphs have no outline.
CGlyphFont FindGlyphFont(const LOGFONTA& font);

struct COutlinePoint
{
    int x;
    int y;  // upwards
    friend bool operator==(const COutlinePoint&, const COutlinePoint&) = default;
};

enum class COutlineStep : BYTE
{
    move,   // one point: a new contour, the last one is closed
    line,   // one
    curve,  // two: control and end, a parabola
    cubic   // three
};

// Contours in half font units, so that the middle of two points is whole.
struct CGlyphOutline
{
    std::vector<COutlineStep> m_steps;
    std::vector<COutlinePoint> m_points;

    void MoveTo(COutlinePoint to);
    void LineTo(COutlinePoint to);  // nothing where the pen is already
    void CurveTo(COutlinePoint control, COutlinePoint to);
    void CubicTo(COutlinePoint first, COutlinePoint second, COutlinePoint to);
};

// The glyph of a byte; empty for a blank, and where there is none.
CGlyphOutline ReadGlyphOutline(const CGlyphFont& font, BYTE nCode);
