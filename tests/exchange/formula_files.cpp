// Writes and reads files of formulas for a comparison between runs and between systems:
//   formula_files write FOLDER FORMULAS    n.wmf, n.bmp and n.fml of each line of a file
//   formula_files read FOLDER              each n.fml, a line: its tree, and what it stores again;
//                                          its content stream goes to n.content
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "platform/base/app.h"
#include "platform/base/archive.h"
#include "platform/base/exception.h"
#include "platform/doc/compound_file.h"
#include "service/formula_out.h"
#include "tree/tree_form.h"

namespace
{
namespace fs = std::filesystem;

// The file of a formula in a folder.
CString PathOf(const fs::path& folder, int n, const char* pszExtension)
{
    return (folder / (std::to_string(n) + pszExtension)).string().c_str();
}

int Write(const fs::path& folder, const char* pszFormulas)
{
    std::ifstream formulas(pszFormulas);
    int n = 0;
    for (std::string strLine; std::getline(formulas, strLine); ++n)
    {
        CFormulaOut formula;
        if (!formula.FormTree(strLine.c_str()) ||
            !formula.WriteFormulaToWMF(PathOf(folder, n, ".wmf")) ||
            !formula.m_Tree.WriteBitmapFile(PathOf(folder, n, ".bmp")) ||
            !formula.SaveToFML(PathOf(folder, n, ".fml")))
            return 1;
    }
    return n > 0 ? 0 : 1;
}

void KeepContent(const CString& strFile, const CString& strTo)
{
    CFile file(strFile, CFile::modeRead);
    CMemFile content;
    UnpackCompoundFile(file, "Contents", content);
    std::ofstream(strTo.GetString(), std::ios::binary)
        .write(reinterpret_cast<const char*>(content.GetData()),
               static_cast<std::streamsize>(content.GetLength()));
}

void PrintStoredAgain(CFormulaDoc& document)
{
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    document.Serialize(archive);
    archive.Close();
    for (ULONGLONG n = 0; n < file.GetLength(); ++n)
        std::printf("%02x", unsigned{ file.GetData()[n] });
}

int Read(const fs::path& folder)
{
    int n = 0;
    for (; fs::exists(PathOf(folder, n, ".fml").GetString()); ++n)
    {
        const CString strFile = PathOf(folder, n, ".fml");
        CBinTree tree;
        CBinTreeFormat format;
        CFormulaDoc document;
        document.m_pTree = &tree;
        document.m_pFormat = &format;
        if (!document.OnOpenDocument(strFile))
            return 1;
        KeepContent(strFile, PathOf(folder, n, ".content"));
        std::printf("%s ", TreeForm(tree.GetRootNode()).GetString());
        PrintStoredAgain(document);
        std::puts("");
    }
    return n > 0 ? 0 : 1;
}
}  // namespace

int main(int argc, char** argv)
{
    const auto fail = [](const char* pszText, unsigned, void*) -> int
    {
        std::fprintf(stderr, "formula_files: %s\n", pszText);
        std::exit(1);
    };
    AfxSetMessageBoxHandler(fail, nullptr);
    const std::string strCommand = argc > 1 ? argv[1] : "";
    if (strCommand == "write" && argc == 4)
        return Write(argv[2], argv[3]);
    if (strCommand == "read" && argc == 3)
        return Read(argv[2]);
    std::fprintf(stderr, "usage: formula_files write FOLDER FORMULAS | read FOLDER\n");
    return 2;
}
