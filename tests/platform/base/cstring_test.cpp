// CString: sharing, editing at the edges, NULs inside, comparison, formatting.
#include "platform/base/cstring.h"

#include <gtest/gtest.h>

#include <climits>
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
    const CString first = CString::Immortal("NT_DIVISION");
    CString second = CString::Immortal(std::string("NT_DIVISION").c_str());
    EXPECT_EQ(first.GetString(), second.GetString());
    EXPECT_TRUE(first.IsImmortal());
    EXPECT_EQ(first.GetHash(), CString("NT_DIVISION").GetHash());

    second.MakeLower();
    ExpectText(first, "NT_DIVISION");
    ExpectText(second, "nt_division");
    EXPECT_FALSE(second.IsImmortal());
}

TEST(CStringSharing, EveryCharacterHasAnImmortalTextThatHashesAsACountedOne)
{
    for (int nCode = 0; nCode < 256; ++nCode)
    {
        const char ch = static_cast<char>(nCode);
        const CString one = CString::FromChar(ch);
        ExpectText(one, std::string_view(&ch, 1));
        EXPECT_TRUE(one.IsImmortal());
        const CString counted(&ch, 1);
        EXPECT_FALSE(counted.IsImmortal());
        EXPECT_EQ(one.GetHash(), counted.GetHash()) << nCode;
    }
}

TEST(CStringSharing, BytesOfEveryLengthHashByContentOnly)
{
    const std::string text = "0123456789ABCDEFGHIJ";
    for (int nLength = 2; nLength <= 20; ++nLength)
    {
        const CString immortal = CString::Immortal(text.c_str(), nLength);
        EXPECT_EQ(immortal.GetHash(), CString(text.c_str(), nLength).GetHash()) << nLength;
        EXPECT_NE(immortal.GetHash(), CString(text.c_str(), nLength - 1).GetHash()) << nLength;
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
    {
        ExpectText(c.part, c.pszExpected);
    }
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
    EXPECT_EQ(CString("\xFE")[0], '\xFE');
}

TEST(CStringEditing, FollowsTheDocumentedRules)
{
    CString text("one two two");
    EXPECT_EQ(text.Replace("two", "2"), 2);
    ExpectText(text, "one 2 2");
    EXPECT_EQ(text.Replace("2", "22"), 2);  // what was put in is not searched again
    ExpectText(text, "one 22 22");
    EXPECT_EQ(text.Replace("", "x"), 0);
    EXPECT_EQ(text.Replace(' ', '_'), 2);
    EXPECT_EQ(text.Remove('2'), 4);
    ExpectText(text, "one__");
    EXPECT_EQ(text.Insert(3, "!"), 6);
    EXPECT_EQ(text.Insert(-5, 'a'), 7);
    EXPECT_EQ(text.Insert(100, text), 14);
    ExpectText(text, "aone!__aone!__");
    EXPECT_EQ(text.Delete(7, 100), 7);
    EXPECT_EQ(text.Delete(9), 7);
    EXPECT_EQ(text.Delete(0, 4), 3);
    ExpectText(text, "!__");
    text.GetBuffer(10)[0] = '?';
    text.ReleaseBuffer();
    ExpectText(text, "?__");
}

TEST(CStringEditing, TextGrownStepByStepHoldsAll)
{
    std::string expected;
    CString text;
    for (int i = 0; i < 5000; ++i)
    {
        const char ch = static_cast<char>('a' + i % 26);
        expected += ch;
        text += ch;
    }
    ExpectText(text, expected);
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
    EXPECT_EQ(text.FindOneOf("xcb"), 1);
}

TEST(CStringNul, IsKeptByEveryOperation)
{
    CString text = Bytes("a\0b"sv);
    EXPECT_EQ(text.GetLength(), 3);
    ExpectText(text + CString::FromChar(0) + "c", "a\0b\0c"sv);
    ExpectText(text.Mid(1), "\0b"sv);
    EXPECT_EQ(text.Find('b'), 2);
    EXPECT_EQ(text.Replace('\0', '-'), 1);
    ExpectText(text, "a-b");
    ExpectText(Bytes("x\0y"sv).MakeUpper(), "X\0Y"sv);

    CString copy = Bytes("p\0q"sv);
    copy.SetAt(0, 'P');
    ExpectText(copy, "P\0q"sv);
    EXPECT_EQ(copy.Insert(3, Bytes("\0r"sv)), 5);
    ExpectText(copy, "P\0q\0r"sv);
}

TEST(CStringNul, ComparesLikeTheEnd)
{
    EXPECT_TRUE(CString::FromChar(0) == "");
    EXPECT_TRUE(CString::FromChar(0) == CString());
    EXPECT_EQ(CString::FromChar(0).GetHash(), CString().GetHash());
    EXPECT_TRUE(Bytes("a\0b"sv) == Bytes("a\0c"sv));
    EXPECT_FALSE(Bytes("a\0b"sv).IsIdentical(Bytes("a\0c"sv)));
    EXPECT_LT(CString::FromChar(0).Compare(" "), 0);
}

TEST(CStringCompare, GoesByUnsignedBytes)
{
    EXPECT_GT(CString("\x80").Compare("z"), 0);
    EXPECT_TRUE(CString("\xFF") > "a" && CString("B") < CString("a") && "a" <= CString("a"));
    EXPECT_NE(CString("a"), CString("A"));
    EXPECT_EQ(CString("aBz[").CompareNoCase("AbZ["), 0);
    EXPECT_NE(CString("\xC4").CompareNoCase("\xE4"), 0);  // letters of ASCII only
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
        ExpectText(Bytes(c.text).TrimLeft(), c.left);
        ExpectText(Bytes(c.text).TrimRight(), c.right);
    }
    CString shared(" x ");
    CString copy(shared);
    ExpectText(copy.Trim(), "x");
    ExpectText(shared, " x ");
    ExpectText(CString("--x-").TrimLeft('-'), "x-");
    ExpectText(CString("x.0.").TrimRight(".0"), "x");
}

