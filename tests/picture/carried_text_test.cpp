// The source inside of pictures: written, found again, and looked for in anything.
#include <gtest/gtest.h>

#include "picture/carried_text.h"
#include "platform/base/code_page.h"

namespace
{
TEST(CarriedText, EveryByteComesBack)
{
    for (int n = 0; n < 256; ++n)
    {
        const std::string strText =
            Windows1252ToUtf8("a" + std::string(1, static_cast<char>(n)) + "\\x41");
        const std::string strEscaped = EscapeCarried(strText);
        EXPECT_EQ(UnescapeCarried(strEscaped), strText) << n;
        for (const char ch : strEscaped)
            EXPECT_GE(static_cast<unsigned char>(ch), 0x20) << n;
        EXPECT_EQ(strEscaped.find("\xC2\x81"), std::string::npos);  // no control of either kind
    }
    EXPECT_EQ(EscapeCarried("a\xC2"), "a\xC2");  // half a character
    EXPECT_EQ(UnescapeCarried("\\x4 \\xG1 \\ \\x"), "\\x4 \\xG1 \\ \\x");
}

TEST(CarriedText, IsFoundInTheFormsThatOthersWrite)
{
    const std::pair<const char*, std::optional<std::string>> aForeign[] = {
        // SVG
        { "<svg><metadata><source xmlns='urn:mivora'>a</source></metadata></svg>", "a" },
        { "<svg><source xmlns='urn:other'>a</source></svg>", {} },
        { "<svg><source xmlns='urn:mivora'/></svg>", {} },
        { "<svg><source xmlns='urn:mivora'>a", {} },
        { "<svg xmlns:q='urn:mivora'><q:source>&#x3C;&#60;&amp;lt;&bad;&#x110000;</q:source></svg>",
          "<<&lt;&bad;&#x110000;" },
        { "<svg xmlns:q='urn:mivora'/>", {} },
        { "<svg><source xmlns='urn:mivora'><![CDATA[a/b&lt;]]></source></svg>", "a/b&lt;" },
        // PDF: only a description that is ours counts
        { "%PDF-1.4 <</Subject(a)/Creator(mivora)>>", "a" },
        { "%PDF-1.4 <</Subject(a)/Creator(other)>>", {} },
        { "%PDF-1.4 <</Subject(a)>> <</Creator(mivora)>>", {} },
        { "%PDF-1.4 <</Kids[1 0 R]>> <</N 5/Creator(mivora)/Subject(\\(\\050(\\)))/X 1 0 R>>",
          "((("
          "))" },
        { "%PDF-1.4 <</Creator(mivora)/Subject<FEFF 20AC D835 DC4>>>",
          "\xE2\x82\xAC\xF0\x9D\x91\x80" },
        { "%PDF-1.4 <</Creator <6D69766F7261> /Subject(a)/N 1>>", "a" },
        { "%PDF-1.4 <</Creator(mivora)/Subject(a", {} },
        { "%PDF-1.4 <</Creator(mivora)/Subject", {} },
        { "%PDF-1.4 <</Creator(mivora)/Subject(\\", {} },
        { "%PDF-1.4 <<", {} },
        // Neither
        { "", {} },
        { "BM", {} },
        { "\x89PNG\r\n\x1A\n", {} },
    };
    for (const auto& [pszBytes, source] : aForeign)
        EXPECT_EQ(FindCarriedSource(pszBytes), source) << pszBytes;
}

// Openings without ends must not be followed to the end of the file each.
TEST(CarriedText, LookingTakesNoLongerThanTheFileIsLong)
{
    for (const char* pszPart : { "<<(", "<</Subject(", "<</A<", "<<", "/ObjStm stream\n" })
    {
        std::string strBytes = "%PDF-1.4 ";
        while (strBytes.size() < 3'000'000)
            strBytes += pszPart;
        EXPECT_FALSE(FindCarriedSource(strBytes)) << pszPart;
    }
}
// Four times the file and a megabyte are read: each opening here goes on to the end.
TEST(CarriedText, IsFoundBehindSoManyOpenings)
{
    for (const auto& [nOpenings, bFound] : { std::pair(0, true), { 4, true }, { 6, false } })
    {
        std::string strBytes = "%PDF-1.4 ";
        for (int n = 0; n < nOpenings; ++n)
            strBytes += "<</Subject(";
        strBytes += std::string(3'000'000, 'x') + "<</Subject(a)/Creator(mivora)>>";
        EXPECT_EQ(FindCarriedSource(strBytes).has_value(), bFound) << nOpenings;
    }
}

}  // namespace
