// How the tests see that a host shows its formula.
#pragma once

#include <mivora/control/win32/formula_ctrl.h>
#include <mivora/mivora.h>

#include <cstring>

// Whether a program was started by "PROGRAM --once": to show itself and end.
inline bool IsForOnce()
{
    return std::strstr(::GetCommandLineA(), " --once") != nullptr;
}

// Whether the control's window has ink where the formula is, and none behind it.
inline bool HasPainted(CFormulaCtrl& control)
{
    control.RedrawWindow();
    const CRect rect = control.GetMeasuredRect();
    CClientDC dc(&control);
    int nInside = 0;
    int nBehind = 0;
    for (int y = 0; y < rect.bottom; ++y)
    {
        for (int x = 0; x < rect.right + 10; ++x)
        {
            if (::GetPixel(dc.GetSafeHdc(), x, y) != ::GetSysColor(COLOR_WINDOW))
                ++(x < rect.right ? nInside : nBehind);
        }
    }
    return nInside > 50 && nBehind == 0;
}
