// What the tests of the node family share: a device context whose text has a known size, trees from
// sketches, and what can be seen of a node.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <iterator>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "archived.h"
#include "format/tree_format.h"
#include "nodes/layout_pass.h"
#include "nodes/typed_node.h"
#include "platform/base/geometry.h"
#include "platform/gdi/dc.h"
#include "tree/tree_maker.h"

inline void PrintTo(const CRect& r, std::ostream* os)
{
    *os << "(" << r.left << "," << r.top << "," << r.right << "," << r.bottom << ")";
}
inline void PrintTo(const CString& s, std::ostream* os)
{
    *os << '"' << s.GetString() << '"';
}

// A device context on which every character is 8 wide, and a text as high as the font's size in
// pixels: 16, 13 and 11 on levels 0, 1 and 2, and 21 for a big operator.
template <class TBase>
class CSizedTextDC : public TBase
{
public:
    using TBase::TBase;

    using TBase::SelectObject;
    CFont* SelectObject(CFont* pFont) override
    {
        CFont* pOld = TBase::SelectObject(pFont);
        this->GetCurrentFont()->GetLogFont(&m_font);
        return pOld;
    }

    using TBase::GetOutputTextExtent;
    CSize GetOutputTextExtent(LPCSTR, int nCount) const override
    {
        ++m_nAsked;
        return CSize(8 * nCount, std::abs(m_font.lfHeight));
    }

    mutable int m_nAsked = 0;  // how often text was measured

protected:
    LOGFONT m_font{};
};

// The screen, 96 dots per inch.
class CTestDC : public CSizedTextDC<CClientDC>
{
public:
    CTestDC() : CSizedTextDC(nullptr) {}

    // Not from the font cache, but by the two operations above.
    CSize GetPointFontExtent(const LOGFONTA& lf, const CString& strText) override
    {
        return MeasureInNewFont(lf, strText);
    }
};

using CNodePtr = std::unique_ptr<CNode>;

// The nodes of a sketch (gallery/sketch.h), in the default format. A variable of n characters is
// 8 n + 5 wide and 16 high at level 0, its sign 8 n + 2 wide; its axis is 8.
inline CNodePtr Sketch(const std::string& strSketch)
{
    CBinTree tree;
    BuildTree(tree, strSketch);
    CNodePtr pRoot(tree.GetRootNode());
    tree.SetRootNode(nullptr);
    return pRoot;
}

// A letter at the bottom of so many nodes of a type, each the left child of the next.
inline CNodePtr Tower(const char* pszType, int nLevels)
{
    CNodePtr pTower = Sketch("x");
    for (int i = 0; i < nLevels; ++i)
    {
        CNodePtr pNode(CBinTree().CreateNode(pszType));
        delete pNode->m_pLeft;
        pNode->LinkLeft(pTower.release());
        pTower = std::move(pNode);
    }
    pTower->ApplyFormat(&g_DefaultFormat);
    return pTower;
}

// Words between blanks, for rows that hold for several types.
inline std::vector<std::string> Words(const std::string& strWords)
{
    std::istringstream in(strWords);
    return { std::istream_iterator<std::string>(in), {} };
}

template <class... T>
void AppendBytes(std::string& strBytes, const T&... values)
{
    (strBytes.append(reinterpret_cast<const char*>(&values), sizeof(values)), ...);
}

// Everything that loading, layout and painting can write into a node.
inline std::string StateOf(const CNode& node)
{
    std::string strState = std::string(node.GetTypeName().View()) + '\n';
    strState += node.m_strSymbol.View();
    const auto& measured = node.GetMeasured();
    AppendBytes(strState, node.m_rect, node.m_nBaseline, node.m_logFont, node.m_nLevel,
                node.m_colour, measured.size, measured.own, measured.nBaseline, measured.sign);
    const auto* pTyped = dynamic_cast<const CTypedNode*>(&node);
    for (int i = 0; pTyped != nullptr && i < pTyped->m_saFonts.GetSize(); ++i)
        strState += pTyped->m_saFonts[i].View();
    return strState;
}

// What a node and the nodes below it store.
inline std::string BytesOf(CNode& node)
{
    CBinTree tree;
    return StoredBy([&](CArchive& ar) { node.SerializeNode(ar, &tree); });
}

// While it lives, nodes are measured, and loaded trees formatted, afresh at every request.
class CPlainRecursion
{
public:
    explicit CPlainRecursion(bool bPlain) { CLayoutPass::s_bPlainRecursion = bPlain; }
    ~CPlainRecursion() { CLayoutPass::s_bPlainRecursion = false; }
};
