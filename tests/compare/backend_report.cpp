// What one platform makes of formulas: rectangles on standard output, metafiles in a folder. A
// second platform's report is compared with it by compare_reports.py.
//   backend_report TEXTS FOLDER TREES
// TEXTS has a text on each line, in hexadecimal; TREES random trees of all node types follow.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "nodes/random_tree.h"
#include "picture/picture.h"
#include "platform/base/app.h"
#include "platform/gdi/dc.h"
#include "platform/gdi/test_fonts.h"
#include "service/formula_out.h"

namespace
{
std::string g_strFolder;

std::string FromHex(const std::string& strHex)
{
    std::string text;
    for (std::size_t i = 0; i + 1 < strHex.size(); i += 2)
        text += static_cast<char>(std::stoi(strHex.substr(i, 2), nullptr, 16));
    return text;
}

std::string RectText(const CRect& rect)
{
    return std::to_string(rect.left) + ',' + std::to_string(rect.top) + ',' +
           std::to_string(rect.right) + ',' + std::to_string(rect.bottom);
}

void Print(const std::string& strName, const CRect& pixels, const CRect& hundredths, int nAxis,
           int nWritten)
{
    std::printf("%s pixels=%s hundredths=%s axis=%d written=%d\n", strName.c_str(),
                RectText(pixels).c_str(), RectText(hundredths).c_str(), nAxis, nWritten);
}

void ReportText(const std::string& strName, const std::string& text)
{
    CFormulaOut formula;
    formula.FormTree(CString(text.data(), static_cast<int>(text.size())));
    CClientDC screen(nullptr);
    const CRect pixels = formula.GetFormulaRect(&screen);
    const CNode* pRoot = formula.m_Tree.GetRootNode();
    const int nAxis = pRoot != nullptr ? pRoot->m_nBaseline : 0;
    const int nWritten = formula.WriteFormulaToWMF((g_strFolder + "/" + strName + ".wmf").c_str());
    Print(strName, pixels, formula.m_Tree.m_rectFormula, nAxis, nWritten);
    std::ofstream(g_strFolder + "/" + strName + ".svg", std::ios::binary)
        << MakePicture(formula, *FindPictureFormat("svg"), {}).strBytes;
}

// Asked for a text face and the character set of symbols, the font mapper of Windows takes a symbol
// font and ours the face; no formula asks so.
void AskForLetters(const std::vector<CNode*>& nodes)
{
    for (CNode* pNode : nodes)
    {
        const CString strFace = pNode->GetFontName();
        if (strFace != "Symbol" && strFace != "MT Extra")
            pNode->GetLogFont()->lfCharSet = ANSI_CHARSET;
    }
}

// Every third tree is drawn with a node selected, in one of the two modes.
void ReportTree(const std::string& strName, unsigned nSeed)
{
    CRandomTree random(nSeed, { 25, false });
    AskForLetters(random.GetNodes());
    CBinTree tree;
    tree.SetRootNode(random.GetRoot());
    if (nSeed % 3 == 0)
    {
        CNode* pSelected = random.AnyNode();
        tree.SetSelection(pSelected, 1 + random.Below(2));
    }
    CClientDC screen(nullptr);
    const CRect pixels = tree.MeasureTree(&screen);
    const int nAxis = random.GetRoot()->m_nBaseline;
    CClientDC mapped(nullptr);
    SetHundredths(mapped);
    const CRect hundredths = tree.MeasureTree(&mapped);
    const int nWritten = tree.WriteMetafile((g_strFolder + "/" + strName + ".wmf").c_str());
    tree.SetRootNode(nullptr);  // the nodes are the other object's
    Print(strName, pixels, hundredths, nAxis, nWritten);
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
    {
        std::fprintf(stderr, "usage: backend_report TEXTS FOLDER TREES\n");
        return 2;
    }
    AfxSetMessageBoxHandler([](const char*, unsigned, void*) { return 1; }, nullptr);
    g_strFolder = argv[2];
    std::ifstream texts(argv[1]);
    int nText = 0;
    for (std::string strLine; std::getline(texts, strLine);)
        ReportText("text" + std::to_string(++nText), FromHex(strLine));
    const auto nTrees = static_cast<unsigned>(std::atoi(argv[3]));
    for (unsigned nSeed = 1; nSeed <= nTrees; ++nSeed)
        ReportTree("tree" + std::to_string(nSeed), nSeed);
    return nText > 0 ? 0 : 1;
}
