// Objects that handle messages, and the macros for their tables of handlers.
#pragma once

#include "platform/base/object.h"

class CCmdTarget;

using AFX_PMSG = void (CCmdTarget::*)();

// One row: which message (and for commands which code and range of identifiers) goes to pfn. The
// last row of a table has nSig 0.
struct AFX_MSGMAP_ENTRY
{
    UINT nMessage;
    UINT nCode;
    UINT nID;
    UINT nLastID;
    UINT_PTR nSig;  // form of the handler's arguments
    AFX_PMSG pfn;
};

struct AFX_MSGMAP
{
    const AFX_MSGMAP* (*pfnGetBaseMap)();  // null in CCmdTarget
    const AFX_MSGMAP_ENTRY* lpEntries;
};

class CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;
};

#define DECLARE_MESSAGE_MAP()                                      \
protected:                                                         \
    [[maybe_unused]] static const AFX_MSGMAP* GetThisMessageMap(); \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)        \
    const AFX_MSGMAP* theClass::GetMessageMap() const \
    {                                                 \
        return GetThisMessageMap();                   \
    }                                                 \
    const AFX_MSGMAP* theClass::GetThisMessageMap()   \
    {                                                 \
        using ThisClass [[maybe_unused]] = theClass;  \
        using TheBaseClass = baseClass;               \
        static const AFX_MSGMAP_ENTRY s_aEntries[] = {
#define END_MESSAGE_MAP()                                                             \
    {                                                                                 \
        0, 0, 0, 0, 0, nullptr                                                        \
    }                                                                                 \
    }                                                                                 \
    ;                                                                                 \
    static const AFX_MSGMAP s_map = { &TheBaseClass::GetThisMessageMap, s_aEntries }; \
    return &s_map;                                                                    \
    }
