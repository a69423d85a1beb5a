// A host with a cairo context of its own: larger type, another face, painted at 200 dots per inch.
//
//     cairo_host 'a/b' fraction.png
#include <cairo.h>
#include <mivora/mivora.h>
#include <platform/gdi/cairo_dc.h>

#include <cstdio>

namespace
{
constexpr int s_nDpi = 200;
constexpr int s_nMargin = 20;  // pixels around the formula

// The format of this formula: faces and sizes (points, written negative) are public fields.
void SetFormat(CBinTreeFormat& format)
{
    format.m_pVariable->m_strFontName = "Arial";
    format.m_pNumber->m_strFontName = "Arial";
    format.m_pVariable->m_crColour = RGB(0, 0, 160);
    constexpr int anSizes[] = { -20, -15, -12, -28, -20 };
    for (int n = 0; n < 5; ++n)
        format.m_nSizes[n] = anSizes[n];
}

CRect Measure(CFormulaOut& formula)
{
    cairo_surface_t* pSurface = cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1);
    cairo_t* pCairo = cairo_create(pSurface);
    CRect rect;
    {
        CCairoDC dc(pCairo, s_nDpi, s_nDpi);
        rect = formula.GetFormulaRect(&dc);
    }
    cairo_destroy(pCairo);
    cairo_surface_destroy(pSurface);
    return rect;
}

bool WritePng(CFormulaOut& formula, const CRect& rect, const char* pszPath)
{
    cairo_surface_t* pSurface = cairo_image_surface_create(
        CAIRO_FORMAT_RGB24, rect.Width() + 2 * s_nMargin, rect.Height() + 2 * s_nMargin);
    cairo_t* pCairo = cairo_create(pSurface);
    cairo_set_source_rgb(pCairo, 1, 1, 1);
    cairo_paint(pCairo);
    {
        CCairoDC dc(pCairo, s_nDpi, s_nDpi);
        formula.DrawTree(&dc, CRect(s_nMargin, s_nMargin, 0, 0));
    }
    const bool bWritten = cairo_surface_write_to_png(pSurface, pszPath) == CAIRO_STATUS_SUCCESS;
    cairo_destroy(pCairo);
    cairo_surface_destroy(pSurface);
    return bWritten;
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
    {
        std::fprintf(stderr, "usage: cairo_host FORMULA FILE.png\n");
        return 2;
    }
    CFormulaOut formula;
    if (!formula.FormTree(argv[1]))
        return 1;
    SetFormat(*formula.GetTreeFormatPtr());
    formula.ReformatNodes();

    const CRect rect = Measure(formula);
    std::printf("%d x %d pixels\n", rect.Width(), rect.Height());
    return WritePng(formula, rect, argv[2]) ? 0 : 1;
}
