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
    // Throws CFailure. Null: another system has this format.
    void (*pfnWrite)(CFormulaOut& formula, const std::string& strPath,
                     const CPictureOptions& options);
    const char* pszElsewhere = nullptr;  // where that is: "is made on ..."
};

// A format that can be written, by its extension or that of a path, in any case. Throw CUsageError
// if there is none.
const CPictureFormat& FormatOfName(const std::string& strExtension);
const CPictureFormat& FormatOfPath(const std::string& strPath);

// Sets the selection of a tree by a path such as "LR:2". Throws CUsageError for what is no path,
// CFailure if the tree has no such node.
void SelectNode(CBinTree& tree, const CPictureOptions& options);

// Draws a formula that was formed. The old file stays if that fails. Throws CFailure.
void WritePicture(CFormulaOut& formula, const CPictureFormat& format, const std::string& strPath,
                  const CPictureOptions& options);