TEST(CStringFormat, KnowsTheConversions)
{
    CString text;
    text.Format("%s|%5s|%-4s|%.2s|%%", "ab", (const char*)CString("cd"), CString("ef"), "ghi");
    ExpectText(text, "ab|   cd|ef  |gh|%");
    text.Format("%d %d %u %u %ld", -5, INT_MIN, -1, static_cast<WORD>(65531), LONG_MIN);
    ExpectText(text, "-5 -2147483648 4294967295 65531 " + std::to_string(LONG_MIN));
    text.Format("%05d|%-5d|%+d|%5.3d|%x|%#X|%02X", -42, 7, 7, 7, 255, 255, 10);
    ExpectText(text, "-0042|7    |+7|  007|ff|0XFF|0A");
    text.Format("%c%c", 'a', 0);
    ExpectText(text, "a\0"sv);
    text.Format("%s-%s", Bytes("a\0b"sv), text);
    ExpectText(text, "a\0b-a\0"sv);
}

TEST(CStringFormat, ATemplateFromAnywhereDoesNoHarm)
{
    CString text;
    text.Format("%s %s %s", "a");
    ExpectText(text, "a  ");
    text.Format("%n %q %", 1);
    ExpectText(text, "%n %q %");
    text.Format("%d %s", "text", 7);
    ExpectText(text, "text 7");
    text.Format("%99999999999s", "x");
    EXPECT_EQ(text.GetLength(), 4096);
    text.Format(nullptr);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CStringMemory, ATextTooLongIsAPlatformException)
{
    CString text;
    EXPECT_THROW(text.GetBuffer(INT_MAX), CMemoryException*);
    EXPECT_THROW(text.GetBufferSetLength(-1), CInvalidArgException*);
    ExpectText(text, "");
}
