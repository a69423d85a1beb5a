// CString: sharing, edges, NULs inside, comparison, formatting.
#include "platform/base/cstring.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>

#include "platform/base/exception.h"

namespace
{
using namespace std::string_view_literals;

CString Bytes(std::string_view text)
{
    return { text.data(), static_cast<int>(text.size()) };
}

using CTexts = std::initializer_list<std::pair<CString, std::string_view>>;

// Length-aware, unlike ==.
void ExpectTexts(const CTexts& texts)
{
    for (const auto& [str, expected] : texts)
    {
        EXPECT_EQ(str.View(), expected);
        EXPECT_EQ(str.GetString()[str.GetLength()], '\0');
    }
}
}  // namespace

TEST(CString, ChangingOneCopyLeavesTheOthers)
{
    CString first("formula");
    CString second(first);
    EXPECT_EQ(first.GetString(), second.GetString());
    second.SetAt(0, 'F');
    CString third = second;
    third.MakeUpper();
    third += third;
    ExpectTexts({ { first, "formula" }, { second, "Formula" }, { third, "FORMULAFORMULA" } });
    CString& alias = second;
    second = alias;
    second = second.GetString() + 3;
    ExpectTexts({ { second, "mula" } });
    second += second.GetString() + 2;
    ExpectTexts({ { second, "mulala" } });
}

// Immortal texts and those of one character know their hash; it is that of a counted text.
TEST(CString, ImmortalTextsShareOneBufferAndKnowTheirHash)
{
    for (int nCode = 0; nCode < 256; ++nCode)
    {
        const char ch = static_cast<char>(nCode);
        ExpectTexts({ { CString::FromChar(ch), { &ch, 1 } } });
        EXPECT_EQ(CString::FromChar(ch).GetHash(), CString(&ch, 1).GetHash()) << nCode;
    }
    const CString text("0123456789ABCDEFGHIj");
    for (int nLength = 2; nLength <= 20; ++nLength)
    {
        const CString immortal = CString::Immortal(text, nLength);
        const CString counted(text, nLength);
        EXPECT_EQ(immortal.GetHash(), counted.GetHash()) << nLength;
        EXPECT_NE(immortal.GetHash(), counted.Left(nLength - 1).GetHash()) << nLength;
        EXPECT_EQ(immortal.GetString(), CString::Immortal(counted).GetString());
    }
    ExpectTexts({ { CString::Immortal(text).MakeUpper(), "0123456789ABCDEFGHIJ" },
                  { CString::Immortal(text), text.View() } });
}

TEST(CString, CutsCountsAndPositionsOutside)
{
    const CString text("abcdef");
    const CTexts parts = {
        { text.Mid(2), "cdef" },  { text.Mid(2, 3), "cde" }, { text.Mid(4, INT_MAX), "ef" },
        { text.Mid(6), "" },      { text.Mid(7, 1), "" },    { text.Mid(-3, 2), "ab" },
        { text.Mid(2, -1), "" },  { text.Left(2), "ab" },    { text.Left(99), "abcdef" },
        { text.Left(-1), "" },    { text.Right(3), "def" },  { text.Right(99), "abcdef" },
        { text.Right(-1), "" },   { CString('x', 2), "xx" }, { CString('x', -1), "" },
        { CString(nullptr), "" },
    };
    ExpectTexts(parts);
}

TEST(CString, IndexingEndsAtTheEndMark)
{
    CString text("ab");
    EXPECT_EQ(text[1], 'b');
    EXPECT_EQ(text[2], '\0');
    EXPECT_THROW(text.GetAt(3), CInvalidArgException*);
    EXPECT_THROW(text.GetAt(-1), CInvalidArgException*);
    EXPECT_THROW(text.SetAt(2, 'x'), CInvalidArgException*);
    EXPECT_THROW(text.ReleaseBuffer(1000), CInvalidArgException*) << text.GetBuffer();
    EXPECT_THROW(text.GetBuffer(INT_MAX), CMemoryException*);
    ExpectTexts({ { text, "ab" } });
}

TEST(CString, GrownStepByStepHoldsAll)
{
    std::string expected;
    CString text;
    for (int i = 0; i < 5000; ++i)
    {
        expected += static_cast<char>('a' + i % 26);
        text += expected.back();
    }
    ExpectTexts({ { text, expected } });
    std::strcpy(text.GetBuffer(6000) + 5000, "!");
    text.ReleaseBuffer();
    ExpectTexts({ { text, expected + "!" } });
    text.ReleaseBuffer(2);
    ExpectTexts({ { text, "ab" } });
}

