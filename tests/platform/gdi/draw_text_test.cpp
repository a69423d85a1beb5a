#include "platform/gdi/dc.h"
#include "platform/gdi/recording_target.h"
#include "platform/gdi/test_fonts.h"

#include <gtest/gtest.h>

namespace
{

constexpr UINT LINE = DT_SINGLELINE | DT_NOCLIP | DT_NOPREFIX;

// The reference point of the text that a call draws, from the record "text x y options ...".
POINT Reference(const std::vector<std::string>& calls)
{
    POINT point{ -9999, -9999 };
    if (calls.size() == 1)
        std::sscanf(calls[0].c_str(), "text %d %d", &point.x, &point.y);
    return point;
}

}  // namespace

// "abc" in Times, 16 pixels, is 22 wide and 17 high.
TEST(DrawText, PlacesOneLineByItsFlags)
{
    struct
    {
        RECT m_rect;
        UINT m_nFormat;
        int x, y;
    } aCases[] = {
        { { 10, 10, 60, 40 }, 0x920, 10, 10 },
        { { 10, 10, 60, 40 }, 0x921, 24, 10 },
        { { 10, 10, 60, 40 }, 0x922, 38, 10 },
        { { 10, 10, 60, 40 }, 0x924, 10, 17 },
        { { 10, 10, 60, 40 }, 0x925, 24, 17 },
        { { 10, 10, 60, 40 }, 0x926, 38, 17 },
        { { 10, 10, 60, 40 }, 0x928, 10, 23 },
        { { 10, 10, 60, 40 }, 0x929, 24, 23 },
        { { 10, 10, 60, 40 }, 0x92A, 38, 23 },
        { { 10, 10, 60, 40 }, 0xB28, 10, 23 },  // external leading changes nothing
        { { 10, 10, 60, 40 }, 0xB2A, 38, 23 },
        { { 10, 10, 60, 40 }, 0x825, 24, 17 },  // clipped
        { { 0, 0, 5, 4 }, 0x925, -8, -6 },      // -17 / 2; 4 / 2 - 17 / 2
        { { 0, 0, 5, 5 }, 0x925, -8, -6 },      // 5 / 2 - 17 / 2, not -12 / 2
        { { 3, 3, 3, 3 }, 0x925, -8, -5 },
        { { 0, 0, 0, -5 }, 0x924, 0, -10 },     // -5 / 2 is -2
        { { 60, 40, 10, 10 }, 0x925, 24, 17 },  // inverted
        { { 60, 40, 10, 10 }, 0x92A, -12, -7 },
        { { -7, -9, -30, -10 }, 0x921, -29, -9 },  // (-37 - 22) / 2
    };
    CRecordedDC recorded;
    CUseFont use(recorded.m_hDC, FontOf("Times New Roman", -16));
    for (const auto& row : aCases)
    {
        SCOPED_TRACE(testing::Message()
                     << std::hex << row.m_nFormat << std::dec << " in " << row.m_rect.left << ' '
                     << row.m_rect.top << ' ' << row.m_rect.right << ' ' << row.m_rect.bottom);
        recorded.m_calls.clear();
        CRect rect(row.m_rect);
        int nHeight = DrawTextA(recorded.m_hDC, "abc", 3, &rect, row.m_nFormat);
        EXPECT_EQ(Reference(recorded.m_calls).x, row.x);
        EXPECT_EQ(Reference(recorded.m_calls).y, row.y);
        EXPECT_EQ(nHeight, row.y - row.m_rect.top + 17);
        EXPECT_EQ(rect, CRect(row.m_rect)) << "the rectangle is the caller's";
    }
}

// 17 hundredths are 16 pixels; "abc" is 23 hundredths wide and 18 high.
TEST(DrawText, DoesNotTurnRoundInAMapping)
{
    CRecordedDC recorded;
    SetHundredths(recorded.m_hDC);
    CUseFont use(recorded.m_hDC, FontOf("Times New Roman", -17));
    recorded.m_calls.clear();
    RECT rect{ 10, 10, 60, 40 };
    DrawTextA(recorded.m_hDC, "abc", -1, &rect, LINE | DT_CENTER | DT_VCENTER);
    EXPECT_EQ(recorded.m_calls,
              std::vector<std::string>{ "text 23 16 0 rect 10 10 60 40 dx 7 8 7 codes 97 98 99" });
    recorded.m_calls.clear();
    DrawTextA(recorded.m_hDC, "abc", -1, &rect, LINE | DT_RIGHT | DT_BOTTOM);
    EXPECT_EQ(Reference(recorded.m_calls).x, 37);
    EXPECT_EQ(Reference(recorded.m_calls).y, 22);
}

