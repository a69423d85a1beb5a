// Sizes of texts against numbers worked out from the font files, and the files of the faces.
#include "platform/gdi/dc.h"
#include "platform/gdi/test_fonts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>
#include <tuple>

namespace
{

std::array<INT, 256> Widths(HDC hDC, const LOGFONTA& font)
{
    CUseFont use(hDC, font);
    std::array<INT, 256> anWidths{};
    for (std::size_t n = 0; n < anWidths.size(); ++n)
    {
        const char ch = static_cast<char>(n);
        SIZE size{};
        EXPECT_TRUE(GetTextExtentPoint32A(hDC, &ch, 1, &size));
        anWidths[n] = size.cx;
    }
    return anWidths;
}

TEXTMETRICA Metrics(HDC hDC, const LOGFONTA& font)
{
    CUseFont use(hDC, font);
    TEXTMETRICA metrics{};
    EXPECT_TRUE(GetTextMetricsA(hDC, &metrics));
    return metrics;
}

CSize Extent(HDC hDC, const LOGFONTA& font, const char* pszText)
{
    CUseFont use(hDC, font);
    return CDC::FromHandle(hDC)->GetOutputTextExtent(pszText);
}

class FontMetrics : public testing::Test
{
protected:
    CClientDC m_dc{ nullptr };
};

}  // namespace

// A row of what make_font_facts.py worked out: face, weight, italic, height, width; ascent,
// descent, leading inside and outside, average and maximum width; the sum of the widths of all
// bytes from 0x20, and their sum weighted by the byte.
TEST_F(FontMetrics, AgreeWithTheNumbersWorkedOutFromTheFiles)
{
    using CNumbers = std::vector<long long>;
    std::ifstream file(MIVORA_TEST_DATA "/font_facts.txt");
    int nRows = 0;
    for (std::string strRow; std::getline(file, strRow); ++nRows)
    {
        SCOPED_TRACE(strRow);
        const std::string strFace = strRow.substr(0, strRow.find('|'));
        std::replace(strRow.begin(), strRow.end(), '|', ' ');
        std::istringstream row(strRow.substr(strFace.size()));
        CNumbers facts;
        for (long long n; row >> n;)
            facts.push_back(n);
        ASSERT_EQ(facts.size(), 12u);
        const LOGFONTA font =
            FontOf(strFace.c_str(), static_cast<int>(facts[2]), static_cast<int>(facts[3]),
                   static_cast<int>(facts[0]), facts[1] != 0);
        const TEXTMETRICA m = Metrics(m_dc, font);
        const std::array<INT, 256> anWidths = Widths(m_dc, font);
        long long nSum = 0, nWeighted = 0;
        for (int nByte = 0x20; nByte < 0x100; ++nByte)
        {
            nSum += anWidths[nByte];
            nWeighted += static_cast<long long>(anWidths[nByte]) * nByte;
        }
        CNumbers found = { m.tmAscent,          m.tmDescent,      m.tmInternalLeading,
                           m.tmExternalLeading, m.tmAveCharWidth, m.tmMaxCharWidth };
        found.insert(found.end(), { nSum, nWeighted });
        EXPECT_EQ(found, CNumbers(facts.begin() + 4, facts.end()));
        EXPECT_EQ(m.tmHeight, m.tmAscent + m.tmDescent);
        EXPECT_EQ(m.tmCharSet == SYMBOL_CHARSET, strFace == "Symbol");
    }
    EXPECT_GT(nRows, 400);
}

// Sizes in points, on the plain screen and in hundredths of an inch with y upwards.
TEST_F(FontMetrics, PointSizesBecomeLogicalHeights)
{
    const char* apszFaces[] = { "Times New Roman", "Arial", "Symbol", "MT Extra" };
    const struct
    {
        int nPoints;
        struct
        {
            int nHeight;       // lfHeight
            int anExtents[4];  // cy by face
        } pixels, hundredths;
    } aCases[] = {
        { 8, { -11, { 12, 12, 13, 13 } }, { -11, { 11, 11, 12, 11 } } },
        { 10, { -13, { 15, 15, 16, 15 } }, { -14, { 16, 16, 17, 16 } } },
        { 12, { -16, { 17, 17, 20, 19 } }, { -17, { 18, 18, 21, 20 } } },
        { 16, { -21, { 24, 23, 26, 24 } }, { -22, { 25, 24, 27, 25 } } },
        { 18, { -24, { 26, 27, 29, 28 } }, { -25, { 26, 27, 29, 27 } } },
    };
    CClientDC hundredths(nullptr);
    SetHundredths(hundredths);
    hundredths.SetWindowOrg(-300, 77);  // must not matter
    for (int n = 0; n < 5 * 4 * 3 * 2; ++n)
    {
        const int nFace = n % 4, nDevice = n / 4 % 3, nTenths = n / 12 % 2 ? 10 : -10;
        const auto& row = aCases[n / 24];
        SCOPED_TRACE(testing::Message() << apszFaces[nFace] << ' ' << row.nPoints * nTenths);
        CDC* const apDevices[] = { nullptr, &m_dc, &hundredths };
        const auto& heights = nDevice == 2 ? row.hundredths : row.pixels;
        const LOGFONTA font = FontOf(apszFaces[nFace], row.nPoints * nTenths);
        CFont made;
        ASSERT_TRUE(made.CreatePointFontIndirect(&font, apDevices[nDevice]));
        LOGFONTA got{};
        made.GetLogFont(&got);
        EXPECT_EQ(got.lfHeight, heights.nHeight);
        CDC* pDC = nDevice == 0 ? &m_dc : apDevices[nDevice];
        const CSelectScope select(pDC, &made);
        EXPECT_EQ(pDC->GetOutputTextExtent("x").cy, heights.anExtents[nFace]);
        EXPECT_EQ(pDC->GetOutputTextExtent("", 0), CSize(0, heights.anExtents[nFace]));
        EXPECT_EQ(pDC->GetTextExtent("", 0), CSize(0, 0));
    }
}

