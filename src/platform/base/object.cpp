// CObject and run-time classes.
#include "platform/base/object.h"

#include <cstdlib>
#include <cstring>

#include "platform/base/cstring.h"

namespace
{
constinit CRuntimeClass* g_pNamedClasses = nullptr;
}

constinit CRuntimeClass CObject::classCObject = { "CObject", sizeof(CObject), 0xFFFF,
                                                  nullptr,   nullptr,         nullptr };

CObject* CRuntimeClass::CreateObject()
{
    return m_pfnCreateObject != nullptr ? m_pfnCreateObject() : nullptr;
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pBaseClass) const
{
    for (const CRuntimeClass* p = this; p != nullptr;
         p = p->m_pfnGetBaseClass != nullptr ? p->m_pfnGetBaseClass() : nullptr)
    {
        if (p == pBaseClass)
            return TRUE;
    }
    return FALSE;
}

CRuntimeClass* CRuntimeClass::FromName(const char* pszClassName)
{
    CRuntimeClass* p = g_pNamedClasses;
    while (p != nullptr && std::strcmp(p->m_lpszClassName, pszClassName) != 0)
        p = p->m_pNextClass;
    return p;
}

CObject* CRuntimeClass::CreateObject(const char* pszClassName)
{
    CRuntimeClass* pClass = FromName(pszClassName);
    return pClass != nullptr ? pClass->CreateObject() : nullptr;
}

CRuntimeClassEntry::CRuntimeClassEntry(CRuntimeClass* pClass) : m_pClass(pClass)
{
    pClass->m_pNextClass = g_pNamedClasses;
    g_pNamedClasses = pClass;
}

CRuntimeClassEntry::~CRuntimeClassEntry()
{
    CRuntimeClass** pp = &g_pNamedClasses;
    while (*pp != nullptr && *pp != m_pClass)
        pp = &(*pp)->m_pNextClass;
    if (*pp != nullptr)
        *pp = m_pClass->m_pNextClass;
}

CObject::~CObject() = default;

CRuntimeClass* CObject::GetThisClass()
{
    return &classCObject;
}
CRuntimeClass* CObject::GetRuntimeClass() const
{
    return &classCObject;
}
void CObject::Serialize(CArchive&) {}

BOOL CObject::IsKindOf(const CRuntimeClass* pClass) const
{
    return GetRuntimeClass()->IsDerivedFrom(pClass);
}

void* CObject::operator new(std::size_t nSize)
{
    void* p = std::malloc(nSize);
    if (p == nullptr)
        AfxThrowMemoryException();
    return p;
}

void CObject::operator delete(void* p) noexcept
{
    std::free(p);
}

CObject* AfxDynamicDownCast(const CRuntimeClass* pClass, const CObject* pObject)
{
    return pObject != nullptr && pObject->IsKindOf(pClass) ? const_cast<CObject*>(pObject)
                                                           : nullptr;
}
