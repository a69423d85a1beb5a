// Writes and reads files of formulas for a comparison between runs and between systems:
//   formula_files write FOLDER FORMULAS    n.wmf, n.bmp and n.fml of each line of a file
//   formula_files read FOLDER              each n.fml, a line: its tree, and what it stores again;
//                                          its content stream goes to n.content
#include <cstdio>
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

int FailOnMessage(const char* pszText, unsigned, void*)
{
    std::fprintf(stderr, "formula_files: %s\n", pszText);
    std::exit(1);
}

std::string Numbered(int n, const char* pszExtension)
{
    return std::to_string(n) + pszExtension;
}

int Write(const fs::path& folder, const char* pszFormulas)
{
    std::ifstream formulas(pszFormulas);
    int nWritten = 0;
    for (std::string strLine; std::getline(formulas, strLine); ++nWritten)
    {
        const auto path = [&](const char* pszExtension)
        {
            return CString((folder / Numbered(nWritten, pszExtension)).string().c_str());
        };
        CFormulaOut formula;
        if (!formula.FormTree(strLine.c_str()) || !formula.WriteFormulaToWMF(path(".wmf")) ||
            !formula.m_Tree.WriteBitmapFile(path(".bmp")) || !formula.SaveToFML(path(".fml")))
            return 1;
    }
    return nWritten > 0 ? 0 : 1;
}

void KeepContent(const CString& strFile, const fs::path& to)
{
    CFile file(strFile, CFile::modeRead);
    CMemFile content;
    UnpackCompoundFile(file, "Contents", content);
    std::ofstream(to, std::ios::binary)
        .write(reinterpret_cast<const char*>(content.GetData()),
               static_cast<std::streamsize>(content.GetLength()));
}

std::string StoredAgain(CFormulaDoc& document)
{
    CMemFile file;
    CArchive archive(&file, CArchive::store);
    document.Serialize(archive);
    archive.Close();
    std::string strHex;
    for (ULONGLONG n = 0; n < file.GetLength(); ++n)
    {
        char szByte[3];
        std::snprintf(szByte, sizeof szByte, "%02x", unsigned{ file.GetData()[n] });
        strHex += szByte;
    }
    return strHex;
}

int Read(const fs::path& folder)
{
    int nRead = 0;
    for (; fs::exists(folder / Numbered(nRead, ".fml")); ++nRead)
    {
        const CString strFile((folder / Numbered(nRead, ".fml")).string().c_str());
        CBinTree tree;
        CBinTreeFormat format;
        CFormulaDoc document;
        document.m_pTree = &tree;
        document.m_pFormat = &format;
        if (!document.OnOpenDocument(strFile))
            return 1;
        KeepContent(strFile, folder / Numbered(nRead, ".content"));
        std::printf("%s %s\n", TreeForm(tree.GetRootNode()).GetString(),
                    StoredAgain(document).c_str());
    }
    return nRead > 0 ? 0 : 1;
}
}  // namespace

int main(int argc, char** argv)
{
    AfxSetMessageBoxHandler(FailOnMessage, nullptr);
    const std::string strCommand = argc > 1 ? argv[1] : "";
    if (strCommand == "write" && argc == 4)
        return Write(argv[2], argv[3]);
    if (strCommand == "read" && argc == 3)
        return Read(argv[2]);
    std::fprintf(stderr, "usage: formula_files write FOLDER FORMULAS | read FOLDER\n");
    return 2;
}
