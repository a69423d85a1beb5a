// The rectangle operations that are more than a line.
#include "platform/base/geometry.h"

#include <algorithm>

BOOL CRect::UnionRect(const RECT* pFirst, const RECT* pSecond)
{
    const CRect first(pFirst);
    const CRect second(pSecond);
    if (first.IsRectEmpty() || second.IsRectEmpty())
    {
        *this = !first.IsRectEmpty() ? first : !second.IsRectEmpty() ? second : CRect();
        return !IsRectEmpty();
    }
    *this = CRect(std::min(first.left, second.left), std::min(first.top, second.top),
                  std::max(first.right, second.right), std::max(first.bottom, second.bottom));
    return TRUE;
}

BOOL CRect::IntersectRect(const RECT* pFirst, const RECT* pSecond)
{
    const CRect first(pFirst);
    const CRect second(pSecond);
    *this = CRect(std::max(first.left, second.left), std::max(first.top, second.top),
                  std::min(first.right, second.right), std::min(first.bottom, second.bottom));
    if (first.IsRectEmpty() || second.IsRectEmpty() || IsRectEmpty())
    {
        SetRectEmpty();
        return FALSE;
    }
    return TRUE;
}
