// The bytes of an enhanced metafile in memory: one block that grows while records are appended.
#pragma once

#include "platform/base/types.h"

#include <cstddef>
#include <memory>
#include <span>

// Shared by the handles of one metafile, which count themselves in. The block of the last metafile
// that went away serves the next one, so that a host that makes many takes no memory each time.
class CMetafileBits
{
public:
    // The most bytes that a metafile may have: what it counts in 32 bits is far from overflowing.
    static constexpr std::size_t SIZE_LIMIT = std::size_t{ 1 } << 30;

    // An empty one, held once; null if memory is short.
    static CMetafileBits* Take();
    void Hold() { ++m_nHolders; }
    void Release()
    {
        if (--m_nHolders == 0)
            Recycle();
    }

    const BYTE* Data() const { return m_pData; }
    BYTE* Data() { return m_pData; }
    std::size_t Size() const { return m_nSize; }
    std::span<const BYTE> Bytes() const { return { m_pData, m_nSize }; }
    void Shorten(std::size_t nSize) { m_nSize = nSize; }

    // nBytes more at the end, not initialised; null, and nothing changed, if memory is short or
    // the limit is passed. Moves what Data gave before.
    BYTE* Extend(std::size_t nBytes)
    {
        if (nBytes > m_nCapacity - m_nSize && !Grow(nBytes))
            return nullptr;
        BYTE* pPlace = m_pData + m_nSize;
        m_nSize += nBytes;
        return pPlace;
    }

    CMetafileBits(const CMetafileBits&) = delete;
    CMetafileBits& operator=(const CMetafileBits&) = delete;

private:
    static constexpr std::size_t FIRST_SIZE = 16 * 1024;        // a formula of a dozen signs
    static constexpr std::size_t KEPT_SIZE = 32 * 1024 * 1024;  // a larger one is given back

    CMetafileBits() = default;
    ~CMetafileBits();
    bool Grow(std::size_t nBytes);
    void Recycle();

    struct CSpare;
    static CSpare s_spare;

    BYTE* m_pData = nullptr;
    std::size_t m_nSize = 0;
    std::size_t m_nCapacity = 0;
    int m_nHolders = 1;
};

struct CReleaseBits
{
    void operator()(CMetafileBits* pBits) const { pBits->Release(); }
};
using CMetafileBitsPtr = std::unique_ptr<CMetafileBits, CReleaseBits>;
