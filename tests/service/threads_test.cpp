// The C function from several threads at once, as interpreters call it.
#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "platform/base/app.h"
#include "service/formula_out.h"
#include "test_folder.h"

namespace
{
constexpr int s_nThreads = 4;
constexpr int s_nRounds = 25;

struct CPicture
{
    float fWidth = 0;
    float fHeight = 0;
    std::string strBytes;

    bool operator==(const CPicture&) const = default;
};

const std::vector<std::string>& Texts()
{
    static const std::vector<std::string> s_astrTexts = {
        "sqr(x)+greek p",
        "sum(mark(x,i,2),i=1,n)=(n*(n+1))/2",
        "int(exp((-(x~2))/2)*dx,0,greek p)",
        "2**3+brace({,},a/b)",
        "",
        "a^b^c",
        std::string(300, '(') + "a" + std::string(300, ')'),
        "sqr(sqr(sqr(sqr(sqr(sqr(sqr(sqr(sqr(sqr(x))))))))))",
    };
    return s_astrTexts;
}

CPicture Draw(const std::string& strText, const std::string& strPath)
{
    CPicture picture;
    EXPECT_EQ(
        StringToEMFFormula(strText.c_str(), strPath.c_str(), &picture.fWidth, &picture.fHeight), 1);
    std::ifstream stream(strPath, std::ios::binary);
    picture.strBytes.assign(std::istreambuf_iterator<char>(stream), {});
    return picture;
}

// Counts in the lock of the library: plain memory is enough.
int CountMessage(const char*, unsigned, void* pContext)
{
    ++*static_cast<int*>(pContext);
    return IDOK;
}
}  // namespace

TEST(Threads, DrawTheSameAsOneAlone)
{
    const CTestFolder folder;
    std::vector<CPicture> expected;
    for (const std::string& strText : Texts())
        expected.push_back(Draw(strText, folder.File("alone.wmf")));
    EXPECT_GT(expected[0].strBytes.size(), 500U);

    std::array<int, s_nThreads> anWrong{};
    const auto draw = [&](int nThread)
    {
        const std::string strPath = folder.File(std::to_string(nThread) + ".wmf");
        for (int i = 0; i < s_nRounds * static_cast<int>(Texts().size()); ++i)
        {
            const auto n = static_cast<std::size_t>(i + nThread) % Texts().size();
            anWrong[static_cast<std::size_t>(nThread)] += Draw(Texts()[n], strPath) != expected[n];
        }
    };
    std::vector<std::thread> threads;
    for (int n = 0; n < s_nThreads; ++n)
        threads.emplace_back(draw, n);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(anWrong, (std::array<int, s_nThreads>{}));
}

TEST(Threads, TellTheirMessagesOneByOne)
{
    const CTestFolder folder;
    int nMessages = 0;
    AfxSetMessageBoxHandler(CountMessage, &nMessages);
    std::vector<std::thread> threads;
    for (int n = 0; n < s_nThreads; ++n)
    {
        threads.emplace_back(
            [&]
            {
                for (int i = 0; i < s_nRounds; ++i)
                    EXPECT_GT(Draw("a", folder.File("x.txt")).fWidth, 0);
            });
    }
    for (std::thread& thread : threads)
        thread.join();
    AfxSetMessageBoxHandler(nullptr, nullptr);
    EXPECT_EQ(nMessages, s_nThreads * s_nRounds);
}
