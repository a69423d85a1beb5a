// What drawing a sign means for all nodes.
#pragma once

#include "platform/gdi/dc.h"

// In the flags of every DrawText of a sign; the class adds where in its rectangle the text stands.
constexpr UINT SIGN_FORMAT = DT_SINGLELINE | DT_NOCLIP | DT_NOPREFIX;

// With the selected pen; the last point is left out.
inline void DrawLine(CDC* pDC, CPoint from, CPoint to)
{
    pDC->MoveTo(from);
    pDC->LineTo(to);
}
