// What the own part of a node shows, how large it is, and what it says, by type and kind.
#include <gtest/gtest.h>

#include <cstring>
#include <iterator>

#include "format/tree_format.h"
#include "nodes/big_operator_nodes.h"
#include "nodes/node_fixture.h"
#include "nodes/operator_nodes.h"
#include "nodes/symbol_nodes.h"
#include "nodes/vector_node.h"
#include "platform/base/exception.h"

namespace
{
// clang-format off
const struct
{
    const char* pszTypes;
    const char* pszSign;
    const char* pszFace;
    const char* pszText = nullptr;  // with a as left, b as right child
} s_aSigns[] = {
    { "INTEGRAL[0]",                      "\xF2",      "Symbol" },
    { "INTEGRAL[1] INTEGRAL[2]",          "?",         "Symbol" },
    { "INTEGRAL[3] INTEGRAL[5]",          "\xF2\xF2",  "Symbol" },
    { "INTEGRAL[6] INTEGRAL[8]",          "\xF2\xF2?", "Symbol" },
    { "BRACE[0] POISON[0]",               "()",        "Symbol" },
    { "BRACE[3] POISON[3]",               "\xE1\xF1",  "Symbol" },
    { "BRACE[8] POISON[8]",               "][",        "Symbol" },
    { "BRACE[11] POISON[11]",             "( ",        "Symbol" },
    { "BRACE[17] POISON[17]",             "?",         "Symbol" },
    { "BRACE[22] POISON[22]",             " |",        "Symbol" },
    { "BRACE[24] POISON[24]",             "\xE1|",     "Symbol" },
    { "EQUATION[0]",                      "=",         "Symbol",          "a = b" },
    { "EQUATION[1]",                      "\xA3",      "Symbol",          "a .LE. b" },
    { "EQUATION[2]",                      "\xB3",      "Symbol",          "a .GE. b" },
    { "EQUATION[3]",                      "<",         "Symbol",          "a .LT. b" },
    { "EQUATION[4]",                      ">",         "Symbol",          "a .GT. b" },
    { "EQUATION[5]",                      "\xB9",      "Symbol",          "a .NE. b" },
    { "EQUATION[6]",                      "?",         "Symbol",          "a = b" },
    { "EQUATION[8]",                      "@",         "Symbol",          "a = b" },
    { "EQUATION[17]",                     "'",         "Symbol",          "a = b" },
    { "EQUATION[18]",                     "$",         "Symbol",          "a = b" },
    { "EQUATION[19]",                     "\"",        "Symbol",          "a = b" },
    { "ARROWS[0] ARROWS[4] ARROWS[6] ARROWS[10]", "?", "Symbol" },
    { "ARROWS[5]",                        "b",         "MT Extra" },
    { "ARROWS[11]",                       "c",         "MT Extra" },
    { "FUNC[0]",                          "sin",       "Times New Roman", "aSINb" },
    { "FUNC[3]",                          "cot",       "Times New Roman", "aCOTANb" },
    { "FUNC[7]",                          "arccot",    "Times New Roman", "a3.141592654D0/2.0D0-ATANb" },
    { "FUNC[11]",                         "coth",      "Times New Roman", "a1.0D0/TANHb" },
    { "FUNC[15]",                         "arcoth",    "Times New Roman", "aACOTANHb" },
    { "FUNC[17]",                         "ln",        "Times New Roman", "aLOGb" },
    { "FUNC[19]",                         "lg",        "Times New Roman", "aLOG10b" },
    { "FUNC[20]",                         "G",         "Symbol",          "aGAMMAb" },
    { "FUNC[21]",                         "-",         "Times New Roman", "aMINUSb" },
    { "USERFUNC",                         "f",         "Times New Roman", "afb" },
    { "EXTFUNC",                          "",          "Times New Roman" },
    { "BINOMIAL",                         "",          "Times New Roman" },
    { "VECTOR[0]",                        "?",         "Symbol",          "a_Pb" },
    { "VECTOR[1]",                        "??",        "Symbol",          "a_PPb" },
    { "VECTOR[2]",                        "\xD7\xD7?", "Symbol",          "a_PPPb" },
    { "VECTOR[3]",                        "?",         "Symbol",          "a_MEANb" },
    { "VECTOR[4]",                        "?",         "Symbol",          "a_NORMb" },
    { "VECTOR[5]",                        "?",         "Symbol",          "a_VECb" },
    { "VECTOR[6]",                        "~",         "Symbol",          "a_WINDEDb" },
    { "VECTOR[7]",                        "?",         "Symbol",          "a_DOUBLE_WINDEDb" },
    { "NABLA",                            "?",         "Symbol" },
    { "LAPLACE",                          "D",         "Symbol" },
    { "LABEL",                            "label",     "Times New Roman" },
};
// clang-format on

// Of the other types, with L as left, R as right child, s as symbol.
const struct
{
    const char* pszTypes;
    const char* pszText;
} s_aTexts[] = {
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

// Raised by a kind outside its table.
template <class F>
void ExpectRefused(const char* pszSketch, F use)
{
    CTestDC dc;
    EXPECT_THROW(use(*Sketch(pszSketch), &dc), CInvalidArgException*) << pszSketch;
}
}  // namespace

TEST(Signs, AreTakenByTypeAndKind)
{
    CTestDC dc;
    for (const auto& row : s_aSigns)
    {
        for (const std::string& strType : Words(row.pszTypes))
        {
            SCOPED_TRACE(strType);
            const CNodePtr pNode = Sketch("(" + strType + " a b)");
            const int nHeight = strType.starts_with("INTEGRAL") ? 21
                                : strType.starts_with("VECTOR") ? 11
                                                                : 16;
            const int nWidth = 8 * static_cast<int>(std::strlen(row.pszSign)) + 2;
            EXPECT_EQ(pNode->GetOwnSize(&dc), CRect(0, 0, nWidth, nHeight));
            EXPECT_EQ(pNode->GetSymbol(), row.pszSign);
            EXPECT_EQ(pNode->GetFontName(), row.pszFace);
            if (row.pszText != nullptr)
            {
                EXPECT_EQ(pNode->MakeText(0), row.pszText);
            }
        }
    }
}

TEST(Signs, AreRefusedOutsideTheTableOfKinds)
{
    for (const char* pszSketch :
         { "(INTEGRAL[-1])", "(INTEGRAL[9])", "(BRACE[25])", "(BRACE[-1])", "(POISON[25])",
           "(POISON[-1])", "(EQUATION[20])", "(EQUATION[-1])", "(ARROWS[12])", "(FUNC[22])",
           "(FUNC[-2])", "(VECTOR[8])" })
    {
        ExpectRefused(pszSketch, [](CNode& node, CDC* pDC) { node.Measure(pDC); });
    }
    ExpectRefused("(FUNC[-1])", [](CNode& node, CDC*) { node.MakeText(0); });
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
    const struct
    {
        const char* pszTypes;
        CRect own;
    } aCases[] = { { "POWERTO INDEX MATRIX LINE ELEMENT", {} },
                   { "DIVISION[0]", { 0, 0, 0, 5 } },  // the strip of the bar
                   { "DIVISION[1] DIVISION[2]", {} },
                   { "PLACEHOLDER", { 0, 0, -14, -10 } } };
    for (const auto& row : aCases)
    {
        for (const std::string& strType : Words(row.pszTypes))
            EXPECT_EQ(Sketch("(" + strType + ")")->GetOwnSize(&dc), row.own) << strType;
    }
}

TEST(Signs, AMarkHasOneSizeOnEveryLevel)
{
    CTestDC dc;
    const CNodePtr pNode = Sketch("(VECTOR)");
    for (const int nLevel : { 0, 1, 2 })
    {
        pNode->SetLevel(nLevel);
        EXPECT_EQ(pNode->GetOwnSize(&dc), CRect(0, 0, 10, 11));
    }
}

// Of nodes that nobody formatted.
TEST(Signs, StartWithTheirOwnHeights)
{
    EXPECT_EQ(CSumNode().GetLogFont()->lfHeight, -160);
    EXPECT_EQ(CIntegralNode().GetLogFont()->lfHeight, -160);
    EXPECT_EQ(COperatorNode().GetLogFont()->lfHeight, -100);
    EXPECT_EQ(CArrowNode().GetLogFont()->lfHeight, -100);
    EXPECT_EQ(CNablaNode().GetLogFont()->lfHeight, -100);
    EXPECT_EQ(CLaplaceNode().GetLogFont()->lfHeight, -100);
    EXPECT_EQ(CPlusNode().GetLogFont()->lfHeight, -120);
    EXPECT_EQ(CPlaceHolderNode().GetLogFont()->lfHeight, -120);
    EXPECT_EQ(CVectorNode().GetLogFont()->lfHeight, -8);
}

TEST(NodeText, FollowsTheTemplateOfTheType)
{
    int nTypes = 4;  // EQUATION, FUNC, USERFUNC, VECTOR: above
    for (const auto& row : s_aTexts)
    {
        for (const std::string& strType : Words(row.pszTypes))
        {
            EXPECT_EQ(Sketch("(" + strType + " \"s\" L R)")->MakeText(0), row.pszText) << strType;
            ++nTypes;
        }
    }
    EXPECT_EQ(nTypes, NTI_COUNT);
    EXPECT_EQ(Sketch("(PLUS 100%s %d)")->MakeText(0), "100%s + %d");
    EXPECT_EQ(Sketch("(PLUS)")->MakeText(0), " + ");
}
