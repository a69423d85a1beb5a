// The archive form of every class, byte for byte, and what loading leaves in the nodes.
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "format/tree_format.h"
#include "nodes/layout_pass.h"
#include "nodes/node_fixture.h"
#include "nodes/random_tree.h"
#include "nodes/value_nodes.h"
#include "platform/base/archive.h"
#include "platform/base/exception.h"
#include "platform/base/file.h"

namespace
{
std::string Number(unsigned n)
{
    return { static_cast<char>(n), static_cast<char>(n >> 8), static_cast<char>(n >> 16),
             static_cast<char>(n >> 24) };
}

std::string ShortText(const std::string& str)
{
    return static_cast<char>(str.size()) + str;
}

// A new node of each type. The fields are those of its record, in their order; the level, the
// colour (black), rectangle and base line are 0.
struct CRow
{
    const char* pszType;
    unsigned nFlags;
    int nPriority;
    int nLeftStep;
    int nRightStep;
    const char* pszSymbol;
    const char* pszDescription;
    const char* pszFace;  // null: the record has no font
    unsigned nItalic;
    unsigned nBold;
    enum
    {
        nothing,
        kind,
        value
    } eAddition = nothing;
};

const char* const TNR = "Times New Roman";

// clang-format off
const CRow s_aRows[] = {
    { "NT_STANDARD",    0, -1, 0, 0, "",      "",                       TNR,        0, 0 },
    { "NT_VARIABLE",    3,  0, 0, 0, "var",   "variable",               TNR,        1, 0, CRow::value },
    { "NT_CONSTANT",    3, -1, 0, 0, "const", "",                       TNR,        1, 0, CRow::value },
    { "NT_NUMBER",      3,  0, 0, 0, "0.0",   "number",                 TNR,        0, 0, CRow::value },
    { "NT_INFINITY",    2,  1, 0, 0, "?",     "infinity",               "Symbol",   0, 0, CRow::value },
    { "NT_PLANCK",      2,  1, 0, 0, "h",     "planck",                 "MT Extra", 0, 0, CRow::value },
    { "NT_LAMBDA",      2,  1, 0, 0, "D",     "Lambda",                 "MT Extra", 0, 0, CRow::value },
    { "NT_DIVISION",    2,  4, 0, 0, "/",     "over",                   "Symbol",   0, 0, CRow::kind },
    { "NT_NTHROOT",     2,  1, 0, 1, "\xD6",  "n-th root",              "Symbol",   0, 0 },
    { "NT_ROOT",        2,  1, 0, 1, "\xD6",  "square root",            "Symbol",   0, 0 },
    { "NT_POWERTO",     2,  1, 0, 1, "^",     "power to",               "Symbol",   0, 0 },
    { "NT_PLACEHOLDER", 2, -1, 0, 0, "",      "",                       TNR,        0, 0 },
    { "NT_BRACE",       2,  1, 0, 0, "",      "brace",                  "Symbol",   0, 0, CRow::kind },
    { "NT_POISON",      2, -1, 0, 0, "",      "brace",                  "Symbol",   0, 0, CRow::kind },
    { "NT_EQUATION",    2, 20, 0, 0, "",      "equation",               "Symbol",   0, 0, CRow::kind },
    { "NT_PARTDERIVE",  2,  1, 0, 0, "?",     "partial d/dt",           "Symbol",   0, 0 },
    { "NT_DERIVE",      2,  1, 0, 0, "d",     "d/dt",                   TNR,        0, 0 },
    { "NT_SUM",         2, -1, 0, 0, "\xE5",  "sum",                    nullptr,    0, 0 },
    { "NT_PROD",        2, -1, 0, 0, "?",     "product",                nullptr,    0, 0 },
    { "NT_RANGE",       0, -1, 1, 1, "range", "placeholder for ranges", "Symbol",   0, 0 },
    { "NT_INTEGRAL",    2, -1, 0, 0, "",      "Integral",               nullptr,    0, 0, CRow::kind },
    { "NT_INTEGRAND",   0, -1, 0, 0, "d",     "integrand",              TNR,        0, 0 },
    { "NT_FUNC",        2, -1, 0, 0, "",      "function",               TNR,        0, 1, CRow::kind },
    { "NT_USERFUNC",    3, -1, 0, 0, "f",     "user function",          TNR,        0, 1, CRow::kind },
    { "NT_EXTFUNC",     2, -1, 0, 0, "",      "",                       TNR,        0, 1, CRow::kind },
    { "NT_INDEX",       0,  1, 1, 1, "",      "",                       TNR,        0, 0 },
    { "NT_VECTOR",      2,  1, 0, 0, "",      "overline",               "Symbol",   0, 0, CRow::kind },
    { "NT_LIMES",       2,  1, 1, 0, "lim",   "lim",                    TNR,        0, 1 },
    { "NT_OPERATOR",    2,  1, 0, 0, "?",     "->",                     "Symbol",   0, 0, CRow::kind },
    { "NT_ARROWS",      2,  1, 0, 0, "",      "arrow",                  "Symbol",   0, 0, CRow::kind },
    { "NT_BINOMIAL",    2,  1, 0, 0, "",      "",                       TNR,        0, 1 },
    { "NT_MATRIX",      2,  1, 0, 0, "",      "",                       TNR,        0, 0 },
    { "NT_LINE",        2,  1, 0, 0, "",      "",                       TNR,        0, 0 },
    { "NT_ELEMENT",     2,  1, 0, 0, "",      "",                       TNR,        0, 0 },
    { "NT_NABLA",       2,  1, 0, 0, "?",     "nabla",                  "Symbol",   0, 0 },
    { "NT_LAPLACE",     2,  1, 0, 0, "D",     "laplace",                "Symbol",   0, 0 },
    { "NT_PLUS",        2,  6, 0, 0, "+",     "plus",                   "Symbol",   0, 0, CRow::kind },
    { "NT_MINUS",       2,  6, 0, 0, "-",     "minus",                  "Symbol",   0, 0, CRow::kind },
    { "NT_TIMES",       2,  4, 0, 0, "\xB4",  "times",                  "Symbol",   0, 0, CRow::kind },
    { "NT_CROSS",       2,  4, 0, 0, "?",     "vectorproduct",          "Symbol",   0, 0, CRow::kind },
    { "NT_LABEL",       1,  0, 1, 1, "label", "label",                  TNR,        0, 0 },
};
// clang-format on
static_assert(std::size(s_aRows) == NTI_COUNT);

const CRow& RowOf(const std::string& strType)
{
    return *std::find_if(std::begin(s_aRows), std::end(s_aRows),
                         [&](const CRow& row) { return row.pszType == strType; });
}

// strChildren: items 1 to 4.
std::string RecordBytes(const CRow& row, const std::string& strChildren)
{
    std::string strBytes = strChildren + Number(row.nFlags) +
                           Number(static_cast<unsigned>(row.nPriority)) + Number(0) +
                           Number(static_cast<unsigned>(row.nLeftStep)) +
                           Number(static_cast<unsigned>(row.nRightStep)) + ShortText(row.pszType) +
                           ShortText(row.pszSymbol) + ShortText(row.pszDescription) + Number(0) +
                           std::string(16, '\0') + Number(0);
    if (row.pszFace != nullptr)
        strBytes += ShortText(row.pszFace) + Number(row.nItalic) + Number(row.nBold);
    if (row.eAddition == CRow::kind)
        strBytes += Number(0);
    else if (row.eAddition == CRow::value)
        strBytes += std::string(8, '\0') + Number(1) + Number(1);
    return strBytes;
}

const std::string c_strNoChildren(2, '\0');

std::string BytesOf(CNode& node)
{
    CBinTree tree;
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    node.SerializeNode(ar, &tree);
    ar.Close();
    return { reinterpret_cast<const char*>(file.GetData()),
             static_cast<std::size_t>(file.GetLength()) };
}

void LoadInto(CNode& node, std::string strBytes)
{
    CBinTree tree;
    CMemFile file(reinterpret_cast<BYTE*>(strBytes.data()), static_cast<UINT>(strBytes.size()));
    CArchive ar(&file, CArchive::load);
    node.SerializeNode(ar, &tree);
    EXPECT_EQ(file.GetPosition(), file.GetLength());
    ar.Close();
}

CNodePtr Loaded(const CString& strType, const std::string& strBytes)
{
    CNodePtr pNode(CBinTree().CreateNode(strType));
    LoadInto(*pNode, strBytes);
    return pNode;
}

// Which exception loading ends in.
std::string Refusal(const CString& strType, const std::string& strBytes)
{
    try
    {
        Loaded(strType, strBytes);
    }
    catch (CArchiveException* pException)
    {
        const int nCause = pException->m_cause;
        pException->Delete();
        return nCause == CArchiveException::badClass    ? "class"
               : nCause == CArchiveException::badIndex  ? "limit"
               : nCause == CArchiveException::endOfFile ? "end"
                                                        : "other";
    }
    return "none";
}

// What loading can set in a node and the nodes below it.
void AppendState(CNode* pNode, std::string& strState)
{
    if (pNode == nullptr)
    {
        strState += '-';
        return;
    }
    const LOGFONT lf = *pNode->GetLogFont();
    strState.append(reinterpret_cast<const char*>(&lf), sizeof(lf));
    strState += Number(pNode->GetColour()) + Number(static_cast<unsigned>(pNode->GetLevel())) +
                pNode->GetTypeName().GetString() + pNode->GetSymbol().GetString();
    if (auto* pTyped = dynamic_cast<CTypedNode*>(pNode))
    {
        for (int i = 0; i < pTyped->m_saFonts.GetSize(); ++i)
            strState += pTyped->m_saFonts[i].GetString();
    }
    for (CNode* pChild : { pNode->GetLeft(), pNode->GetRight() })
    {
        EXPECT_TRUE(pChild == nullptr || pChild->GetParent() == pNode);
        AppendState(pChild, strState);
    }
}

std::string StateOf(CNode& node)
{
    std::string strState;
    AppendState(&node, strState);
    return strState;
}

std::string ChainBytes(int nLinks)
{
    CNodePtr pTop = Text("x");
    for (int i = 0; i < nLinks; ++i)
    {
        CNodePtr pNode(CBinTree().CreateNode("NT_BRACE"));
        pNode->LinkLeft(pTop.release());
        pTop = std::move(pNode);
    }
    return BytesOf(*pTop);
}
}  // namespace

