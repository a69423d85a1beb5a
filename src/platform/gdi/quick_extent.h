// The size of a text without making and selecting its font, where nobody could notice that.
#pragma once

#include "platform/gdi/gdi.h"

// font is in logical units; no characters have the font's height. False, and nothing written, on a
// device context that records what is selected: there the font must be made.
bool QuickTextExtent(HDC hDC, const LOGFONTA& font, LPCSTR pszText, int nCount, SIZE* pSize);
