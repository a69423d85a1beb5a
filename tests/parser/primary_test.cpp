// Numbers, names, the call form and the keywords.
#include <tuple>

#include "parser/keywords.h"
#include "parser/parsed.h"

namespace
{

// A function with its argument in a node of another type.
std::string Function(int nKind, const char* pszBetween, const char* pszArgument)
{
    return "(FUNC[" + std::to_string(nKind) + "] \"\" - (" + pszBetween + " \"\" " + pszArgument +
           " -))";
}

}  // namespace

TEST(Primary, KeepsNumbersAndNamesAsTyped)
{
    const CParseCase aCases[] = {
        { "1.2.3", "#1.2.3" }, { "5%", "#5%" },          { "%", "#%" },
        { ".", "#." },         { "a b", "'a b'" },       { "a[i]", "'a[i]'" },
        { "|x|", "'|x|'" },    { "x1", "'x'", 2 },       { "x_1", "'x'", 2 },
        { "xsin", "'xsin'" },  { "ab sin", "'ab sin'" }, { "\xE4", "_", 1 },
    };
    ExpectParses(aCases);
}

TEST(Primary, HangsTheCallFormOnWhatStandsBeforeIt)
{
    const CParseCase aCases[] = {
        { "f(a", R"((VARIABLE "f" - (BRACE[0] "" 'a' -)))" },
        { "f(a,b,c)",
          R"((VARIABLE "f" - (BRACE[0] "" (VARIABLE "," (VARIABLE "," 'a' 'b') 'c') -)))" },
        { "f(,x)", R"((VARIABLE "f" - (BRACE[0] "" (VARIABLE "," _ 'x') -)))" },
        { "f()", R"((VARIABLE "f" - (BRACE[0] "" _ -)))" },
        { "PROD(a,b)", R"((VARIABLE "PROD" - (BRACE[0] "" (VARIABLE "," 'a' 'b') -)))" },
        { "sin(x)(y)", R"((FUNC[0] "" - (BRACE[0] "" 'y' -)))" },
        { "abs(x)(y)", R"((BRACE[4] "" 'x' (BRACE[0] "" 'y' -)))" },
    };
    ExpectParses(aCases);
}

TEST(Primary, ReadsFunctions)
{
    // With a name alone, light ones take no brackets.
    const std::tuple<std::string, int, bool> aFunctions[] = {
        { "sin", 0, true },      { "COS", 1, true },      { "Tan", 2, true },
        { "cot", 3, true },      { "arcsin", 4, false },  { "arccos", 5, false },
        { "arctan", 6, false },  { "arccot", 7, false },  { "sinh", 8, false },
        { "cosh", 9, false },    { "tanh", 10, false },   { "coth", 11, false },
        { "arsinh", 12, false }, { "arcosh", 13, false }, { "artanh", 14, false },
        { "arcoth", 15, false }, { "exp", 16, false },    { "ln", 17, true },
        { "log", 19, true },
    };
    for (const auto& [strName, nKind, bLight] : aFunctions)
    {
        EXPECT_EQ(CParsed(strName + " x").Form(),
                  Long(Function(nKind, bLight ? "STANDARD" : "BRACE[0]", "'x'")))
            << strName;
        EXPECT_EQ(CParsed(strName + "(a/b)").Form(),
                  Long(Function(nKind, "BRACE[0]", R"((DIVISION[0] "/" 'a' 'b'))")))
            << strName;
    }
    const CParseCase aCases[] = {
        { "sin x^2", R"((POWERTO "^" (BRACE[0] "" (FUNC[0] "" - (STANDARD "" 'x' -)) -) #2))" },
        { "cost", R"((FUNC[1] "" - (STANDARD "" 't' -)))" },
        { "sin", R"((FUNC[0] "" - (STANDARD "" _ -)))" },
        { "sqrt(2)", R"((ROOT "\xD6" (VARIABLE "t" - (BRACE[0] "" #2 -)) -))" },
        { "rad", "'d'" },
        { "degree", "'gree'" },
    };
    ExpectParses(aCases);
}

