// Fonts and other objects in use, and the mapping of the layout.
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

// Selects an object of its own and deletes it at the end.
class CUseObject
{
public:
    CUseObject(HDC hDC, HGDIOBJ hObject)
        : m_hDC(hDC), m_hObject(hObject), m_hOld(SelectObject(hDC, hObject))
    {
    }
    ~CUseObject()
    {
        SelectObject(m_hDC, m_hOld);
        DeleteObject(m_hObject);
    }
    CUseObject(const CUseObject&) = delete;
    CUseObject& operator=(const CUseObject&) = delete;

private:
    HDC m_hDC;
    HGDIOBJ m_hObject;
    HGDIOBJ m_hOld;
};

// Likewise a new font.
class CUseFont : public CUseObject
{
public:
    CUseFont(HDC hDC, const LOGFONTA& font) : CUseObject(hDC, CreateFaceFont(&font)) {}
};

// As the layout measures formulas in hundredths of an inch.
inline void SetHundredths(HDC hDC, int nDpi = 96, int nYSign = -1)
{
    SetMapMode(hDC, MM_ANISOTROPIC);
    SetWindowExtEx(hDC, 100, 100 * nYSign, nullptr);
    SetViewportExtEx(hDC, nDpi, nDpi, nullptr);
}
