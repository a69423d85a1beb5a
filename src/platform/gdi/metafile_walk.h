// Goes over the records of a metafile that may come from anywhere: none of its lengths is believed.
#pragma once

#include "platform/gdi/gdi.h"

#include <cstddef>
#include <span>

// A header of the first version of the format; later ones grew to 100 and 108 bytes.
constexpr std::size_t METAFILE_OLDEST_HEADER = 88;
// A damaged length makes us read at most so much.
constexpr std::size_t METAFILE_READ_LIMIT = std::size_t{ 256 } * 1024 * 1024;

// Whether a metafile may begin so: type, signature, and a size that holds the fields of the
// format's first version. Needs METAFILE_OLDEST_HEADER bytes.
bool CheckHeader(std::span<const BYTE> bytes);

enum EWalk
{
    walkMore,    // the bytes end where a record may go on
    walkEnded,   // behind the EOF record
    walkDamaged  // no sound record begins here
};

// Moves *pnOffset over whole records.
EWalk WalkRecords(std::span<const BYTE> bytes, std::size_t* pnOffset);

// Bytes up to the end of the EOF record, or of the last whole record before the first one that is
// damaged. *pbEnded: there was an EOF record. What the header says of sizes and numbers is not
// asked: a damaged header must not hide sound records, and a cut file has what is left of it.
std::size_t WholeRecords(std::span<const BYTE> bytes, bool* pbEnded = nullptr);