// 18 pixels, seven eighths of them a logical unit: each height is converted by itself, the width
// once for the whole text.
TEST_F(FontMetrics, MappedExtentsAreConvertedOnce)
{
    LOGFONTA font = FontOf("Times New Roman", -17);
    SetHundredths(m_dc);
    // 16 pixels an em; "abc" is 22 of them: 22.9 hundredths. Each alone is 7.3, 8.3 and 7.3.
    EXPECT_EQ(Extent(m_dc, font, "abc"), CSize(23, 18));
    std::array<INT, 256> anWidths = Widths(m_dc, font);
    EXPECT_EQ(anWidths['a'] + anWidths['b'] + anWidths['c'], 7 + 8 + 7);
    TEXTMETRICA metrics = Metrics(m_dc, font);
    EXPECT_EQ(metrics.tmHeight, 18);  // 17 pixels, 17.7
    EXPECT_EQ(metrics.tmAscent, 15);  // 14 pixels, 14.6
    EXPECT_EQ(metrics.tmDescent, 3);  //  3 pixels,  3.1
}

TEST_F(FontMetrics, NamesAndStylesChooseTheFile)
{
    const auto widths = [&](const char* pszFace, int nWeight = 400)
    {
        return Widths(m_dc, FontOf(pszFace, -60, 0, nWeight));
    };
    EXPECT_EQ(widths("tIMES nEW rOMAN"), widths("Times New Roman"));
    EXPECT_EQ(widths("Times"), widths("Times New Roman"));
    EXPECT_EQ(widths("Helvetica"), widths("Arial"));
    EXPECT_EQ(widths("Arial", 550), widths("Arial")) << "not bold yet";
    EXPECT_EQ(widths("Arial", 551), widths("Arial", 700));
    EXPECT_NE(widths("Arial", 551), widths("Arial"));
    EXPECT_EQ(widths("Courier New")['i'], widths("Courier New")['W']);
}

TEST_F(FontMetrics, AnUnknownFaceIsSubstitutedByPitchAndToldOnce)
{
    const char* pszMissing = "Nobody Has This One";
    const std::tuple<int, const char*, const char*> aCases[] = {
        { FIXED_PITCH | FF_ROMAN, pszMissing, "Courier New" },
        { FF_ROMAN, pszMissing, "Times" },
        { 0, pszMissing, "Arial" },
        { FF_SWISS, pszMissing, "Arial" },
        { 0x50, pszMissing, "Arial" },
        { FF_ROMAN, "", "Times" },
    };
    testing::internal::CaptureStderr();
    for (const auto& [nPitchAndFamily, pszAsked, pszTaken] : aCases)
    {
        LOGFONTA font = FontOf(pszAsked, -40);
        font.lfPitchAndFamily = static_cast<BYTE>(nPitchAndFamily);
        EXPECT_EQ(Widths(m_dc, font), Widths(m_dc, FontOf(pszTaken, -40))) << nPitchAndFamily;
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "mivora: the font \"Nobody Has This One\" is missing; "
              "Liberation Mono is used in its place\n");
}

// A name that fills the field has no end mark, and what stands behind an end mark is not the name.
TEST_F(FontMetrics, NamesEndWhereTheyEnd)
{
    LOGFONTA font = FontOf("Symbol", -30);
    std::memset(font.lfFaceName + 7, 'x', LF_FACESIZE - 7);
    EXPECT_EQ(Extent(m_dc, font, "\xD6").cx, 16);
    CFont made;
    made.CreateFontIndirect(&font);
    LOGFONTA got{};
    made.GetLogFont(&got);
    EXPECT_EQ(std::string(got.lfFaceName, LF_FACESIZE), "Symbol" + std::string(26, '\0'));
    made.DeleteObject();

    std::memset(font.lfFaceName, 'x', LF_FACESIZE);
    testing::internal::CaptureStderr();
    made.CreateFontIndirect(&font);
    EXPECT_EQ(made.GetLogFont(&got), static_cast<int>(sizeof got));
    EXPECT_EQ(got.lfFaceName, std::string(31, 'x'));
    Extent(m_dc, font, "x");
    testing::internal::GetCapturedStderr();
}
