// What formulas are written as, in all forms.
#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <memory>
#include <string>

#include "exchange/latex.h"
#include "exchange/mathml.h"
#include "exchange/speech.h"
#include "format/tree_format.h"
#include "gallery/sketch.h"
#include "nodes/random_tree.h"
#include "nodes/typed_node.h"
#include "parser/parsed.h"
#include "platform/base/exception.h"
#include "random_formula.h"

namespace
{
// MathML without the math element.
std::string MathMLOf(const CNode* pRoot)
{
    const std::string strText = MathMLText(pRoot);
    const std::size_t nStart = strText.find('>') + 1;
    return strText.substr(nStart, strText.rfind("</math>") - nStart);
}

struct CFormCase
{
    const char* pszSource;  // a text, or a sketch that begins with "(" and a capital
    const char* pszMathML;
    const char* pszLatex;
    const char* pszWords;
};

std::string (*const s_apfnWrite[])(const CNode*) = { MathMLText, LatexText, SpokenText };

// The tree of a source text or of a sketch.
struct CSource
{
    CSource(const std::string& strSource, bool bSketch) : parsed(bSketch ? "" : strSource)
    {
        if (bSketch)
            BuildTree(tree, strSource);
        pRoot = bSketch ? tree.GetRootNode() : parsed.pTop.get();
    }

