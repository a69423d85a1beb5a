// The archive form of a tree, and what a damaged archive leaves behind.
#include <gtest/gtest.h>

#include <string>

#include "archived.h"
#include "tree/tree_maker.h"

namespace
{

class CWholeTree : public CBinTree
{
public:
    CWholeTree() { MakeTree(*this, "(STANDARD (EQUATION (SUM (RANGE - i) n) (POWERTO x y)) -)"); }
};

class CLoadedTree : public CBinTree
{
public:
    CLoadedTree()
    {
        m_pOldRoot = MakeTree(*this, "(STANDARD old -)");
        SetName("old");
        m_rectFormula = CRect(1, 2, 3, 4);
        SetSelection(GetRootNode(), 2);
    }

    void ExpectUntouched()
    {
        EXPECT_EQ(GetRootNode(), m_pOldRoot);
        EXPECT_EQ(GetRootNode()->GetLeft()->GetSymbol(), "old");
        EXPECT_EQ(GetName(), "old");
        EXPECT_EQ(m_rectFormula, CRect(1, 2, 3, 4));
        EXPECT_EQ(GetSelection(), nullptr);
    }

private:
    CNode* m_pOldRoot;
};

void ExpectRefused(const std::string& strBytes, int nCause)
{
    CLoadedTree loaded;
    EXPECT_EQ(CauseOf([&] { Load(loaded, strBytes); }), nCause) << strBytes.size();
    loaded.ExpectUntouched();
}

}  // namespace

TEST(TreeSerialize, ComesBackAsItWas)
{
    CWholeTree tree;
    tree.SetName("name");
    tree.m_rectFormula = CRect(-1, 2, 300, 400000);
    const std::string strBytes = Stored(tree);
    CLoadedTree loaded;
    EXPECT_EQ(Load(loaded, strBytes + "more"), 4U);
    EXPECT_EQ(Form(loaded), Form(tree));
    EXPECT_EQ(loaded.GetName(), "name");
    EXPECT_EQ(loaded.m_rectFormula, tree.m_rectFormula);
    EXPECT_EQ(loaded.GetSelection(), nullptr);
    EXPECT_EQ(loaded.GetSelectionMode(), 2);
    EXPECT_EQ(Stored(loaded), strBytes);
}

TEST(TreeSerialize, ACutArchiveOrAnUnknownTypeLeavesTheTreeAsItWas)
{
    CWholeTree tree;
    const std::string strBytes = Stored(tree);
    for (std::size_t nLength = 0; nLength < strBytes.size(); nLength++)
        ExpectRefused(strBytes.substr(0, nLength), CArchiveException::endOfFile);
    for (const char* pszName : { "NT_STANDARD", "NT_EQUATION", "NT_POWERTO" })
    {
        std::string strDamaged = strBytes;
        strDamaged.replace(strDamaged.find(pszName), 2, "nt");
        ExpectRefused(strDamaged, CArchiveException::badClass);
    }
}

// Whatever a byte becomes, the answer is one of the two exceptions or a whole tree.
TEST(TreeSerialize, AnyDamagedByteIsAnswered)
{
    CWholeTree tree;
    const std::string strBytes = Stored(tree);
    for (std::size_t i = 0; i < strBytes.size(); i++)
    {
        for (int nChange : { 0x01, 0x80, 0xFF })
        {
            std::string strDamaged = strBytes;
            strDamaged[i] = static_cast<char>(strDamaged[i] ^ nChange);
            CLoadedTree loaded;
            try
            {
                Load(loaded, strDamaged);
                EXPECT_FALSE(Form(loaded).IsEmpty());
            }
            catch (CException* pException)
            {
                pException->Delete();
                loaded.ExpectUntouched();
            }
        }
    }
}
