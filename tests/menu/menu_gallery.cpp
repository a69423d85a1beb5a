// Pictures of menus for the page about them: menu_gallery.exe FOLDER opens a menu with a submenu in
// each style and writes what its windows show to FOLDER/style-N.bmp.
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "menu/win32/menu_icons.h"
#include "menu/win32/menu_theme.h"
#include "menu/win32/new_frame.h"
#include "menu/win32/windows_system.h"
#include "platform/gdi/memory_picture.h"

namespace
{
constexpr UINT s_nNew = 700;
constexpr UINT s_nOpen = 701;
constexpr UINT s_nGrid = 702;
constexpr UINT s_nSave = 703;
constexpr CSize PICTURE(300, 190);
constexpr CPoint CORNER(100, 100);  // of the menu, and of the picture less a margin
constexpr int s_nMargin = 6;

void WriteBitmap(const CMemoryPicture& picture, const std::string& path)
{
    const DWORD nBits = static_cast<DWORD>(picture.Width() * picture.Height()) * 4;
    BITMAPINFOHEADER info = {};
    info.biSize = sizeof info;
    info.biWidth = picture.Width();
    info.biHeight = -picture.Height();
    info.biPlanes = 1;
    info.biBitCount = 32;
    std::vector<DWORD> bits(nBits / 4);
    ::GetDIBits(picture, picture.Bitmap(), 0, static_cast<UINT>(picture.Height()), bits.data(),
                reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS);
    BITMAPFILEHEADER head = {};
    head.bfType = 0x4D42;
    head.bfOffBits = sizeof head + sizeof info;
    head.bfSize = head.bfOffBits + nBits;
    if (std::FILE* pFile = std::fopen(path.c_str(), "wb"))
    {
        std::fwrite(&head, sizeof head, 1, pFile);
        std::fwrite(&info, sizeof info, 1, pFile);
        std::fwrite(bits.data(), nBits, 1, pFile);
        std::fclose(pFile);
    }
}

BOOL CALLBACK AddMenuWindow(HWND hWnd, LPARAM lParam)
{
    char szClass[16] = "";
    ::GetClassNameA(hWnd, szClass, sizeof szClass);
    if (std::string(szClass) == "#32768" && ::IsWindowVisible(hWnd))
        reinterpret_cast<std::vector<HWND>*>(lParam)->push_back(hWnd);
    return TRUE;
}

// The windows of menus, from the front.
std::vector<HWND> OpenMenus()
{
    std::vector<HWND> windows;
    ::EnumWindows(AddMenuWindow, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

class CStage : public CNewFrameWnd
{
public:
    std::string m_path;

protected:
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override
    {
        if (nMessage == WM_INITMENUPOPUP && OpenMenus().empty())
        {
            for (const WPARAM nKey : { VK_UP, VK_RIGHT })
                ::PostMessageA(m_hWnd, WM_KEYDOWN, nKey, 0);
        }
        if (nMessage == WM_ENTERIDLE && OpenMenus().size() > 1)
        {
            TakePicture();
            ::EndMenu();
        }
        return CNewFrameWnd::WindowProc(nMessage, wParam, lParam);
    }
    void PostNcDestroy() override {}

private:
    void TakePicture() const
    {
        CMemoryPicture picture(PICTURE.cx, PICTURE.cy);
        const std::vector<HWND> windows = OpenMenus();
        for (auto hWnd = windows.rbegin(); hWnd != windows.rend(); ++hWnd)
        {
            CRect rect;
            ::GetWindowRect(*hWnd, &rect);
            rect.OffsetRect(s_nMargin - CORNER.x, s_nMargin - CORNER.y);
            const HDC hDC = ::GetWindowDC(*hWnd);
            ::BitBlt(picture, rect.left, rect.top, rect.Width(), rect.Height(), hDC, 0, 0, SRCCOPY);
            ::ReleaseDC(*hWnd, hDC);
        }
        WriteBitmap(picture, m_path);
    }
};

std::shared_ptr<CNewMenuBitmaps> Icons()
{
    const auto pIcons = std::make_shared<CNewMenuBitmaps>();
    const struct
    {
        UINT nID;
        COLORREF paper;
        COLORREF mark;
    } aIcons[] = { { s_nNew, RGB(255, 255, 255), RGB(0, 0, 160) },
                   { s_nOpen, RGB(250, 210, 90), RGB(150, 100, 0) },
                   { s_nSave, RGB(90, 130, 220), RGB(20, 40, 110) } };
    for (const auto& icon : aIcons)
    {
        CMemoryPicture picture(16, 15);
        CDC* pDC = CDC::FromHandle(picture);
        pDC->FillSolidRect(0, 0, 16, 15, RGB(192, 192, 192));
        pDC->FillSolidRect(2, 1, 12, 13, icon.mark);
        pDC->FillSolidRect(3, 2, 10, 11, icon.paper);
        for (int y = 5; y < 12; y += 3)
            pDC->FillSolidRect(5, y, 6, 1, icon.mark);
        pIcons->AddBitmap(icon.nID, picture.Bitmap(), RGB(192, 192, 192));
    }
    return pIcons;
}

void Fill(CNewMenu& menu)
{
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, s_nNew, "&New\tCtrl+N");
    menu.AppendMenu(MF_STRING, s_nOpen, "&Open...\tCtrl+O");
    menu.AppendMenu(MF_STRING | MF_CHECKED, s_nGrid, "&Grid");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING | MF_GRAYED, s_nSave, "&Save\tCtrl+S");
    CMenu sub;
    sub.CreatePopupMenu();
    sub.AppendMenu(MF_STRING, s_nOpen, "A &metafile");
    sub.AppendMenu(MF_STRING, 704, "A &picture");
    menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(sub.Detach()), "&Export");
    menu.SetDefaultItem(s_nNew);
    menu.InsertTitle(0, L"Formula", TITLE_GRADIENT);
    menu.SetIcons(Icons());
}
// Until the screen shows what has been painted: shadows are drawn over it.
void Rest()
{
    const DWORD nBegin = ::GetTickCount();
    while (::GetTickCount() - nBegin < 300)
    {
        MSG message;
        while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            ::DispatchMessageA(&message);
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    }
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    CMenuSystem system = ReadMenuSystem();
    system.m_bWine = false;
    SetMenuSystem(&system);
    CStage stage;
    stage.Create(nullptr, "stage", WS_POPUP | WS_VISIBLE, CRect(80, 80, 600, 500));
    stage.m_bAutoMenuEnable = FALSE;
    ::SetCursorPos(10, 10);
    for (DWORD nStyle = 0; nStyle < 12; ++nStyle)
    {
        CNewMenu::SetStyle(nStyle);
        CNewMenu menu;
        Fill(menu);
        stage.m_path = std::string(argv[1]) + "/style-" + std::to_string(nStyle) + ".bmp";
        Rest();
        menu.TrackPopupMenu(0, CORNER.x, CORNER.y, &stage);
    }
    stage.DestroyWindow();
    return 0;
}
