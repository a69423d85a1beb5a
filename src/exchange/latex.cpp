// Forms as LaTeX, which is mostly a table of templates.
#include "exchange/latex.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <string_view>

#include "exchange/form_writer.h"
#include "exchange/signs.h"

namespace
{
// A place that needs RANK_CLOSED gets braces around what is no single unit. %o is a sign in math
// mode, %l and %r are the brackets. Only single letters and digits stand without a form of their
// own.
// clang-format off
constexpr CFormRow s_aRows[] = {
    { FORM_NOTHING,       RANK_LEAF, {}, "" },
    { FORM_NAME,          RANK_LEAF, {}, "%n" },
    { FORM_NUMBER,        RANK_LEAF, {}, "%d" },
    { FORM_LABEL,         RANK_LEAF, {}, "%u" },
    { FORM_FUNCTION_NAME, RANK_LEAF, {}, "%f" },
    { FORM_INFINITY,      RANK_LEAF, {}, "%o" },
    { FORM_PLANCK,        RANK_LEAF, {}, "%o" },
    { FORM_LAMBDA,        RANK_LEAF, {}, "%o" },
    { FORM_NABLA,         RANK_LEAF, {}, "\\vec{%o}" },
    { FORM_LAPLACE,       RANK_LEAF, {}, "%o" },
    { FORM_PLACEHOLDER,   RANK_LEAF, {}, "\\boxed{\\phantom{0}}" },
    { FORM_SIGN,          RANK_LEAF, {}, "%o" },
    { FORM_BIG_SIGN,      RANK_LEAF, {}, "%b" },

    { FORM_LIST,      RANK_ANY, {}, "%1%o%2" },
    { FORM_PLUS,      RANK_ANY, {}, "%1%o%2" },
    { FORM_MINUS,     RANK_ANY, {}, "%1%o%2" },
    { FORM_POSITIVE,  RANK_ANY, {}, "%o%2" },
    { FORM_NEGATIVE,  RANK_ANY, {}, "%o%2" },
    { FORM_RELATION,  RANK_ANY, {}, "%1%e%2" },
    { FORM_OPERATOR,  RANK_ANY, {}, "%1\\mathrel{%o}%2" },
    { FORM_ARROW,     RANK_ANY, {}, "%1\\mathrel{%o}%2" },
    { FORM_PRODUCT,   RANK_ANY, {}, "%1 %2" },
    { FORM_TIMES,     RANK_ANY, {}, "%1%o%2" },
    { FORM_CROSS,     RANK_ANY, {}, "%1\\mathbin{%o}%2" },
    { FORM_INTEGRAND, RANK_ANY, {}, "%1\\,%u%2" },
    { FORM_FACTORIAL, RANK_ANY, {}, "%1%o" },
    { FORM_FOLLOWED,  RANK_ANY, {}, "%1 %2" },
    { FORM_CALL,      RANK_ANY, {}, "%1%2" },
    { FORM_FUNCTION,  RANK_ANY, {}, "%1%2" },
    { FORM_APPLIED,   RANK_ANY, {}, "%1%2" },

    { FORM_FRACTION,    RANK_CLOSED, {}, "\\frac{%1}{%2}" },
    { FORM_SLASH,       RANK_CLOSED, {}, "\\left.%1\\middle/%2\\right." },
    { FORM_BARLESS,     RANK_CLOSED, {}, "\\genfrac{}{}{0pt}{}{%1}{%2}" },
    { FORM_SQUARE_ROOT, RANK_CLOSED, {}, "\\sqrt{%1}" },
    { FORM_ROOT,        RANK_CLOSED, { RANK_ANY, RANK_LEAF }, "\\sqrt[%2]{%1}" },
    { FORM_POWER,       RANK_ANY,    { RANK_CLOSED }, "%1^{%2}" },
    { FORM_SUB,         RANK_ANY,    { RANK_CLOSED }, "%1_{%2}" },
    { FORM_SUPER,       RANK_ANY,    { RANK_CLOSED }, "%1^{%2}" },
    { FORM_SUB_SUPER,   RANK_ANY,    { RANK_CLOSED }, "%1_{%2}^{%3}" },
    { FORM_MARK,        RANK_CLOSED, {}, "\\overset{%o}{%a%1%z}" },
    { FORM_BINOMIAL,    RANK_CLOSED, {}, "\\genfrac{}{}{0pt}{}{%1}{%2}" },
    { FORM_RANGE,       RANK_CLOSED, {}, "\\genfrac{}{}{0pt}{}{%2}{%1}" },

    { FORM_BRACE, RANK_CLOSED, {}, "%l%1%r" },

    { FORM_BIG,        RANK_ANY, {}, "%1%2" },
    { FORM_BIG_LOWER,  RANK_ANY, {}, "%1_{%3}%2" },
    { FORM_BIG_UPPER,  RANK_ANY, {}, "%1^{%3}%2" },
    { FORM_BIG_BOTH,   RANK_ANY, {}, "%1_{%3}^{%4}%2" },
    { FORM_LIMIT,      RANK_ANY, {}, "%f_{%1}%2" },
    { FORM_DERIVATIVE, RANK_ANY, {}, "\\frac{%u}{%u%1}%2" },
    { FORM_PARTIAL_DERIVATIVE, RANK_ANY, {}, "\\frac{%o}{%o%1}%2" },

    { FORM_MATRIX, RANK_CLOSED, {}, "\\begin{matrix}%1\\\\%2\\end{matrix}" },
    { FORM_LINES,  RANK_CLOSED, {}, "\\begin{matrix}%1\\\\%2\\end{matrix}" },
    { FORM_ROWS,   RANK_CLOSED, {}, "%1\\\\%2" },
    { FORM_ROW,    RANK_CLOSED, {}, "%1" },
    { FORM_CELLS,  RANK_CLOSED, {}, "%1&%2" },
    { FORM_CELL,   RANK_CLOSED, {}, "%1" },
};
// clang-format on
static_assert(RowsAreForms(s_aRows));

// Names that LaTeX has a command for.
constexpr std::string_view s_aCommands[] = {
    "sin",  "cos",  "tan",  "cot", "arcsin", "arccos", "arctan", "sinh",
    "cosh", "tanh", "coth", "exp", "ln",     "lg",     "lim",
};

struct CDelimiter
{
    char chCode;  // in "Symbol"
    const char* pszText;
};

constexpr CDelimiter s_aDelimiters[] = {
    { '(', "(" },   { ')', ")" }, { '[', "[" },           { ']', "]" },           { '{', "\\{" },
    { '}', "\\}" }, { '|', "|" }, { '\xE1', "\\langle" }, { '\xF1', "\\rangle" },
};

bool IsLetter(char ch)
{
    return std::isalpha(static_cast<unsigned char>(ch)) != 0;
}

bool IsPlain(char ch)
{
    return std::isalnum(static_cast<unsigned char>(ch)) != 0;
}

bool IsPlain(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char ch) { return IsPlain(ch); });
}

