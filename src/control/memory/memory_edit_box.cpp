// The editor's box as text, caret and selection in memory.
#include "control/memory/memory_edit_box.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "control/memory/memory_window.h"
#include "nodes/node.h"

namespace
{

constexpr UINT s_nCharDelete = 127;  // Control with the backspace key: nothing in one line of text

}  // namespace

CMemoryEditBox::CMemoryEditBox(CMemoryWindow& window, CNode* pNode, UINT nFirstChar)
    : m_Window(window), m_Edit(*this, pNode, pNode->GetSymbol(), nFirstChar)
{
}

bool CMemoryEditBox::Create(const CRect& rect, const LOGFONTA& /*lf*/)
{
    m_rect = rect;
    return true;
}

CString CMemoryEditBox::GetText() const
{
    return CString(m_strText.data(), static_cast<int>(m_strText.size()));
}

void CMemoryEditBox::SetText(const CString& strText)
{
    // A window's text ends at a NUL.
    m_strText = strText.GetString();
    m_nAnchor = m_nCaret = 0;
    m_Edit.OnUpdate();
}

void CMemoryEditBox::SetSel(int nStart, int nEnd)
{
    const int nLength = static_cast<int>(m_strText.size());
    m_nAnchor = std::min(nStart, nLength);
    m_nCaret = nEnd < 0 ? nLength : std::min(nEnd, nLength);
}

void CMemoryEditBox::GetSel(int& nStart, int& nEnd) const
{
    std::tie(nStart, nEnd) = std::minmax(m_nAnchor, m_nCaret);
}

void CMemoryEditBox::OnKeyDown(const CKey& key)
{
    m_Key = key;
    m_Edit.OnKeyDown(key.nChar, key.bControl);
}

void CMemoryEditBox::OnChar(UINT nChar)
{
    m_nChar = nChar;
    m_Edit.OnChar(nChar);
}

// What the edit control does with the message that is being handled.
void CMemoryEditBox::Default()
{
    if (const UINT nChar = std::exchange(m_nChar, 0))
        TypeChar(nChar);
    else if (const CKey key = std::exchange(m_Key, CKey{}); key.nChar != 0)
        PressKey(key);
}

void CMemoryEditBox::TypeChar(UINT nChar)
{
    int nStart = 0;
    int nEnd = 0;
    GetSel(nStart, nEnd);
    if (nChar == VK_BACK)
        Replace(nStart == nEnd ? nStart - 1 : nStart, nEnd, "");
    else if (nChar >= ' ' && nChar != s_nCharDelete)
        Replace(nStart, nEnd, std::string(1, static_cast<char>(nChar)));
}

void CMemoryEditBox::PressKey(const CKey& key)
{
    int nStart = 0;
    int nEnd = 0;
    GetSel(nStart, nEnd);
    if (key.nChar == VK_HOME)
        MoveCaret(0, key.bShift);
    else if (key.nChar == VK_END)
        MoveCaret(static_cast<int>(m_strText.size()), key.bShift);
    else if (key.nChar == VK_DELETE)
        Replace(nStart, nStart == nEnd ? nEnd + 1 : nEnd, "");
}

void CMemoryEditBox::MoveCaret(int nTo, bool bExtend)
{
    m_nCaret = nTo;
    if (!bExtend)
        m_nAnchor = nTo;
}

// The caret stands behind the new text. Nothing happens where there is nothing to take away or put.
void CMemoryEditBox::Replace(int nStart, int nEnd, const std::string& strText)
{
    nStart = std::max(nStart, 0);
    nEnd = std::min(nEnd, static_cast<int>(m_strText.size()));
    if (nStart >= nEnd && strText.empty())
        return;
    m_strText.replace(nStart, nEnd - nStart, strText);
    MoveCaret(nStart + static_cast<int>(strText.size()), false);
    m_Edit.OnUpdate();
}

void CMemoryEditBox::SetFocus()
{
    m_Window.FocusBox(this);
}

void CMemoryEditBox::FocusParent()
{
    m_Window.FocusBox(nullptr);
}

void CMemoryEditBox::RedrawParent()
{
    m_Window.Repaint();
}

void CMemoryEditBox::NotifyAndClose()
{
    m_Window.CloseBox(this);
}
