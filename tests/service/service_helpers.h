// Helpers of the service tests: message boxes that are kept, files in a folder that goes away,
// metafiles taken apart without the library's own reader.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/base/app.h"
#include "platform/base/file.h"
#include "service/formula_out.h"
#include "service/metafile_comment.h"
#include "test_folder.h"

// "不能解析该文件!" and "文件扩展名错误，不是wmf!" in code page 936.
inline constexpr char CANNOT_READ[] = "\xB2\xBB\xC4\xDC\xBD\xE2\xCE\xF6\xB8\xC3\xCE\xC4\xBC\xFE!";
inline constexpr char WRONG_EXTENSION[] =
    "\xCE\xC4\xBC\xFE\xC0\xA9\xD5\xB9\xC3\xFB\xB4\xED\xCE\xF3\xA3\xAC\xB2\xBB\xCA\xC7wmf!";

// Each test starts without a comment, and has the message boxes it caused in m_messages.
class CServiceTest : public testing::Test
{
protected:
    CServiceTest()
    {
        g_strMetaComment = CString();
        AfxSetMessageBoxHandler(Keep, this);
    }
    ~CServiceTest() override
    {
        AfxSetMessageBoxHandler(nullptr, nullptr);
        g_pfnFileFault = nullptr;
    }

    const std::filesystem::path& Folder() const { return m_folder.Path(); }
    CString File(const char* pszName) const { return m_folder.File(pszName).c_str(); }

    // The boxes since the last call.
    std::vector<std::string> TakeMessages()
    {
        std::vector<std::string> messages;
        messages.swap(m_messages);
        return messages;
    }

    static std::string ReadWhole(const CString& strPath)
    {
        std::ifstream stream(strPath.GetString(), std::ios::binary);
        return { std::istreambuf_iterator<char>(stream), {} };
    }
    static void WriteWhole(const CString& strPath, const std::string& strBytes)
    {
        std::ofstream(strPath.GetString(), std::ios::binary) << strBytes;
    }

private:
    static int Keep(const char* pszText, unsigned, void* pContext)
    {
        static_cast<CServiceTest*>(pContext)->m_messages.emplace_back(pszText);
        return IDOK;
    }

    CTestFolder m_folder;
    std::vector<std::string> m_messages;
};

using Messages = std::vector<std::string>;

// A record of a metafile: its type, and what stands behind type and size.
struct CRecord
{
    std::uint32_t nType;
    std::string strData;
};

inline std::uint32_t NumberAt(const std::string& strBytes, size_t nOffset)
{
    std::uint32_t n = 0;
    if (nOffset + sizeof n <= strBytes.size())
        std::memcpy(&n, strBytes.data() + nOffset, sizeof n);
    return n;
}

inline std::vector<CRecord> RecordsOf(const std::string& strFile)
{
    std::vector<CRecord> records;
    for (size_t n = 0; n + 8 <= strFile.size();)
    {
        const std::uint32_t nSize = NumberAt(strFile, n + 4);
        if (nSize < 8 || n + nSize > strFile.size())
        {
            ADD_FAILURE() << "record of " << nSize << " bytes at " << n;
            break;
        }
        records.push_back({ NumberAt(strFile, n), strFile.substr(n + 8, nSize - 8) });
        n += nSize;
    }
    return records;
}

// A metafile as another program could write it: a head, comments, an end.
inline std::string ForeignMetafile(const std::vector<std::string>& comments)
{
    const auto append = [](std::string& str, std::uint32_t n)
    {
        str.append(reinterpret_cast<const char*>(&n), 4);
    };
    std::string strBody;
    for (const std::string& strComment : comments)
    {
        const size_t nPadded = (strComment.size() + 3) & ~size_t{ 3 };
        append(strBody, 70);
        append(strBody, static_cast<std::uint32_t>(12 + nPadded));
        append(strBody, static_cast<std::uint32_t>(strComment.size()));
        strBody += strComment + std::string(nPadded - strComment.size(), '\0');
    }
    for (std::uint32_t n : { 14U, 20U, 0U, 16U, 20U })
        append(strBody, n);
    std::string strHead;
    append(strHead, 1);
    append(strHead, 88);
    for (std::uint32_t n : { 0U, 0U, 9U, 9U, 0U, 0U, 999U, 999U })  // bounds, frame
        append(strHead, n);
    append(strHead, 0x464D4520);
    append(strHead, 0x10000);
    append(strHead, static_cast<std::uint32_t>(88 + strBody.size()));
    append(strHead, static_cast<std::uint32_t>(comments.size() + 2));
    append(strHead, 1);  // handles
    for (std::uint32_t n : { 0U, 0U, 0U, 1920U, 1080U, 508U, 286U })
        append(strHead, n);
    strHead.resize(88, '\0');
    return strHead + strBody;
}
