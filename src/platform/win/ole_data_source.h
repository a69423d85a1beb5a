// Data that leave the program: put on the clipboard, or dragged to a window.
//
//     auto* pSource = new COleDataSource;
//     pSource->CacheGlobalData(nFormat, hMemory);
//     pSource->SetClipboard();                            // the system deletes it
//
//     COleDataSource source;
//     source.CacheGlobalData(nFormat, hMemory);
//     if (source.DoDragDrop() & DROPEFFECT_MOVE) ...      // the data are the target's now
#pragma once

#include "platform/base/cmd_target.h"
#include "platform/win/ole_types.h"

class COleDropSource;

class COleDataSource : public CCmdTarget
{
    DECLARE_DYNAMIC(COleDataSource)

public:
    COleDataSource();
    // Who still holds the data object gets no more data from it.
    ~COleDataSource() override;

    // Offers a block of global memory, which becomes the source's whatever happens. The block of
    // the same format that was offered before is freed. pFormat, if given, tells aspect and index
    // of the data; a target device is refused with CInvalidArgException.
    void CacheGlobalData(CLIPFORMAT nFormat, HGLOBAL hMemory, FORMATETC* pFormat = nullptr);

    // Puts the data on the clipboard. The source, made with new, belongs to the system from now on
    // and ends with its turn there; it is gone also if this throws COleException.
    void SetClipboard();

    // Drags the data until the user lets go or gives up, and returns what the target did with them:
    // one of dwEffects, or DROPEFFECT_NONE. The drag begins when the cursor leaves pStartDrag (in
    // screen coordinates; null: its present pixel; an empty rectangle: at once) or rests for a
    // while. pDropSource, the caller's, decides how the drag goes on.
    virtual DROPEFFECT DoDragDrop(DWORD dwEffects = DROPEFFECT_COPY | DROPEFFECT_MOVE |
                                                    DROPEFFECT_LINK,
                                  LPCRECT pStartDrag = nullptr,
                                  COleDropSource* pDropSource = nullptr);

    // What the system sees of the source. With bAddRef the caller has a reference to release.
    IDataObject* GetIDataObject(BOOL bAddRef);

    // The source of this program whose data are on the clipboard; null if there is none.
    static COleDataSource* GetClipboardOwner();

    // Leaves copies of those data on the clipboard, for the time when this program has ended. The
    // source is deleted.
    static void FlushClipboard();

private:
    class CContent;

    CContent* m_pContent;  // one reference, until SetClipboard
    bool m_bHandedOver = false;
};
