// Checkpoints: what is recorded, how many are kept, and that a failure records nothing.
#include "tree/undo.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "nodes/node.h"
#include "platform/base/archive.h"
#include "platform/base/exception.h"
#include "platform/base/file.h"
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

    std::vector<int> States()
    {
        std::vector<int> anStates;
        for (POSITION pos = m_UndoList.GetHeadPosition(); pos != nullptr;)
        {
            auto* pFile = static_cast<CMemFile*>(m_UndoList.GetNext(pos));
            pFile->SeekToBegin();
            CArchive ar(pFile, CArchive::load);
            int nState;
            ar >> nState;
            anStates.push_back(nState);
        }
        return anStates;
    }
    int RedoCount() { return static_cast<int>(m_RedoList.GetCount()); }
    void Lock() { m_nCheckPointLock = 1; }

    int m_nState = 0;
    bool m_bFails = false;
};

class CRecordingTree : public CBinTree
{
public:
    std::string NewestState()
    {
        auto* pFile = static_cast<CMemFile*>(m_UndoList.GetHead());
        std::string strBytes(static_cast<std::size_t>(pFile->GetLength()), '\0');
        pFile->SeekToBegin();
        pFile->Read(strBytes.data(), static_cast<UINT>(strBytes.size()));
        return strBytes;
    }
};

}  // namespace

TEST(Undo, KeepsFiveStatesNewestFirst)
{
    CCounted object;
    for (object.m_nState = 1; object.m_nState <= 7; object.m_nState++)
        object.CheckPoint();
    EXPECT_EQ(object.States(), (std::vector<int>{ 7, 6, 5, 4, 3 }));
    EXPECT_EQ(object.RedoCount(), 0);
}

TEST(Undo, RecordsNothingWhereStoringFailsOrIsLocked)
{
    CCounted object;
    object.CheckPoint();
    object.m_nState = 1;
    object.m_bFails = true;
    try
    {
        object.CheckPoint();
        FAIL() << "the exception must reach the caller";
    }
    catch (CArchiveException* pException)
    {
        pException->Delete();
    }
    object.m_bFails = false;
    object.Lock();
    object.CheckPoint();
    EXPECT_EQ(object.States(), std::vector<int>{ 0 });
}

TEST(Undo, RecordsTheArchiveFormOfATreeAndDropsItsSelection)
{
    using namespace std::string_literals;
    CRecordingTree tree;
    tree.m_rectFormula = CRect(0, 0, 258, -1);
    tree.SetName("ab");
    tree.CheckPoint();
    // Rectangle, name, and four bytes in the place of the root.
    const std::string strHead = "\0\0\0\0\0\0\0\0\2\1\0\0\xFF\xFF\xFF\xFF\2ab"s;
    EXPECT_EQ(tree.NewestState(), strHead + "\0\0\0\0"s);

    tree.SetSelection(tree.CreateRootNode("NT_VARIABLE"), 2);
    tree.CheckPoint();
    EXPECT_EQ(tree.NewestState().substr(0, strHead.size() + 12), strHead + "\x0BNT_VARIABLE");
    EXPECT_EQ(tree.GetSelection(), nullptr);
    EXPECT_EQ(tree.GetSelectionMode(), 2);
}
