// The containers: sharing, bounds, order, look-up.
#include "platform/base/collections.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <vector>

#include "platform/base/exception.h"

namespace
{
class CThing : public CObject
{
};

std::vector<CObject*> InOrder(const CObList& list)
{
    std::vector<CObject*> result;
    for (POSITION pos = list.GetHeadPosition(); pos != nullptr;)
        result.push_back(list.GetNext(pos));
    EXPECT_EQ(static_cast<INT_PTR>(result.size()), list.GetCount());
    EXPECT_EQ(result.empty(), list.IsEmpty());
    return result;
}

using CObjects = std::vector<CObject*>;
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

TEST(Containers, RefuseWhatIsNotThere)
{
    CStringArray texts;
    EXPECT_THROW(texts.GetAt(0), CInvalidArgException*);
    texts.Add("x");
    EXPECT_THROW(texts.GetAt(1), CInvalidArgException*);
    EXPECT_THROW(texts[-1], CInvalidArgException*);
    EXPECT_THROW(texts.SetAt(1, "y"), CInvalidArgException*);

    CArray<int, int> numbers;
    numbers.Add(1);
    EXPECT_THROW(numbers[1], CInvalidArgException*);
    EXPECT_THROW(numbers[-1], CInvalidArgException*);

    CObList list;
    POSITION pos = nullptr;
    EXPECT_THROW(list.GetHead(), CInvalidArgException*);
    EXPECT_THROW(list.RemoveHead(), CInvalidArgException*);
    EXPECT_THROW(list.RemoveTail(), CInvalidArgException*);
    EXPECT_THROW(list.GetNext(pos), CInvalidArgException*);

    for (const auto& miss :
         std::vector<std::function<void()>>{ [] { throw std::bad_alloc(); },
                                             []
                                             {
                                                 throw std::length_error("too long");
                                             } })
        EXPECT_THROW(AfxWithMemory(miss), CMemoryException*);
}

TEST(CArray, KeepsElementsInOrder)
{
    CArray<CString> array;
    EXPECT_EQ(array.Add("a"), 0);
    for (int i = 1; i < 10; ++i)
        EXPECT_EQ(array.Add(array[0]), i);  // the argument lies in the array that grows
    array[9] = "z";
    EXPECT_EQ(array[8], "a");
    EXPECT_EQ(array[9], "z");
    array.RemoveAll();
    EXPECT_EQ(array.GetSize(), 0);
}

TEST(CObList, NewestAtTheHead)
{
    CThing aThings[4];
    CObList list(10);
    EXPECT_EQ(InOrder(list), CObjects{});
    POSITION first = list.AddHead(&aThings[0]);
    for (int i = 1; i < 4; ++i)
        list.AddHead(&aThings[i]);
    EXPECT_EQ(InOrder(list), (CObjects{ &aThings[3], &aThings[2], &aThings[1], &aThings[0] }));
    EXPECT_EQ(list.RemoveHead(), &aThings[3]);
    EXPECT_EQ(list.GetHead(), &aThings[2]);
    EXPECT_EQ(list.GetNext(first), &aThings[0]);  // a position outlives changes elsewhere
    EXPECT_EQ(first, nullptr);
    EXPECT_EQ(list.RemoveTail(), &aThings[0]);
    EXPECT_EQ(InOrder(list), (CObjects{ &aThings[2], &aThings[1] }));
}

TEST(CMapStringToOb, FindsAmongThousandsByEitherKindOfKey)
{
    std::vector<CThing> things(3000);
    CTypedPtrMap<CMapStringToOb, CString, CThing*> map(10);
    CString key;
    CThing* pFound = things.data();
    EXPECT_FALSE(map.Lookup("key1", pFound));
    EXPECT_EQ(pFound, things.data());
    for (CThing& thing : things)
    {
        key.Format("key%d", &thing - things.data());
        EXPECT_EQ(static_cast<CThing*>(map[key]), nullptr);  // enters the unknown key
        EXPECT_TRUE(map.Lookup(key, pFound));
        EXPECT_EQ(pFound, nullptr);
        if (key.GetLength() % 2 == 0)
            map[key] = &thing;
        else
            map.SetAt(CString::Immortal(key), &thing);
    }
    EXPECT_EQ(map.GetCount(), 3000);
    for (CThing& thing : things)
    {
        key.Format("key%d", &thing - things.data());
        ASSERT_TRUE(map.Lookup(key, pFound));
        ASSERT_EQ(pFound, &thing);
        ASSERT_TRUE(map.Lookup(key.GetString(), pFound));
        ASSERT_EQ(pFound, &thing);
    }
    EXPECT_FALSE(map.Lookup("key3000", pFound));
}
