// The size of a text straight from the font cache.
#include "platform/gdi/quick_extent.h"

#include "platform/gdi/linux/device_context.h"
#include "platform/gdi/linux/font_cache.h"
#include "platform/gdi/linux/font_face.h"

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
