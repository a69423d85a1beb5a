// The pictures that are images: drawn in memory, with the boxes over it, and written.
#include <algorithm>
#include <vector>

#include "node_boxes.h"
#include "picture_file.h"
#include "picture_formats.h"
#include "win32/image.h"
#include "win32/png_bytes.h"
#include "win32/recorded_formula.h"

namespace
{
// The four lines of a rectangle, or the whole of one that is too small for an inside.
void BlendFrame(CImage& image, const CRect& rect, double fScale, const CBoxColour& colour)
{
    const double fHalf = s_fBoxLine / 2;
    const auto [x0, x1] = std::minmax({ rect.left + fHalf, rect.right - fHalf });
    const auto [y0, y1] = std::minmax({ rect.top + fHalf, rect.bottom - fHalf });
    const double l = (x0 - fHalf) * fScale;
    const double t = (y0 - fHalf) * fScale;
    const double r = (x1 + fHalf) * fScale;
    const double b = (y1 + fHalf) * fScale;
    const double fLine = s_fBoxLine * fScale;
    if (r - l <= 2 * fLine || b - t <= 2 * fLine)
    {
        image.Blend(l, t, r, b, colour);
        return;
    }
    image.Blend(l, t, r, t + fLine, colour);
    image.Blend(l, b - fLine, r, b, colour);
    image.Blend(l, t + fLine, l + fLine, b - fLine, colour);
    image.Blend(r - fLine, t + fLine, r, b - fLine, colour);
}

void BlendBoxes(CImage& image, const std::vector<CNodeBox>& boxes, double fScale)
{
    for (const CNodeBox& box : boxes)
    {
        BlendFrame(image, box.subtree, fScale, s_subtreeColour);
        BlendFrame(image, box.own, fScale, s_ownColour);
        image.Blend((box.subtree.left - s_fAxisOverhang) * fScale,
                    (box.nAxis - s_fBoxLine / 2) * fScale,
                    (box.subtree.right + s_fAxisOverhang) * fScale,
                    (box.nAxis + s_fBoxLine / 2) * fScale, s_axisColour);
    }
}

void Draw(CImage& image, CFormulaOut& formula, const std::string& strPath,
          const CPictureOptions& options)
{
    CRecordedFormula(formula, strPath).Play(image.DC(), options.nDpi);
    if (!options.bBoxes)
        return;
    CClientDC screen(nullptr);
    BlendBoxes(image, FindBoxes(formula.m_Tree, &screen),
               static_cast<double>(options.nDpi) / s_nScreenDpi);
}

CSize SizeOf(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options)
{
    return ImageSize(PictureSize(formula), static_cast<double>(options.nDpi) / s_nScreenDpi,
                     strPath);
}
}  // namespace

void WriteBmp(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options)
{
    CImage image(SizeOf(formula, strPath, options), strPath);
    Draw(image, formula, strPath, options);
    WriteWhole(strPath, BmpBytes(image.Pixels(), image.Stride(), image.Size(), options.nDpi));
}

void WritePng(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options)
{
    CImage image(SizeOf(formula, strPath, options), strPath);
    Draw(image, formula, strPath, options);
    WriteWhole(strPath, PngBytes(image.Pixels(), image.Size(), strPath));
}
