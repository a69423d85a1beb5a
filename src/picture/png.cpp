// PNG files: in grey or in colours, with or without opacity, whatever the picture needs.
#include <cmath>
#include <limits>

#include "picture/carried_text.h"
#include "picture/deflate.h"
#include "picture/raster.h"

namespace
{
constexpr char s_szSignature[] = "\x89PNG\r\n\x1A\n";
constexpr int s_nBitDepth = 8;

// The number of a form in the head: 2 has colours, 4 has opacity.
struct CForm
{
    bool bColours = false;
    bool bOpacity = false;

    int Number() const { return (bColours ? 2 : 0) | (bOpacity ? 4 : 0); }
    size_t Bytes() const { return (bColours ? 3U : 1U) + (bOpacity ? 1U : 0U); }
};

CForm FormOf(const CRaster& raster)
{
    std::uint32_t nColours = 0;
    std::uint32_t nClear = 0;
    for (const std::uint32_t nPixel : raster.pixels)
    {
        nColours |= (nPixel ^ nPixel >> 8) & 0xFFFF;  // blue against green, green against red
        nClear |= ~nPixel;
    }
    return { nColours != 0, nClear >> 24 != 0 };
}

void AppendNumber(std::string& strBytes, std::uint32_t n)
{
    for (int nShift = 24; nShift >= 0; nShift -= 8)
        strBytes += static_cast<char>(n >> nShift & 0xFF);
}

void AppendChunk(std::string& strBytes, const char* pszType, const std::string& strData)
{
    AppendNumber(strBytes, static_cast<std::uint32_t>(strData.size()));
    const size_t nStart = strBytes.size();
    strBytes += pszType;
    strBytes += strData;
    AppendNumber(strBytes,
                 static_cast<std::uint32_t>(Crc32(std::string_view(strBytes).substr(nStart))));
}

std::string Head(const CRaster& raster, const CForm& form)
{
    std::string strData;
    AppendNumber(strData, static_cast<std::uint32_t>(raster.size.cx));
    AppendNumber(strData, static_cast<std::uint32_t>(raster.size.cy));
    strData += { static_cast<char>(s_nBitDepth), static_cast<char>(form.Number()), 0, 0, 0 };
    return strData;
}

std::string Resolution(int nDpi)
{
    const auto nPerMetre = static_cast<std::uint32_t>(std::lround(nDpi / 0.0254));
    std::string strData;
    AppendNumber(strData, nPerMetre);
    AppendNumber(strData, nPerMetre);
    return strData + '\x01';
}

// Not compressed, without language and translated keyword.
void AppendText(std::string& strBytes, const char* pszKeyword, const std::string& strText)
{
    if (!strText.empty())
        AppendChunk(strBytes, "iTXt", pszKeyword + std::string(5, '\0') + strText);
}

// Writes a row of pixels; gives where it ends.
template <bool bColours, bool bOpacity>
char* PutRow(char* p, const std::uint32_t* pRow, int cx)
{
    for (int x = 0; x < cx; ++x)
    {
        const std::uint32_t nPixel = pRow[x];
        if constexpr (bColours)
        {
            *p++ = static_cast<char>(nPixel >> 16);
            *p++ = static_cast<char>(nPixel >> 8);
        }
        *p++ = static_cast<char>(nPixel);
        if constexpr (bOpacity)
            *p++ = static_cast<char>(nPixel >> 24);
    }
    return p;
}

// Rows as they are: of lines and letters no filter makes less.
std::string Rows(const CRaster& raster, const CForm& form)
{
    char* (*const pfnPutRow)(char*, const std::uint32_t*, int) =
        form.bColours ? (form.bOpacity ? PutRow<true, true> : PutRow<true, false>)
                      : (form.bOpacity ? PutRow<false, true> : PutRow<false, false>);
    std::string strRows;
    strRows.resize((static_cast<size_t>(raster.size.cx) * form.Bytes() + 1) *
                   static_cast<size_t>(raster.size.cy));
    char* p = strRows.data();
    for (int y = 0; y < raster.size.cy; ++y)
    {
        *p++ = 0;
        p = pfnPutRow(p, raster.Row(y), raster.size.cx);
    }
    return strRows;
}
}  // namespace

std::string PngBytes(const CRaster& raster, const CPictureOptions& options)
{
    const CForm form = FormOf(raster);
    std::string strBytes(s_szSignature, sizeof s_szSignature - 1);
    AppendChunk(strBytes, "IHDR", Head(raster, form));
    AppendChunk(strBytes, "pHYs", Resolution(options.nDpi));
    AppendText(strBytes, CARRIED_NAME, EscapeCarried(options.strSource));
    AppendText(strBytes, DESCRIPTION_NAME, options.strTitle);
    AppendChunk(strBytes, "IDAT", Deflate(Rows(raster, form)));
    AppendChunk(strBytes, "IEND", {});
    return strBytes;
}
