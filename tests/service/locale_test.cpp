// Files do not depend on the host's locale.
#include <clocale>

#include "native/build_machine.h"
#include "service/service_helpers.h"

namespace
{
class CLocaleTest : public CServiceTest
{
protected:
    ~CLocaleTest() override { std::setlocale(LC_ALL, "C"); }
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
    ASSERT_TRUE(SetCommaLocale(Folder()));
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
