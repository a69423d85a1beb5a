// Files do not depend on the host's locale.
#include <clocale>

#include "native/build_machine.h"
#include "service/service_helpers.h"

namespace
{
using CLocaleTest = CServiceTest;

TEST_F(CLocaleTest, OutputsAndNumbersAreTheSame)
{
    CFormulaOut formula;
    const auto WriteAll = [&](const std::string& strName)
    {
        formula.FormTree("3.25*sqr(x)");
        formula.WriteFormulaToWMF(File(strName + ".wmf"));
        formula.m_Tree.WriteBitmapFile(File(strName + ".bmp"));
        formula.SaveToFML(File(strName + ".fml"));
    };
    WriteAll("plain");
    ASSERT_TRUE(SetCommaLocale(Folder()));
    WriteAll("comma");
    for (const std::string strExtension : { ".wmf", ".bmp", ".fml" })
    {
        SCOPED_TRACE(strExtension);
        const std::string strPlain = ReadWhole(File("plain" + strExtension));
        EXPECT_GT(strPlain.size(), 100U);
        EXPECT_EQ(strPlain, ReadWhole(File("comma" + strExtension)));
    }
    WORD nPosition = 0;
    CString strMessage;
    EXPECT_EQ(formula.m_Parser.Calculation("1.5*2", 0, &nPosition, &strMessage), 3.0);
    EXPECT_EQ(nPosition, 0);
    std::setlocale(LC_ALL, "C");
}
}  // namespace
