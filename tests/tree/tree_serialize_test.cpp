// The archive form of a tree, and what a damaged archive leaves behind.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "nodes/node.h"
#include "platform/base/archive.h"
#include "platform/base/exception.h"
#include "platform/base/file.h"
#include "tree/bin_tree.h"
#include "tree/tree_form.h"
#include "tree/tree_maker.h"

namespace
{

constexpr const char* SKETCH = "(STANDARD (EQUATION (SUM i n) (POWERTO x y)) -)";

std::string Stored(CBinTree& tree)
{
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    tree.Serialize(ar);
    ar.Close();
    return { reinterpret_cast<const char*>(file.GetData()),
             static_cast<std::size_t>(file.GetLength()) };
}

// Bytes that are left behind what the tree read.
ULONGLONG Load(CBinTree& tree, std::string strBytes)
{
    CMemFile file(reinterpret_cast<BYTE*>(strBytes.data()), static_cast<UINT>(strBytes.size()));
    CArchive ar(&file, CArchive::load);
    tree.Serialize(ar);
    ar.Close();
    return file.GetLength() - file.GetPosition();
}

// The cause of the archive exception, or -1 if there was none.
int CauseOf(const std::function<void()>& job)
{
    try
    {
        job();
    }
    catch (CArchiveException* pException)
    {
        const int nCause = pException->m_cause;
        pException->Delete();
        return nCause;
    }
    return -1;
}

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

}  // namespace

TEST(TreeSerialize, ComesBackAsItWas)
{
    CBinTree tree;
    MakeTree(tree, SKETCH);
    tree.SetName("name");
    tree.m_rectFormula = CRect(-1, 2, 300, 400000);
    const std::string strBytes = Stored(tree);
    CLoadedTree loaded;
    EXPECT_EQ(Load(loaded, strBytes + "more"), 4U);
    EXPECT_STREQ(TreeForm(loaded.GetRootNode()), TreeForm(tree.GetRootNode()));
    EXPECT_EQ(loaded.GetName(), "name");
    EXPECT_EQ(loaded.m_rectFormula, tree.m_rectFormula);
    EXPECT_EQ(loaded.GetSelection(), nullptr);
    EXPECT_EQ(Stored(loaded), strBytes);
}

TEST(TreeSerialize, AnEmptyTreeKeepsTheLoadersRootAndLeavesThreeBytes)
{
    CBinTree empty;
    empty.SetName("new");
    CLoadedTree loaded;
    CNode* pOldRoot = loaded.GetRootNode();
    EXPECT_EQ(Load(loaded, Stored(empty)), 3U);
    EXPECT_EQ(loaded.GetRootNode(), pOldRoot);
    EXPECT_EQ(loaded.GetName(), "new");
    EXPECT_EQ(loaded.m_rectFormula, CRect(0, 0, 50, 20));
    EXPECT_EQ(loaded.GetSelection(), nullptr);
}

TEST(TreeSerialize, ACutArchiveLeavesTheTreeAsItWas)
{
    CBinTree tree;
    MakeTree(tree, SKETCH);
    const std::string strBytes = Stored(tree);
    for (std::size_t nLength = 0; nLength < strBytes.size(); nLength++)
    {
        SCOPED_TRACE(nLength);
        CLoadedTree loaded;
        EXPECT_EQ(CauseOf([&] { Load(loaded, strBytes.substr(0, nLength)); }),
                  CArchiveException::endOfFile);
        loaded.ExpectUntouched();
    }
}

TEST(TreeSerialize, AnUnknownTypeIsRefused)
{
    CBinTree tree;
    MakeTree(tree, SKETCH);
    for (const char* pszName : { "NT_STANDARD", "NT_EQUATION", "NT_POWERTO" })
    {
        std::string strBytes = Stored(tree);
        strBytes.replace(strBytes.find(pszName), 2, "nt");
        CLoadedTree loaded;
        EXPECT_EQ(CauseOf([&] { Load(loaded, strBytes); }), CArchiveException::badClass);
        loaded.ExpectUntouched();
    }
}

// Whatever a byte becomes, the answer is one of the two exceptions or a whole tree.
TEST(TreeSerialize, AnyDamagedByteIsAnswered)
{
    CBinTree tree;
    MakeTree(tree, SKETCH);
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
                EXPECT_FALSE(TreeForm(loaded.GetRootNode()).IsEmpty());
            }
            catch (CException* pException)
            {
                pException->Delete();
                loaded.ExpectUntouched();
            }
        }
    }
}
