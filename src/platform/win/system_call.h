// Exceptions on both sides of the system: its frames cannot be unwound. What a function throws that
// the system calls (a window procedure, a hook, a method of an OLE interface) is kept there, and
// thrown again behind the call of the system that led to it.
//
//   CallSystem([=] { return ::MoveWindow(m_hWnd, x, y, cx, cy, TRUE); });       // our way down
//   return GuardCallback(E_FAIL, [=] { return Drop(pData); });             // their way up
#pragma once

#include <exception>
#include <type_traits>

// Lives on the stack during a call of the system. One thread has any number of them at once; the
// innermost keeps the first exception that comes up to it.
class CSystemCall
{
public:
    CSystemCall();
    ~CSystemCall();
    CSystemCall(const CSystemCall&) = delete;
    CSystemCall& operator=(const CSystemCall&) = delete;

    // To be called when the system has returned: throws what was kept.
    void Finish();

private:
    friend void AfxKeepException();

    CSystemCall* m_pOuter;
    std::exception_ptr m_pKept;
};

// In a catch block of a function that the system called: leaves the exception to the innermost
// CSystemCall. Without one, nobody of ours would hear of it: AfxEndException.
void AfxKeepException();

// In a catch block: the exception ends here, with a message to the user.
void AfxEndException();

template <class F>
auto CallSystem(F call)
{
    CSystemCall scope;
    if constexpr (std::is_void_v<decltype(call())>)
    {
        call();
        scope.Finish();
    }
    else
    {
        auto result = call();
        scope.Finish();
        return result;
    }
}

// The body of a function that the system calls; what it answers where the body throws.
template <class R, class F>
R GuardCallback(R failed, F body)
{
    try
    {
        return body();
    }
    catch (...)
    {
        AfxKeepException();
        return failed;
    }
}
