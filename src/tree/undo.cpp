// Checkpoints: the object's archive form in memory files, the newest at the head of a list.
#include "tree/undo.h"

#include <memory>

#include "platform/base/archive.h"
#include "platform/base/file.h"

namespace
{

constexpr int s_nListBlock = 10;
constexpr int s_nArchiveBuffer = 4096;  // bytes

void DeleteFiles(CObList& list)
{
    while (!list.IsEmpty())
        delete list.RemoveHead();
}

}  // namespace

CUndo::CUndo(long nLevels, long nGrowSize)
    : m_UndoList(s_nListBlock),
      m_RedoList(s_nListBlock),
      m_nGrowSize(static_cast<int>(nGrowSize)),
      m_nUndoLevels(static_cast<int>(nLevels)),
      m_nCheckPointLock(0)
{
}

CUndo::~CUndo()
{
    DeleteFiles(m_UndoList);
    ClearRedoList();
}

void CUndo::CheckPoint()
{
    if (m_nCheckPointLock >= 1)
        return;
    auto pFile = std::make_unique<CMemFile>(m_nGrowSize);
    StoreState(pFile.get());
    AddUndo(pFile.release());
    ClearRedoList();
}

void CUndo::AddUndo(CMemFile* pFile)
{
    std::unique_ptr<CMemFile> pOwned(pFile);
    if (m_UndoList.GetCount() > m_nUndoLevels)
        delete m_UndoList.RemoveTail();
    m_UndoList.AddHead(pFile);
    pOwned.release();
}

void CUndo::StoreState(CMemFile* pFile)
{
    pFile->SeekToBegin();
    CArchive ar(pFile, CArchive::store, s_nArchiveBuffer);
    Serialize(ar);
    ar.Close();
}

void CUndo::ClearRedoList()
{
    DeleteFiles(m_RedoList);
}
