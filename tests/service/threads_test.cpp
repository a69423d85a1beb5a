// The C function from several threads at once, as interpreters call it.
#include <fstream>
#include <iterator>

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

struct CPicture
{
    float fWidth = 0;
    float fHeight = 0;
    std::string strBytes;

    bool operator==(const CPicture&) const = default;
};

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
    EXPECT_GT(Draw(s_astrTexts[0], folder.File("alone.wmf")).strBytes.size(), 500U);
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
                EXPECT_GT(Draw("a", folder.File("x.txt")).fWidth, 0);
        });
    AfxSetMessageBoxHandler(nullptr, nullptr);
    EXPECT_EQ(nMessages, static_cast<int>(THREAD_COUNT) * s_nRounds);
}
