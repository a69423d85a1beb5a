// The containers: sharing, bounds, order, look-up.
#include "platform/base/collections.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/base/exception.h"

namespace
{
class CThing : public CObject
{
public:
    int m_nValue = 0;
};

std::vector<std::string> Contents(const CStringArray& array)
{
    std::vector<std::string> result;
    for (INT_PTR i = 0; i < array.GetSize(); ++i)
    {
        result.emplace_back(array[i].GetString());
    }
    return result;
}

std::vector<CObject*> Forwards(const CObList& list)
{
    std::vector<CObject*> result;
    for (POSITION pos = list.GetHeadPosition(); pos != nullptr;)
    {
        result.push_back(list.GetNext(pos));
    }
    std::vector<CObject*> backwards;
    for (POSITION pos = list.GetTailPosition(); pos != nullptr;)
    {
        backwards.insert(backwards.begin(), list.GetPrev(pos));
    }
    EXPECT_EQ(result, backwards);
    EXPECT_EQ(static_cast<INT_PTR>(result.size()), list.GetCount());
    return result;
}

using CStrings = std::vector<std::string>;
using CObjects = std::vector<CObject*>;
using CThingMap = CTypedPtrMap<CMapStringToOb, CString, CThing*>;
}  // namespace

TEST(CStringArray, SharesUntilAChange)
{
    CStringArray table;
    table.Add("()");
    table.Add("[]");
    CStringArray copy(table);
    EXPECT_TRUE(copy.IsSharedWith(table));
    copy.SetAt(1, CString("[]"));
    EXPECT_TRUE(copy.IsSharedWith(table));  // equal text: nothing to change
    copy.SetAt(1, "{}");
    EXPECT_EQ(Contents(table), (CStrings{ "()", "[]" }));
    EXPECT_EQ(Contents(copy), (CStrings{ "()", "{}" }));

    table.MakeImmortal();
    {
        CStringArray other(table);
        other.Add("<>");
        EXPECT_EQ(other.GetSize(), 3);
    }
    EXPECT_EQ(Contents(table), (CStrings{ "()", "[]" }));
}

TEST(CStringArray, SetAtTellsTextsWithNulApart)
{
    CStringArray array;
    array.Add(CString("a\0b", 3));
    array.SetAt(0, CString("a\0c", 3));
    EXPECT_EQ(array[0].View(), std::string_view("a\0c", 3));
}

TEST(CStringArray, ChangesAnywhere)
{
    CStringArray array;
    array.SetAtGrow(2, "c");
    array.InsertAt(0, "a", 2);
    array.InsertAt(6, array[0]);
    EXPECT_EQ(Contents(array), (CStrings{ "a", "a", "", "", "c", "", "a" }));
    array.RemoveAt(1, 3);
    array.Append(array);
    EXPECT_EQ(Contents(array), (CStrings{ "a", "c", "", "a", "a", "c", "", "a" }));
    array.SetSize(1);
    array.ElementAt(0) += "!";
    EXPECT_EQ(Contents(array), (CStrings{ "a!" }));
    array.RemoveAll();
    EXPECT_EQ(array.GetUpperBound(), -1);
}

TEST(Arrays, CheckEveryIndex)
{
    CStringArray texts;
    texts.Add("x");
    EXPECT_THROW(texts.GetAt(1), CInvalidArgException*);
    EXPECT_THROW(texts[-1], CInvalidArgException*);
    EXPECT_THROW(texts.SetAt(1, "y"), CInvalidArgException*);
    EXPECT_THROW(texts.RemoveAt(0, 2), CInvalidArgException*);
    EXPECT_THROW(CStringArray().GetAt(0), CInvalidArgException*);

    CArray<int, int> numbers;
    numbers.Add(1);
    EXPECT_THROW(numbers[1], CInvalidArgException*);
    EXPECT_THROW(numbers.SetAt(-1, 0), CInvalidArgException*);
    EXPECT_THROW(numbers.RemoveAt(1), CInvalidArgException*);
    EXPECT_THROW(numbers.SetSize(-1), CInvalidArgException*);
    EXPECT_THROW(numbers.SetSize(INTPTR_MAX), CMemoryException*);
}

TEST(CArray, KeepsElementsInOrder)
{
    CArray<CString> array;
    EXPECT_EQ(array.Add("a"), 0);
    for (int i = 0; i < 10; ++i)
    {
        array.Add(array[0]);  // the argument lies in the array that grows
    }
    array.InsertAt(1, array[0]);
    array.SetAtGrow(13, "z");
    EXPECT_EQ(array.GetSize(), 14);
    EXPECT_EQ(array[11], "a");
    EXPECT_TRUE(array[12].IsEmpty());
    array.Append(array);
    EXPECT_EQ(array[27], "z");
    array.RemoveAt(1, 26);
    EXPECT_EQ(array[1], "z");
    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty());
}

TEST(CObList, LinksBothWays)
{
    CThing a;
    CThing b;
    CThing c;
    CObList list(10);
    list.AddTail(&b);
    list.AddHead(&a);
    POSITION posC = list.AddTail(&c);
    EXPECT_EQ(Forwards(list), (CObjects{ &a, &b, &c }));
    list.InsertBefore(posC, &a);
    list.InsertAfter(posC, &b);
    list.InsertBefore(nullptr, &c);
    EXPECT_EQ(Forwards(list), (CObjects{ &c, &a, &b, &a, &c, &b }));
    list.RemoveAt(posC);
    EXPECT_EQ(list.RemoveTail(), &b);
    EXPECT_EQ(list.RemoveHead(), &c);
    EXPECT_EQ(Forwards(list), (CObjects{ &a, &b, &a }));
    EXPECT_EQ(list.Find(&a, list.Find(&a)), list.GetTailPosition());
    EXPECT_EQ(list.FindIndex(1), list.Find(&b));
    EXPECT_EQ(list.FindIndex(3), nullptr);
    list.AddHead(&list);
    EXPECT_EQ(Forwards(list), (CObjects{ &a, &b, &a, &a, &b, &a }));
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
    EXPECT_TRUE(map.RemoveKey("NT_PLUS"));
    EXPECT_FALSE(map.RemoveKey("NT_PLUS"));
    EXPECT_TRUE(map.Lookup("NT_MINUS", pFound));
    EXPECT_EQ(pFound, &b);
}

TEST(CMapStringToOb, FindsAmongThousandsAndGoesThroughInOrder)
{
    std::vector<CThing> things(3000);
    CThingMap map;
    CString key;
    for (int i = 0; i < 3000; ++i)
    {
        key.Format("key%d", i);
        map[key] = &things[static_cast<std::size_t>(i)];
    }
    for (int i = 0; i < 3000; i += 3)
    {
        key.Format("key%d", i);
        EXPECT_TRUE(map.RemoveKey(key));
    }
    int nExpected = 1;
    CThing* pThing = nullptr;
    for (POSITION pos = map.GetStartPosition(); pos != nullptr; nExpected += 1 + nExpected % 3 / 2)
    {
        map.GetNextAssoc(pos, key, pThing);
        CString expected;
        expected.Format("key%d", nExpected);
        ASSERT_EQ(key, expected);
        ASSERT_EQ(pThing, &things[static_cast<std::size_t>(nExpected)]);
        ASSERT_TRUE(map.Lookup(expected, pThing));
    }
    EXPECT_EQ(map.GetCount(), 2000);
    map.RemoveAll();
    EXPECT_FALSE(map.Lookup("key1", pThing));
}
