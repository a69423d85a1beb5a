// What the own part of a node shows, how large it is, and what it says, by type and kind.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "format/tree_format.h"
#include "nodes/node_fixture.h"
#include "platform/base/exception.h"

namespace
{
// clang-format off
const struct
{
    const char* pszTypes;
    int nFirst;            // kind; -1: types without kinds
    const char* pszSigns;  // of the kinds from there on
    const char* pszFace;
    const char* pszTexts = nullptr;  // with a as left, b as right child
} s_aSigns[] = {
    { "INTEGRAL", 0, "\xF2;?;?;\xF2\xF2;\xF2\xF2;\xF2\xF2;\xF2\xF2?;\xF2\xF2?;\xF2\xF2?", "Symbol" },
    { "BRACE POISON", 0, "();[];{};\xE1\xF1;||;||;[[;]];][;[);(];( ; );[ ; ];{ ; };?; ?;| ; |;| ; |;|?;\xE1|", "Symbol" },
    { "EQUATION", 0, "=;\xA3;\xB3;<;>;\xB9", "Symbol", "a = b;a .LE. b;a .GE. b;a .LT. b;a .GT. b;a .NE. b" },
    { "EQUATION", 6, "?;?;@;?;?;?;?", "Symbol", "a = b;a = b;a = b;a = b;a = b;a = b;a = b" },
    { "EQUATION", 13, "?;?;?;?;';$;\"", "Symbol", "a = b;a = b;a = b;a = b;a = b;a = b;a = b" },
    { "ARROWS", 0, "?;?;?;?;?", "Symbol" },
    { "ARROWS", 5, "b", "MT Extra" },
    { "ARROWS", 6, "?;?;?;?;?", "Symbol" },
    { "ARROWS", 11, "c", "MT Extra" },
    { "FUNC", 0, "sin;cos;tan;cot;arcsin;arccos;arctan;arccot", "Times New Roman",
      "aSINb;aCOSb;aTANb;aCOTANb;aASINb;aACOSb;aATANb;a3.141592654D0/2.0D0-ATANb" },
    { "FUNC", 8, "sinh;cosh;tanh;coth;arsinh;arcosh;artanh;arcoth", "Times New Roman",
      "aSINHb;aCOSHb;aTANHb;a1.0D0/TANHb;aASINHb;aACOSHb;aATANHb;aACOTANHb" },
    { "FUNC", 16, "exp;ln;log2;lg", "Times New Roman", "aEXPb;aLOGb;aLOG2b;aLOG10b" },
    { "FUNC", 20, "G", "Symbol", "aGAMMAb" },
    { "FUNC", 21, "-", "Times New Roman", "aMINUSb" },
    { "VECTOR", 0, "?;??;\xD7\xD7?;?;?;?;~;?", "Symbol",
      "a_Pb;a_PPb;a_PPPb;a_MEANb;a_NORMb;a_VECb;a_WINDEDb;a_DOUBLE_WINDEDb" },
    { "USERFUNC", -1, "f", "Times New Roman", "afb" },
    { "EXTFUNC BINOMIAL", -1, "", "Times New Roman" },
    { "NABLA", -1, "?", "Symbol" },
    { "LAPLACE", -1, "D", "Symbol" },
    { "LABEL", -1, "label", "Times New Roman" },
};
// clang-format on

// Of the other types, with L as left, R as right child, s as symbol.
const std::pair<const char*, const char*> s_aTexts[] = {
    { "STANDARD EXTFUNC ARROWS BINOMIAL", "L s R" },
    { "VARIABLE NUMBER CONSTANT LABEL", "LsR" },
    { "INFINITY", "LINFINITYR" },
    { "PLANCK", "LPLANCKR" },
    { "LAMBDA", "LLAMBDAR" },
    { "NABLA", "LNABLAR" },
    { "PLUS", "L + R" },
    { "MINUS", "L - R" },
    { "TIMES", "(L)*(R)" },
    { "DIVISION", "(L)/(R)" },
    { "CROSS", "(L)VEC_PROD(R)" },
    { "POWERTO", "(L) ** (R)" },
    { "ROOT", "SQRT(L)R" },
    { "NTHROOT", "(L) ** (-(1.0D0 / (R)))" },
    { "BRACE POISON", "(L)R" },
    { "OPERATOR", "L , R" },
    { "SUM", "SUM(L , R)" },
    { "PROD", "PROD(L , R)" },
    { "INTEGRAL", "INT(L , R)" },
    { "RANGE", "RANGE(L , R)" },
    { "INTEGRAND", "L, R" },
    { "LIMES", "LIMES(L , R)" },
    { "DERIVE PARTDERIVE", "DERIVE(L , R)" },
    { "INDEX", "_L_sR" },
    { "MATRIX", "MATRIX(L)R" },
    { "LINE", "L LINE(R)" },
    { "ELEMENT", " ELEMENT(L)R" },
    { "LAPLACE", "LDELTA_R" },
    { "PLACEHOLDER", "LEMPTYR" },
};
}  // namespace

