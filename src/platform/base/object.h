// The root of all platform classes and the run-time class records that tell an object's class,
// derive it from another and create objects by name.
#pragma once

#include <cassert>
#include <cstddef>

#include "platform/base/types.h"

class CArchive;
class CObject;

// Debug builds stop at a false condition; release builds do not evaluate it.
#ifndef ASSERT
#define ASSERT(condition) assert(condition)
#endif

// What is known of a class at run time. The records are static objects made by the IMPLEMENT_...
// macros and are never copied.
struct CRuntimeClass
{
    const char* m_lpszClassName;
    int m_nObjectSize;
    UINT m_wSchema;                         // 0xFFFF: objects of the class are not stored
    CObject* (*m_pfnCreateObject)();        // null: the class has no dynamic creation
    CRuntimeClass* (*m_pfnGetBaseClass)();  // null for CObject
    CRuntimeClass* m_pNextClass;            // in the list of classes that can be made by name

    // A new object, owned by the caller; null if the class has no dynamic creation.
    CObject* CreateObject();
    BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const;

    // Both know the classes declared with DYNCREATE or SERIAL; null for any other name.
    static CRuntimeClass* FromName(const char* pszClassName);
    static CObject* CreateObject(const char* pszClassName);
};

// Enters a class into the list of those that can be made by name, for as long as it lives.
class CRuntimeClassEntry
{
public:
    explicit CRuntimeClassEntry(CRuntimeClass* pClass);
    ~CRuntimeClassEntry();
    CRuntimeClassEntry(const CRuntimeClassEntry&) = delete;
    CRuntimeClassEntry& operator=(const CRuntimeClassEntry&) = delete;

private:
    CRuntimeClass* m_pClass;
};

class CObject
{
public:
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject();

    // Stores or loads the object, as the archive is set. The base has nothing to store.
    virtual void Serialize(CArchive& ar);

    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

    BOOL IsKindOf(const CRuntimeClass* pClass) const;

    static CRuntimeClass* GetThisClass();
    static CRuntimeClass classCObject;

    // Without memory CMemoryException is thrown.
    static void* operator new(std::size_t nSize);
    static void* operator new(std::size_t, void* pPlace) noexcept { return pPlace; }
    static void operator delete(void* p) noexcept;
    static void operator delete(void*, void*) noexcept {}

protected:
    CObject() = default;
};

CObject* AfxDynamicDownCast(const CRuntimeClass* pClass, const CObject* pObject);

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

// The object as a class_name*, or null if it is none.
#define DYNAMIC_DOWNCAST(class_name, pObject) \
    static_cast<class_name*>(AfxDynamicDownCast(RUNTIME_CLASS(class_name), pObject))
#define STATIC_DOWNCAST(class_name, pObject) static_cast<class_name*>(pObject)

#define DECLARE_DYNAMIC(class_name)                        \
public:                                                    \
    static CRuntimeClass class##class_name;                \
    [[maybe_unused]] static CRuntimeClass* GetThisClass(); \
    CRuntimeClass* GetRuntimeClass() const override;       \
                                                           \
private:

#define DECLARE_DYNCREATE(class_name) \
    DECLARE_DYNAMIC(class_name)       \
public:                               \
    static CObject* CreateObject();   \
                                      \
private:

#define DECLARE_SERIAL(class_name) DECLARE_DYNCREATE(class_name)

#define IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, schema, pfnCreate)      \
    CRuntimeClass class_name::class##class_name = { #class_name,                    \
                                                    sizeof(class_name),             \
                                                    schema,                         \
                                                    pfnCreate,                      \
                                                    &base_class_name::GetThisClass, \
                                                    nullptr };                      \
    CRuntimeClass* class_name::GetThisClass()                                       \
    {                                                                               \
        return &class##class_name;                                                  \
    }                                                                               \
    CRuntimeClass* class_name::GetRuntimeClass() const                              \
    {                                                                               \
        return &class##class_name;                                                  \
    }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name) \
    IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, 0xFFFF, nullptr)

#define IMPLEMENT_NAMED_CLASS(class_name, base_class_name, schema)                         \
    IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, schema, &class_name::CreateObject) \
    CObject* class_name::CreateObject()                                                    \
    {                                                                                      \
        return new class_name;                                                             \
    }                                                                                      \
    static const CRuntimeClassEntry s_entry##class_name(RUNTIME_CLASS(class_name));

#define IMPLEMENT_DYNCREATE(class_name, base_class_name) \
    IMPLEMENT_NAMED_CLASS(class_name, base_class_name, 0xFFFF)

#define IMPLEMENT_SERIAL(class_name, base_class_name, schema) \
    IMPLEMENT_NAMED_CLASS(class_name, base_class_name, schema)
