// What the codes of the faces mean: one table of signs for all that is written from a tree.
#pragma once

#include <string_view>

#include "format/node_types.h"

class CNode;

// How a face maps its codes. Names of faces count without regard to case.
enum EFace : unsigned char
{
    FACE_TEXT,    // Windows-1252
    FACE_SYMBOL,  // "Symbol"
    FACE_EXTRA    // "MT Extra"
};

EFace FaceFromName(const char* pszFace);

struct CSign
{
    std::string_view mathML;  // UTF-8, escaped; U+FFFD for a code that shows nothing known
    std::string_view latex;   // in text mode for FACE_TEXT, else in math mode
};

const CSign& SignOf(EFace nFace, unsigned char nCode);

// The text that a node shows beside its children, without the blanks at its ends: they have no
// meaning, the parser keeps those behind a name. Valid while the node is unchanged.
struct CShownText
{
    std::string_view text;
    EFace nFace;
};

// What the next painting will show: the row of the kind in the classes with kinds. nType is the
// node's type. Raises CInvalidArgException if the kind is outside its table.
CShownText ShownTextOf(const CNode& node, ENodeType nType);

// Whether exactly this is shown, in "Symbol".
inline bool IsSymbol(const CShownText& shown, std::string_view text)
{
    return shown.text == text && shown.nFace == FACE_SYMBOL;
}

// Whether two signs of an integral come first: both dialects have one sign for them.
bool BeginsWithDoubleIntegral(const CShownText& shown);

// The kind that the node is of; nWithout for one of a class without kinds.
int KindOf(const CNode& node, int nWithout);
