// What a parse has made and its result does not reach: told, then freed.
#include "parser/dropped_text.h"

#include <algorithm>
#include <functional>

#include "nodes/node.h"
#include "parser/formula_parser.h"

namespace
{

// A list of nodes that has grown beyond this is given back after the parse.
constexpr std::size_t s_nKeptNodes = 64 * 1024;

using CNodes = std::vector<CNode*>;

struct CPiece
{
    WORD nStart;
    WORD nEnd;
    bool bDropped;
};

template <class T>
void GiveBackIfHuge(std::vector<T>& list)
{
    list.clear();
    if (list.capacity() > s_nKeptNodes)
        list.shrink_to_fit();
}

void DeleteAlone(CNode* pNode)
{
    pNode->LinkLeft(nullptr);
    pNode->LinkRight(nullptr);
    delete pNode;
}

// Appends a node and all below it.
void Reach(CNode* pTop, CNodes& apReached)
{
    std::size_t i = apReached.size();
    apReached.push_back(pTop);
    for (; i < apReached.size(); i++)
    {
        const CNode* pNode = apReached[i];
        if (pNode->GetLeft() != nullptr)
            apReached.push_back(pNode->GetLeft());
        if (pNode->GetRight() != nullptr)
            apReached.push_back(pNode->GetRight());
    }
}

void Sort(CNodes& apNodes)
{
    std::sort(apNodes.begin(), apNodes.end(), std::less<>());
}

bool Contains(const CNodes& apSorted, CNode* pNode)
{
    return std::binary_search(apSorted.begin(), apSorted.end(), pNode, std::less<>());
}

// Pieces with nothing between them that is shown are one; blanks around it do not count.
std::vector<CDroppedText> Merged(std::vector<CPiece>& pieces, const char* pszText)
{
    std::stable_sort(pieces.begin(), pieces.end(),
                     [](const CPiece& a, const CPiece& b) { return a.nStart < b.nStart; });
    std::vector<CDroppedText> texts;
    for (std::size_t i = 0; i < pieces.size(); i++)
    {
        if (!pieces[i].bDropped)
            continue;
        WORD nStart = pieces[i].nStart;
        WORD nEnd = pieces[i].nEnd;
        for (; i + 1 < pieces.size() && pieces[i + 1].bDropped; i++)
            nEnd = std::max(nEnd, pieces[i + 1].nEnd);
        while (nStart < nEnd && pszText[nStart - 1] == ' ')
            nStart++;
        while (nStart < nEnd && pszText[nEnd - 2] == ' ')
            nEnd--;
        texts.push_back({ nStart, static_cast<WORD>(nEnd - nStart) });
    }
    return texts;
}

}  // namespace

void CFormulaParser::NoteDropped(WORD nStart, WORD nEnd)
{
    m_aDropped.push_back({ nStart, static_cast<WORD>(nEnd - nStart) });
}

// A rule can drop a node that still points at nodes which live, so that what pTop does not reach
// is deleted node by node. Nothing is deleted before all that can fail is done.
void CFormulaParser::FreeDropped(CNode* pTop)
{
    m_apReached.reserve(m_aMade.size());
    Reach(pTop, m_apReached);
    const bool bNodes = m_apReached.size() != m_aMade.size();
    if (bNodes)
        Sort(m_apReached);
    if (bNodes || !m_aDropped.empty())
        TellDropped(bNodes);
    if (bNodes)
    {
        for (const CMadeNode& made : m_aMade)
        {
            if (!Contains(m_apReached, made.pNode))
                DeleteAlone(made.pNode);
        }
    }
    GiveBackIfHuge(m_apReached);
    GiveBackIfHuge(m_aMade);
}

// Adds the texts of dropped nodes to those that the rules have noted. The arguments of BRACE that
// choose its brackets are shown as these, and what stands behind the beginning of a keyword that
// failed is told by the position of the error.
void CFormulaParser::TellDropped(bool bNodes)
{
    CNodes apBrackets;
    for (CNode* pNode : m_apBrackets)
        Reach(pNode, apBrackets);
    Sort(apBrackets);

    std::vector<CPiece> pieces;
    const auto add = [&](WORD nStart, WORD nEnd, bool bDropped)
    {
        if (nStart < nEnd && !(bDropped && m_bEnded && nStart >= m_nStopped))
            pieces.push_back({ nStart, nEnd, bDropped });
    };
    for (const CDroppedText& text : m_aDropped)
        add(text.nPosition, static_cast<WORD>(text.nPosition + text.nLength), true);
    for (const CMadeNode& made : m_aMade)
    {
        if (!Contains(apBrackets, made.pNode))
            add(made.span.nStart, made.span.nEnd, bNodes && !Contains(m_apReached, made.pNode));
    }
    m_aDropped = Merged(pieces, m_strText);
}

void CFormulaParser::FreeAll()
{
    for (const CMadeNode& made : m_aMade)
        DeleteAlone(made.pNode);
    m_aDropped.clear();
    GiveBackIfHuge(m_aMade);
    GiveBackIfHuge(m_apReached);
}
