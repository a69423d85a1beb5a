// The C interface while memory ends: each allocation of each call fails in turn.
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "capi/c_calls.h"
#include "failing_memory.h"

namespace
{
// The leak check sees what is not given back.
TEST(CCallsWithoutMemory, TellItAndKeepNothing)
{
    const std::string strText = "sqr(x)+sum(mark(x,i,2),i=1,n)/2^greek p";
    const CFormulaHandle formula = FromText(strText);
    const std::string strStored = Answer(mivora_formula_fml, formula.get()).strBytes;
    const std::string strSvg = Picture(formula, "svg").strBytes;
    const std::string strEmf = Picture(formula, "emf").strBytes;

    const mivora_look large{ .struct_size = sizeof large, .points = 20 };
    char* pBytes = nullptr;
    size_t nSize = 0;
    mivora_size size{};
    double dValue = 0;
    const auto end = [&](mivora_status nStatus)
    {
        EXPECT_EQ(pBytes != nullptr, nStatus == MIVORA_OK);
        mivora_free(pBytes);
        pBytes = nullptr;
        return nStatus;
    };
    const auto make = [&](auto function, const std::string& strBytes)
    {
        mivora_formula* pMade = nullptr;
        const mivora_status nStatus = function(strBytes.data(), strBytes.size(), &large, &pMade);
        EXPECT_EQ(pMade != nullptr, nStatus == MIVORA_OK);
        mivora_formula_free(pMade);
        return nStatus;
    };
    const auto paint = [&](const char* pszFormat)
    {
        return end(
            mivora_formula_picture(formula.get(), pszFormat, nullptr, &pBytes, &nSize, &size));
    };
    const auto source = [&](const std::string& strPicture)
    {
        return end(mivora_picture_source(strPicture.data(), strPicture.size(), &pBytes, &nSize));
    };
    std::vector<std::function<mivora_status()>> calls = {
        [&] { return make(mivora_formula_from_text, strText); },
        [&] { return make(mivora_formula_from_fml, strStored); },
        [&] { return mivora_formula_size(formula.get(), nullptr, &size); },
        [&] { return source(strSvg); },
        [&] { return source(strEmf); },
        [&] { return end(mivora_formula_fml(formula.get(), &pBytes, &nSize)); },
        [&] { return end(mivora_formula_text(formula.get(), &pBytes, &nSize)); },
        [&] { return mivora_calculate("2*(3+4)", 7, &dValue); },
#ifndef _WIN32
        [&] { return paint("pdf"); },
#endif
    };
    for (const char* pszFormat : { "svg", "png", "bmp", "emf" })
        calls.push_back([&paint, pszFormat] { return paint(pszFormat); });
    for (int nForm = MIVORA_TREE_JSON; nForm <= MIVORA_FORTRAN; ++nForm)
        calls.push_back(
            [&, nForm]
            {
                return end(mivora_formula_write(formula.get(), static_cast<mivora_form>(nForm),
                                                &pBytes, &nSize));
            });
    for (size_t n = 0; n < 2 * calls.size(); ++n)
    {
        const size_t nCall = n / 2;
        g_bFailOnce = n % 2 != 0;
        SCOPED_TRACE(testing::Message() << nCall << (g_bFailOnce ? " once" : ""));
        ASSERT_EQ(calls[nCall](), MIVORA_OK);  // faces are read once in a process
        int nFailed = 0;
        for (bool bDone = false; !bDone; ++nFailed)
        {
            g_nUntilFailure = nFailed;
            const mivora_status nStatus = calls[nCall]();
            bDone = g_nUntilFailure > 0;
            g_nUntilFailure = -1;
            // A cache can do without what it cannot keep.
            EXPECT_TRUE(nStatus == MIVORA_OK || nStatus == MIVORA_OUT_OF_MEMORY)
                << nFailed << ": " << LastError().message;
            EXPECT_EQ(LastError().message[0] == '\0', nStatus == MIVORA_OK);
        }
        EXPECT_GT(nFailed, 1);
        EXPECT_EQ(calls[nCall](), MIVORA_OK);
    }
    EXPECT_EQ(Picture(formula, "svg").strBytes, strSvg);
}
}  // namespace
