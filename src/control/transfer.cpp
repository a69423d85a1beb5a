// Clipboard, drag and drop: a subtree leaves from any selected node and lands on a placeholder. Its
// form is the archive of a tree that has the subtree as its root, in a block of global memory.
#include "control/formula_control.h"

#include "control/in_place_edit.h"
#include "nodes/node.h"
#include "platform/base/archive.h"
#include "platform/base/exception.h"
#include "platform/base/file.h"
#include "platform/base/system.h"
#include "platform/gdi/dc.h"
#include "tree/bin_tree.h"

namespace
{

constexpr UINT s_nTransferMemory = GMEM_MOVEABLE | GMEM_ZEROINIT | GMEM_DDESHARE;
constexpr UINT s_nTransferStep = 4096;  // bytes by which a block grows
constexpr int s_nArchiveBuffer = 4096;  // bytes

// A tree that is lent its root: what it holds at its end it does not delete.
class CLentTree : public CBinTree
{
public:
    ~CLentTree() override { SetRootNode(nullptr); }
};

// The sign of a node in the editor is painted by the box, here only.
class CShownNode
{
public:
    explicit CShownNode(CNode* pNode) : m_pNode(pNode), m_nFlags(pNode ? pNode->GetFlags() : 0)
    {
        if (m_pNode != nullptr)
            m_pNode->SetFlags(m_nFlags & ~NF_HIDDEN);
    }
    ~CShownNode()
    {
        if (m_pNode != nullptr)
            m_pNode->SetFlags(m_nFlags);
    }
    CShownNode(const CShownNode&) = delete;
    CShownNode& operator=(const CShownNode&) = delete;

private:
    CNode* m_pNode;
    UINT m_nFlags;
};

class CLockedBlock
{
public:
    explicit CLockedBlock(HGLOBAL hData) : m_hData(hData), m_pBytes(GlobalLock(hData)) {}
    ~CLockedBlock()
    {
        if (m_pBytes != nullptr)
            GlobalUnlock(m_hData);
    }
    CLockedBlock(const CLockedBlock&) = delete;
    CLockedBlock& operator=(const CLockedBlock&) = delete;

    BYTE* GetBytes() const { return static_cast<BYTE*>(m_pBytes); }

private:
    HGLOBAL m_hData;
    void* m_pBytes;
};

// The length of the archive; the file holds a block that may be longer.
UINT StoreSubtree(CNode* pTop, CSharedFile& file)
{
    CArchive ar(&file, CArchive::store | CArchive::bNoFlushOnDelete, s_nArchiveBuffer);
    CLentTree tree;
    tree.SetRootNode(pTop);
    tree.Serialize(ar);
    ar.Close();
    return static_cast<UINT>(file.GetLength());
}

}  // namespace

// Null without memory.
HGLOBAL CFormulaControl::StoreSelection()
{
    const CShownNode shown(m_pInPlaceEdit != nullptr ? m_pInPlaceEdit->GetNode() : nullptr);
    try
    {
        CSharedFile file(s_nTransferMemory, s_nTransferStep);
        const UINT nLength = StoreSubtree(m_pTree->GetSelection(), file);
        const HGLOBAL hData = file.Detach();
        if (hData == nullptr)
            return nullptr;
        const HGLOBAL hExact = GlobalReAlloc(hData, nLength, s_nTransferMemory);
        if (hExact == nullptr)
            GlobalFree(hData);
        return hExact;
    }
    catch (CException* pException)
    {
        pException->Delete();
        return nullptr;
    }
}

std::unique_ptr<CTransferSource> CFormulaControl::CreateDataSource()
{
    if (m_pTree == nullptr || m_pTree->GetSelection() == nullptr)
        return nullptr;
    const HGLOBAL hData = StoreSelection();
    return hData != nullptr ? m_Window.MakeSource(hData) : nullptr;
}

// Whether something can be put in the place of the node: a placeholder that hangs in the tree.
bool CFormulaControl::IsDropTarget(const CNode* pNode) const
{
    return pNode != nullptr && pNode->m_strType == NodeTypeName(NTI_PLACEHOLDER) &&
           pNode != m_pTree->GetRootNode();
}

// Reads first and replaces then: a damaged archive leaves the tree as it is.
bool CFormulaControl::PasteArchive(CNode* pTarget, HGLOBAL hData)
{
    const CLockedBlock block(hData);
    if (block.GetBytes() == nullptr)
        return false;
    CMemFile file(block.GetBytes(), static_cast<UINT>(GlobalSize(hData)));
    CArchive ar(&file, CArchive::load, s_nArchiveBuffer);
    CBinTree tree;
    tree.Serialize(ar);
    if (tree.GetRootNode() == nullptr)
        return false;
    EndEditorBelow(pTarget);
    ForgetBelow(pTarget);
    m_pTree->ReplaceNode(pTarget, tree.GetRootNode());
    tree.SetRootNode(nullptr);
    ar.Close();
    return true;
}

