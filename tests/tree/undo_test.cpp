// Checkpoints: what is recorded, how many are kept, and that a failure records nothing.
#include "tree/undo.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "archived.h"
#include "nodes/node.h"
#include "tree/bin_tree.h"

namespace
{

// Stores its number, or fails.
class CCounted : public CUndo
{
public:
    CCounted() : CUndo(4, 16) {}

    void Serialize(CArchive& ar) override
    {
        ar << m_nState;
        if (m_bFails)
            AfxThrowArchiveException(CArchiveException::genericException);
    }
    void DeleteContents() override {}

    BYTE m_nState = 0;
    bool m_bFails = false;
};

// Tells what it has recorded, newest first.
template <class T>
class CRecorded : public T
{
public:
    std::vector<std::string> States()
    {
        std::vector<std::string> states;
        for (POSITION pos = this->m_UndoList.GetHeadPosition(); pos != nullptr;)
            states.push_back(BytesOf(static_cast<CMemFile&>(*this->m_UndoList.GetNext(pos))));
        return states;
    }
    void Lock() { this->m_nCheckPointLock = 1; }
};

}  // namespace

TEST(Undo, KeepsTheFiveNewestStatesThatWereStored)
{
    const std::vector<std::string> newest{ "\7", "\6", "\5", "\4", "\3" };
    CRecorded<CCounted> object;
    for (object.m_nState = 1; object.m_nState <= 7; object.m_nState++)
        object.CheckPoint();
    EXPECT_EQ(object.States(), newest);
    object.m_bFails = true;
    EXPECT_EQ(CauseOf([&] { object.CheckPoint(); }), CArchiveException::genericException);
    object.m_bFails = false;
    object.Lock();
    object.CheckPoint();
    EXPECT_EQ(object.States(), newest);
}

TEST(Undo, RecordsTheArchiveFormOfATreeAndDropsItsSelection)
{
    using namespace std::string_literals;
    CRecorded<CBinTree> tree;
    tree.m_rectFormula = CRect(0, 0, 258, -1);
    tree.SetName("ab");
    tree.CheckPoint();
    // Rectangle, name, and four bytes in the place of the root.
    const std::string strHead = "\0\0\0\0\0\0\0\0\2\1\0\0\xFF\xFF\xFF\xFF\2ab"s;
    EXPECT_EQ(tree.States().front(), strHead + "\0\0\0\0"s);

    tree.SetSelection(tree.CreateRootNode("NT_VARIABLE"), 2);
    tree.CheckPoint();
    EXPECT_EQ(tree.States().front().substr(0, strHead.size() + 12), strHead + "\x0BNT_VARIABLE");
    EXPECT_EQ(tree.GetSelection(), nullptr);
    EXPECT_EQ(tree.GetSelectionMode(), 2);
}
