// Wrappers of drawing objects and device contexts: who owns what, what goes to which context.
#include "platform/gdi/dc.h"
#include "platform/gdi/memory_picture.h"
#include "platform/gdi/metafile_calls.h"
#include "platform/gdi/test_fonts.h"

#include <gtest/gtest.h>

TEST(GdiObjects, SelectingGivesTheOldWrapperBack)
{
    CClientDC dc(nullptr);
    const LOGFONTA lf = FontOf("Arial", -20);
    CFont first, second;
    first.CreateFontIndirect(&lf);
    second.CreateFontIndirect(&lf);
    CFont* pStock = dc.SelectObject(&first);
    EXPECT_EQ(pStock->m_hObject, GetStockObject(SYSTEM_FONT));
    EXPECT_EQ(dc.SelectObject(&second), &first);
    EXPECT_EQ(dc.SelectObject(pStock), &second);

    CPen pen(PS_SOLID, 1, 0xFF);
    CBrush brush(HS_BDIAGONAL, 0xFF);
    {
        CSelectScope selectPen(&dc, &pen);
        CSelectScope selectBrush(&dc, &brush);
        EXPECT_EQ(dc.SelectObject(&pen), &pen);
        EXPECT_EQ(dc.SelectObject(&brush), &brush);
    }
    EXPECT_EQ(SelectObject(dc, GetStockObject(NULL_PEN)), GetStockObject(BLACK_PEN));
    EXPECT_EQ(SelectObject(dc, GetStockObject(NULL_BRUSH)), GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(dc.SelectObject(static_cast<CPen*>(nullptr)), nullptr);
    EXPECT_EQ(dc.SelectObject(pStock), pStock);
}

TEST(GdiObjects, AreOfTheClassThatTheyAreAskedFor)
{
    CPen pen(PS_SOLID, 1, 0);
    CGdiObject* pObject = CGdiObject::FromHandle(pen.m_hObject);
    EXPECT_EQ(pObject, &pen);
    EXPECT_TRUE(pObject->IsKindOf(RUNTIME_CLASS(CPen)));
    HGDIOBJ hPen = pen.Detach();
    EXPECT_FALSE(CGdiObject::FromHandle(hPen)->IsKindOf(RUNTIME_CLASS(CPen)));
    EXPECT_TRUE(CPen::FromHandle(static_cast<HPEN>(hPen))->IsKindOf(RUNTIME_CLASS(CPen)));
    EXPECT_EQ(CPen::FromHandle(nullptr), nullptr);
    EXPECT_TRUE(DeleteObject(hPen));
}

// By index: the classic look, which the prefix of the tests under Wine sets as well.
TEST(GdiObjects, SystemColoursAndTheirBrushesAreTheClassicOnes)
{
    constexpr COLORREF s_acrClassic[] = {
        0xC8D0D4, 0xA56E3A, 0x6A240A, 0x808080, 0xC8D0D4, 0xFFFFFF, 0x000000,  //  0 to  6
        0x000000, 0x000000, 0xFFFFFF, 0xC8D0D4, 0xC8D0D4, 0x808080, 0xD77800,  //  7 to 13
        0xFFFFFF, 0xC8D0D4, 0x808080, 0x6D6D6D, 0x000000, 0xC8D0D4, 0xFFFFFF,  // 14 to 20
    };
    for (int nIndex = 0; nIndex < static_cast<int>(std::size(s_acrClassic)); ++nIndex)
    {
        EXPECT_EQ(GetSysColor(nIndex), s_acrClassic[nIndex]) << nIndex;
        const HBRUSH hBrush = GetSysColorBrush(nIndex);
        EXPECT_EQ(hBrush, GetSysColorBrush(nIndex)) << nIndex;
        EXPECT_TRUE(DeleteObject(hBrush)) << "it stays";
        LOGBRUSH brush{};
        ASSERT_GT(GetObjectA(hBrush, sizeof brush, &brush), 0) << nIndex;
        EXPECT_EQ(brush.lbStyle, UINT{ BS_SOLID }) << nIndex;
        EXPECT_EQ(brush.lbColor, s_acrClassic[nIndex]) << nIndex;
    }
}

TEST(GdiObjects, BadDescriptionsMakeNothing)
{
    EXPECT_EQ(GetStockObject(9), nullptr);
    EXPECT_EQ(GetStockObject(-1), nullptr);
    EXPECT_EQ(CreateHatchBrush(-1, 0), nullptr);
    EXPECT_EQ(CreateFontIndirectA(nullptr), nullptr);
    CFont font;
    EXPECT_FALSE(font.DeleteObject());
    EXPECT_EQ(GetObjectA(GetStockObject(SYSTEM_FONT), 0, nullptr), 60);
}

// Temporary wrappers own nothing and are used again, however many handles pass by.
TEST(GdiObjects, ForeignHandlesLeaveNothingBehind)
{
    for (int i = 0; i < 1000; ++i)
    {
        const HPEN hFirst = CreatePen(PS_SOLID, 1, 0), hSecond = CreatePen(PS_SOLID, 1, 0);
        const CPen* pFirst = CPen::FromHandle(hFirst);
        EXPECT_EQ(pFirst, CPen::FromHandle(hFirst));
        EXPECT_NE(pFirst, CPen::FromHandle(hSecond));
        EXPECT_EQ(pFirst->m_hObject, hFirst);
        DeleteObject(hFirst);
        DeleteObject(hSecond);
    }
}

TEST(DeviceContext, AnotherOneMayBeAsked)
{
    CClientDC screen(nullptr);
    CMetaFileDC dc;
    ASSERT_TRUE(dc.CreateEnhanced(nullptr, nullptr, nullptr, nullptr));
    dc.SetAttribDC(screen.m_hDC);
    const LOGFONTA lf = FontOf("Symbol", -30);
    CFont font;
    font.CreateFontIndirect(&lf);
    {
        CSelectScope select(&dc, &font);
        EXPECT_EQ(dc.GetTextExtent("\xD6").cx, 16);
        EXPECT_EQ(dc.GetOutputTextExtent("\xD6").cx, 16);
        CPen pen(PS_SOLID, 1, 0);
        CSelectScope selectPen(&dc, &pen);
        EXPECT_EQ(screen.GetCurrentPen()->m_hObject, GetStockObject(BLACK_PEN)) << "only draws";
    }
    EXPECT_EQ(screen.GetCurrentFont()->m_hObject, GetStockObject(SYSTEM_FONT));
    dc.SetTextColor(0x123456);
    EXPECT_EQ(screen.GetTextColor(), 0x123456u);
}

TEST(DeviceContext, HandsShapesToTheSystem)
{
    CMetaFileDC dc;
    ASSERT_TRUE(dc.CreateEnhanced(nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(&dc, CDC::FromHandle(dc));
    CRect rect(9, 5, 5, 7);
    dc.FillSolidRect(&rect, 0x80FF);
    CBrush brush(0xFFu);
    dc.FillRect(&rect, &brush);
    dc.MoveTo(1, 2);
    dc.LineTo(3, 4);
    dc.LineTo(5, 6);
    dc.Rectangle(&rect);
    EXPECT_EQ(dc.MoveTo(0, 0), CPoint(5, 6));
    EXPECT_EQ(dc.GetBkColor(), 0x80FFu);
    EXPECT_EQ(
        TakeMetafileCalls(dc.CloseEnhanced()),
        (std::vector<std::string>{ "bkcolor 33023", "fill 9 5 5 7", "hatch 255 0", "select",
                                   "patblt 9 5 -4 2 15728673", "select", "move 1 2", "line 3 4",
                                   "line 5 6", "rectangle 5 5 8 6", "move 0 0" }));
}

TEST(DeviceContext, StatesAreSavedInLevels)
{
    CMemoryPicture picture(20, 1);
    CDC& dc = *CDC::FromHandle(picture);
    dc.SetTextColor(1);
    EXPECT_EQ(dc.SaveDC(), 1);
    dc.SetTextColor(2);
    dc.SetMapMode(MM_ANISOTROPIC);
    CRect clip(0, 0, 10, 3);
    EXPECT_EQ(dc.IntersectClipRect(&clip), SIMPLEREGION);
    EXPECT_EQ(dc.SaveDC(), 2);
    dc.SetTextColor(3);
    clip.OffsetRect(10, 0);
    EXPECT_EQ(dc.IntersectClipRect(&clip), NULLREGION);
    EXPECT_FALSE(dc.RestoreDC(3));
    EXPECT_FALSE(dc.RestoreDC(0));
    EXPECT_FALSE(dc.RestoreDC(-3));
    dc.FillSolidRect(0, 0, 20, 1, 0);
    EXPECT_EQ(picture.Inked(), CRect());
    EXPECT_TRUE(dc.RestoreDC(-1));
    EXPECT_EQ(dc.GetTextColor(), 2u);
    dc.FillSolidRect(0, 0, 20, 1, 0);
    EXPECT_EQ(picture.Inked(), CRect(0, 0, 10, 1));
    EXPECT_TRUE(dc.RestoreDC(1));
    EXPECT_EQ(dc.GetTextColor(), 1u);
    EXPECT_EQ(dc.SetMapMode(MM_TEXT), MM_TEXT);
    dc.FillSolidRect(0, 0, 20, 1, 0);
    EXPECT_EQ(picture.Inked(), CRect(0, 0, 20, 1));
}

TEST(DeviceContext, TheScreenIsTheVirtualOneAndStartsAfresh)
{
    HDC hDC = GetDC(nullptr);
    SetHundredths(hDC);
    SetTextColor(hDC, 5);
    const LOGFONTA lf = FontOf("Arial", -50);
    HFONT hFont = CreateFontIndirectA(&lf);
    SelectObject(hDC, hFont);
    DeleteObject(hFont);
    EXPECT_EQ(ReleaseDC(nullptr, hDC), 1);
    EXPECT_EQ(GetObjectType(hFont), 0u);

    CClientDC dc(nullptr);
    EXPECT_EQ(dc.SetMapMode(MM_TEXT), MM_TEXT);
    EXPECT_EQ(dc.GetTextColor(), 0u);
    EXPECT_EQ(dc.GetBkMode(), OPAQUE);
    EXPECT_EQ(dc.GetCurrentFont()->m_hObject, GetStockObject(SYSTEM_FONT));
    const std::pair<int, int> aCaps[] = {
        { HORZSIZE, 508 },  { VERTSIZE, 286 },  { HORZRES, 1920 }, { VERTRES, 1080 },
        { LOGPIXELSX, 96 }, { LOGPIXELSY, 96 }, { BITSPIXEL, 32 }, { PLANES, 1 },
    };
    for (const auto& [nIndex, nValue] : aCaps)
        EXPECT_EQ(dc.GetDeviceCaps(nIndex), nValue) << nIndex;
    EXPECT_EQ(ReleaseDC(nullptr, nullptr), 0);
}