TEST(CString, SearchesWhereItIsTold)
{
    const CString text("abcabc");
    EXPECT_EQ(text.Find('c'), 2);
    EXPECT_EQ(text.Find('c', 3), 5);
    EXPECT_EQ(text.Find('a', 6), -1);
    EXPECT_EQ(text.Find("bc", 2), 4);
    EXPECT_EQ(text.Find("bc", -1), -1);
    EXPECT_EQ(text.Find("bc", 99), -1);
    EXPECT_EQ(text.ReverseFind('a'), 3);
    EXPECT_EQ(Bytes("a\0b"sv).Find('b'), 2);
}

TEST(CString, HasNulsAsCharactersThatEndComparisons)
{
    CString text = Bytes("a\0b"sv);
    ExpectTexts({ { text + CString::FromChar(0) + "c", "a\0b\0c"sv },
                  { text.Mid(1), "\0b"sv },
                  { CString(text).MakeUpper(), "A\0B"sv } });
    text.SetAt(0, 'P');
    ExpectTexts({ { text, "P\0b"sv } });
    EXPECT_EQ(text, "P");
    EXPECT_EQ(text, Bytes("P\0c"sv));
    EXPECT_FALSE(text.IsIdentical(Bytes("P\0c"sv)));
    EXPECT_EQ(CString::FromChar(0), CString());
    EXPECT_EQ(CString::FromChar(0).GetHash(), CString().GetHash());
    EXPECT_EQ(CString::Immortal("P\0b", 3).GetHash(), text.GetHash());
}

// By unsigned bytes; letters of ASCII alone have a case.
TEST(CString, OrdersByBytes)
{
    const CString aTexts[] = { "", " ", "A", "B", "a", "aa", "b", "z", "\x80", "\xFF" };
    for (const CString& first : aTexts)
    {
        for (const CString& second : aTexts)
        {
            const auto expected = first.View() <=> second.View();
            EXPECT_EQ(first <=> second, expected) << first << ' ' << second;
            EXPECT_EQ(first <=> second.GetString(), expected);
            EXPECT_EQ(first.GetString() <=> second, expected);
            EXPECT_EQ(first.Compare(second) <=> 0, expected);
            EXPECT_EQ(first == CString(second.GetString()), expected == 0);
            EXPECT_EQ(first.GetString() == second, expected == 0);
        }
    }
    EXPECT_EQ(CString("aBz[").CompareNoCase("AbZ["), 0);
    EXPECT_NE(CString("\xC4").CompareNoCase("\xE4"), 0);
    EXPECT_NE(CString("[").CompareNoCase("{"), 0);
    ExpectTexts({ { CString("\xE4zY1{").MakeUpper(), "\xE4ZY1{" } });
}

TEST(CString, IsTrimmedAtItsTrueEnds)
{
    const std::string_view aCases[][3] = {
        { " \t\n\v\f\r a b \t\n\v\f\r"sv, "a b \t\n\v\f\r"sv, " \t\n\v\f\r a b"sv },
        { " \0 "sv, "\0 "sv, " \0"sv },
        { "a \0"sv, "a \0"sv, "a \0"sv },
        { "\xA0 \x85"sv, "\xA0 \x85"sv, "\xA0 \x85"sv },
        { "   "sv, ""sv, ""sv },
        { ""sv, ""sv, ""sv },
    };
    for (const auto& [text, left, right] : aCases)
    {
        const CString whole = Bytes(text);  // shares its buffer with the first two
        ExpectTexts({ { CString(whole).TrimLeft(), left },
                      { CString(whole).TrimRight(), right },
                      { Bytes(text).TrimLeft(), left },
                      { Bytes(text).TrimRight(), right },
                      { whole, text } });
    }
}

TEST(CString, FormatsByTheTypesOfTheArguments)
{
    CString text;
    const auto expect = [&](std::string_view expected, const char* psz, const auto&... args)
    {
        text.Format(psz, args...);
        ExpectTexts({ { text, expected } });
    };
    expect("ab|cd|%|-5|65531", "%s|%s|%%|%d|%u", "ab", CString("cd"), -5, static_cast<WORD>(65531));
    expect("a\0"sv, "%c%c", 'a', 0);
    expect("a\0b-a\0"sv, "%s-%s", Bytes("a\0b"sv), Bytes("a\0"sv));
    expect("-9223372036854775808 -2147483648 18446744073709551615", "%d %d %u", LLONG_MIN, INT_MIN,
           ULLONG_MAX);
    // A template that may come from anywhere does no harm.
    expect("7 a %n %q  %", "%s %s %n %q %d %", 7, "a");
    expect("", nullptr);
    text = "own";
    expect("own-own", "%s-%s", text, text);
}
