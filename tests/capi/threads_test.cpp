// The C interface from four threads at once, and from a copy of the process.
#include <atomic>

#include "capi/c_calls.h"
#include "service/thread_rounds.h"

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace
{
std::string All(const std::string& strText)
{
    const CFormulaHandle formula = FromText(strText);
    std::string strAll = Picture(formula, "svg").strBytes + Picture(formula, "png").strBytes;
    for (const mivora_form nForm : { MIVORA_LAYOUT_JSON, MIVORA_SPEECH })
        strAll += Answer(mivora_formula_write, formula.get(), nForm).strBytes;
    FromText(strText + "\xFF");
    return strAll + LastError().message;
}
}  // namespace

TEST(CThreads, GetWhatOneAloneGets)
{
    ExpectSameInThreads({ "sqr(x)+greek p", "2**3", "2*x*y", "sum(i,i=1,n)", "a^", "" }, 20,
                        [](const std::string& strText, size_t) { return All(strText); });
}

#if !defined(_WIN32) && !defined(__SANITIZE_THREAD__)
// Interpreters do that for their pools of workers, while other threads are inside.
TEST(CThreads, LeaveNoLockInACopyOfTheProcess)
{
    const std::string strExpected = All("a/b");
    std::atomic<bool> bDone = false;
    std::thread busy(
        [&]
        {
            while (!bDone)
                All("sqr(x)");
        });
    for (int n = 0; n < 20; ++n)
    {
        const pid_t nChild = fork();
        if (nChild == 0)
        {
            alarm(20);
            _exit(All("a/b") == strExpected ? 0 : 1);
        }
        int nStatus = -1;
        ASSERT_EQ(waitpid(nChild, &nStatus, 0), nChild);
        EXPECT_EQ(nStatus, 0);
    }
    bDone = true;
    busy.join();
}
#endif