BOOL CFormulaControl::PasteData(CNode* pTarget, CTransferData& data)
{
    const HGLOBAL hData = data.GetGlobalData();
    if (hData == nullptr)
        return FALSE;
    try
    {
        if (!PasteArchive(pTarget, hData))
            return FALSE;
    }
    catch (CException* pException)
    {
        pException->Delete();
        return FALSE;
    }
    m_pTree->Reformat(nullptr);
    m_Window.Invalidate(true);
    return TRUE;
}

void CFormulaControl::Copy()
{
    if (const auto pSource = CreateDataSource())
        pSource->SetClipboard();
}

void CFormulaControl::Cut()
{
    if (m_bReadOnly || m_pTree == nullptr || m_pTree->GetSelection() == nullptr)
        return;
    EndEditorBelow(m_pTree->GetSelection());
    const auto pSource = CreateDataSource();
    if (pSource == nullptr || !pSource->SetClipboard())
        return;
    DeleteSelection();
    m_pTree->CheckPoint();
}

// A paste that fails takes its undo step too, and with it the selection.
void CFormulaControl::Paste()
{
    if (m_pTree == nullptr || !IsDropTarget(m_pTree->GetSelection()))
        return;
    const auto pData = m_Window.AttachClipboard();
    if (pData == nullptr)
        return;
    PasteData(m_pTree->GetSelection(), *pData);
    m_pTree->CheckPoint();
}

// A drop on this control ends with a checkpoint, which empties the selection: it is set anew for
// the deletion.
void CFormulaControl::BeginDrag()
{
    const auto pSource = CreateDataSource();
    if (pSource == nullptr)
        return;
    CNode* pDragged = m_pTree->GetSelection();
    m_pDragged = pDragged;
    const DROPEFFECT dwResult = pSource->DoDragDrop(DROPEFFECT_COPY | DROPEFFECT_MOVE);
    m_pDragged = nullptr;
    if (m_pTree == nullptr)
        return;
    // A host may have changed the tree meanwhile.
    const bool bAlive =
        pDragged == m_pTree->GetRootNode() || m_pTree->FindParent(pDragged) != nullptr;
    m_pTree->SetSelection(bAlive ? pDragged : nullptr, PF_SUBTREE);
    if ((dwResult & DROPEFFECT_MOVE) != 0)
        DeleteSelection();
}

// The reverse of the question that OnDragOver asks: what counts for a drop is the answer of the
// calls that follow.
DROPEFFECT CFormulaControl::OnDragEnter(CTransferData& data, DWORD dwKeyState, CPoint point)
{
    return data.IsDataAvailable() ? DROPEFFECT_NONE : DragTo(dwKeyState, point);
}

DROPEFFECT CFormulaControl::OnDragOver(CTransferData& data, DWORD dwKeyState, CPoint point)
{
    if (m_bReadOnly || !data.IsDataAvailable())
        return DROPEFFECT_NONE;
    return DragTo(dwKeyState, point);
}

// The frame follows the mouse; what can be done there.
DROPEFFECT CFormulaControl::DragTo(DWORD dwKeyState, CPoint point)
{
    if (m_pTree == nullptr)
        return DROPEFFECT_NONE;
    ClientToFormula(point);
    const std::unique_ptr<CDC> pDC = m_Window.GetClientDC();
    CNode* pNode = HitTest(pDC.get(), point);
    if (pNode != m_pHoverNode)
        MoveHover(pDC.get(), pNode);
    if (pNode == nullptr || pNode->m_strType != NodeTypeName(NTI_PLACEHOLDER))
        return DROPEFFECT_NONE;
    return (dwKeyState & MK_CONTROL) != 0 ? DROPEFFECT_COPY : DROPEFFECT_MOVE;
}

// The last frame stays until the next paint.
void CFormulaControl::OnDragLeave() {}

// The target is the node of the last frame. A node cannot be dropped into itself.
BOOL CFormulaControl::OnDrop(CTransferData& data, DROPEFFECT /*dropEffect*/, CPoint /*point*/)
{
    if (m_pTree == nullptr)
        return FALSE;
    CNode* pTarget = GetHoverNode();
    if (!IsDropTarget(pTarget) || (m_pDragged != nullptr && pTarget->IsWithin(m_pDragged)))
        return FALSE;
    OnDragLeave();
    if (!PasteData(pTarget, data))
        return FALSE;
    m_pTree->CheckPoint();
    return TRUE;
}
