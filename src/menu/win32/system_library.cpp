// Msimg32.dll and UxTheme.dll on demand.
#include "menu/win32/system_library.h"

namespace
{
class CSystemLibrary
{
public:
    explicit CSystemLibrary(LPCSTR pszName)
        : m_hModule(::LoadLibraryExA(pszName, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32))
    {
    }
    ~CSystemLibrary()
    {
        if (m_hModule != nullptr)
            ::FreeLibrary(m_hModule);
    }
    CSystemLibrary(const CSystemLibrary&) = delete;
    CSystemLibrary& operator=(const CSystemLibrary&) = delete;

    template <class F>
    void Find(LPCSTR pszName, F*& pfn) const
    {
        pfn = m_hModule != nullptr ? reinterpret_cast<F*>(reinterpret_cast<void*>(
                                         ::GetProcAddress(m_hModule, pszName)))
                                   : nullptr;
    }

private:
    HMODULE m_hModule;
};

struct CMsimg32 : CSystemLibrary
{
    CMsimg32() : CSystemLibrary("msimg32.dll") { Find("GradientFill", pfnGradientFill); }

    BOOL(WINAPI* pfnGradientFill)(HDC, TRIVERTEX*, ULONG, void*, ULONG, ULONG);
};

struct CUxTheme : CSystemLibrary
{
    CUxTheme() : CSystemLibrary("uxtheme.dll")
    {
        Find("IsThemeActive", pfnIsThemeActive);
        Find("IsAppThemed", pfnIsAppThemed);
        Find("OpenThemeData", pfnOpenThemeData);
        Find("CloseThemeData", pfnCloseThemeData);
        Find("GetThemeColor", pfnGetThemeColor);
    }
    bool IsActive() const
    {
        return pfnIsThemeActive != nullptr && pfnIsAppThemed != nullptr && pfnIsThemeActive() &&
               pfnIsAppThemed();
    }

    BOOL(WINAPI* pfnIsThemeActive)();
    BOOL(WINAPI* pfnIsAppThemed)();
    HANDLE(WINAPI* pfnOpenThemeData)(HWND, LPCWSTR);
    HRESULT(WINAPI* pfnCloseThemeData)(HANDLE);
    HRESULT(WINAPI* pfnGetThemeColor)(HANDLE, int, int, int, COLORREF*);
};

TRIVERTEX Vertex(LONG x, LONG y, COLORREF colour)
{
    const auto wide = [](BYTE n)
    {
        return static_cast<COLOR16>(n << 8);
    };
    return { x, y, wide(GetRValue(colour)), wide(GetGValue(colour)), wide(GetBValue(colour)), 0 };
}
}  // namespace

BOOL FillGradientBySystem(HDC hDC, const RECT& rect, COLORREF first, COLORREF last, bool bVertical)
{
    static const CMsimg32 s_library;
    if (s_library.pfnGradientFill == nullptr)
        return FALSE;
    TRIVERTEX aVertices[] = { Vertex(rect.left, rect.top, first),
                              Vertex(rect.right, rect.bottom, last) };
    GRADIENT_RECT corners = { 0, 1 };
    return s_library.pfnGradientFill(hDC, aVertices, 2, &corners, 1,
                                     bVertical ? GRADIENT_FILL_RECT_V : GRADIENT_FILL_RECT_H);
}

bool ReadVisualTheme(COLORREF* pColour)
{
    constexpr int nCaption = 1;
    constexpr int nActive = 1;
    constexpr int nFillColourHint = 3821;
    static const CUxTheme s_library;
    if (!s_library.IsActive())
        return false;
    // Themes that name no colour have that of gradients of captions.
    *pColour = ::GetSysColor(COLOR_GRADIENTACTIVECAPTION);
    if (s_library.pfnOpenThemeData == nullptr || s_library.pfnCloseThemeData == nullptr ||
        s_library.pfnGetThemeColor == nullptr)
        return true;
    if (const HANDLE hTheme = s_library.pfnOpenThemeData(nullptr, L"Window"))
    {
        COLORREF colour = 0;
        if (s_library.pfnGetThemeColor(hTheme, nCaption, nActive, nFillColourHint, &colour) == S_OK)
            *pColour = colour;
        s_library.pfnCloseThemeData(hTheme);
    }
    return true;
}
