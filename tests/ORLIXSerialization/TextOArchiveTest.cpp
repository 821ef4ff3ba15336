// Saving an archive, and what becomes of the target when that fails.
#include "ORLIX/ORLIXSerialization/TextOArchive.h"

#include "ORLIX/ORLIXSerialization/ArchiveSectionManager.h"
#include "ORLIX/ORLIXSerialization/ORLIXSerializationException.h"
#include "ORLIX/ORLIXSerialization/SerializationIItem.h"
#include "ORLIX/ORLIXSerialization/SerializationOItem.h"
#include "ORLIX/ORLIXSerialization/TextIArchive.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include <unistd.h>

namespace orlix {
namespace {

namespace fs = std::filesystem;

class TextOArchiveFolder : public testing::Test
{
protected:
    TextOArchiveFolder() : m_folder(fs::temp_directory_path() / ("orlix-archive-" + std::to_string(getpid())))
    {
        fs::remove_all(m_folder);
        fs::create_directories(m_folder);
    }
    ~TextOArchiveFolder() override { fs::remove_all(m_folder); }

    std::string file(const std::string& name) const { return (m_folder / name).string(); }

    fs::path m_folder;
};

TEST_F(TextOArchiveFolder, savesToAFile)
{
    TextOArchive output;
    output << SerializationOItem<int>("a", 4);
    const auto saved = output.saveToFile(file("archive.xml"));
    ASSERT_TRUE(saved) << saved.getMessage();
    TextIArchive input;
    const auto loaded = input.loadFromFile(file("archive.xml"));
    ASSERT_TRUE(loaded) << loaded.getMessage();
    int value = 0;
    input >> SerializationIItem<int>("a", value);
    EXPECT_EQ(value, 4);
}

TEST_F(TextOArchiveFolder, leavesTheOldFileWhenItFails)
{
    std::ofstream(file("archive.xml")) << "old";
    TextOArchive output;
    output.openSection("unfinished");
    EXPECT_FALSE(output.saveToFile(file("archive.xml")));
    std::ifstream stream(file("archive.xml"));
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(m_folder), fs::directory_iterator()), 1);
}

TEST_F(TextOArchiveFolder, tellsWhyAFileCannotBeWritten)
{
    const auto saved = TextOArchive().saveToFile(file("missing/archive.xml"));
    EXPECT_FALSE(saved);
    EXPECT_EQ(saved.getMessage(), "File " + file("missing/archive.xml") +
                                      " can't be written: No such file or directory. It is as it was before: check its "
                                      "folder, its permissions and the free space");
}

TEST(TextOArchive, savesToAStream)
{
    TextOArchive output;
    output << SerializationOItem<int>("a", 4);
    std::ostringstream stream;
    ASSERT_TRUE(output.saveToStream(stream));
    std::string text;
    ASSERT_TRUE(output.saveToString(text));
    EXPECT_EQ(stream.str(), text);
}

TEST(TextOArchive, tellsOfAStreamWithoutRoom)
{
    const std::string expected =
        "The archive can't be written to its stream: check that the stream is open and has room";
    std::ofstream full("/dev/full");
    EXPECT_EQ(TextOArchive().saveToStream(full).getMessage(), expected);
    std::ofstream closed;
    EXPECT_EQ(TextOArchive().saveToStream(closed).getMessage(), expected);
    std::ofstream throwing("/dev/full");
    throwing.exceptions(std::ios::failbit | std::ios::badbit);
    EXPECT_EQ(TextOArchive().saveToStream(throwing).getMessage(), expected);
}

TEST(TextOArchive, isNotSavedWithAnOpenSection)
{
    TextOArchive output;
    ArchiveSectionManager section(output, "orlix::A");
    std::string text = "before";
    EXPECT_EQ(output.saveToString(text).getMessage(),
              "The archive is incomplete, since section \"orlix::A\" was not finished: finish it before saving, and "
              "don't save what a failure has interrupted");
    EXPECT_EQ(text, "before");
    section.close();
    EXPECT_TRUE(output.saveToString(text));
}

TEST(TextOArchive, isNotSavedOnceAnExceptionInterruptedIt)
{
    TextOArchive output;
    try {
        ArchiveSectionManager section(output, "orlix::A");
        throw std::runtime_error("interrupted");
    } catch (const std::runtime_error&) {
        // The section was left on the way.
    }
    std::string text;
    EXPECT_NE(output.saveToString(text).getMessage().find("\"orlix::A\" was not finished"), std::string::npos);
}

TEST(ArchiveSectionManager, closesAtTheEndOfItsLife)
{
    TextOArchive output;
    {
        ArchiveSectionManager section(output, "orlix::A");
    }
    std::string text;
    EXPECT_TRUE(output.saveToString(text));
}

TEST(ArchiveSectionManager, worksWhileAnotherExceptionIsOnItsWay)
{
    TextOArchive output;
    struct WritesOnDestruction
    {
        TextOArchive& m_output;
        ~WritesOnDestruction() { ArchiveSectionManager section(m_output, "last words"); }
    };
    try {
        const WritesOnDestruction writer{output};
        throw std::runtime_error("something else");
    } catch (const std::runtime_error&) {
        // The section was complete.
    }
    std::string text;
    EXPECT_TRUE(output.saveToString(text));
}

TEST(TextOArchive, limitsSize)
{
    std::string text;
    ASSERT_TRUE(TextOArchive().saveToString(text));
    EXPECT_TRUE(TextOArchive(text.size()).saveToString(text));
    EXPECT_NE(TextOArchive(text.size() - 1).saveToString(text).getMessage().find("The archive has more than the "),
              std::string::npos);
}

TEST(TextOArchive, closesNoSectionThatIsNotOpen)
{
    TextOArchive output;
    EXPECT_THROW(output.closeSection(), ORLIXSerializationException);
    output.leaveSection(true);
    std::string text;
    EXPECT_TRUE(output.saveToString(text));
}

} // namespace
} // namespace orlix
