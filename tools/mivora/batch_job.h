// One line of a batch: drawn into a file of its own.
#pragma once

#include <string>

#include "picture.h"

struct CBatchOptions
{
    std::string strDirectory;
    const CPictureFormat* pFormat;
    CPictureOptions picture;
    bool bGreek = false;  // Greek letters are written out
};

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
};

// Draws line nLine (from 1) of the input.
CLineResult DrawLine(CFormulaOut& formula, const std::string& strLine, unsigned long long nLine,
                     const CBatchOptions& options);
