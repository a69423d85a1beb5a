// One pass over the file with FreeType, in font units; the file is closed afterwards.
#include "platform/gdi/linux/fonts/font_reader.h"

#include "platform/base/code_page.h"
#include "platform/base/free_by.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_ADVANCES_H
#include FT_TRUETYPE_TABLES_H

#include <memory>

namespace
{

constexpr int s_nSymbolGlyphs = 193;  // in symbol.ttf
constexpr int s_nMtExtraGlyphs = 6;   // in mtextra.ttf

using CFacePtr = std::unique_ptr<FT_FaceRec, CFreeBy<FT_Done_Face>>;

// How the file's bytes find their glyphs; false if they cannot.
bool ChooseCoding(FT_Face pFace, CTextCoding& coding)
{
    if (coding == CTextCoding::symbol && pFace->num_glyphs == s_nSymbolGlyphs)
        return true;
    if (coding == CTextCoding::mtExtra && pFace->num_glyphs == s_nMtExtraGlyphs)
        return true;
    if (coding == CTextCoding::text && FT_Select_Charmap(pFace, FT_ENCODING_UNICODE) == 0)
        return true;
    coding = CTextCoding::mapped;
    return FT_Select_Charmap(pFace, FT_ENCODING_MS_SYMBOL) == 0;
}

// By the order of glyphs: the file's character map differs from one package to the next.
FT_UInt SymbolGlyph(int nByte)
{
    if (nByte >= 0x20 && nByte <= 0x7E)
        return static_cast<FT_UInt>(nByte - 0x20 + 4);
    if (nByte >= 0xA1 && nByte <= 0xFE)
        return static_cast<FT_UInt>(nByte - 0xA1 + 99);
    return 0;
}

FT_UInt MtExtraGlyph(int nByte)
{
    switch (nByte)
    {
        case ' ':
            return 1;
        case 'h':
            return 2;  // h with a bar
        case 'D':
            return 3;  // lambda with a bar
        case 'b':
            return 4;  // arrow up and down
        case 'c':
            return 5;  // the same, double
        default:
            return 0;
    }
}

FT_UInt TextGlyph(FT_Face pFace, int nByte)
{
    // Controls, and the bytes that Windows-1252 leaves undefined, show the face's missing glyph.
    if (nByte < 0x20 || nByte == 0x7F)
        return 0;
    const char32_t cChar = Windows1252ToUnicode(static_cast<unsigned char>(nByte));
    return cChar >= 0x80 && cChar < 0xA0 ? 0 : FT_Get_Char_Index(pFace, cChar);
}

FT_UInt GlyphOf(FT_Face pFace, CTextCoding coding, int nByte)
{
    switch (coding)
    {
        case CTextCoding::symbol:
            return SymbolGlyph(nByte);
        case CTextCoding::mtExtra:
            return MtExtraGlyph(nByte);
        case CTextCoding::mapped:
            return FT_Get_Char_Index(pFace, 0xF000u + nByte);
        default:
            return TextGlyph(pFace, nByte);
    }
}

void ReadGlyphs(FT_Face pFace, CFontFace& face)
{
    for (int nByte = 0; nByte < 256; ++nByte)
    {
        FT_UInt nGlyph = GlyphOf(pFace, face.m_coding, nByte);
        FT_Fixed nAdvance = 0;
        // In font units: no size is set and no hinting enters.
        if (FT_Get_Advance(pFace, nGlyph, FT_LOAD_NO_SCALE, &nAdvance) != 0)
            nAdvance = 0;
        face.m_anGlyphs[nByte] = static_cast<std::uint16_t>(nGlyph);
        face.m_anAdvances[nByte] = static_cast<std::int32_t>(nAdvance);
    }
}

void ReadUnits(FT_Face pFace, CFontFace& face)
{
    face.m_nUnitsPerEm = pFace->units_per_EM;
    face.m_nHheaAscent = pFace->ascender;
    face.m_nHheaDescent = pFace->descender;
    face.m_nHheaGap = 0;
    if (auto pHhea = static_cast<TT_HoriHeader*>(FT_Get_Sfnt_Table(pFace, FT_SFNT_HHEA)))
    {
        face.m_nHheaAscent = pHhea->Ascender;
        face.m_nHheaDescent = pHhea->Descender;
        face.m_nHheaGap = pHhea->Line_Gap;
    }
    face.m_nMaxWidth = static_cast<int>(pFace->bbox.xMax - pFace->bbox.xMin);
    // Lines are as high as the "win" fields say; hhea stands in for a file that has none.
    face.m_nWinAscent = 0;
    face.m_nWinDescent = 0;
    face.m_nAverageWidth = face.m_anAdvances['x'];
    if (auto pOs2 = static_cast<TT_OS2*>(FT_Get_Sfnt_Table(pFace, FT_SFNT_OS2));
        pOs2 && pOs2->version != 0xFFFF)
    {
        face.m_nWinAscent = pOs2->usWinAscent;
        face.m_nWinDescent = pOs2->usWinDescent;
        face.m_nAverageWidth = pOs2->xAvgCharWidth;
    }
    if (face.m_nWinAscent + face.m_nWinDescent <= 0)
    {
        face.m_nWinAscent = face.m_nHheaAscent > 0 ? face.m_nHheaAscent : face.m_nUnitsPerEm;
        face.m_nWinDescent = face.m_nHheaDescent < 0 ? -face.m_nHheaDescent : 0;
    }
    face.m_bFixedPitch = FT_IS_FIXED_WIDTH(pFace);
}

}  // namespace

FT_Face OpenFontFile(const CFontFace& face)
{
    static FT_Library s_pLibrary = nullptr;
    if (face.m_strFile.empty() || (!s_pLibrary && FT_Init_FreeType(&s_pLibrary) != 0))
        return nullptr;
    FT_Face pFace = nullptr;
    return FT_New_Face(s_pLibrary, face.m_strFile.c_str(), face.m_nIndex, &pFace) == 0 ? pFace
                                                                                       : nullptr;
}

bool ReadFontFile(CFontFace& face)
{
    const CFacePtr pFace(OpenFontFile(face));
    if (!pFace || !FT_IS_SCALABLE(pFace.get()) || pFace->units_per_EM == 0 ||
        !ChooseCoding(pFace.get(), face.m_coding))
        return false;
    ReadGlyphs(pFace.get(), face);
    ReadUnits(pFace.get(), face);
    return true;
}
