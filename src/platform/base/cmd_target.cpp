// The root of the message maps, and the way of a command to its handler.
#include "platform/base/cmd_target.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const
{
    return GetThisMessageMap();
}

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap()
{
    static const AFX_MSGMAP_ENTRY s_aEntries[] = { { 0, 0, 0, 0, AfxSig_end, nullptr } };
    static const AFX_MSGMAP s_map = { nullptr, s_aEntries };
    return &s_map;
}

const AFX_MSGMAP_ENTRY* AfxFindMessageEntry(const AFX_MSGMAP* pMap, UINT nMessage, UINT nCode,
                                            UINT nID)
{
    for (; pMap != nullptr; pMap = pMap->pfnGetBaseMap != nullptr ? pMap->pfnGetBaseMap() : nullptr)
    {
        for (const AFX_MSGMAP_ENTRY* p = pMap->lpEntries; p->nSig != AfxSig_end; ++p)
        {
            if (p->nMessage == nMessage && p->nCode == nCode && p->nID <= nID && nID <= p->nLastID)
                return p;
        }
    }
    return nullptr;
}

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    UINT nMessage = AFX_COMMAND_MESSAGE;
    auto nRowCode = static_cast<UINT>(nCode);
    if (nCode != CN_UPDATE_COMMAND_UI)
    {
        if (nRowCode >> 16 != 0)
            nMessage = nRowCode >> 16;
        nRowCode &= 0xFFFF;
    }
    const AFX_MSGMAP_ENTRY* pEntry = AfxFindMessageEntry(GetMessageMap(), nMessage, nRowCode, nID);
    if (pEntry == nullptr)
        return FALSE;
    if (pHandlerInfo != nullptr)
    {
        *pHandlerInfo = { this, pEntry->pfn };
        return TRUE;
    }
    return CallHandler(*pEntry, nID, pExtra);
}

// The target may be gone when its handler returns: nothing of it is touched behind the call.
BOOL CCmdTarget::CallHandler(const AFX_MSGMAP_ENTRY& entry, UINT nID, void* pExtra)
{
    const AFX_PMSG pfn = entry.pfn;
    auto* pNotify = static_cast<AFX_NOTIFY*>(pExtra);
    switch (entry.nSig)
    {
        case AfxSigCmd:
            (this->*AfxHandler<AfxSigCmd>(pfn))();
            return TRUE;
        case AfxSigCmdBool:
            return (this->*AfxHandler<AfxSigCmdBool>(pfn))();
        case AfxSigCmdId:
            (this->*AfxHandler<AfxSigCmdId>(pfn))(nID);
            return TRUE;
        case AfxSigCmdIdBool:
            return (this->*AfxHandler<AfxSigCmdIdBool>(pfn))(nID);
        case AfxSigCmdUI:
        {
            auto* pCmdUI = static_cast<CCmdUI*>(pExtra);
            (this->*AfxHandler<AfxSigCmdUI>(pfn))(pCmdUI);
            const BOOL bDone = !pCmdUI->m_bContinueRouting;
            pCmdUI->m_bContinueRouting = FALSE;
            return bDone;
        }
        case AfxSigNotify:
            (this->*AfxHandler<AfxSigNotify>(pfn))(pNotify->pNMHDR, pNotify->pResult);
            return TRUE;
        case AfxSigNotifyBool:
            return (this->*AfxHandler<AfxSigNotifyBool>(pfn))(pNotify->pNMHDR, pNotify->pResult);
        case AfxSigNotifyId:
            (this->*AfxHandler<AfxSigNotifyId>(pfn))(nID, pNotify->pNMHDR, pNotify->pResult);
            return TRUE;
        default:
            return FALSE;
    }
}

void CCmdUI::Enable(BOOL)
{
    m_bEnableChanged = TRUE;
}

void CCmdUI::SetCheck(int) {}

void CCmdUI::SetRadio(BOOL bOn)
{
    SetCheck(bOn ? 1 : 0);
}

void CCmdUI::SetText(const char*) {}

BOOL CCmdUI::DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHandler)
{
    if (m_nID == 0 || static_cast<WORD>(m_nID) == 0xFFFF)
        return TRUE;  // a separator, a text or a submenu
    m_bEnableChanged = FALSE;
    const BOOL bHandled = pTarget->OnCmdMsg(m_nID, CN_UPDATE_COMMAND_UI, this, nullptr);
    if (bDisableIfNoHandler && !m_bEnableChanged)
    {
        AFX_CMDHANDLERINFO info{};
        Enable(pTarget->OnCmdMsg(m_nID, CN_COMMAND, this, &info));
    }
    return bHandled;
}
