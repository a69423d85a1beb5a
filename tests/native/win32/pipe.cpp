#include "native/pipe.h"

#include <windows.h>

#include <algorithm>

struct CTestPipe::CHandles
{
    std::string m_strPath;
    HANDLE m_hPipe;
};

CTestPipe::CTestPipe() : m_pHandles(std::make_unique<CHandles>())
{
    static int s_nNumber = 0;
    m_pHandles->m_strPath = "\\\\.\\pipe\\mivora-test-" + std::to_string(GetCurrentProcessId()) +
                            "-" + std::to_string(s_nNumber++);
    m_pHandles->m_hPipe =
        CreateNamedPipeA(m_pHandles->m_strPath.c_str(), PIPE_ACCESS_OUTBOUND,
                         PIPE_TYPE_BYTE | PIPE_WAIT, 1, 1 << 16, 1 << 16, 0, nullptr);
}

CTestPipe::~CTestPipe()
{
    CloseHandle(m_pHandles->m_hPipe);
}

std::string CTestPipe::Path() const
{
    return m_pHandles->m_strPath;
}

bool CTestPipe::WriteSlowly(const std::string& strBytes, std::size_t nPiece)
{
    if (!ConnectNamedPipe(m_pHandles->m_hPipe, nullptr) && GetLastError() != ERROR_PIPE_CONNECTED)
        return false;
    for (std::size_t n = 0; n < strBytes.size(); n += nPiece)
    {
        const auto nBytes = static_cast<DWORD>(std::min(nPiece, strBytes.size() - n));
        DWORD nWritten = 0;
        Sleep(2);
        if (!WriteFile(m_pHandles->m_hPipe, strBytes.data() + n, nBytes, &nWritten, nullptr) ||
            nWritten != nBytes)
            return false;
    }
    return true;
}
