// The document of a formula: its bytes, the file around them, and what a damaged one leaves.
#include "archived.h"
#include "nodes/node.h"
#include "platform/doc/compound_file.h"
#include "service/service_helpers.h"
#include "tree/tree_form.h"

namespace
{
// Text, rectangle and name; what stands in the tree's place is between this and the format.
const std::string s_strHead = ShortText("x=1") + Bits32({ -1, 2, 300, 70000 }) + ShortText("name");

// An empty root: no children, flags, priority, level, steps, type, symbol, description, colour,
// rectangle, base line, face, italic, bold.
const std::string s_strRoot = ShortText("NT_STANDARD") + ShortText("") + ShortText("") +
                              Bits32({ 0, -1, 0, 0, 0 }) + ShortText("NT_STANDARD") +
                              ShortText("") + ShortText("") + Bits32({ 0, 5, 6, 7, 8, 9 }) +
                              ShortText("Times New Roman") + Bits32({ 0, 0 });

// A document with a tree and a table of its own.
class CLentDoc : public CFormulaDoc
{
public:
    CLentDoc()
    {
        m_pTree = &m_tree;
        m_pFormat = &m_format;
    }
    explicit CLentDoc(const char* pszRootSymbol) : CLentDoc()
    {
        m_tree.CreateRootNode("NT_STANDARD")->SetSymbol(pszRootSymbol);
        m_tree.SetName("old name");
        m_format.m_nSizes[0] = -99;
        m_strFormula = "old text";
    }

    void ExpectOld()
    {
        ASSERT_NE(m_tree.GetRootNode(), nullptr);
        EXPECT_EQ(m_tree.GetRootNode()->GetSymbol(), "old");
        EXPECT_EQ(m_tree.GetName(), "old name");
        EXPECT_EQ(m_format.m_nSizes[0], -99);
    }

