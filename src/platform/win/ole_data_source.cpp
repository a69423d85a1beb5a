// A source as the system sees it, and its way to the clipboard and into a drag.
#include "platform/win/ole_data_source.h"

#include "platform/base/global_memory.h"
#include "platform/base/win32/com_object.h"
#include "platform/win/ole_drop_source.h"
#include "platform/win/ole_init.h"
#include "platform/win/window.h"

#include <algorithm>
#include <vector>

IMPLEMENT_DYNAMIC(COleDataSource, CCmdTarget)

namespace
{
COleDataSource* s_pOnClipboard = nullptr;  // lives; another program may have taken its place

// Formats have no target device, so that whoever gets one has nothing to free.
class CFormatList final : public CComObject<IEnumFORMATETC>
{
public:
    explicit CFormatList(std::vector<FORMATETC> formats, size_t nNext = 0)
        : m_formats(std::move(formats)), m_nNext(nNext)
    {
    }

    STDMETHOD(Next)(ULONG nCount, FORMATETC* pFormats, ULONG* pnFetched) override
    {
        if (pnFetched != nullptr)
            *pnFetched = 0;
        if (pFormats == nullptr || (pnFetched == nullptr && nCount != 1))
            return E_INVALIDARG;
        const size_t nFirst = m_nNext;
        const ULONG nFetched = Advance(nCount);
        std::copy_n(m_formats.data() + nFirst, nFetched, pFormats);
        if (pnFetched != nullptr)
            *pnFetched = nFetched;
        return nFetched == nCount ? S_OK : S_FALSE;
    }
    STDMETHOD(Skip)(ULONG nCount) override { return Advance(nCount) == nCount ? S_OK : S_FALSE; }
    STDMETHOD(Reset)() override
    {
        m_nNext = 0;
        return S_OK;
    }
    STDMETHOD(Clone)(IEnumFORMATETC** ppClone) override
    {
        if (ppClone == nullptr)
            return E_POINTER;
        *ppClone = nullptr;
        return GuardMethod(
            [=, this]
            {
                *ppClone = new CFormatList(m_formats, m_nNext);
                return S_OK;
            });
    }

private:
    ULONG Advance(ULONG nCount)
    {
        const auto nAdvance =
            static_cast<ULONG>(std::min<size_t>(nCount, m_formats.size() - m_nNext));
        m_nNext += nAdvance;
        return nAdvance;
    }

    std::vector<FORMATETC> m_formats;
    size_t m_nNext;
};

// The pixel under the cursor.
CRect CursorPixel()
{
    CPoint point;
    GetCursorPos(&point);
    return CRect(point.x, point.y, point.x + 1, point.y + 1);
}

// The window of this thread that may have the mouse while a drag is about to begin.
CWnd* TrackingWindow()
{
    HWND hWnd = GetCapture();
    if (hWnd == nullptr)
        hWnd = GetFocus();
    return CWnd::FromHandle(hWnd != nullptr ? hWnd : GetActiveWindow());
}
}  // namespace

// ---- What the system sees ----

class COleDataSource::CContent final : public CComObject<IDataObject>
{
public:
    explicit CContent(COleDataSource* pSource) : m_pSource(pSource) {}

    void Put(const FORMATETC& format, CGlobalPtr memory);
    void OwnSource() { m_bOwnsSource = true; }
    void LoseSource();

    STDMETHOD(GetData)(FORMATETC* pFormat, STGMEDIUM* pMedium) override;
    STDMETHOD(GetDataHere)(FORMATETC* pFormat, STGMEDIUM* pMedium) override;
    STDMETHOD(QueryGetData)(FORMATETC* pFormat) override;
    STDMETHOD(GetCanonicalFormatEtc)(FORMATETC* pFormat, FORMATETC* pCanonical) override;
    STDMETHOD(SetData)(FORMATETC* pFormat, STGMEDIUM* pMedium, BOOL bRelease) override;
    STDMETHOD(EnumFormatEtc)(DWORD nDirection, IEnumFORMATETC** ppFormats) override;
    STDMETHOD(DAdvise)
    (FORMATETC* pFormat, DWORD nFlags, IAdviseSink* pSink, DWORD* pnConnection) override;
    STDMETHOD(DUnadvise)(DWORD nConnection) override;
    STDMETHOD(EnumDAdvise)(IEnumSTATDATA** ppConnections) override;

private:
    struct CEntry
    {
        FORMATETC format;
        CGlobalPtr memory;
    };

    ~CContent() override;
    HRESULT Find(const FORMATETC* pFormat, const CEntry** ppEntry) const;

