// Text to measured tree: parse, root, size in hundredths of an inch.
#include "service/form_tree.h"

#include <memory>

#include "nodes/node.h"
#include "parser/failure.h"
#include "platform/base/app.h"
#include "platform/gdi/dc.h"
#include "service/formula_out.h"

namespace
{
// Runs a step. An exception in it is answered as one of the parse: the tree is gone, the report
// has the words, the result is 0.
template <class Step>
int Guarded(CFormulaOut& formula, CParseReport& report, Step step)
{
    int nResult = 0;
    if (!RunAndReport(&report.strMessage, [&] { nResult = step(); }))
        formula.m_Tree.DeleteContents();
    return nResult;
}

// One unit is a hundredth of an inch on both axes, y grows upwards.
CRect MeasureInHundredths(CFormulaOut& formula)
{
    CClientDC dc(nullptr);
    dc.SetMapMode(MM_ANISOTROPIC);
    dc.SetViewportExt(dc.GetDeviceCaps(LOGPIXELSX), dc.GetDeviceCaps(LOGPIXELSY));
    dc.SetWindowExt(100, -100);
    return formula.GetFormulaRect(&dc);
}

int ParseUnguarded(CFormulaOut& formula, const CString& strText, CParseReport& report)
{
    formula.m_Tree.DeleteContents();
    // A new node may lie where the selected one did.
    formula.m_Tree.SetSelection(nullptr, formula.m_Tree.GetSelectionMode());
    formula.m_Parser.m_pTree = &formula.m_Tree;
    formula.m_Parser.SetFormula(strText);
    if (!formula.m_Parser.Parse(formula.m_Parser.GetFormula(), &report.nPosition,
                                &report.strMessage))
        return 0;
    std::unique_ptr<CNode> pFormula(formula.m_Parser.m_pResult);
    report.dropped = formula.m_Parser.GetDropped();
    CNode* pRoot = formula.m_Tree.CreateRootNode("NT_STANDARD");
    // The parse has formatted its nodes for level 0, which is theirs here too.
    pRoot->LinkLeft(pFormula.release());
    return 1;
}
}  // namespace

int ParseIntoTree(CFormulaOut& formula, const CString& strText, CParseReport& report)
{
    return Guarded(formula, report, [&] { return ParseUnguarded(formula, strText, report); });
}

int FormTreeReporting(CFormulaOut& formula, const CString& strText, CParseReport& report)
{
    const CString strOld = formula.m_strFormula;
    const int nFormed = Guarded(formula, report,
                                [&]
                                {
                                    if (!ParseUnguarded(formula, strText, report))
                                        return 0;
                                    formula.m_strFormula = strText;
                                    formula.m_Tree.m_rectFormula = MeasureInHundredths(formula);
                                    return 1;
                                });
    if (!nFormed)
    {
        formula.m_strFormula = strOld;
        AfxMessageBox(report.strMessage);
    }
    return nFormed;
}
