// Drawing on a host's cairo context.
#pragma once

#include "platform/gdi/linux/cairo/cairo_target.h"

// Keeps a reference to the context. Null if memory is short.
std::unique_ptr<CDrawTarget> MakeHostTarget(cairo_t* pCairo);

// True for targets without pixels of their own: PDF, SVG, PostScript, recordings.
bool IsVectorContext(cairo_t* pCairo);
