// Messages, the texts of failures, memory blocks, conversions of text.
#include "platform/base/system.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>
#include <vector>

#include "platform/base/app.h"
#include "platform/base/code_page.h"
#include "platform/base/exception.h"
#include "platform/base/file.h"

namespace
{
struct CHeard
{
    std::vector<std::string> texts;
    std::vector<unsigned> types;
    std::vector<unsigned> codePages;
};

int Hear(const char* pszText, unsigned nType, void* pContext)
{
    auto* pHeard = static_cast<CHeard*>(pContext);
    pHeard->texts.emplace_back(pszText);
    pHeard->types.push_back(nType);
    pHeard->codePages.push_back(AfxGetMessageCodePage());
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

TEST(UserMessage, GoesThroughTheAppToTheHandler)
{
    CHeard heard;
    AfxSetMessageBoxHandler(Hear, &heard);
    CWinApp* pBefore = AfxGetApp();
    EXPECT_EQ(AfxMessageBox("one"), 6);
    {
        CLoudApp app;
        EXPECT_EQ(AfxGetApp(), &app);
        EXPECT_EQ(AfxMessageBox("two", MB_ICONEXCLAMATION), 7);
        EXPECT_EQ(AfxSystemMessageBox("three", "Error", MB_ICONINFORMATION), 7);
        CArchiveException(CArchiveException::endOfFile, "x.fml", FALSE).ReportError();
    }
    EXPECT_EQ(AfxGetApp(), pBefore);
    AfxSetMessageBoxHandler(nullptr, nullptr);
    EXPECT_EQ(heard.texts, (std::vector<std::string>{ "one", "loud two", "loud three",
                                                      "loud The archive x.fml ends too early." }));
    EXPECT_EQ(heard.types, (std::vector<unsigned>{ 0, 0x30, 0x40, 0 }));
}

// A path stays what it is beside Chinese words in their own encoding.
TEST(UserMessage, TellsItsEncoding)
{
    CHeard heard;
    AfxSetMessageBoxHandler(Hear, &heard);
    UsePathsInUtf8();
    const char szPath[] = "\xD0\xB4\xC3\xA4\xE5\x85\xAC.fml";
    AfxMessageBox("\xCE\xC4\xBC\xFE");
    AfxPathMessageBox(szPath);
    AfxMessageBox("");
    CFileException(CFileException::badPath, 0, szPath).ReportError();
    CArchiveException(CArchiveException::badIndex, szPath, FALSE).ReportError();
    AfxSystemMessageBox("text", "Error");
    EXPECT_EQ(AfxGetMessageCodePage(), 936U);
    AfxSetMessageBoxHandler(nullptr, nullptr);
    EXPECT_EQ(heard.texts, (std::vector<std::string>{
                               "\xCE\xC4\xBC\xFE", szPath, "",
                               std::string("The path of ") + szPath + " leads nowhere.",
                               std::string("The archive ") + szPath + " is damaged.", "text" }));
    EXPECT_EQ(heard.codePages, (std::vector<unsigned>{ 936, 65001, 936, 65001, 65001, 65001 }));
}

TEST(Exceptions, TextsAreCutToTheBuffer)
{
    const CFileException missing(CFileException::fileNotFound, 2, "a.wmf");
    EXPECT_EQ(MessageOf(missing), "There is no file a.wmf.");
    EXPECT_EQ(MessageOf(missing, 10), "There is ");
    EXPECT_EQ(MessageOf(missing, 1), "");
    const CFileException wide(CFileException::fileNotFound, 2, "\xE5\x85\xAC\xC3\xA4");
    EXPECT_EQ(MessageOf(wide, 21), "There is no file \xE5\x85\xAC");
    EXPECT_EQ(MessageOf(wide, 20), "There is no file ");
    EXPECT_EQ(MessageOf(CFileException(99, 0, "%s%n")), "An operation on %s%n failed.");
    EXPECT_EQ(MessageOf(CArchiveException(-1)), "An operation on the archive (unnamed) failed.");
    char ch = '#';
    EXPECT_FALSE(missing.GetErrorMessage(&ch, 0));
    EXPECT_EQ(ch, '#');
    EXPECT_FALSE(CException().GetErrorMessage(&ch, 1));
    EXPECT_EQ(ch, '\0');
}

TEST(Exceptions, StaticOnesSurviveDelete)
{
    void (*const apfnThrow[])() = { AfxThrowMemoryException, AfxThrowInvalidArgException,
                                    AfxThrowTextTooLongException, AfxThrowArchiveLimitException };
    std::vector<std::string> texts;
    for (const auto pfnThrow : apfnThrow)
    {
        std::string aTexts[2];
        for (std::string& text : aTexts)
        {
            try
            {
                pfnThrow();
            }
            catch (CException* e)
            {
                text = MessageOf(*e);
                e->Delete();
            }
        }
        EXPECT_EQ(aTexts[0], aTexts[1]);
        texts.push_back(aTexts[0]);
    }
    EXPECT_EQ(
        texts,
        (std::vector<std::string>{ "There is not enough memory.", "An argument is not valid.",
                                   "The text is too long.", "The archive (unnamed) is damaged." }));
}

TEST(MulDiv, RoundsHalvesAwayFromZero)
{
    const struct
    {
        int a, b, c, nExpected;
    } aCases[] = {
        { 7, 1, 2, 4 },
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
        { 1920 * 100, 508, 1920, 50800 },
    };
    for (const auto& c : aCases)
        EXPECT_EQ(MulDiv(c.a, c.b, c.c), c.nExpected) << c.a << " " << c.b << " " << c.c;
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
    EXPECT_EQ(std::memcmp(hFixed, "0123456789", 10), 0);
    EXPECT_EQ(GlobalFree(hFixed), nullptr);

    HGLOBAL hMoveable = GlobalAlloc(GHND, 3);
    auto* pBytes = static_cast<BYTE*>(GlobalLock(hMoveable));
    EXPECT_NE(static_cast<void*>(pBytes), hMoveable);
    pBytes[2] = 7;
    EXPECT_EQ(GlobalReAlloc(hMoveable, 300, GHND), hMoveable);  // locked, but allowed to move
    EXPECT_EQ(GlobalUnlock(hMoveable), FALSE);
    EXPECT_EQ(GlobalReAlloc(hMoveable, 5000, GHND), hMoveable);
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
    EXPECT_EQ(sizeof(info), 148U);
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
    const struct
    {
        std::string_view utf8;
        std::size_t nBad;
    } aCases[] = {
        { "ab\xCE\xB1", 2 },                // alpha
        { "\xC3\xA4\xF0\x9F\x98\x80", 2 },  // beyond 16 bits
        { "a\xC3", 1 },                     // ends inside
        { "\xC3(", 0 },                     // no second byte
        { "x\x80", 1 },                     // no first byte
        { "\xC0\x80", 0 },                  // overlong
        { "\xE0\x80\x80", 0 },              // overlong
        { "\xED\xA0\x80", 0 },              // surrogate
        { "\xF8\x88\x80\x80\x80", 0 },
    };
    for (const auto& c : aCases)
    {
        std::string text;
        std::size_t nBad = 99;
        EXPECT_FALSE(Utf8ToWindows1252(c.utf8, &text, &nBad)) << c.nBad;
        EXPECT_EQ(nBad, c.nBad);
    }
}
