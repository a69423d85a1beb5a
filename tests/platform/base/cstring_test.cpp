// CString: sharing, edges, NULs inside, comparison, formatting.
#include "platform/base/cstring.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>

#include "platform/base/exception.h"

namespace
{
CString Bytes(std::string_view text)
{
    return { text.data(), static_cast<int>(text.size()) };
}

// Length-aware, unlike ==.
void ExpectText(const CString& str, std::string_view expected)
{
    EXPECT_EQ(str.View(), expected);
    EXPECT_EQ(str.GetString()[str.GetLength()], '\0');
}

using namespace std::string_view_literals;
}  // namespace

TEST(CStringSharing, ChangingOneCopyLeavesTheOthers)
{
    CString first("formula");
    CString second(first);
    EXPECT_EQ(first.GetString(), second.GetString());
    second.SetAt(0, 'F');
    ExpectText(first, "formula");
    ExpectText(second, "Formula");

    CString third = second;
    third.MakeUpper();
    third += third;
    ExpectText(third, "FORMULAFORMULA");
    ExpectText(second, "Formula");

    CString& alias = second;
    second = alias;
    second = second.GetString() + 3;
    ExpectText(second, "mula");
    second += second.GetString() + 2;
    ExpectText(second, "mulala");
}

TEST(CStringSharing, ImmortalTextsShareOneBuffer)
{
    const CString first = CString::Immortal("nt_division");
    CString second = CString::Immortal(std::string("nt_division").c_str());
    EXPECT_EQ(first.GetString(), second.GetString());
    second.MakeUpper();
    ExpectText(first, "nt_division");
    ExpectText(second, "NT_DIVISION");
}

// Immortal texts and those of one character know their hash; it is that of a counted text.
TEST(CStringSharing, EqualTextsHashEqually)
{
    for (int nCode = 0; nCode < 256; ++nCode)
    {
        const char ch = static_cast<char>(nCode);
        const CString one = CString::FromChar(ch);
        ExpectText(one, std::string_view(&ch, 1));
        EXPECT_EQ(one.GetHash(), CString(&ch, 1).GetHash()) << nCode;
    }
    const std::string text = "0123456789ABCDEFGHIJ";
    for (int nLength = 2; nLength <= 20; ++nLength)
    {
        const unsigned nHash = CString::Immortal(text.c_str(), nLength).GetHash();
        EXPECT_EQ(nHash, CString(text.c_str(), nLength).GetHash()) << nLength;
        EXPECT_NE(nHash, CString(text.c_str(), nLength - 1).GetHash()) << nLength;
    }
}

TEST(CStringParts, CountsAndPositionsOutsideAreCut)
{
    const CString text("abcdef");
    const struct
    {
        CString part;
        const char* pszExpected;
    } aCases[] = {
        { text.Mid(2), "cdef" },  { text.Mid(2, 3), "cde" },  { text.Mid(4, INT_MAX), "ef" },
        { text.Mid(6), "" },      { text.Mid(7, 1), "" },     { text.Mid(-3, 2), "ab" },
        { text.Mid(2, -1), "" },  { text.Left(2), "ab" },     { text.Left(99), "abcdef" },
        { text.Left(-1), "" },    { text.Right(3), "def" },   { text.Right(99), "abcdef" },
        { text.Right(-1), "" },   { CString('x', 3), "xxx" }, { CString('x', -1), "" },
        { CString(nullptr), "" },
    };
    for (const auto& c : aCases)
        ExpectText(c.part, c.pszExpected);
}

TEST(CStringParts, IndexingEndsAtTheEndMark)
{
    CString text("ab");
    EXPECT_EQ(text[1], 'b');
    EXPECT_EQ(text[2], '\0');
    EXPECT_THROW(text.GetAt(3), CInvalidArgException*);
    EXPECT_THROW(text.GetAt(-1), CInvalidArgException*);
    EXPECT_THROW(text.SetAt(2, 'x'), CInvalidArgException*);
    EXPECT_THROW(text.ReleaseBuffer(1000), CInvalidArgException*) << text.GetBuffer();
    EXPECT_THROW(text.GetBuffer(INT_MAX), CMemoryException*);
    ExpectText(text, "ab");
}

TEST(CStringEditing, TextGrownStepByStepHoldsAll)
{
    std::string expected;
    CString text;
    for (int i = 0; i < 5000; ++i)
    {
        expected += static_cast<char>('a' + i % 26);
        text += expected.back();
    }
    ExpectText(text, expected);
    std::strcpy(text.GetBuffer(6000) + 5000, "!");
    text.ReleaseBuffer();
    ExpectText(text, expected + "!");
    text.ReleaseBuffer(2);
    ExpectText(text, "ab");
}

