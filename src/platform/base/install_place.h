// Where fonts and modules of the library are looked for, should they not lie beside it.
#pragma once

extern "C"
{
    // The folder that has share/mivora/fonts in it (UTF-8 on Windows), before anything is drawn or
    // stored. It comes ahead of the environment variable MIVORA_PREFIX, this ahead of the place
    // where the library itself lies, and last what the host was compiled with. Null takes it back.
    void AfxSetInstallPrefix(const char* pszFolder);

    // What the host was compiled with.
    void AfxSetBuiltInstallPrefix(const char* pszFolder);
}

#ifdef MIVORA_PREFIX
// A host that has the static library inside may lie anywhere, so that its build tells the place.
inline const bool g_bInstallPrefixIsBuilt = (AfxSetBuiltInstallPrefix(MIVORA_PREFIX), true);
#endif
