// The control in a host's dialog under keys and mouse that come through the system's input queue:
// navigation, typing, clipboard and drags, also between two processes; and hosts that end it.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <optional>
#include <stdexcept>

#include "control/gesture_cases.h"
#include "control/in_place_edit.h"
#include "control/tree_texts.h"
#include "control/win32/input_desk.h"
#include "nodes/node.h"
#include "platform/base/app.h"
#include "platform/win/desk.h"
#include "platform/win/holdings.h"
#include "tree/bin_tree.h"

namespace
{

// A placeholder in the place of the left operand.
#define HOLE "@LL click Del "
#define OPEN "@L click @L+ click "

void Play(CInputDialog& dialog, const std::string& strScript)
{
    CInputHand hand(dialog, strScript);
    EXPECT_TRUE(hand.Play());
}

// Focus in the first control, the button let go of and the last click far away.
void Begin(CInputDialog& dialog)
{
    dialog.SetForegroundWindow();
    dialog.m_First.SetFocus();
    Play(dialog, "off click");
    dialog.m_First.m_strClicks.clear();
}

void ExpectState(CInputDialog& dialog, const CFieldText& begin)
{
    const auto isThere = [&]
    {
        return FieldOf(dialog.GetState(), begin.nField).starts_with(begin.pszText);
    };
    EXPECT_TRUE(PumpUntil(isThere, 4000)) << begin.pszText << "\nis not in " << dialog.GetState();
}

// Scripts as CInputHand takes them, and what the fields begin with.
void PlayCases(std::span<const CGestureCase> cases, const std::function<void()>& onChange = {})
{
    for (const CGestureCase& one : cases)
    {
        SCOPED_TRACE(one.pszName);
        CInputDialog dialog(CPoint(100, 100), one.pszText, "c+d");
        dialog.m_onChange = onChange;
        Begin(dialog);
        Play(dialog, one.pszScript);
        for (const CFieldText* pField = one.aExpected; pField->pszText != nullptr; pField++)
            ExpectState(dialog, *pField);
    }
}

// clang-format off
const CGestureCase s_aCases[] = {
    { "left stays in the control, left neither", "a+b", "@L click Left", { { SELECTION, "/LL:1" }, { FOCUS, "first 0" } } },
    { "right", "a+b", "@L click Right", { { SELECTION, "/LR:1" } } },
    { "up", "a+b", "@LR click Up", { { SELECTION, "/L:1" } } },
    { "down moves no focus", "a+b", "@L click Down", { { FOCUS, "first 0" } } },
    { "delete, delete moves no focus", "a+b", HOLE, { { TREE, PLUS(PLACE, NAME("b")) }, { FOCUS, "first 0" } } },
    { "Tab leaves the control", "a+b", "@L click Tab", { { FOCUS, "second 0" } } },
    { "backwards", "a+b", "@L click Shift-Tab", { { FOCUS, "text 0" } } },
    { "Enter is the dialog's", "a+b", "@L click Enter", { { FOCUS, "first 1" } } },
    { "a mnemonic too", "a+b", "@LL click Alt-a", { { FOCUS, "button 1" } } },
    { "Tab ends the edit, with its text", "a+b", "@LL click x Tab", { { FOCUS, "first 0" }, { TREE, PLUS(NAME("X"), NAME("b")) } } },
    { "Enter ends the edit, Enter takes a step", "a+b", "@LL click x Enter", { { FOCUS, "first 0" }, { COUNTS, "undo 1 changed 1" } } },
    { "Escape ends the edit, without its text", "a+b", "@LL click x Esc", { { FOCUS, "first 0" }, { TREE, PLUS(NAME("a"), NAME("b")) } } },
    { "arrows end the edit", "a+b", "@LL click x Left", { { FOCUS, "first 0" } } },
    { "other keys stay", "a+b", "@LL click x y Home Del", { { EDITOR, "/LL \"y\" 0 0" } } },
    { "delete in the box deletes no node", "a+b", "@LL click x Del Del Enter", { { TREE, PLUS(NAME("X"), NAME("b")) } } },
    { "Alt with a character in the box, is no mnemonic", "a+b", "@LL click x Alt-a", { { EDITOR, "/LL \"X\" 1 1" }, { FOCUS, "box 0" } } },
    { "a name begins with a capital", "a+b", HOLE "v a r", { { EDITOR, "/LL \"Var\" 3 3" } } },
    { "also with Shift", "a+b", HOLE "Shift-v Shift-a r", { { EDITOR, "/LL \"VAr\" 3 3" } } },
    { "a digit is one also with Shift", "a+b", HOLE "Shift-2", { { EDITOR, "/LL \"2\" 1 1" } } },
    { "the number pad gives letters", "a+b", HOLE "Pad1", { { EDITOR, "/LL \"a\" 1 1" } } },
    { "Space and Delete", "a+b", "@L click Space Del", { { TREE, TREE_OF(PLACE) } } },
    { "a double click, its four messages", "a+b", "@L double", { { SELECTION, "/L:2" }, { CLICKS, "duDu" } } },
    { "two clicks open the editor, and are no double click", "2", OPEN, { { EDITOR, "/L \"2\" 0 1" }, { CLICKS, "dudu" } } },
    { "a double click falls to the box, which stays open", "2", "@L click @L+ double", { { CLICKS, "dudu" }, { FOCUS, "box 0" } } },
    { "a click beside it ends the edit, and selects", "2", OPEN "3 free click", { { TREE, NUMBER("3") }, { SELECTION, "/:1" } } },
    { "Tab after an edit leaves", "2", OPEN "3 Tab Tab", { { FOCUS, "second 0" } } },
    { "copy and paste", "a+b", "@LR click Ctrl-c " HOLE "Ctrl-v", { { TREE, PLUS(NAME("b"), NAME("b")) } } },
    { "by the other keys", "a+b", "@LR click Ctrl-Ins " HOLE "Shift-Ins", { { TREE, PLUS(NAME("b"), NAME("b")) } } },
    { "cut and paste elsewhere", "a+b", "@LR click Ctrl-x Ctrl-a Left Left Del Ctrl-v", { { TREE, PLUS(NAME("b"), PLACE) } } },
    { "copied to another control", "a+b", "@LR click Ctrl-c #LL click Del Ctrl-v", { { SECOND, PLUS(NAME("b"), NAME("d")) } } },
    { "in the box the keys are the box's", "a+b", "@LR click Ctrl-c @LL click x Ctrl-v", { { EDITOR, "/LL \"X\" 1 1" } } },
};
// clang-format on

TEST(Input, KeysAndMouseInADialog)
{
    PlayCases(s_aCases);
}

#define DRAG_B HOLE "@LR down @LL =2 "

// clang-format off
const CGestureCase s_aDrags[] = {
    { "moved, with one step, the source is selected", "a+b", DRAG_B "up", { { TREE, PLUS(NAME("b"), PLACE) }, { COUNTS, "undo 1 changed 1" }, { SELECTION, "/LR:2" } } },
    { "copied", "a+b", DRAG_B "+Ctrl =1 up", { { TREE, PLUS(NAME("b"), NAME("b")) } } },
    { "cancelled, selects in mode 2, and tells the dialog nothing", "a+b", DRAG_B "Esc up", { { TREE, PLUS(PLACE, NAME("b")) }, { SELECTION, "/LR:2" }, { FOCUS, "first 0" } } },
    { "refused by another node", "a+b", "@LR down @LL =0 up", { { TREE, PLUS(NAME("a"), NAME("b")) } } },
    { "let go outside", "a+b", DRAG_B "off =0 up", { { TREE, PLUS(PLACE, NAME("b")) } } },
    { "a placeholder on itself", "a+b", HOLE "@LL down @LR =0 @LL =2 up", { { TREE, PLUS(PLACE, NAME("b")) } } },
    { "a subtree", "a+b+c", "@LR click Del @LL double down @LR =2 up", { { TREE, PLUS(PLACE, "(PLUS \"+\" " NAME("a") " " NAME("b") ")") } } },
    { "to another control, which leaves a placeholder", "a+b", "#LL click Del @LR down @LL #LL =2 up", { { SECOND, PLUS(NAME("b"), NAME("d")) }, { TREE, PLUS(NAME("a"), PLACE) } } },
    { "copied there", "a+b", "#LL click Del @LR down @LL #LL =2 +Ctrl =1 up", { { TREE, PLUS(NAME("a"), NAME("b")) } } },
    { "refused by a read-only control, nothing is lost then", "a+b", "#LL click Del lock @LR down @LL #LL =0 up", { { SECOND, PLUS(PLACE, NAME("d")) }, { TREE, PLUS(NAME("a"), NAME("b")) } } },
};
// clang-format on

TEST(Input, DragsInOneProcess)
{
    const CBoxedPlaceholders boxed;
    PlayCases(s_aDrags);
}

// ---- Two processes

// A second process with a dialog, which ends with this object.
class CInputPartner
{
public:
    explicit CInputPartner(const std::string& strArguments)
    {
        char szPath[MAX_PATH];
        ::GetModuleFileNameA(nullptr, szPath, MAX_PATH);
        const auto program = std::filesystem::path(szPath).replace_filename("input_partner.exe");
        std::string strCommand = '"' + program.string() + "\" " + strArguments;
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        EXPECT_TRUE(::CreateProcessA(nullptr, strCommand.data(), nullptr, nullptr, FALSE, 0,
                                     nullptr, nullptr, &startup, &m_Process));
        const auto isReady = [&]
        {
            m_hDialog = ::FindWindowA(nullptr, PARTNER_TITLE);
            return m_hDialog != nullptr;
        };
        EXPECT_TRUE(PumpUntil(isReady));
    }
    ~CInputPartner()
    {
        End();
        ::CloseHandle(m_Process.hThread);
        ::CloseHandle(m_Process.hProcess);
    }

