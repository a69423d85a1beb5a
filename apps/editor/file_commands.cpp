// The main window's commands for files.
#include <mivora/platform/win/menu.h>

#include "export_formats.h"
#include "file_dialog.h"
#include "main_frame.h"
#include "messages.h"
#include "stored_formula.h"

namespace
{
CFileKinds StoredFormulas()
{
    CFileKinds kinds;
    kinds.Add("Stored formulas", "fml");
    return kinds;
}

CString NameOf(const CEditorDocument& document)
{
    return document.Path().IsEmpty() ? CString("formula") : FileName(document.Path());
}

CString WithoutExtension(const CString& strName)
{
    const int nDot = strName.ReverseFind('.');
    return nDot > 0 ? strName.Left(nDot) : strName;
}
}  // namespace

void CMainFrame::ShowTitle()
{
    ::SetWindowTextW(m_hWnd, ToWide(NameOf(*m_pDocument) + " - Mivora Editor").c_str());
}

// Whether what is shown may be given up: asks the user where it is not saved.
bool CMainFrame::MayGo()
{
    EndEdit();
    if (!m_pDocument->IsModified())
        return true;
    const int nAnswer = ShowMessage("Save the changes to " + NameOf(*m_pDocument) + "?",
                                    MB_YESNOCANCEL | MB_ICONQUESTION);
    return nAnswer == IDNO || (nAnswer == IDYES && Save());
}

void CMainFrame::OnFileNew()
{
    if (!MayGo())
        return;
    Show(CEditorDocument::MakeNew());
    m_text.SetWindowText("");
    m_text.SetFocus();
    m_strMessage = HINT;
}

void CMainFrame::OnFileOpen()
{
    if (!MayGo())
        return;
    if (const auto path = AskForFileToOpen(this, StoredFormulas()))
        OpenFile(*path);
}

void CMainFrame::OpenFile(const CString& strPath)
{
    auto pDocument = CEditorDocument::FromFile(strPath);
    if (pDocument == nullptr)
        return;
    m_text.SetWindowText(pDocument->Formula().m_strFormula);
    Show(std::move(pDocument));
    m_strMessage.Empty();
}

bool CMainFrame::SaveTo(const CString& strPath)
{
    if (!m_pDocument->Save(strPath))
        return false;
    m_strMessage = "Saved " + ToNarrow(FileName(strPath));
    ShowTitle();
    return true;
}

bool CMainFrame::Save()
{
    EndEdit();
    return m_pDocument->Path().IsEmpty() ? SaveAs() : SaveTo(m_pDocument->Path());
}

bool CMainFrame::SaveAs()
{
    EndEdit();
    const auto path = AskForFileToSave(this, StoredFormulas(), NameOf(*m_pDocument));
    return path && SaveTo(*path);
}

void CMainFrame::OnFileSave()
{
    Save();
}

void CMainFrame::OnFileSaveAs()
{
    SaveAs();
}

// The picture is painted from the same nodes, which keep their places of it until the control
// paints again.
void CMainFrame::OnFileExport()
{
    EndEdit();
    CFileKinds kinds;
    CString strKnown;
    for (const CExportFormat& format : ExportFormats())
    {
        kinds.Add(format.pszName, format.pszExtension);
        strKnown += CString(strKnown.IsEmpty() ? "." : " .") + format.pszExtension;
    }
    const auto path = AskForFileToSave(this, kinds, WithoutExtension(NameOf(*m_pDocument)));
    if (!path)
        return;
    const CExportFormat* pFormat = FindExportFormat(*path);
    if (pFormat == nullptr)
    {
        ShowMessage(FileName(*path) + " has none of the extensions " + strKnown + '.');
        return;
    }
    const CUnselected unselected(m_pDocument->Tree());
    if (pFormat->pfnWrite(m_pDocument->Formula(), *path))
        m_strMessage = "Exported " + ToNarrow(FileName(*path));
    else
        ShowMessage("Cannot write " + *path + '.');
    m_formula.Invalidate();
}

void CMainFrame::OnAppExit()
{
    SendMessage(WM_CLOSE);
}

void CMainFrame::OnClose()
{
    if (MayGo())
        CFrameWnd::OnClose();
}

LRESULT CMainFrame::OnQueryEndSession(WPARAM, LPARAM)
{
    return MayGo() ? TRUE : FALSE;
}
