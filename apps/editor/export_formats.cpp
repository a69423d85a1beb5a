// The ending of a file's name chooses; metafiles have two.
#include "export_formats.h"

#include <algorithm>

#include "stored_formula.h"

namespace
{
bool WriteMetafile(CFormulaOut& formula, const CString& strPath)
{
    return formula.m_Tree.WriteMetafile(strPath) != 0;
}

bool WriteBitmap(CFormulaOut& formula, const CString& strPath)
{
    return formula.m_Tree.WriteBitmapFile(strPath) != 0;
}

constexpr CExportFormat s_aFormats[] = {
    { "emf", "Enhanced metafile", WriteMetafile },
    { "wmf", "Enhanced metafile, as older programs name it", WriteMetafile },
    { "bmp", "Bitmap", WriteBitmap },
    { "fml", "Stored formula", SaveFormula },
};
}  // namespace

std::span<const CExportFormat> ExportFormats()
{
    return s_aFormats;
}

const CExportFormat* FindExportFormat(const CString& strPath)
{
    const CString strExtension = strPath.Mid(strPath.ReverseFind('.') + 1);
    const auto* pFound =
        std::ranges::find_if(s_aFormats, [&](const CExportFormat& format)
                             { return strExtension.CompareNoCase(format.pszExtension) == 0; });
    return pFound != std::end(s_aFormats) ? pFound : nullptr;
}
