// What holds for every parse: depth, length, the nodes that are made, one object for many texts.
#include <random>
#include <set>
#include <vector>

#include "format/tree_format.h"
#include "parser/parsed.h"
#include "parser/small_thread.h"

namespace
{

constexpr int s_nLongestText = 65534;

// Every link has its counterpart, no node hangs in two places, and levels and faces are those
// that formatting gives.
int ExpectWellFormed(CNode* pTop)
{
    std::set<CNode*> seen;
    std::vector<CNode*> open = { pTop };
    while (!open.empty())
    {
        CNode* pNode = open.back();
        open.pop_back();
        EXPECT_TRUE(seen.insert(pNode).second);
        const bool bBig = pNode->m_strType == "NT_SUM" || pNode->m_strType == "NT_INTEGRAL";
        EXPECT_EQ(pNode->GetLogFont()->lfHeight,
                  bBig ? g_DefaultFormat.GetBigHeight(pNode->GetLevel())
                       : g_DefaultFormat.GetHeight(pNode->GetLevel()));
        for (const auto& [pChild, nStep] :
             { std::pair(pNode->GetLeft(), pNode->GetLeftLevelStep()),
               std::pair(pNode->GetRight(), pNode->GetRightLevelStep()) })
        {
            if (pChild == nullptr)
                continue;
            EXPECT_EQ(pChild->GetParent(), pNode);
            EXPECT_EQ(pChild->GetLevel(), pNode->GetLevel() + nStep);
            open.push_back(pChild);
        }
    }
    return static_cast<int>(seen.size());
}

}  // namespace

TEST(ParserFrame, ReadsAnyDepthOnASmallStack)
{
    const struct
    {
        const char* pszName;
        std::string strText;
        int nNodes;
        int nErrorPos = 0;
    } aCases[] = {
        { "opening brackets", Repeat("(", 50000), 1, 0 },
        { "sines", Repeat("sin", 20000), 40001, 0 },
        { "lists of brackets", Repeat("brace(", 10900), 1, 0 },
        { "powers", Repeat("a^(", 15000) + "b", 30001, 0 },
        { "integrals that fail", Repeat("int(", 16000), 1, 64001 - 9 * 16000 + 2 * 65536 },
        { "a sum", Repeat("a+", 30000) + "a", 60001, 0 },
        { "a list", "f(" + Repeat("a,", 30000), 60003, 0 },
        { "powers that drop out", Repeat("a^", 30000) + "b", 3, 0 },
        { "minus signs", Repeat("-", s_nLongestText), 2 * s_nLongestText + 1, 0 },
        { "a name", Repeat("a", s_nLongestText), 1, 0 },
    };
    for (const auto& deep : aCases)
    {
        SCOPED_TRACE(deep.pszName);
        RunInSmallThread(
            [&]
            {
                const CParsed parsed(deep.strText);
                EXPECT_EQ(parsed.nResult, 1);
                EXPECT_EQ(parsed.nErrorPos, deep.nErrorPos);
                EXPECT_EQ(ExpectWellFormed(parsed.pTop.get()), deep.nNodes);
            });
    }
}

TEST(ParserFrame, CalculatesAnyDepthOnASmallStack)
{
    RunInSmallThread(
        []
        {
            CFormulaParser parser;
            WORD nErrorPos;
            CString strMessage;
            const std::string strText = Repeat("-(", 30000) + "7" + Repeat("abs", 1000);
            EXPECT_EQ(parser.Calculation(strText.c_str(), 0.0, &nErrorPos, &strMessage), 7.0);
            const std::string strAbs = Repeat("abs", 20000) + "(0-7)";
            EXPECT_EQ(parser.Calculation(strAbs.c_str(), 0.0, &nErrorPos, &strMessage), 7.0);
            EXPECT_EQ(nErrorPos, 0);
        });
}

TEST(ParserFrame, RefusesWhatAPositionCannotAddress)
{
    const CParsed tooLong(std::string(s_nLongestText + 1, 'a'));
    EXPECT_EQ(tooLong.nResult, 0);
    EXPECT_EQ(tooLong.pTop, nullptr);
    EXPECT_EQ(tooLong.nErrorPos, 4711);
    EXPECT_EQ(tooLong.strMessage.Find("Error in Calculation() weil "), 0);
    EXPECT_GT(tooLong.strMessage.GetLength(), 30);
    // Positions count in the trimmed text.
    const CParsed padded(std::string(70000, ' ') + "2x");
    EXPECT_EQ(padded.nResult, 1);
    EXPECT_EQ(padded.nErrorPos, 2);
}

TEST(ParserFrame, KeepsNothingFromAnEarlierText)
{
    struct CHostParser : CFormulaParser
    {
        using CFormulaParser::m_bWideTimes;
    } parser;
    CBinTree tree;
    parser.m_pTree = &tree;
    WORD nErrorPos;
    CString strMessage;
    parser.Calculation("1/0", 1.0, &nErrorPos, &strMessage);
    for (const char* pszText : { "greek sum", "a", "2**x", "a" })
    {
        ASSERT_EQ(parser.Parse(pszText, &nErrorPos, &strMessage), 1);
        const std::unique_ptr<CNode> pTop(parser.m_pResult);
        if (std::string_view(pszText) != "a")
            continue;
        EXPECT_STREQ(TreeForm(pTop.get()), Long("'a'").c_str());
        EXPECT_EQ(nErrorPos, 0);
        EXPECT_TRUE(strMessage.IsEmpty());
        EXPECT_EQ(g_nTimesGap, parser.m_bWideTimes ? 2 : -6);
        parser.m_bWideTimes = 1;
    }
}

// The leak check sees nodes that nobody owns, the address check those that two own.
TEST(ParserFrame, OwnsEveryNodeOfRandomTexts)
{
    const std::vector<std::string> tokens = {
        "a",    "b",     "12",    "+",    "-",      "*",    "**",   "/",
        "^",    "~",     "`",     "=",    "<=",     "!",    "(",    ")",
        "(",    ")",     ",",     ",",    " ",      "sin ", "exp(", "int(",
        "sum(", "nsqr(", "mark(", "str(", "brace(", "[",    "rad",  "greek ",
        "abs",  "sqr ",  "int",   "x",    "\\",     "%",    "\t",   std::string(1, '\0'),
        "\xE9",
    };
    std::mt19937 random(20240611);
    CBinTree tree;
    CFormulaParser parser;
    parser.m_pTree = &tree;
    for (int i = 0; i < 6000; i++)
    {
        std::string strText;
        for (unsigned n = random() % 24; n > 0; n--)
            strText += tokens[random() % tokens.size()];
        SCOPED_TRACE(strText);
        WORD nErrorPos;
        CString strMessage;
        const CString str(strText.data(), static_cast<int>(strText.size()));
        ASSERT_EQ(parser.Parse(str, &nErrorPos, &strMessage), 1);
        const std::unique_ptr<CNode> pTop(parser.m_pResult);
        ASSERT_NE(pTop, nullptr);
        ExpectWellFormed(pTop.get());
        const WORD nFirstErrorPos = nErrorPos;
        ASSERT_EQ(parser.Parse(str, &nErrorPos, &strMessage), 1);
        const std::unique_ptr<CNode> pAgain(parser.m_pResult);
        EXPECT_STREQ(TreeForm(pAgain.get()), TreeForm(pTop.get()));
        EXPECT_EQ(nErrorPos, nFirstErrorPos);
        parser.Calculation(str, 0.0, &nErrorPos, &strMessage);
        if (HasFailure())
            return;
    }
}
