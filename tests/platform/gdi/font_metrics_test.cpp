// Sizes of texts against numbers worked out from the font files, and the files of the faces.
#include "platform/gdi/dc.h"
#include "platform/gdi/test_fonts.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <numeric>
#include <sstream>

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

// A row of the table of facts: what make_font_facts.py worked out.
struct CFontFact
{
    LOGFONTA m_font;
    LONG m_anMetrics[6];  // ascent, descent, internal and external leading, average, maximum width
    long long m_nSum;
    long long m_nWeightedSum;
    std::string m_strRow;
};

std::vector<CFontFact> ReadFacts()
{
    std::vector<CFontFact> facts;
    std::ifstream file(MIVORA_TEST_DATA "/font_facts.txt");
    for (std::string strRow; std::getline(file, strRow);)
    {
        CFontFact fact;
        fact.m_strRow = strRow;
        std::string strFace = strRow.substr(0, strRow.find('|'));
        for (char& ch : strRow)
            ch = ch == '|' ? ' ' : ch;
        std::istringstream row(strRow.substr(strFace.size()));
        int nWeight = 0, nItalic = 0, nHeight = 0, nWidth = 0;
        row >> nWeight >> nItalic >> nHeight >> nWidth;
        for (LONG& n : fact.m_anMetrics)
            row >> n;
        row >> fact.m_nSum >> fact.m_nWeightedSum;
        EXPECT_TRUE(row) << strRow;
        fact.m_font = FontOf(strFace.c_str(), nHeight, nWidth, nWeight, nItalic != 0);
        facts.push_back(fact);
    }
    return facts;
}

class FontMetrics : public testing::Test
{
protected:
    CClientDC m_dc{ nullptr };
};

}  // namespace

TEST_F(FontMetrics, AgreeWithTheNumbersWorkedOutFromTheFiles)
{
    std::vector<CFontFact> facts = ReadFacts();
    ASSERT_GT(facts.size(), 400u);
    for (const CFontFact& fact : facts)
    {
        TEXTMETRICA m = Metrics(m_dc, fact.m_font);
        LONG anMetrics[] = { m.tmAscent,          m.tmDescent,      m.tmInternalLeading,
                             m.tmExternalLeading, m.tmAveCharWidth, m.tmMaxCharWidth };
        for (int i = 0; i < 6; ++i)
        {
            EXPECT_EQ(anMetrics[i], fact.m_anMetrics[i])
                << "number " << i << " of " << fact.m_strRow;
        }
        EXPECT_EQ(m.tmHeight, m.tmAscent + m.tmDescent);

        std::array<INT, 256> anWidths = Widths(m_dc, fact.m_font);
        long long nSum = 0, nWeighted = 0;
        for (int nByte = 0x20; nByte < 0x100; ++nByte)
        {
            nSum += anWidths[nByte];
            nWeighted += static_cast<long long>(anWidths[nByte]) * nByte;
        }
        EXPECT_EQ(nSum, fact.m_nSum) << fact.m_strRow;
        EXPECT_EQ(nWeighted, fact.m_nWeightedSum) << fact.m_strRow;
    }
}

TEST_F(FontMetrics, KnownAdvances)
{
    std::array<INT, 256> symbol = Widths(m_dc, FontOf("Symbol", -30));
    EXPECT_EQ(symbol[0x61], 19);  // alpha
    EXPECT_EQ(symbol[0xD6], 16);  // radical
    EXPECT_EQ(symbol[0xE5], 21);  // sum
    EXPECT_EQ(symbol[0xF2], 8);   // integral

    std::array<INT, 256> times = Widths(m_dc, FontOf("Times New Roman", -16));
    EXPECT_EQ(times['a'], 7);
    EXPECT_EQ(times['b'], 8);
    EXPECT_EQ(times['c'], 7);
    EXPECT_EQ(times['W'], 15);
    EXPECT_EQ(times['i'], 4);

    std::array<INT, 256> extra = Widths(m_dc, FontOf("MT Extra", -100));
    EXPECT_EQ(extra['h'], 64);
    EXPECT_EQ(extra['D'], 63);
    EXPECT_EQ(extra['b'], 84);
    EXPECT_EQ(extra['c'], 84);
    EXPECT_EQ(extra[' '], 32);
    EXPECT_EQ(extra['x'], 60);
    EXPECT_EQ(Metrics(m_dc, FontOf("MT Extra", -100)).tmHeight, 117);
}

