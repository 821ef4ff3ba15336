// Attributes that hold points by plan, and the tables by which a person gives them.
#pragma once

#include "ORLIX/ORLIXBaseProcessing/DataItemAttributes.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/CoordsColl.h"

namespace orlix::imaproc::attr {

namespace details {

/// A row of the table: a point, and the plan or volume that it lies in.
struct Placed2d
{
    double X = 0;
    double Y = 0;
    unsigned long Z = 0;
    unsigned long C = 0;
    unsigned long T = 0;

    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("X", &Placed2d::X);
        visitor("Y", &Placed2d::Y);
        visitor("Z", &Placed2d::Z);
        visitor("C", &Placed2d::C);
        visitor("T", &Placed2d::T);
    }
};
struct Placed3d
{
    double X = 0;
    double Y = 0;
    double Z = 0;
    unsigned long C = 0;
    unsigned long T = 0;

    template <class TVisitor>
    static void visit(TVisitor&& visitor)
    {
        visitor("X", &Placed3d::X);
        visitor("Y", &Placed3d::Y);
        visitor("Z", &Placed3d::Z);
        visitor("C", &Placed3d::C);
        visitor("T", &Placed3d::T);
    }
};

/// Reads a table of points, "@points.csv" or rows, into entries from plan 0 to the last that the table names; plans
/// between that it doesn't name get entries without points. Gives what is wrong with it, or nothing.
ORLIXIPLATTRIBUTES_API std::string readPlacedPoints(const std::string& text, PlanIndexedCoords2dColl& points);
ORLIXIPLATTRIBUTES_API std::string readPlacedPoints(const std::string& text, PlanIndexedCoords3dColl& points);
/// The rows of all entries; none where a plan has none, since an entry without points at the end can't be told.
ORLIXIPLATTRIBUTES_API std::optional<std::string> placedPointsText(const PlanIndexedCoords2dColl& points);
ORLIXIPLATTRIBUTES_API std::optional<std::string> placedPointsText(const PlanIndexedCoords3dColl& points);

} // namespace details

/// `TColl` is Coords2dColl or Coords3dColl.
template <class TColl>
class PlanIndexedCoordsAttribute : public processor::BaseInputMandatoryDataItemAttribute<PlanIndexedColl<TColl>>
{
    using Placed = std::conditional_t<std::is_same_v<TColl, Coords3dColl>, details::Placed3d, details::Placed2d>;

public:
    bool takesText() const override { return true; }
    std::string getValueKind() const override
    {
        return "@FILE.csv or rows such as \"X,Y;1,2\", with the columns " + processor::details::recordKind<Placed>();
    }
    ProcessingResult<bool> setFromText(const std::string& text) override
    {
        const auto points = boost::make_shared<PlanIndexedColl<TColl>>();
        if (const std::string flaw = details::readPlacedPoints(text, *points); !flaw.empty()) {
            return processor::details::itemTextFailed(*this, flaw);
        }
        this->init(points);
        return true;
    }
    std::optional<std::string> getValueText() const override
    {
        return this->isHeld() ? details::placedPointsText(this->getDataItemNode()) : std::nullopt;
    }
};

} // namespace orlix::imaproc::attr
