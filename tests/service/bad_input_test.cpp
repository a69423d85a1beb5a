// Texts that are deep, long or full of odd bytes go the whole way, from the parse to the metafile,
// in a thread with a small stack.
#include <new>
#include <numeric>
#include <tuple>

#include "parser/small_thread.h"
#include "platform/base/exception.h"
#include "service/service_helpers.h"

namespace
{
std::string AllBytes()
{
    std::string str(256, '\0');
    std::iota(str.begin(), str.end(), '\0');
    return str;
}

using CBadInputTest = CServiceTest;

TEST_F(CBadInputTest, GoesTheWholeWayOrIsRefused)
{
    const struct
    {
        const char* pszName;
        std::string strText;
        int nFormed;
    } aInputs[] = {
        { "Empty", "", 1 },
        { "Blank", " \t\r\n", 1 },
        { "Powers", Repeat("a^(", 15000) + "b", 1 },
        { "Sum", Repeat("a+", 30000) + "a", 1 },
        { "Fractions", Repeat("1/(1+", 10000) + "x", 1 },
        { "Roots", Repeat("sqr(", 15000) + "x", 1 },
        { "Signs", std::string(60000, '-'), 1 },
        { "AllBytes", AllBytes(), 1 },
        { "AllBytesOfAName", "str(" + AllBytes(), 1 },
        { "NulInside", std::string("a\0+b", 4), 1 },
        { "Longest", std::string(65534, 'a'), 1 },
        { "TooLong", std::string(65535, 'a'), 0 },
        { "MuchTooLong", std::string(70000, 'a'), 0 },
    };
    for (const auto& input : aInputs)
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

TEST_F(CBadInputTest, TheCFunctionTakesNullForAnything)
{
    const CString strFile = File("x.wmf");
    float aSizes[2];
    const std::tuple<const char*, const char*, const char*, float*, float*> aCases[] = {
        { "Formula", nullptr, strFile, &aSizes[0], &aSizes[1] },
        { "Path", "a", nullptr, &aSizes[0], &aSizes[1] },
        { "Width", "a", strFile, nullptr, &aSizes[1] },
        { "Height", "a", strFile, &aSizes[0], nullptr },
        { "All", nullptr, nullptr, nullptr, nullptr },
    };
    for (const auto& [pszName, pszFormula, pszPath, pfWidth, pfHeight] : aCases)
    {
        SCOPED_TRACE(pszName);
        aSizes[0] = aSizes[1] = -1;
        EXPECT_EQ(StringToEMFFormula(pszFormula, pszPath, pfWidth, pfHeight), 1);
        EXPECT_EQ(aSizes[0], pfWidth ? 0 : -1);
        EXPECT_EQ(aSizes[1], pfHeight ? 0 : -1);
        EXPECT_EQ(TakeMessages(), Messages{ "An argument is not valid." });
    }
    EXPECT_TRUE(std::filesystem::is_empty(Folder()));
}

// A host's handler that throws: what it throws has nowhere to go, and nothing else is left behind.
TEST_F(CBadInputTest, TheCFunctionLetsNoExceptionOut)
{
    float fWidth = -1;
    float fHeight = -1;
    const auto call = [&](AFX_MESSAGE_BOX_HANDLER pfnHandler)
    {
        AfxSetMessageBoxHandler(pfnHandler, nullptr);
        EXPECT_EQ(StringToEMFFormula("a", File("x.emf"), &fWidth, &fHeight), 1);
    };
    call([](const char*, unsigned, void*) -> int { throw std::bad_alloc(); });
    call([](const char*, unsigned, void*) -> int { throw 1; });
    call([](const char*, unsigned, void*) -> int { AfxThrowMemoryException(); });
    call([](const char*, unsigned, void*) -> int
         { AfxThrowFileException(CFileException::hardIO); });
    EXPECT_TRUE(std::filesystem::is_empty(Folder()));
}
}  // namespace
