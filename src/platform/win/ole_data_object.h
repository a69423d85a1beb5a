// Data from elsewhere: what is on the clipboard, or what is dragged over a window.
//
//     COleDataObject object;
//     if (object.AttachClipboard())
//         HGLOBAL hMemory = object.GetGlobalData(nFormat);    // the caller's
#pragma once

#include "platform/win/ole_types.h"

class COleDataObject
{
public:
    COleDataObject() = default;
    ~COleDataObject();  // releases
    COleDataObject(const COleDataObject&) = delete;
    COleDataObject& operator=(const COleDataObject&) = delete;

    // What was attached before is released. With bAutoRelease the caller's reference becomes the
    // object's; without it the data object must live as long as it is attached.
    void Attach(IDataObject* pDataObject, BOOL bAutoRelease = TRUE);
    // FALSE, with nothing attached, if the clipboard cannot be reached.
    BOOL AttachClipboard();
    // The data object, the caller's if it was attached with bAutoRelease; null if there is none.
    IDataObject* Detach();
    void Release();

    // Whether the data are there in a format. pFormat, here and below, tells aspect, index and
    // target device where they are not the usual ones, and here also the media that will do.
    BOOL IsDataAvailable(CLIPFORMAT nFormat, FORMATETC* pFormat = nullptr);

    // The data in a block of global memory, which the caller frees; null if they are not there.
    HGLOBAL GetGlobalData(CLIPFORMAT nFormat, FORMATETC* pFormat = nullptr);

private:
    IDataObject* m_pDataObject = nullptr;
    BOOL m_bAutoRelease = TRUE;  // m_pDataObject is a reference of our own
};
