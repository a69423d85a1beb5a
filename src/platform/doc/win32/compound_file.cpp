// Compound files by the system's structured storage, in memory.
#include "platform/doc/compound_file.h"

#include "platform/base/exception.h"
#include "platform/base/win32/com_pointer.h"
#include "platform/base/win32/wide_text.h"
#include "platform/doc/win32/compound_check.h"
#include "platform/doc/win32/memory_bytes.h"

namespace
{
constexpr DWORD s_nCreate = STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE;
constexpr DWORD s_nRead = STGM_READ | STGM_SHARE_EXCLUSIVE;

void Check(HRESULT nResult)
{
    if (nResult == E_OUTOFMEMORY || nResult == STG_E_INSUFFICIENTMEMORY)
        AfxThrowMemoryException();
    if (FAILED(nResult))
        AfxThrowFileException(CFileException::genericException, nResult);
}

// What was made by a function with an out parameter; empty if it failed and may.
template <class T, class F>
CObjectPtr<T> Make(F create)
{
    T* p = nullptr;
    return SUCCEEDED(create(&p)) ? CObjectPtr<T>(p) : nullptr;
}
template <class T, class F>
CObjectPtr<T> MustMake(F create)
{
    T* p = nullptr;
    Check(create(&p));
    return CObjectPtr<T>(p);
}

std::wstring StreamName(const char* pszStream)
{
    return ToWide(pszStream, CP_UTF8);
}

void WriteStorage(ILockBytes* pMemory, const char* pszStream, const CMemFile& content)
{
    const auto storage = MustMake<IStorage>(
        [=](IStorage** pp) { return StgCreateDocfileOnILockBytes(pMemory, s_nCreate, 0, pp); });
    const auto stream = MustMake<IStream>(
        [&](IStream** pp)
        { return storage->CreateStream(StreamName(pszStream).c_str(), s_nCreate, 0, 0, pp); });
    Check(stream->Write(content.GetData(), static_cast<ULONG>(content.GetLength()), nullptr));
    Check(stream->Commit(STGC_DEFAULT));
    Check(storage->Commit(STGC_DEFAULT));
}

bool CopyStream(IStream* pStream, ULONGLONG nMost, CMemFile& content)
{
    STATSTG status{};
    // A stream that claims more than the file can hold is believed nothing.
    if (FAILED(pStream->Stat(&status, STATFLAG_NONAME)) || status.cbSize.QuadPart > nMost)
        return false;
    BYTE aPiece[0x4000];
    for (ULONGLONG nLeft = status.cbSize.QuadPart; nLeft > 0;)
    {
        ULONG nRead = 0;
        if (FAILED(pStream->Read(aPiece, sizeof aPiece, &nRead)) || nRead == 0)
            return false;
        content.Write(aPiece, nRead);
        nLeft -= nRead;
    }
    return true;
}
}  // namespace

void PackCompoundFile(CFile& file, const char* pszStream, const CMemFile& content)
{
    CMemoryBytes memory;
    try
    {
        WriteStorage(&memory, pszStream, content);
    }
    catch (CFileException* pException)
    {
        if (!memory.WasWithoutMemory())
            throw;
        pException->Delete();
        AfxThrowMemoryException();
    }
    file.Write(memory.Bytes().data(), static_cast<UINT>(memory.Bytes().size()));
}

BOOL UnpackCompoundFile(CFile& file, const char* pszStream, CMemFile& content)
{
    CMemoryBytes memory(ReadRest(file));
    // The system follows chains of sectors without counting them.
    if (!IsSoundCompoundFile(memory.Bytes()))
        return FALSE;
    const auto storage = Make<IStorage>(
        [&](IStorage** pp)
        { return StgOpenStorageOnILockBytes(&memory, nullptr, s_nRead, nullptr, 0, pp); });
    const auto stream = storage ? Make<IStream>(
                                      [&](IStream** pp) {
                                          return storage->OpenStream(StreamName(pszStream).c_str(),
                                                                     nullptr, s_nRead, 0, pp);
                                      })
                                : nullptr;
    const bool bCopied = stream && CopyStream(stream.get(), memory.Bytes().size(), content);
    content.SeekToBegin();
    return bCopied && !memory.WasShort();
}
