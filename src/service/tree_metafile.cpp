// A tree as an enhanced metafile, and the text that such a file carries in its comment.
#include <cstring>
#include <exception>
#include <memory>

#include "platform/base/app.h"
#include "platform/base/system.h"
#include "platform/gdi/dc.h"
#include "platform/gdi/metafile_records.h"
#include "platform/gdi/native_gdi.h"
#include "service/metafile_comment.h"
#include "service/screen_dc.h"
#include "service/tree_metafile.h"
#include "tree/bin_tree.h"

CString g_strMetaComment;

namespace
{
constexpr char s_szTag[] = "qvmrz";  // what a comment of ours begins with
constexpr int s_nTagLength = sizeof s_szTag - 1;
constexpr char s_szDescription[] = "Formula\0Image\0";  // one more NUL ends the pair
constexpr size_t s_nCommentHead = 12;                   // type, size, size of the data

// Hundredths of a millimetre. The product wraps around as 32-bit machine arithmetic does: a formula
// of twenty million pixels has no frame that would be of use.
int FrameLength(int nPixels, int nMillimetres, int nResolution)
{
    const auto nProduct = static_cast<DWORD>(nPixels) * 100U;
    return MulDiv(static_cast<int>(nProduct), nMillimetres, nResolution);
}

// The formula's size by the screen's physical size, not by its logical resolution.
CRect FrameOf(const CRect& rect, HDC hScreen)
{
    return CRect(0, 0,
                 FrameLength(rect.Width(), GetDeviceCaps(hScreen, HORZSIZE),
                             GetDeviceCaps(hScreen, HORZRES)),
                 FrameLength(rect.Height(), GetDeviceCaps(hScreen, VERTSIZE),
                             GetDeviceCaps(hScreen, VERTRES)));
}

void WriteComment(CDC& dc)
{
    const CString strData = s_szTag + g_strMetaComment;
    GdiComment(dc.GetSafeHdc(), static_cast<UINT>(strData.GetLength()),
               reinterpret_cast<const BYTE*>(strData.GetString()));
}

void FillBackground(CDC& dc, const CRect& rect)
{
    CBrush brush;
    brush.Attach(GetSysColorBrush(COLOR_WINDOW));
    dc.FillRect(&rect, &brush);
    brush.DeleteObject();  // a system brush outlives this, but the record of it is wanted
}

// The data up to a NUL, whatever size the record tells, but not beyond its end.
void TakeComment(const ENHMETARECORD& record)
{
    if (record.iType != EMR_GDICOMMENT || record.nSize < s_nCommentHead)
        return;
    const char* pchData = reinterpret_cast<const char*>(&record) + s_nCommentHead;
    const size_t nLength = strnlen(pchData, record.nSize - s_nCommentHead);
    g_strMetaComment = CString(pchData, static_cast<int>(nLength));
}

// Stands where an integer is handed through the system; what a visit threw waits behind it.
struct CVisit
{
    int m_nParameter = 204;
    std::exception_ptr m_failure;
};

// Called by the system, which no exception may cross.
int CALLBACK VisitRecord(HDC, HANDLETABLE*, const ENHMETARECORD* pRecord, int,
                         LPARAM lParam) noexcept
{
    try
    {
        TakeComment(*pRecord);
        return 1;
    }
    catch (...)
    {
        reinterpret_cast<CVisit*>(lParam)->m_failure = std::current_exception();
        return 0;
    }
}

void TakeComments(CMetafilePtr pPicture)
{
    CVisit visit;
    const CRect unused(0, 0, 0, 0);
    EnumEnhMetaFile(nullptr, pPicture.get(), VisitRecord, &visit, &unused);
    if (visit.m_failure)
        std::rethrow_exception(visit.m_failure);
}
}  // namespace

HENHMETAFILE RecordMetafile(CBinTree& tree)
{
    CScreenDC screen;
    const CRect rect = tree.MeasureTree(&screen);
    const CRect frame = FrameOf(rect, screen.GetSafeHdc());

    CMetaFileDC dc;
    if (!dc.Attach(CreateEnhMetaFileA(screen.GetSafeHdc(), nullptr, &frame, s_szDescription)))
    {
        tree.ReportLastError();
        return nullptr;
    }
    dc.SetAttribDC(screen.GetSafeHdc());
    dc.SetMapMode(MM_TEXT);
    WriteComment(dc);  // before everything that draws: readers look for it there
    FillBackground(dc, rect);
    tree.Draw(&dc, rect);
    return dc.CloseEnhanced();
}

int CBinTree::WriteMetafile(CString strPath)
{
    const CMetafilePtr pPicture(RecordMetafile(*this));
    return pPicture != nullptr && SaveEnhMetaFile(pPicture.get(), strPath) ? 1 : 0;
}

bool TakeMetafileText(HENHMETAFILE hPicture)
{
    TakeComments(CMetafilePtr(hPicture));
    if (g_strMetaComment.Left(s_nTagLength).Compare(s_szTag) != 0)
        return false;
    // Data without a byte of padding used to be read on into the brush record that follows, whose
    // type 39 is an apostrophe; texts have lost a closing one ever since.
    if (g_strMetaComment.Right(1).Compare("'") == 0)
        g_strMetaComment = g_strMetaComment.Left(g_strMetaComment.GetLength() - 1);
    g_strMetaComment = g_strMetaComment.Mid(s_nTagLength);
    return true;
}

int CBinTree::ReadMetafile(CString strPath)
{
    if (TakeMetafileText(LoadEnhMetaFile(strPath)))
        return 1;
    // "不能解析该文件!"
    AfxMessageBox("\xB2\xBB\xC4\xDC\xBD\xE2\xCE\xF6\xB8\xC3\xCE\xC4\xBC\xFE!");
    return 0;
}

void CBinTree::ReportLastError()
{
    const DWORD nError = GetLastError();
    char* pszText = nullptr;
    FormatMessageA(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, nError, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
        reinterpret_cast<char*>(&pszText), 0, nullptr);
    CString strUnknown;
    if (pszText == nullptr)
        strUnknown.Format("Unknown error %u.", static_cast<unsigned>(nError));
    AfxSystemMessageBox(pszText != nullptr ? pszText : strUnknown.GetString(), "Error",
                        MB_ICONINFORMATION);
    LocalFree(pszText);
}
