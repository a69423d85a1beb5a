#include "control/control_driver.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "control/in_place_edit.h"
#include "control/memory/memory_edit_box.h"
#include "format/tree_format.h"
#include "nodes/node.h"
#include "service/form_tree.h"

CControlDriver::CControlDriver(const char* pszText, CSize size, UINT nWheelLines)
    : m_Window(m_Clipboard, size, nWheelLines), m_Scripted(m_Window, m_Clipboard)
{
    CParseReport report;
    if (pszText != nullptr)
        ParseIntoTree(m_Formula, pszText, report);
    Control().SetTree(&Tree());
    m_Window.Start();
}

CNode* NodeAt(CBinTree& tree, std::string_view strPath)
{
    CNode* pNode = tree.GetRootNode();
    for (const char ch : strPath)
    {
        if (pNode != nullptr)
            pNode = ch == 'L' ? pNode->GetLeft() : pNode->GetRight();
    }
    return pNode;
}

std::string CControlDriver::WithPlaces(const std::string& strLine)
{
    std::istringstream words(strLine);
    std::string strResult;
    for (std::string strWord; words >> strWord;)
    {
        if (strWord[0] == '@')
        {
            const CNode* pNode = NodeAt(strWord.substr(1));
            if (pNode == nullptr)
                throw std::runtime_error("no node at " + strWord);
            const CPoint place = Control().FormulaToClient(pNode->m_rect).CenterPoint();
            strWord = std::to_string(place.x) + " " + std::to_string(place.y);
        }
        strResult += (strResult.empty() ? "" : " ") + strWord;
    }
    return strResult;
}

std::vector<std::string> CControlDriver::Play(const std::string& strScript,
                                              const std::function<void()>& onState)
{
    std::string strLines = strScript;
    std::ranges::replace(strLines, ';', '\n');
    std::istringstream lines(strLines);
    std::vector<std::string> states;
    m_Events.clear();
    const auto read = [&]() -> std::optional<CScriptEvent>
    {
        for (std::string strLine; std::getline(lines, strLine);)
        {
            if (IsSkippedScriptLine(strLine))
                continue;
            const auto event = ParseScriptEvent(WithPlaces(strLine));
            if (!event)
                throw std::runtime_error("no event: " + strLine);
            m_Events.push_back(*event);
            return event;
        }
        return std::nullopt;
    };
    const auto tell = [&](const std::string& strState)
    {
        states.push_back(strState);
        if (onState)
            onState();
    };
    CScriptPlayer(m_Scripted, read, tell).Play();
    return states;
}

std::string CControlDriver::Last(const std::string& strScript, EField nField)
{
    return FieldOf(Play(strScript).back(), nField);
}

void CBoxedPlaceholders::Negate() const
{
    for (int& nSize : g_DefaultFormat.m_nSizes)
        nSize = m_bBoxed ? -nSize : nSize;
}

std::string FieldOf(const std::string& strState, int nField)
{
    std::istringstream fields(strState);
    std::string strField;
    for (int i = 0; i <= nField; i++)
        std::getline(fields, strField, '\t');
    return strField;
}

namespace
{

std::string BrokenNode(const CNode* pNode, const CNode* pEdited)
{
    const std::string strPath = NodePath(pNode);
    if (((pNode->GetFlags() & NF_HIDDEN) != 0) != (pNode == pEdited))
        return "hidden flag at " + strPath;
    const CNode* apChildren[] = { pNode->GetLeft(), pNode->GetRight() };
    const int anSteps[] = { pNode->GetLeftLevelStep(), pNode->GetRightLevelStep() };
    if (apChildren[0] != nullptr && apChildren[0] == apChildren[1])
        return "two links to one node at " + strPath;
    for (int i = 0; i < 2; i++)
    {
        if (apChildren[i] == nullptr)
            continue;
        if (apChildren[i]->GetParent() != pNode)
            return "parent below " + strPath;
        if (apChildren[i]->GetLevel() != pNode->GetLevel() + anSteps[i])
            return "level below " + strPath;
        if (const std::string strBroken = BrokenNode(apChildren[i], pEdited); !strBroken.empty())
            return strBroken;
    }
    return {};
}

bool Holds(CBinTree& tree, CNode* pNode)
{
    return pNode == nullptr || pNode == tree.GetRootNode() || tree.FindParent(pNode) != nullptr;
}

}  // namespace

std::string BrokenRule(CControlDriver& driver)
{
    CFormulaControl& control = driver.Control();
    CBinTree& tree = driver.Tree();
    CNode* pEdited = control.m_pInPlaceEdit ? control.m_pInPlaceEdit->GetNode() : nullptr;
    if ((control.m_pInPlaceEdit != nullptr) != (driver.m_Window.GetBox() != nullptr))
        return "a box without an edit, or an edit without a box";
    if (!Holds(tree, pEdited))
        return "the edited node is not in the tree";
    if (!Holds(tree, tree.GetSelection()))
        return "the selection is not in the tree";
    if (!Holds(tree, control.m_pHoverNode))
        return "the hovered node is not in the tree";
    if (tree.GetRootNode() != nullptr && tree.GetRootNode()->GetParent() != nullptr)
        return "the root has a parent";
    if (tree.GetUndoCount() > 5)
        return "more than five undo steps";
    // Where nothing can be painted a frame stays.
    const CRect client = driver.m_Window.GetClientRect();
    std::vector<CRect> frames;
    if (control.m_pHoverNode != nullptr)
        frames.push_back(control.FormulaToClient(control.m_pHoverNode->m_rect));
    if (!client.IsRectEmpty() && driver.m_Window.GetFrames() != frames)
        return "the dotted frame is not around the hovered node";
    return tree.GetRootNode() != nullptr ? BrokenNode(tree.GetRootNode(), pEdited) : "";
}
