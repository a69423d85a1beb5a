// How a formula is laid out, node by node, as JSON.
#include "facade/layout_form.h"

#include <vector>

#include "facade/node_json.h"
#include "format/node_types.h"
#include "nodes/node.h"
#include "platform/gdi/dc.h"
#include "tree/tree_form.h"

namespace
{
// A name that no type has is a plain node, which measures its text.
bool MeasuresText(const CNode& node)
{
    const ENodeType nType = FindNodeType(node.m_strType);
    return nType == NTI_COUNT || NodeTypeData(nType).bMeasuresText;
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
    std::string strFields = SignAsJson(node);
    strFields += ",\"level\":" + std::to_string(node.m_nLevel);
    strFields += ",\"height\":" + std::to_string(node.m_logFont.lfHeight);
    const CMeasured& measured = node.GetMeasured();
    if (MeasuresText(node))
        strFields += ",\"extent\":" + JsonPair(measured.sign);
    strFields += ",\"own\":" + JsonPair(measured.own);
    strFields += ",\"size\":" + JsonPair(measured.size);
    strFields += ",\"axis\":" + std::to_string(measured.nBaseline);
    return strFields;
}

// What is known of the nodes between measuring and painting, in the order in which they are
// written: a node, its left side, its right side.
std::vector<std::string> FieldsOfAll(const CNode* pRoot)
{
    std::vector<std::string> fields;
    std::vector<const CNode*> open = { pRoot };
    while (!open.empty())
    {
        const CNode* pNode = open.back();
        open.pop_back();
        fields.push_back(FieldsOf(*pNode));
        if (pNode->GetRight() != nullptr)
            open.push_back(pNode->GetRight());
        if (pNode->GetLeft() != nullptr)
            open.push_back(pNode->GetLeft());
    }
    return fields;
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
    const std::vector<std::string> fields = FieldsOfAll(pRoot);
    formula.DrawTree(&screen, CRect(0, 0, 0, 0));
    size_t nNext = 0;
    const auto write = [&](const CNode& node)
    {
        return fields[nNext++] + ",\"rect\":" + JsonRect(node.m_rect);
    };
    return strJson + NodesAsJson(pRoot, write) + JsonReport(report) + "}";
}
