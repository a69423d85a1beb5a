// Evaluates a text to a number: a grammar of its own over the characters and keywords of the
// parser, without names, relations and lists.
#include "parser/formula_parser.h"

#include <charconv>
#include <cmath>

#include "parser/calculation.h"
#include "parser/failure.h"
#include "parser/keywords.h"
#include "parser/token.h"
#include "platform/base/accurate_math.h"
#include "platform/base/app.h"
#include "platform/base/deep_call.h"

namespace
{

constexpr const char* s_pszDivisionByZero = " (Division durch Null)";
constexpr const char* s_pszNoRoot = " (keine Wurzel aus neg. Zahl)";
constexpr double s_fNoArgument = 1e-99;  // stands for an argument of zero
constexpr int s_nFunctConsts = 10;       // number 0 is never set

// The value of the digits that a text begins with. The decimal sign is a point whatever the
// locale; what comes behind the number is left alone, and a text without digits is 0.
double ReadDecimal(const CString& strText)
{
    const char* pchText = strText;
    const char* pchEnd = pchText + strText.GetLength();
    double dValue = 0.0;
    const auto [pchRest, error] =
        std::from_chars(pchText, pchEnd, dValue, std::chars_format::fixed);
    if (error != std::errc::result_out_of_range)
        return dValue;
    // Too large or too small: only the digits ahead of the point can make it large.
    while (*pchText == '0')
        pchText++;
    return *pchText >= '1' && *pchText <= '9' ? HUGE_VAL : 0.0;
}

bool IsPowerRefused(double dBase, double dExponent)
{
    if (dBase > 0.0 || std::isnan(dBase))
        return false;
    return std::fabs(dExponent) <= 1.0 || dExponent != TruncateTo32Bits(dExponent);
}

}  // namespace

void CFormulaParser::SetFunctConst(int nIndex, double dValue)
{
    if (nIndex < 1 || nIndex >= s_nFunctConsts)
    {
        AfxMessageBox("ProgrammError in SetFunctConst()");
        return;
    }
    m_adFunctConst[nIndex] = dValue;
}

double CFormulaParser::Calculation(CString strText, double x, WORD* pErrorPos, CString* pMessage)
{
    m_strError.Empty();
    m_dArgument = x == 0.0 ? s_fNoArgument : x;
    double dValue = 0.0;
    RunAndReport(pMessage, [&] { dValue = CalculateText(strText, pErrorPos, pMessage); });
    return dValue;
}

double CFormulaParser::CalculateText(const CString& strText, WORD* pErrorPos, CString* pMessage)
{
    WORD nPos;
    CString strToken;
    SetText(strText, &nPos, &strToken);
    const double dValue = CalcExpression(&nPos, &strToken);
    ReportEnd(nPos, strToken, "Error an Position %d gefunden", m_strError, pErrorPos, pMessage);
    return dValue;
}

// expression := term { ( "+" | "-" ) term }
double CFormulaParser::CalcExpression(WORD* pPos, CString* pToken)
{
    double dValue = CalcTerm(pPos, pToken);
    while (IsToken(pToken, '+') || IsToken(pToken, '-'))
    {
        const bool bPlus = IsToken(pToken, '+');
        NextChar(pPos, pToken);
        const double dRight = CalcTerm(pPos, pToken);
        dValue = bPlus ? dValue + dRight : dValue - dRight;
    }
    return dValue;
}

// term := power { ( "*" | "/" ) power }
double CFormulaParser::CalcTerm(WORD* pPos, CString* pToken)
{
    double dValue = CalcPower(pPos, pToken);
    while (IsToken(pToken, '*') || IsToken(pToken, '/'))
    {
        const bool bTimes = IsToken(pToken, '*');
        NextChar(pPos, pToken);
        const double dRight = CalcPower(pPos, pToken);
        if (bTimes)
            dValue *= dRight;
        else if (dRight == 0.0)
            m_strError = CString::Immortal(s_pszDivisionByZero);
        else
            dValue /= dRight;
    }
    return dValue;
}

// power := unary { "^" unary }, from the left
double CFormulaParser::CalcPower(WORD* pPos, CString* pToken)
{
    double dBase = CalcUnary(pPos, pToken);
    while (IsToken(pToken, '^'))
    {
        NextChar(pPos, pToken);
        const double dExponent = CalcUnary(pPos, pToken);
        if (IsPowerRefused(dBase, dExponent))
            m_strError = CString::Immortal(s_pszNoRoot);
        else
            dBase = accurate::pow(dBase, dExponent);
    }
    return dBase;
}

// unary := [ "-" ] primary
double CFormulaParser::CalcUnary(WORD* pPos, CString* pToken)
{
    if (!IsToken(pToken, '-'))
        return CalcPrimary(pPos, pToken);
    NextChar(pPos, pToken);
    return -1.0 * CalcPrimary(pPos, pToken);
}

// primary := number | "(" expression [ ")" ] | keyword primary
double CFormulaParser::CalcPrimary(WORD* pPos, CString* pToken)
{
    return Descend([&] { return ReadCalcPrimary(pPos, pToken); });
}

// What begins none of these has the value 0, and nothing is read.
double CFormulaParser::ReadCalcPrimary(WORD* pPos, CString* pToken)
{
    if (IsDecimal(pToken))
    {
        const WORD nStart = *pPos;
        do
            NextChar(pPos, pToken);
        while (IsDecimal(pToken));
        return ReadDecimal(TextBetween(nStart, *pPos));
    }
    if (IsToken(pToken, '('))
    {
        NextChar(pPos, pToken);
        const double dValue = CalcExpression(pPos, pToken);
        if (IsToken(pToken, ')'))
            NextChar(pPos, pToken);
        return dValue;
    }
    const CKeyword* pKeyword = TakeKeyword(pPos);
    if (pKeyword == nullptr)
        return 0.0;
    NextChar(pPos, pToken);
    return ApplyFunction(pKeyword->GetNumber(), CalcPrimary(pPos, pToken));
}
