// The bytes of a compound file as the system reads and grows them in memory.
#include "platform/doc/win32/memory_bytes.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace
{
constexpr ULONGLONG s_nMost = 0x7FFFFFFF;
}

STDMETHODIMP CMemoryBytes::QueryInterface(REFIID id, void** ppObject)
{
    const bool bKnown = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_ILockBytes);
    *ppObject = bKnown ? static_cast<ILockBytes*>(this) : nullptr;
    return bKnown ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP CMemoryBytes::ReadAt(ULARGE_INTEGER offset, void* pBuffer, ULONG nCount, ULONG* pnRead)
{
    const ULONGLONG nSize = m_bytes.size();
    const ULONGLONG nThere = offset.QuadPart < nSize ? nSize - offset.QuadPart : 0;
    const auto nRead = static_cast<ULONG>(std::min<ULONGLONG>(nCount, nThere));
    m_bShort = m_bShort || nRead < nCount;
    if (pnRead != nullptr)
        *pnRead = nRead;
    if (nRead > 0)
        std::memcpy(pBuffer, m_bytes.data() + offset.QuadPart, nRead);
    return S_OK;
}

STDMETHODIMP CMemoryBytes::WriteAt(ULARGE_INTEGER offset, const void* pBuffer, ULONG nCount,
                                   ULONG* pnWritten)
{
    if (pnWritten != nullptr)
        *pnWritten = 0;
    if (offset.QuadPart + nCount > m_bytes.size())
    {
        ULARGE_INTEGER size;
        size.QuadPart = offset.QuadPart + nCount;
        const HRESULT nResult = SetSize(size);
        if (FAILED(nResult))
            return nResult;
    }
    if (nCount > 0)
        std::memcpy(m_bytes.data() + offset.QuadPart, pBuffer, nCount);
    if (pnWritten != nullptr)
        *pnWritten = nCount;
    return S_OK;
}

STDMETHODIMP CMemoryBytes::SetSize(ULARGE_INTEGER size)
{
    if (size.QuadPart > s_nMost)
        return STG_E_MEDIUMFULL;
    try
    {
        m_bytes.resize(static_cast<size_t>(size.QuadPart));
        return S_OK;
    }
    catch (const std::bad_alloc&)
    {
        m_bNoMemory = true;
        return E_OUTOFMEMORY;
    }
}

STDMETHODIMP CMemoryBytes::LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD)
{
    return STG_E_INVALIDFUNCTION;  // Stat tells that there are no locks
}

STDMETHODIMP CMemoryBytes::UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD)
{
    return STG_E_INVALIDFUNCTION;
}

STDMETHODIMP CMemoryBytes::Stat(STATSTG* pStatus, DWORD)
{
    *pStatus = STATSTG{};
    pStatus->type = STGTY_LOCKBYTES;
    pStatus->cbSize.QuadPart = m_bytes.size();
    return S_OK;
}
