// The containers that are no templates.
#include "platform/base/collections.h"

#include <algorithm>
#include <atomic>

IMPLEMENT_DYNAMIC(CStringArray, CObject)
IMPLEMENT_DYNAMIC(CObList, CObject)
IMPLEMENT_DYNAMIC(CMapStringToOb, CObject)

namespace
{
void Require(bool bCondition)
{
    if (!bCondition)
        AfxThrowInvalidArgException();
}

// Memory that the standard library misses is missed as a platform exception.
template <class F>
decltype(auto) WithMemory(F&& step)
{
    try
    {
        return step();
    }
    catch (const std::bad_alloc&)
    {
        AfxThrowMemoryException();
    }
    catch (const std::length_error&)
    {
        AfxThrowMemoryException();
    }
}
}  // namespace

// ---- CStringArray ----

CStringArray& CStringArray::operator=(const CStringArray& array) noexcept
{
    if (m_pBuffer != array.m_pBuffer)
    {
        array.AddRef();
        Release();
        m_pBuffer = array.m_pBuffer;
    }
    return *this;
}

void CStringArray::AddRef() const noexcept
{
    if (m_pBuffer == nullptr)
        return;
    std::atomic_ref<int> refs(m_pBuffer->nRefs);
    if (refs.load(std::memory_order_relaxed) >= 0)
        refs.fetch_add(1, std::memory_order_relaxed);
}

void CStringArray::Release() noexcept
{
    if (m_pBuffer == nullptr)
        return;
    std::atomic_ref<int> refs(m_pBuffer->nRefs);
    const int nRefs = refs.load(std::memory_order_acquire);
    if (nRefs == 0 || (nRefs > 0 && refs.fetch_sub(1, std::memory_order_acq_rel) == 0))
        delete m_pBuffer;
    m_pBuffer = nullptr;
}

// Applies a change to a buffer that is this array's own.
template <class F>
void CStringArray::Change(F&& change)
{
    WithMemory(
        [&]
        {
            if (m_pBuffer == nullptr)
            {
                m_pBuffer = new CBuffer;
            }
            else if (std::atomic_ref<int>(m_pBuffer->nRefs).load(std::memory_order_acquire) != 0)
            {
                auto* pCopy = new CBuffer{ 0, m_pBuffer->items, nullptr };
                Release();
                m_pBuffer = pCopy;
            }
            change(m_pBuffer->items);
        });
}

void CStringArray::SetAt(INT_PTR nIndex, const CString& str)
{
    if (GetAt(nIndex).IsIdentical(str))
        return;
    const CString copy(str);  // it may lie in the buffer that Change gives up
    Change([&](auto& items) { items[static_cast<std::size_t>(nIndex)] = copy; });
}

INT_PTR CStringArray::Add(const CString& str)
{
    const CString copy(str);
    Change([&](auto& items) { items.push_back(copy); });
    return GetSize() - 1;
}

constinit CStringArray::CBuffer* CStringArray::s_pImmortals = nullptr;

void CStringArray::MakeImmortal()
{
    if (m_pBuffer != nullptr && m_pBuffer->nRefs >= 0)
    {
        m_pBuffer->nRefs = -1;
        m_pBuffer->pNextImmortal = s_pImmortals;
        s_pImmortals = m_pBuffer;
    }
}

// ---- CObList ----

CObList::CObList(INT_PTR) {}
CObList::~CObList()
{
    RemoveAll();
}

CObList::CListNode* CObList::Node(POSITION pos)
{
    Require(pos != nullptr);
    return static_cast<CListNode*>(pos);
}

POSITION CObList::Link(CListNode* pPrev, CListNode* pNext, CObject* pObject)
{
    auto* pNode = WithMemory([&] { return new CListNode{ {}, pNext, pPrev, pObject }; });
    (pPrev != nullptr ? pPrev->pNext : m_pHead) = pNode;
    (pNext != nullptr ? pNext->pPrev : m_pTail) = pNode;
    ++m_nCount;
    return pNode;
}

CObject* CObList::RemoveHead()
{
    CObject* pObject = GetHead();
    RemoveAt(m_pHead);
    return pObject;
}

CObject* CObList::RemoveTail()
{
    CObject* pObject = GetTail();
    RemoveAt(m_pTail);
    return pObject;
}

