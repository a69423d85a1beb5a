// The state line: each field as text.
#include "control/script/control_state.h"

#include <algorithm>

#include "control/formula_control.h"
#include "control/in_place_edit.h"
#include "nodes/node.h"
#include "tree/bin_tree.h"
#include "tree/tree_form.h"

namespace
{

std::string Numbers(std::initializer_list<int> numbers)
{
    std::string strText;
    for (const int nNumber : numbers)
        strText += (strText.empty() ? "" : " ") + std::to_string(nNumber);
    return strText;
}

std::string Quoted(const std::string& strText)
{
    const CString strEscaped =
        EscapeSymbol(CString(strText.data(), static_cast<int>(strText.size())));
    return '"' + std::string(strEscaped.View()) + '"';
}

std::string EditorText(const CControlState& state)
{
    if (!state.editor)
        return "-";
    const CInPlaceEdit* pEdit = state.pControl->m_pInPlaceEdit;
    const CEditorState& editor = *state.editor;
    return NodePath(pEdit != nullptr ? pEdit->GetNode() : nullptr) + ' ' + Quoted(editor.strText) +
           ' ' +
           Numbers({ editor.nStart, editor.nEnd, editor.rect.left, editor.rect.top,
                     editor.rect.right, editor.rect.bottom });
}

}  // namespace

std::string NodePath(const CNode* pNode)
{
    if (pNode == nullptr)
        return "-";
    std::string strPath;
    for (; pNode->GetParent() != nullptr; pNode = pNode->GetParent())
        strPath += pNode->GetParent()->GetLeft() == pNode ? 'L' : 'R';
    strPath += '/';
    std::ranges::reverse(strPath);
    return strPath;
}

std::string StateLine(const CControlState& state, const std::string& strAnswer)
{
    const CFormulaControl& control = *state.pControl;
    const CBinTree& tree = *control.m_pTree;
    std::string strLine(TreeForm(tree.GetRootNode()).View());
    strLine += '\t' + NodePath(tree.GetSelection()) + ':' + std::to_string(tree.GetSelectionMode());
    strLine += '\t' + NodePath(control.m_pHoverNode) + '\t';
    strLine += control.m_bCanDrag ? '1' : '0';
    strLine += control.m_bClickedSelected ? '1' : '0';
    if (state.bDragging)
        strLine += '1';
    strLine += '\t' + EditorText(state) + '\t';
    strLine += Numbers({ control.m_nScrollBars, state.horizontal.nPos, state.horizontal.nMax,
                         state.horizontal.nPage, state.vertical.nPos, state.vertical.nMax,
                         state.vertical.nPage });
    strLine += ' ' + std::to_string(state.client.cx) + 'x' + std::to_string(state.client.cy);
    strLine += "\tundo " + std::to_string(tree.GetUndoCount()) + " changed " +
               std::to_string(state.nChanges);
    return strLine + '\t' + strAnswer;
}
