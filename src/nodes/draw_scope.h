// Fonts and pens for the time of a block: made, selected, put back and deleted.
#pragma once

#include "platform/base/types.h"
#include "platform/gdi/dc.h"
#include "platform/gdi/gdi_objects.h"

// lf.lfHeight is in tenths of a point. Where no font can be made the old one stays selected.
class CFontScope
{
public:
    CFontScope(CDC* pDC, const LOGFONTA& lf);
    ~CFontScope();

    CFontScope(const CFontScope&) = delete;
    CFontScope& operator=(const CFontScope&) = delete;

private:
    CDC* m_pDC;
    CFont m_font;
    CFont* m_pOld;  // null if nothing was selected
};

// Solid, one unit wide.
class CPenScope
{
public:
    CPenScope(CDC* pDC, COLORREF colour);
    ~CPenScope();

    CPenScope(const CPenScope&) = delete;
    CPenScope& operator=(const CPenScope&) = delete;

private:
    CDC* m_pDC;
    CPen m_pen;
    CPen* m_pOld;
};
