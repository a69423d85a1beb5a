// Recursion of any depth. A recursive operation wraps one function of its cycle:
//     CRect CNode::Measure(CDC* pDC) { return Descend([&] { ...; }); }
// The first levels run on the caller's stack, the further ones on stacks of their own. Only the
// count of levels decides, so that every build and host gives the same answer.
#pragma once

#include <exception>
#include <optional>
#include <type_traits>
#include <utility>

namespace deep_call
{
constexpr int nFirstLevels = 64;       // on the caller's stack
constexpr int nLevelsPerStack = 1024;  // on each further one

extern int g_nLevel;  // levels of all operations that are running
extern int g_nLimit;  // levels that the present stack has room for

struct CLevel
{
    CLevel() { ++g_nLevel; }
    ~CLevel() { --g_nLevel; }
    CLevel(const CLevel&) = delete;
    CLevel& operator=(const CLevel&) = delete;
};

// Runs pfn(pContext) on another stack and comes back with what it threw. CMemoryException if there
// is no memory for a stack.
void RunOnFreshStack(void (*pfn)(void*), void* pContext);

template <class F>
[[gnu::noinline]] auto RunElsewhere(F& f) -> std::invoke_result_t<F&>
{
    using R = std::invoke_result_t<F&>;
    if constexpr (std::is_void_v<R>)
    {
        RunOnFreshStack([](void* p) { (*static_cast<F*>(p))(); }, &f);
    }
    else
    {
        static_assert(!std::is_reference_v<R>, "return a pointer");
        struct CCall
        {
            F& f;
            std::optional<R> result;
        } call{ f, {} };
        RunOnFreshStack(
            [](void* p)
            {
                auto* pCall = static_cast<CCall*>(p);
                pCall->result.emplace(pCall->f());
            },
            &call);
        return std::move(*call.result);
    }
}
}  // namespace deep_call

// Calls f as one level deeper and returns its result (by value).
template <class F>
inline auto Descend(F&& f) -> std::invoke_result_t<F&>
{
    const deep_call::CLevel level;
    if (deep_call::g_nLevel <= deep_call::g_nLimit) [[likely]]
        return f();
    return deep_call::RunElsewhere(f);
}
