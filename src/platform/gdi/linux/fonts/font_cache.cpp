// The size of a font: all steps are integers, rounded where the font system rounds them.
#include "platform/gdi/linux/fonts/font_cache.h"

#include "platform/base/code_page.h"
#include "platform/base/rounding.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <vector>

unsigned CFontCache::s_nGeneration = 0;

namespace
{

using std::int64_t;

constexpr int64_t s_nLargestPpem = 1 << 24;  // keeps all products below within 64 bits
constexpr int s_nDefaultHeight = 16;
constexpr int s_nWidest = 100;  // a width of more than this many heights is not taken for one

// a * b with b in 16.16, halves away from zero.
int64_t MulFix(int64_t a, int64_t b)
{
    int64_t nProduct = a * b;
    return nProduct >= 0 ? (nProduct + 0x8000) >> 16 : -((0x8000 - nProduct) >> 16);
}

// Both for positive arguments.
int64_t DivFix(int64_t a, int64_t b)
{
    return ((a << 16) + b / 2) / b;
}
int64_t MulDivNearest(int64_t a, int64_t b, int64_t c)
{
    return (a * b + c / 2) / c;
}

// Pixels of the em square for a height: negative is that, positive is the height of the cell. None
// at all (also what a mapping cuts to 0) is a font of the default height.
int64_t PpemOf(const CFontFace& face, int nHeight)
{
    if (nHeight < 0)
        return std::min(-int64_t{ nHeight }, s_nLargestPpem);
    int64_t h = nHeight == 0 ? s_nDefaultHeight : nHeight;
    int64_t nUnits = face.m_nWinAscent + face.m_nWinDescent;
    int64_t nPpem = MulDivNearest(face.m_nUnitsPerEm, h, nUnits);
    // A cell may not be higher than was asked for; rounding is off by one pixel at most.
    if (nPpem > 1 && MulDivNearest(nUnits, nPpem, face.m_nUnitsPerEm) > h)
        --nPpem;
    return std::clamp<int64_t>(nPpem, 1, s_nLargestPpem);
}

}  // namespace

void CRealizedFont::Realize(int nFaceId, int nHeight, int nWidth)
{
    m_nFaceId = nFaceId;
    m_nHeight = nHeight;
    m_nWidth = nWidth;
    m_pFace = &FontFaceById(nFaceId);
    m_anAdvances.fill(UNKNOWN);

    const CFontFace& face = *m_pFace;
    int64_t nPpem = PpemOf(face, nHeight);
    int64_t nScale = MulDivNearest(nPpem, 65536, face.m_nUnitsPerEm);
    auto scaled = [&](int64_t nUnits)
    {
        return SaturateToInt(MulFix(nUnits, nScale));
    };
    int nWin = face.m_nWinAscent + face.m_nWinDescent;
    m_nPpem = static_cast<int>(nPpem);
    m_nAscent = scaled(face.m_nWinAscent);
    m_nDescent = scaled(face.m_nWinDescent);
    m_nInternalLeading = scaled(nWin - face.m_nUnitsPerEm);
    m_nExternalLeading =
        std::max(0, scaled(face.m_nHheaGap - (nWin - (face.m_nHheaAscent - face.m_nHheaDescent))));

    // A width means the average character's. It counts only beside a height, and one that is out of
    // all proportion is taken for none.
    int nAverage = std::max(1, scaled(face.m_nAverageWidth));
    int64_t nAsked = nHeight == 0 ? 0 : std::abs(int64_t{ nWidth });
    int64_t nCell = std::max(1, Height());
    if ((nAsked + nCell - 1) / nCell > s_nWidest)
        nAsked = 0;
    m_bStretched = nAsked != 0;
    m_fRatio = m_bStretched ? static_cast<double>(nAsked) / nAverage : 1.0;
    // Thickening widens each glyph by a pixel; the ratio is still that of the plain face.
    const double fThicker = face.m_bFakeBold ? 1 : 0;
    m_nAverageWidth = RoundToInt((nAverage + fThicker) * m_fRatio);
    m_nMaxWidth = RoundToInt((scaled(face.m_nMaxWidth) + fThicker) * m_fRatio);
}