class CLatex
{
public:
    explicit CLatex(std::string& out) : m_out(out) {}

    const CFormRow& RowOf(const CReading& reading) { return s_aRows[reading.nForm]; }
    void OpenGroup() { AppendText("{"); }
    void CloseGroup() { AppendText("}"); }

    void AppendNothing(ERank nNeeded)
    {
        if (nNeeded >= RANK_CLOSED)
            AppendText("{}");
    }

    // A blank keeps a command from what follows it.
    void AppendText(std::string_view text)
    {
        if (text.empty())
            return;
        if (m_out.size() == m_nCommandEnd && IsLetter(text.front()))
            m_out += ' ';
        m_out.append(text);
        if (IsLetter(text.back()))
            MarkCommandEnd(text);
    }

    void AppendOwn(const CReading& reading, char chCode)
    {
        const CShownText shown = ShownTextOf(*reading.pNode, reading.nType);
        switch (chCode)
        {
            case 'n':
                return AppendName(shown);
            case 'd':
                return AppendNumber(shown);
            case 'u':
                return AppendUpright(shown);
            case 'f':
                return AppendFunctionName(shown);
            case 'o':
                return AppendOperator(shown);
            case 'e':
                return AppendRelation(shown);
            case 'b':
                return AppendBigSign(shown);
            case 'l':
                return AppendLeftBracket(shown);
            case 'r':
                return AppendRightBracket(shown);
            case 'a':
                return AppendLines(reading, "\\overline{");
            default:
                return AppendLines(reading, "}");
        }
    }

private:
    void MarkCommandEnd(std::string_view text)
    {
        std::size_t n = text.size();
        while (n > 0 && IsLetter(text[n - 1]))
            --n;
        if (n > 0 && text[n - 1] == '\\')
            m_nCommandEnd = m_out.size();
    }

    void AppendSigns(const CShownText& shown)
    {
        for (const char ch : shown.text)
            AppendText(SignOf(shown.nFace, static_cast<unsigned char>(ch)).latex);
    }

    void AppendIn(std::string_view open, const CShownText& shown)
    {
        AppendText(open);
        AppendSigns(shown);
        AppendText("}");
    }

    // Signs of the other faces are commands of math mode whatever they stand in.
    bool AppendOtherFace(const CShownText& shown)
    {
        if (shown.nFace == FACE_TEXT)
            return false;
        if (shown.text.size() == 1)
            AppendSigns(shown);
        else
            AppendIn("{", shown);
        return true;
    }

    void AppendName(const CShownText& shown)
    {
        std::string_view name = shown.text;
        while (!name.empty() && name.back() == '\'')
            name.remove_suffix(1);
        if (AppendOtherFace(shown))
            return;
        if (name.empty() || !IsPlain(name))
            return AppendIn("\\textit{", shown);
        const bool bPrimes = name.size() < shown.text.size();
        if (bPrimes)
            AppendText("{");
        if (name.size() == 1 && IsLetter(name.front()))
            AppendText(name);
        else
            AppendIn("\\mathit{", { name, shown.nFace });
        if (bPrimes)
        {
            AppendText(shown.text.substr(name.size()));
            AppendText("}");
        }
    }