TEST(Primary, ReadsListForms)
{
    const CParseCase aCases[] = {
        { "nsqr(a+1,3)", R"((NTHROOT "\xD6" (PLUS "+" 'a' #1) #3))" },
        { "nsqr(a,b+1)", R"((NTHROOT "\xD6" 'a' (BRACE[0] "" (PLUS "+" 'b' #1) -)))" },
        { "nsqr(a)", R"((NTHROOT "\xD6" 'a' -))" },
        { "sum(i,i=1,n)", R"((SUM "\xE5" (RANGE "range" 'n' (EQUATION[0] "" 'i' #1)) 'i'))" },
        { "int(x,0,1)", R"((INTEGRAL[0] "" (RANGE "range" #1 #0) 'x'))" },
        { "int(x,,,y,z)", R"((INTEGRAL[0] "" (RANGE "range" _ _) 'x'))" },
        { "sum(x)y", R"((SUM "\xE5" (RANGE "range" - -) 'x'))", 7 },
        { "sum(a+b)", R"((SUM "\xE5" (RANGE "range" - -) (BRACE[0] "" (PLUS "+" 'a' 'b') -)))" },
        { "int(a,a+b,c+d)", R"((INTEGRAL[0] "" (RANGE "range" (BRACE[0] "" (PLUS "+" 'c' 'd') -) )"
                            R"((BRACE[0] "" (PLUS "+" 'a' 'b') -)) 'a'))" },
        { "mark(x,i,j)", R"((VARIABLE "x" - (INDEX "" 'j' 'i')))" },
        { "mark(a*b,i)", R"((TIMES "" 'a' (INDEX "" - 'i')))", 0, GAP_BARE },
        { "mark(a+b,i-j)",
          R"((BRACE[0] "" (PLUS "+" 'a' 'b') (INDEX "" - (BRACE[0] "" (MINUS "-" 'i' 'j') -))))" },
    };
    ExpectParses(aCases);
}

TEST(Primary, ReadsTextsWithTheirBlanks)
{
    const CParseCase aCases[] = {
        { "1 2", R"((NUMBER "1 2" - -))" },
        { "x +1", R"((PLUS "+" (VARIABLE "x " - -) #1))" },
        { R"(str(a b\)c))", "'a b)c'" },
        { "str(  a   b  )", "'a   b'" },
        { R"(str(a\\b))", R"('a\x5Cb')" },
        { R"(str(a\ b))", "'a b'" },
        { "str(12+3", "'12+3'" },
        { R"(str(ab\))", "'ab)'" },
        { "str(ab\\", "'ab'" },
        { "str()", "''" },
        { "str(f)(x)", R"((VARIABLE "f" - (BRACE[0] "" 'x' -)))" },
    };
    ExpectParses(aCases);
}

TEST(Primary, ChoosesBracketsByTheirLook)
{
    const std::pair<std::string, int> aPairs[] = {
        { ",", 0 },   { "[,]", 1 }, { "{,}", 2 }, { "<,>", 3 }, { "|,|", 4 },      { "[,[", 6 },
        { "],]", 7 }, { "],[", 8 }, { "[,", 9 },  { ",]", 10 }, { "{,", 15 },      { ",}", 16 },
        { "|,", 19 }, { ",|", 20 }, { "a,b", 0 }, { "},{", 0 }, { "a=b,c!=d", 3 },
    };
    for (const auto& [strPair, nKind] : aPairs)
    {
        EXPECT_EQ(CParsed("brace(" + strPair + ",x)").Form(),
                  Long("(BRACE[" + std::to_string(nKind) + "] \"\" 'x' -)"))
            << strPair;
    }
    const CParseCase aCases[] = {
        { "brace([,])", R"((BRACE[1] "" - -))" },
        // A single item takes the ")", and what follows it; the last step takes one more character.
        { "brace([)x", R"((BRACE[9] "" - -))" },
        { "brace([)+b", R"((BRACE[0] "" - -))" },
    };
    ExpectParses(aCases);
}

