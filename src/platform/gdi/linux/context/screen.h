// The virtual screen: its device contexts and the colours of the system.
#pragma once

#include "platform/gdi/linux/context/device_context.h"

// A device context of the screen in its first state; goes back by ReleaseScreenDC.
CDeviceContext* GetScreenDC();
// False for one that is not the screen's.
bool ReleaseScreenDC(CDeviceContext* pDC);

// 0 (black) for an index that has no colour.
COLORREF SystemColour(int nIndex);
// A permanent brush of that colour; null for an index that has none.
CBrushObject* SystemBrush(int nIndex);