TEST(NodeArchive, HasTheFormOfEveryClass)
{
    for (const CRow& row : s_aRows)
    {
        std::string strChildren = c_strNoChildren;
        if (row.pszFace == nullptr)  // a big operator, with its range
        {
            strChildren = ShortText("NT_RANGE") + RecordBytes(RowOf("NT_RANGE"), c_strNoChildren) +
                          std::string(1, '\0');
        }
        const std::string strBytes = RecordBytes(row, strChildren);
        CNodePtr pNode(CBinTree().CreateNode(row.pszType));
        EXPECT_EQ(BytesOf(*pNode), strBytes) << row.pszType;
        EXPECT_EQ(BytesOf(*Loaded(row.pszType, strBytes)), strBytes) << row.pszType;
    }
}

TEST(NodeArchive, ChildrenStandBeforeTheirParent)
{
    const std::string strLeaf = RecordBytes(RowOf("NT_NUMBER"), c_strNoChildren);
    const std::string strBytes =
        RecordBytes(RowOf("NT_PLUS"), std::string(1, '\0') + ShortText("NT_NUMBER") + strLeaf);
    EXPECT_EQ(BytesOf(*Node("NT_PLUS", nullptr, Node("NT_NUMBER"))), strBytes);
}

// The plain order formats at every link; the loader does so once, and must end in the same.
TEST(NodeArchive, LeavesWhatFormattingAtEveryLinkLeaves)
{
    for (unsigned nSeed = 0; nSeed < 2000; ++nSeed)
    {
        CRandomTree tree(nSeed, { 30, true });
        const CString strType = tree.GetRoot()->GetTypeName();
        const std::string strBytes = BytesOf(*tree.GetRoot());
        CLayoutPass::s_bPlainRecursion = true;
        CNodePtr pPlain = Loaded(strType, strBytes);
        CLayoutPass::s_bPlainRecursion = false;
        CNodePtr pOnce = Loaded(strType, strBytes);
        ASSERT_EQ(StateOf(*pOnce), StateOf(*pPlain)) << nSeed;
        ASSERT_EQ(BytesOf(*pOnce), BytesOf(*pPlain)) << nSeed;
    }
}

