// What files are beside their bytes: links, modes, devices, pipes.
#include <sys/stat.h>
#include <unistd.h>

#include "platform/base/file_case.h"

namespace fs = std::filesystem;

TEST_F(CFileTest, LinksAndModesStay)
{
    const std::string target = Path("target");
    const std::string link = Path("link");
    fs::create_directory(m_folder.Path() / "sub");
    fs::create_symlink("sub/../target", link);
    Save(link, "first");  // the link's end does not exist yet
    EXPECT_EQ(Content(target), "first");
    chmod(target.c_str(), 0640);
    Save(link, "second");
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(Content(target), "second");
    struct stat status;
    ASSERT_EQ(stat(target.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);

    const mode_t nOld = umask(027);
    Save(Path("fresh"), "x");
    umask(nOld);
    ASSERT_EQ(stat(Path("fresh").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);

    // Names of temporaries that are taken are passed over.
    for (int i = 0; i < 500; ++i)
        Put(Path(".mivora-" + std::to_string(getpid()) + "-" + std::to_string(i) + ".tmp"), "x");
    Save(target, "third");
    EXPECT_EQ(Content(target), "third");

    fs::create_symlink("loop", Path("loop"));
    EXPECT_EQ(FileFault([&] { Save(Path("loop"), "x"); }).first, CFileException::badPath);
}

TEST_F(CFileTest, WhatIsNoRegularFileIsWrittenDirectly)
{
    Save("/dev/null", "content");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));

    const std::string pipe = Path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    CFile reader(pipe.c_str(), CFile::modeReadWrite);  // so that nobody waits for the other end
    Save(pipe, "content");
    char aRead[7];
    EXPECT_EQ(reader.Read(aRead, 7), 7U);
    EXPECT_EQ(std::string_view(aRead, 7), "content");
    EXPECT_TRUE(fs::is_fifo(pipe));

    EXPECT_EQ(FileFault([] { Save("/dev/full", "content"); }).first, CFileException::diskFull);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_F(CFileTest, TellsWhatAPathLacks)
{
    ExpectNoneOpens({
        { Path("none/x"), nCreateWrite, CFileException::badPath },
        { Path("none/x"), CFile::modeRead, CFileException::badPath },
        { Path(std::string(300, 'n')), nCreateWrite, CFileException::badPath },
        { "", nCreateWrite, CFileException::fileNotFound },
    });
    EXPECT_EQ(FilesInFolder(), 0U);
}
