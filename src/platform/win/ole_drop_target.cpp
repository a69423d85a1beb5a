// The events of a drag, from the system to the handlers.
#include "platform/win/ole_drop_target.h"

#include "platform/base/win32/com_object.h"
#include "platform/gdi/handle_map.h"
#include "platform/win/ole_data_object.h"
#include "platform/win/window.h"

#include <utility>

IMPLEMENT_DYNAMIC(COleDropTarget, CCmdTarget)

namespace
{
constexpr DROPEFFECT s_nNotHandled = static_cast<DROPEFFECT>(-1);

DROPEFFECT AllowedEffect(DROPEFFECT nEffect, DROPEFFECT nAllowed)
{
    const DROPEFFECT nScroll = nEffect & DROPEFFECT_SCROLL;
    const DROPEFFECT nDone = nEffect & nAllowed & ~DROPEFFECT_SCROLL;
    if (nDone == DROPEFFECT_NONE && (nEffect & DROPEFFECT_MOVE) != 0)
        return nScroll | (nAllowed & DROPEFFECT_COPY);
    return nScroll | nDone;
}

// For windows, which know no drop targets.
[[maybe_unused]] const bool s_bWindowsTold = []
{
    g_pfnRevokeDropTarget = [](HWND hWnd)
    {
        if (COleDropTarget* pTarget = CHandleMap<COleDropTarget>::Find(hWnd))
            pTarget->Revoke();
    };
    return true;
}();
}  // namespace

// ---- What the system sees ----

// Any handler may revoke or delete the target, which is therefore looked for after each of them.
class COleDropTarget::CEvents final : public CComObject<IDropTarget>
{
public:
    explicit CEvents(COleDropTarget* pTarget) : m_pTarget(pTarget) {}
    void LoseTarget() { m_pTarget = nullptr; }

    STDMETHOD(DragEnter)
    (IDataObject* pData, DWORD nKeyState, POINTL point, DWORD* pnEffect) override;
    STDMETHOD(DragOver)(DWORD nKeyState, POINTL point, DWORD* pnEffect) override;
    STDMETHOD(DragLeave)() override;
    STDMETHOD(Drop)(IDataObject* pData, DWORD nKeyState, POINTL point, DWORD* pnEffect) override;

private:
    using FHandler = DROPEFFECT (COleDropTarget::*)(CWnd*, COleDataObject*, DWORD, CPoint);

    template <class F>
    HRESULT Answer(F body);
    CWnd* Window() const { return CWnd::FromHandle(m_pTarget->m_hWnd); }
    CPoint ClientPoint(POINTL point) const;
    HRESULT Ask(FHandler pfnHandler, DWORD nKeyState, POINTL point, DWORD* pnEffect);

    COleDropTarget* m_pTarget;       // null: revoked
    CObjectPtr<IDataObject> m_data;  // while it is dragged over the window
};

template <class F>
HRESULT COleDropTarget::CEvents::Answer(F body)
{
    const auto self = ShareObject(this);
    return GuardMethod([&] { return m_pTarget != nullptr ? body() : CO_E_OBJNOTCONNECTED; });
}

CPoint COleDropTarget::CEvents::ClientPoint(POINTL point) const
{
    CPoint client(point.x, point.y);
    ScreenToClient(m_pTarget->m_hWnd, &client);
    return client;
}

HRESULT COleDropTarget::CEvents::Ask(FHandler pfnHandler, DWORD nKeyState, POINTL point,
                                     DWORD* pnEffect)
{
    const DROPEFFECT nAllowed = std::exchange(*pnEffect, DROPEFFECT_NONE);
    return Answer(
        [&]
        {
            if (m_data == nullptr)
                return E_UNEXPECTED;
            COleDataObject object;
            object.Attach(ShareObject(m_data.get()).release());
            const CPoint client = ClientPoint(point);
            DROPEFFECT nEffect = m_pTarget->OnDragScroll(Window(), nKeyState, client);
            if (m_pTarget != nullptr && (nEffect & DROPEFFECT_SCROLL) == 0)
                nEffect = (m_pTarget->*pfnHandler)(Window(), &object, nKeyState, client);
            if (m_pTarget == nullptr)
                return CO_E_OBJNOTCONNECTED;
            *pnEffect = AllowedEffect(nEffect, nAllowed);
            return S_OK;
        });
}

