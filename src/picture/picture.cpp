// From a formula to bytes: the look, the drawing, its placement, the format.
#include "picture/picture.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <new>

#include "nodes/node.h"
#include "picture/formats.h"
#include "picture/host_drawing.h"
#include "picture/metafile.h"
#include "picture/pdf.h"
#include "picture/raster.h"
#include "picture/svg.h"
#include "service/screen_dc.h"

namespace
{
// Ink that a selection or the grey of a formula has coloured.
bool IsMarked(const CBinTree& tree, COLORREF colour)
{
    if ((tree.GetSelectionMode() & PF_GRAYED) != 0)
        return colour == GetSysColor(COLOR_GRAYTEXT);
    return tree.GetSelection() != nullptr && colour == GetSysColor(COLOR_HIGHLIGHTTEXT);
}

void Recolour(CDrawing& drawing, const CBinTree& tree, COLORREF colour)
{
    for (CDrawnText& text : drawing.texts)
        text.colour = IsMarked(tree, text.colour) ? text.colour : colour;
    for (CDrawnLine& line : drawing.lines)
        line.colour = IsMarked(tree, line.colour) ? line.colour : colour;
}

CDrawing DrawingOf(CFormulaOut& formula, const CPictureOptions& options)
{
    CDrawing drawing = RecordDrawing(formula.m_Tree);
    if (options.colour)
        Recolour(drawing, formula.m_Tree, *options.colour);
    return drawing;
}

CPlacement PlacementOf(const CDrawing& drawing, CFormulaOut& formula,
                       const CPictureOptions& options)
{
    const CNode* pRoot = formula.m_Tree.GetRootNode();
    return CPlacement(drawing, options, pRoot != nullptr ? TextLineOf(*pRoot) : CTextLine{ 6, 16 });
}

// What all formats with a look begin with.
struct CPrepared
{
    CPrepared(CFormulaOut& formula, const CPictureOptions& options, bool bAllBoxes)
        : drawing(DrawingOf(formula, options)), placement(PlacementOf(drawing, formula, options))
    {
        if (!bAllBoxes && !options.bBoxes)
            return;
        CScreenDC screen;
        boxes = FindBoxes(formula.m_Tree, &screen);
    }

    CDrawing drawing;
    CPlacement placement;
    std::vector<CNodeBox> boxes;
};

CPictureFile MakeImage(CFormulaOut& formula, const CPictureOptions& options,
                       std::string (*pfnBytes)(const CRaster&, const CPictureOptions&))
{
    CPrepared prepared(formula, options, false);
    CRaster raster = MakeRaster(prepared.drawing, prepared.placement, options);
    BlendBoxes(raster, prepared.placement, prepared.boxes);
    return { pfnBytes(raster, options), prepared.placement.Told() };
}
}  // namespace

void ApplyLook(CFormulaOut& formula, const CFormulaLook& look)
{
    if (look.nPoints == 0 && look.strFace.empty())
        return;
    CBinTreeFormat& format = formula.m_Format;
    constexpr int nUsual = 12;
    for (size_t n = 0; look.nPoints != 0 && n < std::size(format.m_nSizes); ++n)
    {
        const int nSize = std::abs(g_DefaultFormat.m_nSizes[n]) * look.nPoints;
        format.m_nSizes[n] = -std::max((nSize + nUsual / 2) / nUsual, 1);
    }
    for (CFormatInfoOb* pRecord : { format.m_pText, format.m_pVariable, format.m_pConstant,
                                    format.m_pNumber, format.m_pFunction })
    {
        if (!look.strFace.empty())
            pRecord->m_strFontName = look.strFace.c_str();
    }
    formula.ReformatNodes();
    CScreenDC screen;
    formula.GetFormulaRect(&screen);
}

CPictureFile MakeSvg(CFormulaOut& formula, const CPictureOptions& options)
{
    const CPrepared prepared(formula, options, false);
    return { SvgBytes(prepared.drawing, prepared.placement, options, prepared.boxes),
             prepared.placement.Told() };
}

CPictureFile MakePdf(CFormulaOut& formula, const CPictureOptions& options)
{
    const CPrepared prepared(formula, options, true);
    return { PdfBytes(prepared.drawing, prepared.placement, options, prepared.boxes),
             prepared.placement.Told() };
}

CPictureFile MakePng(CFormulaOut& formula, const CPictureOptions& options)
{
    return MakeImage(formula, options, PngBytes);
}

CPictureFile MakeBmp(CFormulaOut& formula, const CPictureOptions& options)
{
    return MakeImage(formula, options, BmpBytes);
}

CPictureFile MakeMetafile(CFormulaOut& formula, const CPictureOptions& options)
{
    CPictureFile picture;
    picture.strBytes = MetafileBytes(formula.m_Tree, options.strSource);
    CScreenDC screen;
    const CSize size = formula.GetFormulaRect(&screen).Size();
    picture.size = { size.cx, size.cy };
    if (const CNode* pRoot = formula.m_Tree.GetRootNode())
    {
        const CTextLine line = TextLineOf(*pRoot);
        picture.size.fAxis = pRoot->m_nBaseline;
        picture.size.fDepth = size.cy - pRoot->m_nBaseline - line.nBelowAxis;
        picture.size.fEm = line.nEm;
    }
    return picture;
}

const CPictureFormat* FindPictureFormat(const std::string& strName)
{
    const auto lower = [](char ch)
    {
        return static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    };
    for (const CPictureFormat& format : PictureFormats())
    {
        if (std::equal(strName.begin(), strName.end(), format.pszName,
                       format.pszName + std::char_traits<char>::length(format.pszName),
                       [&](char a, char b) { return lower(a) == b; }))
            return &format;
    }
    return nullptr;
}

CPictureFile MakePicture(CFormulaOut& formula, const CPictureFormat& format,
                         const CPictureOptions& options)
{
    if (format.pfnMake == nullptr)
        throw CPictureFailure{ std::string(".") + format.pszName + ' ' + format.pszElsewhere };
    try
    {
        return format.pfnMake(formula, options);
    }
    catch (const std::bad_alloc&)
    {
        throw CPictureFailure{ "there is no memory for the picture", true };
    }
}

CPictureSize MeasurePicture(CFormulaOut& formula, const CPictureOptions& options)
{
    return CPrepared(formula, options, false).placement.Told();
}

void DrawPicture(CDC* pDC, CPoint corner, CFormulaOut& formula, const CPictureOptions& options)
{
    PaintOnHost(*pDC, corner, DrawingOf(formula, options), options.background);
}
