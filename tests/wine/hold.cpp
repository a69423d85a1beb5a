// Keeps Wine's services and its desktop running between tests: wine-hold.exe READY
// Owns a hidden window until it is ended from outside; makes the file READY once that stands.
#include <windows.h>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR pszReady, int)
{
    if (!CreateWindowA("STATIC", "hold", 0, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr))
        return 1;
    HANDLE hReady = CreateFileA(pszReady, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr);
    if (hReady == INVALID_HANDLE_VALUE)
        return 1;
    CloseHandle(hReady);

    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
    return 0;
}
