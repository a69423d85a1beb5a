// A FormTree whose memory ends: each allocation fails in turn, in the parse and behind it.
#include <cstdlib>
#include <new>

#include "service/service_helpers.h"

namespace
{
int s_nUntilFailure = -1;  // allocations that still succeed; negative: all
}  // namespace

[[gnu::noinline]] void* operator new(std::size_t nSize)
{
    void* p = s_nUntilFailure == 0 ? nullptr : std::malloc(nSize);
    if (p == nullptr)
        throw std::bad_alloc();
    if (s_nUntilFailure > 0)
        s_nUntilFailure--;
    return p;
}

[[gnu::noinline]] void* operator new(std::size_t nSize, const std::nothrow_t&) noexcept
{
    return s_nUntilFailure == 0 ? nullptr : std::malloc(nSize);
}

[[gnu::noinline]] void operator delete(void* p) noexcept
{
    std::free(p);
}

[[gnu::noinline]] void operator delete(void* p, std::size_t) noexcept
{
    std::free(p);
}

namespace
{
using CNoMemoryTest = CServiceTest;

// The box itself needs memory, so that it is the failing that is put off until the next text.
int s_nBoxes = 0;
std::string s_strBox;

int Count(const char* pszText, unsigned, void*)
{
    s_nUntilFailure = -1;
    ++s_nBoxes;
    s_strBox = pszText;
    return IDOK;
}

// The leak check sees what is not given back.
TEST_F(CNoMemoryTest, EveryStepIsAnsweredAsAFailureOfTheParse)
{
    AfxSetMessageBoxHandler(Count, nullptr);
    CFormulaOut formula;
    const CString strOld = "a/b";
    const CString strText = "sqr(x)+sum(mark(x,i,2),i=1,n)+str(abc)";
    int nFailures = 0;
    for (bool bDone = false; !bDone; ++nFailures)
    {
        SCOPED_TRACE(nFailures);
        ASSERT_EQ(formula.FormTree(strOld), 1);
        s_nBoxes = 0;
        s_nUntilFailure = nFailures;
        bDone = formula.FormTree(strText) == 1;
        s_nUntilFailure = -1;
        EXPECT_EQ(s_nBoxes, bDone ? 0 : 1);
        EXPECT_EQ(formula.IsRootNodeNULL(), bDone ? 0 : 1);
        EXPECT_EQ(formula.m_strFormula, bDone ? strText : strOld);
        if (!bDone)
        {
            EXPECT_EQ(s_strBox.find("Error in Calculation() weil "), 0U) << s_strBox;
        }
    }
    EXPECT_GT(nFailures, 10);
}
}  // namespace
