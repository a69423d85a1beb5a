// One parse and what it gave, with the nodes freed at the end.
// Texts may hold NUL characters.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "nodes/node.h"
#include "parser/formula_parser.h"
#include "tree/bin_tree.h"
#include "tree/tree_form.h"

struct CParsed
{
    explicit CParsed(std::string_view strText)
    {
        parser.m_pTree = &tree;
        nResult = parser.Parse(CString(strText.data(), static_cast<int>(strText.size())),
                               &nErrorPos, &strMessage);
        pTop.reset(parser.m_pResult);
    }

    std::string Form() const { return TreeForm(pTop.get()).GetString(); }

    CBinTree tree;
    CFormulaParser parser;
    int nResult;
    WORD nErrorPos = 4711;
    CString strMessage = "untouched";
    std::unique_ptr<CNode> pTop;
};
