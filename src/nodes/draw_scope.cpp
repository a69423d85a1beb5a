// Fonts and pens for the time of a block.
#include "nodes/draw_scope.h"

CFontScope::CFontScope(CDC* pDC, const LOGFONTA& lf) : m_pDC(pDC)
{
    m_font.CreatePointFontIndirect(&lf, pDC);
    m_pOld = pDC->SelectObject(&m_font);
}

CFontScope::~CFontScope()
{
    if (m_pOld != nullptr)
        m_pDC->SelectObject(m_pOld);
    m_font.DeleteObject();
}

CPenScope::CPenScope(CDC* pDC, COLORREF colour) : m_pDC(pDC)
{
    m_pen.CreatePen(PS_SOLID, 1, colour);
    m_pOld = pDC->SelectObject(&m_pen);
}

CPenScope::~CPenScope()
{
    if (m_pOld != nullptr)
        m_pDC->SelectObject(m_pOld);
    m_pen.DeleteObject();
}
