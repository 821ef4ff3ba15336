#include "points/PointsFixture.h"

#include "points/PointLoops.h"

#include "ORLIX/ORLIXCore/BaseExecutor.h"
#include "ORLIXIPL/ORLIXIPLUtility/ORLIXIPLUtility.h"
#include "ORLIXIPL/ORLIXImage/ORLIXImage.h"

#include <algorithm>
#include <array>
#include <random>

namespace orlix::bench {

namespace {

using imaproc::attr::eInterpolationPolicy;

constexpr const char* g_orders[] = {"random", "sorted", "dense"};
constexpr const char* g_policies[] = {"nearest", "linear", "cubic"};

template <unsigned long nbAxes>
void sortByRow(std::vector<double>& places)
{
    auto* const first = reinterpret_cast<std::array<double, nbAxes>*>(places.data());
    std::sort(first, first + places.size() / nbAxes, [](const auto& left, const auto& right) {
        for (unsigned long axis = nbAxes - 1; axis > 0; --axis) {
            const auto a = static_cast<unsigned long>(left[axis]);
            const auto b = static_cast<unsigned long>(right[axis]);
            if (a != b) {
                return a < b;
            }
        }
        return left[0] < right[0];
    });
}

} // namespace

std::string PointsCase::getName() const
{
    const std::string side = std::to_string(size);
    return (nbAxes == 2 ? "plan/" + side + "x" + side : "volume/" + side + "x" + side + "x" + side) + "/" +
           g_orders[static_cast<int>(order)] + "/" + g_policies[policy] + "/" + std::to_string(nbThreads) +
           (nbThreads == 1 ? "-thread" : "-threads");
}

unsigned long PointsCase::getNbPixels() const
{
    return nbAxes == 2 ? size * size : size * size * size;
}

/// Clear of the border, as the bare loops need it.
void PointsFixture::makePoints()
{
    const double span = static_cast<double>(m_case.size) - 5;
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> part(0, 1);
    m_places.resize(s_nbPoints * m_case.nbAxes);
    for (unsigned long i = 0; i < m_places.size(); ++i) {
        m_places[i] = 1 + part(random) * span;
    }
    if (m_case.order == ePointOrder::sorted) {
        m_case.nbAxes == 2 ? sortByRow<2>(m_places) : sortByRow<3>(m_places);
    }
    if (m_case.order == ePointOrder::dense) {
        const auto side = static_cast<unsigned long>(span);
        for (unsigned long i = 0; i < s_nbPoints; ++i) {
            for (unsigned long axis = 0, rest = i; axis < m_case.nbAxes; ++axis, rest /= side) {
                m_places[i * m_case.nbAxes + axis] = 1.25 + static_cast<double>(rest % side);
            }
        }
    }
}

void PointsFixture::setUp()
{
    core::setNbThreads(m_case.nbThreads == core::getNbUsableThreads() ? 0 : m_case.nbThreads);
    setOpenCvThreads(m_case.nbThreads);
    using Type = image::eImageBufferType;
    m_image = image::createImage(m_case.nbAxes == 2
                                     ? *image::geometry2d(Type::Real32, m_case.size, m_case.size)
                                     : *image::geometry3d(Type::Real32, m_case.size, m_case.size, m_case.size));
    for (unsigned long z = 0; z < m_image->getSizeZ(); ++z) {
        float* const pixels = image::planData<float>(*m_image, z, 0, 0);
        for (unsigned long i = 0; i < m_case.size * m_case.size; ++i) {
            pixels[i] = static_cast<float>((i * 37 + z) % 127);
        }
    }
    makePoints();
    m_values.assign(s_nbPoints, 0);
    if (m_case.nbAxes == 2) {
        m_points2d = imaproc::attr::createCoords2dColl(m_places);
        m_peer = makeOpenCvRemap(*m_image, m_places, m_case.policy);
    } else {
        m_points3d = imaproc::attr::createCoords3dColl(m_places);
    }
}

void PointsFixture::tearDown()
{
    m_peer = {};
    m_points2d.reset();
    m_points3d.reset();
    m_image.reset();
    m_places = {};
    m_values = {};
    core::setNbThreads(0);
    image::releasePooledMemory();
}

void PointsFixture::runOperator(const boost::shared_ptr<const imaproc::attr::ImageValueExtractionMethod>& method) const
{
    const auto policy = static_cast<eInterpolationPolicy::domain>(m_case.policy);
    if (m_points2d) {
        static_cast<void>(imaproc::util::extractImg2dValues(m_image, m_points2d, policy, method));
    } else {
        static_cast<void>(imaproc::util::extractImg3dValues(m_image, m_points3d, policy, method));
    }
}

void PointsFixture::runLoop()
{
    m_case.nbAxes == 2 ? readPlan(*m_image, m_places, m_case.policy, m_values)
                       : readVolume(*m_image, m_places, m_case.policy, m_values);
}

void PointsFixture::runAnyAxes()
{
    readAnyAxes(*m_image, m_places, m_case.nbAxes, m_case.policy, m_values);
}

bool PointsFixture::hasPeer() const
{
    const ImagePtr image = image::createImage(*image::geometry2d(image::eImageBufferType::Real32, 8, 8));
    const double place[] = {1, 1};
    return m_case.nbAxes == 2 && static_cast<bool>(makeOpenCvRemap(*image, place, m_case.policy));
}

} // namespace orlix::bench
