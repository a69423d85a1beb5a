// What objects and contexts answer where each system has its own way.
#include "platform/gdi/dc.h"
#include "platform/gdi/memory_picture.h"
#include "platform/gdi/test_fonts.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <tuple>
#include <utility>

// The interface promises nothing for what is deleted while it is selected. Here it serves on.
TEST(HandleObjects, ADeletedOneServesUntilNothingHoldsIt)
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
    enum
    {
        oneByOne,
        byRestoring,
        byDeletingTheContext
    };
    for (const auto pfnMake : apfnMake)
    {
        for (const int nWay : { oneByOne, byRestoring, byDeletingTheContext })
        {
            CDC dc;
            ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
            const HGDIOBJ hSaved = pfnMake(), hNow = pfnMake();
            const UINT nType = GetObjectType(hSaved);
            dc.SaveDC();
            const HGDIOBJ hOld = SelectObject(dc, hSaved);
            dc.SaveDC();
            SelectObject(dc, hNow);
            EXPECT_TRUE(DeleteObject(hSaved) && DeleteObject(hNow));
            EXPECT_EQ(GetObjectType(hSaved), nType) << "the saved state holds it";
            EXPECT_EQ(GetObjectType(hNow), nType);
            if (nWay == byDeletingTheContext)
                dc.DeleteDC();
            else
                dc.RestoreDC(nWay == byRestoring ? 1 : -1);
            EXPECT_EQ(GetObjectType(hNow), 0u);
            if (nWay == oneByOne)
            {
                EXPECT_EQ(nType == OBJ_FONT, dc.GetTextExtent("x", 1).cy == 56);  // 45 + 11
                EXPECT_EQ(SelectObject(dc, hOld), hSaved);
                EXPECT_EQ(SelectObject(dc, hSaved), nullptr);
            }
            EXPECT_EQ(GetObjectType(hSaved), 0u);
            EXPECT_FALSE(DeleteObject(hSaved));
            EXPECT_EQ(GetObjectA(hSaved, 0, nullptr), 0);
        }
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
    const auto describe = [](int nIndex, auto description)
    {
        const int nSize = static_cast<int>(sizeof description);
        EXPECT_EQ(GetObjectA(GetStockObject(nIndex), nSize, &description), nSize) << nIndex;
        return description;
    };
    for (const auto& [nIndex, nStyle] : { std::pair(BLACK_PEN, PS_SOLID), { NULL_PEN, PS_NULL } })
    {
        const LOGPEN pen = describe(nIndex, LOGPEN{ 99, { 99, 99 }, 99 });
        EXPECT_EQ(std::tuple(pen.lopnStyle, CPoint(pen.lopnWidth), pen.lopnColor),
                  std::tuple(static_cast<UINT>(nStyle), CPoint(0, 0), 0u));
    }
    const std::tuple<int, UINT, COLORREF> aBrushes[] = { { WHITE_BRUSH, BS_SOLID, 0xFFFFFF },
                                                         { BLACK_BRUSH, BS_SOLID, 0 },
                                                         { NULL_BRUSH, BS_NULL, 0 } };
    for (const auto& [nIndex, nStyle, nColour] : aBrushes)
    {
        const LOGBRUSH brush = describe(nIndex, LOGBRUSH{ 99, 99, 99 });
        EXPECT_EQ(std::tuple(brush.lbStyle, brush.lbColor, brush.lbHatch),
                  std::tuple(nStyle, nColour, 0u));
    }
    const LOGFONTA font = describe(SYSTEM_FONT, LOGFONTA{});
    EXPECT_EQ(std::tuple(font.lfHeight, font.lfWeight, std::string(font.lfFaceName)),
              std::tuple(16, FW_BOLD, "System"));
    EXPECT_EQ(describe(DEFAULT_PALETTE, WORD{ 0 }), 2);
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
        { CALL(FillRect, &s_rect, reinterpret_cast<HBRUSH>(INT_PTR{ COLOR_BTNTEXT + 1 })), 1, 0 },
        { CALL(GetPixel, 0, 0), 0, CLR_INVALID },
        { CALL(SetPixel, 0, 0, 3), 3, CLR_INVALID },
        { CALL(GetPixel, 0, 0), 3, CLR_INVALID },
        { CALL(IntersectClipRect, 0, 0, 1, 1), SIMPLEREGION, ERROR_REGION },
        { CALL(IntersectClipRect, 5, 5, 6, 6), NULLREGION, ERROR_REGION },
        { CALL(RealizePalette), 0, GDI_ERROR },
        { CALL(RestoreDC, -1), TRUE, FALSE },
        { CALL(RestoreDC, -1), FALSE, FALSE },
        { CALL(GetBkMode), OPAQUE, 0 },
    };
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

TEST(MappingLimits, ExtremeNumbersEndAtTheLimits)
{
    CClientDC dc(nullptr);
    dc.SetMapMode(MM_ANISOTROPIC);
    dc.SetWindowExt(1, -1);
    dc.SetViewportExt(INT32_MAX, INT32_MAX);
    CPoint point(INT32_MAX, INT32_MAX);
    ::LPtoDP(dc, &point, 1);
    EXPECT_EQ(point, CPoint(INT32_MAX, INT32_MIN));
}

// Twice as wide as high: each axis has a factor of its own. "x" of the system font is measured.
TEST(MappingLimits, HeightsGoByTheVerticalFactor)
{
    CClientDC dc(nullptr);
    const CSize plain = dc.GetTextExtent("xx", 2);
    dc.SetMapMode(MM_ANISOTROPIC);
    dc.SetWindowExt(1, 1);
    dc.SetViewportExt(2, 1);
    EXPECT_EQ(dc.GetTextExtent("xx", 2), CSize(plain.cx / 2, plain.cy));
}
