// The formats that a formula is exported to: a row each.
#pragma once

#include <span>

#include <mivora/mivora.h>

struct CExportFormat
{
    const char* pszExtension;  // in small letters
    const char* pszName;       // for the user
    // False if nothing was written.
    bool (*pfnWrite)(CFormulaOut& formula, const CString& strPath);
};

std::span<const CExportFormat> ExportFormats();

// By the path's extension, in any case; null for one that is not in the table.
const CExportFormat* FindExportFormat(const CString& strPath);
