// What the user is told: real boxes, read as they stand on the screen.
#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <thread>

#include "platform/base/app.h"
#include "platform/base/exception.h"
#include "platform/base/file.h"

namespace
{
struct CBox
{
    std::wstring caption;
    std::wstring text;
};

std::wstring TextOf(HWND hWnd)
{
    wchar_t szText[200] = L"";
    SendMessageW(hWnd, WM_GETTEXT, std::size(szText), reinterpret_cast<LPARAM>(szText));
    return szText;
}

// The label that is not the icon's.
BOOL CALLBACK TakeLabel(HWND hChild, LPARAM lParam)
{
    wchar_t szClass[20] = L"";
    GetClassNameW(hChild, szClass, std::size(szClass));
    const std::wstring text = TextOf(hChild);
    if (std::wstring_view(szClass) == L"Static" && !text.empty())
        *reinterpret_cast<std::wstring*>(lParam) = text;
    return TRUE;
}

// Waits for a message box of this process, reads it and presses its button.
void ReadAndPress(CBox* pBox, int nButton)
{
    for (int nTry = 0; nTry < 500; ++nTry)
    {
        const HWND hBox = FindWindowW(L"#32770", nullptr);
        DWORD nProcess = 0;
        if (hBox != nullptr && GetWindowThreadProcessId(hBox, &nProcess) != 0 &&
            nProcess == GetCurrentProcessId() && IsWindowVisible(hBox))
        {
            pBox->caption = TextOf(hBox);
            EnumChildWindows(hBox, TakeLabel, reinterpret_cast<LPARAM>(&pBox->text));
            PostMessageW(hBox, WM_COMMAND, static_cast<WPARAM>(nButton), 0);
            return;
        }
        Sleep(20);
    }
}

template <class F>
CBox BoxOf(F show, int nButton = IDOK)
{
    CBox box;
    std::thread user(ReadAndPress, &box, nButton);
    EXPECT_EQ(show(), nButton);
    user.join();
    return box;
}
}  // namespace

TEST(UserMessage, ShowsTheTextInItsOwnLanguage)
{
    const CBox chinese = BoxOf([] { return AfxMessageBox("\xCE\xC4\xBC\xFE wmf!"); });
    EXPECT_EQ(chinese.text, L"\u6587\u4EF6 wmf!");
    EXPECT_EQ(chinese.caption, L"base_tests.exe");

    const CBox other = BoxOf([] { return AfxMessageBox("\x80\xFF caf\xE9"); });  // no code page 936
    EXPECT_EQ(other.text, L"\u20AC\u00FF caf\u00E9");

    const CBox system = BoxOf([] { return AfxSystemMessageBox("na\xEFve", "Error"); });
    EXPECT_EQ(system.text, L"na\u00EFve");
    EXPECT_EQ(system.caption, L"Error");

    UsePathsInUtf8();
    const CBox path = BoxOf([] { return AfxPathMessageBox("\xD0\xB4\xE5\x85\xAC.fml"); });
    EXPECT_EQ(path.text, L"\u0434\u516C.fml");
    EXPECT_EQ(path.caption, L"base_tests.exe");
}

TEST(UserMessage, GivesTheButton)
{
    const CBox box = BoxOf([] { return AfxMessageBox("go on?", MB_YESNO); }, IDNO);
    EXPECT_EQ(box.text, L"go on?");
}

TEST(LastError, HasACause)
{
    const struct
    {
        DWORD nError;
        int nCause;
    } aCases[] = {
        { ERROR_SUCCESS, CFileException::none },
        { ERROR_FILE_NOT_FOUND, CFileException::fileNotFound },
        { ERROR_PATH_NOT_FOUND, CFileException::badPath },
        { ERROR_SHARING_VIOLATION, CFileException::sharingViolation },
        { ERROR_LOCK_VIOLATION, CFileException::lockViolation },
        { ERROR_DISK_FULL, CFileException::diskFull },
        { ERROR_NEGATIVE_SEEK, CFileException::badSeek },
        { ERROR_WRITE_PROTECT, CFileException::accessDenied },
        { ERROR_CRC, CFileException::hardIO },
        { 0x7FFFFFFF, CFileException::genericException },
    };
    for (const auto& row : aCases)
    {
        EXPECT_EQ(CFileException::OsErrorToException(static_cast<LONG>(row.nError)), row.nCause)
            << row.nError;
    }
}
