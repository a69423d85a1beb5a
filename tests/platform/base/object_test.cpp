// Run-time classes and dynamic creation.
#include "platform/base/object.h"

#include <gtest/gtest.h>

#include <memory>

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

IMPLEMENT_DYNAMIC(CShape, CObject)
IMPLEMENT_SERIAL(CCircle, CShape, 3)
IMPLEMENT_DYNCREATE(CSquare, CShape)
}  // namespace

TEST(RuntimeClass, TellsClassAndAncestors)
{
    CCircle circle;
    const CObject& object = circle;
    EXPECT_STREQ(object.GetRuntimeClass()->m_lpszClassName, "CCircle");
    EXPECT_EQ(object.GetRuntimeClass()->m_wSchema, 3U);
    for (CRuntimeClass* pClass :
         { RUNTIME_CLASS(CCircle), RUNTIME_CLASS(CShape), RUNTIME_CLASS(CObject) })
        EXPECT_TRUE(object.IsKindOf(pClass)) << pClass->m_lpszClassName;
    EXPECT_FALSE(object.IsKindOf(RUNTIME_CLASS(CSquare)));
    EXPECT_EQ(DYNAMIC_DOWNCAST(CSquare, &object), nullptr);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CShape, &object), &circle);
    CShape* pNone = nullptr;
    EXPECT_EQ(DYNAMIC_DOWNCAST(CCircle, pNone), nullptr);
}

TEST(RuntimeClass, MakesObjectsByName)
{
    for (CRuntimeClass* pClass : { RUNTIME_CLASS(CCircle), RUNTIME_CLASS(CSquare) })
    {
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
    EXPECT_EQ(CRuntimeClass::FromName("CCircle"), RUNTIME_CLASS(CCircle));
}
