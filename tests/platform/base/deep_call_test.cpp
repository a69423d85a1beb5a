// Recursion far beyond the caller's stack.
#include "platform/base/deep_call.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <thread>

#include "platform/base/cstring.h"

namespace
{
struct CWitness
{
    ~CWitness() { ++s_nDestroyed; }

    inline static int s_nDestroyed = 0;
};

// Uses what a level of a real operation uses; the deepest level may throw.
long Count(int nLevels, bool bThrow = false)
{
    return Descend(
        [&]() -> long
        {
            const CWitness witness;
            volatile char aFrame[500];
            aFrame[0] = static_cast<char>(nLevels);
            if (nLevels > 0)
                return Count(nLevels - 1, bThrow) + 1 + (aFrame[0] - static_cast<char>(nLevels));
            if (bThrow)
                throw std::runtime_error("bottom");
            return 0;
        });
}

// A result with an owner, and a handler at every 100th level.
CString Name(int nLevels)
{
    return Descend(
        [&]
        {
            if (nLevels % 100 != 0)
                return Name(nLevels - 1);
            try
            {
                return nLevels == 0 ? throw std::runtime_error("bottom") : Name(nLevels - 1);
            }
            catch (const std::runtime_error&)
            {
                return CString("caught");
            }
        });
}
}  // namespace

// The stacks outlive the threads that used them first, and so does nothing of an exception.
TEST(DeepCall, ReachesAnyDepthInThreadAfterThread)
{
    for (const int nDeep : { 200000, 20000, 20000, 20000, 20000, 20000 })
    {
        std::thread(
            [=]
            {
                EXPECT_EQ(Count(nDeep), nDeep);
                for (int nTime = 0; nTime < 2; ++nTime)
                {
                    CWitness::s_nDestroyed = 0;
                    EXPECT_THROW(Count(nDeep, true), std::runtime_error);
                    EXPECT_EQ(CWitness::s_nDestroyed, nDeep + 1);
                    EXPECT_EQ(deep_call::g_nLevel, 0);
                    EXPECT_EQ(deep_call::g_nLimit, deep_call::nFirstLevels);
                }
                EXPECT_EQ(Name(nDeep), "caught");
                EXPECT_EQ(deep_call::g_nLevel, 0);
            })
            .join();
    }
}

TEST(DeepCall, LeavesAnExceptionBeingHandledAlone)
{
    try
    {
        throw std::runtime_error("outer");
    }
    catch (const std::runtime_error& outer)
    {
        const std::exception_ptr before = std::current_exception();
        EXPECT_EQ(Name(5000), "caught");
        EXPECT_THROW(Count(5000, true), std::runtime_error);
        EXPECT_EQ(std::current_exception(), before);
        EXPECT_STREQ(outer.what(), "outer");
    }
    EXPECT_EQ(std::current_exception(), nullptr);
}

TEST(DeepCall, ChangesStacksByTheCountAlone)
{
    // Addresses of locals tell which stack a level ran on.
    char here = 0;
    std::ptrdiff_t nDistance = 0;
    const auto descend = [&](auto&& self, int nLeft) -> void
    {
        Descend(
            [&]
            {
                char there = 0;
                nDistance = std::abs(&here - &there);
                if (nLeft > 1)
                    self(self, nLeft - 1);
            });
    };
    for (int i = 0; i < 10000; ++i)
    {
        descend(descend, deep_call::nFirstLevels);
        ASSERT_LT(nDistance, 1024 * 1024);
        descend(descend, deep_call::nFirstLevels + 1);
        ASSERT_GT(nDistance, 1024 * 1024);
    }
}
