// The C functions for enhanced metafiles.
#include "platform/base/file.h"
#include "platform/base/system.h"
#include "platform/gdi/linux/metafile/metafile_reader.h"
#include "platform/gdi/linux/metafile/metafile_writer.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

namespace
{

CMetafileWriter* WriterOf(HDC hDC)
{
    bool bRecords = hDC && hDC->Type() == OBJ_ENHMETADC;
    return bRecords ? static_cast<CMetafileWriter*>(hDC->Target()) : nullptr;
}

// Takes over the hold on the bits; null stays null.
HENHMETAFILE MakeHandle(CMetafileBits* pBits)
{
    HENHMETAFILE hMetaFile = pBits ? new (std::nothrow) HENHMETAFILE__(pBits) : nullptr;
    if (pBits && !hMetaFile)
    {
        pBits->Release();
        SetLastError(ENOMEM);
    }
    return hMetaFile;
}

// False, and the last error set, if the file is as it was before.
bool WriteMetafile(const CMetafileBits& bits, LPCSTR pszFile)
{
    const LONG lError = WriteWholeFile(pszFile, { bits.Bytes() });
    if (lError != 0)
        SetLastError(static_cast<DWORD>(lError));
    return lError == 0;
}

}  // namespace

HDC CreateEnhMetaFileA(HDC hReference, LPCSTR pszFile, const RECT* pFrame, LPCSTR pszDescription)
{
    const CDeviceInfo& device = hReference ? hReference->Device() : ScreenDevice();
    auto pWriter = std::make_unique<CMetafileWriter>(device, pFrame, pszFile, pszDescription);
    if (pWriter->HasFailed())
    {
        SetLastError(ENOMEM);
        return nullptr;
    }
    return new CDeviceContext(OBJ_ENHMETADC, device, std::move(pWriter));
}

BOOL GdiComment(HDC hDC, UINT cbData, const BYTE* pData)
{
    CDrawTarget* pTarget = hDC && (pData || cbData == 0) ? hDC->Target() : nullptr;
    return pTarget && pTarget->Comment(*hDC, { pData, cbData });
}

HENHMETAFILE CloseEnhMetaFile(HDC hDC)
{
    CMetafileWriter* pWriter = WriterOf(hDC);
    if (!pWriter)
    {
        SetLastError(EINVAL);
        return nullptr;
    }
    std::unique_ptr<CDeviceContext> pContext(hDC);
    std::unique_ptr<HENHMETAFILE__> pMetafile(MakeHandle(pWriter->Finish()));
    if (!pMetafile)
    {
        SetLastError(ENOMEM);
        return nullptr;
    }
    const auto& strFile = pWriter->FileName();
    if (strFile && !WriteMetafile(pMetafile->Bits(), strFile->c_str()))
        return nullptr;
    return pMetafile.release();
}

// The copy shares its bytes with the original: neither can be changed.
HENHMETAFILE CopyEnhMetaFileA(HENHMETAFILE hMetaFile, LPCSTR pszFile)
{
    if (!hMetaFile)
    {
        SetLastError(EINVAL);
        return nullptr;
    }
    if (pszFile && !WriteMetafile(hMetaFile->Bits(), pszFile))
        return nullptr;
    hMetaFile->Bits().Hold();
    return MakeHandle(&hMetaFile->Bits());
}

BOOL DeleteEnhMetaFile(HENHMETAFILE hMetaFile)
{
    delete hMetaFile;
    return hMetaFile != nullptr;
}

HENHMETAFILE GetEnhMetaFileA(LPCSTR pszFile)
{
    if (!pszFile)
    {
        SetLastError(EINVAL);
        return nullptr;
    }
    return MakeHandle(ReadMetafileBits(pszFile));
}

HENHMETAFILE SetEnhMetaFileBits(UINT cbBuffer, const BYTE* pBuffer)
{
    if (!pBuffer)
    {
        SetLastError(EINVAL);
        return nullptr;
    }
    return MakeHandle(CopyMetafileBits({ pBuffer, cbBuffer }));
}

// The table has the slots that the header asks for, all empty but the first, which stands for the
// metafile: nothing is played, so that no object is made.
BOOL EnumEnhMetaFile(HDC hDC, HENHMETAFILE hMetaFile, ENHMFENUMPROC pCallback, LPVOID pParam,
                     const RECT* pRect)
{
    if (!hMetaFile || !pCallback || (hDC && !pRect))
    {
        SetLastError(EINVAL);
        return FALSE;
    }
    const int nHandles = std::max<int>(hMetaFile->Header().nHandles, 1);
    std::vector<HGDIOBJ> handles(static_cast<std::size_t>(nHandles), nullptr);
    handles[0] = hMetaFile;
    auto* pTable = reinterpret_cast<HANDLETABLE*>(handles.data());
    auto visit = [&](const ENHMETARECORD& record)
    {
        return pCallback(hDC, pTable, &record, nHandles, reinterpret_cast<LPARAM>(pParam)) != 0;
    };
    return VisitRecords(hMetaFile->Bits().Bytes(), visit);
}

UINT GetEnhMetaFileHeader(HENHMETAFILE hMetaFile, UINT cbBuffer, ENHMETAHEADER* pHeader)
{
    if (!hMetaFile)
        return 0;
    ENHMETAHEADER header = hMetaFile->Header();
    if (!pHeader)
        return header.nSize;
    const UINT nCopied = std::min<UINT>(cbBuffer, sizeof header);
    std::memcpy(static_cast<void*>(pHeader), &header, nCopied);
    return nCopied;
}

UINT GetEnhMetaFileBits(HENHMETAFILE hMetaFile, UINT cbBuffer, BYTE* pBuffer)
{
    if (!hMetaFile)
        return 0;
    std::span<const BYTE> bytes = hMetaFile->Bits().Bytes();
    if (!pBuffer)
        return static_cast<UINT>(bytes.size());
    if (cbBuffer < bytes.size())
        return 0;
    std::memcpy(pBuffer, bytes.data(), bytes.size());
    return static_cast<UINT>(bytes.size());
}
