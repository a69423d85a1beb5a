// Forms as elements of MathML, which is mostly a table of templates.
#include "exchange/mathml.h"

#include <iterator>

#include "exchange/form_writer.h"
#include "exchange/signs.h"

namespace
{
// From RANK_CLOSED on a form is one element; below it is a row of elements. %o is an operator, %s
// the text of a sign, %i what a sign that does not tell it means.
// clang-format off
constexpr CFormRow s_aRows[] = {
    { FORM_NOTHING,       RANK_LEAF,   {}, "" },
    { FORM_NAME,          RANK_LEAF,   {}, "%n" },
    { FORM_NUMBER,        RANK_LEAF,   {}, "<mn>%s</mn>" },
    { FORM_LABEL,         RANK_LEAF,   {}, "<mtext>%s</mtext>" },
    { FORM_FUNCTION_NAME, RANK_LEAF,   {}, "%f" },
    { FORM_INFINITY,      RANK_LEAF,   {}, "<mi%i>%s</mi>" },
    { FORM_PLANCK,        RANK_LEAF,   {}, "<mi>%s</mi>" },
    { FORM_LAMBDA,        RANK_LEAF,   {}, "<mi>%s</mi>" },
    { FORM_NABLA,         RANK_LEAF,   {}, "<mover accent=\"true\"><mi%i>%s</mi><mo stretchy=\"false\">→</mo></mover>" },
    { FORM_LAPLACE,       RANK_LEAF,   {}, "<mi mathvariant=\"normal\" intent=\"laplacian\">%s</mi>" },
    { FORM_PLACEHOLDER,   RANK_LEAF,   {}, "<mrow class=\"placeholder\"></mrow>" },
    { FORM_SIGN,          RANK_LEAF,   {}, "<mo>%s</mo>" },
    { FORM_BIG_SIGN,      RANK_LEAF,   {}, "%b" },

    { FORM_LIST,       RANK_LIST,   { RANK_LIST, RANK_SUM },      "%1%o%2" },
    { FORM_PLUS,       RANK_SUM,    { RANK_SUM, RANK_TERM },      "%1%o%2" },
    { FORM_MINUS,      RANK_SUM,    { RANK_SUM, RANK_TERM },      "%1%o%2" },
    { FORM_POSITIVE,   RANK_PREFIX, { RANK_ANY, RANK_PREFIX },    "%o%2" },
    { FORM_NEGATIVE,   RANK_PREFIX, { RANK_ANY, RANK_PREFIX },    "%o%2" },
    { FORM_RELATION,   RANK_SUM,    { RANK_SUM, RANK_TERM },      "%1%o%2" },
    { FORM_OPERATOR,   RANK_SUM,    { RANK_SUM, RANK_TERM },      "%1%o%2" },
    { FORM_ARROW,      RANK_SUM,    { RANK_SUM, RANK_TERM },      "%1%o%2" },
    { FORM_PRODUCT,    RANK_TERM,   { RANK_TERM, RANK_PREFIX },   "%1<mo%g>&#x2062;</mo>%2" },
    { FORM_TIMES,      RANK_TERM,   { RANK_TERM, RANK_PREFIX },   "%1%o%2" },
    { FORM_CROSS,      RANK_TERM,   { RANK_TERM, RANK_PREFIX },   "%1%o%2" },
    { FORM_INTEGRAND,  RANK_LIST,   { RANK_LIST, RANK_TERM },     "%1<mi mathvariant=\"normal\">%s</mi>%2" },
    { FORM_FACTORIAL,  RANK_POWER,  { RANK_CLOSED },              "%1<mo form=\"postfix\">%s</mo>" },
    { FORM_FOLLOWED,   RANK_TERM,   { RANK_TERM, RANK_PREFIX },   "%1%2" },
    { FORM_CALL,       RANK_CLOSED, { RANK_CLOSED, RANK_CLOSED }, "<mrow>%1<mo>&#x2061;</mo>%2</mrow>" },
    { FORM_FUNCTION,   RANK_CLOSED, { RANK_CLOSED, RANK_PREFIX }, "<mrow>%1<mo%g>&#x2061;</mo>%2</mrow>" },
    { FORM_APPLIED,    RANK_CLOSED, { RANK_CLOSED, RANK_PREFIX }, "<mrow>%1%2</mrow>" },

    { FORM_FRACTION,    RANK_CLOSED, { RANK_CLOSED, RANK_CLOSED },              "<mfrac>%1%2</mfrac>" },
    { FORM_SLASH,       RANK_OVER,   { RANK_POWER, RANK_POWER },                "%1<mo>/</mo>%2" },
    { FORM_BARLESS,     RANK_CLOSED, { RANK_CLOSED, RANK_CLOSED },              "<mfrac linethickness=\"0\">%1%2</mfrac>" },
    { FORM_SQUARE_ROOT, RANK_CLOSED, { RANK_ANY },                              "<msqrt>%1</msqrt>" },
    { FORM_ROOT,        RANK_CLOSED, { RANK_CLOSED, RANK_CLOSED },              "<mroot>%1%2</mroot>" },
    { FORM_POWER,       RANK_CLOSED, { RANK_CLOSED, RANK_CLOSED },              "<msup>%1%2</msup>" },
    { FORM_SUB,         RANK_CLOSED, { RANK_CLOSED, RANK_CLOSED },              "<msub>%1%2</msub>" },
    { FORM_SUPER,       RANK_CLOSED, { RANK_CLOSED, RANK_CLOSED },              "<msup>%1%2</msup>" },
    { FORM_SUB_SUPER,   RANK_CLOSED, { RANK_CLOSED, RANK_CLOSED, RANK_CLOSED }, "<msubsup>%1%2%3</msubsup>" },
    { FORM_MARK,        RANK_CLOSED, { RANK_CLOSED },                           "%a%1%z" },
    { FORM_BINOMIAL,    RANK_CLOSED, {},
      "<mfrac linethickness=\"0\" intent=\"binomial-coefficient($n,$k)\"><mrow arg=\"n\">%1</mrow><mrow arg=\"k\">%2</mrow></mfrac>" },
    { FORM_RANGE,       RANK_CLOSED, { RANK_CLOSED, RANK_CLOSED },              "<mfrac linethickness=\"0\">%2%1</mfrac>" },

    { FORM_BRACE, RANK_CLOSED, {}, "<mrow>%l%1%r</mrow>" },

    { FORM_BIG,       RANK_CLOSED, { RANK_CLOSED, RANK_CLOSED },              "<mrow>%1%2</mrow>" },
    { FORM_BIG_LOWER, RANK_CLOSED, { RANK_CLOSED, RANK_CLOSED, RANK_CLOSED }, "<mrow><munder>%1%3</munder>%2</mrow>" },
    { FORM_BIG_UPPER, RANK_CLOSED, { RANK_CLOSED, RANK_CLOSED, RANK_CLOSED }, "<mrow><mover>%1%3</mover>%2</mrow>" },
    { FORM_BIG_BOTH,  RANK_CLOSED, { RANK_CLOSED, RANK_CLOSED, RANK_CLOSED, RANK_CLOSED },
      "<mrow><munderover>%1%3%4</munderover>%2</mrow>" },
    { FORM_LIMIT,     RANK_CLOSED, { RANK_CLOSED, RANK_CLOSED },
      "<mrow><munder><mi>%s</mi>%1</munder><mo%g>&#x2061;</mo>%2</mrow>" },
    { FORM_DERIVATIVE, RANK_CLOSED, { RANK_ANY, RANK_CLOSED },
      "<mrow><mfrac><mi mathvariant=\"normal\">%s</mi><mrow><mi mathvariant=\"normal\">%s</mi>%1</mrow></mfrac>%2</mrow>" },
    { FORM_PARTIAL_DERIVATIVE, RANK_CLOSED, {},
      "<mrow intent=\"partial-derivative($f,$x)\"><mfrac><mi>%s</mi><mrow><mi>%s</mi><mrow arg=\"x\">%1</mrow></mrow></mfrac><mrow arg=\"f\">%2</mrow></mrow>" },

    { FORM_MATRIX, RANK_CLOSED, {}, "<mtable>%1%2</mtable>" },
    { FORM_LINES,  RANK_CLOSED, {}, "<mtable>%1%2</mtable>" },
    { FORM_ROWS,   RANK_CLOSED, {}, "%1%2" },
    { FORM_ROW,    RANK_CLOSED, {}, "<mtr>%1</mtr>" },
    { FORM_CELLS,  RANK_CLOSED, {}, "%1%2" },
    { FORM_CELL,   RANK_CLOSED, {}, "<mtd>%1</mtd>" },
};
// clang-format on
static_assert(RowsAreForms(s_aRows));

// What a sign means that shows as a question mark.
struct CMeaning
{
    ENodeType nType;
    const char* pszIntent;
};

constexpr CMeaning s_aMeanings[] = {
    { NTI_INFINITY, "infinity" }, { NTI_NABLA, "nabla" },       { NTI_PROD, "product" },
    { NTI_INTEGRAL, "integral" }, { NTI_OPERATOR, "tends-to" }, { NTI_CROSS, "cross-product" },
};

// The marks of the kinds, and how many lines are drawn over what they stand on.
struct CMark
{
    const char* pszIntent;  // null where the sign tells it
    int nLines;
};

constexpr CMark s_aMarks[] = {
    { "derivative($x)", 0 },         // 0
    { "second-derivative($x)", 0 },  // 1
    { "third-derivative($x)", 0 },   // 2
    { "mean($x)", 1 },               // 3
    { "norm($x)", 2 },               // 4
    { "vector($x)", 1 },             // 5
    { nullptr, 0 },                  // 6
    { "double-tilde($x)", 0 },       // 7
};

class CMathML
{
public:
    explicit CMathML(std::string& out) : m_out(out) {}

