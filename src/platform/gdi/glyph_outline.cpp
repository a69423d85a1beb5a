// The steps of an outline, as readers of both systems tell them.
#include "platform/gdi/glyph_outline.h"

void CGlyphOutline::MoveTo(COutlinePoint to)
{
    m_steps.push_back(COutlineStep::move);
    m_points.push_back(to);
}

void CGlyphOutline::LineTo(COutlinePoint to)
{
    if (m_points.back() == to)
        return;
    m_steps.push_back(COutlineStep::line);
    m_points.push_back(to);
}

void CGlyphOutline::CurveTo(COutlinePoint control, COutlinePoint to)
{
    m_steps.push_back(COutlineStep::curve);
    m_points.insert(m_points.end(), { control, to });
}

void CGlyphOutline::CubicTo(COutlinePoint first, COutlinePoint second, COutlinePoint to)
{
    m_steps.push_back(COutlineStep::cubic);
    m_points.insert(m_points.end(), { first, second, to });
}
