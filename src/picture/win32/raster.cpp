// Rasters drawn by GDI, which knows no opacity: the signs of each colour are drawn in black on
// white, and how dark they come out is how much they cover.
#include "picture/raster.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

#include "platform/gdi/dc.h"
#include "platform/gdi/native_gdi.h"

namespace
{
CBoxColour ColourOf(COLORREF colour)
{
    return { GetRValue(colour) / 255.0, GetGValue(colour) / 255.0, GetBValue(colour) / 255.0, 1 };
}

void FillRect(CRaster& raster, const CRect& rect, COLORREF colour)
{
    BlendRect(raster, rect.left, rect.top, rect.right, rect.bottom, ColourOf(colour));
}

// A line along no axis, by how far the middles of the pixels lie from it.
void BlendStroke(CRaster& raster, const CPlacement& placement, const CDrawnLine& line)
{
    const double x1 = placement.X(line.x1);
    const double y1 = placement.Y(line.y1);
    const double dx = placement.X(line.x2) - x1;
    const double dy = placement.Y(line.y2) - y1;
    const double fLength = std::hypot(dx, dy);
    const double fHalf = placement.Pen() / 2;
    const auto first = [&](double a, double b)
    {
        return std::max(static_cast<int>(std::floor(std::min(a, b) - fHalf)), 0);
    };
    const auto end = [&](double a, double b, int nEnd)
    {
        return std::min(static_cast<int>(std::ceil(std::max(a, b) + fHalf)) + 1, nEnd);
    };
    for (int y = first(y1, y1 + dy); y < end(y1, y1 + dy, raster.size.cy); ++y)
    {
        for (int x = first(x1, x1 + dx); x < end(x1, x1 + dx, raster.size.cx); ++x)
        {
            const double fAlong = ((x + 0.5 - x1) * dx + (y + 0.5 - y1) * dy) / fLength;
            const double fAside = std::abs((y + 0.5 - y1) * dx - (x + 0.5 - x1) * dy) / fLength;
            const double fCover = std::clamp(fHalf + 0.5 - fAside, 0.0, 1.0) *
                                  std::clamp(fAlong + 0.5, 0.0, 1.0) *
                                  std::clamp(fLength - fAlong + 0.5, 0.0, 1.0);
            BlendPixel(raster.Row(y)[x], fCover, ColourOf(line.colour));
        }
    }
}

// A white image that the system draws on in black.
class CMask
{
public:
    CMask(const CSize& size, const CPlacement& placement) : m_size(size)
    {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = size.cx;
        info.bmiHeader.biHeight = -size.cy;  // from the top down
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        info.bmiHeader.biCompression = BI_RGB;
        void* pBits = nullptr;
        const HBITMAP hBitmap =
            CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pBits, nullptr, 0);
        if (hBitmap == nullptr)
            throw CPictureFailure{ "there is no memory for the picture", true };
        m_bitmap.Attach(hBitmap);
        m_pPixels = static_cast<std::uint32_t*>(pBits);
        m_dc.CreateCompatibleDC(nullptr);
        m_pOld = m_dc.SelectObject(&m_bitmap);
        m_dc.SetBkMode(TRANSPARENT);
        m_dc.SetTextColor(0);
        m_dc.SetTextAlign(TA_LEFT | TA_BASELINE);
        const auto fScale = static_cast<FLOAT>(placement.Scale());
        const XFORM transform = { fScale,
                                  0,
                                  0,
                                  fScale,
                                  static_cast<FLOAT>(placement.Origin().x),
                                  static_cast<FLOAT>(placement.Origin().y) };
        SetGraphicsMode(m_dc.GetSafeHdc(), GM_ADVANCED);
        SetWorldTransform(m_dc.GetSafeHdc(), &transform);
    }
    ~CMask()
    {
        if (m_pOld != nullptr)
            m_dc.SelectObject(m_pOld);
    }
    CMask(const CMask&) = delete;
    CMask& operator=(const CMask&) = delete;

    void Clear() { std::fill_n(m_pPixels, Count(), 0xFFFFFFU); }

    void Draw(const CDrawing& drawing, const CDrawnText& text)
    {
        LOGFONTA description = drawing.fonts[text.nFont].description;
        description.lfQuality = ANTIALIASED_QUALITY;  // grey edges, whatever the user's screen has
        CFont font;
        font.Attach(CreateFaceFont(&description));
        const CSelectScope select(&m_dc, &font);
        std::string strText;
        std::vector<INT> advances;
        for (size_t n = text.nFirst; n < text.nFirst + text.nCount; ++n)
        {
            strText += static_cast<char>(drawing.glyphs[n].nCode);
            if (n > text.nFirst)
                advances.push_back(drawing.glyphs[n].nOffset - drawing.glyphs[n - 1].nOffset);
        }
        advances.push_back(0);
        m_dc.ExtTextOut(text.origin.x, text.origin.y, 0, nullptr, strText.data(),
                        static_cast<UINT>(strText.size()), advances.data());
    }

    // What became dark covers the raster in a colour.
    void BlendOn(CRaster& raster, COLORREF colour)
    {
        GdiFlush();  // before the pixels are touched
        const CBoxColour ink = ColourOf(colour);
        for (size_t n = 0; n < Count(); ++n)
        {
            const unsigned nLight = m_pPixels[n] >> 8 & 0xFF;
            if (nLight != 0xFF)
                BlendPixel(raster.pixels[n], (0xFF - nLight) / 255.0, ink);
        }
    }

private:
    size_t Count() const { return static_cast<size_t>(m_size.cx) * static_cast<size_t>(m_size.cy); }

    CSize m_size;
    CDC m_dc;
    CBitmap m_bitmap;
    CBitmap* m_pOld = nullptr;
    std::uint32_t* m_pPixels = nullptr;
};
}  // namespace

void DrawOnRaster(CRaster& raster, const CDrawing& drawing, const CPlacement& placement,
                  bool /*bTransparent*/)
{
    for (const CDrawnMark& mark : drawing.marks)
        FillRect(raster, placement.Place(mark.rect), mark.colour);
    std::set<COLORREF> colours;
    for (const CDrawnText& text : drawing.texts)
        colours.insert(text.colour);
    if (!colours.empty())
    {
        CMask mask(raster.size, placement);
        for (const COLORREF colour : colours)
        {
            mask.Clear();
            for (const CDrawnText& text : drawing.texts)
            {
                if (text.colour == colour)
                    mask.Draw(drawing, text);
            }
            mask.BlendOn(raster, colour);
        }
    }
    for (const CDrawnLine& line : drawing.lines)
    {
        if (line.IsHorizontal() || line.IsVertical())
            FillRect(raster, placement.PlaceBar(line), line.colour);
        else
            BlendStroke(raster, placement, line);
    }
}
