// The containers: sharing, bounds, order, look-up.
#include "platform/base/collections.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/base/exception.h"

namespace
{
class CThing : public CObject
{
public:
    int m_nValue = 0;
};

std::vector<CObject*> Forwards(const CObList& list)
{
    std::vector<CObject*> result;
    for (POSITION pos = list.GetHeadPosition(); pos != nullptr;)
        result.push_back(list.GetNext(pos));
    std::vector<CObject*> backwards;
    for (POSITION pos = list.GetTailPosition(); pos != nullptr;)
        backwards.insert(backwards.begin(), list.GetPrev(pos));
    EXPECT_EQ(result, backwards);
    EXPECT_EQ(static_cast<INT_PTR>(result.size()), list.GetCount());
    return result;
}

using CObjects = std::vector<CObject*>;
using CThingMap = CTypedPtrMap<CMapStringToOb, CString, CThing*>;
}  // namespace

TEST(CStringArray, SharesUntilAChange)
{
    CStringArray table;
    table.Add("()");
    table.Add(CString("a\0b", 3));
    CStringArray copy(table);
    EXPECT_TRUE(copy.IsSharedWith(table));
    copy.SetAt(0, CString("()"));
    EXPECT_TRUE(copy.IsSharedWith(table));  // equal text: nothing to change
    copy.SetAt(1, CString("a\0c", 3));
    EXPECT_FALSE(copy.IsSharedWith(table));
    EXPECT_EQ(copy[1].View(), std::string_view("a\0c", 3));
    EXPECT_EQ(table[1].View(), std::string_view("a\0b", 3));

    table.MakeImmortal();
    {
        CStringArray other(table);
        other.Add(other[0]);
        EXPECT_EQ(other.GetSize(), 3);
        EXPECT_EQ(other[2], "()");
    }
    EXPECT_EQ(table.GetSize(), 2);
    table = copy;
    EXPECT_TRUE(copy.IsSharedWith(table));
}

TEST(Arrays, CheckEveryIndex)
{
    CStringArray texts;
    texts.Add("x");
    EXPECT_THROW(texts.GetAt(1), CInvalidArgException*);
    EXPECT_THROW(texts[-1], CInvalidArgException*);
    EXPECT_THROW(texts.SetAt(1, "y"), CInvalidArgException*);
    EXPECT_THROW(CStringArray().GetAt(0), CInvalidArgException*);

    CArray<int, int> numbers;
    numbers.Add(1);
    EXPECT_THROW(numbers[1], CInvalidArgException*);
    EXPECT_THROW(numbers.SetAt(-1, 0), CInvalidArgException*);
    EXPECT_THROW(numbers.SetSize(-1), CInvalidArgException*);
    EXPECT_THROW(numbers.SetSize(INTPTR_MAX), CMemoryException*);
}

TEST(CArray, KeepsElementsInOrder)
{
    CArray<CString> array;
    EXPECT_EQ(array.Add("a"), 0);
    for (int i = 1; i < 10; ++i)
        EXPECT_EQ(array.Add(array[0]), i);  // the argument lies in the array that grows
    array.SetAt(9, "z");
    array.SetSize(11);
    EXPECT_EQ(array[8], "a");
    EXPECT_EQ(array.GetData()[9], "z");
    EXPECT_TRUE(array[10].IsEmpty());
    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty());
}

TEST(CObList, LinksBothWays)
{
    CThing aThings[4];
    CObList list(10);
    list.AddTail(&aThings[1]);
    list.AddHead(&aThings[0]);
    list.AddTail(&aThings[2]);
    list.AddTail(&aThings[3]);
    EXPECT_EQ(Forwards(list), (CObjects{ &aThings[0], &aThings[1], &aThings[2], &aThings[3] }));
    EXPECT_EQ(list.GetHead(), &aThings[0]);
    EXPECT_EQ(list.RemoveTail(), &aThings[3]);
    EXPECT_EQ(list.RemoveHead(), &aThings[0]);
    EXPECT_EQ(Forwards(list), (CObjects{ &aThings[1], &aThings[2] }));
    list.RemoveAll();
    EXPECT_EQ(Forwards(list), CObjects{});
    EXPECT_THROW(list.GetHead(), CInvalidArgException*);
    EXPECT_THROW(list.RemoveTail(), CInvalidArgException*);
}

TEST(CMapStringToOb, AsksAndEnters)
{
    CThing a;
    CThing b;
    CThingMap map(10);
    CThing* pFound = &a;
    EXPECT_FALSE(map.Lookup("NT_PLUS", pFound));
    EXPECT_EQ(pFound, &a);
    EXPECT_EQ(static_cast<CThing*>(map["NT_PLUS"]), nullptr);  // enters the unknown key
    EXPECT_TRUE(map.Lookup(CString("NT_PLUS"), pFound));
    EXPECT_EQ(pFound, nullptr);
    map[CString::Immortal("NT_PLUS")] = &a;
    map.SetAt("NT_MINUS", &b);
    map["NT_PLUS"]->m_nValue = 7;
    EXPECT_EQ(a.m_nValue, 7);
    EXPECT_EQ(map.GetCount(), 2);
    EXPECT_TRUE(map.Lookup("NT_MINUS", pFound));
    EXPECT_EQ(pFound, &b);
}

TEST(CMapStringToOb, FindsAmongThousandsAndGoesThroughInOrder)
{
    std::vector<CThing> things(3000);
    CThingMap map;
    CString key;
    for (CThing& thing : things)
    {
        key.Format("key%d", &thing - things.data());
        map[key] = &thing;
    }
    EXPECT_EQ(map.GetCount(), 3000);
    CThing* pExpected = things.data();
    CThing* pThing = nullptr;
    for (POSITION pos = map.GetStartPosition(); pos != nullptr; ++pExpected)
    {
        map.GetNextAssoc(pos, key, pThing);
        ASSERT_EQ(pThing, pExpected);
        ASSERT_TRUE(map.Lookup(key, pThing));
        ASSERT_EQ(pThing, pExpected);
    }
    map.RemoveAll();
    EXPECT_FALSE(map.Lookup("key1", pThing));
}
