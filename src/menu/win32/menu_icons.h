// Icons of commands: image lists that menus share.
#pragma once

#include <memory>
#include <vector>

#include "menu/icon_images.h"
#include "platform/gdi/dc.h"

struct _IMAGELIST;

// Three images for each command, one beside the other: as it is, darkened, disabled. A list lives
// as long as an item points to it.
class CNewMenuIcons : public CObject
{
    DECLARE_DYNAMIC(CNewMenuIcons)

public:
    ~CNewMenuIcons() override;

    // For a toolbar of the resources: the list that is there for it, or a new one. Null if there is
    // no such toolbar, or no bitmap for it.
    static std::shared_ptr<CNewMenuIcons> FromToolBar(HINSTANCE hInstance, LPCSTR pszName);

    // Of the command's first image; -1 if it has none.
    int FindIndex(UINT nID) const;
    CSize GetIconSize() const;
    int GetImageCount() const;
    void Draw(CDC* pDC, int nImage, CPoint at) const;
    // In one colour: what of the image is not white.
    void DrawMono(CDC* pDC, int nImage, CPoint at, COLORREF colour) const;

    // Makes the images again if they are not what the settings ask for now.
    virtual void CheckState();
    // Of all lists, but not again within two seconds.
    static void CheckAllStates();

protected:
    CNewMenuIcons();
    BOOL LoadToolBar(HINSTANCE hInstance, LPCSTR pszName);
    void Add(UINT nID, const CIconImage& image, COLORREF mask);

private:
    struct CEntry
    {
        UINT nID;
        COLORREF mask;
        CIconImage image;
    };
    void MakeImages();

    _IMAGELIST* m_hImages = nullptr;
    std::vector<CEntry> m_entries;
    int m_nDarkening = -1;  // that the images were made with
    HINSTANCE m_hInstance = nullptr;
    LPCSTR m_pszName = nullptr;  // a number: of a list that may be shared
};

// The same, fed from single bitmaps.
class CNewMenuBitmaps : public CNewMenuIcons
{
    DECLARE_DYNAMIC(CNewMenuBitmaps)

public:
    CNewMenuBitmaps() = default;
    // FALSE if the bitmap cannot be read, or is not as large as those before.
    BOOL AddBitmap(UINT nID, HBITMAP hBitmap, COLORREF mask);
};
