// The base of the node family: a binary tree node that measures, paints, hits, formats, stores
// and writes itself. Each job is done here for the plain case, left child, own sign and right
// child in a row; the classes below change only what differs.
#pragma once

#include <cstddef>

#include "format/node_types.h"
#include "platform/base/cstring.h"
#include "platform/base/geometry.h"
#include "platform/base/object.h"
#include "platform/base/types.h"

class CArchive;
class CBinTree;
class CBinTreeFormat;
class CDC;

// Bits of CNode::m_nFlags.
constexpr UINT NF_TEXTEDIT = 1;     // the symbol can be edited in place
constexpr UINT NF_REPLACEABLE = 2;  // delete leaves a placeholder
constexpr UINT NF_HIDDEN = 8;       // the own part is not painted; the children are

// Bits of the flags of Paint and PaintOwn.
constexpr UINT PF_NODE = 1;     // mark the selected node alone
constexpr UINT PF_SUBTREE = 2;  // mark it with all below it
constexpr UINT PF_GRAYED = 4;   // paint everything in grey
// What is not selected is painted on what is there: a host that has a ground of its own adds it to
// the tree's selection mode.
constexpr UINT PF_NO_FILL = 0x100;

constexpr int TEXT_FORMS = 1;  // form 0 is FORTRAN

extern const int g_nOwnGap;  // added to the width of a sign, logical units
extern int g_nTimesGap;      // the same for a product; the latest parse decides it for all trees

// What the last Measure found of a node.
struct CMeasured
{
    ULONGLONG nPass = 0;        // in which it was found; 0 never
    CSize size;                 // of the subtree
    CSize own;                  // of the own part
    int nBaseline = 0;          // m_nBaseline, as it was right behind that Measure
    bool bOwnBorrowed = false;  // own holds only while the parent's sign stays as it was
    CSize sign;  // of the sign's text without a gap; (0, 0) where no text is measured
};

// A parent owns its children. All lengths are logical units of the device context in use, y
// down; integer division cuts towards zero, and rectangles may have negative extents.
class CNode : public CObject
{
    DECLARE_DYNAMIC(CNode)

public:
    // A node without type and symbol, in the default font.
    CNode();

    // Deletes what hangs below, at any depth, without recursion. Unlinks nothing above.
    ~CNode() override;

    // Nodes come and go by the thousand: memory of deleted ones waits for new ones.
    static void* operator new(std::size_t nBytes);
    static void operator delete(void* p, std::size_t nBytes) noexcept;

    CNode(const CNode&) = delete;
    CNode& operator=(const CNode&) = delete;

    // Everything but links, children and generated text.
    virtual void CopyAttributes(CNode* pSource);

    virtual int GetPriority();

    virtual BOOL IsLeaf();

    // rect comes with the origin of the subtree and leaves with its extent. pSelected may be null.
    virtual void Paint(CDC* pDC, CRect& rect, CNode* pSelected, UINT nFlags);

    // The deepest node whose area holds the point, left before right; this node if there is none
    // (a range: null). rect comes with the origin and leaves with the area of what was found.
    virtual CNode* HitTest(CDC* pDC, CRect& rect, CPoint point);

    // Levels below this node, and fonts here and below, children first. A type that the table
    // does not hold keeps its font.
    virtual void ApplyFormat(CBinTreeFormat* pFormat);

    // Extent of the subtree at (0, 0). Sets m_nBaseline here and below, which the parent's
    // Arrange reads at once.
    virtual CRect Measure(CDC* pDC);

    // Stores or loads the node and all below it; pTree makes the children. Loading throws
    // CArchiveException and leaves no half-linked node.
    virtual void SerializeNode(CArchive& ar, CBinTree* pTree);

    // Places the parts, fresh from Measure and GetOwnSize (zero rectangles where a child is
    // missing), in rect, which comes with left and top and leaves with right and bottom too.
    // Sets m_nBaseline: where neighbours line up, measured from rect.top.
    virtual void Arrange(CRect& rect, CRect& left, CRect& right, CRect& own);

    // Extent of the own sign at (0, 0).
    virtual CRect GetOwnSize(CDC* pDC);

    // Draws the own sign into its placed rectangle. nFlags is 0 for a node that is neither
    // selected nor greyed.
    virtual void PaintOwn(CDC* pDC, CRect rect, UINT nFlags);

    // The subtree in a text form, below TEXT_FORMS.
    virtual CString MakeText(int nForm);

    // Link a child and set its parent and level; it is formatted with the default format, with
    // all below it. The old child is neither deleted nor unlinked. Null is a link like any other.
    void SetLeft(CNode* p);
    void SetRight(CNode* p);

