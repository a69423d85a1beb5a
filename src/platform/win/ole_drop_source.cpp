// Waiting for a drag to begin, and its course.
#include "platform/win/ole_drop_source.h"

#include "platform/base/win32/com_object.h"
#include "platform/win/window.h"

IMPLEMENT_DYNAMIC(COleDropSource, CCmdTarget)

// ---- What the system sees ----

class COleDropSource::CFeedback final : public CComObject<IDropSource>
{
public:
    explicit CFeedback(COleDropSource* pSource) : m_pSource(pSource) {}
    void LoseSource() { m_pSource = nullptr; }

    STDMETHOD(QueryContinueDrag)(BOOL bEscapePressed, DWORD nKeyState) override
    {
        if (m_pSource == nullptr)
            return DRAGDROP_S_CANCEL;
        return GuardMethod([=, this]
                           { return m_pSource->QueryContinueDrag(bEscapePressed, nKeyState); });
    }
    STDMETHOD(GiveFeedback)(DWORD nEffect) override
    {
        if (m_pSource == nullptr)
            return DRAGDROP_S_USEDEFAULTCURSORS;
        return GuardMethod([=, this] { return m_pSource->GiveFeedback(nEffect); });
    }

private:
    COleDropSource* m_pSource;  // null: gone
};

// ---- How a drag begins ----

namespace
{
// Gives a window the mouse for as long as the scope lasts.
class CCaptureScope
{
public:
    explicit CCaptureScope(HWND hWnd) : m_hWnd(hWnd), m_bTaken(GetCapture() != hWnd)
    {
        if (m_bTaken)
            SetCapture(hWnd);
    }
    ~CCaptureScope()
    {
        if (m_bTaken && IsHeld())
            ReleaseCapture();
    }
    CCaptureScope(const CCaptureScope&) = delete;
    CCaptureScope& operator=(const CCaptureScope&) = delete;

    bool IsHeld() const { return GetCapture() == m_hWnd; }

private:
    HWND m_hWnd;
    bool m_bTaken;
};

enum class EStart
{
    waiting,
    begun,
    givenUp
};

// By the input that has come. Keys are used up here as they are during the drag.
EStart ReadInput(const CRect& rectStart)
{
    MSG message;
    while (PeekMessageA(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE))
    {
        if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE)
            return EStart::givenUp;
    }
    while (PeekMessageA(&message, nullptr, WM_MOUSEMOVE, WM_MBUTTONDBLCLK, PM_NOREMOVE))
    {
        if (message.message != WM_MOUSEMOVE)
            return EStart::givenUp;
        if (!rectStart.PtInRect(message.pt))
            return EStart::begun;
        PeekMessageA(&message, nullptr, WM_MOUSEMOVE, WM_MOUSEMOVE, PM_REMOVE);
    }
    return EStart::waiting;
}

bool WaitForStart(HWND hWnd, const CRect& rectStart)
{
    const CCaptureScope capture(hWnd);
    const DWORD nDelay = GetProfileIntA("windows", "DragDelay", DD_DEFDRAGDELAY);
    const DWORD nBegin = GetTickCount();
    while (capture.IsHeld())
    {
        const EStart eStart = ReadInput(rectStart);
        const DWORD nWaited = GetTickCount() - nBegin;
        if (eStart != EStart::waiting || nWaited >= nDelay)
            return eStart != EStart::givenUp;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, nDelay - nWaited,
                                  QS_MOUSE | QS_KEY | QS_SENDMESSAGE);
    }
    return false;
}

bool IsKeyDown(int nKey)
{
    return GetKeyState(nKey) < 0;
}
}  // namespace

COleDropSource::~COleDropSource()
{
    if (m_pFeedback == nullptr)
        return;
    m_pFeedback->LoseSource();
    m_pFeedback->Release();
}

// False if no button is held that could drag.
bool COleDropSource::TakeButtons()
{
    const bool bLeft = IsKeyDown(VK_LBUTTON);
    m_dwButtonDrop = bLeft ? MK_LBUTTON : MK_RBUTTON;
    m_dwButtonCancel = bLeft ? MK_RBUTTON : MK_LBUTTON;
    return bLeft || IsKeyDown(VK_RBUTTON);
}

BOOL COleDropSource::OnBeginDrag(CWnd* pWnd)
{
    m_bDragStarted = TakeButtons() && (pWnd == nullptr || m_rectStartDrag.IsRectEmpty() ||
                                       WaitForStart(pWnd->GetSafeHwnd(), m_rectStartDrag));
    return m_bDragStarted;
}

SCODE COleDropSource::QueryContinueDrag(BOOL bEscapePressed, DWORD dwKeyState)
{
    if (bEscapePressed || (dwKeyState & m_dwButtonCancel) != 0)
        return DRAGDROP_S_CANCEL;
    return (dwKeyState & m_dwButtonDrop) != 0 ? S_OK : DRAGDROP_S_DROP;
}

SCODE COleDropSource::GiveFeedback(DROPEFFECT)
{
    return DRAGDROP_S_USEDEFAULTCURSORS;
}

IDropSource* COleDropSource::GetIDropSource(BOOL bAddRef)
{
    if (m_pFeedback == nullptr)
        m_pFeedback = new CFeedback(this);
    if (bAddRef)
        m_pFeedback->AddRef();
    return m_pFeedback;
}
