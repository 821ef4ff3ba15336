// What a file keeps beside its content when it is replaced: owner, group, mode, extended attributes.
#include "ORLIX/ORLIXUtil/FileReplacement.h"

#include "ORLIXUtil/FileReplacementFolder.h"

#include <vector>

#include <grp.h>
#include <sys/stat.h>
#include <sys/xattr.h>

namespace orlix {
namespace {

using orlix::testing::FileReplacementFolder;
using orlix::testing::g_nobody;
namespace fs = std::filesystem;

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
    ASSERT_EQ(chmod(file("a").c_str(), 07672), 0);
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
    EXPECT_EQ(status.st_mode & 07777, 01622u);
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

TEST_F(FileReplacementFolder, keepsTheGroupWhereTheOwnerCannotBeKept)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "only the superuser can make a file of somebody else's";
    }
    constexpr gid_t g_sharedGroup = 4711;
    put(file("a"), "old");
    ASSERT_EQ(chown(file("a").c_str(), 4712, g_sharedGroup), 0);
    ASSERT_EQ(chmod(file("a").c_str(), 06662), 0);
    ASSERT_EQ(chmod(m_folder.c_str(), 0777), 0);
    std::vector<gid_t> before(static_cast<std::size_t>(getgroups(0, nullptr)));
    ASSERT_GE(getgroups(static_cast<int>(before.size()), before.data()), 0);
    ASSERT_EQ(setgroups(1, &g_sharedGroup), 0);
    ASSERT_EQ(seteuid(g_nobody), 0);
    FileReplacement replacement(file("a"));
    const auto opened = replacement.open();
    const auto committed = replacement.commit();
    ASSERT_EQ(seteuid(0), 0);
    ASSERT_EQ(setgroups(before.size(), before.data()), 0);
    EXPECT_TRUE(opened);
    EXPECT_TRUE(committed);
    struct stat status = {};
    ASSERT_EQ(stat(file("a").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, g_nobody);
    EXPECT_EQ(status.st_gid, g_sharedGroup);
    EXPECT_EQ(status.st_mode & 07777, 02662u) << "runs as nobody else, and the group has what it had";
}

// The rights were given to the old content.
TEST_F(FileReplacementFolder, givesTheNewContentNoCapabilities)
{
    put(file("a"), "old");
    const unsigned char capabilities[20] = {1, 0, 0, 2, 0, 4}; // version 2, one right, in effect
    if (setxattr(file("a").c_str(), "security.capability", capabilities, sizeof capabilities, 0) != 0) {
        GTEST_SKIP() << "only the superuser can give rights to a program";
    }
    FileReplacement replacement(file("a"));
    ASSERT_TRUE(replacement.open());
    ASSERT_TRUE(replacement.commit());
    EXPECT_EQ(getxattr(file("a").c_str(), "security.capability", nullptr, 0), -1);
}

} // namespace
} // namespace orlix
