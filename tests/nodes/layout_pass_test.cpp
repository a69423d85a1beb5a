// A pass that measures each node once gives what measuring afresh at every request gives, to the
// last side effect, and costs a fixed amount for each node.
#include "nodes/layout_pass.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "native/effort.h"
#include "nodes/painted_calls.h"
#include "nodes/random_tree.h"

namespace
{
// Measures with the screen's fonts, so that a metafile has records of what was painted only.
class CObservedDC : public CPaintDC
{
public:
    CObservedDC() { SetAttribDC(m_screen.m_hDC); }
    ~CObservedDC() override { SetAttribDC(nullptr); }

    CSize GetPointFontExtent(const LOGFONTA& lf, const CString& strText) override
    {
        return m_screen.GetPointFontExtent(lf, strText);
    }

private:
    CClientDC m_screen{ nullptr };
};

// What is seen of a random tree in a series of operations that its seed decides.
class CObserver
{
public:
    CObserver(unsigned nSeed, const CRandomTree::COptions& options, bool bPlain)
        : m_plain(bPlain), m_tree(nSeed, options)
    {
        const int nOldGap = g_nTimesGap;
        g_nTimesGap = m_tree.Pick({ 2, -5, -6 });
        for (int i = 0; i < 6; ++i)
        {
            Operate(m_tree.Below(4));
            for (const CNode* pNode : m_tree.GetNodes())
                m_seen.push_back(StateOf(*pNode));
        }
        m_seen.push_back(BytesOf(*m_tree.GetRoot()));
        g_nTimesGap = nOldGap;
    }

    std::vector<std::string> m_seen;

private:
    void Operate(int nOperation)
    {
        if (nOperation == 0)
            m_tree.GetRoot()->ApplyFormat(&m_tree.GetFormat());
        CObservedDC dc;
        if (m_tree.Chance(40))
        {
            dc.SetMapMode(MM_ANISOTROPIC);
            dc.SetWindowExt(100, 100);
            dc.SetViewportExt(96, m_tree.Pick({ 96, 50, -96 }));
            dc.SetWindowOrg(m_tree.Below(20) - 10, 3);
        }
        if (nOperation == 1)
        {
            for (int i = 0; i < 5; ++i)
                Hit(dc);
        }
        else if (nOperation == 2)
        {
            See(m_tree.GetRoot()->Measure(&dc));
            See(m_tree.AnyNode()->Measure(&dc));
        }
        else
        {
            CRect rect(m_tree.Below(50), m_tree.Below(50) - 25, 0, 0);
            m_tree.GetRoot()->Paint(&dc, rect, m_tree.Chance(60) ? m_tree.AnyNode() : nullptr,
                                    static_cast<UINT>(m_tree.Below(8)));
            See(rect);
        }
        const CCalls calls = dc.TakeCalls();
        m_seen.insert(m_seen.end(), calls.begin(), calls.end());
    }

    void Hit(CDC& dc)
    {
        CRect rect(7, -3, 0, 0);
        const CPoint point(m_tree.Below(150), m_tree.Below(80));
        const CNode* pFound = m_tree.GetRoot()->HitTest(&dc, rect, point);
        See(rect);
        See(std::ranges::find(m_tree.GetNodes(), pFound) - m_tree.GetNodes().begin());
    }

    template <class T>
    void See(const T& value)
    {
        AppendBytes(m_seen.emplace_back(), value);
    }

    CPlainRecursion m_plain;
    CRandomTree m_tree;
};

void ExpectSame(unsigned nSeed, const CRandomTree::COptions& options)
{
    const std::vector<std::string> plain = CObserver(nSeed, options, true).m_seen;
    const std::vector<std::string> passes = CObserver(nSeed, options, false).m_seen;
    ASSERT_EQ(plain.size(), passes.size()) << "seed " << nSeed;
    for (std::size_t i = 0; i < plain.size(); ++i)
        ASSERT_EQ(plain[i], passes[i]) << "seed " << nSeed << " item " << i;
}
}  // namespace

// Also for numbers at the end of their range.
TEST(LayoutPass, GivesWhatThePlainRecursionGives)
{
    for (unsigned nSeed = 0; nSeed < 2000 * TEST_EFFORT / 100; ++nSeed)
    {
        ASSERT_NO_FATAL_FAILURE(ExpectSame(nSeed, {}));
        if (nSeed % 4 == 0)
        {
            ASSERT_NO_FATAL_FAILURE(ExpectSame(nSeed, { 20, true }));
        }
    }
}

TEST(LayoutPass, AsksAFixedNumberOfTimesForEachNode)
{
    for (const char* pszType :
         { "NT_BRACE", "NT_ROOT", "NT_PLUS", "NT_SUM", "NT_RANGE", "NT_LIMES" })
    {
        const CNodePtr pTower = Sketch("(BRACE)");
        pTower->SetLeft(Tower(pszType, 1000).release());
        CTestDC dc;
        CRect rect(0, 0, 0, 0);
        pTower->Paint(&dc, rect, nullptr, 0);
        EXPECT_LE(dc.m_nAsked, 6 * 1001) << pszType;
        dc.m_nAsked = 0;
        pTower->HitTest(&dc, rect, CPoint(rect.right / 2, rect.bottom / 2));
        EXPECT_LE(dc.m_nAsked, 6 * 1001) << pszType;
    }
}

// Nothing outlives it, and within one call two device contexts do not see each other's results.
TEST(LayoutPass, BelongsToItsDeviceContext)
{
    CTestDC first;
    CTestDC second;
    const CNodePtr pNode = Sketch("abc");
    EXPECT_EQ(pNode->Measure(&first), CRect(0, 0, 29, 16));
    pNode->SetSymbol("a");
    const CLayoutPass outer(&first);
    EXPECT_EQ(pNode->Measure(&first), CRect(0, 0, 13, 16));
    pNode->SetSymbol("ab");
    EXPECT_EQ(pNode->Measure(&first), CRect(0, 0, 13, 16));
    EXPECT_EQ(pNode->Measure(&second), CRect(0, 0, 21, 16));
    EXPECT_EQ(pNode->Measure(&first), CRect(0, 0, 21, 16));
}
