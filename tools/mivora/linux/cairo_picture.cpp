#include "linux/cairo_picture.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cairo.h>

#include <memory>

#include "node_boxes.h"
#include "picture_file.h"
#include "picture_formats.h"
#include "platform/gdi/cairo_dc.h"
#include "report.h"

namespace
{
constexpr double s_fPointsPerInch = 72;
// A fixed date: the same formula gives the same bytes at any time.
constexpr char s_szDate[] = "2000-01-01T00:00:00Z";

template <auto Free>
struct CFreeBy
{
    template <class T>
    void operator()(T* p) const
    {
        Free(p);
    }
};
using CSurfacePtr = std::unique_ptr<cairo_surface_t, CFreeBy<cairo_surface_destroy>>;
using CCairoPtr = std::unique_ptr<cairo_t, CFreeBy<cairo_destroy>>;

void Check(cairo_status_t nStatus, const std::string& strPath)
{
    if (nStatus != CAIRO_STATUS_SUCCESS)
        throw CFailure{ "cannot draw " + strPath + ": " + cairo_status_to_string(nStatus) };
}

cairo_status_t Append(void* pContext, const unsigned char* pBytes, unsigned nCount)
{
    static_cast<std::string*>(pContext)->append(reinterpret_cast<const char*>(pBytes), nCount);
    return CAIRO_STATUS_SUCCESS;
}

void SetColour(cairo_t* pCairo, const CBoxColour& colour)
{
    cairo_set_source_rgba(pCairo, colour.fRed, colour.fGreen, colour.fBlue, colour.fOpacity);
}

void StrokeRect(cairo_t* pCairo, const CRect& rect)
{
    cairo_rectangle(pCairo, rect.left + s_fBoxLine / 2, rect.top + s_fBoxLine / 2,
                    rect.Width() - s_fBoxLine, rect.Height() - s_fBoxLine);
    cairo_stroke(pCairo);
}

void DrawBoxes(cairo_t* pCairo, const std::vector<CNodeBox>& boxes)
{
    cairo_save(pCairo);
    cairo_set_line_width(pCairo, s_fBoxLine);
    for (const CNodeBox& box : boxes)
    {
        SetColour(pCairo, s_subtreeColour);
        StrokeRect(pCairo, box.subtree);
        SetColour(pCairo, s_ownColour);
        StrokeRect(pCairo, box.own);
        SetColour(pCairo, s_axisColour);
        cairo_move_to(pCairo, box.subtree.left - s_fAxisOverhang, box.nAxis);
        cairo_line_to(pCairo, box.subtree.right + s_fAxisOverhang, box.nAxis);
        cairo_stroke(pCairo);
    }
    cairo_restore(pCairo);
}

// White, the formula on it, and the boxes over it; fScale is device units a pixel of the screen.
void DrawOn(cairo_surface_t* pSurface, double fScale, CFormulaOut& formula,
            const std::string& strPath, const CPictureOptions& options)
{
    const CCairoPtr pCairo(cairo_create(pSurface));
    cairo_set_source_rgb(pCairo.get(), 1, 1, 1);
    cairo_paint(pCairo.get());
    cairo_scale(pCairo.get(), fScale, fScale);
    {
        CCairoDC dc(pCairo.get(), s_nScreenDpi, s_nScreenDpi);
        formula.DrawTree(&dc, CRect(0, 0, 0, 0));
        if (options.bBoxes)
            DrawBoxes(pCairo.get(), FindBoxes(formula.m_Tree, &dc));
    }
    Check(cairo_status(pCairo.get()), strPath);
}

CSurfacePtr DrawImage(CFormulaOut& formula, const std::string& strPath,
                      const CPictureOptions& options)
{
    const double fScale = static_cast<double>(options.nDpi) / s_nScreenDpi;
    const CSize size = ImageSize(PictureSize(formula), fScale, strPath);
    CSurfacePtr pSurface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.cx, size.cy));
    Check(cairo_surface_status(pSurface.get()), strPath);
    DrawOn(pSurface.get(), fScale, formula, strPath, options);
    cairo_surface_flush(pSurface.get());
    return pSurface;
}

void DrawAndFinish(cairo_surface_t* pSurface, double fScale, CFormulaOut& formula,
                   const std::string& strPath, const CPictureOptions& options)
{
    Check(cairo_surface_status(pSurface), strPath);
    DrawOn(pSurface, fScale, formula, strPath, options);
    cairo_surface_finish(pSurface);
    Check(cairo_surface_status(pSurface), strPath);
}

// Cairo numbers its surfaces through the life of a process; the one group that bears such a number
// gets a name instead.
void NameRootGroup(std::string& strSvg)
{
    constexpr char szStart[] = "<g id=\"";
    const size_t nStart = strSvg.find(std::string(szStart) + "surface");
    if (nStart == std::string::npos)
        return;
    const size_t nName = nStart + sizeof szStart - 1;
    strSvg.replace(nName, strSvg.find('"', nName) - nName, "formula");
}
}  // namespace

void WriteBmp(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options)
{
    const CSurfacePtr pSurface = DrawImage(formula, strPath, options);
    const int cx = cairo_image_surface_get_width(pSurface.get());
    const int cy = cairo_image_surface_get_height(pSurface.get());
    const int nStride = cairo_image_surface_get_stride(pSurface.get());
    WriteWhole(strPath, BmpBytes(cairo_image_surface_get_data(pSurface.get()),
                                 static_cast<size_t>(nStride), CSize(cx, cy), options.nDpi));
}

void WritePng(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options)
{
    const CSurfacePtr pSurface = DrawImage(formula, strPath, options);
    std::string strBytes;
    Check(cairo_surface_write_to_png_stream(pSurface.get(), Append, &strBytes), strPath);
    WriteWhole(strPath, strBytes);
}

void WriteSvg(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options)
{
    const CSize size = PictureSize(formula);
    const double fScale = static_cast<double>(options.nDpi) / s_nScreenDpi;
    std::string strBytes;
    const CSurfacePtr pSurface(
        cairo_svg_surface_create_for_stream(Append, &strBytes, size.cx * fScale, size.cy * fScale));
    cairo_svg_surface_set_document_unit(pSurface.get(), CAIRO_SVG_UNIT_PX);
    DrawAndFinish(pSurface.get(), fScale, formula, strPath, options);
    NameRootGroup(strBytes);
    WriteWhole(strPath, strBytes);
}

void WritePdf(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options)
{
    const CSize size = PictureSize(formula);
    const double fScale = s_fPointsPerInch / s_nScreenDpi * options.nDpi / s_nScreenDpi;
    std::string strBytes;
    const CSurfacePtr pSurface(
        cairo_pdf_surface_create_for_stream(Append, &strBytes, size.cx * fScale, size.cy * fScale));
    cairo_pdf_surface_set_metadata(pSurface.get(), CAIRO_PDF_METADATA_CREATE_DATE, s_szDate);
    DrawAndFinish(pSurface.get(), fScale, formula, strPath, options);
    WriteWhole(strPath, strBytes);
}