    const CFormRow& RowOf(const CReading& reading) { return s_aRows[reading.nForm]; }
    void AppendText(std::string_view text) { m_out.append(text); }
    void OpenGroup() { m_out += "<mrow>"; }
    void CloseGroup() { m_out += "</mrow>"; }

    // An element must stand where one is counted.
    void AppendNothing(ERank nNeeded)
    {
        if (nNeeded >= RANK_CLOSED)
            m_out += "<mrow></mrow>";
    }

    void AppendOwn(const CReading& reading, char chCode)
    {
        const CShownText shown = ShownTextOf(*reading.pNode, reading.nType);
        switch (chCode)
        {
            case 's':
                return AppendSigns(shown);
            case 'n':
                return AppendName(shown);
            case 'f':
                return AppendFunctionName(shown);
            case 'i':
                return AppendMeaning(reading, shown);
            case 'o':
                return AppendOperator(reading, shown);
            case 'b':
                return AppendBigSign(reading, shown);
            case 'g':
                return AppendGap(reading);
            case 'l':
                return AppendBracket(shown, 0, "<mo form=\"prefix\">");
            case 'r':
                return AppendBracket(shown, 1, "<mo form=\"postfix\">");
            case 'a':
                return OpenMark(reading);
            default:
                return CloseMark(reading, shown);
        }
    }

private:
    void AppendSigns(const CShownText& shown)
    {
        for (const char ch : shown.text)
            m_out.append(SignOf(shown.nFace, static_cast<unsigned char>(ch)).mathML);
    }

