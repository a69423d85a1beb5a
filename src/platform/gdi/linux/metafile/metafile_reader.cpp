// Metafiles that may come from anywhere, damaged ones too.
#include "platform/gdi/linux/metafile/metafile_reader.h"

#include "platform/base/system.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <vector>

namespace
{

constexpr std::size_t s_nReadStep = 64 * 1024;

// The bytes that the fields of a header take: its record may hold a description and more behind.
std::size_t FieldBytes(const ENHMETAHEADER& header)
{
    std::size_t nBytes = std::min<std::size_t>(header.nSize, sizeof header);
    for (DWORD nOffset : { header.offDescription, header.offPixelFormat })
    {
        if (nOffset >= METAFILE_OLDEST_HEADER)
            nBytes = std::min<std::size_t>(nBytes, nOffset);
    }
    return nBytes;
}

class CDescriptor
{
public:
    // Does not wait for a pipe's other end.
    explicit CDescriptor(LPCSTR pszFile) : m_nFile(open(pszFile, O_RDONLY | O_NONBLOCK | O_CLOEXEC))
    {
    }
    ~CDescriptor()
    {
        if (m_nFile >= 0)
            close(m_nFile);
    }
    CDescriptor(const CDescriptor&) = delete;
    CDescriptor& operator=(const CDescriptor&) = delete;

    bool IsOpen() const { return m_nFile >= 0; }

    // Bytes read, 0 at the end, -1 and errno for a failure. Waits for the writer of a pipe.
    ssize_t Read(BYTE* pBuffer, std::size_t nBytes)
    {
        for (;;)
        {
            ssize_t nRead = read(m_nFile, pBuffer, nBytes);
            if (nRead >= 0 || (errno != EINTR && errno != EAGAIN))
                return nRead;
            if (errno == EAGAIN)
            {
                pollfd wait{ m_nFile, POLLIN, 0 };
                poll(&wait, 1, -1);
            }
        }
    }
    // Bytes of a regular file, 0 of anything else.
    std::size_t Size() const
    {
        struct stat status;
        bool bRegular = fstat(m_nFile, &status) == 0 && S_ISREG(status.st_mode);
        return bRegular ? static_cast<std::size_t>(status.st_size) : 0;
    }

private:
    int m_nFile;
};

// Reads as far as the records are sound. Returns 0 or the error's number.
DWORD ReadRecords(CDescriptor& file, CMetafileBits& bits)
{
    const std::size_t nStep =
        std::clamp<std::size_t>(file.Size() + 1, METAFILE_OLDEST_HEADER, s_nReadStep);
    std::size_t nWalked = 0;
    bool bHeaderSeen = false;
    for (;;)
    {
        const std::size_t nHave = bits.Size();
        BYTE* pPlace = bits.Extend(nStep);
        if (!pPlace)
            return ENOMEM;
        ssize_t nRead = file.Read(pPlace, nStep);
        bits.Shorten(nHave + static_cast<std::size_t>(std::max<ssize_t>(nRead, 0)));
        if (nRead < 0)
            return static_cast<DWORD>(errno);
        if (nRead == 0)
            return 0;
        if (!bHeaderSeen && bits.Size() >= METAFILE_OLDEST_HEADER)
        {
            if (!CheckHeader(bits.Bytes()))
                return EINVAL;
            bHeaderSeen = true;
        }
        if (bHeaderSeen && WalkRecords(bits.Bytes(), &nWalked) != walkMore)
            return 0;
    }
}

}  // namespace

ENHMETAHEADER HENHMETAFILE__::Header() const
{
    ENHMETAHEADER header{};
    std::memcpy(&header, m_pBits->Data(), std::min(m_pBits->Size(), sizeof header));
    const std::size_t nFields = FieldBytes(header);
    std::memset(reinterpret_cast<BYTE*>(&header) + nFields, 0, sizeof header - nFields);
    return header;
}

namespace
{

bool IsDamagedComment(std::span<const BYTE> record)
{
    EMRGDICOMMENT comment{};
    std::memcpy(&comment, record.data(), std::min(record.size(), sizeof comment));
    return comment.emr.iType == EMR_GDICOMMENT &&
           (record.size() < sizeof comment || comment.cbData > record.size() - sizeof comment);
}

// The comment with as many data as its record has, and zeros behind it; an own copy, the file's
// bytes stay.
std::vector<DWORD> MendComment(std::span<const BYTE> record)
{
    const std::size_t nSize = std::max(record.size(), sizeof(EMRGDICOMMENT));
    std::vector<DWORD> copy(nSize / sizeof(DWORD) + 1);
    std::memcpy(copy.data(), record.data(), record.size());
    copy[1] = static_cast<DWORD>(nSize);
    copy[2] = static_cast<DWORD>(nSize - sizeof(EMRGDICOMMENT));
    return copy;
}

}  // namespace

bool VisitRecords(std::span<const BYTE> bytes,
                  const std::function<bool(const ENHMETARECORD&)>& visitor)
{
    bool bEnded = false;
    const std::size_t nEnd = WholeRecords(bytes, &bEnded);
    for (std::size_t nOffset = 0; nOffset < nEnd;)
    {
        std::span<const BYTE> record = bytes.subspan(nOffset, HeadAt(bytes, nOffset).nSize);
        std::vector<DWORD> mended;
        const void* pRecord = record.data();
        if (IsDamagedComment(record))
        {
            mended = MendComment(record);
            pRecord = mended.data();
        }
        if (!visitor(*static_cast<const ENHMETARECORD*>(pRecord)))
            return false;
        nOffset += record.size();
    }
    return bEnded;
}

namespace
{

CMetafileBits* Fail(CMetafileBits* pBits, DWORD dwError)
{
    if (pBits)
        pBits->Release();
    SetLastError(dwError);
    return nullptr;
}

// The bits less what follows their whole records. Zeros lie behind them: a text at the very end
// of a cut file ends there for who reads it without regard to its length.
CMetafileBits* KeepWholeRecords(CMetafileBits* pBits)
{
    const std::size_t nWhole = CheckHeader(pBits->Bytes()) ? WholeRecords(pBits->Bytes()) : 0;
    if (nWhole == 0)
        return Fail(pBits, EINVAL);
    pBits->Shorten(nWhole);
    BYTE* pBehind = pBits->Extend(sizeof(DWORD));
    if (!pBehind)
        return Fail(pBits, ENOMEM);
    std::memset(pBehind, 0, sizeof(DWORD));
    pBits->Shorten(nWhole);
    return pBits;
}

}  // namespace

CMetafileBits* ReadMetafileBits(LPCSTR pszFile)
{
    CDescriptor file(pszFile);
    if (!file.IsOpen())
    {
        SetLastError(static_cast<DWORD>(errno));
        return nullptr;
    }
    CMetafileBits* pBits = CMetafileBits::Take();
    DWORD dwError = pBits ? ReadRecords(file, *pBits) : ENOMEM;
    return dwError == 0 ? KeepWholeRecords(pBits) : Fail(pBits, dwError);
}

CMetafileBits* CopyMetafileBits(std::span<const BYTE> bytes)
{
    CMetafileBits* pBits = CMetafileBits::Take();
    BYTE* pPlace = pBits ? pBits->Extend(bytes.size()) : nullptr;
    if (!pPlace)
        return Fail(pBits, ENOMEM);
    if (!bytes.empty())
        std::memcpy(pPlace, bytes.data(), bytes.size());
    return KeepWholeRecords(pBits);
}
