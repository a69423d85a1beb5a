// A formula as a picture in any format, as bytes.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "picture/failure.h"
#include "platform/base/types.h"
#include "service/formula_out.h"

constexpr int SCREEN_DPI = 96;  // of which formulas are measured

// What callers may ask for.
constexpr int LEAST_DPI = 10;
constexpr int MOST_DPI = 2400;
constexpr int MOST_MARGIN = 10000;
constexpr int LEAST_POINTS = 4;
constexpr int MOST_POINTS = 400;
constexpr int LONGEST_FACE = LF_FACESIZE - 1;

// How a formula looks, before it is measured.
struct CFormulaLook
{
    int nPoints = 0;  // size of its text; the smaller and larger parts follow. 0: the default, 12
    std::string strFace;  // of letters, figures and names; empty: "Times New Roman"
};

// Puts a look on the nodes and the table of a formula that was formed; nothing for the default one.
void ApplyLook(CFormulaOut& formula, const CFormulaLook& look);

struct CPictureOptions
{
    int nDpi = SCREEN_DPI;
    int nMargin = 0;      // pixels on each side
    bool bExact = false;  // the formula's rectangle, whatever stands out of it
    bool bBoxes = false;  // rectangles and axes of the nodes over the picture
    // Not of what is grey or selected; without it, the colour of each node.
    std::optional<COLORREF> colour;
    bool bPageColour = false;            // the colour of the text around it
    std::optional<COLORREF> background;  // without it, the colour of a window
    bool bTransparent = false;           // no background
    // What travels inside, UTF-8; an empty one is left out.
    std::string strSource;
    std::string strTitle;
};

// How large a picture is, and how it stands in a line of text. Pixels of the picture.
struct CPictureSize
{
    int nWidth = 0;
    int nHeight = 0;
    double fAxis = 0;   // from the top to the axis, on which fraction bars stand
    double fDepth = 0;  // from the text line, on which letters stand, to the bottom
    double fEm = 16;    // size of the text
};

struct CPictureFile
{
    std::string strBytes;
    CPictureSize size;
};

struct CPictureFormat
{
    const char* pszName;  // its extension, without the point
    bool bLook;           // knows what CPictureOptions has but source and title
    bool bPageColour;     // is shown within a page, whose colour it can take
    // Null: another system has this format.
    CPictureFile (*pfnMake)(CFormulaOut& formula, const CPictureOptions& options);
    const char* pszElsewhere = nullptr;  // where that is: "is made on ..."
};

// The formats there are, in the order in which they are told.
std::span<const CPictureFormat> PictureFormats();
// Null if there is none of that name; the letters' case does not matter.
const CPictureFormat* FindPictureFormat(const std::string& strName);

// A picture of a formula that was formed, with its selection. Throws CPictureFailure.
CPictureFile MakePicture(CFormulaOut& formula, const CPictureFormat& format,
                         const CPictureOptions& options);

// How large MakePicture would make it in a format that has a look, by its outlines. Throws
// CPictureFailure.
CPictureSize MeasurePicture(CFormulaOut& formula, const CPictureOptions& options);

// The formula on any device context, its corner at a point, in logical units that stand for the
// pixels of the screen: colour and selection as in a picture, and nothing is filled but the
// background, where one is given. Throws CPictureFailure.
void DrawPicture(CDC* pDC, CPoint corner, CFormulaOut& formula, const CPictureOptions& options);
