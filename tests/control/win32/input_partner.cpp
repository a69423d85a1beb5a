// The second process of the tests: input_partner.exe TEXT [ACTION=PATH ...]
// A control with the text in a dialog; copy, hole and paste act on a node, lock makes it read-only.
#include "control/win32/input_desk.h"
#include "nodes/node.h"
#include "platform/win/desk.h"
#include "platform/win/ole_init.h"
#include "tree/bin_tree.h"

namespace
{

void Act(CInputCtrl& ctrl, const std::string& strAction, const std::string& strPath)
{
    if (strAction == "hole")
        return ctrl.MakeHole(strPath);
    if (strAction == "lock")
        return ctrl.SetReadOnly(TRUE);
    ctrl.GetTree()->SetSelection(ctrl.NodeAt(strPath), PF_SUBTREE);
    if (strAction == "copy")
        ctrl.Copy();
    else
        ctrl.Paste();
}

}  // namespace

int main(int nArguments, char** ppszArguments)
{
    const CBoxedPlaceholders boxed;
    if (nArguments < 2 || !AfxOleInit())
        return 2;
    {
        CInputDialog dialog(CPoint(700, 300), ppszArguments[1], "x");
        for (int i = 2; i < nArguments; i++)
        {
            const std::string strWord = ppszArguments[i];
            const size_t nSign = strWord.find('=');
            Act(dialog.m_First, strWord.substr(0, nSign), strWord.substr(nSign + 1));
        }
        dialog.SetWindowText(PARTNER_TITLE);
        PumpUntil([&] { return dialog.GetSafeHwnd() == nullptr; }, 60000);
    }
    AfxOleTerm();
    return 0;
}
