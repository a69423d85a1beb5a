// The source travels as the comment of the process, which is put back afterwards.
#include "picture/metafile.h"

#include <new>
#include <span>
#include <utility>
#include <vector>

#include "picture/failure.h"
#include "platform/base/code_page.h"
#include "platform/base/system.h"
#include "platform/gdi/native_gdi.h"
#include "service/metafile_comment.h"
#include "service/tree_metafile.h"
#include "tree/bin_tree.h"

namespace
{
// The comment of the process, for the time of a block.
class CCommentScope
{
public:
    explicit CCommentScope(CString strComment)
        : m_strOld(std::exchange(g_strMetaComment, std::move(strComment)))
    {
    }
    ~CCommentScope() { std::swap(g_strMetaComment, m_strOld); }
    CCommentScope(const CCommentScope&) = delete;
    CCommentScope& operator=(const CCommentScope&) = delete;

private:
    CString m_strOld;
};

CString CommentOf(const std::string& strSource)
{
    std::string strText;
    size_t nBad = 0;
    if (!Utf8ToWindows1252(strSource, &strText, &nBad))
        throw CPictureFailure{ "the text has characters that the comment cannot hold" };
    if (strText.find('\0') != std::string::npos)
        throw CPictureFailure{ "the text holds a NUL, where the comment of a metafile ends" };
    if (strText.ends_with('\''))
        strText += '\'';  // reading takes one off
    return CString(strText.data(), static_cast<int>(strText.size()));
}

// The system tells by null that there is no metafile, and why by its last error.
void ThrowIfMemoryEnded()
{
    if (IsLastErrorOfMemory())
        throw std::bad_alloc();
}

std::string Bytes(CBinTree& tree)
{
    SetLastError(0);
    const CMetafilePtr pMetafile(RecordMetafile(tree));
    const std::vector<BYTE> bytes = EnhMetaFileBytes(pMetafile.get());
    if (bytes.empty())
    {
        ThrowIfMemoryEnded();
        throw CPictureFailure{ "the system made no metafile" };
    }
    return { bytes.begin(), bytes.end() };
}
}  // namespace

std::string MetafileBytes(CBinTree& tree, const std::string& strSource)
{
    if (strSource.empty())
        return Bytes(tree);
    const CCommentScope comment(CommentOf(strSource));
    return Bytes(tree);
}

std::optional<std::string> MetafileSource(std::string_view bytes)
{
    const CCommentScope comment(CString{});
    const std::span data(reinterpret_cast<const BYTE*>(bytes.data()), bytes.size());
    SetLastError(0);
    const HENHMETAFILE hPicture = MakeEnhMetaFile(data);
    if (hPicture == nullptr)
        ThrowIfMemoryEnded();
    if (hPicture == nullptr || !TakeMetafileText(hPicture))
        return std::nullopt;
    return Windows1252ToUtf8(g_strMetaComment.View());
}
