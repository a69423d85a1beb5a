// The device context of the whole screen, for measuring and as a reference.
#pragma once

#include "platform/gdi/dc.h"

class CScreenDC : public CDC
{
public:
    CScreenDC() { Attach(GetDC(nullptr)); }
    ~CScreenDC() override { ReleaseDC(nullptr, Detach()); }
};
