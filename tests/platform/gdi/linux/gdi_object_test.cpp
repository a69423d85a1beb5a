// What objects tell of themselves inside of the drawing layer.
#include "platform/gdi/linux/context/gdi_object.h"

#include "platform/gdi/dc.h"
#include "platform/gdi/memory_picture.h"
#include "platform/gdi/test_fonts.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace
{

struct CDeletions : CObjectListener
{
    void ObjectDeleted(const CHandleObject& object) override { m_deleted.push_back(&object); }
    std::vector<const CHandleObject*> m_deleted;
};

}  // namespace

TEST(HandleObjects, RecordersHearOfDeletions)
{
    CDeletions deletions;
    HBRUSH hWindow = GetSysColorBrush(COLOR_WINDOW);
    EXPECT_TRUE(DeleteObject(hWindow));
    EXPECT_EQ(deletions.m_deleted, std::vector<const CHandleObject*>{ ObjectFromHandle(hWindow) });
}

// The interface promises nothing for what is deleted while it is selected. Here it serves on.
TEST(HandleObjects, ADeletedOneServesUntilItIsNoLongerSelected)
{
    CClientDC dc(nullptr);
    HDC hDC = dc;
    LOGFONTA lf = FontOf("Arial", -50);
    HFONT hFont = CreateFontIndirectA(&lf);
    HGDIOBJ hOld = SelectObject(hDC, hFont);
    int nSaved = SaveDC(hDC);
    SelectObject(hDC, hOld);
    EXPECT_TRUE(DeleteObject(hFont));
    EXPECT_EQ(GetObjectType(hFont), OBJ_FONT) << "the saved state holds it";
    EXPECT_TRUE(RestoreDC(hDC, nSaved));
    SIZE size{};
    GetTextExtentPoint32A(hDC, "x", 1, &size);
    EXPECT_EQ(size.cy, 56);  // 45 + 11
    EXPECT_EQ(SelectObject(hDC, hOld), hFont);
    EXPECT_EQ(GetObjectType(hFont), 0u);
    EXPECT_FALSE(DeleteObject(hFont));
    EXPECT_EQ(SelectObject(hDC, hFont), nullptr);
    EXPECT_EQ(GetObjectA(hFont, sizeof lf, &lf), 0);
}

TEST(HandleObjects, SavedStatesAndContextsThatAreDroppedLetGo)
{
    constexpr HGDIOBJ (*apfnMake[])() = {
        []() -> HGDIOBJ
        {
            const LOGFONTA lf = FontOf("Arial", -50);
            return CreateFontIndirectA(&lf);
        },
        []() -> HGDIOBJ { return CreatePen(PS_SOLID, 1, 1); },
        []() -> HGDIOBJ { return CreateSolidBrush(1); },
    };
    for (const auto pfnMake : apfnMake)
    {
        CDC dc;
        ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
        const HGDIOBJ hSaved = pfnMake();
        const UINT nType = GetObjectType(hSaved);
        dc.SaveDC();
        const HGDIOBJ hOld = SelectObject(dc, hSaved);
        dc.SaveDC();
        SelectObject(dc, hOld);
        DeleteObject(hSaved);
        EXPECT_EQ(GetObjectType(hSaved), nType);
        dc.RestoreDC(1);
        EXPECT_EQ(GetObjectType(hSaved), 0u);

        dc.SaveDC();
        const HGDIOBJ hNow = pfnMake();
        SelectObject(dc, hNow);
        DeleteObject(hNow);
        EXPECT_EQ(GetObjectType(hNow), nType);
        dc.RestoreDC(-1);
        EXPECT_EQ(GetObjectType(hNow), 0u);

        const HGDIOBJ hBelow = pfnMake();
        const HGDIOBJ hLast = pfnMake();
        SelectObject(dc, hBelow);
        dc.SaveDC();
        SelectObject(dc, hLast);
        DeleteObject(hBelow);
        DeleteObject(hLast);
        EXPECT_EQ(GetObjectType(hBelow), nType);
        EXPECT_EQ(GetObjectType(hLast), nType);
        dc.DeleteDC();
        EXPECT_EQ(GetObjectType(hBelow), 0u);
        EXPECT_EQ(GetObjectType(hLast), 0u);
    }
}

