// Value nodes: the face that marks a Greek letter survives formats, and nothing else does.
#include "nodes/value_nodes.h"

#include <gtest/gtest.h>

#include "format/tree_format.h"
#include "nodes/node_fixture.h"

TEST(ValueNodes, KeepOnlyTheFaceSymbol)
{
    CBinTreeFormat format;
    format.m_pVariable->m_strFontName = "Arial";
    format.m_pVariable->m_crColour = RGB(9, 8, 7);
    format.m_pSymbol->m_strFontName = "Arial";
    format.m_pExtra->m_strFontName = "Arial";
    format.m_nSizes[0] = -20;
    const struct
    {
        const char* pszType;
        const char* pszFaceBefore;  // null: that of the default format
        const char* pszFaceAfter;
    } aCases[] = {
        { "NT_VARIABLE", nullptr, "Arial" },  { "NT_VARIABLE", "Symbol", "Symbol" },
        { "NT_VARIABLE", "symbol", "Arial" }, { "NT_VARIABLE", "Courier New", "Arial" },
        { "NT_NUMBER", "Symbol", "Symbol" },  { "NT_CONSTANT", "Arial", "Times New Roman" },
        { "NT_INFINITY", nullptr, "Symbol" }, { "NT_PLANCK", nullptr, "Arial" },
        { "NT_PLUS", "Symbol", "Symbol" },  // by its record
        { "NT_BRACE", nullptr, "Arial" },
    };
    for (const auto& test : aCases)
    {
        CNodePtr pNode = Node(test.pszType);
        if (test.pszFaceBefore != nullptr)
            pNode->SetFontName(test.pszFaceBefore);
        pNode->ApplyFormat(&format);
        EXPECT_EQ(pNode->GetFontName(), test.pszFaceAfter) << test.pszType;
        EXPECT_EQ(pNode->GetLogFont()->lfHeight, -200);
    }
}

TEST(ValueNodes, AGreekLetterStillTakesColourAndSize)
{
    CBinTreeFormat format;
    format.m_pVariable->m_crColour = RGB(9, 8, 7);
    format.m_nSizes[0] = 30;
    CNodePtr pNode = Text("a");
    pNode->SetFontName("Symbol");
    pNode->ApplyFormat(&format);
    EXPECT_EQ(pNode->GetColour(), RGB(9, 8, 7));
    EXPECT_EQ(pNode->GetLogFont()->lfHeight, 300);
    EXPECT_TRUE(pNode->IsItalic());
}

TEST(ValueNodes, CopyTheirValues)
{
    CVariableNode source;
    EXPECT_EQ(source.GetValueAttrA(), 1);
    source.SetValue(-0.5);
    source.SetValueAttrA(3);
    source.SetValueAttrB(4);
    CNumberNode target;
    target.CopyAttributes(&source);
    EXPECT_EQ(target.GetValue(), -0.5);
    EXPECT_EQ(target.GetValueAttrA(), 3);
    EXPECT_EQ(target.GetValueAttrB(), 4);
}
