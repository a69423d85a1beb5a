// Host programs expect an application object in the library.
#include "service/app.h"

BEGIN_MESSAGE_MAP(CMivoraApp, CWinApp)
END_MESSAGE_MAP()

CMivoraApp::CMivoraApp() : CWinApp(nullptr) {}

CMivoraApp theApp;
