// The one application object of the library.
#pragma once

#include "platform/base/app.h"

class CMivoraApp : public CWinApp
{
    DECLARE_MESSAGE_MAP()

public:
    CMivoraApp();
};

extern CMivoraApp theApp;
