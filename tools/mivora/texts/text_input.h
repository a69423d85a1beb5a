// Where formulas come from: words of the command line, standard input, lines of a file.
#pragma once

#include <string>
#include <vector>

#include "facade/typed_text.h"
#include "system/input_file.h"
#include "words/arguments.h"

// Pairs of hexadecimal digits. Throws CFailure.
CString TextFromHex(const std::string& strHex);

// The TEXT as it was typed, in UTF-8, with its Greek letters written out if that is asked for;
// standard input less one final line break for "-". A byte order mark is skipped, as in lines.
// Throws CFailure.
std::string TypedText(const CArguments& arguments);

// Lines of a file, ended by LF or CR LF, the last one perhaps not. Bytes of any value.
class CLineReader
{
public:
    // "-" is standard input. Throws CFailure if the file cannot be opened.
    explicit CLineReader(const std::string& strPath);

    // False at the end. Standard output is flushed whenever more input has to be waited for, so
    // that another program can talk with this one line by line. Throws CFailure.
    bool Next(std::string& strLine);
    // The same with the line break.
    bool NextRaw(std::string& strLine);

    // Bytes taken so far, and of the file; 0 if that is not known.
    unsigned long long Taken() const { return m_nTaken; }
    unsigned long long Size() const { return m_nSize; }

private:
    bool Fill();

    std::unique_ptr<CInputFile> m_pFile;
    unsigned long long m_nSize;
    unsigned long long m_nTaken = 0;
    std::vector<char> m_achBuffer;
    size_t m_nNext = 0;  // in the buffer
    size_t m_nFilled = 0;
};
