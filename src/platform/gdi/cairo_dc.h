// A device context over a host's own cairo context: a window of a toolkit, a page of a PDF
// writer, an image of any format.
#pragma once

#include <cairo.h>

#include "platform/gdi/dc.h"

//   CCairoDC dc(pCairo, 96, 96);
//   formula.DrawTree(&dc, CRect(20, 20, 0, 0));
//
// - Device units are the context's user units as its matrix stands when something is drawn: a
//   host scales, turns and shifts the picture through its own context. Lengths in points become
//   units by the resolution; for a page that is measured in points it is 72.
// - The host's state (colour, path, clip, font, operator, line) is as before after each call.
//   Its clip holds while drawing.
// - A context in an error state draws nothing, and drawing operations answer FALSE.
class CCairoDC : public CDC
{
    DECLARE_DYNAMIC(CCairoDC)

public:
    // Keeps a reference to the context. Null leaves the object without a device context.
    // Resolutions are dots (user units) an inch; 96 stands in for what is not positive.
    explicit CCairoDC(cairo_t* pCairo, int nDpiX = 96, int nDpiY = 96);
};
