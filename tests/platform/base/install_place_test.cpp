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

// A folder with an installation that has the file.
fs::path Install(const CTestFolder& prefix)
{
    const fs::path file = prefix.Path() / "share" / "mivora-test" / "here";
    fs::create_directories(file);
    return file;
}
}  // namespace

TEST(InstallPlace, TheFunctionComesAheadOfTheEnvironmentAndThatOfTheBuild)
{
    const CTestFolder aFolders[3];
    const auto& [set, environment, built] = aFolders;
    const fs::path aFiles[] = { Install(set), Install(environment), Install(built) };
    EXPECT_EQ(BesideModule({ FILE_NAME }), fs::path());
    AfxSetBuiltInstallPrefix(built.Path().string().c_str());
    EXPECT_EQ(BesideModule({ "nothing", FILE_NAME }), aFiles[2]);
    SetEnvironment("MIVORA_PREFIX", environment.Path().string());
    EXPECT_EQ(BesideModule({ FILE_NAME }), aFiles[1]);
    AfxSetInstallPrefix(set.Path().string().c_str());
    EXPECT_EQ(BesideModule({ FILE_NAME }), aFiles[0]);
    // A place that has it not is passed over.
    fs::remove_all(aFiles[0]);
    EXPECT_EQ(BesideModule({ FILE_NAME }), aFiles[1]);
    AfxSetInstallPrefix(nullptr);
    SetEnvironment("MIVORA_PREFIX", "");
    EXPECT_EQ(BesideModule({ FILE_NAME }), aFiles[2]);
    AfxSetBuiltInstallPrefix("");
}
