// Texts that are deep, long or full of odd bytes go the whole way, from the parse to the metafile,
// in a thread with a small stack.
#include <pthread.h>

#include <functional>

#include "service/service_helpers.h"

namespace
{
constexpr size_t s_nStackSize = 1 << 20;

std::string Repeat(const std::string& strPart, int nTimes)
{
    std::string str;
    for (int n = 0; n < nTimes; ++n)
        str += strPart;
    return str;
}

std::string AllBytes()
{
    std::string str;
    for (int n = 0; n < 256; ++n)
        str += static_cast<char>(n);
    return str;
}

void RunInSmallThread(const std::function<void()>& job)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, s_nStackSize), 0);
    pthread_t thread;
    auto* pJob = const_cast<std::function<void()>*>(&job);
    ASSERT_EQ(pthread_create(
                  &thread, &attributes,
                  [](void* p) -> void*
                  {
                      (*static_cast<std::function<void()>*>(p))();
                      return nullptr;
                  },
                  pJob),
              0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

struct CInput
{
    const char* pszName;
    std::string strText;
    int nFormed;
};

class CBadInputTest : public CServiceTest
{
};

TEST_F(CBadInputTest, GoesTheWholeWayOrIsRefused)
{
    const CInput aInputs[] = {
        { "Empty", "", 1 },
        { "Blank", " \t\r\n", 1 },
        { "Brackets", std::string(50000, '('), 1 },
        { "Powers", Repeat("a^(", 15000) + "b", 1 },
        { "Sum", Repeat("a+", 30000) + "a", 1 },
        { "Fractions", Repeat("1/(1+", 10000) + "x", 1 },
        { "Roots", Repeat("sqr(", 15000) + "x", 1 },
        { "Keywords", Repeat("brace(", 10900), 1 },
        { "Signs", std::string(60000, '-'), 1 },
        { "AllBytes", AllBytes(), 1 },
        { "AllBytesOfAName", "str(" + AllBytes(), 1 },
        { "NulInside", std::string("a\0+b", 4), 1 },
        { "Longest", std::string(65534, 'a'), 1 },
        { "TooLong", std::string(65535, 'a'), 0 },
        { "MuchTooLong", std::string(70000, 'a'), 0 },
    };
    for (const CInput& input : aInputs)
    {
        SCOPED_TRACE(input.pszName);
        RunInSmallThread(
            [&]
            {
                CFormulaOut formula;
                const CString strText(input.strText.data(), static_cast<int>(input.strText.size()));
                EXPECT_EQ(formula.FormTree(strText), input.nFormed);
                EXPECT_EQ(formula.IsRootNodeNULL(), 1 - input.nFormed);
                EXPECT_EQ(formula.WriteFormulaToWMF(File("x.wmf")), 1);
                formula.ResetTree();
            });
        EXPECT_EQ(TakeMessages().size(), input.nFormed ? 0U : 1U);
    }
}
}  // namespace
