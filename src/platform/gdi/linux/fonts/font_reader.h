// Reads from a font file the numbers that measuring needs.
#pragma once

#include "platform/gdi/linux/fonts/font_face.h"

// Opens the face's file, for the caller to close by FT_Done_Face; null if it cannot be read.
struct FT_FaceRec_* OpenFontFile(const CFontFace& face);

// Fills units, glyphs and advances of face from m_strFile, m_nIndex and m_coding. A file for
// "Symbol" or "MT Extra" whose glyphs have not the order that is expected is read by its own
// symbol map. False, and face is as it was, when the file cannot be used.
bool ReadFontFile(CFontFace& face);
