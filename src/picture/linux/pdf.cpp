// A tagged PDF by cairo: one page, its texts in reading order, the source in its description.
#include "picture/pdf.h"

#include <cairo-pdf.h>

#include <new>

#include "picture/carried_text.h"
#include "picture/linux/cairo_drawing.h"
#include "picture/reading_order.h"
#include "picture/sign_characters.h"
#include "platform/gdi/linux/bitmaps/cairo_handles.h"

namespace
{
constexpr double s_fPointsPerInch = 72;
constexpr int s_nLargestSide = 19200;  // 14,400 points: a larger page is not shown everywhere
// A fixed date: the same formula gives the same bytes at any time.
constexpr char s_szDate[] = "2000-01-01T00:00:00Z";

void Check(cairo_status_t nStatus)
{
    if (nStatus == CAIRO_STATUS_NO_MEMORY)
        throw std::bad_alloc();
    if (nStatus != CAIRO_STATUS_SUCCESS)
        throw CPictureFailure{ cairo_status_to_string(nStatus) };
}

// Called by a library in C, which no exception may cross.
cairo_status_t Append(void* pBytes, const unsigned char* pData, unsigned nCount) noexcept
{
    try
    {
        static_cast<std::string*>(pBytes)->append(reinterpret_cast<const char*>(pData), nCount);
        return CAIRO_STATUS_SUCCESS;
    }
    catch (const std::bad_alloc&)
    {
        return CAIRO_STATUS_NO_MEMORY;
    }
}

void SetMetadata(cairo_surface_t* pSurface, cairo_pdf_metadata_t nWhat, const std::string& strText)
{
    if (!strText.empty())
        cairo_pdf_surface_set_metadata(pSurface, nWhat, strText.c_str());
}

// Glyphs with the characters that they stand for.
void ShowText(cairo_t* pCairo, const CDrawing& drawing, const CDrawnText& text,
              const std::vector<CScaledFontPtr>& fonts)
{
    const std::vector<cairo_glyph_t> glyphs = PrepareText(pCairo, drawing, text, fonts);
    std::string strUtf8;
    std::vector<cairo_text_cluster_t> clusters;
    for (size_t n = 0; n < glyphs.size(); ++n)
    {
        const std::string strCharacter =
            CharacterOf(drawing.fonts[text.nFont], drawing.glyphs[text.nFirst + n].nCode);
        strUtf8 += strCharacter;
        clusters.push_back({ static_cast<int>(strCharacter.size()), 1 });
    }
    cairo_show_text_glyphs(pCairo, strUtf8.data(), static_cast<int>(strUtf8.size()), glyphs.data(),
                           static_cast<int>(glyphs.size()), clusters.data(),
                           static_cast<int>(clusters.size()),
                           static_cast<cairo_text_cluster_flags_t>(0));
}

void PaintBoxes(cairo_t* pCairo, const CPlacement& placement, const std::vector<CNodeBox>& boxes)
{
    DrawBoxes(boxes,
              [&](double l, double t, double r, double b, const CBoxColour& colour)
              {
                  cairo_set_source_rgba(pCairo, colour.fRed, colour.fGreen, colour.fBlue,
                                        colour.fOpacity);
                  cairo_rectangle(pCairo, placement.X(l), placement.Y(t),
                                  placement.X(r) - placement.X(l), placement.Y(b) - placement.Y(t));
                  cairo_fill(pCairo);
              });
}

void Paint(cairo_t* pCairo, const CDrawing& drawing, const CPlacement& placement,
           const CPictureOptions& options, const std::vector<CNodeBox>& boxes)
{
    if (!options.bTransparent)
    {
        SetColour(pCairo, BackgroundOf(options));
        cairo_paint(pCairo);
    }
    PaintMarks(pCairo, drawing, placement);
    // Without the outer element cairo does not call the document a tagged one.
    cairo_tag_begin(pCairo, "Document", nullptr);
    cairo_tag_begin(pCairo, "Formula", nullptr);
    PaintLines(pCairo, drawing, placement);
    cairo_save(pCairo);
    EnterTextSpace(pCairo, placement);
    const std::vector<CScaledFontPtr> fonts = ScaledFonts(pCairo, drawing, CHinting::outlines);
    for (const size_t n : ReadingOrder(drawing, boxes))
        ShowText(pCairo, drawing, drawing.texts[n], fonts);
    cairo_restore(pCairo);
    cairo_tag_end(pCairo, "Formula");
    cairo_tag_end(pCairo, "Document");
    if (options.bBoxes)
        PaintBoxes(pCairo, placement, boxes);
}
}  // namespace

std::string PdfBytes(const CDrawing& drawing, const CPlacement& placement,
                     const CPictureOptions& options, const std::vector<CNodeBox>& boxes)
{
    placement.CheckSides(s_nLargestSide);
    std::string strBytes;
    const double fPoints = s_fPointsPerInch / SCREEN_DPI;  // in a pixel of the picture
    const CSize& size = placement.Size();
    const CSurfacePtr pSurface(cairo_pdf_surface_create_for_stream(
        Append, &strBytes, size.cx * fPoints, size.cy * fPoints));
    Check(cairo_surface_status(pSurface.get()));
    SetMetadata(pSurface.get(), CAIRO_PDF_METADATA_CREATE_DATE, s_szDate);
    SetMetadata(pSurface.get(), CAIRO_PDF_METADATA_TITLE, options.strTitle);
    SetMetadata(pSurface.get(), CAIRO_PDF_METADATA_SUBJECT, EscapeCarried(options.strSource));
    SetMetadata(pSurface.get(), CAIRO_PDF_METADATA_CREATOR, CARRIED_NAME);
    const CCairoPtr pCairo(cairo_create(pSurface.get()));
    cairo_scale(pCairo.get(), fPoints, fPoints);
    Paint(pCairo.get(), drawing, placement, options, boxes);
    Check(cairo_status(pCairo.get()));
    cairo_surface_finish(pSurface.get());
    Check(cairo_surface_status(pSurface.get()));
    return strBytes;
}
