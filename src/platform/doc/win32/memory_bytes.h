// Bytes in memory that the system's structured storage works on. Its own memory object grows by
// what was in memory before, which gets into the files and is taken for entries of their folder.
#pragma once

#include "platform/base/types.h"

#include <objbase.h>

#include <vector>

// Lives where its maker has it: references are not counted, and must be gone before.
class CMemoryBytes : public ILockBytes
{
public:
    CMemoryBytes() = default;
    explicit CMemoryBytes(std::vector<BYTE> bytes) : m_bytes(std::move(bytes)) {}
    CMemoryBytes(const CMemoryBytes&) = delete;
    CMemoryBytes& operator=(const CMemoryBytes&) = delete;

    const std::vector<BYTE>& Bytes() const { return m_bytes; }
    // Whether bytes were asked for that are not there. Readers take them for zeros.
    bool WasShort() const { return m_bShort; }
    // Whether memory ended. Storages give another reason for that.
    bool WasWithoutMemory() const { return m_bNoMemory; }

    STDMETHOD(QueryInterface)(REFIID id, void** ppObject) override;
    STDMETHOD_(ULONG, AddRef)() override { return 1; }
    STDMETHOD_(ULONG, Release)() override { return 1; }

    STDMETHOD(ReadAt)
    (ULARGE_INTEGER offset, void* pBuffer, ULONG nCount, ULONG* pnRead) override;
    STDMETHOD(WriteAt)
    (ULARGE_INTEGER offset, const void* pBuffer, ULONG nCount, ULONG* pnWritten) override;
    STDMETHOD(Flush)() override { return S_OK; }
    STDMETHOD(SetSize)(ULARGE_INTEGER size) override;
    STDMETHOD(LockRegion)(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override;
    STDMETHOD(UnlockRegion)(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override;
    STDMETHOD(Stat)(STATSTG* pStatus, DWORD nFlags) override;

private:
    std::vector<BYTE> m_bytes;
    bool m_bShort = false;
    bool m_bNoMemory = false;
};
