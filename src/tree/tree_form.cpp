// A tree written as one line of text, without recursion: trees can be deep.
#include "tree/tree_form.h"

#include <string>
#include <string_view>
#include <vector>

#include "nodes/typed_node.h"
#include "nodes/value_nodes.h"

namespace
{

constexpr std::string_view s_strTypePrefix = "NT_";

void AppendEscaped(std::string& strForm, std::string_view strText)
{
    constexpr char achDigits[] = "0123456789ABCDEF";
    for (char ch : strText)
    {
        const BYTE nCode = static_cast<BYTE>(ch);
        if (nCode >= ' ' && nCode <= '~' && ch != '"' && ch != '\\')
        {
            strForm += ch;
            continue;
        }
        strForm += "\\x";
        strForm += achDigits[nCode >> 4];
        strForm += achDigits[nCode & 15];
    }
}

void AppendHead(std::string& strForm, const CNode* pNode)
{
    std::string_view strType = pNode->m_strType.View();
    if (strType.starts_with(s_strTypePrefix))
        strType.remove_prefix(s_strTypePrefix.size());
    strForm += '(';
    AppendEscaped(strForm, strType);
    int nKind;
    if (HasShownKind(pNode, nKind))
        strForm += '[' + std::to_string(nKind) + ']';
    strForm += " \"";
    AppendEscaped(strForm, pNode->m_strSymbol.View());
    strForm += '"';
    if (IsShownGreek(pNode))
        strForm += " @Symbol";
}

CString ToText(const std::string& str)
{
    return CString(str.data(), static_cast<int>(str.size()));
}

}  // namespace

bool HasShownKind(const CNode* pNode, int& nKind)
{
    // A damaged archive can give a node of another class the name of a type with kinds.
    const auto* pTyped = dynamic_cast<const CTypedNode*>(pNode);
    if (pTyped == nullptr)
        return false;
    const ENodeType nType = FindNodeType(pNode->m_strType);
    if (nType == NTI_COUNT || NodeTypeData(nType).nKinds == KINDS_NONE)
        return false;
    nKind = pTyped->GetKind();
    return true;
}

bool IsShownGreek(const CNode* pNode)
{
    return dynamic_cast<const CValueNode*>(pNode) != nullptr &&
           std::string_view(pNode->GetLogFont()->lfFaceName) == "Symbol";
}

CString EscapeSymbol(const CString& strSymbol)
{
    std::string strForm;
    AppendEscaped(strForm, strSymbol.View());
    return ToText(strForm);
}

CString TreeForm(const CNode* pNode)
{
    if (pNode == nullptr)
        return "-";
    struct COpenNode
    {
        const CNode* pNode;
        int nDone;  // children that are written
    };
    std::string strForm;
    std::vector<COpenNode> open;
    AppendHead(strForm, pNode);
    open.push_back({ pNode, 0 });
    while (!open.empty())
    {
        COpenNode& top = open.back();
        if (top.nDone == 2)
        {
            strForm += ')';
            open.pop_back();
            continue;
        }
        const CNode* pChild = top.nDone == 0 ? top.pNode->GetLeft() : top.pNode->GetRight();
        top.nDone++;
        strForm += ' ';
        if (pChild == nullptr)
        {
            strForm += '-';
            continue;
        }
        AppendHead(strForm, pChild);
        open.push_back({ pChild, 0 });
    }
    return ToText(strForm);
}
