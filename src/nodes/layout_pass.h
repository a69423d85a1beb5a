// One Paint, HitTest or Measure that was asked from outside. Within it each node is measured
// once, however many of its ancestors ask; nothing that was measured outlives it.
#pragma once

#include "platform/base/types.h"

class CDC;

// On the stack of every operation that measures. The outermost one on a device context opens a
// pass with a number of its own; those inside it belong to it. A call on another device context
// opens another pass, and the first goes on behind it.
class CLayoutPass
{
public:
    explicit CLayoutPass(const CDC* pDC) : m_pOuterDC(s_pDC), m_nOuter(s_nCurrent)
    {
        if (s_nCurrent == 0 || s_pDC != pDC)
        {
            s_pDC = pDC;
            s_nCurrent = ++s_nLast;
        }
    }

    ~CLayoutPass()
    {
        s_pDC = m_pOuterDC;
        s_nCurrent = m_nOuter;
    }

    CLayoutPass(const CLayoutPass&) = delete;
    CLayoutPass& operator=(const CLayoutPass&) = delete;

    // Measures everything afresh at each request, and formats at each link of a loaded tree: what
    // passes must give the same results as. For tests.
    static bool s_bPlainRecursion;

    // Never given twice in a process; 0 outside any pass.
    static ULONGLONG GetCurrent() { return s_nCurrent; }

private:
    const CDC* m_pOuterDC;
    ULONGLONG m_nOuter;

    static const CDC* s_pDC;
    static ULONGLONG s_nCurrent;
    static ULONGLONG s_nLast;
};
