// The memory of metafiles.
#include "platform/gdi/linux/metafile/metafile_bits.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <utility>

// One block at most waits for its next use.
struct CMetafileBits::CSpare
{
    CMetafileBits* m_pBits = nullptr;

    ~CSpare() { delete std::exchange(m_pBits, nullptr); }
};
CMetafileBits::CSpare CMetafileBits::s_spare;

CMetafileBits::~CMetafileBits()
{
    std::free(m_pData);
}

CMetafileBits* CMetafileBits::Take()
{
    CMetafileBits* pBits = std::exchange(s_spare.m_pBits, nullptr);
    if (!pBits)
        return new (std::nothrow) CMetafileBits();
    pBits->m_nSize = 0;
    pBits->m_nHolders = 1;
    return pBits;
}

void CMetafileBits::Recycle()
{
    if (s_spare.m_pBits || m_nCapacity > KEPT_SIZE)
        delete this;
    else
        s_spare.m_pBits = this;
}

bool CMetafileBits::Grow(std::size_t nBytes)
{
    if (nBytes > SIZE_LIMIT - m_nSize)
        return false;
    std::size_t nCapacity = std::max({ FIRST_SIZE, 2 * m_nCapacity, m_nSize + nBytes });
    void* pData = std::realloc(m_pData, nCapacity);
    if (!pData)
        return false;
    m_pData = static_cast<BYTE*>(pData);
    m_nCapacity = nCapacity;
    return true;
}
