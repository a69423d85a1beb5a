// Values, positions and German messages of the calculator.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include "parser/formula_parser.h"
#include "platform/base/app.h"

namespace
{

constexpr double s_fInfinitely = std::numeric_limits<double>::infinity();
constexpr double s_fNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr const char* DIVISION_BY_ZERO = " (Division durch Null)";
constexpr const char* NO_ROOT = " (keine Wurzel aus neg. Zahl)";

void ExpectValue(const std::string& strText, double dExpected, int nExpectedPos = 0,
                 const char* pszMessage = "")
{
    SCOPED_TRACE(strText);
    CFormulaParser parser;
    WORD nErrorPos = 4711;
    CString strMessage = "untouched";
    const double dValue = parser.Calculation(strText.c_str(), 0.0, &nErrorPos, &strMessage);
    if (std::isnan(dExpected))
    {
        EXPECT_TRUE(std::isnan(dValue)) << dValue;
    }
    else
    {
        EXPECT_DOUBLE_EQ(dValue, dExpected);
    }
    EXPECT_EQ(nErrorPos, nExpectedPos);
    EXPECT_STREQ(strMessage.GetString(), pszMessage);
}

struct CValue
{
    const char* pszText;
    double dValue;
};
template <std::size_t N>
void ExpectValues(const CValue (&aCases)[N])
{
    for (const CValue& row : aCases)
        ExpectValue(row.pszText, row.dValue);
}

struct CStopped
{
    const char* pszText;
    double dValue;
    int nErrorPos;  // 0: the message alone tells what went wrong
    const char* pszMessage;
};

}  // namespace

TEST(Calculation, FoldsFromTheLeft)
{
    const CValue aCases[] = {
        { "", 0.0 },       { "  1+2*3 ", 7.0 }, { "8-4-2", 2.0 },   { "8/4/2", 1.0 },
        { "2^3^2", 64.0 }, { "-2^2", 4.0 },     { "2*-3", -6.0 },   { "2--3", 5.0 },
        { "--3", -3.0 },   { "(1+2", 3.0 },     { "(1+2)*3", 9.0 }, { "1.2.3", 1.2 },
        { "1 2", 1.0 },    { ".5+5.", 5.5 },    { ".", 0.0 },       { "0.1", 0.1 },
        { "2**3", 0.0 },   { "0^2", 0.0 },      { "(-2)^2", 4.0 },  { "(-2)^-3", -0.125 },
    };
    ExpectValues(aCases);
}

TEST(Calculation, KnowsTheFunctionsAndWhatTheyRefuse)
{
    const CValue aRound[] = {
        { "abs(-3)", 3.0 },    { "sqr 9", 3.0 },         { "sqr(-4)", -4.0 },
        { "ln(-1)", -1.0 },    { "log 1000", 3.0 },      { "log(-1)", -1.0 },
        { "exp(42)", 42.0 },   { "cos(0)", 1.0 },        { "arcsin 1", 1.0 },
        { "arccos 1", 0.0 },   { "arccos(2)", 2.0 },     { "int(2.9)", 2.0 },
        { "int(-2.9)", -2.0 }, { "deg(rad(90))", 90.0 }, { "arcosh(0.5)", 0.5 },
        { "artanh(2)", 2.0 },  { "cot(1)", 1.0 },        { "coth 7", 7.0 },
        { "greek 3", 3.0 },    { "sqr sqr 16", 2.0 },    { "sin", 0.0 },
    };
    ExpectValues(aRound);
    // Random texts are compared with the C library's values by the test `calculation`.
    const CValue aOthers[] = {
        { "ln(0)", -s_fInfinitely },           { "exp(41)", 6.398434935300549e17 },
        { "sin 1+2", 2.8414709848078965 },     { "SIN(1)", 0.8414709848078965 },
        { "int(2147483647.5)", 2147483647.0 }, { "int(2147483648)", -2147483648.0 },
        { "int(-3000000000)", -2147483648.0 }, { "int(ln 0)", -2147483648.0 },
        { "arcosh(-2)", s_fNoNumber },         { "artanh(1)", s_fInfinitely },
    };
    ExpectValues(aOthers);
}

