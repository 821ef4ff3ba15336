// Archives that are damaged, hand-made, or read as something that they aren't.
#include "ORLIX/ORLIXSerialization/TextIArchive.h"

#include "ORLIX/ORLIXSerialization/ArchiveSectionManager.h"
#include "ORLIX/ORLIXSerialization/ORLIXSerializationException.h"
#include "ORLIX/ORLIXSerialization/SerializationIItem.h"
#include "ORLIX/ORLIXSerialization/SerializationOItem.h"
#include "ORLIX/ORLIXSerialization/TextOArchive.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>

#include <unistd.h>

namespace orlix {
namespace {

std::string archive(const std::string& entries)
{
    return "<orlix_archive format=\"1\">" + entries + "</orlix_archive>";
}

std::string writtenArchive()
{
    TextOArchive output;
    ArchiveSectionManager section(output, "orlix::A");
    output << SerializationOItem<unsigned int>("version", 1U) << SerializationOItem<double>("scale", 0.1)
           << SerializationOItem<std::string>("title", "A & B\n");
    section.close();
    std::string text;
    EXPECT_TRUE(output.saveToString(text));
    return text;
}

std::string messageOf(const std::function<void()>& function)
{
    try {
        function();
    } catch (const ORLIXSerializationException& exception) {
        return exception.getMessage();
    }
    return "nothing was thrown";
}

std::string loadFailure(const std::string& text)
{
    TextIArchive input;
    const auto loaded = input.loadFromString(text);
    EXPECT_FALSE(loaded) << text;
    EXPECT_THROW(ArchiveSectionManager(input, "orlix::A"), ORLIXSerializationException) << "it should be empty";
    return loaded.getMessage();
}

template <class T>
std::string readFailure(const std::string& entries, const std::string& name, T value = {})
{
    TextIArchive input;
    EXPECT_TRUE(input.loadFromString(archive(entries)));
    const T before = value;
    const std::string message = messageOf([&] { input >> SerializationIItem<T>(name, value); });
    EXPECT_EQ(value, before);
    return message;
}

TEST(TextIArchive, acceptsAHandMadeTextWithoutChecksum)
{
    TextIArchive input;
    ASSERT_TRUE(input.loadFromString(archive("\n<!-- by hand --><int32 name='a' value='-4'></int32>\n")));
    int value = 0;
    input >> SerializationIItem<int>("a", value);
    EXPECT_EQ(value, -4);
}

TEST(TextIArchive, refusesWhatIsNoArchive)
{
    const std::string bad[] = {"",
                               "hello",
                               "\xff\xd8\xff\xe0",
                               std::string("\0\0\0\0", 4),
                               "<orlix_archive/>",
                               "<orlix_archive format=\"1\">",
                               "<orlix_archive format=\"\"/>",
                               "<orlix_archive format=\"0\"/>",
                               "<orlix_archive format=\"-1\"/>",
                               "<orlix_archive format=\"1\" format=\"1\"/>",
                               "<orlix_archive format=\"1\" more=\"1\"/>",
                               "<other format=\"1\"/>",
                               archive("") + archive(""),
                               "<other/>" + archive(""),
                               archive("text"),
                               archive("<![CDATA[text]]>"),
                               archive("<int128 name='a' value='1'/>"),
                               archive("<int32 name='a'/>"),
                               archive("<int32 value='1'/>"),
                               archive("<int32 value='1' name='a'/>"),
                               archive("<int32 name='a' value='1' unit='m'/>"),
                               archive("<int32 name='a' value='1'>2</int32>"),
                               archive("<int32 name='a' value='1'><int32 name='b' value='1'/></int32>"),
                               archive("<section/>"),
                               archive("<section name='a' value='1'/>"),
                               archive("<section name='a'>text</section>")};
    for (const std::string& text : bad) {
        const std::string message = loadFailure(text);
        EXPECT_EQ(message.find("This is no archive, or a damaged one: "), 0u) << text << '\n' << message;
        EXPECT_NE(message.find(" at byte "), std::string::npos);
    }
}

TEST(TextIArchive, refusesEveryArchiveThatIsCutShort)
{
    const std::string text = writtenArchive();
    const std::size_t end = text.rfind('>');
    for (std::size_t length = 0; length <= end; ++length) {
        loadFailure(text.substr(0, length));
    }
}

TEST(TextIArchive, noticesEveryFlippedBitThatMatters)
{
    const std::string text = writtenArchive();
    const std::size_t start = text.find("<orlix_archive");
    const std::size_t end = text.rfind('>') + 1;
    for (std::size_t position = start; position < end; ++position) {
        for (int bit = 0; bit < 8; ++bit) {
            std::string flipped = text;
            flipped[position] = static_cast<char>(flipped[position] ^ (1 << bit));
            TextIArchive input;
            if (!input.loadFromString(flipped)) {
                continue;
            }
            // Only the layout changed: everything is still read as it was written.
            unsigned int version = 0;
            double scale = 0;
            std::string title;
            ArchiveSectionManager section(input, "orlix::A");
            input >> SerializationIItem<unsigned int>("version", version);
            input >> SerializationIItem<double>("scale", scale);
            input >> SerializationIItem<std::string>("title", title);
            section.close();
            EXPECT_EQ(version, 1u);
            EXPECT_EQ(scale, 0.1);
            EXPECT_EQ(title, "A & B\n");
        }
    }
}

TEST(TextIArchive, tellsOfAWrongChecksum)
{
    std::string text = writtenArchive();
    text.replace(text.find("0.1"), 3, "0.2");
    EXPECT_NE(loadFailure(text).find("it was damaged or changed by hand"), std::string::npos);
    for (const char* checksum : {"", "xyz", "123456789", "0", "-1"}) {
        loadFailure("<orlix_archive format=\"1\" crc32=\"" + std::string(checksum) +
                    "\"><int8 name=\"a\" value=\"1\"/></orlix_archive>");
    }
}

TEST(TextIArchive, tellsOfANewerFormat)
{
    EXPECT_EQ(loadFailure("<orlix_archive format=\"2\"/>"), "The archive has format 2, and 1 is the newest that is "
                                                            "known: read it with a newer version of the library");
}

TEST(TextIArchive, limitsDepth)
{
    const auto nested = [](int depth) {
        std::string entries;
        for (int i = 0; i < depth; ++i) {
            entries += "<section name='s'>";
        }
        for (int i = 0; i < depth; ++i) {
            entries += "</section>";
        }
        return archive(entries);
    };
    TextIArchive input;
    EXPECT_TRUE(input.loadFromString(nested(64)));
    EXPECT_EQ(loadFailure(nested(65)),
              "Section \"s\" of the archive lies deeper than the 64 sections that are allowed: nest less");
    EXPECT_NE(loadFailure(nested(200000)).find("deeper than"), std::string::npos);
}

TEST(TextIArchive, tellsWhatItHasInsteadOfWhatIsAsked)
{
    const std::string entries = "<uint32 name='version' value='1'/>";
    EXPECT_EQ(readFailure<unsigned int>(entries, "size"),
              "The archive has uint32 \"version\" where uint32 \"size\" is expected in section \"/\": it was written "
              "by something else than what reads it");
    EXPECT_NE(readFailure<int>(entries, "version").find("where int32 \"version\" is expected"), std::string::npos);
    EXPECT_NE(readFailure<double>(entries, "version").find("where real64 \"version\" is expected"), std::string::npos);
    EXPECT_NE(readFailure<unsigned int>("<section name='version'/>", "version").find("has section \"version\" where"),
              std::string::npos);
    EXPECT_EQ(readFailure<int>("", "version"),
              "The archive ends where int32 \"version\" is expected in section \"/\": it is cut short, or was written "
              "by something else than what reads it");
}

TEST(TextIArchive, namesTheSectionWhereReadingFails)
{
    TextIArchive input;
    ASSERT_TRUE(input.loadFromString(archive("<section name='a'><section name='b'/></section>")));
    ArchiveSectionManager outer(input, "a");
    ArchiveSectionManager inner(input, "b");
    int value = 0;
    EXPECT_NE(messageOf([&] { input >> SerializationIItem<int>("c", value); }).find("in section \"/a/b/\""),
              std::string::npos);
}

TEST(TextIArchive, refusesValuesThatTheTypeCannotHold)
{
    const auto refuses = [](const char* type, const std::string& text, auto value) {
        const std::string entry = std::string("<") + type + " name='a' value='" + text + "'/>";
        EXPECT_EQ(readFailure(entry, "a", value), "The archive has \"" + text +
                                                      "\" as value of \"a\" in section \"/\", which is no " + type +
                                                      ": give it one that its type can hold");
    };
    for (const char* text :
         {"", " 1", "1 ", "+1", "1.0", "0x1", "one", "4294967296", "-1", "1e3", "99999999999999999999999999"}) {
        refuses("uint32", text, 7U);
    }
    refuses("int8", "128", static_cast<signed char>(7));
    refuses("int8", "-129", static_cast<signed char>(7));
    for (const char* text : {"", "1e400", "-1e400", "1,5", "nan", "nan:", "nan:0", "nan:7ff0000000000000", "nan:g",
                             "nan:7ff80000000000000", "1.5x", " 1.5", "0x1p3"}) {
        refuses("real64", text, 7.0);
    }
    refuses("real32", "1e39", 7.0f);
    for (const char* text : {"", "TRUE", "1", "yes", "true "}) {
        refuses("bool", text, false);
    }
    for (const char* text : {"\\", "\\x", "\\x4", "\\xg1", "\\n", "end\\"}) {
        refuses("string", text, std::string("before"));
    }
}

TEST(TextIArchive, readsOnAfterAFailure)
{
    TextIArchive input;
    ASSERT_TRUE(input.loadFromString(archive("<int32 name='a' value='4'/>")));
    int value = 0;
    EXPECT_THROW(input >> SerializationIItem<int>("b", value), ORLIXSerializationException);
    input >> SerializationIItem<int>("a", value);
    EXPECT_EQ(value, 4);
}

TEST(TextIArchive, wantsEverySectionReadToItsEnd)
{
    TextIArchive input;
    ASSERT_TRUE(input.loadFromString(archive("<section name='a'><int8 name='b' value='1'/></section>")));
    {
        ArchiveSectionManager section(input, "a");
        EXPECT_EQ(messageOf([&] { section.close(); }),
                  "The archive has int8 \"b\" where section \"/a/\" should end: it was written by something else than "
                  "what reads it");
    }
    EXPECT_NO_THROW(input.checkEnd()) << "a section that is left is skipped";
    ASSERT_TRUE(input.loadFromString(archive("<section name='a'/>")));
    EXPECT_THROW(input.checkEnd(), ORLIXSerializationException);
}

TEST(TextIArchive, closesNoSectionThatIsNotOpen)
{
    TextIArchive input;
    EXPECT_THROW(input.closeSection(), ORLIXSerializationException);
    ASSERT_TRUE(input.loadFromString(archive("")));
    EXPECT_THROW(input.closeSection(), ORLIXSerializationException);
    input.leaveSection(false);
    EXPECT_NO_THROW(input.checkEnd());
}

TEST(TextIArchive, isEmptyUntilLoaded)
{
    TextIArchive input;
    int value = 0;
    EXPECT_THROW(input >> SerializationIItem<int>("a", value), ORLIXSerializationException);
    EXPECT_THROW(input.openSection("a"), ORLIXSerializationException);
    EXPECT_NO_THROW(input.checkEnd());
}

TEST(TextIArchive, startsAnewWithEachLoad)
{
    TextIArchive input;
    ASSERT_TRUE(input.loadFromString(archive("<section name='a'/>")));
    input.openSection("a");
    input.registerClassVersion("orlix::A", 1);
    ASSERT_TRUE(input.loadFromString(archive("<section name='b'/>")));
    EXPECT_FALSE(input.isClassVersionRegistred("orlix::A"));
    input.openSection("b");
    EXPECT_FALSE(input.loadFromString("nothing"));
    EXPECT_THROW(input.closeSection(), ORLIXSerializationException);
}

TEST(TextIArchive, readsStreams)
{
    TextIArchive input;
    std::istringstream good(writtenArchive());
    good.exceptions(std::ios::failbit | std::ios::badbit | std::ios::eofbit);
    EXPECT_TRUE(input.loadFromStream(good));
    std::istringstream bad(writtenArchive());
    bad.setstate(std::ios::badbit);
    EXPECT_EQ(input.loadFromStream(bad).getMessage(),
              "The archive can't be read from its stream: check that the stream is open and good");
    EXPECT_THROW(input.openSection("orlix::A"), ORLIXSerializationException);
    std::ifstream missing("/nowhere/archive.xml");
    EXPECT_FALSE(input.loadFromStream(missing));
    std::istream empty(nullptr);
    EXPECT_FALSE(input.loadFromStream(empty));
}

TEST(TextIArchive, tellsWhyAFileCannotBeRead)
{
    TextIArchive input;
    EXPECT_EQ(input.loadFromFile("/nowhere/archive.xml").getMessage(),
              "File /nowhere/archive.xml can't be read: No such file or directory. Check its name and permissions");
    const std::string folder = std::filesystem::temp_directory_path().string();
    EXPECT_EQ(input.loadFromFile(folder).getMessage(),
              "File " + folder + " can't be read: Is a directory. Check its name and permissions");
    EXPECT_EQ(input.loadFromFile("/dev/null").getMessage().find("This is no archive"), 0u);
}

TEST(TextIArchive, limitsSize)
{
    const std::string text = writtenArchive();
    EXPECT_TRUE(TextIArchive(text.size()).loadFromString(text));
    TextIArchive small(text.size() - 1);
    EXPECT_FALSE(small.loadFromString(text));
    std::istringstream stream(text);
    EXPECT_FALSE(small.loadFromStream(stream));
}

TEST(TextIArchive, stopsReadingAStreamWithoutEnd)
{
    class EndlessBuffer : public std::streambuf
    {
        std::streamsize xsgetn(char* target, std::streamsize size) override
        {
            std::fill_n(target, size, ' ');
            return size;
        }
    };
    EndlessBuffer buffer;
    std::istream stream(&buffer);
    TextIArchive input(3UL << 20);
    EXPECT_EQ(input.loadFromStream(stream).getMessage(),
              "The archive has more than the 3145728 bytes that are allowed: divide it into several");
}

} // namespace
} // namespace orlix