    // The same without the format, for whoever formats the finished tree in one go.
    void LinkLeft(CNode* p);
    void LinkRight(CNode* p);

    CNode* GetLeft() const { return m_pLeft; }
    CNode* GetRight() const { return m_pRight; }
    CNode* GetParent() const { return m_pParent; }
    void SetParent(CNode* p) { m_pParent = p; }
    UINT GetFlags() const { return m_nFlags; }
    void SetFlags(UINT nFlags) { m_nFlags = nFlags; }
    int GetLevel() const { return m_nLevel; }
    void SetLevel(int nLevel) { m_nLevel = nLevel; }
    int GetLeftLevelStep() const { return m_nLeftLevelStep; }
    int GetRightLevelStep() const { return m_nRightLevelStep; }
    CString GetTypeName() const { return m_strType; }
    CString GetSymbol() const { return m_strSymbol; }
    void SetSymbol(CString strSymbol) { m_strSymbol = strSymbol; }
    CString GetDescription() const { return m_strDescription; }
    void SetDescription(CString strDescription) { m_strDescription = strDescription; }
    COLORREF GetColour() const { return m_colour; }
    void SetColour(COLORREF colour) { m_colour = colour; }
    LOGFONTA* GetLogFont() { return &m_logFont; }
    const LOGFONTA* GetLogFont() const { return &m_logFont; }
    CString GetFontName() const { return CString(m_logFont.lfFaceName); }
    void SetFontName(CString strName);  // cut to 31 bytes
    void SetItalic(int n) { m_logFont.lfItalic = n == 1 ? 1 : 0; }
    BOOL IsItalic() const { return m_logFont.lfItalic == 1; }
    void SetBold(int n) { m_logFont.lfWeight = n == 1 ? 700 : 400; }
    BOOL IsBold() const { return m_logFont.lfWeight == 700; }
    BOOL IsSameDescription(const CNode* p) const;
    bool BorrowsOwnSize() const { return m_measured.bOwnBorrowed; }

    // Whether pTop is this node or stands above it, by the parent links.
    bool IsWithin(const CNode* pTop) const;

    // The node of this subtree that has p as a child, searched by the child links, this node
    // first, then left, then right. Null if there is none.
    CNode* FindParentOf(const CNode* p);

    const CMeasured& GetMeasured() const { return m_measured; }

    // What measuring and painting touch stands together, in this order: a long formula is larger
    // than the fast caches.
    CNode* m_pParent;  // not owned; null at the root
    CNode* m_pLeft;    // owned
    CNode* m_pRight;   // owned
    UINT m_nFlags;     // NF_...
    int m_nBaseline;   // height of the line on which neighbours align; right behind Measure only

private:
    CMeasured m_measured;

public:
    CString m_strSymbol;  // the sign, shown in m_logFont
    CRect m_rect;         // own part where the last Paint put it, in the coordinates of that Paint
    COLORREF m_colour;    // of text and pen
    LOGFONTA m_logFont;   // lfHeight in tenths of a point, with the sign of the format's sizes

    int m_nPriority;       // the larger, the looser it binds; -1 is none
    int m_nLevel;          // selects the font size
    int m_nLeftLevelStep;  // the left child's level is m_nLevel and this
    int m_nRightLevelStep;
    CString m_strType;                    // NT_...
    CString m_strDescription;             // English
    CString m_strTextOwn[TEXT_FORMS];     // stands for the node in generated text if not empty
    CString m_strTextFormat[TEXT_FORMS];  // three %s: left, own, right

protected:
    // A node with the data of a type, in the default font. The name is the factory's to set.
    explicit CNode(ENodeType nType);

    // For ranges, whose own size is that of the parent.
    void BorrowOwnSize() { m_measured.bOwnBorrowed = true; }

    // Bare extent of m_strSymbol in m_logFont.
    CSize MeasureSign(CDC* pDC);

    // m_strSymbol in m_logFont; nFormat goes to DrawText.
    void DrawSign(CDC* pDC, const CRect& rect, UINT nFormat);

    // The parts at (0, 0), measured in this order; zero rectangles for missing children.
    struct CParts
    {
        CRect left;
        CRect own;
        CRect right;
    };
    CParts MeasureParts(CDC* pDC);

    // Takes the rows of the kind into m_strTextOwn and m_strTextFormat, in the classes with kinds.
    virtual void SelectText(int nForm);

private:
    bool IsMeasured(CDC* pDC);
    void PaintPart(CDC* pDC, const CRect& own, bool bSelected, UINT nFlags);
    void ApplyRecord(CBinTreeFormat* pFormat);
    void AppendText(CString& strText, int nForm);
    void AppendArgument(CString& strText, int nForm, int nArg);
};
