// An image and points on it, which live while one comparison runs.
#pragma once

#include "peers/OpenCvRemap.h"

#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/CoordsColl.h"
#include "ORLIXIPL/ORLIXIPLAttributes/DataItem/ImageValueExtractionMethod.h"

#include <string>
#include <vector>

namespace orlix::bench {

enum class ePointOrder {
    random,
    sorted, ///< random, in the order of the rows
    dense   ///< one a pixel, in the order of the rows, as many as fit
};

struct PointsCase
{
    unsigned long nbAxes; ///< 2 or 3
    unsigned long size;   ///< pixels on each of them
    ePointOrder order;
    unsigned policy; ///< 0, 1 or 2
    unsigned long nbThreads;

    std::string getName() const;
    unsigned long getNbPixels() const;
};

class PointsFixture
{
public:
    static constexpr unsigned long s_nbPoints = 1000000;

    explicit PointsFixture(const PointsCase& work) : m_case(work) {}

    void setUp();
    void tearDown();

    void runOperator(const boost::shared_ptr<const imaproc::attr::ImageValueExtractionMethod>& method) const;
    void runLoop();
    void runAnyAxes();
    void runPeer() const { m_peer(); }
    bool hasPeer() const;

private:
    void makePoints();

    PointsCase m_case;
    ImagePtr m_image;
    std::vector<double> m_places;
    std::vector<double> m_values;
    boost::shared_ptr<imaproc::attr::Coords2dColl> m_points2d;
    boost::shared_ptr<imaproc::attr::Coords3dColl> m_points3d;
    PeerPass m_peer;
};

} // namespace orlix::bench
