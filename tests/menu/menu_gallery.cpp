// Pictures of menus for the page about them: menu_gallery.exe FOLDER opens a menu with a submenu in
// each style and writes what its windows show to FOLDER/style-N.ppm.
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "menu/win32/menu_icons.h"
#include "menu/win32/menu_theme.h"
#include "menu/win32/new_frame.h"
#include "menu/win32/windows_system.h"
#include "platform/gdi/memory_picture.h"
#include "platform/win/desk.h"

namespace
{
constexpr UINT s_nNew = 700;
constexpr UINT s_nOpen = 701;
constexpr UINT s_nGrid = 702;
constexpr UINT s_nSave = 703;
constexpr CSize PICTURE(300, 190);
constexpr CPoint CORNER(100, 100);  // of the menu, and of the picture less a margin
constexpr int s_nMargin = 6;

void WritePicture(const CMemoryPicture& picture, const std::string& path)
{
    std::ofstream file(path, std::ios::binary);
    file << "P6 " << picture.Width() << ' ' << picture.Height() << " 255\n";
    for (const COLORREF colour : picture.Colours())
    {
        for (const BYTE nPart : { GetRValue(colour), GetGValue(colour), GetBValue(colour) })
            file.put(static_cast<char>(nPart));
    }
}

// The windows of menus, from the front.
std::vector<HWND> OpenMenus()
{
    std::vector<HWND> windows;
    for (HWND hWnd = nullptr; (hWnd = ::FindWindowExA(nullptr, hWnd, "#32768", nullptr));)
    {
        if (::IsWindowVisible(hWnd))
            windows.push_back(hWnd);
    }
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
        WritePicture(picture, m_path);
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
        stage.m_path = std::string(argv[1]) + "/style-" + std::to_string(nStyle) + ".ppm";
        PumpFor(300);  // shadows are drawn over what the screen shows
        menu.TrackPopupMenu(0, CORNER.x, CORNER.y, &stage);
    }
    stage.DestroyWindow();
    return 0;
}
