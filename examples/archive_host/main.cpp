// A host with files of its own: sets a formula in larger type and another face, stores it in an
// archive, loads it again and measures what came back. Damaged files end in exceptions of the
// library, which the host catches and deletes.
//
//     archive_host 'a/b' fraction.bin
#include <mivora/mivora.h>

#include <cstdio>
#include <stdexcept>
#include <vector>

namespace
{
// The format of this formula: faces and sizes (points, written negative) are public fields.
void SetFormat(CBinTreeFormat& format)
{
    format.m_pVariable->m_strFontName = "Arial";
    format.m_pNumber->m_strFontName = "Arial";
    format.m_pVariable->m_crColour = RGB(0, 0, 160);
    constexpr int anSizes[] = { -20, -15, -12, -28, -20 };
    for (int n = 0; n < 5; ++n)
        format.m_nSizes[n] = anSizes[n];
}

CRect Measure(CFormulaOut& formula)
{
    CClientDC screen(nullptr);
    return formula.GetFormulaRect(&screen);
}

void Store(CFormulaOut& formula, CFile& file)
{
    CArchive ar(&file, CArchive::store);
    formula.SaveTree(ar);
    ar.Close();
}

// The stored format comes with the tree, and is put on its nodes after loading.
void Load(CFormulaOut& formula, CFile& file)
{
    CArchive ar(&file, CArchive::load);
    formula.SaveTree(ar);
    ar.Close();
    formula.ReformatNodes();
}

std::vector<BYTE> ReadAll(const char* pszPath)
{
    CFile file(pszPath, CFile::modeRead);
    std::vector<BYTE> bytes(static_cast<std::size_t>(file.GetLength()));
    file.Read(bytes.data(), static_cast<UINT>(bytes.size()));
    return bytes;
}

// Whether loading the first nLength bytes ends as it should.
bool IsRefused(std::vector<BYTE>& bytes, UINT nLength)
{
    CMemFile file(bytes.data(), nLength);
    CFormulaOut formula;
    try
    {
        Load(formula, file);
    }
    catch (CArchiveException* pException)
    {
        char szText[200];
        const bool bTold = pException->GetErrorMessage(szText, sizeof(szText)) && szText[0];
        const int nCause = pException->m_cause;
        pException->Delete();
        return bTold && nCause == CArchiveException::endOfFile;
    }
    return false;
}

void Run(const CString strFormula, const char* pszPath)
{
    CFormulaOut formula;
    if (!formula.FormTree(strFormula))
        throw std::runtime_error("the formula cannot be read");
    SetFormat(*formula.GetTreeFormatPtr());
    formula.ReformatNodes();
    const CRect rect = Measure(formula);
    {
        CFile file(pszPath, CFile::modeCreate | CFile::modeWrite);
        Store(formula, file);
        file.Close();
    }

    CFormulaOut loaded;
    CFile file(pszPath, CFile::modeRead);
    Load(loaded, file);
    const CBinTreeFormat* pFormat = loaded.GetTreeFormatPtr();
    if (Measure(loaded) != rect || pFormat->m_pVariable->m_strFontName != "Arial" ||
        pFormat->m_nSizes[0] != -20)
        throw std::runtime_error("another formula came back");
    std::printf("%d x %d pixels\n", rect.Width(), rect.Height());

    std::vector<BYTE> bytes = ReadAll(pszPath);
    const UINT nWhole = static_cast<UINT>(bytes.size());
    for (UINT nLength = 0; nLength < nWhole; ++nLength)
    {
        if (!IsRefused(bytes, nLength))
            throw std::runtime_error("a damaged file was taken for a whole one");
    }
    std::printf("%u damaged files refused\n", nWhole);
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
    {
        std::fprintf(stderr, "usage: archive_host FORMULA FILE\n");
        return 2;
    }
    try
    {
        Run(argv[1], argv[2]);
        return 0;
    }
    catch (CException* pException)
    {
        char szText[200] = "";
        pException->GetErrorMessage(szText, sizeof(szText));
        std::fprintf(stderr, "archive_host: %s\n", szText);
        pException->Delete();
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "archive_host: %s\n", error.what());
    }
    return 1;
}