TEST(CStringSearch, StartsWhereItIsTold)
{
    const CString text("abcabc");
    EXPECT_EQ(text.Find('c'), 2);
    EXPECT_EQ(text.Find('c', 3), 5);
    EXPECT_EQ(text.Find('a', 6), -1);
    EXPECT_EQ(text.Find("bc", 2), 4);
    EXPECT_EQ(text.Find("bc", -1), -1);
    EXPECT_EQ(text.Find("bc", 99), -1);
    EXPECT_EQ(text.ReverseFind('a'), 3);
}

TEST(CStringNul, IsACharacterThatEndsComparisons)
{
    CString text = Bytes("a\0b"sv);
    ExpectText(text + CString::FromChar(0) + "c", "a\0b\0c"sv);
    ExpectText(text.Mid(1), "\0b"sv);
    EXPECT_EQ(text.Find('b'), 2);
    ExpectText(CString(text).MakeUpper(), "A\0B"sv);
    text.SetAt(0, 'P');
    ExpectText(text, "P\0b"sv);
    EXPECT_EQ(text, "P");
    EXPECT_EQ(text, Bytes("P\0c"sv));
    EXPECT_FALSE(text.IsIdentical(Bytes("P\0c"sv)));
    EXPECT_EQ(CString::FromChar(0), CString());
    EXPECT_EQ(CString::FromChar(0).GetHash(), CString().GetHash());
    EXPECT_EQ(CString::Immortal("P\0b", 3).GetHash(), text.GetHash());
}

// By unsigned bytes; letters of ASCII alone have a case.
TEST(CStringCompare, OrdersByBytes)
{
    const char* const apszAscending[] = { "", " ", "A", "B", "a", "aa", "b", "z", "\x80", "\xFF" };
    for (const char* pszFirst : apszAscending)
    {
        for (const char* pszSecond : apszAscending)
        {
            const CString first(pszFirst);
            const CString second(pszSecond);
            const auto expected = std::string_view(pszFirst) <=> std::string_view(pszSecond);
            EXPECT_EQ(first <=> second, expected) << first << ' ' << second;
            EXPECT_EQ(first <=> pszSecond, expected);
            EXPECT_EQ(pszFirst <=> second, expected);
            EXPECT_EQ(first.Compare(second) <=> 0, expected);
            EXPECT_EQ(first == second, expected == 0);
            EXPECT_EQ(pszFirst == second, expected == 0);
        }
    }
    EXPECT_EQ(CString("aBz[").CompareNoCase("AbZ["), 0);
    EXPECT_NE(CString("\xC4").CompareNoCase("\xE4"), 0);
    ExpectText(CString("\xE4xY1").MakeUpper(), "\xE4XY1");
}

TEST(CStringTrim, WorksAtTheTrueEnds)
{
    const struct
    {
        std::string_view text, left, right;
    } aCases[] = {
        { " \t\n\v\f\r a b \t\n\v\f\r"sv, "a b \t\n\v\f\r"sv, " \t\n\v\f\r a b"sv },
        { " \0 "sv, "\0 "sv, " \0"sv },
        { "a \0"sv, "a \0"sv, "a \0"sv },
        { "\xA0 \x85"sv, "\xA0 \x85"sv, "\xA0 \x85"sv },
        { "   "sv, ""sv, ""sv },
        { ""sv, ""sv, ""sv },
    };
    for (const auto& c : aCases)
    {
        const CString whole = Bytes(c.text);
        ExpectText(CString(whole).TrimLeft(), c.left);  // in a buffer that is shared
        ExpectText(CString(whole).TrimRight(), c.right);
        ExpectText(whole, c.text);
        ExpectText(Bytes(c.text).TrimLeft(), c.left);
        ExpectText(Bytes(c.text).TrimRight(), c.right);
    }
}

TEST(CStringFormat, TakesTheTypesFromTheArguments)
{
    CString text;
    text.Format("%s|%s|%%|%d|%u", "ab", CString("cd"), -5, static_cast<WORD>(65531));
    ExpectText(text, "ab|cd|%|-5|65531");
    text.Format("%c%c", 'a', 0);
    ExpectText(text, "a\0"sv);
    text.Format("%s-%s", Bytes("a\0b"sv), text);
    ExpectText(text, "a\0b-a\0"sv);
    text.Format("%d %d %u", LLONG_MIN, INT_MIN, ULLONG_MAX);
    ExpectText(text, "-9223372036854775808 -2147483648 18446744073709551615");
    // A template that may come from anywhere does no harm.
    text.Format("%s %s %n %q %d %", 7, "a");
    ExpectText(text, "7 a %n %q  %");
    text.Format(nullptr);
    EXPECT_TRUE(text.IsEmpty());
}
