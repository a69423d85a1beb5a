// The archive form of every class, byte for byte, and what loading leaves in the nodes.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>

#include "format/tree_format.h"
#include "nodes/node_fixture.h"
#include "nodes/random_tree.h"
#include "nodes/value_nodes.h"

namespace
{
// A new node of each type. The fields are those of its record, in their order; the level, the
// colour (black), rectangle and base line are 0.
struct CRow
{
    const char* pszType;
    int nFlags;
    int nPriority;
    int nLeftStep;
    int nRightStep;
    const char* pszSymbol;
    const char* pszDescription;
    const char* pszFace;  // null: the record has no font
    int nItalic;
    int nBold;
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

void Change(CNode& node)
{
    node.SetLevel(6);
    node.SetColour(0x0A0B0C);
    node.m_rect = CRect(1, 2, 3, 4);
    node.m_nBaseline = 5;
    if (auto* pTyped = dynamic_cast<CTypedNode*>(&node))
        pTyped->SetKind(3);
    if (auto* pValue = dynamic_cast<CValueNode*>(&node))
    {
        pValue->SetValue(-0.5);
        pValue->SetValueAttrA(3);
        pValue->SetValueAttrB(4);
    }
}

const std::string s_strNoChildren(2, '\0');

// strChildren: items 1 to 4.
std::string RecordBytes(const CRow& row, const std::string& strChildren, bool bChanged = false)
{
    std::string strBytes = strChildren + Bits32({ row.nFlags, row.nPriority, bChanged ? 6 : 0,
                                                  row.nLeftStep, row.nRightStep });
    for (const char* pszText : { row.pszType, row.pszSymbol, row.pszDescription })
        strBytes += ShortText(pszText);
    // Colour, rectangle and base line
    strBytes += bChanged ? Bits32({ 0x0A0B0C, 1, 2, 3, 4, 5 }) : std::string(24, '\0');
    if (row.pszFace != nullptr)
        strBytes += ShortText(row.pszFace) + Bits32({ row.nItalic, row.nBold });
    if (row.eAddition == CRow::kind)
        strBytes += Bits32({ bChanged ? 3 : 0 });
    if (row.eAddition == CRow::value)
        strBytes += bChanged ? std::string(6, '\0') + "\xE0\xBF" + Bits32({ 3, 4 })  // -0.5
                             : std::string(8, '\0') + Bits32({ 1, 1 });
    return strBytes;
}

void LoadInto(CNode& node, const std::string& strBytes)
{
    CBinTree tree;
    EXPECT_EQ(LoadBy(strBytes, [&](CArchive& ar) { node.SerializeNode(ar, &tree); }), 0U);
}

CNodePtr Loaded(const CString& strType, const std::string& strBytes)
{
    CNodePtr pNode(CBinTree().CreateNode(strType));
    LoadInto(*pNode, strBytes);
    return pNode;
}

void ExpectRefused(const CString& strType, const std::string& strBytes, int nCause)
{
    EXPECT_EQ(CauseOf([&] { Loaded(strType, strBytes); }), nCause);
}

std::string StatesOf(const CNode* pNode)
{
    if (pNode == nullptr)
        return "-";
    std::string strStates = StateOf(*pNode);
    for (const CNode* pChild : { pNode->GetLeft(), pNode->GetRight() })
    {
        EXPECT_TRUE(pChild == nullptr || pChild->GetParent() == pNode);
        strStates += StatesOf(pChild);
    }
    return strStates;
}
}  // namespace

TEST(NodeArchive, HasTheFormOfEveryClass)
{
    for (const CRow& row : s_aRows)
    {
        SCOPED_TRACE(row.pszType);
        std::string strChildren = s_strNoChildren;
        if (row.pszFace == nullptr)  // a big operator, with its range
        {
            strChildren = ShortText("NT_RANGE") + RecordBytes(RowOf("NT_RANGE"), s_strNoChildren) +
                          std::string(1, '\0');
        }
        CNodePtr pNode(CBinTree().CreateNode(row.pszType));
        for (const bool bChanged : { false, true })
        {
            if (bChanged)
                Change(*pNode);
            const std::string strBytes = RecordBytes(row, strChildren, bChanged);
            EXPECT_EQ(BytesOf(*pNode), strBytes);
            EXPECT_EQ(BytesOf(*Loaded(row.pszType, strBytes)), strBytes);
        }
    }
}

// The plain order formats at every link; the loader does so once, and must end in the same.
TEST(NodeArchive, LeavesWhatFormattingAtEveryLinkLeaves)
{
    for (unsigned nSeed = 0; nSeed < 2000; ++nSeed)
    {
        CRandomTree tree(nSeed, { 30, true });
        const CString strType = tree.GetRoot()->GetTypeName();
        const std::string strBytes = BytesOf(*tree.GetRoot());
        CNodePtr apLoaded[2];
        for (const bool bPlain : { true, false })
        {
            const CPlainRecursion plain(bPlain);
            apLoaded[bPlain ? 0 : 1] = Loaded(strType, strBytes);
        }
        ASSERT_EQ(StatesOf(apLoaded[1].get()), StatesOf(apLoaded[0].get())) << nSeed;
        ASSERT_EQ(BytesOf(*apLoaded[1]), BytesOf(*apLoaded[0])) << nSeed;
    }
}

// A big operator's own font is not stored either.
TEST(NodeArchive, StoredFontsHoldOnlyWhereNoLinkFormatsThem)
{
    // Sketch, node, the face stored in it (bold, too), its face and boldness when it is loaded.
    const std::tuple<const char*, const char*, const char*, const char*, bool> aCases[] = {
        { "(PLUS a (NUMBER))", "", "Arial", "Arial", true },
        { "(PLUS a (NUMBER))", "L", "Symbol", "Symbol", false },
        { "(PLUS a (NUMBER))", "R", "Arial", "Times New Roman", false },
        { "(SUM (RANGE n i) a)", "", "Arial", "Symbol", false },
        { "(SUM (RANGE n i) a)", "L", "Arial", "Arial", true },
        { "(SUM (RANGE n i) a)", "R", "Arial", "Times New Roman", false },
    };
    for (const auto& [pszSketch, pszPath, pszStored, pszLoaded, bBold] : aCases)
    {
        SCOPED_TRACE(std::string(pszSketch) + " " + pszPath);
        const CNodePtr pSource = Sketch(pszSketch);
        CNode* pStored = NodeAt(pSource.get(), pszPath);
        pStored->SetFontName(pszStored);
        pStored->SetBold(1);
        const CNodePtr pRoot = Loaded(pSource->GetTypeName(), BytesOf(*pSource));
        CNode* pLoaded = NodeAt(pRoot.get(), pszPath);
        EXPECT_EQ(pLoaded->GetFontName(), pszLoaded);
        EXPECT_EQ(pLoaded->IsBold(), bBold);
        EXPECT_EQ(pLoaded->GetLogFont()->lfHeight, pStored->GetLogFont()->lfHeight);
    }
}

TEST(NodeArchive, ABigOperatorReadsIntoItsOwnRange)
{
    std::string strBytes = BytesOf(*Sketch("(SUM (RANGE i) -)"));
    strBytes.replace(strBytes.find("NT_RANGE"), 8, "NT_xxxxx");  // item 1 is not looked at
    const CNodePtr pSum(CBinTree().CreateNode("NT_SUM"));
    CNode* pRange = pSum->GetLeft();
    LoadInto(*pSum, strBytes);
    ASSERT_EQ(pSum->GetLeft(), pRange);
    EXPECT_EQ(pRange->GetParent(), pSum.get());
    EXPECT_EQ(pRange->GetLeft()->GetSymbol(), "i");
    EXPECT_EQ(pRange->GetLeft()->GetLevel(), 1);

    LoadInto(*pSum, RecordBytes(RowOf("NT_SUM"), s_strNoChildren));
    EXPECT_EQ(pSum->GetLeft(), pRange) << "a record without a range leaves it";
}

TEST(NodeArchive, TakesTheTypeOfTheRecordAndTheClassOfTheName)
{
    std::string strBytes = BytesOf(*Sketch("(BRACE a)"));
    const std::size_t nName = strBytes.find("NT_VARIABLE");
    // Read as a user function, the record goes on to a kind of 4 bytes where a variable has 16.
    ExpectRefused("NT_BRACE", std::string(strBytes).replace(nName, 11, "NT_USERFUNC"),
                  CArchiveException::badClass);

    const std::size_t nType = strBytes.rfind("NT_VARIABLE");
    const CNodePtr pLoaded = Loaded("NT_BRACE", strBytes.replace(nType, 11, "NT_USERFUNC"));
    EXPECT_EQ(pLoaded->GetLeft()->GetTypeName(), "NT_USERFUNC");
    EXPECT_NE(dynamic_cast<CVariableNode*>(pLoaded->GetLeft()), nullptr);
    EXPECT_TRUE(pLoaded->GetLeft()->IsBold()) << "in the format of the new type";

    ExpectRefused("NT_BRACE", strBytes.replace(nType, 11, "NT_USERFUNK"),
                  CArchiveException::badClass);
}

TEST(NodeArchive, CountsItsLevels)
{
    const std::string strDeepest = BytesOf(*Tower("NT_BRACE", 65535));
    EXPECT_EQ(BytesOf(*Loaded("NT_BRACE", strDeepest)), strDeepest);
    ExpectRefused("NT_BRACE", BytesOf(*Tower("NT_BRACE", 65536)), CArchiveException::badIndex);
    ExpectRefused("NT_BRACE", strDeepest.substr(0, strDeepest.size() / 2),
                  CArchiveException::endOfFile);
}
