// Replacing a file as a whole, and leaving it alone when that fails.
#include "ORLIX/ORLIXUtil/FileReplacement.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <vector>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace orlix {
namespace {

namespace fs = std::filesystem;

class FileReplacementFolder : public testing::Test
{
protected:
    FileReplacementFolder() : m_folder(fs::temp_directory_path() / ("orlix-replacement-" + std::to_string(getpid())))
    {
        fs::remove_all(m_folder);
        fs::create_directories(m_folder);
    }
    ~FileReplacementFolder() override { fs::remove_all(m_folder); }

    std::string file(const std::string& name) const { return (m_folder / name).string(); }
    static void put(const std::string& path, const std::string& text) { std::ofstream(path) << text; }
    static std::string get(const std::string& path)
    {
        std::ifstream stream(path);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    long nbFiles() const { return std::distance(fs::directory_iterator(m_folder), fs::directory_iterator()); }

    fs::path m_folder;
};

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

TEST_F(FileReplacementFolder, keepsPermissions)
{
    put(file("a"), "old");
    ASSERT_EQ(chmod(file("a").c_str(), 0640), 0);
    FileReplacement replacement(file("a"));
    ASSERT_TRUE(replacement.open());
    ASSERT_TRUE(replacement.commit());
    EXPECT_EQ(fs::status(file("a")).permissions(), static_cast<fs::perms>(0640));
}

TEST_F(FileReplacementFolder, keepsTheNewContentToTheUserUntilItIsInPlace)
{
    for (const mode_t mode : {0600u, 0644u}) {
        put(file("a"), "old");
        ASSERT_EQ(chmod(file("a").c_str(), mode), 0);
        FileReplacement replacement(file("a"));
        ASSERT_TRUE(replacement.open());
        EXPECT_EQ(fs::status(replacement.getTemporaryFile()).permissions(), static_cast<fs::perms>(0600));
        ASSERT_TRUE(replacement.commit());
        EXPECT_EQ(fs::status(file("a")).permissions(), static_cast<fs::perms>(mode));
    }
}

TEST_F(FileReplacementFolder, givesANewFileTheModeThatTheUserAskedFor)
{
    const mode_t before = umask(027);
    FileReplacement replacement(file("a"));
    const auto opened = replacement.open();
    umask(before);
    ASSERT_TRUE(opened);
    ASSERT_TRUE(replacement.commit());
    EXPECT_EQ(fs::status(file("a")).permissions(), static_cast<fs::perms>(0640));
}

constexpr uid_t g_nobody = 65534;

TEST_F(FileReplacementFolder, keepsOwnerAndGroup)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "only the superuser can give a file away";
    }
    put(file("a"), "old");
    ASSERT_EQ(chown(file("a").c_str(), g_nobody, 4711), 0);
    ASSERT_EQ(chmod(file("a").c_str(), 04750), 0);
    FileReplacement replacement(file("a"));
    ASSERT_TRUE(replacement.open());
    ASSERT_TRUE(replacement.commit());
    struct stat status = {};
    ASSERT_EQ(stat(file("a").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, g_nobody);
    EXPECT_EQ(status.st_gid, 4711u);
    EXPECT_EQ(status.st_mode & 07777, 04750u);
}

TEST_F(FileReplacementFolder, givesAnotherGroupNoMoreThanAllHave)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "only the superuser can make a file of somebody else's";
    }
    put(file("a"), "old");
    ASSERT_EQ(chown(file("a").c_str(), 4711, 4711), 0);
    ASSERT_EQ(chmod(file("a").c_str(), 06672), 0);
    ASSERT_EQ(chmod(m_folder.c_str(), 0777), 0);
    ASSERT_EQ(seteuid(g_nobody), 0);
    FileReplacement replacement(file("a"));
    const auto opened = replacement.open();
    const auto committed = replacement.commit();
    ASSERT_EQ(seteuid(0), 0);
    EXPECT_TRUE(opened);
    EXPECT_TRUE(committed);
    struct stat status = {};
    ASSERT_EQ(stat(file("a").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, g_nobody);
    EXPECT_EQ(status.st_mode & 07777, 0622u);
}

TEST_F(FileReplacementFolder, keepsExtendedAttributes)
{
    put(file("a"), "old");
    const std::string note = "kept";
    if (setxattr(file("a").c_str(), "user.note", note.data(), note.size(), 0) != 0) {
        GTEST_SKIP() << "this file system has none";
    }
    ASSERT_EQ(setxattr(file("a").c_str(), "user.empty", "", 0, 0), 0);
    FileReplacement replacement(file("a"));
    ASSERT_TRUE(replacement.open());
    ASSERT_TRUE(replacement.commit());
    char value[16];
    ASSERT_EQ(getxattr(file("a").c_str(), "user.note", value, sizeof value), 4);
    EXPECT_EQ(std::string(value, 4), note);
    EXPECT_EQ(getxattr(file("a").c_str(), "user.empty", value, sizeof value), 0);
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