TEST(NodeArchive, StoredFontsHoldOnlyWhereNoLinkFormatsThem)
{
    CNodePtr pSource = Node("NT_PLUS", Text("a"), Node("NT_NUMBER"));
    pSource->SetFontName("Arial");
    pSource->SetBold(1);
    pSource->GetLeft()->SetFontName("Symbol");
    pSource->GetRight()->SetFontName("Arial");
    CNodePtr pLoaded = Loaded("NT_PLUS", BytesOf(*pSource));
    EXPECT_EQ(pLoaded->GetFontName(), "Arial");
    EXPECT_TRUE(pLoaded->IsBold());
    EXPECT_EQ(pLoaded->GetLeft()->GetFontName(), "Symbol");
    EXPECT_EQ(pLoaded->GetRight()->GetFontName(), "Times New Roman");
}

TEST(NodeArchive, ABigOperatorReadsIntoItsOwnRange)
{
    CNodePtr pSource = Node("NT_SUM");
    pSource->GetLeft()->SetLeft(Text("i").release());
    std::string strBytes = BytesOf(*pSource);
    strBytes.replace(strBytes.find("NT_RANGE"), 8, "NT_xxxxx");  // item 1 is not looked at
    CNodePtr pSum(CBinTree().CreateNode("NT_SUM"));
    CNode* pRange = pSum->GetLeft();
    LoadInto(*pSum, strBytes);
    ASSERT_EQ(pSum->GetLeft(), pRange);
    EXPECT_EQ(pRange->GetLeft()->GetSymbol(), "i");
    EXPECT_EQ(pRange->GetLeft()->GetLevel(), 1);

    const std::string strWithout = RecordBytes(RowOf("NT_SUM"), c_strNoChildren);
    LoadInto(*pSum, strWithout);
    EXPECT_EQ(pSum->GetLeft(), pRange) << "a record without a range leaves it";
}