TEST(HandleObjects, ContextsThatGoLetTheirBitmapGo)
{
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(2, 2, 1, 32, nullptr));
    CDC other;
    ASSERT_TRUE(other.CreateCompatibleDC(nullptr));
    {
        CDC dc;
        ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
        EXPECT_NE(dc.SelectObject(&bitmap), nullptr);
        EXPECT_EQ(other.SelectObject(&bitmap), nullptr);
    }
    EXPECT_NE(other.SelectObject(&bitmap), nullptr);
}

TEST(HandleObjects, StockObjectsAreTheSystems)
{
    const auto describe = [](int nIndex, auto& description)
    {
        const int nSize = static_cast<int>(sizeof description);
        EXPECT_EQ(GetObjectA(GetStockObject(nIndex), nSize, &description), nSize) << nIndex;
    };
    for (const auto& [nIndex, nStyle] : { std::pair(BLACK_PEN, PS_SOLID), { NULL_PEN, PS_NULL } })
    {
        LOGPEN pen{ 99, { 99, 99 }, 99 };
        describe(nIndex, pen);
        EXPECT_EQ(pen.lopnStyle, static_cast<UINT>(nStyle));
        EXPECT_EQ(CPoint(pen.lopnWidth), CPoint(0, 0));
        EXPECT_EQ(pen.lopnColor, 0u);
    }
    const std::tuple<int, int, COLORREF> aBrushes[] = {
        { WHITE_BRUSH, BS_SOLID, 0xFFFFFF },
        { BLACK_BRUSH, BS_SOLID, 0 },
        { NULL_BRUSH, BS_NULL, 0 },
    };
    for (const auto& [nIndex, nStyle, nColour] : aBrushes)
    {
        LOGBRUSH brush{ 99, 99, 99 };
        describe(nIndex, brush);
        EXPECT_EQ(brush.lbStyle, static_cast<UINT>(nStyle));
        EXPECT_EQ(brush.lbColor, nColour);
        EXPECT_EQ(brush.lbHatch, 0u);
    }
    LOGFONTA font{};
    describe(SYSTEM_FONT, font);
    EXPECT_EQ(std::tuple(font.lfHeight, font.lfWeight, std::string(font.lfFaceName)),
              std::tuple(16, FW_BOLD, "System"));
    WORD nEntries = 0;
    describe(DEFAULT_PALETTE, nEntries);
    EXPECT_EQ(nEntries, 2);
}

TEST(HandleObjects, FillingKeepsABrushThatWasDeletedWhileSelected)
{
    CMemoryPicture picture(2, 2);
    HBRUSH hBrush = CreateSolidBrush(0x123456);
    HGDIOBJ hOld = SelectObject(picture, hBrush);
    DeleteObject(hBrush);
    const RECT rect{ 0, 0, 1, 1 };
    FillRect(picture, &rect, GetSysColorBrush(COLOR_WINDOW));
    EXPECT_EQ(SelectObject(picture, hOld), hBrush);
    EXPECT_EQ(GetObjectType(hBrush), 0u);
}

TEST(HandleObjects, UnknownKindsAndTooSmallBuffersAreRefused)
{
    EXPECT_EQ(GetSysColorBrush(21), nullptr);
    EXPECT_EQ(CreateHatchBrush(HS_BDIAGONAL + 1, 0), nullptr);
    char chSmall = 0;
    EXPECT_EQ(GetObjectA(GetStockObject(SYSTEM_FONT), 1, &chSmall), 0);
}

