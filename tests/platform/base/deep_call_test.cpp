// Recursion far beyond the caller's stack.
#include "platform/base/deep_call.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <stdexcept>
#include <string>

#include "platform/base/cstring.h"

namespace
{
constexpr int nDeep = 200000;

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

TEST(DeepCall, ReachesAnyDepthInASmallThread)
{
    InSmallThread([] { EXPECT_EQ(Count(nDeep, false), nDeep); });
    EXPECT_EQ(deep_call::g_nLevel, 0);
    EXPECT_EQ(deep_call::g_nLimit, deep_call::nFirstLevels);
}

TEST(DeepCall, BringsExceptionsBack)
{
    InSmallThread(
        []
        {
            for (int nTime = 0; nTime < 2; ++nTime)
            {
                try
                {
                    Count(nDeep, true);
                    ADD_FAILURE();
                }
                catch (const std::runtime_error& e)
                {
                    EXPECT_EQ(std::string(e.what()), "bottom");
                }
                EXPECT_EQ(deep_call::g_nLevel, 0);
                EXPECT_EQ(deep_call::g_nLimit, deep_call::nFirstLevels);
            }
            EXPECT_EQ(Name(nDeep), "caught");
            EXPECT_EQ(deep_call::g_nLevel, 0);
        });
}

// The stacks outlive the threads that used them first, and so does nothing of an exception.
TEST(DeepCall, GoesFromThreadToThread)
{
    for (int nTime = 0; nTime < 10; ++nTime)
    {
        InSmallThread(
            []
            {
                EXPECT_EQ(Count(20000, false), 20000);
                EXPECT_THROW(Count(20000, true), std::runtime_error);
            });
    }
}

TEST(DeepCall, LeavesAnExceptionBeingHandledAlone)
{
    try
    {
        throw std::runtime_error("outer");
    }
    catch (const std::runtime_error&)
    {
        EXPECT_EQ(Name(5000), "caught");
        EXPECT_THROW(Count(5000, true), std::runtime_error);
        try
        {
            throw;
        }
        catch (const std::runtime_error& e)
        {
            EXPECT_EQ(std::string(e.what()), "outer");
        }
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
    const auto distance = [](int nLevels)
    {
        char here = 0;
        std::ptrdiff_t nDistance = 0;
        const auto step = [&](auto&& self, int nLeft) -> void
        {
            Descend(
                [&]
                {
                    char there = 0;
                    if (nLeft == 1)
                    {
                        nDistance = std::abs(&here - &there);
                        return;
                    }
                    self(self, nLeft - 1);
                });
        };
        step(step, nLevels);
        return nDistance;
    };
    EXPECT_LT(distance(deep_call::nFirstLevels), 1024 * 1024);
    EXPECT_GT(distance(deep_call::nFirstLevels + 1), 1024 * 1024);
}

TEST(DeepCall, CrossesTheBoundaryManyTimes)
{
    long nSum = 0;
    for (int i = 0; i < 20000; ++i)
        nSum += Count(deep_call::nFirstLevels + i % 3, false);
    EXPECT_EQ(nSum, 20000L * deep_call::nFirstLevels + 6666 * 3 + 0 + 1);
}
