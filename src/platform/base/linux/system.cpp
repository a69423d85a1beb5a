// The system's services, as far as they are used, on Linux.
#include "platform/base/system.h"

#include <climits>
#include <cstdlib>
#include <cstring>

#include "platform/base/cstring.h"

namespace
{
constinit DWORD g_dwLastError = 0;

// Of a block of memory. A fixed block is this head with its bytes behind it; a moveable one has
// them in m_pBytes, and its handle is the head's address plus nHandleTag, which no address of a
// fixed block has.
struct alignas(16) CBlock
{
    SIZE_T nSize = 0;
    BYTE* pBytes = nullptr;  // null: fixed
    UINT nLocks = 0;
};
constexpr std::uintptr_t nHandleTag = 2;

bool IsMoveable(HGLOBAL hMem)
{
    return (reinterpret_cast<std::uintptr_t>(hMem) & nHandleTag) != 0;
}

CBlock* BlockOf(HGLOBAL hMem)
{
    auto* p = static_cast<BYTE*>(hMem);
    return reinterpret_cast<CBlock*>(IsMoveable(hMem) ? p - nHandleTag : p - sizeof(CBlock));
}

BYTE* BytesOf(HGLOBAL hMem)
{
    return IsMoveable(hMem) ? BlockOf(hMem)->pBytes : static_cast<BYTE*>(hMem);
}

HGLOBAL AllocMoveable(SIZE_T nBytes)
{
    auto* pBytes = static_cast<BYTE*>(std::calloc(nBytes > 0 ? nBytes : 1, 1));
    void* p = pBytes != nullptr ? std::malloc(sizeof(CBlock)) : nullptr;
    if (p == nullptr)
    {
        std::free(pBytes);
        return nullptr;
    }
    return reinterpret_cast<BYTE*>(::new (p) CBlock{ nBytes, pBytes, 0 }) + nHandleTag;
}

HGLOBAL AllocFixed(SIZE_T nBytes)
{
    void* p =
        nBytes <= SIZE_MAX - sizeof(CBlock) ? std::calloc(sizeof(CBlock) + nBytes, 1) : nullptr;
    return p != nullptr ? ::new (p) CBlock{ nBytes, nullptr, 0 } + 1 : nullptr;
}

// realloc of nOld to nNew bytes at p, what is new zeroed.
void* Resize(void* p, SIZE_T nOld, SIZE_T nNew)
{
    void* pNew = std::realloc(p, nNew > 0 ? nNew : 1);
    if (pNew != nullptr && nNew > nOld)
        std::memset(static_cast<BYTE*>(pNew) + nOld, 0, nNew - nOld);
    return pNew;
}
}  // namespace

int MulDiv(int nNumber, int nNumerator, int nDenominator)
{
    if (nDenominator == 0)
        return -1;
    const long long nProduct = static_cast<long long>(nNumber) * nNumerator;
    const long long nDivisor = nDenominator;
    const bool bNegative = (nProduct < 0) != (nDivisor < 0);
    const auto nTop = static_cast<unsigned long long>(nProduct < 0 ? -nProduct : nProduct);
    const auto nBottom = static_cast<unsigned long long>(nDivisor < 0 ? -nDivisor : nDivisor);
    const unsigned long long nQuotient = (nTop + nBottom / 2) / nBottom;
    if (nQuotient > INT_MAX)
        return -1;
    return bNegative ? -static_cast<int>(nQuotient) : static_cast<int>(nQuotient);
}

DWORD GetLastError()
{
    return g_dwLastError;
}
void SetLastError(DWORD dwError)
{
    g_dwLastError = dwError;
}

