// Any bytes as a metafile, enumerated from memory and read from a file for its comment, and as a
// picture of another kind that may carry a formula's text.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <span>
#include <string>

#include "picture/carried_text.h"
#include "platform/gdi/native_gdi.h"
#include "quiet_host.h"
#include "service/formula_out.h"

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

// One file for the whole run, in memory where the system offers that.
const std::string& ScratchFile()
{
    static const std::string s_path = []
    {
        const std::filesystem::path memory = "/dev/shm";
        const std::filesystem::path folder =
            std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
        return (folder / ("mivora-fuzz-" + std::to_string(std::random_device()()) + ".wmf"))
            .string();
    }();
    return s_path;
}

void ReadAsFile(const std::uint8_t* pData, std::size_t nSize)
{
    std::ofstream file(ScratchFile(), std::ios::binary);
    file.write(reinterpret_cast<const char*>(pData), static_cast<std::streamsize>(nSize));
    file.close();
    if (!file)
    {
        std::fprintf(stderr, "metafile_fuzz: %s cannot be written\n", ScratchFile().c_str());
        std::abort();
    }
    CFormulaOut formula;
    formula.ReadFormulaFromWMF(ScratchFile().c_str());
    std::filesystem::remove(ScratchFile());
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
