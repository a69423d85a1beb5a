#include "cairo_picture.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>

#include "node_boxes.h"
#include "platform/base/exception.h"
#include "platform/base/file.h"
#include "platform/gdi/cairo_dc.h"
#include "report.h"

namespace
{
constexpr int s_nScreenDpi = 96;
constexpr double s_fPointsPerInch = 72;
constexpr int s_nLargestSide = 32767;  // pixels of an image that cairo can draw on
// A fixed date: the same formula gives the same bytes at any time.
constexpr char s_szDate[] = "2000-01-01T00:00:00Z";

template <auto Free>
struct CFreeBy
{
    template <class T>
    void operator()(T* p) const
    {
        Free(p);
    }
};
using CSurfacePtr = std::unique_ptr<cairo_surface_t, CFreeBy<cairo_surface_destroy>>;
using CCairoPtr = std::unique_ptr<cairo_t, CFreeBy<cairo_destroy>>;

void Check(cairo_status_t nStatus, const std::string& strPath)
{
    if (nStatus != CAIRO_STATUS_SUCCESS)
        throw CFailure{ "cannot draw " + strPath + ": " + cairo_status_to_string(nStatus) };
}

cairo_status_t Append(void* pContext, const unsigned char* pBytes, unsigned nCount)
{
    static_cast<std::string*>(pContext)->append(reinterpret_cast<const char*>(pBytes), nCount);
    return CAIRO_STATUS_SUCCESS;
}

void WriteFile(const std::string& strPath, const std::string& strBytes)
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
        throw CFailure{ "cannot write " + strPath + ": " +
                        (nError > 0 ? std::strerror(nError) : "unknown error") };
    }
}

// The formula's rectangle, in pixels of the screen; never empty, as no picture is.
CSize PictureSize(CFormulaOut& formula)
{
    CClientDC screen(nullptr);
    const CRect rect = formula.GetFormulaRect(&screen);
    return CSize(std::max(rect.Width(), 1), std::max(rect.Height(), 1));
}

// White, the formula on it, and the boxes over it; fScale is device units a pixel of the screen.
void DrawOn(cairo_surface_t* pSurface, double fScale, CFormulaOut& formula,
            const std::string& strPath, const CPictureOptions& options)
{
    const CCairoPtr pCairo(cairo_create(pSurface));
    cairo_set_source_rgb(pCairo.get(), 1, 1, 1);
    cairo_paint(pCairo.get());
    cairo_scale(pCairo.get(), fScale, fScale);
    {
        CCairoDC dc(pCairo.get(), s_nScreenDpi, s_nScreenDpi);
        formula.DrawTree(&dc, CRect(0, 0, 0, 0));
        if (options.bBoxes)
            DrawBoxes(pCairo.get(), formula.m_Tree, &dc);
    }
    Check(cairo_status(pCairo.get()), strPath);
}

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

CSurfacePtr DrawImage(CFormulaOut& formula, const std::string& strPath,
                      const CPictureOptions& options)
{
    const CSize size = PictureSize(formula);
    const double fScale = static_cast<double>(options.nDpi) / s_nScreenDpi;
    CSurfacePtr pSurface(cairo_image_surface_create(CAIRO_FORMAT_RGB24,
                                                    ImageSide(size.cx, fScale, strPath),
                                                    ImageSide(size.cy, fScale, strPath)));
    Check(cairo_surface_status(pSurface.get()), strPath);
    DrawOn(pSurface.get(), fScale, formula, strPath, options);
    cairo_surface_flush(pSurface.get());
    return pSurface;
}

void DrawAndFinish(cairo_surface_t* pSurface, double fScale, CFormulaOut& formula,
                   const std::string& strPath, const CPictureOptions& options)
{
    Check(cairo_surface_status(pSurface), strPath);
    DrawOn(pSurface, fScale, formula, strPath, options);
    cairo_surface_finish(pSurface);
    Check(cairo_surface_status(pSurface), strPath);
}

