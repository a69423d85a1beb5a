// What the tests of the node family share: a device context whose text has a known size, and short
// ways to build a tree.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <ostream>

#include "nodes/typed_node.h"
#include "platform/base/geometry.h"
#include "platform/gdi/dc.h"
#include "tree/bin_tree.h"

inline void PrintTo(const CRect& r, std::ostream* os)
{
    *os << "(" << r.left << "," << r.top << "," << r.right << "," << r.bottom << ")";
}
inline void PrintTo(const CPoint& p, std::ostream* os)
{
    *os << "(" << p.x << "," << p.y << ")";
}
inline void PrintTo(const CSize& s, std::ostream* os)
{
    *os << "(" << s.cx << "," << s.cy << ")";
}
inline void PrintTo(const CString& s, std::ostream* os)
{
    *os << '"' << s.GetString() << '"';
}

// The screen (96 dots per inch), but every character is 8 wide, and a text as high as the font's
// size in pixels: 16, 13 and 11 on levels 0, 1 and 2, and 21 for a big operator.
class CTestDC : public CClientDC
{
public:
    CTestDC() : CClientDC(nullptr) {}

    using CDC::SelectObject;
    CFont* SelectObject(CFont* pFont) override
    {
        CFont* pOld = CDC::SelectObject(pFont);
        LOGFONT lf{};
        if (GetCurrentFont()->GetLogFont(&lf) != 0)
            m_nHeight = std::abs(lf.lfHeight);
        return pOld;
    }

    using CDC::GetOutputTextExtent;
    CSize GetOutputTextExtent(LPCSTR, int nCount) const override
    {
        return CSize(8 * nCount, m_nHeight);
    }

    // Not from the font cache, but by the two operations above.
    CSize GetPointFontExtent(const LOGFONTA& lf, const CString& strText) override
    {
        return MeasureInNewFont(lf, strText);
    }

private:
    int m_nHeight = 0;
};

using CNodePtr = std::unique_ptr<CNode>;

// Node("NT_PLUS", Text("a"), Text("b")): a node from the factory with its children linked, in the
// default format. Null leaves what the constructor put on that side.
inline CNodePtr Node(const char* pszType, CNodePtr pLeft = nullptr, CNodePtr pRight = nullptr)
{
    CBinTree tree;
    CNodePtr pNode(tree.CreateNode(pszType));
    if (pLeft != nullptr)
    {
        delete pNode->m_pLeft;
        pNode->SetLeft(pLeft.release());
    }
    if (pRight != nullptr)
    {
        delete pNode->m_pRight;
        pNode->SetRight(pRight.release());
    }
    return pNode;
}

// A variable: 8 n + 5 wide and 16 high at level 0, its sign 8 n + 2 wide; its axis is 8.
inline CNodePtr Text(const char* pszSymbol)
{
    CNodePtr pNode = Node("NT_VARIABLE");
    pNode->SetSymbol(pszSymbol);
    return pNode;
}

inline CNodePtr Kind(int nKind, CNodePtr pNode)
{
    static_cast<CTypedNode&>(*pNode).SetKind(nKind);
    return pNode;
}

// What Arrange gives for fresh parts that the test names itself.
struct CArranged
{
    CRect rect;
    CRect left;
    CRect right;
    CRect own;
    int nBaseline;
};

// Parts of the given sizes at (0, 0), placed by the node with its origin at the point. The
// children's base lines are the caller's.
inline CArranged ArrangeParts(CNode& node, CPoint origin, CSize left, CSize right, CSize own)
{
    CArranged result{ CRect(origin, origin), CRect(CPoint(), left), CRect(CPoint(), right),
                      CRect(CPoint(), own), 0 };
    node.Arrange(result.rect, result.left, result.right, result.own);
    result.nBaseline = node.m_nBaseline;
    return result;
}
