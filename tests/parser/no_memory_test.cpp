// A parse whose memory ends: each allocation of its lists fails in turn.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "parser/parsed.h"

namespace
{

int s_nUntilFailure = -1;  // allocations that still succeed; negative: all

}  // namespace

void* operator new(std::size_t nSize, const std::nothrow_t&) noexcept
{
    if (s_nUntilFailure == 0)
        return nullptr;
    if (s_nUntilFailure > 0)
        s_nUntilFailure--;
    return std::malloc(nSize);
}

[[gnu::noinline]] void* operator new(std::size_t nSize)
{
    void* p = operator new(nSize, std::nothrow);
    if (p == nullptr)
        throw std::bad_alloc();
    return p;
}

[[gnu::noinline]] void operator delete(void* p) noexcept
{
    std::free(p);
}

[[gnu::noinline]] void operator delete(void* p, std::size_t) noexcept
{
    std::free(p);
}

// The leak check sees what is not given back.
TEST(ParserWithoutMemory, TellsItAndKeepsNothing)
{
    std::string strText = "sin(x)y^b^c+sum(i,i=1,n)+brace([,],f(a,b,c,d,e";
    for (int i = 0; i < 300; i++)
        strText += ",g";
    int nFailures = 0;
    for (bool bDone = false; !bDone; nFailures++)
    {
        CBinTree tree;
        CFormulaParser parser;
        parser.m_pTree = &tree;
        const CString str = strText.c_str();
        WORD nErrorPos = 4711;
        CString strMessage;
        s_nUntilFailure = nFailures;
        bDone = parser.Parse(str, &nErrorPos, &strMessage) != 0;
        s_nUntilFailure = -1;
        delete parser.m_pResult;
        if (bDone)
            break;
        EXPECT_EQ(parser.m_pResult, nullptr);
        EXPECT_EQ(nErrorPos, 4711);
        EXPECT_EQ(strMessage.Find("Error in Calculation() weil "), 0);
        EXPECT_GT(strMessage.GetLength(), 30);
    }
    EXPECT_GT(nFailures, 5);
}
