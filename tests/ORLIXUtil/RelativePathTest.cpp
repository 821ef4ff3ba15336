// Cutting a source path behind a known folder.
#include "ORLIX/ORLIXUtil/RelativePath.h"

#include <gtest/gtest.h>

namespace orlix {
namespace {

std::string cut(const std::string& path, const std::string& root)
{
    return getRelativeFromRoot(path, root).string();
}

TEST(RelativePath, isThePartBehindTheRoot)
{
    EXPECT_EQ(cut("/home/me/include/public/ORLIXIPL/CopyImg/CopyImgLvl1.h", "include/public"),
              "ORLIXIPL/CopyImg/CopyImgLvl1.h");
    EXPECT_EQ(cut("include/private/A.h", "include/private"), "A.h");
    EXPECT_EQ(cut("/a/b/c", "/a"), "b/c");
    EXPECT_EQ(cut("/a/b/c", "b"), "c");
}

TEST(RelativePath, isEmptyWithoutTheRoot)
{
    EXPECT_EQ(cut("/home/me/include/private/A.h", "include/public"), "");
    EXPECT_EQ(cut("/home/me/include/A.h", "include/public"), "");
    EXPECT_EQ(cut("/home/me/a/include/b/public/A.h", "include/public"), "");
    EXPECT_EQ(cut("", "include/public"), "");
    EXPECT_EQ(cut("/a/b", ""), "");
    EXPECT_EQ(cut("/x/a/b", "/a"), "");
}

TEST(RelativePath, comparesWholeFolderNames)
{
    EXPECT_EQ(cut("/home/myinclude/public/A.h", "include/public"), "");
    EXPECT_EQ(cut("/home/include/publicly/A.h", "include/public"), "");
}

TEST(RelativePath, isEmptyForTheRootItself)
{
    EXPECT_EQ(cut("/home/include/public", "include/public"), "");
}

TEST(RelativePath, takesTheLastOfSeveralRoots)
{
    EXPECT_EQ(cut("/src/include/public/orlix/include/public/A.h", "include/public"), "A.h");
}

TEST(RelativePath, seesThroughOtherSpellings)
{
    EXPECT_EQ(cut("/home/./include//src/../public/B/./A.h", "include/public/"), "B/A.h");
}

} // namespace
} // namespace orlix
