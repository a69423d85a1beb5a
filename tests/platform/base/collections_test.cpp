// What the containers add to those of the standard library: sharing, bounds, positions, keys.
#include "platform/base/collections.h"

#include <gtest/gtest.h>

#include "platform/base/exception.h"

TEST(CStringArray, SharesUntilAChange)
{
    CStringArray table;
    table.Add("()");
    EXPECT_EQ(table.Add(CString("a\0b", 3)), 1);
    CStringArray copy(table);
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
    EXPECT_EQ(numbers.Add(7), 0);
    EXPECT_EQ(numbers.Add(8), 1);
    EXPECT_EQ(numbers[1], 8);
    EXPECT_THROW(numbers[2], CInvalidArgException*);
    EXPECT_THROW(numbers[-1], CInvalidArgException*);
    numbers.RemoveAll();
    EXPECT_EQ(numbers.GetSize(), 0);

    CObList list;
    POSITION pos = nullptr;
    EXPECT_THROW(list.GetHead(), CInvalidArgException*);
    EXPECT_THROW(list.RemoveHead(), CInvalidArgException*);
    EXPECT_THROW(list.RemoveTail(), CInvalidArgException*);
    EXPECT_THROW(list.GetNext(pos), CInvalidArgException*);

    EXPECT_THROW(AfxWithMemory([] { throw std::bad_alloc(); }), CMemoryException*);
    EXPECT_THROW(AfxWithMemory([] { throw std::length_error("long"); }), CMemoryException*);
}
