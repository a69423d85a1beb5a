#include "native/pipe.h"

#include <windows.h>

#include <algorithm>
#include <thread>

bool FeedPipe(const std::string& strBytes, std::size_t nPiece,
              const std::function<void(const std::string& strPath)>& read)
{
    const std::string strPath = "\\\\.\\pipe\\mivora-test-" + std::to_string(GetCurrentProcessId());
    const HANDLE hPipe =
        CreateNamedPipeA(strPath.c_str(), PIPE_ACCESS_OUTBOUND, PIPE_TYPE_BYTE | PIPE_WAIT, 1,
                         1 << 16, 1 << 16, 0, nullptr);
    bool bTaken = false;
    std::thread writer(
        [&]
        {
            bTaken = ConnectNamedPipe(hPipe, nullptr) || GetLastError() == ERROR_PIPE_CONNECTED;
            for (std::size_t n = 0; n < strBytes.size() && bTaken; n += nPiece)
            {
                const auto nBytes = static_cast<DWORD>(std::min(nPiece, strBytes.size() - n));
                DWORD nWritten = 0;
                Sleep(2);
                bTaken = WriteFile(hPipe, strBytes.data() + n, nBytes, &nWritten, nullptr) &&
                         nWritten == nBytes;
            }
        });
    read(strPath);
    writer.join();
    CloseHandle(hPipe);
    return bTaken;
}
