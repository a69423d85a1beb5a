// Messages, the texts of failures, memory blocks, conversions of text.
#include "platform/base/system.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/base/app.h"
#include "platform/base/code_page.h"
#include "platform/base/exception.h"
#include "platform/base/file.h"

namespace
{
using CHeard = std::vector<std::tuple<std::string, unsigned, unsigned>>;  // text, type, code page

int Hear(const char* pszText, unsigned nType, void* pHeard)
{
    static_cast<CHeard*>(pHeard)->emplace_back(pszText, nType, AfxGetMessageCodePage());
    return 6;
}

class CLoudApp : public CWinApp
{
public:
    int DoMessageBox(const char* pszText, UINT nType, UINT nIDPrompt) override
    {
        return CWinApp::DoMessageBox((CString("loud ") + pszText), nType, nIDPrompt) + 1;
    }
};

std::string MessageOf(const CException& e, UINT nMax = 256)
{
    std::string text(nMax, '#');
    e.GetErrorMessage(text.data(), nMax);
    return text.c_str();
}
}  // namespace

// Through the application to the handler; a path stays what it is beside Chinese words in their own
// encoding.
TEST(UserMessage, GoesToTheHandlerWithItsEncoding)
{
    const std::string path = "\xD0\xB4\xC3\xA4\xE5\x85\xAC.fml";
    CHeard heard;
    AfxSetMessageBoxHandler(Hear, &heard);
    UsePathsInUtf8();
    CWinApp* pBefore = AfxGetApp();
    EXPECT_EQ(AfxMessageBox("\xCE\xC4\xBC\xFE"), 6);
    {
        CLoudApp app;
        EXPECT_EQ(AfxGetApp(), &app);
        EXPECT_EQ(AfxMessageBox("two", MB_ICONEXCLAMATION), 7);
        EXPECT_EQ(AfxSystemMessageBox("three", "Error", MB_ICONINFORMATION), 7);
        CArchiveException(CArchiveException::endOfFile, "x.fml", FALSE).ReportError();
    }
    EXPECT_EQ(AfxGetApp(), pBefore);
    AfxPathMessageBox(path.c_str());
    AfxMessageBox("");
    CFileException(CFileException::badPath, 0, path.c_str()).ReportError();
    EXPECT_EQ(AfxGetMessageCodePage(), 936U);
    AfxSetMessageBoxHandler(nullptr, nullptr);
    const CHeard expected = {
        { "\xCE\xC4\xBC\xFE", 0, 936 },
        { "loud two", 0x30, 936 },
        { "loud three", 0x40, 65001 },
        { "loud The archive x.fml ends too early.", 0, 65001 },
        { path, 0, 65001 },
        { "", 0, 936 },
        { "The path of " + path + " leads nowhere.", 0, 65001 },
    };
    EXPECT_EQ(heard, expected);
}

TEST(Exceptions, TextsAreCutToTheBuffer)
{
    const CFileException missing(CFileException::fileNotFound, 2, "a.wmf");
    const CFileException wide(CFileException::fileNotFound, 2, "\xE5\x85\xAC\xC3\xA4");
    const CFileException unknown(99, 0, "%s%n");
    const CArchiveException unnamed(-1);
    const std::tuple<const CException&, UINT, const char*> aCases[] = {
        { missing, 256, "There is no file a.wmf." },
        { missing, 10, "There is " },
        { missing, 1, "" },
        { wide, 21, "There is no file \xE5\x85\xAC" },  // no torn character
        { wide, 20, "There is no file " },
        { unknown, 256, "An operation on %s%n failed." },
        { unnamed, 256, "An operation on the archive (unnamed) failed." },
    };
    for (const auto& [exception, nMax, pszText] : aCases)
        EXPECT_EQ(MessageOf(exception, nMax), pszText);
    char ch = '#';
    EXPECT_FALSE(missing.GetErrorMessage(&ch, 0));
    EXPECT_EQ(ch, '#');
    EXPECT_FALSE(CException().GetErrorMessage(&ch, 1));
    EXPECT_EQ(ch, '\0');
}

TEST(Exceptions, StaticOnesSurviveDelete)
{
    const std::pair<void (*)(), const char*> aCases[] = {
        { AfxThrowMemoryException, "There is not enough memory." },
        { AfxThrowInvalidArgException, "An argument is not valid." },
        { AfxThrowTextTooLongException, "The text is too long." },
        { AfxThrowArchiveLimitException, "The archive (unnamed) is damaged." },
    };
    for (std::size_t i = 0; i < 2 * std::size(aCases); ++i)
    {
        const auto& [pfnThrow, pszText] = aCases[i % std::size(aCases)];
        try
        {
            pfnThrow();
        }
        catch (CException* e)
        {
            EXPECT_EQ(MessageOf(*e), pszText);
            e->Delete();
        }
    }
}

