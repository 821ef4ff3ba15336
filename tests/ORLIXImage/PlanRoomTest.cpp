// Behind every plan of a new image lie as many elements as the widest kernel may write past its last one, and none of
// them is another plan's.
#include "ORLIXIPL/ORLIXImage/ImageFactory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace orlix::image {
namespace {

constexpr unsigned long g_room = 64; // elements

/// Plans as [first byte, byte behind the room).
void expectRoom(const BaseImage& image)
{
    std::vector<std::pair<const std::byte*, const std::byte*>> plans;
    for (unsigned long t = 0; t < image.getSizeT(); ++t) {
        for (unsigned long c = 0; c < image.getSizeC(); ++c) {
            for (unsigned long z = 0; z < image.getSizeZ(); ++z) {
                const std::byte* const first = image.accessRow(0, z, c, t);
                const unsigned long nbElements = image.getSizeX() * image.getSizeY() + g_room;
                plans.emplace_back(first, first + nbElements * elementSize(image.getBufferType(t)));
            }
        }
    }
    std::sort(plans.begin(), plans.end());
    for (unsigned long i = 1; i < plans.size(); ++i) {
        EXPECT_GE(plans[i].first, plans[i - 1].second) << image.getGeometry().toString() << ", plan " << i;
    }
}

TEST(PlanRoomTest, BetweenAllPlans)
{
    for (const eImageBufferType type : g_allBufferTypes) {
        for (const unsigned long sizeX : {1UL, 63UL, 64UL, 65UL, 128UL}) {
            expectRoom(*createImage(*geometry5d(type, sizeX, 1, 3, 2, 2)));
        }
    }
}

TEST(PlanRoomTest, BetweenStepsOfSeveralTypes)
{
    TemporalGeometry temporal;
    temporal.initSequence(3);
    for (const unsigned long sizeX : {1UL, 63UL, 64UL, 65UL}) {
        expectRoom(*createImage(
            BaseImageGeometry({eImageBufferType::Real32, eImageBufferType::UInt8, eImageBufferType::UInt16}, sizeX, 2,
                              VolumeGeometry(), ColorGeometry(), temporal)));
    }
}

} // namespace
} // namespace orlix::image
