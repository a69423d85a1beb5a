// Types and sizes are all that is looked at.
#include "platform/gdi/metafile_walk.h"

#include <algorithm>
#include <cstring>

namespace
{

constexpr DWORD HEADER_TYPE = 1;
constexpr DWORD END_TYPE = 14;
constexpr DWORD SIGNATURE = 0x464D4520;  // " EMF"

struct CRecordHead
{
    DWORD iType;
    DWORD nSize;
};

CRecordHead HeadAt(std::span<const BYTE> bytes, std::size_t nOffset)
{
    CRecordHead head;
    std::memcpy(&head, bytes.data() + nOffset, sizeof head);
    return head;
}

}  // namespace

bool CheckHeader(std::span<const BYTE> bytes)
{
    if (bytes.size() < METAFILE_OLDEST_HEADER)
        return false;
    DWORD dwSignature;
    std::memcpy(&dwSignature, bytes.data() + offsetof(ENHMETAHEADER, dSignature),
                sizeof dwSignature);
    const CRecordHead head = HeadAt(bytes, 0);
    return head.iType == HEADER_TYPE && dwSignature == SIGNATURE &&
           head.nSize >= METAFILE_OLDEST_HEADER && head.nSize % 4 == 0;
}

EWalk WalkRecords(std::span<const BYTE> bytes, std::size_t* pnOffset)
{
    while (bytes.size() - *pnOffset >= sizeof(CRecordHead))
    {
        const CRecordHead head = HeadAt(bytes, *pnOffset);
        if (head.nSize < sizeof head || head.nSize % 4 != 0 ||
            head.nSize > METAFILE_READ_LIMIT - std::min(METAFILE_READ_LIMIT, *pnOffset))
            return walkDamaged;
        if (head.nSize > bytes.size() - *pnOffset)
            return walkMore;
        *pnOffset += head.nSize;
        if (head.iType == END_TYPE)
            return walkEnded;
    }
    return walkMore;
}

std::size_t WholeRecords(std::span<const BYTE> bytes, bool* pbEnded)
{
    std::size_t nOffset = 0;
    const EWalk eWalk = WalkRecords(bytes, &nOffset);
    if (pbEnded)
        *pbEnded = eWalk == walkEnded;
    return nOffset;
}
