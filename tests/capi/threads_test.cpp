// The C interface from four threads at once, and from a copy of the process.
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <thread>
#include <vector>

#include "capi/c_calls.h"

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace
{
constexpr int s_nThreads = 4;
constexpr int s_nRounds = 20;
const std::string s_astrTexts[] = { "sqr(x)+greek p", "2**3", "2*x*y", "sum(i,i=1,n)", "a^", "" };

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
    std::vector<std::string> expected;
    for (const std::string& strText : s_astrTexts)
        expected.push_back(All(strText));
    std::array<int, s_nThreads> anWrong{};
    std::vector<std::thread> threads;
    for (size_t nThread = 0; nThread < s_nThreads; ++nThread)
    {
        threads.emplace_back(
            [&, nThread]
            {
                for (size_t i = 0; i < s_nRounds * std::size(s_astrTexts); ++i)
                {
                    const size_t n = (i + nThread) % std::size(s_astrTexts);
                    anWrong[nThread] += All(s_astrTexts[n]) != expected[n];
                }
            });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(anWrong, (std::array<int, s_nThreads>{}));
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