TEST_F(FontMetrics, KnownHeights)
{
    TEXTMETRICA symbol = Metrics(m_dc, FontOf("Symbol", -120));
    EXPECT_EQ(symbol.tmAscent, 121);
    EXPECT_EQ(symbol.tmDescent, 26);
    EXPECT_EQ(symbol.tmInternalLeading, 27);
    EXPECT_EQ(symbol.tmCharSet, SYMBOL_CHARSET);
    TEXTMETRICA times = Metrics(m_dc, FontOf("Times New Roman", -120));
    EXPECT_EQ(times.tmAscent, 107);
    EXPECT_EQ(times.tmDescent, 26);
    EXPECT_EQ(times.tmInternalLeading, 13);
    TEXTMETRICA arial = Metrics(m_dc, FontOf("Arial", -120));
    EXPECT_EQ(arial.tmAscent, 109);
    EXPECT_EQ(arial.tmDescent, 25);
}

// Sizes in points, on the plain screen and in hundredths of an inch with y upwards.
TEST_F(FontMetrics, PointSizesBecomeLogicalHeights)
{
    const char* apszFaces[] = { "Times New Roman", "Arial", "Symbol", "MT Extra" };
    struct
    {
        int m_nPoints;
        int m_nPixels;      // lfHeight in MM_TEXT
        int m_anPixels[4];  // extent cy by face
        int m_nUnits;       // lfHeight in hundredths
        int m_anUnits[4];
    } aCases[] = {
        { 8, -11, { 12, 12, 13, 13 }, -11, { 11, 11, 12, 11 } },
        { 10, -13, { 15, 15, 16, 15 }, -14, { 16, 16, 17, 16 } },
        { 12, -16, { 17, 17, 20, 19 }, -17, { 18, 18, 21, 20 } },
        { 16, -21, { 24, 23, 26, 24 }, -22, { 25, 24, 27, 25 } },
        { 18, -24, { 26, 27, 29, 28 }, -25, { 26, 27, 29, 27 } },
    };
    CClientDC hundredths(nullptr);
    SetHundredths(hundredths);
    hundredths.SetWindowOrg(-300, 77);  // must not matter
    for (const auto& row : aCases)
    {
        for (int i = 0; i < 4; ++i)
        {
            for (int nSign : { -10, 10 })
            {
                SCOPED_TRACE(testing::Message() << apszFaces[i] << ' ' << row.m_nPoints);
                LOGFONTA font = FontOf(apszFaces[i], row.m_nPoints * nSign);
                struct
                {
                    CDC* m_pDC;
                    int m_nHeight;
                    int m_nExtent;
                } aDevices[] = { { nullptr, row.m_nPixels, row.m_anPixels[i] },
                                 { &m_dc, row.m_nPixels, row.m_anPixels[i] },
                                 { &hundredths, row.m_nUnits, row.m_anUnits[i] } };
                for (const auto& device : aDevices)
                {
                    CFont made;
                    ASSERT_TRUE(made.CreatePointFontIndirect(&font, device.m_pDC));
                    LOGFONTA got{};
                    made.GetLogFont(&got);
                    EXPECT_EQ(got.lfHeight, device.m_nHeight);
                    CDC* pDC = device.m_pDC ? device.m_pDC : &m_dc;
                    CSelectScope select(pDC, &made);
                    EXPECT_EQ(pDC->GetOutputTextExtent("x").cy, device.m_nExtent);
                    EXPECT_EQ(pDC->GetOutputTextExtent("", 0), CSize(0, device.m_nExtent));
                    EXPECT_EQ(pDC->GetTextExtent("", 0), CSize(0, 0));
                }
            }
        }
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
    auto width = [&](const LOGFONTA& font)
    {
        return Extent(m_dc, font, "Hamburg \xE4\x80").cx;
    };
    int nTimes = width(FontOf("Times New Roman", -60));
    int nArial = width(FontOf("Arial", -60));
    EXPECT_NE(nTimes, nArial);
    EXPECT_EQ(width(FontOf("tIMES nEW rOMAN", -60)), nTimes);
    EXPECT_EQ(width(FontOf("Times", -60)), nTimes);
    EXPECT_EQ(width(FontOf("Helvetica", -60)), nArial);
    EXPECT_EQ(width(FontOf("Arial", -60, 0, 550)), nArial) << "not bold yet";
    EXPECT_EQ(width(FontOf("Arial", -60, 0, 551)), width(FontOf("Arial", -60, 0, 700)));
    EXPECT_NE(width(FontOf("Arial", -60, 0, 700)), nArial);

    LOGFONTA font = FontOf("Courier New", -60);
    std::array<INT, 256> mono = Widths(m_dc, font);
    EXPECT_EQ(mono['i'], mono['W']);
}

TEST_F(FontMetrics, AnUnknownFaceIsSubstitutedByPitchAndToldOnce)
{
    auto extent = [&](BYTE nPitchAndFamily, const char* pszFace)
    {
        LOGFONTA font = FontOf(pszFace, -40);
        font.lfPitchAndFamily = nPitchAndFamily;
        return Extent(m_dc, font, "Will");
    };
    testing::internal::CaptureStderr();
    const char* pszFace = "Nobody Has This One";
    EXPECT_EQ(extent(FIXED_PITCH | FF_ROMAN, pszFace),
              Extent(m_dc, FontOf("Courier New", -40), "Will"));
    EXPECT_EQ(extent(FF_ROMAN, pszFace), Extent(m_dc, FontOf("Times", -40), "Will"));
    for (BYTE nOther : std::initializer_list<BYTE>{ 0, FF_SWISS, 0x50 })
        EXPECT_EQ(extent(nOther, pszFace), Extent(m_dc, FontOf("Arial", -40), "Will"));
    EXPECT_EQ(extent(FF_ROMAN, ""), Extent(m_dc, FontOf("Times", -40), "Will"));
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
    EXPECT_EQ(std::string(got.lfFaceName, LF_FACESIZE),
              std::string("Symbol") + std::string(26, '\0'));
    made.DeleteObject();

    std::memset(font.lfFaceName, 'x', LF_FACESIZE);
    testing::internal::CaptureStderr();
    made.CreateFontIndirect(&font);
    EXPECT_EQ(made.GetLogFont(&got), static_cast<int>(sizeof got));
    EXPECT_EQ(std::string(got.lfFaceName), std::string(31, 'x'));
    Extent(m_dc, font, "x");
    testing::internal::GetCapturedStderr();
}

TEST_F(FontMetrics, ThousandsOfSizesChangeNothing)
{
    CSize before = Extent(m_dc, FontOf("Symbol", -30), "\xD6\xE5");
    CFont held;
    LOGFONTA arial = FontOf("Arial", -33);
    held.CreateFontIndirect(&arial);
    CSelectScope select(&m_dc, &held);
    CSize heldBefore = m_dc.GetOutputTextExtent("held", 4);
    CClientDC other(nullptr);
    for (int nSize = 1; nSize <= 5000; ++nSize)
        Extent(other, FontOf("Times", -nSize, nSize % 7), "x");
    EXPECT_EQ(m_dc.GetOutputTextExtent("held", 4), heldBefore);
    EXPECT_EQ(Extent(other, FontOf("Symbol", -30), "\xD6\xE5"), before);
}
