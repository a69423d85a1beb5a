// Bytes of a file or of standard input, as soon as there are some.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

class CInputFile
{
public:
    // Standard input.
    CInputFile();
    // Throws CFailure if it cannot be opened.
    explicit CInputFile(const std::string& strPath);
    ~CInputFile();
    CInputFile(const CInputFile&) = delete;
    CInputFile& operator=(const CInputFile&) = delete;

    // Waits until there is something, and gives how many bytes that is; 0 at the end, and where an
    // interruption ended the wait. Throws CFailure.
    std::size_t Read(char* pchBuffer, std::size_t nSize);

    // 0 if that is not known.
    unsigned long long Size() const;

private:
    struct CNative;
    std::string m_strPath;
    std::unique_ptr<CNative> m_pNative;
};
