// How messages come from the system to a window's object: procedure, subclassing, creation hook.
#include "platform/win/window_proc.h"

#include "platform/base/exception.h"
#include "platform/win/system_call.h"

#include <utility>

namespace
{
constinit thread_local MSG t_message{};  // being handled, the innermost one
constinit thread_local int t_nDepth = 0;
constinit thread_local CWnd* t_pCreating = nullptr;  // waits for its handle

class CMessageScope
{
public:
    explicit CMessageScope(const MSG& message) : m_outer(std::exchange(t_message, message))
    {
        ++t_nDepth;
    }
    ~CMessageScope()
    {
        --t_nDepth;
        t_message = m_outer;
    }
    CMessageScope(const CMessageScope&) = delete;
    CMessageScope& operator=(const CMessageScope&) = delete;

private:
    MSG m_outer;
};

// What the system hears when a handler threw: a window that is being made is not made, and one that
// cannot be painted is not asked for ever.
LRESULT FailedResult(HWND hWnd, UINT nMessage)
{
    if (nMessage == WM_PAINT)
        ::ValidateRect(hWnd, nullptr);
    return nMessage == WM_CREATE ? -1 : 0;
}
}  // namespace

// The object may be gone when its procedure returns.
LRESULT CALLBACK CWindowEntry::WindowProc(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    CWnd* pWnd = CWnd::FromHandlePermanent(hWnd);
    if (pWnd == nullptr)
        return ::DefWindowProcA(hWnd, nMessage, wParam, lParam);
    const CMessageScope scope({ hWnd, nMessage, wParam, lParam, 0, {} });
    try
    {
        return pWnd->WindowProc(nMessage, wParam, lParam);
    }
    catch (...)
    {
        AfxKeepException();
        return FailedResult(hWnd, nMessage);
    }
}

LRESULT CALLBACK CWindowEntry::CreateHook(int nCode, WPARAM wParam, LPARAM lParam)
{
    const HWND hWnd = reinterpret_cast<HWND>(wParam);
    // Input methods make windows of their own on the way.
    if (nCode != HCBT_CREATEWND || t_pCreating == nullptr ||
        (::GetClassLongA(hWnd, GCL_STYLE) & CS_IME) != 0)
        return ::CallNextHookEx(nullptr, nCode, wParam, lParam);
    CWnd* pWnd = std::exchange(t_pCreating, nullptr);
    try
    {
        pWnd->Subclass(hWnd);
    }
    catch (...)
    {
        AfxKeepException();
        return 1;  // no window is made
    }
    return ::CallNextHookEx(nullptr, nCode, wParam, lParam);
}

CCreateHook::CCreateHook(CWnd* pWnd)
    : m_hHook(
          ::SetWindowsHookExA(WH_CBT, CWindowEntry::CreateHook, nullptr, ::GetCurrentThreadId())),
      m_pOuter(std::exchange(t_pCreating, pWnd))
{
    if (m_hHook == nullptr)
    {
        t_pCreating = m_pOuter;
        AfxThrowResourceException();
    }
}

CCreateHook::~CCreateHook()
{
    ::UnhookWindowsHookEx(m_hHook);
    t_pCreating = m_pOuter;
}

int AfxMessageDepth()
{
    return t_nDepth;
}

// ---- The object's side

void CWnd::Subclass(HWND hWnd)
{
    Attach(hWnd);
    try
    {
        PreSubclassWindow();
    }
    catch (...)
    {
        Detach();
        throw;
    }
    const auto pfnOld = reinterpret_cast<WNDPROC>(::SetWindowLongPtrA(
        hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CWindowEntry::WindowProc)));
    if (pfnOld != &CWindowEntry::WindowProc)
        m_pfnSuper = pfnOld;
}

BOOL CWnd::SubclassWindow(HWND hWnd)
{
    if (!::IsWindow(hWnd) || FromHandlePermanent(hWnd) != nullptr)
        return FALSE;
    Subclass(hWnd);
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent)
{
    ASSERT(::IsWindow(pParent->m_hWnd));
    return SubclassWindow(::GetDlgItem(pParent->m_hWnd, static_cast<int>(nID)));
}

LRESULT CWnd::WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    LRESULT lResult = 0;
    if (!OnWndMsg(nMessage, wParam, lParam, &lResult))
        lResult = DefWindowProc(nMessage, wParam, lParam);
    return lResult;
}

LRESULT CWnd::DefWindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam)
{
    return CallSystem(
        [=, this]
        {
            return m_pfnSuper != nullptr
                       ? ::CallWindowProcA(m_pfnSuper, m_hWnd, nMessage, wParam, lParam)
                       : ::DefWindowProcA(m_hWnd, nMessage, wParam, lParam);
        });
}

LRESULT CWnd::Default()
{
    const MSG message = t_message;
    return DefWindowProc(message.message, message.wParam, message.lParam);
}

void CWnd::OnNcDestroy()
{
    if (g_pfnRevokeDropTarget != nullptr)
    {
        GuardCallback(0, [this] { return g_pfnRevokeDropTarget(m_hWnd), 0; });
    }
    AfxMainWindowEnds(this);
    const LONG_PTR nProc = ::GetWindowLongPtrA(m_hWnd, GWLP_WNDPROC);
    GuardCallback(LRESULT{}, [this] { return Default(); });  // the handle goes, whatever happens
    // Unless somebody has come to stand before us meanwhile.
    const WNDPROC pfnSuper = std::exchange(m_pfnSuper, nullptr);
    if (pfnSuper != nullptr && ::GetWindowLongPtrA(m_hWnd, GWLP_WNDPROC) == nProc)
        ::SetWindowLongPtrA(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(pfnSuper));
    Detach();
    PostNcDestroy();
}
