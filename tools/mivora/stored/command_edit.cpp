// edit: gestures of the formula control without a window.
#include <charconv>
#include <cstdio>

#include "control/memory/scripted_memory_window.h"
#include "pictures/picture.h"
#include "report.h"
#include "stored/stored_formula.h"
#include "texts/formula_texts.h"
#include "texts/text_input.h"

namespace
{
constexpr CSize s_sizeDefault(300, 200);
constexpr int s_nMaxSide = 32767;

// "WxH"
CSize ParseSize(const std::string& strSize)
{
    int nWidth = 0;
    int nHeight = 0;
    const char* pEnd = strSize.data() + strSize.size();
    const auto width = std::from_chars(strSize.data(), pEnd, nWidth);
    if (width.ec == std::errc() && width.ptr != pEnd && *width.ptr == 'x')
    {
        const auto height = std::from_chars(width.ptr + 1, pEnd, nHeight);
        if (height.ec == std::errc() && height.ptr == pEnd && nWidth >= 0 && nHeight >= 0 &&
            nWidth <= s_nMaxSide && nHeight <= s_nMaxSide)
            return CSize(nWidth, nHeight);
    }
    throw CUsageError{ "--size takes WxH, such as 300x200, up to " + std::to_string(s_nMaxSide) };
}

// The events of a file, one a line.
class CScriptReader
{
public:
    explicit CScriptReader(const std::string& strPath) : m_Lines(strPath) {}

    std::optional<CScriptEvent> Next()
    {
        std::string strLine;
        while (m_Lines.Next(strLine))
        {
            m_nLine++;
            if (IsSkippedScriptLine(strLine))
                continue;
            if (const auto event = ParseScriptEvent(strLine))
                return event;
            throw CUsageError{ "line " + std::to_string(m_nLine) +
                               " of the script is no gesture: " + strLine };
        }
        return std::nullopt;
    }

private:
    CLineReader m_Lines;
    unsigned m_nLine = 0;
};

void LoadText(const CArguments& arguments, CFormulaOut& formula)
{
    const std::string strTyped = TypedText(arguments);
    CParseReport report;
    if (!FormTreeReporting(formula, TextFromUtf8(strTyped), report))
        throw CFailure{ TakeLibraryMessages() };
    WarnOfFindings(report, strTyped);
}

void PrintState(const std::string& strState)
{
    std::fwrite(strState.data(), 1, strState.size(), stdout);
    std::fputc('\n', stdout);
}

void PlayScript(const std::string& strScript, const CArguments& arguments, CFormulaOut& formula)
{
    const CSize size =
        arguments.Has(OPT_SIZE) ? ParseSize(arguments.Value(OPT_SIZE)) : s_sizeDefault;
    CScriptReader script(strScript);
    CMemoryClipboard clipboard;
    CMemoryWindow window(clipboard, size);
    window.GetControl().SetTree(&formula.m_Tree);
    window.GetControl().SetReadOnly(arguments.Has(OPT_READ_ONLY));
    window.Start();
    CScriptedMemoryWindow control(window, clipboard);
    CScriptPlayer(
        control, [&] { return script.Next(); }, PrintState)
        .Play();
    window.Blur();  // an open editor ends as it does when its window is closed
}
}  // namespace

int RunEdit(const CArguments& arguments)
{
    const std::string strScript = arguments.Value(OPT_SCRIPT);
    if (strScript == "-" && arguments.Operand() == "-")
        throw CUsageError{ "the TEXT and the script cannot both come from standard input" };
    CFormulaOut formula;
    if (arguments.Has(OPT_FML))
    {
        LoadStored(formula, arguments.Value(OPT_FML));
        formula.m_Tree.Reformat(nullptr);
    }
    else
    {
        LoadText(arguments, formula);
    }
    PlayScript(strScript, arguments, formula);
    if (arguments.Has(OPT_STORE))
        SaveStored(formula, arguments.Value(OPT_STORE));
    return STATUS_DONE;
}