TEST(MulDiv, RoundsHalvesAwayFromZero)
{
    const int aCases[][4] = { { 7, 1, 2, 4 },
                              { -7, 1, 2, -4 },
                              { 7, -1, 2, -4 },
                              { 7, 1, -2, -4 },
                              { -7, -1, 2, 4 },
                              { 10, 1, 3, 3 },
                              { 11, 1, 3, 4 },
                              { 0, 5, -3, 0 },
                              { 5, 5, 0, -1 },
                              { INT_MAX, 2, 1, -1 },
                              { INT_MAX, INT_MAX, INT_MAX, INT_MAX },
                              { INT_MIN, 1, 1, -1 },
                              { 1920 * 100, 508, 1920, 50800 } };
    for (const auto& [a, b, c, nExpected] : aCases)
        EXPECT_EQ(MulDiv(a, b, c), nExpected) << a << " " << b << " " << c;
}

TEST(GlobalMemory, ResizesAsItsFlagsSay)
{
    HGLOBAL hFixed = GlobalAlloc(GMEM_FIXED, 10);
    EXPECT_EQ(GlobalLock(hFixed), hFixed);
    std::memcpy(hFixed, "0123456789", 10);
    EXPECT_EQ(GlobalReAlloc(hFixed, 5000, 0), nullptr);  // may not move
    EXPECT_EQ(GlobalSize(hFixed), 10U);
    hFixed = GlobalReAlloc(hFixed, 5000, GMEM_MOVEABLE);
    ASSERT_NE(hFixed, nullptr);
    EXPECT_EQ(GlobalSize(hFixed), 5000U);
    EXPECT_EQ(std::string_view(static_cast<const char*>(hFixed), 10), "0123456789");
    EXPECT_EQ(GlobalFree(hFixed), nullptr);

    constexpr UINT nFlags = GMEM_MOVEABLE | GMEM_ZEROINIT;
    HGLOBAL hMoveable = GlobalAlloc(nFlags, 3);
    auto* pBytes = static_cast<BYTE*>(GlobalLock(hMoveable));
    EXPECT_NE(static_cast<void*>(pBytes), hMoveable);
    pBytes[2] = 7;
    EXPECT_EQ(GlobalReAlloc(hMoveable, 300, nFlags), hMoveable);  // locked, but allowed to move
    EXPECT_EQ(GlobalUnlock(hMoveable), FALSE);
    EXPECT_EQ(GlobalReAlloc(hMoveable, 5000, nFlags), hMoveable);
    pBytes = static_cast<BYTE*>(GlobalLock(hMoveable));
    EXPECT_EQ(pBytes[2], 7);
    EXPECT_EQ(pBytes[4999], 0);
    GlobalUnlock(hMoveable);
    GlobalFree(hMoveable);
    EXPECT_EQ(GlobalSize(nullptr), 0U);
}

TEST(Version, AsksForItsOwnSize)
{
    OSVERSIONINFOA info{};
    EXPECT_FALSE(GetVersionExA(&info));
    info.dwOSVersionInfoSize = 148;
    EXPECT_TRUE(GetVersionExA(&info));
    EXPECT_EQ(info.dwPlatformId, 2U);
    EXPECT_GE(info.dwMajorVersion, 5U);
}

TEST(CodePage, EveryByteComesBack)
{
    std::string all;
    for (int n = 0; n < 256; ++n)
        all += static_cast<char>(n);
    std::string back;
    std::size_t nBad = 0;
    EXPECT_TRUE(Utf8ToWindows1252(Windows1252ToUtf8(all), &back, &nBad));
    EXPECT_EQ(back, all);
    EXPECT_EQ(Windows1252ToUtf8("\x80\x9F\xA0"), "\xE2\x82\xAC\xC5\xB8\xC2\xA0");
}

TEST(CodePage, TellsWhereATextDoesNotConvert)
{
    const std::pair<std::string_view, std::size_t> aCases[] = {
        { "ab\xCE\xB1", 2 },                // alpha
        { "\xC3\xA4\xF0\x9F\x98\x80", 2 },  // beyond 16 bits
        { { "a\xC3\xA4", 2 }, 1 },          // ends inside
        { "\xC3(", 0 },                     // no second byte
        { "x\x80", 1 },                     // no first byte
        { "\xC0\x80", 0 },                  // overlong
        { "\xE0\x80\x80", 0 },              // overlong
        { "\xED\xA0\x80", 0 },              // surrogate
        { "\xF8\x88\x80\x80\x80", 0 },
    };
    for (const auto& [utf8, nExpected] : aCases)
    {
        std::string text;
        std::size_t nBad = 99;
        EXPECT_FALSE(Utf8ToWindows1252(utf8, &text, &nBad)) << nExpected;
        EXPECT_EQ(nBad, nExpected);
    }
}
