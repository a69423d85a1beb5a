// Sizes straight from the font cache; the rest is the drawing interface as it stands.
#include "platform/gdi/native_gdi.h"

#include "platform/base/system.h"
#include "platform/gdi/linux/context/device_context.h"
#include "platform/gdi/linux/fonts/font_cache.h"
#include "platform/gdi/linux/fonts/font_face.h"

#include <cerrno>

HFONT CreateFaceFont(const LOGFONTA* pFont)
{
    return CreateFontIndirectA(pFont);
}

bool QuickTextExtent(HDC hDC, const LOGFONTA& font, LPCSTR pszText, int nCount, SIZE* pSize)
{
    if (!hDC || hDC->Type() == OBJ_ENHMETADC)
        return false;
    const CMapping& mapping = hDC->Mapping();
    const CRealizedFont& realized =
        CFontCache::Find(FindFontFace(font), mapping.ToDeviceFontLength(font.lfHeight),
                         mapping.ToDeviceFontLength(font.lfWidth));
    const std::span<const BYTE> text(reinterpret_cast<const BYTE*>(pszText),
                                     static_cast<std::size_t>(nCount));
    *pSize = { nCount == 0 ? 0 : mapping.ToLogicalWidth(realized.TextWidth(text)),
               mapping.ToLogicalHeight(realized.Height()) };
    return true;
}

int DrawLetters(HDC hDC, LPCSTR pszText, int nCount, RECT* pRect, UINT nFormat)
{
    return DrawTextA(hDC, pszText, nCount, pRect, nFormat);
}

bool CanDrawLetters(HDC)
{
    return true;
}

bool IsLastErrorOfMemory()
{
    return GetLastError() == ENOMEM;
}

std::vector<BYTE> EnhMetaFileBytes(HENHMETAFILE hMetaFile)
{
    std::vector<BYTE> bytes(GetEnhMetaFileBits(hMetaFile, 0, nullptr));
    GetEnhMetaFileBits(hMetaFile, static_cast<UINT>(bytes.size()), bytes.data());
    return bytes;
}

BOOL SaveEnhMetaFile(HENHMETAFILE hMetaFile, LPCSTR pszFile)
{
    const HENHMETAFILE hCopy = CopyEnhMetaFileA(hMetaFile, pszFile);
    return DeleteEnhMetaFile(hCopy);
}

HENHMETAFILE MakeEnhMetaFile(std::span<const BYTE> bytes)
{
    return SetEnhMetaFileBits(static_cast<UINT>(bytes.size()), bytes.data());
}

HENHMETAFILE LoadEnhMetaFile(LPCSTR pszFile)
{
    return GetEnhMetaFileA(pszFile);
}
