// Outlines as FreeType reads them from the file of a face.
#include "platform/gdi/glyph_outline.h"

#include "platform/gdi/linux/fonts/font_cache.h"
#include "platform/gdi/linux/fonts/font_face.h"
#include "platform/gdi/linux/fonts/font_reader.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <unordered_map>

namespace
{

constexpr double s_fBolderPart = 1.0 / 24;  // of an em, as cairo thickens glyphs on bitmaps

// Faces live for ever, one for each file in use; null for a file that cannot be read.
FT_Face OutlineFace(int nFace)
{
    static auto* const s_pFaces = new std::unordered_map<int, FT_Face>;
    const auto [it, bNew] = s_pFaces->try_emplace(nFace, nullptr);
    if (bNew)
        it->second = OpenFontFile(FontFaceById(nFace));
    return it->second;
}

COutlinePoint Point(const FT_Vector* pPoint)
{
    return { static_cast<int>(pPoint->x), static_cast<int>(pPoint->y) };
}

const FT_Outline_Funcs s_collect = {
    [](const FT_Vector* pTo, void* pOutline)
    {
        static_cast<CGlyphOutline*>(pOutline)->MoveTo(Point(pTo));
        return 0;
    },
    [](const FT_Vector* pTo, void* pOutline)
    {
        static_cast<CGlyphOutline*>(pOutline)->LineTo(Point(pTo));
        return 0;
    },
    [](const FT_Vector* pControl, const FT_Vector* pTo, void* pOutline)
    {
        static_cast<CGlyphOutline*>(pOutline)->CurveTo(Point(pControl), Point(pTo));
        return 0;
    },
    [](const FT_Vector* pFirst, const FT_Vector* pSecond, const FT_Vector* pTo, void* pOutline)
    {
        static_cast<CGlyphOutline*>(pOutline)->CubicTo(Point(pFirst), Point(pSecond), Point(pTo));
        return 0;
    },
    0,
    0,
};

}  // namespace

CGlyphFont FindGlyphFont(const LOGFONTA& font)
{
    const int nFace = FindFontFace(font);
    const CRealizedFont& realized = CFontCache::Find(nFace, font.lfHeight, font.lfWidth);
    const CFontFace& face = realized.Face();
    CGlyphFont found;
    found.m_nFace = nFace;
    found.m_fUnitY = static_cast<double>(realized.Ppem()) / face.m_nUnitsPerEm;
    found.m_fUnitX = found.m_fUnitY * realized.WidthRatio();
    found.m_fSlant = face.m_bFakeItalic ? FAKE_ITALIC_SHEAR : 0;
    found.m_fThicken = face.m_bFakeBold ? face.m_nUnitsPerEm * s_fBolderPart : 0;
    found.m_nAscent = realized.Ascent();
    found.m_nHeight = realized.Height();
    return found;
}

CGlyphOutline ReadGlyphOutline(const CGlyphFont& font, BYTE nCode)
{
    CGlyphOutline outline;
    FT_Face pFace = OutlineFace(font.m_nFace);
    const CFontFace& face = FontFaceById(font.m_nFace);
    if (!pFace || FT_Load_Glyph(pFace, face.m_anGlyphs[nCode], FT_LOAD_NO_SCALE) != 0 ||
        pFace->glyph->format != FT_GLYPH_FORMAT_OUTLINE)
        return outline;
    FT_Outline* pPoints = &pFace->glyph->outline;
    const FT_Matrix twice = { 0x20000, 0, 0, 0x20000 };
    FT_Outline_Transform(pPoints, &twice);
    FT_Outline_Decompose(pPoints, &s_collect, &outline);
    return outline;
}
