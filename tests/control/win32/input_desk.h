// A host's dialog with formula controls, and a hand on mouse and keyboard that works in it.
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <thread>

#include "control/control_driver.h"
#include "control/win32/formula_ctrl.h"
#include "platform/win/desk.h"
#include "platform/win/dialog.h"

// Fields of a dialog's state behind those of a control's.
enum EDialogField
{
    FOCUS =
        ANSWER,  // text, first, second, box, button or nothing, and how often OK and Cancel came
    CLICKS,      // messages of the first control: down, up, Double
    SECOND,      // tree of the second control
};

constexpr DROPEFFECT NO_EFFECT = 99;  // there was no drag yet

// Title of the other process's dialog when it is ready. For WM_TREE it has its tree there instead,
// and says whether no drag can change it; the process ends with the dialog.
constexpr char PARTNER_TITLE[] = "input partner";
constexpr UINT WM_TREE = WM_APP;

class CInputCtrl : public CFormulaCtrl
{
public:
    explicit CInputCtrl(const char* pszText);

    CNode* NodeAt(const std::string& strPath) { return ::NodeAt(*GetTree(), strPath); }
    // The middle of a node's own part, screen coordinates.
    CPoint PlaceOf(const std::string& strPath);
    // A placeholder in the place of a node, which is selected then.
    void MakeHole(const std::string& strPath);
    COleDataSource* CreateDataSource() override;
    DROPEFFECT OnDragOver(COleDataObject* pData, DWORD dwKeyState, CPoint point) override;

    CFormulaOut m_Formula;
    std::string m_strClicks;
    // Of a drag that comes from the control or goes over it, the last one.
    DROPEFFECT m_nEffect = NO_EFFECT;
    bool m_bDragged = false;  // from the control, which goes on when that ends

protected:
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override;
};

// A text, two controls, and the default button with the mnemonic A.
class CInputDialog : public CDialog
{
public:
    CInputDialog(CPoint place, const char* pszText, const char* pszSecond);

    std::string GetState();
    bool HasChanged() const { return m_nChanges > 0; }
    // What a word of the hand's script means, screen coordinates.
    CPoint PlaceOf(const std::string& strWord);

    CInputCtrl m_First;
    CInputCtrl m_Second;
    HWND m_hPartner = nullptr;  // a dialog in another process
    std::function<void()> m_onChange;

protected:
    BOOL OnInitDialog() override;
    void OnOK() override { m_nPresses++; }
    void OnCancel() override { m_nPresses++; }
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) override;

private:
    std::string FocusName() const;

    int m_nPresses = 0;
    int m_nChanges = 0;
};

// Plays a script from a thread of its own, each word when what went before has been handled:
//   @PATH #PATH    to the middle of a node of the first or second control, with + a bit below it
//   $0 $1          to the node LL or LR of the other process
//   free off       to a free place of the first control, beside both
//   down up click double     the left button
//   lock hole      the second control becomes read-only; the first one has a placeholder at LL
//   =N ?N          waits, moving a bit, until a drag of the first control or over it, or of that of
//   the other process, has that effect
//   x Tab Alt-x +Ctrl        keys, a key with another one, a key that stays down
// At its end, or when something does not come within 4 seconds, it leaves nothing pressed.
class CInputHand
{
public:
    CInputHand(CInputDialog& dialog, const std::string& strScript);
    ~CInputHand();
    CInputHand(const CInputHand&) = delete;
    CInputHand& operator=(const CInputHand&) = delete;

    // Handles messages until the script is at its end; false if the hand gave up.
    bool Play();

private:
    void Run(const std::string& strScript);
    void Do(const std::string& strWord);
    void Move();
    void WaitFor(const std::function<bool()>& condition);
    LRESULT Ask(HWND hDialog, UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0);
    void WaitUntilHandled();
    void EndDrag();

    CInputDialog& m_Dialog;
    CPoint m_at;       // where the mouse is to be
    WORD m_nHeld = 0;  // the key that stays down
    std::atomic<bool> m_bDone = false;
    std::atomic<bool> m_bGaveUp = false;
    std::thread m_thread;
};
