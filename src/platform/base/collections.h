// Containers: array of texts, typed array, list of objects, map from text to object. An index or
// position outside raises CInvalidArgException, missing memory CMemoryException.
#pragma once

#include <new>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/base/cstring.h"
#include "platform/base/object.h"

struct AFX_POSITION
{
};
using POSITION = AFX_POSITION*;

// Array of texts. Copies share one buffer until one of them is changed, so that taking over a
// table is the copy of a pointer.
class CStringArray : public CObject
{
    DECLARE_DYNAMIC(CStringArray)

public:
    CStringArray() = default;
    CStringArray(const CStringArray& array) noexcept : CObject(), m_pBuffer(array.m_pBuffer)
    {
        AddRef();
    }
    CStringArray& operator=(const CStringArray& array) noexcept;
    ~CStringArray() override { Release(); }

    INT_PTR GetSize() const
    {
        return m_pBuffer != nullptr ? static_cast<INT_PTR>(m_pBuffer->items.size()) : 0;
    }
    INT_PTR GetCount() const { return GetSize(); }
    BOOL IsEmpty() const { return GetSize() == 0; }

    const CString& GetAt(INT_PTR nIndex) const
    {
        if (nIndex < 0 || nIndex >= GetSize())
            AfxThrowInvalidArgException();
        return m_pBuffer->items[static_cast<std::size_t>(nIndex)];
    }
    const CString& operator[](INT_PTR nIndex) const { return GetAt(nIndex); }

    // An equal text leaves the buffer shared.
    void SetAt(INT_PTR nIndex, const CString& str);
    INT_PTR Add(const CString& str);
    void Copy(const CStringArray& array) { *this = array; }

    // From now on copies touch no counter and the buffer is never freed: for static tables.
    void MakeImmortal();
    bool IsSharedWith(const CStringArray& array) const { return m_pBuffer == array.m_pBuffer; }

private:
    struct CBuffer
    {
        int nRefs = 0;  // owners beside the first; negative: immortal
        std::vector<CString> items;
        CBuffer* pNextImmortal = nullptr;  // keeps what lives for ever reachable
    };

    void AddRef() const noexcept;
    void Release() noexcept;
    template <class F>
    void Change(F&& change);

    static CBuffer* s_pImmortals;
    CBuffer* m_pBuffer = nullptr;  // null: empty
};

// Array of any type, elements passed as ARG_TYPE. RemoveAll keeps the memory for the next use.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject
{
public:
    CArray() = default;

    INT_PTR GetSize() const { return static_cast<INT_PTR>(m_items.size()); }
    INT_PTR GetCount() const { return GetSize(); }
    BOOL IsEmpty() const { return m_items.empty(); }
    void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1)
    {
        static_cast<void>(nGrowBy);
        Require(nNewSize >= 0);
        Guard([&] { m_items.resize(static_cast<std::size_t>(nNewSize)); });
    }
    void RemoveAll() { m_items.clear(); }

    const TYPE& GetAt(INT_PTR nIndex) const { return m_items[Index(nIndex)]; }
    TYPE& GetAt(INT_PTR nIndex) { return m_items[Index(nIndex)]; }
    const TYPE& operator[](INT_PTR nIndex) const { return m_items[Index(nIndex)]; }
    TYPE& operator[](INT_PTR nIndex) { return m_items[Index(nIndex)]; }
    const TYPE* GetData() const { return m_items.data(); }
    TYPE* GetData() { return m_items.data(); }

    void SetAt(INT_PTR nIndex, ARG_TYPE element) { m_items[Index(nIndex)] = element; }
    INT_PTR Add(ARG_TYPE element)
    {
        Guard([&] { m_items.push_back(element); });
        return GetSize() - 1;
    }

