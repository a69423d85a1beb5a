// What every tree is written as, in all forms. The forms themselves: written_forms_test.py
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

#include "exchange/latex.h"
#include "exchange/mathml.h"
#include "exchange/speech.h"
#include "gallery/sketch.h"
#include "nodes/typed_node.h"
#include "parser/parsed.h"
#include "platform/base/exception.h"
#include "random_formula.h"

namespace
{
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

TEST(WrittenForms, OfNoTreeAreEmpty)
{
    const CSource blank("", false);
    for (const CNode* pRoot : { blank.pRoot, static_cast<const CNode*>(nullptr) })
    {
        EXPECT_EQ(MathMLText(pRoot),
                  R"(<math xmlns="http://www.w3.org/1998/Math/MathML" display="block"></math>)");
        EXPECT_EQ(LatexText(pRoot), "");
        EXPECT_EQ(SpokenText(pRoot), "empty");
    }
}

// No line of a file can hold them.
TEST(WrittenForms, TakeEndsOfLinesForBlanks)
{
    const CSource source("(VARIABLE \"a\tb\nc\rd\")", true);
    EXPECT_NE(MathMLText(source.pRoot).find(">a b c d<"), std::string::npos);
    EXPECT_EQ(LatexText(source.pRoot), "\\textit{a b c d}");
}

// A kind outside its table is refused as in every other use.
TEST(WrittenForms, RefuseAKindThatThereIsNot)
{
    for (const char* pszSketch :
         { "(BRACE[99] x)", "(EQUATION[99] a b)", "(FUNC[99] - x)", "(VECTOR[99] x)" })
    {
        for (const auto pfnWrite : s_apfnWrite)
        {
            EXPECT_THROW(pfnWrite(CSource(pszSketch, true).pRoot), CInvalidArgException*)
                << pszSketch;
        }
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
