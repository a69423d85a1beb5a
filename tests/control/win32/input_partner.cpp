// The second process of the tests: input_partner.exe TEXT [ACTION=PATH ...]
// A control with the text in a dialog; copy, hole and paste act on a node, lock makes it read-only.
// Says "ready", its window and where its nodes LL and LR are, handles messages until its input
// ends, and then writes its tree.
#include <cstdio>

#include "control/win32/input_desk.h"
#include "nodes/node.h"
#include "platform/win/desk.h"
#include "platform/win/ole_init.h"
#include "tree/bin_tree.h"
#include "tree/tree_form.h"

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

std::string Spot(CInputCtrl& ctrl, const std::string& strPath)
{
    const CPoint place = ctrl.PlaceOf(strPath);
    return ' ' + std::to_string(place.x) + ' ' + std::to_string(place.y);
}

}  // namespace

int main(int nArguments, char** ppszArguments)
{
    const CBoxedPlaceholders boxed;
    if (nArguments < 2 || !AfxOleInit())
        return 2;
    {
        CInputDialog dialog(CPoint(700, 300), ppszArguments[1], "x");
        CInputCtrl& ctrl = dialog.m_First;
        for (int i = 2; i < nArguments; i++)
        {
            const std::string strWord = ppszArguments[i];
            const size_t nSign = strWord.find('=');
            Act(ctrl, strWord.substr(0, nSign), strWord.substr(nSign + 1));
        }
        PumpToEnd("ready " + std::to_string(reinterpret_cast<UINT_PTR>(dialog.m_hWnd)) +
                  Spot(ctrl, "LL") + Spot(ctrl, "LR"));
        const CString strTree = TreeForm(ctrl.GetTree()->GetRootNode());
        std::puts(strTree.GetString());
        std::fflush(stdout);
    }
    AfxOleTerm();
    return 0;
}
