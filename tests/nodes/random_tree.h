// Random formula trees over all node types, as stored formulas can bring them: any kind of a
// class's table, any child under any node, levels and steps of their own, hidden nodes, base lines
// that no layout wrote. The same seed gives the same tree.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <random>
#include <vector>

#include "format/node_types.h"
#include "format/tree_format.h"
#include "nodes/typed_node.h"
#include "tree/bin_tree.h"

class CRandomTree
{
public:
    struct COptions
    {
        int nMostNodes = 40;
        bool bExtreme = false;  // also numbers at the ends of 32 bits
    };

    CRandomTree(unsigned nSeed, const COptions& options)
        : m_options(options), m_random(nSeed), m_pRoot(nullptr)
    {
        m_pRoot.reset(MakeNode(NTI_COUNT, 1 + Below(options.nMostNodes)));
        for (CNode* pNode : m_nodes)
            Disturb(*pNode);
        if (Chance(30))
        {
            m_format.m_nSizes[Below(5)] = Pick({ 14, 5, -30, 0, -7 });
            m_format.m_pVariable->m_strFontName = "Arial";
            m_format.m_pText->m_crColour = RGB(1, 2, 3);
        }
        m_pRoot->SetLevel(Chance(30) ? Pick({ -1, 1, 2, 3, 7 }) : 0);
        m_pRoot->ApplyFormat(&m_format);
        for (CNode* pNode : m_nodes)
            ChangeFont(*pNode);
    }

    CNode* GetRoot() const { return m_pRoot.get(); }
    const std::vector<CNode*>& GetNodes() const { return m_nodes; }  // in pre-order
    CBinTreeFormat& GetFormat() { return m_format; }

    CNode* AnyNode() { return m_nodes.begin()[Below(static_cast<int>(m_nodes.size()))]; }

    int Below(int nLimit) { return static_cast<int>(m_random() % static_cast<unsigned>(nLimit)); }
    bool Chance(int nPercent) { return Below(100) < nPercent; }
    template <class T>
    T Pick(std::initializer_list<T> values)
    {
        return *std::next(values.begin(), Below(static_cast<int>(values.size())));
    }

private:
    // Chains of ranges and towers of brackets are where measuring once is hardest to get right.
    ENodeType PickType(ENodeType nParent)
    {
        if (nParent == NTI_RANGE && Chance(40))
            return NTI_RANGE;
        return Chance(12) ? Pick({ NTI_RANGE, NTI_BRACE, NTI_SUM, NTI_ROOT, NTI_VECTOR })
                          : static_cast<ENodeType>(Below(NTI_COUNT));
    }

    CNode* MakeNode(ENodeType nParent, int nNodes)
    {
        const ENodeType nType = PickType(nParent);
        CNode* pNode = CBinTree().CreateNode(NodeTypeName(nType));
        const int nLeft = Chance(20) ? 0 : Below(nNodes);
        Fill(*pNode, nType, nLeft, nNodes - 1 - nLeft);
        return pNode;
    }

    void Fill(CNode& node, ENodeType nType, int nLeft, int nRight)
    {
        m_nodes.push_back(&node);
        if (node.GetLeft() != nullptr)  // the range of a big operator
            Fill(*node.GetLeft(), NTI_RANGE, (nLeft + 1) / 2, nLeft / 2);
        else if (nLeft > 0)
            node.SetLeft(MakeNode(nType, nLeft));
        if (nRight > 0)
            node.SetRight(MakeNode(nType, nRight));
    }

    void Disturb(CNode& node)
    {
        if (auto* pTyped = dynamic_cast<CTypedNode*>(&node))
        {
            const int nKinds = static_cast<int>(pTyped->m_saSymbols.GetSize());
            pTyped->SetKind(Below(nKinds > 0 ? nKinds : 3));
            if (node.GetTypeName() == "NT_FUNC" && Chance(10))
                pTyped->SetKind(-1);
        }
        if (Chance(50))
            node.SetSymbol(Pick({ "", "a", "xy", "0", "Wi gf", "\xE5", "(", "?" }));
        if (Chance(10))
        {
            node.m_nLeftLevelStep = Number({ -2, -1, 0, 1, 2 });
            node.m_nRightLevelStep = Number({ -2, -1, 0, 1, 2 });
        }
        if (Chance(10))
            node.SetFlags(node.GetFlags() | NF_HIDDEN);
        if (Chance(20))
        {
            node.m_nBaseline = Number({ -7, -1, 1, 5, 20, 90 });
            node.m_rect = CRect(Below(9), Below(9), Below(99), Below(99));
        }
    }

    int Number(std::initializer_list<int> values)
    {
        return m_options.bExtreme && Chance(10)
                   ? Pick({ INT32_MAX, INT32_MIN, INT32_MAX / 2, INT32_MIN / 2 + 1, 0x12345678 })
                   : Pick(values);
    }

    void ChangeFont(CNode& node)
    {
        if (Chance(10))
        {
            node.SetFontName(Pick({ "Symbol", "MT Extra", "Arial", "Courier New" }));
            node.SetItalic(Below(2));
            node.SetBold(Below(2));
        }
    }

    COptions m_options;
    std::mt19937 m_random;
    CBinTreeFormat m_format;
    std::unique_ptr<CNode> m_pRoot;
    std::vector<CNode*> m_nodes;
};
