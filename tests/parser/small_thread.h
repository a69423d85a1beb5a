// Runs a job in a thread whose stack is small, and makes texts that are deep.
#pragma once

#include <gtest/gtest.h>
#include <pthread.h>

#include <functional>
#include <string>
#include <string_view>

inline std::string Repeat(std::string_view strPart, int nTimes)
{
    std::string strText;
    for (int i = 0; i < nTimes; i++)
        strText += strPart;
    return strText;
}

// A small stack shows recursion that is left on it.
inline void RunInSmallThread(std::function<void()> job)
{
    constexpr std::size_t nStack = 1024 * 1024;
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, nStack), 0);
    pthread_t thread;
    auto run = [](void* pJob) -> void*
    {
        (*static_cast<std::function<void()>*>(pJob))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &job), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}
