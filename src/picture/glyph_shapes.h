// Outlines of glyphs, read once in a process.
#pragma once

#include "platform/gdi/glyph_outline.h"

struct CGlyphShape
{
    CGlyphOutline outline;
    // What the curves reach, in font units, y upwards; empty (right below left) without ink.
    double fLeft = 0;
    double fBottom = 0;
    double fRight = -1;
    double fTop = -1;

    bool HasInk() const { return fRight >= fLeft; }
};

// Valid until the next call.
const CGlyphShape& FindGlyphShape(const CGlyphFont& font, BYTE nCode);
