// One parse and what it gave, with the nodes freed at the end; rows of texts with their trees.
// Texts may hold NUL characters.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "nodes/node.h"
#include "parser/formula_parser.h"
#include "parser/short_form.h"
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

// The gap of products that a parse starts with, and those of products without and with a sign.
constexpr int GAP_AT_START = -6;
constexpr int GAP_BARE = -5;
constexpr int GAP_SIGN = 2;

// A text, its tree in the short notation, where reading ended (0: at the end), and the gap.
struct CParseCase
{
    const char* pszText;
    const char* pszForm;
    int nErrorPos = 0;
    int nGap = GAP_AT_START;
};

template <std::size_t N>
void ExpectParses(const CParseCase (&aCases)[N])
{
    for (const CParseCase& row : aCases)
    {
        SCOPED_TRACE(row.pszText);
        const CParsed parsed(row.pszText);
        EXPECT_EQ(parsed.nResult, 1);
        EXPECT_EQ(parsed.Form(), Long(row.pszForm));
        EXPECT_EQ(parsed.nErrorPos, row.nErrorPos);
        EXPECT_EQ(g_nTimesGap, row.nGap);
        EXPECT_EQ(
            parsed.strMessage.GetString(),
            row.nErrorPos == 0 ? "" : "Error at Position " + std::to_string(row.nErrorPos) + "!");
    }
}
