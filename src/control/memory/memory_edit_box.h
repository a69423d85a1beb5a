// The box of the in-place editor without a window: a text, a selection, and the keys of an edit
// control with one line.
#pragma once

#include <string>

#include "control/formula_control.h"
#include "control/in_place_edit.h"

class CMemoryWindow;

class CMemoryEditBox final : private CEditBox
{
public:
    CMemoryEditBox(CMemoryWindow& window, CNode* pNode, UINT nFirstChar);

    CInPlaceEdit& GetEdit() { return m_Edit; }
    void Open(const CRect& rect) { m_Edit.Open(rect); }

    // Messages. The box may be gone afterwards.
    void OnKeyDown(const CKey& key);
    void OnChar(UINT nChar);
    void OnKillFocus() { m_Edit.OnKillFocus(); }

    const CRect& GetRect() const { return m_rect; }
    const std::string& GetString() const { return m_strText; }
    void GetSel(int& nStart, int& nEnd) const override;
    CString GetText() const override;

private:
    bool Create(const CRect& rect, const LOGFONTA& lf) override;
    void Default() override;
    void SetText(const CString& strText) override;
    void SetSel(int nStart, int nEnd) override;
    void SendChar(UINT nChar) override { OnChar(nChar); }
    void MoveWindow(const CRect& rect) override { m_rect = rect; }
    void SetFocus() override;
    void FocusParent() override;
    void RedrawParent() override;
    void NotifyAndClose() override;

    void TypeChar(UINT nChar);
    void PressKey(const CKey& key);
    void MoveCaret(int nTo, bool bExtend);
    void Replace(int nStart, int nEnd, const std::string& strText);

    CMemoryWindow& m_Window;
    CRect m_rect;
    std::string m_strText;
    int m_nAnchor = 0;  // where a selection began, characters
    int m_nCaret = 0;
    CKey m_Key{};  // what Default is to handle: a key, or a character
    UINT m_nChar = 0;
    CInPlaceEdit m_Edit;
};
