// Tables as people keep them: RFC 4180, comments, and places of what is wrong.
#include "ORLIX/ORLIXBaseProcessing/CsvReader.h"

#include <boost/filesystem.hpp>

#include <gtest/gtest.h>

#include <fstream>

namespace orlix::processor::test {
namespace {

using Rows = std::vector<std::vector<std::string>>;

Rows rowsOf(CsvReader reader, std::string& flaw)
{
    Rows rows;
    CsvRecord record;
    while (reader.next(record)) {
        EXPECT_EQ(record.fields.size(), record.columns.size());
        rows.push_back(record.fields);
    }
    flaw = reader.getFlaw();
    return rows;
}
Rows rowsOf(const std::string& text)
{
    std::string flaw;
    const Rows rows = rowsOf(CsvReader::ofText(text), flaw);
    EXPECT_EQ(flaw, "");
    return rows;
}
std::string flawOf(const std::string& text)
{
    std::string flaw;
    rowsOf(CsvReader::ofText(text), flaw);
    return flaw;
}

/// A file of the test's own, gone at its end.
struct ScopedFile
{
    explicit ScopedFile(const std::string& content)
        : path((boost::filesystem::temp_directory_path() / boost::filesystem::unique_path("orlix-%%%%%%%%.csv"))
                   .string())
    {
        std::ofstream(path, std::ios::binary) << content;
    }
    ~ScopedFile() { boost::filesystem::remove(path); }
    std::string path;
};

TEST(CsvReader, SplitsRecordsAndFields)
{
    EXPECT_EQ(rowsOf("1,2\n3,4"), (Rows{{"1", "2"}, {"3", "4"}}));
    EXPECT_EQ(rowsOf("1,2\r\n3,4\r\n"), (Rows{{"1", "2"}, {"3", "4"}}));
    EXPECT_EQ(rowsOf("1;2; ;3"), (Rows{{"1"}, {"2"}, {"3"}}));
    EXPECT_EQ(rowsOf(" 1 ,\t2"), (Rows{{"1", "2"}}));
    EXPECT_EQ(rowsOf("1,,2,"), (Rows{{"1", "", "2", ""}}));
    EXPECT_EQ(rowsOf(""), (Rows{}));
    EXPECT_EQ(rowsOf("\n \n# nothing\n"), (Rows{}));
}

TEST(CsvReader, LeavesOutCommentsAndEmptyLines)
{
    EXPECT_EQ(rowsOf("# X, Y\n1,2\n\n  # \"more\n3,4\n#"), (Rows{{"1", "2"}, {"3", "4"}}));
}

TEST(CsvReader, QuotesHoldAnything)
{
    EXPECT_EQ(rowsOf("\"a,b\",\"say \"\"hi\"\"\"\n\"two\nlines\" , 5"),
              (Rows{{"a,b", "say \"hi\""}, {"two\nlines", "5"}}));
    EXPECT_EQ(rowsOf("\"\""), (Rows{{""}}));
    EXPECT_EQ(rowsOf("\"a;b\";c"), (Rows{{"a;b"}, {"c"}}));
}

TEST(CsvReader, SaysWhereTheTextIsWrong)
{
    EXPECT_EQ(flawOf("1,2\n3,4\"5"), "line 2, column 4: a quote inside a field: put the whole field into quotes");
    EXPECT_EQ(flawOf("\"1\"2"), "line 1, column 4: a field goes on behind its closing quote: double quotes inside it");
    EXPECT_EQ(flawOf("1\n2,\"3\n4"), "line 2, column 3: a quote that is never closed: close it");
}

TEST(CsvReader, ReadsFiles)
{
    const ScopedFile file("\xEF\xBB\xBFX,Y\r\n1;5,2\r\n");
    CsvReader reader = CsvReader::ofFile(file.path);
    CsvRecord record;
    ASSERT_TRUE(reader.next(record));
    EXPECT_EQ(record.fields, (std::vector<std::string>{"X", "Y"}));
    ASSERT_TRUE(reader.next(record));
    EXPECT_EQ(record.fields, (std::vector<std::string>{"1;5", "2"})) << "in files a record ends with its line";
    EXPECT_EQ(reader.placeOf(record, 1), file.path + ", line 2, column 5: ");
    EXPECT_FALSE(reader.next(record));
    EXPECT_EQ(reader.getFlaw(), "");
}

TEST(CsvReader, RefusesFilesThatAreNoneOrTooLarge)
{
    std::string flaw;
    EXPECT_EQ(rowsOf(CsvReader::ofFile("/no/such/file.csv"), flaw), Rows{});
    EXPECT_EQ(flaw, "/no/such/file.csv can't be read: name a file that exists and may be read");
    rowsOf(CsvReader::ofFile("/"), flaw);
    EXPECT_EQ(flaw, "/ can't be read: name a file that exists and may be read");
    EXPECT_EQ(rowsOf(CsvReader::ofFile("/dev/zero"), flaw), Rows{});
    EXPECT_EQ(flaw, "/dev/zero is larger than 256 MiB: give less at a time");
}

} // namespace
} // namespace orlix::processor::test
