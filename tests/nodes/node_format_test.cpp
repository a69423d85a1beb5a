// What formatting writes into nodes, and what it leaves as it was.
#include <gtest/gtest.h>

#include <climits>
#include <tuple>

#include "format/tree_format.h"
#include "nodes/brace_nodes.h"
#include "nodes/node_fixture.h"
#include "nodes/value_nodes.h"

namespace
{
const CStringArray& Faces(const CNodePtr& pNode)
{
    return static_cast<CTypedNode&>(*pNode).m_saFonts;
}
}  // namespace

TEST(NodeFormat, LevelsSelectTheSizeAndTypesTheRecord)
{
    CBinTreeFormat format;
    format.m_pVariable->m_strFontName = "A face name that is far longer than a font can hold";
    format.m_pVariable->m_Style[0] = 1;
    format.m_pVariable->m_Style[1] = 7;
    format.m_nSizes[1] = INT_MAX;
    // Of a node; level and height of the one below.
    const std::tuple<int, int, int, int> aCases[] = {
        { 0, 0, 0, -120 }, { 0, 1, 1, -10 },  // ten times the largest number, in 32 bits
        { 1, 1, 2, -80 },  { 4, 1, 5, -80 }, { -3, 1, -2, -120 }, { INT_MAX, 1, INT_MIN, -120 },
    };
    for (const auto& [nLevel, nStep, nLevelBelow, nHeight] : aCases)
    {
        const CNodePtr pNode = Sketch("(STANDARD a)");
        pNode->m_nLeftLevelStep = nStep;
        pNode->SetLevel(nLevel);
        pNode->ApplyFormat(&format);
        const CNode* pLeft = pNode->GetLeft();
        EXPECT_EQ(pLeft->GetLevel(), nLevelBelow);
        EXPECT_EQ(pLeft->GetLogFont()->lfHeight, nHeight) << nLevel;
        EXPECT_EQ(pLeft->GetFontName(), "A face name that is far longer ");
        EXPECT_TRUE(pLeft->IsBold());
        EXPECT_FALSE(pLeft->IsItalic());
    }
}

// The face that marks a Greek letter survives formats, and nothing else does.
TEST(NodeFormat, ValuesKeepOnlyTheFaceSymbol)
{
    CBinTreeFormat format;
    format.m_pVariable->m_strFontName = "Arial";
    format.m_pVariable->m_crColour = RGB(9, 8, 7);
    format.m_pSymbol->m_strFontName = "Arial";
    format.m_pExtra->m_strFontName = "Arial";
    format.m_nSizes[0] = -20;
    // The face before (null: that of the default format), and after it.
    const std::tuple<const char*, const char*, const char*> aCases[] = {
        { "(VARIABLE)", nullptr, "Arial" },  { "(VARIABLE)", "Symbol", "Symbol" },
        { "(VARIABLE)", "symbol", "Arial" }, { "(VARIABLE)", "Courier New", "Arial" },
        { "(NUMBER)", "Symbol", "Symbol" },  { "(CONSTANT)", "Arial", "Times New Roman" },
        { "(INFINITY)", nullptr, "Symbol" }, { "(PLANCK)", nullptr, "Arial" },
        { "(PLUS)", "Symbol", "Symbol" },  // by its record
        { "(BRACE)", nullptr, "Arial" },
    };
    for (const auto& [pszSketch, pszFaceBefore, pszFaceAfter] : aCases)
    {
        const CNodePtr pNode = Sketch(pszSketch);
        if (pszFaceBefore != nullptr)
            pNode->SetFontName(pszFaceBefore);
        pNode->ApplyFormat(&format);
        EXPECT_EQ(pNode->GetFontName(), pszFaceAfter) << pszSketch;
        EXPECT_EQ(pNode->GetLogFont()->lfHeight, -200);
        if (pNode->GetTypeName() == "NT_VARIABLE")
        {
            EXPECT_EQ(pNode->GetColour(), RGB(9, 8, 7));
            EXPECT_TRUE(pNode->IsItalic());
        }
    }
}

// The table of names is shared until a face differs.
TEST(NodeFormat, FunctionsTakeTheFaceForAllNames)
{
    CBinTreeFormat format;
    format.m_pFunction->m_strFontName = "Arial";
    const CNodePtr pChanged = Sketch("(FUNC)");
    const CNodePtr pOther = Sketch("(FUNC)");
    EXPECT_TRUE(Faces(pChanged).IsSharedWith(Faces(pOther)));
    pChanged->ApplyFormat(&format);
    for (int nRow = 0; nRow < 22; ++nRow)
    {
        const char* pszOld = nRow == 20 ? "Symbol" : "Times New Roman";
        EXPECT_EQ(Faces(pChanged)[nRow], nRow < 20 ? "Arial" : pszOld) << nRow;
        EXPECT_EQ(Faces(pOther)[nRow], pszOld) << nRow;
    }
    CTestDC dc;
    pChanged->GetOwnSize(&dc);
    EXPECT_EQ(pChanged->GetFontName(), "Arial");
    pChanged->ApplyFormat(&g_DefaultFormat);
    EXPECT_EQ(Faces(pChanged)[19], "Times New Roman");
}

TEST(NodeFormat, LinkingAloneDoesNotFormat)
{
    CNode node;
    node.SetLevel(1);
    CNodePtr pChild = Sketch("a");
    node.LinkRight(pChild.get());
    EXPECT_EQ(pChild->GetLevel(), 1);
    EXPECT_EQ(pChild->GetLogFont()->lfHeight, -120);
    node.SetRight(pChild.release());
    EXPECT_EQ(node.GetRight()->GetLogFont()->lfHeight, -100);
}

TEST(NodeAttributes, CopyAcrossClasses)
{
    const CNodePtr pSource = Sketch("(BRACE[7] \"s\")");
    pSource->m_nBaseline = 31;
    pSource->GetLogFont()->lfWidth = 9;
    const CNodePtr pTarget = Sketch("(NUMBER)");
    pTarget->CopyAttributes(pSource.get());
    EXPECT_EQ(pTarget->GetTypeName(), "NT_BRACE");
    EXPECT_EQ(pTarget->m_nBaseline, 31);
    EXPECT_EQ(pTarget->GetLogFont()->lfWidth, 9);
    EXPECT_EQ(pTarget->MakeText(0), "s") << "the symbol in the template of the target's own class";
    CPoisonNode typed;
    typed.CopyAttributes(pSource.get());
    EXPECT_EQ(typed.GetKind(), 7);

    CVariableNode source;
    source.SetValue(-0.5);
    source.SetValueAttrA(3);
    source.SetValueAttrB(4);
    CNumberNode target;
    target.CopyAttributes(&source);
    EXPECT_EQ(target.GetValue(), -0.5);
    EXPECT_EQ(target.GetValueAttrA(), 3);
    EXPECT_EQ(target.GetValueAttrB(), 4);
}
