// Data items of the tests' own: leaves by type, named members, nested records and collections.
#pragma once

#include "ORLIX/ORLIXBaseData/DataItemLeaves.h"
#include "ORLIX/ORLIXBaseData/DataItemNode.h"
#include "ORLIX/ORLIXBaseData/PlanIndexedColl.h"
#include "ORLIX/ORLIXUtil/NumericLimits.h"

#include <string>
#include <vector>

namespace orlix::test {

struct PointLeaves
{
    struct X : DataItemLeaf<double>
    {
        static constexpr const char* g_name = "X";
    };
    struct Y : DataItemLeaf<double>
    {
        static constexpr const char* g_name = "Y";
        Y() : DataItemLeaf<double>(-1) {}
    };
};
struct PointRecord : PointLeaves, DataItemLeaves<PointLeaves::X, PointLeaves::Y>
{
    static constexpr const char* g_className = "orlix::test::Point";
};
class Point final : public DataItemNode<Point, PointRecord>
{};

/// A record without a class name of its own, as a member of others.
struct Position
{
    unsigned long x = NumericLimits<unsigned long>::s_max;
    unsigned long y = NumericLimits<unsigned long>::s_max;

    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("x", &Position::x);
        visitor("y", &Position::y);
    }
};

struct SampleRecord
{
    static constexpr const char* g_className = "orlix::test::Sample";

    bool bFlag = true;
    signed char small = -5;
    float real = 0.5f;
    std::string text = "start";
    Position position;
    Point point;
    boost::shared_ptr<Point> shared;
    std::vector<double> values;
    std::vector<Position> positions;
    std::vector<boost::shared_ptr<Point>> points;
    std::vector<std::vector<int>> rows;

    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("flag", &SampleRecord::bFlag);
        visitor("small", &SampleRecord::small);
        visitor("real", &SampleRecord::real);
        visitor("text", &SampleRecord::text);
        visitor("position", &SampleRecord::position);
        visitor("point", &SampleRecord::point);
        visitor("shared", &SampleRecord::shared);
        visitor("values", &SampleRecord::values);
        visitor("positions", &SampleRecord::positions);
        visitor("points", &SampleRecord::points);
        visitor("rows", &SampleRecord::rows);
    }
};
class Sample final : public DataItemNode<Sample, SampleRecord>
{};

inline boost::shared_ptr<Point> point(double x, double y)
{
    auto made = boost::make_shared<Point>();
    made->access<Point::X>() = x;
    made->access<Point::Y>() = y;
    return made;
}

/// The object as archive text, and the way back.
std::string archiveOf(const BaseDataItem& item);
ProcessingResult<bool> readFrom(const std::string& archive, BaseDataItem& target);

} // namespace orlix::test
