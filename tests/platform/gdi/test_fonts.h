// Fonts for tests, by face and height.
#pragma once

#include "platform/gdi/native_gdi.h"

#include <cstring>

inline LOGFONTA FontOf(const char* pszFace, int nHeight, int nWidth = 0, int nWeight = 400,
                       bool bItalic = false)
{
    LOGFONTA font{};
    font.lfHeight = nHeight;
    font.lfWidth = nWidth;
    font.lfWeight = nWeight;
    font.lfItalic = bItalic;
    std::strncpy(font.lfFaceName, pszFace, LF_FACESIZE - 1);
    return font;
}

// A new font in a device context, as long as it lives.
class CUseFont
{
public:
    CUseFont(HDC hDC, const LOGFONTA& font)
        : m_hDC(hDC), m_hFont(CreateFaceFont(&font)), m_hOld(SelectObject(hDC, m_hFont))
    {
    }
    ~CUseFont()
    {
        SelectObject(m_hDC, m_hOld);
        DeleteObject(m_hFont);
    }
    CUseFont(const CUseFont&) = delete;
    CUseFont& operator=(const CUseFont&) = delete;

private:
    HDC m_hDC;
    HFONT m_hFont;
    HGDIOBJ m_hOld;
};

// As the layout measures formulas in hundredths of an inch.
inline void SetHundredths(HDC hDC, int nDpi = 96, int nYSign = -1)
{
    SetMapMode(hDC, MM_ANISOTROPIC);
    SetWindowExtEx(hDC, 100, 100 * nYSign, nullptr);
    SetViewportExtEx(hDC, nDpi, nDpi, nullptr);
}
