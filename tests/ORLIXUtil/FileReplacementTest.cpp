// Replacing a file as a whole, and leaving it alone when that fails.
#include "ORLIX/ORLIXUtil/FileReplacement.h"

#include "ORLIXUtil/FileReplacementFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <memory>
#include <vector>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orlix {
namespace {

using orlix::testing::FileReplacementFolder;
using orlix::testing::g_nobody;
namespace fs = std::filesystem;

TEST_F(FileReplacementFolder, putsTheNewContentInPlaceAtTheEnd)
{
    put(file("a"), "old");
    FileReplacement replacement(file("a"));
    ASSERT_TRUE(replacement.open());
    ASSERT_TRUE(replacement.write("new ", 4));
    ASSERT_TRUE(replacement.write("text", 4));
    EXPECT_EQ(get(file("a")), "old");
    EXPECT_EQ(fs::path(replacement.getTemporaryFile()).parent_path(), m_folder);
    ASSERT_TRUE(replacement.commit());
    EXPECT_EQ(get(file("a")), "new text");
    EXPECT_EQ(nbFiles(), 1);
}

TEST_F(FileReplacementFolder, makesAFileThatWasNotThere)
{
    FileReplacement replacement(file("a"));
    ASSERT_TRUE(replacement.open());
    EXPECT_FALSE(fs::exists(file("a")));
    ASSERT_TRUE(replacement.commit());
    EXPECT_EQ(get(file("a")), "");
    EXPECT_EQ(nbFiles(), 1);
}

TEST_F(FileReplacementFolder, takesWhatIsWrittenByPath)
{
    FileReplacement replacement(file("a"));
    ASSERT_TRUE(replacement.open());
    put(replacement.getTemporaryFile(), "by path");
    ASSERT_TRUE(replacement.commit());
    EXPECT_EQ(get(file("a")), "by path");
}

TEST_F(FileReplacementFolder, leavesNothingBehindUnlessCommitted)
{
    put(file("a"), "old");
    {
        FileReplacement replacement(file("a"));
        ASSERT_TRUE(replacement.open());
        ASSERT_TRUE(replacement.write("new", 3));
    }
    EXPECT_EQ(get(file("a")), "old");
    EXPECT_EQ(nbFiles(), 1);
}

TEST_F(FileReplacementFolder, removesAllTemporaryFilesOfTheProcessAtOnce)
{
    put(file("a"), "old");
    put(file("other.tmp"), "not of this process");
    FileReplacement a(file("a")), b(file("b")), committed(file("c"));
    ASSERT_TRUE(committed.open());
    const std::string formerName = committed.getTemporaryFile();
    ASSERT_TRUE(committed.commit());
    put(formerName, "somebody else's by now");
    ASSERT_TRUE(a.open());
    ASSERT_TRUE(b.open());
    EXPECT_EQ(nbFiles(), 6);
    FileReplacement::removeTemporaryFiles();
    EXPECT_EQ(nbFiles(), 4);
    EXPECT_FALSE(fs::exists(a.getTemporaryFile()));
    EXPECT_FALSE(fs::exists(b.getTemporaryFile()));
    EXPECT_EQ(get(formerName), "somebody else's by now");
    EXPECT_FALSE(a.commit());
    EXPECT_EQ(get(file("a")), "old");
}

TEST_F(FileReplacementFolder, countsOnlyThoseThatAreOpenAtATime)
{
    for (int i = 0; i < 100; ++i) {
        FileReplacement dropped(file("a"));
        ASSERT_TRUE(dropped.open());
        ASSERT_TRUE(dropped.open());
    }
    std::vector<std::unique_ptr<FileReplacement>> many;
    for (int i = 0; i < 33; ++i) {
        many.push_back(std::make_unique<FileReplacement>(file("a")));
        ASSERT_TRUE(many.back()->open());
    }
    FileReplacement::removeTemporaryFiles();
    EXPECT_EQ(nbFiles(), 1);
    ASSERT_TRUE(many.back()->write("new", 3));
    EXPECT_TRUE(many.back()->commit()); // the one that found no place
    EXPECT_EQ(get(file("a")), "new");
}

TEST_F(FileReplacementFolder, makesTheFileThatALinkNames)
{
    fs::create_directory(m_folder / "sub");
    fs::create_symlink("sub/second", file("first"));
    fs::create_symlink("../a", m_folder / "sub/second");
    FileReplacement replacement(file("first"));
    ASSERT_TRUE(replacement.open());
    ASSERT_TRUE(replacement.write("new", 3));
    ASSERT_TRUE(replacement.commit());
    EXPECT_TRUE(fs::is_symlink(file("first")));
    EXPECT_TRUE(fs::is_symlink(m_folder / "sub/second"));
    EXPECT_EQ(get(file("a")), "new");
}

TEST_F(FileReplacementFolder, refusesLinksThatRunInACircle)
{
    fs::create_symlink("b", file("a"));
    fs::create_symlink("a", file("b"));
    EXPECT_FALSE(FileReplacement(file("a")).open());
    EXPECT_TRUE(fs::is_symlink(file("a")));
    EXPECT_EQ(nbFiles(), 2);
}

TEST_F(FileReplacementFolder, leavesTheOldContentUnderOtherNames)
{
    put(file("a"), "old");
    fs::create_hard_link(file("a"), file("b"));
    FileReplacement replacement(file("a"));
    ASSERT_TRUE(replacement.open());
    ASSERT_TRUE(replacement.write("new", 3));
    ASSERT_TRUE(replacement.commit(FileReplacement::eSync::no));
    EXPECT_EQ(get(file("a")), "new");
    EXPECT_EQ(get(file("b")), "old");
}

TEST_F(FileReplacementFolder, followsALink)
{
    put(file("a"), "old");
    fs::create_symlink(file("a"), file("link"));
    FileReplacement replacement(file("link"));
    ASSERT_TRUE(replacement.open());
    ASSERT_TRUE(replacement.write("new", 3));
    ASSERT_TRUE(replacement.commit());
    EXPECT_TRUE(fs::is_symlink(file("link")));
    EXPECT_EQ(get(file("a")), "new");
}

TEST_F(FileReplacementFolder, takesTheLongestNameThatAFileCanHave)
{
    const std::string longest = file(std::string(255, 'n'));
    FileReplacement replacement(longest);
    ASSERT_TRUE(replacement.open());
    EXPECT_TRUE(replacement.commit());
    EXPECT_TRUE(fs::exists(longest));
}

TEST_F(FileReplacementFolder, refusesWhatIsNoFile)
{
    EXPECT_EQ(FileReplacement(m_folder.string()).open().getMessage(),
              "File " + m_folder.string() +
                  " can't be written: Is a directory. It is as it was before: check its folder, its permissions and "
                  "the free space");
    EXPECT_FALSE(FileReplacement("/dev/full").open());
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_FALSE(FileReplacement("").open());
}

TEST_F(FileReplacementFolder, tellsTheSystemsNumberOfAnError)
{
    FileReplacement folder(m_folder.string()), device("/dev/full");
    EXPECT_FALSE(folder.open());
    EXPECT_EQ(folder.getSystemError(), EISDIR);
    EXPECT_FALSE(device.open());
    EXPECT_EQ(device.getSystemError(), EINVAL);
}

TEST_F(FileReplacementFolder, takesAnotherNameWhereTheTemporaryOneIsTaken)
{
    FileReplacement first(file("a")), second(file("b"));
    ASSERT_TRUE(first.open());
    const std::string name = first.getTemporaryFile();
    const std::size_t number = name.rfind('-') + 1;
    const std::string next =
        name.substr(0, number) + std::to_string(std::stoul(name.substr(number)) + 1) + name.substr(name.rfind('.'));
    put(next, "somebody else's");
    ASSERT_TRUE(second.open());
    EXPECT_NE(second.getTemporaryFile(), next);
    EXPECT_TRUE(second.commit());
    EXPECT_EQ(get(next), "somebody else's");
}

TEST_F(FileReplacementFolder, refusesAMissingFolder)
{
    const auto result = FileReplacement(file("missing/a")).open();
    EXPECT_FALSE(result);
    EXPECT_NE(result.getMessage().find("No such file or directory"), std::string::npos);
}

TEST_F(FileReplacementFolder, refusesAReadOnlyFile)
{
    put(file("a"), "old");
    ASSERT_EQ(chmod(file("a").c_str(), 0444), 0);
    ASSERT_EQ(chmod(m_folder.c_str(), 0777), 0);
    // The superuser may write everywhere, so the test steps down for a moment.
    const uid_t user = geteuid();
    ASSERT_TRUE(user != 0 || seteuid(g_nobody) == 0);
    const auto opened = FileReplacement(file("a")).open();
    ASSERT_TRUE(user != 0 || seteuid(user) == 0);
    EXPECT_FALSE(opened);
    EXPECT_NE(opened.getMessage().find("Permission denied"), std::string::npos) << opened.getMessage();
    EXPECT_EQ(get(file("a")), "old");
    EXPECT_EQ(nbFiles(), 1);
}

TEST_F(FileReplacementFolder, keepsTheOldFileWhenThereIsNoRoom)
{
    put(file("a"), "old");
    // A limit on the size of files fails as a full disk does, once its signal is ignored.
    rlimit before = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limited = {1000, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limited), 0);
    FileReplacement replacement(file("a"));
    const auto opened = replacement.open();
    const std::string text(4000, 'x');
    const auto written = replacement.write(text.data(), text.size());
    const auto committed = replacement.commit();
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_TRUE(opened);
    EXPECT_FALSE(written);
    EXPECT_NE(written.getMessage().find("File too large"), std::string::npos);
    EXPECT_FALSE(committed);
    EXPECT_EQ(get(file("a")), "old");
    EXPECT_EQ(nbFiles(), 1);
}

} // namespace
} // namespace orlix