    // Browsers slant a single letter and leave longer names upright.
    void AppendName(const CShownText& shown)
    {
        m_out += shown.text.size() == 1 ? "<mi>" : "<mi style=\"font-style:italic\">";
        AppendSigns(shown);
        m_out += "</mi>";
    }

    void AppendFunctionName(const CShownText& shown)
    {
        m_out += shown.text.size() == 1 ? "<mi mathvariant=\"normal\">" : "<mi>";
        AppendSigns(shown);
        m_out += "</mi>";
    }

    void AppendMeaning(const CReading& reading, const CShownText& shown)
    {
        if (!IsSymbol(shown, "?"))
            return;
        for (const CMeaning& meaning : s_aMeanings)
        {
            if (meaning.nType == reading.nType)
            {
                m_out += " intent=\"";
                m_out += meaning.pszIntent;
                m_out += '"';
            }
        }
    }

    // Beside nothing an operator would be taken for another form of itself.
    void AppendOperator(const CReading& reading, const CShownText& shown)
    {
        m_out += "<mo";
        if (IsNothing(reading.Operand(0)))
            m_out += " form=\"prefix\"";
        else if (IsNothing(reading.Operand(1)))
            m_out += " form=\"postfix\"";
        if (reading.nForm == FORM_ARROW)
            m_out += " stretchy=\"false\"";
        AppendMeaning(reading, shown);
        m_out += '>';
        AppendSigns(shown);
        m_out += "</mo>";
    }

