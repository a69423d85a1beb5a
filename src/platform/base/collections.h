// Containers: array of texts, typed array, list of objects, map from text to object. An index or
// position outside raises CInvalidArgException, missing memory CMemoryException.
#pragma once

#include <functional>
#include <list>
#include <new>
#include <stdexcept>
#include <type_traits>
#include <unordered_map>
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

// Calls what may ask the standard library for memory; missing memory is a platform exception.
template <class F>
decltype(auto) AfxWithMemory(F&& step)
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

// Array of any type, elements passed as ARG_TYPE. RemoveAll keeps the memory for the next use.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject
{
public:
    CArray() = default;

    INT_PTR GetSize() const { return static_cast<INT_PTR>(m_items.size()); }
    void RemoveAll() { m_items.clear(); }

    const TYPE& operator[](INT_PTR nIndex) const { return m_items[Index(nIndex)]; }
    TYPE& operator[](INT_PTR nIndex) { return m_items[Index(nIndex)]; }

    INT_PTR Add(ARG_TYPE element)
    {
        AfxWithMemory([&] { m_items.push_back(element); });
        return GetSize() - 1;
    }

private:
    static_assert(!std::is_same_v<TYPE, bool>, "the elements must have addresses: use BOOL");

    std::size_t Index(INT_PTR nIndex) const
    {
        if (nIndex < 0 || nIndex >= GetSize())
            AfxThrowInvalidArgException();
        return static_cast<std::size_t>(nIndex);
    }

    std::vector<TYPE> m_items;
};

// List of pointers to objects, which it does not own.
class CObList : public CObject
{
    DECLARE_DYNAMIC(CObList)

public:
    explicit CObList(INT_PTR nBlockSize = 10);  // kept for callers; elements are single blocks

    INT_PTR GetCount() const { return static_cast<INT_PTR>(m_items.size()); }
    BOOL IsEmpty() const { return m_items.empty(); }

    CObject* GetHead() const { return Checked().front().pObject; }
    CObject* RemoveHead();
    CObject* RemoveTail();
    POSITION AddHead(CObject* pObject);

    POSITION GetHeadPosition() const { return Position(m_items.begin()); }
    // The element at the position, which moves on; null behind the last.
    CObject* GetNext(POSITION& pos) const;

private:
    struct CItem : AFX_POSITION
    {
        explicit CItem(CObject* p) : pObject(p) {}

        CObject* pObject;
        std::list<CItem>::const_iterator place;  // where it stands itself
    };

    // CInvalidArgException if there is no element.
    const std::list<CItem>& Checked() const;
    POSITION Position(std::list<CItem>::const_iterator it) const;

    std::list<CItem> m_items;
};

// Map from text to pointers to objects, which it does not own. Looking up allocates nothing.
class CMapStringToOb : public CObject
{
    DECLARE_DYNAMIC(CMapStringToOb)

public:
    explicit CMapStringToOb(INT_PTR nBlockSize = 10);  // kept for callers

    INT_PTR GetCount() const { return static_cast<INT_PTR>(m_items.size()); }
    BOOL IsEmpty() const { return m_items.empty(); }

    BOOL Lookup(const CString& strKey, CObject*& pValue) const { return Found(strKey, pValue); }
    BOOL Lookup(const char* pszKey, CObject*& pValue) const { return Found(pszKey, pValue); }
    // An unknown key is entered with null.
    CObject*& operator[](const CString& strKey);
    void SetAt(const CString& strKey, CObject* pValue) { (*this)[strKey] = pValue; }

private:
    struct CHash
    {
        using is_transparent = void;
        std::size_t operator()(const CString& str) const { return str.GetHash(); }
        std::size_t operator()(const char* psz) const
        {
            return CString::HashText(psz, std::strlen(psz));
        }
    };

    template <class K>
    BOOL Found(const K& key, CObject*& pValue) const
    {
        const auto it = m_items.find(key);
        if (it == m_items.end())
            return FALSE;
        pValue = it->second;
        return TRUE;
    }

    std::unordered_map<CString, CObject*, CHash, std::equal_to<>> m_items;
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
    void SetAt(const KEY& key, VALUE value) { BASE_CLASS::SetAt(key, value); }

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
