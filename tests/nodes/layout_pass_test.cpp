// A pass that measures each node once gives what measuring afresh at every request gives, to the
// last side effect, and costs a fixed amount for each node.
#include "nodes/layout_pass.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

#include "native/effort.h"
#include "nodes/node_fixture.h"
#include "nodes/random_tree.h"
#include "platform/base/archive.h"
#include "platform/base/file.h"

namespace
{
class CPlainRecursion
{
public:
    explicit CPlainRecursion(bool bPlain) { CLayoutPass::s_bPlainRecursion = bPlain; }
    ~CPlainRecursion() { CLayoutPass::s_bPlainRecursion = false; }
};

template <class T>
void AppendBytes(std::string& strBytes, const T& value)
{
    strBytes.append(reinterpret_cast<const char*>(&value), sizeof(value));
}

// Everything that layout and painting can write into a node.
std::string StateOf(const CNode& node)
{
    std::string strState(node.m_strSymbol.View());
    AppendBytes(strState, node.m_rect);
    AppendBytes(strState, node.m_nBaseline);
    AppendBytes(strState, node.m_logFont);
    AppendBytes(strState, node.m_nLevel);
    AppendBytes(strState, node.m_colour);
    AppendBytes(strState, node.GetMeasured().size);
    AppendBytes(strState, node.GetMeasured().own);
    AppendBytes(strState, node.GetMeasured().nBaseline);
    AppendBytes(strState, node.GetMeasured().sign);
    return strState;
}

std::string ArchiveOf(CNode& node)
{
    CBinTree tree;
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    node.SerializeNode(ar, &tree);
    ar.Close();
    return { reinterpret_cast<const char*>(file.GetData()),
             static_cast<std::size_t>(file.GetLength()) };
}

// What was painted, as metafile records, each text with the font that it was written in. Measuring
// selects fonts too, and leaves records that paint nothing: these do not count.
class CPaintedRecords
{
public:
    static std::string Read(HENHMETAFILE hMetaFile)
    {
        CPaintedRecords records;
        EnumEnhMetaFile(nullptr, hMetaFile, &CPaintedRecords::OnRecord, &records, nullptr);
        return records.m_strPainted;
    }

private:
    enum
    {
        header = 1,
        selectObject = 37,
        deleteObject = 40,
        createFont = 82,
        text = 84
    };

    static int CALLBACK OnRecord(HDC, HANDLETABLE*, const ENHMETARECORD* pRecord, int,
                                 LPARAM lParam)
    {
        reinterpret_cast<CPaintedRecords*>(lParam)->Add(*pRecord);
        return 1;
    }

    void Add(const ENHMETARECORD& record)
    {
        const std::string strRecord(reinterpret_cast<const char*>(&record), record.nSize);
        const DWORD nHandle = record.nSize > 8 ? record.dParm[0] : 0;
        switch (record.iType)
        {
            case header:
                // Bounds and frame count; sizes do not, with the fonts left out.
                m_strPainted.append(strRecord, 0, 4).append(strRecord, 8, 32);
                return;
            case createFont:
                m_fonts[nHandle] = FontOf(strRecord);
                return;
            case deleteObject:
                if (m_fonts.erase(nHandle) != 0)
                    return;
                break;
            case selectObject:
                if (m_fonts.count(nHandle) != 0 || nHandle == s_nSystemFont)
                {
                    m_nFont = nHandle;
                    return;
                }
                break;
            case text:
                m_strPainted += m_fonts[m_nFont];
                break;
        }
        m_strPainted += strRecord;
    }

    // The font up to the end of its name; what lies behind may be anything.
    static std::string FontOf(const std::string& strRecord)
    {
        constexpr std::size_t nFace = 28;
        std::string strFont = strRecord.substr(12, 92);
        for (std::size_t i = nFace; i < strFont.size(); i += 2)
        {
            if (strFont[i] == 0 && strFont[i + 1] == 0)
                strFont.resize(i);
        }
        return strFont;
    }

    static constexpr DWORD s_nSystemFont = 0x8000000D;