// Each function by its answer for a new context, on which they are called in turn, and for none.
TEST(DeviceContextFunctions, AnswerWithTheOldValueOrWhetherAllWentWell)
{
    static RECT s_rect{ 0, 0, 1, 1 };
    static POINT s_point{};
    static SIZE s_size{};
    static TEXTMETRICA s_metrics{};
    struct CCall
    {
        const char* pszName;
        std::int64_t (*pfnCall)(HDC hDC);
        std::int64_t nAnswer;
        std::int64_t nWithout;
    };
#define CALL(name, ...)                            \
#name, [](HDC h) -> std::int64_t {             \
        return name(h __VA_OPT__(, ) __VA_ARGS__); \
    }
    // clang-format off
    static constexpr CCall s_aCalls[] = {
        { CALL(GetDeviceCaps, PLANES), 1, 0 },
        { CALL(GetDeviceCaps, 9999), 0, 0 },
        { CALL(SaveDC), 1, 0 },
        { CALL(SetMapMode, MM_ANISOTROPIC), MM_TEXT, 0 },
        { CALL(SetWindowExtEx, 2, 2, nullptr), TRUE, FALSE },
        { CALL(SetViewportExtEx, 2, 2, nullptr), TRUE, FALSE },
        { CALL(SetWindowOrgEx, 0, 0, nullptr), TRUE, FALSE },
        { CALL(SetViewportOrgEx, 0, 0, nullptr), TRUE, FALSE },
        { CALL(LPtoDP, &s_point, 1), TRUE, FALSE },
        { CALL(LPtoDP, nullptr, 1), FALSE, FALSE },
        { CALL(LPtoDP, nullptr, 0), TRUE, FALSE },
        { CALL(DPtoLP, &s_point, 1), TRUE, FALSE },
        { CALL(DPtoLP, nullptr, 1), FALSE, FALSE },
        { CALL(DPtoLP, nullptr, 0), TRUE, FALSE },
        { CALL(SetBkMode, 3), 0, 0 },
        { CALL(SetBkMode, TRANSPARENT), OPAQUE, 0 },
        { CALL(GetBkMode), TRANSPARENT, 0 },
        { CALL(SetBkColor, 5), 0xFFFFFF, CLR_INVALID },
        { CALL(GetBkColor), 5, CLR_INVALID },
        { CALL(SetTextColor, 7), 0, CLR_INVALID },
        { CALL(GetTextColor), 7, CLR_INVALID },
        { CALL(SetTextAlign, TA_BASELINE), TA_TOP, GDI_ERROR },
        { CALL(SetTextAlign, 99), GDI_ERROR, GDI_ERROR },
        { CALL(GetTextMetricsA, &s_metrics), TRUE, FALSE },
        { CALL(GetTextExtentPoint32A, "a", 1, &s_size), TRUE, FALSE },
        { CALL(ExtTextOutA, 0, 0, 0, nullptr, "a", 1, nullptr), TRUE, FALSE },
        { CALL(MoveToEx, 1, 1, nullptr), TRUE, FALSE },
        { CALL(LineTo, 2, 2), TRUE, FALSE },
        { CALL(Rectangle, 0, 0, 2, 2), TRUE, FALSE },
        { CALL(FillRect, &s_rect, nullptr), 0, 0 },
        { CALL(FillRect, nullptr, GetSysColorBrush(COLOR_WINDOW)), 0, 0 },
        { CALL(FillRect, &s_rect, GetSysColorBrush(COLOR_WINDOW)), 1, 0 },
        { CALL(SetPixel, 0, 0, 3), 3, CLR_INVALID },
        { CALL(GetPixel, 0, 0), 3, CLR_INVALID },
        { CALL(IntersectClipRect, 0, 0, 1, 1), SIMPLEREGION, ERROR_REGION },
        { CALL(IntersectClipRect, 5, 5, 6, 6), NULLREGION, ERROR_REGION },
        { CALL(RealizePalette), 0, GDI_ERROR },
        { CALL(RestoreDC, -1), TRUE, FALSE },
        { CALL(RestoreDC, -1), FALSE, FALSE },
        { CALL(GetBkMode), OPAQUE, 0 },
    };
    // clang-format on
#undef CALL
    const CMemoryPicture picture(4, 4);
    for (const CCall& call : s_aCalls)
    {
        EXPECT_EQ(call.pfnCall(picture), call.nAnswer) << call.pszName;
        EXPECT_EQ(call.pfnCall(nullptr), call.nWithout) << call.pszName;
    }
    for (const UINT nType : { OBJ_FONT, OBJ_PEN, OBJ_BRUSH })
    {
        EXPECT_EQ(GetObjectType(GetCurrentObject(picture, nType)), nType);
        EXPECT_EQ(GetCurrentObject(nullptr, nType), nullptr);
    }
    EXPECT_EQ(GetCurrentObject(picture, 99), nullptr);
    EXPECT_EQ(SelectObject(nullptr, GetStockObject(BLACK_PEN)), nullptr);
    EXPECT_EQ(SelectObject(picture, nullptr), nullptr);
    EXPECT_FALSE(DeleteDC(nullptr));
    EXPECT_FALSE(DeleteObject(nullptr));
}