private:
    static_assert(!std::is_same_v<TYPE, bool>, "the elements must have addresses: use BOOL");

    static void Require(bool bCondition)
    {
        if (!bCondition)
            AfxThrowInvalidArgException();
    }
    std::size_t Index(INT_PTR nIndex) const
    {
        Require(nIndex >= 0 && nIndex < GetSize());
        return static_cast<std::size_t>(nIndex);
    }
    template <class F>
    static void Guard(F&& step)
    {
        try
        {
            step();
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

    std::vector<TYPE> m_items;
};

// Doubly linked list of pointers to objects, which it does not own.
class CObList : public CObject
{
    DECLARE_DYNAMIC(CObList)

public:
    explicit CObList(INT_PTR nBlockSize = 10);  // kept for callers; elements are single blocks
    ~CObList() override;

    INT_PTR GetCount() const { return m_nCount; }
    BOOL IsEmpty() const { return m_nCount == 0; }

    CObject*& GetHead() { return Node(GetHeadPosition())->pObject; }
    CObject* GetHead() const { return Node(GetHeadPosition())->pObject; }
    CObject*& GetTail() { return Node(GetTailPosition())->pObject; }
    CObject* GetTail() const { return Node(GetTailPosition())->pObject; }
    CObject* RemoveHead();
    CObject* RemoveTail();
    POSITION AddHead(CObject* pObject);
    POSITION AddTail(CObject* pObject);
    void RemoveAll();

    POSITION GetHeadPosition() const { return m_pHead; }
    POSITION GetTailPosition() const { return m_pTail; }
    // The element at the position, which moves on; null behind the last.
    CObject*& GetNext(POSITION& pos);
    CObject* GetNext(POSITION& pos) const;
    CObject*& GetPrev(POSITION& pos);
    CObject* GetPrev(POSITION& pos) const;

private:
    struct CListNode : AFX_POSITION
    {
        CListNode* pNext;
        CListNode* pPrev;
        CObject* pObject;
    };

    static CListNode* Node(POSITION pos);  // CInvalidArgException for null
    POSITION Link(CListNode* pPrev, CListNode* pNext, CObject* pObject);
    void RemoveAt(POSITION pos);

    CListNode* m_pHead = nullptr;
    CListNode* m_pTail = nullptr;
    INT_PTR m_nCount = 0;
};

// Map from text to pointers to objects, which it does not own. Looking up allocates nothing; going
// through the entries follows the order in which they came in.
class CMapStringToOb : public CObject
{
    DECLARE_DYNAMIC(CMapStringToOb)

public:
    explicit CMapStringToOb(INT_PTR nBlockSize = 10);  // kept for callers
    ~CMapStringToOb() override;

    INT_PTR GetCount() const { return m_nCount; }
    BOOL IsEmpty() const { return m_nCount == 0; }

    BOOL Lookup(const CString& strKey, CObject*& pValue) const
    {
        return Found(FindEntry(strKey), pValue);
    }
    BOOL Lookup(const char* pszKey, CObject*& pValue) const
    {
        return Found(FindEntry(pszKey), pValue);
    }
    // An unknown key is entered with null.
    CObject*& operator[](const CString& strKey);
    CObject*& operator[](const char* pszKey);
    void SetAt(const CString& strKey, CObject* pValue) { (*this)[strKey] = pValue; }
    void RemoveAll();

    POSITION GetStartPosition() const { return m_pFirst; }
    void GetNextAssoc(POSITION& pos, CString& strKey, CObject*& pValue) const;

private:
    struct CEntry : AFX_POSITION
    {
        CString strKey;
        unsigned nHash;
        CObject* pValue = nullptr;
        CEntry* pNextInBucket = nullptr;
        CEntry* pNext = nullptr;
        CEntry* pPrev = nullptr;
    };

    static BOOL Found(const CEntry* pEntry, CObject*& pValue)
    {
        if (pEntry == nullptr)
            return FALSE;
        pValue = pEntry->pValue;
        return TRUE;
    }
    std::size_t Bucket(unsigned nHash) const { return nHash & (m_buckets.size() - 1); }
    CEntry* FindEntry(const CString& strKey) const
    {
        if (m_nCount == 0)
            return nullptr;
        const unsigned nHash = strKey.GetHash();
        CEntry* p = m_buckets[Bucket(nHash)];
        while (p != nullptr && (p->nHash != nHash || p->strKey != strKey))
            p = p->pNextInBucket;
        return p;
    }
    CEntry* FindEntry(const char* pszKey) const;
    CEntry* AddEntry(const CString& strKey);
    void Rehash(std::size_t nBuckets);

    std::vector<CEntry*> m_buckets;  // a power of two of them; none before the first entry
    CEntry* m_pFirst = nullptr;
    CEntry* m_pLast = nullptr;
    INT_PTR m_nCount = 0;
};

// A map whose values are all VALUE (a pointer to a class derived from CObject).
template <class BASE_CLASS, class KEY, class VALUE>
class CTypedPtrMap : public BASE_CLASS
{
public:
    explicit CTypedPtrMap(INT_PTR nBlockSize = 10) : BASE_CLASS(nBlockSize) {}

    // The place of one value: reads as VALUE, takes a new one.
    class CSlot
    {
    public:
        explicit CSlot(CObject*& pValue) : m_pValue(pValue) {}
        CSlot(const CSlot&) = default;
        operator VALUE() const { return static_cast<VALUE>(m_pValue); }
        VALUE operator->() const { return static_cast<VALUE>(m_pValue); }
        CSlot& operator=(VALUE pValue)
        {
            m_pValue = pValue;
            return *this;
        }
        CSlot& operator=(const CSlot& slot) { return *this = static_cast<VALUE>(slot); }

    private:
        CObject*& m_pValue;
    };

    BOOL Lookup(const KEY& key, VALUE& value) const { return LookupAs(key, value); }
    BOOL Lookup(const char* pszKey, VALUE& value) const { return LookupAs(pszKey, value); }
    CSlot operator[](const KEY& key) { return CSlot(BASE_CLASS::operator[](key)); }
    CSlot operator[](const char* pszKey) { return CSlot(BASE_CLASS::operator[](pszKey)); }
    void SetAt(const KEY& key, VALUE value) { BASE_CLASS::SetAt(key, value); }
    void GetNextAssoc(POSITION& pos, KEY& key, VALUE& value) const
    {
        CObject* pValue = nullptr;
        BASE_CLASS::GetNextAssoc(pos, key, pValue);
        value = static_cast<VALUE>(pValue);
    }

private:
    template <class K>
    BOOL LookupAs(const K& key, VALUE& value) const
    {
        CObject* pValue = nullptr;
        if (!BASE_CLASS::Lookup(key, pValue))
            return FALSE;
        value = static_cast<VALUE>(pValue);
        return TRUE;
    }
};
