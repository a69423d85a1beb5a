// Formulas of C callers: made of a text or of stored bytes, with what there is to be told of them.
#include "capi/formula.h"

#include "capi/call.h"
#include "facade/findings.h"
#include "facade/greek_text.h"
#include "facade/stored_bytes.h"
#include "facade/typed_text.h"
#include "nodes/node.h"
#include "picture/picture.h"
#include "platform/base/code_page.h"
#include "service/library_lock.h"

namespace
{
constexpr int s_nLongestText = 65534;  // beyond, positions have no number
constexpr size_t s_nExcerptWidth = 72;
constexpr int s_nGapOfStored = 2;  // of a process that has parsed nothing
// How the message of a calculation begins that an exception stopped.
constexpr std::string_view s_strStopped = "Error in Calculation() ";

CFormulaLook LookOf(const mivora_look& look)
{
    CFormulaLook result;
    if (look.points != 0 && (look.points < LEAST_POINTS || look.points > MOST_POINTS))
        RefuseArgument("points is 4 to 400, or 0, not " + std::to_string(look.points));
    result.nPoints = look.points;
    if (look.face == nullptr)
        return result;
    const CString strFace = TextFromUtf8(look.face);
    if (strFace.IsEmpty() || strFace.GetLength() > LONGEST_FACE)
        RefuseArgument("face is a name of 1 to 31 characters");
    result.strFace = strFace.View();
    return result;
}

bool IsDefault(const CFormulaLook& look)
{
    return look.nPoints == 0 && look.strFace.empty();
}
}  // namespace

CString FormulaText(const std::string& strTyped)
{
    const CString strText = TextFromUtf8(strTyped);
    if (strText.GetLength() > s_nLongestText)
    {
        throw CCallFailure{ MIVORA_INVALID_TEXT, "the text is too long: it has " +
                                                     std::to_string(strText.GetLength()) +
                                                     " characters, 65534 is the most" };
    }
    return strText;
}

void mivora_formula::FormText(const std::string& strTyped, const mivora_look& look)
{
    const CFormulaLook wanted = LookOf(look);
    const std::string strWritten = look.greek != 0 ? WithGreekWritten(strTyped) : strTyped;
    // What can still go wrong is memory.
    if (!FormTreeReporting(formula, FormulaText(strWritten), report))
        throw std::bad_alloc();
    m_nTimesGap = g_nTimesGap;
    ApplyLook(formula, wanted);
    KeepProblem(strWritten);
}

void mivora_formula::LoadStored(std::string_view bytes, const mivora_look& look)
{
    const CFormulaLook wanted = LookOf(look);
    LoadStoredBytes(formula, bytes);
    m_nTimesGap = s_nGapOfStored;
    TakeGap();
    if (IsDefault(wanted))
        formula.ReformatNodes();
    else
        ApplyLook(formula, wanted);
}

void mivora_formula::TakeGap() const
{
    g_nTimesGap = m_nTimesGap;
}

void mivora_formula::KeepProblem(const std::string& strTyped)
{
    const std::vector<CFinding> findings = FindingsOf(report, strTyped);
    if (findings.empty())
        return;
    strProblem = Joined(findings);
    if (strProblem.ends_with('!'))
        strProblem.pop_back();
    nProblem = findings[0].bError ? MIVORA_SYNTAX_ERROR : MIVORA_TEXT_DROPPED;
    if (findings[0].places.empty())
        return;
    nProblemPosition = findings[0].places[0].nPosition;
    strExcerpt = ExcerptOf(findings[0], strTyped, s_nExcerptWidth);
}

void CalculateInto(const std::string& strTyped, double* pdValue)
{
    const CString strText = FormulaText(strTyped);
    CFormulaOut formula;
    CParseReport report;
    *pdValue = formula.m_Parser.Calculation(strText, 0.0, &report.nPosition, &report.strMessage);
    if (!report.HasError())
        return;
    if (report.strMessage.View().starts_with(s_strStopped))
        throw std::bad_alloc();
    const std::vector<CFinding> findings = FindingsOf(report, strTyped);
    CCallFailure failure{ MIVORA_SYNTAX_ERROR, CodePage936ToUtf8(report.strMessage.View()) };
    if (!findings[0].places.empty())
    {
        failure.nPosition = findings[0].places[0].nPosition;
        failure.strExcerpt = ExcerptOf(findings[0], strTyped, s_nExcerptWidth);
    }
    throw failure;
}

void EndFormula(mivora_formula* pFormula) noexcept
{
    const CLibraryLock lock;
    delete pFormula;
}
