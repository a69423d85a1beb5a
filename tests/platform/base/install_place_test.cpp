// Where files of an installation are looked for.
#include "platform/base/install_place.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "native/environment.h"
#include "platform/base/module_path.h"
#include "test_folder.h"

namespace
{
namespace fs = std::filesystem;

constexpr const char* FILE_NAME = "../share/mivora-test/here";

// An installation that has the file.
class CPlace
{
public:
    CPlace() { fs::create_directories(File()); }
    std::string Prefix() const { return m_folder.Path().string(); }
    fs::path File() const { return m_folder.Path() / "share" / "mivora-test" / "here"; }

private:
    CTestFolder m_folder;
};
}  // namespace

TEST(InstallPlace, TheFunctionComesAheadOfTheEnvironmentAndThatOfTheBuild)
{
    const CPlace set;
    const CPlace environment;
    const CPlace built;
    EXPECT_EQ(BesideModule({ FILE_NAME }), fs::path());
    AfxSetBuiltInstallPrefix(built.Prefix().c_str());
    EXPECT_EQ(BesideModule({ "nothing", FILE_NAME }), built.File());
    SetEnvironment("MIVORA_PREFIX", environment.Prefix());
    EXPECT_EQ(BesideModule({ FILE_NAME }), environment.File());
    AfxSetInstallPrefix(set.Prefix().c_str());
    EXPECT_EQ(BesideModule({ FILE_NAME }), set.File());
    // A place that has it not is passed over.
    fs::remove_all(set.File());
    EXPECT_EQ(BesideModule({ FILE_NAME }), environment.File());
    AfxSetInstallPrefix(nullptr);
    SetEnvironment("MIVORA_PREFIX", "");
    EXPECT_EQ(BesideModule({ FILE_NAME }), built.File());
    AfxSetBuiltInstallPrefix("");
}
