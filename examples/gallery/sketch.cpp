// Recursive descent: (TYPE [kind] "sign" left right), a bare word for a leaf, - for no child.
#include "sketch.h"

#include <cctype>
#include <cstdlib>
#include <stdexcept>
#include <string_view>

#include <mivora/nodes/typed_node.h>

namespace
{
class CSketchReader
{
public:
    CSketchReader(CBinTree& tree, std::string_view strRest) : m_tree(tree), m_strRest(strRest) {}

    // The next node, null for "-"; the caller's.
    CNode* Next()
    {
        if (Take('('))
            return Inner();
        const std::string strWord = Word();
        if (strWord == "-")
            return nullptr;
        CNode* pNode = Create(std::isdigit(strWord[0]) != 0 ? "NUMBER" : "VARIABLE");
        pNode->SetSymbol(strWord.c_str());
        return pNode;
    }

    bool AtEnd()
    {
        SkipBlanks();
        return m_strRest.empty();
    }

private:
    CNode* Inner()
    {
        CNode* pNode = Create(Word());
        if (Take('['))
        {
            static_cast<CTypedNode*>(pNode)->SetKind(std::atoi(Word().c_str()));
            Take(']');
        }
        if (Take('"'))
        {
            const std::size_t nEnd = m_strRest.find('"');
            pNode->SetSymbol(std::string(m_strRest.substr(0, nEnd)).c_str());
            m_strRest.remove_prefix(nEnd + 1);
        }
        if (!Take(')'))
        {
            if (CNode* pLeft = Next())
            {
                m_tree.DeleteSubtree(pNode->GetLeft());  // the range that a sum is made with
                pNode->SetLeft(pLeft);
            }
            if (!Take(')'))
            {
                pNode->SetRight(Next());
                Take(')');
            }
        }
        return pNode;
    }

    CNode* Create(const std::string& strType)
    {
        return m_tree.CreateNode(("NT_" + strType).c_str());
    }

    bool Take(char ch)
    {
        SkipBlanks();
        if (m_strRest.empty() || m_strRest.front() != ch)
            return false;
        m_strRest.remove_prefix(1);
        return true;
    }

    std::string Word()
    {
        SkipBlanks();
        std::string strWord(m_strRest.substr(0, m_strRest.find_first_of(" ()[]\"")));
        if (strWord.empty())
            throw std::runtime_error("a word is missing in front of: " + std::string(m_strRest));
        m_strRest.remove_prefix(strWord.size());
        return strWord;
    }

    void SkipBlanks()
    {
        while (!m_strRest.empty() && m_strRest.front() == ' ')
            m_strRest.remove_prefix(1);
    }

    CBinTree& m_tree;
    std::string_view m_strRest;
};
}  // namespace

void BuildTree(CBinTree& tree, const std::string& strSketch)
{
    CSketchReader reader(tree, strSketch);
    tree.DeleteContents();
    tree.SetRootNode(reader.Next());
    if (!reader.AtEnd())
        throw std::runtime_error("more than one tree: " + strSketch);
}
