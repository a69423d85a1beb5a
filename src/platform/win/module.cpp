// Modules, and the window classes in them.
#include "platform/win/module.h"

#include "platform/base/cstring.h"
#include "platform/base/exception.h"

#include <cstdio>
#include <vector>

namespace
{
std::vector<HINSTANCE>& FurtherModules()
{
    static auto& s_modules = *new std::vector<HINSTANCE>;
    return s_modules;
}
}  // namespace

HINSTANCE AfxGetInstanceHandle()
{
    static const HINSTANCE s_hInstance = []
    {
        HMODULE hModule = nullptr;
        ::GetModuleHandleExA(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<LPCSTR>(&AfxGetInstanceHandle), &hModule);
        return hModule;
    }();
    return s_hInstance;
}

HINSTANCE AfxGetResourceHandle()
{
    return ::GetModuleHandleA(nullptr);
}

void AfxAddResourceModule(HINSTANCE hInstance)
{
    FurtherModules().push_back(hInstance);
}

HINSTANCE AfxFindResourceHandle(LPCSTR pszName, LPCSTR pszType)
{
    const auto has = [=](HINSTANCE h)
    {
        return ::FindResourceA(h, pszName, pszType) != nullptr;
    };
    if (has(AfxGetResourceHandle()))
        return AfxGetResourceHandle();
    for (const HINSTANCE hModule : FurtherModules())
    {
        if (has(hModule))
            return hModule;
    }
    return has(AfxGetInstanceHandle()) ? AfxGetInstanceHandle() : AfxGetResourceHandle();
}

BOOL AfxRegisterClass(const WNDCLASSA* pClass)
{
    WNDCLASSA known;
    return ::GetClassInfoA(pClass->hInstance, pClass->lpszClassName, &known) ||
           ::RegisterClassA(pClass) != 0;
}

LPCSTR AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor, HBRUSH hBackground, HICON hIcon)
{
    char szName[96];
    std::snprintf(szName, sizeof szName, "Mivora:%x:%p:%p:%p", nClassStyle,
                  static_cast<const void*>(hCursor), static_cast<const void*>(hBackground),
                  static_cast<const void*>(hIcon));
    const CString strName = CString::Immortal(szName);
    WNDCLASSA windowClass = {};
    windowClass.style = nClassStyle;
    windowClass.lpfnWndProc = ::DefWindowProcA;
    windowClass.hInstance = AfxGetInstanceHandle();
    windowClass.hIcon = hIcon;
    windowClass.hCursor = hCursor;
    windowClass.hbrBackground = hBackground;
    windowClass.lpszClassName = strName;
    if (!AfxRegisterClass(&windowClass))
        AfxThrowResourceException();
    return strName;
}
