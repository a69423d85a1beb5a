// Dialogs, and the way of a message through the loop.
#include "platform/win/dialog.h"

#include "dialog_template.h"
#include "platform/base/exception.h"
#include "platform/win/app_pump.h"
#include "platform/win/edit.h"
#include "platform/win/module.h"
#include "test_window.h"

namespace
{
constexpr char s_szControlClass[] = "TestCustomControl";
constexpr UINT IDC_EDIT = 21;
constexpr UINT IDC_CUSTOM = 22;

// Takes the arrows out of the loop before the dialog sees them, and logs what it is asked for.
class CCustom : public CWnd
{
public:
    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        if (pMsg->message != WM_KEYDOWN)
            return CWnd::PreTranslateMessage(pMsg);
        Log("Pre", pMsg->wParam);
        if (pMsg->wParam != VK_LEFT)
            return CWnd::PreTranslateMessage(pMsg);
        ::DispatchMessage(pMsg);
        return TRUE;
    }

private:
    void OnKeyDown(UINT nChar, UINT, UINT) { Log("Key", nChar); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CCustom, CWnd)
ON_WM_KEYDOWN()
END_MESSAGE_MAP()

class CTestDialog : public CDialog
{
public:
    CTestDialog()
    {
        WNDCLASSA control = {};
        control.lpfnWndProc = ::DefWindowProcA;
        control.hInstance = AfxGetInstanceHandle();
        control.lpszClassName = s_szControlClass;
        EXPECT_TRUE(AfxRegisterClass(&control));
        m_template.AddItem(WS_TABSTOP | WS_BORDER, IDC_EDIT, "Edit", "old");
        m_template.AddItem(WS_TABSTOP, IDC_CUSTOM, s_szControlClass, "");
        m_template.AddItem(WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK, "Button", "OK");
        m_template.AddItem(WS_TABSTOP, IDCANCEL, "Button", "Cancel");
    }
    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        if (pMsg->message == WM_KEYDOWN)
            Log("DialogPre", pMsg->wParam);
        return CDialog::PreTranslateMessage(pMsg);
    }
    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        EXPECT_TRUE(m_custom.SubclassDlgItem(IDC_CUSTOM, this));
        EXPECT_TRUE(m_edit.SubclassDlgItem(IDC_EDIT, this));
        if (m_onInit)
            m_onInit();
        return m_bDefaultFocus;
    }
    void OnOK() override
    {
        Log("OK");
        CDialog::OnOK();
    }
    // One key press, as from the keyboard.
    static void Press(HWND hWnd, UINT nKey) { ::PostMessageA(hWnd, WM_KEYDOWN, nKey, 1); }

    CDialogTemplate m_template{ WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME };
    CCustom m_custom;
    CEdit m_edit;
    std::function<void()> m_onInit;
    BOOL m_bDefaultFocus = TRUE;
};

TEST(Dialog, KeysGoToTheControlThenToTheDialog)
{
    CTestParent parent(true);
    CTestDialog dialog;
    dialog.m_bDefaultFocus = FALSE;
    ASSERT_TRUE(dialog.CreateIndirect(dialog.m_template.Get(), &parent));
    dialog.ShowWindow(SW_SHOW);
    PumpAll();
    const struct
    {
        UINT nKey;
        int nFocusBefore;
        const char* pszLog;
        int nFocusAfter;
    } aCases[] = {
        { VK_LEFT, IDC_CUSTOM, "Pre(37) Key(37)", IDC_CUSTOM },
        { VK_RIGHT, IDC_CUSTOM, "Pre(39) DialogPre(39)", IDOK },
        { VK_TAB, IDC_CUSTOM, "Pre(9) DialogPre(9)", IDOK },
        { VK_TAB, IDC_EDIT, "DialogPre(9)", IDC_CUSTOM },
        { 'A', IDC_CUSTOM, "Pre(65) DialogPre(65) Key(65)", IDC_CUSTOM },
        { VK_RETURN, IDC_EDIT, "DialogPre(13) OK", -1 },
    };
    for (const auto& row : aCases)
    {
        dialog.GetDlgItem(row.nFocusBefore)->SetFocus();
        PumpAll();
        TakeLog();
        CTestDialog::Press(::GetFocus(), row.nKey);
        PumpAll();
        EXPECT_EQ(TakeLog(), row.pszLog);
        if (row.nFocusAfter >= 0)
        {
            EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), row.nFocusAfter) << row.pszLog;
        }
    }
}

TEST(Dialog, MessagesAreOfferedUpToTheWindowThatStops)
{
    CTestParent parent;
    CCustom outer;
    MakeChild(outer, parent);
    CCustom inner;
    MakeChild(inner, outer);
    MSG message = { inner, WM_KEYDOWN, VK_F1, 1, 0, {} };
    EXPECT_FALSE(CWnd::WalkPreTranslateTree(parent, &message));
    EXPECT_EQ(TakeLog(), "Pre(112) Pre(112)");
    EXPECT_FALSE(CWnd::WalkPreTranslateTree(inner, &message));
    EXPECT_EQ(TakeLog(), "Pre(112)");
}

TEST(Dialog, RunsUntilItsEnd)
{
    CTestParent parent(true);
    CTestDialog dialog;
    ASSERT_TRUE(dialog.InitModalIndirect(dialog.m_template.Get(), &parent));
    const struct
    {
        const char* pszName;
        std::function<void()> onInit;
        INT_PTR nResult;
    } aCases[] = {
        { "the default button's key", [&] { CTestDialog::Press(dialog.m_edit, VK_RETURN); }, IDOK },
        { "Escape", [&] { CTestDialog::Press(dialog.m_edit, VK_ESCAPE); }, IDCANCEL },
        { "the close box", [&] { dialog.PostMessage(WM_CLOSE); }, IDCANCEL },
        { "a click", [&] { dialog.GetDlgItem(IDCANCEL)->PostMessage(BM_CLICK); }, IDCANCEL },
        { "its own result", [&] { dialog.EndDialog(1234); }, 1234 },
        { "no window any more",
          [&] { ::PostMessageA(dialog, WM_SYSCOMMAND, 0, 0), ::DestroyWindow(dialog); }, -1 },
    };
    for (const auto& row : aCases)
    {
        dialog.m_onInit = [&]
        {
            EXPECT_FALSE(parent.IsWindowEnabled());
            row.onInit();
        };
        EXPECT_EQ(dialog.DoModal(), row.nResult) << row.pszName;
        EXPECT_TRUE(parent.IsWindowEnabled()) << row.pszName;
        EXPECT_EQ(dialog.GetSafeHwnd(), nullptr) << row.pszName;
    }
    dialog.m_onInit = AfxThrowMemoryException;
    EXPECT_THROW(dialog.DoModal(), CMemoryException*);
    EXPECT_TRUE(parent.IsWindowEnabled());
    EXPECT_EQ(dialog.GetSafeHwnd(), nullptr);

    dialog.m_onInit = std::bind_front(::PostQuitMessage, 7);
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_FALSE(AfxPumpMessage()) << "the loop around it ends as well";
    EXPECT_EQ(AfxQuitCode(), 7);
    EXPECT_EQ(CDialog(999U, &parent).DoModal(), -1) << "no such template";
}
}  // namespace
