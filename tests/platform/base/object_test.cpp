// Run-time classes, dynamic creation, message maps.
#include "platform/base/object.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/base/cmd_target.h"

namespace
{
class CShape : public CObject
{
    DECLARE_DYNAMIC(CShape)
};

class CCircle : public CShape
{
    DECLARE_SERIAL(CCircle)
};

class CSquare : public CShape
{
    DECLARE_DYNCREATE(CSquare)
};

class CTarget : public CCmdTarget
{
    DECLARE_DYNCREATE(CTarget)
    DECLARE_MESSAGE_MAP()

public:
    const AFX_MSGMAP* Map() const { return GetMessageMap(); }
    void OnHello() {}
};

class CTargetChild : public CTarget
{
    DECLARE_MESSAGE_MAP()
};

IMPLEMENT_DYNAMIC(CShape, CObject)
IMPLEMENT_SERIAL(CCircle, CShape, 3)
IMPLEMENT_DYNCREATE(CSquare, CShape)
IMPLEMENT_DYNCREATE(CTarget, CCmdTarget)

BEGIN_MESSAGE_MAP(CTarget, CCmdTarget){ 7, 0, 1, 2, 1, static_cast<AFX_PMSG>(&ThisClass::OnHello) },
    END_MESSAGE_MAP()

        BEGIN_MESSAGE_MAP(CTargetChild, CTarget) END_MESSAGE_MAP()
}  // namespace

TEST(RuntimeClass, TellsClassAndAncestors)
{
    CCircle circle;
    const CObject& object = circle;
    EXPECT_STREQ(object.GetRuntimeClass()->m_lpszClassName, "CCircle");
    EXPECT_TRUE(object.IsKindOf(RUNTIME_CLASS(CCircle)));
    EXPECT_TRUE(object.IsKindOf(RUNTIME_CLASS(CShape)));
    EXPECT_TRUE(object.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(object.IsKindOf(RUNTIME_CLASS(CSquare)));
    EXPECT_EQ(object.GetRuntimeClass()->m_wSchema, 3U);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CSquare, &object), nullptr);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CShape, &object), &circle);
    CShape* pNone = nullptr;
    EXPECT_EQ(DYNAMIC_DOWNCAST(CCircle, pNone), nullptr);
}

TEST(RuntimeClass, MakesObjectsByName)
{
    for (CRuntimeClass* pClass : { RUNTIME_CLASS(CCircle), RUNTIME_CLASS(CSquare) })
    {
        EXPECT_EQ(CRuntimeClass::FromName(pClass->m_lpszClassName), pClass);
        const std::unique_ptr<CObject> pObject(
            CRuntimeClass::CreateObject(pClass->m_lpszClassName));
        ASSERT_NE(pObject, nullptr);
        EXPECT_EQ(pObject->GetRuntimeClass(), pClass);
    }
    EXPECT_EQ(RUNTIME_CLASS(CShape)->CreateObject(), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName("CShape"), nullptr);
    EXPECT_EQ(CRuntimeClass::CreateObject("CUnknown"), nullptr);
}

TEST(RuntimeClass, IsForgottenWithItsModule)
{
    static CRuntimeClass classGone = {
        "CGone", 8, 0xFFFF, nullptr, &CObject::GetThisClass, nullptr
    };
    {
        const CRuntimeClassEntry entry(&classGone);
        EXPECT_EQ(CRuntimeClass::FromName("CGone"), &classGone);
    }
    EXPECT_EQ(CRuntimeClass::FromName("CGone"), nullptr);
    EXPECT_NE(CRuntimeClass::FromName("CCircle"), nullptr);
}

TEST(MessageMap, LeadsToTheBase)
{
    const CTargetChild child;
    std::vector<std::size_t> sizes;
    for (const AFX_MSGMAP* p = child.Map(); p != nullptr;
         p = p->pfnGetBaseMap != nullptr ? p->pfnGetBaseMap() : nullptr)
    {
        std::size_t n = 0;
        while (p->lpEntries[n].nSig != 0)
            ++n;
        sizes.push_back(n);
    }
    EXPECT_EQ(sizes, (std::vector<std::size_t>{ 0, 1, 0 }));
}