TEST(DrawText, HandsTheTargetWhatARecordNeeds)
{
    CRecordedDC recorded;
    RECT rect{ 10, 10, 60, 40 };
    {
        CUseFont use(recorded.m_hDC, FontOf("Times New Roman", -16));
        recorded.m_calls.clear();
        DrawTextA(recorded.m_hDC, "", 0, &rect, LINE);
        EXPECT_TRUE(recorded.m_calls.empty()) << "no characters, no call";
        DrawTextA(recorded.m_hDC, "\xE4\x80\x81", 3, &rect, DT_SINGLELINE | DT_NOPREFIX);
        EXPECT_EQ(recorded.m_calls.at(0),
                  "text 10 10 4 rect 10 10 60 40 dx 7 8 6 codes 228 8364 129");
        recorded.m_calls.clear();
        TextOutA(recorded.m_hDC, 5, 6, "Wi", 2);
        EXPECT_EQ(recorded.m_calls.at(0), "text 5 6 0 dx 15 4 codes 87 105");
        recorded.m_calls.clear();
        const INT anDx[] = { 30, -4 };
        ExtTextOutA(recorded.m_hDC, 5, 6, 0, nullptr, "Wi", 2, anDx);
        EXPECT_EQ(recorded.m_calls.at(0), "text 5 6 0 dx 30 -4 codes 87 105");
    }
    CUseFont use(recorded.m_hDC, FontOf("Symbol", -30));
    recorded.m_calls.clear();
    DrawTextA(recorded.m_hDC, "\xE5\x61", 2, &rect, LINE);
    EXPECT_EQ(recorded.m_calls.at(0),
              "text 10 10 0 rect 10 10 60 40 dx 21 19 codes 61669 61537");  // F0E5 F061
}

TEST(DrawText, CountsBreaksAndMarks)
{
    CRecordedDC recorded;
    CUseFont use(recorded.m_hDC, FontOf("Times New Roman", -16));
    RECT rect{ 10, 10, 0, 0 };
    recorded.m_calls.clear();
    EXPECT_EQ(DrawTextA(recorded.m_hDC, "abc\r\nab", -1, &rect, DT_CALCRECT | DT_NOPREFIX), 34);
    EXPECT_EQ(CRect(rect), CRect(10, 10, 32, 44));
    EXPECT_TRUE(recorded.m_calls.empty());
    DrawTextA(recorded.m_hDC, "a&&b&c", -1, &rect, DT_SINGLELINE);
    EXPECT_NE(recorded.m_calls.at(0).find("codes 97 38 98 99"), std::string::npos);
}

TEST(Text, AlignmentMovesTheOriginOnTheDevice)
{
    struct
    {
        UINT m_nAlign;
        int x, y;
    } aCases[] = {
        { TA_LEFT | TA_TOP, 100, 64 },       // base line 14 below the top
        { TA_RIGHT | TA_BASELINE, 78, 50 },  // 22 wide
        { TA_CENTER | TA_BOTTOM, 89, 47 },   //  3 below the base line
    };
    CClientDC dc(nullptr);
    CUseFont use(dc, FontOf("Times New Roman", -16));
    const BYTE abText[] = { 'a', 'b', 'c' };
    CTextRun run{ { 100, 50 }, 0, nullptr, abText, nullptr };
    for (const auto& row : aCases)
    {
        dc.SetTextAlign(row.m_nAlign);
        POINT origin = dc.m_hDC->TextOrigin(run);
        EXPECT_EQ(origin.x, row.x) << row.m_nAlign;
        EXPECT_EQ(origin.y, row.y) << row.m_nAlign;
    }
    dc.SetTextAlign(TA_UPDATECP);
    dc.MoveTo(7, 8);
    dc.TextOut(100, 50, "abc");
    EXPECT_EQ(dc.GetCurrentPosition(), CPoint(29, 8));
}
