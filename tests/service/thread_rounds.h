// The same work in one thread and in several at once.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <thread>
#include <vector>

constexpr std::size_t THREAD_COUNT = 4;

// Runs a job in each of the threads, which gets its number.
template <class Job>
void RunInThreads(Job job)
{
    std::vector<std::thread> threads;
    for (std::size_t n = 0; n < THREAD_COUNT; ++n)
        threads.emplace_back(job, n);
    for (std::thread& thread : threads)
        thread.join();
}

// work(text, thread) gives what one thread alone gets.
template <class Work>
void ExpectSameInThreads(const std::vector<std::string>& astrTexts, std::size_t nRounds, Work work)
{
    std::vector<decltype(work(astrTexts[0], 0))> expected;
    for (const std::string& strText : astrTexts)
        expected.push_back(work(strText, 0));
    std::array<int, THREAD_COUNT> anWrong{};
    RunInThreads(
        [&](std::size_t nThread)
        {
            for (std::size_t i = 0; i < nRounds * astrTexts.size(); ++i)
            {
                const std::size_t n = (i + nThread) % astrTexts.size();
                anWrong[nThread] += work(astrTexts[n], nThread) != expected[n];
            }
        });
    EXPECT_EQ(anWrong, (std::array<int, THREAD_COUNT>{}));
}
