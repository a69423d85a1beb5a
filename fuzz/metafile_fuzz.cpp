// Any bytes as a metafile, enumerated from memory and read from a file for its comment, and as a
// picture of another kind that may carry a formula's text.
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <span>

#include "picture/carried_text.h"
#include "platform/gdi/native_gdi.h"
#include "quiet_host.h"
#include "service/formula_out.h"
#include "test_folder.h"

namespace
{
// Touches every byte of every record, as a callback of a host may.
int CALLBACK SumRecord(HDC, HANDLETABLE*, const ENHMETARECORD* pRecord, int, LPARAM pSum)
{
    const BYTE* pBytes = reinterpret_cast<const BYTE*>(pRecord);
    for (DWORD n = 0; n < pRecord->nSize; ++n)
        *reinterpret_cast<unsigned*>(pSum) += pBytes[n];
    return 1;
}

void ReadAsFile(const std::uint8_t* pData, std::size_t nSize)
{
    static const CTestFolder s_folder;  // for the whole run
    const std::string strPath = s_folder.File("x.wmf");
    std::ofstream file(strPath, std::ios::binary);
    file.write(reinterpret_cast<const char*>(pData), static_cast<std::streamsize>(nSize));
    file.close();
    if (!file)
        std::abort();
    CFormulaOut formula;
    formula.ReadFormulaFromWMF(strPath.c_str());
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    BeQuiet();
    FindCarriedSource({ reinterpret_cast<const char*>(pData), nSize });
    if (HENHMETAFILE hMetafile = MakeEnhMetaFile(std::span(pData, nSize)))
    {
        unsigned nSum = 0;
        const RECT unused = {};
        EnumEnhMetaFile(nullptr, hMetafile, SumRecord, &nSum, &unused);
        DeleteEnhMetaFile(hMetafile);
    }
    ReadAsFile(pData, nSize);
    return 0;
}
