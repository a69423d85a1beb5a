// Metafiles of formulas: what is in them, the text that they carry, and what damaged ones give.
#include <algorithm>
#include <tuple>

#include "nodes/node.h"
#include "platform/gdi/emf_dump.h"
#include "service/service_helpers.h"

namespace
{
using CMetafileTest = CServiceTest;

std::string MetafileWith(const std::vector<std::string>& comments)
{
    std::vector<std::string> records;
    for (const std::string& strComment : comments)
        records.push_back(CommentRecord(strComment));
    return MetafileOf(records);
}

TEST_F(CMetafileTest, TheCommentComesFirstAndTheBrushOfTheBackgroundBehindIt)
{
    CFormulaOut formula;
    formula.FormTree("x");
    g_strMetaComment = "x=1";
    ASSERT_EQ(formula.m_Tree.WriteMetafile(File("x.emf")), 1);
    CRecordLines records = DumpRecords(ReadWhole(File("x.emf")));
    std::erase_if(records, [](const std::string& str) { return str.starts_with("SETMAPMODE"); });
    const auto indexOf = [&](const char* pszStart)
    {
        return std::find_if(records.begin(), records.end(),
                            [=](const std::string& strRecord)
                            { return strRecord.starts_with(pszStart); }) -
               records.begin();
    };
    EXPECT_EQ(indexOf("HEADER"), 0);
    EXPECT_EQ(indexOf("GDICOMMENT 20 bytes=8 data=\"qvmrzx=1\""), 1);
    EXPECT_EQ(indexOf("CREATEBRUSHINDIRECT 24 1,0,16777215"), 2);  // the window colour
    // The brush is gone before the first glyph, and its number free for the first font. A filled
    // rectangle is recorded as a bit block.
    EXPECT_LT(indexOf("BITBLT"), indexOf("DELETEOBJECT 12 1"));
    EXPECT_EQ(indexOf("DELETEOBJECT"), indexOf("DELETEOBJECT 12 1"));
    EXPECT_LT(indexOf("DELETEOBJECT"), indexOf("EXTTEXTOUT"));
    std::erase_if(records, [](const std::string& str) { return !str.starts_with("GDICOMMENT"); });
    EXPECT_EQ(records.size(), 1U);
}

// 18 x 17 pixels of a screen of 1920 x 1080 pixels and 508 x 286 mm.
TEST_F(CMetafileTest, TheFrameIsTheSizeOnTheScreen)
{
    CFormulaOut formula;
    formula.FormTree("2");
    ASSERT_EQ(formula.m_Tree.WriteMetafile(File("x.emf")), 1);
    const std::string strHeader = DumpRecords(ReadWhole(File("x.emf"))).front();
    EXPECT_EQ(Field(strHeader, "frame"), "0,0,476,450");  // 1800 * 508 / 1920, 1700 * 286 / 1080
    EXPECT_TRUE(strHeader.ends_with(R"(text="Formula\0Image\0\0")")) << strHeader;
}

TEST_F(CMetafileTest, AnEmptyTreeWritesCommentAndFillOnly)
{
    CBinTree tree;
    ASSERT_EQ(tree.WriteMetafile(File("x.emf")), 1);
    const CRecordLines records = DumpRecords(ReadWhole(File("x.emf")));
    EXPECT_EQ(Field(records.front(), "frame").substr(0, 6), "0,0,0,");
    for (const std::string& strRecord : records)
        EXPECT_FALSE(strRecord.starts_with("EXTTEXTOUT"));
    EXPECT_EQ(tree.ReadMetafile(File("x.emf")), 1);
    EXPECT_EQ(g_strMetaComment, "");
}

TEST_F(CMetafileTest, ReadsTheLastCommentUpToItsNul)
{
    // The text (null: refused), and what stays in the process.
    const std::tuple<const char*, std::vector<std::string>, const char*, const char*> aCases[] = {
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
    for (const auto& [pszName, comments, pszText, pszLeft] : aCases)
    {
        SCOPED_TRACE(pszName);
        WriteWhole(File("x.wmf"), MetafileWith(comments));
        g_strMetaComment = "before";
        CFormulaOut formula;
        formula.FormTree("z");
        CNode* pRoot = formula.m_Tree.GetRootNode();
        EXPECT_EQ(formula.ReadFormulaFromWMF(File("x.wmf")), pszText != nullptr ? 1 : 0);
        EXPECT_EQ(g_strMetaComment, pszLeft);
        EXPECT_EQ(formula.m_strFormula, pszText != nullptr ? pszText : "z");
        EXPECT_EQ(formula.m_Tree.GetRootNode(), pRoot);
        EXPECT_EQ(TakeMessages(), pszText != nullptr ? Messages{} : Messages{ CANNOT_READ });
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
    const std::string strWhole = MetafileWith({ "qvmrzabc", "qvmrz12345678" });
    constexpr size_t nFirst = 108 + 12 + 5;  // the tag of the first comment is whole
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
    WriteWhole(File("in.wmf"), MetafileWith({ "qvmrzsqr(x)/2" }));
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
}  // namespace
