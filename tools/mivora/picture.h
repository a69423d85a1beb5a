// Formulas as files: which formats there are, and how each is written.
#pragma once

#include <string>

#include "service/formula_out.h"

struct CPictureOptions
{
    int nDpi = 96;
    bool bBoxes = false;
    bool bGrayed = false;
    std::string strSelect;  // empty: nothing is selected
};

struct CPictureFormat
{
    const char* pszExtension;  // without the point
    bool bDpi;                 // knows a resolution and boxes
    // Throws CFailure.
    void (*pfnWrite)(CFormulaOut& formula, const std::string& strPath,
                     const CPictureOptions& options);
};

// By extension, in any case; null if there is none of that name.
const CPictureFormat* FindFormat(const std::string& strExtension);

// By the extension of a path. Throws CUsageError.
const CPictureFormat& FormatOfPath(const std::string& strPath);

// Sets the selection of a tree by a path such as "LR:2". Throws CUsageError for what is no path,
// CFailure if the tree has no such node.
void SelectNode(CBinTree& tree, const CPictureOptions& options);

// Draws a formula that was formed. The old file stays if that fails. Throws CFailure.
void WritePicture(CFormulaOut& formula, const CPictureFormat& format, const std::string& strPath,
                  const CPictureOptions& options);
