// What the system may do is no failure, and what it fails with is told.
#include "ORLIX/ORLIXUtil/FileReplacement.h"
#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TestFolder.h"
#include "io-faults/FaultySystem.h"

#include <cerrno>

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;
using orlix::test::FaultySystem;

namespace {

const std::string g_old = "what was there before";

/// Pages so large that the writer has to read back where it has to link them.
ImagePtr stack()
{
    return filledImage(*geometry3d(eImageBufferType::UInt8, 400, 300, 3), 1);
}

class IoFaultsTest : public ::testing::Test
{
protected:
    void SetUp() override { orlix::test::system() = {}; }
    void TearDown() override { orlix::test::system() = {}; }
};

} // namespace

TEST_F(IoFaultsTest, ShortAndInterruptedTransfersAreGoneOnWith)
{
    const TestFolder folder;
    const ImagePtr image = stack(), slice = filledImage(*geometry2d(eImageBufferType::UInt8, 400, 300), 2);
    WriteOptions options;
    options.compression = eTiffCompression::eDeflate;
    orlix::test::system() = {.bInterrupts = true, .bShort = true};
    ASSERT_NO_THROW(writeImage(folder / "a.tif", image));
    ASSERT_NO_THROW(writeImage(folder / "deflate.tif", image, options));
    ASSERT_NO_THROW(writeImage(folder / "a.png", slice));
    const ImagePtr plain = readImage(folder / "a.tif"), deflate = readImage(folder / "deflate.tif"),
                   png = readImage(folder / "a.png");
    orlix::test::system() = {};
    EXPECT_TRUE(areSame(*image, *plain));
    EXPECT_TRUE(areSame(*image, *deflate));
    EXPECT_TRUE(areSame(*slice, *png));
    EXPECT_TRUE(areSame(*image, *readImage(folder / "a.tif")));
}

TEST_F(IoFaultsTest, SoAreWritesOfOtherFiles)
{
    const TestFolder folder;
    std::string text;
    for (int i = 0; i < 10000; ++i) {
        text += std::to_string(i);
    }
    FileReplacement replacement((folder / "a.txt").string());
    ASSERT_TRUE(replacement.open());
    orlix::test::system() = {.bInterrupts = true, .bShort = true};
    const auto written = replacement.write(text.data(), text.size());
    orlix::test::system() = {};
    EXPECT_TRUE(written) << written.getMessage();
    EXPECT_TRUE(replacement.commit());
    EXPECT_TRUE(text == contentOf(folder / "a.txt"));
}

TEST_F(IoFaultsTest, AReadBackThatFailsIsTold)
{
    const TestFolder folder;
    putContent(folder / "a.tif", g_old);
    orlix::test::system().readError = EIO;
    EXPECT_TRUE(contains(failureOf([&] { writeImage(folder / "a.tif", stack()); }), "(Input/output error)"));
    EXPECT_EQ(g_old, contentOf(folder / "a.tif"));
    EXPECT_EQ(std::vector<std::string>{"a.tif"}, folder.getNames());
}

TEST_F(IoFaultsTest, ADiskThatDoesNotTakeTheContentIsTold)
{
    const TestFolder folder;
    for (const char* const name : {"a.tif", "a.png"}) {
        putContent(folder / name, g_old);
        const ImagePtr image = filledImage(*geometry2d(eImageBufferType::UInt8, 10, 10), 1);
        orlix::test::system().syncError = ENOSPC;
        EXPECT_TRUE(contains(failureOf([&] { writeImage(folder / name, image); }),
                             "can't be written (No space left on device); what was there before is unchanged"));
        EXPECT_EQ(g_old, contentOf(folder / name));
        WriteOptions options;
        options.bSync = false;
        EXPECT_NO_THROW(writeImage(folder / name, image, options));
        orlix::test::system() = {};
        EXPECT_TRUE(areSame(*image, *readImage(folder / name)));
    }
    EXPECT_EQ((std::vector<std::string>{"a.png", "a.tif"}), folder.getNames());
}

TEST_F(IoFaultsTest, ContentIsOnTheDiskBeforeItIsRenamedAndTheFolderAfter)
{
    const TestFolder folder;
    writeImage(folder / "a.tif", stack());
    EXPECT_EQ("sync rename sync ", orlix::test::system().events);
    orlix::test::system() = {};
    WriteOptions options;
    options.bSync = false;
    writeImage(folder / "a.tif", stack(), options);
    EXPECT_EQ("rename ", orlix::test::system().events);
}

// A file system that has nothing to wait for says EINVAL.
TEST_F(IoFaultsTest, AFileSystemWithoutSynchronisationIsNoFailure)
{
    const TestFolder folder;
    orlix::test::system().syncError = EINVAL;
    EXPECT_NO_THROW(writeImage(folder / "a.tif", stack()));
    EXPECT_TRUE(areSame(*stack(), *readImage(folder / "a.tif")));
}

TEST_F(IoFaultsTest, TheCurrentFolderIsSynchronisedToo)
{
    const TestFolder folder;
    const auto before = boost::filesystem::current_path();
    boost::filesystem::current_path(folder.getPath());
    EXPECT_NO_THROW(writeImage("a.tif", stack()));
    boost::filesystem::current_path(before);
    EXPECT_EQ("sync rename sync ", orlix::test::system().events);
}
