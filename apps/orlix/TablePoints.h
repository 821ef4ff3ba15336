// The points of a table, put where they lie in an image.
#pragma once

#include "PointTable.h"

#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/CoordsColl.h"
#include "ORLIXIPL/ORLIXImage/BaseImage.h"

namespace orlix::cli {

/// How coordinates are to be taken.
struct PointOptions
{
    std::optional<PlanIndex> plan; ///< of points whose rows don't tell theirs
    bool bCalibrated = false;      ///< coordinates are in the image's unit
    bool bMirror = false;          ///< points may lie outside
};

/// All points in pixels, by plan or, for a table with a column z, by volume; and where each came from.
class TablePoints
{
public:
    /// Throws CommandException for a row that is wrong, or whose point lies nowhere in the image.
    TablePoints(const PointTable& table, const std::string& imageFile, const image::BaseImage& image,
                const PointOptions& options);

    bool isVolume() const { return m_bVolume; }
    boost::shared_ptr<const imaproc::attr::PlanIndexedCoords2dColl> getPoints2d() const { return m_points2d; }
    boost::shared_ptr<const imaproc::attr::PlanIndexedCoords3dColl> getPoints3d() const { return m_points3d; }

    /// Of a row, in pixels; z is 0 in a plan.
    const std::array<double, 3>& getPlace(unsigned long row) const { return m_places[row]; }
    const PlanIndex& getPlan(unsigned long row) const { return m_plans[row]; }

private:
    PlanIndex readPlan(const std::array<std::string, 5>& fields, unsigned long row) const;
    std::array<double, 3> readPlace(const std::array<std::string, 5>& fields, unsigned long row) const;
    void checkInside(const std::array<double, 3>& place, unsigned long row) const;
    void checkPlans() const;
    void add(const std::array<double, 3>& place, const PlanIndex& plan);

    const PointTable& m_table;
    const std::string& m_imageFile;
    const image::BaseImage& m_image;
    PointOptions m_options;
    bool m_bVolume;
    boost::shared_ptr<imaproc::attr::PlanIndexedCoords2dColl> m_points2d;
    boost::shared_ptr<imaproc::attr::PlanIndexedCoords3dColl> m_points3d;
    std::vector<std::array<double, 3>> m_places;
    std::vector<PlanIndex> m_plans;
};

} // namespace orlix::cli
