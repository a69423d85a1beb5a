// A stack is a fiber: the system keeps its own note of a thread's stack, which must change with it.
#include "platform/base/native_stack.h"

#include "platform/base/exception.h"
#include "platform/base/types.h"

namespace
{
constexpr SIZE_T nCommitted = 64 * 1024;  // the rest comes as it is used

// A fiber can be left for another one only, so that the thread itself has to be one meanwhile.
class CFiberThread
{
public:
    CFiberThread()
        : m_bConverted(!IsThreadAFiber()),
          m_pSelf(m_bConverted ? ConvertThreadToFiberEx(nullptr, FIBER_FLAG_FLOAT_SWITCH)
                               : GetCurrentFiber())
    {
        if (m_pSelf == nullptr)
            AfxThrowMemoryException();
    }
    ~CFiberThread()
    {
        if (m_bConverted)
            ConvertFiberToThread();
    }
    CFiberThread(const CFiberThread&) = delete;
    CFiberThread& operator=(const CFiberThread&) = delete;

    void* Self() const { return m_pSelf; }

private:
    bool m_bConverted;
    void* m_pSelf;
};
}  // namespace

struct CFiberEntry
{
    // A fiber that returned would end its thread: it waits for the next call instead.
    [[noreturn]] static void CALLBACK Serve(void* pParameter)
    {
        auto* pStack = static_cast<CNativeStack*>(pParameter);
        for (;;)
        {
            pStack->m_pfn(pStack->m_pContext);
            SwitchToFiber(pStack->m_pCaller);
        }
    }
};

CNativeStack::CNativeStack(std::size_t nBytes)
    : m_nBytes(nBytes),
      m_pSystem(
          CreateFiberEx(nCommitted, nBytes, FIBER_FLAG_FLOAT_SWITCH, CFiberEntry::Serve, this))
{
    if (m_pSystem == nullptr)
        AfxThrowMemoryException();
}

CNativeStack::~CNativeStack()
{
    DeleteFiber(m_pSystem);
}

void CNativeStack::Call(void (*pfn)(void*), void* pContext)
{
    const CFiberThread thread;
    m_pCaller = thread.Self();
    m_pfn = pfn;
    m_pContext = pContext;
    SwitchToFiber(m_pSystem);
}
