// What the drawing interface in C leaves to each backend: fonts that come with the library, files
// of metafiles written whole and read without trust.
#pragma once

#include "platform/gdi/gdi.h"

#include <memory>
#include <span>
#include <vector>

// Pixels between the lines of a hatch (HS_BDIAGONAL), on every device of both systems.
constexpr int HATCH_STEP = 8;

// CreateFontIndirectA; the faces of the library are to be had.
HFONT CreateFaceFont(const LOGFONTA* pFont);

// The size of a text without making and selecting its font, where nobody could notice that. font is
// in logical units; no characters have the font's height. False, and nothing written, where the
// font must be made, as on a device context that records what is selected.
bool QuickTextExtent(HDC hDC, const LOGFONTA& font, LPCSTR pszText, int nCount, SIZE* pSize);

// DrawTextA; where CanDrawLetters says no, only the answer of it.
int DrawLetters(HDC hDC, LPCSTR pszText, int nCount, RECT* pRect, UINT nFormat);

// False where letters in the font that is selected are beyond what the system can draw; they can
// still be measured.
bool CanDrawLetters(HDC hDC);

// Whether the last error says that there was no memory.
bool IsLastErrorOfMemory();

// A metafile as its file is; empty, and the last error set, if memory is short.
std::vector<BYTE> EnhMetaFileBytes(HENHMETAFILE hMetaFile);
// Writes a metafile's bytes: all of them, or the file stays as it was. FALSE, and the last error
// set, for failure. Equal pictures give equal bytes.
BOOL SaveEnhMetaFile(HENHMETAFILE hMetaFile, LPCSTR pszFile);
// The whole records of some bytes, as LoadEnhMetaFile has those of a file.
HENHMETAFILE MakeEnhMetaFile(std::span<const BYTE> bytes);
// The whole records of a file, whatever its header says of their number and size; the caller
// deletes the result. Null, and the last error set, if it cannot be read or is no metafile.
HENHMETAFILE LoadEnhMetaFile(LPCSTR pszFile);

struct CDeleteMetafile
{
    using pointer = HENHMETAFILE;
    void operator()(HENHMETAFILE hMetaFile) const { DeleteEnhMetaFile(hMetaFile); }
};
using CMetafilePtr = std::unique_ptr<void, CDeleteMetafile>;
