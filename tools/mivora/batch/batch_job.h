// One line of a batch: drawn into a file of its own.
#pragma once

#include <string>
#include <vector>

#include "pictures/picture.h"

struct CBatchOptions
{
    std::string strDirectory;
    CFileFormat format;
    CDrawOptions draw;
    std::vector<std::string> astrWords;  // the options as they could be typed
    bool bGreek = false;                 // Greek letters are written out
};

// Throws CUsageError.
CBatchOptions BatchOptionsOf(const CArguments& arguments);

enum EOutcome : unsigned char
{
    OUTCOME_DONE,
    OUTCOME_LEFT_OUT,      // a file was made that does not show all of the text
    OUTCOME_SYNTAX_ERROR,  // a file was made all the same
    OUTCOME_FAILED
};

struct CLineResult
{
    EOutcome nOutcome = OUTCOME_DONE;
    std::string strMessage;  // empty if all went well
    CPictureSize size{};     // of a picture that was made
};

// The name of the file for line nLine, in the folder.
std::string FileNameOf(unsigned long long nLine, const CBatchOptions& options);

// Draws line nLine (from 1) of the input.
CLineResult DrawLine(CFormulaOut& formula, const std::string& strLine, unsigned long long nLine,
                     const CBatchOptions& options);
