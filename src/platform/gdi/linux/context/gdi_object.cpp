// Life and description of drawing objects, the stock objects, and who hears of deletions.
#include "platform/gdi/linux/context/gdi_object.h"

#include "platform/gdi/linux/fonts/font_face.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

CObjectListener* CObjectListener::s_pFirst = nullptr;

CObjectListener::CObjectListener() : m_pNext(s_pFirst)
{
    if (m_pNext)
        m_pNext->m_pPrevious = this;
    s_pFirst = this;
}

CObjectListener::~CObjectListener()
{
    (m_pPrevious ? m_pPrevious->m_pNext : s_pFirst) = m_pNext;
    if (m_pNext)
        m_pNext->m_pPrevious = m_pPrevious;
}

void CHandleObject::Delete()
{
    if (m_bPermanent)
        return;
    if (m_nSelected > 0)
        m_bDeletePending = true;
    else
        Recycle();
}

int DescribeBytes(const void* pData, int cbData, int cb, void* pBuffer)
{
    if (!pBuffer)
        return cbData;
    if (cb < cbData)
        return 0;
    std::memcpy(pBuffer, pData, static_cast<std::size_t>(cbData));
    return cbData;
}

namespace
{

// Copies a face name up to its end and clears the rest; one that fills the field is cut. This is
// done for each text that is measured: in words, each written as it will be read.
void CopyFaceName(char (&szTo)[LF_FACESIZE], const char (&szFrom)[LF_FACESIZE])
{
    constexpr std::uint64_t nOnes = 0x0101010101010101u;
    constexpr std::uint64_t nTops = 0x8080808080808080u;
    static_assert(std::endian::native == std::endian::little);
    std::uint64_t nKeep = ~std::uint64_t{ 0 };
    for (int i = 0; i < LF_FACESIZE; i += 8)
    {
        std::uint64_t nWord = 0;
        std::memcpy(&nWord, szFrom + i, 8);
        nWord &= nKeep;
        std::uint64_t nZero = (nWord - nOnes) & ~nWord & nTops;  // lowest mark: the first zero byte
        if (nZero != 0)
        {
            nWord &= ((nZero & (0 - nZero)) - 1) >> 7;
            nKeep = 0;
        }
        std::memcpy(szTo + i, &nWord, 8);
    }
    szTo[LF_FACESIZE - 1] = '\0';
}

}  // namespace

CFontObject* CFontObject::Create(const LOGFONTA& font)
{
    CFontObject* pFont = Take(OBJ_FONT);
    std::memcpy(&pFont->m_font, &font, offsetof(LOGFONTA, lfFaceName));
    CopyFaceName(pFont->m_font.lfFaceName, font.lfFaceName);
    pFont->m_nFaceId = -1;
    return pFont;
}

int CFontObject::ResolveFace() const
{
    return m_nFaceId = FindFontFace(m_font);
}

int CFontObject::Describe(int cb, void* pBuffer) const
{
    return DescribeBytes(&m_font, sizeof m_font, cb, pBuffer);
}

CPenObject* CPenObject::Create(const LOGPEN& pen)
{
    CPenObject* pPen = Take(OBJ_PEN);
    pPen->m_pen = pen;
    return pPen;
}

int CPenObject::Describe(int cb, void* pBuffer) const
{
    return DescribeBytes(&m_pen, sizeof m_pen, cb, pBuffer);
}

CBrushObject* CBrushObject::Create(const LOGBRUSH& brush)
{
    CBrushObject* pBrush = Take(OBJ_BRUSH);
    pBrush->m_brush = brush;
    return pBrush;
}

int CBrushObject::Describe(int cb, void* pBuffer) const
{
    return DescribeBytes(&m_brush, sizeof m_brush, cb, pBuffer);
}

int CPaletteObject::Describe(int cb, void* pBuffer) const
{
    constexpr WORD nEntries = 2;  // black and white
    return DescribeBytes(&nEntries, sizeof nEntries, cb, pBuffer);
}

CHandleObject* ObjectFromHandle(HGDIOBJ hObject)
{
    CHandleObject* pObject = static_cast<CHandleObject*>(hObject);
    return pObject && pObject->Type() != 0 ? pObject : nullptr;
}

namespace
{

constexpr int s_nStockCount = DEFAULT_GUI_FONT + 1;

struct CStockFont
{
    int m_nIndex;
    int m_nHeight;
    int m_nWeight;
    BYTE m_nPitchAndFamily;
    const char* m_pszFace;
};

constexpr CStockFont s_aStockFonts[] = {
    { OEM_FIXED_FONT, 12, FW_NORMAL, FIXED_PITCH | FF_MODERN, "Terminal" },
    { ANSI_FIXED_FONT, 12, FW_NORMAL, FIXED_PITCH | FF_MODERN, "Courier" },
    { ANSI_VAR_FONT, 12, FW_NORMAL, VARIABLE_PITCH | FF_SWISS, "MS Sans Serif" },
    { SYSTEM_FONT, 16, FW_BOLD, VARIABLE_PITCH | FF_SWISS, "System" },
    { DEVICE_DEFAULT_FONT, 16, FW_BOLD, VARIABLE_PITCH | FF_SWISS, "System" },
    { SYSTEM_FIXED_FONT, 16, FW_NORMAL, FIXED_PITCH | FF_MODERN, "Fixedsys" },
    { DEFAULT_GUI_FONT, -11, FW_NORMAL, VARIABLE_PITCH | FF_SWISS, "MS Shell Dlg" },
};

using CStockTable = std::array<CHandleObject*, s_nStockCount>;

CStockTable MakeStockObjects()
{
    CStockTable table{};
    constexpr COLORREF BRUSHES[] = { 0xFFFFFF, 0xC0C0C0, 0x808080, 0x404040, 0x000000 };
    for (int i = WHITE_BRUSH; i <= BLACK_BRUSH; ++i)  // greys between
        table[i] = CBrushObject::Create({ BS_SOLID, BRUSHES[i], 0 });
    table[NULL_BRUSH] = CBrushObject::Create({ BS_NULL, 0, 0 });
    table[WHITE_PEN] = CPenObject::Create({ PS_SOLID, { 0, 0 }, 0xFFFFFF });
    table[BLACK_PEN] = CPenObject::Create({ PS_SOLID, { 0, 0 }, 0x000000 });
    table[NULL_PEN] = CPenObject::Create({ PS_NULL, { 0, 0 }, 0x000000 });
    for (const CStockFont& stock : s_aStockFonts)
    {
        LOGFONTA font{};
        font.lfHeight = stock.m_nHeight;
        font.lfWeight = stock.m_nWeight;
        font.lfPitchAndFamily = stock.m_nPitchAndFamily;
        std::strncpy(font.lfFaceName, stock.m_pszFace, LF_FACESIZE - 1);
        table[stock.m_nIndex] = CFontObject::Create(font);
    }
    table[DEFAULT_PALETTE] = new CPaletteObject;
    for (int i = 0; i < s_nStockCount; ++i)
    {
        if (table[i])
            table[i]->MakePermanent(i);
    }
    return table;
}

}  // namespace

CHandleObject* StockObject(int nIndex)
{
    static const CStockTable s_table = MakeStockObjects();
    return nIndex >= 0 && nIndex < s_nStockCount ? s_table[nIndex] : nullptr;
}