    CBinTree m_tree;
    CBinTreeFormat m_format;
};

class CStoredFormulaTest : public CServiceTest
{
protected:
    // A compound file with one stream.
    CString Pack(const char* pszName, std::string strContent, const char* pszStream = "Contents")
    {
        CMemFile content(reinterpret_cast<BYTE*>(strContent.data()),
                         static_cast<UINT>(strContent.size()));
        CFile file(File(pszName), CFile::modeCreate | CFile::modeWrite);
        PackCompoundFile(file, pszStream, content);
        return File(pszName);
    }
};

TEST_F(CStoredFormulaTest, HasItsItemsInOrder)
{
    const std::string strBytes = s_strHead + s_strRoot + DefaultFormatBytes();
    CLentDoc loaded;
    EXPECT_EQ(Load(loaded, strBytes), 0U);
    EXPECT_EQ(loaded.m_strFormula, "x=1");
    EXPECT_EQ(loaded.m_tree.m_rectFormula, CRect(-1, 2, 300, 70000));
    EXPECT_EQ(loaded.m_tree.GetName(), "name");
    EXPECT_EQ(loaded.m_tree.GetRootNode()->m_rect, CRect(5, 6, 7, 8));
    EXPECT_EQ(Stored(loaded), strBytes);

    // An empty tree is a zero that is read in part.
    loaded.m_tree.DeleteContents();
    const std::string strEmpty = s_strHead + Bits32({ 0 }) + DefaultFormatBytes();
    EXPECT_EQ(Stored(loaded), strEmpty);
    CLentDoc old("old");
    EXPECT_EQ(CauseOf([&] { Load(old, strEmpty); }), CArchiveException::endOfFile);
    EXPECT_EQ(old.m_tree.GetRootNode()->GetSymbol(), "old");
    EXPECT_EQ(old.m_format.m_nSizes[0], -99);

    // Only what was lent is there.
    loaded.m_pFormat = nullptr;
    EXPECT_EQ(Stored(loaded), s_strHead + Bits32({ 0 }));
    loaded.m_pTree = nullptr;
    EXPECT_EQ(Stored(loaded), ShortText("x=1"));
}

TEST_F(CStoredFormulaTest, IsSavedAsItStandsAndOpened)
{
    CFormulaOut formula;
    formula.FormTree("a/b=sqr(c)");
    formula.m_Tree.SetSelection(formula.m_Tree.GetRootNode(), 2);
    formula.m_Format.m_nSizes[2] = -7;
    const CString strPath = File("x.fml");
    EXPECT_EQ(formula.SaveToFML(strPath), 1);
    EXPECT_EQ(formula.m_Tree.GetSelection(), nullptr);
    EXPECT_NE(formula.m_Tree.GetRootNode(), nullptr);
    EXPECT_FALSE(formula.m_Doc.IsModified());
    const std::string strFile = ReadWhole(strPath);
    EXPECT_EQ(formula.SaveToFML(strPath), 1);
    EXPECT_EQ(ReadWhole(strPath), strFile);

    CLentDoc opened("old");
    opened.SetModifiedFlag();
    EXPECT_TRUE(opened.OnOpenDocument(strPath));
    EXPECT_EQ(TakeMessages(), Messages{});
    EXPECT_EQ(opened.GetPathName(), strPath);
    EXPECT_FALSE(opened.IsModified());
    EXPECT_EQ(opened.m_strFormula, "a/b=sqr(c)");
    EXPECT_EQ(opened.m_format.m_nSizes[2], -7);
    EXPECT_STREQ(TreeForm(opened.m_tree.GetRootNode()), TreeForm(formula.m_Tree.GetRootNode()));
    EXPECT_EQ(Stored(opened), Stored(formula.m_Doc));
}

TEST_F(CStoredFormulaTest, WhatCannotBeOpenedIsToldAndChangesNothing)
{
    const std::string strSound = s_strHead + s_strRoot + DefaultFormatBytes();
    WriteWhole(File("bare.fml"), strSound);
    WriteWhole(File("empty.fml"), "");
    Pack("other.fml", strSound, "Other");
    Pack("short.fml", strSound.substr(0, 60));
    Pack("class.fml", s_strHead + ShortText("NT_Standard") + s_strRoot.substr(12));
    const std::pair<const char*, const char*> aCases[] = {
        { "bare.fml", "damaged" },        { "empty.fml", "damaged" },
        { "other.fml", "damaged" },       { "short.fml", "early" },
        { "class.fml", "unknown class" }, { "missing.fml", "There is no file" },
    };
    for (const auto& [pszName, pszReason] : aCases)
    {
        SCOPED_TRACE(pszName);
        CLentDoc opened("old");
        opened.SetModifiedFlag();
        EXPECT_FALSE(opened.OnOpenDocument(File(pszName)));
        opened.ExpectOld();
        EXPECT_TRUE(opened.IsModified());
        EXPECT_TRUE(opened.GetPathName().IsEmpty());
        const Messages messages = TakeMessages();
        ASSERT_EQ(messages.size(), 1U);
        EXPECT_TRUE(messages[0].starts_with("Failed to open document " +
                                            std::string(File(pszName).View()) + ". "));
        EXPECT_NE(messages[0].find(pszReason), std::string::npos) << messages[0];
    }
    // A document that has not chosen the compound file has no form to be in.
    CLentDoc bare;
    bare.EnableCompoundFile(FALSE);
    EXPECT_FALSE(bare.OnOpenDocument(File("bare.fml")));
    EXPECT_FALSE(bare.DoSave(File("again.fml")));
    EXPECT_FALSE(std::filesystem::exists(File("again.fml").GetString()));
    EXPECT_EQ(TakeMessages().size(), 2U);
}

// Cut anywhere, or with any byte changed, a file is refused or opened as something whole.
TEST_F(CStoredFormulaTest, AnyDamageIsAnswered)
{
    const CString strPath = Pack("x.fml", s_strHead + s_strRoot + DefaultFormatBytes());
    const std::string strWhole = ReadWhole(strPath);
    size_t nRefused = 0;
    const auto answer = [&](const std::string& strDamaged)
    {
        WriteWhole(strPath, strDamaged);
        CLentDoc opened("old");
        const BOOL bOpened = opened.OnOpenDocument(strPath);
        EXPECT_EQ(TakeMessages().size(), bOpened ? 0U : 1U);
        EXPECT_EQ(opened.IsModified(), FALSE);
        EXPECT_FALSE(TreeForm(opened.m_tree.GetRootNode()).IsEmpty());
        Stored(opened);
        nRefused += !bOpened;
        return bOpened;
    };
    for (size_t n = 0; n + 512 < strWhole.size(); ++n)
        EXPECT_FALSE(answer(strWhole.substr(0, n))) << n;
    for (size_t n = strWhole.size() - 512; n < strWhole.size(); ++n)
        answer(strWhole.substr(0, n));
    nRefused = 0;
    for (size_t n = 0; n < strWhole.size(); ++n)
    {
        SCOPED_TRACE(n);
        std::string strDamaged = strWhole;
        strDamaged[n] = static_cast<char>(~strDamaged[n]);
        answer(strDamaged);
    }
    EXPECT_GT(nRefused, 100U);
    EXPECT_LT(nRefused, strWhole.size());
}
}  // namespace