    CParsed parsed;
    CBinTree tree;
    const CNode* pRoot;
};

// clang-format off
const CFormCase s_aCases[] = {
    { "", "", "", "empty" },
    { "a-b+2", "<mi>a</mi><mo>−</mo><mi>b</mi><mo>+</mo><mn>2</mn>", "a-b+2", "a minus b plus 2" },
    { "a-(b+c)", "<mi>a</mi><mo>−</mo><mrow><mi>b</mi><mo>+</mo><mi>c</mi></mrow>", "a-b+c",
      "a minus the quantity b plus c" },
    { "-x<=-B", "<mo form=\"prefix\">−</mo><mi>x</mi><mo>≤</mo><mo form=\"prefix\">−</mo><mi>B</mi>",
      "-x\\leq-B", "negative x is less than or equal to negative capital b" },
    { "a+", "<mi>a</mi><mo form=\"postfix\">+</mo>", "a+", "a plus empty" },
    { "2*x**y", "<mn>2</mn><mo>&#x2062;</mo><mi>x</mi><mo>×</mo><mi>y</mi>", "2 x\\times y",
      "2 times x cross y" },
    { "n!", "<mi>n</mi><mo form=\"postfix\">!</mo>", "n!", "n factorial" },
    { "(a+b)/c", "<mfrac><mrow><mi>a</mi><mo>+</mo><mi>b</mi></mrow><mi>c</mi></mfrac>",
      "\\frac{a+b}{c}", "the fraction with numerator a plus b and denominator c" },
    { "1/n+(a+b)/c+d", nullptr, "\\frac{1}{n}+\\frac{a+b}{c}+d",
      "1 over n plus the fraction with numerator a plus b and denominator c end fraction plus d" },
    { "sqr(x)+nsqr(x+1,3)", "<msqrt><mi>x</mi></msqrt><mo>+</mo><mroot><mrow><mi>x</mi><mo>+</mo><mn>1</mn></mrow><mn>3</mn></mroot>",
      "\\sqrt{x}+\\sqrt[3]{x+1}", "the square root of x plus the third root of the quantity x plus 1" },
    { "nsqr(x,abs(n))", nullptr, "\\sqrt[{\\left|n\\right|}]{x}",
      "the root of degree the quantity the absolute value of n end absolute value end quantity of x" },
    { "(a+b)^2", "<msup><mrow><mo form=\"prefix\">(</mo><mi>a</mi><mo>+</mo><mi>b</mi><mo form=\"postfix\">)</mo></mrow><mn>2</mn></msup>",
      "\\left(a+b\\right)^{2}", "open paren a plus b close paren squared" },
    { "(x^2)~3", "<msup><msup><mi>x</mi><mn>2</mn></msup><mn>3</mn></msup>", "{x^{2}}^{3}",
      "the quantity x squared end quantity cubed" },
    { "a^n+a^-n", nullptr, "a^{n}+a^{-n}", "a to the power n plus a raised to the power negative n" },
    { "mark(x,i,)+mark(x,i,2)+mark(x,i+1,)", "<msub><mi>x</mi><mi>i</mi></msub><mo>+</mo><msubsup><mi>x</mi><mi>i</mi><mn>2</mn></msubsup><mo>+</mo><msub><mi>x</mi><mrow><mo form=\"prefix\">(</mo><mi>i</mi><mo>+</mo><mn>1</mn><mo form=\"postfix\">)</mo></mrow></msub>",
      "x_{i}+x_{i}^{2}+x_{\\left(i+1\\right)}",
      "x sub i plus x sub i superscript 2 plus x with subscript open paren i plus 1 close paren" },
    { "sin x+sinh x+f(x)+f(x,y)", "<mrow><mi>sin</mi><mo rspace=\"0.17em\">&#x2061;</mo><mi>x</mi></mrow><mo>+</mo><mrow><mi>sinh</mi><mo>&#x2061;</mo><mrow><mo form=\"prefix\">(</mo><mi>x</mi><mo form=\"postfix\">)</mo></mrow></mrow><mo>+</mo><mrow><mi>f</mi><mo>&#x2061;</mo><mrow><mo form=\"prefix\">(</mo><mi>x</mi><mo form=\"postfix\">)</mo></mrow></mrow><mo>+</mo><mrow><mi>f</mi><mo>&#x2061;</mo><mrow><mo form=\"prefix\">(</mo><mi>x</mi><mo>,</mo><mi>y</mi><mo form=\"postfix\">)</mo></mrow></mrow>",
      "\\sin x+\\sinh\\left(x\\right)+f\\left(x\\right)+f\\left(x,y\\right)",
      "sine of x plus hyperbolic sine of open paren x close paren plus f of x plus f of open paren x comma y close paren" },
    { "x*arcosh y", "<mi>x</mi><mo rspace=\"0.17em\">&#x2062;</mo><mrow><mi>arcosh</mi><mo>&#x2061;</mo><mrow><mo form=\"prefix\">(</mo><mi>y</mi><mo form=\"postfix\">)</mo></mrow></mrow>",
      "x \\operatorname{arcosh}\\left(y\\right)", "x times inverse hyperbolic cosine of open paren y close paren" },
    { "sum(i,i=1,n)", "<mrow><munderover><mo movablelimits=\"false\">∑</mo><mrow><mi>i</mi><mo>=</mo><mn>1</mn></mrow><mi>n</mi></munderover><mi>i</mi></mrow>",
      "\\sum_{i=1}^{n}i", "the sum from i equals 1 to n of i" },
    { "int(x+1,0,1)", "<mrow><munderover><mo movablelimits=\"false\">∫</mo><mn>0</mn><mn>1</mn></munderover><mrow><mo form=\"prefix\">(</mo><mi>x</mi><mo>+</mo><mn>1</mn><mo form=\"postfix\">)</mo></mrow></mrow>",
      "\\int\\limits_{0}^{1}\\left(x+1\\right)", "the integral from 0 to 1 of open paren x plus 1 close paren" },
    { "brace([,,a)", "<mrow><mo form=\"prefix\">[</mo><mi>a</mi><mo form=\"postfix\">)</mo></mrow>",
      "\\left[a\\right)", "open bracket a close paren" },
    { "greek a+greek G+greek f", "<mi>α</mi><mo>+</mo><mi>Γ</mi><mo>+</mo><mi>ϕ</mi>",
      "\\alpha+\\Gamma+\\phi", "alpha plus capital gamma plus phi" },
    { "greek a*b", "<mi>α</mi><mo>&#x2062;</mo><mi>b</mi>", "\\alpha b", "alpha times b" },
    { "velocity+plus+x''", "<mi style=\"font-style:italic\">velocity</mi><mo>+</mo><mi style=\"font-style:italic\">plus</mi><mo>+</mo><mi style=\"font-style:italic\">x''</mi>",
      "\\mathit{velocity}+\\mathit{plus}+{x''}", "velocity plus the name plus plus x prime prime" },
    { "str(a<b&\xE4 #)", "<mi style=\"font-style:italic\">a&lt;b&amp;ä\u00A0#</mi>",
      "\\textit{a\\textless{}b\\&ä\\ \\#}", "the text a is less than b ampersand ä space number sign end text" },
    { "5%", "<mn>5%</mn>", "5\\%", "5 percent" },
    { "(DIVISION[1] a b)", "<mi>a</mi><mo>/</mo><mi>b</mi>", "\\left.a\\middle/b\\right.",
      "the slash fraction with numerator a and denominator b" },
    { "(DIVISION[2] a b)", "<mfrac linethickness=\"0\"><mi>a</mi><mi>b</mi></mfrac>",
      "\\genfrac{}{}{0pt}{}{a}{b}", "the fraction without bar with numerator a and denominator b" },
    { "(EQUATION[6] a (BRACE[23] b))", "<mi>a</mi><mo>?</mo><mrow><mo form=\"prefix\">|</mo><mi>b</mi><mo form=\"postfix\">?</mo></mrow>",
      "a\\mathrel{?}\\left|b\\right.?", "a is related to open bar b close question mark" },
    { "(PROD (RANGE n k) x)", "<mrow><munderover><mo movablelimits=\"false\" intent=\"product\">?</mo><mi>k</mi><mi>n</mi></munderover><mi>x</mi></mrow>",
      "\\mathop{?}\\limits_{k}^{n}x", "the product from k to n of x" },
    { "(INTEGRAL[6] - (INTEGRAND x y))", "<mrow><mrow><mo movablelimits=\"false\">∬</mo><mo movablelimits=\"false\">?</mo></mrow><mrow><mi>x</mi><mi mathvariant=\"normal\">d</mi><mi>y</mi></mrow></mrow>",
      "\\mathop{\\iint?}\\limits x\\,\\mathrm{d}y", "the double integral question mark of x with respect to y" },
    { "(SUM (RANGE - k) (SUM (RANGE (PLUS n 1) -) x))", nullptr, "\\sum_{k}\\sum^{n+1}x",
      "the sum over k of the sum with upper limit n plus 1 end limits of x" },
    { "(DERIVE x (PLUS f g))", "<mrow><mfrac><mi mathvariant=\"normal\">d</mi><mrow><mi mathvariant=\"normal\">d</mi><mi>x</mi></mrow></mfrac><mrow><mi>f</mi><mo>+</mo><mi>g</mi></mrow></mrow>",
      "\\frac{\\mathrm{d}}{\\mathrm{d}x}f+g", "the derivative with respect to x of the quantity f plus g" },
    { "(PARTDERIVE x f)", "<mrow intent=\"partial-derivative($f,$x)\"><mfrac><mi>?</mi><mrow><mi>?</mi><mrow arg=\"x\"><mi>x</mi></mrow></mrow></mfrac><mrow arg=\"f\"><mi>f</mi></mrow></mrow>",
      "\\frac{?}{?x}f", "the partial derivative with respect to x of f" },
    { "(LIMES (OPERATOR x (INFINITY)) f)", "<mrow><munder><mi>lim</mi><mrow><mi>x</mi><mo intent=\"tends-to\">?</mo><mi intent=\"infinity\">?</mi></mrow></munder><mo rspace=\"0.17em\">&#x2061;</mo><mi>f</mi></mrow>",
      "\\lim_{x\\mathrel{?}?}f", "the limit as x approaches infinity of f" },
    { "(VECTOR[4] x)", "<mover intent=\"norm($x)\"><mover accent=\"true\"><mover accent=\"true\"><mrow arg=\"x\"><mi>x</mi></mrow><mo stretchy=\"true\">¯</mo></mover><mo stretchy=\"true\">¯</mo></mover><mo stretchy=\"false\">?</mo></mover>",
      "\\overset{?}{\\overline{\\overline{x}}}", "x with double bar above" },
    { "(ARROWS[5] a (CROSS b c))", "<mi>a</mi><mo stretchy=\"false\">↕</mo><mi>b</mi><mo intent=\"cross-product\">?</mo><mi>c</mi>",
      "a\\mathrel{\\updownarrow}b\\mathbin{?}c", "a up down arrow b cross product c" },
    { "(BRACE (BINOMIAL n k))", "<mrow><mo form=\"prefix\">(</mo><mfrac linethickness=\"0\" intent=\"binomial-coefficient($n,$k)\"><mrow arg=\"n\"><mi>n</mi></mrow><mrow arg=\"k\"><mi>k</mi></mrow></mfrac><mo form=\"postfix\">)</mo></mrow>",
      "\\left(\\genfrac{}{}{0pt}{}{n}{k}\\right)",
      "open paren the binomial with upper part n and lower part k end binomial close paren" },
    { "(MATRIX (ELEMENT a b) (ELEMENT c -))", "<mtable><mtr><mtd><mi>a</mi></mtd><mtd><mi>b</mi></mtd></mtr><mtr><mtd><mi>c</mi></mtd><mtd></mtd></mtr></mtable>",
      "\\begin{matrix}a&b\\\\c&\\end{matrix}", "the matrix row a next b row c next empty" },
    { "(LINE (ELEMENT a b) c)", "<mtable><mtr><mtd><mi>c</mi></mtd></mtr><mtr><mtd><mi>a</mi><mi>b</mi></mtd></mtr></mtable>",
      "\\begin{matrix}c\\\\a b\\end{matrix}", "the lines row c row a followed by b" },
    { "(FUNC[20] - (NABLA - (LAPLACE - f)))", "<mrow><mi mathvariant=\"normal\">Γ</mi><mo rspace=\"0.17em\">&#x2061;</mo><mrow><mover accent=\"true\"><mi intent=\"nabla\">?</mi><mo stretchy=\"false\">→</mo></mover><mrow><mi mathvariant=\"normal\" intent=\"laplacian\">Δ</mi><mi>f</mi></mrow></mrow></mrow>",
      "\\operatorname{\\Gamma}\\vec{?}\\Delta f", "function capital gamma of nabla applied to Laplacian applied to f" },
    { "cos x+tan x+cot x+ln x", nullptr, "\\cos x+\\tan x+\\cot x+\\ln x",
      "cosine of x plus tangent of x plus cotangent of x plus natural logarithm of x" },
    { "(PLUS (PLUS (FUNC[4] - x) (FUNC[5] - x)) (FUNC[6] - x))", nullptr, "\\arcsin x+\\arccos x+\\arctan x",
      "arc sine of x plus arc cosine of x plus arc tangent of x" },
    { "(PLUS (PLUS (FUNC[9] - x) (FUNC[10] - x)) (FUNC[11] - x))", nullptr, "\\cosh x+\\tanh x+\\coth x",
      "hyperbolic cosine of x plus hyperbolic tangent of x plus hyperbolic cotangent of x" },
    { "(PLUS (PLUS (FUNC[12] - x) (FUNC[14] - x)) (FUNC[15] - x))", nullptr,
      "\\operatorname{arsinh}x+\\operatorname{artanh}x+\\operatorname{arcoth}x",
      "inverse hyperbolic sine of x plus inverse hyperbolic tangent of x plus inverse hyperbolic cotangent of x" },
    { "(PLUS (PLUS (PLUS (FUNC[7] - x) (FUNC[16] - x)) (FUNC[18] - x)) (FUNC[19] - x))", nullptr,
      "\\operatorname{arccot}x+\\exp x+\\operatorname{log2}x+\\lg x",
      "arc cotangent of x plus exponential of x plus logarithm base 2 of x plus logarithm base 10 of x" },
    { "(STANDARD \"!\")", "<mo>!</mo>", "!", "the sign exclamation mark" },
    { "(USERFUNC \"g\" - (PLANCK))", "<mrow><mi mathvariant=\"normal\">g</mi><mo rspace=\"0.17em\">&#x2061;</mo><mi>ℏ</mi></mrow>",
      "\\operatorname{g}\\hbar", "function g of h bar" },
    { "(POWERTO (PLACEHOLDER) (LAMBDA))", "<msup><mrow class=\"placeholder\"></mrow><mi>ƛ</mi></msup>",
      "\\boxed{\\phantom{0}}^{\\bar{\\lambda}}", "blank to the power lambda bar" },
    { "(INDEX i (LABEL \"max\"))", "<msubsup><mrow></mrow><mtext>max</mtext><mi>i</mi></msubsup>",
      "{}_{\\mathrm{max}}^{i}", "empty with subscript the label max and superscript i" },
    { "(RANGE b a)", "<mfrac linethickness=\"0\"><mi>b</mi><mi>a</mi></mfrac>",
      "\\genfrac{}{}{0pt}{}{b}{a}", "the range with lower limit a upper limit b" },
    { "(POISON x (INDEX - i))", "<msub><mrow><mo form=\"prefix\">(</mo><mi>x</mi><mo form=\"postfix\">)</mo></mrow><mi>i</mi></msub>",
      "\\left(x\\right)_{i}", "open paren x close paren sub i" },
    { "(VARIABLE \"x\" a b)", "<mi>a</mi><mrow><mi>x</mi><mi>b</mi></mrow>", "a x b",
      "a followed by the quantity x followed by b" },
};
// clang-format on

TEST(WrittenForms, AreThoseOfTheTable)
{
    for (const CFormCase& form : s_aCases)
    {
        SCOPED_TRACE(form.pszSource);
        const CSource source(form.pszSource,
                             form.pszSource[0] == '(' && std::isupper(form.pszSource[1]));
        if (form.pszMathML != nullptr)
        {
            EXPECT_EQ(MathMLOf(source.pRoot), form.pszMathML);
        }
        EXPECT_EQ(LatexText(source.pRoot), form.pszLatex);
        EXPECT_EQ(SpokenText(source.pRoot), form.pszWords);
    }
}

TEST(WrittenForms, OfNoTreeAreEmpty)
{
    EXPECT_EQ(MathMLOf(nullptr), "");
    EXPECT_EQ(LatexText(nullptr), "");
    EXPECT_EQ(SpokenText(nullptr), "empty");
}

// A kind outside its table is refused as in every other use.
TEST(WrittenForms, RefuseAKindThatThereIsNot)
{
    for (const char* pszSketch :
         { "(BRACE[99] x)", "(EQUATION[99] a b)", "(FUNC[99] - x)", "(VECTOR[99] x)" })
    {
        for (const auto pfnWrite : s_apfnWrite)
            EXPECT_THROW(pfnWrite(CSource(pszSketch, true).pRoot), CInvalidArgException*)
                << pszSketch;
    }
}

// Trees as damaged or foreign files bring them: any child under any node. Elements must close, and
// a second writing must find the tree as it was.
TEST(WrittenForms, TakeAnyTreeAndLeaveItAsItIs)
{
    for (unsigned nSeed = 1; nSeed <= 1500; ++nSeed)
    {
        const CRandomTree random(nSeed, {});
        const std::string strBefore = TreeForm(random.GetRoot()).GetString();
        const std::string strMathML = MathMLText(random.GetRoot());
        const std::string strLatex = LatexText(random.GetRoot());
        const std::string strWords = SpokenText(random.GetRoot());
        int nOpen = 0;
        for (std::size_t n = strMathML.find('<'); n != strMathML.npos;
             n = strMathML.find('<', n + 1))
            nOpen += strMathML[n + 1] == '/' ? -1 : 1;
        EXPECT_EQ(nOpen, 0) << nSeed;
        int nBraces = 0;
        for (std::size_t n = 0; n < strLatex.size() && nBraces >= 0; ++n)
        {
            if (strLatex[n] == '\\')
                ++n;  // what follows is no brace
            else
                nBraces += strLatex[n] == '{' ? 1 : strLatex[n] == '}' ? -1 : 0;
        }
        EXPECT_EQ(nBraces, 0) << nSeed << ' ' << strLatex;
        EXPECT_FALSE(strWords.empty()) << nSeed;
        EXPECT_EQ(strBefore, TreeForm(random.GetRoot()).GetString()) << nSeed;
        EXPECT_EQ(strMathML, MathMLText(random.GetRoot())) << nSeed;
    }
}

// Words that fit two formulas would leave the listener in doubt.
using CWordBook = std::map<std::string, std::string>;

void Enter(CWordBook& book, const std::string& strSource, bool bSketch)
{
    const CSource source(strSource, bSketch);
    EXPECT_EQ(source.parsed.nErrorPos, 0) << strSource;
    const std::string strEmpty = "(STANDARD \"\" - -)";  // shows as much as no child
    std::string strForm = bSketch ? strSource : source.parsed.Form();
    for (std::size_t i; !bSketch && (i = strForm.find(strEmpty)) != strForm.npos;)
        strForm.replace(i, strEmpty.size(), "-");
    const std::string strWords = SpokenText(source.pRoot);
    EXPECT_EQ(book.emplace(strWords, strForm).first->second, strForm) << strWords;
}

TEST(SpokenText, FitsOneFormulaOnly)
{
    for (const bool bSketch : { false, true })
    {
        CWordBook book;
        CRandomFormula random(7);
        const CRandomFormula::CLanguage& language =
            bSketch ? CRandomFormula::SKETCHES : CRandomFormula::TEXTS;
        for (const char* pszLeaf : { "x", "2", "f" })
        {
            for (const std::string& strSource : random.Pairs(language, pszLeaf))
                Enter(book, strSource, bSketch);
        }
        for (int n = 0; n < 4000; ++n)
        {
            if (n % 10 == 0)
                random.Narrow(n >= 1000);
            Enter(book, random.Make(language, 1 + n % 4), bSketch);
        }
        EXPECT_GT(book.size(), bSketch ? 9000U : 4000U);
    }
}

// As deep as an archive can be.
TEST(WrittenForms, HaveNoLimitOfDepth)
{
    constexpr ENodeType aTypes[] = { NTI_STANDARD, NTI_PLUS,   NTI_DIVISION, NTI_BRACE,  NTI_ROOT,
                                     NTI_POWERTO,  NTI_MATRIX, NTI_ELEMENT,  NTI_VECTOR, NTI_FUNC };
    constexpr int nLevels = 60000;
    for (const ENodeType nType : aTypes)
    {
        for (const bool bLeft : { true, false })
        {
            CBinTree tree;
            std::unique_ptr<CNode> pRoot(tree.CreateBareNode(NTI_NUMBER));
            for (int n = 0; n < nLevels; ++n)
            {
                CNode* pAbove = tree.CreateBareNode(nType);
                bLeft ? pAbove->LinkLeft(pRoot.release()) : pAbove->LinkRight(pRoot.release());
                pRoot.reset(pAbove);
            }
            for (const auto pfnWrite : s_apfnWrite)
            {
                const std::string strText = pfnWrite(pRoot.get());
                EXPECT_NE(strText.find("0.0"), strText.npos);
                EXPECT_LT(strText.size(), nLevels * 140U);
            }
        }
    }
}
}  // namespace
