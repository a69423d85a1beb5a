// What every exported function does around its work: one call at a time, and whatever goes wrong
// becomes a status and the thread's last error.
#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "mivora/mivora_c.h"

// Thrown by value by the work of a call. The message is a sentence without its final point.
struct CCallFailure
{
    mivora_status nStatus;
    std::string strMessage;
    size_t nPosition = 0;  // in the text of the call, from 1; 0: in none
    std::string strExcerpt = {};
};

// Runs pfn(pContext) in the lock of the library, all its message boxes taken. Nothing is thrown.
mivora_status RunCall(void (*pfn)(void*), void* pContext) noexcept;

template <class Job>
mivora_status Call(Job job) noexcept
{
    return RunCall([](void* p) { (*static_cast<Job*>(p))(); }, &job);
}

// Of this thread's last call.
void TellLastError(mivora_error& error);

[[noreturn]] void RefuseArgument(std::string strMessage);

// MIVORA_INVALID_ARGUMENT if one is null.
template <class... P>
void NeedPointers(P*... pointers)
{
    if ((!pointers || ...))
        RefuseArgument("a pointer is null");
}

// Bytes and a NUL behind them, the caller's, who ends them with mivora_free.
void Give(const std::string& strBytes, char** ppBytes, size_t* pnSize);
