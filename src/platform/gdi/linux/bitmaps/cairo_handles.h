// Owners for what cairo hands out: an object of one of these types gives its reference back
// when it goes.
#pragma once

#include <cairo.h>

#include <memory>

#include "platform/base/free_by.h"

using CCairoPtr = std::unique_ptr<cairo_t, CFreeBy<cairo_destroy>>;
using CSurfacePtr = std::unique_ptr<cairo_surface_t, CFreeBy<cairo_surface_destroy>>;
using CPatternPtr = std::unique_ptr<cairo_pattern_t, CFreeBy<cairo_pattern_destroy>>;
using CFontFacePtr = std::unique_ptr<cairo_font_face_t, CFreeBy<cairo_font_face_destroy>>;
using CScaledFontPtr = std::unique_ptr<cairo_scaled_font_t, CFreeBy<cairo_scaled_font_destroy>>;

// Saves the state of a context and puts it back at the end of the block.
class CCairoScope
{
public:
    explicit CCairoScope(cairo_t* pCairo) : m_pCairo(pCairo) { cairo_save(m_pCairo); }
    ~CCairoScope() { cairo_restore(m_pCairo); }
    CCairoScope(const CCairoScope&) = delete;
    CCairoScope& operator=(const CCairoScope&) = delete;

private:
    cairo_t* m_pCairo;  // not owned
};
