// Files do not depend on the host's locale. The test makes the locale that it needs: German has a
// comma for the decimal point.
#include <clocale>
#include <cstdlib>

#include "service/service_helpers.h"

namespace
{
class CLocaleTest : public CServiceTest
{
protected:
    ~CLocaleTest() override { std::setlocale(LC_ALL, "C"); }

    void MakeLocale()
    {
        const std::string strFolder = m_folder.string();
        const std::string strCommand =
            "localedef -i de_DE -f UTF-8 '" + strFolder + "/de_DE.UTF-8' >/dev/null 2>&1";
        // A warning is status 1: what counts is whether the locale works.
        [[maybe_unused]] const int nStatus = std::system(strCommand.c_str());
        setenv("LOCPATH", strFolder.c_str(), 1);
        ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr) << "localedef made no locale";
        ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    }
};

TEST_F(CLocaleTest, OutputsAndNumbersAreTheSame)
{
    CFormulaOut formula;
    const auto WriteAll = [&](const std::string& strName)
    {
        formula.FormTree("3.25*sqr(x)");
        formula.WriteFormulaToWMF(File((strName + ".wmf").c_str()));
        formula.m_Tree.WriteBitmapFile(File((strName + ".bmp").c_str()));
        formula.SaveToFML(File((strName + ".fml").c_str()));
    };
    WriteAll("plain");
    MakeLocale();
    WriteAll("comma");
    for (const char* pszExtension : { ".wmf", ".bmp", ".fml" })
    {
        SCOPED_TRACE(pszExtension);
        const std::string strPlain = ReadWhole(File((std::string("plain") + pszExtension).c_str()));
        EXPECT_GT(strPlain.size(), 100U);
        EXPECT_EQ(strPlain, ReadWhole(File((std::string("comma") + pszExtension).c_str())));
    }
    WORD nPosition = 0;
    CString strMessage;
    EXPECT_EQ(formula.m_Parser.Calculation("1.5*2", 0, &nPosition, &strMessage), 3.0);
    EXPECT_EQ(nPosition, 0);
}
}  // namespace
