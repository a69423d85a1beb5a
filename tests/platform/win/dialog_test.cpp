// Dialogs, and the way of a message through the loop.
#include "platform/win/dialog.h"

#include "dialog_template.h"
#include "platform/base/exception.h"
#include "platform/win/app_pump.h"
#include "platform/win/edit.h"
#include "test_window.h"

namespace
{
constexpr UINT IDC_EDIT = 21;

class CAsked : public CWnd
{
public:
    BOOL PreTranslateMessage(MSG* pMsg) override
    {
        Log("Pre", pMsg->wParam);
        return CWnd::PreTranslateMessage(pMsg);
    }
};

class CTestDialog : public CDialog
{
public:
    CTestDialog()
    {
        m_template.AddItem(WS_TABSTOP | WS_BORDER, IDC_EDIT, "Edit", "old");
        m_template.AddItem(WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK, "Button", "OK");
        m_template.AddItem(WS_TABSTOP, IDCANCEL, "Button", "Cancel");
    }
    BOOL OnInitDialog() override
    {
        EXPECT_TRUE(m_edit.SubclassDlgItem(IDC_EDIT, this));
        m_onInit();
        return CDialog::OnInitDialog();
    }
    // One key press, as from the keyboard.
    static void Press(HWND hWnd, UINT nKey) { ::PostMessageA(hWnd, WM_KEYDOWN, nKey, 1); }

    CDialogTemplate m_template{ WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME };
    CEdit m_edit;
    std::function<void()> m_onInit;
};

TEST(Dialog, MessagesAreOfferedUpToTheWindowThatStops)
{
    CTestParent parent;
    CAsked outer;
    MakeChild(outer, parent);
    CAsked inner;
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
    const std::tuple<const char*, std::function<void()>, INT_PTR> aCases[] = {
        { "the default button's key", [&] { CTestDialog::Press(dialog.m_edit, VK_RETURN); }, IDOK },
        { "Escape", [&] { CTestDialog::Press(dialog.m_edit, VK_ESCAPE); }, IDCANCEL },
        { "the close box", [&] { dialog.PostMessage(WM_CLOSE); }, IDCANCEL },
        { "a click", [&] { dialog.GetDlgItem(IDCANCEL)->PostMessage(BM_CLICK); }, IDCANCEL },
        { "its own result", [&] { dialog.EndDialog(1234); }, 1234 },
        { "no window any more",
          [&] { ::PostMessageA(dialog, WM_SYSCOMMAND, 0, 0), ::DestroyWindow(dialog); }, -1 },
    };
    for (const auto& [pszName, onInit, nResult] : aCases)
    {
        dialog.m_onInit = [&]
        {
            EXPECT_FALSE(parent.IsWindowEnabled());
            onInit();
        };
        EXPECT_EQ(dialog.DoModal(), nResult) << pszName;
        EXPECT_TRUE(parent.IsWindowEnabled()) << pszName;
        EXPECT_EQ(dialog.GetSafeHwnd(), nullptr) << pszName;
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
