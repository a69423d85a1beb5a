// Font files: which one a face stands for, and the numbers that are read from it, in font units.
#pragma once

#include "platform/gdi/gdi.h"

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

// How the bytes of a text find their glyphs.
enum class CTextCoding
{
    text,     // Windows-1252, the file's Unicode map
    symbol,   // the order of glyphs in symbol.ttf
    mtExtra,  // the order of glyphs in mtextra.ttf
    mapped    // the file's own symbol map, at U+F000
};

// The least lfWeight that takes a bold file.
constexpr int LIGHTEST_BOLD = 551;

// What stands in for an italic file: x grows by this times y. Nearest to what GDI's own slanting
// makes of the same glyphs.
constexpr double FAKE_ITALIC_SHEAR = 0.25;

// One font file as far as measuring goes. Lives for ever; there are as many as files in use.
struct CFontFace
{
    std::string m_strFile;  // empty: no file could be had, and the numbers are made up
    int m_nIndex = 0;       // of the face in a file that holds several
    CTextCoding m_coding = CTextCoding::text;
    bool m_bPrivateCodes = false;  // metafiles may hold U+F0xx for its bytes
    bool m_bFakeBold = false;      // asked for bold, file is not: the drawing has to thicken it
    bool m_bFakeItalic = false;    // likewise, slanted
    int m_nUnitsPerEm = 2048;
    int m_nWinAscent = 1825;
    int m_nWinDescent = 443;
    int m_nHheaAscent = 1825;
    int m_nHheaDescent = -443;
    int m_nHheaGap = 87;
    int m_nAverageWidth = 1163;
    int m_nMaxWidth = 4096;  // head: xMax - xMin
    bool m_bFixedPitch = false;
    std::array<std::uint16_t, 256> m_anGlyphs{};   // by byte
    std::array<std::int32_t, 256> m_anAdvances{};  // by byte
};

// Number of the face for a description: name, italic, bold; pitch and family where the name is not
// known. Height and width play no part. Never fails.
int FindFontFace(const LOGFONTA& font);
// Its numbers; the file is read on the first use.
const CFontFace& FontFaceById(int nFaceId);

// Whether a font of this face that was asked for by a character set takes bytes as its own codes,
// which are U+F0xx: "MT Extra" says of itself that it has the letters of Windows-1252 too.
bool TakesPrivateCodes(const CFontFace& face, BYTE nCharSet);

// The faces that formulas use and their files; an empty name where none is found.
std::vector<std::pair<std::string, std::string>> ListFontFaces();
