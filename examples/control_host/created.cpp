// A formula that the user edits: the control fills a main window.
#include <mivora/control/win32/formula_ctrl.h>
#include <mivora/mivora.h>
#include <mivora/platform/win/app_pump.h>
#include <mivora/platform/win/frame.h>
#include <mivora/platform/win/message_map.h>

#include "painted.h"

namespace
{
// A frame gives the child of this number all its room.
constexpr UINT IDC_FORMULA = AFX_IDW_PANE_FIRST;

class CHostFrame : public CFrameWnd
{
    DECLARE_MESSAGE_MAP()

public:
    CFormulaCtrl& Control() { return m_control; }

protected:
    int OnCreate(LPCREATESTRUCTA pCreate)
    {
        if (CFrameWnd::OnCreate(pCreate) != 0)
            return -1;
        m_formula.FormTree("(a+b)/sqr(x)=sum(i,i=1,n)");
        m_control.SetTree(&m_formula.m_Tree);  // before the first paint
        if (!m_control.Create(this, CRect(), IDC_FORMULA, WS_CHILD | WS_VISIBLE))
            return -1;
        SetActiveView(&m_control);  // has the focus, and the commands of a menu first
        return 0;
    }

    // A node was deleted by key, or the edit of a text has ended.
    void OnFormulaChanged(NMHDR*, LRESULT*) { SetWindowText("Formula (changed)"); }

private:
    CFormulaOut m_formula;  // before the control, which holds its tree to the end
    CFormulaCtrl m_control;
};

BEGIN_MESSAGE_MAP(CHostFrame, CFrameWnd)
ON_WM_CREATE()
ON_NOTIFY(FCN_CHANGED, IDC_FORMULA, OnFormulaChanged)
END_MESSAGE_MAP()

class CHostApp : public CWindowApp
{
public:
    BOOL InitInstance() override
    {
        auto* pFrame = new CHostFrame;  // deletes itself when its window is gone
        m_pMainWnd = pFrame;
        if (!pFrame->Create(nullptr, "Formula"))
            return FALSE;
        pFrame->ShowWindow(SW_SHOWNORMAL);
        if (!IsForOnce())
            return TRUE;
        m_nResult = HasPainted(pFrame->Control()) ? 0 : 1;
        return FALSE;
    }
    int ExitInstance() override { return m_nResult; }

private:
    int m_nResult = 0;
};
}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    CHostApp app;
    return AfxWinMain();
}
