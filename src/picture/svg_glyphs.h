// Outlines of glyphs as data of paths, made once for each size.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "picture/glyph_shapes.h"

// Hundredths of a pixel; the data begin behind the move to the first point.
struct CSvgGlyph
{
    int nFirstX = 0;  // from the pen
    int nFirstY = 0;
    std::string strSteps;  // empty: there is no ink
    std::uint64_t nHash = 0;
};

// The glyphs of one font at one size.
class CSvgFont
{
public:
    // fScale: hundredths of a pixel of the picture in a pixel of the screen. Valid until Tidy.
    static CSvgFont& Find(const CGlyphFont& font, double fScale);
    // Called between pictures: drops what was kept if that has grown large.
    static void Tidy();

    const CSvgGlyph& Glyph(BYTE nCode);

    CSvgFont(const CGlyphFont& font, double fScale) : m_font(font), m_fScale(fScale) {}

private:
    CSvgGlyph MakeGlyph(BYTE nCode) const;

    CGlyphFont m_font;
    double m_fScale;
    std::unique_ptr<CSvgGlyph> m_apGlyphs[256];
};
