// What the COM objects of this library share: counted references to one interface, and an end for
// exceptions, which COM does not carry.
#pragma once

#include <atomic>
#include <new>

#include "platform/base/exception.h"
#include "platform/base/win32/com_pointer.h"

// Starts with one reference, its maker's.
template <class Interface>
class CComObject : public Interface
{
public:
    CComObject() = default;
    CComObject(const CComObject&) = delete;
    CComObject& operator=(const CComObject&) = delete;

    STDMETHOD(QueryInterface)(REFIID id, void** ppObject) override
    {
        if (ppObject == nullptr)
            return E_POINTER;
        *ppObject = nullptr;
        if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, __uuidof(Interface)))
            return E_NOINTERFACE;
        *ppObject = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHOD_(ULONG, AddRef)() override { return ++m_nReferences; }
    STDMETHOD_(ULONG, Release)() override
    {
        const ULONG nLeft = --m_nReferences;
        if (nLeft == 0)
            delete this;
        return nLeft;
    }

protected:
    virtual ~CComObject() = default;

private:
    std::atomic<ULONG> m_nReferences = 1;
};

// The body of a COM method, whose exceptions end here: E_OUTOFMEMORY or E_UNEXPECTED.
template <class F>
HRESULT GuardMethod(F body)
{
    try
    {
        return body();
    }
    catch (CMemoryException* pException)
    {
        pException->Delete();
        return E_OUTOFMEMORY;
    }
    catch (CException* pException)
    {
        pException->Delete();
        return E_UNEXPECTED;
    }
    catch (const std::bad_alloc&)
    {
        return E_OUTOFMEMORY;
    }
    catch (...)
    {
        return E_UNEXPECTED;
    }
}
