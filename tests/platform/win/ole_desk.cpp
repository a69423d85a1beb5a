#include "ole_desk.h"

#include "platform/base/exception.h"
#include "platform/base/win32/com_pointer.h"
#include "platform/win/ole_data_object.h"

#include <utility>

namespace
{
BYTE ByteAt(SIZE_T nIndex, SIZE_T nSize)
{
    return static_cast<BYTE>(nIndex * 31 + nSize + (nIndex >> 8));
}
}  // namespace

// ---- Blocks

HGLOBAL MakeBlock(SIZE_T nSize)
{
    HGLOBAL hMemory = GlobalAlloc(GMEM_MOVEABLE, nSize);
    const CGlobalLock lock(hMemory);
    for (SIZE_T i = 0; i < nSize; ++i)
        lock.Data()[i] = ByteAt(i, nSize);
    return hMemory;
}

bool IsBlock(HGLOBAL hMemory, SIZE_T nSize)
{
    if (hMemory == nullptr || GlobalSize(hMemory) != nSize)
        return false;
    const CGlobalLock lock(hMemory);
    for (SIZE_T i = 0; i < nSize; ++i)
    {
        if (lock.Data()[i] != ByteAt(i, nSize))
            return false;
    }
    return true;
}

CLIPFORMAT TestFormat()
{
    return static_cast<CLIPFORMAT>(RegisterClipboardFormatA("Mivora OLE test"));
}

// ---- The hand

CHand::CHand(std::string_view script, FCondition isGoing, FCondition isThere, FCondition isAnswered)
    : m_isGoing(std::move(isGoing)),
      m_isThere(std::move(isThere)),
      m_isAnswered(std::move(isAnswered)),
      m_thread([this, script] { Play(script); })
{
}

CHand::~CHand()
{
    m_thread.join();
}

void CHand::Play(std::string_view script)
{
    for (const char c : script)
    {
        if (!m_bGaveUp)
            Do(c);
    }
    if (m_bGaveUp)
        Do('e');
    LetGo();
    m_bDone = true;
}

void CHand::Do(char c)
{
    switch (c)
    {
        case 'l':
            return SendMouse(MOUSEEVENTF_LEFTDOWN);
        case 'L':
            return SendMouse(MOUSEEVENTF_LEFTUP);
        case 'r':
            return SendMouse(MOUSEEVENTF_RIGHTDOWN);
        case 'R':
            return SendMouse(MOUSEEVENTF_RIGHTUP);
        case 's':
            return Go(s_sourcePoint);
        case 't':
            return Go(s_targetPoint);
        case 'o':
            return Go(s_nowhere);
        case 'm':
            return Go({ s_sourcePoint.x + 3, s_sourcePoint.y });
        case 'c':
            m_bControl = true;
            return SendKey(VK_CONTROL, true);
        case 'e':
            SendKey(VK_ESCAPE, true);
            return SendKey(VK_ESCAPE, false);
        case '?':
            return WaitFor(m_isGoing);
        case '!':
            return WaitFor(m_isThere);
        case '.':
            return WaitFor(m_isAnswered);
    }
}

void CHand::Go(POINT to)
{
    m_Mover.MoveTo(to);
    WaitFor([] { return true; });
}

void CHand::WaitFor(const FCondition& condition)
{
    const auto again = [this]
    {
        if (m_bControl)
            SendKey(VK_CONTROL, true);
    };
    m_bGaveUp = !m_Mover.WaitFor(condition, again);
}

// ---- Windows, targets and sources

BEGIN_MESSAGE_MAP(CTestWindow, CWnd)
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_RBUTTONDOWN()
ON_WM_RBUTTONDBLCLK()
END_MESSAGE_MAP()

CTestWindow::CTestWindow(const RECT& place)
{
    CreateEx(WS_EX_TOPMOST, nullptr, "", WS_POPUP | WS_VISIBLE, place.left, place.top,
             place.right - place.left, place.bottom - place.top, nullptr, nullptr);
    UpdateWindow();
}

CTestTarget::CTestTarget(CWnd* pWindow, EManner eManner) : m_eManner(eManner)
{
    Register(pWindow);
}

void CTestTarget::Log(char c)
{
    if (m_strLog.empty() || m_strLog.back() != c)
        m_strLog += c;
}

DROPEFFECT CTestTarget::OnDragScroll(CWnd*, DWORD, CPoint)
{
    m_bOver = true;
    return m_eManner == scrolls ? DROPEFFECT_SCROLL | DROPEFFECT_COPY : DROPEFFECT_NONE;
}

DROPEFFECT CTestTarget::Answer(COleDataObject* pDataObject, DWORD nKeys) const
{
    const bool bRefused = m_eManner == refuses || (m_eManner == refusesTheLastOver &&
                                                   (nKeys & (MK_LBUTTON | MK_RBUTTON)) == 0);
    if (bRefused || !pDataObject->IsDataAvailable(TestFormat()))
        return DROPEFFECT_NONE;
    return nKeys & MK_CONTROL ? DROPEFFECT_COPY : DROPEFFECT_MOVE;
}

DROPEFFECT CTestTarget::OnDragEnter(CWnd*, COleDataObject* pDataObject, DWORD nKeys, CPoint)
{
    Log('E');
    return Answer(pDataObject, nKeys);
}

DROPEFFECT CTestTarget::OnDragOver(CWnd*, COleDataObject* pDataObject, DWORD nKeys, CPoint)
{
    Log('O');
    m_nKeys |= nKeys;
    if (m_eManner == throwsAtOver)
        AfxThrowMemoryException();
    if (m_eManner == revokesAtOver)
        Revoke();
    return Answer(pDataObject, nKeys);
}

DROPEFFECT CTestTarget::OnDropEx(CWnd*, COleDataObject*, DROPEFFECT, DROPEFFECT nList, CPoint)
{
    Log('X');
    m_nList = nList;
    return m_eManner == copiesInDropEx ? DROPEFFECT_COPY : static_cast<DROPEFFECT>(-1);
}

BOOL CTestTarget::OnDrop(CWnd* pWnd, COleDataObject* pDataObject, DROPEFFECT, CPoint point)
{
    Log('D');
    m_point = point;
    m_bSame = IsBlock(CGlobalPtr(pDataObject->GetGlobalData(TestFormat())).get());
    if (m_eManner == throwsAtDrop)
        throw 1;
    if (m_eManner == destroysAtDrop)
        pWnd->DestroyWindow();
    return m_eManner != refusesDrop;
}

void CTestTarget::OnDragLeave(CWnd*)
{
    Log('L');
    m_bOver = false;
}

void CTestTarget::Revoke()
{
    Log('R');
    COleDropTarget::Revoke();
}

SCODE CTestSource::QueryContinueDrag(BOOL bEscapePressed, DWORD nKeys)
{
    m_bGoing = true;
    return COleDropSource::QueryContinueDrag(bEscapePressed, nKeys);
}

SCODE CTestSource::GiveFeedback(DROPEFFECT nEffect)
{
    m_nShown = nEffect;
    return COleDropSource::GiveFeedback(nEffect);
}
