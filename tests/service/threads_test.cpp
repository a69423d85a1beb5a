// The C function from several threads at once, as interpreters call it.
#include <fstream>
#include <iterator>
#include <tuple>

#include "platform/base/app.h"
#include "service/formula_out.h"
#include "service/thread_rounds.h"
#include "test_folder.h"

namespace
{
constexpr int s_nRounds = 25;

const std::vector<std::string> s_astrTexts = {
    "sqr(x)+greek p",
    "sum(mark(x,i,2),i=1,n)=(n*(n+1))/2",
    "int(exp((-(x~2))/2)*dx,0,greek p)",
    "2**3+brace({,},a/b)",
    "",
    "a^b^c",
    std::string(300, '(') + "a" + std::string(300, ')'),
    "sqr(sqr(sqr(sqr(sqr(sqr(sqr(sqr(sqr(sqr(x))))))))))",
};

using CPicture = std::tuple<float, float, std::string>;  // width, height, bytes

CPicture Draw(const std::string& strText, const std::string& strPath)
{
    float fWidth = 0;
    float fHeight = 0;
    EXPECT_EQ(StringToEMFFormula(strText.c_str(), strPath.c_str(), &fWidth, &fHeight), 1);
    std::ifstream stream(strPath, std::ios::binary);
    return { fWidth, fHeight, { std::istreambuf_iterator<char>(stream), {} } };
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
    EXPECT_GT(std::get<2>(Draw(s_astrTexts[0], folder.File("alone.wmf"))).size(), 500U);
    ExpectSameInThreads(s_astrTexts, s_nRounds,
                        [&](const std::string& strText, size_t nThread)
                        { return Draw(strText, folder.File(std::to_string(nThread) + ".wmf")); });
}

TEST(Threads, TellTheirMessagesOneByOne)
{
    const CTestFolder folder;
    int nMessages = 0;
    AfxSetMessageBoxHandler(CountMessage, &nMessages);
    RunInThreads(
        [&](size_t)
        {
            for (int i = 0; i < s_nRounds; ++i)
                EXPECT_GT(std::get<0>(Draw("a", folder.File("x.txt"))), 0);
        });
    AfxSetMessageBoxHandler(nullptr, nullptr);
    EXPECT_EQ(nMessages, static_cast<int>(THREAD_COUNT) * s_nRounds);
}
