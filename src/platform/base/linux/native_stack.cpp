// A stack in mapped memory, entered by a call that changes the stack pointer.
#include "platform/base/native_stack.h"

#include <sys/mman.h>
#include <unistd.h>

#if !defined(__x86_64__) && !defined(__aarch64__)
#define MIVORA_STACK_BY_CONTEXT 1
#endif
#ifdef MIVORA_STACK_BY_CONTEXT
#include <ucontext.h>
#endif

#include <cstdint>

#include "platform/base/exception.h"
#include "platform/base/sanitizer.h"

#ifdef MIVORA_ADDRESS_SANITIZER
#include <sanitizer/common_interface_defs.h>
#endif

namespace
{
// What lies at the low end and nobody may touch.
std::size_t GuardBytes()
{
    return static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

char* Bottom(void* pMemory)
{
    return static_cast<char*>(pMemory) + GuardBytes();
}

struct CVisit
{
    void (*pfn)(void*);
    void* pContext;
    void* pFakeStack = nullptr;  // the sanitizer's note of the caller's stack
    const void* pCallerBottom = nullptr;
    std::size_t nCallerBytes = 0;
};

// The first function of a stack.
void RunVisit(void* pArgument)
{
    auto* pVisit = static_cast<CVisit*>(pArgument);
#ifdef MIVORA_ADDRESS_SANITIZER
    __sanitizer_finish_switch_fiber(nullptr, &pVisit->pCallerBottom, &pVisit->nCallerBytes);
#endif
    pVisit->pfn(pVisit->pContext);
#ifdef MIVORA_ADDRESS_SANITIZER
    __sanitizer_start_switch_fiber(nullptr, pVisit->pCallerBottom, pVisit->nCallerBytes);
#endif
}
}  // namespace

#ifdef MIVORA_STACK_BY_CONTEXT

static void CallRunVisit(unsigned nHigh, unsigned nLow)
{
    RunVisit(reinterpret_cast<void*>(
        static_cast<std::uintptr_t>((static_cast<std::uint64_t>(nHigh) << 32) | nLow)));
}

static void CallOnStack(void* pArgument, char* pBottom, std::size_t nBytes)
{
    ucontext_t caller;
    ucontext_t callee;
    getcontext(&callee);
    callee.uc_stack.ss_sp = pBottom;
    callee.uc_stack.ss_size = nBytes;
    callee.uc_link = &caller;
    const auto nAddress = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(pArgument));
    makecontext(&callee, reinterpret_cast<void (*)()>(CallRunVisit), 2,
                static_cast<unsigned>(nAddress >> 32), static_cast<unsigned>(nAddress));
    swapcontext(&caller, &callee);
}

#else

// mivora_call_on_stack(argument, function, top): calls function(argument) with its frames below
// top. The contexts of the C library would do the same with three system calls, which is too dear
// for an operation that goes to and fro at the boundary. Debuggers see through it by the frame.
#ifdef __x86_64__
asm(R"(
    .pushsection .text
    .p2align 4
    .globl mivora_call_on_stack
    .hidden mivora_call_on_stack
    .type mivora_call_on_stack, @function
mivora_call_on_stack:
    .cfi_startproc
    pushq %rbp
    .cfi_def_cfa_offset 16
    .cfi_offset %rbp, -16
    movq %rsp, %rbp
    .cfi_def_cfa_register %rbp
    movq %rdx, %rsp
    callq *%rsi
    movq %rbp, %rsp
    popq %rbp
    .cfi_def_cfa %rsp, 8
    retq
    .cfi_endproc
    .size mivora_call_on_stack, .-mivora_call_on_stack
    .popsection
)");
#else
asm(R"(
    .pushsection .text
    .p2align 4
    .globl mivora_call_on_stack
    .hidden mivora_call_on_stack
    .type mivora_call_on_stack, %function
mivora_call_on_stack:
    .cfi_startproc
    stp x29, x30, [sp, #-16]!
    .cfi_def_cfa_offset 16
    .cfi_offset x29, -16
    .cfi_offset x30, -8
    mov x29, sp
    .cfi_def_cfa_register x29
    mov sp, x2
    blr x1
    mov sp, x29
    .cfi_def_cfa_register sp
    ldp x29, x30, [sp], #16
    .cfi_def_cfa_offset 0
    ret
    .cfi_endproc
    .size mivora_call_on_stack, .-mivora_call_on_stack
    .popsection
)");
#endif

extern "C" void mivora_call_on_stack(void* pArgument, void (*pfn)(void*), char* pTop);

static void CallOnStack(void* pArgument, char* pBottom, std::size_t nBytes)
{
    mivora_call_on_stack(pArgument, RunVisit, pBottom + nBytes);
}

#endif

CNativeStack::CNativeStack(std::size_t nBytes) : m_nBytes(nBytes)
{
    void* p = mmap(nullptr, nBytes + GuardBytes(), PROT_READ | PROT_WRITE,
                   MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE | MAP_STACK, -1, 0);
    if (p == MAP_FAILED)
        AfxThrowMemoryException();
    if (mprotect(p, GuardBytes(), PROT_NONE) != 0)
    {
        munmap(p, nBytes + GuardBytes());
        AfxThrowMemoryException();
    }
    m_pSystem = p;
}

CNativeStack::~CNativeStack()
{
    munmap(m_pSystem, m_nBytes + GuardBytes());
}

void CNativeStack::Call(void (*pfn)(void*), void* pContext)
{
    CVisit visit{ pfn, pContext };
#ifdef MIVORA_ADDRESS_SANITIZER
    __sanitizer_start_switch_fiber(&visit.pFakeStack, Bottom(m_pSystem), m_nBytes);
#endif
    CallOnStack(&visit, Bottom(m_pSystem), m_nBytes);
#ifdef MIVORA_ADDRESS_SANITIZER
    __sanitizer_finish_switch_fiber(visit.pFakeStack, nullptr, nullptr);
#endif
}
