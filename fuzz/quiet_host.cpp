// A host for fuzzers: message boxes are taken and dropped.
#include "quiet_host.h"

#include "platform/base/app.h"

void BeQuiet()
{
    static const bool s_bQuiet = []
    {
        AfxSetMessageBoxHandler([](const char*, unsigned, void*) { return 1; }, nullptr);
        return true;
    }();
    (void)s_bQuiet;
}