    // Its tree, at its end.
    std::string End()
    {
        char szTree[1000] = "";
        if (!::IsWindow(m_hDialog))
            return szTree;
        EXPECT_TRUE(PumpUntil([&] { return ::SendMessageA(m_hDialog, WM_TREE, 0, 0) != 0; }));
        ::SendMessageA(m_hDialog, WM_GETTEXT, sizeof szTree, reinterpret_cast<LPARAM>(szTree));
        ::SendMessageA(m_hDialog, WM_CLOSE, 0, 0);
        DWORD nCode = STILL_ACTIVE;
        if (!PumpUntil([&] { return ::WaitForSingleObject(m_Process.hProcess, 0) == 0; }))
            ::TerminateProcess(m_Process.hProcess, nCode);
        ::GetExitCodeProcess(m_Process.hProcess, &nCode);
        EXPECT_EQ(nCode, 0U);
        return szTree;
    }

    HWND m_hDialog = nullptr;

private:
    PROCESS_INFORMATION m_Process{};
};

// The partner's text and actions, the script, the tree and the partner's tree.
// clang-format off
const std::array<const char*, 4> s_aBetween[] = {
    { "c+d hole=LL", "@LR down @LL $0 =2 up", PLUS(NAME("a"), PLACE), PLUS(NAME("b"), NAME("d")) },
    { "c+d hole=LL", "@LR down @LL $0 =2 +Ctrl =1 up", PLUS(NAME("a"), NAME("b")), PLUS(NAME("b"), NAME("d")) },
    { "c+d hole=LL", "@LR down @LL $0 =2 Esc up", PLUS(NAME("a"), NAME("b")), PLUS(PLACE, NAME("d")) },
    { "c+d", "@LR down @LL $0 =0 up", PLUS(NAME("a"), NAME("b")), PLUS(NAME("c"), NAME("d")) },
    { "c+d hole=LL lock=", "@LR down @LL $0 =0 up", PLUS(NAME("a"), NAME("b")), PLUS(PLACE, NAME("d")) },
    { "c+d", "hole $1 down $0 ?0 @LL =2 up", PLUS(NAME("d"), NAME("b")), PLUS(NAME("c"), PLACE) },
    { "c+d", "hole $1 down $0 ?0 @LL =2 +Ctrl =1 up", PLUS(NAME("d"), NAME("b")), PLUS(NAME("c"), NAME("d")) },
    { "c+d", "hole $1 down $0 ?0 @LL =2 @LR =0 up", PLUS(PLACE, NAME("b")), PLUS(NAME("c"), NAME("d")) },
};
// clang-format on

TEST(Input, DragsBetweenProcesses)
{
    const CBoxedPlaceholders boxed;
    for (const auto& [pszPartner, pszScript, pszTree, pszItsTree] : s_aBetween)
    {
        SCOPED_TRACE(pszScript);
        CInputPartner partner(pszPartner);
        CInputDialog dialog(CPoint(100, 100), "a+b", "x");
        dialog.m_hPartner = partner.m_hDialog;
        Begin(dialog);
        Play(dialog, pszScript);
        ExpectState(dialog, { TREE, pszTree });
        EXPECT_EQ(partner.End(), pszItsTree);
    }
}

TEST(Input, ClipboardBetweenProcesses)
{
    for (const bool bOwnerEnds : { false, true })
    {
        SCOPED_TRACE(bOwnerEnds);
        std::optional<CInputDialog> dialog(std::in_place, CPoint(100, 100), "a+b", "x");
        Begin(*dialog);
        Play(*dialog, "@LR click Ctrl-c");
        if (bOwnerEnds)
            dialog.reset();
        CInputPartner reader("c+d hole=LL paste=LL");
        EXPECT_EQ(reader.End(), PLUS(NAME("b"), NAME("d")));

        CInputPartner writer("c+d copy=LR");
        if (bOwnerEnds)
            writer.End();
        if (!dialog)
            dialog.emplace(CPoint(100, 100), "a+b", "x");
        Begin(*dialog);
        Play(*dialog, HOLE "Ctrl-v");
        ExpectState(*dialog, { TREE, PLUS(NAME("d"), NAME("b")) });
    }
}

// ---- Hosts that end it, and hosts that throw

using CCtrlPtr = std::unique_ptr<CInputCtrl>;

// A control of its own on the dialog, with the text "2" and the editor open over it, "7" typed.
CCtrlPtr OpenEditor(CInputDialog& dialog)
{
    auto pCtrl = std::make_unique<CInputCtrl>("2");
    pCtrl->Create(&dialog, CRect(240, 10, 460, 40), 30, WS_CHILD | WS_VISIBLE);
    pCtrl->GetTree()->SetSelection(pCtrl->NodeAt("L"), PF_NODE);
    pCtrl->SendMessage(WM_KEYDOWN, '7');
    EXPECT_NE(pCtrl->GetControl().m_pInPlaceEdit, nullptr);
    return pCtrl;
}

struct CEnding
{
    const char* pszName;
    void (*pfnEnd)(CInputDialog& dialog, CCtrlPtr& pCtrl);
    bool bChanges;  // the host hears of it
};

const CEnding s_aEndings[] = {
    { "its window", [](CInputDialog&, CCtrlPtr& pCtrl) { pCtrl->DestroyWindow(); }, true },
    { "the dialog", [](CInputDialog& dialog, CCtrlPtr&) { dialog.DestroyWindow(); }, true },
    { "the object", [](CInputDialog&, CCtrlPtr& pCtrl) { pCtrl.reset(); }, false },
    { "in the handler of the change",
      [](CInputDialog& dialog, CCtrlPtr& pCtrl)
      {
          dialog.m_onChange = [&]
          {
              pCtrl->DestroyWindow();
          };
          pCtrl->GetDlgItem(FORMULA_EDIT_ID)->SendMessage(WM_CHAR, VK_RETURN);
      },
      true },
    { "an editor without the focus",
      [](CInputDialog& dialog, CCtrlPtr& pCtrl)
      {
          dialog.SetFocus();
          pCtrl->GetTree()->SetSelection(pCtrl->NodeAt("L"), PF_NODE);
          pCtrl->EnableWindow(FALSE);
          pCtrl->SendMessage(WM_KEYDOWN, '7');
          EXPECT_NE(pCtrl->GetControl().m_pInPlaceEdit, nullptr);
          pCtrl->DestroyWindow();
      },
      true },
};

TEST(Input, EndsWithAnOpenEditor)
{
    for (const CEnding& ending : s_aEndings)
    {
        SCOPED_TRACE(ending.pszName);
        CInputDialog dialog(CPoint(100, 100), "a+b", "x");
        CCtrlPtr pCtrl = OpenEditor(dialog);
        ending.pfnEnd(dialog, pCtrl);
        PumpFor(20);
        EXPECT_EQ(dialog.HasChanged(), ending.bChanges);
        if (pCtrl == nullptr)
            continue;
        EXPECT_EQ(pCtrl->GetSafeHwnd(), nullptr);
        EXPECT_EQ(pCtrl->GetControl().m_pInPlaceEdit, nullptr);
        EXPECT_EQ(pCtrl->NodeAt("L")->GetFlags() & NF_HIDDEN, 0U);
        EXPECT_STREQ(pCtrl->NodeAt("L")->GetSymbol(), "7");
    }
}

TEST(Input, ControlsLeaveNothing)
{
    CInputDialog dialog(CPoint(100, 100), "a+b", "x");
    const auto makeTwo = [&]
    {
        OpenEditor(dialog);
        OpenEditor(dialog)->DestroyWindow();
    };
    ExpectNothingLeft(100, makeTwo);
    EXPECT_EQ(dialog.GetDlgItem(30), nullptr);
}

// The edit has ended with its text and a step, and the control goes on.
TEST(Input, HostThrows)
{
    int nMessages = 0;
    const auto count = [](const char* pszText, unsigned, void* pCount)
    {
        *static_cast<int*>(pCount) += std::string(pszText).starts_with("no room");
        return IDOK;
    };
    AfxSetMessageBoxHandler(count, &nMessages);
    const CGestureCase aCases[] = {
        { "once", "2", OPEN "3 Enter", { { EDITOR, "-" }, { COUNTS, "undo 1 changed 1" } } },
        { "again", "2", OPEN "3 Enter @L click @L+ click 4 Enter", { { TREE, NUMBER("4") } } },
    };
    PlayCases(aCases, [] { throw std::runtime_error("no room"); });
    EXPECT_EQ(nMessages, 3);
    AfxSetMessageBoxHandler(nullptr, nullptr);
}

}  // namespace