STDMETHODIMP COleDropTarget::CEvents::DragEnter(IDataObject* pData, DWORD nKeyState, POINTL point,
                                                DWORD* pnEffect)
{
    if (pData == nullptr || pnEffect == nullptr)
        return E_INVALIDARG;
    m_data = ShareObject(pData);
    return Ask(&COleDropTarget::OnDragEnter, nKeyState, point, pnEffect);
}

STDMETHODIMP COleDropTarget::CEvents::DragOver(DWORD nKeyState, POINTL point, DWORD* pnEffect)
{
    if (pnEffect == nullptr)
        return E_INVALIDARG;
    return Ask(&COleDropTarget::OnDragOver, nKeyState, point, pnEffect);
}

STDMETHODIMP COleDropTarget::CEvents::DragLeave()
{
    const CObjectPtr<IDataObject> data = std::move(m_data);
    return Answer(
        [&]
        {
            m_pTarget->OnDragLeave(Window());
            return S_OK;
        });
}

STDMETHODIMP COleDropTarget::CEvents::Drop(IDataObject* pData, DWORD nKeyState, POINTL point,
                                           DWORD* pnEffect)
{
    if (pData == nullptr || pnEffect == nullptr)
        return E_INVALIDARG;
    m_data.reset();
    const DROPEFFECT nAllowed = std::exchange(*pnEffect, DROPEFFECT_NONE);
    return Answer(
        [&]
        {
            COleDataObject object;
            object.Attach(pData, FALSE);
            const CPoint client = ClientPoint(point);
            const DROPEFFECT nDefault = AllowedEffect(
                m_pTarget->OnDragOver(Window(), &object, nKeyState, client), nAllowed);
            if (m_pTarget == nullptr)
                return CO_E_OBJNOTCONNECTED;
            const DROPEFFECT nDone =
                m_pTarget->OnDropEx(Window(), &object, nDefault, nAllowed, client);
            if (nDone != s_nNotHandled)
                *pnEffect = nDone;
            else if (m_pTarget == nullptr)
                return CO_E_OBJNOTCONNECTED;
            else if (nDefault == DROPEFFECT_NONE)
                m_pTarget->OnDragLeave(Window());
            else if (m_pTarget->OnDrop(Window(), &object, nDefault, client))
                *pnEffect = nDefault;  // also if the target went with it
            return S_OK;
        });
}

// ---- The target ----

COleDropTarget::~COleDropTarget()
{
    RevokeWindow();
}

BOOL COleDropTarget::Register(CWnd* pWnd)
{
    HWND hWnd = pWnd != nullptr ? pWnd->GetSafeHwnd() : nullptr;
    if (m_hWnd != nullptr || hWnd == nullptr)
        return FALSE;
    const CObjectPtr<CEvents> events(new CEvents(this));
    if (FAILED(RegisterDragDrop(hWnd, events.get())))
        return FALSE;
    m_pEvents = ShareObject(events.get()).release();
    m_hWnd = hWnd;
    CHandleMap<COleDropTarget>::Insert(this);
    return TRUE;
}

void COleDropTarget::Revoke()
{
    RevokeWindow();
}

void COleDropTarget::RevokeWindow()
{
    if (m_hWnd == nullptr)
        return;
    CHandleMap<COleDropTarget>::Remove(this);
    HWND hWnd = std::exchange(m_hWnd, nullptr);
    m_pEvents->LoseTarget();
    RevokeDragDrop(hWnd);
    std::exchange(m_pEvents, nullptr)->Release();
}

DROPEFFECT COleDropTarget::OnDragEnter(CWnd*, COleDataObject*, DWORD, CPoint)
{
    return DROPEFFECT_NONE;
}

DROPEFFECT COleDropTarget::OnDragOver(CWnd*, COleDataObject*, DWORD, CPoint)
{
    return DROPEFFECT_NONE;
}

BOOL COleDropTarget::OnDrop(CWnd*, COleDataObject*, DROPEFFECT, CPoint)
{
    return FALSE;
}

DROPEFFECT COleDropTarget::OnDropEx(CWnd*, COleDataObject*, DROPEFFECT, DROPEFFECT, CPoint)
{
    return s_nNotHandled;
}

void COleDropTarget::OnDragLeave(CWnd*) {}

DROPEFFECT COleDropTarget::OnDragScroll(CWnd*, DWORD, CPoint)
{
    return DROPEFFECT_NONE;
}