TEST(Signs, AreTakenByTypeAndKind)
{
    CTestDC dc;
    for (const auto& row : s_aSigns)
    {
        for (const std::string& strType : Words(row.pszTypes))
        {
            std::istringstream signs(row.pszSigns);
            std::istringstream texts(row.pszTexts != nullptr ? row.pszTexts : "");
            std::string strSign;
            std::string strText;
            int nKind = row.nFirst;
            do
            {
                std::getline(signs, strSign, ';');
                const CNodePtr pNode = Sketch(
                    "(" + strType + (nKind < 0 ? "" : "[" + std::to_string(nKind) + "]") + " a b)");
                SCOPED_TRACE(strType + " " + std::to_string(nKind++));
                const int nHeight = strType == "INTEGRAL" ? 21 : strType == "VECTOR" ? 11 : 16;
                const int nWidth = 8 * static_cast<int>(strSign.size()) + 2;
                EXPECT_EQ(pNode->GetOwnSize(&dc), CRect(0, 0, nWidth, nHeight));
                EXPECT_EQ(pNode->GetSymbol(), strSign.c_str());
                EXPECT_EQ(pNode->GetFontName(), row.pszFace);
                if (std::getline(texts, strText, ';'))
                {
                    EXPECT_EQ(pNode->MakeText(0), strText.c_str());
                }
            } while (!signs.eof());
        }
    }
}

TEST(Signs, AreRefusedOutsideTheTableOfKinds)
{
    CTestDC dc;
    for (const char* pszSketch :
         { "(INTEGRAL[-1])", "(INTEGRAL[9])", "(BRACE[25])", "(BRACE[-1])", "(POISON[25])",
           "(POISON[-1])", "(EQUATION[20])", "(EQUATION[-1])", "(ARROWS[12])", "(FUNC[22])",
           "(FUNC[-2])", "(VECTOR[8])" })
    {
        EXPECT_THROW(Sketch(pszSketch)->Measure(&dc), CInvalidArgException*) << pszSketch;
    }
    EXPECT_THROW(Sketch("(FUNC[-1])")->MakeText(0), CInvalidArgException*);
}

TEST(Signs, AFunctionWithoutAKindShowsItsSymbol)
{
    CTestDC dc;
    const CNodePtr pNode = Sketch("(FUNC[-1] \"median\")");
    EXPECT_EQ(pNode->GetOwnSize(&dc), CRect(0, 0, 50, 16));
    pNode->PaintOwn(&dc, CRect(0, 0, 50, 16), 0);
    EXPECT_EQ(pNode->GetSymbol(), "median");
}

TEST(Signs, ArrangementsHaveNone)
{
    CTestDC dc;
    const std::pair<const char*, CRect> aCases[] = {
        { "POWERTO INDEX MATRIX LINE ELEMENT", {} },
        { "DIVISION[0]", { 0, 0, 0, 5 } },  // the strip of the bar
        { "DIVISION[1] DIVISION[2]", {} },
        { "PLACEHOLDER", { 0, 0, -14, -10 } },
    };
    for (const auto& [pszTypes, own] : aCases)
    {
        for (const std::string& strType : Words(pszTypes))
            EXPECT_EQ(Sketch("(" + strType + ")")->GetOwnSize(&dc), own) << strType;
    }
}

// Of nodes that nobody formatted.
TEST(Signs, StartWithTheirOwnHeights)
{
    const std::pair<ENodeType, int> aCases[] = {
        { NTI_SUM, -160 },    { NTI_INTEGRAL, -160 }, { NTI_OPERATOR, -100 },
        { NTI_ARROWS, -100 }, { NTI_NABLA, -100 },    { NTI_LAPLACE, -100 },
        { NTI_PLUS, -120 },   { NTI_VECTOR, -8 },     { NTI_PLACEHOLDER, -120 },
    };
    for (const auto& [nType, nHeight] : aCases)
    {
        const CNodePtr pNode(CBinTree().CreateBareNode(nType));
        EXPECT_EQ(pNode->GetLogFont()->lfHeight, nHeight) << NodeTypeName(nType);
    }
}

TEST(NodeText, FollowsTheTemplateOfTheType)
{
    int nTypes = 4;  // EQUATION, FUNC, USERFUNC, VECTOR: above
    for (const auto& [pszTypes, pszText] : s_aTexts)
    {
        for (const std::string& strType : Words(pszTypes))
        {
            EXPECT_EQ(Sketch("(" + strType + " \"s\" L R)")->MakeText(0), pszText) << strType;
            ++nTypes;
        }
    }
    EXPECT_EQ(nTypes, NTI_COUNT);
    EXPECT_EQ(Sketch("(PLUS 100%s %d)")->MakeText(0), "100%s + %d");
    EXPECT_EQ(Sketch("(PLUS)")->MakeText(0), " + ");
}
