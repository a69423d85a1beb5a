#include "native/pipe.h"

#include <unistd.h>

#include <chrono>
#include <string_view>
#include <thread>

struct CTestPipe::CHandles
{
    int m_anEnds[2] = { -1, -1 };  // to read, to write
};

CTestPipe::CTestPipe() : m_pHandles(std::make_unique<CHandles>())
{
    [[maybe_unused]] const int nResult = pipe(m_pHandles->m_anEnds);
}

CTestPipe::~CTestPipe()
{
    close(m_pHandles->m_anEnds[0]);
    close(m_pHandles->m_anEnds[1]);
}

std::string CTestPipe::Path() const
{
    return "/proc/self/fd/" + std::to_string(m_pHandles->m_anEnds[0]);
}

bool CTestPipe::WriteSlowly(const std::string& strBytes, std::size_t nPiece)
{
    for (std::size_t n = 0; n < strBytes.size(); n += nPiece)
    {
        const std::string_view piece = std::string_view(strBytes).substr(n, nPiece);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        if (write(m_pHandles->m_anEnds[1], piece.data(), piece.size()) !=
            static_cast<ssize_t>(piece.size()))
            return false;
    }
    return true;
}
