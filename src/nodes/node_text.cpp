// How a subtree is written as one line of text.
#include <string_view>

#include "nodes/node.h"
#include "platform/base/deep_call.h"

CString CNode::MakeText(int nForm)
{
    CString strText;
    AppendText(strText, nForm);
    return strText;
}

// The text grows in one buffer: what each level put together anew would be copied once for every
// level above it.
void CNode::AppendText(CString& strText, int nForm)
{
    Descend(
        [&]
        {
            SelectText(nForm);
            const CString strFormat = m_strTextFormat[nForm];
            std::string_view rest = strFormat.View();
            for (int nArg = 0;; ++nArg)
            {
                const std::size_t nPlace = rest.find("%s");
                const std::string_view literal = rest.substr(0, nPlace);
                strText.Append(literal.data(), static_cast<int>(literal.size()));
                if (nPlace == std::string_view::npos)
                    return;
                AppendArgument(strText, nForm, nArg);
                rest.remove_prefix(nPlace + 2);
            }
        });
}

// The arguments of a template are left child, own text, right child.
void CNode::AppendArgument(CString& strText, int nForm, int nArg)
{
    if (nArg == 1)
        strText += m_strTextOwn[nForm].IsEmpty() ? m_strSymbol : m_strTextOwn[nForm];
    else if (CNode* pChild = nArg == 0 ? m_pLeft : nArg == 2 ? m_pRight : nullptr)
        pChild->AppendText(strText, nForm);
}

void CNode::SelectText(int /*nForm*/) {}
