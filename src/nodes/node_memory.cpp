// Memory of nodes: what a deleted node leaves is kept for the next one of its size. The system's
// allocator would give the pages of a long formula back each time, and fetch them again.
#include "nodes/node.h"
#include "platform/base/sanitizer.h"

namespace
{
// The nodes of the longest text. But the sanitizer has to see each node come and go.
constexpr std::size_t s_nKeptBytes = g_bAddressSanitizer ? 0 : 32 * 1024 * 1024;
constexpr std::size_t s_nStep = 16;
constexpr std::size_t s_nLargest = 1024;

struct CFreeBlock
{
    CFreeBlock* pNext;
};

// Blocks by size, in steps.
struct CFreeBlocks
{
    CFreeBlock* apFirst[s_nLargest / s_nStep + 1] = {};
    std::size_t nBytes = 0;
};
constinit CFreeBlocks s_free;

// With the word that the system's allocator puts in front, whole steps.
constexpr std::size_t RoundUp(std::size_t nBytes)
{
    constexpr std::size_t nHead = sizeof(void*);
    return (nBytes + nHead + s_nStep - 1) / s_nStep * s_nStep - nHead;
}
}  // namespace

void* CNode::operator new(std::size_t nBytes)
{
    const std::size_t nSize = RoundUp(nBytes);
    if (nSize <= s_nLargest)
    {
        if (CFreeBlock* pBlock = s_free.apFirst[nSize / s_nStep])
        {
            s_free.apFirst[nSize / s_nStep] = pBlock->pNext;
            s_free.nBytes -= nSize;
            return pBlock;
        }
    }
    return CObject::operator new(nSize);
}

void CNode::operator delete(void* p, std::size_t nBytes) noexcept
{
    const std::size_t nSize = RoundUp(nBytes);
    if (p == nullptr || nSize > s_nLargest || s_free.nBytes + nSize > s_nKeptBytes)
    {
        CObject::operator delete(p);
        return;
    }
    auto* pBlock = static_cast<CFreeBlock*>(p);
    pBlock->pNext = s_free.apFirst[nSize / s_nStep];
    s_free.apFirst[nSize / s_nStep] = pBlock;
    s_free.nBytes += nSize;
}
