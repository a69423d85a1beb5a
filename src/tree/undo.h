// Checkpoints of an object: each is a complete copy of its archive form in a memory file.
#pragma once

#include "platform/base/collections.h"

class CArchive;
class CMemFile;

// A second base class for what can store itself. It records; nothing plays the states back.
class CUndo
{
public:
    // Keeps nLevels + 1 states; each memory file grows in steps of nGrowSize bytes.
    CUndo(long nLevels, long nGrowSize);

    CUndo(const CUndo&) = delete;
    CUndo& operator=(const CUndo&) = delete;

    // Stores or loads the whole object.
    virtual void Serialize(CArchive& ar) = 0;

    virtual void DeleteContents() = 0;

    // Records the present state. What the archive or the memory file throws reaches the caller,
    // and the lists are then as before.
    void CheckPoint();

    // Takes over pFile as the newest state. The oldest goes if the list is over its limit.
    void AddUndo(CMemFile* pFile);

    // Writes the object to the start of pFile, which stays the caller's.
    void StoreState(CMemFile* pFile);

    void ClearRedoList();

    // States that are kept.
    INT_PTR GetUndoCount() const { return m_UndoList.GetCount(); }

protected:
    ~CUndo();

    CObList m_UndoList;     // CMemFile, owned, newest at the head
    CObList m_RedoList;     // CMemFile, owned; nothing adds to it
    int m_nGrowSize;        // bytes
    int m_nUndoLevels;      // tested before a state is added: one more than this is kept
    int m_nCheckPointLock;  // a checkpoint is taken only while this is below 1
};
