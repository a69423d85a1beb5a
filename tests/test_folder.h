// A folder of its own for a test, gone with it.
#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <string>

class CTestFolder
{
public:
    CTestFolder()
    {
        static std::atomic<unsigned> s_nNumber = 0;
        const auto nNow = std::chrono::steady_clock::now().time_since_epoch().count();
        do
        {
            m_path = std::filesystem::temp_directory_path() /
                     ("mivora-test-" + std::to_string(nNow) + "-" + std::to_string(s_nNumber++));
        } while (!std::filesystem::create_directory(m_path));
    }
    ~CTestFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    CTestFolder(const CTestFolder&) = delete;
    CTestFolder& operator=(const CTestFolder&) = delete;

    const std::filesystem::path& Path() const { return m_path; }
    std::string File(const std::string& strName) const { return (m_path / strName).string(); }

private:
    std::filesystem::path m_path;
};
