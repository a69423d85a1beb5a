// Any bytes as a stored formula: the bare archive of a tree, and, where they look like one, a
// compound file. What loads is measured, painted, hit, written in all forms, copied, edited and
// stored.
#include <cstdint>

#include "nodes/node.h"
#include "platform/base/archive.h"
#include "platform/base/exception.h"
#include "platform/doc/compound_file.h"
#include "platform/gdi/dc.h"
#include "quiet_host.h"
#include "service/formula_out.h"
#include "tree/tree_form.h"

namespace
{
void Look(CFormulaOut& formula)
{
    CClientDC screen(nullptr);
    const CRect rect = formula.GetFormulaRect(&screen);
    formula.DrawTree(&screen, CRect(0, 0, 0, 0));
    for (int n = 1; n < 4; ++n)
    {
        CRect found(0, 0, 0, 0);
        const CPoint point(rect.right / 4 * n, rect.bottom / 4 * n);
        formula.m_Tree.SetSelection(formula.m_Tree.HitTestNode(&screen, &found, point), n);
        formula.DrawTree(&screen, CRect(0, 0, 0, 0));
    }
    formula.m_Tree.GetFormulaText(0);
    TreeForm(formula.m_Tree.GetRootNode());
    WriteForms(formula.m_Tree.GetRootNode());
}

// Every operation that changes the shape of a tree, on a copy.
void Edit(CFormulaOut& formula)
{
    CBinTree tree;
    tree.CopyFrom(formula.m_Tree);
    CNode* pRoot = tree.GetRootNode();
    if (pRoot == nullptr || pRoot->GetLeft() == nullptr)
        return;
    tree.CheckPoint();
    tree.SortByPriority(pRoot->GetLeft());
    CNode* pTop = pRoot->GetLeft() != nullptr ? pRoot->GetLeft() : pRoot->GetRight();
    CNode* pNode = tree.ChangeNodeType(pTop, "NT_SUM");
    pNode = tree.InsertNodeAbove(pRoot, pNode, "NT_INTEGRAL", 2);
    if (pNode->GetRight()->GetLeft() != nullptr)
        tree.ReplaceByNewNode(pNode->GetRight()->GetLeft(), "NT_PLACEHOLDER");
    tree.ReplaceNode(pNode, tree.CopySubtree(pNode, 1));
    tree.Reformat(formula.GetTreeFormatPtr());
    CClientDC screen(nullptr);
    tree.Draw(&screen, CRect(0, 0, 0, 0));
    tree.CheckPoint();
}

// A kind outside its table is refused where it is used: that is an answer.
void Use(CFormulaOut& formula)
{
    try
    {
        Look(formula);
        formula.ReformatNodes();
        Edit(formula);
    }
    catch (CInvalidArgException* pException)
    {
        pException->Delete();
    }
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    formula.SaveTree(archive);
    archive.Close();
}

// Serialize as an archive on its own has it, or behind the text that a document has first.
void Load(CMemFile& file, bool bDocument)
{
    CFormulaOut formula;
    formula.m_Doc.m_pTree = &formula.m_Tree;
    formula.m_Doc.m_pFormat = &formula.m_Format;
    try
    {
        CArchive archive(&file, CArchive::load);
        if (bDocument)
            formula.m_Doc.Serialize(archive);
        else
            formula.SaveTree(archive);
        archive.Close();
    }
    catch (CException* pException)
    {
        pException->Delete();
    }
    Use(formula);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    BeQuiet();
    CMemFile bare(const_cast<BYTE*>(pData), static_cast<UINT>(nSize));
    Load(bare, false);
    if (nSize > 8 && pData[0] == 0xD0 && pData[1] == 0xCF)
    {
        CMemFile compound(const_cast<BYTE*>(pData), static_cast<UINT>(nSize));
        CMemFile content;
        if (UnpackCompoundFile(compound, "Contents", content))
            Load(content, true);
    }
    return 0;
}