POSITION CObList::AddHead(CObject* pObject)
{
    return Link(nullptr, m_pHead, pObject);
}
POSITION CObList::AddTail(CObject* pObject)
{
    return Link(m_pTail, nullptr, pObject);
}

void CObList::RemoveAll()
{
    while (m_pHead != nullptr)
    {
        CListNode* pNext = m_pHead->pNext;
        delete m_pHead;
        m_pHead = pNext;
    }
    m_pTail = nullptr;
    m_nCount = 0;
}

CObject*& CObList::GetNext(POSITION& pos)
{
    CListNode* pNode = Node(pos);
    pos = pNode->pNext;
    return pNode->pObject;
}

CObject* CObList::GetNext(POSITION& pos) const
{
    return const_cast<CObList*>(this)->GetNext(pos);
}

CObject*& CObList::GetPrev(POSITION& pos)
{
    CListNode* pNode = Node(pos);
    pos = pNode->pPrev;
    return pNode->pObject;
}

CObject* CObList::GetPrev(POSITION& pos) const
{
    return const_cast<CObList*>(this)->GetPrev(pos);
}

void CObList::RemoveAt(POSITION pos)
{
    CListNode* pNode = Node(pos);
    (pNode->pPrev != nullptr ? pNode->pPrev->pNext : m_pHead) = pNode->pNext;
    (pNode->pNext != nullptr ? pNode->pNext->pPrev : m_pTail) = pNode->pPrev;
    --m_nCount;
    delete pNode;
}

// ---- CMapStringToOb ----

CMapStringToOb::CMapStringToOb(INT_PTR) {}
CMapStringToOb::~CMapStringToOb()
{
    RemoveAll();
}

void CMapStringToOb::Rehash(std::size_t nBuckets)
{
    std::vector<CEntry*> buckets;
    WithMemory([&] { buckets.resize(nBuckets, nullptr); });
    m_buckets.swap(buckets);
    for (CEntry* p = m_pFirst; p != nullptr; p = p->pNext)
    {
        CEntry*& pHead = m_buckets[Bucket(p->nHash)];
        p->pNextInBucket = pHead;
        pHead = p;
    }
}

CMapStringToOb::CEntry* CMapStringToOb::FindEntry(const char* pszKey) const
{
    if (m_nCount == 0)
        return nullptr;
    const unsigned nHash = CString::HashText(pszKey, std::strlen(pszKey));
    CEntry* p = m_buckets[Bucket(nHash)];
    while (p != nullptr && (p->nHash != nHash || p->strKey != pszKey))
        p = p->pNextInBucket;
    return p;
}

CMapStringToOb::CEntry* CMapStringToOb::AddEntry(const CString& strKey)
{
    if (static_cast<std::size_t>(m_nCount) >= m_buckets.size())
        Rehash(std::max<std::size_t>(m_buckets.size() * 2, 16));
    auto* p = WithMemory([] { return new CEntry; });
    p->strKey = strKey;
    p->nHash = strKey.GetHash();
    CEntry*& pHead = m_buckets[Bucket(p->nHash)];
    p->pNextInBucket = pHead;
    pHead = p;
    p->pPrev = m_pLast;
    (m_pLast != nullptr ? m_pLast->pNext : m_pFirst) = p;
    m_pLast = p;
    ++m_nCount;
    return p;
}

CObject*& CMapStringToOb::operator[](const CString& strKey)
{
    CEntry* p = FindEntry(strKey);
    return (p != nullptr ? p : AddEntry(strKey))->pValue;
}

CObject*& CMapStringToOb::operator[](const char* pszKey)
{
    CEntry* p = FindEntry(pszKey);
    return (p != nullptr ? p : AddEntry(pszKey))->pValue;
}

void CMapStringToOb::RemoveAll()
{
    while (m_pFirst != nullptr)
    {
        CEntry* pNext = m_pFirst->pNext;
        delete m_pFirst;
        m_pFirst = pNext;
    }
    m_pLast = nullptr;
    m_nCount = 0;
    m_buckets.clear();
}

void CMapStringToOb::GetNextAssoc(POSITION& pos, CString& strKey, CObject*& pValue) const
{
    Require(pos != nullptr);
    const auto* p = static_cast<CEntry*>(pos);
    strKey = p->strKey;
    pValue = p->pValue;
    pos = p->pNext;
}
