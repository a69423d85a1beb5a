// A host that draws with GDI and wide characters: it lends its own device context to the library,
// writes the text below the formula itself, and saves the bitmap.
//
//     gdi_host 'a/b' fraction.bmp
#define UNICODE
#include <windows.h>

#include <mivora/mivora.h>

#include <cstdio>
#include <string>

namespace
{
constexpr int s_nMargin = 10;
constexpr int s_nCaption = 20;

// A bitmap of 32 bits a pixel, selected into a device context of its own.
class CPicture
{
public:
    CPicture(int nWidth, int nHeight) : m_hDC(::CreateCompatibleDC(nullptr))
    {
        m_info.biSize = sizeof(m_info);
        m_info.biWidth = nWidth;
        m_info.biHeight = nHeight;
        m_info.biPlanes = 1;
        m_info.biBitCount = 32;
        m_info.biSizeImage = static_cast<DWORD>(nWidth * nHeight * 4);
        m_hBitmap = ::CreateDIBSection(m_hDC, reinterpret_cast<const BITMAPINFO*>(&m_info),
                                       DIB_RGB_COLORS, &m_pBits, nullptr, 0);
        m_hOld = ::SelectObject(m_hDC, m_hBitmap);
        ::PatBlt(m_hDC, 0, 0, nWidth, nHeight, WHITENESS);
    }
    ~CPicture()
    {
        ::SelectObject(m_hDC, m_hOld);
        ::DeleteObject(m_hBitmap);
        ::DeleteDC(m_hDC);
    }
    CPicture(const CPicture&) = delete;
    CPicture& operator=(const CPicture&) = delete;

    HDC GetDC() const { return m_hDC; }

    bool Write(const char* pszPath) const
    {
        ::GdiFlush();
        BITMAPFILEHEADER head = {};
        head.bfType = 0x4D42;
        head.bfOffBits = sizeof(head) + sizeof(m_info);
        head.bfSize = head.bfOffBits + m_info.biSizeImage;
        std::FILE* pFile = std::fopen(pszPath, "wb");
        if (!pFile)
            return false;
        const bool bWritten = std::fwrite(&head, sizeof(head), 1, pFile) == 1 &&
                              std::fwrite(&m_info, sizeof(m_info), 1, pFile) == 1 &&
                              std::fwrite(m_pBits, m_info.biSizeImage, 1, pFile) == 1;
        return std::fclose(pFile) == 0 && bWritten;
    }

private:
    HDC m_hDC;
    BITMAPINFOHEADER m_info = {};
    void* m_pBits = nullptr;
    HBITMAP m_hBitmap = nullptr;
    HGDIOBJ m_hOld = nullptr;
};
}  // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
    {
        std::fprintf(stderr, "usage: gdi_host FORMULA FILE.bmp\n");
        return 2;
    }
    CFormulaOut formula;
    if (!formula.FormTree(argv[1]))
        return 1;

    CClientDC screen(nullptr);
    const CRect rect = formula.GetFormulaRect(&screen);
    std::printf("%d x %d pixels\n", rect.Width(), rect.Height());

    const int nWidth = rect.Width() + 2 * s_nMargin;
    const int nBottom = rect.Height() + 2 * s_nMargin;
    const CPicture picture(nWidth, nBottom + s_nCaption);

    // The library takes handles of the system by classes that do not own them.
    formula.DrawTree(CDC::FromHandle(picture.GetDC()), CRect(s_nMargin, s_nMargin, 0, 0));

    const std::wstring strCaption(argv[1], argv[1] + std::char_traits<char>::length(argv[1]));
    RECT caption = { 0, nBottom, nWidth, nBottom + s_nCaption };
    ::DrawText(picture.GetDC(), strCaption.c_str(), -1, &caption,
               DT_CENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
    return picture.Write(argv[2]) ? 0 : 1;
}
