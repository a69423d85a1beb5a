// A formula on a host's device context.
#include "picture/host_drawing.h"

#include <cmath>
#include <string>

#include "platform/gdi/dc.h"

namespace
{
class CHostPainter
{
public:
    CHostPainter(CDC& dc, CPoint corner, const CDrawing& drawing)
        : m_dc(dc), m_corner(corner), m_drawing(drawing)
    {
    }

    void Fill(const CRect& rect, COLORREF colour)
    {
        CRect placed(rect);
        placed.OffsetRect(m_corner);
        m_dc.FillSolidRect(&placed, colour);
    }

    void Paint()
    {
        for (const CDrawnMark& mark : m_drawing.marks)
            Fill(mark.rect, mark.colour);
        for (const CDrawnText& text : m_drawing.texts)
            PaintText(text);
        for (const CDrawnLine& line : m_drawing.lines)
            PaintLine(line);
    }

private:
    void PaintText(const CDrawnText& text)
    {
        const CDrawnFont& drawn = m_drawing.fonts[text.nFont];
        CFont font;
        font.CreateFontIndirect(&drawn.description);
        const CSelectScope select(&m_dc, &font);
        m_dc.SetTextColor(text.colour);
        std::string strText;
        std::vector<INT> advances;
        for (size_t n = text.nFirst; n < text.nFirst + text.nCount; ++n)
        {
            const bool bLast = n + 1 == text.nFirst + text.nCount;
            strText += static_cast<char>(m_drawing.glyphs[n].nCode);
            advances.push_back(
                bLast ? 0 : m_drawing.glyphs[n + 1].nOffset - m_drawing.glyphs[n].nOffset);
        }
        m_dc.ExtTextOut(m_corner.x + text.origin.x, m_corner.y + text.origin.y, 0, nullptr,
                        strText.data(), static_cast<UINT>(strText.size()), advances.data());
    }

    void PaintLine(const CDrawnLine& line)
    {
        const auto whole = [](double f)
        {
            return static_cast<int>(std::floor(f));
        };
        if (line.IsHorizontal())
        {
            return Fill(CRect(whole(line.x1), whole(line.y1), whole(line.x2), whole(line.y1) + 1),
                        line.colour);
        }
        if (line.IsVertical())
        {
            return Fill(CRect(whole(line.x1), whole(line.y1), whole(line.x1) + 1, whole(line.y2)),
                        line.colour);
        }
        CPen pen;
        pen.CreatePen(PS_SOLID, 1, line.colour);
        const CSelectScope select(&m_dc, &pen);
        m_dc.MoveTo(m_corner.x + whole(line.x1), m_corner.y + whole(line.y1));
        m_dc.LineTo(m_corner.x + whole(line.x2), m_corner.y + whole(line.y2));
    }

    CDC& m_dc;
    CPoint m_corner;
    const CDrawing& m_drawing;
};
}  // namespace

void PaintOnHost(CDC& dc, CPoint corner, const CDrawing& drawing,
                 const std::optional<COLORREF>& background)
{
    const int nSaved = dc.SaveDC();
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextAlign(TA_LEFT | TA_BASELINE);
    CHostPainter painter(dc, corner, drawing);
    if (background)
        painter.Fill(CRect(CPoint(0, 0), drawing.size), *background);
    painter.Paint();
    dc.RestoreDC(nSaved);
}
