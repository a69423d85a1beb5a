// A cairo context that a host brings, on an image.
#pragma once

#include "platform/gdi/linux/bitmaps/cairo_handles.h"
#include "platform/gdi/memory_picture.h"

// A white image with a context of the host's.
struct CHost
{
    static constexpr int SIZE_PIXELS = 16;

    explicit CHost(int nSize = SIZE_PIXELS)
        : m_nSize(nSize),
          m_pSurface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, nSize, nSize)),
          m_pCairo(cairo_create(m_pSurface.get()))
    {
        cairo_set_source_rgb(m_pCairo.get(), 1, 1, 1);
        cairo_paint(m_pCairo.get());
    }
    operator cairo_t*() const { return m_pCairo.get(); }
    std::vector<COLORREF> Colours() const
    {
        cairo_surface_flush(m_pSurface.get());
        std::vector<COLORREF> colours;
        for (int i = 0; i < m_nSize * m_nSize; ++i)
        {
            const unsigned char* p = cairo_image_surface_get_data(m_pSurface.get()) + 4 * i;
            colours.push_back(RGB(p[2], p[1], p[0]));
        }
        return colours;
    }
    CLines Lines() const { return CMemoryPicture::LinesOf(Colours(), m_nSize); }

    int m_nSize;
    CSurfacePtr m_pSurface;
    CCairoPtr m_pCairo;
};
