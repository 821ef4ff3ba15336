// A level below that writes results: one object per range, or the items of a range.
#pragma once

#include "ORLIX/ORLIXBaseData/DataItemLeaves.h"
#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIX/ORLIXBaseProcessing/BaseAsyncProcessor.h"
#include "ORLIXBaseProcessing/LowerProcessor.h"

namespace orlix::processor::test {

/// A point that lies on a line and gets a value.
struct PointLeaves
{
    struct Y : DataItemLeaf<double>
    {
        static constexpr const char* g_name = "Y";
    };
    struct Row : DataItemLeaf<unsigned long>
    {
        static constexpr const char* g_name = "Row";
    };
    struct Value : DataItemLeaf<double>
    {
        static constexpr const char* g_name = "Value";
    };
};
struct PointRecord : PointLeaves, DataItemLeaves<PointLeaves::Y, PointLeaves::Row, PointLeaves::Value>
{
    static constexpr const char* g_className = "orlix::processor::test::Point";
};
class Point final : public DataItemNode<Point, PointRecord>
{};

struct PointsLeaves
{
    struct Coll : DataItemColl<boost::shared_ptr<Point>>
    {
        static constexpr const char* g_name = "Coll";
    };
};
struct PointsRecord : PointsLeaves, DataItemLeaves<PointsLeaves::Coll>
{
    static constexpr const char* g_className = "orlix::processor::test::Points";
};
class Points final : public DataItemNode<Points, PointsRecord>
{};

struct InOutPoints final : NamedAttribute<InOutPoints, BaseOutputDataItemAttribute<Points>>
{
    static constexpr const char* g_name = "InOutPoints";
    static constexpr const char* g_toolTip = "Points that get values";
};

/// What a range comes to.
struct Sum
{
    double total = 0;
    unsigned long nbRanges = 0;
};

struct OutSum final : NamedAttribute<OutSum, BaseOutputDataItemAttribute<Sum>>
{
    static constexpr const char* g_name = "OutSum";
    static constexpr const char* g_toolTip = "A sum that comes out";
};

/// Adds up the numbers of its lines.
class SumProcessor final : public Scaffold<SumProcessor, BaseSyncProcessor, TestLibrary, InLines, OutSum>
{
public:
    static constexpr ProcessorText g_text{"SumProcessor", eTestToolTip::eLower, "ResultProcessor.h"};

    RulePtr createRule() const { return none(); }
    void initOutputInitializers(OutputInitializerMap&) const {}

protected:
    ProcessingResult<bool> mainProcess() override
    {
        const LineRange lines = accessAttribute<InLines>()->getValue();
        Sum& sum = accessAttribute<OutSum>()->getDataItemNode();
        ++sum.nbRanges;
        for (unsigned long line = lines.start; line < lines.start + lines.size; ++line) {
            sum.total += static_cast<double>(line);
        }
        return true;
    }
};

/// Gives each of its points a value that tells which lines it was served with.
class PointProcessor final : public Scaffold<PointProcessor, BaseSyncProcessor, TestLibrary, InLines, InOutPoints>
{
public:
    static constexpr ProcessorText g_text{"PointProcessor", eTestToolTip::eLower, "ResultProcessor.h"};

    RulePtr createRule() const { return none(); }
    void initOutputInitializers(OutputInitializerMap&) const {}

protected:
    ProcessingResult<bool> mainProcess() override
    {
        const LineRange lines = accessAttribute<InLines>()->getValue();
        for (const auto& point : accessAttribute<InOutPoints>()->getDataItemNode().get<Points::Coll>()) {
            point->access<Point::Value>() += 1000.0 * static_cast<double>(lines.start) + point->get<Point::Y>();
        }
        return true;
    }
};

/// Gives ranges of lines to attribute InLines of `TProcessor`.
template <class TProcessor>
class LinesOf final : public FeedingSplit<BaseDynamicSplit, TProcessor, InLines>
{
public:
    explicit LinesOf(const RangeDemand& demand) : m_demand(demand) {}
    eSplitDynamicType getSplitDynamicType() const override { return eSplitDynamicType::eImageStripSplit; }
    ProcessingResult<bool> processAttribute(BaseProcessor& lower, unsigned long start, unsigned long size,
                                            const core::BaseRequestOrigin&) override
    {
        this->feed(lower, LineRange{start, size});
        return true;
    }
    RangeDemand getRangeDemand() const override { return m_demand; }
    void clear() override {}

private:
    RangeDemand m_demand;
};

/// So many lines, `linesPerRange` in each range but the last.
template <class TProcessor>
boost::shared_ptr<LinesOf<TProcessor>> linesOf(unsigned long nbLines, unsigned long linesPerRange)
{
    return boost::make_shared<LinesOf<TProcessor>>(RangeDemand{true, nbLines, 1UL << 30, linesPerRange});
}

} // namespace orlix::processor::test
