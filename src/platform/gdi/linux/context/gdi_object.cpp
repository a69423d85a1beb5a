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

constexpr int s_nStockCount = DEFAULT_PALETTE + 1;

using CStockTable = std::array<CHandleObject*, s_nStockCount>;

// The font that a new device context holds, as the system describes it.
CFontObject* MakeSystemFont()
{
    LOGFONTA font{};
    font.lfHeight = 16;
    font.lfWeight = FW_BOLD;
    font.lfPitchAndFamily = VARIABLE_PITCH | FF_SWISS;
    std::strcpy(font.lfFaceName, "System");
    return CFontObject::Create(font);
}

// Those that a device context starts with or formulas, hosts and the menu ask for; the rest of the
// system's list is empty.
CStockTable MakeStockObjects()
{
    CStockTable table{};
    table[WHITE_BRUSH] = CBrushObject::Create({ BS_SOLID, 0xFFFFFF, 0 });
    table[BLACK_BRUSH] = CBrushObject::Create({ BS_SOLID, 0x000000, 0 });
    table[NULL_BRUSH] = CBrushObject::Create({ BS_NULL, 0, 0 });
    table[BLACK_PEN] = CPenObject::Create({ PS_SOLID, { 0, 0 }, 0x000000 });
    table[NULL_PEN] = CPenObject::Create({ PS_NULL, { 0, 0 }, 0x000000 });
    table[SYSTEM_FONT] = MakeSystemFont();
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
