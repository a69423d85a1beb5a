// The format table: its defaults for all types, its sizes by level, its archive form.
#include "format/tree_format.h"

#include <gtest/gtest.h>

#include <climits>
#include <sstream>
#include <string>

#include "archived.h"

TEST(TreeFormat, KnowsTheRecordOfEveryType)
{
    CBinTreeFormat format;
    const std::pair<CFormatInfoOb*, const char*> aRows[] = {
        { format.m_pText, "STANDARD PLACEHOLDER DERIVE INTEGRAND INDEX MATRIX LINE ELEMENT LABEL" },
        { format.m_pVariable, "VARIABLE" },
        { format.m_pConstant, "CONSTANT" },
        { format.m_pNumber, "NUMBER" },
        { format.m_pFunction, "FUNC USERFUNC EXTFUNC LIMES BINOMIAL" },
        { format.m_pOperator, "DIVISION POWERTO PLUS MINUS TIMES EQUATION PARTDERIVE RANGE" },
        { format.m_pOperator, "OPERATOR CROSS" },
        { format.m_pSymbol, "NTHROOT ROOT BRACE SUM PROD INTEGRAL POISON VECTOR NABLA LAPLACE" },
        { format.m_pSymbol, "ARROWS INFINITY" },
        { format.m_pExtra, "PLANCK LAMBDA" },
        { nullptr, "plus PLUSS" },
    };
    for (const auto& [pRecord, pszTypes] : aRows)
    {
        std::istringstream types(pszTypes);
        for (std::string strType; types >> strType;)
            EXPECT_EQ(format.FindRecord(("NT_" + strType).c_str()), pRecord) << strType;
    }
    EXPECT_EQ(format.FindRecord(""), nullptr);
    EXPECT_EQ(format.m_TypeMap.GetCount(), 41) << "asking for a name adds none";
}

TEST(TreeFormat, SizesByLevel)
{
    CBinTreeFormat format;
    // level, ordinary, big operator
    const int anHeights[][3] = { { INT_MIN, -120, -160 }, { -1, -120, -160 }, { 0, -120, -160 },
                                 { 1, -100, -120 },       { 2, -80, -120 },   { 5, -80, -120 },
                                 { INT_MAX, -80, -120 } };
    for (const auto& row : anHeights)
    {
        EXPECT_EQ(format.GetHeight(row[0]), row[1]) << row[0];
        EXPECT_EQ(format.GetBigHeight(row[0]), row[2]) << row[0];
    }
    format.m_nSizes[0] = 0x40000001;
    EXPECT_EQ(format.GetHeight(0), static_cast<int>(0x8000000AU)) << "wraps";
}

TEST(TreeFormat, ComesBackButForTheExtraRecord)
{
    CBinTreeFormat source;
    EXPECT_EQ(Stored(source), DefaultFormatBytes());
    source.m_pText->m_crColour = 0x00123456;
    source.m_pSymbol->m_strFontName = "Arial";
    source.m_pSymbol->m_nCharSet = 255;
    source.m_pExtra->m_strFontName = "Arial";
    source.m_nSizes[4] = 77;
    CBinTreeFormat loaded;
    CFormatInfoOb* pSymbol = loaded.m_pSymbol;
    Load(loaded, Stored(source));
    EXPECT_EQ(loaded.m_pText->m_crColour, 0x00123456U);
    EXPECT_EQ(loaded.m_pSymbol, pSymbol) << "the map still points to it";
    EXPECT_EQ(pSymbol->m_strFontName, "Arial");
    EXPECT_EQ(pSymbol->m_nCharSet, 255);
    EXPECT_EQ(loaded.m_nSizes[4], 77);
    EXPECT_EQ(loaded.m_pExtra->m_strFontName, "MT Extra");

    CBinTreeFormat copy;
    copy.CopyFormat(source);
    EXPECT_EQ(copy.m_pExtra->m_strFontName, "Arial");
    EXPECT_EQ(Stored(copy), Stored(source));
}

TEST(TreeFormat, ACutArchiveLeavesTheTableAsItWas)
{
    CBinTreeFormat source;
    source.m_pText->m_strFontName = "Arial";
    const std::string strBytes = Stored(source);
    for (std::size_t nLength = 0; nLength < strBytes.size(); ++nLength)
    {
        CBinTreeFormat loaded;
        EXPECT_EQ(CauseOf([&] { Load(loaded, strBytes.substr(0, nLength)); }),
                  CArchiveException::endOfFile);
        EXPECT_EQ(Stored(loaded), DefaultFormatBytes());
    }
}
