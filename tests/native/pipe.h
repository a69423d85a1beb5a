// A pipe whose reading end has a path.
#pragma once

#include <memory>
#include <string>

class CTestPipe
{
public:
    CTestPipe();
    ~CTestPipe();
    CTestPipe(const CTestPipe&) = delete;
    CTestPipe& operator=(const CTestPipe&) = delete;

    std::string Path() const;
    // In pieces of nPiece bytes with pauses between them; from another thread than the reader's.
    // False if the reader does not take it all. The pipe stays open.
    bool WriteSlowly(const std::string& strBytes, std::size_t nPiece);

private:
    struct CHandles;
    std::unique_ptr<CHandles> m_pHandles;
};
