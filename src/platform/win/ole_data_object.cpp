// Reading what others offer.
#include "platform/win/ole_data_object.h"

#include "platform/base/win32/com_pointer.h"

#include <utility>

namespace
{
FORMATETC FullFormat(CLIPFORMAT nFormat, const FORMATETC* pFormat)
{
    FORMATETC format{ nFormat, nullptr, DVASPECT_CONTENT, -1, static_cast<DWORD>(-1) };
    if (pFormat != nullptr)
        format = *pFormat;
    if (nFormat != 0)
        format.cfFormat = nFormat;
    return format;
}
}  // namespace

COleDataObject::~COleDataObject()
{
    Release();
}

void COleDataObject::Attach(IDataObject* pDataObject, BOOL bAutoRelease)
{
    Release();
    m_pDataObject = pDataObject;
    m_bAutoRelease = bAutoRelease;
}

BOOL COleDataObject::AttachClipboard()
{
    Release();
    m_bAutoRelease = TRUE;
    if (FAILED(OleGetClipboard(&m_pDataObject)))
        m_pDataObject = nullptr;
    return m_pDataObject != nullptr;
}

IDataObject* COleDataObject::Detach()
{
    return std::exchange(m_pDataObject, nullptr);
}

void COleDataObject::Release()
{
    const bool bOwned = m_bAutoRelease;
    IDataObject* pDataObject = Detach();
    if (bOwned && pDataObject != nullptr)
        pDataObject->Release();
}

BOOL COleDataObject::IsDataAvailable(CLIPFORMAT nFormat, FORMATETC* pFormat)
{
    FORMATETC format = FullFormat(nFormat, pFormat);
    return m_pDataObject != nullptr && m_pDataObject->QueryGetData(&format) == S_OK;
}

HGLOBAL COleDataObject::GetGlobalData(CLIPFORMAT nFormat, FORMATETC* pFormat)
{
    FORMATETC format = FullFormat(nFormat, pFormat);
    format.tymed = TYMED_HGLOBAL;
    STGMEDIUM medium{};
    if (m_pDataObject == nullptr || FAILED(m_pDataObject->GetData(&format, &medium)))
        return nullptr;
    if (medium.tymed == TYMED_HGLOBAL && medium.pUnkForRelease == nullptr)
        return medium.hGlobal;
    // The block belongs to somebody else, or this is no block at all.
    HGLOBAL hCopy = nullptr;
    if (medium.tymed == TYMED_HGLOBAL)
        hCopy = OleDuplicateData(medium.hGlobal, format.cfFormat, GMEM_MOVEABLE);
    ReleaseStgMedium(&medium);
    return hCopy;
}