    void AppendNumber(const CShownText& shown)
    {
        const auto isDigit = [](char ch)
        {
            return IsPlain(ch) || ch == '.' || ch == '%';
        };
        if (AppendOtherFace(shown))
            return;
        if (std::all_of(shown.text.begin(), shown.text.end(), isDigit))
            AppendSigns(shown);
        else
            AppendIn("\\text{", shown);
    }

    void AppendUpright(const CShownText& shown)
    {
        if (!AppendOtherFace(shown))
            AppendIn(IsPlain(shown.text) ? "\\mathrm{" : "\\text{", shown);
    }

    void AppendFunctionName(const CShownText& shown)
    {
        if (shown.nFace == FACE_TEXT && IsCommand(shown.text))
        {
            AppendText("\\");
            m_out.append(shown.text);
            m_nCommandEnd = m_out.size();
            return;
        }
        AppendText("\\operatorname{");
        AppendOperatorText(shown);
        AppendText("}");
    }

    static bool IsCommand(std::string_view name)
    {
        return std::find(std::begin(s_aCommands), std::end(s_aCommands), name) !=
               std::end(s_aCommands);
    }

    // Inside a name of an operator: letters are upright there.
    void AppendOperatorText(const CShownText& shown)
    {
        if (shown.nFace != FACE_TEXT || IsPlain(shown.text))
            AppendSigns(shown);
        else
            AppendIn("\\text{", shown);
    }

    void AppendOperator(const CShownText& shown)
    {
        constexpr std::string_view plain = "!+-=*/,.;:?()<>|";
        const bool bPlain = shown.text.size() == 1 && plain.find(shown.text[0]) != plain.npos;
        if (shown.nFace != FACE_TEXT)
            AppendSigns(shown);
        else if (bPlain)
            AppendText(shown.text);
        else
            AppendUpright(shown);
    }

    // Signs that LaTeX does not take for relations get the room of one.
    void AppendRelation(const CShownText& shown)
    {
        constexpr std::string_view others = "?$\"";  // in "Symbol": the quantifiers
        const bool bOther = shown.text.size() != 1 || others.find(shown.text[0]) != others.npos;
        AppendText(bOther ? "\\mathrel{" : "");
        AppendOperator(shown);
        AppendText(bOther ? "}" : "");
    }

    // Limits stand below and above, as in the picture; a sum does that by itself.
    void AppendBigSign(const CShownText& shown)
    {
        const CSign* pSign = shown.text.size() == 1
                                 ? &SignOf(shown.nFace, static_cast<unsigned char>(shown.text[0]))
                                 : nullptr;
        if (pSign != nullptr && pSign->latex == "\\sum")
        {
            AppendText("\\sum");
        }
        else if (pSign != nullptr && pSign->latex == "\\int")
        {
            AppendText("\\int\\limits");
        }
        else
        {
            const bool bDouble = BeginsWithDoubleIntegral(shown);
            AppendText("\\mathop{");
            AppendText(bDouble ? "\\iint" : "");
            AppendOperatorText({ shown.text.substr(bDouble ? 2 : 0), shown.nFace });
            AppendText("}\\limits");
        }
    }

    void AppendLeftBracket(const CShownText& shown)
    {
        const char chBracket = shown.text.empty() ? ' ' : shown.text[0];
        const char* pszDelimiter = DelimiterOf(shown, chBracket);
        if (pszDelimiter == nullptr && chBracket != ' ')
            AppendOperator({ shown.text.substr(0, 1), shown.nFace });
        AppendText("\\left");
        AppendText(pszDelimiter != nullptr ? pszDelimiter : ".");
    }

    void AppendRightBracket(const CShownText& shown)
    {
        const char chBracket = shown.text.size() < 2 ? ' ' : shown.text[1];
        const char* pszDelimiter = DelimiterOf(shown, chBracket);
        AppendText("\\right");
        AppendText(pszDelimiter != nullptr ? pszDelimiter : ".");
        if (pszDelimiter == nullptr && chBracket != ' ')
            AppendOperator({ shown.text.substr(1, 1), shown.nFace });
    }

    // Null for what is no delimiter of LaTeX.
    static const char* DelimiterOf(const CShownText& shown, char chBracket)
    {
        for (const CDelimiter& delimiter : s_aDelimiters)
        {
            if (delimiter.chCode == chBracket &&
                (shown.nFace == FACE_SYMBOL || static_cast<unsigned char>(chBracket) < 0x80))
                return delimiter.pszText;
        }
        return nullptr;
    }

    // One line over the marks of kinds 3 and 5, two over kind 4.
    void AppendLines(const CReading& reading, std::string_view text)
    {
        const int nKind = KindOf(*reading.pNode, 0);
        if (nKind >= 3 && nKind <= 5)
            AppendText(text);
        if (nKind == 4)
            AppendText(text);
    }

    std::string& m_out;
    std::size_t m_nCommandEnd = std::string::npos;  // where the last command ends
};
}  // namespace

std::string LatexText(const CNode* pRoot)
{
    CWriterMemory memory;
    CLatex dialect(memory.m_text);
    CFormWriter<CLatex>(dialect, memory.m_open).Write(pRoot, RANK_ANY);
    return memory.m_text;
}
