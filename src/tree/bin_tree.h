// One formula: the tree of its nodes, which it owns, and what is selected in it.
#pragma once

#include "format/node_types.h"
#include "platform/base/cstring.h"
#include "platform/base/geometry.h"
#include "platform/base/object.h"
#include "platform/base/types.h"
#include "tree/undo.h"

class CBinTreeFormat;
class CBitmap;
class CDC;
class CNode;
class CPalette;

// Owns its root, and through it every node. It knows type names, two links for each node, the
// root and the selection; what the nodes mean is the nodes' affair.
class CBinTree : public CObject, public CUndo
{
    DECLARE_SERIAL(CBinTree)

public:
    CBinTree();
    ~CBinTree() override;

    // A new, unattached node of a type, formatted with the default format; the caller's until it
    // is linked. An unknown name gives a plain node of that name in its constructor's font.
    CNode* CreateNode(CString strType);

    // The same without the format, for whoever formats the finished tree in one go.
    CNode* CreateBareNode(ENodeType nType);

    // For a name out of an archive: an unknown one throws CArchiveException (badClass). Not
    // formatted, as a loaded tree is formatted when it is linked.
    CNode* CreateStoredNode(const CString& strType);

    // Does not delete a former root: DeleteContents comes first.
    CNode* CreateRootNode(CString strType);

    // Plain access: nothing is deleted or formatted.
    CNode* GetRootNode() const { return m_pRoot; }
    void SetRootNode(CNode* pNode) { m_pRoot = pNode; }

    CString GetName() const { return m_strName; }
    void SetName(CString strName) { m_strName = strName; }

    // Deletes the nodes. The selection stays as it is and must be set anew by whoever goes on
    // using the tree: new nodes get the memory of old ones.
    void DeleteContents() override;

    // Paints with a transparent background mode, which stays set on pDC.
    void Draw(CDC* pDC, CRect rect);

    // Extent at (0, 0) in logical units of pDC; empty without a root.
    CRect MeasureTree(CDC* pDC);

    // The node at a point, in logical units of pDC; *pRect holds the origin of the formula and
    // receives the rectangle of the node. Null without a root.
    CNode* HitTestNode(CDC* pDC, CRect* pRect, CPoint point);

    // Formats all nodes; null stands for the default format.
    void Reformat(CBinTreeFormat* pFormat);

    // nMode: 1 is the node alone, 2 the node with all below it.
    void SetSelection(CNode* pNode, int nMode);
    CNode* GetSelection() const { return m_pSelected; }
    int GetSelectionMode() const { return m_nSelectionMode; }
    void SetSelectionMode(int nMode) { m_nSelectionMode = nMode; }

    // Deletes a node that hangs in no tree (any more), and all below it. Null is ignored.
    void DeleteSubtree(CNode* pNode);

    // Makes this tree a copy of the other one's nodes and name, in the default format, with nothing
    // selected.
    void CopyFrom(const CBinTree& other);

    // A copy of a node, the caller's; if bDeep is nonzero with what hangs below it. A side that
    // is empty in the source has what the constructor of the type puts there.
    CNode* CopySubtree(CNode* pNode, int bDeep);

    // The node of which pNode is a child, searched from the root by the child links.
    CNode* FindParent(CNode* pNode);

    // The tree as an expression for a program; form 0 is FORTRAN with continuation lines.
    // CInvalidArgException for a form outside 0 to TEXT_FORMS - 1.
    CString GetFormulaText(int nForm);

    // Turns the links below a node until no child binds more loosely than its parent. A node
    // that moves always goes to the right side of its parent, and what was there is deleted. A
    // node without a parent stays where it is.
    void SortByPriority(CNode* pNode);

    // Puts a new node of another type in the place of pNode, with pNode's children; deletes pNode.
    CNode* ChangeNodeType(CNode* pNode, CString strType);

    // Puts pNew in the place of pOld; deletes pOld with all below it. A selected pOld hands its
    // selection on.
    void ReplaceNode(CNode* pOld, CNode* pNew);

    // Puts a new node in the place of pNode; deletes pNode with all below it. Null, and nothing
    // changed, if pNode has no parent.
    CNode* ReplaceByNewNode(CNode* pNode, CString strType);

    // Puts a new node between a parent and its child; nSide tells where the child goes: 1 left,
    // 2 right. Any other side leaves the child unattached: it is the caller's then.
    CNode* InsertNodeAbove(CNode* pParent, CNode* pChild, CString strType, int nSide);

    // Stores or loads rectangle, name and nodes, and drops the selection. Loading takes effect as
    // a whole: where it throws, the tree is as it was. An archive of an empty tree leaves the
    // nodes in place, and three bytes unread.
    void Serialize(CArchive& ar) override;

    // Writes the formula as an enhanced metafile. 1, or 0 on failure.
    int WriteMetafile(CString strPath);

    // Takes the text out of a metafile's comment into g_strMetaComment; leaves the tree alone.
    // 1, or 0 after a message box.
    int ReadMetafile(CString strPath);

    // Writes a BMP file. 1, or 0 on failure.
    int WriteBitmapFile(CString strPath);

    // Paints the formula on pTarget through a bitmap. 1, or 0 on failure.
    int PrintBitmap(CDC* pTarget);

    // A packed device-independent bitmap in global memory, the caller's; null on failure. The
    // palette may be null.
    HANDLE BitmapToDIB(CBitmap* pBitmap, DWORD nCompression, CPalette* pPalette);

    // Shows the platform's words for the last error in a message box.
    void ReportLastError();

    CRect m_rectFormula;  // hundredths of an inch; carried and stored, read by nothing else

private:
    void RotateLeftChildUp(CNode* pNode, CNode* pChild);
    void RotateRightChildUp(CNode* pNode, CNode* pChild);
    void AttachAbove(CNode* pNode, CNode* pChild);
    void SortBelow(CNode* pNode, bool bFormatLater);
    void ReplaceChild(CNode* pParent, CNode* pOld, CNode* pNew);
    void LoadTree(CArchive& ar);

    CNode* m_pRoot;        // owned; null in an empty tree
    CNode* m_pSelected;    // not owned, points into the tree
    int m_nSelectionMode;  // handed on to Paint
    CString m_strName;
};
