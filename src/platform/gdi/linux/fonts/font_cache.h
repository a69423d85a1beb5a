// Fonts at a size: metrics and advances in device pixels, kept for the whole process.
#pragma once

#include "platform/gdi/linux/fonts/font_face.h"

#include <array>
#include <cstdint>
#include <limits>
#include <span>

// A face at a height and width, device pixels.
class CRealizedFont
{
public:
    const CFontFace& Face() const { return *m_pFace; }
    int Ppem() const { return m_nPpem; }  // pixels of the em square
    // Widths are this times as wide as the face draws them.
    double WidthRatio() const { return m_fRatio; }

    int Height() const { return m_nAscent + m_nDescent; }
    int Ascent() const { return m_nAscent; }
    int Descent() const { return m_nDescent; }
    int InternalLeading() const { return m_nInternalLeading; }
    int ExternalLeading() const { return m_nExternalLeading; }
    int AverageWidth() const { return m_nAverageWidth; }
    int MaxWidth() const { return m_nMaxWidth; }

    int Advance(BYTE byte) const
    {
        int nAdvance = m_anAdvances[byte];
        return nAdvance != UNKNOWN ? nAdvance : FillAdvance(byte);
    }
    // Sum of the advances.
    int TextWidth(std::span<const BYTE> text) const;
    std::uint16_t Glyph(BYTE byte) const { return m_pFace->m_anGlyphs[byte]; }
    // What a metafile record holds for the byte.
    char16_t Unicode(BYTE byte, BYTE nCharSet) const;

private:
    friend class CFontCache;
    static constexpr int UNKNOWN = std::numeric_limits<int>::min();

    void Realize(int nFaceId, int nHeight, int nWidth);
    int FillAdvance(BYTE byte) const;

    int m_nFaceId = -1;  // key: face, height, width
    int m_nHeight = 0;
    int m_nWidth = 0;
    CRealizedFont* m_pNext = nullptr;  // same slot of the table
    const CFontFace* m_pFace = nullptr;
    int m_nPpem = 0;
    double m_fRatio = 1;
    bool m_bStretched = false;
    int m_nAscent = 0;
    int m_nDescent = 0;
    int m_nInternalLeading = 0;
    int m_nExternalLeading = 0;
    int m_nAverageWidth = 0;
    int m_nMaxWidth = 0;
    mutable std::array<std::int32_t, 256> m_anAdvances;
};

// Fonts that were used, found by one look-up. When FONT_LIMIT of them are kept, all are dropped:
// a host that draws in thousands of sizes does not grow.
class CFontCache
{
public:
    static constexpr std::size_t FONT_LIMIT = 4096;  // each a little over a kilobyte

    // Height and width in device pixels. Valid until Generation() changes.
    static const CRealizedFont& Find(int nFaceId, int nHeight, int nWidth);
    static unsigned Generation() { return s_nGeneration; }
    static std::size_t Count();

private:
    static unsigned s_nGeneration;
};
