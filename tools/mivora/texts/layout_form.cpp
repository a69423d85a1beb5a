#include "texts/layout_form.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "nodes/node.h"
#include "platform/gdi/dc.h"
#include "tree/tree_form.h"

namespace
{
// Types whose own part has no text to be measured.
constexpr std::string_view s_aTextless[] = { "NT_DIVISION", "NT_POWERTO", "NT_PLACEHOLDER",
                                             "NT_RANGE",    "NT_INDEX",   "NT_MATRIX",
                                             "NT_LINE",     "NT_ELEMENT" };

// A node as it is between measuring and painting.
struct CNodeHead
{
    const CNode* pNode;
    std::string strFields;
};

std::string JsonText(const CString& strText)
{
    const CString strEscaped = EscapeSymbol(strText);  // ASCII, without quotation marks
    std::string strJson = "\"";
    for (char ch : strEscaped.View())
        strJson.append(ch == '\\' ? 2 : 1, ch);
    return strJson + '"';
}

std::string JsonPair(const CSize& size)
{
    return "[" + std::to_string(size.cx) + "," + std::to_string(size.cy) + "]";
}

std::string JsonRect(const CRect& rect)
{
    return "[" + std::to_string(rect.left) + "," + std::to_string(rect.top) + "," +
           std::to_string(rect.right) + "," + std::to_string(rect.bottom) + "]";
}

std::string FieldsOf(const CNode& node)
{
    std::string strFields = "\"type\":" + JsonText(node.m_strType);
    int nKind = 0;
    if (HasShownKind(&node, nKind))
        strFields += ",\"kind\":" + std::to_string(nKind);
    strFields += ",\"symbol\":" + JsonText(node.m_strSymbol);
    strFields += ",\"level\":" + std::to_string(node.m_nLevel);
    strFields += ",\"height\":" + std::to_string(node.m_logFont.lfHeight);
    if (std::find(std::begin(s_aTextless), std::end(s_aTextless), node.m_strType.View()) ==
        std::end(s_aTextless))
    {
        strFields += ",\"extent\":" + JsonPair(node.GetSignExtent());
    }
    strFields += ",\"own\":" + JsonPair(node.GetMeasuredOwn());
    strFields += ",\"size\":" + JsonPair(node.GetMeasuredSize());
    strFields += ",\"axis\":" + std::to_string(node.GetMeasuredBaseline());
    return strFields;
}

// The nodes in the order in which they are written: a node, its left side, its right side.
std::vector<CNodeHead> HeadsOf(const CNode* pRoot)
{
    std::vector<CNodeHead> heads;
    std::vector<const CNode*> open = { pRoot };
    while (!open.empty())
    {
        const CNode* pNode = open.back();
        open.pop_back();
        heads.push_back({ pNode, FieldsOf(*pNode) });
        if (pNode->GetRight() != nullptr)
            open.push_back(pNode->GetRight());
        if (pNode->GetLeft() != nullptr)
            open.push_back(pNode->GetLeft());
    }
    return heads;
}

// Writes the nodes without recursion: a step is a node or the text behind one.
std::string JsonTree(const std::vector<CNodeHead>& heads)
{
    struct CStep
    {
        const CNode* pNode;
        const char* pszText;  // null: the node, or null, is to be written
    };
    std::string strJson;
    size_t nNext = 0;
    std::vector<CStep> steps = { { heads.front().pNode, nullptr } };
    while (!steps.empty())
    {
        const CStep step = steps.back();
        steps.pop_back();
        if (step.pszText != nullptr)
        {
            strJson += step.pszText;
        }
        else if (step.pNode == nullptr)
        {
            strJson += "null";
        }
        else
        {
            strJson += "{" + heads[nNext++].strFields +
                       ",\"rect\":" + JsonRect(step.pNode->m_rect) + ",\"left\":";
            steps.push_back({ nullptr, "}" });
            steps.push_back({ step.pNode->GetRight(), nullptr });
            steps.push_back({ nullptr, ",\"right\":" });
            steps.push_back({ step.pNode->GetLeft(), nullptr });
        }
    }
    return strJson;
}

// The fields of what there is to tell; a sound text has none.
std::string JsonReport(const CParseReport& report)
{
    std::string strJson;
    if (report.HasError())
    {
        strJson = ",\"error\":{\"position\":" + std::to_string(report.nPosition) +
                  ",\"message\":" + JsonText(report.strMessage) + "}";
    }
    for (const CDroppedText& text : report.dropped)
    {
        strJson += &text == &report.dropped.front() ? ",\"dropped\":[" : ",";
        strJson += "{\"position\":" + std::to_string(text.nPosition) +
                   ",\"length\":" + std::to_string(text.nLength) + "}";
    }
    return report.dropped.empty() ? strJson : strJson + "]";
}
}  // namespace

std::string LayoutForm(CFormulaOut& formula, const CParseReport& report)
{
    CClientDC screen(nullptr);
    const CRect rect = formula.GetFormulaRect(&screen);
    std::string strJson =
        "{\"gap\":" + std::to_string(g_nTimesGap) + ",\"rect\":" + JsonRect(rect) + ",\"root\":";
    const CNode* pRoot = formula.m_Tree.GetRootNode();
    if (pRoot == nullptr)
        return strJson + "null" + JsonReport(report) + "}";
    const std::vector<CNodeHead> heads = HeadsOf(pRoot);
    formula.DrawTree(&screen, CRect(0, 0, 0, 0));
    return strJson + JsonTree(heads) + JsonReport(report) + "}";
}