TEST(Calculation, TellsTheLastThingThatWentWrong)
{
    const CStopped aCases[] = {
        { "2x", 2.0, 2, "Error an Position 2 gefunden!" },
        { "x", 0.0, 1, "Error an Position 1 gefunden!" },
        { "1)", 1.0, 2, "Error an Position 2 gefunden!" },
        { "5%", 5.0, 2, "Error an Position 2 gefunden!" },
        { "1,5", 1.0, 2, "Error an Position 2 gefunden!" },
        { "1/0", 1.0, 0, DIVISION_BY_ZERO },
        { "1/0+2", 3.0, 0, DIVISION_BY_ZERO },
        { "1/0 x", 1.0, 5, "Error an Position 5 gefunden (Division durch Null)!" },
        { "(-8)^0.5", -8.0, 0, NO_ROOT },
        { "(-8)^2.5", -8.0, 0, NO_ROOT },
        { "0^1", 0.0, 0, NO_ROOT },
        { "0^0", 0.0, 0, NO_ROOT },
        { "(-2)^1", -2.0, 0, NO_ROOT },
        { "(-2)^3000000000", -2.0, 0, NO_ROOT },
        { "(0-8)^0.5/0", -8.0, 0, DIVISION_BY_ZERO },
        { "1/0+0^1", 1.0, 0, NO_ROOT },
        { "sum(1,2,3)", 1.0, 6, "Error an Position 6 gefunden!" },
    };
    for (const auto& [pszText, dValue, nErrorPos, pszMessage] : aCases)
        ExpectValue(pszText, dValue, nErrorPos, pszMessage);
}

TEST(Calculation, ReadsNumbersBeyondTheRangeOfADouble)
{
    const std::string strHuge(400, '9');
    const std::string strTiny = "0." + std::string(400, '0') + "1";
    const std::string strMixed = "000" + strHuge + ".5";
    ExpectValue(strHuge, s_fInfinitely);
    ExpectValue(strMixed, s_fInfinitely);
    ExpectValue(strTiny, 0.0);
    ExpectValue(strHuge + "-" + strHuge, s_fNoNumber);
}

// What classes of hosts read.
TEST(Calculation, StoresArgumentAndConstants)
{
    struct CHostParser : CFormulaParser
    {
        using CFormulaParser::m_adFunctConst, CFormulaParser::m_dArgument;
    } parser;
    static int s_nBoxes = 0;
    AfxSetMessageBoxHandler(
        [](const char* pszText, unsigned, void*)
        {
            EXPECT_STREQ(pszText, "ProgrammError in SetFunctConst()");
            s_nBoxes++;
            return 1;
        },
        nullptr);
    for (int nIndex : { -1, 0, 1, 9, 10 })
        parser.SetFunctConst(nIndex, nIndex + 0.5);
    AfxSetMessageBoxHandler(nullptr, nullptr);
    EXPECT_EQ(s_nBoxes, 3);
    for (const auto& [nIndex, dConstant] :
         { std::pair(0, 0.0), { 1, 1.5 }, { 8, 0.0 }, { 9, 9.5 } })
        EXPECT_EQ(parser.m_adFunctConst[nIndex], dConstant) << nIndex;
    WORD nErrorPos;
    CString strMessage;
    for (const auto& [x, dArgument] : { std::pair(0.0, 1e-99), { -3.0, -3.0 } })
    {
        parser.Calculation("1", x, &nErrorPos, &strMessage);
        EXPECT_EQ(parser.m_dArgument, dArgument);
    }
}

TEST(Calculation, RefusesATextThatIsTooLong)
{
    CFormulaParser parser;
    WORD nErrorPos = 4711;
    CString strMessage;
    const std::string strText(65535, '1');
    EXPECT_EQ(parser.Calculation(strText.c_str(), 0.0, &nErrorPos, &strMessage), 0.0);
    EXPECT_EQ(nErrorPos, 4711);
    EXPECT_EQ(strMessage.Find("Error in Calculation() weil "), 0);
}