    std::string m_strPainted;
    std::map<DWORD, std::string> m_fonts;
    DWORD m_nFont = s_nSystemFont;
};

// A tree and what was seen of it in a series of operations that the seed decides.
class CObserved
{
public:
    CObserved(unsigned nSeed, const CRandomTree::COptions& options, bool bPlain)
        : m_plain(bPlain), m_tree(nSeed, options), m_nGap(g_nTimesGap)
    {
        g_nTimesGap = m_tree.Pick({ 2, -5, -6 });
        for (int i = 0; i < 6; ++i)
        {
            Operate(m_tree.Below(4));
            for (const CNode* pNode : m_tree.GetNodes())
                m_seen.push_back(StateOf(*pNode));
        }
        m_seen.push_back(ArchiveOf(*m_tree.GetRoot()));
    }

    ~CObserved() { g_nTimesGap = m_nGap; }

    const std::vector<std::string>& GetSeen() const { return m_seen; }

private:
    void Operate(int nOperation)
    {
        if (nOperation == 0)
            m_tree.GetRoot()->ApplyFormat(&m_tree.GetFormat());
        CMetaFileDC dc;
        CClientDC screen(nullptr);
        CRect frame(0, 0, 20000, 10000);
        ASSERT_TRUE(dc.CreateEnhanced(&screen, nullptr, frame, "a\0b\0"));
        dc.SetAttribDC(screen.m_hDC);
        SetMapping(dc);
        switch (nOperation)
        {
            case 1:
                Hit(dc);
                break;
            case 2:
                Measure(dc);
                break;
            default:
                Paint(dc);
                break;
        }
        dc.SetAttribDC(nullptr);
        HENHMETAFILE hMetaFile = dc.CloseEnhanced();
        m_seen.push_back(CPaintedRecords::Read(hMetaFile));
        DeleteEnhMetaFile(hMetaFile);
    }

    void SetMapping(CDC& dc)
    {
        if (m_tree.Chance(40))
        {
            dc.SetMapMode(MM_ANISOTROPIC);
            dc.SetWindowExt(100, 100);
            dc.SetViewportExt(96, m_tree.Pick({ 96, 50, -96 }));
            dc.SetWindowOrg(m_tree.Below(20) - 10, 3);
        }
    }

    CNode* AnyNode() { return m_tree.GetNodes()[AnyIndex()]; }
    std::size_t AnyIndex()
    {
        return static_cast<std::size_t>(m_tree.Below(static_cast<int>(m_tree.GetNodes().size())));
    }

    void Paint(CDC& dc)
    {
        CRect rect(m_tree.Below(50), m_tree.Below(50) - 25, 0, 0);
        m_tree.GetRoot()->Paint(&dc, rect, m_tree.Chance(60) ? AnyNode() : nullptr,
                                static_cast<UINT>(m_tree.Below(8)));
        See(rect);
    }

    void Measure(CDC& dc)
    {
        See(m_tree.GetRoot()->Measure(&dc));
        See(AnyNode()->Measure(&dc));
    }

    void Hit(CDC& dc)
    {
        for (int i = 0; i < 5; ++i)
        {
            CRect rect(7, -3, 0, 0);
            const CPoint point(m_tree.Below(150), m_tree.Below(80));
            const CNode* pFound = m_tree.GetRoot()->HitTest(&dc, rect, point);
            See(rect);
            const auto& nodes = m_tree.GetNodes();
            See(std::find(nodes.begin(), nodes.end(), pFound) - nodes.begin());
        }
    }

    template <class T>
    void See(const T& value)
    {
        m_seen.emplace_back();
        AppendBytes(m_seen.back(), value);
    }

    CPlainRecursion m_plain;
    CRandomTree m_tree;
    int m_nGap;
    std::vector<std::string> m_seen;
};

void ExpectSame(unsigned nSeed, const CRandomTree::COptions& options)
{
    const CObserved plain(nSeed, options, true);
    const CObserved passes(nSeed, options, false);
    ASSERT_EQ(plain.GetSeen().size(), passes.GetSeen().size()) << "seed " << nSeed;
    for (std::size_t i = 0; i < plain.GetSeen().size(); ++i)
        ASSERT_EQ(plain.GetSeen()[i], passes.GetSeen()[i]) << "seed " << nSeed << " item " << i;
}

// Counts how often text is measured.
class CCountingDC : public CTestDC
{
public:
    using CTestDC::GetOutputTextExtent;
    CSize GetOutputTextExtent(LPCSTR pszText, int nCount) const override
    {
        ++m_nAsked;
        return CTestDC::GetOutputTextExtent(pszText, nCount);
    }

