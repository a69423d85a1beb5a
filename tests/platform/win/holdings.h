// What work with windows leaves behind.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

// What this process holds.
struct CHoldings
{
    // How far the handles of windows and menus, and of drawing objects, go when 500 more are made:
    // what is not given back makes them go further. Wine's GetGuiResources gives 0.
    UINT nUser = 0;
    UINT nGdi = 0;
    DWORD nHandles = 0;
    size_t nBlocks = 0;  // of memory

    CHoldings()
    {
        std::vector<std::pair<HMENU, HBRUSH>> made(500);
        for (auto& [hMenu, hBrush] : made)
        {
            nUser = std::max(nUser, IndexOf(hMenu = CreateMenu()));
            nGdi = std::max(nGdi, IndexOf(hBrush = CreateSolidBrush(1)));
        }
        for (const auto& [hMenu, hBrush] : made)
        {
            DestroyMenu(hMenu);
            DeleteObject(hBrush);
        }
        GetProcessHandleCount(GetCurrentProcess(), &nHandles);
        HANDLE aHeaps[32];
        const DWORD nHeaps = std::min<DWORD>(GetProcessHeaps(32, aHeaps), 32);
        for (DWORD i = 0; i < nHeaps; ++i)
        {
            PROCESS_HEAP_ENTRY entry{};
            while (HeapWalk(aHeaps[i], &entry))
                nBlocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
        }
    }

private:
    // Handles count their objects in the lower half.
    static UINT IndexOf(const void* pHandle) { return LOWORD(reinterpret_cast<UINT_PTR>(pHandle)); }
};

// The first rounds may leave what is made once.
template <class F>
void ExpectNothingLeft(int nRounds, F round)
{
    for (int i = 0; i < 20; ++i)
        round();
    const CHoldings before;
    for (int i = 0; i < nRounds && !testing::Test::HasFailure(); ++i)
        round();
    const CHoldings after;
    EXPECT_LE(after.nUser, before.nUser + 5);
    EXPECT_LE(after.nGdi, before.nGdi + 5);
    EXPECT_LE(after.nHandles, before.nHandles + 5);
    EXPECT_LE(after.nBlocks, before.nBlocks + 50);
}
