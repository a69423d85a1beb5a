#include "ole_desk.h"

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
        if (lock.Data()[i] != ByteAt(i, nSize))
            return false;
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

void CHand::Play(std::string_view script)
{
    for (const char c : script)
        if (!m_bGaveUp)
            Do(c);
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
            return Glide(s_sourcePoint);
        case 't':
            return Glide(s_targetPoint);
        case 'o':
            return Glide(s_nowhere);
        case 'm':
            return Glide({ s_sourcePoint.x + 3, s_sourcePoint.y });
        case 'c':
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

void CHand::WaitFor(const FCondition& condition)
{
    for (int i = 0; i < 4000 && !condition(); ++i)
        Sleep(1);
    m_bGaveUp = !condition();
}

// ---- Windows, targets and sources

BEGIN_MESSAGE_MAP(CTestWindow, CWnd)
ON_WM_LBUTTONDOWN()
ON_WM_RBUTTONDOWN()
END_MESSAGE_MAP()

CTestWindow::CTestWindow(const RECT& place)
{
    CreateEx(WS_EX_TOPMOST, nullptr, "", WS_POPUP | WS_VISIBLE, place.left, place.top,
             place.right - place.left, place.bottom - place.top, nullptr, nullptr);
    UpdateWindow();
}

void CTestWindow::OnLButtonDown(UINT, CPoint)
{
    m_onPress();
}

void CTestWindow::OnRButtonDown(UINT, CPoint)
{
    m_onPress();
}

void CTestTarget::Log(char c)
{
    if (m_strLog.empty() || m_strLog.back() != c)
        m_strLog += c;
}

DROPEFFECT CTestTarget::OnDragEnter(CWnd*, COleDataObject*, DWORD nKeys, CPoint)
{
    Log('E');
    return m_answer(nKeys);
}

DROPEFFECT CTestTarget::OnDragOver(CWnd*, COleDataObject* pDataObject, DWORD nKeys, CPoint)
{
    Log('O');
    m_nKeys |= nKeys;
    return pDataObject->IsDataAvailable(TestFormat()) ? m_answer(nKeys) : DROPEFFECT_NONE;
}

DROPEFFECT CTestTarget::OnDropEx(CWnd*, COleDataObject*, DROPEFFECT nDefault, DROPEFFECT nList,
                                 CPoint)
{
    Log('X');
    m_nDefault = nDefault;
    m_nList = nList;
    return m_nDone;
}

BOOL CTestTarget::OnDrop(CWnd*, COleDataObject* pDataObject, DROPEFFECT, CPoint point)
{
    Log('D');
    m_point = point;
    const CGlobalPtr block(pDataObject->GetGlobalData(TestFormat()));
    m_bSame = IsBlock(block.get(), m_nSize);
    return m_take();
}

DROPEFFECT CTestTarget::OnDragScroll(CWnd*, DWORD, CPoint)
{
    ++m_nAsked;
    return m_nScroll;
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
