// Enhanced metafiles in memory: taken in from files and blocks of other programs, none of whose
// lengths is believed, and gone through record by record.
#pragma once

#include "platform/gdi/linux/metafile/metafile_bits.h"
#include "platform/gdi/metafile_records.h"
#include "platform/gdi/metafile_walk.h"

#include <functional>

// What HENHMETAFILE points to: a header, then whole records; neither changes any more.
class HENHMETAFILE__
{
public:
    // Takes over one hold on the bits, which begin with a header that CheckHeader passes.
    explicit HENHMETAFILE__(CMetafileBits* pBits) : m_pBits(pBits) {}
    ~HENHMETAFILE__() { m_pBits->Release(); }
    HENHMETAFILE__(const HENHMETAFILE__&) = delete;
    HENHMETAFILE__& operator=(const HENHMETAFILE__&) = delete;

    CMetafileBits& Bits() const { return *m_pBits; }
    // The header without what follows it in its record; fields that it does not have are 0.
    ENHMETAHEADER Header() const;

private:
    CMetafileBits* m_pBits;
};

// Gives each record to the visitor until that returns false. A comment whose data would reach over
// its record is shown cut to it. False if the visitor stopped or there is no EOF record.
bool VisitRecords(std::span<const BYTE> bytes,
                  const std::function<bool(const ENHMETARECORD&)>& visitor);

// Whole records of a file, of a pipe as well; null, and the last error set, if it cannot be read or
// is no metafile. Takes memory for what is sound, at most for 256 MB.
CMetafileBits* ReadMetafileBits(LPCSTR pszFile);
// The same from memory.
CMetafileBits* CopyMetafileBits(std::span<const BYTE> bytes);
