// Block transfers: which pixels of the source each pixel of the destination is made of.
#include "platform/gdi/linux/bitmaps/stretch.h"

#include "platform/gdi/linux/context/device_box.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace
{

// Source pixels of one column or row of the destination, end excluded; empty: none.
struct CSpan
{
    int m_nBegin;
    int m_nEnd;

    bool IsEmpty() const { return m_nBegin >= m_nEnd; }
    friend bool operator==(const CSpan& a, const CSpan& b) = default;
};

// A transfer in one direction, across or down.
struct CStretchDirection
{
    int m_nTo;        // first pixel of the destination
    int m_nToSize;    // pixels
    int m_nFrom;      // first pixel of the source
    int m_nFromSize;  // pixels
    int m_nLimit;     // size of the bitmap
    bool m_bMirror;

    CSpan SourceOf(int nPlace) const
    {
        std::int64_t i = nPlace - m_nTo;
        if (m_bMirror)
            i = m_nToSize - 1 - i;
        CSpan span{};
        // Enlarging takes the pixel under the middle; shrinking takes all that fall into one.
        if (m_nFromSize <= m_nToSize)
        {
            span.m_nBegin =
                m_nFrom + static_cast<int>((2 * i + 1) * m_nFromSize / (2ll * m_nToSize));
            span.m_nEnd = span.m_nBegin + 1;
        }
        else
        {
            span = { m_nFrom + static_cast<int>(i * m_nFromSize / m_nToSize),
                     m_nFrom + static_cast<int>((i + 1) * m_nFromSize / m_nToSize) };
        }
        return { std::max(span.m_nBegin, 0), std::min(span.m_nEnd, m_nLimit) };
    }
};

// A row of the destination at a time. Where several pixels become one, a channel that is dark in
// one of them stays dark: thin lines survive.
class CStretcher
{
public:
    CStretcher(const CImageTransfer& transfer, int nBits, const RECT& clip)
        : m_transfer(transfer), m_nBits(nBits)
    {
        const RECT& to = transfer.m_to;
        const RECT& from = transfer.m_from;
        const CPixelImage& source = transfer.m_source;
        m_rows = { to.top,          to.bottom - to.top, from.top, from.bottom - from.top,
                   source.Height(), transfer.m_bMirrorY };
        const CStretchDirection columns{ to.left,        to.right - to.left,
                                         from.left,      from.right - from.left,
                                         source.Width(), transfer.m_bMirrorX };
        for (int x = clip.left; x < clip.right; ++x)
        {
            const CSpan span = columns.SourceOf(x);
            m_columns.push_back(span);
            if (!span.IsEmpty())
            {
                m_nFirst = std::min(m_nFirst, span.m_nBegin);
                m_nLast = std::max(m_nLast, span.m_nEnd);
            }
        }
        m_pixels.resize(m_columns.size());
    }

    // Pixels of a row of the destination from the clip's left on; where columns are empty they mean
    // nothing. None if the whole row has no source.
    std::span<const CPixel> MakeRow(int y)
    {
        const CSpan rows = m_rows.SourceOf(y);
        if (rows.IsEmpty() || m_nFirst >= m_nLast)
            return {};
        if (rows == m_current)
            return m_pixels;  // enlarged: several rows are the same
        m_current = rows;
        m_source.resize(static_cast<std::size_t>(m_nLast - m_nFirst));
        std::fill(m_pixels.begin(), m_pixels.end(), PIXEL_COLOUR);
        for (int nRow = rows.m_nBegin; nRow < rows.m_nEnd; ++nRow)
        {
            ReadForDestination(m_transfer, m_nBits, m_nFirst, nRow, m_source);
            AddSourceRow();
        }
        return m_pixels;
    }
    bool HasSource(std::size_t nColumn) const { return !m_columns[nColumn].IsEmpty(); }

private:
    void AddSourceRow()
    {
        for (std::size_t i = 0; i < m_columns.size(); ++i)
        {
            for (int x = m_columns[i].m_nBegin; x < m_columns[i].m_nEnd; ++x)
                m_pixels[i] &= m_source[static_cast<std::size_t>(x - m_nFirst)];
        }
    }

    const CImageTransfer& m_transfer;
    int m_nBits;
    CStretchDirection m_rows{};
    std::vector<CSpan> m_columns;
    int m_nFirst = std::numeric_limits<int>::max();  // source columns in use
    int m_nLast = 0;
    CSpan m_current{ 0, 0 };
    std::vector<CPixel> m_source;  // a row
    std::vector<CPixel> m_pixels;
};

// The source as it is now, so that it can be drawn on.
std::unique_ptr<CPixelImage> CopySource(CPixelImage& source)
{
    auto pCopy = CPixelImage::Create(source.Width(), source.Height(), source.Bits());
    for (int y = 0; pCopy && y < source.Height(); ++y)
        std::copy_n(source.Row(y), source.Width(), pCopy->Row(y));
    return pCopy;
}

}  // namespace

void ReadForDestination(const CImageTransfer& transfer, int nBits, int x, int y,
                        std::span<CPixel> pixels)
{
    transfer.m_source.ReadRow(x, y, pixels);
    const bool bFromMono = transfer.m_source.Bits() == 1;
    if (bFromMono == (nBits == 1))
        return;
    const CPixel text = PixelFromColour(transfer.m_crText);
    const CPixel back = PixelFromColour(transfer.m_crBk);
    const CPixel white = PixelFromColour(transfer.m_crSourceBk);
    for (CPixel& pixel : pixels)
    {
        if (bFromMono)
            pixel = pixel ? back : text;
        else
            pixel = pixel == white ? PIXEL_COLOUR : 0;
    }
}

bool StretchImage(const CImageTransfer& transfer, CPixelImage& destination, const RECT& clip)
{
    const CRect box = IntersectBoxes(transfer.m_to, clip);
    if (box.IsRectEmpty())
        return true;
    if (&transfer.m_source == &destination)
    {
        const std::unique_ptr<CPixelImage> pCopy = CopySource(destination);
        return pCopy && StretchImage({ *pCopy, transfer.m_from, transfer.m_to, transfer.m_bMirrorX,
                                       transfer.m_bMirrorY, transfer.m_crText, transfer.m_crBk,
                                       transfer.m_crSourceBk },
                                     destination, clip);
    }
    CStretcher stretcher(transfer, destination.Bits(), box);
    for (int y = box.top; y < box.bottom; ++y)
    {
        const std::span<const CPixel> pixels = stretcher.MakeRow(y);
        CPixel* pTo = destination.Row(y) + box.left;
        for (std::size_t i = 0; i < pixels.size(); ++i)
        {
            if (stretcher.HasSource(i))
                pTo[i] = pixels[i];
        }
    }
    return true;
}
