// Any bytes as a metafile: enumerated from memory, and read from a file for its comment.
#include <fcntl.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <string>

#include "platform/gdi/gdi.h"
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
    static const std::string s_path =
        std::string(access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp") + "/mivora-fuzz-" +
        std::to_string(getpid()) + ".wmf";
    return s_path;
}

void ReadAsFile(const std::uint8_t* pData, std::size_t nSize)
{
    const int fd = open(ScratchFile().c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (fd < 0 || write(fd, pData, nSize) != static_cast<ssize_t>(nSize))
    {
        std::perror("metafile_fuzz");
        std::abort();
    }
    close(fd);
    CFormulaOut formula;
    formula.ReadFormulaFromWMF(ScratchFile().c_str());
    unlink(ScratchFile().c_str());
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t nSize)
{
    BeQuiet();
    if (HENHMETAFILE hMetafile = SetEnhMetaFileBits(static_cast<UINT>(nSize), pData))
    {
        unsigned nSum = 0;
        const RECT unused = {};
        EnumEnhMetaFile(nullptr, hMetafile, SumRecord, &nSum, &unused);
        DeleteEnhMetaFile(hMetafile);
    }
    ReadAsFile(pData, nSize);
    return 0;
}
