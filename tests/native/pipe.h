// A pipe whose reading end has a path.
#pragma once

#include <functional>
#include <string>

// Writes to the pipe in pieces of nPiece bytes, with pauses between them, while read() is called
// with its path. False if not all was taken. The pipe stays open until both are done.
bool FeedPipe(const std::string& strBytes, std::size_t nPiece,
              const std::function<void(const std::string& strPath)>& read);
