// The containers that are no templates.
#include "platform/base/collections.h"

#include <atomic>
#include <iterator>

IMPLEMENT_DYNAMIC(CStringArray, CObject)
IMPLEMENT_DYNAMIC(CObList, CObject)
IMPLEMENT_DYNAMIC(CMapStringToOb, CObject)

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
    AfxWithMemory(
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

const std::list<CObList::CItem>& CObList::Checked() const
{
    if (m_items.empty())
        AfxThrowInvalidArgException();
    return m_items;
}

POSITION CObList::Position(std::list<CItem>::const_iterator it) const
{
    return it == m_items.end() ? nullptr : const_cast<CItem*>(&*it);
}

CObject* CObList::RemoveHead()
{
    CObject* pObject = Checked().front().pObject;
    m_items.pop_front();
    return pObject;
}

CObject* CObList::RemoveTail()
{
    CObject* pObject = Checked().back().pObject;
    m_items.pop_back();
    return pObject;
}

POSITION CObList::AddHead(CObject* pObject)
{
    CItem& item = AfxWithMemory([&]() -> CItem& { return m_items.emplace_front(pObject); });
    item.place = m_items.begin();
    return &item;
}

CObject* CObList::GetNext(POSITION& pos) const
{
    if (pos == nullptr)
        AfxThrowInvalidArgException();
    const auto* pItem = static_cast<CItem*>(pos);
    pos = Position(std::next(pItem->place));
    return pItem->pObject;
}

// ---- CMapStringToOb ----

CMapStringToOb::CMapStringToOb(INT_PTR) {}

CObject*& CMapStringToOb::operator[](const CString& strKey)
{
    return AfxWithMemory([&]() -> CObject*& { return m_items[strKey]; });
}