    COleDataSource* m_pSource;  // null: its data are gone
    bool m_bOwnsSource = false;
    std::vector<CEntry> m_entries;
};

COleDataSource::CContent::~CContent()
{
    if (m_bOwnsSource)
        delete std::exchange(m_pSource, nullptr);
}

void COleDataSource::CContent::Put(const FORMATETC& format, CGlobalPtr memory)
{
    const auto found = std::ranges::find_if(m_entries,
                                            [&](const CEntry& entry)
                                            {
                                                return entry.format.cfFormat == format.cfFormat &&
                                                       entry.format.dwAspect == format.dwAspect &&
                                                       entry.format.lindex == format.lindex;
                                            });
    if (found != m_entries.end())
        found->memory = std::move(memory);
    else
        m_entries.push_back({ format, std::move(memory) });
}

void COleDataSource::CContent::LoseSource()
{
    m_pSource = nullptr;
    m_entries.clear();
}

// Tells by the code how far the wish agrees with what is there.
HRESULT COleDataSource::CContent::Find(const FORMATETC* pFormat, const CEntry** ppEntry) const
{
    if (pFormat == nullptr)
        return E_INVALIDARG;
    if (m_pSource == nullptr)
        return CO_E_OBJNOTCONNECTED;
    HRESULT nResult = DV_E_FORMATETC;
    for (const CEntry& entry : m_entries)
    {
        if (entry.format.cfFormat != pFormat->cfFormat)
            continue;
        if ((entry.format.dwAspect & pFormat->dwAspect) == 0)
        {
            nResult = DV_E_DVASPECT;
        }
        else if (entry.format.lindex != pFormat->lindex)
        {
            nResult = DV_E_LINDEX;
        }
        else if ((entry.format.tymed & pFormat->tymed) == 0)
        {
            nResult = DV_E_TYMED;
        }
        else
        {
            *ppEntry = &entry;
            return S_OK;
        }
    }
    return nResult;
}

STDMETHODIMP COleDataSource::CContent::GetData(FORMATETC* pFormat, STGMEDIUM* pMedium)
{
    if (pMedium == nullptr)
        return E_INVALIDARG;
    *pMedium = {};
    const CEntry* pEntry = nullptr;
    const HRESULT nResult = Find(pFormat, &pEntry);
    if (FAILED(nResult))
        return nResult;
    // A copy: it may outlive the source, and the receiver may write into it.
    pMedium->hGlobal =
        OleDuplicateData(pEntry->memory.get(), pEntry->format.cfFormat, GMEM_MOVEABLE);
    if (pMedium->hGlobal == nullptr)
        return E_OUTOFMEMORY;
    pMedium->tymed = TYMED_HGLOBAL;
    return S_OK;
}

// Into the receiver's block, which has to be large enough.
STDMETHODIMP COleDataSource::CContent::GetDataHere(FORMATETC* pFormat, STGMEDIUM* pMedium)
{
    if (pMedium == nullptr)
        return E_INVALIDARG;
    if (pMedium->tymed != TYMED_HGLOBAL || pMedium->hGlobal == nullptr)
        return DV_E_TYMED;
    const CEntry* pEntry = nullptr;
    const HRESULT nResult = Find(pFormat, &pEntry);
    if (FAILED(nResult))
        return nResult;
    const SIZE_T nSize = GlobalSize(pEntry->memory.get());
    if (GlobalSize(pMedium->hGlobal) < nSize)
        return STG_E_MEDIUMFULL;
    const CGlobalLock from(pEntry->memory.get());
    const CGlobalLock to(pMedium->hGlobal);
    if (from.Data() == nullptr || to.Data() == nullptr)
        return E_OUTOFMEMORY;
    std::copy_n(from.Data(), nSize, to.Data());
    return S_OK;
}

STDMETHODIMP COleDataSource::CContent::QueryGetData(FORMATETC* pFormat)
{
    const CEntry* pEntry = nullptr;
    return Find(pFormat, &pEntry);
}

// Nothing depends on a device.
STDMETHODIMP COleDataSource::CContent::GetCanonicalFormatEtc(FORMATETC* pFormat,
                                                             FORMATETC* pCanonical)
{
    if (pFormat == nullptr || pCanonical == nullptr)
        return E_INVALIDARG;
    *pCanonical = *pFormat;
    pCanonical->ptd = nullptr;
    return DATA_S_SAMEFORMATETC;
}

