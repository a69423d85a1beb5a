// A host with a cairo context of its own: larger type, another face, and a picture of twice the
// size. Signs that grow with their content are made for 96 dots per inch, and so a host that wants
// more dots scales its context instead of asking for another resolution.
//
//     cairo_host 'a/b' fraction.png
#include <cairo.h>
#include <mivora/mivora.h>
#include <mivora/nodes/node.h>
#include <mivora/platform/gdi/cairo_dc.h>

#include <cstdio>

namespace
{
constexpr int s_nScale = 2;    // dots of the picture for one of the layout
constexpr int s_nMargin = 10;  // around the formula

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
        CCairoDC dc(pCairo);
        rect = formula.GetFormulaRect(&dc);
    }
    cairo_destroy(pCairo);
    cairo_surface_destroy(pSurface);
    return rect;
}

bool WritePng(CFormulaOut& formula, const CRect& rect, const char* pszPath)
{
    cairo_surface_t* pSurface =
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, s_nScale * (rect.Width() + 2 * s_nMargin),
                                   s_nScale * (rect.Height() + 2 * s_nMargin));
    cairo_t* pCairo = cairo_create(pSurface);
    cairo_scale(pCairo, s_nScale, s_nScale);
    cairo_set_source_rgb(pCairo, 1, 1, 1);
    cairo_paint(pCairo);
    {
        CCairoDC dc(pCairo);
        formula.m_Tree.SetSelectionMode(PF_NO_FILL);  // the paper is there already
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
