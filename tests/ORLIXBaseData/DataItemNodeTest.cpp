// Data items made from a record: access, copies, comparison, printing and archives.
#include "ORLIX/ORLIXBaseData/DataItemNode.h"

#include "ORLIX/ORLIXBaseData/ORLIXBaseDataException.h"
#include "ORLIX/ORLIXSerialization/ORLIXSerializationException.h"
#include "ORLIX/ORLIXUtil/DynamicRegistrator.h"
#include "ORLIXBaseData/TestDataItems.h"
#include "support/ScopedLocale.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <sstream>

namespace orlix::test {
namespace {

std::string printed(const BaseDataItem& item)
{
    std::ostringstream stream;
    stream << item;
    return stream.str();
}

Sample fullSample()
{
    Sample sample;
    sample.bFlag = false;
    sample.small = -128;
    sample.real = std::numeric_limits<float>::infinity();
    sample.text = "a <b> & \"c\"\n";
    sample.position = {1, 2};
    sample.point.access<Point::X>() = 0.1;
    sample.shared = point(3, 4);
    sample.values = {1.5, std::numeric_limits<double>::quiet_NaN(), -0.0};
    sample.positions = {{5, 6}, {}};
    sample.points = {point(7, 8), nullptr, point(9, 10)};
    sample.rows = {{1, 2}, {}, {3}};
    return sample;
}

TEST(DataItemNode, givesAccessByTypeOfLeaf)
{
    Point point;
    EXPECT_EQ(point.get<Point::X>(), 0);
    EXPECT_EQ(point.get<Point::Y>(), -1);
    point.access<Point::X>() = 1.5;
    const Point& read = point;
    EXPECT_EQ(read.get<Point::X>(), 1.5);
    EXPECT_EQ(read.get<Point::Y>(), -1);
}

TEST(DataItemNode, namesItsChildrenInOrder)
{
    EXPECT_EQ(Point().getChildNames(), (std::vector<std::string>{"X", "Y"}));
    EXPECT_EQ(Sample().getChildNames().front(), "flag");
    EXPECT_EQ(Sample().getChildNames().back(), "rows");
    EXPECT_EQ(Point().getClassName(), "orlix::test::Point");
}

TEST(DataItemNode, isMadeByName)
{
    const DynamicRegistrator<Point> registrator;
    const auto made = DynamicObjectFactory::getInstance().createShared("orlix::test::Point");
    EXPECT_EQ(dynamic_cast<const Point&>(*made).get<Point::Y>(), -1);
    EXPECT_EQ(made->createNew()->getClassName(), "orlix::test::Point");
    EXPECT_EQ(made->createShared()->getClassName(), "orlix::test::Point");
}

TEST(DataItemNode, isCopiedThroughItsBase)
{
    const Sample sample = fullSample();
    const BaseDynamicObject& base = sample;
    EXPECT_TRUE(base.hasCopySupport());
    EXPECT_EQ(dynamic_cast<const Sample&>(*base.duplicate()), sample);
    EXPECT_EQ(dynamic_cast<const Sample&>(*base.duplicateShared()), sample);
    Sample copy;
    copy.copy(base);
    EXPECT_EQ(copy, sample);
    copy.values[0] = 2;
    EXPECT_EQ(sample.values[0], 1.5);
}

TEST(DataItemNode, isNotCopiedFromAnotherClass)
{
    Point point;
    try {
        point.copy(Sample());
        FAIL();
    } catch (const ORLIXBaseDataException& exception) {
        EXPECT_EQ(exception.getMessage(), "Class orlix::test::Point can't take over the content of class "
                                          "orlix::test::Sample: copy from an object of the same class");
    }
}

TEST(DataItemNode, equalsWhatHasTheSameContent)
{
    EXPECT_EQ(fullSample(), fullSample());
    EXPECT_FALSE(Sample() == Point());
    const std::function<void(Sample&)> changes[] = {[](Sample& sample) { sample.bFlag = true; },
                                                    [](Sample& sample) { sample.small = 0; },
                                                    [](Sample& sample) { sample.real = 0; },
                                                    [](Sample& sample) { sample.text += "x"; },
                                                    [](Sample& sample) { sample.position.y = 0; },
                                                    [](Sample& sample) { sample.point.access<Point::Y>() = 0; },
                                                    [](Sample& sample) { sample.shared->access<Point::Y>() = 0; },
                                                    [](Sample& sample) { sample.shared.reset(); },
                                                    [](Sample& sample) { sample.values[1] = 0; },
                                                    [](Sample& sample) { sample.values.pop_back(); },
                                                    [](Sample& sample) { sample.positions[1].x = 0; },
                                                    [](Sample& sample) { sample.points[1] = point(0, 0); },
                                                    [](Sample& sample) { sample.rows[0].push_back(3); }};
    for (const auto& change : changes) {
        Sample changed = fullSample();
        change(changed);
        EXPECT_FALSE(changed == fullSample()) << printed(changed);
    }
}

TEST(DataItemNode, isPrintedOnOneLine)
{
    EXPECT_EQ(printed(Point()), "{X: 0, Y: -1}");
    Sample sample = fullSample();
    sample.text = "a <b>";
    sample.values.assign(20, 0.1);
    EXPECT_EQ(printed(sample),
              "{flag: false, small: -128, real: inf, text: a <b>, position: {x: 1, y: 2}, "
              "point: {X: 0.1, Y: -1}, shared: {X: 3, Y: 4}, values: [0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, "
              "0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, ... 20 in all], "
              "positions: [{x: 5, y: 6}, {x: 18446744073709551615, y: 18446744073709551615}], "
              "points: [{X: 7, Y: 8}, none, {X: 9, Y: 10}], rows: [[1, 2], [], [3]]}");
}

TEST(DataItemNode, isPrintedTheSameInEveryLocale)
{
    const orlix::testing::ScopedCppLocale scope;
    Sample sample;
    sample.small = 100;
    sample.real = 1234567.5F;
    sample.position = {1234567, 1000};
    sample.values.assign(1000, 0.25);
    const std::string text = printed(sample);
    for (const char* part :
         {"small: 100,", "real: 1234567.5,", "position: {x: 1234567, y: 1000}", "0.25, ... 1000 in all"}) {
        EXPECT_NE(text.find(part), std::string::npos) << part << " in " << text;
    }
}

TEST(DataItemNode, comesBackFromAnArchive)
{
    for (const Sample& sample : {Sample(), fullSample()}) {
        Sample read;
        read.values = {1, 2, 3};
        const auto result = readFrom(archiveOf(sample), read);
        ASSERT_TRUE(result) << result.getMessage();
        EXPECT_EQ(read, sample) << printed(read);
    }
}

TEST(DataItemNode, writesItsVersionOnce)
{
    Sample sample;
    sample.points.assign(3, point(1, 2));
    const std::string text = archiveOf(sample);
    std::size_t nbRecords = 0;
    for (std::size_t at = text.find("name=\"version\""); at != std::string::npos;
         at = text.find("name=\"version\"", at + 1)) {
        ++nbRecords;
    }
    EXPECT_EQ(nbRecords, 2u) << "one for Sample, one for Point";
}

TEST(DataItemNode, staysAsItWasWhenReadingFails)
{
    const std::string whole = archiveOf(fullSample());
    const auto without = [&whole](const std::string& line) {
        std::string text = whole;
        const std::size_t at = text.find(line);
        EXPECT_NE(at, std::string::npos) << line;
        text.erase(at, line.size());
        text.erase(text.find(" crc32"), text.find('>', text.find(" crc32")) - text.find(" crc32"));
        return text;
    };
    for (const char* line : {"<bool name=\"flag\" value=\"false\" />", "<uint64 name=\"size\" value=\"3\" />",
                             "<int32 name=\"element\" value=\"3\" />", "<real64 name=\"Y\" value=\"10\" />",
                             "<uint32 name=\"version\" value=\"1\" />"}) {
        Sample target;
        target.text = "untouched";
        const Sample before = target;
        EXPECT_THROW(static_cast<void>(readFrom(without(line), target)), ORLIXSerializationException) << line;
        EXPECT_EQ(target, before);
    }
    Point other;
    EXPECT_THROW(static_cast<void>(readFrom(whole, other)), ORLIXSerializationException);
}

TEST(DataItemNode, believesNoSizeThatNothingFollows)
{
    std::string text = archiveOf(fullSample());
    const std::string size = "<uint64 name=\"size\" value=\"3\" />";
    text.replace(text.find(size), size.size(), "<uint64 name=\"size\" value=\"18446744073709551615\" />");
    text.erase(text.find(" crc32"), text.find('>', text.find(" crc32")) - text.find(" crc32"));
    Sample target;
    EXPECT_THROW(static_cast<void>(readFrom(text, target)), ORLIXSerializationException);
}

TEST(DataItemNode, refusesANewerVersion)
{
    const auto withVersion = [](const std::string& version) {
        return "<orlix_archive format='1'><section name='orlix::test::Point'><uint32 name='version' value='" + version +
               "'/></section><real64 name='X' value='1'/><real64 name='Y' value='2'/></orlix_archive>";
    };
    for (const char* version : {"0", "1"}) {
        Point read;
        EXPECT_TRUE(readFrom(withVersion(version), read));
        EXPECT_EQ(read, *point(1, 2));
    }
    Point read;
    EXPECT_THROW(static_cast<void>(readFrom(withVersion("2"), read)), ORLIXSerializationException);
}

RC_GTEST_PROP(DataItemNode, comesBackWhateverItHolds,
              (signed char small, const std::string& text, const std::vector<double>& values,
               const std::vector<std::vector<int>>& rows, const std::vector<bool>& set))
{
    Sample sample;
    sample.small = small;
    sample.text = text;
    sample.values = values;
    sample.rows = rows;
    for (const bool bSet : set) {
        sample.points.push_back(bSet ? point(1. / static_cast<double>(sample.points.size()), small) : nullptr);
    }
    Sample read;
    RC_ASSERT(readFrom(archiveOf(sample), read).getValue());
    RC_ASSERT(read == sample);
}

} // namespace
} // namespace orlix::test
