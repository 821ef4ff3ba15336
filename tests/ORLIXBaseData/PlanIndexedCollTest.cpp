// Collections with an entry for each plan: order, finding, sizes and archives.
#include "ORLIX/ORLIXBaseData/PlanIndexedColl.h"

#include "ORLIX/ORLIXBaseData/Logger/ORLIXBaseDataLog.h"
#include "ORLIX/ORLIXBaseData/Logger/ORLIXBaseDataLogMessages.h"
#include "ORLIX/ORLIXUtil/LogMessageManager.h"
#include "ORLIXBaseData/TestDataItems.h"

#include <gtest/gtest.h>
#include <log4cplus/logger.h>
#include <rapidcheck/gtest.h>

#include <set>
#include <sstream>

namespace orlix::test {
namespace {

using Points = PlanIndexedColl<Point>;
constexpr unsigned long g_max = NumericLimits<unsigned long>::s_max;

std::string messageOf(const std::function<void()>& function)
{
    try {
        function();
    } catch (const ORLIXBaseDataException& exception) {
        return exception.getMessage();
    }
    return "nothing was thrown";
}

std::vector<PlanIndex> orderOf(const BasePlanIndexedColl& coll)
{
    std::vector<PlanIndex> order;
    for (unsigned long i = 0; i < coll.size(); ++i) {
        order.push_back(coll.getPlanIndex(i));
    }
    return order;
}

std::string withoutChecksum(std::string archive)
{
    const std::size_t start = archive.find(" crc32");
    return archive.erase(start, archive.find('>', start) - start);
}

std::string replaced(std::string text, const std::string& what, const std::string& by)
{
    EXPECT_NE(text.find(what), std::string::npos) << text;
    return withoutChecksum(text.replace(text.find(what), what.size(), by));
}

TEST(PlanIndexedColl, isEmptyAtFirst)
{
    const Points points;
    EXPECT_EQ(points.size(), 0u);
    EXPECT_EQ(points.getMaxSizeZ(), 0u);
    EXPECT_EQ(points.getMaxSizeC(), 0u);
    EXPECT_EQ(points.getMaxSizeT(), 0u);
    EXPECT_EQ(points.find({0, 0, 0}), nullptr);
    EXPECT_EQ(points.getClassName(), "orlix::PlanIndexedColl<orlix::test::Point>");
}

TEST(PlanIndexedColl, findsEntriesAndKeepsTheOrderOfInsertion)
{
    Points points;
    const auto first = point(1, 1);
    points.insert({4, 0, 2}, first);
    points.insert({0, 1, 0}, point(2, 2));
    points.insert({0, 0, 0}, point(3, 3));
    EXPECT_EQ(orderOf(points), (std::vector<PlanIndex>{{4, 0, 2}, {0, 1, 0}, {0, 0, 0}}));
    EXPECT_EQ(points.find({4, 0, 2}), first);
    EXPECT_EQ(points.getItem(0), first);
    const Points& constant = points;
    EXPECT_EQ(constant.find({0, 1, 0})->get<Point::X>(), 2);
    EXPECT_EQ(constant.getItem(2)->get<Point::X>(), 3);
    EXPECT_EQ(constant.find({4, 0, 1}), nullptr);
    EXPECT_TRUE(points.contains({0, 0, 0}));
    EXPECT_FALSE(points.contains({0, 0, 1}));
    EXPECT_EQ(points.getMaxSizeZ(), 5u);
    EXPECT_EQ(points.getMaxSizeC(), 2u);
    EXPECT_EQ(points.getMaxSizeT(), 3u);
}

TEST(PlanIndexedColl, takesEachPlanOnce)
{
    Points points;
    points.insert({0, 1, 2}, point(1, 1));
    EXPECT_EQ(messageOf([&] {
                  points.insert({0, 1, 2}, point(2, 2));
              }),
              "The collection has an entry at plan (0, 1, 2) already: insert each plan once");
    EXPECT_EQ(messageOf([&] {
                  points.insert({g_max, 0, 0}, point(2, 2));
              }),
              "Plan (18446744073709551615, 0, 0) can't be counted in 64 bits: use smaller indices");
    EXPECT_EQ(points.size(), 1u);
    EXPECT_EQ(points.find({0, 1, 2})->get<Point::X>(), 1);
    points.insert({g_max - 1, 0, 0}, point(2, 2));
    EXPECT_EQ(points.getMaxSizeZ(), g_max);
}

TEST(PlanIndexedColl, mayHoldNothingForAPlan)
{
    Points points;
    points.insert({0, 0, 0}, nullptr);
    EXPECT_TRUE(points.contains({0, 0, 0}));
    EXPECT_EQ(points.find({0, 0, 0}), nullptr);
}

TEST(PlanIndexedColl, tellsOfAPositionPastTheEnd)
{
    Points points;
    points.insert({0, 0, 0}, point(1, 1));
    const std::string expected = "The collection has no entry 1, only 1: ask for one below its size";
    EXPECT_EQ(messageOf([&] { points.getItem(1); }), expected);
    EXPECT_EQ(messageOf([&] { points.getPlanIndex(1); }), expected);
}

TEST(PlanIndexedColl, isFilledForAnImageWithZFastest)
{
    Points points;
    points.insert({9, 9, 9}, point(1, 1));
    points.initPlanIndexed(2, 3, 2);
    std::vector<PlanIndex> expected;
    for (unsigned long t = 0; t < 2; ++t) {
        for (unsigned long c = 0; c < 3; ++c) {
            expected.insert(expected.end(), {{0, c, t}, {1, c, t}});
        }
    }
    EXPECT_EQ(orderOf(points), expected);
    EXPECT_EQ(points.getMaxSizeZ(), 2u);
    EXPECT_EQ(points.getMaxSizeC(), 3u);
    EXPECT_EQ(points.getMaxSizeT(), 2u);
    std::set<const Point*> entries;
    for (const PlanIndex& index : expected) {
        EXPECT_EQ(points.find(index)->get<Point::Y>(), -1);
        entries.insert(points.find(index).get());
    }
    EXPECT_EQ(entries.size(), expected.size()) << "each plan has an entry of its own";
}

TEST(PlanIndexedColl, keepsTheSizesOfAnImageWithoutPlans)
{
    Points points;
    points.initPlanIndexed(0, 1, g_max);
    EXPECT_EQ(points.size(), 0u);
    EXPECT_EQ(points.getMaxSizeZ(), 0u);
    EXPECT_EQ(points.getMaxSizeC(), 1u);
    EXPECT_EQ(points.getMaxSizeT(), g_max);
}

TEST(PlanIndexedColl, refusesMorePlansThanItCanHold)
{
    Points points;
    points.insert({0, 0, 0}, point(1, 1));
    EXPECT_EQ(messageOf([&] { points.initPlanIndexed(1UL << 32, 1UL << 31, 2); }),
              "4294967296 x 2147483648 x 2 plans (z, c, t) are more than a collection can hold: use smaller sizes");
    EXPECT_EQ(messageOf([&] { points.initPlanIndexed(1, 1, g_max); }).find("1 x 1 x 18446744073709551615 plans"), 0u);
    EXPECT_EQ(points.size(), 1u);
}

TEST(PlanIndexedColl, isCopiedWithSharedEntries)
{
    Points points;
    points.initPlanIndexed(2, 1, 1);
    const auto copy = points.duplicateShared();
    EXPECT_EQ(dynamic_cast<const Points&>(*copy), points);
    EXPECT_EQ(dynamic_cast<Points&>(*copy).find({1, 0, 0}), points.find({1, 0, 0}));
    EXPECT_EQ(dynamic_cast<const Points&>(*points.duplicate()), points);
    Points target;
    target.copy(points);
    EXPECT_EQ(target, points);
    EXPECT_NE(messageOf([&] { target.copy(Point()); }).find("can't take over the content of class orlix::test::Point"),
              std::string::npos);
    EXPECT_EQ(points.createNew()->getClassName(), points.getClassName());
    EXPECT_EQ(points.createShared()->getClassName(), points.getClassName());
}

TEST(PlanIndexedColl, equalsWhatHasTheSameEntriesInTheSameOrder)
{
    Points a;
    a.insert({0, 0, 0}, point(1, 1));
    a.insert({1, 0, 0}, point(2, 2));
    Points b;
    b.insert({1, 0, 0}, point(2, 2));
    EXPECT_FALSE(a == b);
    b.insert({0, 0, 0}, point(1, 1));
    EXPECT_FALSE(a == b) << "the order differs";
    Points c;
    c.insert({0, 0, 0}, point(1, 1));
    c.insert({1, 0, 0}, point(2, 3));
    EXPECT_FALSE(a == c);
    c.find({1, 0, 0})->access<Point::Y>() = 2;
    EXPECT_EQ(a, c);
    EXPECT_FALSE(a == Point());
}

TEST(PlanIndexedColl, isPrintedOnOneLine)
{
    Points points;
    points.insert({1, 0, 2}, point(1, 2));
    points.insert({0, 0, 0}, nullptr);
    std::ostringstream stream;
    stream << points;
    EXPECT_EQ(stream.str(), "{plans: [{z: 1, c: 0, t: 2}, {z: 0, c: 0, t: 0}], items: [{X: 1, Y: 2}, none]}");
}

TEST(PlanIndexedColl, comesBackFromAnArchive)
{
    Points points;
    points.initPlanIndexed(0, 3, 1);
    points.insert({1, 0, 2}, point(1, 2));
    points.insert({0, 0, 0}, nullptr);
    Points read;
    read.insert({5, 5, 5}, point(0, 0));
    const auto result = readFrom(archiveOf(points), read);
    ASSERT_TRUE(result) << result.getMessage();
    EXPECT_EQ(read, points);
    EXPECT_EQ(read.getMaxSizeC(), 3u);
}

TEST(PlanIndexedColl, staysAsItWasWhenTheArchiveContradictsItself)
{
    Points points;
    points.insert({1, 2, 3}, point(1, 2));
    points.insert({1, 2, 4}, point(3, 4));
    const std::string text = archiveOf(points);
    Points target;
    target.insert({0, 0, 0}, point(5, 6));
    const auto failure = [&](const std::string& what, const std::string& by) {
        const auto result = readFrom(replaced(text, what, by), target);
        EXPECT_FALSE(result);
        EXPECT_EQ(orderOf(target), (std::vector<PlanIndex>{{0, 0, 0}}));
        return result.getMessage();
    };
    EXPECT_EQ(failure("<uint64 name=\"t\" value=\"3\" />", "<uint64 name=\"t\" value=\"4\" />"),
              "The collection has an entry at plan (1, 2, 4) already: insert each plan once");
    EXPECT_EQ(failure("<uint64 name=\"t\" value=\"3\" />", "<uint64 name=\"t\" value=\"18446744073709551615\" />"),
              "Plan (1, 2, 18446744073709551615) can't be counted in 64 bits: use smaller indices");
    const std::string items = "<section name=\"items\">";
    const std::string first = text.substr(text.find(items));
    EXPECT_EQ(failure(first.substr(0, first.rfind("</orlix_archive>")),
                      items + "<uint64 name=\"size\" value=\"0\" /></section>"),
              "The archive has 2 plans for 0 items: it was changed by hand, write it anew");
}

RC_GTEST_PROP(PlanIndexedColl, comesBackWhateverItHolds, (const std::set<std::tuple<int, int, int>>& plans))
{
    Points points;
    for (const auto& [z, c, t] : plans) {
        const PlanIndex index(static_cast<unsigned int>(z), static_cast<unsigned int>(c), static_cast<unsigned int>(t));
        points.insert(index, z % 2 == 0 ? point(z, c) : nullptr);
    }
    Points read;
    RC_ASSERT(readFrom(archiveOf(points), read).getValue());
    RC_ASSERT(read == points);
}

TEST(ORLIXBaseDataMessages, haveEachAnIdAndTellWhatToDo)
{
    EXPECT_EQ(getORLIXBaseDataLoggerName(), "ORLIX.ORLIXBaseData");
    EXPECT_EQ(getORLIXBaseDataLogger().getName(), "ORLIX.ORLIXBaseData");
    EXPECT_EQ(getORLIXBaseDataLogMessageManager().getName(), "ORLIXBaseData");
    std::set<int> ids;
    for (const MessageText& text : MessageCatalogue<eORLIXBaseDataMessage>::texts()) {
        EXPECT_TRUE(ids.insert(text.id).second) << text.id;
        EXPECT_NE(std::string(text.text).find(": "), std::string::npos) << text.text;
    }
}

} // namespace
} // namespace orlix::test