TEST(NodeArchive, LoadingReplacesWhatHungThere)
{
    CNodePtr pNode = Node("NT_PLUS", Text("old"), Text("old"));
    LoadInto(*pNode, BytesOf(*Node("NT_PLUS", Text("new"))));
    EXPECT_EQ(pNode->GetLeft()->GetSymbol(), "new");
    EXPECT_EQ(pNode->GetRight(), nullptr);
}

TEST(NodeArchive, TakesTheTypeOfTheRecordAndTheClassOfTheName)
{
    std::string strBytes = BytesOf(*Node("NT_BRACE", Text("a")));
    strBytes.replace(strBytes.find("NT_VARIABLE"), 11, "NT_USERFUNC");
    // Read as a user function, the record goes on to a kind of 4 bytes where a variable has 16.
    EXPECT_EQ(Refusal("NT_BRACE", strBytes), "class");

    strBytes = BytesOf(*Node("NT_BRACE", Text("a")));
    strBytes.replace(strBytes.rfind("NT_VARIABLE"), 11, "NT_USERFUNC");
    CNodePtr pLoaded = Loaded("NT_BRACE", strBytes);
    EXPECT_EQ(pLoaded->GetLeft()->GetTypeName(), "NT_USERFUNC");
    EXPECT_NE(dynamic_cast<CVariableNode*>(pLoaded->GetLeft()), nullptr);
    EXPECT_TRUE(pLoaded->GetLeft()->IsBold()) << "in the format of the new type";

    strBytes.replace(strBytes.rfind("NT_USERFUNC"), 11, "NT_USERFUNK");
    EXPECT_EQ(Refusal("NT_BRACE", strBytes), "class");
}

TEST(NodeArchive, CountsItsLevels)
{
    const std::string strDeepest = ChainBytes(65535);
    CNodePtr pLoaded = Loaded("NT_BRACE", strDeepest);
    EXPECT_EQ(BytesOf(*pLoaded), strDeepest);
    EXPECT_EQ(Refusal("NT_BRACE", ChainBytes(65536)), "limit");
    EXPECT_EQ(Refusal("NT_BRACE", strDeepest.substr(0, strDeepest.size() / 2)), "end");
}