int CRealizedFont::FillAdvance(BYTE byte) const
{
    const CFontFace& face = *m_pFace;
    // In 26.6, as glyphs are scaled, and rounded to whole pixels: hinted advances are whole, and
    // texts are measured as GDI places them.
    int64_t nScale = DivFix(int64_t{ m_nPpem } * 64, face.m_nUnitsPerEm);
    int64_t nPixels = (MulFix(face.m_anAdvances[byte], nScale) + 32) >> 6;
    if (m_bStretched)  // the whole pixels are stretched, and rounded up
        nPixels = (MulFix(nPixels * 64, static_cast<int64_t>(m_fRatio * 65536.0)) + 63) >> 6;
    if (face.m_bFakeBold)
        ++nPixels;
    return m_anAdvances[byte] = SaturateToInt(nPixels);
}

int CRealizedFont::TextWidth(std::span<const BYTE> text) const
{
    int64_t nWidth = 0;
    for (BYTE byte : text)
        nWidth += Advance(byte);
    return SaturateToInt(nWidth);
}

char16_t CRealizedFont::Unicode(BYTE byte, BYTE nCharSet) const
{
    if (TakesPrivateCodes(*m_pFace, nCharSet))
        return static_cast<char16_t>(byte < 0x20 ? byte : 0xF000 | byte);
    return static_cast<char16_t>(Windows1252ToUnicode(byte));
}

namespace
{

constexpr std::size_t s_nSlotCount = 2 * CFontCache::FONT_LIMIT;

struct CFontTable
{
    std::array<CRealizedFont*, s_nSlotCount> m_apSlots{};
    std::vector<std::unique_ptr<CRealizedFont>> m_fonts;  // the first m_nUsed are in the table
    std::size_t m_nUsed = 0;
};

CFontTable& Table()
{
    static CFontTable* s_pTable = new CFontTable;  // serves to the end of the process
    return *s_pTable;
}

std::size_t SlotOf(int nFaceId, int nHeight, int nWidth)
{
    std::uint64_t nHash = static_cast<std::uint32_t>(nHeight);
    nHash = (nHash << 32 | static_cast<std::uint32_t>(nWidth)) * 0x9E3779B97F4A7C15u;
    nHash = (nHash ^ static_cast<std::uint32_t>(nFaceId)) * 0xC2B2AE3D27D4EB4Fu;
    return static_cast<std::size_t>(nHash >> 40) % s_nSlotCount;
}

}  // namespace

std::size_t CFontCache::Count()
{
    return Table().m_nUsed;
}

const CRealizedFont& CFontCache::Find(int nFaceId, int nHeight, int nWidth)
{
    CFontTable& table = Table();
    std::size_t nSlot = SlotOf(nFaceId, nHeight, nWidth);
    for (CRealizedFont* p = table.m_apSlots[nSlot]; p; p = p->m_pNext)
    {
        if (p->m_nHeight == nHeight && p->m_nWidth == nWidth && p->m_nFaceId == nFaceId)
            return *p;
    }

    if (table.m_nUsed == FONT_LIMIT)
    {
        table.m_apSlots.fill(nullptr);
        table.m_nUsed = 0;
        ++s_nGeneration;
    }
    if (table.m_nUsed == table.m_fonts.size())
        table.m_fonts.push_back(std::make_unique<CRealizedFont>());
    CRealizedFont& realized = *table.m_fonts[table.m_nUsed];
    realized.Realize(nFaceId, nHeight, nWidth);
    ++table.m_nUsed;
    realized.m_pNext = std::exchange(table.m_apSlots[nSlot], &realized);
    return realized;
}