    // The two invisible operators have no width: a name of a function needs a gap around it, unless
    // a bracket follows.
    void AppendGap(const CReading& reading)
    {
        const EForm nNext = ReadPart(reading.Operand(1)).nForm;
        const bool bGap =
            reading.nForm == FORM_PRODUCT ? nNext == FORM_FUNCTION : nNext != FORM_BRACE;
        if (bGap)
            m_out += " rspace=\"0.17em\"";
    }

    // A sign of several characters is a row: only single ones grow.
    void AppendBigSign(const CReading& reading, const CShownText& shown)
    {
        const bool bDouble = BeginsWithDoubleIntegral(shown);
        const bool bRow = shown.text.size() != (bDouble ? 2 : 1);
        if (bRow)
            OpenGroup();
        for (std::size_t i = 0; i < shown.text.size(); ++i)
        {
            m_out += "<mo movablelimits=\"false\"";
            AppendMeaning(reading, shown);
            m_out += '>';
            if (bDouble && i == 0)
            {
                m_out += "∬";
                ++i;
            }
            else
            {
                AppendSigns({ shown.text.substr(i, 1), shown.nFace });
            }
            m_out += "</mo>";
        }
        if (bRow)
            CloseGroup();
    }

    void AppendBracket(const CShownText& shown, std::size_t nSide, const char* pszOpen)
    {
        if (nSide < shown.text.size() && shown.text[nSide] != ' ')
        {
            m_out += pszOpen;
            AppendSigns({ shown.text.substr(nSide, 1), shown.nFace });
            m_out += "</mo>";
        }
    }

    static CMark MarkOf(const CReading& reading)
    {
        const int nKind = KindOf(*reading.pNode, -1);
        return nKind >= 0 && nKind < static_cast<int>(std::size(s_aMarks)) ? s_aMarks[nKind]
                                                                           : CMark{ nullptr, 0 };
    }

    void OpenMark(const CReading& reading)
    {
        const CMark mark = MarkOf(reading);
        m_out += "<mover";
        if (mark.pszIntent != nullptr)
        {
            m_out += " intent=\"";
            m_out += mark.pszIntent;
            m_out += '"';
        }
        m_out += '>';
        for (int nLine = 0; nLine < mark.nLines; ++nLine)
            m_out += "<mover accent=\"true\">";
        m_out += mark.pszIntent != nullptr ? "<mrow arg=\"x\">" : "<mrow>";
    }

    void CloseMark(const CReading& reading, const CShownText& shown)
    {
        const CMark mark = MarkOf(reading);
        m_out += "</mrow>";
        for (int nLine = 0; nLine < mark.nLines; ++nLine)
            m_out += "<mo stretchy=\"true\">¯</mo></mover>";
        m_out += "<mo stretchy=\"false\">";
        AppendSigns(shown);
        m_out += "</mo></mover>";
    }

    std::string& m_out;
};
}  // namespace

std::string MathMLText(const CNode* pRoot)
{
    CWriterMemory memory;
    memory.m_text += "<math xmlns=\"http://www.w3.org/1998/Math/MathML\" display=\"block\">";
    CMathML dialect(memory.m_text);
    CFormWriter<CMathML>(dialect, memory.m_open).Write(pRoot, RANK_ANY);
    memory.m_text += "</math>";
    return memory.m_text;
}
