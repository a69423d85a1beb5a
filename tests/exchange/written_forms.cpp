// Writes formulas in all forms, for tests that hand them to other programs:
//   written_forms text FILE      each line of source text: the line, a tab, MathML, a tab, LaTeX,
//                                a tab, words
//   written_forms sketch FILE    each sketch of a tree, with all its kinds
//   written_forms random COUNT   as many source texts, sketches, and trees of any shape
// A third argument is a folder for stored formulas: 0.fml, 1.fml and so on.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>

#include "exchange/latex.h"
#include "exchange/mathml.h"
#include "exchange/speech.h"
#include "gallery/sketch.h"
#include "nodes/random_tree.h"
#include "random_formula.h"
#include "service/formula_out.h"
#include "tree/tree_form.h"

namespace
{
std::string g_strFolder;  // for stored formulas; empty: none are stored
int g_nStored = 0;

// Any tree stays as it is.
void Print(const std::string& strSource, const CNode* pRoot)
{
    const CString strBefore = TreeForm(pRoot);
    std::printf("%s\t%s\t%s\t%s\n", strSource.c_str(), MathMLText(pRoot).c_str(),
                LatexText(pRoot).c_str(), SpokenText(pRoot).c_str());
    if (TreeForm(pRoot) != strBefore)
        throw std::runtime_error(strSource + " has changed");
}

void PrintAndStore(const std::string& strSource, CFormulaOut& formula)
{
    Print(strSource, formula.m_Tree.GetRootNode());
    if (g_strFolder.empty())
        return;
    const std::string strPath = g_strFolder + "/" + std::to_string(g_nStored++) + ".fml";
    if (!formula.SaveToFML(strPath.c_str()))
        throw std::runtime_error("cannot write " + strPath);
}

void PrintText(const std::string& strLine)
{
    CFormulaOut formula;
    formula.FormTree(strLine.c_str());
    PrintAndStore(strLine, formula);
}

// "#3" in a sketch stands for the kinds 0 to 2.
void PrintSketch(const std::string& strLine)
{
    const std::size_t nPlace = strLine.find('#');
    const bool bKinds = nPlace != std::string::npos;
    const int nKinds = bKinds ? std::atoi(strLine.c_str() + nPlace + 1) : 1;
    for (int nKind = 0; nKind < nKinds; ++nKind)
    {
        std::string strSketch = strLine;
        if (bKinds)
            strSketch.replace(nPlace, strLine.find(']', nPlace) - nPlace, std::to_string(nKind));
        CFormulaOut formula;
        BuildTree(formula.m_Tree, strSketch);
        PrintAndStore(strSketch, formula);
    }
}

void PrintRandom(int nCount)
{
    CRandomFormula random(11);
    for (int n = 0; n < nCount; ++n)
    {
        PrintText(random.Make(random.TEXTS, 1 + n % 4));
        PrintSketch(random.Make(random.SKETCHES, 1 + n % 4));
        // Any child under any node, as damaged files have them.
        Print("tree " + std::to_string(n), CRandomTree(static_cast<unsigned>(n), {}).GetRoot());
    }
}

void PrintFile(const char* pszPath, void (*pfnPrint)(const std::string&))
{
    std::ifstream lines(pszPath, std::ios::binary);  // code 0x1A is a character like others
    if (!lines)
        throw std::runtime_error(std::string("cannot open ") + pszPath);
    for (std::string strLine; std::getline(lines, strLine);)
    {
        if (!strLine.starts_with("#"))
            pfnPrint(strLine);
    }
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc < 3)
        return 2;
    const std::string strCommand = argv[1];
    g_strFolder = argc > 3 ? argv[3] : "";
    if (strCommand == "random")
        PrintRandom(std::atoi(argv[2]));
    else
        PrintFile(argv[2], strCommand == "text" ? PrintText : PrintSketch);
    return 0;
}
