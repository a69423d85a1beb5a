// What the user is told where there is no desktop: lines on standard error, English errors.
#include <gtest/gtest.h>

#include <cerrno>
#include <clocale>
#include <cstring>

#include "platform/base/app.h"
#include "platform/base/system.h"

TEST(UserMessage, IsOneLineOnStandardErrorWithoutAHandler)
{
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(AfxMessageBox("\xCE\xC4\xBC\xFE wmf!\r\nmore\n"), IDOK);
    AfxMessageBox("plain");
    AfxMessageBox("\x80\xFF caf\xE9 \x81");  // no code page 936: shown as Windows-1252
    AfxSystemMessageBox("text", "Error");
    AfxPathMessageBox("\xD0\xB4.fml \xFF");  // paths are bytes
    EXPECT_EQ(::testing::internal::GetCapturedStderr(),
              "\xE6\x96\x87\xE4\xBB\xB6 wmf!  more\nplain\n"
              "\xE2\x82\xAC\xC3\xBF caf\xC3\xA9 \xC2\x81\nError: text\n"
              "\xD0\xB4.fml \xFF\n");
}

TEST(LastError, HasAnEnglishText)
{
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    SetLastError(ENOENT);
    char* pszText = nullptr;
    const DWORD nLength = FormatMessageA(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, GetLastError(), MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
        reinterpret_cast<char*>(&pszText), 0, nullptr);
    EXPECT_STREQ(pszText, "No such file or directory.");
    EXPECT_EQ(nLength, std::strlen(pszText));
    EXPECT_EQ(LocalFree(pszText), nullptr);
    std::setlocale(LC_ALL, "C");

    char szBuffer[30];
    EXPECT_EQ(FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, 123456, 0, szBuffer, 30, nullptr),
              21U);
    EXPECT_STREQ(szBuffer, "Unknown error 123456.");
    EXPECT_EQ(FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, ENOENT, 0, szBuffer, 26, nullptr),
              0U);
}
