// Writes that fail leave the target as it was and nothing beside it.
#include "ORLIXIPL/ORLIXImage/CudaImage.h"
#include "ORLIXImageIO/FilledImages.h"
#include "ORLIXImageIO/TestFiles.h"
#include "ORLIXImageIO/TestFolder.h"
#include "support/SoftwareGpuLayer.h"

#include <boost/make_shared.hpp>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

using namespace orlix;
using namespace orlix::image;
using namespace orlix::image::io;
using namespace orlix::image::io::test;

namespace {

const std::string g_old = "what was there before";

ImagePtr someImage()
{
    return filledImage(*geometry3d(eImageBufferType::UInt8, 300, 200, 4), 1);
}

ImagePtr someSlice()
{
    return filledImage(*geometry2d(eImageBufferType::UInt8, 700, 500), 1);
}

// As user nobody where the tests run as root, whom permissions don't stop. Returns what `work` returned in a process
// of its own.
template <class TWork>
int inChild(TWork&& work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(work());
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

TEST(WriteFailureTest, MisuseIsTold)
{
    const TestFolder folder;
    const auto failure = [&](const std::string& name, const ImageConstPtr& image, const WriteOptions& options = {}) {
        return failureOf([&] { writeImage(folder / name, image, options); });
    };
    EXPECT_TRUE(contains(failure("a.tif", nullptr), "there is no image to write"));
    EXPECT_TRUE(contains(failure("a.bmp", someSlice()),
                         "the ending \".bmp\" names no format that can be written: use .tif, .tiff or .png"));
    EXPECT_TRUE(contains(failure("a", someSlice()), "the ending \"\""));
    EXPECT_TRUE(contains(failure("a.tif", createImage(*geometry2d(eImageBufferType::UInt8, 0, 5))), "0x5x1x1x1 UInt8"));
    EXPECT_TRUE(
        contains(failure("a.png", createImage(*geometry3d(eImageBufferType::UInt8, 5, 5, 0))), "5x5x0x1x1 UInt8"));
    TemporalGeometry two;
    two.initSequence(2);
    const BaseImageGeometry mixed({eImageBufferType::UInt8, eImageBufferType::UInt16}, 4, 4, {}, {}, two);
    EXPECT_TRUE(contains(failure("a.tif", createImage(mixed)), "UInt8/UInt16"));
    WriteOptions options;
    options.channelLayout = eChannelLayout::eRgbSamples;
    EXPECT_TRUE(contains(failure("a.tif", someSlice(), options), "need 3 or 4 channels"));
    options = WriteOptions();
    options.bTiled = true;
    for (const unsigned long size : {0ul, 8ul, 24ul, 65536ul}) {
        options.tileSize = size;
        EXPECT_TRUE(contains(failure("a.tif", someSlice(), options), "but is " + std::to_string(size)));
    }
    EXPECT_TRUE(folder.getNames().empty());
}

TEST(WriteFailureTest, ImagesOnADevice)
{
    const TestFolder folder;
    orlix::testing::SoftwareGpuLayer layer;
    const hard::GpuLayerScope scope(layer);
    const ImagePtr image = toDevice(*someSlice());
    for (const char* const name : {"a.tif", "a.png"}) {
        putContent(folder / name, g_old);
        EXPECT_EQ(failureOf([&] { writeImage(folder / name, image); }),
                  (folder / name).string() + ": the image (700x500x1x1x1 UInt8) is on a GPU, but has to be in the "
                                             "memory of the host: bring it there with toHost first");
        EXPECT_EQ(contentOf(folder / name), g_old);
        writeImage(folder / name, toHost(*image));
    }
}

TEST(WriteFailureTest, EndingsCountInAnyCase)
{
    const TestFolder folder;
    writeImage(folder / "a.TIF", someSlice());
    writeImage(folder / "a.Png", someSlice());
    EXPECT_EQ(eImageFileFormat::eTiff, readImageInfo(folder / "a.TIF").format);
    EXPECT_EQ(eImageFileFormat::ePng, readImageInfo(folder / "a.Png").format);
}

TEST(WriteFailureTest, FoldersThatCantBeWrittenTo)
{
    const TestFolder folder;
    EXPECT_TRUE(contains(failureOf([&] { writeImage(folder / "none/a.tif", someImage()); }),
                         "none (No such file or directory)"));
    boost::filesystem::create_symlink("/dev/full", folder / "full.tif");
    EXPECT_TRUE(
        contains(failureOf([&] { writeImage(folder / "full.tif", someImage()); }), "is a device, pipe or socket"));
    boost::filesystem::remove(folder / "full.tif");
    boost::filesystem::create_directory(folder / "b.tif");
    EXPECT_TRUE(contains(failureOf([&] { writeImage(folder / "b.tif", someImage()); }), "is a folder"));

    putContent(folder / "a.tif", g_old);
    ::chmod(folder.getPath().c_str(), 0555);
    const ImagePtr image = someImage();
    const int result = inChild([&] {
        if (::geteuid() == 0 && ::setuid(65534) != 0) {
            return 2;
        }
        try {
            writeImage(folder / "a.tif", image);
        } catch (const ORLIXImageIOException& exception) {
            return contains(exception.what(), "(Permission denied)") ? 0 : 3;
        }
        return 1;
    });
    ::chmod(folder.getPath().c_str(), 0755);
    EXPECT_EQ(0, result);
    EXPECT_TRUE(contentOf(folder / "a.tif") == g_old);
    EXPECT_EQ(std::vector<std::string>({"a.tif", "b.tif"}), folder.getNames());
}

// The system's limit on the size of a file stands in for a full disk: writing fails after so many bytes.
TEST(WriteFailureTest, FullDisk)
{
    const TestFolder folder;
    const ImagePtr stack = someImage(), slice = someSlice();
    for (const char* const name : {"a.tif", "a.png"}) {
        putContent(folder / name, g_old);
        for (const unsigned long limit : {0ul, 1ul, 1000ul, 100000ul}) {
            const int result = inChild([&] {
                std::signal(SIGXFSZ, SIG_IGN);
                const rlimit bytes = {limit, limit};
                ::setrlimit(RLIMIT_FSIZE, &bytes);
                try {
                    writeImage(folder / name, std::string(name) == "a.png" ? slice : stack);
                } catch (const ORLIXImageIOException& exception) {
                    return contains(exception.what(),
                                    "can't be written (File too large); what was there before is unchanged")
                               ? 0
                               : 3;
                }
                return 1;
            });
            EXPECT_EQ(0, result) << name << limit;
            EXPECT_TRUE(contentOf(folder / name) == g_old);
        }
    }
    EXPECT_EQ(std::vector<std::string>({"a.png", "a.tif"}), folder.getNames());
}

// All of a small file is gathered, and reaches the disk with the last write alone.
TEST(WriteFailureTest, FullDiskAtTheEndOfASmallFile)
{
    const TestFolder folder;
    const ImagePtr image = filledImage(*geometry2d(eImageBufferType::UInt8, 10, 10), 1);
    for (const char* const name : {"a.tif", "a.png"}) {
        writeImage(folder / name, image);
        const unsigned long size = contentOf(folder / name).size();
        putContent(folder / name, g_old);
        for (const unsigned long limit : {0ul, 1ul, size / 2, size - 1}) {
            for (const bool bSync : {true, false}) {
                const int result = inChild([&] {
                    std::signal(SIGXFSZ, SIG_IGN);
                    const rlimit bytes = {limit, limit};
                    ::setrlimit(RLIMIT_FSIZE, &bytes);
                    WriteOptions options;
                    options.bSync = bSync;
                    try {
                        writeImage(folder / name, image, options);
                    } catch (const ORLIXImageIOException& exception) {
                        return contains(exception.what(), "can't be written (File too large)") ? 0 : 3;
                    }
                    return 1;
                });
                EXPECT_EQ(0, result) << name << limit;
                EXPECT_TRUE(contentOf(folder / name) == g_old);
            }
        }
    }
    EXPECT_EQ(std::vector<std::string>({"a.png", "a.tif"}), folder.getNames());
}

TEST(WriteFailureTest, ReadOnlyFilesAreRefused)
{
    const TestFolder folder;
    putContent(folder / "a.tif", g_old);
    ::chmod((folder / "a.tif").c_str(), 0444);
    ::chmod(folder.getPath().c_str(), 0777);
    const ImagePtr image = someSlice();
    const int result = inChild([&] {
        if (::geteuid() == 0 && ::setuid(65534) != 0) {
            return 2;
        }
        try {
            writeImage(folder / "a.tif", image);
        } catch (const ORLIXImageIOException& exception) {
            return contains(exception.what(), "a.tif: must not be written to (Permission denied)") ? 0 : 3;
        }
        return 1;
    });
    EXPECT_EQ(0, result);
    EXPECT_TRUE(contentOf(folder / "a.tif") == g_old);
    EXPECT_EQ(std::vector<std::string>({"a.tif"}), folder.getNames());
}

TEST(WriteFailureTest, StoppingLeavesTheTarget)
{
    const TestFolder folder;
    const ImagePtr stack = someImage(), slice = someSlice();
    for (const char* const name : {"a.tif", "a.png"}) {
        putContent(folder / name, g_old);
        const ImagePtr image = std::string(name) == "a.png" ? slice : stack;
        unsigned calls = 0, all = ~0u;
        for (unsigned allowed = 0; allowed < all; ++allowed) {
            calls = 0;
            WriteOptions options;
            options.progress = [&](unsigned long done, unsigned long known) {
                EXPECT_LE(done, known);
                EXPECT_EQ(image->getSizeZ(), known);
                EXPECT_EQ(2u, folder.getNames().size() - (name[2] == 'p')); // the temporary file is there
                return calls++ < allowed;
            };
            try {
                writeImage(folder / name, image, options);
                all = allowed; // every call was allowed
            } catch (const ORLIXImageIOException& exception) {
                EXPECT_TRUE(contains(exception.what(), "writing was stopped"));
                EXPECT_TRUE(contentOf(folder / name) == g_old);
                EXPECT_EQ(name[2] == 'p' ? 2u : 1u, folder.getNames().size());
            }
        }
        EXPECT_GE(calls, image->getSizeZ());
        EXPECT_TRUE(areSame(*image, *readImage(folder / name)));
    }
}

TEST(WriteFailureTest, ExceptionsOfTheProgressFunctionArrive)
{
    const TestFolder folder;
    WriteOptions options;
    options.progress = [](unsigned long, unsigned long) -> bool { throw std::runtime_error("mine"); };
    EXPECT_THROW(writeImage(folder / "a.tif", someImage(), options), std::runtime_error);
    EXPECT_THROW(writeImage(folder / "a.png", someSlice(), options), std::runtime_error);
    EXPECT_TRUE(folder.getNames().empty());

    writeImage(folder / "a.tif", someImage());
    writeImage(folder / "a.png", someSlice());
    ReadOptions reading;
    reading.progress = options.progress;
    EXPECT_THROW((void)readImage(folder / "a.tif", reading), std::runtime_error);
    EXPECT_THROW((void)readImage(folder / "a.png", reading), std::runtime_error);
}

TEST(WriteFailureTest, ReadingStops)
{
    const TestFolder folder;
    writeImage(folder / "a.tif", someImage());
    writeImage(folder / "a.png", someSlice());
    for (const char* const name : {"a.tif", "a.png"}) {
        unsigned long last = 0, calls = 0, all = 0;
        ReadOptions options;
        options.progress = [&](unsigned long done, unsigned long known) {
            return last = done, all = known, ++calls > 0;
        };
        EXPECT_NO_THROW((void)readImage(folder / name, options));
        EXPECT_EQ(all, last);
        EXPECT_GE(calls, all);
        options.progress = [](unsigned long, unsigned long) { return false; };
        EXPECT_TRUE(contains(failureOf([&] { (void)readImage(folder / name, options); }), "reading was stopped"));
    }
}

TEST(WriteFailureTest, PermissionsAndLinksOfTheTargetStay)
{
    const TestFolder folder;
    putContent(folder / "real.tif", g_old);
    ::chmod((folder / "real.tif").c_str(), 0640);
    boost::filesystem::create_directory(folder / "sub");
    boost::filesystem::create_symlink("../real.tif", folder / "sub/link.tif");
    writeImage(folder / "sub/link.tif", someSlice());
    EXPECT_TRUE(boost::filesystem::is_symlink(folder / "sub/link.tif"));
    EXPECT_TRUE(areSame(*someSlice(), *readImage(folder / "real.tif")));
    struct stat status = {};
    ::stat((folder / "real.tif").c_str(), &status);
    EXPECT_EQ(0640u, status.st_mode & 0777);

    const mode_t mask = ::umask(0);
    ::umask(mask);
    writeImage(folder / "new.tif", someSlice());
    ::stat((folder / "new.tif").c_str(), &status);
    EXPECT_EQ(0666u & ~mask, status.st_mode & 0777);
}

// Written over itself: the pixels were read before.
TEST(WriteFailureTest, AFileCanReplaceItself)
{
    const TestFolder folder;
    writeImage(folder / "a.tif", someImage());
    const ImagePtr image = readImage(folder / "a.tif");
    writeImage(folder / "a.tif", image);
    EXPECT_TRUE(areSame(*image, *readImage(folder / "a.tif")));
}
