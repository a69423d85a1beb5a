// A scroll bar as its numbers, kept in range as the system keeps them.
#include "control/memory/memory_scroll_bar.h"

#include <algorithm>

// The position with the thumb at the end of the bar.
int CMemoryScrollBar::LastPos() const
{
    return m_nMax - std::max(m_nPage - 1, 0);
}

void CMemoryScrollBar::Trim()
{
    m_nPage = std::clamp(m_nPage, 0, m_nMax + 1);
    m_nPos = std::clamp(m_nPos, 0, LastPos());
}

void CMemoryScrollBar::SetPos(int nPos)
{
    m_nPos = nPos;
    Trim();
}

std::optional<bool> CMemoryScrollBar::SetPage(int nPage)
{
    if (nPage == m_nPage)
        return std::nullopt;
    m_nPage = nPage;
    Trim();
    return LastPos() <= 0 ? std::optional(false) : std::nullopt;
}

std::optional<bool> CMemoryScrollBar::SetRange(int nMax)
{
    if (nMax == m_nMax)
        return std::nullopt;
    m_nMax = std::max(nMax, 0);
    Trim();
    return LastPos() > 0;
}
