// Names of functions in front of their arguments.
#include "nodes/function_nodes.h"

#include "format/tree_format.h"
#include "nodes/sign_drawing.h"

namespace
{
constexpr int s_nNamedRows = 20;  // rows 0 to 19 follow the format's face for functions
constexpr int s_nGammaRow = 20;
constexpr int s_nNoKind = -1;

// Kinds are stored in archives: a row keeps its number.
constexpr CKindRow s_aFunctions[] = {
    // sign     face               text
    { "sin", "Times New Roman", "SIN" },                          //  0
    { "cos", "Times New Roman", "COS" },                          //  1
    { "tan", "Times New Roman", "TAN" },                          //  2
    { "cot", "Times New Roman", "COTAN" },                        //  3
    { "arcsin", "Times New Roman", "ASIN" },                      //  4
    { "arccos", "Times New Roman", "ACOS" },                      //  5
    { "arctan", "Times New Roman", "ATAN" },                      //  6
    { "arccot", "Times New Roman", "3.141592654D0/2.0D0-ATAN" },  //  7
    { "sinh", "Times New Roman", "SINH" },                        //  8
    { "cosh", "Times New Roman", "COSH" },                        //  9
    { "tanh", "Times New Roman", "TANH" },                        // 10
    { "coth", "Times New Roman", "1.0D0/TANH" },                  // 11
    { "arsinh", "Times New Roman", "ASINH" },                     // 12
    { "arcosh", "Times New Roman", "ACOSH" },                     // 13
    { "artanh", "Times New Roman", "ATANH" },                     // 14
    { "arcoth", "Times New Roman", "ACOTANH" },                   // 15
    { "exp", "Times New Roman", "EXP" },                          // 16
    { "ln", "Times New Roman", "LOG" },                           // 17
    { "log2", "Times New Roman", "LOG2" },                        // 18
    { "lg", "Times New Roman", "LOG10" },                         // 19
    { "G", "Symbol", "GAMMA" },                                   // 20
    { "-", "Times New Roman", "MINUS" },                          // 21
};

const CKindTable& FunctionKinds()
{
    static const CKindTable s_table(s_aFunctions);
    return s_table;
}
}  // namespace

CFuncNode::CFuncNode() : CFunctionNode(NTI_FUNC)
{
    TakeKinds(FunctionKinds());
}

// Writing an equal face leaves the table shared, so that the default face costs no copy.
void CFuncNode::ApplyFormat(CBinTreeFormat* pFormat)
{
    CFunctionNode::ApplyFormat(pFormat);
    const CFormatInfoOb* pRecord = pFormat->FindRecord(m_strType);
    if (pRecord == nullptr)
        return;
    for (int nRow = 0; nRow < s_nNamedRows; ++nRow)
        m_saFonts.SetAt(nRow, pRecord->m_strFontName);
    m_saFonts.SetAt(s_nGammaRow, FunctionKinds().m_saFonts[s_nGammaRow]);
}

CRect CFuncNode::GetOwnSize(CDC* pDC)
{
    if (m_nKind != s_nNoKind)
        SelectKind();
    return CFunctionNode::GetOwnSize(pDC);
}

void CFuncNode::PaintOwn(CDC* pDC, CRect rect, UINT)
{
    if (m_nKind != s_nNoKind)
        SelectKind();
    DrawSign(pDC, rect, SIGN_FORMAT | DT_BOTTOM);
}

CUserFuncNode::CUserFuncNode() : CFunctionNode(NTI_USERFUNC) {}

CExtFuncNode::CExtFuncNode() : CFunctionNode(NTI_EXTFUNC) {}
