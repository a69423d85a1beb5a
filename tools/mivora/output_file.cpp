#include "picture_file.h"

#include <algorithm>
#include <cmath>

#include "platform/base/exception.h"
#include "platform/base/file.h"
#include "platform/gdi/dc.h"
#include "report.h"
#include "system_calls.h"

namespace
{
constexpr int s_nLargestSide = 32767;  // pixels of an image that both systems can draw on

int ImageSide(int nPixels, double fScale, const std::string& strPath)
{
    const double fSide = std::ceil(nPixels * fScale);
    if (fSide > s_nLargestSide)
    {
        throw CFailure{ "cannot draw " + strPath + ": the picture would be " +
                        std::to_string(static_cast<long long>(fSide)) + " pixels long, more than " +
                        std::to_string(s_nLargestSide) };
    }
    return static_cast<int>(fSide);
}

void AppendStruct(std::string& strBytes, const void* pData, size_t nSize)
{
    strBytes.append(static_cast<const char*>(pData), nSize);
}
}  // namespace

CSize PictureSize(CFormulaOut& formula)
{
    CClientDC screen(nullptr);
    const CRect rect = formula.GetFormulaRect(&screen);
    return CSize(std::max(rect.Width(), 1), std::max(rect.Height(), 1));
}

CSize ImageSize(const CSize& size, double fScale, const std::string& strPath)
{
    return CSize(ImageSide(size.cx, fScale, strPath), ImageSide(size.cy, fScale, strPath));
}

std::string BmpBytes(const unsigned char* pPixels, size_t nStride, const CSize& size, int nDpi)
{
    const auto nRow = static_cast<size_t>(size.cx) * 4;
    BITMAPINFOHEADER header = {};
    header.biSize = sizeof header;
    header.biWidth = size.cx;
    header.biHeight = size.cy;
    header.biPlanes = 1;
    header.biBitCount = 32;
    header.biSizeImage = static_cast<DWORD>(nRow * static_cast<size_t>(size.cy));
    header.biXPelsPerMeter = header.biYPelsPerMeter = static_cast<LONG>(std::lround(nDpi / 0.0254));
    BITMAPFILEHEADER fileHeader = {};
    fileHeader.bfType = 0x4D42;
    fileHeader.bfOffBits = static_cast<DWORD>(sizeof fileHeader + sizeof header);
    fileHeader.bfSize = fileHeader.bfOffBits + header.biSizeImage;
    std::string strBytes;
    AppendStruct(strBytes, &fileHeader, sizeof fileHeader);
    AppendStruct(strBytes, &header, sizeof header);
    for (int y = size.cy - 1; y >= 0; --y)  // from the bottom up
    {
        const size_t nStart = strBytes.size();
        AppendStruct(strBytes, pPixels + static_cast<size_t>(y) * nStride, nRow);
        for (size_t n = nStart + 3; n < strBytes.size(); n += 4)
            strBytes[n] = 0;  // may be anything in the pixels
    }
    return strBytes;
}

void WriteWhole(const std::string& strPath, const std::string& strBytes)
{
    try
    {
        CMirrorFile file;
        CFileException error;
        if (!file.Open(strPath.c_str(), CFile::modeCreate | CFile::modeWrite, &error))
            AfxThrowFileException(error.m_cause, error.m_lOsError, strPath.c_str());
        file.Write(strBytes.data(), static_cast<UINT>(strBytes.size()));
        file.Close();
    }
    catch (CFileException* pException)
    {
        const LONG nError = pException->m_lOsError;
        pException->Delete();
        throw CFailure{ "cannot write " + strPath + ": " + SystemErrorText(nError) };
    }
}
