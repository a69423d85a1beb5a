// Where fonts come from, and how many of them are kept.
#include "platform/gdi/linux/fonts/font_files.h"
#include "platform/gdi/dc.h"
#include "platform/gdi/linux/fonts/font_cache.h"
#include "platform/gdi/linux/fonts/font_face.h"
#include "platform/gdi/test_fonts.h"

#include "native/build_machine.h"
#include "test_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace
{

CSize Extent(const LOGFONTA& font, const char* pszText)
{
    CClientDC dc(nullptr);
    CUseFont use(dc, font);
    return dc.GetOutputTextExtent(pszText);
}

}  // namespace

TEST(FontFiles, TheCharacterSetPlaysNoPart)
{
    LOGFONTA font = FontOf("Arial", -60);
    const CSize extent = Extent(font, "Hamburg \xE4\x80");
    font.lfCharSet = SYMBOL_CHARSET;
    EXPECT_EQ(Extent(font, "Hamburg \xE4\x80"), extent);
}

TEST(FontFiles, OtherNamesOfAFaceAreTheSameWhateverThePitch)
{
    const std::pair<const char*, std::vector<const char*>> aFaces[] = {
        { "Times New Roman", { "Times", "Liberation Serif" } },
        { "Arial", { "Helvetica", "Liberation Sans", "System", "MS Sans Serif", "MS Shell Dlg" } },
        { "Courier New", { "Courier", "Liberation Mono", "Terminal", "Fixedsys" } },
    };
    for (const auto& [pszFace, others] : aFaces)
    {
        for (const char* pszOther : others)
        {
            for (const BYTE nPitch : { FIXED_PITCH, FF_ROMAN })
            {
                LOGFONTA font = FontOf(pszOther, -10);
                font.lfPitchAndFamily = nPitch;
                EXPECT_EQ(FindFontFace(font), FindFontFace(FontOf(pszFace, -10))) << pszOther;
            }
        }
    }
}

TEST(FontFiles, TheSystemIsAskedByItsOwnRules)
{
    EXPECT_TRUE(FindSystemFont("URW Gothic", true, false).value().m_bBold);  // its "Demi"
    EXPECT_TRUE(FindSystemFont("Nimbus Roman", false, true).value().m_bItalic);
    EXPECT_EQ(FindAnySystemFont("Arial", true, true).value().m_strFile,
              FindSystemFont("Liberation Sans", true, true).value().m_strFile);
}

TEST(FontFiles, ThousandsOfSizesChangeNothingAndDoNotFillTheMemory)
{
    const CSize before = Extent(FontOf("Symbol", -30), "\xD6\xE5");
    CClientDC dc(nullptr);
    const CUseFont held(dc, FontOf("Arial", -33));
    const CSize heldBefore = dc.GetOutputTextExtent("held");
    for (int nSize = 1; nSize <= 5000; ++nSize)
    {
        Extent(FontOf("Times", -nSize, nSize % 7), "x");
        ASSERT_LE(CFontCache::Count(), CFontCache::FONT_LIMIT);
    }
    EXPECT_EQ(dc.GetOutputTextExtent("held"), heldBefore);
    EXPECT_EQ(Extent(FontOf("Symbol", -30), "\xD6\xE5"), before);
}

TEST(FontFiles, TheListNamesTheFilesBesideTheLibrary)
{
    auto list = ListFontFaces();
    ASSERT_EQ(list.size(), 14u);
    EXPECT_EQ(list.front().first, "Times New Roman");
    for (const auto& [strFace, strFile] : list)
        EXPECT_TRUE(std::filesystem::exists(strFile)) << strFace;
}

namespace
{
constexpr char s_szWithoutFonts[] = "MIVORA_TEST_WITHOUT_FONTS";

void ExpectSizesWithoutFonts()
{
    ASSERT_TRUE(FontFolder().empty());
    for (const char* pszFace : { "Times New Roman", "Symbol", "Nobody Has This One" })
    {
        EXPECT_EQ(Extent(FontOf(pszFace, -100), "abc"), CSize(150, 111));
        EXPECT_EQ(Extent(FontOf(pszFace, -100, 0, 700, true), "abc").cy, 111);
    }
    for (const auto& [strFace, strFile] : ListFontFaces())
        EXPECT_EQ(strFile, "") << strFace;
}
}  // namespace

// Runs itself again, as a program that finds no font at all.
TEST(FontFiles, WithoutAnyFontTextStillHasASize)
{
    if (std::getenv(s_szWithoutFonts) != nullptr)
        return ExpectSizesWithoutFonts();
    const CTestFolder folder;
    std::filesystem::create_directory(folder.File("deep"));
    std::filesystem::copy_file("/proc/self/exe", folder.File("deep/program"));
    std::ofstream(folder.File("fonts.conf"))
        << "<fontconfig><cachedir>" << folder.Path().string() << "</cachedir></fontconfig>";
    const CCommandResult result = RunCommand(
        std::string(s_szWithoutFonts) + "=1 FONTCONFIG_FILE=" + folder.File("fonts.conf") + ' ' +
        folder.File("deep/program") + " --gtest_filter=*WithoutAnyFont*");
    const std::string& strTold = result.m_strOutput;
    EXPECT_EQ(result.m_nStatus, 0) << strTold;
    EXPECT_NE(strTold.find("1 test"), strTold.npos) << strTold;
    EXPECT_NE(strTold.find("\"Symbol\""), strTold.npos) << strTold;
    EXPECT_EQ(strTold.find("\"Symbol\""), strTold.rfind("\"Symbol\"")) << "told twice";
}