TEST(Primary, MarksNamesInAGreekOperandOnly)
{
    const CParseCase aCases[] = {
        { "greek a+b", R"((PLUS "+" (VARIABLE "a" @Symbol - -) 'b'))" },
        { "greek(a+2)*b",
          R"((TIMES "" (BRACE[0] "" (PLUS "+" (VARIABLE "a" @Symbol - -) #2) -) 'b'))", 0,
          GAP_BARE },
        { "greek f(x,y)", R"((VARIABLE "f" @Symbol - (BRACE[0] "" (VARIABLE "," @Symbol )"
                          R"((VARIABLE "x" @Symbol - -) (VARIABLE "y" @Symbol - -)) -)))" },
        { "greek greek a*b", R"((TIMES "" (VARIABLE "a" @Symbol - -) 'b'))", 0, GAP_BARE },
        { "greek (a)(b)", R"((VARIABLE "a" @Symbol - (BRACE[0] "" 'b' -)))" },
    };
    ExpectParses(aCases);
}

TEST(Primary, RewindsWhereAKeywordFails)
{
    const CParseCase aCases[] = {
        { "integer", "_", 65531 },
        { "2+sum", R"((PLUS "+" #2 _))", 2 },
        { "2+sum x", R"((PLUS "+" #2 _))", 3 },
        { "2+nsqr x", R"((PLUS "+" #2 _))", 3 },
        { "2+mark x", R"((PLUS "+" #2 _))", 3 },
        { "2+brace", R"((PLUS "+" #2 _))", 2 },
        { "2+str", R"((PLUS "+" #2 _))", 2 },
        // No ")" behind the list.
        { "1+sum(a", R"((PLUS "+" #1 _))", 4 },
        { "1+nsqr(a", R"((PLUS "+" #1 _))", 4 },
        { "1+mark(a", R"((PLUS "+" #1 _))", 5 },
        { "12+int(a+b)*int(a",
          R"((PLUS "+" (NUMBER "12" - -) (TIMES "" )"
          R"((INTEGRAL[0] "" (RANGE "range" - -) (BRACE[0] "" (PLUS "+" 'a' 'b') -)) _)))",
          9, GAP_BARE },
        // What stands above finishes what it holds and reads nothing more.
        { "y=sin(integer)", R"((EQUATION[0] "" 'y' (FUNC[0] "" - (STANDARD "" _ -))))", 1 },
        { "sin int", R"((FUNC[0] "" - (STANDARD "" _ -)))", 65535 },
        { "2*int(a,sum,b)", R"((TIMES "" #2 _))", 65535, GAP_BARE },
        { "greek int", "_", 1 },
        { "f(int)", R"((VARIABLE "f" - (BRACE[0] "" _ -)))", 65533 },
        { "brace([,],sum)", R"((BRACE[1] "" _ -))", 10 },
    };
    ExpectParses(aCases);
    const CParsed start("sum");
    EXPECT_EQ(start.Form(), Long("_"));
    EXPECT_EQ(start.nErrorPos, 0);
    EXPECT_EQ(start.strMessage, "Error at Position 0!");
}

// A keyword that begins with another one must be found first.
TEST(Keywords, AreAllFoundAtTheirNames)
{
    const CStringArray& astrNames = KeywordNames();
    ASSERT_EQ(astrNames.GetSize(), 31);
    EXPECT_TRUE(astrNames[0].IsEmpty());
    for (int i = 1; i < astrNames.GetSize(); i++)
    {
        CString strLower;
        for (const char ch : astrNames[i].View())
            strLower += static_cast<char>(ch - 'A' + 'a');
        for (const CString& strName : { astrNames[i], strLower, strLower + "z" })
        {
            const CKeyword* pFound = FindKeyword(strName);
            ASSERT_NE(pFound, nullptr) << strName.GetString();
            EXPECT_EQ(pFound->GetNumber(), i) << strName.GetString();
        }
        EXPECT_EQ(FindKeyword("x" + strLower), nullptr);
    }
}