// No format can be given to a source: the medium stays the caller's.
STDMETHODIMP COleDataSource::CContent::SetData(FORMATETC* pFormat, STGMEDIUM* pMedium, BOOL)
{
    return pFormat == nullptr || pMedium == nullptr ? E_INVALIDARG : DV_E_FORMATETC;
}

STDMETHODIMP COleDataSource::CContent::EnumFormatEtc(DWORD nDirection, IEnumFORMATETC** ppFormats)
{
    if (ppFormats == nullptr)
        return E_POINTER;
    *ppFormats = nullptr;
    if (nDirection != DATADIR_GET)
        return nDirection == DATADIR_SET ? E_NOTIMPL : E_INVALIDARG;
    if (m_pSource == nullptr)
        return CO_E_OBJNOTCONNECTED;
    return GuardMethod(
        [=, this]
        {
            std::vector<FORMATETC> formats;
            for (const CEntry& entry : m_entries)
                formats.push_back(entry.format);
            *ppFormats = new CFormatList(std::move(formats));
            return S_OK;
        });
}

STDMETHODIMP COleDataSource::CContent::DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD* pnConnection)
{
    if (pnConnection != nullptr)
        *pnConnection = 0;
    return OLE_E_ADVISENOTSUPPORTED;
}

STDMETHODIMP COleDataSource::CContent::DUnadvise(DWORD)
{
    return OLE_E_ADVISENOTSUPPORTED;
}

STDMETHODIMP COleDataSource::CContent::EnumDAdvise(IEnumSTATDATA** ppConnections)
{
    if (ppConnections != nullptr)
        *ppConnections = nullptr;
    return OLE_E_ADVISENOTSUPPORTED;
}

// ---- The source ----

COleDataSource::COleDataSource() : m_pContent(new CContent(this)) {}

COleDataSource::~COleDataSource()
{
    if (s_pOnClipboard == this)
        s_pOnClipboard = nullptr;
    m_pContent->LoseSource();
    if (!m_bHandedOver)
        m_pContent->Release();
}

void COleDataSource::CacheGlobalData(CLIPFORMAT nFormat, HGLOBAL hMemory, FORMATETC* pFormat)
{
    CGlobalPtr memory(hMemory);
    if (memory == nullptr || (pFormat != nullptr && pFormat->ptd != nullptr))
        AfxThrowInvalidArgException();
    FORMATETC format{ nFormat, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL };
    if (pFormat != nullptr)
    {
        format.dwAspect = pFormat->dwAspect;
        format.lindex = pFormat->lindex;
    }
    m_pContent->Put(format, std::move(memory));
}

void COleDataSource::SetClipboard()
{
    ASSERT(!m_bHandedOver);
    // The last reference takes the source with it, be it here or where the system lets go.
    const CObjectPtr<CContent> content(m_pContent);
    m_bHandedOver = true;
    m_pContent->OwnSource();
    const HRESULT nResult = OleSetClipboard(content.get());
    if (FAILED(nResult))
        AfxThrowOleException(nResult);
    s_pOnClipboard = this;
}

DROPEFFECT COleDataSource::DoDragDrop(DWORD dwEffects, LPCRECT pStartDrag,
                                      COleDropSource* pDropSource)
{
    COleDropSource usual;
    if (pDropSource == nullptr)
        pDropSource = &usual;
    pDropSource->m_rectStartDrag = pStartDrag != nullptr ? CRect(*pStartDrag) : CursorPixel();
    if (!pDropSource->OnBeginDrag(TrackingWindow()))
        return DROPEFFECT_NONE;
    // Handlers that run during the drag may delete both sources.
    const CObjectPtr<IDataObject> data(GetIDataObject(TRUE));
    const CObjectPtr<IDropSource> source(pDropSource->GetIDropSource(TRUE));
    DWORD nEffect = DROPEFFECT_NONE;
    const HRESULT nResult = ::DoDragDrop(data.get(), source.get(), dwEffects, &nEffect);
    return nResult == DRAGDROP_S_DROP ? nEffect : DROPEFFECT_NONE;
}

IDataObject* COleDataSource::GetIDataObject(BOOL bAddRef)
{
    if (bAddRef)
        m_pContent->AddRef();
    return m_pContent;
}

COleDataSource* COleDataSource::GetClipboardOwner()
{
    const bool bCurrent =
        s_pOnClipboard != nullptr && OleIsCurrentClipboard(s_pOnClipboard->m_pContent) == S_OK;
    return bCurrent ? s_pOnClipboard : nullptr;
}

void COleDataSource::FlushClipboard()
{
    if (GetClipboardOwner() != nullptr)
        OleFlushClipboard();
}
