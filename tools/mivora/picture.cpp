#include "picture.h"

#include <cctype>

#include "arguments.h"
#include "nodes/node.h"
#include "picture_file.h"
#include "picture_formats.h"
#include "platform/base/system.h"
#include "report.h"

namespace
{
std::string FormatList()
{
    std::string strList;
    for (const CPictureFormat& format : PictureFormats())
    {
        if (format.pfnWrite != nullptr)
            strList += std::string(strList.empty() ? "." : " .") + format.pszExtension;
    }
    return strList;
}

// In any case; null if there is none of that name.
const CPictureFormat* FindFormat(const std::string& strExtension)
{
    std::string strLower = strExtension;
    for (char& ch : strLower)
        ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    for (const CPictureFormat& format : PictureFormats())
    {
        if (strLower == format.pszExtension)
            return &format;
    }
    return nullptr;
}

const CPictureFormat& Writable(const CPictureFormat& format)
{
    if (format.pfnWrite == nullptr)
    {
        throw CUsageError{ std::string(".") + format.pszExtension + " " + format.pszElsewhere +
                           "; here there are " + FormatList() };
    }
    return format;
}

// The node at the end of the letters, null if there is none.
CNode* FollowPath(CNode* pNode, const std::string& strSteps)
{
    for (char ch : strSteps)
    {
        if (pNode == nullptr)
            return nullptr;
        pNode = ch == 'L' ? pNode->GetLeft() : pNode->GetRight();
    }
    return pNode;
}
}  // namespace

const CPictureFormat& FormatOfName(const std::string& strExtension)
{
    const CPictureFormat* pFormat = FindFormat(strExtension);
    if (pFormat == nullptr)
        throw CUsageError{ "the format " + strExtension + " is none of " + FormatList() };
    return Writable(*pFormat);
}

const CPictureFormat& FormatOfPath(const std::string& strPath)
{
    const size_t nPoint = strPath.rfind('.');
    const CPictureFormat* pFormat =
        nPoint == std::string::npos ? nullptr : FindFormat(strPath.substr(nPoint + 1));
    if (pFormat == nullptr)
        throw CUsageError{ "the name " + strPath + " ends in none of " + FormatList() };
    return Writable(*pFormat);
}

void SelectNode(CBinTree& tree, const CPictureOptions& options)
{
    const std::string& strPath = options.strSelect;
    const UINT nGrayed = options.bGrayed ? PF_GRAYED : 0;
    if (strPath.empty())
    {
        tree.SetSelection(nullptr, static_cast<int>(nGrayed));
        return;
    }
    const size_t nColon = strPath.find(':');
    const std::string strMode = nColon == std::string::npos ? "" : strPath.substr(nColon + 1);
    const std::string strSteps = strPath.substr(0, nColon);
    if ((strMode != "1" && strMode != "2") || strSteps.find_first_not_of("LR") != std::string::npos)
    {
        throw CUsageError{ "--select takes letters L and R, then :1 or :2, not " + strPath };
    }
    CNode* pNode = FollowPath(tree.GetRootNode(), strSteps);
    if (pNode == nullptr)
        throw CFailure{ "the formula has no node at " + strPath };
    tree.SetSelection(pNode, static_cast<int>((strMode == "1" ? PF_NODE : PF_SUBTREE) | nGrayed));
}

void WriteMetafile(CFormulaOut& formula, const std::string& strPath, const CPictureOptions&)
{
    SetLastError(0);
    if (!formula.m_Tree.WriteMetafile(strPath.c_str()))
        throw CFailure{ "cannot write " + strPath + ": " + LastErrorText() };
}

void WriteBitmap(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options)
{
    if (options.bBoxes || options.nDpi != s_nScreenDpi)
    {
        WriteBmp(formula, strPath, options);
        return;
    }
    SetLastError(0);
    if (!formula.m_Tree.WriteBitmapFile(strPath.c_str()))
        throw CFailure{ "cannot write " + strPath + ": " + LastErrorText() };
}

void WritePicture(CFormulaOut& formula, const CPictureFormat& format, const std::string& strPath,
                  const CPictureOptions& options)
{
    SelectNode(formula.m_Tree, options);
    format.pfnWrite(formula, strPath, options);
}
