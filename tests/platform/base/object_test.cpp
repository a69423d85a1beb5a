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
    EXPECT_STREQ(circle.GetRuntimeClass()->m_lpszClassName, "CCircle");
    EXPECT_EQ(circle.GetRuntimeClass()->m_wSchema, 3U);
    EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(CCircle)));
    EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_EQ(DYNAMIC_DOWNCAST(CSquare, &circle), nullptr);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CShape, &circle), &circle);
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

    static CRuntimeClass classGone = {
        "CGone", 8, 0xFFFF, nullptr, &CObject::GetThisClass, nullptr
    };
    {
        const CRuntimeClassEntry entry(&classGone);
        EXPECT_EQ(CRuntimeClass::FromName("CGone"), &classGone);
    }
    EXPECT_EQ(CRuntimeClass::FromName("CGone"), nullptr);  // forgotten with its module
    EXPECT_EQ(CRuntimeClass::FromName("CCircle"), RUNTIME_CLASS(CCircle));
}
