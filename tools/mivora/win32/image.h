// A picture in memory that the system's drawing calls and plain arithmetic both write to.
#pragma once

#include <string>

#include "node_boxes.h"
#include "platform/gdi/dc.h"

class CImage
{
public:
    // White. Throws CFailure; strPath is for its text only.
    CImage(const CSize& size, const std::string& strPath);
    ~CImage();
    CImage(const CImage&) = delete;
    CImage& operator=(const CImage&) = delete;

    CDC& DC() { return m_dc; }
    const CSize& Size() const { return m_size; }
    // Rows from the top down without gaps; a pixel is blue, green, red and anything.
    const unsigned char* Pixels() const { return m_pPixels; }
    size_t Stride() const { return static_cast<size_t>(m_size.cx) * 4; }

    // A rectangle with sides anywhere between the pixels.
    void Blend(double fLeft, double fTop, double fRight, double fBottom, const CBoxColour& colour);

private:
    void BlendPixel(int x, int y, double fOpacity, const CBoxColour& colour);

    CSize m_size;
    CDC m_dc;
    CBitmap m_bitmap;
    CBitmap* m_pOld = nullptr;
    unsigned char* m_pPixels = nullptr;
};
