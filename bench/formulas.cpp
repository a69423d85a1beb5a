// The formulas that the benchmarks share.
#include "formulas.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "nodes/node.h"

namespace
{
std::vector<std::string> ReadFormulas()
{
    std::ifstream file(MIVORA_FORMULAS);
    std::vector<std::string> formulas;
    for (std::string line; std::getline(file, line);)
        formulas.push_back(line);
    if (formulas.empty())
    {
        std::fprintf(stderr, "mivora-bench: no formulas in %s\n", MIVORA_FORMULAS);
        std::exit(1);
    }
    return formulas;
}
}  // namespace

const std::vector<std::string>& Formulas()
{
    static const std::vector<std::string> s_formulas = ReadFormulas();
    return s_formulas;
}

int CountNodes(CNode* pRoot)
{
    std::vector<CNode*> open = { pRoot };
    int nNodes = 0;
    while (!open.empty())
    {
        CNode* pNode = open.back();
        open.pop_back();
        if (pNode == nullptr)
            continue;
        ++nNodes;
        open.push_back(pNode->GetLeft());
        open.push_back(pNode->GetRight());
    }
    return nNodes;
}
