// Types and sizes are all that is looked at.
#include "platform/gdi/metafile_walk.h"

#include "platform/gdi/metafile_records.h"

#include <algorithm>
#include <cstring>

bool CheckHeader(std::span<const BYTE> bytes)
{
    if (bytes.size() < METAFILE_OLDEST_HEADER)
        return false;
    DWORD dwSignature;
    std::memcpy(&dwSignature, bytes.data() + offsetof(ENHMETAHEADER, dSignature),
                sizeof dwSignature);
    const EMR head = HeadAt(bytes, 0);
    return head.iType == EMR_HEADER && dwSignature == ENHMETA_SIGNATURE &&
           head.nSize >= METAFILE_OLDEST_HEADER && head.nSize % 4 == 0;
}

EWalk WalkRecords(std::span<const BYTE> bytes, std::size_t* pnOffset)
{
    while (bytes.size() - *pnOffset >= sizeof(EMR))
    {
        const EMR head = HeadAt(bytes, *pnOffset);
        if (head.nSize < sizeof head || head.nSize % 4 != 0 ||
            head.nSize > METAFILE_READ_LIMIT - std::min(METAFILE_READ_LIMIT, *pnOffset))
            return walkDamaged;
        if (head.nSize > bytes.size() - *pnOffset)
            return walkMore;
        *pnOffset += head.nSize;
        if (head.iType == EMR_EOF)
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
