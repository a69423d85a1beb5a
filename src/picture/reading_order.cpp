// Goes through the tree as it is read: a node's own texts lie before, between and behind its parts.
#include "picture/reading_order.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "nodes/node.h"

namespace
{
// A stretch of work that is still to be done: a whole node, or the own texts of one that lie
// between two places.
struct CTask
{
    const CNode* pNode;
    bool bWhole;
    int nFrom;
    int nTo;
};

constexpr int s_nFarLeft = -0x7FFFFFFF;
constexpr int s_nFarRight = 0x7FFFFFFF;

class COrder
{
public:
    COrder(const CDrawing& drawing, const std::vector<CNodeBox>& boxes) : m_drawing(drawing)
    {
        int nShown = -1;
        for (const CNodeBox& box : boxes)
        {
            const bool bShown = (box.pNode->m_nFlags & NF_HIDDEN) == 0;
            nShown += bShown ? 1 : 0;
            m_places[box.pNode] = { &box, bShown ? nShown : -1 };
        }
        for (size_t n = 0; n < drawing.texts.size(); ++n)
            m_ownTexts[drawing.texts[n].nNode].push_back(n);
    }

    std::vector<size_t> Run(const CNode* pRoot)
    {
        std::vector<CTask> tasks = { { pRoot, true, 0, 0 } };
        while (!tasks.empty())
        {
            const CTask task = tasks.back();
            tasks.pop_back();
            if (task.bWhole)
                Divide(task.pNode, tasks);
            else
                TakeOwn(task);
        }
        return std::move(m_order);
    }

private:
    struct CPlace
    {
        const CNodeBox* pBox;
        int nShown;
    };

    // The last task is done first.
    void Divide(const CNode* pNode, std::vector<CTask>& tasks)
    {
        const CNode* pLeft = pNode->GetLeft();
        const CNode* pRight = pNode->GetRight();
        const bool bBoth = pLeft != nullptr && pRight != nullptr;
        if (bBoth && SubtreeOf(pRight).right <= SubtreeOf(pLeft).left)
            std::swap(pLeft, pRight);  // the degree of a root
        // A sign between its limits is read before them.
        const int nBefore = pLeft != nullptr ? SubtreeOf(pLeft).right : s_nFarLeft;
        const CNode* pLast = pRight != nullptr ? pRight : pLeft;
        const int nEnd = pLast != nullptr ? SubtreeOf(pLast).right : s_nFarRight;
        const int nBehind = std::max<int>(nBefore, nEnd);  // parts may lie over each other
        tasks.push_back({ pNode, false, nBehind, s_nFarRight });
        if (pRight != nullptr)
            tasks.push_back({ pRight, true, 0, 0 });
        tasks.push_back({ pNode, false, nBefore, nBehind });
        if (pLeft != nullptr)
            tasks.push_back({ pLeft, true, 0, 0 });
        tasks.push_back({ pNode, false, s_nFarLeft, nBefore });
    }

    void TakeOwn(const CTask& task)
    {
        const auto it = m_ownTexts.find(m_places[task.pNode].nShown);
        if (it == m_ownTexts.end())
            return;
        for (const size_t n : it->second)
        {
            const int x = m_drawing.texts[n].origin.x;
            if (x >= task.nFrom && x < task.nTo)
                m_order.push_back(n);
        }
    }

    const CRect& SubtreeOf(const CNode* pNode) { return m_places[pNode].pBox->subtree; }

    const CDrawing& m_drawing;
    std::unordered_map<const CNode*, CPlace> m_places;
    std::unordered_map<int, std::vector<size_t>> m_ownTexts;  // by node
    std::vector<size_t> m_order;
};
}  // namespace

std::vector<size_t> ReadingOrder(const CDrawing& drawing, const std::vector<CNodeBox>& boxes)
{
    return boxes.empty() ? std::vector<size_t>() : COrder(drawing, boxes).Run(boxes.front().pNode);
}
