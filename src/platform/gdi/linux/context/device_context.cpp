// Selection, saved states and the place of texts.
#include "platform/gdi/linux/context/device_context.h"

#include "platform/base/rounding.h"
#include "platform/gdi/linux/fonts/font_cache.h"

#include <utility>

HDC__::HDC__(UINT nType, const CDeviceInfo& device, std::unique_ptr<CDrawTarget> pTarget)
    : m_nType(nType), m_device(device), m_pTarget(std::move(pTarget))
{
    Reset();
    if (m_nType == OBJ_MEMDC)
    {
        m_pBitmap = &DefaultBitmap();
        m_pBitmap->AddSelection();
    }
}

HDC__::~HDC__()
{
    m_pTarget.reset();
    for (const CDrawState& state : m_saved)
        ReleaseObjects(state);
    ReleaseObjects(m_state);
    if (m_pBitmap)
        m_pBitmap->RemoveSelection();
}

void HDC__::Reset()
{
    for (const CDrawState& state : m_saved)
        ReleaseObjects(state);
    m_saved.clear();
    if (m_state.m_pFont)
        ReleaseObjects(m_state);
    m_state = CDrawState();
    m_state.m_pFont = static_cast<CFontObject*>(StockObject(SYSTEM_FONT));
    m_state.m_pPen = static_cast<CPenObject*>(StockObject(BLACK_PEN));
    m_state.m_pBrush = static_cast<CBrushObject*>(StockObject(WHITE_BRUSH));
    HoldObjects(m_state);
    m_pRealized = nullptr;
}

void HDC__::HoldObjects(const CDrawState& state)
{
    state.m_pFont->AddSelection();
    state.m_pPen->AddSelection();
    state.m_pBrush->AddSelection();
}

void HDC__::ReleaseObjects(const CDrawState& state)
{
    state.m_pFont->RemoveSelection();
    state.m_pPen->RemoveSelection();
    state.m_pBrush->RemoveSelection();
}

namespace
{

// Takes the new object before the old one is let go: they may be the same.
template <class T>
T* Exchange(T*& pSelected, CHandleObject& object)
{
    object.AddSelection();
    return std::exchange(pSelected, static_cast<T*>(&object));
}

}  // namespace

CHandleObject* HDC__::Select(CHandleObject& object)
{
    CHandleObject* pOld = nullptr;
    switch (object.Type())
    {
        case OBJ_FONT:
            pOld = Exchange(m_state.m_pFont, object);
            m_pRealized = nullptr;
            break;
        case OBJ_PEN:
            pOld = Exchange(m_state.m_pPen, object);
            break;
        case OBJ_BRUSH:
            pOld = Exchange(m_state.m_pBrush, object);
            break;
        case OBJ_BITMAP:
            return SelectBitmap(object);
        default:
            return nullptr;
    }
    if (m_pTarget)
        m_pTarget->ObjectSelected(*this, object);
    pOld->RemoveSelection();
    return pOld;
}

CHandleObject* HDC__::SelectBitmap(CHandleObject& bitmap)
{
    if (m_nType != OBJ_MEMDC)
        return nullptr;
    if (&bitmap == m_pBitmap)
        return m_pBitmap;
    if (bitmap.SelectionCount() > 0 && !bitmap.IsPermanent())
        return nullptr;  // two contexts cannot draw on one bitmap
    std::unique_ptr<CDrawTarget> pTarget;
    if (&bitmap != &DefaultBitmap())
    {
        pTarget = MakeBitmapTarget(bitmap);
        if (!pTarget)
            return nullptr;
    }
    m_pTarget = std::move(pTarget);
    bitmap.AddSelection();
    CHandleObject* pOld = std::exchange(m_pBitmap, &bitmap);
    pOld->RemoveSelection();
    return pOld;
}

int HDC__::Save()
{
    m_saved.push_back(m_state);
    HoldObjects(m_state);
    if (m_pTarget)
        m_pTarget->StateSaved(*this);
    return static_cast<int>(m_saved.size());
}

bool HDC__::Restore(int nSaved)
{
    int nCount = static_cast<int>(m_saved.size());
    int nLevel = nSaved < 0 ? nCount + nSaved + 1 : nSaved;
    if (nSaved == 0 || nLevel < 1 || nLevel > nCount)
        return false;
    if (m_pTarget)
        m_pTarget->StateRestored(*this, nSaved);
    ReleaseObjects(m_state);
    m_state = m_saved[nLevel - 1];
    for (int i = nLevel; i < nCount; ++i)
        ReleaseObjects(m_saved[i]);
    m_saved.resize(nLevel - 1);
    m_pRealized = nullptr;
    return true;
}

const CRealizedFont& HDC__::Font() const
{
    if (!m_pRealized || m_nFontGeneration != CFontCache::Generation())
    {
        const CMapping& mapping = m_state.m_mapping;
        const LOGFONTA& font = m_state.m_pFont->LogFont();
        m_pRealized =
            &CFontCache::Find(m_state.m_pFont->FaceId(), mapping.ToDeviceFontLength(font.lfHeight),
                              mapping.ToDeviceFontLength(font.lfWidth));
        m_nFontGeneration = CFontCache::Generation();
    }
    return *m_pRealized;
}

void HDC__::LogicalAdvances(const CTextRun& run, std::span<INT> out) const
{
    const CRealizedFont& font = Font();
    for (std::size_t i = 0; i < run.m_text.size(); ++i)
        out[i] = run.m_pDx ? run.m_pDx[i] : Mapping().ToLogicalWidth(font.Advance(run.m_text[i]));
}

int HDC__::TextWidth(const CTextRun& run) const
{
    if (!run.m_pDx)
        return Font().TextWidth(run.m_text);
    std::int64_t nSum = 0;
    for (std::size_t i = 0; i < run.m_text.size(); ++i)
        nSum += run.m_pDx[i];
    return Mapping().ToDeviceWidth(SaturateToInt(nSum));
}

POINT HDC__::TextOrigin(const CTextRun& run) const
{
    POINT point = Mapping().ToDevice(run.m_ptReference);
    if (m_state.m_nTextAlign == TA_TOP)
        point.y = SaturateToInt(std::int64_t{ point.y } + Font().Ascent());
    return point;
}
