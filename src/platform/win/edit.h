// The system's box for a line or some lines of text. Places count the text's bytes from 0.
#pragma once

#include "platform/win/window.h"

class CEdit : public CWnd
{
    DECLARE_DYNAMIC(CEdit)

public:
    // ES_ and WS_ styles; WS_CHILD is added.
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);

    void Clear();  // deletes the selection
    void Copy();
    void Cut();
    void GetSel(int& nStart, int& nEnd) const;
    void LimitText(int nMost = 0);
    void Paste();
    BOOL SetReadOnly(BOOL bReadOnly = TRUE);
    // (0, -1) is everything; (-1, n) takes the selection away. Then the caret is scrolled into
    // view.
    void SetSel(int nStart, int nEnd, BOOL bNoScroll = FALSE);
    BOOL Undo();
};
