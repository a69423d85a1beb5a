// The operator levels: which tree a text gives, and where reading ends.
#include "parser/parsed.h"

TEST(Expression, BuildsTheLevels)
{
    const CParseCase aCases[] = {
        { "", "_" },
        { " \t\r\n\v\f ", "_" },
        { "  a ", "'a'" },
        { "a+b*c", R"((PLUS "+" 'a' (TIMES "" 'b' 'c')))", 0, GAP_BARE },
        { "a*b**c", R"((TIMES "\xB4" (TIMES "" 'a' 'b') 'c'))", 0, GAP_SIGN },
        { "a*", R"((TIMES "" 'a' _))", 0, GAP_BARE },
        { "+a", R"((PLUS "+" _ 'a'))" },
        { "a=b+c", R"((PLUS "+" (EQUATION[0] "" 'a' 'b') 'c'))" },
        { "a<=b", R"((EQUATION[1] "" 'a' 'b'))" },
        { "a>=b", R"((EQUATION[2] "" 'a' 'b'))" },
        { "a<b", R"((EQUATION[3] "" 'a' 'b'))" },
        { "a>b", R"((EQUATION[4] "" 'a' 'b'))" },
        { "a! =b", R"((EQUATION[5] "" 'a' 'b'))" },
        { "a+b!", R"((STANDARD "!" (PLUS "+" 'a' 'b') _))" },
        { "a==b", "'a'", 4 },
        { "a-=+b", R"((PLUS "+" 'a' 'b'))" },
        { "a/b/c", R"((DIVISION[0] "/" (DIVISION[0] "/" 'a' 'b') 'c'))" },
        { "  2x", "#2", 2 },
    };
    ExpectParses(aCases);
}

TEST(Expression, BracketsOfTheTextMakeNoNode)
{
    const CParseCase aCases[] = {
        { "((a", "'a'" },
        { "(a+b)*c", R"((TIMES "" (BRACE[0] "" (PLUS "+" 'a' 'b') -) 'c'))", 0, GAP_BARE },
        { "a*-b", R"((TIMES "" 'a' (BRACE[0] "" (MINUS "-" _ 'b') -)))", 0, GAP_BARE },
        { "(a+b)/(c+d)", R"((DIVISION[0] "/" (PLUS "+" 'a' 'b') (PLUS "+" 'c' 'd')))" },
        { "(a=b)*c", R"((TIMES "" (EQUATION[0] "" 'a' 'b') 'c'))", 0, GAP_BARE },
        { "a)", "'a'", 2 },
        { "a\tb", "'a'", 2 },
        { "2(3)", "#2", 2 },
    };
    ExpectParses(aCases);
}

TEST(Expression, PowersStartAnewFromTheBase)
{
    const CParseCase aCases[] = {
        { "(a+b)^2", R"((POWERTO "^" (BRACE[0] "" (PLUS "+" 'a' 'b') -) #2))" },
        { "(a+b)~2", R"((POWERTO "^" (PLUS "+" 'a' 'b') #2))" },
        { "a^b^c", R"((POWERTO "^" 'a' 'c'))" },
        { "a~b^c", R"((POWERTO "^" 'a' 'b'))", 4 },
        { "a^-b", R"((POWERTO "^" 'a' (MINUS "-" _ 'b')))" },
        { "-a^2", R"((POWERTO "^" (BRACE[0] "" (MINUS "-" _ 'a') -) #2))" },
        { "--a", R"((MINUS "-" (MINUS "-" _ _) 'a'))" },
        { "x`i`j", R"((VARIABLE "x" - (INDEX "" - 'j')))" },
        { "x`i^2", R"((VARIABLE "x" - (INDEX "" - 'i')))", 4 },
        { "a^b`c", R"((POWERTO "^" 'a' (INDEX "" - 'c')))" },
        { "(a+b)`c", R"((PLUS "+" 'a' (INDEX "" - 'c')))" },
    };
    ExpectParses(aCases);
}

TEST(Expression, NulsEndWhereTheyAreATokenAndAreSteppedOver)
{
    using namespace std::string_view_literals;
    const CParsed ended("a+\0b"sv);
    EXPECT_EQ(ended.Form(), Long(R"((PLUS "+" 'a' _))"));
    EXPECT_EQ(ended.nErrorPos, 0);
    // The step behind the closing bracket of a text goes over whatever stands there.
    const CParsed stepped("str(a\0+b"sv);
    EXPECT_EQ(stepped.Form(), Long(R"((PLUS "+" 'a' 'b'))"));
}
