// Where a drawing stands in a picture: from pixels of the screen to those of the picture.
#pragma once

#include "picture/drawing.h"
#include "picture/picture.h"

class CNode;

// Where letters stand beside the axis of a formula, by the font of its text (the root's): a row of
// letters has its axis in the middle of the line's height and its text line on the font's base
// line, which is ascent - height / 2 below it.
struct CTextLine
{
    int nBelowAxis;  // pixels of the screen
    int nEm;
};
CTextLine TextLineOf(const CNode& root);

struct CInkBox
{
    double fLeft;
    double fTop;
    double fRight;
    double fBottom;
};

// What lies behind a formula that is not transparent.
COLORREF BackgroundOf(const CPictureOptions& options);

class CPlacement
{
public:
    // Throws CPictureFailure for what no picture could hold.
    CPlacement(const CDrawing& drawing, const CPictureOptions& options, CTextLine line);

    double Scale() const { return m_fScale; }
    CPoint Origin() const { return m_origin; }  // of the formula's corner
    const CSize& Size() const { return m_size; }
    CPictureSize Told() const;
    // Throws CPictureFailure if a side is longer than so many pixels.
    void CheckSides(int nMost) const;

    double X(double x) const { return m_origin.x + x * m_fScale; }
    double Y(double y) const { return m_origin.y + y * m_fScale; }
    double Pen() const { return m_fScale; }  // width of a line that is not along an axis

    // On whole pixels, so that edges are sharp.
    CRect Place(const CRect& rect) const;
    // A line along an axis as a rectangle of whole pixels.
    CRect PlaceBar(const CDrawnLine& line) const;

    // More room on each side, or less.
    void Grow(int nLeft, int nTop, int nRight, int nBottom);

private:
    CInkBox InkOf(const CDrawing& drawing) const;
    void Include(CInkBox& box, const CDrawnText& text, const CDrawing& drawing) const;

    double m_fScale;
    CPoint m_origin;
    CSize m_size;
    double m_fAxis;  // pixels of the picture from the formula's corner
    double m_fTextLine;
    double m_fEm;
};
