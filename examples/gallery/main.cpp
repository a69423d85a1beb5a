// Draws the nodes that no source text gives, only a stored formula: one picture for each.
//
//     gallery DIRECTORY
#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include <cairo.h>
#include <mivora/platform/gdi/cairo_dc.h>

#include "sketch.h"

namespace
{
constexpr int s_nDpi = 96;
constexpr int s_nEnlarged = 2;  // layout is the screen's, the picture twice as fine
constexpr int s_nMargin = 12;   // units around each tree; some draw over their edge
constexpr int s_nColumns = 10;

// In a sketch with several kinds # stands for the kind.
struct CPicture
{
    const char* pszName;
    const char* pszSketch;
    int nKinds = 1;
};

constexpr CPicture s_aPictures[] = {
    { "slash", "(DIVISION[1] (PLUS a b) c)" },
    { "division-other", "(PLUS a (DIVISION[2] b c))" },
    { "index", "(VARIABLE \"x\" - (INDEX i k))" },
    { "product", "(PROD (RANGE n (EQUATION i 1)) (VARIABLE \"x\" - (INDEX - i)))" },
    { "integrals", "(INTEGRAL[#] (RANGE b a) (INTEGRAND (POWERTO x 2) x))", 9 },
    { "limes", "(LIMES (OPERATOR x 0) (DIVISION 1 x))" },
    { "derive", "(DERIVE x (POWERTO x 2))" },
    { "partderive", "(PARTDERIVE x f)" },
    { "braces", "(BRACE[#] x)", 25 },
    { "braces-high", "(BRACE[#] (DIVISION a (DIVISION b c)))", 6 },
    { "poison", "(POISON (DIVISION a b))" },
    { "relations-all", "(EQUATION[#] a b)", 20 },
    { "arrows", "(ARROWS[#] a b)", 12 },
    { "operator", "(OPERATOR a b)" },
    { "cross", "(CROSS a b)" },
    { "functions", "(FUNC[#] - (BRACE x))", 22 },
    { "userfunc", "(USERFUNC \"g\" - (BRACE x))" },
    { "extfunc", "(EXTFUNC \"sgn\" - (BRACE x))" },
    { "infinity", "(INFINITY)" },
    { "planck", "(PLANCK)" },
    { "lambda", "(LAMBDA)" },
    { "constant", "(CONSTANT \"e\")" },
    { "nabla", "(NABLA - f)" },
    { "laplace", "(LAPLACE - f)" },
    { "label", "(LABEL)" },
    { "placeholder", "(PLUS a (PLACEHOLDER))" },
    { "placeholder-fraction", "(DIVISION (PLACEHOLDER) (PLUS a b))" },
    { "vectors", "(VECTOR[#] (PLUS a b))", 8 },
    { "binomial", "(BRACE (BINOMIAL n k))" },
    { "matrix", "(BRACE (MATRIX (ELEMENT a b) (ELEMENT c d)))" },
    { "matrix-row", "(PLUS a (MATRIX b c))" },
    { "line", "(BRACE (LINE (ELEMENT a b) (ELEMENT c d)))" },
    { "element", "(ELEMENT (DIVISION a b) c)" },
};

std::string SketchOfKind(const CPicture& picture, int nKind)
{
    std::string strSketch = picture.pszSketch;
    const std::size_t nPlace = strSketch.find('#');
    if (nPlace != std::string::npos)
        strSketch.replace(nPlace, 1, std::to_string(nKind));
    return strSketch;
}

// Runs draw with a white image of a size and its context.
template <class F>
cairo_surface_t* DrawImage(int nWidth, int nHeight, F draw)
{
    cairo_surface_t* pImage = cairo_image_surface_create(CAIRO_FORMAT_RGB24, nWidth, nHeight);
    cairo_t* pCairo = cairo_create(pImage);
    cairo_set_source_rgb(pCairo, 1, 1, 1);
    cairo_paint(pCairo);
    draw(pCairo);
    cairo_destroy(pCairo);
    return pImage;
}

// Every tree stands in a cell of the same size; extents can be negative.
CSize CellOf(const CPicture& picture)
{
    CSize cell;
    cairo_surface_destroy(
        DrawImage(1, 1,
                  [&](cairo_t* pCairo)
                  {
                      CCairoDC dc(pCairo, s_nDpi, s_nDpi);
                      for (int nKind = 0; nKind < picture.nKinds; ++nKind)
                      {
                          CBinTree tree;
                          BuildTree(tree, SketchOfKind(picture, nKind));
                          const CRect rect = tree.MeasureTree(&dc);
                          cell.cx = std::max<int>(cell.cx, rect.Width() + 2 * s_nMargin);
                          cell.cy = std::max<int>(cell.cy, rect.Height() + 2 * s_nMargin);
                      }
                  }));
    return cell;
}

void DrawCell(cairo_t* pCairo, const std::string& strSketch, int x, int y)
{
    cairo_save(pCairo);
    cairo_translate(pCairo, x + s_nMargin, y + s_nMargin);
    {
        CCairoDC dc(pCairo, s_nDpi, s_nDpi);
        CBinTree tree;
        BuildTree(tree, strSketch);
        tree.Draw(&dc, CRect(0, 0, 0, 0));
    }
    cairo_restore(pCairo);
}

bool WritePicture(const CPicture& picture, const std::string& strDirectory)
{
    const CSize cell = CellOf(picture);
    const int nColumns = std::min(picture.nKinds, s_nColumns);
    const int nRows = (picture.nKinds + s_nColumns - 1) / s_nColumns;
    cairo_surface_t* pImage =
        DrawImage(nColumns * cell.cx * s_nEnlarged, nRows * cell.cy * s_nEnlarged,
                  [&](cairo_t* pCairo)
                  {
                      cairo_scale(pCairo, s_nEnlarged, s_nEnlarged);
                      for (int nKind = 0; nKind < picture.nKinds; ++nKind)
                      {
                          DrawCell(pCairo, SketchOfKind(picture, nKind),
                                   nKind % s_nColumns * cell.cx, nKind / s_nColumns * cell.cy);
                      }
                  });
    const std::string strPath = strDirectory + "/" + picture.pszName + ".png";
    const cairo_status_t status = cairo_surface_write_to_png(pImage, strPath.c_str());
    cairo_surface_destroy(pImage);
    if (status != CAIRO_STATUS_SUCCESS)
        std::fprintf(stderr, "%s: %s\n", strPath.c_str(), cairo_status_to_string(status));
    return status == CAIRO_STATUS_SUCCESS;
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
    {
        std::fprintf(stderr, "usage: gallery DIRECTORY\n");
        return 2;
    }
    try
    {
        bool bWritten = true;
        for (const CPicture& picture : s_aPictures)
            bWritten = WritePicture(picture, argv[1]) && bWritten;
        return bWritten ? 0 : 1;
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
