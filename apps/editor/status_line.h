// The line at the bottom of the main window: a sunken box for each text. The boxes are children of
// the frame, whose update handlers say what stands in them.
#pragma once

#include <mivora/platform/win/window.h>

class CStatusLine
{
public:
    // pFont is not owned: it must live as long as the boxes.
    bool Create(CWnd* pFrame, CFont* pFont);
    // Pixels.
    int Height() const { return m_nHeight; }
    void Place(const CRect& rect);

private:
    static constexpr int PANES = 4;
    CWnd m_aPanes[PANES];
    int m_nHeight = 0;
};
