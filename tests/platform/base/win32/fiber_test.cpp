// Deep recursion in hosts that use fibers themselves.
#include <gtest/gtest.h>
#include <windows.h>

#include "platform/base/deep_call.h"

namespace
{
int Depth(int nLevels)
{
    return Descend([=] { return nLevels == 0 ? 0 : Depth(nLevels - 1) + 1; });
}

// Two fibers of one thread.
struct CHost
{
    void* pThread;
    int nDepth;
    void* pOwnFiber;
};

void CALLBACK WorkInAFiber(void* pParameter)
{
    auto* pHost = static_cast<CHost*>(pParameter);
    const void* pSelf = GetCurrentFiber();
    pHost->nDepth = Depth(65535);
    pHost->pOwnFiber = GetCurrentFiber() == pSelf ? GetFiberData() : nullptr;
    SwitchToFiber(pHost->pThread);
}
}  // namespace

TEST(DeepCall, WorksInFibersOfTheHostAndLeavesThemAsTheyWere)
{
    int nData = 0;
    void* pThread = ConvertThreadToFiber(&nData);
    ASSERT_NE(pThread, nullptr);
    CHost host{ pThread, 0, nullptr };
    void* pFiber = CreateFiber(0, WorkInAFiber, &host);
    SwitchToFiber(pFiber);
    EXPECT_EQ(host.nDepth, 65535);
    EXPECT_EQ(host.pOwnFiber, &host);
    DeleteFiber(pFiber);

    EXPECT_EQ(Depth(65535), 65535);
    EXPECT_TRUE(IsThreadAFiber());
    EXPECT_EQ(GetFiberData(), &nData);
    EXPECT_TRUE(ConvertFiberToThread());
    EXPECT_EQ(Depth(65535), 65535);
    EXPECT_FALSE(IsThreadAFiber());
}
