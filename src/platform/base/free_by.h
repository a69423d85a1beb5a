// An owner for what a library of C hands out, by the function that takes it back:
//
//   using CSurfacePtr = std::unique_ptr<cairo_surface_t, CFreeBy<cairo_surface_destroy>>;
#pragma once

template <auto Free>
struct CFreeBy
{
    template <class T>
    void operator()(T* pHandle) const
    {
        Free(pHandle);
    }
};