DWORD FormatMessageA(DWORD dwFlags, const void*, DWORD dwMessageId, DWORD, char* pszBuffer,
                     DWORD nSize, void*)
{
    CString text;
    const char* pszKnown = strerrordesc_np(static_cast<int>(dwMessageId));
    if (pszKnown != nullptr)
        text.Format("%s.", pszKnown);
    else
        text.Format("Unknown error %u.", dwMessageId);
    const auto nLength = static_cast<DWORD>(text.GetLength());
    if ((dwFlags & FORMAT_MESSAGE_ALLOCATE_BUFFER) != 0)
    {
        auto* pszNew = static_cast<char*>(AllocFixed(nLength + 1));
        std::memcpy(pszBuffer, &pszNew, sizeof(pszNew));
        if (pszNew == nullptr)
            return 0;
        pszBuffer = pszNew;
    }
    else if (nSize <= nLength)
    {
        return 0;
    }
    std::memcpy(pszBuffer, text.GetString(), nLength + 1);
    return nLength;
}

BOOL GetVersionExA(OSVERSIONINFOA* pInfo)
{
    if (pInfo->dwOSVersionInfoSize != sizeof(OSVERSIONINFOA))
        return FALSE;
    *pInfo = { sizeof(OSVERSIONINFOA), 6, 1, 7601, VER_PLATFORM_WIN32_NT, {} };
    return TRUE;
}

HGLOBAL GlobalAlloc(UINT nFlags, SIZE_T nBytes)
{
    return (nFlags & GMEM_MOVEABLE) != 0 ? AllocMoveable(nBytes) : AllocFixed(nBytes);
}

HGLOBAL GlobalReAlloc(HGLOBAL hMem, SIZE_T nBytes, UINT nFlags)
{
    if (hMem == nullptr)
        return nullptr;
    CBlock* pBlock = BlockOf(hMem);
    if (IsMoveable(hMem))
    {
        const bool bMayMove = pBlock->nLocks == 0 || (nFlags & GMEM_MOVEABLE) != 0;
        if (!bMayMove && nBytes > pBlock->nSize)
            return nullptr;
        if (bMayMove)
        {
            void* p = Resize(pBlock->pBytes, pBlock->nSize, nBytes);
            if (p == nullptr)
                return nullptr;
            pBlock->pBytes = static_cast<BYTE*>(p);
        }
        pBlock->nSize = nBytes;
        return hMem;
    }
    if (nBytes <= pBlock->nSize)
    {
        pBlock->nSize = nBytes;
        return hMem;
    }
    if ((nFlags & GMEM_MOVEABLE) == 0 || nBytes > SIZE_MAX - sizeof(CBlock))
        return nullptr;
    void* p = Resize(pBlock, sizeof(CBlock) + pBlock->nSize, sizeof(CBlock) + nBytes);
    if (p == nullptr)
        return nullptr;
    static_cast<CBlock*>(p)->nSize = nBytes;
    return static_cast<CBlock*>(p) + 1;
}

HGLOBAL GlobalFree(HGLOBAL hMem)
{
    if (hMem != nullptr)
    {
        if (IsMoveable(hMem))
            std::free(BytesOf(hMem));
        std::free(BlockOf(hMem));
    }
    return nullptr;
}

void* GlobalLock(HGLOBAL hMem)
{
    if (hMem == nullptr)
        return nullptr;
    if (IsMoveable(hMem))
        ++BlockOf(hMem)->nLocks;
    return BytesOf(hMem);
}

BOOL GlobalUnlock(HGLOBAL hMem)
{
    if (hMem == nullptr)
        return FALSE;
    if (!IsMoveable(hMem))
        return TRUE;  // a fixed block is always locked
    CBlock* pBlock = BlockOf(hMem);
    if (pBlock->nLocks > 0)
        --pBlock->nLocks;
    return pBlock->nLocks > 0;
}

SIZE_T GlobalSize(HGLOBAL hMem)
{
    return hMem != nullptr ? BlockOf(hMem)->nSize : 0;
}

HLOCAL LocalFree(HLOCAL hMem)
{
    return GlobalFree(hMem);
}
