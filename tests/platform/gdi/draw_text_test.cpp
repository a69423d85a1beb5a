// Where texts stand, and what a recorder hears of them.
#include "platform/gdi/dc.h"
#include "platform/gdi/memory_picture.h"
#include "platform/gdi/metafile_calls.h"
#include "platform/gdi/test_fonts.h"

#include <gtest/gtest.h>

namespace
{

using CCalls = std::vector<std::string>;

constexpr UINT s_nLine = DT_SINGLELINE | DT_NOCLIP | DT_NOPREFIX;

// The texts that are drawn, with a font of 16 pixels or another one in the device context.
template <class F>
CCalls TextCalls(F draw, const LOGFONTA& font = FontOf("Times New Roman", -16))
{
    CMetaFileDC dc;
    dc.CreateEnhanced(nullptr, nullptr, nullptr, nullptr);
    {
        const CUseFont use(dc, font);
        draw(dc.m_hDC);
    }
    CCalls lines = TakeMetafileCalls(dc.CloseEnhanced());
    std::erase_if(lines, [](const std::string& strLine) { return !strLine.starts_with("text"); });
    return lines;
}

// The reference point of the only text, from the line "text x y options ...".
CPoint Reference(const CCalls& calls)
{
    int x = -9999, y = -9999;
    if (calls.size() == 1)
        std::sscanf(calls[0].c_str(), "text %d %d", &x, &y);
    return CPoint(x, y);
}

}  // namespace

// "abc" in Times, 16 pixels, is 22 wide and 17 high.
TEST(DrawText, PlacesOneLineByItsFlags)
{
    const struct
    {
        CRect rect;
        UINT nFormat;
        CPoint point;
    } aCases[] = {
        { { 10, 10, 60, 40 }, 0x920, { 10, 10 } },
        { { 10, 10, 60, 40 }, 0x921, { 24, 10 } },
        { { 10, 10, 60, 40 }, 0x922, { 38, 10 } },
        { { 10, 10, 60, 40 }, 0x924, { 10, 17 } },
        { { 10, 10, 60, 40 }, 0x925, { 24, 17 } },
        { { 10, 10, 60, 40 }, 0x926, { 38, 17 } },
        { { 10, 10, 60, 40 }, 0x928, { 10, 23 } },
        { { 10, 10, 60, 40 }, 0x929, { 24, 23 } },
        { { 10, 10, 60, 40 }, 0x92A, { 38, 23 } },
        { { 10, 10, 60, 40 }, 0xB28, { 10, 23 } },  // external leading moves nothing
        { { 10, 10, 60, 40 }, 0xB2A, { 38, 23 } },
        { { 10, 10, 60, 40 }, 0x825, { 24, 17 } },  // clipped
        { { 0, 0, 5, 4 }, 0x925, { -8, -6 } },      // -17 / 2; 4 / 2 - 17 / 2
        { { 0, 0, 5, 5 }, 0x925, { -8, -6 } },      // 5 / 2 - 17 / 2, not -12 / 2
        { { 3, 3, 3, 3 }, 0x925, { -8, -5 } },
        { { 0, 0, 0, -5 }, 0x924, { 0, -10 } },     // -5 / 2 is -2
        { { 60, 40, 10, 10 }, 0x925, { 24, 17 } },  // inverted
        { { 60, 40, 10, 10 }, 0x92A, { -12, -7 } },
        { { -7, -9, -30, -10 }, 0x921, { -29, -9 } },  // (-37 - 22) / 2
    };
    for (const auto& row : aCases)
    {
        CRect rect(row.rect);
        int nHeight = 0;
        const auto draw = [&](HDC hDC)
        {
            nHeight = DrawTextA(hDC, "abc", 3, &rect, row.nFormat);
        };
        SCOPED_TRACE(row.nFormat);
        EXPECT_EQ(Reference(TextCalls(draw)), row.point);
        const int nLeading = row.nFormat & DT_EXTERNALLEADING ? 1 : 0;
        EXPECT_EQ(nHeight, row.point.y - row.rect.top + 17 + nLeading);
        EXPECT_EQ(rect, row.rect) << "the rectangle is the caller's";
    }
}

// 17 hundredths are 16 pixels; "abc" is 23 hundredths wide and 18 high.
TEST(DrawText, DoesNotTurnRoundInAMapping)
{
    const auto draw = [](UINT nFormat)
    {
        return [nFormat](HDC hDC)
        {
            SetHundredths(hDC);
            const CUseFont use(hDC, FontOf("Times New Roman", -17));
            RECT rect{ 10, 10, 60, 40 };
            DrawTextA(hDC, "abc", -1, &rect, nFormat);
        };
    };
    EXPECT_EQ(TextCalls(draw(s_nLine | DT_CENTER | DT_VCENTER)),
              CCalls{ "text 23 16 0 rect 10 10 60 40 dx 7 8 7 codes 97 98 99" });
    EXPECT_EQ(Reference(TextCalls(draw(s_nLine | DT_RIGHT | DT_BOTTOM))), CPoint(37, 22));
}

TEST(DrawText, HandsTheTargetWhatARecordNeeds)
{
    const RECT rect{ 10, 10, 60, 40 };
    const auto draw = [&](HDC hDC)
    {
        RECT box = rect;
        DrawTextA(hDC, "", 0, &box, s_nLine);  // no characters, no call
        DrawTextA(hDC, "\xE4\x80\x81", 3, &box, DT_SINGLELINE | DT_NOPREFIX);
        ExtTextOutA(hDC, 5, 6, 0, nullptr, "Wi", 2, nullptr);
        const INT anDx[] = { 30, -4 };
        ExtTextOutA(hDC, 5, 6, 0, nullptr, "Wi", 2, anDx);
    };
    EXPECT_EQ(TextCalls(draw),
              (CCalls{ "text 10 10 4 rect 10 10 60 40 dx 7 8 6 codes 228 8364 129",
                       "text 5 6 0 dx 15 4 codes 87 105", "text 5 6 0 dx 30 -4 codes 87 105" }));
    const auto drawSymbols = [&](HDC hDC)
    {
        RECT box = rect;
        DrawTextA(hDC, "\xE5\x61", 2, &box, s_nLine);
    };
    EXPECT_EQ(TextCalls(drawSymbols, FontOf("Symbol", -30)),  // F0E5 F061
              CCalls{ "text 10 10 0 rect 10 10 60 40 dx 21 19 codes 61669 61537" });
}

// The cell of "abc", as an opaque text fills it; the base line is 14 below the top.
TEST(Text, StandsOnItsTopOrItsBaseLine)
{
    const struct
    {
        UINT nAlign;
        CRect cell;
    } aCases[] = {
        { TA_LEFT | TA_TOP, { 100, 50, 122, 67 } },
        { TA_LEFT | TA_BASELINE, { 100, 36, 122, 53 } },
    };
    for (const auto& c : aCases)
    {
        CMemoryPicture picture(200, 100);
        const CUseFont use(picture, FontOf("Times New Roman", -16));
        SetBkColor(picture, 0x00FF00);
        SetTextColor(picture, 0x00FF00);
        SetTextAlign(picture, c.nAlign);
        EXPECT_TRUE(ExtTextOutA(picture, 100, 50, 0, nullptr, "abc", 3, nullptr));
        EXPECT_EQ(picture.Inked(), c.cell) << c.nAlign;
    }
}
