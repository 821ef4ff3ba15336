// Items of a collection, each to the range that holds its line, once, and none twice.
#include "ORLIX/ORLIXBaseProcessing/DynamicByRangeDataSplit.h"

#include "ORLIX/ORLIXBaseProcessing/ORLIXBaseProcessingException.h"
#include "ORLIX/ORLIXBaseProcessing/ProcessorDispatchers.h"
#include "ORLIXBaseProcessing/ResultProcessor.h"
#include "ORLIXCore/TestActions.h"
#include "support/Executors.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

namespace orlix::processor::test {
namespace {

using core::BasePriority;
using orlix::testing::makeAllExecutors;
using orlix::testing::NamedExecutor;
using Split = DynamicByRangeDataSplit<PointProcessor, InOutPoints, Points::Coll, Point::Y>;
using Dispatcher = DynamicProcessorDispatcher<PointProcessor>;

boost::shared_ptr<Points> pointsAt(const std::vector<double>& lines)
{
    auto points = boost::make_shared<Points>();
    for (const double y : lines) {
        auto point = boost::make_shared<Point>();
        point->access<Point::Y>() = y;
        points->access<Points::Coll>().push_back(point);
    }
    return points;
}

std::vector<double> valuesOf(const Points& points)
{
    std::vector<double> values;
    for (const auto& point : points.get<Points::Coll>()) {
        values.push_back(point->get<Point::Value>());
    }
    return values;
}

/// The lines of the points that a range got, in the order in which it got them.
std::vector<double> givenBy(Split& split, PointProcessor& lower, unsigned long start, unsigned long size)
{
    EXPECT_TRUE(split.processAttribute(lower, start, size, core::BaseRequestOrigin(0)).getValue());
    std::vector<double> lines;
    for (const auto& point : lower.getStorage<InOutPoints>()->get<Points::Coll>()) {
        lines.push_back(point->get<Point::Y>());
    }
    return lines;
}

TEST(DynamicByRangeDataSplit, ValuesComeToTheirPlaceOnEveryExecutor)
{
    const std::vector<double> lines = {17.5, 0, 99.99, 4.999, 5, 17.5, 42, 41.3, 100, -0.5, -1, 3, 1e30, 98.2};
    // Lines 100 to 104 are none, -0.5 is on line 0, and -1 wraps.
    const std::vector<double> expected = {15017.5, 0, 95099.99, 4.999, 5005, 15017.5, 40042,
                                          40041.3, 0, -0.5,     0,     3,    1e30,    95098.2};
    for (const NamedExecutor& each : makeAllExecutors()) {
        SCOPED_TRACE(each.name);
        const boost::shared_ptr<Points> points = pointsAt(lines);
        RangeIndexMap indices;
        Dispatcher dispatcher;
        ASSERT_TRUE(
            dispatcher
                .init(BasePriority(), linesOf<PointProcessor>(100, 5),
                      dynamicByRangeDataSplit<PointProcessor, InOutPoints, Points::Coll, Point::Y>(points, indices))
                .getValue());
        ASSERT_TRUE(core::runOn(*each.executor, dispatcher).getValue());
        EXPECT_EQ(valuesOf(*points), expected) << "items are shared, not copied";
        std::vector<unsigned long> found;
        unsigned long next = 0;
        for (const auto& [range, positions] : indices) {
            EXPECT_EQ(range, ElementsRange(next, 5));
            for (const unsigned long position : positions) {
                const double line = std::trunc(lines[position]);
                EXPECT_TRUE(line == 1e30 ||
                            (line >= static_cast<double>(next) && line < static_cast<double>(next + 5)));
                found.push_back(position);
            }
            next += 5;
        }
        EXPECT_EQ(next, 100u);
        EXPECT_EQ(found, (std::vector<unsigned long>{1, 3, 9, 11, 12, 4, 0, 5, 6, 7, 2, 13}));
    }
}

TEST(DynamicByRangeDataSplit, KeepsTheOrderOfTheCollection)
{
    Split split;
    PointProcessor lower;
    ASSERT_TRUE(lower.init(eProcessorRulePolicy::eRulePolicyCheck).getValue());
    ASSERT_TRUE(split.initBase(pointsAt({7.9, 3, 8, 5, 7.1, 3, 6})).getValue());
    EXPECT_EQ(givenBy(split, lower, 3, 5), (std::vector<double>{7.9, 3, 5, 7.1, 3, 6})) << "line 8 is outside";
    EXPECT_EQ(givenBy(split, lower, 8, 1), (std::vector<double>{8}));
    EXPECT_EQ(givenBy(split, lower, 0, 3), (std::vector<double>{}));
    EXPECT_EQ(givenBy(split, lower, 4, 0), (std::vector<double>{}));
    EXPECT_EQ(givenBy(split, lower, 7, ~0UL), (std::vector<double>{7.9, 8, 7.1})) << "a sum that wraps";
}

TEST(DynamicByRangeDataSplit, TakesWholeNumbersAsKeys)
{
    const auto points = pointsAt({0.1, 0.2, 0.3});
    const std::vector<unsigned long> rows = {9, 2, ~0UL};
    for (unsigned long i = 0; i < rows.size(); ++i) {
        points->access<Points::Coll>()[i]->access<Point::Row>() = rows[i];
    }
    DynamicByRangeDataSplit<PointProcessor, InOutPoints, Points::Coll, Point::Row> split;
    PointProcessor lower;
    ASSERT_TRUE(lower.init(eProcessorRulePolicy::eRulePolicyCheck).getValue());
    ASSERT_TRUE(split.initBase(points).getValue());
    ASSERT_TRUE(split.processAttribute(lower, 0, 10, core::BaseRequestOrigin(0)).getValue());
    const auto& given = lower.getStorage<InOutPoints>()->get<Points::Coll>();
    ASSERT_EQ(given.size(), 2u);
    EXPECT_EQ(given[0], points->get<Points::Coll>()[0]);
    EXPECT_EQ(given[1], points->get<Points::Coll>()[1]);
}

TEST(DynamicByRangeDataSplit, AnEmptyCollectionGivesEveryRangeAnEmptyOne)
{
    Split split;
    PointProcessor lower;
    RangeIndexMap indices;
    ASSERT_TRUE(lower.init(eProcessorRulePolicy::eRulePolicyCheck).getValue());
    ASSERT_TRUE(split.initBase(boost::make_shared<Points>(), indices).getValue());
    EXPECT_TRUE(givenBy(split, lower, 0, 10).empty());
    EXPECT_EQ(indices.size(), 1u);
    EXPECT_TRUE(indices.begin()->second.empty());
}

TEST(DynamicByRangeDataSplit, KeysAreReadAtSetUpAndNothingIsKeptAfterARun)
{
    Split split;
    PointProcessor lower;
    RangeIndexMap indices;
    ASSERT_TRUE(lower.init(eProcessorRulePolicy::eRulePolicyCheck).getValue());
    const auto points = pointsAt({3, 4});
    ASSERT_TRUE(split.initBase(points, indices).getValue());
    points->access<Points::Coll>()[0]->access<Point::Y>() = 50;
    EXPECT_EQ(givenBy(split, lower, 0, 10), (std::vector<double>{50, 4}));
    split.clear();
    EXPECT_EQ(points.use_count(), 1);
    EXPECT_EQ(indices.size(), 1u) << "the map is the level's";
    ASSERT_TRUE(split.initBase(points, indices).getValue());
    EXPECT_TRUE(indices.empty()) << "a set-up empties the map";
    EXPECT_EQ(givenBy(split, lower, 0, 10), (std::vector<double>{4}));
    ASSERT_TRUE(split.initBase(points).getValue());
    EXPECT_EQ(givenBy(split, lower, 0, 60), (std::vector<double>{50, 4}));
    EXPECT_EQ(indices.size(), 1u) << "without a map nothing is filed";
}

TEST(DynamicByRangeDataSplit, NullPointersAreMisuse)
{
    const auto messageOf = [](const boost::shared_ptr<Points>& points) {
        try {
            static_cast<void>(Split().initBase(points));
        } catch (const ORLIXBaseProcessingException& error) {
            return std::string(error.what());
        }
        return std::string("no exception");
    };
    const std::string text = "The split for attribute InOutPoints was given a null pointer: give it data that exists";
    EXPECT_EQ(messageOf(nullptr), text);
    const auto points = pointsAt({1, 2});
    points->access<Points::Coll>()[1].reset();
    EXPECT_EQ(messageOf(points), text);
}

TEST(DynamicByRangeDataSplit, FeedsItsAttributeOfItsClass)
{
    const Split split;
    EXPECT_EQ(split.getAttributeName(), "InOutPoints");
    EXPECT_EQ(split.getAttributeToolTip(), "Points that get values");
    EXPECT_EQ(split.getSplitDynamicType(), eSplitDynamicType::eDynamicByRangeDataSplit);
    EXPECT_FALSE(split.getRangeDemand().bHasLines);
    EXPECT_TRUE(split.checkProcessorType(PointProcessor()));
    EXPECT_FALSE(split.checkProcessorType(SumProcessor()));
    DynamicProcessorDispatcher<SumProcessor> dispatcher;
    const auto made =
        dynamicByRangeDataSplit<PointProcessor, InOutPoints, Points::Coll, Point::Y>(boost::make_shared<Points>());
    ASSERT_TRUE(dispatcher.init(BasePriority(), made, linesOf<SumProcessor>(20, 5)).getValue());
    EXPECT_EQ(
        core::runOn(*core::makeTbbExecutor(1), dispatcher).getMessage(),
        "The split for attribute InOutPoints does not feed processors of class SumProcessor: make it for that class");
}

// Every item whose line is one of the plan's goes to one range, and that one holds its line.
RC_GTEST_PROP(DynamicByRangeDataSplitProperty, EveryItemGoesToOneRange, ())
{
    const unsigned long nbLines = *rc::gen::inRange(1UL, 60UL);
    const unsigned long linesPerRange = *rc::gen::inRange(1UL, 20UL);
    const auto quarters = *rc::gen::container<std::vector<int>>(rc::gen::inRange(-20, 300));
    std::vector<double> lines;
    for (const int quarter : quarters) {
        lines.push_back(quarter / 4.0);
    }
    const boost::shared_ptr<Points> points = pointsAt(lines);
    const auto split = dynamicByRangeDataSplit<PointProcessor, InOutPoints, Points::Coll, Point::Y>(points);
    Dispatcher dispatcher;
    RC_ASSERT(dispatcher.init(BasePriority(), split, linesOf<PointProcessor>(nbLines, linesPerRange)).getValue());
    RC_ASSERT(core::runOn(*core::makePlainThreadExecutor(*rc::gen::inRange(1UL, 9UL)), dispatcher).getValue());
    const std::vector<double> values = valuesOf(*points);
    for (unsigned long i = 0; i < lines.size(); ++i) {
        const double line = std::trunc(lines[i]);
        const bool bInside = line > -1 && line < static_cast<double>(nbLines);
        const double start = std::floor(line / static_cast<double>(linesPerRange)) * static_cast<double>(linesPerRange);
        RC_ASSERT(values[i] == (bInside ? 1000 * start + lines[i] : 0));
    }
}

} // namespace
} // namespace orlix::processor::test
