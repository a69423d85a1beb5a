// Each exported operation checks its thread and hands on.
#include "service/formula_out.h"

#include "nodes/node.h"
#include "platform/base/app.h"
#include "platform/gdi/dc.h"
#include "service/form_tree.h"
#include "service/metafile_comment.h"
#include "service/thread_check.h"

namespace
{
// The file is an enhanced metafile; the extension is the one of the older format all the same.
bool HasMetafileExtension(const CString& strPath)
{
    CString strExtension = strPath.Right(3);
    strExtension.MakeUpper();
    if (strExtension.Compare("WMF") == 0)
        return true;
    // "文件扩展名错误，不是wmf!"
    AfxMessageBox(
        "\xCE\xC4\xBC\xFE\xC0\xA9\xD5\xB9\xC3\xFB\xB4\xED\xCE\xF3\xA3\xAC\xB2\xBB\xCA\xC7wmf!");
    return false;
}
}  // namespace

CFormulaOut::CFormulaOut() : m_strFormula() {}

CFormulaOut::~CFormulaOut() = default;

CFormulaOut& CFormulaOut::operator=(const CFormulaOut& other)
{
    const CString strText = other.m_strFormula;  // the other object may be this one
    FormTree(strText);
    return *this;
}

int CFormulaOut::FormTree(CString strText)
{
    const CInsideLibrary inside;
    CParseReport report;
    return FormTreeReporting(*this, strText, report);
}

void CFormulaOut::DrawTree(CDC* pDC, CRect rect)
{
    const CInsideLibrary inside;
    m_Tree.Draw(pDC, rect);
}

CRect CFormulaOut::GetFormulaRect(CDC* pDC)
{
    const CInsideLibrary inside;
    return m_Tree.MeasureTree(pDC);
}

void CFormulaOut::ReformatNodes()
{
    const CInsideLibrary inside;
    m_Tree.Reformat(&m_Format);
}

void CFormulaOut::ResetTree()
{
    const CInsideLibrary inside;
    m_Tree.DeleteContents();
}

int CFormulaOut::IsRootNodeNULL()
{
    return m_Tree.GetRootNode() == nullptr ? 1 : 0;
}

CBinTreeFormat* CFormulaOut::GetTreeFormatPtr()
{
    return &m_Format;
}

int CFormulaOut::WriteFormulaToWMF(CString strPath)
{
    const CInsideLibrary inside;
    return HasMetafileExtension(strPath) ? m_Tree.WriteMetafile(strPath) : 0;
}

int CFormulaOut::ReadFormulaFromWMF(CString strPath)
{
    const CInsideLibrary inside;
    if (!HasMetafileExtension(strPath) || !m_Tree.ReadMetafile(strPath))
        return 0;
    m_strFormula = g_strMetaComment;
    return 1;
}

int CFormulaOut::PrintDDB(CDC* pDC)
{
    const CInsideLibrary inside;
    return m_Tree.PrintBitmap(pDC);
}

void CFormulaOut::SaveTree(CArchive& ar)
{
    const CInsideLibrary inside;
    m_Tree.Serialize(ar);
    m_Format.Serialize(ar);
}

int CFormulaOut::SaveToFML(CString strPath)
{
    const CInsideLibrary inside;
    m_Doc.OnNewDocument();
    m_Doc.m_pTree = &m_Tree;
    m_Doc.m_pFormat = &m_Format;
    m_Doc.m_strFormula = m_strFormula;
    m_Doc.SetModifiedFlag(TRUE);
    m_Doc.DoSave(strPath, TRUE);  // shows its own message where it fails
    return 1;
}