// Cairo numbers its surfaces through the life of a process; the one group that bears such a number
// gets a name instead.
void NameRootGroup(std::string& strSvg)
{
    constexpr char szStart[] = "<g id=\"";
    const size_t nStart = strSvg.find(std::string(szStart) + "surface");
    if (nStart == std::string::npos)
        return;
    const size_t nName = nStart + sizeof szStart - 1;
    strSvg.replace(nName, strSvg.find('"', nName) - nName, "formula");
}

void AppendStruct(std::string& strBytes, const void* pData, size_t nSize)
{
    strBytes.append(static_cast<const char*>(pData), nSize);
}
}  // namespace

void WriteBmp(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options)
{
    const CSurfacePtr pSurface = DrawImage(formula, strPath, options);
    const int cx = cairo_image_surface_get_width(pSurface.get());
    const int cy = cairo_image_surface_get_height(pSurface.get());
    const auto nRow = static_cast<size_t>(cx) * 4;
    BITMAPINFOHEADER header = {};
    header.biSize = sizeof header;
    header.biWidth = cx;
    header.biHeight = cy;
    header.biPlanes = 1;
    header.biBitCount = 32;
    header.biSizeImage = static_cast<DWORD>(nRow * static_cast<size_t>(cy));
    header.biXPelsPerMeter = header.biYPelsPerMeter =
        static_cast<LONG>(std::lround(options.nDpi / 0.0254));
    BITMAPFILEHEADER fileHeader = {};
    fileHeader.bfType = 0x4D42;
    fileHeader.bfOffBits = static_cast<DWORD>(sizeof fileHeader + sizeof header);
    fileHeader.bfSize = fileHeader.bfOffBits + header.biSizeImage;
    std::string strBytes;
    AppendStruct(strBytes, &fileHeader, sizeof fileHeader);
    AppendStruct(strBytes, &header, sizeof header);
    const auto nStride = static_cast<size_t>(cairo_image_surface_get_stride(pSurface.get()));
    for (int y = cy - 1; y >= 0; --y)  // from the bottom up
    {
        const unsigned char* pRow =
            cairo_image_surface_get_data(pSurface.get()) + static_cast<size_t>(y) * nStride;
        const size_t nStart = strBytes.size();
        AppendStruct(strBytes, pRow, nRow);
        for (size_t n = nStart + 3; n < strBytes.size(); n += 4)
            strBytes[n] = 0;  // undefined in cairo's pixels
    }
    WriteFile(strPath, strBytes);
}

void WritePng(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options)
{
    const CSurfacePtr pSurface = DrawImage(formula, strPath, options);
    std::string strBytes;
    Check(cairo_surface_write_to_png_stream(pSurface.get(), Append, &strBytes), strPath);
    WriteFile(strPath, strBytes);
}

void WriteSvg(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options)
{
    const CSize size = PictureSize(formula);
    const double fScale = static_cast<double>(options.nDpi) / s_nScreenDpi;
    std::string strBytes;
    const CSurfacePtr pSurface(
        cairo_svg_surface_create_for_stream(Append, &strBytes, size.cx * fScale, size.cy * fScale));
    cairo_svg_surface_set_document_unit(pSurface.get(), CAIRO_SVG_UNIT_PX);
    DrawAndFinish(pSurface.get(), fScale, formula, strPath, options);
    NameRootGroup(strBytes);
    WriteFile(strPath, strBytes);
}

void WritePdf(CFormulaOut& formula, const std::string& strPath, const CPictureOptions& options)
{
    const CSize size = PictureSize(formula);
    const double fScale = s_fPointsPerInch / s_nScreenDpi * options.nDpi / s_nScreenDpi;
    std::string strBytes;
    const CSurfacePtr pSurface(
        cairo_pdf_surface_create_for_stream(Append, &strBytes, size.cx * fScale, size.cy * fScale));
    cairo_pdf_surface_set_metadata(pSurface.get(), CAIRO_PDF_METADATA_CREATE_DATE, s_szDate);
    DrawAndFinish(pSurface.get(), fScale, formula, strPath, options);
    WriteFile(strPath, strBytes);
}
