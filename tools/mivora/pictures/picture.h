// Formulas as files: which formats there are, what they are drawn with, and how they are written.
#pragma once

#include <string>

#include "picture/picture.h"

class CArguments;

// A picture of the library, or a stored formula.
class CFileFormat
{
public:
    // By the extension or that of a path, in any case. Throw CUsageError if there is none that can
    // be written here.
    static CFileFormat OfName(const std::string& strExtension);
    static CFileFormat OfPath(const std::string& strPath);

    // Without the point.
    const char* Extension() const;
    // Resolution, colours, margins and the like mean something to it.
    bool HasLook() const { return m_pPicture != nullptr && m_pPicture->bLook; }
    bool TakesPageColour() const { return m_pPicture != nullptr && m_pPicture->bPageColour; }
    // Null for a stored formula.
    const CPictureFormat* Picture() const { return m_pPicture; }

private:
    explicit CFileFormat(const CPictureFormat* pPicture) : m_pPicture(pPicture) {}
    static CFileFormat Writable(const CPictureFormat* pPicture);

    const CPictureFormat* m_pPicture;
};

struct CDrawOptions
{
    CPictureOptions picture;  // source and title are filled in when a picture is made
    CFormulaLook look;
    bool bGrayed = false;
    std::string strSelect;  // empty: nothing is selected
    bool bEmbed = true;     // source and title travel inside
    // The comment of a metafile has a meaning of its own, which only a word of the user's changes.
    bool bEmbedInMetafile = false;
};

// The format that --output and --format ask for. Throws CUsageError.
CFileFormat FormatOf(const CArguments& arguments);

// What the options of a command ask for; those that mean nothing to the format throw CUsageError.
CDrawOptions DrawOptionsOf(const CArguments& arguments, const CFileFormat& format);
// For a command that draws nothing, but tells a size.
CDrawOptions MeasureOptionsOf(const CArguments& arguments);

// A formula that was formed, as a file, or on standard output for "-". The old file stays if that
// fails. Throws CFailure. Gives the size; of a stored formula none.
CPictureSize WriteFormula(CFormulaOut& formula, const CFileFormat& format,
                          const std::string& strPath, const CDrawOptions& options);

// Width, height, axis and depth in pixels, and in em, as one JSON object.
std::string SizeAsJson(const CPictureSize& size);
