// What a parse says about text that its result does not show.
#include <gtest/gtest.h>

#include <string>

#include "parser/parsed.h"

namespace
{

// Each piece as its position and its text.
std::string DroppedOf(std::string_view strText)
{
    const CParsed parsed(strText);
    const std::size_t nTrimmed = strText.find_first_not_of(' ');
    std::string strDropped;
    for (const CDroppedText& text : parsed.parser.GetDropped())
    {
        strDropped += strDropped.empty() ? "" : "; ";
        strDropped += std::to_string(text.nPosition) + ":";
        strDropped += strText.substr(nTrimmed + text.nPosition - 1, text.nLength);
    }
    return strDropped;
}

}  // namespace

TEST(DroppedText, IsTold)
{
    const std::pair<const char*, const char*> aCases[] = {
        // A name behind a keyword
        { "sin 2x", "1:sin 2" },
        { "a+sin(x)y", "3:sin(x)" },
        { "  greek 2 x", "1:greek 2" },
        { "radius", "1:ra" },
        { "Deg", "1:De" },
        { "brace([,],x)y", "1:brace([,],x)" },
        // An exponent or an index that another one follows
        { "a^b^c", "3:b" },
        { "a^(b + c)^d~e", "4:b + c)^d" },
        { "x`i`j", "3:i" },
        { "a^b`c", "3:b" },
        { "(a+b)`i", "4:b" },
        { "f(u,v)`i", "3:u,v" },
        // Where there is no place for it
        { "sum(i,1,n,m)", "11:m" },
        { "nsqr(a,3,b*c,d)", "10:b*c,d" },
        { "mark(a*b,i)", "8:b" },
        { "mark(f(x),i,2)", "8:x" },
        { "sin(x)(y)", "5:x" },
        { "brace([,],x,y)", "13:y" },
        { "brace({,},2x", "12:x" },
        // Operators that are none
        { "a===b", "2:==" },
        { "a+=-b", "2:+=" },
        // Two places
        { "a^b^c+sin 2x", "3:b; 7:sin 2" },
        // An error at the end
        { "a^b^c)", "3:b" },
        { "a^b^c+sum(x", "3:b" },
    };
    for (const auto& [pszText, pszDropped] : aCases)
        EXPECT_EQ(DroppedOf(pszText), pszDropped) << pszText;
    EXPECT_EQ(DroppedOf(std::string_view("a+b\0c ", 6)), std::string("4:\0c", 4));
}

TEST(DroppedText, IsNoneInASoundFormula)
{
    for (const char* pszText :
         { "", "a+", "x!", "f(,x)", "sin(x)^2", "brace({,},a/b)", "brace(<,>,x)", "brace(<,,x",
           "brace(a+b,c,d)", "sum(mark(x,i,2),i=1,n)", "int(x,,)", "f(a,b,c)", "abs(x)(y)",
           "greek f(a,b)", "str(a, b\\)c)=x", "a-(b+c)", "a^(b^c)", "x +1", "1 2", "-a^-b",
           // What the position of an error tells
           "2x", "a)", "sum", "sum(a,b", "2+mark(a,b", "sin int x", "brace([,],sum x)" })
        EXPECT_EQ(DroppedOf(pszText), "") << pszText;
}

TEST(DroppedText, IsThatOfTheLastParse)
{
    CParsed parsed("a^b^c");
    ASSERT_EQ(parsed.parser.GetDropped().size(), 1U);
    WORD nErrorPos = 0;
    CString strMessage;
    const auto parse = [&](const CString& strText)
    {
        const int nResult = parsed.parser.Parse(strText, &nErrorPos, &strMessage);
        delete parsed.parser.m_pResult;
        return nResult;
    };
    EXPECT_EQ(parse("a"), 1);
    EXPECT_TRUE(parsed.parser.GetDropped().empty());
    EXPECT_EQ(parse("a^b^c"), 1);
    EXPECT_EQ(parse(CString('a', 65535)), 0);
    EXPECT_TRUE(parsed.parser.GetDropped().empty());
}
