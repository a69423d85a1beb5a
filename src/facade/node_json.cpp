// Writes nodes with a stack of its own: trees are deeper than a thread's stack.
#include "facade/node_json.h"

#include <vector>

#include "nodes/node.h"
#include "tree/tree_form.h"

std::string JsonText(const CString& strText)
{
    const CString strEscaped = EscapeSymbol(strText);  // ASCII, without quotation marks
    std::string strJson = "\"";
    for (char ch : strEscaped.View())
        strJson.append(ch == '\\' ? 2 : 1, ch);
    return strJson + '"';
}

std::string SignAsJson(const CNode& node)
{
    std::string strFields = "\"type\":" + JsonText(node.m_strType);
    int nKind = 0;
    if (HasShownKind(&node, nKind))
        strFields += ",\"kind\":" + std::to_string(nKind);
    return strFields + ",\"symbol\":" + JsonText(node.m_strSymbol);
}

std::string NodesAsJson(const CNode* pRoot, const std::function<std::string(const CNode&)>& fields)
{
    struct CStep
    {
        const CNode* pNode;
        const char* pszText;  // null: the node, or null, is to be written
    };
    std::string strJson;
    std::vector<CStep> steps = { { pRoot, nullptr } };
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
            strJson += "{" + fields(*step.pNode) + ",\"left\":";
            steps.push_back({ nullptr, "}" });
            steps.push_back({ step.pNode->GetRight(), nullptr });
            steps.push_back({ nullptr, ",\"right\":" });
            steps.push_back({ step.pNode->GetLeft(), nullptr });
        }
    }
    return strJson;
}

std::string TreeAsJson(const CNode* pRoot)
{
    return NodesAsJson(
        pRoot, [](const CNode& node)
        { return SignAsJson(node) + (IsShownGreek(&node) ? ",\"greek\":true" : ""); });
}