    mutable int m_nAsked = 0;
};

CNodePtr Tower(const char* pszType, int nLevels)
{
    CNodePtr pTower = Text("x");
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
}  // namespace

TEST(LayoutPass, GivesWhatThePlainRecursionGives)
{
    for (unsigned nSeed = 0; nSeed < 2000 * TEST_EFFORT / 100; ++nSeed)
        ASSERT_NO_FATAL_FAILURE(ExpectSame(nSeed, {}));
}

TEST(LayoutPass, GivesTheSameForNumbersAtTheEndOfTheirRange)
{
    for (unsigned nSeed = 0; nSeed < 500 * TEST_EFFORT / 100; ++nSeed)
        ASSERT_NO_FATAL_FAILURE(ExpectSame(nSeed, { 20, true }));
}

// A bracket grows its font when it is painted, and the ranges below it see that in their turn.
TEST(LayoutPass, ARangeFollowsASignThatPaintingChanged)
{
    for (const bool bPlain : { true, false })
    {
        const CPlainRecursion plain(bPlain);
        CTestDC dc;
        CNodePtr pBrace = Node("NT_BRACE", Node("NT_RANGE", Node("NT_RANGE", Text("a"))));
        const CNode* pInner = pBrace->GetLeft()->GetLeft();
        pBrace->Measure(&dc);
        EXPECT_EQ(pInner->GetMeasured().own, CSize(18, 16)) << bPlain;
        CRect rect(5, 5, 0, 0);
        pBrace->Paint(&dc, rect, nullptr, 0);
        // The letter is 11 high at level 2, the inner range 11 + 1 + 16 + 1 + 1, the outer one and
        // the bracket 30 + 1 + 16 + 1 + 1 = 49. The bracket's font grows to 47 * 100 / 12 = 391
        // tenths of a point, 52 pixels.
        EXPECT_EQ(pInner->GetMeasured().own, CSize(18, 52)) << bPlain;
    }
}

TEST(LayoutPass, AsksAFixedNumberOfTimesForEachNode)
{
    for (const char* pszType :
         { "NT_BRACE", "NT_ROOT", "NT_PLUS", "NT_SUM", "NT_RANGE", "NT_LIMES" })
    {
        CNodePtr pTower = Node("NT_BRACE", Tower(pszType, 1000));
        CCountingDC dc;
        CRect rect(0, 0, 0, 0);
        pTower->Paint(&dc, rect, nullptr, 0);
        EXPECT_LE(dc.m_nAsked, 6 * 1001) << pszType;
        dc.m_nAsked = 0;
        pTower->HitTest(&dc, rect, CPoint(rect.right / 2, rect.bottom / 2));
        EXPECT_LE(dc.m_nAsked, 6 * 1001) << pszType;
    }
}

TEST(LayoutPass, NothingOutlivesIt)
{
    CTestDC dc;
    CNodePtr pNode = Text("a");
    EXPECT_EQ(pNode->Measure(&dc), CRect(0, 0, 13, 16));
    pNode->SetSymbol("abc");
    EXPECT_EQ(pNode->Measure(&dc), CRect(0, 0, 29, 16));
}

// Within one call, two device contexts do not see each other's results.
TEST(LayoutPass, BelongsToItsDeviceContext)
{
    CTestDC first;
    CTestDC second;
    CNodePtr pNode = Text("a");
    const CLayoutPass outer(&first);
    EXPECT_EQ(pNode->Measure(&first), CRect(0, 0, 13, 16));
    pNode->SetSymbol("ab");
    EXPECT_EQ(pNode->Measure(&first), CRect(0, 0, 13, 16));
    EXPECT_EQ(pNode->Measure(&second), CRect(0, 0, 21, 16));
    EXPECT_EQ(pNode->Measure(&first), CRect(0, 0, 21, 16));
}
