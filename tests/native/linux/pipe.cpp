#include "native/pipe.h"

#include <unistd.h>

#include <chrono>
#include <thread>

bool FeedPipe(const std::string& strBytes, std::size_t nPiece,
              const std::function<void(const std::string& strPath)>& read)
{
    int anEnds[2];  // to read, to write
    bool bTaken = pipe(anEnds) == 0;
    std::thread writer(
        [&]
        {
            for (std::size_t n = 0; n < strBytes.size() && bTaken; n += nPiece)
            {
                const std::string strPart = strBytes.substr(n, nPiece);
                std::this_thread::sleep_for(std::chrono::milliseconds(2));
                bTaken = write(anEnds[1], strPart.data(), strPart.size()) ==
                         static_cast<ssize_t>(strPart.size());
            }
        });
    read("/proc/self/fd/" + std::to_string(anEnds[0]));
    writer.join();
    close(anEnds[0]);
    close(anEnds[1]);
    return bTaken;
}
