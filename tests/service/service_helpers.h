// Helpers of the service tests: message boxes that are kept, files in a folder that goes away.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/base/app.h"
#include "platform/base/file.h"
#include "platform/gdi/dc.h"
#include "platform/gdi/raw_metafile.h"
#include "service/formula_out.h"
#include "service/metafile_comment.h"
#include "test_folder.h"

// "不能解析该文件!" and "文件扩展名错误，不是wmf!" in code page 936.
inline constexpr char CANNOT_READ[] = "\xB2\xBB\xC4\xDC\xBD\xE2\xCE\xF6\xB8\xC3\xCE\xC4\xBC\xFE!";
inline constexpr char WRONG_EXTENSION[] =
    "\xCE\xC4\xBC\xFE\xC0\xA9\xD5\xB9\xC3\xFB\xB4\xED\xCE\xF3\xA3\xAC\xB2\xBB\xCA\xC7wmf!";

using Messages = std::vector<std::string>;

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
    CString File(const std::string& strName) const
    {
        return m_folder.File(strName.c_str()).c_str();
    }

    // The boxes since the last call.
    Messages TakeMessages() { return std::exchange(m_messages, {}); }

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
    Messages m_messages;
};

inline CRect ScreenRect(CFormulaOut& formula)
{
    CClientDC screen(nullptr);
    return formula.GetFormulaRect(&screen);
}
