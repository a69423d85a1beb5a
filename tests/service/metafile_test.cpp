#include <algorithm>

#include "nodes/node.h"
#include "service/service_helpers.h"

namespace
{
using CMetafileTest = CServiceTest;

// Types of records.
constexpr std::uint32_t s_nHeader = 1;
constexpr std::uint32_t s_nSetMapMode = 17;
constexpr std::uint32_t s_nCreateBrush = 39;
constexpr std::uint32_t s_nDeleteObject = 40;
constexpr std::uint32_t s_nComment = 70;
constexpr std::uint32_t s_nFillRegion = 76;  // a filled rectangle is recorded as a bit block
constexpr std::uint32_t s_nText = 84;

std::string CommentOf(const CRecord& record)
{
    return record.strData.substr(4, NumberAt(record.strData, 0));
}

TEST_F(CMetafileTest, TheCommentComesFirstAndTheBrushOfTheBackgroundBehindIt)
{
    CFormulaOut formula;
    formula.FormTree("x");
    g_strMetaComment = "x=1";
    ASSERT_EQ(formula.m_Tree.WriteMetafile(File("x.emf")), 1);
    const std::vector<CRecord> records = RecordsOf(ReadWhole(File("x.emf")));
    ASSERT_GT(records.size(), 6U);
    EXPECT_EQ(records[0].nType, s_nHeader);
    const size_t nComment = records[1].nType == s_nSetMapMode ? 2 : 1;
    ASSERT_EQ(records[nComment].nType, s_nComment);
    EXPECT_EQ(CommentOf(records[nComment]), "qvmrzx=1");
    EXPECT_EQ(records[nComment + 1].nType, s_nCreateBrush);
    EXPECT_EQ(NumberAt(records[nComment + 1].strData, 8), 0xFFFFFFU);  // window colour

    // The brush is gone before the first glyph, and its number free for the first font.
    const auto IndexOf = [&](std::uint32_t nType)
    {
        return std::find_if(records.begin(), records.end(),
                            [&](const CRecord& record) { return record.nType == nType; }) -
               records.begin();
    };
    EXPECT_LT(IndexOf(s_nFillRegion), IndexOf(s_nDeleteObject));
    EXPECT_LT(IndexOf(s_nDeleteObject), IndexOf(s_nText));
    EXPECT_EQ(NumberAt(records[static_cast<size_t>(IndexOf(s_nDeleteObject))].strData, 0),
              NumberAt(records[nComment + 1].strData, 0));
    EXPECT_EQ(std::count_if(records.begin(), records.end(),
                            [](const CRecord& record) { return record.nType == s_nComment; }),
              1);
}

// 18 x 17 pixels of a screen of 1920 x 1080 pixels and 508 x 286 mm.
TEST_F(CMetafileTest, TheFrameIsTheSizeOnTheScreen)
{
    CFormulaOut formula;
    formula.FormTree("2");
    ASSERT_EQ(formula.m_Tree.WriteMetafile(File("x.emf")), 1);
    const std::string strFile = ReadWhole(File("x.emf"));
    EXPECT_EQ(NumberAt(strFile, 24), 0U);
    EXPECT_EQ(NumberAt(strFile, 28), 0U);
    EXPECT_EQ(NumberAt(strFile, 32), 476U);  // 1800 * 508 / 1920 = 476.25
    EXPECT_EQ(NumberAt(strFile, 36), 450U);  // 1700 * 286 / 1080 = 450.19
    const std::string strDescription = strFile.substr(NumberAt(strFile, 64), 28);
    EXPECT_EQ(strDescription, std::string("F\0o\0r\0m\0u\0l\0a\0\0\0I\0m\0a\0g\0e\0\0\0", 28));
}

TEST_F(CMetafileTest, AnEmptyTreeWritesCommentAndFillOnly)
{
    CBinTree tree;
    ASSERT_EQ(tree.WriteMetafile(File("x.emf")), 1);
    const std::string strFile = ReadWhole(File("x.emf"));
    EXPECT_EQ(NumberAt(strFile, 32), 0U);
    for (const CRecord& record : RecordsOf(strFile))
        EXPECT_NE(record.nType, s_nText);
    EXPECT_EQ(tree.ReadMetafile(File("x.emf")), 1);
    EXPECT_EQ(g_strMetaComment, "");
}

TEST_F(CMetafileTest, ReadsTheLastCommentUpToItsNul)
{
    const struct
    {
        const char* pszName;
        std::vector<std::string> comments;
        const char* pszText;  // null: refused
        const char* pszLeft;  // what stays in the process
    } aCases[] = {
        { "Plain", { "qvmrzx=1" }, "x=1", "x=1" },
        { "NoPadding", { "qvmrzabc" }, "abc", "abc" },
        { "Apostrophe", { "qvmrzf'" }, "f", "f" },
        { "TwoApostrophes", { "qvmrzf''" }, "f'", "f'" },
        { "Nul", { std::string("qvmrzab\0cd", 10) }, "ab", "ab" },
        { "LastWins", { "qvmrza", "qvmrzb" }, "b", "b" },
        { "Foreign", { "qvmrza", "EMF+" }, nullptr, "EMF+" },
        { "ShortTag", { "qvmr" }, nullptr, "qvmr" },
        { "NoData", { "" }, nullptr, "" },
        { "NoComment", {}, nullptr, "before" },
        { "HighBytes", { "qvmrz\xE4\xFF" }, "\xE4\xFF", "\xE4\xFF" },
    };
    for (const auto& c : aCases)
    {
        SCOPED_TRACE(c.pszName);
        WriteWhole(File("x.wmf"), ForeignMetafile(c.comments));
        g_strMetaComment = "before";
        CFormulaOut formula;
        formula.FormTree("z");
        CNode* pRoot = formula.m_Tree.GetRootNode();
        EXPECT_EQ(formula.ReadFormulaFromWMF(File("x.wmf")), c.pszText != nullptr ? 1 : 0);
        EXPECT_EQ(g_strMetaComment, c.pszLeft);
        EXPECT_EQ(formula.m_strFormula, c.pszText != nullptr ? c.pszText : "z");
        EXPECT_EQ(formula.m_Tree.GetRootNode(), pRoot);
        EXPECT_EQ(TakeMessages(), c.pszText != nullptr ? Messages{} : Messages{ CANNOT_READ });
    }
}

TEST_F(CMetafileTest, WhatIsNoMetafileIsRefusedUnlessTheCommentHasTheTag)
{
    WriteWhole(File("empty.wmf"), "");
    WriteWhole(File("text.wmf"), std::string(500, 'x'));
    CBinTree tree;
    for (const char* pszName : { "empty.wmf", "text.wmf", "missing.wmf", "no/such/folder.wmf" })
    {
        SCOPED_TRACE(pszName);
        g_strMetaComment = "kept";
        EXPECT_EQ(tree.ReadMetafile(File(pszName)), 0);
        EXPECT_EQ(TakeMessages(), Messages{ CANNOT_READ });
        EXPECT_EQ(g_strMetaComment, "kept");
    }
    g_strMetaComment = "qvmrzleft over";
    EXPECT_EQ(tree.ReadMetafile(File("missing.wmf")), 1);
    EXPECT_EQ(g_strMetaComment, "left over");
}

// Cut short at any byte, or with any byte changed: an answer, and never a crash. What is left of a
// cut file is read.
TEST_F(CMetafileTest, DamagedFilesGiveWhatIsLeftOfThem)
{
    const std::string strWhole = ForeignMetafile({ "qvmrzabc", "qvmrz12345678" });
    constexpr size_t nFirst = 88 + 12 + 5;  // the tag of the first comment is whole
    CBinTree tree;
    for (size_t n = 0; n < strWhole.size(); ++n)
    {
        SCOPED_TRACE(n);
        WriteWhole(File("x.wmf"), strWhole.substr(0, n));
        g_strMetaComment = CString();
        if (tree.ReadMetafile(File("x.wmf")))
        {
            EXPECT_GE(n, nFirst);
            EXPECT_TRUE(std::string("abc").starts_with(g_strMetaComment.GetString()) ||
                        std::string("12345678").starts_with(g_strMetaComment.GetString()))
                << g_strMetaComment.GetString();
        }
        for (char ch : { '\x00', '\x01', '\x7F', '\xFF' })
        {
            std::string strDamaged = strWhole;
            strDamaged[n] = ch;
            WriteWhole(File("x.wmf"), strDamaged);
            tree.ReadMetafile(File("x.wmf"));
        }
    }
}

TEST_F(CMetafileTest, ACommentComesBackThroughReadFormAndWrite)
{
    WriteWhole(File("in.wmf"), ForeignMetafile({ "qvmrzsqr(x)/2" }));
    CFormulaOut formula;
    ASSERT_EQ(formula.ReadFormulaFromWMF(File("in.wmf")), 1);
    const CFormulaOut& same = formula;
    formula = same;
    EXPECT_EQ(formula.m_Tree.GetRootNode()->GetLeft()->GetTypeName(), "NT_DIVISION");
    ASSERT_EQ(formula.WriteFormulaToWMF(File("out.wmf")), 1);
    formula = same;  // painting leaves widths behind in stretched signs
    ASSERT_EQ(formula.WriteFormulaToWMF(File("again.wmf")), 1);
    EXPECT_EQ(ReadWhole(File("out.wmf")), ReadWhole(File("again.wmf")));
    g_strMetaComment = CString();
    ASSERT_EQ(formula.ReadFormulaFromWMF(File("out.wmf")), 1);
    EXPECT_EQ(g_strMetaComment, "sqr(x)/2");
}

// Whatever a formula shows, a process that has read nothing writes the bare tag.
TEST_F(CMetafileTest, TheCommentIsNotTheFormula)
{
    CFormulaOut formula;
    formula.FormTree("a+b");
    formula.WriteFormulaToWMF(File("x.wmf"));
    EXPECT_EQ(formula.ReadFormulaFromWMF(File("x.wmf")), 1);
    EXPECT_EQ(g_strMetaComment, "");
    EXPECT_EQ(formula.m_strFormula, "");
}
}  // namespace
