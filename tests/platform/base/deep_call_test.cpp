// Recursion far beyond the caller's stack.
#include "platform/base/deep_call.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <stdexcept>
#include <string>

#include "platform/base/cstring.h"

namespace
{
// Uses what a level of a real operation uses; the deepest level may throw.
long Count(int nLevels, bool bThrow)
{
    return Descend(
        [&]() -> long
        {
            volatile char aFrame[500];
            aFrame[0] = static_cast<char>(nLevels);
            if (nLevels == 0)
            {
                if (bThrow)
                    throw std::runtime_error("bottom");
                return 0;
            }
            return Count(nLevels - 1, bThrow) + 1 + (aFrame[0] - static_cast<char>(nLevels));
        });
}

// What the deepest level throws.
std::string Bottom(int nLevels)
{
    try
    {
        Count(nLevels, true);
    }
    catch (const std::runtime_error& e)
    {
        return e.what();
    }
    return {};
}

// A result with an owner, and a handler at every 100th level.
CString Name(int nLevels)
{
    return Descend(
        [&]
        {
            if (nLevels == 0)
                throw std::runtime_error("bottom");
            if (nLevels % 100 != 0)
                return Name(nLevels - 1);
            try
            {
                return Name(nLevels - 1);
            }
            catch (const std::runtime_error&)
            {
                return CString("caught");
            }
        });
}

int g_nDestroyed = 0;
struct CWitness
{
    ~CWitness() { ++g_nDestroyed; }
};

void Leave(int nLevels)
{
    Descend(
        [&]
        {
            const CWitness witness;
            if (nLevels == 0)
                throw 7;
            Leave(nLevels - 1);
        });
}

template <class F>
void InSmallThread(F body)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, 1024 * 1024), 0);
    pthread_t thread;
    ASSERT_EQ(pthread_create(
                  &thread, &attributes,
                  [](void* p) -> void*
                  {
                      (*static_cast<F*>(p))();
                      return nullptr;
                  },
                  &body),
              0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}
}  // namespace

// The stacks outlive the threads that used them first, and so does nothing of an exception.
TEST(DeepCall, ReachesAnyDepthInThreadAfterThread)
{
    for (const int nDeep : { 200000, 20000, 20000, 20000, 20000, 20000 })
    {
        InSmallThread(
            [=]
            {
                EXPECT_EQ(Count(nDeep, false), nDeep);
                for (int nTime = 0; nTime < 2; ++nTime)
                {
                    EXPECT_EQ(Bottom(nDeep), "bottom");
                    EXPECT_EQ(deep_call::g_nLevel, 0);
                    EXPECT_EQ(deep_call::g_nLimit, deep_call::nFirstLevels);
                }
                EXPECT_EQ(Name(nDeep), "caught");
                EXPECT_EQ(deep_call::g_nLevel, 0);
            });
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
        EXPECT_EQ(Bottom(5000), "bottom");
        EXPECT_EQ(std::current_exception(), before);
        EXPECT_STREQ(outer.what(), "outer");
    }
    EXPECT_EQ(std::current_exception(), nullptr);
}

TEST(DeepCall, UnwindsEveryLevelOnce)
{
    g_nDestroyed = 0;
    EXPECT_THROW(Leave(5000), int);
    EXPECT_EQ(g_nDestroyed, 5001);
}

TEST(DeepCall, ChangesStacksByTheCountAlone)
{
    // Addresses of locals tell which stack a level ran on.
    char here = 0;
    const auto distance = [&](auto&& self, int nLeft) -> std::ptrdiff_t
    {
        return Descend(
            [&]
            {
                char there = 0;
                return nLeft == 1 ? std::abs(&here - &there) : self(self, nLeft - 1);
            });
    };
    EXPECT_LT(distance(distance, deep_call::nFirstLevels), 1024 * 1024);
    EXPECT_GT(distance(distance, deep_call::nFirstLevels + 1), 1024 * 1024);
}

TEST(DeepCall, CrossesTheBoundaryManyTimes)
{
    long nSum = 0;
    for (int i = 0; i < 20000; ++i)
        nSum += Count(deep_call::nFirstLevels + i % 3, false);
    EXPECT_EQ(nSum, 20000L * deep_call::nFirstLevels + 6666 * 3 + 0 + 1);
}
