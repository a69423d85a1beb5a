#include "nodes/function_nodes.h"

#include "format/tree_format.h"
#include "nodes/arrange_case.h"
#include "platform/base/exception.h"

namespace
{
const CStringArray& Faces(const CNodePtr& pNode)
{
    return static_cast<CTypedNode&>(*pNode).m_saFonts;
}
}  // namespace

TEST(FuncNode, TakesNameFaceAndTextByKind)
{
    CTestDC dc;
    const struct
    {
        int nKind;
        const char* pszName;
        const char* pszFace;
        const char* pszText;
    } aCases[] = {
        { 0, "sin", "Times New Roman", "SINx" },
        { 3, "cot", "Times New Roman", "COTANx" },
        { 7, "arccot", "Times New Roman", "3.141592654D0/2.0D0-ATANx" },
        { 11, "coth", "Times New Roman", "1.0D0/TANHx" },
        { 15, "arcoth", "Times New Roman", "ACOTANHx" },
        { 17, "ln", "Times New Roman", "LOGx" },
        { 19, "lg", "Times New Roman", "LOG10x" },
        { 20, "G", "Symbol", "GAMMAx" },
        { 21, "-", "Times New Roman", "MINUSx" },
    };
    for (const auto& row : aCases)
    {
        const CNodePtr pNode = Kind(row.nKind, Node("NT_FUNC", nullptr, Text("x")));
        const int nLength = static_cast<int>(std::strlen(row.pszName));
        EXPECT_EQ(pNode->GetOwnSize(&dc), CRect(0, 0, 8 * nLength + 2, 16));
        EXPECT_EQ(pNode->GetSymbol(), CString(row.pszName));
        EXPECT_EQ(pNode->GetFontName(), CString(row.pszFace)) << row.nKind;
        EXPECT_EQ(pNode->MakeText(0), CString(row.pszText));
    }
}

TEST(FuncNode, ShowsItsSymbolWithoutAKind)
{
    CTestDC dc;
    const CNodePtr pNode = Kind(-1, Node("NT_FUNC"));
    pNode->SetSymbol("median");
    EXPECT_EQ(pNode->GetOwnSize(&dc), CRect(0, 0, 50, 16));
    PaintAt(*pNode, { 0, 0 });
    EXPECT_EQ(pNode->GetSymbol(), CString("median"));
    EXPECT_THROW(pNode->MakeText(0), CInvalidArgException*);
    EXPECT_THROW(Kind(22, Node("NT_FUNC"))->Measure(&dc), CInvalidArgException*);
    EXPECT_THROW(Kind(-2, Node("NT_FUNC"))->Measure(&dc), CInvalidArgException*);
}

TEST(FuncNode, TakesTheFormatsFaceForAllNames)
{
    CBinTreeFormat format;
    format.m_pFunction->m_strFontName = "Arial";
    const CNodePtr pChanged = Node("NT_FUNC");
    const CNodePtr pOther = Node("NT_FUNC");
    pChanged->ApplyFormat(&format);
    for (int nRow = 0; nRow < 20; ++nRow)
    {
        EXPECT_EQ(Faces(pChanged)[nRow], CString("Arial"));
        EXPECT_EQ(Faces(pOther)[nRow], CString("Times New Roman"));
    }
    EXPECT_EQ(Faces(pChanged)[20], CString("Symbol"));
    EXPECT_EQ(Faces(pChanged)[21], CString("Times New Roman"));

    CTestDC dc;
    pChanged->GetOwnSize(&dc);
    EXPECT_EQ(pChanged->GetFontName(), CString("Arial"));

    pChanged->ApplyFormat(&g_DefaultFormat);
    EXPECT_EQ(Faces(pChanged)[19], CString("Times New Roman"));
}

TEST(FuncNode, SharesItsTableUntilAFaceDiffers)
{
    const CNodePtr pOne = Node("NT_FUNC");
    const CNodePtr pTwo = Node("NT_FUNC");
    pOne->ApplyFormat(&g_DefaultFormat);
    EXPECT_TRUE(Faces(pOne).IsSharedWith(Faces(pTwo)));
}

// "sin" is 26 wide; the bracket 8 + 1 + 13 + 1 + 8 + 1.
TEST(FuncNode, StandsInFrontOfItsArgument)
{
    const CNodePtr pRoot = Node("NT_FUNC", nullptr, Node("NT_BRACE", Text("x")));
    EXPECT_EQ(PaintAt(*pRoot, { 10, 20 }), CRect(10, 20, 71, 36));
    EXPECT_EQ(pRoot->m_rect, CRect(11, 20, 37, 36));
    EXPECT_EQ(pRoot->GetRight()->m_rect, CRect(38, 20, 69, 36));
    ExpectHits(*pRoot, { 10, 20 },
               { { { 20, 30 }, pRoot.get(), { 11, 20, 37, 36 } },
                 { { 40, 30 }, pRoot->GetRight(), { 38, 20, 69, 36 } },
                 { { 50, 30 }, pRoot->GetRight()->GetLeft(), { 48, 20, 58, 36 } } });
}

TEST(UserFuncNode, ShowsItsSymbol)
{
    CTestDC dc;
    EXPECT_EQ(Node("NT_USERFUNC")->GetOwnSize(&dc), CRect(0, 0, 10, 16));
    EXPECT_EQ(Node("NT_USERFUNC")->GetSymbol(), CString("f"));
    EXPECT_EQ(Node("NT_EXTFUNC")->GetOwnSize(&dc), CRect(0, 0, 2, 16));
}
