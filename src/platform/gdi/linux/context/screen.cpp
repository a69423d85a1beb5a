// Contexts are kept for the next caller: each measuring of a formula asks for one.
#include "platform/gdi/linux/context/screen.h"

#include <array>
#include <vector>

const CDeviceInfo& ScreenDevice()
{
    static constexpr CDeviceInfo s_screen = { 1920, 1080, 508, 286, 96, 96, 32 };
    return s_screen;
}

namespace
{

constexpr std::size_t s_nSpareLimit = 8;

// Contexts that were given back, for the next caller.
std::vector<CDeviceContext*>& SpareContexts()
{
    static auto* s_pSpare = new std::vector<CDeviceContext*>;
    return *s_pSpare;
}

// By index of GetSysColor; the classic look. There is no desktop that could be asked, and pictures
// must not depend on one.
constexpr COLORREF s_acrSystem[] = {
    RGB(0xD4, 0xD0, 0xC8),  //  0 scroll bar
    RGB(0x3A, 0x6E, 0xA5),  //  1 desktop
    RGB(0x0A, 0x24, 0x6A),  //  2 active caption
    RGB(0x80, 0x80, 0x80),  //  3 inactive caption
    RGB(0xD4, 0xD0, 0xC8),  //  4 menu
    RGB(0xFF, 0xFF, 0xFF),  //  5 window
    RGB(0x00, 0x00, 0x00),  //  6 window frame
    RGB(0x00, 0x00, 0x00),  //  7 menu text
    RGB(0x00, 0x00, 0x00),  //  8 window text
    RGB(0xFF, 0xFF, 0xFF),  //  9 caption text
    RGB(0xD4, 0xD0, 0xC8),  // 10 active border
    RGB(0xD4, 0xD0, 0xC8),  // 11 inactive border
    RGB(0x80, 0x80, 0x80),  // 12 workspace
    RGB(0x00, 0x78, 0xD7),  // 13 highlight
    RGB(0xFF, 0xFF, 0xFF),  // 14 highlighted text
    RGB(0xD4, 0xD0, 0xC8),  // 15 button
    RGB(0x80, 0x80, 0x80),  // 16 button shadow
    RGB(0x6D, 0x6D, 0x6D),  // 17 grey text
    RGB(0x00, 0x00, 0x00),  // 18 button text
    RGB(0xD4, 0xD0, 0xC8),  // 19 inactive caption text
    RGB(0xFF, 0xFF, 0xFF),  // 20 button highlight
};
constexpr int s_nSystemColours = static_cast<int>(std::size(s_acrSystem));

}  // namespace

CDeviceContext* GetScreenDC()
{
    auto& spare = SpareContexts();
    if (spare.empty())
        return new CDeviceContext(OBJ_DC, ScreenDevice(), nullptr);
    CDeviceContext* pDC = spare.back();
    spare.pop_back();
    return pDC;
}

bool ReleaseScreenDC(CDeviceContext* pDC)
{
    if (pDC->Type() != OBJ_DC || pDC->Target())
        return false;
    auto& spare = SpareContexts();
    if (spare.size() < s_nSpareLimit)
    {
        pDC->Reset();
        spare.push_back(pDC);
    }
    else
    {
        delete pDC;
    }
    return true;
}

COLORREF SystemColour(int nIndex)
{
    return nIndex >= 0 && nIndex < s_nSystemColours ? s_acrSystem[nIndex] : 0;
}

CBrushObject* SystemBrush(int nIndex)
{
    if (nIndex < 0 || nIndex >= s_nSystemColours)
        return nullptr;
    static std::array<CBrushObject*, s_nSystemColours> s_apBrushes{};
    CBrushObject*& pBrush = s_apBrushes[nIndex];
    if (!pBrush)
    {
        pBrush = CBrushObject::Create({ BS_SOLID, s_acrSystem[nIndex], 0 });
        pBrush->MakePermanent(CHandleObject::NOT_STOCK);
    }
    return pBrush;
}
