// A formula that the user edits in a dialog: the template names the control by its window class.
#include <mivora/control/win32/formula_ctrl.h>
#include <mivora/mivora.h>
#include <mivora/platform/win/dialog.h>
#include <mivora/platform/win/message_map.h>

#include "dialog_resource.h"
#include "painted.h"

namespace
{
constexpr UINT s_nWmLook = WM_APP;
constexpr int s_nNotPainted = -1;

class CFormulaDialog : public CDialog
{
    DECLARE_MESSAGE_MAP()

public:
    CFormulaDialog() : CDialog(IDD_FORMULA) {}

protected:
    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        m_formula.FormTree("(a+b)/sqr(x)=sum(i,i=1,n)");
        m_control.SetTree(&m_formula.m_Tree);  // before the first paint
        m_control.SubclassDlgItem(IDC_FORMULA, this);
        if (IsForOnce())
            PostMessage(s_nWmLook);
        return TRUE;
    }

    // A node was deleted by key, or the edit of a text has ended.
    void OnFormulaChanged(NMHDR*, LRESULT*) { SetWindowText("Formula (changed)"); }

    LRESULT OnLook(WPARAM, LPARAM)
    {
        ShowWindow(SW_SHOW);  // else it would wait until there are no messages
        EndDialog(HasPainted(m_control) ? IDOK : s_nNotPainted);
        return 0;
    }

private:
    CFormulaOut m_formula;  // before the control, which holds its tree to the end
    // A member, because its constructor makes the window class known: the template needs it.
    CFormulaCtrl m_control;
};

BEGIN_MESSAGE_MAP(CFormulaDialog, CDialog)
ON_MESSAGE(s_nWmLook, OnLook)
ON_NOTIFY(FCN_CHANGED, IDC_FORMULA, OnFormulaChanged)
END_MESSAGE_MAP()
}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    return CFormulaDialog().DoModal() == s_nNotPainted ? 1 : 0;
}
